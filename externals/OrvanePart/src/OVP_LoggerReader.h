#ifndef OVP_LoggerReaderH
#define OVP_LoggerReaderH

#include "OVP_FileReader.h"

namespace OVP {

class TableFile;
struct TableLayout;

/*! Reader of the CSV exports of monitoring data loggers: an optional title line ("Plot Title:
	..."), a header whose first field is the record number column "#", then the date-time column
	("Date Time, GMT+01:00") and value columns "Quantity, unit (serial numbers)" whose label
	"LBL: name" names them. Event columns (words such as "Logged", or empty) are skipped with a
	message. Dates are month-first unless the values show otherwise.
*/
class LoggerReader : public FileReader {
public:
	std::string name() const override { return "Logger CSV export"; }
	std::vector<std::string> patterns() const override { return { "*.csv" }; }
	/*! Takes files with a "Plot Title:" line or a header of the record column "#" followed by
		a "Date Time" column within the first lines.
	*/
	bool accepts(const std::string & fileName, const std::string & head) const override;
	void readHeader(const std::string & fileName, DATAIO::DataIO & container) const override;
	void read(const std::string & fileName, DATAIO::DataIO & container,
			  ZEB::NotificationHandler * notification = nullptr) const override;

private:
	/*! Reads title, header and the first data lines. */
	static TableLayout layout(TableFile & file);
};

} // namespace OVP

#endif // OVP_LoggerReaderH
