#ifndef Sci_Export2BitmapWidgetH
#define Sci_Export2BitmapWidgetH

#include <memory>

#include <QImage>

#include "Sci_AbstractExportWidget.h"

namespace SCI {

/*! The bitmap tab of the export dialog: resolution, size in pixels or millimetres (linked through
	the resolution, optionally in the chart's proportions), scaling of fonts and plot items with
	the resolution, and two previews of the image that will be exported, one in original size
	and one scaled down.
*/
class Export2BitmapWidget : public AbstractExportWidget {
	Q_OBJECT
public:
	/*! Largest width or height that is rendered for the previews. */
	static constexpr int MAX_PREVIEW_SIDE = 4000;

	/*! Starts with the chart's size on screen at screen resolution. */
	explicit Export2BitmapWidget(QwtPlot * plot, QWidget * parent = nullptr);
	~Export2BitmapWidget() override;

	/*! Parts of the chart to draw; renders the previews again. */
	void setComponents(const ExportComponents & components);

	/*! True when the size entered is valid. */
	bool canExport() const;
	/*! Size of the image in pixels. */
	QSize pixelSize() const;
	/*! Resolution in dots per inch. */
	int resolution() const;
	/*! Sets the size in pixels and the resolution (pixel mode). */
	void setSize(const QSize & pixels, int dpi);
	/*! The image to export: the unscaled preview, or, when the image is too large for a preview,
		a newly rendered one. Throws ZEB::Exception when it cannot be rendered.
	*/
	QImage image() const;

public slots:
	/*! Computes the size pair that is not edited (millimetres in pixel mode, pixels in mm mode)
		from the edited pair and the resolution, then renders the previews again.
	*/
	void updateDimensions();

private slots:
	void on_spinBox_resolution_valueChanged(int value);
	void on_lineEditPixelX_editingFinished();
	void on_lineEditPixelY_editingFinished();
	void on_lineEditMMX_editingFinished();
	void on_lineEditMMY_editingFinished();
	void on_radioButtonPixels_toggled(bool checked);

private:
	struct Ui;

	/*! Builds the widgets. */
	void setupUi();
	/*! Renders the previews for the current settings. */
	void updatePreview();

	std::unique_ptr<Ui>	m_ui;
	/*! The unscaled preview; null when the image is too large or the size invalid. */
	QImage				m_image;
};

} // namespace SCI

#endif // Sci_Export2BitmapWidgetH
