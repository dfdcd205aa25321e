#ifndef OVP_BarAggregationH
#define OVP_BarAggregationH

#include <cstdint>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <QString>

#include <ZEB_Unit.h>

namespace OVP {

/*! Reduces a time series to one value per period for a bar chart: per calendar month, per
	calendar year or over the whole series, the mean, sum, minimum or maximum of the values, or
	the number of days whose daily mean lies above a threshold.

	Time points are seconds (after conversion from their time unit) from 1 January, 00:00, of the
	start year; the calendar is the proleptic Gregorian one, so February 2024 has 29 days. A
	series without start year has no calendar: its time counts from the start of "Year 1", every
	year has 365 days, its months the lengths of a common year's months, and they are numbered on
	("Month 13" is the first month of the second year). A time point belongs to the period (and
	day) that contains it, the start of the period included. Values that are NaN (gaps) are
	skipped; a period without any value has the value NaN (no bar). A day counts when it holds at
	least one value, and it is above the threshold when the mean of its values is.

	The periods of a series run from the period of its first time point to that of its last. The
	first and the last period are partial when the series covers only a part of them: when the
	first time point, less the first time step, lies after the start of the period, or the last
	time point, plus the last time step, before its end. So hourly values stamped at the start or
	at the end of each hour both cover a whole month.
*/
class BarAggregation {
	Q_DECLARE_TR_FUNCTIONS(BarAggregation)
public:
	/*! The periods of the bars. */
	enum Period {
		P_Month,
		P_Year,
		P_Whole,	///< one bar for the whole series
		NUM_P
	};

	/*! What a bar shows of the values in its period. */
	enum Statistic {
		S_Mean,
		S_Sum,			///< in the unit of the values (the sum of a rate keeps the rate's unit)
		S_Minimum,
		S_Maximum,
		S_DaysAbove,	///< days whose daily mean is above the threshold, in "d"
		NUM_S
	};

	/*! How a series is reduced. */
	struct Settings {
		Period		m_period = P_Month;
		Statistic	m_statistic = S_Mean;
		/*! Threshold of S_DaysAbove, in the unit of the values. */
		double		m_threshold = 0;

		bool countsDays() const { return m_statistic == S_DaysAbove; }
		bool operator==(const Settings & other) const;
		bool operator!=(const Settings & other) const { return !(*this == other); }
	};

	/*! One period of a series. */
	struct Bar {
		/*! The period: a calendar month as year*12 + month - 1, a calendar year as the year, a
			period of a series without calendar as its number counted from 0; 0 for the whole
			series. */
		std::int64_t	m_key;
		/*! The statistic; NaN when the period holds no value. */
		double			m_value;
		/*! True when the series covers only a part of the period. */
		bool			m_partial;
	};

	/*! The bars of a series with its time points (rising) in timeUnit, a unit of the group of
		"s", and one value per time point; startYear is DATAIO::DataIO::UNSET_START_YEAR for a
		series without calendar. An empty series has no bars. Throws ZEB::Exception for a time
		unit that is no time unit, for time and value lists of different lengths and for more
		than 100000 periods.
	*/
	static std::vector<Bar> aggregate(const std::vector<double> & time, const ZEB::Unit & timeUnit,
									  const std::vector<double> & values, std::int32_t startYear,
									  const Settings & settings);

	/*! The label of a period: "Jan 2021" and "2021" with calendar, "Month 1" and "Year 1"
		without, "Whole series"; a partial period gets " (partial)".
	*/
	static QString label(std::int64_t key, Period period, bool calendar, bool partial);

	/*! Keywords of periods and statistics in session files ("Month", "Mean", ...). */
	static const char * periodKeyword(Period period);
	static const char * statisticKeyword(Statistic statistic);
	/*! The period or statistic of a keyword; throws ZEB::Exception for an unknown keyword. */
	static Period periodFromKeyword(const std::string & keyword);
	static Statistic statisticFromKeyword(const std::string & keyword);

	/*! The texts of periods and statistics for the user ("month", "days above threshold"). */
	static QString periodText(Period period);
	static QString statisticText(Statistic statistic);
};

} // namespace OVP

#endif // OVP_BarAggregationH
