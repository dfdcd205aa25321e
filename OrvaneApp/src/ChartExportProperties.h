#ifndef ChartExportPropertiesH
#define ChartExportPropertiesH

#include <QString>
#include <QStringList>

/*! One chart export request of the command line: which chart (mapper) to export, in which size
	and to which file. Requests are written "n:widthxheight:filename", with the one-based chart
	number n, e.g. "2:800x600:diagram1.pdf"; the file type follows from the extension.
*/
class ChartExportProperties {
public:
	/*! Parses a request into this object. Throws ZEB::Exception for a malformed request (wrong
		number of fields, dimensions that are not two integers of at least 1, a chart number that
		is not an integer or below 1); the object is unchanged then.
	*/
	void parse(const QString & request);

	/*! Splits the content of an export specification file into lines, each trimmed of surrounding
		white space. The line end of the last line does not start another (empty) line, so a file
		"a\nb\n" has the two lines "a" and "b"; empty lines elsewhere are kept.
	*/
	static QStringList specFileLines(const QString & content);

	/*! Zero-based index of the mapper whose chart is exported. */
	int		m_mapperIndex = -1;
	/*! Size of the exported chart in pixels. */
	int		m_width = 0;
	int		m_height = 0;
	/*! Target file, taken as written. */
	QString	m_fileName;
};

#endif // ChartExportPropertiesH
