#include "OVP_ProjectTestUtils.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_GeoFileWriter.h>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

namespace OVPTest {

int MessageRecorder::count(ZEB::MsgType type, const std::string & text, const std::string & where) const {
	int n = 0;
	for (const RecordedMessage & m : m_messages)
		if (m.m_type == type && m.m_text == text && m.m_where == where)
			++n;
	return n;
}


std::string MessageRecorder::text(int type) const {
	std::string all;
	for (const RecordedMessage & m : m_messages)
		if (type == -1 || m.m_type == type)
			all += m.m_text + "\n";
	return all;
}


QString scratchDir(const QString & name) {
	QString base = qEnvironmentVariable("ORVANE_TEST_SCRATCH");
	if (base.isEmpty())
		base = QDir::temp().filePath("OrvanePartTests");
	QDir dir(QDir(base).filePath(name));
	dir.removeRecursively();
	QDir().mkpath(dir.path());
	return QDir::cleanPath(dir.absolutePath());
}


QString testScratchDir() {
	const ::testing::TestInfo * info = ::testing::UnitTest::GetInstance()->current_test_info();
	return scratchDir(QString::fromUtf8(info->test_suite_name()) + "-" + QString::fromUtf8(info->name()));
}


namespace {

/*! The header fields every output file needs. */
void setCommonHeader(DATAIO::DataIO & header, const QString & path, const std::string & quantity,
					 const std::string & valueUnit, const std::string & timeUnit, int startYear)
{
	header.setFilename(path.toStdString());
	header.setProjectFileName("wall.s6p");
	header.setQuantity(quantity);
	header.setQuantityKeyword(quantity);
	header.setValueUnit(valueUnit);
	header.setTimeUnit(timeUnit);
	header.setStartYear(startYear);
	header.setTimeType(DATAIO::DataIO::TT_NONE);
}

} // namespace


void writeTimeSeries(const QString & path, const std::vector<double> & time, const std::vector<double> & values,
					 const std::string & quantity, const std::string & valueUnit, int startYear,
					 const std::string & timeUnit)
{
	DATAIO::DataIO d;
	setCommonHeader(d, path, quantity, valueUnit, timeUnit, startYear);
	d.setType(DATAIO::DataIO::T_FIELD);
	d.setSpaceType(DATAIO::DataIO::ST_MEAN);
	d.setNums({ 0, 1 });
	std::vector<std::vector<double> > rows;
	for (double v : values)
		rows.push_back({ v });
	d.setData(time, rows);
	DATAIO::DataIOWriter::write(path.toStdString(), d);
}


void writeReference(const QString & path, const std::vector<std::uint32_t> & columns, const std::vector<double> & time,
					const std::vector<std::vector<double> > & rows)
{
	DATAIO::DataIO d;
	setCommonHeader(d, path, "Surface temperatures", "C", "h", 2015);
	d.setType(DATAIO::DataIO::T_REFERENCE);
	d.setSpaceType(DATAIO::DataIO::ST_SINGLE);
	d.setNums(columns);
	d.setData(time, rows);
	DATAIO::DataIOWriter::write(path.toStdString(), d);
}


void writeGeometry(const QString & path, unsigned int nx, unsigned int ny) {
	DATAIO::GeoFile geo;
	geo.setMaterials({ { 1, "Brick" } });
	geo.setGrid(std::vector<double>(nx, 0.1), std::vector<double>(ny, 0.2), std::vector<double>(1, 1.0));
	std::vector<DATAIO::GeoFile::Element> elements;
	for (unsigned int j = 0; j < ny; ++j)
		for (unsigned int i = 0; i < nx; ++i) {
			DATAIO::GeoFile::Element e;
			e.m_n = j*nx + i;
			e.m_x = 0.05 + 0.1*i;
			e.m_y = 0.1 + 0.2*j;
			e.m_z = 0.5;
			e.m_matId = 1;
			e.m_i = i;
			e.m_j = j;
			elements.push_back(e);
		}
	geo.setElements(elements);
	std::vector<DATAIO::GeoFile::Side> sides;
	const auto element = [nx](unsigned int i, unsigned int j) { return static_cast<std::int32_t>(j*nx + i); };
	for (unsigned int j = 0; j < ny; ++j)
		for (unsigned int i = 0; i <= nx; ++i) {
			DATAIO::GeoFile::Side s;
			s.m_n = static_cast<std::uint32_t>(sides.size());
			s.m_x = 0.1*i;
			s.m_y = 0.1 + 0.2*j;
			s.m_z = 0.5;
			s.m_orientation = 0;
			s.m_elementA = i > 0 ? element(i - 1, j) : DATAIO::GeoFile::NO_ELEMENT;
			s.m_elementB = i < nx ? element(i, j) : DATAIO::GeoFile::NO_ELEMENT;
			sides.push_back(s);
		}
	for (unsigned int i = 0; i < nx; ++i)
		for (unsigned int j = 0; j <= ny; ++j) {
			DATAIO::GeoFile::Side s;
			s.m_n = static_cast<std::uint32_t>(sides.size());
			s.m_x = 0.05 + 0.1*i;
			s.m_y = 0.2*j;
			s.m_z = 0.5;
			s.m_orientation = 1;
			s.m_elementA = j > 0 ? element(i, j - 1) : DATAIO::GeoFile::NO_ELEMENT;
			s.m_elementB = j < ny ? element(i, j) : DATAIO::GeoFile::NO_ELEMENT;
			sides.push_back(s);
		}
	geo.setSides(sides);
	DATAIO::GeoFileWriter::write(path.toStdString(), geo, false);
}


void writeField(const QString & path, const std::string & geoFileName, const std::vector<std::uint32_t> & nums,
				const std::vector<double> & time, const std::vector<std::vector<double> > & rows, bool flux)
{
	DATAIO::DataIO d;
	setCommonHeader(d, path, flux ? "Heat flux" : "Temperature", flux ? "W/m2" : "C", "h", 2015);
	d.setType(flux ? DATAIO::DataIO::T_FLUX : DATAIO::DataIO::T_FIELD);
	d.setSpaceType(DATAIO::DataIO::ST_SINGLE);
	d.setGeoFileName(geoFileName);
	d.setNums(nums);
	d.setData(time, rows);
	DATAIO::DataIOWriter::write(path.toStdString(), d);
}


void writeCommonFiles(const QString & dir) {
	const std::vector<double> t = { 0, 1, 2, 3 };
	writeTimeSeries(dir + "/T.out", t, { 20, 21, 22, 23 });
	writeTimeSeries(dir + "/TK.out", t, { 293.15, 294.15, 295.15, 296.15 }, "Temperature", "K");
	writeTimeSeries(dir + "/RH.out", t, { 80, 85, 90, 95 }, "Relative humidity", "%");
	writeGeometry(dir + "/wall.g6a", 3, 2);
	writeGeometry(dir + "/line.g6a", 4, 1);
}


void writeSampleData(const QString & dir) {
	QDir().mkpath(dir);
	writeCommonFiles(dir);
	writeField(dir + "/profile.out", "line.g6a", { 0, 1, 2, 3 }, { 0, 1, 2 },
			   { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 12 } });
	writeField(dir + "/plane.out", "wall.g6a", { 0, 1, 2, 3, 4, 5 }, { 0, 1 },
			   { { 1, 2, 3, 4, 5, 6 }, { 7, 8, 9, 10, 11, 12 } });
	// all sides of the 3 x 2 grid: 8 normal to x, 9 normal to y
	std::vector<std::uint32_t> sides;
	for (std::uint32_t s = 0; s < 17; ++s)
		sides.push_back(s);
	writeField(dir + "/flux.out", "wall.g6a", sides, { 0 }, { std::vector<double>(17, 1.0) }, true);
}


QString readText(const QString & path) {
	QFile f(path);
	if (!f.open(QIODevice::ReadOnly))
		return QString();
	return QString::fromUtf8(f.readAll());
}


void writeText(const QString & path, const QString & text) {
	QFile f(path);
	ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
	f.write(text.toUtf8());
}


void ProjectTest::SetUp() {
	m_messages.reset(new MessageRecorder);
	m_testDir = testScratchDir();
	m_settings.reset(new OVP::Settings("ZEB", "OrvanePart", m_testDir + "/settings.ini"));
	m_handler.reset(new OVP::ProjectHandler);
	m_ui = new TestUserInteraction;
	m_handler->setUserInteraction(std::unique_ptr<OVP::UserInteraction>(m_ui));
}


void SampleSessionTest::SetUp() {
	ProjectTest::SetUp();
	m_dir = m_testDir + "/data";
	writeSampleData(m_dir);
	handler().newProject();
}


OVP::Mapper & SampleSessionTest::addChart(const QStringList & files, EM::CutType cut) {
	std::unique_ptr<OVP::Mapper> m = OVP::Mapper::createNewMapper(handler().dataManager(),
																	{ { m_dir + "/" + files.front(), 0, cut } });
	for (int i = 1; i < files.size(); ++i)
		m->addExtractor({ { m_dir + "/" + files[i] } });
	m->setName(files.front());
	handler().addMapper(std::move(m));
	return mapper(handler().project().mapperModel()->mapperCount() - 1);
}


OVP::Mapper & SampleSessionTest::mapper(int index) {
	return *handler().project().mapperModel()->mapper(index);
}


void ProjectTest::TearDown() {
	m_handler.reset();
	m_settings.reset();
	m_messages.reset();
}

} // namespace OVPTest
