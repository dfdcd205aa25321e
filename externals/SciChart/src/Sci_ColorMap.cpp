#include "Sci_ColorMap.h"

#include <cmath>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "Sci_XMLValueReader.h"
#include "Sci_XMLValueWriter.h"

namespace SCI {

ColorMap::ColorMap() :
	m_alphaColor(Qt::black)
{
	setLinearMap(Qt::blue, Qt::red, 10);
}


/*! Stop i of n steps sits at i/n; hue, saturation and value run linearly between the end
	colours, so that e.g. blue -> red passes cyan, green and yellow. A grey end colour has no hue
	of its own (-1) and takes the other end's hue, so that a map towards grey only fades.
*/
void ColorMap::setLinearMap(const QColor & firstColor, const QColor & lastColor, int steps) {
	FUNCID(ColorMap::setLinearMap);
	if (steps < 1)
		throw ZEB::Exception("Invalid number of steps, must be > 1.", FUNC_ID);

	double h1 = firstColor.hsvHueF();
	double h2 = lastColor.hsvHueF();
	if (h1 < 0)
		h1 = h2;
	if (h2 < 0)
		h2 = h1;
	// both grey: no hue at all
	if (h1 < 0) {
		h1 = 0;
		h2 = 0;
	}
	const double s1 = firstColor.hsvSaturationF();
	const double s2 = lastColor.hsvSaturationF();
	const double v1 = firstColor.valueF();
	const double v2 = lastColor.valueF();

	QVector<ColorStop> stops;
	stops.reserve(steps + 1);
	// Stop colours are kept as opaque RGB colours with 8-bit channels, as the colour map editor
	// shows them; colours in RGB form also compare equal to the ones read back from XML.
	stops.append(ColorStop(0, QColor(firstColor.rgb())));
	for (int i = 1; i < steps; ++i) {
		const double w = static_cast<double>(i) / steps;
		const QColor c = QColor::fromHsvF(h1 + w*(h2 - h1), s1 + w*(s2 - s1), v1 + w*(v2 - v1), 1.0);
		stops.append(ColorStop(w, QColor(c.rgb())));
	}
	stops.append(ColorStop(1, QColor(lastColor.rgb())));
	m_linearColorStops.swap(stops);
}


void ColorMap::readXML(const TiXmlElement * element) {
	FUNCID(ColorMap::readXML);
	try {
		ColorMap map(*this);
		const TiXmlElement * typeElement = element->FirstChildElement("Type");
		if (typeElement != nullptr) {
			const std::string type = XMLValueReader::elementText(typeElement);
			if (type == "LinearMap")
				map.m_type = LinearMap;
			else if (type == "AlphaMap")
				map.m_type = AlphaMap;
			else
				throw ZEB::Exception(ZEB::MessageFormat("Unknown color map type '%1'.").arg(type), FUNC_ID);
		}

		const TiXmlElement * stopsElement = element->FirstChildElement("ColorStops");
		if (stopsElement != nullptr) {
			QVector<ColorStop> stops;
			for (const TiXmlElement * e = stopsElement->FirstChildElement("ColorStop"); e != nullptr;
				 e = e->NextSiblingElement("ColorStop"))
			{
				const char * indexText = e->Attribute("index");
				if (indexText == nullptr)
					throw ZEB::Exception("Expected 'index' attribute in Series.", FUNC_ID);
				const char * posText = e->Attribute("position");
				if (posText == nullptr)
					throw ZEB::Exception("Expected 'position' attribute in Series.", FUNC_ID);
				const char * colorText = e->Attribute("color");
				if (colorText == nullptr)
					throw ZEB::Exception("Expected 'color' attribute in Series.", FUNC_ID);

				const int index = XMLValueReader::parseInt(indexText, "attribute 'index' of element 'ColorStop'");
				if (index != stops.size())
					throw ZEB::Exception(ZEB::MessageFormat("Color stop index %1 out of order, expected %2.")
										 .arg(index).arg(stops.size()), FUNC_ID);
				const double pos = XMLValueReader::parseDouble(posText, "attribute 'position' of element 'ColorStop'");
				// positions must rise within 0..1, the colour map of the plot relies on it
				const double previous = stops.isEmpty() ? 0.0 : stops.back().m_pos;
				if (!(pos >= previous && pos <= 1.0))
					throw ZEB::Exception(ZEB::MessageFormat("Color stop position %1 out of order or outside 0..1.")
										 .arg(pos), FUNC_ID);
				stops.append(ColorStop(pos, XMLValueReader::parseColor(colorText, "attribute 'color' of element 'ColorStop'")));
			}
			if (stops.size() < 2 || stops.front().m_pos != 0.0 || stops.back().m_pos != 1.0)
				throw ZEB::Exception("A color map needs at least two color stops, the first at position 0 "
									 "and the last at position 1.", FUNC_ID);
			map.m_linearColorStops.swap(stops);
		}

		XMLValueReader(element).readColor("AlphaColor", map.m_alphaColor);
		*this = map;
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Error reading ColorMap.", FUNC_ID);
	}
}


void ColorMap::writeXML(TiXmlElement * element) const {
	XMLValueWriter::appendElement(element, "Type", m_type == AlphaMap ? "AlphaMap" : "LinearMap");
	TiXmlElement * stopsElement = new TiXmlElement("ColorStops");
	element->LinkEndChild(stopsElement);
	for (int i = 0; i < m_linearColorStops.size(); ++i) {
		TiXmlElement * e = new TiXmlElement("ColorStop");
		stopsElement->LinkEndChild(e);
		e->SetAttribute("index", i);
		e->SetAttribute("position", XMLValueWriter::doubleText(m_linearColorStops[i].m_pos));
		e->SetAttribute("color", XMLValueWriter::colorText(m_linearColorStops[i].m_color));
	}
	XMLValueWriter::appendElement(element, "AlphaColor", XMLValueWriter::colorText(m_alphaColor));
}


bool ColorMap::operator==(const ColorMap & other) const {
	return m_type == other.m_type && m_alphaColor == other.m_alphaColor
			&& m_linearColorStops == other.m_linearColorStops;
}


void ColorMap::registerMetaType() {
	qRegisterMetaType<SCI::ColorMap>("SCI::ColorMap");
	if (!QMetaType::hasRegisteredComparators<SCI::ColorMap>())
		QMetaType::registerEqualsComparator<SCI::ColorMap>();
}

} // namespace SCI
