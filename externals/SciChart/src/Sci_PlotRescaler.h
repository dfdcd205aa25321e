#ifndef Sci_PlotRescalerH
#define Sci_PlotRescalerH

#include <qwt_plot_rescaler.h>

namespace SCI {

/*! Keeps one unit on the x axis as long on screen as one unit on the left y axis, for charts
	with proportional axes (e.g. a cross-section of a construction). The scales are widened so
	that the given rectangle fits, also when the canvas is resized. Disabled until enabled.
*/
class PlotRescaler : public QwtPlotRescaler {
public:
	/*! A rescaler for the plot that owns canvas. */
	explicit PlotRescaler(QWidget * canvas);

	/*! Sets the scales so that rect (x in bottom axis units, y in left axis units) is fully
		shown at equal scales. */
	void fitTo(const QRectF & rect);
};

} // namespace SCI

#endif // Sci_PlotRescalerH
