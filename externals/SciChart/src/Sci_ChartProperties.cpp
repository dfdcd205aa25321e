#include "Sci_ChartProperties.h"

#include <tinyxml.h>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "Sci_XMLValueReader.h"
#include "Sci_XMLValueWriter.h"

namespace SCI {

namespace {
const char * const LEGEND_POSITION_KEYWORDS[] = { "Left", "Right", "Bottom", "Top", "Inside" };
}


void ChartProperties::writeXML(TiXmlElement * parent, bool writeAll) const {
	const ChartProperties def;
	TiXmlElement * e = new TiXmlElement("ChartProperties");
	parent->LinkEndChild(e);

	XMLValueWriter w(e, writeAll);
	w.writeString("TitleText", m_titleText, def.m_titleText);
	w.writeFont("TitleFont", m_titleFont, def.m_titleFont);
	w.writeBool("AxisY2TitleInverted", m_axisY2TitleInverted, def.m_axisY2TitleInverted);
	w.writeBool("AxisScalesInside", m_axisScalesInside, def.m_axisScalesInside);

	TiXmlElement * legend = new TiXmlElement("Legend");
	e->LinkEndChild(legend);
	legend->SetAttribute("visible", XMLValueWriter::boolText(m_legendVisible));
	legend->SetAttribute("hasFrame", XMLValueWriter::boolText(m_legendHasFrame));
	XMLValueWriter lw(legend, writeAll);
	if (writeAll || m_legendPosition != def.m_legendPosition)
		XMLValueWriter::appendElement(legend, "Position", legendPositionKeyword(m_legendPosition));
	lw.writeInt("Alignment", m_legendAlignment, def.m_legendAlignment);
	lw.writeInt("OffsetX", m_legendOffset.width(), def.m_legendOffset.width());
	lw.writeInt("OffsetY", m_legendOffset.height(), def.m_legendOffset.height());
	lw.writeDouble("BackgroundTransparency", m_legendBackgroundTransparency, def.m_legendBackgroundTransparency);
	lw.writeColor("BackgroundColor", m_legendBackgroundColor, def.m_legendBackgroundColor);
	lw.writeInt("IconStyle", m_legendIconStyle, def.m_legendIconStyle);
	lw.writeInt("IconWidth", m_legendIconWidth, def.m_legendIconWidth);
	lw.writeInt("MaxColumns", m_legendMaxColumns, def.m_legendMaxColumns);
	lw.writeInt("Spacing", m_legendSpacing, def.m_legendSpacing);
	lw.writeFont("Font", m_legendFont, def.m_legendFont);

	w.writeBool("ConstructionLinesVisible", m_constructionLinesVisible, def.m_constructionLinesVisible);
	w.writePen("ConstructionLinesPenWidth", "ConstructionLinesPenStyle", "ConstructionLinesPenColor",
			   m_constructionLinesPen, def.m_constructionLinesPen);
	w.writeBool("ShowCurrentTimePosition", m_showCurrentTimePosition, def.m_showCurrentTimePosition);
}


void ChartProperties::readXML(const TiXmlElement * element) {
	// messages carry the id of the chart model reader, the function users see in the log
	FUNCID(AbstractChartModel::readXML);
	for (const TiXmlElement * c = element->FirstChildElement(); c != nullptr; c = c->NextSiblingElement()) {
		const std::string name = c->ValueStr();
		if (name == "TitleText")
			m_titleText = QString::fromStdString(XMLValueReader::elementText(c));
		else if (name == "TitleFont")
			m_titleFont = XMLValueReader::parseFont(XMLValueReader::elementText(c), "element 'TitleFont'");
		else if (name == "AxisY2TitleInverted")
			m_axisY2TitleInverted = XMLValueReader::parseBool(XMLValueReader::elementText(c), "element 'AxisY2TitleInverted'");
		else if (name == "AxisScalesInside")
			m_axisScalesInside = XMLValueReader::parseBool(XMLValueReader::elementText(c), "element 'AxisScalesInside'");
		else if (name == "Legend") {
			XMLValueReader r(c);
			r.readBoolAttribute("visible", m_legendVisible);
			r.readBoolAttribute("hasFrame", m_legendHasFrame);
			QString position;
			if (r.readString("Position", position)) {
				int index = -1;
				for (int i = 0; i < 5; ++i)
					if (position == LEGEND_POSITION_KEYWORDS[i])
						index = i;
				if (index == -1)
					ZEB::reportWarning(ZEB::MessageFormat("Unknown keyword for legend position in 'Position' tag: %1. "
														  "Bottom position will be used instead.")
									   .arg(position.toStdString()).str(), FUNC_ID);
				else
					m_legendPosition = index;
			}
			r.readInt("Alignment", m_legendAlignment);
			int offset = 0;
			if (r.readInt("OffsetX", offset))
				m_legendOffset.setWidth(offset);
			if (r.readInt("OffsetY", offset))
				m_legendOffset.setHeight(offset);
			r.readDouble("BackgroundTransparency", m_legendBackgroundTransparency);
			r.readColor("BackgroundColor", m_legendBackgroundColor);
			r.readInt("IconStyle", m_legendIconStyle);
			r.readInt("IconWidth", m_legendIconWidth);
			r.readInt("MaxColumns", m_legendMaxColumns);
			r.readInt("Spacing", m_legendSpacing);
			r.readFont("Font", m_legendFont);
		}
	}

	XMLValueReader r(element);
	r.readBool("ConstructionLinesVisible", m_constructionLinesVisible);
	r.readPen("ConstructionLinesPenWidth", "ConstructionLinesPenStyle", "ConstructionLinesPenColor",
			  m_constructionLinesPen);
	r.readBool("ShowCurrentTimePosition", m_showCurrentTimePosition);
}


const char * ChartProperties::legendPositionKeyword(int position) {
	if (position < 0 || position > 4)
		return "";
	return LEGEND_POSITION_KEYWORDS[position];
}

} // namespace SCI
