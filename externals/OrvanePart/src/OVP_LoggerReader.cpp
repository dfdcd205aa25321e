#include "OVP_LoggerReader.h"

#include <cstring>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_StringUtils.h>

#include "OVP_DateTimeText.h"
#include "OVP_ReaderText.h"
#include "OVP_ReaderUnit.h"
#include "OVP_TableFields.h"
#include "OVP_TableFile.h"
#include "OVP_TableLayout.h"
#include "OVP_TableReader.h"

namespace OVP {

namespace {

/*! Lines before the header that may hold a title. */
const std::size_t MAX_TITLE_LINES = 10;
/*! Data lines read ahead to find event columns and the decimal separator. */
const std::size_t LINES_AHEAD = 10;
const char * const TITLE_MARK = "Plot Title:";

/*! The text of a whole line as one field (enclosing quotes removed). */
std::string lineText(const std::string & line) {
	return TableFields::text(TableFields::Field{ line.data(), line.data() + line.size() });
}

/*! The delimiter when the line is a header beginning with the record column "#", else 0. */
char headerDelimiter(const std::string & line) {
	std::size_t p = line.find_first_not_of(' ');
	if (p == std::string::npos)
		return 0;
	if (line.compare(p, 3, "\"#\"") == 0)
		p += 3;
	else if (line[p] == '#')
		p += 1;
	else
		return 0;
	p = line.find_first_not_of(' ', p);
	if (p == std::string::npos || std::strchr("\t;,", line[p]) == nullptr)
		return 0;
	return line[p];
}

/*! True when the cell is empty or a word: what event columns hold. */
bool isEventCell(const std::string & cell) {
	const unsigned char c = cell.empty() ? 'A' : static_cast<unsigned char>(cell[0]);
	return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/*! Splits a value column header "Temp, °C (LGR S/N: 1, LBL: wall)" into its head "Temp, °C",
	the text in parentheses and the label named in it.
*/
void splitColumnHeader(const std::string & header, std::string & head, std::string & inner, std::string & label) {
	head = header;
	inner.clear();
	label.clear();
	const std::size_t open = header.rfind('(');
	if (header.empty() || header.back() != ')' || open == std::string::npos)
		return;
	head = ZEB::trimmed(header.substr(0, open), " \t");
	inner = ZEB::trimmed(header.substr(open + 1, header.size() - open - 2), " \t");
	const std::size_t lbl = inner.find("LBL:");
	if (lbl != std::string::npos)
		label = ZEB::trimmed(inner.substr(lbl + 4, inner.find(',', lbl) - lbl - 4), " \t");
}

} // namespace


bool LoggerReader::accepts(const std::string & /*fileName*/, const std::string & head) const {
	if (head.find('\0') != std::string::npos)
		return false;
	std::size_t pos = head.compare(0, 3, ReaderText::BOM) == 0 ? 3 : 0;
	for (std::size_t n = 0; n < MAX_TITLE_LINES + 1 && pos < head.size(); ++n) {
		const std::size_t end = std::min(head.find_first_of("\r\n", pos), head.size());
		const std::string line = head.substr(pos, end - pos);
		if (lineText(line).compare(0, std::strlen(TITLE_MARK), TITLE_MARK) == 0)
			return true;
		const char delimiter = headerDelimiter(line);
		std::vector<std::string> names;
		if (delimiter != 0 && TableFields::texts(line, delimiter, names) && names.size() > 1 &&
			names[1].compare(0, 9, "Date Time") == 0)
			return true;
		pos = end + 1;
		if (pos < head.size() && head[pos - 1] == '\r' && head[pos] == '\n')
			++pos;
	}
	return false;
}


TableLayout LoggerReader::layout(TableFile & file) const {
	FUNCID(LoggerReader::layout);
	const std::string & fileName = file.fileName();
	TableLayout result;

	// title lines up to the header of the record column "#"
	std::string title;
	std::string line;
	bool haveHeader = false;
	for (std::size_t n = 0; n <= MAX_TITLE_LINES && !haveHeader && file.nextLine(line); ++n) {
		result.m_delimiter = headerDelimiter(line);
		haveHeader = result.m_delimiter != 0;
		if (!haveHeader && !TableFile::isBlank(line) && title.empty()) {
			title = lineText(line);
			if (title.compare(0, std::strlen(TITLE_MARK), TITLE_MARK) == 0)
				title = ZEB::trimmed(title.substr(std::strlen(TITLE_MARK)), " \t");
		}
	}
	if (!haveHeader)
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' has no header line beginning with the record column \"#\" "
			"within its first %2 lines.").arg(fileName).arg(MAX_TITLE_LINES + 1), FUNC_ID);
	const std::uint64_t headerLine = file.lineNumber();
	std::vector<std::string> names;
	if (!TableFields::texts(line, result.m_delimiter, names))
		throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2': a double quote is not closed.")
			.arg(static_cast<unsigned long long>(headerLine)).arg(fileName), FUNC_ID);
	if (names.size() < 3)
		throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2' names no value columns after the record number and "
			"the date and time.").arg(static_cast<unsigned long long>(headerLine)).arg(fileName), FUNC_ID);

	const std::vector<TableFile::Line> rows = file.nextLines(LINES_AHEAD);
	if (rows.empty())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' has a header but no data lines.").arg(fileName), FUNC_ID);
	std::vector<std::vector<std::string> > cells(rows.size());
	for (std::size_t r = 0; r < rows.size(); ++r)
		TableFields::texts(rows[r].m_text, result.m_delimiter, cells[r]);
	const std::string & first = cells.front().size() > 1 ? cells.front()[1] : std::string();
	DateTimeText::Parts parts;
	if (!DateTimeText::parse(first.data(), first.data() + first.size(), parts))
		throw ZEB::Exception(ZEB::MessageFormat("Line %1, column 2 of file '%2': '%3' is no date and time.")
			.arg(static_cast<unsigned long long>(rows.front().m_number)).arg(fileName).arg(first), FUNC_ID);
	result.setDataStart(rows);

	// time column "Date Time, GMT+01:00": local times of the offset it names
	std::string timeName, offset;
	ReaderUnit::splitHeader(names[1], timeName, offset);
	result.m_timeField = 1;
	result.m_dateTime = true;
	result.m_timeUnit = "s";
	result.m_startYear = parts.m_year;
	result.m_ambiguousOrder = DateTimeColumn::O_MONTH_FIRST;
	result.m_orderReason = "the usual order of logger exports";
	result.m_trailingEventsOptional = true;
	result.m_collection = title.empty() ? TableReader::collectionName(fileName) : title;
	result.m_description = title;
	if (!offset.empty())
		result.m_description += (title.empty() ? "" : "\n") + ZEB::MessageFormat("Times are local times of %1.").arg(offset).str();

	result.m_fieldNames = names;
	result.m_fields = { TableLayout::FIELD_SKIPPED, TableLayout::FIELD_TIME };
	std::string events;
	for (std::size_t i = 2; i < names.size(); ++i) {
		std::string head, inner, label, name, unitText, unit;
		splitColumnHeader(names[i], head, inner, label);
		ReaderUnit::splitHeader(head, name, unitText);
		bool event = unitText.empty();
		for (std::size_t r = 0; r < cells.size() && event; ++r)
			event = i >= cells[r].size() || isEventCell(cells[r][i]);
		if (event) {
			result.m_fields.push_back(TableLayout::FIELD_EVENT);
			events += ZEB::MessageFormat("%1column %2 '%3'").arg(events.empty() ? "" : ", ").arg(i + 1).arg(head).str();
			continue;
		}
		const std::string quantity = label.empty() ? name : label;
		if (!ReaderUnit::fromText(unitText, unit))
			ZEB::reportWarning(ZEB::MessageFormat("File '%1', column %2 ('%3'): unknown unit '%4', read with unit '-'.")
				.arg(fileName).arg(i + 1).arg(quantity).arg(unitText).str(), FUNC_ID);
		result.m_fields.push_back(static_cast<int>(result.m_quantities.size()));
		result.m_quantities.push_back(quantity);
		result.m_units.push_back(unit);
		if (!inner.empty())
			result.m_description += (result.m_description.empty() ? "" : "\n") + quantity + ": " + inner;
	}
	if (!events.empty())
		ZEB::reportWarning(ZEB::MessageFormat("File '%1': event columns skipped, they hold no measured values: %2.")
			.arg(fileName).arg(events).str(), FUNC_ID);
	if (result.m_quantities.empty())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' has no column of measured values.").arg(fileName), FUNC_ID);
	result.decideDecimal(rows);
	return result;
}

} // namespace OVP
