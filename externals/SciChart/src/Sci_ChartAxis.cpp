#include "Sci_ChartAxis.h"

#include <cmath>

#include <qwt_plot.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "Sci_AbstractBarSeriesModel.h"
#include "Sci_BarLabelScaleDraw.h"
#include "Sci_Chart.h"
#include "Sci_DateScaleDraw.h"
#include "Sci_DateScaleEngine.h"
#include "Sci_LabelFitScaleDraw.h"

namespace SCI {

namespace {

typedef AbstractCartesianChartModel CM;

/*! Tick lengths in pixels. */
const double MAJOR_TICK = 6;
const double MEDIUM_TICK = 4;
const double MINOR_TICK = 3;

} // namespace


ChartAxis::ChartAxis(Chart * chart, int axisPosition) :
	m_chart(chart),
	m_position(axisPosition)
{
	Q_ASSERT(axisPosition >= 0 && axisPosition < CM::NUM_AXES);
}


int ChartAxis::axisId() const {
	switch (m_position) {
		case CM::BottomAxis :	return QwtPlot::xBottom;
		case CM::LeftAxis :		return QwtPlot::yLeft;
		default :				return QwtPlot::yRight;
	}
}


const AbstractCartesianChartModel * ChartAxis::model() const {
	return m_chart->model();
}


bool ChartAxis::isColorBarAxis() const {
	return m_position == CM::RightAxis &&
			(m_chart->chartType() == Chart::ColorGridChart || m_chart->chartType() == Chart::VectorFieldChart);
}


bool ChartAxis::isBarLabelAxis() const {
	return m_position == CM::BottomAxis && m_chart->chartType() == Chart::BarChart;
}


void ChartAxis::apply(int role) {
	if (model() == nullptr)
		return;
	switch (role) {
		case -1 :
			applyEnabled();
			applyTitle();
			applyScaleDraw();
			applyScale();
			break;
		case CM::AxisEnabled :
			applyEnabled();
			break;
		case CM::AxisTitle :
		case CM::AxisTitleText :
		case CM::AxisTitleFont :
			applyTitle();
			break;
		case CM::AxisUnit :
			applyTitle();
			applyScaleDraw();
			break;
		case CM::AxisMaximum :
		case CM::AxisMinimum :
		case CM::AxisAutoscale :
			applyScale();
			break;
		case CM::AxisLogarithmic :
		case CM::AxisDateTimeEnabled :
		case CM::AxisDateTimeZero :
		case CM::AxisDateTimeSpec :
			applyScaleDraw();
			applyScale();
			break;
		case CM::AxisLabelFont :
		case CM::AxisLabelHAlignment :
		case CM::AxisLabelVAlignment :
		case CM::AxisLabelRotation :
		case CM::AxisMaxMinorScale :
		case CM::AxisMaxMajorScale :
		case CM::AxisTitleSpacing :
		case CM::AxisLabelSpacing :
		case CM::AxisDateTimeFormats :
			applyScaleDraw();
			break;
		default :
			break;
	}
}


void ChartAxis::applyEnabled() {
	// the colour bar axis is shown with the colour bar
	if (isColorBarAxis())
		return;
	// all bars stand on the left axis
	const bool unusedAxis = m_position == CM::RightAxis && m_chart->chartType() == Chart::BarChart;
	m_chart->enableAxis(axisId(), !unusedAxis && model()->axisData(m_position, CM::AxisEnabled).toBool());
}


void ChartAxis::applyTitle() {
	QwtText title(model()->axisData(m_position, CM::AxisTitle).toString());
	title.setFont(model()->axisData(m_position, CM::AxisTitleFont).value<QFont>());
	m_chart->setFullAxisTitle(axisId(), title);
	if (m_position == CM::RightAxis) {
		// the library reads right axis titles top to bottom; inverted reads like the left axis
		const bool inverted = model()->chartData(AbstractChartModel::AxisY2TitleInverted).toBool();
		m_chart->axisWidget(axisId())->setLayoutFlag(QwtScaleWidget::TitleInverted, !inverted);
	}
}


void ChartAxis::applyScaleDraw() {
	updateDateTimeMapping();
	QwtScaleEngine * engine = nullptr;
	const bool logarithmic = model()->axisData(m_position, CM::AxisLogarithmic).toBool() &&
			m_chart->chartType() != Chart::ColorGridChart && !m_dateTime && !isBarLabelAxis() && !isColorBarAxis();
	if (m_dateTime)
		engine = new DateScaleEngine(m_mapping);
	else if (logarithmic)
		engine = new QwtLogScaleEngine;
	else
		engine = new QwtLinearScaleEngine;
	// x axes and the axes of grids end with the data, y axes of curves at round values
	const bool floating = m_position == CM::BottomAxis ||
			m_chart->chartType() == Chart::ColorGridChart || m_chart->chartType() == Chart::VectorFieldChart;
	engine->setAttribute(QwtScaleEngine::Floating, floating && !isColorBarAxis());
	m_chart->setAxisScaleEngine(axisId(), engine);

	QwtScaleDraw * draw = createScaleDraw();
	const bool inside = model()->chartData(AbstractChartModel::AxisScalesInside).toBool();
	if (inside) {
		// the scale is drawn inside the canvas, the axis widget keeps only the title
		draw->enableComponent(QwtAbstractScaleDraw::Labels, false);
		draw->enableComponent(QwtAbstractScaleDraw::Ticks, false);
	}
	else
		draw->setMinimumExtent(qMax(0, model()->axisData(m_position, CM::AxisTitleSpacing).toInt()));
	m_chart->setAxisScaleDraw(axisId(), draw);
	m_chart->setAxisFont(axisId(), model()->axisData(m_position, CM::AxisLabelFont).value<QFont>());
	m_chart->setAxisMaxMajor(axisId(), qMax(1, model()->axisData(m_position, CM::AxisMaxMajorScale).toInt()));
	m_chart->setAxisMaxMinor(axisId(), qMax(0, model()->axisData(m_position, CM::AxisMaxMinorScale).toInt()));
	QwtScaleWidget * widget = m_chart->axisWidget(axisId());
	widget->setMargin(0);
	widget->setSpacing(inside ? 2 : 6);
}


void ChartAxis::updateDateTimeMapping() {
	FUNCID(ChartAxis::updateDateTimeMapping);
	m_dateTime = false;
	if (!model()->axisData(m_position, CM::AxisDateTimeEnabled).toBool() || isBarLabelAxis() || isColorBarAxis())
		return;
	try {
		m_mapping = DateTimeMapping::ofAxis(*model(), m_position);
		m_dateTime = true;
	}
	catch (ZEB::Exception & ex) {
		ZEB::reportWarning(ZEB::MessageFormat("Axis #%1 shows numbers instead of dates: %2")
						   .arg(m_position).arg(std::string(ex.what())).str(), FUNC_ID);
	}
}


QwtScaleDraw * ChartAxis::createScaleDraw() const {
	QwtScaleDraw * draw = nullptr;
	if (isBarLabelAxis()) {
		const AbstractBarSeriesModel * barModel = dynamic_cast<const AbstractBarSeriesModel *>(model());
		QStringList labels;
		for (unsigned int i = 0; barModel != nullptr && i < barModel->barCount(); ++i)
			labels << barModel->barLabel(i);
		draw = new BarLabelScaleDraw(labels);
	}
	else if (m_dateTime)
		draw = new DateScaleDraw(m_mapping, model()->axisData(m_position, CM::AxisDateTimeFormats).toStringList());
	else
		draw = new LabelFitScaleDraw;
	draw->setLabelAlignment(labelAlignment(model()->axisData(m_position, CM::AxisLabelHAlignment).toInt(),
										   model()->axisData(m_position, CM::AxisLabelVAlignment).toInt()));
	draw->setLabelRotation(model()->axisData(m_position, CM::AxisLabelRotation).toDouble());
	draw->setSpacing(qMax(0, model()->axisData(m_position, CM::AxisLabelSpacing).toInt()));
	draw->setTickLength(QwtScaleDiv::MajorTick, MAJOR_TICK);
	draw->setTickLength(QwtScaleDiv::MediumTick, MEDIUM_TICK);
	draw->setTickLength(QwtScaleDiv::MinorTick, MINOR_TICK);
	// the canvas frame is the axis line
	draw->enableComponent(QwtAbstractScaleDraw::Backbone, false);
	return draw;
}


void ChartAxis::applyScale() {
	FUNCID(ChartAxis::applyScale);
	if (model() == nullptr || isColorBarAxis())
		return;
	if (isBarLabelAxis()) {
		const AbstractBarSeriesModel * barModel = dynamic_cast<const AbstractBarSeriesModel *>(model());
		m_chart->setAxisScaleDiv(axisId(), BarLabelScaleDraw::scaleDiv(barModel != nullptr ? static_cast<int>(barModel->barCount()) : 0));
		return;
	}
	if (model()->axisData(m_position, CM::AxisAutoscale).toBool()) {
		m_chart->setAxisAutoScale(axisId(), true);
		return;
	}
	const double minimum = model()->axisData(m_position, CM::AxisMinimum).toDouble();
	const double maximum = model()->axisData(m_position, CM::AxisMaximum).toDouble();
	const bool logarithmic = dynamic_cast<const QwtLogScaleEngine *>(m_chart->axisScaleEngine(axisId())) != nullptr;
	if (!(std::isfinite(minimum) && std::isfinite(maximum) && minimum < maximum) || (logarithmic && minimum <= 0)) {
		ZEB::reportWarning(ZEB::MessageFormat("Invalid range %1 .. %2 of axis #%3, the axis is scaled automatically.")
						   .arg(minimum).arg(maximum).arg(m_position).str(), FUNC_ID);
		m_chart->setAxisAutoScale(axisId(), true);
		return;
	}
	m_chart->setAxisScale(axisId(), minimum, maximum);
}


Qt::Alignment ChartAxis::labelAlignment(int horizontal, int vertical) {
	Qt::Alignment a = Qt::AlignHCenter;
	if (horizontal == 0)
		a = Qt::AlignLeft;
	else if (horizontal == 1)
		a = Qt::AlignRight;
	if (vertical == 0)
		a |= Qt::AlignTop;
	else if (vertical == 1)
		a |= Qt::AlignBottom;
	else
		a |= Qt::AlignVCenter;
	return a;
}

} // namespace SCI
