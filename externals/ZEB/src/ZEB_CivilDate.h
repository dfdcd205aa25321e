#ifndef ZEB_CivilDateH
#define ZEB_CivilDateH

#include <cstdint>

namespace ZEB {

/*! Days from 1 January 1970 to a date of the proleptic Gregorian calendar (month 1..12,
	day 1..31); negative before 1970.
*/
std::int64_t daysFromCivil(std::int64_t year, unsigned int month, unsigned int day);

/*! The date (year, month 1..12, day 1..31) that lies days after 1 January 1970: the inverse of
	daysFromCivil().
*/
void civilFromDays(std::int64_t days, std::int64_t & year, unsigned int & month, unsigned int & day);

} // namespace ZEB

#endif // ZEB_CivilDateH
