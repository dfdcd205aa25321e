#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <sstream>

#include <QDir>
#include <QFile>
#include <QSettings>

#include <ZEB_ArgParser.h>

#include <QtExt_Settings.h>

#include "QtExt_TestSupport.h"

using QtExtTest::MessageCapture;
using QtExtTest::scratchDir;
using QtExtTest::writeFile;

namespace {

/*! Settings on an INI file in the given scratch directory. */
QString iniFile(const QString & dirName) {
	return QDir(scratchDir(dirName)).filePath("settings.ini");
}

/*! Parses a command line given as list (without the program path). */
void parse(ZEB::ArgParser & parser, const std::vector<std::string> & args) {
	std::vector<std::string> all{ "OrvaneApp" };
	all.insert(all.end(), args.begin(), args.end());
	parser.parse(all);
}

} // namespace


TEST(QtExtSettings, RoundTripOfEveryKey) {
	const QString file = iniFile("roundtrip");
	const QByteArray geometry("\x01\x02\x00\xffgeo", 7);
	const QByteArray state("state\x00\x10", 7);
	{
		// a missing store is read silently
		QtExt::Settings s("ZEB", "OrvanePart", file);
		MessageCapture capture;
		s.read();
		EXPECT_TRUE(capture.m_msgs.empty());

		s.m_lastProjectFile = "/home/user/projects/wall, east.o2";
		s.m_recentProjects = QStringList{ "/p/a.o2", "/p/b.o2", "/p/c,d.o2" };
		s.m_maxRecentProjects = 7;
		s.m_maxNumUNDOSteps = 250;
		s.m_textEditorExecutable = "/usr/bin/some editor";
		s.m_langId = "de";
		s.m_userLogLevelConsole = 3;
		s.m_userLogLevelLogfile = 4;
		s.m_doNotShowAgainDialogs = { {"DlgA", true}, {"DlgB", false} };
		s.m_doNotShowAgainDialogAnswers = { {"DlgA", 0x4000}, {"DlgC", -2} };
		s.write(geometry, state);
	}

	QtExt::Settings r("ZEB", "OrvanePart", file);
	r.read();
	EXPECT_EQ(r.m_lastProjectFile, "/home/user/projects/wall, east.o2");
	EXPECT_EQ(r.m_recentProjects, (QStringList{ "/p/a.o2", "/p/b.o2", "/p/c,d.o2" }));
	EXPECT_EQ(r.m_maxRecentProjects, 7u);
	// written as "UndoSize" but read from "MaxNumUndoSteps": the stored value does not come back
	EXPECT_EQ(r.m_maxNumUNDOSteps, 10000u);
	EXPECT_EQ(r.m_textEditorExecutable, "/usr/bin/some editor");
	EXPECT_EQ(r.m_langId, "de");
	EXPECT_EQ(r.m_userLogLevelConsole, 3);
	EXPECT_EQ(r.m_userLogLevelLogfile, 4);
	QStringList records;
	for (const auto & d : r.m_doNotShowAgainDialogs)
		records << QString("%1=%2").arg(d.m_dialogID).arg(d.m_checked);
	for (const auto & d : r.m_doNotShowAgainDialogAnswers)
		records << QString("%1:%2").arg(d.m_dialogID).arg(d.m_answer);
	EXPECT_EQ(records, (QStringList{ "DlgA=1", "DlgB=0", "DlgA:16384", "DlgC:-2" }));

	QByteArray g, st;
	r.readMainWindowGeometry(g, st);
	EXPECT_EQ(g, geometry);
	EXPECT_EQ(st, state);

	// the raw store holds exactly the documented key names
	QSettings raw(file, QSettings::IniFormat);
	EXPECT_EQ(raw.value("UndoSize").toUInt(), 250u);
	EXPECT_FALSE(raw.contains("MaxNumUndoSteps"));
	for (const char * key : { "LastProjectFile", "RecentProjects", "MaxRecentProjects", "TextEditorExecutable",
							  "LangID", "UserLogLevelConsole", "UserLogLevelLogfile", "MainWindowGeometry",
							  "MainWindowState", "DoNotShowAgainDialogs/size", "DoNotShowAgainDialogs/1/DialogID",
							  "DoNotShowAgainDialogs/2/Checked", "DoNotShowAgainDialogsAnswer/2/Answer" })
		EXPECT_TRUE(raw.contains(key)) << key;

	// the undo limit is read from "MaxNumUndoSteps" only
	raw.setValue("MaxNumUndoSteps", 77);
	raw.sync();
	r.read();
	EXPECT_EQ(r.m_maxNumUNDOSteps, 77u);

	// a shorter array written over a longer one leaves no stale records
	r.m_doNotShowAgainDialogs = { {"Z", false} };
	r.write(QByteArray(), QByteArray());
	const QSettings after(file, QSettings::IniFormat);
	EXPECT_TRUE(after.contains("DoNotShowAgainDialogs/1/DialogID") && !after.contains("DoNotShowAgainDialogs/2/DialogID"));
}


TEST(QtExtSettings, CorruptValuesKeepCurrentValuesAndWarn) {
	const QString file = iniFile("corrupt");
	ASSERT_TRUE(writeFile(file,
		"[General]\n"
		"MaxRecentProjects=-3\n"
		"MaxNumUndoSteps=lots\n"
		"UserLogLevelConsole=2.5\n"
		"UserLogLevelLogfile=3\n"
		"LastProjectFile=a, b.o2\n"
		"[DoNotShowAgainDialogs]\n"
		"1\\DialogID=X\n1\\Checked=maybe\n"
		"2\\DialogID=Y\n2\\Checked=true\n"
		"size=2000000000\n"
		"[DoNotShowAgainDialogsAnswer]\n"
		"1\\DialogID=X\n1\\Answer=none\n"
		"size=1\n"));
	QtExt::Settings s("ZEB", "OrvanePart", file);
	MessageCapture capture;
	s.read();
	EXPECT_EQ(s.m_maxRecentProjects, 10u);
	EXPECT_EQ(s.m_maxNumUNDOSteps, 10000u);
	EXPECT_EQ(s.m_userLogLevelConsole, 1);
	EXPECT_EQ(s.m_userLogLevelLogfile, 3);
	// an unquoted comma makes the INI reader see a list; the text comes back as written
	EXPECT_EQ(s.m_lastProjectFile, "a, b.o2");
	// records with an unusable field keep that field's default; the absurd size is cut
	ASSERT_EQ(s.m_doNotShowAgainDialogs.size(), 2u);
	EXPECT_FALSE(s.m_doNotShowAgainDialogs[0].m_checked);
	EXPECT_TRUE(s.m_doNotShowAgainDialogs[1].m_checked);
	ASSERT_EQ(s.m_doNotShowAgainDialogAnswers.size(), 1u);
	EXPECT_EQ(s.m_doNotShowAgainDialogAnswers[0].m_answer, 0);
	// three scalar keys, two record fields and the array size
	ASSERT_EQ(capture.m_msgs.size(), 6u);
	EXPECT_EQ(capture.m_msgs[0].m_type, ZEB::MSG_WARNING);
	EXPECT_EQ(capture.m_msgs[0].m_functionId, "[Settings::read]");
}


TEST(QtExtSettings, CommandLineOptions) {
	QtExt::Settings s("ZEB", "OrvanePart", iniFile("cmdline"));
	ZEB::ArgParser parser;
	parser.setProgramName("OrvaneApp");
	s.updateArgParser(parser);

	std::ostringstream help;
	parser.printHelp(help);
	EXPECT_NE(help.str().find("--no-splash[=<true|false>]"), std::string::npos) << help.str();

	// only the exact text "true" switches the splash screen off
	const std::map<std::string, bool> splashCases = {
		{ "--no-splash=true", true }, { "--no-splash", true }, { "--no-splash=TRUE", false }, { "--no-splash=1", false }
	};
	for (const auto & c : splashCases) {
		s.m_noSplashScreen = !c.second;
		parse(parser, { c.first });
		s.applyCommandLineArgs(parser);
		EXPECT_EQ(s.m_noSplashScreen, c.second) << c.first;
	}

	// lang given, two positional arguments: only the first one is the project to open
	s.m_langId = "en";
	parse(parser, { "--lang=it", "first.o2", "second.o2" });
	s.applyCommandLineArgs(parser);
	EXPECT_EQ(s.m_langId, "it");
	EXPECT_EQ(s.m_initialProjectFile, "first.o2");

}


TEST(QtExtSettings, RecentProjectsBehaveLikeMostRecentlyUsedList) {
	QtExt::Settings s("ZEB", "OrvanePart", iniFile("recent"));
	std::mt19937 rng(42);
	for (unsigned int maxCount : { 0u, 1u, 3u, 10u }) {
		s.m_maxRecentProjects = maxCount;
		s.m_recentProjects.clear();
		// independent model: time of the last use of each path
		std::map<QString, int> lastUse;
		for (int t = 0; t < 200; ++t) {
			const QString path = QString("/p/%1.o2").arg(rng() % 8);
			s.addRecentProject(path);
			lastUse[path] = t;
			std::vector<std::pair<int, QString>> byTime;
			for (const auto & e : lastUse)
				byTime.emplace_back(e.second, e.first);
			std::sort(byTime.rbegin(), byTime.rend());
			QStringList expected;
			for (std::size_t i = 0; i < byTime.size() && i < maxCount; ++i)
				expected << byTime[i].second;
			ASSERT_EQ(s.m_recentProjects, expected) << "max " << maxCount << " step " << t;
		}
	}
	s.m_maxRecentProjects = 5;
	s.m_recentProjects = QStringList{ "a" };
	s.addRecentProject(QString());
	EXPECT_EQ(s.m_recentProjects, QStringList{ "a" });
}


TEST(QtExtSettings, TextEditorSearch) {
	const QString dir = scratchDir("editors");
	const QString bin = QDir(dir).filePath("bin");
	QDir().mkpath(bin);
	auto makeExecutable = [&](const QString & name, bool executable) {
		const QString path = QDir(bin).filePath(name);
		writeFile(path, "#!/bin/sh\n");
		QFile::Permissions p = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
		if (executable)
			p |= QFileDevice::ExeOwner;
		QFile::setPermissions(path, p);
		return path;
	};
	const QStringList editors{ "gedit", "kate", "mousepad", "xed" };
	// the first of the list that is executable: xed, not the earlier mousepad
	const QString xed = makeExecutable("xed", true);
	makeExecutable("mousepad", false);
	EXPECT_EQ(QtExt::Settings::findTextEditor({ "/no/such/notepad++.exe" }, editors, { bin }), xed);

	// an existing install location comes before anything on the search path
	const QString notepad = QDir(dir).filePath("notepad++.exe");
	writeFile(notepad, "x");
	EXPECT_EQ(QtExt::Settings::findTextEditor({ "/no/such/notepad++.exe", notepad }, editors, { bin }), notepad);
	// a directory is not an editor
	EXPECT_EQ(QtExt::Settings::findTextEditor({ bin }, editors, { QDir(dir).filePath("empty") }), QString());
}
