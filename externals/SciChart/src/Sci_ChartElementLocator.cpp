#include "Sci_ChartElementLocator.h"

#include <cmath>
#include <limits>

#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_widget.h>
#include <qwt_text_label.h>

#include "Sci_Chart.h"
#include "Sci_ChartSeries.h"
#include "Sci_LegendItem.h"

namespace SCI {

double distanceToSegment(const QPointF & p, const QPointF & a, const QPointF & b) {
	const QPointF ab = b - a;
	const double lengthSquared = QPointF::dotProduct(ab, ab);
	double t = 0;
	if (lengthSquared > 0)
		t = qBound(0.0, QPointF::dotProduct(p - a, ab) / lengthSquared, 1.0);
	const QPointF d = p - (a + t * ab);
	return std::sqrt(QPointF::dotProduct(d, d));
}


ChartElement ChartElementLocator::elementAt(const Chart & chart, const QWidget * widget, const QPoint & pos) {
	if (widget == nullptr)
		return ChartElement();
	if (widget == chart.titleLabel())
		return ChartElement(ChartElement::Title);
	if (widget == chart.canvas())
		return canvasElementAt(chart, pos);
	// model axis positions: 0 bottom, 1 left, 2 right
	const int qwtAxes[3] = { QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight };
	for (int position = 0; position < 3; ++position) {
		if (widget != chart.axisWidget(qwtAxes[position]))
			continue;
		if (position == 2 && chart.axisWidget(QwtPlot::yRight)->isColorBarEnabled())
			return ChartElement(ChartElement::ColorBar);
		return ChartElement(ChartElement::Axis, position);
	}
	const QwtAbstractLegend * legend = chart.legend();
	if (legend != nullptr && (widget == legend || legend->isAncestorOf(widget)))
		return ChartElement(ChartElement::Legend, legendEntrySeries(chart, widget));
	return ChartElement();
}


ChartElement ChartElementLocator::canvasElementAt(const Chart & chart, const QPoint & pos) {
	const LegendItem * legendItem = chart.legendItem();
	if (legendItem->plot() == &chart && legendItem->isVisible() &&
		legendItem->geometry(chart.canvas()->contentsRect()).contains(pos))
	{
		return ChartElement(ChartElement::Legend);
	}
	switch (chart.chartType()) {
		case Chart::LineChart : {
			const int series = curveAt(chart, pos);
			if (series >= 0)
				return ChartElement(ChartElement::Series, series);
			break;
		}
		case Chart::ColorGridChart :
		case Chart::VectorFieldChart :
			if (chart.seriesCount() > 0)
				return ChartElement(ChartElement::Series, chart.series(0)->seriesIndex());
			break;
		default : ;
	}
	return ChartElement(ChartElement::Canvas);
}


int ChartElementLocator::curveAt(const Chart & chart, const QPoint & pos) {
	int best = -1;
	double bestDistance = std::numeric_limits<double>::max();
	for (int i = 0; i < chart.seriesCount(); ++i) {
		const QwtPlotCurve * curve = dynamic_cast<const QwtPlotCurve *>(chart.series(i)->plotItem());
		if (curve == nullptr || !curve->isVisible() || curve->dataSize() == 0)
			continue;
		const QwtScaleMap xMap = chart.canvasMap(curve->xAxis());
		const QwtScaleMap yMap = chart.canvasMap(curve->yAxis());
		QPointF previous;
		bool havePrevious = false;
		for (size_t k = 0; k < curve->dataSize(); ++k) {
			const QPointF sample = curve->sample(k);
			if (!std::isfinite(sample.x()) || !std::isfinite(sample.y())) {
				// a gap ends the line
				havePrevious = false;
				continue;
			}
			const QPointF point(xMap.transform(sample.x()), yMap.transform(sample.y()));
			const double d = havePrevious ? distanceToSegment(pos, previous, point) : distanceToSegment(pos, point, point);
			if (d < bestDistance) {
				bestDistance = d;
				best = chart.series(i)->seriesIndex();
			}
			previous = point;
			havePrevious = true;
		}
	}
	return bestDistance <= CURVE_CATCH_DISTANCE ? best : -1;
}


int ChartElementLocator::legendEntrySeries(const Chart & chart, const QWidget * widget) {
	const QwtLegend * legend = dynamic_cast<const QwtLegend *>(chart.legend());
	if (legend == nullptr)
		return -1;
	// entries are direct children of the legend's contents widget
	const QWidget * entry = widget;
	while (entry != nullptr && entry->parentWidget() != legend->contentsWidget())
		entry = entry->parentWidget();
	if (entry == nullptr)
		return -1;
	const QwtPlotItem * item = chart.infoToItem(legend->itemInfo(entry));
	for (int i = 0; i < chart.seriesCount(); ++i) {
		if (chart.series(i)->plotItem() == item)
			return chart.series(i)->seriesIndex();
	}
	return -1;
}

} // namespace SCI
