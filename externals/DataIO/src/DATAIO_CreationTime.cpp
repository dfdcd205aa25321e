#include "DATAIO_CreationTime.h"

#include <charconv>
#include <cstdio>

#include <ZEB_CivilDate.h>

namespace DATAIO {

namespace {

const std::int64_t SECONDS_PER_DAY = 86400;
/*! Days from 1970-01-01 to 0001-01-01 and to 10000-01-01, the range of the text form. */
const std::int64_t FIRST_DAY = -719162;
const std::int64_t END_DAY = 2932897;

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
	ZEB::civilFromDays(days, y, m, d);
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
	const std::int64_t days = ZEB::daysFromCivil(y, mo, d);
	std::int64_t y2;
	unsigned int m2, d2;
	ZEB::civilFromDays(days, y2, m2, d2);
	if (y2 != y || m2 != mo || d2 != d)
		return false;
	seconds = days*SECONDS_PER_DAY + h*3600 + mi*60 + s;
	// midnight of 1970-01-01 would read as "no time"; it cannot be stored
	return seconds != 0;
}

} // namespace DATAIO
