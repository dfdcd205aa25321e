#include "OVP_ProjectTestUtils.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSignalSpy>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

#include <EM_Extractor2DOutputBase.h>

#include <Sci_AbstractCartesianChartModel.h>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

using namespace OVPTest;


TEST(OVPProjectHandler, SingleInstance) {
	const auto before = thrown([]() { OVP::ProjectHandler::instance(); });
	EXPECT_EQ(before.first, "[ProjectHandler::instance]");
	EXPECT_EQ(before.second, "Project handler hasn't been created yet!");
	{
		OVP::ProjectHandler first;
		EXPECT_EQ(&OVP::ProjectHandler::instance(), &first);
		EXPECT_FALSE(first.isValid());
		const auto second = thrown([]() { OVP::ProjectHandler another; });
		EXPECT_EQ(second.first, "[ProjectHandler::ProjectHandler]");
		EXPECT_EQ(second.second, "You must not create two instances of the project handler in your code!");
		EXPECT_EQ(&OVP::ProjectHandler::instance(), &first);
		const auto readTime = thrown([&first]() { first.updateLastReadTime(); });
		EXPECT_EQ(readTime.first, "[ProjectHandler::updateLastReadTime]");
		EXPECT_EQ(readTime.second, "Must not call updateLastReadTime() on invalid project.");
	}
	EXPECT_EQ(thrown([]() { OVP::ProjectHandler::instance(); }).first, "[ProjectHandler::instance]");
}


class ProjectHandlerTest : public ProjectTest {};


TEST_F(ProjectHandlerTest, CloseProjectAnswers) {
	const QString dir = scratchDir("close");
	OVP::ProjectHandler & h = handler();
	// nothing open, or open and unmodified: closes without a question
	EXPECT_TRUE(h.closeProject(nullptr));
	h.newProject();
	EXPECT_TRUE(h.isValid());
	EXPECT_FALSE(h.isModified());
	EXPECT_TRUE(h.projectFile().isEmpty());
	EXPECT_TRUE(h.closeProject(nullptr));
	EXPECT_FALSE(h.isValid());
	EXPECT_TRUE(m_ui->m_shown.empty());

	// Cancel keeps everything
	h.newProject();
	h.addDirectory(dir);
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerCancel };
	EXPECT_FALSE(h.closeProject(nullptr));
	ASSERT_EQ(m_ui->m_shown.size(), 1u);
	EXPECT_EQ(m_ui->m_shown[0].m_title, "Save project before closing");
	EXPECT_EQ(m_ui->m_shown[0].m_text, "Would you like to save the project before closing it?");
	EXPECT_TRUE(h.isValid());
	EXPECT_TRUE(h.isModified());
	EXPECT_EQ(h.project().m_directories.size(), 1u);

	// Save without a file name asks for one; cancelling the file dialog keeps the project
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerSave };
	m_ui->m_fileNames = { QString() };
	EXPECT_FALSE(h.closeProject(nullptr));
	EXPECT_TRUE(h.isValid());
	EXPECT_EQ(m_ui->m_shown.back().m_kind, "file");
	EXPECT_EQ(m_ui->m_shown.back().m_title, "Specify Orvane project file");
	EXPECT_EQ(m_ui->m_shown.back().m_extra, "Orvane Projects (*.o2);;All files (*.*)");

	// Save to a file that cannot be written keeps the project
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerSave };
	m_ui->m_fileNames = { dir + "/no/such/folder/p.o2" };
	EXPECT_FALSE(h.closeProject(nullptr));
	EXPECT_TRUE(h.isValid());
	EXPECT_TRUE(h.isModified());
	EXPECT_EQ(m_ui->m_shown.back().m_title, "Saving failed");

	// Save with a file name saves and closes
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerSave };
	m_ui->m_fileNames = { dir + "/closed" };
	EXPECT_TRUE(h.closeProject(nullptr));
	EXPECT_FALSE(h.isValid());
	EXPECT_FALSE(h.isModified());
	EXPECT_TRUE(QFileInfo::exists(dir + "/closed.o2"));

	// a project with a file saves there without asking for a name
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/closed.o2", false));
	h.addDirectory(dir + "/second");
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerSave };
	const std::size_t shownBefore = m_ui->m_shown.size();
	EXPECT_TRUE(h.closeProject(nullptr));
	EXPECT_EQ(m_ui->m_shown.size(), shownBefore + 1);
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/closed.o2", false));
	EXPECT_EQ(h.project().m_directories.size(), 2u);

	// Discard drops the changes
	h.addDirectory(dir + "/third");
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerDiscard };
	EXPECT_TRUE(h.closeProject(nullptr));
	EXPECT_FALSE(h.isValid());
	EXPECT_TRUE(h.projectFile().isEmpty());
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/closed.o2", false));
	EXPECT_EQ(h.project().m_directories.size(), 2u);
}


TEST_F(ProjectHandlerTest, SaveNamesBackupAndState) {
	const QString dir = scratchDir("save");
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(dir + "/a");
	EXPECT_TRUE(h.isModified());

	// ".o2" is appended; the first save has nothing to back up
	EXPECT_EQ(h.saveProject(nullptr, dir + "/results"), OVP::ProjectHandler::SaveOK);
	EXPECT_EQ(h.projectFile(), dir + "/results.o2");
	EXPECT_FALSE(h.isModified());
	EXPECT_TRUE(QFileInfo::exists(dir + "/results.o2"));
	EXPECT_FALSE(QFileInfo::exists(dir + "/results.bak"));
	EXPECT_EQ(h.lastReadTime(), QFileInfo(dir + "/results.o2").lastModified());
	const QString firstContent = readText(dir + "/results.o2");

	// saving again keeps the previous file as backup
	h.addDirectory(dir + "/b");
	EXPECT_EQ(h.saveProject(nullptr, dir + "/results.o2"), OVP::ProjectHandler::SaveOK);
	EXPECT_EQ(readText(dir + "/results.bak"), firstContent);
	EXPECT_NE(readText(dir + "/results.o2"), firstContent);
	EXPECT_FALSE(QFileInfo::exists(dir + "/results.o2.o2"));

	// a name that merely contains ".o2" gets the extension too
	EXPECT_EQ(h.saveProject(nullptr, dir + "/x.o2.txt"), OVP::ProjectHandler::SaveOK);
	EXPECT_EQ(h.projectFile(), dir + "/x.o2.txt.o2");

	// the folder is remembered and the file is a recent project
	EXPECT_EQ(OVP::ProjectHandler::lastUsedDirectory(), dir);
	EXPECT_EQ(m_settings->m_recentProjects.value(0), dir + "/x.o2.txt.o2");

	// save as: the dialog starts with the current file
	m_ui->m_fileNames = { dir + "/renamed.o2" };
	EXPECT_EQ(h.saveWithNewFilename(nullptr), OVP::ProjectHandler::SaveOK);
	EXPECT_EQ(m_ui->m_shown.back().m_text, dir + "/x.o2.txt.o2");
	EXPECT_EQ(h.projectFile(), dir + "/renamed.o2");
	m_ui->m_fileNames = { QString() };
	EXPECT_EQ(h.saveWithNewFilename(nullptr), OVP::ProjectHandler::SaveCancelled);
	EXPECT_EQ(h.projectFile(), dir + "/renamed.o2");
}


TEST_F(ProjectHandlerTest, FailedSaveKeepsFileAndFlag) {
	const QString dir = scratchDir("failedsave");
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(dir);
	ASSERT_EQ(h.saveProject(nullptr, dir + "/p.o2"), OVP::ProjectHandler::SaveOK);
	h.addDirectory(dir + "/more");

	// a folder that does not exist
	const QString missing = dir + "/missing/p.o2";
	EXPECT_EQ(h.saveProject(nullptr, missing), OVP::ProjectHandler::SaveFailed);
	EXPECT_TRUE(h.isModified());
	EXPECT_EQ(h.projectFile(), dir + "/p.o2");
	EXPECT_EQ(m_ui->m_shown.back().m_kind, "critical");
	EXPECT_EQ(m_ui->m_shown.back().m_title, "Saving failed");
	EXPECT_EQ(m_ui->m_shown.back().m_text, "Error while saving project file!");
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Error writing file '" + missing.toStdString()
								+ "' (path does not exists or missing permissions).", "[ProjectHandler::write]"), 1);
	QStringList errors;
	EXPECT_FALSE(h.write(missing, errors));
	EXPECT_EQ(errors, QStringList({ "Cannot create/write file '" + missing
									+ "' (path does not exists or missing permissions)." }));

	// a folder where the file should be
	ASSERT_TRUE(QDir().mkpath(dir + "/folder.o2"));
	EXPECT_EQ(h.saveProject(nullptr, dir + "/folder.o2"), OVP::ProjectHandler::SaveFailed);
	EXPECT_TRUE(h.isModified());
	EXPECT_TRUE(QFileInfo(dir + "/folder.o2").isDir());
}


#ifdef Q_OS_UNIX
TEST_F(ProjectHandlerTest, WriteFailureRestoresBackup) {
	const QString dir = scratchDir("restore");
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(dir);
	ASSERT_EQ(h.saveProject(nullptr, dir + "/p.o2"), OVP::ProjectHandler::SaveOK);
	const QString previous = readText(dir + "/p.o2");
	ASSERT_LT(previous.size(), 2000);
	// make the new content much larger than the file size limit below
	for (int i = 0; i < 100; ++i)
		h.addDirectory(dir + QString("/a rather long sub-directory name number %1").arg(i));

	// writes beyond 4096 bytes fail: the file opens, but the content cannot be written
	struct rlimit old;
	ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
	struct rlimit limited = old;
	limited.rlim_cur = 4096;
	void (*oldHandler)(int) = std::signal(SIGXFSZ, SIG_IGN);
	ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limited), 0);
	const OVP::ProjectHandler::SaveResult result = h.saveProject(nullptr, dir + "/p.o2");
	setrlimit(RLIMIT_FSIZE, &old);
	std::signal(SIGXFSZ, oldHandler);

	EXPECT_EQ(result, OVP::ProjectHandler::SaveFailed);
	EXPECT_TRUE(h.isModified());
	EXPECT_EQ(readText(dir + "/p.o2"), previous);
	EXPECT_EQ(readText(dir + "/p.bak"), previous);
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "An unexpected error occurred while writing file '"
								+ (dir + "/p.o2").toStdString() + "'.", "[ProjectHandler::write]"), 1);
	// the next save works and leaves the previous content as backup
	EXPECT_EQ(h.saveProject(nullptr, dir + "/p.o2"), OVP::ProjectHandler::SaveOK);
	EXPECT_EQ(readText(dir + "/p.bak"), previous);
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/p.o2", false));
	EXPECT_EQ(h.project().m_directories.size(), 101u);
}
#endif


TEST_F(ProjectHandlerTest, LoadSetsState) {
	const QString dir = scratchDir("load");
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(dir);
	ASSERT_EQ(h.saveProject(nullptr, dir + "/p.o2"), OVP::ProjectHandler::SaveOK);
	h.newProject();
	QSignalSpy changed(&h, &OVP::ProjectHandler::projectChanged);
	QSignalSpy recent(&h, &OVP::ProjectHandler::updateRecentProjects);
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/p.o2", false));
	EXPECT_EQ(changed.count(), 1);
	EXPECT_EQ(recent.count(), 1);
	EXPECT_EQ(h.projectFile(), dir + "/p.o2");
	EXPECT_FALSE(h.isModified());
	EXPECT_EQ(h.lastReadTime(), QFileInfo(dir + "/p.o2").lastModified());
	EXPECT_EQ(OVP::ProjectHandler::lastUsedDirectory(), dir);
	ASSERT_EQ(h.project().m_directories.size(), 1u);
	EXPECT_EQ(h.project().m_directories[0].m_path, dir);
}


TEST_F(ProjectHandlerTest, DirectoryAndMapperEdits) {
	const QString dir = scratchDir("edits");
	writeTimeSeries(dir + "/a.out", { 0, 1, 2 }, { 1, 2, 3 });
	OVP::ProjectHandler & h = handler();
	h.newProject();
	QSignalSpy modified(&h, &OVP::ProjectHandler::modified);

	EXPECT_TRUE(h.addDirectory(dir + "/x"));
	EXPECT_TRUE(h.isModified());
	ASSERT_EQ(modified.count(), 1);
	EXPECT_EQ(modified[0][0].toInt(), OVP::ProjectHandler::DirectoriesModified);
	// the same directory written differently is not added again
	EXPECT_FALSE(h.addDirectory(dir + "/y/../x/"));
	EXPECT_EQ(m_messages->count(ZEB::MSG_WARNING, "Directory '" + (dir + "/y/../x/").toStdString()
								+ "' is already in the list of top-level directories and is not added again..",
								"[ProjectHandler::addDirectory]"), 1);
	EXPECT_EQ(h.project().m_directories.size(), 1u);
	EXPECT_TRUE(h.addDirectory(dir + "/y"));
	EXPECT_TRUE(h.addDirectory(dir + "/z"));

	for (const std::pair<int, int> & bad : std::vector<std::pair<int, int> >{ { -1, 1 }, { 0, 0 }, { 2, 2 }, { 3, 1 } }) {
		const auto ex = thrown([&h, &bad]() { h.removeDirectories(bad.first, bad.second); });
		EXPECT_EQ(ex.first, "[ProjectHandler::removeDirectories]");
		EXPECT_EQ(ex.second, "Invalid arguments row or count.");
	}
	h.removeDirectories(0, 2);
	ASSERT_EQ(h.project().m_directories.size(), 1u);
	EXPECT_EQ(h.project().m_directories[0].m_path, dir + "/z");

	// removing mappers closes up the indices in the split layout
	for (int i = 0; i < 4; ++i) {
		std::unique_ptr<OVP::Mapper> m = OVP::Mapper::createNewMapper(h.dataManager(), { { dir + "/a.out" } });
		m->setName(QString("m%1").arg(i));
		h.addMapper(std::move(m));
	}
	OVP::SplitLayout layout;
	for (int i = 0; i < 4; ++i)
		layout.m_widgets.append(OVP::SplitLayout::Widget{ i, -1, false, i, 0, 0, 0 });
	h.setSplitLayout(layout);
	h.removeMappers(1, 2);
	const OVP::MapperTreeModel & mappers = *h.project().mapperModel();
	ASSERT_EQ(mappers.mapperCount(), 2);
	EXPECT_EQ(mappers.data(mappers.index(1), Qt::DisplayRole).toString(), "m3");
	const QList<OVP::SplitLayout::Widget> & w = h.project().m_splitLayout.m_widgets;
	EXPECT_EQ(w[0].m_mapperIndex, 0);
	EXPECT_EQ(w[1].m_mapperIndex, -1);
	EXPECT_EQ(w[2].m_mapperIndex, -1);
	EXPECT_EQ(w[3].m_mapperIndex, 1);
	EXPECT_EQ(thrown([&h]() { h.removeMappers(1, 2); }).second, "Invalid arguments row or count.");

	h.renameMapper(1, "renamed");
	EXPECT_EQ(mappers.mapper(1)->name(), "renamed");
	EXPECT_EQ(modified.last()[0].toInt(), OVP::ProjectHandler::MapperRenamed);
}


TEST_F(ProjectHandlerTest, RefreshAllMappersFollowsFiles) {
	const QString dir = scratchDir("refreshall");
	writeTimeSeries(dir + "/a.out", { 0, 1 }, { 1, 2 });
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { dir + "/a.out" } }));
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { dir + "/a.out" } }));
	writeTimeSeries(dir + "/a.out", { 0, 1, 2, 3 }, { 1, 2, 3, 4 });
	m_messages->m_messages.clear();
	h.refreshAllMappers();

	std::vector<std::string> progress;
	for (const RecordedMessage & m : m_messages->m_messages)
		if (m.m_type == ZEB::MSG_PROGRESS && m.m_where == "[ProjectHandler::refreshAllMappers]")
			progress.push_back(m.m_text);
	EXPECT_EQ(progress, std::vector<std::string>({ "Begin update of mappers.\n", "Updating mapper #1.\n",
												   "Updating mapper #2.\n", "Mapper update done.\n" }));
	// both mappers share the file and both show the new data
	for (int i = 0; i < 2; ++i) {
		const OVP::Mapper & m = *h.project().mapperModel()->mapper(i);
		EXPECT_EQ(m.extractors2D()[0].output2D().y().size(), 4u);
	}
	EXPECT_EQ(h.dataManager().openContainerCount(), 1u);
}


TEST_F(ProjectHandlerTest, WriteAllSettingForCharts) {
	const QString dir = scratchDir("writeall");
	writeTimeSeries(dir + "/a.out", { 0, 1, 2 }, { 1, 2, 3 });
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { dir + "/a.out" } }));
	m_settings->m_writeAll = false;
	ASSERT_EQ(h.saveProject(nullptr, dir + "/short.o2"), OVP::ProjectHandler::SaveOK);
	m_settings->m_writeAll = true;
	ASSERT_EQ(h.saveProject(nullptr, dir + "/long.o2"), OVP::ProjectHandler::SaveOK);
	const QString shortText = readText(dir + "/short.o2");
	const QString longText = readText(dir + "/long.o2");
	// defaults are written only with the setting; every element of the short form is in the long one
	EXPECT_GT(longText.count('\n'), shortText.count('\n') + 10);
	QRegularExpressionMatchIterator tags = QRegularExpression("<[A-Za-z:]+").globalMatch(shortText);
	while (tags.hasNext()) {
		const QString tag = tags.next().captured(0);
		EXPECT_GE(longText.count(tag), shortText.count(tag)) << tag.toStdString();
	}
	// the flag of the chart model itself is left as it was
	EXPECT_FALSE(h.project().mapperModel()->mapper(0)->chartModel()->writeAll());
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/long.o2", false));
	EXPECT_EQ(h.project().mapperModel()->mapperCount(), 1);
}
