#ifndef OVP_ReaderLinesH
#define OVP_ReaderLinesH

#include <cstdint>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "OVP_ReaderText.h"

namespace ZEB {
class NotificationHandler;
}

namespace DATAIO {
class LineReader;
}

namespace OVP {

/*! The text of one data file, line by line: LF, CRLF and CR line ends, a byte order mark before
	the first line, the encoding (UTF-8, else Latin-1, decided from the file's first 64 kB) and the
	decimal separator (decided from the first number text with a "." or ","). Lines are held at
	most MAX_LINE_LENGTH bytes long, so that a hostile file never takes more memory than that.
	Messages name the file and the current line through where().
*/
class ReaderLines {
public:
	/*! Most bytes a line may hold. A file with CR line ends alone counts as one line here, so
		such files are read up to this size.
	*/
	static constexpr std::size_t MAX_LINE_LENGTH = std::size_t(16)*1024*1024;

	/*! Opens the file; throws ZEB::Exception when it cannot be opened. The notification handler,
		when given, receives the fraction of the file read.
	*/
	explicit ReaderLines(const std::string & fileName, ZEB::NotificationHandler * notification = nullptr);
	~ReaderLines();

	/*! Moves to the next line; false at the end of the file. Throws ZEB::Exception for a line
		longer than MAX_LINE_LENGTH and for a line holding NUL bytes (binary data).
	*/
	bool next();
	/*! The current line [begin(), end()), without its line end. */
	const char * begin() const { return m_begin; }
	const char * end() const { return m_end; }
	bool empty() const { return m_begin == m_end; }
	/*! True when the current line ended with a line end (false: the file ends within it). */
	bool terminated() const;
	/*! The current line as UTF-8 text. */
	std::string text() const { return text(m_begin, m_end); }
	/*! The text [begin, end) of the current line as UTF-8. */
	std::string text(const char * begin, const char * end) const;
	std::uint64_t lineNumber() const { return m_lineNumber; }
	const std::string & fileName() const { return m_fileName; }

	/*! "File '<name>', line <n>" for the current line, with ", column <c>" when column > 0. */
	std::string where(std::size_t column = 0) const;

	/*! Reads the number in [begin, end) with the file's decimal separator, deciding it on the
		first text that holds a "." or ",". See ReaderText::parseNumber().
	*/
	ReaderText::Cell parseNumber(const char * begin, const char * end, double & value);

	/*! The values of the current line, at most columns of them, into row; a gap is NaN. Fields
		are separated by tabs with tabs, else by blanks. Throws ZEB::Exception naming the column
		for a field that is not a number and for more fields than columns (empty ones at the end
		aside). row holds fewer than columns values when the line has fewer fields.
	*/
	void parseValues(bool tabs, std::size_t columns, std::vector<double> & row);

	/*! The next field of [pos, end): with tabs the text up to the next tab, else the next run of
		characters other than blanks and tabs. Advances pos behind the field; false when the
		line holds no further field. With tabs, pos starts at the line's begin and becomes null
		after the last field, so that an empty line holds one empty field.
	*/
	static bool nextField(const char *& pos, const char * end, bool tabs, const char *& fieldBegin,
						  const char *& fieldEnd);

private:
	std::string							m_fileName;
	std::ifstream						m_in;
	std::unique_ptr<DATAIO::LineReader>	m_reader;
	bool								m_latin1 = false;
	bool								m_separatorDecided = false;
	bool								m_decimalComma = false;
	/*! Rest of a line read by m_reader after a CR line end, null when there is none. */
	const char *						m_rest = nullptr;
	const char *						m_restEnd = nullptr;
	const char *						m_begin = nullptr;
	const char *						m_end = nullptr;
	std::uint64_t						m_lineNumber = 0;
};

} // namespace OVP

#endif // OVP_ReaderLinesH
