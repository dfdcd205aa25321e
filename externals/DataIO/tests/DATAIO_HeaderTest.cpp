#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>

#include "DATAIO_TestUtils.h"

using DATAIO::DataIO;
using namespace DATAIO_Test;

namespace {

/*! Writes a generation-6 ASCII file: magic block, the given header lines, data lines. */
std::string asciiFile(const std::string & name, const std::string & header, const std::string & data = "") {
	const std::string fname = scratchFile(name);
	writeBytes(fname, "S6OAQXV! 06.0000\n" + header + data);
	return fname;
}

} // namespace


TEST(DataIOHeader, AsciiKeywordsWithSharedPrefixesAreNotConfused) {
	// GEO_FILE_HASH before GEO_FILE and QUANTITY_KW before QUANTITY, and the other way round
	const std::string bodies[] = {
		"GEO_FILE_HASH = 42\nGEO_FILE      = wall.g6a\nQUANTITY_KW   = Temperature\nQUANTITY      = Temperature [C]\n",
		"GEO_FILE      = wall.g6a\nGEO_FILE_HASH = 42\nQUANTITY      = Temperature [C]\nQUANTITY_KW   = Temperature\n" };
	for (const std::string & body : bodies) {
		DataIO dio;
		dio.read(asciiFile("prefix.d6o", "TYPE = FIELD\n" + body + "INDICES = 3 1 2\n", "0 1 2 3\n"));
		EXPECT_EQ(dio.geoFileName(), "wall.g6a");
		EXPECT_EQ(dio.geoFileHash(), 42u);
		EXPECT_EQ(dio.quantity(), "Temperature [C]");
		EXPECT_EQ(dio.quantityKeyword(), "Temperature");
		EXPECT_EQ(dio.nums(), (std::vector<std::uint32_t>{ 3, 1, 2 }));
	}
	// a GEO_FILE_HASH alone leaves the geometry file name empty
	DataIO dio;
	dio.read(asciiFile("prefix2.d6o", "GEO_FILE_HASH = 7\nQUANTITY_KW = Flux\nINDICES = 0\n"));
	EXPECT_TRUE(dio.geoFileName().empty());
	EXPECT_TRUE(dio.quantity().empty());
	EXPECT_EQ(dio.quantityKeyword(), "Flux");
}


TEST(DataIOHeader, AsciiValuesEnumerationsAndSkippedLines) {
	const std::string header =
		"\n"
		"   # a comment line without equals sign\n"
		"#\t#\n"
		"TYPE          = MY_FLUX_OUTPUT\n"			// recognised by containment
		"SPACE_TYPE    = somehow averaged\n"		// none of the keywords: undetermined
		"TIME_TYPE     = INTEGRAL over time\n"
		"PROJECT_FILE  = \n"						// empty value: skipped
		"VALUE_UNIT=kg/m3\n"						// value starts at the second character after '='
		"TIME_UNIT \t = \t d\n"
		"START_YEAR    = -5\n"
		"UNKNOWN_KW    = ignored\n"
		"CREATED       = 2001-02-03 04:05:06 # not a comment\n"
		"INDICES       = 10\t11   12\n";
	DataIO dio;
	dio.read(asciiFile("values.d6o", header, "\t \n0 1 2 3\n   \n1.5\t4 5 6\n"));
	EXPECT_EQ(dio.type(), DataIO::T_FLUX);
	EXPECT_EQ(dio.spaceType(), DataIO::NUM_ST);
	EXPECT_EQ(dio.timeType(), DataIO::TT_INTEGRAL);
	EXPECT_TRUE(dio.projectFileName().empty());
	EXPECT_EQ(dio.valueUnit(), "g/m3");
	EXPECT_EQ(dio.timeUnit(), "d");
	EXPECT_EQ(dio.startYear(), -5);
	EXPECT_EQ(dio.createdTime(), "2001-02-03 04:05:06 # not a comment");
	EXPECT_EQ(dio.nValues(), 3u);
	EXPECT_EQ(dio.timePoints(), (std::vector<double>{ 0, 1.5 }));
	EXPECT_EQ(dio.data(1)[2], 6.0);
	// the data section starts right after the INDICES line
	const std::string text = readBytes(dio.filename());
	EXPECT_EQ(dio.dataSectionOffset(), text.find("\t \n0 1 2 3"));
	// the magic block's version digits
	EXPECT_EQ(dio.majorFileVersion(), 6u);
	EXPECT_EQ(dio.minorFileVersion(), 0u);
	DataIO v;
	const std::string fname = scratchFile("version.d6o");
	writeBytes(fname, "S6OAQXV!x06xx017\nINDICES = 1\n");
	v.openAndReadHeader(fname);
	EXPECT_EQ(v.minorFileVersion(), 17u);
	// a header without START_YEAR names no start year
	EXPECT_EQ(v.startYear(), -10000);
}


TEST(DataIOHeader, AsciiHeaderValueFailures) {
	DataIO dio;
	EXPECT_THROW_MSG(dio.read(asciiFile("h1.d6o", "GEO_FILE_HASH = \nINDICES = 1\n")), "Missing value for GEO_FILE_HASH keyword.");
	EXPECT_THROW_MSG(dio.read(asciiFile("h2.d6o", "GEO_FILE_HASH = 12a\nINDICES = 1\n")), "Invalid value for GEO_FILE_HASH keyword.");
	EXPECT_THROW_MSG(dio.read(asciiFile("h3.d6o", "START_YEAR =\nINDICES = 1\n")), "Missing value for START_YEAR keyword.");
	EXPECT_THROW_MSG(dio.read(asciiFile("h4.d6o", "START_YEAR = 2.5\nINDICES = 1\n")), "Invalid value for START_YEAR keyword.");
	EXPECT_THROW_MSG(dio.read(asciiFile("h5.d6o", "INDICES = \n")), "Missing value for ELEMENTS|SIDES|INDICES keyword.");
	EXPECT_THROW_MSG(dio.read(asciiFile("h6.d6o", "INDICES = 1 -2\n")), "Invalid value for ELEMENTS|SIDES|INDICES keyword.");
	// the whole chain: header reader, header wrapper, read wrapper with the file name
	try {
		dio.read(asciiFile("h7.d6o", "INDICES = 1 x\n"));
		FAIL();
	}
	catch (ZEB::Exception & ex) {
		ASSERT_EQ(ex.messages().size(), 3u) << ex.msgWithOrigin();
		EXPECT_EQ(ex.messages()[0].m_where, "[DataIO::readASCIIHeader]");
		EXPECT_TRUE(hasRecord(ex, "Error on reading ASCII header from file.", "[DataIO::openAndReadHeader]"));
		EXPECT_TRUE(hasRecord(ex, "Error reading DataIO file '" + scratchFile("h7.d6o") + "'", "[DataIO::read]"));
	}
	EXPECT_TRUE(dio.timePoints().empty());
	EXPECT_TRUE(dio.filename().empty());
	// a header that ends before its INDICES line, or inside it
	EXPECT_THROW(dio.read(asciiFile("h8.d6o", "TYPE = FIELD\n")), ZEB::Exception);
	EXPECT_THROW(dio.read(asciiFile("h9.d6o", "INDICES = 1 2")), ZEB::Exception);
}


TEST(DataIOHeader, FileRecognition) {
	DataIO dio;
	EXPECT_THROW_MSG(dio.read(""), "No filename or invalid file path given.");
	const std::string missing = scratchFile("does-not-exist.d6o");
	EXPECT_THROW_MSG(dio.read(missing), "File '" + missing + "' doesn't exist.");
	EXPECT_THROW_MSG(dio.read(scratchFile("")), "Cannot open file '" + scratchFile("") + "'");

	const std::string fname = scratchFile("magic.d6o");
	writeBytes(fname, "");
	EXPECT_THROW_MSG(dio.read(fname), "File format not recognized!");
	writeBytes(fname, "S6OXQXV! 06.0000\nINDICES = 1\n");
	EXPECT_THROW_MSG(dio.read(fname), "Invalid magic header or unknown file format.");
	EXPECT_THROW_MSG(dio.read(fname), "File format not recognized!");
	writeBytes(fname, "S6OAQXV? 06.0000\nINDICES = 1\n");
	EXPECT_THROW_MSG(dio.read(fname), "Wrong second magic number!");
	// a geometry file is no output file
	writeBytes(fname, "S6GAQXV! 06.0000\nINDICES = 1\n");
	EXPECT_THROW_MSG(dio.read(fname), "File format not recognized!");
	writeBytes(fname, "S6OAQXV! 07.0000\nINDICES = 1\n");
	EXPECT_THROW_MSG(dio.read(fname), "Unknown major file version, not able to read this format!");

	// generation 5: the title must lie within the first 40 bytes
	writeBytes(fname, "Soravi 5 Output file - ascii\nTYPE = FIELD\nSPACE_TYPE = MEAN\nELEMENTS = 1 2\n1 2\n");
	dio.read(fname);
	EXPECT_EQ(dio.majorFileVersion(), 5u);
	EXPECT_FALSE(dio.isBinary());
	EXPECT_EQ(dio.dataFormat(), DataIO::DF_2D);
	EXPECT_EQ(dio.data(0)[0], 2.0);
	writeBytes(fname, std::string(21, ' ') + "Soravi 5 Output file\nELEMENTS = 1\n");
	EXPECT_THROW_MSG(dio.read(fname), "File format not recognized!");
}


TEST(DataIOHeader, BinaryHeaderConsistencyChecks) {
	DataIO dio = sampleContainer(true, false, DataIO::T_FIELD, DataIO::ST_SINGLE, 4, 2);
	const std::string fname = scratchFile("consistency.d6b");
	DATAIO::DataIOWriter::write(fname, dio);
	const std::string good = readBytes(fname);

	// field 1: data section offset
	std::string bad = good;
	bad[16] = static_cast<char>(bad[16] + 1);
	writeBytes(fname, bad);
	DataIO back;
	EXPECT_THROW_MSG(back.read(fname), "Data section offset defined at header start does not match file offset after reading header section.");
	// field 2: number of values; 4 element numbers and SINGLE give 4
	bad = good;
	bad[20] = 9;
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Number of values in data section 9 defined at header start does not match "
					 "number of values computed from INDICES and SPACE_TYPE = 4.");
	// the version word: major in the lowest byte, minor in the next
	bad = good;
	bad[8] = 6;
	bad[9] = 3;
	writeBytes(fname, bad);
	back.read(fname);
	EXPECT_EQ(back.majorFileVersion(), 6u);
	EXPECT_EQ(back.minorFileVersion(), 3u);
	EXPECT_EQ(back.timePoints().size(), 2u);
}


TEST(DataIOHeader, PreV6EmbeddedGeometryChecks) {
	DataIO dio = sampleContainer(false, true, DataIO::T_FIELD, DataIO::ST_SINGLE, 3, 1);
	const std::string fname = scratchFile("prev6.d5o");
	DATAIO::DataIOWriter::write(fname, dio);
	const std::string good = readBytes(fname);

	// the ELEMENTS line ends the embedded geometry and needs its '='
	std::string bad = good;
	bad.replace(bad.find("ELEMENTS      = "), 16, "ELEMENTS        ");
	writeBytes(fname, bad);
	DataIO back;
	EXPECT_THROW_MSG(back.read(fname), "Missing = character in last line of geometry header.");
	// an element referencing an unknown material
	bad = good;
	const std::size_t pos = bad.find("ELEMENT_GEOMETRY");
	bad.replace(bad.find(" 2002 ", pos), 6, " 2003 ");
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Error in geometry data, element #1 references material with ID #2003, "
					 "which does not exist in materials table.\n");
	EXPECT_THROW_MSG(back.read(fname), "Error in DataIO or embedded geometry data.");
	// a broken element table inside the embedded geometry
	bad = good;
	bad.insert(bad.find("\n", pos) + 1, "  1 0.1 0.1\n");
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Currupt element table!");
	EXPECT_THROW_MSG(back.read(fname), "Error reading geometry file.");
	// a geometry section that never ends
	writeBytes(fname, good.substr(0, good.find("ELEMENTS      = ")));
	EXPECT_THROW_MSG(back.read(fname), "Error reading geometry section.");
}
