#include "OVP_SeriesIsoplethExtractorModel.h"

#include <qwt_symbol.h>

#include <EM_ModelTwo2DIsopleth.h>

#include "OVP_Mapper.h"

namespace OVP {

namespace {

/*! Colours of the isopleth lines, from the shortest germination time (dark red) to the longest
	(yellow-green); the germination limit is black.
*/
const char * const LINE_COLORS[] = { "#8b0000", "#d7301f", "#f16913", "#e0a800", "#9acd32" };
const char * const LIMIT_COLOR = "#000000";
const char * const CLIMATE_COLOR = "#1f5fa6";

} // namespace


SeriesIsoplethExtractorModel::SeriesIsoplethExtractorModel(Mapper * mapper) :
	SeriesClimatePlaneModel(mapper)
{
}


unsigned int SeriesIsoplethExtractorModel::seriesCount() const {
	const EM::ModelTwo2DIsopleth * m = isopleth();
	return m == nullptr ? 0 : 1 + static_cast<unsigned int>(m->lines().size());
}


void SeriesIsoplethExtractorModel::initSeries() {
	const EM::ModelTwo2DIsopleth * m = isopleth();
	if (m == nullptr)
		return;
	initStyle(0, mapper().extractor3D().m_title, QColor(CLIMATE_COLOR), QwtSymbol::Ellipse, 3);
	initLineSeries();
}


void SeriesIsoplethExtractorModel::initLineSeries() {
	const EM::ModelTwo2DIsopleth * m = isopleth();
	if (m == nullptr)
		return;
	const int lines = static_cast<int>(m->lines().size());
	const int colors = static_cast<int>(sizeof(LINE_COLORS)/sizeof(LINE_COLORS[0]));
	for (int i = 0; i < lines; ++i) {
		const bool limit = i == lines - 1;
		initStyle(i + 1, QString::fromStdString(m->lines()[static_cast<std::size_t>(i)].name()),
				  QColor(limit ? LIMIT_COLOR : LINE_COLORS[i % colors]), QwtSymbol::NoSymbol, limit ? 3 : 2);
	}
}


std::vector<SeriesClimatePlaneModel::PlanePoints> SeriesIsoplethExtractorModel::planePoints() const {
	std::vector<PlanePoints> points;
	const EM::ModelTwo2DIsopleth * m = isopleth();
	if (m == nullptr)
		return points;
	points.push_back(presentPoints(m->temperatures(), m->humidities()));
	const double highestTemperature = highest(points.front().m_temperatures);
	for (const EM::ClimateLimitCurve & line : m->lines())
		points.push_back(curvePoints(line, highestTemperature));
	return points;
}


QString SeriesIsoplethExtractorModel::legendTitle(int seriesIndex, const QString & title) const {
	const EM::ModelTwo2DIsopleth * m = isopleth();
	if (seriesIndex != 0 || m == nullptr)
		return title;
	return title + " " + tr("- %L1 days mould risk (max period %L2 h)").arg(m->riskDays(), 0, 'g', 6)
						 .arg(m->maxRiskPeriodHours(), 0, 'g', 6);
}


const EM::ModelTwo2DIsopleth * SeriesIsoplethExtractorModel::isopleth() const {
	return dynamic_cast<const EM::ModelTwo2DIsopleth *>(model());
}

} // namespace OVP
