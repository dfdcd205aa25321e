#ifndef ZEB_UnitVectorH
#define ZEB_UnitVectorH

#include <cstddef>
#include <vector>

#include "ZEB_Unit.h"

namespace ZEB {

/*! A vector of values that share one unit; convert() converts all values at once. */
class UnitVector {
public:
	UnitVector() = default;
	/*! n values, all set to value, in the given unit. */
	explicit UnitVector(std::size_t n, double value = 0, const Unit & unit = Unit()) :
		m_data(n, value), m_unit(unit)
	{}
	UnitVector(const std::vector<double> & data, const Unit & unit) :
		m_data(data), m_unit(unit)
	{}

	std::size_t size() const { return m_data.size(); }
	bool empty() const { return m_data.empty(); }
	void clear() { m_data.clear(); }
	void resize(std::size_t n) { m_data.resize(n); }
	double & operator[](std::size_t i) { return m_data[i]; }
	double operator[](std::size_t i) const { return m_data[i]; }

	/*! Converts all values to the target unit and sets m_unit to it.
		Fails as UnitList::relate_units() for units of different groups. Special conversions go
		through convert_special(). On failure values and unit are left unchanged.
	*/
	void convert(const Unit & target);

	/*! Special conversion of all values (see UnitList::convert_special()). A failure is
		reported with the cause attached, as "Conversion error (square-root of negative
		number)!" (or the corresponding logarithm / power message) under
		"[UnitVector::convert_special]". On failure values and unit are left unchanged.
	*/
	void convert_special(const Unit & target);

	std::vector<double>	m_data;	///< the values
	Unit				m_unit;	///< unit of all values
};

} // namespace ZEB

#endif // ZEB_UnitVectorH
