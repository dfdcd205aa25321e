#include "OVP_ProjectTestUtils.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QSettings>

#include <OVP_FileReaderRegistry.h>
#include <OVP_Settings.h>

using OVPTest::thrown;

namespace {

/*! Path of a fresh INI file in the scratch directory. */
QString iniFile(const QString & name) {
	QString base = qEnvironmentVariable("ORVANE_TEST_SCRATCH");
	if (base.isEmpty())
		base = QDir::temp().filePath("OrvanePartTests");
	QDir().mkpath(base);
	const QString path = QDir(base).filePath(name + ".ini");
	QFile::remove(path);
	return path;
}

} // namespace


TEST(OVPSettings, SingleInstance) {
	const auto beforeCreation = thrown([]() { OVP::Settings::instance(); });
	EXPECT_EQ(beforeCreation.first, "[Settings::instance]");
	EXPECT_EQ(beforeCreation.second, "You must create an instance of OVP::Settings before accessing OVP::Settings::instance()!");
	{
		OVP::Settings first("ZEB", "OrvanePart", iniFile("single"));
		EXPECT_EQ(&OVP::Settings::instance(), &first);
		const auto second = thrown([]() { OVP::Settings another("ZEB", "OrvanePart", iniFile("single2")); });
		EXPECT_EQ(second.first, "[Settings::Settings]");
		EXPECT_EQ(second.second, "You must not create multiple instances of classes that derive from OVP::Settings!");
		// the failed second creation leaves the first one in place
		EXPECT_EQ(&OVP::Settings::instance(), &first);
	}
	EXPECT_EQ(thrown([]() { OVP::Settings::instance(); }).first, "[Settings::instance]");
	// by default the store of "ZEB"/"OrvanePart" is used
	OVP::Settings def;
	EXPECT_EQ(def.m_organization, "ZEB");
	EXPECT_EQ(def.m_appName, "OrvanePart");
	EXPECT_EQ(def.openStore()->fileName(), QSettings("ZEB", "OrvanePart").fileName());
}


TEST(OVPSettings, Defaults) {
	OVP::Settings s("ZEB", "OrvanePart", iniFile("defaults"));
	// the base defaults are applied as well
	EXPECT_EQ(s.m_maxRecentProjects, 10u);
	EXPECT_EQ(s.m_maxNumUNDOSteps, 10000u);
	EXPECT_EQ(s.m_langId, "en");
	EXPECT_FALSE(s.m_userColoring);
	EXPECT_EQ(s.m_decimalPlaces, 6);
	// the listed patterns first, then those of the data file readers not listed yet, each once
	EXPECT_EQ(s.m_fileNameFilter.mid(0, 5), (QStringList{ "*.out", "*.s6o", "*.s6b", "*.cli", "*.ccd" }));
	for (const std::string & pattern : OVP::FileReaderRegistry::instance().patterns())
		EXPECT_EQ(s.m_fileNameFilter.count(QString::fromStdString(pattern)), 1) << pattern;
	EXPECT_EQ(s.m_excludedDirNames, QStringList{ ".svn" });
	EXPECT_FALSE(s.m_writeAll);
	EXPECT_TRUE(s.m_startWithLastSession);
	EXPECT_TRUE(s.m_chartStyleFileLastUsed.isEmpty());
	EXPECT_TRUE(s.m_newestRejectedVersion.isEmpty());
	EXPECT_TRUE(s.m_chartVectorExportDimensionHistory.isEmpty());
	EXPECT_TRUE(s.m_exportHeadersEnabled);
	EXPECT_EQ(s.m_exportGermanFormatEnabled, -1);
	EXPECT_FALSE(s.m_exportSeperateLinesForUnitsEnabled);
	EXPECT_TRUE(s.m_panelEastVisible && s.m_panelWestVisible && s.m_panelSouthVisible);
	// LightYellow is #ffffe0, LemonChiffon #fffacd
	EXPECT_EQ(s.m_usedFileColor, QColor(255, 255, 224));
	EXPECT_EQ(s.m_selectedMapperFileColor, QColor(255, 250, 205));

	// setDefaults() resets what was changed, through the virtual slot of the base
	s.m_maxRecentProjects = 3;
	s.m_decimalPlaces = 2;
	s.m_langId = "de";
	static_cast<QtExt::Settings &>(s).setDefaults();
	EXPECT_EQ(s.m_maxRecentProjects, 10u);
	EXPECT_EQ(s.m_decimalPlaces, 6);
	EXPECT_EQ(s.m_langId, "en");
}


TEST(OVPSettings, RoundTripOfEveryKey) {
	const QString file = iniFile("roundtrip");
	{
		OVP::Settings s("ZEB", "OrvanePart", file);
		s.m_lastProjectFile = "/p/last.o2";
		s.m_recentProjects = QStringList{ "/p/last.o2", "/p/older.o2" };
		s.m_maxRecentProjects = 4;
		s.m_langId = "de";
		s.m_userLogLevelConsole = 2;
		s.m_userLogLevelLogfile = 3;
		s.m_userColoring = true;
		s.m_decimalPlaces = 3;
		s.m_fileNameFilter = QStringList{ "*.d6o" };
		s.m_excludedDirNames = QStringList{ ".git", ".svn", "build" };
		s.m_writeAll = true;
		s.m_startWithLastSession = false;
		s.m_chartStyleFileLastUsed = "/styles/dark.o2style";
		s.m_newestRejectedVersion = "2.4.1";
		s.m_chartVectorExportDimensionHistory = QStringList{ "800x600", "160x90" };
		s.m_exportHeadersEnabled = false;
		s.m_exportGermanFormatEnabled = 1;
		s.m_exportSeperateLinesForUnitsEnabled = true;
		s.m_panelEastVisible = false;
		s.m_panelWestVisible = true;
		s.m_panelSouthVisible = false;
		s.write(QByteArray("g"), QByteArray("s"));
	}
	OVP::Settings r("ZEB", "OrvanePart", file);
	r.read();
	EXPECT_EQ(r.m_lastProjectFile, "/p/last.o2");
	EXPECT_EQ(r.m_recentProjects, (QStringList{ "/p/last.o2", "/p/older.o2" }));
	EXPECT_EQ(r.m_maxRecentProjects, 4u);
	EXPECT_EQ(r.m_langId, "de");
	EXPECT_EQ(r.m_userLogLevelConsole, 2);
	EXPECT_EQ(r.m_userLogLevelLogfile, 3);
	EXPECT_TRUE(r.m_userColoring);
	EXPECT_EQ(r.m_decimalPlaces, 3);
	EXPECT_EQ(r.m_fileNameFilter, QStringList{ "*.d6o" });
	EXPECT_EQ(r.m_excludedDirNames, (QStringList{ ".git", ".svn", "build" }));
	EXPECT_TRUE(r.m_writeAll);
	EXPECT_FALSE(r.m_startWithLastSession);
	EXPECT_EQ(r.m_chartStyleFileLastUsed, "/styles/dark.o2style");
	EXPECT_EQ(r.m_newestRejectedVersion, "2.4.1");
	EXPECT_EQ(r.m_chartVectorExportDimensionHistory, (QStringList{ "800x600", "160x90" }));
	EXPECT_FALSE(r.m_exportHeadersEnabled);
	EXPECT_EQ(r.m_exportGermanFormatEnabled, 1);
	EXPECT_TRUE(r.m_exportSeperateLinesForUnitsEnabled);
	EXPECT_FALSE(r.m_panelEastVisible);
	EXPECT_TRUE(r.m_panelWestVisible);
	EXPECT_FALSE(r.m_panelSouthVisible);

	// empty lists stay empty, even where the default is not empty
	r.m_fileNameFilter.clear();
	r.write(QByteArray(), QByteArray());
	r.m_fileNameFilter = QStringList{ "x" };
	r.read();
	EXPECT_TRUE(r.m_fileNameFilter.isEmpty());

	QSettings raw(file, QSettings::IniFormat);
	for (const char * key : { "UserColoring", "DecimalPlaces", "FileNameFilter", "ExcludedDirNames", "WriteAll",
							  "StartWithLastSession", "ChartStyleFileLastUsed", "NewestRejectedVersion",
							  "ChartVectorExportDimensionHistory", "dimensionHistory", "ExportHeadersEnabled", "ExportGermanFormatEnabled",
							  "ExportSeperateLinesForUnitsEnabled", "PanelEastVisible", "PanelWestVisible",
							  "PanelSouthVisible", "UndoSize", "LangID" })
		EXPECT_TRUE(raw.contains(key)) << key;

	// a store written by the export dialog alone offers its sizes too
	raw.remove("ChartVectorExportDimensionHistory");
	raw.setValue("dimensionHistory", QStringList{ "90x60" });
	raw.sync();
	r.read();
	EXPECT_EQ(r.m_chartVectorExportDimensionHistory, QStringList{ "90x60" });
}


TEST(OVPSettings, GermanExportFormatDecidedOnceFromLocale) {
	EXPECT_EQ(OVP::Settings::germanFormatForLocale(QLocale(QLocale::German, QLocale::Germany)), 1);
	EXPECT_EQ(OVP::Settings::germanFormatForLocale(QLocale(QLocale::French, QLocale::France)), 1);
	EXPECT_EQ(OVP::Settings::germanFormatForLocale(QLocale(QLocale::English, QLocale::UnitedStates)), 0);
	EXPECT_EQ(OVP::Settings::germanFormatForLocale(QLocale::c()), 0);

	// first start on a system with decimal comma: undecided in the store, decided and stored as 1
	const QString file = iniFile("german");
	{
		OVP::Settings s("ZEB", "OrvanePart", file);
		s.read();
		ASSERT_EQ(s.m_exportGermanFormatEnabled, -1);
		s.decideExportGermanFormat(QLocale(QLocale::German));
		EXPECT_EQ(s.m_exportGermanFormatEnabled, 1);
		s.write(QByteArray(), QByteArray());
	}
	EXPECT_EQ(QSettings(file, QSettings::IniFormat).value("ExportGermanFormatEnabled").toInt(), 1);

	// a decided value is never changed by the locale again
	OVP::Settings s("ZEB", "OrvanePart", file);
	s.read();
	s.decideExportGermanFormat(QLocale(QLocale::English));
	EXPECT_EQ(s.m_exportGermanFormatEnabled, 1);
	s.m_exportGermanFormatEnabled = 0;
	s.decideExportGermanFormat(QLocale(QLocale::German));
	EXPECT_EQ(s.m_exportGermanFormatEnabled, 0);
	s.m_exportGermanFormatEnabled = -1;
	s.decideExportGermanFormat(QLocale(QLocale::English));
	EXPECT_EQ(s.m_exportGermanFormatEnabled, 0);

	// an out-of-range stored value is not taken
	QSettings(file, QSettings::IniFormat).setValue("ExportGermanFormatEnabled", 7);
	s.setDefaults();
	s.read();
	EXPECT_EQ(s.m_exportGermanFormatEnabled, -1);
}
