#include "DATAIO_CreationTime.h"

#include <charconv>
#include <cstdio>

namespace DATAIO {

namespace {

const std::int64_t SECONDS_PER_DAY = 86400;
/*! Days from 1970-01-01 to 0001-01-01 and to 10000-01-01, the range of the text form. */
const std::int64_t FIRST_DAY = -719162;
const std::int64_t END_DAY = 2932897;

/*! Days since 1970-01-01 of a date in the proleptic Gregorian calendar. */
std::int64_t daysFromCivil(std::int64_t y, unsigned int m, unsigned int d) {
	y -= m <= 2 ? 1 : 0;
	const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
	const std::int64_t yoe = y - era*400;								// [0, 399]
	const std::int64_t doy = (153*(m > 2 ? m - 3 : m + 9) + 2)/5 + d - 1;	// [0, 365]
	const std::int64_t doe = yoe*365 + yoe/4 - yoe/100 + doy;			// [0, 146096]
	return era*146097 + doe - 719468;
}

/*! Date of a day count since 1970-01-01 (inverse of daysFromCivil). */
void civilFromDays(std::int64_t z, std::int64_t & y, unsigned int & m, unsigned int & d) {
	z += 719468;
	const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
	const std::int64_t doe = z - era*146097;
	const std::int64_t yoe = (doe - doe/1460 + doe/36524 - doe/146096) / 365;
	const std::int64_t doy = doe - (365*yoe + yoe/4 - yoe/100);
	const std::int64_t mp = (5*doy + 2)/153;
	d = static_cast<unsigned int>(doy - (153*mp + 2)/5 + 1);
	m = static_cast<unsigned int>(mp < 10 ? mp + 3 : mp - 9);
	y = yoe + era*400 + (m <= 2 ? 1 : 0);
}

/*! Parses count digits at p into v. */
bool digits(const char * p, int count, unsigned int & v) {
	v = 0;
	for (int i = 0; i < count; ++i) {
		if (p[i] < '0' || p[i] > '9')
			return false;
		v = 10*v + static_cast<unsigned int>(p[i] - '0');
	}
	return true;
}

} // namespace


std::string CreationTime::toText(std::int64_t seconds) {
	if (seconds == 0)
		return std::string();
	std::int64_t days = seconds / SECONDS_PER_DAY;
	std::int64_t rest = seconds % SECONDS_PER_DAY;
	if (rest < 0) {
		rest += SECONDS_PER_DAY;
		--days;
	}
	if (days < FIRST_DAY || days >= END_DAY)
		return "@" + std::to_string(seconds);
	std::int64_t y;
	unsigned int m, d;
	civilFromDays(days, y, m, d);
	char buf[32];
	std::snprintf(buf, sizeof(buf), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(y), m, d,
				  static_cast<int>(rest/3600), static_cast<int>(rest/60%60), static_cast<int>(rest%60));
	return buf;
}


bool CreationTime::fromText(const std::string & text, std::int64_t & seconds) {
	if (text.empty()) {
		seconds = 0;
		return true;
	}
	if (text[0] == '@') {
		const char * end = text.data() + text.size();
		std::from_chars_result res = std::from_chars(text.data() + 1, end, seconds);
		return res.ec == std::errc() && res.ptr == end;
	}
	// YYYY-MM-DD HH:MM:SS
	if (text.size() != 19 || text[4] != '-' || text[7] != '-' || text[10] != ' ' || text[13] != ':' || text[16] != ':')
		return false;
	unsigned int y, mo, d, h, mi, s;
	const char * p = text.data();
	if (!digits(p, 4, y) || !digits(p + 5, 2, mo) || !digits(p + 8, 2, d) ||
		!digits(p + 11, 2, h) || !digits(p + 14, 2, mi) || !digits(p + 17, 2, s))
		return false;
	if (y < 1 || mo < 1 || mo > 12 || d < 1 || h > 23 || mi > 59 || s > 59)
		return false;
	// the day must exist in that month: converting back must give the same date
	const std::int64_t days = daysFromCivil(y, mo, d);
	std::int64_t y2;
	unsigned int m2, d2;
	civilFromDays(days, y2, m2, d2);
	if (y2 != y || m2 != mo || d2 != d)
		return false;
	seconds = days*SECONDS_PER_DAY + h*3600 + mi*60 + s;
	// midnight of 1970-01-01 would read as "no time"; it cannot be stored
	return seconds != 0;
}

} // namespace DATAIO
