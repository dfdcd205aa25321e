#ifndef DATAIO_DataIOWriterH
#define DATAIO_DataIOWriterH

#include <cstddef>
#include <fstream>
#include <string>

namespace DATAIO {

class DataIO;

/*! Writes output files in every variant: generation 6 ASCII and binary, and generation 5 ASCII
	and binary with embedded geometry. The header comes from a container; records are appended
	one by one, so that a file can grow while others read it (flush() makes the records written
	so far visible). ASCII numbers are written in shortest round-trip form, binary ones as their
	8 bytes, so reading the file back gives the same values bit for bit.
*/
class DataIOWriter {
public:
	DataIOWriter() = default;
	DataIOWriter(const DataIOWriter &) = delete;
	DataIOWriter & operator=(const DataIOWriter &) = delete;

	/*! Creates the file and writes the header of the container. The variant follows
		header.isBinary(); a major file version below 6 selects generation 5, which embeds
		header.geometry() and therefore needs one. Header texts that the chosen variant cannot
		hold (line breaks or surrounding blanks in ASCII, lengths above the binary maxima, a
		creation time that is not "YYYY-MM-DD HH:MM:SS" in binary) are rejected.
	*/
	void open(const std::string & filename, const DataIO & header);

	/*! Appends one record; count must equal the number of values the header defines. */
	void appendRecord(double timePoint, const double * values, std::size_t count);

	/*! Hands the records written so far to the operating system. */
	void flush();

	/*! Flushes and closes the file; throws when writing failed. */
	void close();

	/*! Writes a whole container: its header and all time points with their values (loading
		them where necessary).
	*/
	static void write(const std::string & filename, DataIO & container);

private:
	/*! The header text of the ASCII variants. */
	static std::string asciiHeader(const DataIO & header, bool preV6);
	/*! The header bytes of the binary variants. */
	static std::string binaryHeader(const DataIO & header, bool preV6);

	std::ofstream	m_out;
	std::string		m_filename;
	bool			m_binary = false;
	std::size_t		m_nValues = 0;
	std::string		m_line;		///< reused buffer of one ASCII record
};

} // namespace DATAIO

#endif // DATAIO_DataIOWriterH
