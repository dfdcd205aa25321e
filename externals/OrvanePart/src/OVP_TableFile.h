#ifndef OVP_TableFileH
#define OVP_TableFileH

#include <cstdint>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <DATAIO_LineReader.h>

namespace ZEB {
class NotificationHandler;
}

namespace OVP {

/*! A text file opened by a table reader (CSV/TSV table, logger export). It finds out from the first
	block how lines end (LF, CRLF or CR alone) and the encoding (UTF-8 with or without byte order
	mark, else Latin-1), hands out the first lines as UTF-8 text for the header, and opens a line
	reader over the data lines. Lines are bounded in length, so that a huge file of one line fails
	before it fills the memory.
*/
class TableFile {
public:
	/*! A line read ahead: its text, number and where it lies in the file. */
	struct Line {
		std::string		m_text;
		std::uint64_t	m_number;
		std::uint64_t	m_start;
		std::uint64_t	m_end;
	};

	/*! Most bytes a line may hold. */
	static constexpr std::size_t MAX_LINE_LENGTH = std::size_t(16) << 20;
	/*! Bytes read at once for the header lines, and for the data lines. */
	static constexpr std::size_t HEAD_BLOCK = 16384;
	static constexpr std::size_t BODY_BLOCK = std::size_t(1) << 20;

	/*! Opens the file; throws ZEB::Exception when it cannot be opened or is empty. */
	explicit TableFile(const std::string & fileName);

	/*! The next line of the file as UTF-8 text; false at the end. Throws ZEB::Exception for a line
		that is too long or holds NUL bytes (binary data).
	*/
	bool nextLine(std::string & text);
	/*! The next count lines that are not blank (fewer at the end of the file). */
	std::vector<Line> nextLines(std::size_t count);
	/*! True when the line holds nothing but blanks. */
	static bool isBlank(const std::string & line) { return line.find_first_not_of(" \t\r") == std::string::npos; }
	/*! Number (1-based) and file position of the line handed out last by nextLine(). */
	std::uint64_t lineNumber() const { return m_head->lineNumber(); }
	std::uint64_t lineStart() const { return m_lineStart; }
	/*! File position behind the line handed out last. */
	std::uint64_t consumed() const { return m_head->consumed(); }

	/*! A line reader over the lines from file position offset (line number line) to the end. */
	std::unique_ptr<DATAIO::LineReader> body(std::uint64_t offset, std::uint64_t line,
											 ZEB::NotificationHandler * notification);

	const std::string & fileName() const { return m_fileName; }
	std::uint64_t size() const { return m_size; }

private:
	std::string							m_fileName;
	std::ifstream						m_in;
	std::uint64_t						m_size = 0;
	char								m_lineEnd = '\n';
	bool								m_latin1 = false;
	std::unique_ptr<DATAIO::LineReader>	m_head;
	std::uint64_t						m_lineStart = 0;
};

} // namespace OVP

#endif // OVP_TableFileH
