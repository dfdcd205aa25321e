#include "OVP_TableBody.h"

#include <cctype>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_StringUtils.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_LineReader.h>

#include "OVP_ReaderText.h"
#include "OVP_TableFile.h"

namespace OVP {

namespace {

/*! A cell's text for a message: at most 40 characters, control characters as "?". */
std::string shown(const TableFields::Field & field) {
	const char * begin = field.m_begin;
	const char * end = field.m_end;
	ReaderText::trim(begin, end);
	std::string t(begin, std::min<std::size_t>(static_cast<std::size_t>(end - begin), 40));
	for (char & c : t)
		if (static_cast<unsigned char>(c) < 0x20)
			c = '?';
	return end - begin > 40 ? t + "..." : t;
}

} // namespace


TableBody::TableBody(TableFile & file, const TableLayout & layout) :
	m_file(file),
	m_layout(layout),
	m_decimalComma(layout.m_decimalComma),
	m_decimalDecided(layout.m_decimalDecided),
	m_valueCount(layout.m_quantities.size()),
	m_dateTimes(file.fileName(), layout.m_timeField + 1, layout.m_ambiguousOrder, layout.m_orderReason)
{
}


void TableBody::read(DATAIO::DataIO & container, ZEB::NotificationHandler * notification) {
	FUNCID(TableBody::read);
	// room for the lines the file will hold if they are as long as the first ones (up to a
	// bound: beyond it the vectors grow as they fill)
	const std::uint64_t bytes = m_file.size() - m_layout.m_dataOffset;
	const std::uint64_t rows = std::min<std::uint64_t>(bytes/m_layout.m_lineLength*11/10 + 16,
													   MAX_RESERVED_VALUES/std::max<std::size_t>(m_valueCount, 1));
	try {
		if (m_layout.m_dateTime)
			m_dateTimes.reserve(static_cast<std::size_t>(rows));
		else
			m_times.reserve(static_cast<std::size_t>(rows));
		m_values.reserve(static_cast<std::size_t>(rows)*m_valueCount);
		readLines(notification);
	}
	catch (std::bad_alloc &) {
		throw ZEB::Exception(ZEB::MessageFormat("Not enough memory for the values of file '%1'.").arg(m_file.fileName()), FUNC_ID);
	}
	if (m_layout.m_dateTime) {
		std::int32_t startYear;
		m_times = m_dateTimes.seconds(startYear);
	}
	container.setData(std::move(m_times), m_valueCount, std::move(m_values));
}


void TableBody::readLines(ZEB::NotificationHandler * notification) {
	FUNCID(TableBody::readLines);
	std::unique_ptr<DATAIO::LineReader> reader = m_file.body(m_layout.m_dataOffset, m_layout.m_dataLine, notification);
	const char * begin;
	const char * end;
	std::size_t count = 0;
	while (reader->next(begin, end)) {
		if (!readPlainLine(begin, end, reader->lineNumber())) {
			const char * b = begin;
			const char * e = end;
			ReaderText::trim(b, e);
			if (b == e)
				continue;
			if (!TableFields::split(begin, end, m_layout.m_delimiter, m_fields))
				throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2': a double quote is not closed.")
					.arg(static_cast<unsigned long long>(reader->lineNumber())).arg(m_file.fileName()), FUNC_ID);
			readLine(*reader);
		}
		++count;
	}
	if (count == 0)
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' has a header but no data lines.").arg(m_file.fileName()), FUNC_ID);
}


void TableBody::readLine(const DATAIO::LineReader & reader) {
	FUNCID(TableBody::readLine);
	const std::uint64_t line = reader.lineNumber();
	if (m_fields.size() != m_layout.m_fields.size())
		checkFieldCount(line);
	const std::size_t row = m_values.size();
	m_values.resize(row + m_valueCount, std::numeric_limits<double>::quiet_NaN());
	double * values = m_values.data() + row;
	for (std::size_t i = 0; i < m_fields.size(); ++i) {
		const int role = m_layout.m_fields[i];
		if (role >= 0) {
			values[role] = value(m_fields[i], i, line);
		}
		else if (role == TableLayout::FIELD_TIME) {
			const TableFields::Field & f = m_fields[i];
			if (m_layout.m_dateTime) {
				if (!m_dateTimes.add(f.m_begin, f.m_end, line))
					throw ZEB::Exception(ZEB::MessageFormat("Line %1, column %2 of file '%3': '%4' is no date and time "
						"of the form of the first data line.").arg(static_cast<unsigned long long>(line)).arg(i + 1)
						.arg(m_file.fileName()).arg(shown(f)), FUNC_ID);
				continue;
			}
			const double t = value(f, i, line);
			if (std::isnan(t))
				throw ZEB::Exception(ZEB::MessageFormat("Line %1, column %2 of file '%3': the time is missing.")
					.arg(static_cast<unsigned long long>(line)).arg(i + 1).arg(m_file.fileName()), FUNC_ID);
			if (!m_times.empty() && t <= m_times.back())
				throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2': time %3 is not larger than time %4 in "
					"line %5; times must increase.").arg(static_cast<unsigned long long>(line)).arg(m_file.fileName())
					.arg(t).arg(m_times.back()).arg(static_cast<unsigned long long>(m_lastTimeLine)), FUNC_ID);
			m_times.push_back(t);
			m_lastTimeLine = line;
		}
		else if (role == TableLayout::FIELD_EVENT) {
			const char * b = m_fields[i].m_begin;
			const char * e = m_fields[i].m_end;
			ReaderText::trim(b, e);
			if (b < e && *b == '"')
				++b;
			// an event is a word; a number here would be a measured value the reader drops
			double v;
			if (b < e && !((*b >= 'A' && *b <= 'Z') || (*b >= 'a' && *b <= 'z')) &&
				ReaderText::parseNumber(m_fields[i].m_begin, m_fields[i].m_end, m_decimalComma, v) == ReaderText::C_VALUE)
				throw ZEB::Exception(ZEB::MessageFormat("Line %1, column %2 of file '%3': the event column '%4' holds "
					"the number %5.").arg(static_cast<unsigned long long>(line)).arg(i + 1).arg(m_file.fileName())
					.arg(m_layout.m_fieldNames[i]).arg(shown(m_fields[i])), FUNC_ID);
		}
	}
}


bool TableBody::readPlainLine(const char * begin, const char * end, std::uint64_t line) {
	if (!m_decimalDecided || m_decimalComma)
		return false;
	const std::size_t row = m_values.size();
	m_values.resize(row + m_valueCount, std::numeric_limits<double>::quiet_NaN());
	double * values = m_values.data() + row;
	const std::size_t n = m_layout.m_fields.size();
	const char delimiter = m_layout.m_delimiter;
	double time = 0;
	const char * dateBegin = nullptr;
	const char * dateEnd = nullptr;
	const char * p = begin;
	for (std::size_t i = 0; i < n; ++i) {
		const int role = m_layout.m_fields[i];
		const char * q = p;
		double v = 0;
		if (role >= 0 || (role == TableLayout::FIELD_TIME && !m_layout.m_dateTime)) {
			// a plain number, read where it stands; blanks, quotes, gaps take the general way
			q = ZEB::parseDoubleFastPrefix(p, end, v);
			if (q == nullptr || std::isinf(v))
				break;
		}
		else {
			while (q < end && *q != delimiter && *q != '"')
				++q;
			if (q < end && *q == '"')
				break;
			if (role == TableLayout::FIELD_EVENT && q > p && !std::isalpha(static_cast<unsigned char>(*p)))
				break;
			if (role == TableLayout::FIELD_TIME) {
				dateBegin = p;
				dateEnd = q;
			}
		}
		if (i + 1 < n ? (q == end || *q != delimiter) : q != end)
			break;
		if (role >= 0)
			values[role] = v;
		else if (role == TableLayout::FIELD_TIME)
			time = v;
		if (i + 1 == n) {
			if (m_layout.m_dateTime) {
				if (!m_dateTimes.add(dateBegin, dateEnd, line))
					break;
			}
			else {
				if (!m_times.empty() && time <= m_times.back())
					break;
				m_times.push_back(time);
				m_lastTimeLine = line;
			}
			return true;
		}
		p = q + 1;
	}
	m_values.resize(row);
	return false;
}


double TableBody::value(const TableFields::Field & field, std::size_t i, std::uint64_t line) {
	double v;
	const ReaderText::Cell cell = ReaderText::parseNumber(field.m_begin, field.m_end, m_decimalComma, v);
	if (cell == ReaderText::C_VALUE) {
		if (!m_decimalDecided && std::memchr(field.m_begin, '.', static_cast<std::size_t>(field.m_end - field.m_begin)) != nullptr)
			m_decimalDecided = true;
		return v;
	}
	if (cell == ReaderText::C_GAP)
		return std::numeric_limits<double>::quiet_NaN();
	// the first number with a separator may show that the file uses a decimal comma; all
	// numbers before it were whole numbers, which read the same either way
	if (!m_decimalDecided && m_layout.m_delimiter != ',' &&
		ReaderText::parseNumber(field.m_begin, field.m_end, true, v) == ReaderText::C_VALUE)
	{
		m_decimalComma = true;
		m_decimalDecided = true;
		return v;
	}
	throwNotANumber(field, i, line);
}


void TableBody::checkFieldCount(std::uint64_t line) const {
	FUNCID(TableBody::checkFieldCount);
	bool missingEventsOnly = m_layout.m_trailingEventsOptional && m_fields.size() < m_layout.m_fields.size();
	for (std::size_t i = m_fields.size(); i < m_layout.m_fields.size() && missingEventsOnly; ++i)
		missingEventsOnly = m_layout.m_fields[i] == TableLayout::FIELD_EVENT;
	if (!missingEventsOnly)
		throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2' has %3 fields, the header has %4.")
			.arg(static_cast<unsigned long long>(line)).arg(m_file.fileName()).arg(m_fields.size())
			.arg(m_layout.m_fields.size()), FUNC_ID);
}


void TableBody::throwNotANumber(const TableFields::Field & field, std::size_t i, std::uint64_t line) const {
	FUNCID(TableBody::value);
	throw ZEB::Exception(ZEB::MessageFormat("Line %1, column %2 ('%3') of file '%4': '%5' is not a number.")
		.arg(static_cast<unsigned long long>(line)).arg(i + 1).arg(m_layout.m_fieldNames[i]).arg(m_file.fileName())
		.arg(shown(field)), FUNC_ID);
}

} // namespace OVP
