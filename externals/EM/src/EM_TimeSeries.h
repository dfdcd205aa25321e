#ifndef EM_TimeSeriesH
#define EM_TimeSeriesH

#include <string>
#include <vector>

#include <ZEB_Unit.h>

namespace EM {

/*! One input series of a model: time points with their unit and one value per time point with
	the value unit. The models' numeric core works on this plain form, so that it does not
	depend on where the series came from.
*/
struct TimeSeries {
	TimeSeries() = default;
	TimeSeries(const std::vector<double> & time, const ZEB::Unit & timeUnit,
			   const std::vector<double> & values, const ZEB::Unit & valueUnit) :
		m_time(time), m_timeUnit(timeUnit), m_values(values), m_valueUnit(valueUnit)
	{}

	std::vector<double>	m_time;			///< time points, strictly increasing
	ZEB::Unit			m_timeUnit;		///< unit of the time points (undefined when unknown)
	std::vector<double>	m_values;		///< one value per time point; NaN where the value is absent (a gap)
	ZEB::Unit			m_valueUnit;	///< unit of the values (undefined when unknown)
	std::string			m_name;			///< the data set's name in messages (may be empty)
};

} // namespace EM

#endif // EM_TimeSeriesH
