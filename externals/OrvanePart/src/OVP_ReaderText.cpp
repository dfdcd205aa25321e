#include "OVP_ReaderText.h"

#include <cmath>
#include <cstring>

#include <ZEB_StringUtils.h>

namespace OVP {

namespace {

/*! Longest number text converted for a decimal comma; longer cells are not numbers. */
const std::size_t MAX_NUMBER_TEXT = 64;

bool isGapText(const char * begin, const char * end) {
	const std::size_t n = static_cast<std::size_t>(end - begin);
	if (n == 0)
		return true;
	for (const char * gap : { "NaN", "nan", "NAN", "NA", "-", "---" })
		if (n == std::strlen(gap) && std::memcmp(begin, gap, n) == 0)
			return true;
	return false;
}

} // namespace


const char * const ReaderText::BOM = "\xEF\xBB\xBF";


bool ReaderText::isUtf8(const char * begin, const char * end) {
	const unsigned char * p = reinterpret_cast<const unsigned char *>(begin);
	const unsigned char * e = reinterpret_cast<const unsigned char *>(end);
	while (p < e) {
		const unsigned char c = *p;
		if (c < 0x80) {
			++p;
			continue;
		}
		int follow = 0;
		if (c >= 0xC2 && c <= 0xDF)
			follow = 1;
		else if (c >= 0xE0 && c <= 0xEF)
			follow = 2;
		else if (c >= 0xF0 && c <= 0xF4)
			follow = 3;
		else
			return false;
		++p;
		for (int i = 0; i < follow; ++i, ++p) {
			if (p == e)
				return true;
			if ((*p & 0xC0) != 0x80)
				return false;
		}
	}
	return true;
}


std::string ReaderText::latin1ToUtf8(const std::string & text) {
	std::string out;
	out.reserve(text.size() + text.size()/8);
	for (char ch : text) {
		const unsigned char c = static_cast<unsigned char>(ch);
		if (c < 0x80) {
			out += ch;
		}
		else {
			out += static_cast<char>(0xC0 | (c >> 6));
			out += static_cast<char>(0x80 | (c & 0x3F));
		}
	}
	return out;
}


std::string ReaderText::toUtf8(const std::string & text, bool latin1) {
	const bool bom = text.compare(0, 3, BOM) == 0;
	const std::string body = bom ? text.substr(3) : text;
	return latin1 && !bom ? latin1ToUtf8(body) : body;
}


ReaderText::Cell ReaderText::parseNumber(const char * begin, const char * end, bool decimalComma, double & value) {
	trim(begin, end);
	if (end - begin >= 2 && *begin == '"' && end[-1] == '"') {
		++begin;
		--end;
		trim(begin, end);
	}
	if (isGapText(begin, end))
		return C_GAP;
	if (*begin == '+')
		++begin;
	char buffer[MAX_NUMBER_TEXT];
	if (decimalComma) {
		const std::size_t n = static_cast<std::size_t>(end - begin);
		if (n > MAX_NUMBER_TEXT)
			return C_INVALID;
		for (std::size_t i = 0; i < n; ++i) {
			if (begin[i] == '.')
				return C_INVALID;
			buffer[i] = begin[i] == ',' ? '.' : begin[i];
		}
		begin = buffer;
		end = buffer + n;
	}
	// beyond the range of double (and "inf") is no measured value
	if (begin == end || !ZEB::parseDouble(begin, end, value) || std::isinf(value))
		return C_INVALID;
	return C_VALUE;
}


void ReaderText::trim(const char *& begin, const char *& end) {
	while (begin < end && (*begin == ' ' || *begin == '\t' || *begin == '\r' || *begin == '\n'))
		++begin;
	while (end > begin && (end[-1] == ' ' || end[-1] == '\t' || end[-1] == '\r' || end[-1] == '\n'))
		--end;
}

} // namespace OVP
