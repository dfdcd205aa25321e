#ifndef Sci_PlotWheelZoomH
#define Sci_PlotWheelZoomH

#include <QList>
#include <QObject>

class QPointF;

namespace SCI {

class Chart;

/*! Zooms a chart with the mouse wheel around the point under the cursor, which stays where it
	is: over the canvas all shown axes zoom (not the colour bar, nor the bar positions of a bar
	chart), over an axis only that axis.
	Each step of the wheel (15 degrees) away from the user shrinks the shown range to STEP_FACTOR
	of it, each step towards the user widens it as much. Chart::resetView() returns to the
	model's axis settings.
*/
class PlotWheelZoom : public QObject {
public:
	/*! Range kept per wheel step when zooming in. */
	static constexpr double STEP_FACTOR = 0.8;

	/*! Watches the canvas and the axes of chart. */
	explicit PlotWheelZoom(Chart * chart);

	/*! Zooms the axes (plot axis ids) by factor (below 1: in) around the canvas position pos,
		then redraws. */
	void zoom(const QList<int> & axisIds, const QPointF & pos, double factor);

	bool eventFilter(QObject * watched, QEvent * event) override;

private:
	/*! Sets the scale of an axis to the values now at two pixel positions of the canvas. */
	void setScale(int axisId, double pixel1, double pixel2);
	/*! The axes that zoom over the canvas. */
	QList<int> canvasAxes() const;

	Chart *	m_chart;
};

} // namespace SCI

#endif // Sci_PlotWheelZoomH
