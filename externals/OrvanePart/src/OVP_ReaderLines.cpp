#include "OVP_ReaderLines.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include <DATAIO_LineReader.h>

namespace OVP {

namespace {

/*! Bytes at the start of a file that decide its encoding. */
const std::size_t ENCODING_SAMPLE = 64*1024;
/*! Bytes read at once. */
const std::size_t BLOCK_SIZE = 256*1024;

} // namespace


ReaderLines::ReaderLines(const std::string & fileName, ZEB::NotificationHandler * notification) :
	m_fileName(fileName),
	m_in(fileName, std::ios::binary)
{
	FUNCID(ReaderLines::ReaderLines);
	if (!m_in)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot open file '%1'.").arg(fileName), FUNC_ID);
	m_in.seekg(0, std::ios::end);
	const std::streamoff size = m_in.tellg();
	if (size < 0)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot read file '%1'.").arg(fileName), FUNC_ID);
	m_in.seekg(0);
	std::string sample(static_cast<std::size_t>(std::min<std::streamoff>(size, ENCODING_SAMPLE)), '\0');
	m_in.read(&sample[0], static_cast<std::streamsize>(sample.size()));
	m_latin1 = !ReaderText::isUtf8(sample.data(), sample.data() + m_in.gcount());
	m_reader.reset(new DATAIO::LineReader(m_in, fileName, 0, static_cast<std::uint64_t>(size), 1, MAX_LINE_LENGTH,
										  BLOCK_SIZE, notification));
}


ReaderLines::~ReaderLines() = default;


bool ReaderLines::next() {
	FUNCID(ReaderLines::next);
	if (m_rest == nullptr) {
		if (!m_reader->next(m_rest, m_restEnd)) {
			m_rest = nullptr;
			return false;
		}
		if (m_lineNumber == 0 && m_restEnd - m_rest >= 3 && std::memcmp(m_rest, ReaderText::BOM, 3) == 0)
			m_rest += 3;
	}
	// a CR alone ends a line as well
	const char * cr = static_cast<const char *>(std::memchr(m_rest, '\r', static_cast<std::size_t>(m_restEnd - m_rest)));
	m_begin = m_rest;
	m_end = cr != nullptr ? cr : m_restEnd;
	m_rest = cr != nullptr ? cr + 1 : nullptr;
	++m_lineNumber;
	if (std::memchr(m_begin, '\0', static_cast<std::size_t>(m_end - m_begin)) != nullptr)
		throw ZEB::Exception(ZEB::MessageFormat("%1 contains NUL bytes: binary data where text is expected.")
							 .arg(where()), FUNC_ID);
	return true;
}


bool ReaderLines::terminated() const {
	return m_rest != nullptr || m_reader->lastTerminated();
}


std::string ReaderLines::text(const char * begin, const char * end) const {
	const std::string line(begin, end);
	return m_latin1 ? ReaderText::latin1ToUtf8(line) : line;
}


std::string ReaderLines::where(std::size_t column) const {
	ZEB::MessageFormat text(column > 0 ? "File '%1', line %2, column %3" : "File '%1', line %2");
	text.arg(m_fileName).arg(static_cast<unsigned long long>(m_lineNumber));
	if (column > 0)
		text.arg(static_cast<unsigned long long>(column));
	return text.str();
}


ReaderText::Cell ReaderLines::parseNumber(const char * begin, const char * end, double & value) {
	if (!m_separatorDecided) {
		const std::size_t n = static_cast<std::size_t>(end - begin);
		const bool comma = std::memchr(begin, ',', n) != nullptr;
		if (comma || std::memchr(begin, '.', n) != nullptr) {
			m_decimalComma = comma;
			m_separatorDecided = true;
		}
	}
	return ReaderText::parseNumber(begin, end, m_decimalComma, value);
}


void ReaderLines::parseValues(bool tabs, std::size_t columns, std::vector<double> & row) {
	FUNCID(ReaderLines::parseValues);
	row.clear();
	const char * pos = m_begin;
	const char * b;
	const char * e;
	while (row.size() < columns && nextField(pos, m_end, tabs, b, e)) {
		double value = 0;
		const ReaderText::Cell cell = parseNumber(b, e, value);
		if (cell == ReaderText::C_INVALID)
			throw ZEB::Exception(ZEB::MessageFormat("%1: '%2' is not a number.").arg(where(row.size() + 1))
								 .arg(text(b, e)), FUNC_ID);
		row.push_back(cell == ReaderText::C_GAP ? std::numeric_limits<double>::quiet_NaN() : value);
	}
	while (nextField(pos, m_end, tabs, b, e)) {
		ReaderText::trim(b, e);
		if (b != e)
			throw ZEB::Exception(ZEB::MessageFormat("%1: more values than the %2 columns of the header.")
								 .arg(where(columns + 1)).arg(static_cast<unsigned long long>(columns)), FUNC_ID);
	}
}


bool ReaderLines::nextField(const char *& pos, const char * end, bool tabs, const char *& fieldBegin,
							const char *& fieldEnd)
{
	if (tabs) {
		if (pos == nullptr)
			return false;
		const char * tab = static_cast<const char *>(std::memchr(pos, '\t', static_cast<std::size_t>(end - pos)));
		fieldBegin = pos;
		fieldEnd = tab != nullptr ? tab : end;
		pos = tab != nullptr ? tab + 1 : nullptr;
		return true;
	}
	while (pos < end && (*pos == ' ' || *pos == '\t'))
		++pos;
	if (pos == end)
		return false;
	fieldBegin = pos;
	while (pos < end && *pos != ' ' && *pos != '\t')
		++pos;
	fieldEnd = pos;
	return true;
}

} // namespace OVP
