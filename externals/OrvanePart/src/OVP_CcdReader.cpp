#include "OVP_CcdReader.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <limits>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "OVP_ReaderHeader.h"
#include "OVP_ReaderLines.h"
#include "OVP_ReaderUnit.h"

namespace OVP {

namespace {

/*! Longer quantity names of the keywords that CCD files use. */
const char * const QUANTITY_NAMES[][2] = {
	{ "TEMPER", "Temperature" }, { "RELHUM", "Relative humidity" }
};

/*! Most digits of a day number (27 000 years). */
const std::size_t MAX_DAY_DIGITS = 7;

/*! Reads the unsigned integer of [begin, end) with at most maxDigits digits; false for other text. */
bool parseDigits(const char * begin, const char * end, std::size_t maxDigits, long & value) {
	const std::size_t n = static_cast<std::size_t>(end - begin);
	if (n == 0 || n > maxDigits)
		return false;
	value = 0;
	for (const char * p = begin; p < end; ++p) {
		if (*p < '0' || *p > '9')
			return false;
		value = 10*value + (*p - '0');
	}
	return true;
}

/*! True for a comment line or an empty line, [begin, end) trimmed. */
bool isComment(const char * begin, const char * end) {
	return begin == end || *begin == '#';
}

/*! True when a comment text (after "#", trimmed) begins with "year:", case ignored. */
bool isYearComment(const std::string & comment) {
	static const char * const KEY = "year:";
	if (comment.size() < 5)
		return false;
	for (std::size_t i = 0; i < 5; ++i)
		if (std::tolower(static_cast<unsigned char>(comment[i])) != KEY[i])
			return false;
	return true;
}

} // namespace


std::string CcdReader::name() const {
	return "CCD climate data";
}


std::vector<std::string> CcdReader::patterns() const {
	return { "*.ccd" };
}


bool CcdReader::accepts(const std::string & /*fileName*/, const std::string & head) const {
	// text, and the first line that is no comment holds a keyword and a unit
	if (head.find('\0') != std::string::npos)
		return false;
	std::size_t pos = head.compare(0, 3, ReaderText::BOM) == 0 ? 3 : 0;
	while (pos < head.size()) {
		const std::size_t lineEnd = std::min(head.find_first_of("\r\n", pos), head.size());
		const char * b = head.data() + pos;
		const char * e = head.data() + lineEnd;
		ReaderText::trim(b, e);
		pos = lineEnd + 1;
		if (isComment(b, e))
			continue;
		const char * fb;
		const char * fe;
		int fields = 0;
		while (ReaderLines::nextField(b, e, false, fb, fe))
			++fields;
		return fields == 2;
	}
	return true;
}


void CcdReader::readHeader(const std::string & fileName, DATAIO::DataIO & container) const {
	ReaderLines lines(fileName);
	ReaderHeader header;
	readKeywordLine(lines, header);
	header.apply(fileName, container);
}


void CcdReader::read(const std::string & fileName, DATAIO::DataIO & container,
					 ZEB::NotificationHandler * notification) const
{
	FUNCID(CcdReader::read);
	ReaderLines lines(fileName, notification);
	ReaderHeader header;
	readKeywordLine(lines, header);
	header.apply(fileName, container);

	std::vector<double> timePoints;
	std::vector<std::vector<double> > values;
	std::uint64_t previousLine = 0;
	while (lines.next()) {
		const char * pos = lines.begin();
		const char * end = lines.end();
		ReaderText::trim(pos, end);
		if (isComment(pos, end))
			continue;
		const char * field[4][2];
		int n = 0;
		while (n < 4 && ReaderLines::nextField(pos, end, false, field[n][0], field[n][1]))
			++n;
		if (n == 4)
			throw ZEB::Exception(ZEB::MessageFormat("%1: a fourth field, but a data line holds a day number, a time "
				"of day and one value.").arg(lines.where(4)), FUNC_ID);
		if (n < 2)
			throw ZEB::Exception(ZEB::MessageFormat("%1: a data line holds a day number, a time of day and one "
				"value.").arg(lines.where()), FUNC_ID);
		const double t = parseTime(lines, field[0][0], field[0][1], field[1][0], field[1][1]);
		if (!timePoints.empty() && t <= timePoints.back())
			throw ZEB::Exception(ZEB::MessageFormat("%1: the time '%2' does not follow the time of line %3; times "
				"must increase.").arg(lines.where()).arg(std::string(field[0][0], field[1][1]))
				.arg(static_cast<unsigned long long>(previousLine)), FUNC_ID);
		double value = std::numeric_limits<double>::quiet_NaN();
		if (n == 3) {
			const ReaderText::Cell cell = lines.parseNumber(field[2][0], field[2][1], value);
			if (cell == ReaderText::C_INVALID)
				throw ZEB::Exception(ZEB::MessageFormat("%1: '%2' is not a number.").arg(lines.where(3))
									 .arg(std::string(field[2][0], field[2][1])), FUNC_ID);
			if (cell == ReaderText::C_GAP)
				value = std::numeric_limits<double>::quiet_NaN();
		}
		timePoints.push_back(t);
		values.push_back({ value });
		previousLine = lines.lineNumber();
	}
	if (timePoints.empty())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' holds no data lines.").arg(fileName), FUNC_ID);
	container.setData(timePoints, values);
}


void CcdReader::readKeywordLine(ReaderLines & lines, ReaderHeader & header) {
	FUNCID(CcdReader::readKeywordLine);
	header.m_timeUnit = "s";
	while (lines.next()) {
		const char * pos = lines.begin();
		const char * end = lines.end();
		ReaderText::trim(pos, end);
		if (pos == end)
			continue;
		if (*pos == '#') {
			std::string comment = lines.text();
			comment = comment.substr(comment.find('#') + 1);
			const char * cb = comment.data();
			const char * ce = comment.data() + comment.size();
			ReaderText::trim(cb, ce);
			comment.assign(cb, ce);
			if (!isYearComment(comment)) {
				header.m_description += (header.m_description.empty() ? "" : "\n") + comment;
				continue;
			}
			const char * yb = comment.data() + 5;
			const char * ye = comment.data() + comment.size();
			ReaderText::trim(yb, ye);
			long year = 0;
			if (!parseDigits(yb, ye, 4, year) || year == 0)
				throw ZEB::Exception(ZEB::MessageFormat("%1: '%2' is no year.").arg(lines.where())
									 .arg(std::string(yb, ye)), FUNC_ID);
			header.m_startYear = static_cast<std::int32_t>(year);
			continue;
		}
		const char * field[3][2];
		int n = 0;
		while (n < 3 && ReaderLines::nextField(pos, end, false, field[n][0], field[n][1]))
			++n;
		if (n != 2)
			throw ZEB::Exception(ZEB::MessageFormat("%1: expected the quantity keyword and its unit, found '%2'.")
								 .arg(lines.where()).arg(lines.text()), FUNC_ID);
		const std::string keyword = lines.text(field[0][0], field[0][1]);
		const std::string unitText = lines.text(field[1][0], field[1][1]);
		std::string unit;
		if (!ReaderUnit::fromText(unitText, unit))
			ZEB::reportWarning(ZEB::MessageFormat("%1: unknown unit '%2', the values are read with unit '-'.")
							   .arg(lines.where(2)).arg(unitText).str(), FUNC_ID);
		std::string quantity = keyword;
		for (const auto & name : QUANTITY_NAMES)
			if (keyword == name[0])
				quantity = name[1];
		header.m_quantity = quantity;
		header.m_quantities = { quantity };
		header.m_units = { unit };
		return;
	}
	throw ZEB::Exception(ZEB::MessageFormat("File '%1' holds no line with the quantity keyword and its unit.")
						 .arg(lines.fileName()), FUNC_ID);
}


double CcdReader::parseTime(const ReaderLines & lines, const char * dayBegin, const char * dayEnd,
							const char * timeBegin, const char * timeEnd)
{
	FUNCID(CcdReader::parseTime);
	long day = 0;
	if (!parseDigits(dayBegin, dayEnd, MAX_DAY_DIGITS, day))
		throw ZEB::Exception(ZEB::MessageFormat("%1: '%2' is no day number.").arg(lines.where(1))
							 .arg(std::string(dayBegin, dayEnd)), FUNC_ID);
	// hh:mm or hh:mm:ss, 24:00 and 24:00:00 for the end of a day
	long parts[3] = { 0, 0, 0 };
	int n = 0;
	const char * p = timeBegin;
	bool valid = true;
	while (valid && n < 3) {
		const char * colon = static_cast<const char *>(std::memchr(p, ':', static_cast<std::size_t>(timeEnd - p)));
		const char * partEnd = colon != nullptr ? colon : timeEnd;
		valid = parseDigits(p, partEnd, 2, parts[n]);
		++n;
		if (colon == nullptr)
			break;
		p = colon + 1;
		valid = valid && n < 3;
	}
	valid = valid && n >= 2 && parts[1] < 60 && parts[2] < 60 &&
			(parts[0] < 24 || (parts[0] == 24 && parts[1] == 0 && parts[2] == 0));
	if (!valid)
		throw ZEB::Exception(ZEB::MessageFormat("%1: '%2' is no time of day (hh:mm or hh:mm:ss).")
							 .arg(lines.where(2)).arg(std::string(timeBegin, timeEnd)), FUNC_ID);
	return static_cast<double>(day*86400 + parts[0]*3600 + parts[1]*60 + parts[2]);
}

} // namespace OVP
