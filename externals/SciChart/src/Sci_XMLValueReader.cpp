#include "Sci_XMLValueReader.h"

#include <limits>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_StringUtils.h>

namespace SCI {

XMLValueReader::XMLValueReader(const TiXmlElement * element) :
	m_element(element)
{
}


bool XMLValueReader::readBool(const char * name, bool & value) const {
	std::string text;
	if (!childText(name, text))
		return false;
	value = parseBool(text, elementContext(name));
	return true;
}


bool XMLValueReader::readInt(const char * name, int & value) const {
	std::string text;
	if (!childText(name, text))
		return false;
	value = parseInt(text, elementContext(name));
	return true;
}


bool XMLValueReader::readUInt(const char * name, unsigned int & value) const {
	std::string text;
	if (!childText(name, text))
		return false;
	value = parseUInt(text, elementContext(name));
	return true;
}


bool XMLValueReader::readDouble(const char * name, double & value) const {
	std::string text;
	if (!childText(name, text))
		return false;
	value = parseDouble(text, elementContext(name));
	return true;
}


bool XMLValueReader::readString(const char * name, QString & value) const {
	std::string text;
	if (!childText(name, text))
		return false;
	value = QString::fromStdString(text);
	return true;
}


bool XMLValueReader::readColor(const char * name, QColor & value) const {
	std::string text;
	if (!childText(name, text))
		return false;
	value = parseColor(text, elementContext(name));
	return true;
}


bool XMLValueReader::readFont(const char * name, QFont & value) const {
	std::string text;
	if (!childText(name, text))
		return false;
	value = parseFont(text, elementContext(name));
	return true;
}


bool XMLValueReader::readDateTime(const char * name, Qt::TimeSpec timeSpec, QDateTime & value) const {
	FUNCID(XMLValueReader::readDateTime);
	std::string text;
	if (!childText(name, text))
		return false;
	long long ms = 0;
	try {
		ms = ZEB::string2val<long long>(text);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Invalid value '%1' in %2.")
							 .arg(text).arg(elementContext(name)), FUNC_ID);
	}
	QDateTime dt = QDateTime::fromMSecsSinceEpoch(ms, timeSpec);
	if (!dt.isValid())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid date-time '%1' in %2.")
							 .arg(text).arg(elementContext(name)), FUNC_ID);
	value = dt;
	return true;
}


bool XMLValueReader::readStringList(const char * name, QStringList & value) const {
	std::string text;
	if (!childText(name, text))
		return false;
	value = QString::fromStdString(text).split(QChar('\n'), Qt::KeepEmptyParts);
	return true;
}


void XMLValueReader::readPen(const char * widthName, const char * styleName, const char * colorName,
							 QPen & value) const
{
	FUNCID(XMLValueReader::readPen);
	int width = 0;
	if (readInt(widthName, width)) {
		if (width < 0)
			throw ZEB::Exception(ZEB::MessageFormat("Negative pen width %1 in %2.")
								 .arg(width).arg(elementContext(widthName)), FUNC_ID);
		value.setWidth(width);
	}
	std::string text;
	if (childText(styleName, text))
		value.setStyle(parsePenStyle(text, elementContext(styleName)));
	QColor color;
	if (readColor(colorName, color))
		value.setColor(color);
}


bool XMLValueReader::readBoolAttribute(const char * name, bool & value) const {
	const char * text = m_element->Attribute(name);
	if (text == nullptr)
		return false;
	value = parseBool(text, std::string("attribute '") + name + "' of element '" + m_element->Value() + "'");
	return true;
}


std::string XMLValueReader::elementText(const TiXmlElement * element) {
	const char * text = element->GetText();
	return text != nullptr ? std::string(text) : std::string();
}


bool XMLValueReader::parseBool(const std::string & text, const std::string & context) {
	FUNCID(XMLValueReader::parseBool);
	const std::string t = ZEB::trimmed(text);
	if (t == "1" || t == "true")
		return true;
	if (t == "0" || t == "false")
		return false;
	throw ZEB::Exception(ZEB::MessageFormat("Invalid value '%1' in %2, expected 1 or 0.")
						 .arg(text).arg(context), FUNC_ID);
}


int XMLValueReader::parseInt(const std::string & text, const std::string & context) {
	FUNCID(XMLValueReader::parseInt);
	try {
		return ZEB::string2val<int>(text);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Invalid value '%1' in %2.")
							 .arg(text).arg(context), FUNC_ID);
	}
}


unsigned int XMLValueReader::parseUInt(const std::string & text, const std::string & context) {
	FUNCID(XMLValueReader::parseUInt);
	try {
		return ZEB::string2val<unsigned int>(text);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Invalid value '%1' in %2.")
							 .arg(text).arg(context), FUNC_ID);
	}
}


double XMLValueReader::parseDouble(const std::string & text, const std::string & context) {
	FUNCID(XMLValueReader::parseDouble);
	if (ZEB::trimmed(text) == "NaN")
		return std::numeric_limits<double>::quiet_NaN();
	try {
		return ZEB::string2val<double>(text);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Invalid value '%1' in %2.")
							 .arg(text).arg(context), FUNC_ID);
	}
}


QColor XMLValueReader::parseColor(const std::string & text, const std::string & context) {
	FUNCID(XMLValueReader::parseColor);
	QColor color;
	color.setNamedColor(QString::fromStdString(ZEB::trimmed(text)));
	if (!color.isValid())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid colour '%1' in %2.")
							 .arg(text).arg(context), FUNC_ID);
	return color;
}


QFont XMLValueReader::parseFont(const std::string & text, const std::string & context) {
	FUNCID(XMLValueReader::parseFont);
	QFont font;
	if (!font.fromString(QString::fromStdString(text)))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid font '%1' in %2.")
							 .arg(text).arg(context), FUNC_ID);
	// a font that says no more than the default font (as written with all properties) is the
	// default font, which sets nothing: the plot then draws it in the font of its widget (the
	// bold chart title), as it does when the font was not written at all
	if (font == QFont())
		return QFont();
	return font;
}


Qt::PenStyle XMLValueReader::parsePenStyle(const std::string & text, const std::string & context) {
	FUNCID(XMLValueReader::parsePenStyle);
	int style = parseInt(text, context);
	if (style < static_cast<int>(Qt::NoPen) || style > static_cast<int>(Qt::CustomDashLine))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid pen style %1 in %2.")
							 .arg(style).arg(context), FUNC_ID);
	return static_cast<Qt::PenStyle>(style);
}


bool XMLValueReader::childText(const char * name, std::string & text) const {
	const TiXmlElement * child = m_element->FirstChildElement(name);
	if (child == nullptr)
		return false;
	text = elementText(child);
	return true;
}


std::string XMLValueReader::elementContext(const char * name) {
	return std::string("element '") + name + "'";
}

} // namespace SCI
