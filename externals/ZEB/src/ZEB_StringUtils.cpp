#include "ZEB_StringUtils.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "ZEB_Exception.h"
#include "ZEB_MessageFormat.h"

namespace ZEB {

namespace {

inline bool isSeparator(char c) {
	return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/*! Parses an integer type from the whole trimmed string. */
template <typename T>
bool parseInteger(const std::string & str, T & value) {
	std::string s = trimmed(str);
	const char * b = s.data();
	const char * e = b + s.size();
	if (b != e && *b == '+')
		++b;
	if (b == e)
		return false;
	std::from_chars_result res = std::from_chars(b, e, value);
	return res.ec == std::errc() && res.ptr == e;
}

template <typename T>
T string2integer(const std::string & str, const char * funcId) {
	T value{};
	if (!parseInteger(str, value))
		throw Exception(MessageFormat("Cannot convert '%1' to a number.").arg(str), funcId);
	return value;
}

} // namespace


bool parseDouble(const char * begin, const char * end, double & value) {
	if (begin != end && *begin == '+') {
		++begin;
		// "+-1" is no number
		if (begin != end && *begin == '-')
			return false;
	}
	if (begin == end)
		return false;
	std::from_chars_result res = std::from_chars(begin, end, value, std::chars_format::general);
	if (res.ptr != end)
		return false;
	// values beyond the double range are read as infinity, like strtod does
	if (res.ec == std::errc::result_out_of_range) {
		value = (*begin == '-') ? -HUGE_VAL : HUGE_VAL;
		// a tiny exponent underflows to zero rather than to infinity
		const char * ePos = begin;
		while (ePos != end && *ePos != 'e' && *ePos != 'E')
			++ePos;
		if (ePos != end && ePos + 1 != end && ePos[1] == '-')
			value = (*begin == '-') ? -0.0 : 0.0;
		return true;
	}
	return res.ec == std::errc();
}


template <>
double string2val<double>(const std::string & str) {
	FUNCID(ZEB::string2val<double>);
	std::string s = trimmed(str);
	double value = 0;
	if (!parseDouble(s.data(), s.data() + s.size(), value))
		throw Exception(MessageFormat("Cannot convert '%1' to a number.").arg(str), FUNC_ID);
	return value;
}

template <>
int string2val<int>(const std::string & str) {
	FUNCID(ZEB::string2val<int>);
	return string2integer<int>(str, FUNC_ID);
}

template <>
unsigned int string2val<unsigned int>(const std::string & str) {
	FUNCID(ZEB::string2val<unsigned int>);
	return string2integer<unsigned int>(str, FUNC_ID);
}

template <>
long long string2val<long long>(const std::string & str) {
	FUNCID(ZEB::string2val<long long>);
	return string2integer<long long>(str, FUNC_ID);
}

template <>
unsigned long long string2val<unsigned long long>(const std::string & str) {
	FUNCID(ZEB::string2val<unsigned long long>);
	return string2integer<unsigned long long>(str, FUNC_ID);
}


void string2valueVector(const std::string & text, std::vector<double> & values) {
	string2valueVector(text.data(), text.data() + text.size(), values);
}


void string2valueVector(const char * begin, const char * end, std::vector<double> & values) {
	FUNCID(ZEB::string2valueVector);
	values.clear();
	const char * p = begin;
	while (true) {
		while (p != end && isSeparator(*p))
			++p;
		if (p == end)
			break;
		const char * tokenEnd = p;
		while (tokenEnd != end && !isSeparator(*tokenEnd))
			++tokenEnd;
		double v;
		if (!parseDouble(p, tokenEnd, v))
			throw Exception(MessageFormat("'%1' at character pos #2 is not a valid number.")
							.arg(std::string(begin, end)), FUNC_ID);
		values.push_back(v);
		p = tokenEnd;
	}
}


std::string trimmed(const std::string & str, const char * chars) {
	std::size_t first = str.find_first_not_of(chars);
	if (first == std::string::npos)
		return std::string();
	std::size_t last = str.find_last_not_of(chars);
	return str.substr(first, last - first + 1);
}


std::vector<std::string> explode(const std::string & str, char separator) {
	std::vector<std::string> parts;
	std::size_t start = 0;
	while (true) {
		std::size_t pos = str.find(separator, start);
		if (pos == std::string::npos) {
			parts.push_back(str.substr(start));
			break;
		}
		parts.push_back(str.substr(start, pos - start));
		start = pos + 1;
	}
	return parts;
}

} // namespace ZEB
