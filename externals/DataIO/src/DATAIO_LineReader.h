#ifndef DATAIO_LineReaderH
#define DATAIO_LineReaderH

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

namespace ZEB {
class NotificationHandler;
}

namespace DATAIO {

/*! Reads the text lines of a file section [start, end) through one block buffer, or in place from
	a file mapped into memory, and hands them out as character ranges, without "\n" and without a
	"\r" before it, so that callers parse them in place. Files whose lines end in "\r" alone are
	read with "\r" as line end. It counts lines and bytes, so that the caller knows the line
	numbers and the file position at which the next section begins.

	A line may hold at most maxLength bytes (its line end not counted): a longer one fails, naming
	the file and the line, before more than that is held in memory. The last line of the section
	may lack its line end (a file still being written); it is handed out too, and
	lastTerminated() tells the caller.
*/
class LineReader {
public:
	/*! \param in Stream of the file, opened in binary mode.
		\param filename File name for messages.
		\param start, end The section to read; end is usually the file size.
		\param firstLine Number of the line that begins at start (1 for the file's first line).
		\param maxLength Most bytes one line may hold.
		\param blockSize Bytes read at once; the buffer grows for longer lines, up to maxLength.
		\param notification Optional receiver of the fraction of the file read so far.
		\param lineEnd The character that ends a line: "\n", or "\r" for files that use it alone.
	*/
	LineReader(std::istream & in, const std::string & filename, std::uint64_t start, std::uint64_t end,
			   std::uint64_t firstLine, std::size_t maxLength, std::size_t blockSize,
			   ZEB::NotificationHandler * notification = nullptr, char lineEnd = '\n');
	/*! Reads the section [start, end) of a file held in memory, text pointing to its byte 0
		(the lines handed out point into it); the other arguments as above.
	*/
	LineReader(const char * text, const std::string & filename, std::uint64_t start, std::uint64_t end,
			   std::uint64_t firstLine, std::size_t maxLength);

	/*! The next line [begin, end); false when the section is exhausted. Throws ZEB::Exception
		when the line is longer than allowed or the file cannot be read.
	*/
	bool next(const char *& begin, const char *& end);
	/*! True when the line handed out last ended with a line end (false: the section ended in it). */
	bool lastTerminated() const { return m_terminated; }
	/*! Number of the line handed out last. */
	std::uint64_t lineNumber() const { return m_lineNumber; }
	/*! File position after the line handed out last (and its line end). */
	std::uint64_t consumed() const { return m_consumed; }

	/*! Throws ZEB::Exception naming the file and the line handed out last when [begin, end)
		holds a NUL byte, which no text file contains: binary data read as text.
	*/
	void checkText(const char * begin, const char * end) const;

private:
	/*! Reads the next block behind the bytes still held; false at the end of the section. */
	bool fill();
	/*! Throws the message for a line longer than m_maxLength, numbered lineNumber. */
	[[noreturn]] void throwTooLong(std::uint64_t lineNumber) const;

	std::istream *				m_in;				///< null for text in memory
	std::string					m_filename;
	std::uint64_t				m_end;
	std::size_t					m_maxLength;
	ZEB::NotificationHandler *	m_notification;
	char						m_lineEnd;

	std::unique_ptr<char[]>		m_storage;			///< the block buffer, not zeroed: only read bytes are used
	const char *				m_buffer;			///< m_storage, or the text in memory
	std::size_t					m_capacity = 0;
	std::size_t					m_pos = 0;			///< start of the bytes not handed out yet
	std::size_t					m_filled = 0;		///< bytes in m_buffer
	std::uint64_t				m_bufferStart;		///< file position of m_buffer[0]
	bool						m_atEnd = false;	///< nothing more to read from the file
	std::uint64_t				m_consumed;
	std::uint64_t				m_lineNumber;
	bool						m_terminated = true;
};

} // namespace DATAIO

#endif // DATAIO_LineReaderH
