#include "OVP_ProjectTestUtils.h"

#include <QLocale>
#include <QSettings>

#include <tuple>

#include <OVP_FileReaderRegistry.h>
#include <OVP_Settings.h>

using OVPTest::thrown;

namespace {

/*! Path of a fresh INI file in the scratch directory. */
QString iniFile(const QString & name) {
	return OVPTest::scratchDir("settings-" + name) + "/settings.ini";
}

} // namespace


TEST(OVPSettings, SingleInstance) {
	{
		OVP::Settings first("ZEB", "OrvanePart", iniFile("single"));
		EXPECT_EQ(thrown([]() { OVP::Settings another("ZEB", "OrvanePart", iniFile("single2")); }).first, "[Settings::Settings]");
		// the failed second creation leaves the first one in place
		EXPECT_EQ(&OVP::Settings::instance(), &first);
	}
	EXPECT_EQ(thrown([]() { OVP::Settings::instance(); }).first, "[Settings::instance]");
}


TEST(OVPSettings, DefaultsAddReaderPatternsOnce) {
	OVP::Settings s("ZEB", "OrvanePart", iniFile("defaults"));
	// the listed patterns first, then those of the data file readers not listed yet, each once
	EXPECT_EQ(s.m_fileNameFilter.mid(0, 5), (QStringList{ "*.out", "*.s6o", "*.s6b", "*.cli", "*.ccd" }));
	for (const std::string & pattern : OVP::FileReaderRegistry::instance().patterns())
		EXPECT_EQ(s.m_fileNameFilter.count(QString::fromStdString(pattern)), 1) << pattern;
}


namespace {

/*! Every stored member of the settings, as references. */
auto storedMembers(OVP::Settings & s) {
	return std::tie(s.m_lastProjectFile, s.m_recentProjects, s.m_maxRecentProjects, s.m_langId,
		s.m_userLogLevelConsole, s.m_userLogLevelLogfile, s.m_userColoring, s.m_decimalPlaces, s.m_fileNameFilter,
		s.m_excludedDirNames, s.m_writeAll, s.m_startWithLastSession, s.m_chartStyleFileLastUsed,
		s.m_newestRejectedVersion, s.m_chartVectorExportDimensionHistory, s.m_exportHeadersEnabled,
		s.m_exportGermanFormatEnabled, s.m_exportSeperateLinesForUnitsEnabled, s.m_panelEastVisible,
		s.m_panelWestVisible, s.m_panelSouthVisible);
}

} // namespace


TEST(OVPSettings, RoundTripOfEveryKey) {
	const QString file = iniFile("roundtrip");
	// every value differs from its default
	const auto written = std::make_tuple(QString("/p/last.o2"), QStringList{ "/p/last.o2", "/p/older.o2" }, 4u,
		QString("de"), 2, 3, true, 3, QStringList{ "*.d6o" }, QStringList{ ".git", ".svn", "build" }, true, false,
		QString("/styles/dark.o2style"), QString("2.4.1"), QStringList{ "800x600", "160x90" }, false, 1, true, false,
		true, false);
	{
		OVP::Settings s("ZEB", "OrvanePart", file);
		storedMembers(s) = written;
		s.write(QByteArray("g"), QByteArray("s"));
	}
	OVP::Settings r("ZEB", "OrvanePart", file);
	r.read();
	EXPECT_EQ(storedMembers(r), written);

	// a store written by the export dialog alone offers its sizes too
	QSettings raw(file, QSettings::IniFormat);
	raw.remove("ChartVectorExportDimensionHistory");
	raw.setValue("dimensionHistory", QStringList{ "90x60" });
	raw.sync();
	r.read();
	EXPECT_EQ(r.m_chartVectorExportDimensionHistory, QStringList{ "90x60" });
}


TEST(OVPSettings, GermanExportFormatDecidedOnceFromLocale) {
	EXPECT_EQ(OVP::Settings::germanFormatForLocale(QLocale(QLocale::German, QLocale::Germany)), 1);
	EXPECT_EQ(OVP::Settings::germanFormatForLocale(QLocale(QLocale::English, QLocale::UnitedStates)), 0);

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

	// an out-of-range stored value is not taken
	QSettings(file, QSettings::IniFormat).setValue("ExportGermanFormatEnabled", 7);
	s.setDefaults();
	s.read();
	EXPECT_EQ(s.m_exportGermanFormatEnabled, -1);
}
