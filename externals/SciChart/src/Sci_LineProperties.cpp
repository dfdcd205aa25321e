#include "Sci_LineProperties.h"

#include <tinyxml.h>

#include "Sci_XMLValueReader.h"
#include "Sci_XMLValueWriter.h"

namespace SCI {

void LineProperties::writeXML(TiXmlElement * parent, bool writeAll) const {
	const LineProperties def;
	TiXmlElement * e = new TiXmlElement("Series");
	parent->LinkEndChild(e);
	e->SetAttribute("leftAxis", XMLValueWriter::boolText(m_leftAxis));
	e->SetAttribute("inverted", XMLValueWriter::boolText(m_inverted));
	e->SetAttribute("fitted", XMLValueWriter::boolText(m_fitted));
	e->SetAttribute("inLegend", XMLValueWriter::boolText(m_inLegend));

	XMLValueWriter w(e, writeAll);
	w.writeString("TitleText", m_titleText, def.m_titleText);
	w.writeInt("LineStyle", m_lineStyle, def.m_lineStyle);
	w.writeInt("MarkerStyle", m_markerStyle, def.m_markerStyle);
	w.writePen("PenWidth", "PenStyle", "PenColor", m_pen, def.m_pen);
	w.writeColor("MarkerColor", m_markerColor, def.m_markerColor);
	w.writeUInt("MarkerSize", m_markerSize, def.m_markerSize);
	w.writeBool("MarkerFilled", m_markerFilled, def.m_markerFilled);
}


void LineProperties::readXML(const TiXmlElement * element) {
	XMLValueReader r(element);
	r.readBoolAttribute("leftAxis", m_leftAxis);
	r.readBoolAttribute("inverted", m_inverted);
	r.readBoolAttribute("fitted", m_fitted);
	r.readBoolAttribute("inLegend", m_inLegend);

	r.readString("TitleText", m_titleText);
	r.readInt("LineStyle", m_lineStyle);
	r.readInt("MarkerStyle", m_markerStyle);
	r.readPen("PenWidth", "PenStyle", "PenColor", m_pen);
	r.readColor("MarkerColor", m_markerColor);
	r.readUInt("MarkerSize", m_markerSize);
	r.readBool("MarkerFilled", m_markerFilled);
}

} // namespace SCI
