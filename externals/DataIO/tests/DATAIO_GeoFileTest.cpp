#include <gtest/gtest.h>

#include <DATAIO_GeoFile.h>
#include <DATAIO_GeoFileWriter.h>

#include "DATAIO_TestUtils.h"

using DATAIO::GeoFile;
using DATAIO::GeoFileWriter;
using namespace DATAIO_Test;

namespace {

/*! A small valid ASCII geometry with replaceable parts. */
std::string geometryText(const std::string & grid, const std::string & elements, const std::string & sides) {
	return "S6GAQXV! 06.0000\n"
		   "MATERIALS\n"
		   "  1  Concrete   C30/37\n"
		   "  7\n"
		   "GRID\n" + grid +
		   "ELEMENT_GEOMETRY\n" + elements +
		   "SIDES_GEOMETRY\n" + sides;
}

const std::string GRID = "0.1 0.2\n1\n1\n";
const std::string ELEMENTS = "0 0.05 0.5 0.5 1 0 0 0\n1 0.2 0.5 0.5 7 1 0 0\n";
const std::string SIDES = "0 0.1 0.5 0.5 0 0 1\n1 0 0.5 0.5 0 -1 0\n";

} // namespace


TEST(GeoFile, ReadsHandWrittenAsciiGeometry) {
	const std::string fname = scratchFile("hand.g6a");
	writeBytes(fname, geometryText(GRID, ELEMENTS, SIDES));
	GeoFile geo;
	geo.read(fname);
	ASSERT_EQ(geo.materials().size(), 2u);
	EXPECT_EQ(geo.materials()[0].m_name, "Concrete   C30/37");
	EXPECT_EQ(geo.materials()[1].m_id, 7u);
	EXPECT_TRUE(geo.materials()[1].m_name.empty());
	EXPECT_EQ(geo.xWidths(), (std::vector<double>{ 0.1, 0.2 }));
	ASSERT_EQ(geo.elements().size(), 2u);
	ASSERT_EQ(geo.sides().size(), 2u);
	const GeoFile::Element & e = geo.elements()[1];
	EXPECT_EQ(std::vector<double>({ e.m_x, double(e.m_matId), double(e.m_i) }), std::vector<double>({ 0.2, 7, 1 }));
	EXPECT_EQ(std::vector<std::int32_t>({ geo.sides()[0].m_elementB, geo.sides()[1].m_elementA }), std::vector<std::int32_t>({ 1, GeoFile::NO_ELEMENT }));
}


TEST(GeoFile, AsciiFailures) {
	const std::string fname = scratchFile("bad.g6a");
	GeoFile geo;
	auto expectFailure = [&](const std::string & text, const std::string & msg) {
		writeBytes(fname, text);
		EXPECT_THROW_MSG(geo.read(fname), msg);
		EXPECT_TRUE(geo.isEmpty());
	};
	expectFailure(geometryText("0.1 0\n1\n1\n", ELEMENTS, SIDES), "Zero element width in x direction");
	expectFailure(geometryText("0.1 0.2\n-1\n1\n", ELEMENTS, SIDES), "Zero element width in y direction");
	expectFailure(geometryText("0.1 0.2\n1\n0\n", ELEMENTS, SIDES), "Zero element width in z direction!");
	expectFailure(geometryText("0.1 0.2\n1\n", ELEMENTS, SIDES), "Missing element widths in z direction!");
	expectFailure(geometryText("", "", ""), "Missing element widths in x direction!");
	expectFailure(geometryText(GRID, "0 0.05 0.5 0.5 1 0 0\n", SIDES), "Currupt element table!");
	expectFailure(geometryText(GRID, "0 0.05 0.5 0.5 1 0 0 0 9\n", ""), "Currupt element table!");
	expectFailure(geometryText(GRID, "1 0.05 0.5 0.5 1 0 0 0\n", ""), "Currupt element table!");	// numbering
	expectFailure(geometryText(GRID, "0 0.05 0.5 0.5 1 2 0 0\n", ""), "Currupt element table!");	// outside grid
	expectFailure(geometryText(GRID, ELEMENTS, "0 0.1 0.5 0.5 3 0 1\n"), "Currupt sides table!");	// orientation
	expectFailure(geometryText(GRID, ELEMENTS, "0 0.1 0.5 0.5 0 0 2\n"), "Currupt sides table!");	// neighbour
	expectFailure(geometryText(GRID, ELEMENTS, "0 0.1 zero 0.5 0 0 1\n"), "Error on parse geometry data.");
	expectFailure(geometryText(GRID, ELEMENTS, SIDES) + "GRID\n", "Error reading ASCII geometry file!");
	expectFailure("S6GAQXV! 06.0000\nstray line\nGRID\n1\n1\n1\n", "Error on parse geometry data.");
	expectFailure("S6GAQXV! 07.0000\n", "Unknown major file version, not able to read this format!");
	expectFailure("S6GAQXV! 06.0001\n", "Unknown file version, not able to read this format!");
	expectFailure("S6OAQXV! 06.0000\n", "Couldn't read magic file header, invalid or unrecognized file format.");
	expectFailure("S6GA", "Couldn't read magic file header, invalid or unrecognized file format.");
	const std::string missing = scratchFile("missing.g6a");
	EXPECT_THROW_MSG(geo.read(missing), "Couldn't open geometry file '" + missing + "'.");
	EXPECT_THROW_MSG(geo.read(missing), "Error reading geometry file '" + missing + "'.");
}


TEST(GeoFile, BinaryWidthsMustBePositive) {
	GeoFile geo = sampleGeometry(2, 2, 1);
	const std::string fname = scratchFile("widths.g6b");
	geo.setGrid({ 0.1, 0.1 }, { 0.5, -0.5 }, { 1 });
	GeoFileWriter::write(fname, geo, true);
	GeoFile back;
	EXPECT_THROW_MSG(back.read(fname), "Zero or negative element width in y direction");
	geo.setGrid({ 0.1, 0.1 }, { 0.5, 0.5 }, {});
	GeoFileWriter::write(fname, geo, true);
	EXPECT_THROW_MSG(back.read(fname), "Missing element widths in z direction!");
	geo.setGrid({ 0.1, 0.1 }, { 0.5, 0.5 }, { 1 });
	GeoFileWriter::write(fname, geo, true);
	back.read(fname);
	EXPECT_TRUE(back.sameContent(geo));
	// material names that a line cannot keep are refused for ASCII only
	geo.setMaterials({ { 1, " padded" } });
	EXPECT_THROW(GeoFileWriter::write(fname, geo, false), ZEB::Exception);
	GeoFileWriter::write(fname, geo, true);
	back.read(fname);
	EXPECT_EQ(back.materials()[0].m_name, " padded");
}
