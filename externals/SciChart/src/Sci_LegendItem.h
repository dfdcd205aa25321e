#ifndef Sci_LegendItemH
#define Sci_LegendItemH

#include <QSize>

#include <qwt_plot_legenditem.h>

namespace SCI {

class AbstractChartModel;

/*! The legend of a chart when it is placed inside the canvas. It sits in one corner of the
	canvas (model property LegendAlignment: 0 top left, 1 top right, 2 bottom left, 3 bottom
	right), shifted into the canvas by the legend offset (horizontal and vertical distance from
	that corner in pixels), on a background of the legend colour whose opacity is the model's
	LegendBackgroundTransparency (1 = opaque), with an optional frame.
*/
class LegendItem : public QwtPlotLegendItem {
public:
	LegendItem();

	/*! Takes over the legend properties of the model. */
	void applyProperties(const AbstractChartModel & model);

	/*! Distance from the anchoring corner of the canvas. */
	void setOffset(const QSize & offset);
	QSize offset() const { return m_offset; }
	/*! The offset after moving the legend by delta pixels from where offset start placed it. */
	QSize movedOffset(const QSize & start, const QPoint & delta) const;

	/*! The legend's rectangle inside the canvas. */
	QRect geometry(const QRectF & canvasRect) const override;

	/*! Corner flags for a LegendAlignment number (unknown numbers: bottom right). */
	static Qt::Alignment cornerAlignment(int alignment);

private:
	QSize	m_offset = QSize(10, 10);
};

} // namespace SCI

#endif // Sci_LegendItemH
