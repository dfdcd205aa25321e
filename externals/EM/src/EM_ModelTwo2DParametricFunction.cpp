#include "EM_ModelTwo2DParametricFunction.h"

#include <ZEB_Exception.h>
#include <ZEB_UnitVector.h>

namespace EM {

namespace {

/*! Grid step in hours (the model time unit). */
const double STEP_HOURS = 1;

} // namespace


ModelTwo2DParametricFunction::ModelTwo2DParametricFunction() :
	ModelTwo2DBase("h")
{
}


ZEB::Unit ModelTwo2DParametricFunction::valueUnit() const {
	return humidityUnit();
}


std::string ModelTwo2DParametricFunction::parameter() const {
	return periodParameterText(m_period) + " TAH " + numberText(m_averagingHours) + " TH " + numberText(m_threshold);
}


void ModelTwo2DParametricFunction::setFromParameter(const std::string & text) {
	FUNCID(ModelTwo2DParametricFunction::setFromParameter);
	ModelPeriod period = m_period;
	double averaging = m_averagingHours;
	double threshold = m_threshold;
	std::vector<NumberParameter> parameters = periodParameters(period);
	parameters.emplace_back("TAH", &averaging);
	parameters.emplace_back("TH", &threshold);
	readNumberParameters(text, parameters, FUNC_ID);
	m_period = period;
	m_averagingHours = averaging;
	m_threshold = threshold;
}


std::vector<ModelParameter> ModelTwo2DParametricFunction::parameterDescriptions() const {
	std::vector<ModelParameter> descriptions = periodParameterDescriptions();
	descriptions.push_back(averagingParameterDescription());
	descriptions.push_back({ "TH", "Relative humidity threshold [%], 0 or less: all hours", false, 0,
							 -ModelParameter::UNBOUNDED, ModelParameter::UNBOUNDED });
	return descriptions;
}


std::string ModelTwo2DParametricFunction::inputUnitsMessage(const TimeSeries &, const TimeSeries &) const {
	return "wrong data setting for parametric functions";
}


void ModelTwo2DParametricFunction::compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) {
	std::vector<double> grid, T, RH;
	unifiedData(first, second, grid, T, RH, STEP_HOURS);
	trailingMean(T, m_averagingHours / STEP_HOURS);
	trailingMean(RH, m_averagingHours / STEP_HOURS);
	x.m_unit = temperatureUnit();
	y.m_unit = humidityUnit();
	for (std::size_t k = 0; k < grid.size(); ++k) {
		if (!m_period.contains(grid[k] + m_period.m_timeShiftHours))
			continue;
		if (m_threshold > 0 && RH[k] < m_threshold)
			continue;
		// a gap stays absent (NaN): the curve breaks there instead of joining the climate before
		// and after it
		x.m_data.push_back(T[k]);
		y.m_data.push_back(RH[k]);
	}
}

} // namespace EM
