#include "OVP_StatisticsReader.h"

#include <algorithm>
#include <cmath>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_StringUtils.h>
#include <ZEB_Unit.h>
#include <ZEB_UnitList.h>

#include "OVP_ReaderHeader.h"
#include "OVP_ReaderLines.h"
#include "OVP_ReaderUnit.h"

namespace OVP {

namespace {

/*! Most columns of a statistics file. */
const std::size_t MAX_COLUMNS = 1000;

/*! The line of text at pos in head and the position after its line end. */
std::string headLine(const std::string & head, std::size_t & pos) {
	const std::size_t end = std::min(head.find_first_of("\r\n", pos), head.size());
	const std::string line = head.substr(pos, end - pos);
	pos = end < head.size() && head[end] == '\r' && end + 1 < head.size() && head[end + 1] == '\n' ? end + 2 : end + 1;
	return line;
}

/*! The text after the comment mark "#", trimmed. */
std::string commentText(const std::string & line) {
	return ZEB::trimmed(line.substr(line.find('#') + 1));
}

} // namespace


std::string StatisticsReader::name() const {
	return "Solver statistics";
}


std::vector<std::string> StatisticsReader::patterns() const {
	return { "*_stats.tsv", "*_stats.txt" };
}


bool StatisticsReader::accepts(const std::string & /*fileName*/, const std::string & head) const {
	std::size_t pos = head.compare(0, 3, ReaderText::BOM) == 0 ? 3 : 0;
	std::vector<std::string> columns;
	std::string line = headLine(head, pos);
	if (line.empty() || line[0] != '#')
		return line.find('\t') != std::string::npos && splitColumns(line, true, columns);
	// generation 5: the last comment line before the first data line names the columns
	std::string last = line;
	while (pos < head.size()) {
		line = headLine(head, pos);
		if (ZEB::trimmed(line).empty())
			continue;
		if (line[0] != '#')
			return splitColumns(commentText(last), false, columns) && columns.size() >= 2;
		last = line;
	}
	return true;
}


void StatisticsReader::readHeader(const std::string & fileName, DATAIO::DataIO & container) const {
	ReaderLines lines(fileName);
	ReaderHeader header;
	bool tabs = false;
	readColumns(lines, header, tabs);
	header.apply(fileName, container);
}


void StatisticsReader::read(const std::string & fileName, DATAIO::DataIO & container,
							ZEB::NotificationHandler * notification) const
{
	FUNCID(StatisticsReader::read);
	ReaderLines lines(fileName, notification);
	ReaderHeader header;
	bool tabs = false;
	const bool onDataLine = readColumns(lines, header, tabs);
	header.apply(fileName, container);

	const std::size_t columns = header.m_units.size() + 1;
	std::vector<double> timePoints;
	std::vector<std::vector<double> > values;
	std::uint64_t previousLine = 0;
	std::vector<double> row;
	for (bool more = onDataLine || lines.next(); more; more = lines.next()) {
		const char * pos = lines.begin();
		const char * end = lines.end();
		ReaderText::trim(pos, end);
		if (pos == end || (!tabs && *pos == '#'))
			continue;
		lines.parseValues(tabs, columns, row);
		if (!row.empty() && std::isnan(row[0]))
			throw ZEB::Exception(ZEB::MessageFormat("%1: the time is missing.").arg(lines.where(1)), FUNC_ID);
		if (row.size() < columns) {
			// a solver still running may have written a part of its last line
			if (!lines.terminated()) {
				ZEB::reportWarning(ZEB::MessageFormat("%1: the last line ends after %2 of %3 columns and is skipped.")
								   .arg(lines.where()).arg(row.size()).arg(columns).str(), FUNC_ID);
				break;
			}
			throw ZEB::Exception(ZEB::MessageFormat("%1: %2 values, but the header names %3 columns.")
								 .arg(lines.where()).arg(row.size()).arg(columns), FUNC_ID);
		}
		const double time = row[0];
		if (!timePoints.empty() && time <= timePoints.back())
			throw ZEB::Exception(ZEB::MessageFormat("%1: the time %2 does not follow the time %3 of line %4; times "
				"must increase.").arg(lines.where()).arg(time).arg(timePoints.back())
				.arg(static_cast<unsigned long long>(previousLine)), FUNC_ID);
		timePoints.push_back(time);
		values.emplace_back(row.begin() + 1, row.end());
		previousLine = lines.lineNumber();
	}
	if (timePoints.empty())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' holds no data lines.").arg(fileName), FUNC_ID);
	container.setData(timePoints, values);
}


bool StatisticsReader::splitColumns(const std::string & text, bool tabs, std::vector<std::string> & columns) {
	columns.clear();
	std::size_t pos = 0;
	while (pos < text.size() && columns.size() <= MAX_COLUMNS) {
		const std::size_t end = tabs ? std::min(text.find('\t', pos), text.size()) : text.find(']', pos);
		if (end == std::string::npos)
			return false;
		const std::string column = ZEB::trimmed(text.substr(pos, end + (tabs ? 0 : 1) - pos));
		const std::size_t open = column.rfind('[');
		if (column.size() < 4 || column.back() != ']' || open == std::string::npos || open == 0)
			return false;
		columns.push_back(column);
		pos = end + 1;
		if (!tabs)
			while (pos < text.size() && (text[pos] == ' ' || text[pos] == '\t'))
				++pos;
	}
	return !columns.empty();
}


bool StatisticsReader::readColumns(ReaderLines & lines, ReaderHeader & header, bool & tabs) {
	FUNCID(StatisticsReader::readColumns);
	if (!lines.next())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' is empty.").arg(lines.fileName()), FUNC_ID);
	std::string columnLine = ZEB::trimmed(lines.text());
	tabs = columnLine.empty() || columnLine[0] != '#';
	std::uint64_t headerLine = lines.lineNumber();
	bool onDataLine = false;
	if (!tabs) {
		// generation 5: the comment lines before the first data line; the last one names the columns
		std::string comments;
		columnLine = commentText(columnLine);
		while (lines.next()) {
			const std::string line = ZEB::trimmed(lines.text());
			if (line.empty())
				continue;
			onDataLine = line[0] != '#';
			if (onDataLine)
				break;
			comments += (comments.empty() ? "" : "\n") + columnLine;
			columnLine = commentText(line);
			headerLine = lines.lineNumber();
		}
		header.m_description = comments;
	}
	std::vector<std::string> columns;
	if (!splitColumns(columnLine, tabs, columns) || columns.size() < 2)
		throw ZEB::Exception(ZEB::MessageFormat("File '%1', line %2: the header must name the time column and at "
			"least one value column, each as 'Name [unit]' (at most %3 columns), found '%4'.").arg(lines.fileName())
			.arg(static_cast<unsigned long long>(headerLine)).arg(MAX_COLUMNS).arg(columnLine.substr(0, 200)), FUNC_ID);
	header.m_quantity = "Solver statistics";
	for (std::size_t c = 0; c < columns.size(); ++c) {
		std::string name;
		std::string unitText;
		ReaderUnit::splitHeader(columns[c], name, unitText);
		std::string unit;
		const bool known = ReaderUnit::fromText(unitText, unit);
		if (c == 0) {
			const ZEB::UnitData * timeUnit = ZEB::UnitList::instance().retrieve(unit);
			if (!known || timeUnit->isSpecial() || timeUnit->base_id() != ZEB::Unit("s").base_id())
				throw ZEB::Exception(ZEB::MessageFormat("File '%1', line %2, column 1: the time column's unit '%3' is "
					"no time unit.").arg(lines.fileName()).arg(static_cast<unsigned long long>(headerLine))
					.arg(unitText), FUNC_ID);
			header.m_timeUnit = unit;
			continue;
		}
		if (!known)
			ZEB::reportWarning(ZEB::MessageFormat("File '%1', column %2: unknown unit '%3', the values are read with "
				"unit '-'.").arg(lines.fileName()).arg(static_cast<unsigned long long>(c + 1)).arg(unitText).str(), FUNC_ID);
		header.m_quantities.push_back(name);
		header.m_units.push_back(unit);
	}
	return onDataLine;
}

} // namespace OVP
