#include "DATAIO_DataIO.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_NotificationHandler.h>
#include <ZEB_StringUtils.h>

#include "DATAIO_BinaryReader.h"
#include "DATAIO_CreationTime.h"
#include "DATAIO_GeoFile.h"
#include "DATAIO_LineReader.h"
#include "DATAIO_Tokenizer.h"
#include "DATAIO_Version.h"

namespace DATAIO {

const char * const DataIO::MAGIC_ASCII = "S6OAQXV!";
const char * const DataIO::MAGIC_BINARY = "S6OBQXV!";
const char * const DataIO::PRE_V6_TITLE = "Soravi 5 Output file";
const char * const DataIO::PRE_V6_BINARY_MARK = "- binary";

const char * const DataIO::KW_TYPE = "TYPE";
const char * const DataIO::KW_PROJECT_FILE = "PROJECT_FILE";
const char * const DataIO::KW_GEO_FILE_HASH = "GEO_FILE_HASH";
const char * const DataIO::KW_GEO_FILE = "GEO_FILE";
const char * const DataIO::KW_CREATED = "CREATED";
const char * const DataIO::KW_QUANTITY_KW = "QUANTITY_KW";
const char * const DataIO::KW_QUANTITY = "QUANTITY";
const char * const DataIO::KW_SPACE_TYPE = "SPACE_TYPE";
const char * const DataIO::KW_TIME_TYPE = "TIME_TYPE";
const char * const DataIO::KW_VALUE_UNIT = "VALUE_UNIT";
const char * const DataIO::KW_TIME_UNIT = "TIME_UNIT";
const char * const DataIO::KW_START_YEAR = "START_YEAR";
const char * const DataIO::KW_INDICES = "INDICES";
const char * const DataIO::KW_TABLE = "TABLE";
const char * const DataIO::KW_ELEMENTS = "ELEMENTS";
const char * const DataIO::KW_SIDES = "SIDES";

namespace {

/*! Length of the text block that starts a generation-5 file. */
const std::size_t PRE_V6_TITLE_LENGTH = 40;
/*! Number of bytes before the end of the last record that refresh() compares. */
const std::uint64_t TAIL_SIGNATURE_SIZE = 64;
/*! Size of the blocks in which binary data sections are read. */
const std::uint64_t BINARY_BLOCK_SIZE = std::uint64_t(4) << 20;
/*! Binary records from this size on are read with their values straight into place. */
const std::uint64_t SCATTER_MIN_RECORD_SIZE = 4096;
/*! Most parts of one scattered read (the usual IOV_MAX). */
const std::size_t MAX_READ_PARTS = 1024;
/*! Bytes of an ASCII data section between two progress notifications. */
const std::uint64_t ASCII_PROGRESS_STEP = std::uint64_t(4) << 20;
/*! Bytes of a mapped file scanned before the process lets go of their pages. */
const std::uint64_t MAPPED_RELEASE_STEP = std::uint64_t(32) << 20;
/*! Bytes of ASCII values parsed as one piece of work, and the least that is parsed on several
	threads.
*/
const std::uint64_t PARSE_CHUNK_SIZE = std::uint64_t(4) << 20;
const std::uint64_t PARALLEL_PARSE_MIN_SIZE = std::uint64_t(16) << 20;
/*! Most threads that parse ASCII values. */
const unsigned int MAX_PARSE_THREADS = 16;
/*! Size of the first block of an ASCII header, which is usually a few hundred bytes long. */
const std::size_t HEADER_BLOCK_SIZE = std::size_t(64) << 10;
/*! Verbosity level at which a held-back last line of a growing file is reported again. */
const int HELD_BACK_LEVEL = 2;
/*! Lines after which the ASCII reader estimates the line count of the rest of the file. */
const std::size_t LINES_BEFORE_ESTIMATE = 4096;
/*! Longest part of a faulty line quoted in an error message. */
const std::size_t MAX_QUOTED_LINE = 200;

/*! Opens a file for binary reading and determines its size. */
bool openFile(const std::string & filename, std::ifstream & in, std::uint64_t & size) {
	in.open(filename, std::ios::binary);
	if (!in)
		return false;
	in.seekg(0, std::ios::end);
	const std::streamoff end = in.tellg();
	in.seekg(0, std::ios::beg);
	if (end < 0 || !in)
		return false;
	size = static_cast<std::uint64_t>(end);
	return true;
}

/*! A file opened for reading with the system's calls, closed with the object; m_fd < 0 when it
	could not be opened.
*/
struct ReadOnlyFile {
	explicit ReadOnlyFile(const std::string & filename) : m_fd(::open(filename.c_str(), O_RDONLY | O_CLOEXEC)) {}
	~ReadOnlyFile() {
		if (m_fd >= 0)
			::close(m_fd);
	}
	ReadOnlyFile(const ReadOnlyFile &) = delete;
	ReadOnlyFile & operator=(const ReadOnlyFile &) = delete;

	/*! Reads up to size bytes from file position pos; returns the bytes read, fewer only at the
		end of the file or on an error.
	*/
	std::uint64_t read(char * buffer, std::size_t size, std::uint64_t pos) const {
		std::vector<iovec> parts(1, iovec{ buffer, size });
		return read(parts, pos);
	}

	/*! Reads into the parts one after the other from file position pos; returns the bytes read,
		fewer only at the end of the file or on an error. The parts are used up.
	*/
	std::uint64_t read(std::vector<iovec> & parts, std::uint64_t pos) const {
		std::uint64_t done = 0;
		std::size_t first = 0;
		while (first < parts.size()) {
			const ssize_t got = ::preadv(m_fd, parts.data() + first, static_cast<int>(parts.size() - first),
										 static_cast<off_t>(pos + done));
			if (got < 0 && errno == EINTR)
				continue;
			if (got <= 0)
				break;
			done += static_cast<std::uint64_t>(got);
			// a short read leaves the rest of the parts to the next call
			std::size_t left = static_cast<std::size_t>(got);
			while (first < parts.size() && left >= parts[first].iov_len)
				left -= parts[first++].iov_len;
			if (left > 0) {
				parts[first].iov_base = static_cast<char*>(parts[first].iov_base) + left;
				parts[first].iov_len -= left;
			}
		}
		return done;
	}

	int m_fd;
};

/*! A line for an error message, cut to a readable length. */
std::string quoted(const char * begin, const char * end) {
	const std::size_t len = static_cast<std::size_t>(end - begin);
	if (len <= MAX_QUOTED_LINE)
		return std::string(begin, end);
	return std::string(begin, MAX_QUOTED_LINE) + "...";
}

/*! True when the trimmed line starts with the keyword. */
bool startsWith(const std::string & line, const char * keyword) {
	return line.compare(0, std::strlen(keyword), keyword) == 0;
}

/*! True when the trimmed line is the ELEMENTS or SIDES line that ends a generation-5 header
	(and not the SIDES_GEOMETRY section keyword of an embedded geometry).
*/
bool isPreV6EndLine(const std::string & line) {
	for (const char * kw : { DataIO::KW_ELEMENTS, DataIO::KW_SIDES }) {
		const std::size_t len = std::strlen(kw);
		if (startsWith(line, kw) && (line.size() == len || line[len] != '_'))
			return true;
	}
	return false;
}

/*! Maps a stored enumeration number to the enumeration; numbers beyond it are undetermined. */
template <typename E>
E enumFromNumber(std::uint32_t v, E undetermined) {
	return v < static_cast<std::uint32_t>(undetermined) ? static_cast<E>(v) : undetermined;
}

/*! The enumeration value whose keyword the header value contains, else undetermined. */
template <typename E>
E enumFromText(const std::string & value, const char * const keywords[], E undetermined) {
	for (int i = 0; i < static_cast<int>(undetermined); ++i)
		if (value.find(keywords[i]) != std::string::npos)
			return static_cast<E>(i);
	return undetermined;
}

const char * const OUTPUT_TYPE_KEYWORDS[] = { "FIELD", "FLUX", "REFERENCE", "UNDEFINED" };
const char * const SPACE_TYPE_KEYWORDS[] = { "SINGLE", "MEAN", "INTEGRAL", "UNDEFINED" };
const char * const TIME_TYPE_KEYWORDS[] = { "NONE", "MEAN", "INTEGRAL", "UNDEFINED" };

/*! FNV-1a hash over a byte range, continuing from h. */
void hashBytes(std::uint64_t & h, const char * p, std::size_t n) {
	for (std::size_t i = 0; i < n; ++i) {
		h ^= static_cast<unsigned char>(p[i]);
		h *= 1099511628211ull;
	}
}

} // namespace


const char * DataIO::dataFormatText(DataFormat format) {
	switch (format) {
		case DF_2D : return "2D [time, value]";
		case DF_3D : return "3D [time, vector of values]";
		case DF_4D : return "4D [time, matrix 2x2 of values]";
		case DF_5D : return "5D [time, matrix 3x3 of values]";
		case NUM_DF : break;
	}
	return "undetermined";
}


const char * DataIO::outputTypeKeyword(OutputType type) {
	return OUTPUT_TYPE_KEYWORDS[type < NUM_T ? type : NUM_T];
}


const char * DataIO::spaceTypeKeyword(SpaceType type) {
	return SPACE_TYPE_KEYWORDS[type < NUM_ST ? type : NUM_ST];
}


const char * DataIO::timeTypeKeyword(TimeType type) {
	return TIME_TYPE_KEYWORDS[type < NUM_TT ? type : NUM_TT];
}


std::size_t DataIO::valueCount(OutputType type, SpaceType spaceType, std::size_t numberCount) {
	if ((spaceType == ST_MEAN || spaceType == ST_INTEGRAL) && type != T_REFERENCE)
		return 1;
	return numberCount;
}


DataIO::DataIO() = default;
DataIO::~DataIO() = default;
DataIO::DataIO(DataIO &&) noexcept = default;
DataIO & DataIO::operator=(DataIO &&) noexcept = default;


void DataIO::clear() {
	const std::size_t maxLineLength = m_maxLineLength;
	*this = DataIO();
	m_maxLineLength = maxLineLength;
}


void DataIO::read(const std::string & filename, ZEB::NotificationHandler * notification) {
	readFile(filename, notification, LL_HOLD_BACK);
}


void DataIO::readFile(const std::string & filename, ZEB::NotificationHandler * notification, LastLine lastLine) {
	FUNCID(DataIO::read);
	try {
		openAndReadHeader(filename);
		if (m_isBinary) {
			try {
				readBinaryData(notification);
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, "Error on reading binary content from file.", FUNC_ID);
			}
		}
		else {
			try {
				readASCIIData(notification, lastLine);
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, "Error on reading ASCII content from file.", FUNC_ID);
			}
		}
	}
	catch (ZEB::Exception & ex) {
		clear();
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading DataIO file '%1'").arg(filename), FUNC_ID);
	}
	catch (std::exception & ex) {
		clear();
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading DataIO file '%1'").arg(filename), FUNC_ID);
	}
}


void DataIO::openAndReadHeader(const std::string & filename) {
	FUNCID(DataIO::openAndReadHeader);
	clear();
	try {
		if (filename.empty() || filename.find('\0') != std::string::npos)
			throw ZEB::Exception("No filename or invalid file path given.", FUNC_ID);
		std::error_code ec;
		if (!std::filesystem::exists(filename, ec))
			throw ZEB::Exception(ZEB::MessageFormat("File '%1' doesn't exist.").arg(filename), FUNC_ID);
		std::ifstream in;
		if (std::filesystem::is_directory(filename, ec) || !openFile(filename, in, m_fileSize))
			throw ZEB::Exception(ZEB::MessageFormat("Cannot open file '%1'").arg(filename), FUNC_ID);
		m_filename = filename;

		// generation 6 starts with the magic block, generation 5 with a title text
		bool preV6 = false;
		try {
			Version::read(in, MAGIC_ASCII, MAGIC_BINARY, m_isBinary, m_majorFileVersion, m_minorFileVersion);
		}
		catch (ZEB::Exception & ex) {
			in.clear();
			in.seekg(0);
			char title[PRE_V6_TITLE_LENGTH];
			in.read(title, sizeof(title));
			const std::string text(title, static_cast<std::size_t>(in.gcount()));
			if (text.find(PRE_V6_TITLE) == std::string::npos)
				throw ZEB::Exception(ex, "File format not recognized!", FUNC_ID);
			preV6 = true;
			m_isBinary = text.find(PRE_V6_BINARY_MARK) != std::string::npos;
			m_majorFileVersion = PRE_V6_MAJOR_FILE_VERSION;
			m_minorFileVersion = 0;
		}
		if (!preV6 && m_majorFileVersion != MAJOR_FILE_VERSION)
			throw ZEB::Exception("Unknown major file version, not able to read this format!", FUNC_ID);

		in.clear();
		try {
			if (m_isBinary) {
				if (preV6) {
					in.seekg(PRE_V6_TITLE_LENGTH);
					readBinaryHeaderPreV6(in);
				}
				else {
					readBinaryHeader(in);
				}
			}
			else {
				in.seekg(preV6 ? 0 : 16);
				readASCIIHeader(in, preV6);
			}
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, m_isBinary ? "Error on reading binary header from file."
												: "Error on reading ASCII header from file.", FUNC_ID);
		}

		// a binary generation-6 header states data section offset and value count up front
		const std::size_t computed = valueCount(m_type, m_spaceType, m_nums.size());
		if (m_isBinary && !preV6) {
			const std::streamoff pos = in.tellg();
			if (pos < 0 || static_cast<std::uint64_t>(pos) != m_dataSectionOffset)
				throw ZEB::Exception("Data section offset defined at header start does not match file "
									 "offset after reading header section.", FUNC_ID);
			if (m_nValues != computed)
				throw ZEB::Exception(ZEB::MessageFormat("Number of values in data section %1 defined at "
					"header start does not match number of values computed from INDICES and SPACE_TYPE = %2.")
					.arg(m_nValues).arg(static_cast<unsigned long>(computed)), FUNC_ID);
		}
		m_nValues = static_cast<unsigned int>(computed);

		if (m_nValues == 1 || m_type == T_REFERENCE)
			m_dataFormat = DF_2D;
		if (preV6)
			checkEmbeddedGeometry();

		in.clear();
		m_headerHash = headerHash(in);
		m_values.reset(m_nValues);
		m_source = m_isBinary ? SRC_BINARY : SRC_ASCII;
		m_consumedEnd = m_dataSectionOffset;
		m_tailSignature = tailBytes(m_consumedEnd);
	}
	catch (...) {
		clear();
		throw;
	}
}


void DataIO::readASCIIHeader(std::istream & in, bool preV6) {
	FUNCID(DataIO::readASCIIHeader);
	const std::streamoff start = in.tellg();
	if (start < 0)
		throw ZEB::Exception("Cannot determine the start of the header.", FUNC_ID);
	LineReader reader(in, m_filename, static_cast<std::uint64_t>(start), m_fileSize, 1, m_maxLineLength, HEADER_BLOCK_SIZE);
	std::string geometryText;
	bool inTable = false;
	const char * lineBegin;
	const char * lineEnd;
	while (reader.next(lineBegin, lineEnd)) {
		reader.checkText(lineBegin, lineEnd);
		const std::string rawLine(lineBegin, lineEnd);
		if (ZEB::trimmed(rawLine, " \t\r\n#").empty())
			continue;
		const std::string line = ZEB::trimmed(rawLine, " \t\r\n");

		// the embedded geometry of generation 5 runs up to the ELEMENTS or SIDES line
		if (inTable) {
			if (!isPreV6EndLine(line)) {
				geometryText += rawLine;
				geometryText += '\n';
				continue;
			}
			if (line.find('=') == std::string::npos)
				throw ZEB::Exception("Missing = character in last line of geometry header.", FUNC_ID);
			inTable = false;
			std::unique_ptr<GeoFile> geo(new GeoFile);
			geo->setFileVersion(PRE_V6_MAJOR_FILE_VERSION, 0);
			try {
				geo->parseGeometryData(geometryText);
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, "Error reading geometry file.", FUNC_ID);
			}
			m_geometry = std::move(geo);
			geometryText = std::string();
		}

		const std::size_t eq = line.find('=');
		if (eq == std::string::npos)
			continue;
		if (preV6 && startsWith(line, KW_TABLE)) {
			inTable = true;
			continue;
		}
		// the value begins at the second character after '='
		const std::string value = eq + 2 <= line.size() ? ZEB::trimmed(line.substr(eq + 2), " \t") : std::string();

		const bool isEnd = preV6 ? isPreV6EndLine(line) : startsWith(line, KW_INDICES);
		if (isEnd) {
			if (value.empty())
				throw ZEB::Exception("Missing value for ELEMENTS|SIDES|INDICES keyword.", FUNC_ID);
			Tokenizer tok(value.data(), value.data() + value.size());
			std::uint32_t n;
			while (!tok.atEnd()) {
				if (!tok.nextInteger(n))
					throw ZEB::Exception("Invalid value for ELEMENTS|SIDES|INDICES keyword.", FUNC_ID);
				m_nums.push_back(n);
			}
			// a header line still being written must not be taken: the list may be incomplete
			if (!reader.lastTerminated())
				throw ZEB::Exception("Missing line end after the last header line, header incomplete.", FUNC_ID);
			const std::uint64_t offset = reader.consumed();
			if (offset > std::numeric_limits<std::uint32_t>::max())
				throw ZEB::Exception("ASCII header longer than 4 GB.", FUNC_ID);
			m_dataSectionOffset = static_cast<std::uint32_t>(offset);
			m_linesConsumed = reader.lineNumber();
			return;
		}

		if (startsWith(line, KW_GEO_FILE_HASH)) {
			if (value.empty())
				throw ZEB::Exception("Missing value for GEO_FILE_HASH keyword.", FUNC_ID);
			try {
				m_geoFileHash = ZEB::string2val<unsigned int>(value);
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, "Invalid value for GEO_FILE_HASH keyword.", FUNC_ID);
			}
			continue;
		}
		if (startsWith(line, KW_START_YEAR)) {
			if (value.empty())
				throw ZEB::Exception("Missing value for START_YEAR keyword.", FUNC_ID);
			try {
				m_startYear = ZEB::string2val<int>(value);
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, "Invalid value for START_YEAR keyword.", FUNC_ID);
			}
			continue;
		}
		if (value.empty())
			continue;
		// tested in this order because of the shared prefixes
		if (startsWith(line, KW_TYPE))
			m_type = enumFromText(value, OUTPUT_TYPE_KEYWORDS, NUM_T);
		else if (startsWith(line, KW_PROJECT_FILE))
			m_projectFileName = value;
		else if (startsWith(line, KW_GEO_FILE))
			m_geoFileName = value;
		else if (startsWith(line, KW_CREATED))
			m_createdTime = value;
		else if (startsWith(line, KW_QUANTITY_KW))
			m_quantityKeyword = value;
		else if (startsWith(line, KW_QUANTITY))
			m_quantity = value;
		else if (startsWith(line, KW_SPACE_TYPE))
			m_spaceType = enumFromText(value, SPACE_TYPE_KEYWORDS, NUM_ST);
		else if (startsWith(line, KW_TIME_TYPE))
			m_timeType = enumFromText(value, TIME_TYPE_KEYWORDS, NUM_TT);
		else if (startsWith(line, KW_VALUE_UNIT))
			m_valueUnit = value;
		else if (startsWith(line, KW_TIME_UNIT))
			m_timeUnit = value;
	}
	if (inTable)
		throw ZEB::Exception(ZEB::Exception("Embedded geometry not ended by an ELEMENTS or SIDES line.", FUNC_ID),
							 "Error reading geometry section.", FUNC_ID);
	throw ZEB::Exception(preV6 ? "Missing ELEMENTS or SIDES line, header incomplete."
							   : "Missing INDICES line, header incomplete.", FUNC_ID);
}


void DataIO::readBinaryHeader(std::istream & in) {
	FUNCID(DataIO::readBinaryHeader);
	try {
		BinaryReader reader(in, m_fileSize);
		// strings and the number vector are wrapped with the name of their field
		auto field = [&](std::string & str, unsigned int maxSize, const char * context) {
			try {
				reader.string(str, maxSize);
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, std::string(context) + ex.what(), FUNC_ID);
			}
		};
		std::uint32_t u = 0;
		reader.value(m_dataSectionOffset);
		reader.value(m_nValues);
		reader.value(u);
		m_type = enumFromNumber(u, NUM_T);
		field(m_projectFileName, MAX_FILENAME_LENGTH, "Error reading PROJECT_FILE property in header: ");
		field(m_geoFileName, MAX_FILENAME_LENGTH, "Error reading GEO_FILE property in header: ");
		reader.value(m_geoFileHash);
		std::int64_t created = 0;
		reader.value(created);
		m_createdTime = CreationTime::toText(created);
		field(m_quantity, MAX_QUANTITY_LENGTH, "Error reading QUANTITY property in header: ");
		field(m_quantityKeyword, MAX_QUANTITY_LENGTH, "Error reading QUANTITY_KW property in header: ");
		reader.value(u);
		m_spaceType = enumFromNumber(u, NUM_ST);
		reader.value(u);
		m_timeType = enumFromNumber(u, NUM_TT);
		field(m_valueUnit, MAX_UNIT_LENGTH, "Error reading VALUE_UNIT property in header: ");
		field(m_timeUnit, MAX_UNIT_LENGTH, "Error reading TIME_UNIT property in header: ");
		reader.value(m_startYear);
		try {
			reader.vector(m_nums, MAX_NUMS);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, std::string("Error reading element/sides numbers vector: ") + ex.what(), FUNC_ID);
		}
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Error reading binary header.", FUNC_ID);
	}
}


void DataIO::readBinaryHeaderPreV6(std::istream & in) {
	FUNCID(DataIO::readBinaryHeaderPreV6);
	try {
		BinaryReader reader(in, m_fileSize);
		std::uint32_t geometrySize = 0;
		try {
			std::uint32_t u = 0;
			reader.value(u);
			m_type = enumFromNumber(u, NUM_T);
			reader.string(m_projectFileName, MAX_FILENAME_LENGTH);
			std::int64_t created = 0;
			reader.value(created);
			m_createdTime = CreationTime::toText(created);
			reader.string(m_quantity, MAX_QUANTITY_LENGTH);
			reader.string(m_quantityKeyword, MAX_QUANTITY_LENGTH);
			reader.value(u);
			m_spaceType = enumFromNumber(u, NUM_ST);
			reader.value(u);
			m_timeType = enumFromNumber(u, NUM_TT);
			reader.string(m_valueUnit, MAX_UNIT_LENGTH);
			reader.string(m_timeUnit, MAX_UNIT_LENGTH);
			reader.value(m_startYear);
			geometrySize = reader.count(1);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, "Binary header data corrupt!", FUNC_ID);
		}

		const std::uint64_t geometryEnd = reader.position() + geometrySize;
		std::unique_ptr<GeoFile> geo(new GeoFile);
		geo->setBinary(true);
		geo->setFileVersion(PRE_V6_MAJOR_FILE_VERSION, 0);
		try {
			geo->readBinaryGeometryData(in, geometryEnd);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, "Error reading geometry data:\n", FUNC_ID);
		}
		if (reader.position() != geometryEnd)
			throw ZEB::Exception("[DataIO::readBinaryHeader]  Size mismatch in geometry section!", FUNC_ID);
		m_geometry = std::move(geo);

		try {
			reader.vector(m_nums, MAX_NUMS);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, "Binary header data corrupt!", FUNC_ID);
		}
		char tag[7];
		if (!reader.raw(tag, sizeof(tag)) || std::memcmp(tag, "HDR_END", sizeof(tag)) != 0)
			throw ZEB::Exception("Binary header data corrupt! Failed to read HDR_END tag.", FUNC_ID);
		m_dataSectionOffset = static_cast<std::uint32_t>(reader.position());
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Error reading binary header (pre V6 version).", FUNC_ID);
	}
}


void DataIO::checkEmbeddedGeometry() {
	FUNCID(DataIO::openAndReadHeader);
	try {
		if (m_geometry != nullptr) {
			std::vector<std::uint32_t> ids;
			for (const GeoFile::Material & m : m_geometry->materials())
				ids.push_back(m.m_id);
			std::sort(ids.begin(), ids.end());
			for (const GeoFile::Element & e : m_geometry->elements())
				if (!std::binary_search(ids.begin(), ids.end(), e.m_matId))
					throw ZEB::Exception(ZEB::MessageFormat("Error in geometry data, element #%1 references "
						"material with ID #%2, which does not exist in materials table.\n").arg(e.m_n).arg(e.m_matId), FUNC_ID);
		}
		determineDataFormat(m_geometry.get());
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Error in DataIO or embedded geometry data.", FUNC_ID);
	}
}


void DataIO::readASCIIData(ZEB::NotificationHandler * notification, LastLine lastLine) {
	FUNCID(DataIO::readASCIIData);
	const std::size_t before = m_timePoints.size();
	const bool hadOpenLine = m_hasOpenLine;
	try {
		try {
			// the lines are read in place from a mapping of the file as it is now
			if (m_text.size() != m_fileSize || m_text.isCut())
				m_text.map(m_filename, m_fileSize);
			MappedFile::Guard guard(m_text);
			try {
				scanASCIILines(notification, lastLine);
			}
			catch (ZEB::Exception &) {
				// the NUL bytes in place of lost pages are no fault of the file's text
				if (m_text.isCut())
					throwCutFile(FUNC_ID);
				throw;
			}
			if (m_text.isCut())
				throwCutFile(FUNC_ID);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, "Error reading file with FileReader.", FUNC_ID);
		}
	}
	catch (ZEB::Exception & ex) {
		m_timePoints.resize(before);
		m_lineStart.resize(before);
		m_hasOpenLine = hadOpenLine;
		throw ZEB::Exception(ex, "Error reading ASCII data.", FUNC_ID);
	}
	catch (std::exception & ex) {
		m_timePoints.resize(before);
		m_lineStart.resize(before);
		m_hasOpenLine = hadOpenLine;
		throw ZEB::Exception(ex, "Error reading ASCII data.", FUNC_ID);
	}
	if (notification != nullptr)
		notification->notify(1.0);
	m_values.resize(m_timePoints.size());
	m_tailSignature = tailBytes(m_consumedEnd);
}


void DataIO::scanASCIILines(ZEB::NotificationHandler * notification, LastLine lastLine) {
	LineReader reader(m_text.data(), m_filename, m_consumedEnd, m_fileSize, m_linesConsumed + 1, m_maxLineLength);
	// after a few lines, estimate how many follow and reserve the per-line bookkeeping once
	std::size_t lines = 0;
	const std::uint64_t toRead = m_fileSize > m_consumedEnd ? m_fileSize - m_consumedEnd : 0;
	std::uint64_t lineStart = m_consumedEnd;
	std::uint64_t released = m_consumedEnd;
	std::uint64_t nextProgress = m_consumedEnd + ASCII_PROGRESS_STEP;
	const char * begin;
	const char * end;
	while (reader.next(begin, end)) {
		if (!reader.lastTerminated()) {
			if (addLastLine(reader, begin, end, lineStart, lastLine))
				lineStart = reader.consumed();
			break;
		}
		addValueLine(reader, begin, end);
		lineStart = reader.consumed();
		if (lines < LINES_BEFORE_ESTIMATE && ++lines == LINES_BEFORE_ESTIMATE) {
			const std::uint64_t bytes = lineStart - m_consumedEnd;
			if (toRead > bytes) {
				const std::size_t estimate = static_cast<std::size_t>((toRead - bytes)/(bytes/lines + 1)*21/20);
				m_timePoints.reserve(m_timePoints.size() + estimate);
				m_lineStart.reserve(m_lineStart.size() + estimate);
			}
		}
		// the pages read stay in the file cache, but not in this process
		if (lineStart - released >= MAPPED_RELEASE_STEP) {
			m_text.release(released, lineStart);
			released = lineStart;
		}
		if (notification != nullptr && lineStart >= nextProgress) {
			notification->notify(static_cast<double>(lineStart)/static_cast<double>(m_fileSize));
			nextProgress = lineStart + ASCII_PROGRESS_STEP;
		}
	}
	m_text.release(released, m_fileSize);
	m_linesConsumed = reader.lineNumber() - (reader.lastTerminated() ? 0 : 1);
	m_consumedEnd = lineStart;
}


bool DataIO::addLastLine(const LineReader & reader, const char * begin, const char * end, std::uint64_t start,
						 LastLine lastLine)
{
	FUNCID(DataIO::addLastLine);
	Tokenizer tok(begin, end);
	if (tok.atEnd())
		return false;	// blanks only: nothing to take
	reader.checkText(begin, end);
	bool take = lastLine == LL_TAKE;
	if (lastLine == LL_TAKE_COMPLETE) {
		// a line cut within its values is still being written
		std::size_t tokens = 0;
		const char * tb;
		const char * te;
		while (tok.next(tb, te))
			++tokens;
		take = tokens == static_cast<std::size_t>(m_nValues) + 1;
	}
	if (take) {
		addValueLine(reader, begin, end);
		m_hasOpenLine = true;
		m_openLineStart = start;
		return true;
	}
	// reported once per line; a warning the first time, later ones (a growing file) in the log only
	const std::string text = ZEB::MessageFormat("The last line of file '%1' (line %2) has no line end: it is held "
		"back while the file may still be written, and read once the file stops changing or on an explicit refresh.")
		.arg(m_filename).arg(static_cast<unsigned long long>(reader.lineNumber())).str();
	if (m_reportedHeldBack == 0)
		ZEB::reportWarning(text, FUNC_ID);
	else if (m_reportedHeldBack != start)
		ZEB::reportProgress(text + "\n", FUNC_ID, HELD_BACK_LEVEL);
	m_reportedHeldBack = start;
	return false;
}


void DataIO::dropOpenLine() {
	const std::size_t t = m_timePoints.size() - 1;
	m_lineStart.pop_back();
	m_values.resize(t);
	m_timePoints.pop_back();
	m_consumedEnd = m_openLineStart;
	m_tailSignature = tailBytes(m_consumedEnd);
	m_hasOpenLine = false;
}


void DataIO::addValueLine(const LineReader & reader, const char * begin, const char * end) {
	FUNCID(DataIO::addValueLine);
	const char * p = begin;
	while (p != end && Tokenizer::isSeparator(*p))
		++p;
	if (p == end)
		return;
	const char * tokenEnd = p;
	while (tokenEnd != end && !Tokenizer::isSeparator(*tokenEnd))
		++tokenEnd;
	double t;
	if (!ZEB::parseDouble(p, tokenEnd, t)) {
		reader.checkText(begin, end);
		throw ZEB::Exception(ZEB::MessageFormat("Error parsing time point from line '%1', using substr '%2'.")
							 .arg(quoted(begin, end)).arg(quoted(p, tokenEnd)), FUNC_ID);
	}
	while (tokenEnd != end && Tokenizer::isSeparator(*tokenEnd))
		++tokenEnd;
	m_lineStart.push_back(static_cast<std::uint64_t>(tokenEnd - m_text.data()));
	m_timePoints.push_back(t);
}


void DataIO::readBinaryData(ZEB::NotificationHandler * notification) {
	FUNCID(DataIO::readBinaryData);
	const std::uint64_t recordSize = (static_cast<std::uint64_t>(m_nValues) + 1)*8;
	const std::size_t before = m_timePoints.size();
	const std::uint64_t first = m_dataSectionOffset + before*recordSize;
	// complete records only: a record still being written is listed once its values are there
	const std::uint64_t available = m_fileSize > first ? m_fileSize - first : 0;
	const std::uint64_t count = available/recordSize;
	if (count > 0) {
		// the time point of each record is read in place from a mapping of the file: the values
		// are neither copied nor, for records longer than a page, read at all
		MappedFile file;
		try {
			file.map(m_filename, first + count*recordSize);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, "Error on reading binary data from file.", FUNC_ID);
		}
		m_timePoints.reserve(before + static_cast<std::size_t>(count));
		{
			MappedFile::Guard guard(file);
			std::uint64_t released = first;
			std::uint64_t nextProgress = first;
			for (std::uint64_t pos = first; pos < first + count*recordSize; pos += recordSize) {
				if (notification != nullptr && pos >= nextProgress) {
					notification->notify(static_cast<double>(pos)/static_cast<double>(m_fileSize));
					nextProgress = pos + BINARY_BLOCK_SIZE;
				}
				double t;
				std::memcpy(&t, file.data() + pos, sizeof(t));
				m_timePoints.push_back(t);
				// the pages read stay in the file cache, but not in this process
				if (pos - released >= MAPPED_RELEASE_STEP) {
					file.release(released, pos);
					released = pos;
				}
			}
		}
		// a file cut while it was read gave zeros in place of what it lost (a whole lost page
		// through the guard, the rest of its last page as it is): only records still whole count
		std::error_code error;
		const std::uint64_t size = std::filesystem::file_size(m_filename, error);
		if (file.isCut() || error || size < first + count*recordSize) {
			const std::uint64_t whole = error || size < first ? 0 : (size - first)/recordSize;
			m_timePoints.resize(before + static_cast<std::size_t>(std::min(whole, count)));
		}
	}
	if (notification != nullptr)
		notification->notify(1.0);
	m_values.resize(m_timePoints.size());
	// the end of the last record listed; a writer that only appends never changes the bytes before
	m_consumedEnd = m_dataSectionOffset + m_timePoints.size()*recordSize;
	m_tailSignature = tailBytes(m_consumedEnd);
}


DataIO::RefreshResult DataIO::refresh(RefreshMode mode, ZEB::NotificationHandler * notification) {
	FUNCID(DataIO::refresh);
	if (m_filename.empty())
		throw ZEB::Exception("Container was not read from a file.", FUNC_ID);
	const std::string filename = m_filename;
	try {
		const LastLine lastLine = mode == RM_EXPLICIT ? LL_TAKE : LL_HOLD_BACK;
		if (m_source != SRC_MEMORY) {
			DataIO current;
			current.m_maxLineLength = m_maxLineLength;
			current.openAndReadHeader(m_filename);
			const bool sameFile = current.m_headerHash == m_headerHash &&
				current.m_dataSectionOffset == m_dataSectionOffset &&
				current.m_fileSize >= m_consumedEnd && tailBytes(m_consumedEnd) == m_tailSignature;
			if (sameFile) {
				const std::size_t before = m_timePoints.size();
				const bool unchanged = current.m_fileSize == m_fileSize;
				// a last line taken without line end that has grown since is read again
				const bool lastChanged = m_hasOpenLine && !unchanged;
				if (lastChanged)
					dropOpenLine();
				m_fileSize = current.m_fileSize;
				if (m_isBinary)
					readBinaryData(notification);
				else
					readASCIIData(notification, lastLine == LL_HOLD_BACK && unchanged ? LL_TAKE_COMPLETE : lastLine);
				return m_timePoints.size() > before || lastChanged ? RR_APPENDED : RR_UNCHANGED;
			}
		}
		readFile(filename, notification, lastLine);
		return RR_RELOADED;
	}
	catch (ZEB::Exception & ex) {
		// keep the name, so that a later refresh tries again
		m_filename = filename;
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error refreshing DataIO file '%1'").arg(filename), FUNC_ID);
	}
	catch (std::exception & ex) {
		m_filename = filename;
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error refreshing DataIO file '%1'").arg(filename), FUNC_ID);
	}
}


const double * DataIO::data(unsigned int timeIndex) {
	FUNCID(DataIO::data);
	const std::size_t t = timeIndex;
	if (t >= m_timePoints.size())
		throw ZEB::Exception(ZEB::MessageFormat("Time index %1 out of range, the container has %2 time points.")
							 .arg(timeIndex).arg(static_cast<unsigned long>(m_timePoints.size())), FUNC_ID);
	if (m_values.isLoaded(t))
		return m_values.row(t);

	try {
		if (m_source == SRC_ASCII) {
			double * row = rowForWriting(t, FUNC_ID);
			if (!parseRow(t, row)) {
				// the general parser accepts every number and tells what is wrong
				if (!parseLine(t, m_parseBuffer))
					throwCutFile(FUNC_ID);
				if (m_parseBuffer.size() != m_nValues)
					throw ZEB::Exception(ZEB::MessageFormat("Not enough values for time index %1 in output file, "
						"only got %2 values, but needed %3.").arg(timeIndex).arg(static_cast<unsigned long>(m_parseBuffer.size()))
						.arg(m_nValues), FUNC_ID);
				std::copy(m_parseBuffer.begin(), m_parseBuffer.end(), row);
			}
			m_values.setLoaded(t);
		}
		else if (m_source == SRC_BINARY) {
			std::ifstream in(m_filename, std::ios::binary);
			if (!in)
				throw ZEB::Exception("Cannot open output file for reading.", FUNC_ID);
			const std::uint64_t pos = m_dataSectionOffset + ((static_cast<std::uint64_t>(m_nValues) + 1)*t + 1)*8;
			in.seekg(static_cast<std::streamoff>(pos));
			double * row = rowForWriting(t, FUNC_ID);
			if (!in.read(reinterpret_cast<char*>(row), static_cast<std::streamsize>(m_nValues*sizeof(double))))
				throw ZEB::Exception("Error reading data for this time index.", FUNC_ID);
			m_values.setLoaded(t);
		}
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot read the values of time index %1 from file '%2'.")
							 .arg(timeIndex).arg(m_filename), FUNC_ID);
	}
	return m_values.row(t);
}


bool DataIO::parseRow(std::size_t t, double * row) const {
	MappedFile::Guard guard(m_text);
	const char * p = m_text.data() + m_lineStart[t];
	const char * const bound = m_text.data() + (t + 1 < m_lineStart.size() ? m_lineStart[t + 1] : m_consumedEnd);
	// the separators and the line end of ZEB::string2valueVector on the line up to its "\n"
	auto isSeparator = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
	std::size_t count = 0;
	while (true) {
		while (p != bound && isSeparator(*p))
			++p;
		if (p == bound || *p == '\n')
			break;
		if (count == m_nValues)
			return false;	// too many values
		const char * stop = ZEB::parseDoubleFastPrefix(p, bound, row[count]);
		if (stop == nullptr || (stop != bound && *stop != '\n' && !isSeparator(*stop)))
			return false;
		++count;
		p = stop;
	}
	// a page lost while the file is mapped reads as NUL bytes, which no number holds
	return count == m_nValues;
}


bool DataIO::parseLine(std::size_t t, std::vector<double> & values) const {
	FUNCID(DataIO::data);
	MappedFile::Guard guard(m_text);
	const std::uint64_t start = m_lineStart[t];
	// the line ends before the values of the next time point, or where the data section read ends
	const std::uint64_t bound = t + 1 < m_lineStart.size() ? m_lineStart[t + 1] : m_consumedEnd;
	const char * begin = m_text.data() + start;
	const char * end = static_cast<const char*>(std::memchr(begin, '\n', static_cast<std::size_t>(bound - start)));
	if (end == nullptr)
		end = m_text.data() + bound;
	if (end != begin && end[-1] == '\r')
		--end;
	try {
		ZEB::string2valueVector(begin, end, values);
	}
	catch (ZEB::Exception & ex) {
		// the end of a file cut short reads as NUL bytes, within the last page as well
		std::error_code ec;
		const std::uint64_t size = std::filesystem::file_size(m_filename, ec);
		if (m_text.isCut() || (!ec && size < m_consumedEnd))
			return false;
		throw ZEB::Exception(ex, ZEB::MessageFormat("Invalid values for time index %1 in output file.")
							 .arg(static_cast<unsigned long>(t)), FUNC_ID);
	}
	return true;
}


void DataIO::parseAllAsciiValues(const char * funcId) {
	const std::size_t rows = m_timePoints.size();
	const std::size_t n = m_nValues;
	if (n == 0 || rows == 0)
		return;
	double * const values = rowForWriting(0, funcId);
	const std::uint64_t bytes = m_consumedEnd - m_lineStart.front();
	const std::size_t rowsPerChunk = static_cast<std::size_t>(std::max<std::uint64_t>(1, PARSE_CHUNK_SIZE*rows/(bytes + 1)));
	std::atomic<std::size_t> nextRow(0);
	std::vector<char> parsed(rows, 0);	// one byte per row: the threads write disjoint ones
	// each thread takes the next chunk of rows until none is left; a row that does not parse is
	// left alone, the caller loads it with data(), which reports the failure
	auto work = [&]() {
		std::vector<double> buffer;
		while (true) {
			const std::size_t first = nextRow.fetch_add(rowsPerChunk);
			if (first >= rows)
				return;
			const std::size_t last = std::min(rows, first + rowsPerChunk);
			for (std::size_t t = first; t < last; ++t) {
				if (m_values.isLoaded(t))
					continue;
				double * row = values + t*n;
				try {
					bool ok = parseRow(t, row);
					if (!ok && parseLine(t, buffer) && buffer.size() == n) {
						std::copy(buffer.begin(), buffer.end(), row);
						ok = true;
					}
					parsed[t] = ok ? 1 : 0;
				}
				catch (std::exception &) {
					// left unloaded: data() reports it
				}
			}
			m_text.release(m_lineStart[first], last < rows ? m_lineStart[last] : m_consumedEnd);
		}
	};
	unsigned int threads = 1;
	if (bytes >= PARALLEL_PARSE_MIN_SIZE)
		threads = std::max(1u, std::min(std::thread::hardware_concurrency(), MAX_PARSE_THREADS));
	std::vector<std::thread> helpers;
	try {
		for (unsigned int i = 1; i < threads; ++i)
			helpers.emplace_back(work);
	}
	catch (std::system_error &) {
		// no more threads to be had: those started and this one do the work
	}
	work();
	for (std::thread & helper : helpers)
		helper.join();
	for (std::size_t t = 0; t < rows; ++t)
		if (parsed[t] != 0)
			m_values.setLoaded(t);
}


void DataIO::throwCutFile(const char * funcId) const {
	throw ZEB::Exception(ZEB::MessageFormat("File '%1' became shorter after it was read; refresh it to read it "
		"again.").arg(m_filename), funcId);
}


double * DataIO::rowForWriting(std::size_t t, const char * funcId) {
	try {
		return m_values.rowForWriting(t);
	}
	catch (std::bad_alloc &) {
		throw ZEB::Exception(ZEB::MessageFormat("Not enough memory for the values of %1 time points.")
							 .arg(static_cast<unsigned long>(m_values.rows())), funcId);
	}
}


void DataIO::loadAllBinaryValues(const char * funcId) {
	ReadOnlyFile file(m_filename);
	if (file.m_fd < 0)
		return;	// data() reports the failure for each time point
	const std::size_t n = m_nValues;
	const std::size_t rows = m_timePoints.size();
	const std::uint64_t recordSize = (static_cast<std::uint64_t>(n) + 1)*8;
	if (recordSize < SCATTER_MIN_RECORD_SIZE) {
		// short records: blocks of them, whose values are copied out
		const std::size_t recordsPerBlock = static_cast<std::size_t>(BINARY_BLOCK_SIZE/recordSize);
		std::vector<char> block(static_cast<std::size_t>(recordsPerBlock*recordSize));
		std::size_t t = 0;
		while (t < rows) {
			if (m_values.isLoaded(t)) {
				++t;
				continue;
			}
			const std::size_t records = static_cast<std::size_t>(file.read(block.data(), block.size(),
				m_dataSectionOffset + t*recordSize)/recordSize);
			if (records == 0)
				return;	// an incomplete last record: data() reports it
			for (std::size_t r = 0; r < records && t < rows; ++r, ++t) {
				if (m_values.isLoaded(t))
					continue;
				std::memcpy(rowForWriting(t, funcId), block.data() + r*recordSize + 8, n*sizeof(double));
				m_values.setLoaded(t);
			}
		}
		return;
	}
	// long records: the values of each go straight into their row, the time points into a
	// scratch slot, so that the value buffer is written once, by the system
	double * const values = rowForWriting(0, funcId);
	double timePoint;
	std::vector<iovec> parts;
	std::size_t t = 0;
	while (t < rows) {
		if (m_values.isLoaded(t)) {
			++t;
			continue;
		}
		parts.clear();
		for (std::size_t r = t; r < rows && !m_values.isLoaded(r) && parts.size() + 2 <= MAX_READ_PARTS; ++r) {
			parts.push_back(iovec{ &timePoint, sizeof(timePoint) });
			parts.push_back(iovec{ values + r*n, n*sizeof(double) });
		}
		const std::size_t records = static_cast<std::size_t>(file.read(parts, m_dataSectionOffset + t*recordSize)/recordSize);
		if (records == 0)
			return;	// an incomplete last record: data() reports it
		for (std::size_t r = 0; r < records; ++r, ++t)
			m_values.setLoaded(t);
	}
}


const double * DataIO::dataVector() {
	FUNCID(DataIO::dataVector);
	if (m_timePoints.empty())
		throw ZEB::Exception("No data in output file.", FUNC_ID);
	for (std::size_t t = 1; t < m_timePoints.size(); ++t)
		if (!(m_timePoints[t] > m_timePoints[t - 1]))
			throw ZEB::Exception(ZEB::MessageFormat("Time value %1 follows %2, not monotonically increasing "
				"time points found.").arg(m_timePoints[t]).arg(m_timePoints[t - 1]), FUNC_ID);
	if (m_source == SRC_BINARY && !m_values.allLoaded())
		loadAllBinaryValues(FUNC_ID);
	if (m_source == SRC_ASCII && !m_values.allLoaded())
		parseAllAsciiValues(FUNC_ID);
	// what is still missing failed above; data() tells why
	for (std::size_t t = 0; t < m_timePoints.size(); ++t) {
		if (m_values.isLoaded(t))
			continue;
		try {
			data(static_cast<unsigned int>(t));
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, ZEB::MessageFormat("Error retrieving values for time index %1.")
								 .arg(static_cast<unsigned long>(t)), FUNC_ID);
		}
	}
	return m_values.buffer();
}


void DataIO::setData(const std::vector<double> & timePoints, const std::vector<std::vector<double> > & values) {
	FUNCID(DataIO::setData);
	if (timePoints.size() != values.size())
		throw ZEB::Exception("Size mismatch between values and timePoints vectors.", FUNC_ID);
	const std::size_t n = values.empty() ? m_nValues : values.front().size();
	for (const std::vector<double> & v : values)
		if (v.size() != n)
			throw ZEB::Exception("Size mismatch between individual vectors in values vector.", FUNC_ID);
	m_text.unmap();
	m_lineStart = std::vector<std::uint64_t>();
	m_timePoints = timePoints;
	m_nValues = static_cast<unsigned int>(n);
	m_values.reset(n);
	m_values.resize(values.size());
	for (std::size_t t = 0; t < values.size(); ++t) {
		if (n != 0)
			std::memcpy(rowForWriting(t, FUNC_ID), values[t].data(), n*sizeof(double));
		m_values.setLoaded(t);
	}
	m_source = SRC_MEMORY;
}


void DataIO::setData(std::vector<double> && timePoints, std::size_t valuesPerTimePoint, std::vector<double> && values) {
	FUNCID(DataIO::setData);
	if (values.size() != timePoints.size()*valuesPerTimePoint)
		throw ZEB::Exception("Size mismatch between values and timePoints vectors.", FUNC_ID);
	m_text.unmap();
	m_lineStart = std::vector<std::uint64_t>();
	m_timePoints = std::move(timePoints);
	m_nValues = static_cast<unsigned int>(valuesPerTimePoint);
	m_values.reset(valuesPerTimePoint);
	m_values.adopt(std::move(values), m_timePoints.size());
	m_source = SRC_MEMORY;
}


void DataIO::deleteData(unsigned int idxFrom, unsigned int idxTo) {
	FUNCID(DataIO::deleteData);
	if (idxFrom >= m_timePoints.size())
		throw ZEB::Exception("First time index 'idxFrom' out of range.", FUNC_ID);
	if (idxTo >= m_timePoints.size() || idxTo < idxFrom)
		throw ZEB::Exception("Second time index 'idxTo' out of range.", FUNC_ID);
	if (m_source != SRC_MEMORY) {
		// the remaining time points are taken into memory: lazy loading relies on positions in the file
		if (m_source == SRC_BINARY)
			loadAllBinaryValues(FUNC_ID);
		for (std::size_t t = 0; t < m_timePoints.size(); ++t) {
			if ((t >= idxFrom && t <= idxTo) || m_values.isLoaded(t))
				continue;
			try {
				data(static_cast<unsigned int>(t));
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, ZEB::MessageFormat("Error loading values of time index %1 before "
					"removing time points.").arg(static_cast<unsigned long>(t)), FUNC_ID);
			}
		}
		m_text.unmap();
		m_lineStart = std::vector<std::uint64_t>();
		m_source = SRC_MEMORY;
	}
	m_values.erase(idxFrom, static_cast<std::size_t>(idxTo) + 1);
	m_timePoints.erase(m_timePoints.begin() + idxFrom, m_timePoints.begin() + idxTo + 1);
}


DataIO::DataFormat DataIO::determineDataFormat(const GeoFile * geometry) {
	FUNCID(DataIO::determineDataFormat);
	if (m_nValues == 1 || m_type == T_REFERENCE) {
		m_dataFormat = DF_2D;
		return m_dataFormat;
	}
	m_dataFormat = NUM_DF;
	if (geometry == nullptr || geometry->isEmpty())
		throw ZEB::Exception("Empty/uninitialized geometry data.", FUNC_ID);

	double minPos[3] = { std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
						 std::numeric_limits<double>::infinity() };
	double maxPos[3] = { -minPos[0], -minPos[1], -minPos[2] };
	auto extend = [&](double x, double y, double z) {
		const double p[3] = { x, y, z };
		for (int d = 0; d < 3; ++d) {
			minPos[d] = std::min(minPos[d], p[d]);
			maxPos[d] = std::max(maxPos[d], p[d]);
		}
	};
	if (m_type == T_FLUX) {
		const std::vector<GeoFile::Side> & sides = geometry->sides();
		if (sides.empty())
			throw ZEB::Exception("Missing/empty sides vector in Geometry file.", FUNC_ID);
		for (std::uint32_t n : m_nums) {
			if (n >= sides.size())
				throw ZEB::Exception(ZEB::MessageFormat("Invalid side index #%1, sides vector has only %2 entries.")
									 .arg(n).arg(static_cast<unsigned long>(sides.size())), FUNC_ID);
			extend(sides[n].m_x, sides[n].m_y, sides[n].m_z);
		}
	}
	else {
		const std::vector<GeoFile::Element> & elements = geometry->elements();
		if (elements.empty())
			throw ZEB::Exception("Missing/empty elements vector in Geometry file.", FUNC_ID);
		for (std::uint32_t n : m_nums) {
			if (n >= elements.size())
				throw ZEB::Exception(ZEB::MessageFormat("Invalid element index #%1, elements vector has only %2 entries.")
									 .arg(n).arg(static_cast<unsigned long>(elements.size())), FUNC_ID);
			extend(elements[n].m_x, elements[n].m_y, elements[n].m_z);
		}
	}
	int directions = 0;
	for (int d = 0; d < 3; ++d)
		if (maxPos[d] > minPos[d])
			++directions;
	switch (directions) {
		case 3 : m_dataFormat = DF_5D; break;
		case 2 : m_dataFormat = DF_4D; break;
		case 1 : m_dataFormat = DF_3D; break;
		default :
			throw ZEB::Exception("Cannot determine data format.", FUNC_ID);
	}
	return m_dataFormat;
}


bool DataIO::isLoaded(unsigned int timeIndex) const {
	return timeIndex < m_timePoints.size() && m_values.isLoaded(timeIndex);
}


void DataIO::setNums(const std::vector<std::uint32_t> & nums) {
	m_nums = nums;
	updateValueCount();
}


void DataIO::setType(OutputType type) {
	m_type = type;
	updateValueCount();
}


void DataIO::setSpaceType(SpaceType type) {
	m_spaceType = type;
	updateValueCount();
}


void DataIO::setFileVersion(unsigned int majorVersion, unsigned int minorVersion) {
	m_majorFileVersion = majorVersion;
	m_minorFileVersion = minorVersion;
}


void DataIO::setGeometry(std::unique_ptr<GeoFile> geometry) {
	m_geometry = std::move(geometry);
}


void DataIO::updateValueCount() {
	if (!m_timePoints.empty())
		return;
	m_nValues = static_cast<unsigned int>(valueCount(m_type, m_spaceType, m_nums.size()));
	m_values.reset(m_nValues);
}


std::string DataIO::tailBytes(std::uint64_t end) const {
	std::ifstream in(m_filename, std::ios::binary);
	const std::uint64_t start = end > TAIL_SIGNATURE_SIZE ? end - TAIL_SIGNATURE_SIZE : 0;
	std::string bytes(static_cast<std::size_t>(end - start), '\0');
	in.seekg(static_cast<std::streamoff>(start));
	if (!in || !in.read(&bytes[0], static_cast<std::streamsize>(bytes.size())))
		return std::string();
	return bytes;
}


std::uint64_t DataIO::headerHash(std::istream & in) const {
	std::uint64_t h = 14695981039346656037ull;
	in.seekg(0);
	std::vector<char> buf(65536);
	std::uint64_t left = m_dataSectionOffset;
	while (left > 0 && in) {
		in.read(buf.data(), static_cast<std::streamsize>(std::min<std::uint64_t>(left, buf.size())));
		const std::size_t got = static_cast<std::size_t>(in.gcount());
		if (got == 0)
			break;
		hashBytes(h, buf.data(), got);
		left -= got;
	}
	return h;
}


std::vector<std::string> DataIO::referenceDataSetNames() const {
	const std::size_t colon = m_quantity.find(':');
	if (m_type != T_REFERENCE || colon == std::string::npos)
		return {};
	std::vector<std::string> names = ZEB::explode(m_quantity.substr(colon + 1), ',');
	for (std::string & name : names) {
		name = ZEB::trimmed(name);
		if (name.empty())
			return {};
	}
	if (names.size() != m_nums.size())
		return {};
	return names;
}


std::string DataIO::columnQuantity(std::size_t position) const {
	if (position < m_columnQuantities.size())
		return m_columnQuantities[position];
	const std::vector<std::string> names = referenceDataSetNames();
	return position < names.size() ? names[position] : m_quantity;
}


const std::string & DataIO::columnUnit(std::size_t position) const {
	return position < m_columnUnits.size() ? m_columnUnits[position] : m_valueUnit;
}


void DataIO::setColumnProperties(const std::vector<std::string> & quantities, const std::vector<std::string> & units) {
	FUNCID(DataIO::setColumnProperties);
	if (quantities.size() != units.size() || (!units.empty() && units.size() != m_nums.size()))
		throw ZEB::Exception(ZEB::MessageFormat("Got %1 quantities and %2 units for %3 columns.")
							 .arg(quantities.size()).arg(units.size()).arg(m_nums.size()), FUNC_ID);
	m_columnQuantities = quantities;
	m_columnUnits = units;
}

} // namespace DATAIO
