#ifndef Sci_XMLValueWriterH
#define Sci_XMLValueWriterH

#include <string>

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QPen>
#include <QString>
#include <QStringList>

class TiXmlElement;

namespace SCI {

/*! Appends property values as child elements with text to one XML element.
	A value equal to its default is skipped unless the write-all flag is set, so that chart XML
	holds only what the user changed. Also provides the text encodings of all value types
	(bool "1"/"0", colours see colorText(), fonts in QFont::toString() form, NaN as "NaN", ...).
*/
class XMLValueWriter {
public:
	/*! Writes into element; writeAll disables the default suppression. */
	XMLValueWriter(TiXmlElement * element, bool writeAll);

	void writeBool(const char * name, bool value, bool defaultValue);
	void writeInt(const char * name, int value, int defaultValue);
	void writeUInt(const char * name, unsigned int value, unsigned int defaultValue);
	/*! Double in the shortest form that reads back to the same value; NaN equals NaN here. */
	void writeDouble(const char * name, double value, double defaultValue);
	/*! Double with 17 significant digits. */
	void writePreciseDouble(const char * name, double value, double defaultValue);
	void writeString(const char * name, const QString & value, const QString & defaultValue);
	void writeColor(const char * name, const QColor & value, const QColor & defaultValue);
	void writeFont(const char * name, const QFont & value, const QFont & defaultValue);
	/*! Date-time as milliseconds since the epoch. */
	void writeDateTime(const char * name, const QDateTime & value, const QDateTime & defaultValue);
	/*! Entries joined by line feeds. */
	void writeStringList(const char * name, const QStringList & value, const QStringList & defaultValue);
	/*! A pen as three values (width, style, colour), each compared with the default pen's. */
	void writePen(const char * widthName, const char * styleName, const char * colorName,
				  const QPen & value, const QPen & defaultValue);

	/*! Appends a child element with the given text to parent and returns it. */
	static TiXmlElement * appendElement(TiXmlElement * parent, const char * name, const std::string & text);

	static std::string boolText(bool value);
	static std::string doubleText(double value);
	static std::string preciseDoubleText(double value);
	/*! The shortest of the forms QColor::setNamedColor() reads back to the same colour:
		"#rrggbb" for an opaque colour with 8-bit channels, "#aarrggbb" for one with alpha,
		"#rrrrggggbbbb" for an opaque colour with 16-bit channels.
	*/
	static std::string colorText(const QColor & value);
	static std::string fontText(const QFont & value);
	static std::string stringListText(const QStringList & value);

	/*! Equality of doubles that treats two NaN values as equal. */
	static bool sameDouble(double a, double b);

private:
	/*! True when the value must be written. */
	bool needed(bool isDefault) const { return m_writeAll || !isDefault; }

	TiXmlElement *	m_element;
	bool			m_writeAll;
};

} // namespace SCI

#endif // Sci_XMLValueWriterH
