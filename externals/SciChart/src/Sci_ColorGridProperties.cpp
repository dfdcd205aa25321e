#include "Sci_ColorGridProperties.h"

#include <tinyxml.h>

#include "Sci_XMLValueReader.h"
#include "Sci_XMLValueWriter.h"

namespace SCI {

void ColorGridProperties::writeXML(TiXmlElement * parent, bool writeAll) const {
	const ColorGridProperties def;
	TiXmlElement * e = new TiXmlElement("ColorGridProperties");
	parent->LinkEndChild(e);

	XMLValueWriter w(e, writeAll);
	w.writeBool("ColorBarVisible", m_colorBarVisible, def.m_colorBarVisible);
	w.writeBool("AutoScale", m_autoScale, def.m_autoScale);
	w.writeDouble("MinimumZ", m_minimumZ, def.m_minimumZ);
	w.writeDouble("MaximumZ", m_maximumZ, def.m_maximumZ);
	w.writeInt("InterpolationMode", m_interpolationMode, def.m_interpolationMode);
	w.writeInt("DisplayMode", m_displayMode, def.m_displayMode);
	w.writeDouble("ContourInterval", m_contourInterval, def.m_contourInterval);
	w.writePen("ContourPenWidth", "ContourPenStyle", "ContourPenColor", m_contourPen, def.m_contourPen);
	w.writeBool("ContourIntervalColor", m_contourIntervalColor, def.m_contourIntervalColor);
	if (writeAll || m_colorMap != def.m_colorMap)
		m_colorMap.writeXML(e);
}


void ColorGridProperties::readXML(const TiXmlElement * element) {
	XMLValueReader r(element);
	r.readBool("ColorBar", m_colorBarVisible);
	r.readBool("AutoScale", m_autoScale);
	r.readDouble("MinimumZ", m_minimumZ);
	r.readDouble("MaximumZ", m_maximumZ);
	r.readInt("InterpolationMode", m_interpolationMode);
	r.readInt("DisplayMode", m_displayMode);
	r.readDouble("ContourInterval", m_contourInterval);
	r.readPen("ContourPenWidth", "ContourPenStyle", "ContourPenColor", m_contourPen);
	r.readBool("ContourIntervalColor", m_contourIntervalColor);
	m_colorMap.readXML(element);
}

} // namespace SCI
