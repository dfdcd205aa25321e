#ifndef OVP_TableReaderH
#define OVP_TableReaderH

#include "OVP_TableFileReader.h"

namespace OVP {

/*! Reader of CSV and TSV tables: "#" comment lines (the description), a header row with one
	"Name [unit]" per column, optionally a row of units, then one line per time point. The
	delimiter (tab, ";" or ",") and the decimal separator are found per file; the first column is
	the time, a number in the header's time unit (default "h") or a date-time text.
*/
class TableReader : public TableFileReader {
public:
	std::string name() const override { return "CSV/TSV table"; }
	std::vector<std::string> patterns() const override { return { "*.csv", "*.tsv", "*.txt" }; }
	/*! Takes any text file named *.csv or *.tsv; a *.txt file only when its first lines look like
		a table (a header of two or more columns, then a line beginning with a time).
	*/
	bool accepts(const std::string & fileName, const std::string & head) const override;

	/*! True when the text is a number or a date-time: the first field of a data line. */
	static bool isTimeText(const std::string & text);
	/*! The file name without folder and extension: the name of a collection without title. */
	static std::string collectionName(const std::string & fileName);

protected:
	/*! Reads the comment lines, the header, an optional unit row and the first data lines. */
	TableLayout layout(TableFile & file) const override;
};

} // namespace OVP

#endif // OVP_TableReaderH
