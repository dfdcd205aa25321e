#ifndef Sci_DateTimeMappingH
#define Sci_DateTimeMappingH

#include <QDateTime>

#include <ZEB_Unit.h>

namespace SCI {

class AbstractCartesianChartModel;

/*! Relation between the values of a date-time axis and calendar dates: the axis value 0 is the
	zero date-time of the axis, and one axis unit (a time unit such as "h" or "d") is a fixed
	number of milliseconds. Date labels, date tick positions and the picker text of a chart all
	convert through one such mapping, so that they agree.
*/
class DateTimeMapping {
public:
	/*! Zero at 2000-01-01 00:00 UTC, axis values in seconds. */
	DateTimeMapping();
	/*! Mapping with the given zero; the dates are shown in the time specification of timeSpec (a
		Qt::TimeSpec value; the zero's offset is used for Qt::OffsetFromUTC and Qt::TimeZone). */
	DateTimeMapping(const QDateTime & zero, double msecsPerUnit, int timeSpec);

	/*! Milliseconds since the epoch of an axis value. */
	double toMSecs(double axisValue) const { return m_zeroMSecs + axisValue*m_msecsPerUnit; }
	/*! Axis value of a point in time given as milliseconds since the epoch. */
	double fromMSecs(double msecs) const { return (msecs - m_zeroMSecs)/m_msecsPerUnit; }
	/*! The date-time of an axis value, in the mapping's time specification. */
	QDateTime toDateTime(double axisValue) const;

	double msecsPerUnit() const { return m_msecsPerUnit; }
	/*! The time specification used for the labels: Qt::LocalTime, Qt::UTC or Qt::OffsetFromUTC. */
	Qt::TimeSpec timeSpec() const { return m_timeSpec; }
	/*! Offset from UTC in seconds, used with Qt::OffsetFromUTC. */
	int utcOffset() const { return m_utcOffset; }

	/*! Milliseconds per unit of a time unit (a unit of the group of "s"). Throws ZEB::Exception
		for units of other groups and for the special units of that group. */
	static double msecsPerUnit(const ZEB::Unit & unit);
	/*! The mapping of an axis of a chart model: its zero date-time and time specification, and
		its unit (without an axis unit, the x unit of the first line series counts for the bottom
		axis). Throws ZEB::Exception when that unit is no time unit.
	*/
	static DateTimeMapping ofAxis(const AbstractCartesianChartModel & model, int axisPosition);

private:
	double			m_zeroMSecs;
	double			m_msecsPerUnit;
	Qt::TimeSpec	m_timeSpec;
	int				m_utcOffset;
};

} // namespace SCI

#endif // Sci_DateTimeMappingH
