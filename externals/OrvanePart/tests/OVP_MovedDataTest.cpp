#include "OVP_ProjectTestUtils.h"

#include <QDir>
#include <QFile>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>

#include <OVP_DataPathRemap.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

/*! Sessions whose data files are no longer where the session says. */
class MovedDataTest : public ProjectTest {
protected:
	/*! Writes one variant of a simulation into dir: x/t.out and y/rh.out (time series with the
		values plus offset), field/plane.out with its geometry field/wall.g6a.
	*/
	static void writeVariant(const QString & dir, double offset) {
		const std::vector<double> t = { 0, 1, 2, 3 };
		QDir().mkpath(dir + "/x");
		QDir().mkpath(dir + "/y");
		QDir().mkpath(dir + "/field");
		writeTimeSeries(dir + "/x/t.out", t, { offset + 20, offset + 21, offset + 22, offset + 23 });
		writeTimeSeries(dir + "/y/rh.out", t, { offset + 60, offset + 70, offset + 80, offset + 90 },
						"Relative humidity", "%");
		writeGeometry(dir + "/field/wall.g6a", 3, 2);
		writeField(dir + "/field/plane.out", "wall.g6a", { 0, 1, 2, 3, 4, 5 }, { 0 },
				   { { offset + 1, offset + 2, offset + 3, offset + 4, offset + 5, offset + 6 } });
	}

	const OVP::Mapper & mapper(int index) { return *handler().project().mapperModel()->mapper(index); }
	const LM & lines(int index) { return static_cast<const LM &>(*mapper(index).chartModel()); }
	const SCI::AbstractColorGridSeriesModel & grid(int index) {
		return static_cast<const SCI::AbstractColorGridSeriesModel &>(*mapper(index).chartModel());
	}
	QStringList directories() {
		QStringList paths;
		for (const OVP::Directory & d : handler().project().m_directories)
			paths.append(d.m_path);
		return paths;
	}
};

} // namespace


TEST(OVPDataPathRemap, DeepestFolderAndBestTrailingPart) {
	const QString dir = scratchDir("remap");
	OVP::DataPathRemap remap;
	remap.addFolder("/old/A", dir + "/B/");
	remap.addFolder("/old/A/run", "/new/C");
	EXPECT_EQ(remap.apply("/old/A/run/t.out"), "/new/C/t.out");
	EXPECT_EQ(remap.apply("/old/A/top.out"), dir + "/B/top.out");
	EXPECT_EQ(remap.apply("/old/AB/t.out"), "/old/AB/t.out");
	EXPECT_EQ(remap.apply("/old/A/x/../top.out"), dir + "/B/top.out");

	// B holds run/t.out and run/rh.out, and a stray t.out: the old folder that finds both files wins
	QDir().mkpath(dir + "/B/run");
	for (const char * f : { "/B/t.out", "/B/run/t.out", "/B/run/rh.out" })
		writeText(dir + f, "x");
	const QStringList missing = { "/old/A/run/t.out", "/old/A/run/rh.out" };
	OVP::DataPathRemap found;
	ASSERT_TRUE(found.addFolderFor(missing[0], dir + "/B", missing));
	EXPECT_EQ(found.apply("/old/A/top.out"), dir + "/B/top.out");
	// with only t.out missing both parts find it; the shorter one wins
	OVP::DataPathRemap tie;
	ASSERT_TRUE(tie.addFolderFor(missing[0], dir + "/B", { missing[0] }));
	EXPECT_EQ(tie.apply(missing[0]), dir + "/B/t.out");
	// a folder without the file adds nothing
	EXPECT_FALSE(tie.addFolderFor(missing[1], dir + "/B/run/none", missing));
	EXPECT_EQ(tie.folders().size(), 1u);

	EXPECT_EQ(OVP::DataPathRemap::commonFolder({ "/s/A/t.out", "/s/AB/t.out" }), "/s");
	EXPECT_EQ(OVP::DataPathRemap::commonFolder({ "/a/t.out", "/b/t.out" }), QString());
}


TEST_F(MovedDataTest, LoadOffersFolderOfMovedData) {
	const QString a = m_testDir + "/A";
	const QString b = m_testDir + "/moved/B";
	const QString file = m_testDir + "/sessions/s.o2";
	writeVariant(a, 0);
	QDir().mkpath(m_testDir + "/sessions");
	QDir().mkpath(m_testDir + "/moved");
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(a);
	h.addDirectory(a + "/y");
	h.addDirectory(m_testDir + "/sessions");
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { a + "/x/t.out" }, { a + "/y/rh.out" } }, "VTTMouldModel"));
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { a + "/y/rh.out" } }));
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { a + "/field/plane.out", 0, EM::CT_TimeCut } }));
	ASSERT_EQ(h.saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	h.newProject();
	ASSERT_TRUE(QDir().rename(a, b));

	// declined: fails, naming the missing file
	m_ui->m_folders = { QString() };
	EXPECT_FALSE(h.loadProject(nullptr, file, false));
	EXPECT_TRUE(m_ui->m_shown[0].m_text.startsWith("The data file '" + a + "/x/t.out' does not exist. "
												   "Data files missing in all: 3.")) << m_ui->m_shown[0].m_text.toStdString();
	EXPECT_EQ(m_ui->m_shown[0].m_extra, m_testDir);

	// a folder without the file, then the new home of x (which leaves the rest missing), then B
	m_ui->m_shown.clear();
	m_ui->m_folders = { m_testDir + "/sessions", b + "/x", b };
	ASSERT_TRUE(h.loadProject(nullptr, file, false));
	ASSERT_EQ(m_ui->m_shown.size(), 3u);
	EXPECT_TRUE(m_ui->m_shown[1].m_text.startsWith("The folder '" + m_testDir + "/sessions' holds no file 't.out'"));
	EXPECT_TRUE(m_ui->m_shown[2].m_text.startsWith("After re-pointing, these data files are still missing:\n"
		+ a + "/y/rh.out\n" + a + "/field/plane.out\n\nThe data file '" + a + "/y/rh.out' does not exist. "
		"Data files missing in all: 2.")) << m_ui->m_shown[2].m_text.toStdString();
	EXPECT_TRUE(h.isModified());
	EXPECT_EQ(directories(), QStringList({ b, b + "/y", m_testDir + "/sessions" }));
	EXPECT_EQ(h.project().dataFileNames(), QStringList({ b + "/x/t.out", b + "/y/rh.out", b + "/field/plane.out" }));
	ASSERT_EQ(lines(1).size(0), 4u);
	EXPECT_DOUBLE_EQ(lines(1).yValues(0)[3], 90);

	// saved, the session opens from B without a question
	ASSERT_EQ(h.saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(h.loadProject(nullptr, file, false));
	EXPECT_EQ(m_ui->m_shown.size(), 3u);
}


TEST_F(MovedDataTest, OtherResultFolderKeepsCharts) {
	const QString a = m_testDir + "/A";
	const QString b = m_testDir + "/B";
	const QString c = m_testDir + "/C";
	writeVariant(a, 0);
	writeVariant(b, 100);
	writeVariant(c, 200);
	QFile::remove(c + "/y/rh.out");
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(a + "/x");
	h.addDirectory(m_testDir);
	std::unique_ptr<OVP::Mapper> line = OVP::Mapper::createNewMapper(h.dataManager(), { { a + "/x/t.out" } });
	line->addExtractor({ { a + "/y/rh.out" } });
	h.addMapper(std::move(line));
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { a + "/field/plane.out", 0, EM::CT_TimeCut } }));
	CM & lineModel = *mapper(0).chartModel();
	ASSERT_TRUE(lineModel.setSeriesData(QString("outside $filename"), 0, LM::SeriesTitleText));
	ASSERT_TRUE(mapper(1).chartModel()->setAxisData(ZEB::Unit("K").id(), CM::RightAxis, CM::AxisUnit));
	const SCI::Chart * chart = h.project().mapperModel()->mapper(0)->chart();
	ASSERT_EQ(h.saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);

	// the files lie in three folders: their common folder is offered first
	m_ui->m_choices = { 0 };
	m_ui->m_folders = { b };
	ASSERT_TRUE(h.useOtherResultFolder(nullptr));
	ASSERT_EQ(m_ui->m_shown.size(), 2u);
	EXPECT_EQ(m_ui->m_shown[0].m_extra, QStringList({ a, a + "/x", a + "/y", a + "/field" }).join("\n"));
	EXPECT_EQ(m_ui->m_shown[1].m_extra, m_testDir);
	EXPECT_TRUE(h.isModified());
	EXPECT_EQ(directories(), QStringList({ b + "/x", m_testDir }));
	EXPECT_DOUBLE_EQ(lines(0).yValues(1)[3], 190);
	EXPECT_EQ(mapper(0).extractors2D()[0].m_title, "outside $filename");
	EXPECT_EQ(h.project().mapperModel()->mapper(0)->chart(), chart);
	EXPECT_NEAR(grid(1).values(0)[0], 101 + 273.15, 1e-9);

	// C lacks rh.out: refused, naming the file, and nothing changes
	ASSERT_EQ(h.saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	m_ui->m_choices = { 0 };
	m_ui->m_folders = { c };
	EXPECT_FALSE(h.useOtherResultFolder(nullptr));
	EXPECT_EQ(m_ui->m_shown.back().m_kind, "critical");
	EXPECT_EQ(m_ui->m_shown.back().m_text, "The session is not changed:\nData file '" + c + "/y/rh.out' does not exist.");
	EXPECT_FALSE(h.isModified());
	EXPECT_EQ(h.project().dataFileNames(), QStringList({ b + "/x/t.out", b + "/y/rh.out", b + "/field/plane.out" }));
}
