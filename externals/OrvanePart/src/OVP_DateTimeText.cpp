#include "OVP_DateTimeText.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include <ZEB_CivilDate.h>

#include "OVP_ReaderText.h"

namespace OVP {

namespace {

/*! Reads 1 to maxDigits decimal digits at p; false when there are none or more. */
bool readDigits(const char *& p, const char * end, unsigned int maxDigits, unsigned int & value, unsigned int & digits) {
	value = 0;
	digits = 0;
	while (p < end && *p >= '0' && *p <= '9') {
		if (++digits > maxDigits)
			return false;
		value = value*10 + static_cast<unsigned int>(*p - '0');
		++p;
	}
	return digits > 0;
}

/*! True when [p, end) begins with the two letters of "AM"/"PM" (any case) at p. */
bool isMeridiem(const char * p, const char * end, char first) {
	return end - p >= 2 && (p[0] == first || p[0] == first + ('a' - 'A')) && (p[1] == 'M' || p[1] == 'm');
}

/*! Reads the clock time "hh:mm[:ss[.fff]]" and an optional " AM"/" PM"; false when malformed. */
bool parseClock(const char * p, const char * end, double & secondOfDay) {
	unsigned int hour, minute, second = 0, digits;
	if (!readDigits(p, end, 2, hour, digits) || p == end || *p != ':')
		return false;
	++p;
	if (!readDigits(p, end, 2, minute, digits) || digits != 2 || minute > 59)
		return false;
	double fraction = 0;
	if (p < end && *p == ':') {
		++p;
		if (!readDigits(p, end, 2, second, digits) || digits != 2 || second > 59)
			return false;
		if (p < end && *p == '.') {
			const char * f = p;
			++p;
			while (p < end && *p >= '0' && *p <= '9')
				++p;
			if (p - f < 2 || std::from_chars(f, p, fraction).ec != std::errc())
				return false;
		}
	}
	while (p < end && *p == ' ')
		++p;
	if (p < end) {
		const bool am = isMeridiem(p, end, 'A');
		const bool pm = isMeridiem(p, end, 'P');
		if ((!am && !pm) || end - p != 2 || hour < 1 || hour > 12)
			return false;
		hour = hour % 12 + (pm ? 12 : 0);
	}
	if (hour > 24 || (hour == 24 && (minute != 0 || second != 0 || fraction != 0)))
		return false;
	secondOfDay = hour*3600.0 + minute*60.0 + second + fraction;
	return true;
}

} // namespace


bool DateTimeText::parse(const char * begin, const char * end, Parts & parts) {
	ReaderText::trim(begin, end);
	if (end - begin >= 2 && *begin == '"' && end[-1] == '"') {
		++begin;
		--end;
		ReaderText::trim(begin, end);
	}
	const char * p = begin;
	unsigned int a, b, c, da, db, dc;
	if (!readDigits(p, end, 4, a, da) || p == end)
		return false;
	const char sep = *p;
	if (sep != '-' && sep != '.' && sep != '/')
		return false;
	++p;
	if (!readDigits(p, end, 2, b, db) || p == end || *p != sep)
		return false;
	++p;
	if (!readDigits(p, end, 4, c, dc))
		return false;
	if (sep == '-') {
		if (da != 4 || dc > 2 || b < 1 || b > 12 || c < 1 || c > daysInMonth(a, b))
			return false;
		parts.m_form = F_ISO;
		parts.m_year = static_cast<std::int32_t>(a);
		parts.m_first = static_cast<std::uint8_t>(b);
		parts.m_second = static_cast<std::uint8_t>(c);
	}
	else {
		if (da > 2 || (dc != 2 && dc != 4) || a < 1 || a > 31 || b < 1 || b > 31)
			return false;
		parts.m_form = sep == '.' ? F_DOT : F_SLASH;
		parts.m_year = static_cast<std::int32_t>(dc == 2 ? (c < 70 ? 2000 + c : 1900 + c) : c);
		parts.m_first = static_cast<std::uint8_t>(a);
		parts.m_second = static_cast<std::uint8_t>(b);
	}
	parts.m_secondOfDay = 0;
	if (p == end)
		return true;
	if (*p == 'T' && sep == '-')
		++p;
	else if (*p == ' ')
		while (p < end && *p == ' ')
			++p;
	else
		return false;
	return parseClock(p, end, parts.m_secondOfDay);
}


unsigned int DateTimeText::daysInMonth(std::int64_t year, unsigned int month) {
	static const unsigned int DAYS[12] = { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
	if (month == 2 && year % 4 == 0 && (year % 100 != 0 || year % 400 == 0))
		return 29;
	return DAYS[month - 1];
}


std::string DateTimeText::format(std::int32_t startYear, double seconds) {
	const double wholeDays = std::floor(seconds/86400);
	std::int64_t year = 0;
	unsigned int month = 0;
	unsigned int day = 0;
	ZEB::civilFromDays(ZEB::daysFromCivil(startYear, 1, 1) + static_cast<std::int64_t>(wholeDays), year, month, day);
	const double secondOfDay = seconds - wholeDays*86400;
	const long clock = static_cast<long>(std::floor(secondOfDay));
	char text[160];
	std::snprintf(text, sizeof(text), "%04lld-%02u-%02u %02ld:%02ld:%02ld", static_cast<long long>(year),
				  month, day, clock/3600, clock/60 % 60, clock % 60);
	return text;
}

} // namespace OVP
