#ifndef EM_TestUtilsH
#define EM_TestUtilsH

#include <cstring>
#include <vector>

#include <ZEB_Unit.h>

#include <EM_TimeSeries.h>

#include "../../ZEB/tests/ZEB_TestSupport.h"

namespace EMTest {

/*! The exception check of the ZEB tests: f throws a ZEB::Exception whose newest record is msg
	from where. */
using ::expectError;

/*! True when both vectors hold the same bits (NaN and -0 included). */
inline bool sameBits(const std::vector<double> & a, const std::vector<double> & b) {
	return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size()*sizeof(double)) == 0;
}

/*! A series of n points t0, t0 + step, ... with constant value, in the given units. */
inline EM::TimeSeries constantSeries(std::size_t n, double value, const char * valueUnit,
									 double step = 1, const char * timeUnit = "h", double t0 = 0)
{
	EM::TimeSeries s;
	s.m_timeUnit = ZEB::Unit(timeUnit);
	s.m_valueUnit = ZEB::Unit(valueUnit);
	for (std::size_t i = 0; i < n; ++i) {
		s.m_time.push_back(t0 + static_cast<double>(i) * step);
		s.m_values.push_back(value);
	}
	return s;
}

/*! An hourly series (time unit "h", starting at 0) with the given values. */
inline EM::TimeSeries hourlySeries(const std::vector<double> & values, const char * valueUnit) {
	EM::TimeSeries s;
	s.m_timeUnit = ZEB::Unit("h");
	s.m_valueUnit = ZEB::Unit(valueUnit);
	for (std::size_t i = 0; i < values.size(); ++i)
		s.m_time.push_back(static_cast<double>(i));
	s.m_values = values;
	return s;
}

} // namespace EMTest

#endif // EM_TestUtilsH
