#include "OVP_DateTimeColumn.h"

#include <ZEB_CivilDate.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

namespace OVP {

namespace {

const char * orderText(DateTimeColumn::Order order) {
	return order == DateTimeColumn::O_DAY_FIRST ? "day-first" : "month-first";
}

} // namespace


DateTimeColumn::DateTimeColumn(const std::string & fileName, std::size_t column, Order ambiguousOrder,
							   const std::string & reason) :
	m_fileName(fileName),
	m_column(column),
	m_ambiguousOrder(ambiguousOrder),
	m_reason(reason)
{
}


bool DateTimeColumn::add(const char * begin, const char * end, std::uint64_t line) {
	Entry e;
	e.m_line = line;
	if (!DateTimeText::parse(begin, end, e.m_parts))
		return false;
	if (!m_entries.empty() && e.m_parts.m_form != m_entries.front().m_parts.m_form)
		return false;
	m_entries.push_back(e);
	return true;
}


void DateTimeColumn::reserve(std::size_t lines) {
	m_entries.reserve(lines);
}


DateTimeColumn::Order DateTimeColumn::decideOrder() const {
	FUNCID(DateTimeColumn::decideOrder);
	const Entry * dayFirst = nullptr;	// first line with a first part above 12
	const Entry * monthFirst = nullptr;	// first line with a second part above 12
	for (const Entry & e : m_entries) {
		if (dayFirst == nullptr && e.m_parts.m_first > 12)
			dayFirst = &e;
		if (monthFirst == nullptr && e.m_parts.m_second > 12)
			monthFirst = &e;
	}
	if (dayFirst != nullptr && monthFirst != nullptr)
		throw ZEB::Exception(ZEB::MessageFormat("Dates in column %1 of file '%2' disagree on the order of day and month: "
			"line %3 has a day above 12 in front, line %4 in second place.").arg(m_column).arg(m_fileName)
			.arg(static_cast<unsigned long long>(dayFirst->m_line)).arg(static_cast<unsigned long long>(monthFirst->m_line)), FUNC_ID);
	if (dayFirst != nullptr || monthFirst != nullptr) {
		const Order order = dayFirst != nullptr ? O_DAY_FIRST : O_MONTH_FIRST;
		const Entry & e = dayFirst != nullptr ? *dayFirst : *monthFirst;
		ZEB::reportWarning(ZEB::MessageFormat("Dates in column %1 of file '%2' are read %3: line %4 has a day above 12 %5.")
			.arg(m_column).arg(m_fileName).arg(orderText(order)).arg(static_cast<unsigned long long>(e.m_line))
			.arg(order == O_DAY_FIRST ? "in front" : "in second place").str(), FUNC_ID);
		return order;
	}
	ZEB::reportWarning(ZEB::MessageFormat("Dates in column %1 of file '%2' do not show whether day or month comes first "
		"(no part above 12); they are read %3, %4.").arg(m_column).arg(m_fileName).arg(orderText(m_ambiguousOrder))
		.arg(m_reason).str(), FUNC_ID);
	return m_ambiguousOrder;
}


std::vector<double> DateTimeColumn::seconds(std::int32_t & startYear) const {
	FUNCID(DateTimeColumn::seconds);
	std::vector<double> result;
	if (m_entries.empty())
		return result;
	const bool iso = m_entries.front().m_parts.m_form == DateTimeText::F_ISO;
	const bool dayFirst = !iso && decideOrder() == O_DAY_FIRST;
	startYear = m_entries.front().m_parts.m_year;
	const std::int64_t startDay = ZEB::daysFromCivil(startYear, 1, 1);
	result.reserve(m_entries.size());
	for (std::size_t i = 0; i < m_entries.size(); ++i) {
		const DateTimeText::Parts & p = m_entries[i].m_parts;
		const unsigned int month = dayFirst ? p.m_second : p.m_first;
		const unsigned int day = dayFirst ? p.m_first : p.m_second;
		if (month > 12 || day > DateTimeText::daysInMonth(p.m_year, month))
			throw ZEB::Exception(ZEB::MessageFormat("Line %1, column %2 of file '%3': there is no day %4 in month %5 of %6.")
				.arg(static_cast<unsigned long long>(m_entries[i].m_line)).arg(m_column).arg(m_fileName)
				.arg(day).arg(month).arg(p.m_year), FUNC_ID);
		const double t = static_cast<double>(ZEB::daysFromCivil(p.m_year, month, day) - startDay)*86400 + p.m_secondOfDay;
		if (!result.empty() && t <= result.back()) {
			const double back = result.back() - t;
			const std::string hint = back < 3600 ?
				" An hour repeated at the change from daylight-saving to standard time?" : "";
			throw ZEB::Exception(ZEB::MessageFormat("Line %1 of file '%2': %3 is not later than %4 in line %5; times must "
				"increase.%6").arg(static_cast<unsigned long long>(m_entries[i].m_line)).arg(m_fileName)
				.arg(DateTimeText::format(startYear, t)).arg(DateTimeText::format(startYear, result.back()))
				.arg(static_cast<unsigned long long>(m_entries[i - 1].m_line)).arg(hint), FUNC_ID);
		}
		result.push_back(t);
	}
	return result;
}

} // namespace OVP
