#include "ZEB_WideString.h"

#include <cstdint>
#include <type_traits>

#include "ZEB_Exception.h"
#include "ZEB_MessageFormat.h"

namespace ZEB {

namespace {

const char32_t MAX_CODE_POINT = 0x10FFFF;

inline bool isSurrogate(char32_t cp) {
	return cp >= 0xD800 && cp <= 0xDFFF;
}

/*! Decodes the UTF-8 sequence that starts at byte pos of the size bytes of text into cp and
	moves pos behind it. Only the shortest form of each code point is accepted, surrogates and
	values above U+10FFFF are not; the allowed range of the second byte encodes these rules as in
	the Unicode table of well-formed byte sequences. Returns false (pos unchanged) for any
	ill-formed or incomplete sequence.
*/
bool decodeUTF8(const char * text, std::size_t size, std::size_t & pos, char32_t & cp) {
	const unsigned char lead = static_cast<unsigned char>(text[pos]);
	if (lead < 0x80) {
		cp = lead;
		++pos;
		return true;
	}
	std::size_t len = 0;
	char32_t value = 0;
	unsigned char lo = 0x80; // allowed range of the second byte
	unsigned char hi = 0xBF;
	if (lead >= 0xC2 && lead <= 0xDF) {
		len = 2;
		value = lead & 0x1F;
	}
	else if (lead >= 0xE0 && lead <= 0xEF) {
		len = 3;
		value = lead & 0x0F;
		if (lead == 0xE0)
			lo = 0xA0;	// below: overlong
		else if (lead == 0xED)
			hi = 0x9F;	// above: surrogates
	}
	else if (lead >= 0xF0 && lead <= 0xF4) {
		len = 4;
		value = lead & 0x07;
		if (lead == 0xF0)
			lo = 0x90;	// below: overlong
		else if (lead == 0xF4)
			hi = 0x8F;	// above: beyond U+10FFFF
	}
	else
		return false; // continuation byte, C0/C1 (always overlong) or F5..FF

	if (size - pos < len)
		return false;
	for (std::size_t i = 1; i < len; ++i) {
		const unsigned char b = static_cast<unsigned char>(text[pos + i]);
		if (b < lo || b > hi)
			return false;
		lo = 0x80;
		hi = 0xBF;
		value = (value << 6) | (b & 0x3F);
	}
	cp = value;
	pos += len;
	return true;
}

/*! Upper-case hexadecimal digits of a code unit, for messages. */
std::string hexString(std::uint32_t value) {
	const char * digits = "0123456789ABCDEF";
	std::string hex;
	do {
		hex.insert(hex.begin(), digits[value & 0xF]);
		value >>= 4;
	} while (value != 0);
	return hex;
}

/*! Appends the UTF-8 form of a valid code point. */
void encodeUTF8(char32_t cp, std::string & out) {
	if (cp < 0x80)
		out.push_back(static_cast<char>(cp));
	else if (cp < 0x800) {
		out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
		out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
	}
	else if (cp < 0x10000) {
		out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
		out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
		out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
	}
	else {
		out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
		out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
		out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
		out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
	}
}

/*! Appends one code point as UTF-32 (4-byte code units) or UTF-16 (2-byte code units). */
template <typename CharT>
void appendCodePoint(char32_t cp, std::basic_string<CharT> & out) {
	if constexpr (sizeof(CharT) >= 4)
		out.push_back(static_cast<CharT>(cp));
	else {
		static_assert(sizeof(CharT) == 2, "UTF-16 needs 16-bit code units");
		if (cp < 0x10000)
			out.push_back(static_cast<CharT>(cp));
		else {
			cp -= 0x10000;
			out.push_back(static_cast<CharT>(0xD800 + (cp >> 10)));
			out.push_back(static_cast<CharT>(0xDC00 + (cp & 0x3FF)));
		}
	}
}

/*! Reads the code point that starts at code unit pos of a UTF-32 or UTF-16 string and moves
	pos behind it. Returns false for negative values, values above U+10FFFF, surrogate code
	points in UTF-32 and unpaired surrogates in UTF-16.
*/
template <typename CharT>
bool readCodePoint(const std::basic_string<CharT> & text, std::size_t & pos, char32_t & cp) {
	using Unsigned = std::make_unsigned_t<CharT>;
	const std::uint32_t unit = static_cast<Unsigned>(text[pos]);
	if constexpr (sizeof(CharT) >= 4) {
		if (unit > MAX_CODE_POINT || isSurrogate(unit))
			return false;
		cp = unit;
		++pos;
		return true;
	}
	else {
		if (!isSurrogate(unit)) {
			cp = unit;
			++pos;
			return true;
		}
		if (unit >= 0xDC00 || pos + 1 >= text.size())
			return false; // low surrogate first, or high surrogate at the end
		const std::uint32_t low = static_cast<Unsigned>(text[pos + 1]);
		if (low < 0xDC00 || low > 0xDFFF)
			return false;
		cp = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
		pos += 2;
		return true;
	}
}

/*! UTF-8 to UTF-32/UTF-16; funcId and message name the public function in the exception. */
template <typename CharT>
std::basic_string<CharT> fromUTF8(const std::string & utf8, const char * funcId, const char * message) {
	std::basic_string<CharT> result;
	result.reserve(utf8.size());
	std::size_t pos = 0;
	while (pos < utf8.size()) {
		char32_t cp = 0;
		if (!decodeUTF8(utf8.data(), utf8.size(), pos, cp)) {
			Exception cause(MessageFormat("Invalid or truncated UTF-8 sequence at byte position %1.").arg(pos), funcId);
			throw Exception(cause, message, funcId);
		}
		appendCodePoint(cp, result);
	}
	return result;
}

/*! UTF-32/UTF-16 to UTF-8; funcId and message name the public function in the exception. */
template <typename CharT>
std::string toUTF8(const std::basic_string<CharT> & text, const char * funcId, const char * message) {
	std::string result;
	result.reserve(text.size());
	std::size_t pos = 0;
	while (pos < text.size()) {
		char32_t cp = 0;
		if (!readCodePoint(text, pos, cp)) {
			const std::uint32_t unit = static_cast<std::make_unsigned_t<CharT>>(text[pos]);
			Exception cause(MessageFormat("Invalid code unit 0x%1 at position %2.").arg(hexString(unit)).arg(pos), funcId);
			throw Exception(cause, message, funcId);
		}
		encodeUTF8(cp, result);
	}
	return result;
}

} // namespace


std::wstring UTF8ToWstring(const std::string & utf8) {
	FUNCID(ZEB::UTF8ToWstring);
	return fromUTF8<wchar_t>(utf8, FUNC_ID, "Cannot create wide string from UTF8 string.");
}

std::string WstringToUTF8(const std::wstring & wide) {
	FUNCID(ZEB::WstringToUTF8);
	return toUTF8(wide, FUNC_ID, "Cannot create UTF8 string from wide string.");
}

std::u16string UTF8ToU16string(const std::string & utf8) {
	FUNCID(ZEB::UTF8ToU16string);
	return fromUTF8<char16_t>(utf8, FUNC_ID, "Cannot create UTF16 string from UTF8 string.");
}

std::string U16stringToUTF8(const std::u16string & utf16) {
	FUNCID(ZEB::U16stringToUTF8);
	return toUTF8(utf16, FUNC_ID, "Cannot create UTF8 string from UTF16 string.");
}


std::size_t invalidUTF8Offset(const char * data, std::size_t size) {
	std::size_t pos = 0;
	char32_t cp = 0;
	while (pos < size)
		if (!decodeUTF8(data, size, pos, cp))
			return pos;
	return size;
}

} // namespace ZEB
