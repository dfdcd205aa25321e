#include "OVP_SeriesWTAExtractorModel.h"

#include <qwt_symbol.h>

#include <EM_ModelTwo2DWTAWoodDegradation.h>

#include "OVP_Mapper.h"

namespace OVP {

namespace {

const char * const BELOW_COLOR = "#1f5fa6";
const char * const ABOVE_COLOR = "#c23b22";
const char * const LIMIT_COLOR = "#000000";

/*! Marker size of the daily means, in pixels. */
const unsigned int DAY_MARKER_SIZE = 6;

} // namespace


SeriesWTAExtractorModel::SeriesWTAExtractorModel(Mapper * mapper) :
	SeriesClimatePlaneModel(mapper)
{
}


unsigned int SeriesWTAExtractorModel::seriesCount() const {
	return wta() == nullptr ? 0 : NUM_SERIES;
}


void SeriesWTAExtractorModel::initSeries() {
	const EM::ModelTwo2DWTAWoodDegradation * m = wta();
	if (m == nullptr)
		return;
	initStyle(DaysBelow, mapper().extractor3D().m_title, QColor(BELOW_COLOR), QwtSymbol::Ellipse, DAY_MARKER_SIZE);
	initStyle(DaysAbove, tr("Days above the decay limit"), QColor(ABOVE_COLOR), QwtSymbol::Diamond, DAY_MARKER_SIZE + 2);
	initStyle(LimitCurve, QString::fromStdString(m->limit().name()), QColor(LIMIT_COLOR), QwtSymbol::NoSymbol, 3);
}


std::vector<SeriesClimatePlaneModel::PlanePoints> SeriesWTAExtractorModel::planePoints() const {
	std::vector<PlanePoints> points(NUM_SERIES);
	const EM::ModelTwo2DWTAWoodDegradation * m = wta();
	if (m == nullptr)
		return points;
	const PlanePoints days = presentPoints(m->dailyTemperatures(), m->dailyHumidities());
	for (std::size_t i = 0; i < days.m_temperatures.size(); ++i) {
		const double T = days.m_temperatures[i];
		const double RH = days.m_humidities[i];
		PlanePoints & target = points[m->limit().isReached(T, RH) ? DaysAbove : DaysBelow];
		target.m_temperatures.push_back(T);
		target.m_humidities.push_back(RH);
	}
	points[LimitCurve] = curvePoints(m->limit(), highest(days.m_temperatures));
	return points;
}


QString SeriesWTAExtractorModel::legendTitle(int seriesIndex, const QString & title) const {
	const EM::ModelTwo2DWTAWoodDegradation * m = wta();
	if (seriesIndex != DaysBelow || m == nullptr)
		return title;
	return title + " " + tr("- %L1 days above the decay limit").arg(m->daysAboveLimit());
}


const EM::ModelTwo2DWTAWoodDegradation * SeriesWTAExtractorModel::wta() const {
	return dynamic_cast<const EM::ModelTwo2DWTAWoodDegradation *>(model());
}

} // namespace OVP
