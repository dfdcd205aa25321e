#include "DATAIO_LineReader.h"

#include <algorithm>
#include <cstring>
#include <istream>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_NotificationHandler.h>

namespace DATAIO {

LineReader::LineReader(std::istream & in, const std::string & filename, std::uint64_t start, std::uint64_t end,
					   std::uint64_t firstLine, std::size_t maxLength, std::size_t blockSize,
					   ZEB::NotificationHandler * notification, char lineEnd) :
	m_in(&in),
	m_filename(filename),
	m_end(end),
	m_maxLength(maxLength),
	m_notification(notification),
	m_lineEnd(lineEnd),
	m_bufferStart(start),
	m_consumed(start),
	m_lineNumber(firstLine - 1)
{
	// a short section needs no full block; longer lines grow the buffer
	const std::uint64_t section = end > start ? end - start : 0;
	m_capacity = static_cast<std::size_t>(std::max<std::uint64_t>(1, std::min<std::uint64_t>(blockSize, section)));
	m_storage.reset(new char[m_capacity]);
	m_buffer = m_storage.get();
	m_in->clear();
	m_in->seekg(static_cast<std::streamoff>(start));
}


LineReader::LineReader(const char * text, const std::string & filename, std::uint64_t start, std::uint64_t end,
					   std::uint64_t firstLine, std::size_t maxLength) :
	m_in(nullptr),
	m_filename(filename),
	m_end(end),
	m_maxLength(maxLength),
	m_notification(nullptr),
	m_lineEnd('\n'),
	m_buffer(text + start),
	m_filled(end > start ? static_cast<std::size_t>(end - start) : 0),
	m_bufferStart(start),
	m_atEnd(true),
	m_consumed(start),
	m_lineNumber(firstLine - 1)
{
}


bool LineReader::next(const char *& begin, const char *& end) {
	while (true) {
		const char * start = m_buffer + m_pos;
		const std::size_t available = m_filled - m_pos;
		// a line end beyond the longest line allowed is not looked for
		const std::size_t window = available > m_maxLength ? m_maxLength + 1 : available;
		const char * nl = window == 0 ? nullptr : static_cast<const char*>(std::memchr(start, m_lineEnd, window));
		if (nl != nullptr) {
			const std::size_t length = static_cast<std::size_t>(nl - start);
			++m_lineNumber;
			m_pos += length + 1;
			m_consumed += length + 1;
			m_terminated = true;
			begin = start;
			end = nl != begin && nl[-1] == '\r' ? nl - 1 : nl;
			return true;
		}
		if (available > m_maxLength)
			throwTooLong(m_lineNumber + 1);
		if (!fill()) {
			if (m_filled == m_pos)
				return false;
			// the section ends within a line
			++m_lineNumber;
			m_terminated = false;
			begin = m_buffer + m_pos;
			end = m_buffer + m_filled;
			if (end[-1] == '\r')
				--end;
			m_consumed += m_filled - m_pos;
			m_pos = m_filled;
			return true;
		}
	}
}


void LineReader::checkText(const char * begin, const char * end) const {
	FUNCID(LineReader::checkText);
	if (std::memchr(begin, '\0', static_cast<std::size_t>(end - begin)) != nullptr)
		throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2' contains NUL bytes: binary data where "
			"text is expected.").arg(static_cast<unsigned long long>(m_lineNumber)).arg(m_filename), FUNC_ID);
}


bool LineReader::fill() {
	FUNCID(LineReader::fill);
	if (m_atEnd)
		return false;
	// keep the bytes not handed out yet at the front; a line longer than the buffer grows it
	const std::size_t kept = m_filled - m_pos;
	if (m_pos > 0) {
		std::memmove(m_storage.get(), m_buffer + m_pos, kept);
		m_bufferStart += m_pos;
		m_pos = 0;
		m_filled = kept;
	}
	if (m_filled == m_capacity) {
		const std::size_t capacity = std::min(std::max<std::size_t>(2*m_capacity, 4096), m_maxLength + 1);
		std::unique_ptr<char[]> grown(new char[capacity]);
		std::memcpy(grown.get(), m_buffer, m_filled);
		m_storage = std::move(grown);
		m_buffer = m_storage.get();
		m_capacity = capacity;
	}
	const std::uint64_t pos = m_bufferStart + m_filled;
	const std::uint64_t want = std::min<std::uint64_t>(m_capacity - m_filled, pos < m_end ? m_end - pos : 0);
	if (want == 0) {
		m_atEnd = true;
		return false;
	}
	m_in->read(m_storage.get() + m_filled, static_cast<std::streamsize>(want));
	if (m_in->bad())
		throw ZEB::Exception(ZEB::MessageFormat("Error reading file '%1'").arg(m_filename), FUNC_ID);
	const std::size_t got = static_cast<std::size_t>(m_in->gcount());
	if (got < want)
		m_atEnd = true;	// the file became shorter while reading
	m_filled += got;
	if (m_notification != nullptr && m_end > 0)
		m_notification->notify(static_cast<double>(pos + got)/static_cast<double>(m_end));
	return got > 0;
}


void LineReader::throwTooLong(std::uint64_t lineNumber) const {
	FUNCID(LineReader::next);
	throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2' is longer than %3 bytes: the file is corrupt "
		"or no text file.").arg(static_cast<unsigned long long>(lineNumber)).arg(m_filename)
		.arg(static_cast<unsigned long long>(m_maxLength)), FUNC_ID);
}

} // namespace DATAIO
