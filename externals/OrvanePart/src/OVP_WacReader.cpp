#include "OVP_WacReader.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_StringUtils.h>

#include "OVP_ReaderHeader.h"
#include "OVP_ReaderLines.h"
#include "OVP_ReaderUnit.h"

namespace OVP {

namespace {

/*! Quantity name and unit of the column keywords of the layout. */
const char * const KEYWORDS[][3] = {
	{ "TA", "Air temperature", "C" },
	{ "HREL", "Relative humidity", "---" },
	{ "WS", "Wind speed", "m/s" },
	{ "WD", "Wind direction", "Deg" },
	{ "RN", "Rain", "mm/h" },
	{ "ISGH", "Global horizontal radiation", "W/m2" },
	{ "ISD", "Diffuse horizontal radiation", "W/m2" },
	{ "ISDH", "Direct horizontal radiation", "W/m2" },
	{ "ILAH", "Atmospheric counter-radiation", "W/m2" },
	{ "PSTA", "Air pressure", "hPa" },
	{ "CI", "Cloud index", "-" },
	{ "TSKY", "Sky temperature", "C" }
};

/*! End of the format line of version 2. */
const char * const FORMAT_MARK = "_WAC_02";
/*! Smallest offset of line 2: title, four site values, time step and number of data lines. */
const long MIN_OFFSET = 9;
/*! Largest offset of line 2 and most columns: more is no climate file. */
const long MAX_OFFSET = 1000;
const double MAX_COLUMNS = 1000;
/*! Most data lines the header may announce (a century of minutes). */
const double MAX_DATA_LINES = 1e8;

/*! The text without blanks and tabs, in lower case. */
std::string squeezed(const std::string & text) {
	std::string s;
	for (char c : text)
		if (c != ' ' && c != '\t')
			s += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
	return s;
}

/*! True when the line separates its fields by tabs; else by blanks. */
bool hasTabs(const ReaderLines & lines) {
	return std::find(lines.begin(), lines.end(), '\t') != lines.end();
}

/*! The fields of the current line as UTF-8 texts, trimmed; at most maxFields + 1. */
std::vector<std::string> fields(const ReaderLines & lines, std::size_t maxFields) {
	std::vector<std::string> result;
	const bool tabs = hasTabs(lines);
	const char * pos = lines.begin();
	const char * b;
	const char * e;
	while (result.size() <= maxFields && ReaderLines::nextField(pos, lines.end(), tabs, b, e)) {
		ReaderText::trim(b, e);
		result.push_back(lines.text(b, e));
	}
	return result;
}

/*! "File '<name>', column <c + 1>" for the warnings about a column. */
std::string column(const ReaderLines & lines, std::size_t c) {
	return ZEB::MessageFormat("File '%1', column %2").arg(lines.fileName()).arg(static_cast<unsigned long long>(c + 1)).str();
}

} // namespace


std::string WacReader::name() const {
	return "WAC climate data";
}


std::vector<std::string> WacReader::patterns() const {
	return { "*.wac" };
}


bool WacReader::accepts(const std::string & /*fileName*/, const std::string & head) const {
	const std::size_t lineEnd = head.find_first_of("\r\n");
	return head.substr(0, lineEnd).find("_WAC_") != std::string::npos;
}


void WacReader::readHeader(const std::string & fileName, DATAIO::DataIO & container) const {
	ReaderLines lines(fileName);
	ReaderHeader header;
	Layout layout;
	readWacHeader(lines, header, layout);
	header.apply(fileName, container);
}


void WacReader::read(const std::string & fileName, DATAIO::DataIO & container,
					 ZEB::NotificationHandler * notification) const
{
	FUNCID(WacReader::read);
	ReaderLines lines(fileName, notification);
	ReaderHeader header;
	Layout layout;
	readWacHeader(lines, header, layout);
	header.apply(fileName, container);

	std::vector<double> timePoints;
	std::vector<std::vector<double> > values;
	for (bool more = layout.m_onDataLine || lines.next(); more; more = lines.next()) {
		const char * pos = lines.begin();
		const char * end = lines.end();
		ReaderText::trim(pos, end);
		if (pos == end)
			continue;
		std::vector<double> row;
		row.reserve(layout.m_columns);
		lines.parseValues(hasTabs(lines), layout.m_columns, row);
		for (std::size_t c = 0; c < row.size(); ++c)
			row[c] *= layout.m_factors[c];
		if (row.size() < layout.m_columns)
			throw ZEB::Exception(ZEB::MessageFormat("%1: %2 values, but the header names %3 data columns.")
								 .arg(lines.where()).arg(row.size()).arg(layout.m_columns), FUNC_ID);
		// the first line holds the values at the end of the first step
		timePoints.push_back(static_cast<double>(timePoints.size() + 1)*layout.m_timeStep);
		values.push_back(std::move(row));
	}
	if (timePoints.size() != layout.m_dataLines)
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' holds %2 data lines, but its header says %3.")
							 .arg(fileName).arg(timePoints.size()).arg(layout.m_dataLines), FUNC_ID);
	if (timePoints.empty())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' holds no data lines.").arg(fileName), FUNC_ID);
	container.setData(timePoints, values);
}


void WacReader::readWacHeader(ReaderLines & lines, ReaderHeader & header, Layout & layout) {
	FUNCID(WacReader::readWacHeader);
	nextHeaderLine(lines, 1);
	const std::string format = ZEB::trimmed(lines.text(), " \t");
	if (format.size() < std::strlen(FORMAT_MARK) ||
		format.compare(format.size() - std::strlen(FORMAT_MARK), std::string::npos, FORMAT_MARK) != 0)
		throw ZEB::Exception(ZEB::MessageFormat("%1: '%2' names no WAC layout of version 2 (ending in '%3').")
							 .arg(lines.where()).arg(format).arg(FORMAT_MARK), FUNC_ID);
	nextHeaderLine(lines, 2);
	const double offset = headerValue(lines, "");
	if (offset != std::floor(offset) || offset < MIN_OFFSET || offset > MAX_OFFSET)
		throw ZEB::Exception(ZEB::MessageFormat("%1: the offset to the line 'Number of DataColumns' must be a whole "
			"number from %2 to %3.").arg(lines.where(1)).arg(MIN_OFFSET).arg(MAX_OFFSET), FUNC_ID);
	// line 1 + offset holds the number of columns, the lines before it the number of data lines,
	// the time step and the four site values; the lines from 3 on before those hold the title
	const std::uint64_t columnsLine = 1 + static_cast<std::uint64_t>(offset);
	const std::uint64_t siteLine = columnsLine - 6;
	header.m_quantity = "Climate data";
	for (std::uint64_t n = 3; n < siteLine; ++n) {
		nextHeaderLine(lines, n);
		const std::string title = ZEB::trimmed(lines.text(), " \t");
		if (title.empty())
			continue;
		if (header.m_description.empty())
			header.m_quantity = title;
		header.m_description += title + "\n";
	}
	for (std::uint64_t n = siteLine; n < siteLine + 4; ++n) {
		nextHeaderLine(lines, n);
		headerValue(lines, "");
		std::string site = ZEB::trimmed(lines.text(), " \t");
		std::replace(site.begin(), site.end(), '\t', ' ');
		header.m_description += site + (n + 1 < siteLine + 4 ? "\n" : "");
	}
	nextHeaderLine(lines, siteLine + 4);
	layout.m_timeStep = headerValue(lines, "Time Step");
	if (!(layout.m_timeStep > 0) || !std::isfinite(layout.m_timeStep))
		throw ZEB::Exception(ZEB::MessageFormat("%1: the time step must be larger than 0.").arg(lines.where(1)), FUNC_ID);
	nextHeaderLine(lines, siteLine + 5);
	const double dataLines = headerValue(lines, "Number of DataLines");
	if (dataLines != std::floor(dataLines) || dataLines < 0 || dataLines > MAX_DATA_LINES)
		throw ZEB::Exception(ZEB::MessageFormat("%1: the number of data lines must be a whole number from 0 to %2.")
							 .arg(lines.where(1)).arg(MAX_DATA_LINES), FUNC_ID);
	layout.m_dataLines = static_cast<unsigned long>(dataLines);
	nextHeaderLine(lines, columnsLine);
	const double columns = headerValue(lines, "Number of DataColumns");
	if (columns != std::floor(columns) || columns < 1 || columns > MAX_COLUMNS)
		throw ZEB::Exception(ZEB::MessageFormat("%1: the number of data columns must be a whole number from 1 to %2.")
							 .arg(lines.where(1)).arg(MAX_COLUMNS), FUNC_ID);
	layout.m_columns = static_cast<std::size_t>(columns);

	nextHeaderLine(lines, columnsLine + 1);
	const std::vector<std::string> keywords = fields(lines, layout.m_columns);
	if (keywords.size() != layout.m_columns)
		throw ZEB::Exception(ZEB::MessageFormat("%1: %2 column keywords, but the header names %3 data columns.")
							 .arg(lines.where()).arg(keywords.size()).arg(layout.m_columns), FUNC_ID);
	std::vector<std::string> unitTexts(layout.m_columns);
	layout.m_onDataLine = lines.next();
	const char * pos = lines.begin();
	const char * end = lines.end();
	ReaderText::trim(pos, end);
	if (layout.m_onDataLine && pos != end && *pos == '[') {
		unitTexts = fields(lines, layout.m_columns);
		if (unitTexts.size() != layout.m_columns)
			throw ZEB::Exception(ZEB::MessageFormat("%1: %2 units, but the header names %3 data columns.")
								 .arg(lines.where()).arg(unitTexts.size()).arg(layout.m_columns), FUNC_ID);
		layout.m_onDataLine = false;
	}
	setColumns(lines, keywords, unitTexts, header, layout);
	header.m_timeUnit = "h";
}


void WacReader::nextHeaderLine(ReaderLines & lines, std::uint64_t n) {
	FUNCID(WacReader::nextHeaderLine);
	if (!lines.next())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' ends in its header, before line %2.")
							 .arg(lines.fileName()).arg(static_cast<unsigned long long>(n)), FUNC_ID);
}


double WacReader::headerValue(ReaderLines & lines, const char * label) {
	FUNCID(WacReader::headerValue);
	const bool tabs = hasTabs(lines);
	const char * pos = lines.begin();
	const char * b = pos;
	const char * e = pos;
	ReaderLines::nextField(pos, lines.end(), tabs, b, e);
	double value = 0;
	if (lines.parseNumber(b, e, value) != ReaderText::C_VALUE)
		throw ZEB::Exception(ZEB::MessageFormat("%1: '%2' is not a number.").arg(lines.where(1))
							 .arg(lines.text(b, e)), FUNC_ID);
	if (squeezed(lines.text()).find(squeezed(label)) == std::string::npos)
		throw ZEB::Exception(ZEB::MessageFormat("%1: '%2' is not the line '%3' that the offset of line 2 points to.")
							 .arg(lines.where()).arg(lines.text()).arg(label), FUNC_ID);
	return value;
}


void WacReader::setColumns(ReaderLines & lines, const std::vector<std::string> & keywords,
						   const std::vector<std::string> & unitTexts, ReaderHeader & header, Layout & layout)
{
	FUNCID(WacReader::setColumns);
	for (std::size_t c = 0; c < keywords.size(); ++c) {
		std::string quantity = keywords[c];
		std::string unit = "-";
		bool known = false;
		for (const auto & keyword : KEYWORDS)
			if (keywords[c] == keyword[0]) {
				quantity = keyword[1];
				unit = keyword[2];
				known = true;
			}
		if (!unitTexts[c].empty() && !ReaderUnit::fromText(unitTexts[c], unit))
			ZEB::reportWarning(ZEB::MessageFormat("%1: unknown unit '%2', the values are read with unit '-'.")
							   .arg(column(lines, c)).arg(unitTexts[c]).str(), FUNC_ID);
		else if (unitTexts[c].empty() && !known)
			ZEB::reportWarning(ZEB::MessageFormat("%1: unknown keyword '%2', the values are read with unit '-'.")
							   .arg(column(lines, c)).arg(keywords[c]).str(), FUNC_ID);
		double factor = 1;
		if (keywords[c] == "HREL" && (unit == "---" || unit == "-" || unit == "1")) {
			ZEB::reportWarning(ZEB::MessageFormat("%1: relative humidity as a fraction, the values are multiplied by "
				"100 and read with unit '%'.").arg(column(lines, c)).str(), FUNC_ID);
			factor = 100;
			unit = "%";
		}
		header.m_quantities.push_back(quantity);
		header.m_units.push_back(unit);
		layout.m_factors.push_back(factor);
	}
}

} // namespace OVP
