#include "Sci_BarSymbolInfo.h"

#include <tinyxml.h>

#include "Sci_XMLValueReader.h"
#include "Sci_XMLValueWriter.h"

namespace SCI {

BarSymbolInfo::BarSymbolInfo(int seriesIndex) {
	static const Qt::GlobalColor PALETTE[] = {
		Qt::blue, Qt::red, Qt::darkGreen, Qt::darkYellow, Qt::magenta, Qt::cyan, Qt::darkGray
	};
	const int n = static_cast<int>(sizeof(PALETTE)/sizeof(PALETTE[0]));
	m_color = QColor(PALETTE[(seriesIndex < 0 ? 0 : seriesIndex) % n]);
}


void BarSymbolInfo::writeXML(TiXmlElement * parent, int seriesIndex, bool writeAll) const {
	const BarSymbolInfo def(seriesIndex);
	TiXmlElement * e = new TiXmlElement("Series");
	parent->LinkEndChild(e);
	XMLValueWriter w(e, writeAll);
	w.writeString("TitleText", m_titleText, def.m_titleText);
	w.writeColor("Color", m_color, def.m_color);
	w.writePen("FramePenWidth", "FramePenStyle", "FramePenColor", m_framePen, def.m_framePen);
}


void BarSymbolInfo::readXML(const TiXmlElement * element) {
	XMLValueReader r(element);
	r.readString("TitleText", m_titleText);
	r.readColor("Color", m_color);
	r.readPen("FramePenWidth", "FramePenStyle", "FramePenColor", m_framePen);
}

} // namespace SCI
