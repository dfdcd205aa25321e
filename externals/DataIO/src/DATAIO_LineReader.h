#ifndef DATAIO_LineReaderH
#define DATAIO_LineReaderH

#include <cstdint>
#include <iosfwd>
#include <string>

namespace DATAIO {

/*! Reads text lines from a stream and counts the bytes it consumed, so that the caller knows
	the file position at which the next section begins. Lines are handed out without "\n" and
	without a "\r" before it.
*/
class LineReader {
public:
	explicit LineReader(std::istream & in) : m_in(in) {}

	/*! Reads the next line; false at the end of the stream. */
	bool next(std::string & line);
	/*! True when the last line read ended with a line end (false: the stream ended within it). */
	bool lastLineTerminated() const { return m_terminated; }
	/*! Number of bytes consumed so far, line ends included. */
	std::uint64_t consumed() const { return m_consumed; }

private:
	std::istream &	m_in;
	std::uint64_t	m_consumed = 0;
	bool			m_terminated = false;
};

} // namespace DATAIO

#endif // DATAIO_LineReaderH
