#include "Sci_VectorFieldProperties.h"

#include <tinyxml.h>

#include "Sci_XMLValueReader.h"
#include "Sci_XMLValueWriter.h"

namespace SCI {

void VectorFieldProperties::writeXML(TiXmlElement * parent, bool writeAll) const {
	const VectorFieldProperties def;
	TiXmlElement * e = new TiXmlElement("VectorPlotProperties");
	parent->LinkEndChild(e);

	XMLValueWriter w(e, writeAll);
	w.writeBool("ColorBar", m_colorBarVisible, def.m_colorBarVisible);
	w.writeBool("AutoScale", m_autoScale, def.m_autoScale);
	w.writeDouble("MinimumZ", m_minimumZ, def.m_minimumZ);
	w.writeDouble("MaximumZ", m_maximumZ, def.m_maximumZ);
	w.writeBool("RasterEnabled", m_rasterEnabled, def.m_rasterEnabled);
	w.writeInt("RasterSize", m_rasterSize, def.m_rasterSize);
	w.writeBool("ColoredArrowsEnabled", m_coloredArrowsEnabled, def.m_coloredArrowsEnabled);
	w.writeColor("UniformArrowColor", m_uniformArrowColor, def.m_uniformArrowColor);
	w.writeInt("IndicatorOrigin", m_indicatorOrigin, def.m_indicatorOrigin);
	w.writeBool("ThinArrow", m_thinArrow, def.m_thinArrow);
	w.writeDouble("MaximumArrowLength", m_maximumArrowLength, def.m_maximumArrowLength);
	w.writeDouble("MinimumArrowLength", m_minimumArrowLength, def.m_minimumArrowLength);
	w.writeDouble("ArrowScaleFactor", m_arrowScaleFactor, def.m_arrowScaleFactor);
	if (writeAll || m_colorMap != def.m_colorMap)
		m_colorMap.writeXML(e);
}


void VectorFieldProperties::readXML(const TiXmlElement * element) {
	XMLValueReader r(element);
	r.readBool("ColorBar", m_colorBarVisible);
	r.readBool("AutoScale", m_autoScale);
	r.readDouble("MinimumZ", m_minimumZ);
	r.readDouble("MaximumZ", m_maximumZ);
	r.readBool("RasterEnabled", m_rasterEnabled);
	r.readInt("RasterSize", m_rasterSize);
	r.readBool("ColoredArrowsEnabled", m_coloredArrowsEnabled);
	r.readColor("UniformArrowColor", m_uniformArrowColor);
	r.readInt("IndicatorOrigin", m_indicatorOrigin);
	r.readBool("ThinArrow", m_thinArrow);
	r.readDouble("MaximumArrowLength", m_maximumArrowLength);
	r.readDouble("MinimumArrowLength", m_minimumArrowLength);
	r.readDouble("ArrowScaleFactor", m_arrowScaleFactor);
	m_colorMap.readXML(element);
}

} // namespace SCI
