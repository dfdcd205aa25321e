#include "EM_ModelTwo2DWTAWoodDegradation.h"

#include <cmath>

#include <ZEB_Exception.h>
#include <ZEB_UnitVector.h>

namespace EM {

namespace {

/*! Grid points of a complete day. */
const unsigned int HOURS_PER_DAY = 24;

/*! Distance in hours up to which a time point counts as a full hour: the hourly grid in days
	is not exact in binary, and a point meant to start a day must not fall into the day before.
*/
const double FULL_HOUR_TOLERANCE = 1e-6;

} // namespace


ModelTwo2DWTAWoodDegradation::ModelTwo2DWTAWoodDegradation() :
	ModelTwo2DBase("d"),
	m_limit(defaultLimit())
{
}


ZEB::Unit ModelTwo2DWTAWoodDegradation::valueUnit() const {
	return ZEB::Unit("-");
}


std::string ModelTwo2DWTAWoodDegradation::parameter() const {
	return periodParameterText(m_period);
}


void ModelTwo2DWTAWoodDegradation::setFromParameter(const std::string & text) {
	FUNCID(ModelTwo2DWTAWoodDegradation::setFromParameter);
	ModelPeriod period = m_period;
	readNumberParameters(text, periodParameters(period), FUNC_ID);
	m_period = period;
}


std::vector<ModelParameter> ModelTwo2DWTAWoodDegradation::parameterDescriptions() const {
	return periodParameterDescriptions();
}


ClimateLimitCurve ModelTwo2DWTAWoodDegradation::defaultLimit() {
	return ClimateLimitCurve("Limit for wood decay", std::vector<double>{0.0}, std::vector<double>{95.0}, 0.0);
}


void ModelTwo2DWTAWoodDegradation::setLimit(const ClimateLimitCurve & limit) {
	FUNCID(ModelTwo2DWTAWoodDegradation::setLimit);
	if (limit.temperatures().empty())
		throw ZEB::Exception("Limit curve has no points.", FUNC_ID);
	m_limit = limit;
}


void ModelTwo2DWTAWoodDegradation::compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) {
	std::vector<double> grid, T, RH;
	unifiedData(first, second, grid, T, RH, 1.0/HOURS_PER_DAY);
	x.m_unit = timeUnit();
	y.m_unit = valueUnit();

	unsigned int daysAbove = 0;
	std::vector<double> dailyT, dailyRH;
	// collects the grid points of one day of the shifted time axis
	double day = 0;
	unsigned int count = 0;
	double sumT = 0;
	double sumRH = 0;
	// a day with an hour without climate has no mean, like a day cut by the period
	bool gap = false;
	auto closeDay = [&]() {
		if (count == HOURS_PER_DAY && !gap) {
			const double meanT = sumT / HOURS_PER_DAY;
			const double meanRH = sumRH / HOURS_PER_DAY;
			const bool above = m_limit.isReached(meanT, meanRH);
			if (above)
				++daysAbove;
			dailyT.push_back(meanT);
			dailyRH.push_back(meanRH);
			x.m_data.push_back(day);
			y.m_data.push_back(above ? 1 : 0);
		}
		count = 0;
		sumT = 0;
		sumRH = 0;
		gap = false;
	};
	for (std::size_t k = 0; k < grid.size(); ++k) {
		double hours = grid[k] * 24 + m_period.m_timeShiftHours;
		if (std::fabs(hours - std::round(hours)) < FULL_HOUR_TOLERANCE)
			hours = std::round(hours);
		if (!m_period.contains(hours))
			continue;
		const double d = std::floor(hours / 24);
		if (count > 0 && d != day)
			closeDay();
		day = d;
		++count;
		gap = gap || std::isnan(T[k]) || std::isnan(RH[k]);
		sumT += T[k];
		sumRH += RH[k];
	}
	closeDay();

	m_daysAboveLimit = daysAbove;
	m_dailyTemperatures.swap(dailyT);
	m_dailyHumidities.swap(dailyRH);
}

} // namespace EM
