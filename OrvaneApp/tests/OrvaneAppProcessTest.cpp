#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QXmlStreamReader>

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

/*! The size of an SVG document: width and height attributes in millimetres and the view box. */
void svgSize(const QString & fileName, QSizeF & sizeMM, QRectF & viewBox) {
	QFile f(fileName);
	ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << fileName.toStdString();
	QXmlStreamReader xml(&f);
	while (!xml.atEnd() && !(xml.isStartElement() && xml.name() == QLatin1String("svg")))
		xml.readNext();
	ASSERT_TRUE(xml.isStartElement());
	const QXmlStreamAttributes attr = xml.attributes();
	ASSERT_TRUE(attr.value("width").endsWith(QLatin1String("mm")));
	sizeMM = QSizeF(attr.value("width").chopped(2).toDouble(), attr.value("height").chopped(2).toDouble());
	const QStringList box = attr.value("viewBox").toString().split(' ');
	ASSERT_EQ(box.size(), 4);
	viewBox = QRectF(box[0].toDouble(), box[1].toDouble(), box[2].toDouble(), box[3].toDouble());
}

/*! The page size of a one-page PDF file in points. */
QSizeF pdfPageSize(const QString & fileName) {
	QFile f(fileName);
	if (!f.open(QIODevice::ReadOnly))
		return QSizeF();
	// binary data: the whole content, also after the first zero byte
	const QByteArray bytes = f.readAll();
	const QString content = QString::fromLatin1(bytes.constData(), bytes.size());
	const QRegularExpressionMatch m = QRegularExpression("/MediaBox\\s*\\[\\s*0\\s+0\\s+([0-9.]+)\\s+([0-9.]+)\\s*\\]")
									  .match(content);
	if (!m.hasMatch())
		return QSizeF();
	return QSizeF(m.captured(1).toDouble(), m.captured(2).toDouble());
}

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

	// vector graphics get the size that the pixels have on the screen
	const double dpi = QGuiApplication::primaryScreen()->logicalDotsPerInch();
	QSizeF sizeMM;
	QRectF viewBox;
	svgSize(out + "/c2.svg", sizeMM, viewBox);
	EXPECT_NEAR(sizeMM.width(), 640/dpi*25.4, 0.5);
	EXPECT_NEAR(sizeMM.height(), 480/dpi*25.4, 0.5);
	EXPECT_NEAR(viewBox.width()/viewBox.height(), 640.0/480, 0.01);

	const QSizeF page = pdfPageSize(out + "/c4.pdf");
	EXPECT_NEAR(page.width(), 400/dpi*72, 1.0);
	EXPECT_NEAR(page.height(), 300/dpi*72, 1.0);
}


// A malformed request (the messages of each field are tested with the parser), a spec file with
// bad lines or none at all: every problem is logged with its origin and nothing is exported.
TEST_F(ProgramTest, MalformedRequestsAreLoggedAndNothingIsExported) {
	const QString dir = OVATest::scratchDir("program-badspec");
	writeSession(dir);
	const QString home = OVATest::scratchDir("program-badspec-home");
	const QString request = "1:800X600:" + dir + "/a.png";
	const RunResult single = runProgram(home, { m_session, "--no-splash=true", "--generate-chart=" + request });
	EXPECT_EQ(single.m_exitCode, 0);
	const QRegularExpression line("\\[Error   \\]\t\\[MainView::ChartExportProperties::parse\\] *\tInvalid dimensions in "
								  "argument '" + QRegularExpression::escape(request) + "' to option --generate-chart\n");
	EXPECT_TRUE(line.match(single.m_log).hasMatch()) << single.m_log.toStdString();

	const QString requestFile = dir + "/requests.txt";
	OVATest::writeText(requestFile, QString("1:800x600:%1/good.png\n1:800X600:%1/b.png\n\n2:100x100:%1/good2.png\n").arg(dir));
	const RunResult run = runProgram(home, { m_session, "--no-splash=true", "--generate-charts=" + requestFile });
	EXPECT_EQ(run.m_exitCode, 0);
	const QRegularExpression invalid("\\[Error   \\]\t\\[OVAMainWindow::generateCharts\\] *\tInvalid chart export spec in file "
									 + QRegularExpression::escape(requestFile) + ".\n");
	EXPECT_EQ(run.m_log.count(invalid), 2) << run.m_log.toStdString();
	EXPECT_EQ(QDir(dir).entryList({ "*.png" }, QDir::Files), QStringList());

	const RunResult missing = runProgram(home, { m_session, "--no-splash=true", "--generate-charts=" + dir + "/none.txt" });
	EXPECT_EQ(missing.m_exitCode, 0);
	EXPECT_TRUE(missing.m_log.contains(QString("Cannot read export spec file %1/none.txt.").arg(dir)))
			<< missing.m_log.toStdString();
}


TEST(OrvaneAppProgram, LogIsRewrittenEachRunAndStoredLanguageIsNotInstalledAgain) {
	const QString home = OVATest::scratchDir("program-lang");

	// first run: "de" differs from the stored default "en" and is installed (and stored)
	const RunResult first = runProgram(home, { "--lang=de", "--no-splash=true", "--generate-chart=4:10x10:x.png" });
	EXPECT_EQ(first.m_exitCode, 0);
	EXPECT_TRUE(first.m_log.contains("Installing translator for language: 'de'.")) << first.m_log.toStdString();
	EXPECT_TRUE(first.m_log.contains("Invalid mapper index 3, number of mappers in session = 0"));

	// second run: "de" is the stored language now, nothing is installed
	const RunResult second = runProgram(home, { "--lang=de", "--no-splash=true", "--generate-chart=6:10x10:x.png" });
	EXPECT_EQ(second.m_exitCode, 0);
	EXPECT_FALSE(second.m_log.contains("Installing translator")) << second.m_log.toStdString();
	EXPECT_TRUE(second.m_log.contains("Invalid mapper index 5, number of mappers in session = 0"));
	// a new log per run
	EXPECT_FALSE(second.m_log.contains("Invalid mapper index 3"));
}


TEST(OrvaneAppProgram, MissingSessionFileIsReportedAndAnEmptySessionUsed) {
	const QString home = OVATest::scratchDir("program-missing");
	// also shows the splash screen, which must not keep the program from ending
	const RunResult run = runProgram(home, { home + "/none.o2", "--generate-chart=1:10x10:x.png" });
	EXPECT_EQ(run.m_exitCode, 0);
	EXPECT_TRUE(run.m_log.contains(QString("Session file '%1/none.o2' cannot be accessed or does not exist.").arg(home)))
			<< run.m_log.toStdString();
	EXPECT_TRUE(run.m_log.contains("Invalid mapper index 0, number of mappers in session = 0"));
}
