#ifndef SD_OutputFileH
#define SD_OutputFileH

#include <memory>
#include <string>
#include <vector>

#include <DATAIO_DataIOWriter.h>

namespace DATAIO {
class DataIO;
}

namespace SD {

/*! One output of the simulation, written to several files at once: each file is one variant
	(generation 6 or 5, ASCII or binary) with its own header and time unit. Values are rounded
	to 10 significant digits before they are written, as simulation programs print them, so the
	ASCII and binary files of an output hold exactly the same numbers. Records are streamed to
	disk, so outputs of any size can be written.
*/
class OutputFile {
public:
	/*! Significant digits of the values written. */
	static constexpr int SIGNIFICANT_DIGITS = 10;

	/*! Creates a file and writes its header; the header's time unit must be "h" or "s". Throws
		when the file cannot be written.
	*/
	void addFile(const std::string & path, const DATAIO::DataIO & header);
	/*! True when no file has been added (an output that was not selected). */
	bool isEmpty() const { return m_files.empty(); }

	/*! Appends one record to every file: time in hours since the start of the first year. */
	void append(double hours, const std::vector<double> & values);

	/*! Closes all files; throws when writing one of them failed. */
	void close();

private:
	/*! One file of the output. */
	struct File {
		std::unique_ptr<DATAIO::DataIOWriter>	m_writer;
		double									m_unitsPerHour;	///< 1 for "h", 3600 for "s"
	};

	std::vector<File>		m_files;
	std::vector<double>		m_rounded;	///< reused buffer of the rounded values
};

} // namespace SD

#endif // SD_OutputFileH
