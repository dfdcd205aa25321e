#include "OVP_SeriesClimatePlaneModel.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <qwt_plot_curve.h>
#include <qwt_symbol.h>

#include <EM_ClimateLimitCurve.h>
#include <EM_Extractor2DFromTwo2D.h>
#include <EM_ModelTwo2DBase.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include "OVP_ExtractorAxisData.h"
#include "OVP_Mapper.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

namespace {

/*! The temperature up to which a limit curve is drawn at least, in C: the upper end of the
	range in which the published isopleths are given.
*/
const double CURVE_MINIMUM_END = 30;

} // namespace


SeriesClimatePlaneModel::SeriesClimatePlaneModel(Mapper * mapper) :
	m_mapper(mapper)
{
}


unsigned int SeriesClimatePlaneModel::size(int seriesIndex) const {
	ensurePoints();
	const std::size_t i = static_cast<std::size_t>(seriesIndex);
	return i < m_x.size() ? static_cast<unsigned int>(m_x[i].size()) : 0;
}


const double * SeriesClimatePlaneModel::xValues(int seriesIndex) const {
	ensurePoints();
	const std::size_t i = static_cast<std::size_t>(seriesIndex);
	return i < m_x.size() ? m_x[i].m_data.data() : nullptr;
}


const double * SeriesClimatePlaneModel::yValues(int seriesIndex) const {
	ensurePoints();
	const std::size_t i = static_cast<std::size_t>(seriesIndex);
	return i < m_y.size() ? m_y[i].m_data.data() : nullptr;
}


ZEB::Unit SeriesClimatePlaneModel::xUnit(int) const {
	return ZEB::Unit(AbstractCartesianChartModel::axisData(BottomAxis, AxisUnit).toUInt());
}


ZEB::Unit SeriesClimatePlaneModel::yUnit(int) const {
	return ZEB::Unit(AbstractCartesianChartModel::axisData(LeftAxis, AxisUnit).toUInt());
}


QVariant SeriesClimatePlaneModel::seriesData(int seriesIndex, int role) const {
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	if (role == SeriesTitleText || role == SeriesTitle) {
		const QString title = Mapper::displayTitle(lineProperties(seriesIndex).m_titleText, m_mapper->extractor3D());
		return role == SeriesTitle ? legendTitle(seriesIndex, title) : title;
	}
	return SCI::AbstractLineSeriesModel::seriesData(seriesIndex, role);
}


bool SeriesClimatePlaneModel::setSeriesData(const QVariant & value, int seriesIndex, int role) {
	FUNCID(SeriesClimatePlaneModel::setSeriesData);
	if (role == SeriesLeftAxis && !value.toBool()) {
		ZEB::reportError("The series of this chart lie in the temperature and relative humidity plane of the "
						 "left y axis; they cannot move to the right y axis.", FUNC_ID);
		return false;
	}
	ProjectHandler::instance().setModified(ProjectHandler::SeriesModified, m_mapper);
	return SCI::AbstractLineSeriesModel::setSeriesData(value, seriesIndex, role);
}


QVariant SeriesClimatePlaneModel::axisData(int axisPosition, int role) const {
	const EM::ModelTwo2DBase * m = model();
	switch (role) {
		case AxisEnabled :
			return m != nullptr && (axisPosition == BottomAxis || axisPosition == LeftAxis);
		case AxisTitle : {
			const QString title = AbstractCartesianChartModel::axisData(axisPosition, AxisTitle).toString();
			// temperature on the x axis, relative humidity on the y axis
			std::string quantity;
			if (m != nullptr && (axisPosition == BottomAxis || axisPosition == LeftAxis))
				quantity = m->inputName(axisPosition == BottomAxis ? 0 : 1);
			return ExtractorAxisData::replaceQuantity(title, quantity);
		}
		default :
			return AbstractCartesianChartModel::axisData(axisPosition, role);
	}
}


bool SeriesClimatePlaneModel::setAxisData(const QVariant & value, int axisPosition, int role) {
	// a new unit re-announces all series (Mapper::applyAxisUnits()), which drops the converted points
	return ExtractorAxisData::setAxisData(*m_mapper, *this, value, axisPosition, role);
}


void SeriesClimatePlaneModel::endChangeSeries() {
	m_pointsValid = false;
	SCI::AbstractLineSeriesModel::endChangeSeries();
	// the legend text of the first series tells the model's results
	if (seriesCount() > 0)
		emit seriesViewChanged(0, 0, SeriesTitleText);
}


void SeriesClimatePlaneModel::endResetModel() {
	m_pointsValid = false;
	SCI::AbstractLineSeriesModel::endResetModel();
}


void SeriesClimatePlaneModel::clearCachedData() {
	m_pointsValid = false;
	SCI::AbstractLineSeriesModel::clearCachedData();
}


const EM::ModelTwo2DBase * SeriesClimatePlaneModel::model() const {
	m_mapper->extractPendingData();
	const EM::Extractor2DFromTwo2D * extractor =
			dynamic_cast<const EM::Extractor2DFromTwo2D *>(m_mapper->extractor3D().m_extractor.get());
	return extractor == nullptr ? nullptr : &extractor->model();
}


SeriesClimatePlaneModel::PlanePoints SeriesClimatePlaneModel::presentPoints(const std::vector<double> & temperatures,
																			 const std::vector<double> & humidities)
{
	PlanePoints points;
	const std::size_t n = std::min(temperatures.size(), humidities.size());
	for (std::size_t i = 0; i < n; ++i) {
		if (!std::isfinite(temperatures[i]) || !std::isfinite(humidities[i]))
			continue;
		points.m_temperatures.push_back(temperatures[i]);
		points.m_humidities.push_back(humidities[i]);
	}
	return points;
}


SeriesClimatePlaneModel::PlanePoints SeriesClimatePlaneModel::curvePoints(const EM::ClimateLimitCurve & curve,
																		   double highestTemperature)
{
	PlanePoints points;
	const std::vector<double> & table = curve.temperatures();
	if (table.empty())
		return points;
	const double first = curve.lowestTemperature();
	const double last = std::max({ table.back(), highestTemperature, CURVE_MINIMUM_END, first });
	points.m_temperatures.push_back(first);
	for (double T : table)
		if (T > first && T < last)
			points.m_temperatures.push_back(T);
	points.m_temperatures.push_back(last);
	for (double T : points.m_temperatures)
		points.m_humidities.push_back(curve.humidity(T));
	return points;
}


double SeriesClimatePlaneModel::highest(const std::vector<double> & temperatures) {
	double h = std::numeric_limits<double>::lowest();
	for (double T : temperatures)
		if (std::isfinite(T))
			h = std::max(h, T);
	return h;
}


void SeriesClimatePlaneModel::initStyle(int seriesIndex, const QString & title, const QColor & color, int markerStyle,
										unsigned int size)
{
	typedef SCI::AbstractLineSeriesModel LM;
	const bool markers = markerStyle != QwtSymbol::NoSymbol;
	LM::setSeriesData(title, seriesIndex, SeriesTitleText);
	LM::setSeriesData(color, seriesIndex, SeriesPenColor);
	LM::setSeriesData(markers ? 1 : static_cast<int>(size), seriesIndex, SeriesPenWidth);
	LM::setSeriesData(markers ? static_cast<int>(QwtPlotCurve::NoCurve) : static_cast<int>(QwtPlotCurve::Lines),
					  seriesIndex, SeriesLineStyle);
	LM::setSeriesData(markerStyle, seriesIndex, SeriesMarkerStyle);
	if (markers) {
		LM::setSeriesData(size, seriesIndex, SeriesMarkerSize);
		LM::setSeriesData(color, seriesIndex, SeriesMarkerColor);
	}
}


void SeriesClimatePlaneModel::ensurePoints() const {
	FUNCID(SeriesClimatePlaneModel::ensurePoints);
	// first, for data still pending: its extraction announces changed series, which invalidates the points
	const EM::ModelTwo2DBase * m = model();
	if (m_pointsValid)
		return;
	m_pointsValid = true;
	m_x.clear();
	m_y.clear();
	if (m == nullptr)
		return;
	const ZEB::Unit xTarget = xUnit(0);
	const ZEB::Unit yTarget = yUnit(0);
	try {
		for (const PlanePoints & p : planePoints()) {
			ZEB::UnitVector x(p.m_temperatures, m->temperatureUnit());
			ZEB::UnitVector y(p.m_humidities, m->humidityUnit());
			x.convert(xTarget);
			y.convert(yTarget);
			m_x.push_back(std::move(x));
			m_y.push_back(std::move(y));
		}
	}
	catch (ZEB::Exception & ex) {
		// axes of a damaged session file: the chart stays empty and tells why
		ex.reportAllAsErrors();
		ZEB::reportError("The axis units of the chart do not fit temperature and relative humidity.", FUNC_ID);
		m_x.clear();
		m_y.clear();
	}
}

} // namespace OVP
