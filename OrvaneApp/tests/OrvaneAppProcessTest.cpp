#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>

#include "OVA_TestUtils.h"

namespace {

/*! Outcome of one run of the program. */
struct RunResult {
	int		m_exitCode = -1;
	QString	m_stdout;
	/*! Content of the log file; empty when there is none. */
	QString	m_log;
};

/*! The per-user data directory of the program below a home directory. */
QString dataDir(const QString & home) {
	return home + "/AppData/Roaming/OrvaneApp";
}

/*! Runs the program with a home directory of its own (which also holds its settings store). */
RunResult runProgram(const QString & home, const QStringList & args) {
	QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
	env.insert("HOME", home);
	env.insert("XDG_CONFIG_HOME", home + "/.config");
	env.insert("QT_QPA_PLATFORM", "offscreen");
	QDir().mkpath(home + "/runtime");
	QFile::setPermissions(home + "/runtime", QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
	env.insert("XDG_RUNTIME_DIR", home + "/runtime");

	QProcess process;
	process.setProcessEnvironment(env);
	process.setWorkingDirectory(home);
	process.start(ORVANEAPP_EXECUTABLE, args);
	RunResult result;
	if (!process.waitForFinished(120000)) {
		process.kill();
		process.waitForFinished();
		ADD_FAILURE() << "program did not end: " << args.join(' ').toStdString();
		return result;
	}
	result.m_exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
	result.m_stdout = QString::fromUtf8(process.readAllStandardOutput());
	result.m_log = OVATest::readText(dataDir(home) + "/OrvaneApp.log");
	return result;
}

/*! Test fixture that writes a session with two line charts ("T" and "RH"). */
class ProgramTest : public OVATest::SessionTest {
protected:
	void writeSession(const QString & dir) {
		createSession(dir, { "T", "RH" });
		m_session = dir + "/session.o2";
		ASSERT_EQ(handler().saveProject(nullptr, m_session), OVP::ProjectHandler::SaveOK);
	}

	QString m_session;
};

} // namespace


TEST(OrvaneAppProgram, HelpAndVersionPrintAndEndWithoutDataDirectory) {
	const QString home = OVATest::scratchDir("program-help");
	const RunResult help = runProgram(home, { "--help" });
	EXPECT_EQ(help.m_exitCode, 0);
	const QString text = help.m_stdout.simplified();
	for (const char * expected : { "--no-splash[=<true|false>]", "--lang=<en;de;it;...>", "--generate-chart=<n:bxh:fn>",
								   "--generate-charts=<exportSpecsFile>" })
		EXPECT_TRUE(text.contains(QLatin1String(expected))) << expected << "\n" << help.m_stdout.toStdString();
	EXPECT_FALSE(QFileInfo::exists(home + "/AppData"));

	const RunResult version = runProgram(home, { "--version" });
	EXPECT_EQ(version.m_exitCode, 0);
	EXPECT_TRUE(version.m_stdout.startsWith("OrvaneApp " ORVANEAPP_VERSION)) << version.m_stdout.toStdString();
	EXPECT_FALSE(QFileInfo::exists(home + "/AppData"));

	// an unknown option is refused before anything is set up
	const RunResult unknown = runProgram(home, { "--colour=blue" });
	EXPECT_NE(unknown.m_exitCode, 0);
	EXPECT_FALSE(QFileInfo::exists(home + "/AppData"));
}


TEST_F(ProgramTest, ScriptedExportWritesEveryValidRequestAndSkipsInvalidIndices) {
	const QString dir = OVATest::scratchDir("program-export");
	writeSession(dir);
	const QString out = dir + "/out";
	QDir().mkpath(out);
	OVATest::writeText(dir + "/specs.txt", QString("1:800x600:%1/c1.png\n"
												   "2:640x480:%1/c2.svg\r\n"
												   " 3:800x600:%1/c3.png \n"
												   "1:400x300:%1/c4.pdf\n").arg(out));

	// the second positional argument is ignored
	const RunResult run = runProgram(OVATest::scratchDir("program-export-home"),
		{ m_session, dir + "/ignored.o2", "--no-splash=true", "--generate-charts=" + dir + "/specs.txt" });
	EXPECT_EQ(run.m_exitCode, 0);

	EXPECT_EQ(QImage(out + "/c1.png").size(), QSize(800, 600));
	EXPECT_FALSE(QFileInfo::exists(out + "/c3.png"));
	EXPECT_TRUE(run.m_log.contains("Invalid mapper index 2, number of mappers in session = 2")) << run.m_log.toStdString();
	EXPECT_FALSE(run.m_log.contains("ignored.o2"));
	// the vector formats are written (their sizes are the chart library's)
	EXPECT_TRUE(QFileInfo(out + "/c2.svg").size() > 0 && QFileInfo(out + "/c4.pdf").size() > 0);
}


// A spec file with malformed requests (the messages of each field are tested with the parser) and
// an empty line: every bad line is logged with its origin and nothing is exported.
TEST_F(ProgramTest, MalformedSpecLinesAreLoggedAndNothingIsExported) {
	const QString dir = OVATest::scratchDir("program-badspec");
	writeSession(dir);
	const QString home = OVATest::scratchDir("program-badspec-home");
	const QString requestFile = dir + "/requests.txt";
	OVATest::writeText(requestFile, QString("1:800x600:%1/good.png\n1:800X600:%1/b.png\n\n2:100x100:%1/good2.png\n").arg(dir));
	const RunResult run = runProgram(home, { m_session, "--no-splash=true", "--generate-charts=" + requestFile });
	EXPECT_EQ(run.m_exitCode, 0);
	const QRegularExpression invalid("\\[Error   \\]\t\\[OVAMainWindow::generateCharts\\] *\tInvalid chart export spec in file "
									 + QRegularExpression::escape(requestFile) + ".\n");
	EXPECT_EQ(run.m_log.count(invalid), 2) << run.m_log.toStdString();
	EXPECT_EQ(QDir(dir).entryList({ "*.png" }, QDir::Files), QStringList());
}


TEST(OrvaneAppProgram, LogIsRewrittenEachRunMissingFilesAreToldAndStoredLanguageNotInstalledAgain) {
	const QString home = OVATest::scratchDir("program-lang");

	// first run: "de" differs from the stored default "en" and is installed (and stored); for a
	// missing session file (its message is the main window's test's) an empty session is used; the
	// splash screen does not keep the program from ending
	const RunResult first = runProgram(home, { home + "/none.o2", "--lang=de", "--generate-chart=4:10x10:x.png" });
	EXPECT_EQ(first.m_exitCode, 0);
	EXPECT_TRUE(first.m_log.contains("Installing translator for language: 'de'.")) << first.m_log.toStdString();
	EXPECT_TRUE(first.m_log.contains("Invalid mapper index 3, number of mappers in session = 0"));

	// second run: "de" is the stored language now, nothing is installed; a missing spec file is told
	const RunResult second = runProgram(home, { "--lang=de", "--no-splash=true", "--generate-charts=" + home + "/none.txt" });
	EXPECT_EQ(second.m_exitCode, 0);
	EXPECT_FALSE(second.m_log.contains("Installing translator")) << second.m_log.toStdString();
	EXPECT_TRUE(second.m_log.contains(QString("Cannot read export spec file %1/none.txt.").arg(home)));
	// a new log per run
	EXPECT_FALSE(second.m_log.contains("Invalid mapper index 3"));
}
