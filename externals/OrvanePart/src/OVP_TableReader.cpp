#include "OVP_TableReader.h"

#include <algorithm>
#include <cctype>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_StringUtils.h>
#include <ZEB_Unit.h>

#include "OVP_DateTimeText.h"
#include "OVP_ReaderText.h"
#include "OVP_ReaderUnit.h"
#include "OVP_TableFields.h"
#include "OVP_TableFile.h"
#include "OVP_TableLayout.h"

namespace OVP {

namespace {

/*! Data lines read ahead to find delimiter, decimal separator and the kind of time column. */
const std::size_t LINES_AHEAD = 10;
/*! Most characters of comment text kept as description. */
const std::size_t MAX_DESCRIPTION = 65536;

/*! The order of day and month when no date shows it: what the header of the time column says
	("dd.mm.yyyy", "MM/DD/YY"), else the usual order of the form.
*/
DateTimeColumn::Order ambiguousOrder(const std::string & header, DateTimeText::Form form, std::string & reason) {
	std::string h = header;
	std::transform(h.begin(), h.end(), h.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
	const std::size_t dd = h.find("dd");
	const std::size_t mm = h.find("mm");
	if (dd != std::string::npos && mm != std::string::npos) {
		reason = "as the column header says";
		return dd < mm ? DateTimeColumn::O_DAY_FIRST : DateTimeColumn::O_MONTH_FIRST;
	}
	if (form == DateTimeText::F_DOT) {
		reason = "the usual order of dates with dots";
		return DateTimeColumn::O_DAY_FIRST;
	}
	reason = "the usual order of US dates with slashes";
	return DateTimeColumn::O_MONTH_FIRST;
}

} // namespace


bool TableReader::accepts(const std::string & fileName, const std::string & head) const {
	if (head.find('\0') != std::string::npos)
		return false;
	std::string ext = fileName.size() >= 4 ? fileName.substr(fileName.size() - 4) : fileName;
	std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
	if (ext != ".txt")
		return true;
	// a text file is taken when it begins like a table: header, [units,] a line with a time
	std::vector<std::string> lines;
	std::size_t pos = 0;
	while (lines.size() < 3) {
		const std::size_t end = head.find_first_of("\r\n", pos);
		if (end == std::string::npos)
			break;
		const std::string line = head.substr(pos, end - pos);
		if (!TableFile::isBlank(line) && (line[0] != '#' || !lines.empty()))
			lines.push_back(line);
		pos = end + 1;
	}
	const char delimiter = TableFields::detectDelimiter(lines);
	if (lines.size() < 2 || delimiter == 0)
		return false;
	std::vector<std::string> texts;
	for (std::size_t i = 1; i < lines.size(); ++i)
		if (TableFields::texts(lines[i], delimiter, texts) && isTimeText(texts.front()))
			return true;
	return false;
}


bool TableReader::isTimeText(const std::string & text) {
	double v;
	DateTimeText::Parts parts;
	return ReaderText::parseNumber(text.data(), text.data() + text.size(), false, v) == ReaderText::C_VALUE ||
		ReaderText::parseNumber(text.data(), text.data() + text.size(), true, v) == ReaderText::C_VALUE ||
		DateTimeText::parse(text.data(), text.data() + text.size(), parts);
}


std::string TableReader::collectionName(const std::string & fileName) {
	const std::size_t slash = fileName.find_last_of("/\\");
	std::string name = slash == std::string::npos ? fileName : fileName.substr(slash + 1);
	const std::size_t dot = name.rfind('.');
	if (dot != std::string::npos && dot > 0)
		name.resize(dot);
	return name;
}


TableLayout TableReader::layout(TableFile & file) const {
	FUNCID(TableReader::layout);
	const std::string & fileName = file.fileName();
	TableLayout result;
	result.m_collection = collectionName(fileName);

	// comment lines up to the header
	std::string header;
	bool haveHeader = false;
	while (!haveHeader && file.nextLine(header)) {
		if (TableFile::isBlank(header))
			continue;
		if (header[0] != '#') {
			haveHeader = true;
			break;
		}
		if (result.m_description.size() < MAX_DESCRIPTION) {
			const std::size_t text = header.find_first_not_of(" ", 1);
			if (!result.m_description.empty())
				result.m_description += "\n";
			result.m_description += text == std::string::npos ? std::string() : header.substr(text);
		}
	}
	if (!haveHeader)
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' has no header line, only comments.").arg(fileName), FUNC_ID);
	const std::uint64_t headerLine = file.lineNumber();

	// the lines after it
	std::vector<TableFile::Line> rows = file.nextLines(LINES_AHEAD + 1);
	if (rows.empty())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' has a header but no data lines.").arg(fileName), FUNC_ID);

	std::vector<std::string> lines(1, header);
	for (const TableFile::Line & r : rows)
		lines.push_back(r.m_text);
	result.m_delimiter = TableFields::detectDelimiter(lines);
	if (result.m_delimiter == 0)
		throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2' should be the header with a name per column, "
			"but it does not split into columns at a tab, ';' or ','.").arg(static_cast<unsigned long long>(headerLine))
			.arg(fileName), FUNC_ID);
	std::vector<std::string> names;
	if (!TableFields::texts(header, result.m_delimiter, names))
		throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2': a double quote is not closed.")
			.arg(static_cast<unsigned long long>(headerLine)).arg(fileName), FUNC_ID);
	if (isTimeText(names.front()))
		throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2' should be the header with a name per column, "
			"but begins with the time '%3'.").arg(static_cast<unsigned long long>(headerLine)).arg(fileName)
			.arg(names.front()), FUNC_ID);

	// a row of units: its first field is no time
	std::vector<std::string> units;
	std::vector<std::string> texts;
	if (!TableFields::texts(rows.front().m_text, result.m_delimiter, texts))
		throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2': a double quote is not closed.")
			.arg(static_cast<unsigned long long>(rows.front().m_number)).arg(fileName), FUNC_ID);
	if (!isTimeText(texts.front())) {
		if (texts.size() != names.size())
			throw ZEB::Exception(ZEB::MessageFormat("Line %1, column 1 of file '%2': '%3' is neither a number nor a "
				"date and time.").arg(static_cast<unsigned long long>(rows.front().m_number)).arg(fileName)
				.arg(texts.front()), FUNC_ID);
		units = texts;
		rows.erase(rows.begin());
		if (rows.empty())
			throw ZEB::Exception(ZEB::MessageFormat("File '%1' has a header but no data lines.").arg(fileName), FUNC_ID);
		if (!TableFields::texts(rows.front().m_text, result.m_delimiter, texts) || !isTimeText(texts.front()))
			throw ZEB::Exception(ZEB::MessageFormat("Line %1, column 1 of file '%2': '%3' is neither a number nor a "
				"date and time.").arg(static_cast<unsigned long long>(rows.front().m_number)).arg(fileName)
				.arg(texts.empty() ? std::string() : texts.front()), FUNC_ID);
	}
	result.setDataStart(rows);

	// time column: a number or a date-time
	DateTimeText::Parts parts;
	result.m_dateTime = DateTimeText::parse(texts.front().data(), texts.front().data() + texts.front().size(), parts);
	std::string timeName, timeUnitText;
	ReaderUnit::splitHeader(names.front(), timeName, timeUnitText);
	if (!units.empty() && !ZEB::trimmed(units.front(), " \t").empty())
		timeUnitText = units.front();
	if (result.m_dateTime) {
		result.m_timeUnit = "s";
		result.m_startYear = parts.m_year;
		result.m_ambiguousOrder = ambiguousOrder(names.front() + " " + timeUnitText, parts.m_form, result.m_orderReason);
	}
	else if (!timeUnitText.empty()) {
		if (!ReaderUnit::fromText(timeUnitText, result.m_timeUnit) ||
			ZEB::Unit(result.m_timeUnit).base_id() != ZEB::Unit("s").id())
			throw ZEB::Exception(ZEB::MessageFormat("Column 1 of file '%1' holds the time, but its unit '%2' is no "
				"unit of time (s, min, h, d, a).").arg(fileName).arg(timeUnitText), FUNC_ID);
	}

	// value columns
	result.m_fieldNames = names;
	result.m_fields.assign(1, TableLayout::FIELD_TIME);
	for (std::size_t i = 1; i < names.size(); ++i) {
		std::string name, unitText, unit;
		ReaderUnit::splitHeader(names[i], name, unitText);
		if (!units.empty() && !ZEB::trimmed(units[i], " \t").empty())
			unitText = units[i];
		if (name.empty())
			name = ZEB::MessageFormat("Column %1").arg(i + 1).str();
		if (!ReaderUnit::fromText(unitText, unit))
			ZEB::reportWarning(ZEB::MessageFormat("File '%1', column %2 ('%3'): unknown unit '%4', read with unit '-'.")
				.arg(fileName).arg(i + 1).arg(name).arg(unitText).str(), FUNC_ID);
		result.m_fields.push_back(static_cast<int>(result.m_quantities.size()));
		result.m_quantities.push_back(name);
		result.m_units.push_back(unit);
	}
	result.decideDecimal(rows);
	return result;
}

} // namespace OVP
