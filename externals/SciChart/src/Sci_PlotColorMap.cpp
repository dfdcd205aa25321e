#include "Sci_PlotColorMap.h"

#include <qwt_color_map.h>

#include "Sci_ColorMap.h"

namespace SCI {

QwtColorMap * PlotColorMap::create(const ColorMap & colorMap) {
	if (colorMap.m_type == ColorMap::AlphaMap)
		return new QwtAlphaColorMap(colorMap.m_alphaColor);

	const QVector<ColorMap::ColorStop> & stops = colorMap.m_linearColorStops.isEmpty() ?
				ColorMap().m_linearColorStops : colorMap.m_linearColorStops;
	// the library's map runs from a colour at 0 to a colour at 1 with stops in between; stops
	// outside 0..1 do not occur in valid maps and are left out
	QwtLinearColorMap * map = new QwtLinearColorMap(stops.front().m_color, stops.back().m_color);
	for (const ColorMap::ColorStop & stop : stops)
		if (stop.m_pos > 0 && stop.m_pos < 1)
			map->addColorStop(stop.m_pos, stop.m_color);
	return map;
}

} // namespace SCI
