#ifndef OVP_ReaderTextH
#define OVP_ReaderTextH

#include <cstddef>
#include <string>

namespace OVP {

/*! The text rules all data file readers share: encodings (UTF-8 with or without byte order mark,
	else Latin-1) and number cells (decimal point or comma, gap marks).
*/
class ReaderText {
public:
	/*! What a cell of a value column holds. */
	enum Cell {
		C_VALUE,	///< a number
		C_GAP,		///< empty, "NaN", "NA", "-" or "---": the value is absent
		C_INVALID	///< anything else
	};

	/*! The UTF-8 byte order mark. */
	static const char * const BOM;

	/*! True when [begin, end) is valid UTF-8 (an incomplete sequence at end counts as valid, so
		that a block cut in the middle of a character is judged rightly).
	*/
	static bool isUtf8(const char * begin, const char * end);
	/*! The Latin-1 (ISO-8859-1) text as UTF-8. */
	static std::string latin1ToUtf8(const std::string & text);
	/*! Text of a file in UTF-8: a leading byte order mark removed, Latin-1 converted when
		latin1 is true.
	*/
	static std::string toUtf8(const std::string & text, bool latin1);

	/*! Reads the number in [begin, end), blanks around it and enclosing double quotes ignored.
		With decimalComma the decimal separator is "," instead of ".". Exponents are accepted.
	*/
	static Cell parseNumber(const char * begin, const char * end, bool decimalComma, double & value);

	/*! [begin, end) without blanks, tabs and line-end characters at either end. */
	static void trim(const char *& begin, const char *& end);
};

} // namespace OVP

#endif // OVP_ReaderTextH
