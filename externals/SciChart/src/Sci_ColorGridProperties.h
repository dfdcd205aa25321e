#ifndef Sci_ColorGridPropertiesH
#define Sci_ColorGridPropertiesH

#include <limits>

#include <QPen>

#include "Sci_ColorMap.h"

class TiXmlElement;

namespace SCI {

/*! The display properties of the colour grid of a chart (colour map, value range, colour bar,
	contour lines) with their defaults, and their XML form: the element ColorGridProperties.
*/
class ColorGridProperties {
public:
	/*! Appends ColorGridProperties to parent; values equal to the defaults are skipped unless
		writeAll is set. The colour bar flag is written as ColorBarVisible. */
	void writeXML(TiXmlElement * parent, bool writeAll) const;

	/*! Reads a ColorGridProperties element; present values replace the current ones. The colour
		bar flag is read from an element ColorBar only, so a written ColorBarVisible leaves the
		flag as it is; files depend on this behaviour. Throws ZEB::Exception for bad values. */
	void readXML(const TiXmlElement * element);

	ColorMap	m_colorMap;
	/*! Value range from the data instead of m_minimumZ .. m_maximumZ. */
	bool		m_autoScale = true;
	double		m_minimumZ = std::numeric_limits<double>::quiet_NaN();
	double		m_maximumZ = std::numeric_limits<double>::quiet_NaN();
	int			m_interpolationMode = 0;
	int			m_displayMode = 1;
	bool		m_colorBarVisible = true;
	/*! Contour lines coloured by their interval. */
	bool		m_contourIntervalColor = false;
	/*! Value step between contour lines, NaN = no contour lines. */
	double		m_contourInterval = std::numeric_limits<double>::quiet_NaN();
	QPen		m_contourPen;
};

} // namespace SCI

#endif // Sci_ColorGridPropertiesH
