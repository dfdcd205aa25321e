#include "EM_ModelTwo2DIsopleth.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include <ZEB_Exception.h>
#include <ZEB_UnitVector.h>

namespace EM {

namespace {

/*! Published polynomial fits of the germination-time isopleths, RH = a T^3 + b T^2 + c T + d
	(RH in %, T in C; fitted to the figures for roughly 5..30 C).
*/
struct IsoplethFit {
	const char *	m_name;
	double			m_a, m_b, m_c, m_d;
	/*! Shift of the whole line in % RH (see the limit line below). */
	double			m_shift;
};

/*! The published fit of the lowest isopleth lies 1.7 to 4 % above the 16-day line of the same
	source, so it cannot serve unchanged as the lowest line; it is moved down by 6 % RH, which
	keeps its shape and puts it 2 to 4.3 % below the 16-day line between 0 and 30 C.
*/
const IsoplethFit ISOPLETH_FITS[6] = {
	{ "Germination within 1 day",   -0.0012, 0.0914, -2.37,   106.18, 0 },
	{ "Germination within 2 days",  -0.0012, 0.0914, -2.35,   101,    0 },
	{ "Germination within 4 days",  -0.0012, 0.0914, -2.36,   98,     0 },
	{ "Germination within 8 days",  -0.0012, 0.0914, -2.375,  96,     0 },
	{ "Germination within 16 days", -0.0012, 0.0914, -2.36,   93,     0 },
	{ "Limit for germination",      -0.0017, 0.1144, -2.6784, 97.017, -6 }
};

/*! Range and spacing of the tabulated fits, in C; beyond 30 C the last value is held. */
const int TABLE_LAST_TEMPERATURE = 30;

/*! Grid step of the evaluation, in hours (the model time unit). */
const double STEP_HOURS = 1;

} // namespace


const char * const ModelTwo2DIsopleth::SUMMARY_TEMPLATE = "- %L1 days mould risk (max period %L2 h)";


ModelTwo2DIsopleth::ModelTwo2DIsopleth() :
	ModelTwo2DBase("h"),
	m_lines(defaultLines())
{
}


ZEB::Unit ModelTwo2DIsopleth::valueUnit() const {
	return ZEB::Unit("d");
}


std::string ModelTwo2DIsopleth::parameter() const {
	return periodParameterText(m_period) + " TAH " + numberText(m_averagingHours);
}


void ModelTwo2DIsopleth::setFromParameter(const std::string & text) {
	FUNCID(ModelTwo2DIsopleth::setFromParameter);
	ModelPeriod period = m_period;
	double averaging = m_averagingHours;
	std::vector<NumberParameter> parameters = periodParameters(period);
	parameters.emplace_back("TAH", &averaging);
	readNumberParameters(text, parameters, FUNC_ID);
	m_period = period;
	m_averagingHours = averaging;
}


std::vector<ModelParameter> ModelTwo2DIsopleth::parameterDescriptions() const {
	std::vector<ModelParameter> descriptions = periodParameterDescriptions();
	descriptions.push_back(averagingParameterDescription());
	return descriptions;
}


std::vector<ClimateLimitCurve> ModelTwo2DIsopleth::defaultLines() {
	std::vector<ClimateLimitCurve> lines;
	for (const IsoplethFit & f : ISOPLETH_FITS) {
		std::vector<double> T, RH;
		for (int i = 0; i <= TABLE_LAST_TEMPERATURE; ++i) {
			const double t = i;
			T.push_back(t);
			RH.push_back(std::min(100.0, ((f.m_a*t + f.m_b)*t + f.m_c)*t + f.m_d + f.m_shift));
		}
		// no germination at or below 0 C
		lines.emplace_back(f.m_name, T, RH, 0.0);
	}
	return lines;
}


void ModelTwo2DIsopleth::setLines(const std::vector<ClimateLimitCurve> & lines, const std::string & name) {
	FUNCID(ModelTwo2DIsopleth::setLines);
	if (lines.empty() && name.empty()) {
		m_lines = defaultLines();
		m_linesName.clear();
		return;
	}
	if (lines.empty())
		throw ZEB::Exception("At least the limit line is needed.", FUNC_ID);
	if (name.empty())
		throw ZEB::Exception("A set of isopleth lines needs a name.", FUNC_ID);
	for (const ClimateLimitCurve & line : lines)
		if (line.temperatures().empty())
			throw ZEB::Exception("Isopleth line '" + line.name() + "' has no points.", FUNC_ID);
	m_lines = lines;
	m_linesName = name;
}


double ModelTwo2DIsopleth::riskDays() const {
	return m_hoursAbove.empty() ? 0 : m_hoursAbove.back() / 24;
}


std::string ModelTwo2DIsopleth::summary() const {
	char days[40];
	char hours[40];
	std::snprintf(days, sizeof(days), "%g", riskDays());
	std::snprintf(hours, sizeof(hours), "%g", m_maxRiskPeriodHours);
	std::string text = SUMMARY_TEMPLATE;
	text.replace(text.find("%L1"), 3, days);
	text.replace(text.find("%L2"), 3, hours);
	return text;
}


void ModelTwo2DIsopleth::compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) {
	std::vector<double> grid, T, RH;
	unifiedData(first, second, grid, T, RH, STEP_HOURS);
	trailingMean(T, m_averagingHours / STEP_HOURS);
	trailingMean(RH, m_averagingHours / STEP_HOURS);

	const std::size_t limit = m_lines.size() - 1;
	std::vector<double> hoursAbove(m_lines.size(), 0.0);
	std::vector<double> temperatures, humidities;
	double run = 0;
	double maxRun = 0;
	x.m_unit = timeUnit();
	y.m_unit = valueUnit();
	for (std::size_t k = 0; k < grid.size(); ++k) {
		const double t = grid[k] + m_period.m_timeShiftHours;
		if (!m_period.contains(t))
			continue;
		// an hour without climate counts for no line, ends a risk period and has no result
		if (std::isnan(T[k]) || std::isnan(RH[k])) {
			run = 0;
			temperatures.push_back(T[k]);
			humidities.push_back(RH[k]);
			x.m_data.push_back(t);
			y.m_data.push_back(std::numeric_limits<double>::quiet_NaN());
			continue;
		}
		for (std::size_t l = 0; l < m_lines.size(); ++l)
			if (m_lines[l].isReached(T[k], RH[k]))
				hoursAbove[l] += STEP_HOURS;
		if (m_lines[limit].isReached(T[k], RH[k])) {
			run += STEP_HOURS;
			maxRun = std::max(maxRun, run);
		}
		else
			run = 0;
		temperatures.push_back(T[k]);
		humidities.push_back(RH[k]);
		x.m_data.push_back(t);
		y.m_data.push_back(hoursAbove[limit] / 24);
	}
	m_hoursAbove.swap(hoursAbove);
	m_maxRiskPeriodHours = maxRun;
	m_temperatures.swap(temperatures);
	m_humidities.swap(humidities);
}

} // namespace EM
