#ifndef Sci_PlotScaleItemH
#define Sci_PlotScaleItemH

#include <qwt_plot_scaleitem.h>

namespace SCI {

/*! A scale drawn inside the canvas along the canvas border of one chart axis, with ticks and
	labels pointing into the canvas; used when the chart property AxisScalesInside is set. It
	follows the scale of its axis; labels sit on the inner side of the ticks.
*/
class PlotScaleItem : public QwtPlotScaleItem {
public:
	/*! Scale for axis position 0 (bottom), 1 (left) or 2 (right) drawn with scaleDraw (owned)
		in the given font. */
	PlotScaleItem(int axisPosition, QwtScaleDraw * scaleDraw, const QFont & font);
};

} // namespace SCI

#endif // Sci_PlotScaleItemH
