#ifndef OVP_DateTimeColumnH
#define OVP_DateTimeColumnH

#include <cstdint>
#include <string>
#include <vector>

#include "OVP_DateTimeText.h"

namespace OVP {

/*! The date-time column of one file. It collects the texts of all data lines, decides once per
	file whether dot and slash dates have the day or the month first (from a part above 12, else
	the order the reader names for the file) and logs the decision, then turns every date-time
	into seconds from 1 January 00:00 of the first time point's year (later years count on).
*/
class DateTimeColumn {
public:
	/*! Order of day and month in dot and slash dates. */
	enum Order {
		O_DAY_FIRST,
		O_MONTH_FIRST
	};

	/*! \param fileName File name for messages.
		\param column Column number (1-based) for messages.
		\param ambiguousOrder The order taken when no date shows it.
		\param reason Why that order, for the log ("the usual order of logger exports").
	*/
	DateTimeColumn(const std::string & fileName, std::size_t column, Order ambiguousOrder, const std::string & reason);

	/*! Takes the text of a data line; false when it is no date-time text or written in another
		form than the first one.
	*/
	bool add(const char * begin, const char * end, std::uint64_t line);
	/*! Reserves room for the given number of lines. */
	void reserve(std::size_t lines);

	/*! Decides the order of day and month (logged as a warning that names the file and the
		column), then gives the seconds of every line taken and the year of the first one. Throws
		ZEB::Exception naming file and line for a date that does not exist, for a time not later
		than the one before, and for dates that disagree on the order.
	*/
	std::vector<double> seconds(std::int32_t & startYear) const;

private:
	/*! One line's date-time before the order is known. */
	struct Entry {
		DateTimeText::Parts	m_parts;
		std::uint64_t		m_line;
	};

	/*! The order of the file's dot or slash dates; logs how it was decided. */
	Order decideOrder() const;

	std::string			m_fileName;
	std::size_t			m_column;
	Order				m_ambiguousOrder;
	std::string			m_reason;
	std::vector<Entry>	m_entries;
};

} // namespace OVP

#endif // OVP_DateTimeColumnH
