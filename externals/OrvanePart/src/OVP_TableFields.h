#ifndef OVP_TableFieldsH
#define OVP_TableFieldsH

#include <string>
#include <vector>

namespace OVP {

/*! Splits the lines of a delimited text table into fields. Fields may be enclosed in double
	quotes; a delimiter inside the quotes belongs to the field, and "" inside quotes is one quote.
	Fields are handed out in place, quotes and blanks still around them: ReaderText::parseNumber()
	reads such a field as it is, text() gives its text.
*/
class TableFields {
public:
	/*! One field [m_begin, m_end) of a line. */
	struct Field {
		const char *	m_begin;
		const char *	m_end;
	};

	/*! The delimiters a table may use, in the order they are tried. */
	static const char DELIMITERS[3];

	/*! Splits [begin, end) at delimiter into fields (fields is cleared first). Returns false when
		a quote is not closed within the line.
	*/
	static bool split(const char * begin, const char * end, char delimiter, std::vector<Field> & fields);
	/*! Number of fields of the line, 0 when a quote is not closed. */
	static std::size_t count(const std::string & line, char delimiter);
	/*! The text of a field: blanks around it and enclosing quotes removed, "" inside quotes as
		one quote.
	*/
	static std::string text(const Field & field);
	/*! The texts of all fields of a line; false when a quote is not closed. */
	static bool texts(const std::string & line, char delimiter, std::vector<std::string> & texts);

	/*! The delimiter of a table: the first of DELIMITERS that splits the header (lines[0]) into at
		least two fields and every further line into as many; when none does, the first that
		splits the header into two or more (a data line then reports its field count); 0 when none.
	*/
	static char detectDelimiter(const std::vector<std::string> & lines);

private:
	/*! split() for a line with double quotes. */
	static bool splitQuoted(const char * begin, const char * end, char delimiter, std::vector<Field> & fields);
};

} // namespace OVP

#endif // OVP_TableFieldsH
