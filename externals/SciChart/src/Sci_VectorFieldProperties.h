#ifndef Sci_VectorFieldPropertiesH
#define Sci_VectorFieldPropertiesH

#include <limits>

#include <QColor>

#include "Sci_ColorMap.h"

class TiXmlElement;

namespace SCI {

/*! The display properties of the vector field of a chart (colour map, value range, colour bar,
	arrow raster, colours and lengths) with their defaults, and their XML form: the element
	VectorPlotProperties.
*/
class VectorFieldProperties {
public:
	/*! Where an arrow sits relative to its point, numbered as stored. */
	enum IndicatorOrigin {
		OriginHead		= 0,
		OriginTail		= 1,
		OriginCenter	= 2
	};

	/*! Appends VectorPlotProperties to parent; values equal to the defaults are skipped unless
		writeAll is set. */
	void writeXML(TiXmlElement * parent, bool writeAll) const;

	/*! Reads a VectorPlotProperties element; present values replace the current ones.
		Throws ZEB::Exception for unreadable values. */
	void readXML(const TiXmlElement * element);

	ColorMap	m_colorMap;
	/*! Magnitude range from the data instead of m_minimumZ .. m_maximumZ. */
	bool		m_autoScale = true;
	double		m_minimumZ = std::numeric_limits<double>::quiet_NaN();
	double		m_maximumZ = std::numeric_limits<double>::quiet_NaN();
	bool		m_colorBarVisible = true;
	/*! Arrows on a regular raster instead of at every grid point. */
	bool		m_rasterEnabled = true;
	/*! Pixels between raster points. */
	int			m_rasterSize = 15;
	/*! Arrow colour from the colour map and the magnitude. */
	bool		m_coloredArrowsEnabled = true;
	/*! Arrow colour when coloured arrows are off. */
	QColor		m_uniformArrowColor = QColor(Qt::black);
	int			m_indicatorOrigin = OriginCenter;
	bool		m_thinArrow = true;
	/*! Arrow lengths in pixels. */
	double		m_maximumArrowLength = 50;
	double		m_minimumArrowLength = 0;
	double		m_arrowScaleFactor = 1;
};

} // namespace SCI

#endif // Sci_VectorFieldPropertiesH
