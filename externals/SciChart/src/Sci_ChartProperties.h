#ifndef Sci_ChartPropertiesH
#define Sci_ChartPropertiesH

#include <QColor>
#include <QFont>
#include <QPen>
#include <QSize>
#include <QString>

class TiXmlElement;

namespace SCI {

/*! The chart-wide display properties of one chart (title, legend, construction lines, ...)
	with their defaults, and their XML form: the element ChartProperties.
*/
class ChartProperties {
public:
	/*! Legend positions, numbered as stored in the chart role LegendPosition. */
	enum LegendPosition {
		LegendLeft		= 0,
		LegendRight		= 1,
		LegendBottom	= 2,
		LegendTop		= 3,
		LegendInside	= 4	///< inside the plot canvas, placed by the legend offset
	};

	/*! Writes the element ChartProperties into parent; values equal to their defaults are
		skipped unless writeAll is set.
	*/
	void writeXML(TiXmlElement * parent, bool writeAll) const;

	/*! Reads the element ChartProperties: its children replace the values they hold, unknown
		children are ignored. An unknown legend position keyword is reported as warning and
		leaves the position as it was. Throws ZEB::Exception for unreadable values.
	*/
	void readXML(const TiXmlElement * element);

	/*! The keyword of a legend position ("Left", ...), empty for numbers outside 0..4. */
	static const char * legendPositionKeyword(int position);

	QString		m_titleText = "Title";
	QFont		m_titleFont;
	bool		m_legendVisible = true;
	int			m_legendPosition = LegendBottom;
	int			m_legendAlignment = 3;
	bool		m_legendHasFrame = true;
	int			m_legendIconStyle = 0;
	/*! Legend icon width in pixels. */
	int			m_legendIconWidth = 20;
	QColor		m_legendBackgroundColor = QColor(Qt::white);
	double		m_legendBackgroundTransparency = 1.0;
	/*! Offset of a legend placed inside the canvas. */
	QSize		m_legendOffset = QSize(10, 10);
	/*! Most legend columns, 0 = no limit. */
	int			m_legendMaxColumns = 0;
	int			m_legendSpacing = 8;
	QFont		m_legendFont;
	bool		m_axisY2TitleInverted = false;
	bool		m_axisScalesInside = false;
	bool		m_constructionLinesVisible = true;
	QPen		m_constructionLinesPen = QPen(QBrush(Qt::black), 1, Qt::SolidLine);
	/*! Whether long curves are thinned before drawing; a display setting, not stored in XML. */
	bool		m_dataReduction = true;
	bool		m_showCurrentTimePosition = false;
	/*! Time position marked when m_showCurrentTimePosition is set; not stored in XML. */
	double		m_currentTimePosition = 0;
};

} // namespace SCI

#endif // Sci_ChartPropertiesH
