#ifndef Sci_XMLValueReaderH
#define Sci_XMLValueReaderH

#include <string>

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QPen>
#include <QString>
#include <QStringList>

class TiXmlElement;

namespace SCI {

/*! Reads property values from the child elements and attributes of one XML element.
	Each read function looks for the named child (or attribute); when it is present its text is
	parsed into the value and true is returned, otherwise the value is left as it is and false
	is returned. Text that cannot be parsed raises a ZEB::Exception naming the element, so that
	corrupt files give a clear message instead of silently wrong charts.
*/
class XMLValueReader {
public:
	explicit XMLValueReader(const TiXmlElement * element);

	bool readBool(const char * name, bool & value) const;
	bool readInt(const char * name, int & value) const;
	bool readUInt(const char * name, unsigned int & value) const;
	bool readDouble(const char * name, double & value) const;
	bool readString(const char * name, QString & value) const;
	bool readColor(const char * name, QColor & value) const;
	bool readFont(const char * name, QFont & value) const;
	/*! Milliseconds since the epoch, given the time spec timeSpec. */
	bool readDateTime(const char * name, Qt::TimeSpec timeSpec, QDateTime & value) const;
	/*! Split at line feeds, empty entries kept. */
	bool readStringList(const char * name, QStringList & value) const;
	/*! Reads whichever of the three pen values are present. */
	void readPen(const char * widthName, const char * styleName, const char * colorName, QPen & value) const;

	/*! Reads a bool attribute of the element itself. */
	bool readBoolAttribute(const char * name, bool & value) const;

	/*! The text of an element, empty when it has none. */
	static std::string elementText(const TiXmlElement * element);

	/*! Parsers of the value encodings; context names the source in error messages. */
	static bool parseBool(const std::string & text, const std::string & context);
	static int parseInt(const std::string & text, const std::string & context);
	static unsigned int parseUInt(const std::string & text, const std::string & context);
	/*! Accepts "NaN" besides ordinary numbers. */
	static double parseDouble(const std::string & text, const std::string & context);
	static QColor parseColor(const std::string & text, const std::string & context);
	/*! A font equal to the default font gives the default font itself, which sets nothing. */
	static QFont parseFont(const std::string & text, const std::string & context);
	/*! Pen styles from Qt::NoPen to Qt::CustomDashLine. */
	static Qt::PenStyle parsePenStyle(const std::string & text, const std::string & context);

private:
	/*! The text of the named child, or false when there is no such child. */
	bool childText(const char * name, std::string & text) const;
	/*! "element 'name'", used as context of error messages. */
	static std::string elementContext(const char * name);

	const TiXmlElement *	m_element;
};

} // namespace SCI

#endif // Sci_XMLValueReaderH
