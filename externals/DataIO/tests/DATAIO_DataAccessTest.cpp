#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_MappedFile.h>
#include <ZEB_NotificationHandler.h>

#include "DATAIO_TestUtils.h"

using DATAIO::DataIO;
using namespace DATAIO_Test;

TEST(DataIOData, AsciiValuesAreParsedLazilyAndCheckedPerTimePoint) {
	const std::string fname = scratchFile("lazy.d6o");
	// CR LF line ends, a short line, a bad number, and a last line still without line end
	writeBytes(fname, "S6OAQXV! 06.0000\r\nTYPE = FIELD\r\nSPACE_TYPE = SINGLE\r\nINDICES = 4 5 6\r\n"
					  "0\t1 2 3\r\n"
					  "  10 \t 4\t5\r\n"
					  "20 7 8 9 10\r\n"
					  "30 1 2 x\r\n"
					  "40 1e3 -2.5E-3 +7\r\n"
					  "50 1 2 3");
	DataIO dio;
	dio.read(fname);
	ASSERT_EQ(dio.timePoints(), (std::vector<double>{ 0, 10, 20, 30, 40 }));
	for (unsigned int t = 0; t < 5; ++t)
		EXPECT_FALSE(dio.isLoaded(t));
	EXPECT_THROW_MSG(dio.data(1), "Not enough values for time index 1 in output file, only got 2 values, but needed 3.");
	EXPECT_THROW_MSG(dio.data(1), "Cannot read the values of time index 1 from file '" + fname + "'.");
	EXPECT_THROW_MSG(dio.data(2), "Not enough values for time index 2 in output file, only got 4 values, but needed 3.");
	EXPECT_THROW(dio.data(3), ZEB::Exception);
	EXPECT_THROW(dio.data(5), ZEB::Exception);
	const double * v = dio.data(4);
	EXPECT_EQ(std::vector<double>(v, v + 3), (std::vector<double>{ 1000, -0.0025, 7 }));
	EXPECT_TRUE(dio.isLoaded(4));
	EXPECT_FALSE(dio.isLoaded(0));
	EXPECT_EQ(dio.data(0)[2], 3.0);
	// a failed time point fails again, with the same message
	EXPECT_THROW_MSG(dio.data(1), "Not enough values for time index 1 in output file, only got 2 values, but needed 3.");
	try {
		dio.dataVector();
		FAIL();
	}
	catch (ZEB::Exception & ex) {
		EXPECT_TRUE(hasRecord(ex, "Error retrieving values for time index 1.", "[DataIO::dataVector]")) << ex.msgWithOrigin();
	}

	// a bad time column fails the read
	writeBytes(fname, "S6OAQXV! 06.0000\nINDICES = 1\n0 1\n1h 2\n");
	EXPECT_THROW_MSG(dio.read(fname), "Error parsing time point from line '1h 2', using substr '1h'.");
	EXPECT_THROW_MSG(dio.read(fname), "Error reading ASCII data.");
	EXPECT_THROW_MSG(dio.read(fname), "Error on reading ASCII content from file.");
}


TEST(DataIOData, BinaryRecordCutShortIsNotListed) {
	// short records are read in blocks, long ones (600 values) straight into place
	for (unsigned int n : { 3u, 600u }) {
		SCOPED_TRACE(n);
		DataIO dio = sampleContainer(true, false, DataIO::T_FIELD, DataIO::ST_SINGLE, n, 4);
		const std::string fname = scratchFile("cut.d6b");
		DATAIO::DataIOWriter::write(fname, dio);
		const std::string good = readBytes(fname);
		// cut within the values, all values missing, cut within the time point
		for (std::size_t missing : { std::size_t(1), std::size_t(8*n), std::size_t(8*n + 1) }) {
			writeBytes(fname, good.substr(0, good.size() - missing));
			DataIO back;
			back.read(fname);
			ASSERT_EQ(back.timePoints().size(), 3u);
			const double * all = back.dataVector();
			EXPECT_EQ(all[2*n + n - 1], dio.data(2)[n - 1]);
		}
		// a file cut after it was read: the values fail, naming the file and the time index
		writeBytes(fname, good);
		DataIO back;
		back.read(fname);
		writeBytes(fname, good.substr(0, good.size() - 8));
		try {
			back.data(3);
			FAIL();
		}
		catch (ZEB::Exception & ex) {
			EXPECT_TRUE(hasRecord(ex, "Error reading data for this time index.", "[DataIO::data]")) << ex.msgWithOrigin();
			EXPECT_TRUE(hasRecord(ex, "Cannot read the values of time index 3 from file '" + fname + "'.", "[DataIO::data]"));
		}
		EXPECT_THROW(back.dataVector(), ZEB::Exception);
	}
}


TEST(DataIOData, AsciiFileCutShortAfterReadingFailsClearlyUntilReadAgain) {
	// the values are parsed from the file itself: lines whose pages were cut off, wholly or in
	// part, give a clear error instead of ending the program; the first lines still load
	DataIO dio = sampleContainer(false, false, DataIO::T_FIELD, DataIO::ST_SINGLE, 600, 8);
	const std::string fname = scratchFile("cut.d6o");
	DATAIO::DataIOWriter::write(fname, dio);
	const std::string good = readBytes(fname);
	DataIO back;
	back.read(fname);
	const std::size_t lineLength = (good.size() - back.dataSectionOffset())/8;
	ASSERT_GT(lineLength, 3*4096u);
	writeBytes(fname, good.substr(0, back.dataSectionOffset() + 2*lineLength + lineLength/2));
	const std::string cut = "File '" + fname + "' became shorter after it was read; refresh it to read it again.";
	EXPECT_THROW_MSG(back.data(6), cut);
	EXPECT_THROW_MSG(back.data(2), cut);
	EXPECT_EQ(back.data(0)[599], dio.data(0)[599]);
	EXPECT_THROW_MSG(back.dataVector(), cut);
	EXPECT_EQ(back.refresh(), DataIO::RR_RELOADED);
	EXPECT_EQ(back.timePoints().size(), 2u);
	EXPECT_EQ(back.dataVector()[2*600 - 1], dio.data(1)[599]);
}


TEST(DataIOData, DataVectorChecksIncreasingTimePoints) {
	DataIO dio;
	dio.setNums({ 1, 2 });
	dio.setSpaceType(DataIO::ST_SINGLE);
	dio.setData({ 1, 3, 2 }, { { 1, 2 }, { 3, 4 }, { 5, 6 } });
	EXPECT_THROW_MSG(dio.dataVector(), "Time value 2 follows 3, not monotonically increasing time points found.");
	dio.setData({ 1, 1 }, { { 1, 2 }, { 3, 4 } });
	EXPECT_THROW_MSG(dio.dataVector(), "Time value 1 follows 1, not monotonically increasing time points found.");
	dio.setData({ 1, 2 }, { { 1, 2 }, { 3, 4 } });
	const double * all = dio.dataVector();
	EXPECT_EQ(all[3], 4.0);
}


TEST(DataIOData, SetDataAndDeleteData) {
	DataIO dio;
	EXPECT_THROW_MSG(dio.setData({ 1, 2 }, { { 1 } }), "Size mismatch between values and timePoints vectors.");
	EXPECT_THROW_MSG(dio.setData({ 1, 2 }, { { 1 }, { 1, 2 } }), "Size mismatch between individual vectors in values vector.");
	dio.setData({ 0, 1, 2, 3, 4 }, { { 0, 0 }, { 1, 10 }, { 2, 20 }, { 3, 30 }, { 4, 40 } });
	EXPECT_EQ(dio.nValues(), 2u);
	EXPECT_THROW_MSG(dio.deleteData(5, 5), "First time index 'idxFrom' out of range.");
	EXPECT_THROW_MSG(dio.deleteData(1, 5), "Second time index 'idxTo' out of range.");
	EXPECT_THROW_MSG(dio.deleteData(3, 2), "Second time index 'idxTo' out of range.");
	dio.deleteData(1, 2);
	EXPECT_EQ(dio.timePoints(), (std::vector<double>{ 0, 3, 4 }));
	EXPECT_EQ(dio.data(1)[1], 30.0);
	EXPECT_EQ(dio.data(2)[0], 4.0);
	dio.deleteData(0, 2);
	EXPECT_TRUE(dio.timePoints().empty());

	// a container read from a file keeps the values of the time points that remain
	for (bool binary : { false, true }) {
		DataIO original = sampleContainer(binary, false, DataIO::T_FIELD, DataIO::ST_SINGLE, 3, 6);
		const std::string fname = scratchFile("delete.out");
		DATAIO::DataIOWriter::write(fname, original);
		DataIO back;
		back.read(fname);
		back.data(5);
		back.deleteData(0, 1);
		back.deleteData(2, 2);
		ASSERT_EQ(back.timePoints().size(), 3u);
		const unsigned int kept[] = { 2, 3, 5 };
		for (unsigned int t = 0; t < 3; ++t) {
			EXPECT_EQ(back.timePoints()[t], original.timePoints()[kept[t]]);
			for (unsigned int i = 0; i < 3; ++i)
				EXPECT_EQ(std::memcmp(&back.data(t)[i], &original.data(kept[t])[i], sizeof(double)), 0);
		}
	}
}


TEST(DataIOData, DetermineDataFormatFromGeometry) {
	DataIO dio;
	dio.setType(DataIO::T_FIELD);
	dio.setSpaceType(DataIO::ST_SINGLE);
	// a row of 4 x 3 x 2 elements: element n has i = n % 4, j = n / 4 % 3, k = n / 12
	const DATAIO::GeoFile geo = sampleGeometry(4, 3, 2);
	const std::vector<std::pair<std::vector<std::uint32_t>, DataIO::DataFormat> > cases = {
		{ { 0, 1, 2, 3 }, DataIO::DF_3D }, { { 0, 4, 8 }, DataIO::DF_3D }, { { 0, 5 }, DataIO::DF_4D }, { { 0, 17 }, DataIO::DF_5D } };
	for (const auto & c : cases) {
		dio.setNums(c.first);
		EXPECT_EQ(dio.determineDataFormat(&geo), c.second) << c.first.back();
		EXPECT_EQ(dio.dataFormat(), c.second);
	}
	dio.setNums({ 5, 5 });
	EXPECT_THROW_MSG(dio.determineDataFormat(&geo), "Cannot determine data format.");
	EXPECT_EQ(dio.dataFormat(), DataIO::NUM_DF);
	dio.setNums({ 0, 24 });
	EXPECT_THROW_MSG(dio.determineDataFormat(&geo), "Invalid element index #24, elements vector has only 24 entries.");
	EXPECT_THROW_MSG(dio.determineDataFormat(nullptr), "Empty/uninitialized geometry data.");
	DATAIO::GeoFile empty;
	EXPECT_THROW_MSG(dio.determineDataFormat(&empty), "Empty/uninitialized geometry data.");
	DATAIO::GeoFile noElements = geo;
	noElements.setElements({});
	EXPECT_THROW_MSG(dio.determineDataFormat(&noElements), "Missing/empty elements vector in Geometry file.");

	// fluxes look at sides: 5 sides per row of 4 elements, 6 rows
	dio.setType(DataIO::T_FLUX);
	dio.setNums({ 0, 4 });		// both ends of the first row: positions differ in x only
	EXPECT_EQ(dio.determineDataFormat(&geo), DataIO::DF_3D);
	dio.setNums({ 0, 30 });
	EXPECT_THROW_MSG(dio.determineDataFormat(&geo), "Invalid side index #30, sides vector has only 30 entries.");
	DATAIO::GeoFile noSides = geo;
	noSides.setSides({});
	EXPECT_THROW_MSG(dio.determineDataFormat(&noSides), "Missing/empty sides vector in Geometry file.");

	// one value per time point needs no geometry; so does a reference
	dio.setSpaceType(DataIO::ST_INTEGRAL);
	EXPECT_EQ(dio.nValues(), 1u);
	EXPECT_EQ(dio.determineDataFormat(nullptr), DataIO::DF_2D);
	dio.setSpaceType(DataIO::ST_SINGLE);
	dio.setType(DataIO::T_REFERENCE);
	EXPECT_EQ(dio.determineDataFormat(nullptr), DataIO::DF_2D);
}


TEST(DataIOData, ReadingReportsProgressUpToTheWholeFile) {
	/*! Records every fraction it is told. */
	struct Recorder : public ZEB::NotificationHandler {
		void notify(double fraction) override { m_fractions.push_back(fraction); }
		std::vector<double> m_fractions;
	};
	for (bool binary : { false, true }) {
		DataIO dio = sampleContainer(binary, false, DataIO::T_FIELD, DataIO::ST_SINGLE, 4, 50);
		const std::string fname = scratchFile("progress.out");
		DATAIO::DataIOWriter::write(fname, dio);
		Recorder recorder;
		DataIO back;
		back.read(fname, &recorder);
		ASSERT_FALSE(recorder.m_fractions.empty());
		EXPECT_GE(recorder.m_fractions.front(), 0.0);
		EXPECT_TRUE(std::is_sorted(recorder.m_fractions.begin(), recorder.m_fractions.end()));
		EXPECT_EQ(recorder.m_fractions.back(), 1.0);
	}
}


TEST(DataIOMappedFile, FilesThatCannotBeMappedAreReadIntoMemory) {
	// a file of the kernel's interface cannot be mapped, and holds fewer bytes than its size says
	const std::string path = "/sys/kernel/mm/transparent_hugepage/enabled";
	std::ifstream in(path);
	std::string text;
	if (!std::getline(in, text))
		GTEST_SKIP() << "no " << path;
	DATAIO::MappedFile file;
	file.map(path, 4096);
	EXPECT_EQ(std::string(file.data(), text.size()), text);
	EXPECT_EQ(file.data()[4095], '\0');
	EXPECT_TRUE(file.isCut());
	// the bytes read are the only copy: letting pages go keeps them
	file.release(0, 4096);
	EXPECT_EQ(std::string(file.data(), text.size()), text);
}
