#ifndef ZEB_FileReaderH
#define ZEB_FileReaderH

#include <cstdint>
#include <functional>
#include <string>

namespace ZEB {

class NotificationHandler;

/*! Reads large text files line by line through one reusable block buffer.
	Lines are handed out as character ranges without their line end ("\n" or "\r\n"), so that
	callers can parse them in place without copying.
*/
class FileReader {
public:
	/*! Called once per line with the line's characters [begin, end). */
	using LineHandler = std::function<void(const char * begin, const char * end)>;

	/*! Reads all lines of a file from a byte offset on.
		\param filename UTF-8 file name.
		\param offset Byte position where reading starts (the start of a line).
		\param handler Receives each line; an exception it throws ends reading and propagates.
		\param notify Optional receiver of the fraction of the file read so far.
		\param completeLinesOnly When true, a last line without line end is not handed out: it
			may still be being written by another program.
		\return Byte offset just after the last line handed out.
	*/
	static std::uint64_t readLines(const std::string & filename, std::uint64_t offset,
								   const LineHandler & handler,
								   NotificationHandler * notify = nullptr,
								   bool completeLinesOnly = false);
};

} // namespace ZEB

#endif // ZEB_FileReaderH
