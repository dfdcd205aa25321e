#include "OVP_ProjectTestUtils.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sys/mount.h>
#include <sys/resource.h>
#endif

#include <EM_Extractor2DOutputBase.h>

#include <Sci_AbstractCartesianChartModel.h>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

using namespace OVPTest;


TEST(OVPProjectHandler, SingleInstance) {
	{
		OVP::ProjectHandler first;
		EXPECT_EQ(thrown([]() { OVP::ProjectHandler another; }).first, "[ProjectHandler::ProjectHandler]");
		EXPECT_EQ(&OVP::ProjectHandler::instance(), &first);
		// the user's word for a project is "session"
		EXPECT_EQ(thrown([&first]() { first.setSplitViewState(OVP::SplitLayout()); }).second, "No session open.");
	}
	EXPECT_EQ(thrown([]() { OVP::ProjectHandler::instance(); }).first, "[ProjectHandler::instance]");
}


class ProjectHandlerTest : public ProjectTest {};


TEST_F(ProjectHandlerTest, CloseProjectAnswers) {
	const QString dir = scratchDir("close");
	OVP::ProjectHandler & h = handler();
	// open and unmodified: closes without a question
	h.newProject();
	EXPECT_TRUE(h.closeProject(nullptr));
	EXPECT_TRUE(m_ui->m_shown.empty());

	// Cancel keeps everything
	h.newProject();
	h.addDirectory(dir);
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerCancel };
	EXPECT_FALSE(h.closeProject(nullptr));
	ASSERT_EQ(m_ui->m_shown.size(), 1u);
	EXPECT_EQ(m_ui->m_shown[0].m_text, "Would you like to save the project before closing it?");
	EXPECT_EQ(h.project().m_directories.size(), 1u);

	// Save without a file name asks for one; cancelling the file dialog keeps the project
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerSave };
	m_ui->m_fileNames = { QString() };
	EXPECT_FALSE(h.closeProject(nullptr));
	EXPECT_TRUE(h.isValid());

	// Save with a file name saves and closes
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerSave };
	m_ui->m_fileNames = { dir + "/closed" };
	EXPECT_TRUE(h.closeProject(nullptr));
	EXPECT_FALSE(h.isValid());
	EXPECT_TRUE(QFileInfo::exists(dir + "/closed.o2"));

	// a project with a file saves there without asking for a name (an unexpected question fails);
	// Discard drops the changes
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/closed.o2", false));
	h.addDirectory(dir + "/second");
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerSave };
	EXPECT_TRUE(h.closeProject(nullptr));
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/closed.o2", false));
	h.addDirectory(dir + "/third");
	m_ui->m_saveAnswers = { OVP::UserInteraction::AnswerDiscard };
	EXPECT_TRUE(h.closeProject(nullptr));
	ASSERT_TRUE(h.loadProject(nullptr, dir + "/closed.o2", false));
	EXPECT_EQ(h.project().m_directories.size(), 2u);
}


TEST_F(ProjectHandlerTest, SaveNamesBackupAndState) {
	const QString dir = scratchDir("save");
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(dir + "/a");

	// ".o2" is appended; the first save has nothing to back up
	EXPECT_EQ(h.saveProject(nullptr, dir + "/results"), OVP::ProjectHandler::SaveOK);
	EXPECT_EQ(h.projectFile(), dir + "/results.o2");
	EXPECT_FALSE(QFileInfo::exists(dir + "/results.bak"));
	EXPECT_EQ(h.lastReadTime(), QFileInfo(dir + "/results.o2").lastModified());
	const QString firstContent = readText(dir + "/results.o2");

	// saving again keeps the previous file as backup
	h.addDirectory(dir + "/b");
	EXPECT_EQ(h.saveProject(nullptr, dir + "/results.o2"), OVP::ProjectHandler::SaveOK);
	EXPECT_EQ(readText(dir + "/results.bak"), firstContent);

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
	EXPECT_EQ(h.projectFile(), dir + "/p.o2");
	EXPECT_EQ(m_ui->m_shown.back().m_text, "Error while saving project file!");
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Error writing file '" + missing.toStdString()
								+ "' (path does not exists or missing permissions).", "[ProjectHandler::write]"), 1);

	// a folder where the file should be
	ASSERT_TRUE(QDir().mkpath(dir + "/folder.o2"));
	EXPECT_EQ(h.saveProject(nullptr, dir + "/folder.o2"), OVP::ProjectHandler::SaveFailed);
	EXPECT_TRUE(h.isModified());
	EXPECT_TRUE(QFileInfo(dir + "/folder.o2").isDir());
}


TEST_F(ProjectHandlerTest, UnreadableFileOffersBackup) {
	const QString dir = scratchDir("offer");
	const QString file = dir + "/p.o2";
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addDirectory(dir + "/a");
	ASSERT_EQ(h.saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	h.addDirectory(dir + "/b");
	ASSERT_EQ(h.saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	// what a writer that died half-way leaves behind
	const QString broken = readText(file).left(readText(file).size() / 2);
	writeText(file, broken);
	h.newProject();

	// declined: the load fails as it would without a backup
	m_ui->m_restoreAnswers = { false };
	EXPECT_FALSE(h.loadProject(nullptr, file, false));
	ASSERT_EQ(m_ui->m_shown.size(), 2u);
	EXPECT_TRUE(m_ui->m_shown[0].m_text.contains(dir + "/p.bak"));
	EXPECT_TRUE(h.projectFile().isEmpty());

	// accepted: the backup's session under the file's name, modified; the file is left alone
	m_ui->m_restoreAnswers = { true };
	ASSERT_TRUE(h.loadProject(nullptr, file, false));
	EXPECT_EQ(h.projectFile(), file);
	EXPECT_TRUE(h.isModified());
	ASSERT_EQ(h.project().m_directories.size(), 1u);
	EXPECT_EQ(h.project().m_directories[0].m_path, dir + "/a");
	EXPECT_EQ(readText(file), broken);

	// no offer when the backup is broken, too
	writeText(dir + "/p.bak", broken);
	EXPECT_FALSE(h.loadProject(nullptr, file, false));
	EXPECT_EQ(m_ui->m_shown.back().m_kind, "critical");
}


#ifdef Q_OS_LINUX
/*! Saves that fail in the middle: the previous session file and its backup must come through
	byte for byte, and the session stays modified.
*/
class SafeSaveTest : public ProjectTest {
protected:
	static constexpr const char * OLDER_BACKUP = "an older backup, not a session";

	/*! Saves a session with one directory as file, puts a hand-written older backup beside it,
		and then modifies the session so much that its new file is over 15 kB.
	*/
	void prepare(const QString & file) {
		handler().newProject();
		handler().addDirectory(m_testDir);
		ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
		m_previous = bytes(file);
		ASSERT_FALSE(m_previous.empty());
		writeText(backupOf(file), OLDER_BACKUP);
		for (int i = 0; i < 200; ++i)
			handler().addDirectory(m_testDir + QString("/a rather long sub-directory name number %1").arg(i));
	}

	/*! Saves to file, expects a failure with message, and the file and backup as they were. */
	void expectFailedSaveKeeps(const QString & file, const std::string & message, const char * backup) {
		m_messages->m_messages.clear();
		EXPECT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveFailed);
		EXPECT_TRUE(handler().isModified());
		EXPECT_EQ(m_ui->m_shown.back().m_text, "Error while saving project file!");
		EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, message, "[ProjectHandler::write]"), 1) << message;
		EXPECT_EQ(bytes(file), m_previous);
		EXPECT_EQ(QFileInfo::exists(backupOf(file)), backup != nullptr);
		if (backup != nullptr) {
			EXPECT_EQ(bytes(backupOf(file)), backup);
		}
	}

	/*! Saves to file in a process whose files must not grow beyond limit bytes, without core dump. */
	void saveWithFileSizeLimit(const QString & file, rlim_t limit) {
		const struct rlimit noCore = { 0, 0 };
		const struct rlimit fileSize = { limit, limit };
		::setrlimit(RLIMIT_CORE, &noCore);
		std::signal(SIGXFSZ, SIG_DFL);
		::setrlimit(RLIMIT_FSIZE, &fileSize);
		handler().saveProject(nullptr, file);
		std::exit(0);
	}

	/*! The bytes of a file; empty when it cannot be read. */
	static std::string bytes(const QString & path) {
		QFile f(path);
		return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : std::string();
	}
	static QString backupOf(const QString & file) { return file.left(file.size() - 3) + ".bak"; }

	std::string m_previous;
};


TEST_F(SafeSaveTest, BackupNotReplacedAfterSave) {
	// a backup that is a mount point cannot be renamed over, which fails only at the very end
	const QString file = m_testDir + "/p.o2";
	prepare(file);
	writeText(m_testDir + "/elsewhere", OLDER_BACKUP);
	const QByteArray backup = backupOf(file).toLocal8Bit();
	if (::mount(QFile::encodeName(m_testDir + "/elsewhere").constData(), backup.constData(), nullptr, MS_BIND, nullptr) != 0)
		GTEST_SKIP() << "a file cannot be bind-mounted here (" << std::strerror(errno) << "); needs root";
	const OVP::ProjectHandler::SaveResult result = handler().saveProject(nullptr, file);
	::umount2(backup.constData(), MNT_DETACH);
	// the new file is saved; the backup keeps its older content, and the log says so
	EXPECT_EQ(result, OVP::ProjectHandler::SaveOK);
	EXPECT_FALSE(handler().isModified());
	EXPECT_EQ(bytes(backupOf(file)), OLDER_BACKUP);
	EXPECT_NE(bytes(file), m_previous);
	const RecordedMessage & warning = m_messages->m_messages.back();
	EXPECT_EQ(warning.m_type, ZEB::MSG_WARNING);
	EXPECT_EQ(warning.m_where, "[Project::writeXML]");
	EXPECT_NE(warning.m_text.find("could not be updated"), std::string::npos) << warning.m_text;
	EXPECT_EQ(QDir(m_testDir).entryList({ "p.bak*" }, QDir::Files | QDir::Hidden), QStringList({ "p.bak" }));
}


TEST_F(SafeSaveTest, KilledWriter) {
	const QString file = m_testDir + "/p.o2";
	prepare(file);
	// the kernel kills the writer (SIGXFSZ) as soon as a file it writes grows beyond 8 kB
	EXPECT_EXIT(saveWithFileSizeLimit(file, 8192), ::testing::KilledBySignal(SIGXFSZ), "");
	EXPECT_EQ(bytes(file), m_previous);
	EXPECT_EQ(bytes(backupOf(file)), OLDER_BACKUP);
}
#endif


TEST_F(ProjectHandlerTest, RefreshAllMappersFollowsFiles) {
	const QString dir = scratchDir("refreshall");
	writeTimeSeries(dir + "/a.out", { 0, 1 }, { 1, 2 });
	OVP::ProjectHandler & h = handler();
	h.newProject();
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { dir + "/a.out" } }));
	h.addMapper(OVP::Mapper::createNewMapper(h.dataManager(), { { dir + "/a.out" } }));
	writeTimeSeries(dir + "/a.out", { 0, 1, 2, 3 }, { 1, 2, 3, 4 });
	h.refreshAllMappers();
	// both mappers share the file and both show the new data
	for (int i = 0; i < 2; ++i)
		EXPECT_EQ(h.project().mapperModel()->mapper(i)->extractors2D()[0].output2D().y().size(), 4u);
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
	QRegularExpressionMatchIterator tags = QRegularExpression("<[A-Za-z:]+").globalMatch(shortText);
	while (tags.hasNext()) {
		const QString tag = tags.next().captured(0);
		EXPECT_GE(longText.count(tag), shortText.count(tag)) << tag.toStdString();
	}
	// the flag of the chart model itself is left as it was
	EXPECT_FALSE(h.project().mapperModel()->mapper(0)->chartModel()->writeAll());
}
