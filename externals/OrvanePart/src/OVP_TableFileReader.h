#ifndef OVP_TableFileReaderH
#define OVP_TableFileReaderH

#include "OVP_FileReader.h"

namespace OVP {

class TableFile;
struct TableLayout;

/*! Base of the readers of delimited text tables (CSV/TSV tables, logger exports). They differ
	only in how they read the first lines of a file (layout()); the header of the container and the
	data lines (TableBody) are read alike.
*/
class TableFileReader : public FileReader {
public:
	void readHeader(const std::string & fileName, DATAIO::DataIO & container) const override;
	void read(const std::string & fileName, DATAIO::DataIO & container,
			  ZEB::NotificationHandler * notification = nullptr) const override;

protected:
	/*! Reads the lines before the data and the first data lines; throws ZEB::Exception naming
		file and line when they do not have the reader's form.
	*/
	virtual TableLayout layout(TableFile & file) const = 0;
};

} // namespace OVP

#endif // OVP_TableFileReaderH
