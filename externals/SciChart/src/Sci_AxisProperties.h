#ifndef Sci_AxisPropertiesH
#define Sci_AxisPropertiesH

#include <QDateTime>
#include <QFont>
#include <QPen>
#include <QString>
#include <QStringList>

#include <ZEB_Unit.h>

class TiXmlElement;

namespace SCI {

/*! The display properties of one chart axis (title, scale, grid, date labels, unit) with the
	defaults of its axis position, and their XML form: one element Axis.
*/
class AxisProperties {
public:
	/*! Properties at the defaults of axis position 0 (x), 1 (left y) or 2 (right y); the
		positions differ only in their label alignments.
	*/
	explicit AxisProperties(int axisPosition = 0);

	/*! Appends the element Axis with the attribute index = axisPosition to parent; values equal
		to the defaults of that position are skipped unless writeAll is set.
	*/
	void writeXML(TiXmlElement * parent, int axisPosition, bool writeAll) const;

	/*! Reads attributes and children of an Axis element; present values replace the current
		ones. Throws ZEB::Exception for unreadable values and unknown units.
	*/
	void readXML(const TiXmlElement * element);

	/*! The title text with every "$unit" replaced by the name of the axis unit. */
	QString displayTitle() const;

	/*! The default date label formats, one per date interval from milliseconds to years. */
	static QStringList defaultDateTimeFormats();

	bool			m_enabled = true;
	/*! Title as stored, may contain "$unit". */
	QString			m_titleText;
	double			m_maximum = 0;
	double			m_minimum = 0;
	bool			m_logarithmic = false;
	/*! Keep x and y scales at the same ratio. */
	bool			m_proportional = false;
	bool			m_autoscale = true;
	QFont			m_titleFont;
	QFont			m_labelFont;
	int				m_labelHAlignment = 2;
	int				m_labelVAlignment = 1;
	/*! Label rotation in degrees. */
	double			m_labelRotation = 0;
	/*! Most minor ticks per major step. */
	int				m_maxMinorScale = 5;
	/*! Most major ticks. */
	int				m_maxMajorScale = 8;
	ZEB::Unit		m_unit;
	bool			m_gridVisible = true;
	QPen			m_gridPen = QPen(QBrush(Qt::gray), 1, Qt::DashLine);
	bool			m_minorGridVisible = true;
	QPen			m_minorGridPen = QPen(QBrush(Qt::lightGray), 1, Qt::SolidLine);
	int				m_titleSpacing = 35;
	int				m_labelSpacing = 5;
	/*! Labels as calendar dates counted from m_dateTimeZero. */
	bool			m_dateTimeEnabled = false;
	/*! Date-time of the axis value zero. */
	QDateTime		m_dateTimeZero = QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC);
	/*! A Qt::TimeSpec value. */
	int				m_dateTimeSpec = Qt::UTC;
	/*! One label format per date interval, finest first; ";;" separates two label lines. */
	QStringList		m_dateTimeFormats = defaultDateTimeFormats();
};

} // namespace SCI

#endif // Sci_AxisPropertiesH
