#ifndef OVP_ChartDataTextH
#define OVP_ChartDataTextH

#include <QList>
#include <QString>

namespace OVP {

class ChartDataTable;
class Settings;

/*! A chart data table (or a part of it) as delimited text, for the clipboard and for CSV and
	TSV files: optional header lines ("Title [unit]", or the titles on one line and "[unit]" on
	the next), then one line per row. Numbers are written in their shortest form that reads back
	to the same value, with a decimal comma in German format; gaps are empty fields. Fields that
	hold the delimiter, a double quote or a line break are quoted, inner quotes doubled (RFC 4180).
*/
class ChartDataText {
public:
	/*! How the text is written. */
	struct Format {
		QChar	m_delimiter = '\t';
		bool	m_headers = true;
		bool	m_germanFormat = false;
		bool	m_separateUnitLines = false;
		QString	m_lineEnd = "\n";
	};

	/*! The export settings (headers, German format, units on lines of their own) with a tab as
		delimiter, for the clipboard.
	*/
	static Format clipboardFormat(const Settings & settings);
	/*! The export settings for a file: tab-separated for the extensions ".tsv", ".tab" and
		".txt", otherwise CSV with "," (";" in German format); lines end with CR LF.
	*/
	static Format fileFormat(const Settings & settings, const QString & fileName);

	/*! The rows and columns given (in table order, each once) as text. */
	static QString text(const ChartDataTable & table, const QList<int> & rows, const QList<int> & columns,
						const Format & format);
	/*! The whole table as text. */
	static QString text(const ChartDataTable & table, const Format & format);

	/*! Writes the whole table to a file, through a temporary file beside it that replaces the
		target only when everything is written. Throws ZEB::Exception naming the file when it
		cannot be written; the target is then unchanged.
	*/
	static void writeFile(const ChartDataTable & table, const QString & fileName, const Format & format);

	/*! A number in its shortest exact form ("0.1", "1e-07"), with a decimal comma in German
		format; empty for NaN.
	*/
	static QString number(double value, bool germanFormat);

private:
	/*! A field as written: quoted when it holds the delimiter, a quote or a line break. */
	static QString field(const QString & text, QChar delimiter);
};

} // namespace OVP

#endif // OVP_ChartDataTextH
