#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <map>
#include <numeric>

#include <QDir>
#include <QProcess>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include <EM_Extractor2DOutputBase.h>
#include <EM_ExtractorFactory.h>
#include <EM_ExtractorVecOutputBase.h>

#include <OVP_FieldOutputFile.h>
#include <OVP_SliceWriter.h>
#include <OVP_TecplotConverter.h>
#include <OVP_UserInteraction.h>

#include "OVP_ProjectTestUtils.h"
#include "SD_SampleDataSet.h"

using namespace OVPTest;

namespace {

/*! Writes the wall corner field and heat flux of the sample data (8 x 8 cells, a record every
	24 h over 3 days) with their geometry into dir; returns the field's path.
*/
QString writeCorner(const QString & dir) {
	SD::SampleDataSet::Options options;
	options.m_directory = dir.toStdString();
	options.m_hours = 72;
	options.m_detailCells = 8;
	options.m_only = { "corner_temperature.s6b", "corner_heatflux.s6b", "corner.g6b" };
	SD::SampleDataSet(options).write();
	return dir + "/corner_temperature.s6b";
}

/*! The 3 x 2 wall of 0.1 x 0.2 m elements numbered row by row, with the field element n = n + 1
	at 0 h and n + 7 at 1 h; the flux through the sides 0 to 3 of the lower row (x = 0, 0.1, 0.2,
	0.3 m at y = 0.1 m), side s = s + 1 at 0 h and s + 5 at 1 h; and a flux through all sides
	(a vector field). Returns the field's path.
*/
QString writePlane(const QString & dir) {
	writeGeometry(dir + "/wall.g6a", 3, 2);
	writeField(dir + "/plane.out", "wall.g6a", { 0, 1, 2, 3, 4, 5 }, { 0, 1 },
			   { { 1, 2, 3, 4, 5, 6 }, { 7, 8, 9, 10, 11, 12 } });
	writeField(dir + "/flux.out", "wall.g6a", { 0, 1, 2, 3 }, { 0, 1 }, { { 1, 2, 3, 4 }, { 5, 6, 7, 8 } }, true);
	std::vector<std::uint32_t> sides(17);
	std::iota(sides.begin(), sides.end(), 0u);
	writeField(dir + "/vectors.out", "wall.g6a", sides, { 0 }, { std::vector<double>(17, 1.0) }, true);
	return dir + "/plane.out";
}

/*! A zone of a Tecplot file as meshio reads it (tecplot_cells.py): its solution time, the rows
	of its nodes with values (x, y, values) and of its cells (centroid x and y, size, values).
*/
struct MeshioZone {
	double								m_time = 0;
	std::vector<std::vector<double> >	m_points;
	std::vector<std::vector<double> >	m_cells;
};

/*! The zones of a Tecplot file read by meshio; a failure of the reader fails the test. */
std::vector<MeshioZone> readByMeshio(const QString & path) {
	QProcess python;
	python.start("/usr/bin/python3", { QString(std::getenv("ORVANE_SOURCE_DIR")) +
		"/externals/OrvanePart/tests/tecplot_cells.py", path });
	std::vector<MeshioZone> zones;
	if (!python.waitForFinished(60000) || python.exitCode() != 0) {
		ADD_FAILURE() << python.readAllStandardError().toStdString() << " (meshio comes with the Debian package python3-meshio)";
		return zones;
	}
	for (const QString & line : QString::fromUtf8(python.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts)) {
		QStringList f = line.split(' ');
		const QString kind = f.takeFirst();
		std::vector<double> row;
		for (const QString & number : f)
			row.push_back(number.toDouble());
		if (kind == "zone")
			zones.push_back(MeshioZone{ row.at(0), {}, {} });
		else
			(kind == "point" ? zones.back().m_points : zones.back().m_cells).push_back(row);
	}
	return zones;
}

/*! The element whose centre is the centroid of a quadrilateral cell (row as readByMeshio gives
	it); checks that the cell covers the element's grid widths with its corners counter-clockwise.
	Returns the number of elements when none lies there.
*/
std::size_t elementOfCell(const DATAIO::GeoFile & geometry, const std::vector<double> & cell) {
	for (const DATAIO::GeoFile::Element & e : geometry.elements())
		if (std::fabs(e.m_x - cell[0]) < 1e-9 && std::fabs(e.m_y - cell[1]) < 1e-9) {
			EXPECT_NEAR(cell[2], geometry.xWidths()[e.m_i]*geometry.yWidths()[e.m_j], 1e-12);
			return e.m_n;
		}
	ADD_FAILURE() << "no element at " << cell[0] << ", " << cell[1];
	return geometry.elements().size();
}

/*! The series of the extractor of a chart of the file, with its cuts set by coordinates. */
std::vector<double> chartSeries(OVP::FieldOutputFile & file, EM::CutType cut,
								const std::vector<std::pair<unsigned int, double> > & cutValues)
{
	std::unique_ptr<EM::ExtractorBase> ex = EM::ExtractorFactory::createExtractor(&file.dataIO(), cut, file.sharedGeometry());
	for (const std::pair<unsigned int, double> & v : cutValues)
		ex->setCutValue(v.first, v.second);
	ex->update();
	return dynamic_cast<EM::Extractor2DOutputBase &>(*ex).y().m_data;
}

/*! Reads an output file back as DataIODump does. */
DATAIO::DataIO readBack(const QString & path) {
	DATAIO::DataIO dio;
	dio.read(path.toStdString());
	return dio;
}

} // namespace


// Tecplot files read by meshio. Corner field: in every zone each element that the output lists is
// one cell, which has the element's value at the zone's solution time. Corner heat flux: the
// vectors of the vector chart, one cell per vector covering its element, with the components and
// their magnitude.
TEST(ConverterTest, TecplotFilesReadByMeshio) {
	const QString dir = testScratchDir();
	OVP::FieldOutputFile corner(writeCorner(dir));
	OVP::TecplotConverter converter(corner);
	converter.setTimeRange(1, 2);
	converter.write(dir + "/corner.dat");
	OVP::FieldOutputFile flux(dir + "/corner_heatflux.s6b");
	OVP::TecplotConverter fluxConverter(flux);
	fluxConverter.setTimeRange(2, 2);
	fluxConverter.write(dir + "/flux.dat");

	const std::vector<MeshioZone> zones = readByMeshio(dir + "/corner.dat");
	DATAIO::DataIO & dio = corner.dataIO();
	ASSERT_EQ(zones.size(), 2u);
	for (unsigned int z = 0; z < 2; ++z) {
		EXPECT_EQ(zones[z].m_time, dio.timePoints()[z + 1]);
		std::map<std::uint32_t, double> cellValues;
		for (const std::vector<double> & cell : zones[z].m_cells)
			cellValues[static_cast<std::uint32_t>(elementOfCell(corner.geometry(), cell))] = cell.at(3);
		std::map<std::uint32_t, double> elementValues;
		for (std::size_t c = 0; c < dio.nums().size(); ++c)
			elementValues[dio.nums()[c]] = dio.data(z + 1)[c];
		EXPECT_EQ(zones[z].m_cells.size(), dio.nums().size());
		EXPECT_EQ(cellValues, elementValues);
	}

	std::unique_ptr<EM::ExtractorBase> ex = EM::ExtractorFactory::createExtractor(&flux.dataIO(), EM::CT_TimeCut,
																				   flux.sharedGeometry());
	ex->setCutValue(EM::CD_Time, flux.dataIO().timePoints()[2]);
	ex->update();
	const EM::ExtractorVecOutputBase & chart = dynamic_cast<const EM::ExtractorVecOutputBase &>(*ex);
	std::map<std::pair<double, double>, std::vector<double> > chartVectors, fileVectors;
	for (std::size_t p = 0; p < chart.xComponents().size(); ++p) {
		const double vx = chart.xComponents().m_data[p], vy = chart.yComponents().m_data[p];
		if (!std::isnan(vx))
			chartVectors[{ chart.x().m_data[p % chart.x().size()], chart.y().m_data[p/chart.x().size()] }] =
				{ vx, vy, std::hypot(vx, vy) };
	}
	const std::vector<MeshioZone> fluxZones = readByMeshio(dir + "/flux.dat");
	ASSERT_EQ(fluxZones.size(), 1u);
	EXPECT_EQ(fluxZones[0].m_time, flux.dataIO().timePoints()[2]);
	for (const std::vector<double> & cell : fluxZones[0].m_cells) {
		const std::size_t n = elementOfCell(flux.geometry(), cell);
		ASSERT_LT(n, flux.geometry().elements().size());
		fileVectors[{ flux.geometry().elements()[n].m_x, flux.geometry().elements()[n].m_y }] =
			{ cell.at(3), cell.at(4), cell.at(5) };
	}
	// the flux runs through every side, so every element of the corner has its vector
	EXPECT_EQ(chartVectors.size(), dio.nums().size());
	EXPECT_EQ(fileVectors, chartVectors);
	EXPECT_NE(readText(dir + "/flux.dat").indexOf("\"q_x [W/m2]\" \"q_y [W/m2]\" \"|q| [W/m2]\""), -1);
}


// History and profiles of the plane's field and of the flux through its lower row (sides taking
// the place of elements, the slices staying flux outputs) against hand-picked values; the files
// are written into a sub-folder, so the geometry is found through the rewritten relative GEO_FILE.
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

	OVP::FieldOutputFile flux(dir + "/flux.out");
	OVP::SliceWriter(flux).writeHistory(2, dir + "/slices/fh.out");
	DATAIO::DataIO fluxHistory = readBack(dir + "/slices/fh.out");
	EXPECT_EQ(fluxHistory.type(), DATAIO::DataIO::T_FLUX);
	EXPECT_EQ(fluxHistory.quantity(), "Heat flux, history of side 2");
	const std::vector<double> fluxValues = { fluxHistory.data(0)[0], fluxHistory.data(1)[0] };
	EXPECT_EQ(fluxValues, std::vector<double>({ 3, 7 }));
	EXPECT_EQ(fluxValues, chartSeries(flux, EM::CT_XCut, { { EM::CD_X, 0.2 } }));
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
		{ [&]() { OVP::FieldOutputFile f(dir + "/vectors.out"); OVP::SliceWriter(f).writeHistory(0, target); },
		  "more than one direction" },
		{ [&]() { OVP::FieldOutputFile f(plane); OVP::SliceWriter(f).writeHistory(6, target); }, "Element 6 is not listed" },
		{ [&]() { OVP::FieldOutputFile f(plane); OVP::SliceWriter(f).writeProfile(0, 2, 0, target); }, "do not vary" },
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
