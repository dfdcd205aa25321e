#ifndef DATAIO_DataIOH
#define DATAIO_DataIOH

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "DATAIO_MappedFile.h"
#include "DATAIO_ValueStore.h"

namespace ZEB {
class NotificationHandler;
}

namespace DATAIO {

class GeoFile;
class LineReader;

/*! One simulation output file in memory: the header that tells what was recorded, the list of
	time points, and the values of each time point, which are loaded when first asked for.

	Reads generation-6 files (ASCII "S6OAQXV!" and binary "S6OBQXV!") and generation-5 files
	(ASCII and binary, with the construction geometry embedded). The data file readers fill the
	same container in memory through the setters and setData().

	A file that a running simulation is still writing can be followed with refresh(), which
	re-reads the header and appends the records written since the last read without reading
	the earlier ones again. Records are only taken once they are complete: a binary record once
	all its bytes are there, an ASCII line with its line end. An ASCII last line without line end
	is held back (and the log says so) until a refresh finds the file unchanged and the line
	holding all its values, or an explicit refresh takes it; should the file grow after that, the
	line is read again.

	An ASCII file is mapped into memory and only the position of each time point's values is
	kept; data() parses them from the mapping when first asked for, dataVector() parses all of
	them on several threads. A file cut short after it was read gives a clear error (and
	refresh() reads it anew); one that is rewritten in place may give other values until the next
	refresh() notices the change, as a binary file does.

	A container is used by one thread at a time: even data() changes it.
*/
class DataIO {
public:
	/*! What the values are: values in elements, fluxes across sides, or columns of a reference. */
	enum OutputType {
		T_FIELD,
		T_FLUX,
		T_REFERENCE,
		NUM_T		///< undetermined
	};

	/*! How values were combined over space. */
	enum SpaceType {
		ST_SINGLE,
		ST_MEAN,
		ST_INTEGRAL,
		NUM_ST		///< undetermined
	};

	/*! How values were combined over time. */
	enum TimeType {
		TT_NONE,
		TT_MEAN,
		TT_INTEGRAL,
		NUM_TT		///< undetermined
	};

	/*! Shape of the values of one time point. */
	enum DataFormat {
		DF_2D,		///< one value per time point
		DF_3D,		///< values along one space direction
		DF_4D,		///< values over a 2D grid
		DF_5D,		///< values over a 3D grid
		NUM_DF		///< undetermined
	};

	/*! What refresh() found. */
	enum RefreshResult {
		RR_UNCHANGED,	///< no new complete records
		RR_APPENDED,	///< new time points were appended, or the last one was read again
		RR_RELOADED		///< the file was replaced or rewritten and has been read again
	};

	/*! Who asks for a refresh(). */
	enum RefreshMode {
		RM_FOLLOW,		///< following a growing file: an ASCII last line without line end waits
		RM_EXPLICIT		///< the user's refresh: an ASCII last line without line end is taken
	};

	/*! Magic characters of the generation-6 ASCII and binary output files. */
	static const char * const MAGIC_ASCII;
	static const char * const MAGIC_BINARY;
	/*! Text the first 40 bytes of a generation-5 file contain, and the mark of its binary variant. */
	static const char * const PRE_V6_TITLE;
	static const char * const PRE_V6_BINARY_MARK;
	/*! The generation-6 version written by this program. */
	static constexpr unsigned int MAJOR_FILE_VERSION = 6;
	static constexpr unsigned int MINOR_FILE_VERSION = 0;
	/*! Version assigned to generation-5 files, which carry no version number. */
	static constexpr unsigned int PRE_V6_MAJOR_FILE_VERSION = 5;
	/*! Largest lengths of the binary header fields. */
	static constexpr unsigned int MAX_FILENAME_LENGTH = 10000;
	static constexpr unsigned int MAX_QUANTITY_LENGTH = 500000;
	static constexpr unsigned int MAX_UNIT_LENGTH = 100;
	static constexpr unsigned int MAX_NUMS = 1000000;
	/*! Most bytes one line of an ASCII file may hold (line end not counted): MAX_NUMS values of
		32 characters each, which leaves room for the longest double text (24 characters) and its
		separators. Header lines are shorter still (MAX_NUMS numbers, or MAX_QUANTITY_LENGTH
		characters).
	*/
	static constexpr std::size_t MAX_LINE_LENGTH = std::size_t(32)*MAX_NUMS;

	/*! Header keywords of the ASCII variants. */
	static const char * const KW_TYPE;
	static const char * const KW_PROJECT_FILE;
	static const char * const KW_GEO_FILE_HASH;
	static const char * const KW_GEO_FILE;
	static const char * const KW_CREATED;
	static const char * const KW_QUANTITY_KW;
	static const char * const KW_QUANTITY;
	static const char * const KW_SPACE_TYPE;
	static const char * const KW_TIME_TYPE;
	static const char * const KW_VALUE_UNIT;
	static const char * const KW_TIME_UNIT;
	static const char * const KW_START_YEAR;
	/*! Start year of a container whose file does not name one. */
	static constexpr std::int32_t UNSET_START_YEAR = -10000;
	static const char * const KW_INDICES;
	static const char * const KW_TABLE;
	static const char * const KW_ELEMENTS;
	static const char * const KW_SIDES;

	/*! Display text of a data format, e.g. "2D [time, value]"; "undetermined" for NUM_DF. */
	static const char * dataFormatText(DataFormat format);
	/*! Header keywords of the enumerations ("FIELD", "MEAN", ...); "UNDEFINED" when undetermined. */
	static const char * outputTypeKeyword(OutputType type);
	static const char * spaceTypeKeyword(SpaceType type);
	static const char * timeTypeKeyword(TimeType type);
	/*! Values per time point that a header defines: 1 for MEAN and INTEGRAL outputs that are not
		references, else one per element or side number.
	*/
	static std::size_t valueCount(OutputType type, SpaceType spaceType, std::size_t numberCount);

	DataIO();
	~DataIO();
	DataIO(const DataIO &) = delete;
	DataIO & operator=(const DataIO &) = delete;
	DataIO(DataIO &&) noexcept;
	DataIO & operator=(DataIO &&) noexcept;

	/*! Resets everything to an empty container. */
	void clear();

	/*! Reads a file: its header (openAndReadHeader()), then the time points of its data section.
		Values are loaded later by data(). The notification handler, when given, receives the
		fraction of the file read so far. Every failure is wrapped in "Error reading DataIO file".
	*/
	void read(const std::string & filename, ZEB::NotificationHandler * notification = nullptr);

	/*! Reads the header of a file alone (the container is cleared first and has no time points
		afterwards).
	*/
	void openAndReadHeader(const std::string & filename);

	/*! Follows a file that is still being written. Re-reads the header; when the file is still
		the one read before (same header, not shorter, the bytes before the end of the last
		record taken unchanged), only the bytes appended since the last read are read and their
		time points appended. Otherwise the file is read again from the start. Values loaded so
		far stay loaded. Pointers returned by data() and dataVector() become invalid.
		An ASCII last line without line end is taken by an explicit refresh, and by one that
		finds the file unchanged when the line holds a time point and all its values.
	*/
	RefreshResult refresh(RefreshMode mode = RM_FOLLOW, ZEB::NotificationHandler * notification = nullptr);

	/*! The nValues() values of a time point, loaded on first request. The pointer stays valid
		until the container changes (refresh(), setData(), deleteData(), read(), clear()).
	*/
	const double * data(unsigned int timeIndex);

	/*! Loads all values, after checking that there are time points and that they increase, and
		returns them as one array: value i of time point t at index t*nValues() + i. Valid until
		the container changes, like data().
	*/
	const double * dataVector();

	/*! Replaces time points and values of an in-memory container; the number of values per time
		point becomes that of the value vectors.
	*/
	void setData(const std::vector<double> & timePoints, const std::vector<std::vector<double> > & values);
	/*! Replaces time points and values of an in-memory container from one row-major array:
		value i of time point t at values[t*valuesPerTimePoint + i] (what the data file readers
		collect). Both vectors are taken over, not copied.
	*/
	void setData(std::vector<double> && timePoints, std::size_t valuesPerTimePoint, std::vector<double> && values);

	/*! Removes the time points idxFrom to idxTo (both included) and their values. A container
		read from a file loads the values of the remaining time points first and is held in
		memory from then on (refresh() then reads the file anew).
	*/
	void deleteData(unsigned int idxFrom, unsigned int idxTo);

	/*! Decides and stores the data format from the positions of the listed elements (or sides of
		a flux output) in the geometry; null stands for no geometry. Failures set NUM_DF and throw.
	*/
	DataFormat determineDataFormat(const GeoFile * geometry);

	// header and data accessors

	const std::string & filename() const { return m_filename; }
	bool isBinary() const { return m_isBinary; }
	/*! The ELEMENTS, SIDES or INDICES list of the header. */
	const std::vector<std::uint32_t> & nums() const { return m_nums; }
	OutputType type() const { return m_type; }
	const std::string & projectFileName() const { return m_projectFileName; }
	const std::string & quantity() const { return m_quantity; }
	const std::string & quantityKeyword() const { return m_quantityKeyword; }
	/*! The names of the data sets of a reference output, one per column of nums(): the comma
		separated list after the first colon of the quantity when it names exactly one data set
		per column ("Climate: outdoor temperature [C], outdoor relative humidity [%]"); empty
		otherwise.
	*/
	std::vector<std::string> referenceDataSetNames() const;
	/*! Quantity of the data set in column position i of a reference output: the one a data file
		reader set for it, else the name referenceDataSetNames() gives, else quantity().
	*/
	std::string columnQuantity(std::size_t position) const;
	/*! Unit of the data set in column position i: the one a data file reader set for it, else
		valueUnit().
	*/
	const std::string & columnUnit(std::size_t position) const;
	/*! True when a data file reader set a quantity and unit for each column. */
	bool hasColumnProperties() const { return !m_columnUnits.empty(); }
	/*! Free text about the file's content (the comment lines of a table, a climate file's title). */
	const std::string & description() const { return m_description; }
	SpaceType spaceType() const { return m_spaceType; }
	TimeType timeType() const { return m_timeType; }
	const std::string & valueUnit() const { return m_valueUnit; }
	const std::string & timeUnit() const { return m_timeUnit; }
	const std::string & geoFileName() const { return m_geoFileName; }
	std::uint32_t geoFileHash() const { return m_geoFileHash; }
	std::int32_t startYear() const { return m_startYear; }
	const std::vector<double> & timePoints() const { return m_timePoints; }
	unsigned int majorFileVersion() const { return m_majorFileVersion; }
	unsigned int minorFileVersion() const { return m_minorFileVersion; }
	/*! CREATED, "YYYY-MM-DD HH:MM:SS" (UTC) for files written by this program, empty if unknown. */
	const std::string & createdTime() const { return m_createdTime; }
	/*! Number of values per time point. */
	unsigned int nValues() const { return m_nValues; }
	/*! Size of the file when it was last read. */
	std::uint64_t fileSize() const { return m_fileSize; }
	DataFormat dataFormat() const { return m_dataFormat; }
	/*! The geometry embedded in a generation-5 file, else null. */
	const GeoFile * geometry() const { return m_geometry.get(); }
	/*! File position of the first data record. */
	std::uint32_t dataSectionOffset() const { return m_dataSectionOffset; }
	/*! True when the values of the time point are in memory. */
	bool isLoaded(unsigned int timeIndex) const;
	/*! Most bytes a line of an ASCII file may hold; a longer line fails the read. */
	std::size_t maxLineLength() const { return m_maxLineLength; }
	/*! Sets the line limit (default MAX_LINE_LENGTH); it is kept by clear() and read(). */
	void setMaxLineLength(std::size_t bytes) { m_maxLineLength = bytes; }

	// header setters, for containers built in memory and for writing files; setters that
	// change the number of values per time point apply only to containers without time points

	void setFilename(const std::string & filename) { m_filename = filename; }
	void setBinary(bool binary) { m_isBinary = binary; }
	void setNums(const std::vector<std::uint32_t> & nums);
	void setType(OutputType type);
	void setProjectFileName(const std::string & name) { m_projectFileName = name; }
	void setQuantity(const std::string & quantity) { m_quantity = quantity; }
	void setQuantityKeyword(const std::string & keyword) { m_quantityKeyword = keyword; }
	void setSpaceType(SpaceType type);
	void setTimeType(TimeType type) { m_timeType = type; }
	void setValueUnit(const std::string & unit) { m_valueUnit = unit; }
	void setTimeUnit(const std::string & unit) { m_timeUnit = unit; }
	void setGeoFileName(const std::string & name) { m_geoFileName = name; }
	void setGeoFileHash(std::uint32_t hash) { m_geoFileHash = hash; }
	void setStartYear(std::int32_t year) { m_startYear = year; }
	/*! A major version below 6 makes the writer produce a generation-5 file. */
	void setFileVersion(unsigned int majorVersion, unsigned int minorVersion);
	void setCreatedTime(const std::string & created) { m_createdTime = created; }
	void setDataFormat(DataFormat format) { m_dataFormat = format; }
	/*! Sets the geometry that a generation-5 file embeds (may be null). */
	void setGeometry(std::unique_ptr<GeoFile> geometry);
	/*! Gives each data set of a reference output its own quantity and unit, one per entry of
		nums() (the data file readers do this; the simulation program's reference files have
		one value unit for all columns). Empty vectors remove them. Throws ZEB::Exception when a
		count differs from that of nums().
	*/
	void setColumnProperties(const std::vector<std::string> & quantities, const std::vector<std::string> & units);
	void setDescription(const std::string & description) { m_description = description; }

private:
	/*! Where the values of time points not yet loaded come from. */
	enum Source {
		SRC_MEMORY,		///< all values are in memory
		SRC_ASCII,		///< lines of the mapped file, at m_lineStart
		SRC_BINARY		///< records in the file
	};

	/*! What readASCIIData() does with a last line without line end. */
	enum LastLine {
		LL_HOLD_BACK,		///< leave it for a later read
		LL_TAKE_COMPLETE,	///< take it when it holds a time point and nValues() values
		LL_TAKE				///< take it
	};

	/*! read(), with the given treatment of an ASCII last line without line end. */
	void readFile(const std::string & filename, ZEB::NotificationHandler * notification, LastLine lastLine);
	void readASCIIHeader(std::istream & in, bool preV6);
	void readBinaryHeader(std::istream & in);
	void readBinaryHeaderPreV6(std::istream & in);
	/*! Reads the ASCII data lines from the end of the last read on. */
	void readASCIIData(ZEB::NotificationHandler * notification, LastLine lastLine);
	/*! The line loop of readASCIIData() over the mapped file. */
	void scanASCIILines(ZEB::NotificationHandler * notification, LastLine lastLine);
	/*! Takes or holds back (and reports) the reader's current line [begin, end), which begins at
		file position start and has no line end. True when it was taken.
	*/
	bool addLastLine(const LineReader & reader, const char * begin, const char * end, std::uint64_t start,
					 LastLine lastLine);
	/*! Removes the time point of a last line taken without line end, so that it is read again. */
	void dropOpenLine();
	/*! Reads the binary time points of the complete records not yet listed. */
	void readBinaryData(ZEB::NotificationHandler * notification);
	/*! Takes one ASCII data line (the reader's current line): its time point and the position of
		the rest.
	*/
	void addValueLine(const LineReader & reader, const char * begin, const char * end);
	/*! Parses the values of ASCII time point t from the mapped file straight into row, when its
		line holds exactly nValues() numbers in the usual notation; false otherwise (parseLine()
		then tells what is wrong).
	*/
	bool parseRow(std::size_t t, double * row) const;
	/*! Parses the values of ASCII time point t from the mapped file into values, with the general
		number parser. False when the file became shorter since it was read; a line that does not
		parse throws ZEB::Exception.
	*/
	bool parseLine(std::size_t t, std::vector<double> & values) const;
	/*! Parses the values of all ASCII time points not loaded yet, on several threads when there
		are many; lines that fail are left for data() to report.
	*/
	void parseAllAsciiValues(const char * funcId);
	/*! Throws the message for a file that became shorter since it was read. */
	[[noreturn]] void throwCutFile(const char * funcId) const;
	/*! Storage for the values of time point t; a failed allocation throws with funcId. */
	double * rowForWriting(std::size_t t, const char * funcId);
	/*! Loads all binary values that are missing with one sequential pass over the file; records
		that cannot be read are left for data() to report. Failures carry funcId.
	*/
	void loadAllBinaryValues(const char * funcId);
	/*! Checks the generation-5 embedded geometry (materials exist) and determines the format. */
	void checkEmbeddedGeometry();
	/*! Up to 64 bytes before file position end as they are in the file now (empty when they
		cannot be read); refresh() compares them to recognise a rewritten file.
	*/
	std::string tailBytes(std::uint64_t end) const;
	/*! Hash of the header bytes [0, data section offset) read from the stream. */
	std::uint64_t headerHash(std::istream & in) const;
	/*! Updates m_nValues after a header setter, for containers without time points. */
	void updateValueCount();

	std::string					m_filename;
	bool						m_isBinary = false;
	std::vector<std::uint32_t>	m_nums;
	OutputType					m_type = NUM_T;
	std::string					m_projectFileName;
	std::string					m_quantity;
	std::string					m_quantityKeyword;
	SpaceType					m_spaceType = NUM_ST;
	TimeType					m_timeType = NUM_TT;
	std::string					m_valueUnit;
	std::string					m_timeUnit;
	std::string					m_geoFileName;
	std::uint32_t				m_geoFileHash = 0;
	std::int32_t				m_startYear = UNSET_START_YEAR;
	std::vector<double>			m_timePoints;
	unsigned int				m_majorFileVersion = MAJOR_FILE_VERSION;
	unsigned int				m_minorFileVersion = MINOR_FILE_VERSION;
	std::string					m_createdTime;
	unsigned int				m_nValues = 0;
	/*! Values per time point, loaded ones marked. */
	ValueStore					m_values;
	/*! The ASCII file mapped into memory, and the file position of the values of each time point
		(the rest of its line after the time point).
	*/
	MappedFile					m_text;
	std::vector<std::uint64_t>	m_lineStart;
	std::uint64_t				m_fileSize = 0;
	DataFormat					m_dataFormat = NUM_DF;
	std::unique_ptr<GeoFile>	m_geometry;
	std::uint32_t				m_dataSectionOffset = 0;
	/*! Per-column quantities and units of a reference output filled by a data file reader. */
	std::vector<std::string>	m_columnQuantities;
	std::vector<std::string>	m_columnUnits;
	std::string					m_description;

	Source						m_source = SRC_MEMORY;
	/*! File position after the last complete line (ASCII) or the last record listed, as far as it
		existed (binary), when the data section was last read.
	*/
	std::uint64_t				m_consumedEnd = 0;
	/*! Up to 64 bytes before m_consumedEnd as they were when read. */
	std::string					m_tailSignature;
	/*! Hash of the header bytes, to recognise a replaced file. */
	std::uint64_t				m_headerHash = 0;
	/*! Number of lines before m_consumedEnd (ASCII). */
	std::uint64_t				m_linesConsumed = 0;
	/*! True when the last time point comes from a last line without line end, which began at
		m_openLineStart (ASCII).
	*/
	bool						m_hasOpenLine = false;
	std::uint64_t				m_openLineStart = 0;
	/*! Start of the last line that was reported as held back, so that it is reported once. */
	std::uint64_t				m_reportedHeldBack = 0;
	std::size_t					m_maxLineLength = MAX_LINE_LENGTH;
	/*! Reused buffer for the values of one ASCII line while they are parsed. */
	std::vector<double>			m_parseBuffer;
};

} // namespace DATAIO

#endif // DATAIO_DataIOH
