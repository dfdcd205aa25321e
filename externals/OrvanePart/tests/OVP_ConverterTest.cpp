#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <set>

#include <QDir>
#include <QProcess>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include <EM_Extractor2DOutputBase.h>
#include <EM_ExtractorFactory.h>

#include <OVP_FieldOutputFile.h>
#include <OVP_SliceWriter.h>
#include <OVP_TecplotConverter.h>
#include <OVP_UserInteraction.h>

#include "OVP_ProjectTestUtils.h"
#include "SD_SampleDataSet.h"

using namespace OVPTest;

namespace {

/*! Writes the wall corner field of the sample data (8 x 8 cells, a record every 24 h over 3
	days) with its geometry into dir; returns the field's path.
*/
QString writeCorner(const QString & dir) {
	SD::SampleDataSet::Options options;
	options.m_directory = dir.toStdString();
	options.m_hours = 72;
	options.m_detailCells = 8;
	options.m_only = { "corner_temperature.s6b", "corner.g6b" };
	SD::SampleDataSet(options).write();
	return dir + "/corner_temperature.s6b";
}

/*! The 3 x 2 wall of 0.1 x 0.2 m elements numbered row by row, with the field element n = n + 1
	at 0 h and n + 7 at 1 h, and a flux output; returns the field's path.
*/
QString writePlane(const QString & dir) {
	writeGeometry(dir + "/wall.g6a", 3, 2);
	writeField(dir + "/plane.out", "wall.g6a", { 0, 1, 2, 3, 4, 5 }, { 0, 1 },
			   { { 1, 2, 3, 4, 5, 6 }, { 7, 8, 9, 10, 11, 12 } });
	writeField(dir + "/flux.out", "wall.g6a", { 0, 1 }, { 0 }, { { 1, 2 } }, true);
	return dir + "/plane.out";
}

/*! Reads an output file back as DataIODump does. */
DATAIO::DataIO readBack(const QString & path) {
	DATAIO::DataIO dio;
	dio.read(path.toStdString());
	return dio;
}

} // namespace


// The Tecplot file of the corner, read by meshio: every cell of every zone lies at the centre of
// an element that the output lists, each element once, covers the element's grid widths with its
// corners counter-clockwise, and has the element's value at the zone's solution time.
TEST(ConverterTest, CornerFieldReadByMeshio) {
	const QString dir = testScratchDir();
	OVP::FieldOutputFile corner(writeCorner(dir));
	OVP::TecplotConverter converter(corner);
	converter.setTimeRange(1, 2);
	converter.write(dir + "/corner.dat");

	QProcess python;
	python.start("/usr/bin/python3", { QString(std::getenv("ORVANE_SOURCE_DIR")) +
		"/externals/OrvanePart/tests/tecplot_cells.py", dir + "/corner.dat" });
	ASSERT_TRUE(python.waitForFinished(60000));
	ASSERT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString()
		<< " (meshio comes with the Debian package python3-meshio)";
	const QStringList lines = QString::fromUtf8(python.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);

	DATAIO::DataIO & dio = corner.dataIO();
	const std::vector<DATAIO::GeoFile::Element> & elements = corner.geometry().elements();
	std::vector<double> zoneTimes;
	std::set<std::uint32_t> seen;
	for (const QString & line : lines) {
		const QStringList f = line.split(' ');
		if (f[0] == "zone") {
			zoneTimes.push_back(f[1].toDouble());
			seen.clear();
			continue;
		}
		ASSERT_EQ(f.size(), 4);
		const double x = f[0].toDouble(), y = f[1].toDouble(), area = f[2].toDouble(), value = f[3].toDouble();
		std::size_t column = dio.nums().size();
		for (std::size_t c = 0; c < dio.nums().size(); ++c) {
			const DATAIO::GeoFile::Element & e = elements[dio.nums()[c]];
			if (std::fabs(e.m_x - x) < 1e-9 && std::fabs(e.m_y - y) < 1e-9)
				column = c;
		}
		ASSERT_LT(column, dio.nums().size()) << "no element at " << x << ", " << y;
		EXPECT_TRUE(seen.insert(dio.nums()[column]).second);
		const DATAIO::GeoFile::Element & e = elements[dio.nums()[column]];
		EXPECT_NEAR(area, corner.geometry().xWidths()[e.m_i]*corner.geometry().yWidths()[e.m_j], 1e-12);
		EXPECT_EQ(value, dio.data(static_cast<unsigned int>(zoneTimes.size()))[column]);
		if (seen.size() == dio.nums().size())
			seen.insert(0xFFFFFFFFu);	// marks a complete zone
	}
	EXPECT_EQ(zoneTimes, std::vector<double>({ dio.timePoints()[1], dio.timePoints()[2] }));
	EXPECT_EQ(seen.size(), dio.nums().size() + 1);
}


// History and profiles of the plane against hand-picked values; the files are written into a
// sub-folder, so the geometry is found through the rewritten relative GEO_FILE.
TEST(ConverterTest, SlicesOfPlane) {
	const QString dir = testScratchDir();
	OVP::FieldOutputFile plane(writePlane(dir));
	QDir(dir).mkdir("slices");
	OVP::SliceWriter writer(plane);

	writer.writeHistory(4, dir + "/slices/h.out");
	DATAIO::DataIO history = readBack(dir + "/slices/h.out");
	EXPECT_EQ(history.nums(), std::vector<std::uint32_t>({ 4 }));
	EXPECT_EQ(history.timePoints(), std::vector<double>({ 0, 1 }));
	EXPECT_EQ(history.data(0)[0], 5);
	EXPECT_EQ(history.data(1)[0], 11);
	EXPECT_EQ(history.quantity(), "Temperature, history of element 4");

	writer.writeProfile(4, 0, 1, dir + "/slices/x.out");
	DATAIO::DataIO row = readBack(dir + "/slices/x.out");
	EXPECT_EQ(row.nums(), std::vector<std::uint32_t>({ 3, 4, 5 }));
	EXPECT_EQ(row.timePoints(), std::vector<double>({ 1 }));
	EXPECT_EQ(std::vector<double>(row.data(0), row.data(0) + 3), std::vector<double>({ 10, 11, 12 }));

	writer.writeProfile(4, 1, OVP::SliceWriter::ALL_TIMES, dir + "/slices/y.out");
	OVP::FieldOutputFile column(dir + "/slices/y.out");
	EXPECT_EQ(column.dataIO().dataFormat(), DATAIO::DataIO::DF_3D);
	EXPECT_EQ(column.dataIO().nums(), std::vector<std::uint32_t>({ 1, 4 }));
	EXPECT_EQ(std::vector<double>(column.dataIO().dataVector(), column.dataIO().dataVector() + 4),
			  std::vector<double>({ 2, 5, 8, 11 }));
	EXPECT_EQ(column.dataIO().geoFileName(), "../wall.g6a");
}


// A history and a profile of the binary corner equal the series of extractors set up as a chart
// does, by cut coordinates (the element's position and a time point).
TEST(ConverterTest, CornerSlicesEqualChartSeries) {
	const QString dir = testScratchDir();
	OVP::FieldOutputFile corner(writeCorner(dir));
	const std::uint32_t element = corner.dataIO().nums()[20];
	const DATAIO::GeoFile::Element & e = corner.geometry().elements()[element];
	OVP::SliceWriter writer(corner);
	writer.writeHistory(element, dir + "/h.s6b");
	writer.writeProfile(element, 1, 2, dir + "/p.s6b");

	const auto chartSeries = [&](EM::CutType cut, std::vector<std::pair<unsigned int, double> > cutValues) {
		std::unique_ptr<EM::ExtractorBase> ex = EM::ExtractorFactory::createExtractor(&corner.dataIO(), cut,
																					   corner.sharedGeometry());
		for (const std::pair<unsigned int, double> & v : cutValues)
			ex->setCutValue(v.first, v.second);
		ex->update();
		return dynamic_cast<EM::Extractor2DOutputBase &>(*ex).y().m_data;
	};
	DATAIO::DataIO history = readBack(dir + "/h.s6b");
	DATAIO::DataIO profile = readBack(dir + "/p.s6b");
	EXPECT_TRUE(history.isBinary());
	std::vector<double> historyValues;
	for (unsigned int t = 0; t < history.timePoints().size(); ++t)
		historyValues.push_back(history.data(t)[0]);
	EXPECT_EQ(historyValues, chartSeries(EM::CT_XYCut, { { EM::CD_X, e.m_x }, { EM::CD_Y, e.m_y } }));
	EXPECT_EQ(std::vector<double>(profile.data(0), profile.data(0) + profile.nValues()),
			  chartSeries(EM::CT_XTCut, { { EM::CD_X, e.m_x }, { EM::CD_Time, corner.dataIO().timePoints()[2] } }));
	EXPECT_EQ(profile.timePoints(), std::vector<double>({ corner.dataIO().timePoints()[2] }));
}


// Every failure names its cause and leaves the folder as it was: no target, no temporary file.
TEST(ConverterTest, BadInputLeavesNoFile) {
	const QString dir = testScratchDir();
	const QString plane = writePlane(dir);
	writeField(dir + "/nogeo.out", "missing.g6a", { 0, 1 }, { 0 }, { { 1, 2 } });
	const QString underFile = plane + "/x.dat";
	const QString target = dir + "/target.out";
	const struct {
		std::function<void()>	m_action;
		const char *			m_fragment;
	} cases[] = {
		{ [&]() { OVP::FieldOutputFile f(dir + "/nogeo.out"); }, "needs its geometry file" },
		{ [&]() { OVP::FieldOutputFile f(dir + "/T.out"); }, "one value per time point" },
		{ [&]() { OVP::FieldOutputFile f(plane); OVP::TecplotConverter c(f); c.setTimeRange(1, 2); c.write(target); },
		  "Time point indexes 1 to 2 lie outside" },
		{ [&]() { OVP::FieldOutputFile f(plane); OVP::TecplotConverter(f).write(underFile); }, "is no existing folder" },
		{ [&]() { OVP::FieldOutputFile f(dir + "/flux.out"); OVP::TecplotConverter(f).write(target); }, "fluxes" },
		{ [&]() { OVP::FieldOutputFile f(plane); OVP::SliceWriter(f).writeHistory(6, target); }, "Element 6 is not listed" },
		{ [&]() { OVP::FieldOutputFile f(plane); OVP::SliceWriter(f).writeProfile(0, 2, 0, target); }, "do not vary" },
		{ [&]() { OVP::FieldOutputFile f(plane); OVP::SliceWriter(f).writeProfile(0, 0, 2, target); }, "lie outside" },
		{ [&]() { OVP::FieldOutputFile f(plane); OVP::SliceWriter(f).writeHistory(0, underFile); }, "is no existing folder" }
	};
	writeTimeSeries(dir + "/T.out", { 0, 1 }, { 20, 21 });
	const QStringList before = QDir(dir).entryList(QDir::Files);
	for (const auto & c : cases) {
		std::string text;
		try {
			c.m_action();
		}
		catch (ZEB::Exception & ex) {
			text = OVP::exceptionText(ex).toStdString();
		}
		EXPECT_NE(text.find(c.m_fragment), std::string::npos) << text;
		EXPECT_EQ(QDir(dir).entryList(QDir::Files), before) << c.m_fragment;
	}
}
