#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QProcess>
#include <QSettings>

#include <QtExt_LanguageHandler.h>

#include "QtExt_TestSupport.h"

using QtExtTest::MessageCapture;
using QtExtTest::scratchDir;
using QtExtTest::writeFile;

namespace {

const char * const LRELEASE = "/usr/lib/qt5/bin/lrelease";

/*! Compiles a translation of one text of context "LangTest" into dir/<baseName>.qm with lrelease;
	returns false when lrelease is missing or fails.
*/
bool makeQmFile(const QString & dir, const QString & baseName, const QString & source, const QString & translation) {
	if (!QFileInfo(LRELEASE).isExecutable())
		return false;
	const QString ts = QDir(dir).filePath(baseName + ".ts");
	const QString content = QString(
		"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n<TS version=\"2.1\" language=\"de_DE\">\n"
		"<context>\n<name>LangTest</name>\n<message>\n<source>%1</source>\n<translation>%2</translation>\n"
		"</message>\n</context>\n</TS>\n").arg(source, translation);
	if (!writeFile(ts, content.toUtf8()))
		return false;
	QProcess p;
	p.start(LRELEASE, { "-silent", ts, "-qm", QDir(dir).filePath(baseName + ".qm") });
	return p.waitForFinished(30000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

QString tr(const char * text) {
	return QCoreApplication::translate("LangTest", text);
}

} // namespace


TEST(QtExtLanguageHandler, InstallsTranslationsAndLocaleAndReportsMissingFiles) {
	const QString dir = scratchDir("translations");
	if (!makeQmFile(dir, "OrvaneApp_de", "Hello", "Hallo") || !makeQmFile(dir, "qt_de", "Cancel", "Abbrechen"))
		GTEST_SKIP() << "lrelease is not available";
	MessageCapture capture;
	{
		// without translation files both are reported, and English stays
		QtExt::LanguageHandler handler;
		handler.setup("ZEBTest", "LangReal", dir, "OrvaneApp");
		handler.installTranslator("xx");
		ASSERT_EQ(capture.m_msgs.size(), 2u);
		EXPECT_EQ(capture.m_msgs[0].m_text, "Could not load system translator file: 'qt_xx'.\n");
		EXPECT_EQ(capture.m_msgs[1].m_text, "Could not load application translator file: 'OrvaneApp_xx'.\n");
		EXPECT_EQ(capture.m_msgs[0].m_functionId, "[LanguageHandler::installTranslator]");
		capture.m_msgs.clear();

		// the id is stored in the store of the configured organisation and application
		handler.installTranslator("de");
		EXPECT_TRUE(capture.m_msgs.empty());
		EXPECT_EQ(tr("Hello") + tr("Cancel"), "HalloAbbrechen");
		EXPECT_EQ(QLocale().toString(1234567.5, 'f', 1), "1234567,5");
		EXPECT_EQ(QSettings("ZEBTest", "LangReal").value("LangID").toString(), "de");

		// switching replaces the earlier translators; English needs no files and reports nothing
		handler.installTranslator("en");
		EXPECT_TRUE(capture.m_msgs.empty());
		EXPECT_EQ(tr("Hello") + tr("Cancel"), "HelloCancel");
		EXPECT_EQ(QLocale().language(), QLocale::English);

		// a language without program files (the toolkit's come from the system) leaves no
		// earlier translation behind
		handler.installTranslator("de");
		handler.installTranslator("fr");
		EXPECT_EQ(tr("Hello"), "Hello");
		handler.installTranslator("de");
	}
	// a destroyed handler takes its translators with it
	EXPECT_EQ(tr("Hello"), "Hello");
	QLocale::setDefault(QLocale::c());
}


TEST(QtExtLanguageHandler, ToolkitTextsComeFromTheSystemWhenTheProgramsCopyDoesNotLoad) {
	// the toolkit's catalogue without the module catalogues it refers to does not load, as
	// when only it was copied beside the program
	const QString dir = scratchDir("qt-translations");
	const QString systemDir = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
	ASSERT_TRUE(QFile::copy(QDir(systemDir).filePath("qt_de.qm"), QDir(dir).filePath("qt_de.qm")))
			<< "package qttranslations5-l10n is missing";
	MessageCapture capture;
	QtExt::LanguageHandler handler;
	handler.setup("ZEBTest", "LangSystem", dir, "OrvaneApp");
	handler.installTranslator("de");
	EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Abbrechen");
	ASSERT_EQ(capture.m_msgs.size(), 1u);
	EXPECT_EQ(capture.m_msgs[0].m_text, "Could not load application translator file: 'OrvaneApp_de'.\n");
	QLocale::setDefault(QLocale::c());
}
