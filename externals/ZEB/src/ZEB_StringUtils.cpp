#include "ZEB_StringUtils.h"

#include <charconv>

#include <fast_float/fast_float.h>

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


/*! Reads a number at the start of [p, end) with fast_float (exact: correctly rounded for every
	input, also beyond the range of doubles, which gives infinity or zero) and returns the
	position after it, or null when the text does not start with a number.
*/
const char * parseDoubleFastPrefix(const char * p, const char * end, double & value) {
	const fast_float::from_chars_result res = fast_float::from_chars(p, end, value);
	return res.ec == std::errc() ? res.ptr : nullptr;
}


bool parseDouble(const char * begin, const char * end, double & value) {
	if (begin != end && *begin == '+') {
		++begin;
		// "+-1" is no number
		if (begin != end && *begin == '-')
			return false;
	}
	return begin != end && parseDoubleFastPrefix(begin, end, value) == end;
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
		// most tokens are plain numbers that end at a separator: parse them in one pass
		double v;
		const char * stop = parseDoubleFastPrefix(p, end, v);
		if (stop == nullptr || (stop != end && !isSeparator(*stop))) {
			stop = p;
			while (stop != end && !isSeparator(*stop))
				++stop;
			if (!parseDouble(p, stop, v))
				throw Exception(MessageFormat("'%1' at character pos #2 is not a valid number.")
								.arg(std::string(begin, end)), FUNC_ID);
		}
		values.push_back(v);
		p = stop;
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
