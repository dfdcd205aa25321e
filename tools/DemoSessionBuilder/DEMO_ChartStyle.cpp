#include "DEMO_ChartStyle.h"

#include <QFont>
#include <QPen>
#include <QStringList>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_ChartProperties.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_Unit.h>

namespace DEMO {

namespace {

typedef SCI::AbstractChartModel CDM;
typedef SCI::AbstractCartesianChartModel CM;

const QColor GRID_COLOR("#c8c8c8");

/*! Throws when a model refused a property. */
void check(bool stored, const char * kind, int role) {
	FUNCID(ChartStyle::check);
	if (!stored)
		throw ZEB::Exception(ZEB::MessageFormat("The chart model refused the %1 property with role %2.")
							 .arg(kind).arg(role), FUNC_ID);
}

// set a property through the role interface, as a property panel does; throw when refused

void setChartData(CDM & model, int role, const QVariant & value) {
	check(model.setChartData(value, role), "chart", role);
}

void setAxisData(CM & model, int axis, int role, const QVariant & value) {
	check(model.setAxisData(value, axis, role), "axis", role);
}

void setSeriesData(CDM & model, int series, int role, const QVariant & value) {
	check(model.setSeriesData(value, series, role), "series", role);
}

/*! A font of the given size. DejaVu Sans comes with the program's Debian dependencies, so
	exports look the same on every such machine; elsewhere a similar sans-serif font stands in.
*/
QFont font(int pointSize, bool bold = false) {
	QFont f("DejaVu Sans", pointSize);
	f.setStyleHint(QFont::SansSerif);
	f.setBold(bold);
	return f;
}

/*! A linear colour map through the given colours, evenly spaced. */
SCI::ColorMap linearMap(const QStringList & colors) {
	SCI::ColorMap map;
	map.m_linearColorStops.clear();
	for (int i = 0; i < colors.size(); ++i)
		map.m_linearColorStops.append(SCI::ColorMap::ColorStop(double(i)/(colors.size() - 1), QColor(colors[i])));
	return map;
}

} // namespace


const QColor ChartStyle::TEMPERATURE_COLOR("#c23b22");
const QColor ChartStyle::HUMIDITY_COLOR("#1f5fa6");
const QColor ChartStyle::MOULD_COLOR("#2e7d32");
const QColor ChartStyle::DECAY_COLOR("#8c564b");


void ChartStyle::setChart(CM & model, const QString & title) {
	setChartData(model, CDM::TitleText, title);
	setChartData(model, CDM::TitleFont, font(13, true));
	setChartData(model, CDM::LegendPosition, int(SCI::ChartProperties::LegendBottom));
	setChartData(model, CDM::LegendHasFrame, false);
	setChartData(model, CDM::LegendFont, font(11));
	setChartData(model, CDM::LegendIconWidth, 30);
	for (int axis = 0; axis < CM::NUM_AXES; ++axis) {
		setAxisData(model, axis, CM::AxisTitleFont, font(11));
		setAxisData(model, axis, CM::AxisLabelFont, font(10));
		setAxisData(model, axis, CM::AxisGridPen, QPen(QBrush(GRID_COLOR), 1, Qt::DotLine));
		setAxisData(model, axis, CM::AxisMinorGridVisible, false);
	}
}


void ChartStyle::setAxis(CM & model, int axis, const QString & title, const char * unit) {
	FUNCID(ChartStyle::setAxis);
	setAxisData(model, axis, CM::AxisTitleText, title);
	if (unit == nullptr)
		return;
	const ZEB::Unit u(unit);
	if (u.id() == 0)
		throw ZEB::Exception(ZEB::MessageFormat("Unknown unit '%1'.").arg(unit), FUNC_ID);
	setAxisData(model, axis, CM::AxisUnit, u.id());
}


void ChartStyle::setDateAxis(CM & model) {
	setAxisData(model, CM::BottomAxis, CM::AxisDateTimeEnabled, true);
	// one format per tick interval, from milliseconds to years
	setAxisData(model, CM::BottomAxis, CM::AxisDateTimeFormats, QStringList()
				<< "hh:mm:ss.zzz" << "hh:mm:ss" << "hh:mm" << "hh:mm;;d MMM" << "d MMM" << "d MMM"
				<< "MMM yyyy" << "yyyy");
}


void ChartStyle::setAxisRange(CM & model, int axis, double minimum, double maximum) {
	setAxisData(model, axis, CM::AxisAutoscale, false);
	setAxisData(model, axis, CM::AxisMinimum, minimum);
	setAxisData(model, axis, CM::AxisMaximum, maximum);
}


void ChartStyle::setMajorTicks(CM & model, int axis, int count) {
	setAxisData(model, axis, CM::AxisMaxMajorScale, count);
}


void ChartStyle::setProportional(CM & model) {
	setAxisData(model, CM::BottomAxis, CM::AxisProportional, true);
}


void ChartStyle::setLine(SCI::AbstractLineSeriesModel & model, int series, const QString & title,
						 const QColor & color, int penWidth)
{
	typedef SCI::AbstractLineSeriesModel LM;
	setSeriesData(model, series, LM::SeriesTitleText, title);
	setSeriesData(model, series, LM::SeriesPenColor, color);
	setSeriesData(model, series, LM::SeriesPenWidth, penWidth);
}


void ChartStyle::setColorGrid(SCI::AbstractColorGridSeriesModel & model, const SCI::ColorMap & colorMap,
							  double minimum, double maximum, double contourInterval, bool interpolate)
{
	typedef SCI::AbstractColorGridSeriesModel GM;
	setSeriesData(model, 0, GM::ColorGridColorMap, QVariant::fromValue(colorMap));
	setSeriesData(model, 0, GM::ColorGridAutoScale, false);
	setSeriesData(model, 0, GM::ColorGridMinimumZ, minimum);
	setSeriesData(model, 0, GM::ColorGridMaximumZ, maximum);
	// the interpolation modes of the chart: 0 one colour per cell, 1 bilinear
	setSeriesData(model, 0, GM::ColorGridInterpolationMode, interpolate ? 1 : 0);
	if (contourInterval > 0) {
		setSeriesData(model, 0, GM::ColorGridContourInterval, contourInterval);
		setSeriesData(model, 0, GM::ColorGridContourPen, QPen(QBrush(QColor(40, 40, 40)), 0.8));
	}
}


void ChartStyle::setVectorField(SCI::AbstractVectorFieldSeriesModel & model, const SCI::ColorMap & colorMap) {
	typedef SCI::AbstractVectorFieldSeriesModel VM;
	setSeriesData(model, 0, VM::VectorFieldColorMap, QVariant::fromValue(colorMap));
	setSeriesData(model, 0, VM::VectorFieldRasterSize, 20);
	setSeriesData(model, 0, VM::VectorFieldMaximumArrowLength, 20.0);
	setSeriesData(model, 0, VM::VectorFieldThinArrow, false);
}


SCI::ColorMap ChartStyle::temperatureColorMap() {
	return linearMap(QStringList() << "#313695" << "#4575b4" << "#74add1" << "#abd9e9" << "#ffffbf"
									<< "#fdae61" << "#f46d43" << "#d73027" << "#a50026");
}


SCI::ColorMap ChartStyle::magnitudeColorMap() {
	return linearMap(QStringList() << "#fe9f6d" << "#de4968" << "#8c2981" << "#3b0f70");
}

} // namespace DEMO
