#ifndef OVP_TableLayoutH
#define OVP_TableLayoutH

#include <cstdint>
#include <string>
#include <vector>

#include <DATAIO_DataIO.h>

#include "OVP_DateTimeColumn.h"
#include "OVP_TableFile.h"

namespace OVP {

/*! What a table reader found out from the first lines of a delimited table: how its data lines
	are split and read (TableBody), and the container header (quantities, units, time unit, start
	year, description).
*/
struct TableLayout {
	/*! Roles of the fields that are no data set (a data set field holds its index, 0 up). */
	static constexpr int FIELD_TIME = -1;		///< the time
	static constexpr int FIELD_SKIPPED = -2;	///< read as nothing (a record number)
	static constexpr int FIELD_EVENT = -3;		///< an event column: words or empty, never numbers

	/*! Writes the header into an empty container: reference output of single values, DF_2D, one
		column number per data set with its quantity and unit, time unit and start year.
	*/
	void fillHeader(const std::string & fileName, DATAIO::DataIO & container) const;
	/*! Decides the decimal separator from the first data lines, once delimiter, fields and time
		kind are known: a "," delimiter implies a point; else the first number cell (or numeric
		time) with a "." or "," shows it. Lines of whole numbers only leave it undecided.
	*/
	void decideDecimal(const std::vector<TableFile::Line> & dataLines);
	/*! Takes where the data begin and how long its lines are from the first data lines. */
	void setDataStart(const std::vector<TableFile::Line> & dataLines);

	char						m_delimiter = ',';
	bool						m_decimalComma = false;
	/*! False while no value showed the decimal separator (only whole numbers so far). */
	bool						m_decimalDecided = false;
	/*! Per field of a data line: the data set it holds, or one of the FIELD_ roles. */
	std::vector<int>			m_fields;
	/*! Per field: its header text, for messages. */
	std::vector<std::string>	m_fieldNames;
	std::size_t					m_timeField = 0;
	/*! True for a date-time column, false for a number in m_timeUnit. */
	bool						m_dateTime = false;
	/*! Order of day and month for dot and slash dates that do not show it, and why. */
	DateTimeColumn::Order		m_ambiguousOrder = DateTimeColumn::O_MONTH_FIRST;
	std::string					m_orderReason;
	/*! True when data lines may lack fields at their end, provided they are all event fields. */
	bool						m_trailingEventsOptional = false;
	/*! File position and number of the first data line, average length of the first data lines. */
	std::uint64_t				m_dataOffset = 0;
	std::uint64_t				m_dataLine = 1;
	std::uint64_t				m_lineLength = 1;

	/*! Container header: collection name, description, quantity and unit of each data set. */
	std::string					m_collection;
	std::string					m_description;
	std::string					m_timeUnit = "h";
	std::int32_t				m_startYear = DATAIO::DataIO::UNSET_START_YEAR;
	std::vector<std::string>	m_quantities;
	std::vector<std::string>	m_units;
};

} // namespace OVP

#endif // OVP_TableLayoutH
