#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_GeoFileWriter.h>

#include "DATAIO_TestUtils.h"

using DATAIO::DataIO;
using namespace DATAIO_Test;

namespace {

/*! Bitwise equality; ASCII files keep NaN only as "a NaN". */
bool sameValue(double a, double b) {
	return std::memcmp(&a, &b, sizeof(double)) == 0 || (std::isnan(a) && std::isnan(b));
}

/*! The header fields every variant stores, as texts. */
std::vector<std::string> headerFields(const DataIO & d) {
	return { std::to_string(d.isBinary()), std::to_string(d.type()), d.projectFileName(), d.quantity(), d.quantityKeyword(),
			 std::to_string(d.spaceType()), std::to_string(d.timeType()), d.valueUnit(), d.timeUnit(),
			 std::to_string(d.startYear()), d.createdTime() };
}

/*! Compares everything a file of this variant stores. */
void expectSameContainer(DataIO & expected, DataIO & actual) {
	const bool preV6 = expected.majorFileVersion() < 6;
	EXPECT_EQ(actual.majorFileVersion(), preV6 ? 5u : 6u);
	EXPECT_EQ(headerFields(actual), headerFields(expected));
	EXPECT_EQ(actual.nums(), expected.nums());
	if (!preV6) {
		EXPECT_EQ(actual.geoFileName(), expected.geoFileName());
		EXPECT_EQ(actual.geoFileHash(), expected.geoFileHash());
	}
	else {
		ASSERT_NE(actual.geometry(), nullptr);
		EXPECT_TRUE(actual.geometry()->sameContent(*expected.geometry()));
		EXPECT_EQ(actual.geometry()->majorFileVersion(), 5u);
	}
	ASSERT_EQ(actual.nValues(), expected.nValues());
	ASSERT_EQ(actual.timePoints().size(), expected.timePoints().size());
	const unsigned int n = actual.nValues();
	for (std::size_t t = 0; t < actual.timePoints().size(); ++t) {
		EXPECT_TRUE(sameValue(actual.timePoints()[t], expected.timePoints()[t])) << "time point " << t;
		const double * a = actual.data(static_cast<unsigned int>(t));
		const double * e = expected.data(static_cast<unsigned int>(t));
		for (unsigned int i = 0; i < n; ++i)
			ASSERT_TRUE(sameValue(a[i], e[i])) << "time point " << t << " value " << i << ": " << a[i] << " != " << e[i];
	}
}

} // namespace


TEST(DataIORoundTrip, EveryVariantGivesBackHeaderTimePointsAndValuesBitForBit) {
	const DataIO::OutputType types[] = { DataIO::T_FIELD, DataIO::T_FLUX, DataIO::T_REFERENCE };
	const DataIO::SpaceType spaceTypes[] = { DataIO::ST_SINGLE, DataIO::ST_MEAN };
	for (bool preV6 : { false, true })
		for (bool binary : { false, true })
			for (DataIO::OutputType type : types)
				for (DataIO::SpaceType spaceType : spaceTypes) {
					SCOPED_TRACE(testing::Message() << "preV6 " << preV6 << " binary " << binary
								 << " type " << type << " space type " << spaceType);
					DataIO original = sampleContainer(binary, preV6, type, spaceType, 7, 40);
					const std::string fname = scratchFile("roundtrip.out");
					DATAIO::DataIOWriter::write(fname, original);
					DataIO back;
					back.read(fname);
					expectSameContainer(original, back);
					// reading and writing again does not change a single byte
					const std::string again = scratchFile("again.out");
					DATAIO::DataIOWriter::write(again, back);
					EXPECT_EQ(readBytes(again), readBytes(fname));
					EXPECT_EQ(back.nValues(), spaceType == DataIO::ST_MEAN && type != DataIO::T_REFERENCE ? 1u : 7u);
					// the values all at once, in row-major order
					const double * all = back.dataVector();
					for (std::size_t t = 0; t < back.timePoints().size(); ++t)
						for (unsigned int i = 0; i < back.nValues(); ++i)
							ASSERT_TRUE(sameValue(all[t*back.nValues() + i], original.data(static_cast<unsigned int>(t))[i]));
					// one value per time point gives 2D at once; generation 5 determines the rest itself
					if (back.nValues() == 1 || type == DataIO::T_REFERENCE)
						EXPECT_EQ(back.dataFormat(), DataIO::DF_2D);
					else if (preV6)
						EXPECT_EQ(back.dataFormat(), DataIO::DF_4D);
					else
						EXPECT_EQ(back.dataFormat(), DataIO::NUM_DF);
				}
}


TEST(DataIORoundTrip, LargeFilesGiveBackEveryValueWhenLoadedAllAtOnce) {
	// large enough for dataVector() to parse an ASCII file on several threads and to read binary
	// records straight into place; some time points are loaded before. In the ASCII file one line
	// holds numbers only the general parser takes, two later lines are broken: dataVector() names
	// the first of them and loads all others.
	const unsigned int n = 1000;
	const std::size_t count = 900;
	for (bool binary : { false, true }) {
		SCOPED_TRACE(binary ? "binary" : "ASCII");
		DataIO original = sampleContainer(binary, false, DataIO::T_FIELD, DataIO::ST_SINGLE, n, count);
		const std::string fname = scratchFile("large.out");
		DATAIO::DataIOWriter::write(fname, original);
		std::vector<double> expected(original.dataVector(), original.dataVector() + count*n);
		if (!binary) {
			std::string bytes = readBytes(fname);
			std::vector<std::size_t> lineStarts;	// of the last count lines
			for (std::size_t p = bytes.size() - 1; lineStarts.size() < count; --p)
				if (bytes[p - 1] == '\n')
					lineStarts.insert(lineStarts.begin(), p);
			auto valueStart = [&](std::size_t t, std::size_t i) {	// position of value i of time point t
				std::size_t p = lineStarts[t];
				for (std::size_t k = 0; k <= i; ++k)
					p = bytes.find('\t', p) + 1;
				return p;
			};
			bytes.insert(bytes.find('\n', lineStarts[800]), "\t7");
			bytes.insert(valueStart(700, 5), "x");
			bytes.replace(valueStart(300, 0), valueStart(300, 2) - 1 - valueStart(300, 0), "+5\t1E+0");
			expected[300*n] = 5;
			expected[300*n + 1] = 1;
			writeBytes(fname, bytes);
		}
		DataIO back;
		back.read(fname);
		back.data(10);
		back.data(count - 1);
		if (binary)
			back.dataVector();
		else
			EXPECT_THROW_MSG(back.dataVector(), "Error retrieving values for time index 700.");
		for (std::size_t t = 0; t < count; ++t) {
			if (!binary && (t == 700 || t == 800)) {
				EXPECT_FALSE(back.isLoaded(static_cast<unsigned int>(t)));
				continue;
			}
			ASSERT_TRUE(back.isLoaded(static_cast<unsigned int>(t))) << t;
			const double * v = back.data(static_cast<unsigned int>(t));
			for (unsigned int i = 0; i < n; ++i)
				ASSERT_TRUE(sameValue(v[i], expected[t*n + i])) << "time point " << t << " value " << i;
		}
		if (!binary)
			EXPECT_THROW_MSG(back.data(800), "Not enough values for time index 800 in output file, only got 1001 "
							 "values, but needed 1000.");
	}
}


TEST(DataIORoundTrip, SpecialValues) {
	DataIO dio = sampleContainer(false, false, DataIO::T_FIELD, DataIO::ST_SINGLE, 3, 0);
	const double inf = std::numeric_limits<double>::infinity();
	dio.setData({ -1e300, 0, 5e-324 }, { { inf, -inf, std::nan("") }, { 1, 2, 3 }, { -0.0, 0.0, 1e-310 } });
	for (bool binary : { false, true }) {
		dio.setBinary(binary);
		const std::string fname = scratchFile("special.out");
		DATAIO::DataIOWriter::write(fname, dio);
		DataIO back;
		back.read(fname);
		expectSameContainer(dio, back);
		EXPECT_TRUE(std::signbit(back.data(2)[0]));
	}
}


TEST(DataIORoundTrip, WriterRejectsWhatTheFileCannotHold) {
	DataIO dio = sampleContainer(false, false, DataIO::T_FIELD, DataIO::ST_SINGLE, 2, 2);
	const std::string fname = scratchFile("reject.out");
	dio.setQuantity("two\nlines");
	EXPECT_THROW(DATAIO::DataIOWriter::write(fname, dio), ZEB::Exception);
	dio.setQuantity("ok");
	dio.setBinary(true);
	dio.setCreatedTime("yesterday");
	EXPECT_THROW(DATAIO::DataIOWriter::write(fname, dio), ZEB::Exception);
	dio.setCreatedTime("");
	dio.setValueUnit(std::string(101, 'K'));
	EXPECT_THROW(DATAIO::DataIOWriter::write(fname, dio), ZEB::Exception);

	// a record must have as many values as the header defines
	DataIO header = sampleContainer(true, false, DataIO::T_FIELD, DataIO::ST_SINGLE, 2, 0);
	DATAIO::DataIOWriter writer;
	writer.open(fname, header);
	const double v[3] = { 1, 2, 3 };
	EXPECT_THROW(writer.appendRecord(0, v, 3), ZEB::Exception);
	writer.appendRecord(0, v, 2);
	writer.close();
	DataIO back;
	back.read(fname);
	ASSERT_EQ(back.timePoints().size(), 1u);
	EXPECT_EQ(back.data(0)[1], 2.0);

	// generation 5 needs the geometry it embeds
	header.setFileVersion(5, 0);
	EXPECT_THROW(writer.open(fname, header), ZEB::Exception);
}


TEST(GeoFileRoundTrip, AsciiAndBinaryGiveBackTheSameGeometry) {
	DATAIO::GeoFile geo = sampleGeometry(4, 3, 2);
	for (bool binary : { false, true }) {
		const std::string fname = scratchFile(binary ? "geo.g6b" : "geo.g6a");
		DATAIO::GeoFileWriter::write(fname, geo, binary);
		DATAIO::GeoFile back;
		back.read(fname);
		EXPECT_TRUE(back.sameContent(geo));
		EXPECT_EQ(back.isBinary(), binary);
		EXPECT_EQ(back.majorFileVersion(), 6u);
		EXPECT_EQ(back.filename(), fname);
		ASSERT_EQ(back.elements().size(), 24u);
		EXPECT_EQ(back.sides().size(), 24u + 6u);
		EXPECT_EQ(back.materials()[1].m_name, "Mineral wool, 035");
	}
}
