#ifndef Sci_ChartElementLocatorH
#define Sci_ChartElementLocatorH

#include <QPoint>

#include "Sci_ChartElement.h"

class QWidget;

namespace SCI {

class Chart;

/*! Tells which element of a chart lies under a point of one of the chart's widgets (title
	label, axis widgets, legend and its entries, canvas). On the canvas, a line series counts
	when one of its segments passes within a few pixels of the point, and the legend drawn
	inside the canvas covers what lies beneath it; colour grid and vector field charts fill
	their canvas with their one series.
*/
class ChartElementLocator {
public:
	/*! Pixels within which a curve counts as hit. */
	static constexpr double CURVE_CATCH_DISTANCE = 5;

	/*! The element at pos (coordinates of widget); None for widgets that are not the chart's. */
	static ChartElement elementAt(const Chart & chart, const QWidget * widget, const QPoint & pos);

private:
	/*! The element at a point of the canvas. */
	static ChartElement canvasElementAt(const Chart & chart, const QPoint & pos);
	/*! Model index of the line series nearest to pos within the catch distance, -1 for none. */
	static int curveAt(const Chart & chart, const QPoint & pos);
	/*! Model index of the series whose legend entry is widget (or holds it), -1 for none. */
	static int legendEntrySeries(const Chart & chart, const QWidget * widget);
};

/*! Distance in pixels from point p to the segment a-b. */
double distanceToSegment(const QPointF & p, const QPointF & a, const QPointF & b);

} // namespace SCI

#endif // Sci_ChartElementLocatorH
