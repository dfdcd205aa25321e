#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <sstream>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_GeoFileWriter.h>

#include "DATAIO_TestUtils.h"

using DATAIO::DataIO;
using namespace DATAIO_Test;

namespace {

/*! Reads a container and everything in it; only ZEB::Exception may come out. Returns true
	when reading succeeded.
*/
bool readEverything(const std::string & fname) {
	DataIO dio;
	try {
		dio.read(fname);
	}
	catch (ZEB::Exception &) {
		return false;
	}
	for (std::size_t t = 0; t < dio.timePoints().size(); ++t) {
		try {
			dio.data(static_cast<unsigned int>(t));
		}
		catch (ZEB::Exception &) {
		}
	}
	try {
		dio.dataVector();
	}
	catch (ZEB::Exception &) {
	}
	return true;
}

/*! Overwrites 4 bytes at pos with a 32-bit value. */
void patch32(std::string & bytes, std::size_t pos, std::uint32_t v) {
	std::memcpy(&bytes[pos], &v, sizeof(v));
}

/*! Expects reading the file to fail, but not with the message msg: a value at its limit passes the
	limit check and fails later, when the file turns out too short.
*/
void expectFailureBeyondLimit(const std::string & fname, const std::string & msg) {
	try {
		DataIO().read(fname);
		ADD_FAILURE() << "no exception";
	}
	catch (ZEB::Exception & ex) {
		EXPECT_FALSE(hasMessage(ex, msg)) << ex.msgWithOrigin();
	}
}

/*! Position of the 32-bit length of the first string field of a binary generation-6 header. */
const std::size_t PROJECT_FILE_LENGTH_POS = 16 + 3*4;

} // namespace


TEST(DataIOCorrupt, TruncatedHeaderAtEveryByteFailsCleanly) {
	for (bool preV6 : { false, true })
		for (bool binary : { false, true }) {
			DataIO dio = sampleContainer(binary, preV6, DataIO::T_FLUX, DataIO::ST_SINGLE, 3, 2);
			const std::string fname = scratchFile("full.out");
			DATAIO::DataIOWriter::write(fname, dio);
			const std::string good = readBytes(fname);
			DataIO back;
			back.read(fname);
			const std::size_t headerSize = back.dataSectionOffset();
			ASSERT_GT(headerSize, 40u);
			const std::string cut = scratchFile("cut.out");
			for (std::size_t len = 0; len < headerSize; ++len) {
				writeBytes(cut, good.substr(0, len));
				DataIO part;
				EXPECT_THROW(part.read(cut), ZEB::Exception) << "preV6 " << preV6 << " binary " << binary << " length " << len;
			}
			// the header alone is a valid file without time points
			writeBytes(cut, good.substr(0, headerSize));
			DataIO part;
			part.read(cut);
			EXPECT_TRUE(part.timePoints().empty());
			EXPECT_EQ(part.nValues(), 3u);
			EXPECT_THROW_MSG(part.dataVector(), "No data in output file.");
		}
}


TEST(DataIOCorrupt, DeclaredLengthsAboveMaximumOrFileSize) {
	DataIO dio = sampleContainer(true, false, DataIO::T_FIELD, DataIO::ST_SINGLE, 3, 2);
	const std::string fname = scratchFile("lengths.d6b");
	DATAIO::DataIOWriter::write(fname, dio);
	const std::string good = readBytes(fname);
	DataIO back;
	back.read(fname);
	// the number vector ends the header: a 32-bit count and three numbers
	const std::size_t numsPos = back.dataSectionOffset() - 3*4 - 4;

	std::string bad = good;
	patch32(bad, PROJECT_FILE_LENGTH_POS, 10001);
	writeBytes(fname, bad);
	try {
		back.read(fname);
		FAIL();
	}
	catch (ZEB::Exception & ex) {
		EXPECT_TRUE(hasRecord(ex, "String length exceeds given maximum!", "[read_string_binary]")) << ex.msgWithOrigin();
		EXPECT_TRUE(hasRecord(ex, "Error reading PROJECT_FILE property in header: String length exceeds given maximum!",
							  "[DataIO::readBinaryHeader]")) << ex.msgWithOrigin();
		EXPECT_TRUE(hasRecord(ex, "Error reading binary header.", "[DataIO::readBinaryHeader]"));
		EXPECT_TRUE(hasRecord(ex, "Error on reading binary header from file.", "[DataIO::openAndReadHeader]"));
	}
	// within the maximum, but longer than the rest of the file: rejected before allocating
	patch32(bad, PROJECT_FILE_LENGTH_POS, 10000);
	writeBytes(fname, bad);
	expectFailureBeyondLimit(fname, "String length exceeds given maximum!");

	// the GEO_FILE string follows the project file name
	bad = good;
	const std::uint32_t projectLength = static_cast<std::uint32_t>(dio.projectFileName().size());
	patch32(bad, PROJECT_FILE_LENGTH_POS + 4 + projectLength, 0xFFFFFFFFu);
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Error reading GEO_FILE property in header: String length exceeds given maximum!");

	bad = good;
	patch32(bad, numsPos, 1000001);
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Error reading element/sides numbers vector: Vector length exceeds given maximum!");
	patch32(bad, numsPos, 1000000);
	writeBytes(fname, bad);
	expectFailureBeyondLimit(fname, "Vector length exceeds given maximum!");
}


TEST(DataIOCorrupt, PreV6BinaryGeometrySectionAndEndTag) {
	DataIO dio = sampleContainer(true, true, DataIO::T_FIELD, DataIO::ST_SINGLE, 3, 1);
	const std::string fname = scratchFile("prev6.d5b");
	DATAIO::DataIOWriter::write(fname, dio);
	const std::string good = readBytes(fname);
	DataIO back;
	back.read(fname);
	const std::size_t tagPos = back.dataSectionOffset() - 7;
	ASSERT_EQ(good.substr(tagPos, 7), "HDR_END");

	std::string bad = good;
	bad[tagPos + 3] = 'x';
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Binary header data corrupt! Failed to read HDR_END tag.");
	EXPECT_THROW_MSG(back.read(fname), "Error reading binary header (pre V6 version).");

	// the geometry size field: find it as the 32-bit value that equals the geometry bytes' length
	std::ostringstream geo;
	DATAIO::GeoFileWriter::writeBinaryGeometryData(geo, *dio.geometry());
	const std::uint32_t geoSize = static_cast<std::uint32_t>(geo.str().size());
	const std::size_t sizePos = good.find(geo.str()) - 4;
	std::uint32_t stored;
	std::memcpy(&stored, &good[sizePos], 4);
	ASSERT_EQ(stored, geoSize);
	bad = good;
	patch32(bad, sizePos, geoSize + 4);
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "[DataIO::readBinaryHeader]  Size mismatch in geometry section!");
	patch32(bad, sizePos, geoSize - 4);
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Error reading geometry data:\n");
	patch32(bad, sizePos, 0x7FFFFFFF);
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Binary header data corrupt!");
}


TEST(DataIOCorrupt, RandomDamageNeverCrashesOrEscapes) {
	// flip, overwrite and cut bytes of valid files of every kind; reading must either succeed or
	// throw ZEB::Exception (anything else fails the test, a crash aborts it)
	std::mt19937 gen(12345);
	int failures = 0;
	int successes = 0;
	for (bool preV6 : { false, true })
		for (bool binary : { false, true }) {
			DataIO dio = sampleContainer(binary, preV6, DataIO::T_FIELD, DataIO::ST_SINGLE, 4, 6);
			const std::string fname = scratchFile("damaged.out");
			DATAIO::DataIOWriter::write(fname, dio);
			const std::string good = readBytes(fname);
			for (int round = 0; round < 300; ++round) {
				std::string bad = good;
				const int changes = 1 + static_cast<int>(gen() % 4);
				for (int c = 0; c < changes; ++c) {
					const std::size_t pos = gen() % bad.size();
					switch (gen() % 3) {
						case 0 : bad[pos] = static_cast<char>(bad[pos] ^ (1 << (gen() % 8))); break;
						case 1 : bad[pos] = static_cast<char>(gen()); break;
						default : bad.resize(pos); break;
					}
					if (bad.empty())
						break;
				}
				writeBytes(fname, bad);
				if (readEverything(fname))
					++successes;
				else
					++failures;
			}
		}
	// both outcomes occur, so the damage reached header and data
	EXPECT_GT(failures, 0);
	EXPECT_GT(successes, 0);
}


TEST(DataIOCorrupt, OverlongLinesAndNulBytesFailNamingFileAndLine) {
	const std::string fname = scratchFile("limits.d6o");
	const std::string header = "S6OAQXV! 06.0000\nSPACE_TYPE = SINGLE\nINDICES = 1 2\n";
	const std::string longLine = "Line 5 of file '" + fname + "' is longer than 24 bytes: the file is corrupt or no text file.";
	DataIO dio;
	dio.setMaxLineLength(24);
	// a line of exactly the limit is read; one byte more fails, with or without line end
	const std::string atLimit = "1 " + std::string(18, '0') + "2 3";
	ASSERT_EQ(atLimit.size(), 23u);
	writeBytes(fname, header + "0 1 2\n" + atLimit + "4\n");
	dio.read(fname);
	EXPECT_EQ(dio.timePoints().size(), 2u);
	writeBytes(fname, header + "0 1 2\n" + atLimit + "45\n");
	EXPECT_THROW_MSG(dio.read(fname), longLine);
	writeBytes(fname, header + "0 1 2\n" + std::string(100, '7'));
	EXPECT_THROW_MSG(dio.read(fname), longLine);
	writeBytes(fname, "S6OAQXV! 06.0000\nINDICES = 1 2 3 4 5 6 7 8\n");
	EXPECT_THROW_MSG(dio.read(fname), "Line 2 of file '" + fname + "' is longer than 24 bytes: the file is corrupt or no text file.");
	EXPECT_EQ(dio.maxLineLength(), 24u);

	// binary data where text belongs: after the header, with or without line end, and in the header
	const std::string nul(3, '\0');
	const std::string nulLine = "Line 5 of file '" + fname + "' contains NUL bytes: binary data where text is expected.";
	writeBytes(fname, header + "0 1 2\n" + nul);
	EXPECT_THROW_MSG(dio.read(fname), nulLine);
	writeBytes(fname, header + "0 1 2\n" + nul + "\x7f\n");
	EXPECT_THROW_MSG(dio.read(fname), nulLine);
	writeBytes(fname, "S6OAQXV! 06.0000\nQUANTITY = a" + nul + "\nINDICES = 1\n");
	EXPECT_THROW_MSG(dio.read(fname), "Line 2 of file '" + fname + "' contains NUL bytes: binary data where text is expected.");
}


TEST(GeoFileCorrupt, TruncatedAndHostileBinaryGeometry) {
	const DATAIO::GeoFile geo = sampleGeometry(3, 2, 1);
	const std::string fname = scratchFile("geo.g6b");
	DATAIO::GeoFileWriter::write(fname, geo, true);
	const std::string good = readBytes(fname);
	const std::string cut = scratchFile("geocut.g6b");
	for (std::size_t len = 0; len < good.size(); ++len) {
		writeBytes(cut, good.substr(0, len));
		DATAIO::GeoFile part;
		EXPECT_THROW(part.read(cut), ZEB::Exception) << "length " << len;
		EXPECT_TRUE(part.isEmpty());
	}
	DATAIO::GeoFile back;
	std::string bad = good;
	patch32(bad, 16, 100001);
	writeBytes(fname, bad);
	EXPECT_THROW_MSG(back.read(fname), "Number of materials in materials table > 100000, binary file probably corrupt!");
	EXPECT_THROW_MSG(back.read(fname), "Error reading binary geometry data.");
	EXPECT_THROW_MSG(back.read(fname), "Error reading geometry file '" + fname + "'.");
	patch32(bad, 16, 100000);	// allowed count, but far more than the file holds
	writeBytes(fname, bad);
	try {
		back.read(fname);
		ADD_FAILURE() << "no exception";
	}
	catch (ZEB::Exception & ex) {
		EXPECT_FALSE(hasMessage(ex, "Number of materials in materials table > 100000, binary file probably corrupt!"));
	}
}
