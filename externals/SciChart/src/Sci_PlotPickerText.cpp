#include "Sci_PlotPickerText.h"

#include <cmath>

#include <QLocale>
#include <QPoint>
#include <QStringList>

#include <qwt_scale_map.h>

#include "Sci_AbstractColorGridSeriesModel.h"
#include "Sci_AbstractLineSeriesModel.h"
#include "Sci_AbstractVectorFieldSeriesModel.h"
#include "Sci_BarLabelScaleDraw.h"
#include "Sci_Chart.h"
#include "Sci_ColorGridSeries.h"
#include "Sci_DateScaleDraw.h"
#include "Sci_PlotSpectrogram.h"

namespace SCI {

namespace {

typedef AbstractCartesianChartModel CM;

/*! A number and its unit; an undefined unit and the unit "-" of plain numbers are left out. */
QString withUnit(const QString & number, const ZEB::Unit & unit) {
	if (unit.id() == 0 || unit.name() == "-")
		return number;
	return number + " " + QString::fromStdString(unit.name());
}

/*! A number with as many decimals as a step of resolution needs (at most 12). */
QString resolvedNumber(double value, double resolution) {
	int decimals = 0;
	if (resolution > 0 && std::isfinite(resolution))
		decimals = qBound(0, static_cast<int>(std::ceil(-std::log10(resolution))), 12);
	return QLocale().toString(value, 'f', decimals);
}

/*! Axis position of a plot axis id. */
int axisPosition(int axisId) {
	switch (axisId) {
		case QwtPlot::xBottom :	return CM::BottomAxis;
		case QwtPlot::yLeft :	return CM::LeftAxis;
		default :				return CM::RightAxis;
	}
}

} // namespace


PlotPickerText::PlotPickerText(const Chart * chart) :
	m_chart(chart)
{
}


QString PlotPickerText::text(const QPoint & canvasPos) const {
	const QString x = axisText(QwtPlot::xBottom, canvasPos.x());
	const Chart::ChartType type = m_chart->chartType();
	const bool colorMapped = type == Chart::ColorGridChart || type == Chart::VectorFieldChart;
	QStringList y;
	if (m_chart->axisEnabled(QwtPlot::yLeft))
		y << axisText(QwtPlot::yLeft, canvasPos.y());
	if (!colorMapped && m_chart->axisEnabled(QwtPlot::yRight))
		y << axisText(QwtPlot::yRight, canvasPos.y());
	QString text = QString("x: %1   y: %2").arg(x, y.join(" | "));
	if (type == Chart::ColorGridChart) {
		const QString value = fieldValueText(canvasPos);
		if (!value.isEmpty())
			text += "   " + tr("value: %1").arg(value);
	}
	return text;
}


QString PlotPickerText::axisText(int axisId, double pixel) const {
	const QwtScaleMap map = m_chart->canvasMap(axisId);
	const double value = map.invTransform(pixel);
	// the span of one pixel decides how precisely the value can be read
	const double resolution = std::fabs(map.invTransform(pixel + 1) - value);
	// the x axis of a bar chart reads as the label of the nearest bar position
	const BarLabelScaleDraw * barDraw = dynamic_cast<const BarLabelScaleDraw *>(m_chart->axisScaleDraw(axisId));
	if (barDraw != nullptr)
		return barDraw->label(std::round(value)).text();
	const DateScaleDraw * dateDraw = dynamic_cast<const DateScaleDraw *>(m_chart->axisScaleDraw(axisId));
	if (dateDraw != nullptr) {
		QString format = QLocale().dateTimeFormat(QLocale::ShortFormat);
		if (resolution*dateDraw->mapping().msecsPerUnit() < 60000 && !format.contains("ss"))
			format.replace("mm", "mm:ss");
		return QLocale().toString(dateDraw->mapping().toDateTime(value), format);
	}
	return withUnit(resolvedNumber(value, resolution), axisUnit(axisPosition(axisId)));
}


QString PlotPickerText::fieldValueText(const QPoint & canvasPos) const {
	if (m_chart->seriesCount() == 0)
		return QString();
	const ColorGridSeries * grid = dynamic_cast<const ColorGridSeries *>(m_chart->series(0));
	if (grid == nullptr || grid->spectrogram()->data() == nullptr)
		return QString();
	const double x = m_chart->canvasMap(QwtPlot::xBottom).invTransform(canvasPos.x());
	const double y = m_chart->canvasMap(QwtPlot::yLeft).invTransform(canvasPos.y());
	const double value = grid->spectrogram()->data()->value(x, y);
	if (!std::isfinite(value))
		return QString();
	return withUnit(QLocale().toString(value, 'g', 4), axisUnit(CM::RightAxis));
}


ZEB::Unit PlotPickerText::axisUnit(int axisPosition) const {
	const AbstractCartesianChartModel * model = m_chart->model();
	if (model == nullptr)
		return ZEB::Unit();
	const ZEB::Unit unit(model->axisData(axisPosition, CM::AxisUnit).toUInt());
	if (unit.id() != 0 || model->seriesCount() == 0)
		return unit;
	if (const AbstractLineSeriesModel * lines = dynamic_cast<const AbstractLineSeriesModel *>(model)) {
		if (axisPosition == CM::BottomAxis)
			return lines->xUnit(0);
		// the first series drawn against that y axis
		for (int i = 0; i < static_cast<int>(lines->seriesCount()); ++i)
			if (lines->seriesData(i, AbstractLineSeriesModel::SeriesLeftAxis).toBool() == (axisPosition == CM::LeftAxis))
				return lines->yUnit(i);
	}
	else if (const AbstractColorGridSeriesModel * grid = dynamic_cast<const AbstractColorGridSeriesModel *>(model)) {
		return axisPosition == CM::BottomAxis ? grid->xUnit(0) : axisPosition == CM::LeftAxis ? grid->yUnit(0)
																							 : grid->valueUnit(0);
	}
	else if (const AbstractVectorFieldSeriesModel * field = dynamic_cast<const AbstractVectorFieldSeriesModel *>(model)) {
		return axisPosition == CM::BottomAxis ? field->xUnit(0) : field->yUnit(0);
	}
	return unit;
}

} // namespace SCI
