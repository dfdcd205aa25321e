#ifndef Sci_LinePropertiesH
#define Sci_LinePropertiesH

#include <QColor>
#include <QPen>
#include <QString>

class TiXmlElement;

namespace SCI {

/*! The display properties of one line series (legend text, pen, curve and marker styles, axis
	assignment) with their defaults, and their XML form: one element Series.
*/
class LineProperties {
public:
	/*! Appends one Series element to parent; values equal to the defaults are skipped unless
		writeAll is set. */
	void writeXML(TiXmlElement * parent, bool writeAll) const;

	/*! Reads a Series element; present values replace the current ones. Throws ZEB::Exception
		for unreadable values. */
	void readXML(const TiXmlElement * element);

	/*! Legend text. */
	QString		m_titleText;
	QPen		m_pen = QPen(QBrush(Qt::black), 1, Qt::SolidLine);
	/*! Plotted against the left y axis; false: the right one. */
	bool		m_leftAxis = true;
	/*! A QwtPlotCurve::CurveStyle, 0 = lines. */
	int			m_lineStyle = 0;
	/*! A QwtSymbol::Style, -1 = no symbol. */
	int			m_markerStyle = -1;
	/*! Values plotted with opposite sign. */
	bool		m_inverted = false;
	/*! Curve drawn through a spline fit. */
	bool		m_fitted = false;
	bool		m_inLegend = true;
	/*! Marker size in pixels. */
	unsigned int m_markerSize = 4;
	bool		m_markerFilled = true;
	QColor		m_markerColor = QColor(Qt::blue);
};

} // namespace SCI

#endif // Sci_LinePropertiesH
