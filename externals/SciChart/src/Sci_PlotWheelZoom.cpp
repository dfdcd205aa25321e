#include "Sci_PlotWheelZoom.h"

#include <cmath>

#include <QWheelEvent>

#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

#include "Sci_Chart.h"

namespace SCI {

PlotWheelZoom::PlotWheelZoom(Chart * chart) :
	QObject(chart),
	m_chart(chart)
{
	chart->canvas()->installEventFilter(this);
	for (int axisId : { QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight })
		chart->axisWidget(axisId)->installEventFilter(this);
}


void PlotWheelZoom::zoom(const QList<int> & axisIds, const QPointF & pos, double factor) {
	if (axisIds.isEmpty() || !(factor > 0))
		return;
	QList<double> cursorValues;
	for (int axisId : axisIds) {
		const QwtScaleMap map = m_chart->canvasMap(axisId);
		// in pixels the zoom is a scaling around the cursor, whatever the axis' transformation
		const double pixel = axisId == QwtPlot::xBottom ? pos.x() : pos.y();
		cursorValues << map.invTransform(pixel);
		setScale(axisId, pixel + (map.p1() - pixel)*factor, pixel + (map.p2() - pixel)*factor);
	}
	// labels of other widths move the canvas: shift each axis so that its value is under the cursor again
	m_chart->updateAxes();
	m_chart->updateLayout();
	for (int i = 0; i < axisIds.size(); ++i) {
		const QwtScaleMap map = m_chart->canvasMap(axisIds[i]);
		const double shift = map.transform(cursorValues[i]) - (axisIds[i] == QwtPlot::xBottom ? pos.x() : pos.y());
		setScale(axisIds[i], map.p1() + shift, map.p2() + shift);
	}
	m_chart->replot();
}


void PlotWheelZoom::setScale(int axisId, double pixel1, double pixel2) {
	const QwtScaleMap map = m_chart->canvasMap(axisId);
	const double s1 = map.invTransform(pixel1);
	const double s2 = map.invTransform(pixel2);
	if (std::isfinite(s1) && std::isfinite(s2) && s1 != s2)
		m_chart->setAxisScale(axisId, s1, s2);
}


bool PlotWheelZoom::eventFilter(QObject * watched, QEvent * event) {
	if (event->type() != QEvent::Wheel)
		return false;
	QWheelEvent * wheel = static_cast<QWheelEvent *>(event);
	const int delta = wheel->angleDelta().y();
	if (delta == 0)
		return false;
	QWidget * canvas = m_chart->canvas();
	QList<int> axes;
	if (watched == canvas)
		axes = canvasAxes();
	else {
		for (int axisId : canvasAxes())
			if (watched == m_chart->axisWidget(axisId))
				axes << axisId;
	}
	if (axes.isEmpty())
		return false;
	const QPoint pos = canvas->mapFromGlobal(static_cast<QWidget *>(watched)->mapToGlobal(wheel->position().toPoint()));
	zoom(axes, pos, std::pow(STEP_FACTOR, delta/120.0));
	return true;
}


QList<int> PlotWheelZoom::canvasAxes() const {
	QList<int> axes;
	for (int axisId : { QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight }) {
		const Chart::ChartType type = m_chart->chartType();
		const bool colorBar = axisId == QwtPlot::yRight && (type == Chart::ColorGridChart || type == Chart::VectorFieldChart);
		// bars stand on fixed positions of the x axis
		const bool barPositions = axisId == QwtPlot::xBottom && type == Chart::BarChart;
		if (m_chart->axisEnabled(axisId) && !colorBar && !barPositions)
			axes << axisId;
	}
	return axes;
}

} // namespace SCI
