#ifndef OVP_DateTimeTextH
#define OVP_DateTimeTextH

#include <cstdint>
#include <string>

namespace OVP {

/*! The date-time texts of foreign data files: ISO "2023-01-31 13:00[:00]" and "2023-01-31T13:00",
	dot-separated "31.01.2023 13:00[:00]", slash-separated "01/31/2023 01:00[:00] PM" and
	"01/31/23 ...", each with a 24-hour clock or a 12-hour clock with AM/PM, seconds optionally with
	a fraction; a date alone means 00:00. One text does not tell whether a dot or slash date has the
	day or the month first: DateTimeColumn decides that per file. Plain arithmetic on the proleptic
	Gregorian calendar, no time zones: the times are local times as written.
*/
class DateTimeText {
public:
	/*! How the date part is written. */
	enum Form {
		F_ISO,		///< year-month-day
		F_DOT,		///< day and month (in an order to decide) and year, separated by "."
		F_SLASH		///< day and month (in an order to decide) and year, separated by "/"
	};

	/*! One date-time text split into its parts. */
	struct Parts {
		std::int32_t	m_year = 0;			///< a two-digit year is taken as 1970 to 2069
		std::uint8_t	m_first = 0;		///< the month of an ISO date, else the first part
		std::uint8_t	m_second = 0;		///< the day of an ISO date, else the second part
		Form			m_form = F_ISO;
		double			m_secondOfDay = 0;	///< 0 to 86400 (24:00 is the end of the day)
	};

	/*! Splits [begin, end) (blanks and enclosing double quotes ignored) into its parts; false
		when it is none of the accepted forms or a clock time is out of range. Day and month of an
		ISO date are checked too; for dot and slash dates only that both parts lie in 1..31.
	*/
	static bool parse(const char * begin, const char * end, Parts & parts);
	/*! Number of days of the month (1..12) in the year. */
	static unsigned int daysInMonth(std::int64_t year, unsigned int month);
	/*! The time given in seconds from 1 January 00:00 of startYear as "2023-01-31 13:00:00". */
	static std::string format(std::int32_t startYear, double seconds);
};

} // namespace OVP

#endif // OVP_DateTimeTextH
