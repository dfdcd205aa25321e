#include "ZEB_FileReader.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include "ZEB_Exception.h"
#include "ZEB_MessageFormat.h"
#include "ZEB_NotificationHandler.h"

namespace ZEB {

namespace {

/*! Closes a C file on scope exit. */
struct FileCloser {
	void operator()(std::FILE * f) const { if (f != nullptr) std::fclose(f); }
};

/*! Hands out [begin, end) without a trailing carriage return. */
inline void emitLine(const FileReader::LineHandler & handler, const char * begin, const char * end) {
	if (end != begin && end[-1] == '\r')
		--end;
	handler(begin, end);
}

} // namespace


std::uint64_t FileReader::readLines(const std::string & filename, std::uint64_t offset,
									const LineHandler & handler, NotificationHandler * notify,
									bool completeLinesOnly)
{
	FUNCID(FileReader::readLines);
	std::unique_ptr<std::FILE, FileCloser> file(std::fopen(filename.c_str(), "rb"));
	if (!file)
		throw Exception(MessageFormat("Cannot open file '%1'").arg(filename), FUNC_ID);
	if (std::fseek(file.get(), 0, SEEK_END) != 0)
		throw Exception(MessageFormat("Cannot determine size of file '%1'").arg(filename), FUNC_ID);
	const long fileSizeL = std::ftell(file.get());
	if (fileSizeL < 0)
		throw Exception(MessageFormat("Cannot determine size of file '%1'").arg(filename), FUNC_ID);
	const std::uint64_t fileSize = static_cast<std::uint64_t>(fileSizeL);
	if (offset > fileSize)
		throw Exception(MessageFormat("Start offset %1 lies beyond the end of file '%2' (%3 bytes).")
						.arg(static_cast<unsigned long long>(offset)).arg(filename)
						.arg(static_cast<unsigned long long>(fileSize)), FUNC_ID);
	if (std::fseek(file.get(), static_cast<long>(offset), SEEK_SET) != 0)
		throw Exception(MessageFormat("Cannot seek in file '%1'").arg(filename), FUNC_ID);

	std::vector<char> buffer(std::size_t(4) << 20);
	std::size_t filled = 0;				// bytes in buffer
	std::uint64_t consumed = offset;	// file position of buffer[0]
	std::uint64_t lastReport = 0;
	while (true) {
		if (filled == buffer.size())
			buffer.resize(buffer.size()*2);	// a line longer than the buffer
		std::size_t got = std::fread(buffer.data() + filled, 1, buffer.size() - filled, file.get());
		if (got == 0 && std::ferror(file.get()))
			throw Exception(MessageFormat("Error reading file '%1'").arg(filename), FUNC_ID);
		const bool atEnd = (got == 0);
		filled += got;

		// hand out all complete lines of the buffer
		const char * begin = buffer.data();
		const char * end = begin + filled;
		const char * lineStart = begin;
		while (lineStart != end) {
			const char * nl = static_cast<const char*>(std::memchr(lineStart, '\n', static_cast<std::size_t>(end - lineStart)));
			if (nl == nullptr)
				break;
			emitLine(handler, lineStart, nl);
			lineStart = nl + 1;
		}
		std::size_t used = static_cast<std::size_t>(lineStart - begin);
		if (atEnd) {
			if (used < filled && !completeLinesOnly) {
				emitLine(handler, lineStart, end);
				used = filled;
			}
			consumed += used;
			break;
		}
		// keep the incomplete rest for the next block
		std::memmove(buffer.data(), buffer.data() + used, filled - used);
		filled -= used;
		consumed += used;
		if (notify != nullptr && fileSize > 0 && consumed - lastReport > (std::uint64_t(16) << 20)) {
			notify->notify(static_cast<double>(consumed)/static_cast<double>(fileSize));
			lastReport = consumed;
		}
	}
	if (notify != nullptr)
		notify->notify(1.0);
	return consumed;
}

} // namespace ZEB
