#ifndef ZEB_StringUtilsH
#define ZEB_StringUtilsH

#include <string>
#include <vector>

namespace ZEB {

/*! Converts a whole string to a value and throws when it is not exactly one number.
	Surrounding white space and a leading '+' are accepted; parsing never depends on the locale.
	Available for double, int, unsigned int, long long and unsigned long long.
*/
template <typename T>
T string2val(const std::string & str);

template <> double string2val<double>(const std::string & str);
template <> int string2val<int>(const std::string & str);
template <> unsigned int string2val<unsigned int>(const std::string & str);
template <> long long string2val<long long>(const std::string & str);
template <> unsigned long long string2val<unsigned long long>(const std::string & str);

/*! Parses one double from [begin, end) without any white space; returns false on failure.
	Accepts ordinary decimal and exponent notation, a leading '+', "nan" and "inf".
*/
bool parseDouble(const char * begin, const char * end, double & value);
/*! Reads the number at the start of [p, end) (no leading '+' or white space) and returns the
	position after it, or null when the text does not start with a number. Where it reads a text
	completely, the value is the one parseDouble() gives. Lets parsers of delimited text read a
	field and find its end in one pass.
*/
const char * parseDoubleFastPrefix(const char * p, const char * end, double & value);

/*! Splits the text at runs of blanks, tabs, carriage returns and line feeds and parses each
	token as double into values (cleared first). Throws when a token is not a number.
*/
void string2valueVector(const std::string & text, std::vector<double> & values);

/*! The same for a character range, for callers that hold lines in larger buffers. */
void string2valueVector(const char * begin, const char * end, std::vector<double> & values);

/*! Removes leading and trailing characters contained in chars. */
std::string trimmed(const std::string & str, const char * chars = " \t\r\n");

/*! Splits at every occurrence of the separator character; empty parts are kept. */
std::vector<std::string> explode(const std::string & str, char separator);

} // namespace ZEB

#endif // ZEB_StringUtilsH
