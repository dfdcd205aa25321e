#include "ZEB_CivilDate.h"

namespace ZEB {

// Both count in eras of 400 years (146097 days) and in years beginning on 1 March, so that the
// leap day ends the year; 719468 is the day count from 0000-03-01 to 1970-01-01.

std::int64_t daysFromCivil(std::int64_t year, unsigned int month, unsigned int day) {
	year -= month <= 2;
	const std::int64_t era = (year >= 0 ? year : year - 399)/400;
	const std::int64_t yearOfEra = year - era*400;
	const std::int64_t dayOfYear = (153*(month > 2 ? month - 3 : month + 9) + 2)/5 + day - 1;
	const std::int64_t dayOfEra = yearOfEra*365 + yearOfEra/4 - yearOfEra/100 + dayOfYear;
	return era*146097 + dayOfEra - 719468;
}


void civilFromDays(std::int64_t days, std::int64_t & year, unsigned int & month, unsigned int & day) {
	const std::int64_t z = days + 719468;
	const std::int64_t era = (z >= 0 ? z : z - 146096)/146097;
	const std::int64_t dayOfEra = z - era*146097;
	const std::int64_t yearOfEra = (dayOfEra - dayOfEra/1460 + dayOfEra/36524 - dayOfEra/146096)/365;
	const std::int64_t dayOfYear = dayOfEra - (365*yearOfEra + yearOfEra/4 - yearOfEra/100);
	const std::int64_t mp = (5*dayOfYear + 2)/153;
	day = static_cast<unsigned int>(dayOfYear - (153*mp + 2)/5 + 1);
	month = static_cast<unsigned int>(mp < 10 ? mp + 3 : mp - 9);
	year = yearOfEra + era*400 + (month <= 2);
}

} // namespace ZEB
