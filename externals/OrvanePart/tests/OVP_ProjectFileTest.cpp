#include "OVP_ProjectTestUtils.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <tinyxml.h>

#include <EM_Extractor2DFromTwo2D.h>
#include <EM_ExtractorBase.h>
#include <EM_ManipulatorBase.h>
#include <EM_ModelTwo2DBase.h>

#include <Sci_AbstractLineSeriesModel.h>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_SeriesLineExtractorModel.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

/*! The chart model's XML with all properties, as text: equal texts mean equal charts. */
std::string chartXML(const OVP::Mapper & mapper) {
	TiXmlElement root("ChartModel");
	const bool previous = mapper.chartModel()->writeAll();
	mapper.chartModel()->setWriteAll(true);
	mapper.chartModel()->writeXML(&root);
	mapper.chartModel()->setWriteAll(previous);
	TiXmlPrinter printer;
	root.Accept(&printer);
	return printer.Str();
}

/*! Everything about one extractor that the project file must keep, as text. */
std::string describeExtractor(const OVP::Mapper::ExtractorEntry & entry) {
	const EM::ExtractorBase & e = *entry.m_extractor;
	std::string text = "files:";
	for (const auto & dio : entry.m_dataIOs)
		text += " " + dio->filename();
	text += " cut:" + std::string(EM::CutTypes::keyword(e.cutType()));
	for (unsigned int d = 0; d < EM::NUM_CD; ++d)
		if (e.isCutDimension(d))
			text += " idx" + std::to_string(d) + "=" + std::to_string(e.cutIndex(d));
	text += e.isTimeIndexLocked() ? " locked" : " unlocked";
	for (const auto & m : e.manipulators())
		text += std::string(" manip:") + m->typeKeyword() + "(" + m->parameter() + ")";
	const EM::Extractor2DFromTwo2D * model = dynamic_cast<const EM::Extractor2DFromTwo2D *>(&e);
	if (model != nullptr)
		text += std::string(" model:") + model->model().typeKeyword() + "(" + model->model().parameter() + ")";
	text += " title:" + entry.m_title.toStdString();
	return text;
}

/*! Everything about a project that the project file must keep, as text. */
std::string describeProject(const OVP::Project & p) {
	std::string text = "version:" + p.m_version.toStdString() + "\n";
	for (const OVP::Directory & d : p.m_directories) {
		text += "dir " + d.m_path.toStdString() + "\n";
		for (auto it = d.m_subDirectories.constBegin(); it != d.m_subDirectories.constEnd(); ++it)
			text += "  sub " + it.key().toStdString() + " " + it.value().m_color.name().toStdString()
					+ (it.value().m_checked ? " checked\n" : " unchecked\n");
		for (const QString & e : d.m_expandedSubDirectories)
			text += "  expanded " + e.toStdString() + "\n";
	}
	for (int i = 0; i < p.mapperModel()->mapperCount(); ++i) {
		const OVP::Mapper & m = *p.mapperModel()->mapper(i);
		text += "mapper " + m.name().toStdString() + " type " + std::to_string(m.type()) + "\n";
		for (const auto & entry : m.extractors2D())
			text += "  " + describeExtractor(entry) + "\n";
		if (m.extractor3D().m_extractor)
			text += "  " + describeExtractor(m.extractor3D()) + "\n";
		text += chartXML(m) + "\n";
	}
	for (const OVP::SplitLayout::Widget & w : p.m_splitLayout.m_widgets)
		text += "widget " + std::to_string(w.m_id) + " " + std::to_string(w.m_parent) + " " + std::to_string(w.m_viewTable)
				+ " " + std::to_string(w.m_mapperIndex) + " " + std::to_string(w.m_size1) + " "
				+ std::to_string(w.m_size2) + " " + std::to_string(w.m_orientation) + "\n";
	text += "focus " + std::to_string(p.m_splitLayout.m_focusedWidget) + "\n";
	return text;
}

/*! The Path texts of the Directory elements of a project file. */
QStringList directoryPaths(const QString & projectFile) {
	TiXmlDocument doc;
	doc.Parse(readText(projectFile).toUtf8().constData());
	QStringList paths;
	const TiXmlElement * dirs = doc.RootElement()->FirstChildElement("Directories");
	for (const TiXmlElement * d = dirs->FirstChildElement("Directory"); d != nullptr; d = d->NextSiblingElement())
		paths.append(QString::fromUtf8(d->FirstChildElement("Path")->GetText()));
	return paths;
}

/*! The DataIOFileName texts of all extractors of a project file. */
QStringList dataFilePaths(const QString & projectFile) {
	TiXmlDocument doc;
	doc.Parse(readText(projectFile).toUtf8().constData());
	QStringList paths;
	const TiXmlElement * mappers = doc.RootElement()->FirstChildElement("Mappers");
	for (const TiXmlElement * m = mappers->FirstChildElement(); m != nullptr; m = m->NextSiblingElement()) {
		const TiXmlElement * extractors = m->FirstChildElement("Extractors");
		for (const TiXmlElement * e = extractors->FirstChildElement(); e != nullptr; e = e->NextSiblingElement())
			paths.append(QString::fromUtf8(e->FirstChildElement("DataIOFileName")->GetText()));
	}
	return paths;
}

/*! A fixture with a folder of sample data files. */
class ProjectFileTest : public ProjectTest {
protected:
	/*! Writes the sample files into dir/results. */
	void writeResultsFolder(const QString & dir) {
		const QString results = dir + "/results";
		QDir().mkpath(results);
		const std::vector<double> t = { 0, 1, 2, 3, 4, 5 };
		writeTimeSeries(results + "/T.out", t, { 20, 21, 22, 23, 22, 21 });
		writeTimeSeries(results + "/T2.out", t, { 15, 16, 17, 18, 19, 20 });
		writeTimeSeries(results + "/RH.out", t, { 80, 85, 90, 95, 90, 85 }, "Relative humidity", "%");
		writeGeometry(results + "/wall.g6a", 4, 1);
		writeField(results + "/field.out", "wall.g6a", { 0, 1, 2, 3 }, { 0, 1, 2 },
				   { { 1, 2, 3, 4 }, { 5, 6, 7, 8 }, { 9, 10, 11, 12 } });
	}

	/*! A project with directories, five mappers of every kind and a split layout. */
	void buildSampleProject(const QString & dir) {
		writeResultsFolder(dir);
		const QString results = dir + "/results";
		OVP::ProjectHandler & h = handler();
		h.newProject();
		h.addDirectory(results);
		h.addDirectory(scratchDir("outside-" + QFileInfo(dir).fileName()));
		h.setSubDirectory(0, "run1", QColor("#ff8000"), true);
		h.setSubDirectory(0, "run2/a", QColor("#0000ff"), false);
		h.setSubDirectoryExpanded(0, "run1", true);
		h.setSubDirectoryExpanded(1, "x/y", true);
		OVP::DataManager & dm = h.dataManager();

		// two series with manipulators in a given order, the second on the right axis
		std::unique_ptr<OVP::Mapper> lines = OVP::Mapper::createNewMapper(dm, { { results + "/T.out" } });
		lines->chartModel()->setAxisData(ZEB::Unit("%").id(), CM::RightAxis, CM::AxisUnit);
		lines->addExtractor({ { results + "/RH.out" } });
		lines->addExtractor({ { results + "/T2.out" } });
		const EM::ExtractorBase & first = *lines->extractors2D()[0].m_extractor;
		std::unique_ptr<EM::ManipulatorBase> scaling = OVP::Mapper::createManipulator("2DScaling");
		scaling->setFromParameter("2.5");
		lines->extractors2D()[0].m_extractor->addManipulator(std::move(scaling));
		std::unique_ptr<EM::ManipulatorBase> offset = OVP::Mapper::createManipulator("2DOffset");
		offset->setFromParameter("-3");
		lines->extractors2D()[0].m_extractor->addManipulator(std::move(offset));
		lines->extractors2D()[0].m_extractor->addManipulator(OVP::Mapper::createManipulator("2DDifference2First"));
		EXPECT_EQ(first.manipulators().size(), 3u);
		lines->chartModel()->setChartData("Temperatures", SCI::AbstractChartModel::TitleText);
		lines->chartModel()->setSeriesData(QColor("#123456"), 1, LM::SeriesPenColor);
		lines->chartModel()->setAxisData(true, CM::BottomAxis, CM::AxisDateTimeEnabled);
		lines->setName("Lines");
		h.addMapper(std::move(lines));

		// a model series with its parameters changed
		std::unique_ptr<OVP::Mapper> mould = OVP::Mapper::createNewMapper(dm, { { results + "/T.out" },
			{ results + "/RH.out" } }, "VTTMouldModel");
		static_cast<OVP::SeriesLineExtractorModel *>(mould->chartModel())->setModelParameter(0, "MC 2 SC 1 DC 1");
		h.addMapper(std::move(mould));

		// a colour grid
		OVP::Mapper::DataSet grid{ results + "/field.out", 0, EM::CT_NoCut };
		h.addMapper(OVP::Mapper::createNewMapper(dm, { grid }));

		// profiles at fixed times, one time index locked, and a time series at a fixed position
		OVP::Mapper::DataSet profile{ results + "/field.out", 0, EM::CT_TimeCut };
		std::unique_ptr<OVP::Mapper> profiles = OVP::Mapper::createNewMapper(dm, { profile });
		profiles->addExtractor({ profile });
		profiles->extractors2D()[0].m_extractor->setTimeCutIndex(1, true, true);
		profiles->extractors2D()[1].m_extractor->setTimeCutIndex(2, false, true);
		h.addMapper(std::move(profiles));
		OVP::Mapper::DataSet atX{ results + "/field.out", 0, EM::CT_XCut };
		std::unique_ptr<OVP::Mapper> timeSeries = OVP::Mapper::createNewMapper(dm, { atX });
		timeSeries->extractors2D()[0].m_extractor->setCutIndex(EM::CD_X, 2, true);
		h.addMapper(std::move(timeSeries));

		OVP::SplitLayout layout;
		layout.m_widgets.append(OVP::SplitLayout::Widget{ 0, -1, false, -1, 300, 200, 1 });
		layout.m_widgets.append(OVP::SplitLayout::Widget{ 1, 0, true, 2, 0, 0, 0 });
		layout.m_widgets.append(OVP::SplitLayout::Widget{ 2, 0, false, 4, 0, 0, 0 });
		layout.m_focusedWidget = 2;
		h.setSplitLayout(layout);
	}
};

} // namespace


TEST_F(ProjectFileTest, SessionRoundTrip) {
	const QString dir = scratchDir("roundtrip");
	buildSampleProject(dir);
	OVP::ProjectHandler & h = handler();
	ASSERT_EQ(h.project().mapperModel()->mapperCount(), 5);
	const std::string original = describeProject(h.project());

	ASSERT_EQ(h.saveProject(nullptr, dir + "/session"), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/session.o2", false));
	const std::string loaded = describeProject(h.project());
	// the version is the only thing a new project does not have
	EXPECT_EQ(loaded, "version:2.2.3" + original.substr(original.find('\n')));

	// saved again under a new name in the same folder, the file is the same text
	ASSERT_EQ(h.saveProject(nullptr, dir + "/copy.o2"), OVP::ProjectHandler::SaveOK);
	EXPECT_EQ(readText(dir + "/copy.o2"), readText(dir + "/session.o2"));
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/copy.o2", false));
	EXPECT_EQ(describeProject(h.project()), loaded);

	// the extractors of the loaded project show the data of the files
	const OVP::Mapper & lines = *h.project().mapperModel()->mapper(0);
	const OVP::SeriesLineExtractorModel & model = static_cast<const OVP::SeriesLineExtractorModel &>(*lines.chartModel());
	ASSERT_EQ(model.seriesCount(), 3u);
	ASSERT_EQ(model.size(2), 6u);
	EXPECT_DOUBLE_EQ(model.yValues(2)[3], 18);
	EXPECT_FALSE(model.seriesData(1, LM::SeriesLeftAxis).toBool());
	// scaled by 2.5, shifted by -3 and taken relative to the first value: (22 - 20)*2.5
	ASSERT_EQ(model.size(0), 6u);
	EXPECT_DOUBLE_EQ(model.yValues(0)[2], 5);
	EXPECT_EQ(h.project().mapperModel()->mapper(2)->type(), OVP::Mapper::MT_3D);
}


TEST_F(ProjectFileTest, FileContentOrderAndComments) {
	const QString dir = scratchDir("content");
	buildSampleProject(dir);
	ASSERT_EQ(handler().saveProject(nullptr, dir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	const QString text = readText(dir + "/s.o2");
	EXPECT_TRUE(text.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>"));
	// the sections in order, each after its comment
	int at = 0;
	for (const char * marker : { "<Orvane version=\"2.2.3\">", "<!--List of all directories-->", "<Directories>",
								 "<!--All mappers.-->", "<Mappers>", "<!--Split window state.-->", "<Splitting>" }) {
		EXPECT_GT(text.indexOf(marker, at), at) << marker;
		at = text.indexOf(marker, at);
	}
	for (const char * expected : { "<SubDir Color=\"#ff8000\" Checked=\"1\">run1</SubDir>", "<FocusedWidget>2</FocusedWidget>",
			"<ExpandedSubDir>run1</ExpandedSubDir>",
			"<Widget id=\"1\" parent=\"0\" viewTable=\"1\" mapperIndex=\"2\" size1=\"0\" size2=\"0\" orientation=\"0\" />",
			"<Mapper name=\"Lines\">", "<ChartModel chartType=\"3D\">", "<CutIndexT locked=\"yes\">1</CutIndexT>",
			"<CutIndexX>2</CutIndexX>", "<ModelType type=\"VTTMouldModel\" Parameter=\"MC 2 SC 1 DC 1\">MT_2DFromTwo2D</ModelType>",
			"<Manipulator type=\"2DScaling\">2.5</Manipulator>", "<Manipulator type=\"2DDifference2First\" />" })
		EXPECT_TRUE(text.contains(expected)) << expected;
	// the colour grid series is no reference and no flux: no DataType
	EXPECT_EQ(text.count("<DataType>"), 0);
}


TEST_F(ProjectFileTest, RelativePathsAndMovedFolder) {
	const QString base = scratchDir("move");
	const QString projectDir = base + "/project";
	writeResultsFolder(projectDir);
	QDir().mkpath(projectDir + "/data/deep");
	QDir().mkpath(base + "/beside");
	writeTimeSeries(base + "/beside/outside.out", { 0, 1 }, { 1, 2 });

	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(projectDir);
	h.addDirectory(projectDir + "/data/deep");
	h.addDirectory(base + "/beside");
	std::unique_ptr<OVP::Mapper> m = OVP::Mapper::createNewMapper(h.dataManager(), { { projectDir + "/results/T.out" } });
	m->addExtractor({ { base + "/beside/outside.out" } });
	h.addMapper(std::move(m));
	ASSERT_EQ(h.saveProject(nullptr, projectDir + "/p.o2"), OVP::ProjectHandler::SaveOK);

	EXPECT_EQ(directoryPaths(projectDir + "/p.o2"),
			  QStringList({ "./", "./data/deep", QDir::cleanPath(base + "/beside") }));
	EXPECT_EQ(dataFilePaths(projectDir + "/p.o2"),
			  QStringList({ "./results/T.out", QDir::cleanPath(base + "/beside/outside.out") }));

	// the project folder moves together with its data; the file outside stays where it is
	h.closeProject(nullptr);
	ASSERT_TRUE(QDir().rename(projectDir, base + "/moved"));
	ASSERT_TRUE(h.loadProject(nullptr, base + "/moved/p.o2", false));
	const OVP::Project & p = h.project();
	ASSERT_EQ(p.m_directories.size(), 3u);
	EXPECT_EQ(p.m_directories[1].m_path, QDir::cleanPath(base + "/moved/data/deep"));
	EXPECT_EQ(p.m_directories[2].m_path, QDir::cleanPath(base + "/beside"));
	EXPECT_EQ(p.dataFileNames(), QStringList({ QDir::cleanPath(base + "/moved/results/T.out"),
											   QDir::cleanPath(base + "/beside/outside.out") }));
}


TEST_F(ProjectFileTest, SkippedMapperClosesUpIndices) {
	const QString dir = scratchDir("skip");
	writeResultsFolder(dir);
	const QString mapper = "<Mapper name=\"%1\"><Extractors><Extractor><DataIOFileName>./results/%2</DataIOFileName>"
						   "<CutType>NoCut</CutType><DataFormat>DF_2D</DataFormat></Extractor></Extractors></Mapper>";
	writeText(dir + "/s.o2", "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<Orvane version=\"2.2.3\"><Mappers>"
			  + mapper.arg("first", "T.out") + "<Mapper name=\"empty\"><Extractors/></Mapper>"
			  + "<Mapper name=\"bare\"/>" + mapper.arg("last", "RH.out")
			  + "</Mappers><Splitting><Widget id=\"0\" parent=\"-1\" viewTable=\"0\" mapperIndex=\"3\" size1=\"1\" "
				"size2=\"2\" orientation=\"1\"/><Widget id=\"1\" parent=\"0\" viewTable=\"0\" mapperIndex=\"1\" "
				"size1=\"0\" size2=\"0\" orientation=\"0\"/><Widget id=\"2\" parent=\"0\" viewTable=\"0\" "
				"mapperIndex=\"0\" size1=\"0\" size2=\"0\" orientation=\"0\"/><FocusedWidget>1</FocusedWidget>"
				"</Splitting></Orvane>");
	ASSERT_TRUE(handler().loadProject(nullptr, dir + "/s.o2", false));
	const OVP::Project & p = handler().project();
	ASSERT_EQ(p.mapperModel()->mapperCount(), 2);
	EXPECT_EQ(p.mapperModel()->mapper(0)->name(), "first");
	EXPECT_EQ(p.mapperModel()->mapper(1)->name(), "last");
	EXPECT_EQ(m_messages->count(ZEB::MSG_WARNING, "Mapper 'empty' does not contain any extractors. Skipped.",
								"[Project::readXML]"), 1);
	// the layout follows the closed-up mapper list
	ASSERT_EQ(p.m_splitLayout.m_widgets.size(), 3);
	EXPECT_EQ(p.m_splitLayout.m_widgets[0].m_mapperIndex, 1);
	EXPECT_EQ(p.m_splitLayout.m_widgets[1].m_mapperIndex, -1);
	EXPECT_EQ(p.m_splitLayout.m_widgets[2].m_mapperIndex, 0);
	EXPECT_EQ(p.m_splitLayout.m_focusedWidget, 1);
}


TEST_F(ProjectFileTest, OptionalSectionsAndVersion) {
	const QString dir = scratchDir("optional");
	writeText(dir + "/empty.o2", "<?xml version=\"1.0\"?><Orvane/>");
	ASSERT_TRUE(handler().loadProject(nullptr, dir + "/empty.o2", false));

	// an old version number is kept as it was read, but saving writes the current one
	writeText(dir + "/old.o2", "<Orvane version=\"1.5\"><Directories><Directory><Path>./</Path></Directory>"
			  "</Directories></Orvane>");
	ASSERT_TRUE(handler().loadProject(nullptr, dir + "/old.o2", false));
	EXPECT_EQ(handler().project().m_version, "1.5");
	ASSERT_EQ(handler().project().m_directories.size(), 1u);
	EXPECT_EQ(handler().project().m_directories[0].m_path, dir);
	ASSERT_EQ(handler().saveProject(nullptr, dir + "/old.o2"), OVP::ProjectHandler::SaveOK);
	EXPECT_TRUE(readText(dir + "/old.o2").contains("<Orvane version=\"2.2.3\">"));
	// the Checked attribute counts only for "1" and "true"
	writeText(dir + "/checked.o2", "<Orvane><Directories><Directory><Path>" + dir + "</Path>"
			  "<SubDir Color=\"#010203\" Checked=\"true\">a</SubDir><SubDir Checked=\"yes\">b</SubDir>"
			  "<SubDir Checked=\"1\">c</SubDir><SubDir>d</SubDir></Directory></Directories></Orvane>");
	ASSERT_TRUE(handler().loadProject(nullptr, dir + "/checked.o2", false));
	const OVP::Directory & d = handler().project().m_directories[0];
	EXPECT_TRUE(d.m_subDirectories["a"].m_checked);
	EXPECT_EQ(d.m_subDirectories["a"].m_color, QColor(1, 2, 3));
	EXPECT_FALSE(d.m_subDirectories["b"].m_checked);
	EXPECT_TRUE(d.m_subDirectories["c"].m_checked);
	EXPECT_FALSE(d.m_subDirectories["d"].m_checked);
}


TEST_F(ProjectFileTest, CorruptFilesAreRefused) {
	const QString dir = scratchDir("corrupt");
	writeResultsFolder(dir);
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(dir);
	ASSERT_EQ(h.saveProject(nullptr, dir + "/good.o2"), OVP::ProjectHandler::SaveOK);
	h.addDirectory(dir + "/results");
	const std::string before = describeProject(h.project());

	const QString goodMapper = "<Mapper name=\"m\"><Extractors><Extractor><DataIOFileName>./results/T.out"
							   "</DataIOFileName><CutType>NoCut</CutType><DataFormat>DF_2D</DataFormat></Extractor>"
							   "</Extractors></Mapper>";
	struct Case {
		QString		m_content;
		std::string	m_message;	///< the innermost message
	};
	const std::vector<Case> cases = {
		{ "<orvane version=\"2.2.3\"/>", "Expected Orvane as root node in XML file " + (dir + "/bad.o2").toStdString() + "." },
		{ "<Orvane><Directories><Directory><SubDir>a</SubDir><Path>./</Path></Directory></Directories></Orvane>",
		  "Missing 'Path' tag." },
		{ "<Orvane><Directories><Directory><Path>./</Path><Color/></Directory></Directories></Orvane>",
		  "Expected 'Path' or 'SubDir' tag, got 'Color'" },
		{ "<Orvane><Directories><Directory><Path>./</Path></Directory><Directory><Path>" + dir + "/</Path></Directory>"
		  "</Directories></Orvane>", "Top level directory '" + dir.toStdString() + "' was previously listed in session file." },
		{ "<Orvane><Splitting><Widgets/></Splitting></Orvane>", "Unknown/invalid xml tag 'Widgets' in Splitting section." },
	};
	for (const Case & c : cases) {
		SCOPED_TRACE(c.m_content.toStdString());
		writeText(dir + "/bad.o2", c.m_content);
		m_ui->m_shown.clear();
		EXPECT_FALSE(h.loadProject(nullptr, dir + "/bad.o2", false));
		ASSERT_EQ(m_ui->m_shown.size(), 1u);
		const QStringList lines = m_ui->m_shown[0].m_text.split('\n');
		ASSERT_GE(lines.size(), 3);
		EXPECT_EQ(lines[0], "Data in project was missing/invalid.");
		EXPECT_EQ(lines[1].toStdString(), c.m_message);
		EXPECT_EQ(lines.last(), "Error reading session file " + dir + "/bad.o2");
		// the open session stays as it was
		EXPECT_EQ(describeProject(h.project()), before);
		EXPECT_EQ(h.projectFile(), dir + "/good.o2");
	}

	// a broken second mapper names its number; the cause comes first
	writeText(dir + "/bad.o2", "<Orvane><Mappers>" + goodMapper + "<Mapper name=\"x\"><Chart/></Mapper></Mappers></Orvane>");
	m_ui->m_shown.clear();
	EXPECT_FALSE(h.loadProject(nullptr, dir + "/bad.o2", false));
	EXPECT_EQ(m_ui->m_shown.at(0).m_text, "Data in project was missing/invalid.\n"
			  "Expected 'Extractors' tag or 'ChartModel' tag, got 'Chart'\nError reading Mapper definition #2.\n"
			  "Error reading session file " + dir + "/bad.o2");

	// the parser's message carries the line number
	writeText(dir + "/bad.o2", "<Orvane>\n<Directories>\n</Orvane>");
	m_ui->m_shown.clear();
	EXPECT_FALSE(h.loadProject(nullptr, dir + "/bad.o2", false));
	EXPECT_TRUE(m_ui->m_shown.at(0).m_text.contains("Error in line 3 of session file '" + dir + "/bad.o2':\n"));

	// a file ending inside a UTF-8 sequence is refused before the parser reads past its end
	QFile bad(dir + "/bad.o2");
	ASSERT_TRUE(bad.open(QIODevice::WriteOnly | QIODevice::Truncate));
	bad.write("<a>\xD1<\xD1", 6);
	bad.close();
	m_ui->m_shown.clear();
	EXPECT_FALSE(h.loadProject(nullptr, dir + "/bad.o2", false));
	EXPECT_EQ(m_ui->m_shown.at(0).m_text, "Data in project was missing/invalid.\nFile '" + dir + "/bad.o2' is not UTF-8 "
			  "text: invalid or incomplete byte sequence at byte offset 3 (line 1).\nError reading session file " + dir + "/bad.o2");

	// a missing file goes the same way; silent loading shows nothing
	m_ui->m_shown.clear();
	EXPECT_FALSE(h.loadProject(nullptr, dir + "/bad.o2", true));
	EXPECT_TRUE(m_ui->m_shown.empty());
	EXPECT_EQ(describeProject(h.project()), before);
	// the wrapping message is logged with its origin
	EXPECT_GE(m_messages->count(ZEB::MSG_ERROR, ("Error reading session file " + dir + "/bad.o2").toStdString(),
								"[Project::readXML]"), 1);
}
