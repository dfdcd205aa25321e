#ifndef Sci_ChartRenderWidgetH
#define Sci_ChartRenderWidgetH

#include <QImage>
#include <QWidget>

namespace SCI {

/*! Shows a chart rendered as an image, e.g. the preview of an export: the image is scaled down
	to fit the widget with its aspect ratio kept (never enlarged), centred, with a thin border.
*/
class ChartRenderWidget : public QWidget {
	Q_OBJECT
public:
	explicit ChartRenderWidget(QWidget * parent = nullptr);

	/*! The image shown (a null image: nothing). */
	void setImage(const QImage & image);
	const QImage & image() const { return m_image; }

	QSize sizeHint() const override;

protected:
	void paintEvent(QPaintEvent * event) override;

private:
	QImage	m_image;
};

} // namespace SCI

#endif // Sci_ChartRenderWidgetH
