#ifndef Sci_DateScaleDrawH
#define Sci_DateScaleDrawH

#include <QStringList>

#include <qwt_date_scale_draw.h>

#include "Sci_DateTimeMapping.h"

namespace SCI {

/*! Scale draw of a date-time axis: labels the axis values (numbers in a time unit counted from
	the axis' zero date-time) as calendar dates. The label format depends on the spacing of the
	major ticks: one format per interval type, from milliseconds to years, finest first; ";;" in
	a format splits the label into two lines. Labels that would overlap are thinned out.
*/
class DateScaleDraw : public QwtDateScaleDraw {
public:
	/*! \param formats Eight formats (millisecond, second, minute, hour, day, week, month, year);
		missing entries fall back to the library's defaults. */
	DateScaleDraw(const DateTimeMapping & mapping, const QStringList & formats);

	/*! The date label of an axis value. */
	QwtText label(double value) const override;

	const DateTimeMapping & mapping() const { return m_mapping; }

	/*! Formats a date-time with a format that may hold ";;" as line separator; month and day
		names in the language of the default locale (but for formats with week numbers). */
	static QString formatDateTime(const QDateTime & dateTime, const QString & format);

protected:
	/*! Interval type of a scale division in axis values (converted to points in time first). */
	QwtDate::IntervalType intervalType(const QwtScaleDiv & scaleDiv) const override;
	/*! Draws the label unless it has to give way to its neighbours. */
	void drawLabel(QPainter * painter, double value) const override;

private:
	DateTimeMapping	m_mapping;
};

} // namespace SCI

#endif // Sci_DateScaleDrawH
