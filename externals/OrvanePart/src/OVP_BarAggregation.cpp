#include "OVP_BarAggregation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <QLocale>

#include <DATAIO_DataIO.h>

#include <ZEB_CivilDate.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_UnitVector.h>

#include "OVP_DateTimeText.h"

namespace OVP {

namespace {

const double SECONDS_PER_DAY = 86400;
/*! Seconds by which a series may miss the start or end of a period and still cover it. */
const double COVERAGE_TOLERANCE = 0.5;
/*! More periods than this are no bar chart but a mistake (time points in the wrong unit). */
const std::int64_t MAX_PERIODS = 100000;
/*! Days of a common year before each month, and the length of the year. */
const std::int64_t MONTH_STARTS[13] = { 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365 };

const char * const PERIOD_KEYWORDS[BarAggregation::NUM_P] = { "Month", "Year", "Whole" };
const char * const STATISTIC_KEYWORDS[BarAggregation::NUM_S] = { "Mean", "Sum", "Minimum", "Maximum", "DaysAbove" };

/*! Division rounding towards minus infinity. */
std::int64_t floorDiv(std::int64_t a, std::int64_t b) {
	return a >= 0 ? a/b : -((-a + b - 1)/b);
}

/*! The periods of one kind, with or without calendar, over days counted from time zero. */
class PeriodGrid {
public:
	PeriodGrid(BarAggregation::Period period, std::int32_t startYear) :
		m_period(period),
		m_calendar(startYear != DATAIO::DataIO::UNSET_START_YEAR),
		m_dayZero(m_calendar ? ZEB::daysFromCivil(startYear, 1, 1) : 0)
	{}

	/*! The period key of the day with the given number. */
	std::int64_t keyOfDay(std::int64_t day) const {
		if (m_period == BarAggregation::P_Whole)
			return 0;
		std::int64_t year = 0;
		unsigned int month = 1;
		if (m_calendar) {
			unsigned int dayOfMonth = 1;
			ZEB::civilFromDays(m_dayZero + day, year, month, dayOfMonth);
		}
		else {
			year = floorDiv(day, 365);
			const std::int64_t dayOfYear = day - 365*year;
			while (month < 12 && MONTH_STARTS[month] <= dayOfYear)
				++month;
		}
		return m_period == BarAggregation::P_Year ? year : year*12 + month - 1;
	}

	/*! The number of the first day of a period. */
	std::int64_t firstDay(std::int64_t key) const {
		const std::int64_t year = m_period == BarAggregation::P_Year ? key : floorDiv(key, 12);
		const unsigned int month = m_period == BarAggregation::P_Year ? 1 : static_cast<unsigned int>(key - 12*year + 1);
		if (m_calendar)
			return ZEB::daysFromCivil(year, month, 1) - m_dayZero;
		return year*365 + MONTH_STARTS[month - 1];
	}

private:
	BarAggregation::Period	m_period;
	bool					m_calendar;
	std::int64_t			m_dayZero;
};

/*! What one period collects of the values. */
struct Accumulator {
	double			m_sum = 0;
	std::size_t		m_count = 0;
	double			m_minimum = std::numeric_limits<double>::infinity();
	double			m_maximum = -std::numeric_limits<double>::infinity();
	std::size_t		m_days = 0;
	std::size_t		m_daysAbove = 0;

	double value(BarAggregation::Statistic statistic) const {
		const double NaN = std::numeric_limits<double>::quiet_NaN();
		if (statistic == BarAggregation::S_DaysAbove)
			return m_days == 0 ? NaN : static_cast<double>(m_daysAbove);
		if (m_count == 0)
			return NaN;
		switch (statistic) {
			case BarAggregation::S_Mean :		return m_sum/static_cast<double>(m_count);
			case BarAggregation::S_Sum :		return m_sum;
			case BarAggregation::S_Minimum :	return m_minimum;
			default :							return m_maximum;
		}
	}
};

} // namespace


bool BarAggregation::Settings::operator==(const Settings & other) const {
	return m_period == other.m_period && m_statistic == other.m_statistic && m_threshold == other.m_threshold;
}


std::vector<BarAggregation::Bar> BarAggregation::aggregate(const std::vector<double> & time, const ZEB::Unit & timeUnit,
														   const std::vector<double> & values, std::int32_t startYear,
														   const Settings & settings)
{
	FUNCID(BarAggregation::aggregate);
	std::vector<Bar> bars;
	// a series that waits for its first values may not have a unit yet
	if (time.empty() && values.empty())
		return bars;
	const ZEB::Unit second("s");
	if (timeUnit.id() == 0 || timeUnit.base_id() != second.base_id())
		throw ZEB::Exception(ZEB::MessageFormat("Bars need time points, but unit [%1] is no unit of time.")
							 .arg(timeUnit.name()), FUNC_ID);
	if (time.size() != values.size())
		throw ZEB::Exception(ZEB::MessageFormat("The series has %1 time points but %2 values.").arg(time.size())
							 .arg(values.size()), FUNC_ID);
	if (time.empty())
		return bars;
	ZEB::UnitVector seconds(time, timeUnit);
	seconds.convert(second);

	const PeriodGrid grid(settings.m_period, startYear);
	const auto dayOf = [](double s) { return static_cast<std::int64_t>(std::floor(s/SECONDS_PER_DAY)); };
	const std::int64_t firstKey = grid.keyOfDay(dayOf(seconds.m_data.front()));
	const std::int64_t lastKey = grid.keyOfDay(dayOf(seconds.m_data.back()));
	if (lastKey < firstKey || lastKey - firstKey >= MAX_PERIODS)
		throw ZEB::Exception(ZEB::MessageFormat("The series spans %1 periods; at most %2 are shown as bars.")
							 .arg(lastKey - firstKey + 1).arg(MAX_PERIODS), FUNC_ID);

	std::vector<Accumulator> periods(static_cast<std::size_t>(lastKey - firstKey + 1));
	const auto periodOfDay = [&](std::int64_t day) -> Accumulator & {
		return periods[static_cast<std::size_t>(grid.keyOfDay(day) - firstKey)];
	};
	// the day being collected for the daily mean
	std::int64_t day = dayOf(seconds.m_data.front());
	double daySum = 0;
	std::size_t dayCount = 0;
	const auto closeDay = [&]() {
		if (dayCount == 0)
			return;
		Accumulator & a = periodOfDay(day);
		++a.m_days;
		if (daySum/static_cast<double>(dayCount) > settings.m_threshold)
			++a.m_daysAbove;
	};
	for (std::size_t i = 0; i < time.size(); ++i) {
		const std::int64_t d = dayOf(seconds.m_data[i]);
		if (d != day) {
			closeDay();
			day = d;
			daySum = 0;
			dayCount = 0;
		}
		const double v = values[i];
		if (std::isnan(v))
			continue;
		daySum += v;
		++dayCount;
		Accumulator & a = periodOfDay(d);
		a.m_sum += v;
		++a.m_count;
		a.m_minimum = std::min(a.m_minimum, v);
		a.m_maximum = std::max(a.m_maximum, v);
	}
	closeDay();

	for (std::size_t p = 0; p < periods.size(); ++p)
		bars.push_back(Bar{ firstKey + static_cast<std::int64_t>(p), periods[p].value(settings.m_statistic), false });
	if (settings.m_period != P_Whole) {
		const std::vector<double> & s = seconds.m_data;
		const double firstStep = s.size() > 1 ? s[1] - s[0] : 0;
		const double lastStep = s.size() > 1 ? s[s.size() - 1] - s[s.size() - 2] : 0;
		if (s.front() - firstStep > grid.firstDay(firstKey)*SECONDS_PER_DAY + COVERAGE_TOLERANCE)
			bars.front().m_partial = true;
		if (s.back() + lastStep < grid.firstDay(lastKey + 1)*SECONDS_PER_DAY - COVERAGE_TOLERANCE)
			bars.back().m_partial = true;
	}
	return bars;
}


QString BarAggregation::label(std::int64_t key, Period period, bool calendar, bool partial) {
	QString text;
	switch (period) {
		case P_Month :
			if (calendar) {
				const std::int64_t year = floorDiv(key, 12);
				const int month = static_cast<int>(key - 12*year + 1);
				text = QString("%1 %2").arg(QLocale::c().monthName(month, QLocale::ShortFormat)).arg(year);
			}
			else
				text = tr("Month %1").arg(key + 1);
			break;
		case P_Year :
			text = calendar ? QString::number(key) : tr("Year %1").arg(key + 1);
			break;
		default :
			text = tr("Whole series");
	}
	return partial ? tr("%1 (partial)").arg(text) : text;
}


const char * BarAggregation::periodKeyword(Period period) {
	return PERIOD_KEYWORDS[period < NUM_P ? period : P_Month];
}


const char * BarAggregation::statisticKeyword(Statistic statistic) {
	return STATISTIC_KEYWORDS[statistic < NUM_S ? statistic : S_Mean];
}


BarAggregation::Period BarAggregation::periodFromKeyword(const std::string & keyword) {
	FUNCID(BarAggregation::periodFromKeyword);
	for (int p = 0; p < NUM_P; ++p)
		if (keyword == PERIOD_KEYWORDS[p])
			return static_cast<Period>(p);
	throw ZEB::Exception(ZEB::MessageFormat("Unknown bar period '%1'.").arg(keyword), FUNC_ID);
}


BarAggregation::Statistic BarAggregation::statisticFromKeyword(const std::string & keyword) {
	FUNCID(BarAggregation::statisticFromKeyword);
	for (int s = 0; s < NUM_S; ++s)
		if (keyword == STATISTIC_KEYWORDS[s])
			return static_cast<Statistic>(s);
	throw ZEB::Exception(ZEB::MessageFormat("Unknown bar statistic '%1'.").arg(keyword), FUNC_ID);
}


QString BarAggregation::periodText(Period period) {
	switch (period) {
		case P_Month :	return tr("month");
		case P_Year :	return tr("year");
		default :		return tr("whole series");
	}
}


QString BarAggregation::statisticText(Statistic statistic) {
	switch (statistic) {
		case S_Mean :		return tr("mean");
		case S_Sum :		return tr("sum");
		case S_Minimum :	return tr("minimum");
		case S_Maximum :	return tr("maximum");
		default :			return tr("days above threshold");
	}
}

} // namespace OVP
