#ifndef Sci_BarSymbolInfoH
#define Sci_BarSymbolInfoH

#include <QColor>
#include <QPen>
#include <QString>

class TiXmlElement;

namespace SCI {

/*! Display properties of one bar symbol of a bar chart: the bars of one series. */
class BarSymbolInfo {
public:
	/*! Defaults of the bar symbol of the given series; the fill colours cycle through a small
		palette so that neighbouring series are told apart. */
	explicit BarSymbolInfo(int seriesIndex = 0);

	/*! Appends a Series element to parent: TitleText, Color and the frame pen (FramePenWidth,
		FramePenStyle, FramePenColor); values equal to those of BarSymbolInfo(seriesIndex) are
		left out unless writeAll is set.
	*/
	void writeXML(TiXmlElement * parent, int seriesIndex, bool writeAll) const;
	/*! Replaces the values present in a Series element; throws ZEB::Exception for a bad value. */
	void readXML(const TiXmlElement * element);

	/*! Legend text. */
	QString	m_titleText;
	/*! Fill colour of the bars. */
	QColor	m_color;
	/*! Frame of the bars. */
	QPen	m_framePen = QPen(QBrush(Qt::black), 1, Qt::SolidLine);
};

} // namespace SCI

#endif // Sci_BarSymbolInfoH
