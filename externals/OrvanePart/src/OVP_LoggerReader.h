#ifndef OVP_LoggerReaderH
#define OVP_LoggerReaderH

#include "OVP_TableFileReader.h"

namespace OVP {

/*! Reader of the CSV exports of monitoring data loggers: an optional title line ("Plot Title:
	..."), a header whose first field is the record number column "#", then the date-time column
	("Date Time, GMT+01:00") and value columns "Quantity, unit (serial numbers)" whose label
	"LBL: name" names them. Event columns (words such as "Logged", or empty) are skipped with a
	message. Dates are month-first unless the values show otherwise.
*/
class LoggerReader : public TableFileReader {
public:
	std::string name() const override { return "Logger CSV export"; }
	std::vector<std::string> patterns() const override { return { "*.csv" }; }
	/*! Takes files with a "Plot Title:" line or a header of the record column "#" followed by
		a "Date Time" column within the first lines.
	*/
	bool accepts(const std::string & fileName, const std::string & head) const override;

protected:
	/*! Reads title, header and the first data lines. */
	TableLayout layout(TableFile & file) const override;
};

} // namespace OVP

#endif // OVP_LoggerReaderH
