#ifndef Sci_ColorMapH
#define Sci_ColorMapH

#include <QColor>
#include <QMetaType>
#include <QVector>

class TiXmlElement;

namespace SCI {

/*! A colour map as shown by colour-grid and vector-field charts: either a linear map through
	a list of colour stops, or an alpha map that fades one colour over the value range.
	It is a value type that travels through the role interface of the chart models as a QVariant
	(meta type "SCI::ColorMap", see registerMetaType()).
*/
class ColorMap {
public:
	/*! Kinds of colour map, numbered as they are stored. */
	enum ColorMapType {
		LinearMap	= 0,
		AlphaMap	= 1
	};

	/*! One stop of a linear map: a position in the value range (0 = minimum, 1 = maximum)
		and the colour at that position. */
	struct ColorStop {
		ColorStop() = default;
		ColorStop(double pos, const QColor & color) : m_pos(pos), m_color(color) {}
		bool operator==(const ColorStop & other) const {
			return m_pos == other.m_pos && m_color == other.m_color;
		}
		bool operator!=(const ColorStop & other) const { return !(*this == other); }

		double	m_pos = 0;
		QColor	m_color;
	};

	/*! The default map: linear from blue to red in 10 steps, alpha colour black. */
	ColorMap();

	/*! Replaces the stops by steps + 1 stops from firstColor (position 0) to lastColor
		(position 1); the inner stops are interpolated in HSV (see the implementation).
		Throws for steps < 1.
	*/
	void setLinearMap(const QColor & firstColor, const QColor & lastColor, int steps);

	/*! Reads the children Type, ColorStops and AlphaColor of the given element; a missing
		child leaves its part of the map unchanged. The map is only changed when everything
		could be read; errors are thrown as ZEB::Exception.
	*/
	void readXML(const TiXmlElement * element);

	/*! Writes the children Type, ColorStops and AlphaColor into the given element. */
	void writeXML(TiXmlElement * element) const;

	bool operator==(const ColorMap & other) const;
	bool operator!=(const ColorMap & other) const { return !(*this == other); }

	/*! Registers the QVariant meta type "SCI::ColorMap" with its equality comparison,
		so that QVariant values holding colour maps can be compared. Safe to call repeatedly.
	*/
	static void registerMetaType();

	/*! Type of the map. */
	ColorMapType		m_type = LinearMap;
	/*! Colour faded in by the alpha map. */
	QColor				m_alphaColor;
	/*! Stops of the linear map, positions rising from 0 to 1. */
	QVector<ColorStop>	m_linearColorStops;
};

} // namespace SCI

Q_DECLARE_METATYPE(SCI::ColorMap)

#endif // Sci_ColorMapH
