#include "Sci_DateScaleDraw.h"

#include <cmath>

#include <QLocale>
#include <QPainter>

#include <qwt_date.h>

#include "Sci_ScaleLabelFit.h"

namespace SCI {

DateScaleDraw::DateScaleDraw(const DateTimeMapping & mapping, const QStringList & formats) :
	QwtDateScaleDraw(mapping.timeSpec()),
	m_mapping(mapping)
{
	setUtcOffset(mapping.utcOffset());
	const int count = qMin(formats.size(), static_cast<int>(QwtDate::Year) + 1);
	for (int i = 0; i < count; ++i)
		setDateFormat(static_cast<QwtDate::IntervalType>(i), formats[i]);
}


QwtText DateScaleDraw::label(double value) const {
	const QDateTime dt = m_mapping.toDateTime(value);
	return QwtText(formatDateTime(dt, dateFormat(intervalType(scaleDiv()))));
}


QString DateScaleDraw::formatDateTime(const QDateTime & dateTime, const QString & format) {
	QStringList lines;
	// the toolkit names months and days in the system's language, the default locale in the
	// user's; only the plot library knows week numbers ("w")
	const QLocale locale;
	for (const QString & part : format.split(";;"))
		lines << (part.contains('w') ? QwtDate::toString(dateTime, part, QwtDate::FirstThursday)
									 : locale.toString(dateTime, part));
	return lines.join("\n");
}


/*! Tick times are rounded to full milliseconds: converting axis values back and forth may leave
	a tick a fraction of a millisecond before a full hour, which would otherwise count as a tick
	on a millisecond boundary and choose the finest label format.
*/
QwtDate::IntervalType DateScaleDraw::intervalType(const QwtScaleDiv & scaleDiv) const {
	QList<double> ticks[QwtScaleDiv::NTickTypes];
	for (int type = 0; type < QwtScaleDiv::NTickTypes; ++type)
		for (double t : scaleDiv.ticks(type))
			ticks[type].append(std::round(m_mapping.toMSecs(t)));
	const QwtScaleDiv msDiv(m_mapping.toMSecs(scaleDiv.lowerBound()), m_mapping.toMSecs(scaleDiv.upperBound()), ticks);
	return QwtDateScaleDraw::intervalType(msDiv);
}


void DateScaleDraw::drawLabel(QPainter * painter, double value) const {
	if (ScaleLabelFit::isLabelDrawn(*this, painter->font(), value))
		QwtDateScaleDraw::drawLabel(painter, value);
}

} // namespace SCI
