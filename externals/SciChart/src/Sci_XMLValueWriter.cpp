#include "Sci_XMLValueWriter.h"

#include <cmath>

#include <QLocale>

#include <tinyxml.h>

namespace SCI {

XMLValueWriter::XMLValueWriter(TiXmlElement * element, bool writeAll) :
	m_element(element),
	m_writeAll(writeAll)
{
}


void XMLValueWriter::writeBool(const char * name, bool value, bool defaultValue) {
	if (needed(value == defaultValue))
		appendElement(m_element, name, boolText(value));
}


void XMLValueWriter::writeInt(const char * name, int value, int defaultValue) {
	if (needed(value == defaultValue))
		appendElement(m_element, name, std::to_string(value));
}


void XMLValueWriter::writeUInt(const char * name, unsigned int value, unsigned int defaultValue) {
	if (needed(value == defaultValue))
		appendElement(m_element, name, std::to_string(value));
}


void XMLValueWriter::writeDouble(const char * name, double value, double defaultValue) {
	if (needed(sameDouble(value, defaultValue)))
		appendElement(m_element, name, doubleText(value));
}


void XMLValueWriter::writePreciseDouble(const char * name, double value, double defaultValue) {
	if (needed(sameDouble(value, defaultValue)))
		appendElement(m_element, name, preciseDoubleText(value));
}


void XMLValueWriter::writeString(const char * name, const QString & value, const QString & defaultValue) {
	if (needed(value == defaultValue))
		appendElement(m_element, name, value.toStdString());
}


void XMLValueWriter::writeColor(const char * name, const QColor & value, const QColor & defaultValue) {
	if (needed(value == defaultValue))
		appendElement(m_element, name, colorText(value));
}


void XMLValueWriter::writeFont(const char * name, const QFont & value, const QFont & defaultValue) {
	if (needed(value == defaultValue))
		appendElement(m_element, name, fontText(value));
}


void XMLValueWriter::writeDateTime(const char * name, const QDateTime & value, const QDateTime & defaultValue) {
	if (needed(value == defaultValue))
		appendElement(m_element, name, std::to_string(value.toMSecsSinceEpoch()));
}


void XMLValueWriter::writeStringList(const char * name, const QStringList & value,
									 const QStringList & defaultValue)
{
	if (needed(value == defaultValue))
		appendElement(m_element, name, stringListText(value));
}


void XMLValueWriter::writePen(const char * widthName, const char * styleName, const char * colorName,
							  const QPen & value, const QPen & defaultValue)
{
	writeInt(widthName, value.width(), defaultValue.width());
	writeInt(styleName, static_cast<int>(value.style()), static_cast<int>(defaultValue.style()));
	writeColor(colorName, value.color(), defaultValue.color());
}


TiXmlElement * XMLValueWriter::appendElement(TiXmlElement * parent, const char * name, const std::string & text) {
	TiXmlElement * e = new TiXmlElement(name);
	parent->LinkEndChild(e);
	e->LinkEndChild(new TiXmlText(text));
	return e;
}


std::string XMLValueWriter::boolText(bool value) {
	return value ? "1" : "0";
}


std::string XMLValueWriter::doubleText(double value) {
	if (std::isnan(value))
		return "NaN";
	// QString::number never uses the locale, unlike the C library's formatting functions
	return QString::number(value, 'g', QLocale::FloatingPointShortest).toStdString();
}


std::string XMLValueWriter::preciseDoubleText(double value) {
	if (std::isnan(value))
		return "NaN";
	return QString::number(value, 'g', 17).toStdString();
}


std::string XMLValueWriter::colorText(const QColor & value) {
	const QRgba64 c = value.rgba64();
	// a 16-bit channel holds an 8-bit value v as v*0x101
	auto is8Bit = [](quint16 v) { return (v >> 8) == (v & 0xFF); };
	const bool opaque = c.alpha() == 0xFFFF;
	if (is8Bit(c.red()) && is8Bit(c.green()) && is8Bit(c.blue()) && is8Bit(c.alpha()))
		return value.name(opaque ? QColor::HexRgb : QColor::HexArgb).toStdString();
	if (opaque)
		return QString::asprintf("#%04x%04x%04x", c.red(), c.green(), c.blue()).toStdString();
	// no text form holds 16-bit channels together with alpha; the alpha is kept, the channels
	// are rounded to 8 bits
	return value.name(QColor::HexArgb).toStdString();
}


std::string XMLValueWriter::fontText(const QFont & value) {
	return value.toString().toStdString();
}


std::string XMLValueWriter::stringListText(const QStringList & value) {
	return value.join(QChar('\n')).toStdString();
}


bool XMLValueWriter::sameDouble(double a, double b) {
	return a == b || (std::isnan(a) && std::isnan(b));
}

} // namespace SCI
