#ifndef OVP_FileReaderH
#define OVP_FileReaderH

#include <string>
#include <vector>

namespace ZEB {
class NotificationHandler;
}

namespace DATAIO {
class DataIO;
}

namespace OVP {

/*! Reader of one kind of foreign data file (a CSV table, a logger export, a climate file...).
	It recognises its files by name and first bytes, reads their header quickly for the data
	manager, and reads the whole file on demand into an in-memory reference container: one time
	column and one data set per value column, each with its own quantity and unit
	(DATAIO::DataIO::setColumnProperties()). A missing value is stored as NaN: a gap, never a zero.

	Every failure is a ZEB::Exception that names the file and, where it applies, line and column.
	Readers hold no state, so one instance serves all files.
*/
class FileReader {
public:
	/*! Number of bytes at the start of a file that accepts() gets to see. */
	static constexpr std::size_t HEAD_SIZE = 4096;

	virtual ~FileReader() = default;

	/*! Short name of the format for messages and lists, e.g. "CSV/TSV table". */
	virtual std::string name() const = 0;
	/*! File name patterns of the format, e.g. "*.csv"; the data manager offers such files. */
	virtual std::vector<std::string> patterns() const = 0;
	/*! True when the reader takes the file: its name matches one of the patterns (checked by the
		caller) and head, the first HEAD_SIZE bytes of the file (fewer for a short file), look
		like the format.
	*/
	virtual bool accepts(const std::string & fileName, const std::string & head) const = 0;
	/*! Reads the header alone into an empty container: output type T_REFERENCE, data format
		DF_2D, file name, quantity, one column number per data set with quantity and unit, time
		unit and start year; no time points. Reads only as much of the file as that needs.
	*/
	virtual void readHeader(const std::string & fileName, DATAIO::DataIO & container) const = 0;
	/*! Reads the whole file into an empty container: the header as readHeader() fills it, then
		all time points and values. Reports the fraction read to notification when given.
	*/
	virtual void read(const std::string & fileName, DATAIO::DataIO & container,
					  ZEB::NotificationHandler * notification = nullptr) const = 0;
};

} // namespace OVP

#endif // OVP_FileReaderH
