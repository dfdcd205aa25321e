#include "Sci_AxisProperties.h"

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "Sci_XMLValueReader.h"
#include "Sci_XMLValueWriter.h"

namespace SCI {

AxisProperties::AxisProperties(int axisPosition) {
	switch (axisPosition) {
		case 1 :
			m_labelHAlignment = 0;
			m_labelVAlignment = 2;
			break;
		case 2 :
			m_labelHAlignment = 1;
			m_labelVAlignment = 2;
			break;
		default :
			m_labelHAlignment = 2;
			m_labelVAlignment = 1;
	}
}


void AxisProperties::writeXML(TiXmlElement * parent, int axisPosition, bool writeAll) const {
	const AxisProperties def(axisPosition);
	TiXmlElement * e = new TiXmlElement("Axis");
	parent->LinkEndChild(e);
	e->SetAttribute("index", axisPosition);
	e->SetAttribute("enabled", XMLValueWriter::boolText(m_enabled));
	e->SetAttribute("logarithmic", XMLValueWriter::boolText(m_logarithmic));
	e->SetAttribute("autoscale", XMLValueWriter::boolText(m_autoscale));
	e->SetAttribute("proportional", XMLValueWriter::boolText(m_proportional));

	XMLValueWriter w(e, writeAll);
	w.writeString("TitleText", m_titleText, def.m_titleText);
	w.writeFont("TitleFont", m_titleFont, def.m_titleFont);
	w.writeFont("LabelFont", m_labelFont, def.m_labelFont);
	w.writeInt("LabelHAlignment", m_labelHAlignment, def.m_labelHAlignment);
	w.writeInt("LabelVAlignment", m_labelVAlignment, def.m_labelVAlignment);
	w.writeDouble("LabelRotation", m_labelRotation, def.m_labelRotation);
	if (writeAll || m_unit.id() != 0) {
		TiXmlElement * unit = XMLValueWriter::appendElement(e, "ZEB:Unit", m_unit.name());
		unit->SetAttribute("name", "AxisUnit");
	}
	w.writePreciseDouble("Maximum", m_maximum, def.m_maximum);
	w.writePreciseDouble("Minimum", m_minimum, def.m_minimum);
	w.writeInt("MaxMinorScale", m_maxMinorScale, def.m_maxMinorScale);
	w.writeInt("MaxMajorScale", m_maxMajorScale, def.m_maxMajorScale);
	w.writeBool("GridVisible", m_gridVisible, def.m_gridVisible);
	w.writePen("GridPenWidth", "GridPenStyle", "GridPenColor", m_gridPen, def.m_gridPen);
	w.writeBool("MinorGridVisible", m_minorGridVisible, def.m_minorGridVisible);
	w.writePen("MinorGridPenWidth", "MinorGridPenStyle", "MinorGridPenColor", m_minorGridPen, def.m_minorGridPen);
	w.writeInt("LabelSpacing", m_labelSpacing, def.m_labelSpacing);
	w.writeInt("TitleSpacing", m_titleSpacing, def.m_titleSpacing);
	w.writeBool("DateTimeEnabled", m_dateTimeEnabled, def.m_dateTimeEnabled);
	w.writeDateTime("DateTimeZero", m_dateTimeZero, def.m_dateTimeZero);
	w.writeInt("DateTimeSpec", m_dateTimeSpec, def.m_dateTimeSpec);
	w.writeStringList("DateTimeFormats", m_dateTimeFormats, def.m_dateTimeFormats);
}


void AxisProperties::readXML(const TiXmlElement * element) {
	FUNCID(AxisProperties::readXML);
	XMLValueReader r(element);
	r.readBoolAttribute("enabled", m_enabled);
	r.readBoolAttribute("logarithmic", m_logarithmic);
	r.readBoolAttribute("autoscale", m_autoscale);
	r.readBoolAttribute("proportional", m_proportional);

	r.readString("TitleText", m_titleText);
	r.readFont("TitleFont", m_titleFont);
	r.readFont("LabelFont", m_labelFont);
	r.readInt("LabelHAlignment", m_labelHAlignment);
	r.readInt("LabelVAlignment", m_labelVAlignment);
	r.readDouble("LabelRotation", m_labelRotation);
	for (const TiXmlElement * u = element->FirstChildElement("ZEB:Unit"); u != nullptr;
		 u = u->NextSiblingElement("ZEB:Unit"))
	{
		const char * name = u->Attribute("name");
		if (name != nullptr && std::string(name) == "AxisUnit") {
			m_unit = ZEB::Unit(XMLValueReader::elementText(u));
			break;
		}
	}
	r.readDouble("Maximum", m_maximum);
	r.readDouble("Minimum", m_minimum);
	r.readInt("MaxMinorScale", m_maxMinorScale);
	r.readInt("MaxMajorScale", m_maxMajorScale);
	r.readBool("GridVisible", m_gridVisible);
	r.readPen("GridPenWidth", "GridPenStyle", "GridPenColor", m_gridPen);
	r.readBool("MinorGridVisible", m_minorGridVisible);
	r.readPen("MinorGridPenWidth", "MinorGridPenStyle", "MinorGridPenColor", m_minorGridPen);
	r.readInt("LabelSpacing", m_labelSpacing);
	r.readInt("TitleSpacing", m_titleSpacing);
	r.readBool("DateTimeEnabled", m_dateTimeEnabled);
	if (r.readInt("DateTimeSpec", m_dateTimeSpec)) {
		if (m_dateTimeSpec < Qt::LocalTime || m_dateTimeSpec > Qt::TimeZone)
			throw ZEB::Exception(ZEB::MessageFormat("Invalid time spec %1 in element 'DateTimeSpec'.")
								 .arg(m_dateTimeSpec), FUNC_ID);
	}
	r.readDateTime("DateTimeZero", static_cast<Qt::TimeSpec>(m_dateTimeSpec), m_dateTimeZero);
	r.readStringList("DateTimeFormats", m_dateTimeFormats);
}


QString AxisProperties::displayTitle() const {
	QString title = m_titleText;
	return title.replace("$unit", QString::fromStdString(m_unit.name()));
}


QStringList AxisProperties::defaultDateTimeFormats() {
	return QStringList()
			<< "hh:mm:ss:zzz"		// millisecond
			<< "dd hh:mm:ss"		// second
			<< "dd.MM. hh:mm"		// minute
			<< "hh:mm;;dd.MM."		// hour
			<< "dd.MM.yyyy"			// day
			<< "dd.MM.yyyy"			// week
			<< "MMM yyyy"			// month
			<< "yyyy";				// year
}

} // namespace SCI
