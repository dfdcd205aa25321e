#ifndef ZEB_WideStringH
#define ZEB_WideStringH

#include <cstddef>
#include <string>

namespace ZEB {

/*! Converts a UTF-8 string to a wide string: UTF-32 where wchar_t has 32 bits (Linux, macOS),
	UTF-16 with surrogate pairs where it has 16 bits (Windows). File names are held as UTF-8
	and converted only where a wide-character file API needs them.
	The decoder is strict: overlong forms, encoded surrogates (U+D800..U+DFFF), code points
	above U+10FFFF, stray continuation bytes and truncated sequences are all rejected with
	"Cannot create wide string from UTF8 string." (an inner record names the byte position).
	An embedded NUL character is an ordinary character.
*/
std::wstring UTF8ToWstring(const std::string & utf8);

/*! Converts a wide string (UTF-32 or UTF-16, see UTF8ToWstring()) to UTF-8.
	Surrogate code units in UTF-32, unpaired surrogates in UTF-16, negative values and values
	above U+10FFFF are rejected with "Cannot create UTF8 string from wide string.".
*/
std::string WstringToUTF8(const std::wstring & wide);

/*! UTF-8 to UTF-16, with the same strict rules; the wide-string conversion uses the same code
	where wchar_t has 16 bits.
*/
std::u16string UTF8ToU16string(const std::string & utf8);

/*! UTF-16 to UTF-8; an unpaired surrogate is rejected. */
std::string U16stringToUTF8(const std::u16string & utf16);

/*! Offset of the first byte of the size bytes of data that does not belong to a well-formed
	UTF-8 sequence (by the same strict rules as the conversions above, complete sequences only);
	size when all bytes do.
*/
std::size_t invalidUTF8Offset(const char * data, std::size_t size);

} // namespace ZEB

#endif // ZEB_WideStringH
