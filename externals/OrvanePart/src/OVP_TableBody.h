#ifndef OVP_TableBodyH
#define OVP_TableBodyH

#include <cstdint>
#include <string>
#include <vector>

#include "OVP_TableFields.h"
#include "OVP_TableLayout.h"

namespace ZEB {
class NotificationHandler;
}

namespace DATAIO {
class DataIO;
class LineReader;
}

namespace OVP {

class TableFile;

/*! Reads the data lines of a delimited table as its TableLayout describes them: one time point
	per line, one value per data set field (a gap as NaN), into one row-major array that goes into
	the container at once. Lines are parsed in place, block by block. Empty lines are passed over;
	every other departure (a field count that differs from the header's, a cell that is no number
	and no gap, a time that does not increase, a number in an event column) is a ZEB::Exception
	that names file, line and column.
*/
class TableBody {
public:
	TableBody(TableFile & file, const TableLayout & layout);

	/*! Reads all data lines and fills the container (whose header the caller has written). */
	void read(DATAIO::DataIO & container, ZEB::NotificationHandler * notification);

private:
	/*! Most values room is reserved for before the first line is read (512 MB). */
	static constexpr std::uint64_t MAX_RESERVED_VALUES = std::uint64_t(64) << 20;

	/*! Reads the data lines into m_times (or m_dateTimes) and m_values. */
	void readLines(ZEB::NotificationHandler * notification);
	/*! Reads a line of plain numbers (and a date-time, event words) in one pass, without
		splitting it first: the usual line of a large file. False, with nothing stored, for a line
		that needs the general way (quotes, blanks, gaps, a decimal comma, anything to report).
	*/
	bool readPlainLine(const char * begin, const char * end, std::uint64_t line);
	/*! Reads the fields of the reader's current line; the time goes to m_times or m_dateTimes. */
	void readLine(const DATAIO::LineReader & reader);
	/*! The number in field i (a gap is NaN); throws for text. */
	double value(const TableFields::Field & field, std::size_t i, std::uint64_t line);
	/*! Checks that the fields of a line missing at its end are all event fields. */
	void checkFieldCount(std::uint64_t line) const;
	/*! Throws the message for field i that holds what is no number. */
	[[noreturn]] void throwNotANumber(const TableFields::Field & field, std::size_t i, std::uint64_t line) const;

	TableFile &							m_file;
	const TableLayout &					m_layout;
	bool								m_decimalComma;
	bool								m_decimalDecided;
	std::size_t							m_valueCount;
	std::vector<TableFields::Field>		m_fields;
	std::vector<double>					m_times;
	std::vector<double>					m_values;
	std::uint64_t						m_lastTimeLine = 0;
	DateTimeColumn						m_dateTimes;
};

} // namespace OVP

#endif // OVP_TableBodyH
