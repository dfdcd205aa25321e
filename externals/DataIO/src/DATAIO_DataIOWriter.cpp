#include "DATAIO_DataIOWriter.h"

#include <cstdint>
#include <cstring>
#include <sstream>

#include <ZEB_BinaryIO.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_StringUtils.h>

#include "DATAIO_CreationTime.h"
#include "DATAIO_DataIO.h"
#include "DATAIO_GeoFile.h"
#include "DATAIO_GeoFileWriter.h"
#include "DATAIO_NumberText.h"
#include "DATAIO_Version.h"

namespace DATAIO {

namespace {

/*! Appends "KEYWORD = value" padded to a common column; throws when the value cannot be kept
	in a header line.
*/
void addLine(std::string & text, const char * keyword, const std::string & value) {
	FUNCID(DataIOWriter::open);
	if (value.find_first_of("\r\n") != std::string::npos)
		throw ZEB::Exception(ZEB::MessageFormat("Value '%1' of %2 contains a line break.").arg(value).arg(keyword), FUNC_ID);
	if (value != ZEB::trimmed(value, " \t"))
		throw ZEB::Exception(ZEB::MessageFormat("Value '%1' of %2 begins or ends with blanks, which an ASCII "
			"header cannot keep.").arg(value).arg(keyword), FUNC_ID);
	std::string kw(keyword);
	kw.resize(14, ' ');
	text += kw;
	text += "= ";
	text += value;
	text += '\n';
}

/*! Writes a string field, checking the maximum length the reader accepts. */
void addString(std::ostream & out, const std::string & value, unsigned int maxSize, const char * field) {
	FUNCID(DataIOWriter::open);
	if (value.size() > maxSize)
		throw ZEB::Exception(ZEB::MessageFormat("%1 is longer than %2 bytes.").arg(field).arg(maxSize), FUNC_ID);
	ZEB::write_string_binary(out, value);
}

/*! The 8-byte creation time of a binary header. */
std::int64_t creationSeconds(const std::string & created) {
	FUNCID(DataIOWriter::open);
	std::int64_t seconds = 0;
	if (!CreationTime::fromText(created, seconds))
		throw ZEB::Exception(ZEB::MessageFormat("Creation time '%1' is neither empty nor of the form "
			"YYYY-MM-DD HH:MM:SS.").arg(created), FUNC_ID);
	return seconds;
}

/*! The element/side numbers as blank-separated text. */
std::string numbersText(const std::vector<std::uint32_t> & nums) {
	std::string text;
	for (std::uint32_t n : nums) {
		if (!text.empty())
			text += ' ';
		NumberText::appendInteger(text, n);
	}
	return text;
}

} // namespace


std::string DataIOWriter::asciiHeader(const DataIO & header, bool preV6) {
	FUNCID(DataIOWriter::open);
	if (header.nums().empty())
		throw ZEB::Exception("An ASCII output file needs at least one element/side number.", FUNC_ID);
	std::ostringstream start;
	if (preV6)
		start << DataIO::PRE_V6_TITLE << " - ascii\n";
	else {
		Version::write(start, DataIO::MAGIC_ASCII, false, DataIO::MAJOR_FILE_VERSION, DataIO::MINOR_FILE_VERSION);
		start << '\n';
	}
	std::string text = start.str();
	addLine(text, DataIO::KW_TYPE, DataIO::outputTypeKeyword(header.type()));
	addLine(text, DataIO::KW_PROJECT_FILE, header.projectFileName());
	addLine(text, DataIO::KW_CREATED, header.createdTime());
	if (!preV6) {
		addLine(text, DataIO::KW_GEO_FILE, header.geoFileName());
		addLine(text, DataIO::KW_GEO_FILE_HASH, std::to_string(header.geoFileHash()));
	}
	addLine(text, DataIO::KW_QUANTITY, header.quantity());
	addLine(text, DataIO::KW_QUANTITY_KW, header.quantityKeyword());
	addLine(text, DataIO::KW_SPACE_TYPE, DataIO::spaceTypeKeyword(header.spaceType()));
	addLine(text, DataIO::KW_TIME_TYPE, DataIO::timeTypeKeyword(header.timeType()));
	addLine(text, DataIO::KW_VALUE_UNIT, header.valueUnit());
	addLine(text, DataIO::KW_TIME_UNIT, header.timeUnit());
	if (header.startYear() != DataIO::UNSET_START_YEAR)
		addLine(text, DataIO::KW_START_YEAR, std::to_string(header.startYear()));
	if (preV6) {
		addLine(text, DataIO::KW_TABLE, "GEOMETRY");
		std::ostringstream geo;
		GeoFileWriter::writeASCIISections(geo, *header.geometry());
		text += geo.str();
		text += '\n';
		addLine(text, header.type() == DataIO::T_FLUX ? DataIO::KW_SIDES : DataIO::KW_ELEMENTS, numbersText(header.nums()));
	}
	else {
		addLine(text, DataIO::KW_INDICES, numbersText(header.nums()));
	}
	return text;
}


std::string DataIOWriter::binaryHeader(const DataIO & header, bool preV6) {
	FUNCID(DataIOWriter::open);
	if (header.nums().size() > DataIO::MAX_NUMS)
		throw ZEB::Exception(ZEB::MessageFormat("More than %1 element/side numbers.").arg(DataIO::MAX_NUMS), FUNC_ID);
	const std::uint32_t nValues = static_cast<std::uint32_t>(
		DataIO::valueCount(header.type(), header.spaceType(), header.nums().size()));
	std::ostringstream out;
	if (preV6) {
		std::string title = std::string(DataIO::PRE_V6_TITLE) + " " + DataIO::PRE_V6_BINARY_MARK;
		title.resize(39, ' ');
		out << title << '\n';
		ZEB::write_value_binary(out, static_cast<std::uint32_t>(header.type()));
		addString(out, header.projectFileName(), DataIO::MAX_FILENAME_LENGTH, "PROJECT_FILE");
		ZEB::write_value_binary(out, creationSeconds(header.createdTime()));
		addString(out, header.quantity(), DataIO::MAX_QUANTITY_LENGTH, "QUANTITY");
		addString(out, header.quantityKeyword(), DataIO::MAX_QUANTITY_LENGTH, "QUANTITY_KW");
		ZEB::write_value_binary(out, static_cast<std::uint32_t>(header.spaceType()));
		ZEB::write_value_binary(out, static_cast<std::uint32_t>(header.timeType()));
		addString(out, header.valueUnit(), DataIO::MAX_UNIT_LENGTH, "VALUE_UNIT");
		addString(out, header.timeUnit(), DataIO::MAX_UNIT_LENGTH, "TIME_UNIT");
		ZEB::write_value_binary(out, header.startYear());
		std::ostringstream geo;
		GeoFileWriter::writeBinaryGeometryData(geo, *header.geometry());
		const std::string geoBytes = geo.str();
		ZEB::write_value_binary(out, static_cast<std::uint32_t>(geoBytes.size()));
		out << geoBytes;
		ZEB::write_vector_binary(out, header.nums());
		out << "HDR_END";
		return out.str();
	}
	Version::write(out, DataIO::MAGIC_BINARY, true, DataIO::MAJOR_FILE_VERSION, DataIO::MINOR_FILE_VERSION);
	ZEB::write_value_binary(out, std::uint32_t(0));	// data section offset, patched below
	ZEB::write_value_binary(out, nValues);
	ZEB::write_value_binary(out, static_cast<std::uint32_t>(header.type()));
	addString(out, header.projectFileName(), DataIO::MAX_FILENAME_LENGTH, "PROJECT_FILE");
	addString(out, header.geoFileName(), DataIO::MAX_FILENAME_LENGTH, "GEO_FILE");
	ZEB::write_value_binary(out, header.geoFileHash());
	ZEB::write_value_binary(out, creationSeconds(header.createdTime()));
	addString(out, header.quantity(), DataIO::MAX_QUANTITY_LENGTH, "QUANTITY");
	addString(out, header.quantityKeyword(), DataIO::MAX_QUANTITY_LENGTH, "QUANTITY_KW");
	ZEB::write_value_binary(out, static_cast<std::uint32_t>(header.spaceType()));
	ZEB::write_value_binary(out, static_cast<std::uint32_t>(header.timeType()));
	addString(out, header.valueUnit(), DataIO::MAX_UNIT_LENGTH, "VALUE_UNIT");
	addString(out, header.timeUnit(), DataIO::MAX_UNIT_LENGTH, "TIME_UNIT");
	ZEB::write_value_binary(out, header.startYear());
	ZEB::write_vector_binary(out, header.nums());
	std::string bytes = out.str();
	const std::uint32_t offset = static_cast<std::uint32_t>(bytes.size());
	std::memcpy(&bytes[16], &offset, sizeof(offset));
	return bytes;
}


void DataIOWriter::open(const std::string & filename, const DataIO & header) {
	FUNCID(DataIOWriter::open);
	const bool preV6 = header.majorFileVersion() < DataIO::MAJOR_FILE_VERSION;
	if (preV6 && header.geometry() == nullptr)
		throw ZEB::Exception("A generation-5 file embeds its geometry, but the container has none.", FUNC_ID);
	const std::string bytes = header.isBinary() ? binaryHeader(header, preV6) : asciiHeader(header, preV6);
	m_out.close();
	m_out.clear();
	m_out.open(filename, std::ios::binary | std::ios::trunc);
	if (!m_out)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot create file '%1'.").arg(filename), FUNC_ID);
	m_filename = filename;
	m_binary = header.isBinary();
	m_nValues = DataIO::valueCount(header.type(), header.spaceType(), header.nums().size());
	m_out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}


void DataIOWriter::appendRecord(double timePoint, const double * values, std::size_t count) {
	FUNCID(DataIOWriter::appendRecord);
	if (!m_out.is_open())
		throw ZEB::Exception("No file open for writing.", FUNC_ID);
	if (count != m_nValues)
		throw ZEB::Exception(ZEB::MessageFormat("Record has %1 values, the header defines %2.")
							 .arg(static_cast<unsigned long>(count)).arg(static_cast<unsigned long>(m_nValues)), FUNC_ID);
	if (m_binary) {
		ZEB::write_value_binary(m_out, timePoint);
		m_out.write(reinterpret_cast<const char*>(values), static_cast<std::streamsize>(count*sizeof(double)));
		return;
	}
	m_line.clear();
	NumberText::appendDouble(m_line, timePoint);
	for (std::size_t i = 0; i < count; ++i) {
		m_line += '\t';
		NumberText::appendDouble(m_line, values[i]);
	}
	m_line += '\n';
	m_out.write(m_line.data(), static_cast<std::streamsize>(m_line.size()));
}


void DataIOWriter::flush() {
	m_out.flush();
}


void DataIOWriter::close() {
	FUNCID(DataIOWriter::close);
	if (!m_out.is_open())
		return;
	m_out.flush();
	const bool ok = static_cast<bool>(m_out);
	m_out.close();
	if (!ok)
		throw ZEB::Exception(ZEB::MessageFormat("Error writing file '%1'.").arg(m_filename), FUNC_ID);
}


void DataIOWriter::write(const std::string & filename, DataIO & container) {
	FUNCID(DataIOWriter::write);
	try {
		DataIOWriter writer;
		writer.open(filename, container);
		for (std::size_t t = 0; t < container.timePoints().size(); ++t)
			writer.appendRecord(container.timePoints()[t], container.data(static_cast<unsigned int>(t)), container.nValues());
		writer.close();
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error writing DataIO file '%1'").arg(filename), FUNC_ID);
	}
}

} // namespace DATAIO
