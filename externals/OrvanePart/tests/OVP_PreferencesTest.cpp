#include "OVP_ProjectTestUtils.h"

#include <functional>
#include <tuple>

#include <QDir>
#include <QSignalSpy>
#include <QUrl>

#include <OVP_Preferences.h>
#include <OVP_UpdateCheck.h>

namespace {

using PreferencesTest = OVPTest::ProjectTest;

} // namespace


TEST_F(PreferencesTest, StoredPreferencesReadBackAndReportWhatChanged) {
	const QString file = m_testDir + "/prefs.ini";
	m_settings.reset();
	m_settings.reset(new OVP::Settings("ZEB", "OrvanePart", file));
	m_settings->setDoNotShowAgain("EditHint", 4);

	// taken from defaults and stored unchanged, nothing changes
	OVP::Preferences p = OVP::Preferences::fromSettings(*m_settings);
	EXPECT_TRUE(p.problem().isEmpty()) << p.problem().toStdString();
	EXPECT_EQ(p.storeTo(*m_settings), 0);

	// lists typed as text: blanks and empty entries dropped, the text form reads back the same
	const QStringList typed = OVP::Preferences::listFromText(" *.out ;; *.d6o;\t;my file.csv ");
	EXPECT_EQ(typed, (QStringList{ "*.out", "*.d6o", "my file.csv" }));
	EXPECT_EQ(OVP::Preferences::listFromText(OVP::Preferences::textFromList(typed)), typed);

	p.m_langId = "de";
	p.m_logLevelLogfile = 4;
	p.m_startWithLastSession = false;
	p.m_textEditorExecutable = "/usr/bin/mousepad";
	p.m_fileNameFilter = typed;
	p.m_excludedDirNames.clear();
	p.m_updateUrl = "https://updates.example.org/orvane/version.txt";
	p.m_resetDoNotShowAgain = true;
	p.m_exportGermanFormat = true;
	p.m_decimalPlaces = 3;
	EXPECT_EQ(p.storeTo(*m_settings), OVP::Preferences::C_Language | OVP::Preferences::C_LogLevels
			  | OVP::Preferences::C_DataManager | OVP::Preferences::C_Other | OVP::Preferences::C_DataTables);
	m_settings->write(QByteArray(), QByteArray());

	m_settings.reset();
	m_settings.reset(new OVP::Settings("ZEB", "OrvanePart", file));
	m_settings->read();
	const OVP::Preferences r = OVP::Preferences::fromSettings(*m_settings);
	EXPECT_EQ(std::make_tuple(r.m_langId, r.m_logLevelConsole, r.m_logLevelLogfile, r.m_startWithLastSession,
							  r.m_textEditorExecutable, r.m_fileNameFilter, r.m_excludedDirNames, r.m_updateUrl,
							  m_settings->m_exportGermanFormatEnabled, r.m_decimalPlaces),
			  std::make_tuple(QString("de"), 1, 4, false, QString("/usr/bin/mousepad"), typed, QStringList(),
							  p.m_updateUrl, 1, 3));
	EXPECT_EQ(m_settings->doNotShowAgainCount(), 0);
	// a change of the data manager filters alone is told as such
	OVP::Preferences onlyFilter = r;
	onlyFilter.m_excludedDirNames = QStringList{ "CVS" };
	EXPECT_EQ(onlyFilter.storeTo(*m_settings), OVP::Preferences::C_DataManager);
}


TEST_F(PreferencesTest, ValuesThatCannotBeStoredAreNamed) {
	const OVP::Preferences valid = OVP::Preferences::fromSettings(*m_settings);
	const std::vector<std::function<void(OVP::Preferences &)>> invalid = {
		[](OVP::Preferences & p) { p.m_logLevelConsole = -1; },
		[](OVP::Preferences & p) { p.m_fileNameFilter.clear(); },
		[](OVP::Preferences & p) { p.m_excludedDirNames = QStringList{ ".git", "build/tmp" }; },
		[](OVP::Preferences & p) { p.m_updateUrl = "https://"; },
		[](OVP::Preferences & p) { p.m_decimalPlaces = OVP::Preferences::MAX_DECIMAL_PLACES + 1; }
	};
	for (std::size_t i = 0; i < invalid.size(); ++i) {
		OVP::Preferences p = valid;
		invalid[i](p);
		EXPECT_FALSE(p.problem().isEmpty()) << i;
	}
	for (const char * url : { "", "http://127.0.0.1:8080/v.txt", "file:///srv/updates/version.txt" }) {
		OVP::Preferences p = valid;
		p.m_updateUrl = url;
		p.m_logLevelConsole = OVP::Preferences::MAX_LOG_LEVEL;
		EXPECT_TRUE(p.problem().isEmpty()) << url;
	}
}


namespace {

/*! Answers update offers with prepared answers and records what it was told. */
class RecordingUpdateInteraction : public OVP::UpdateCheck::Interaction {
public:
	OVP::UpdateCheck::Answer askAboutNewVersion(const QString & newVersion, const QString & runningVersion,
												const QString & changeLog) override {
		m_told << "offer " + newVersion + " to " + runningVersion + ": " + changeLog;
		return m_answer;
	}
	void showNoNewerVersion(const QString & runningVersion) override { m_told << "newest " + runningVersion; }
	void showFailure(const QString &) override { m_told << "failure"; }
	void downloadStarted(const QString & newVersion) override { m_told << "download " + newVersion; }
	void downloadFinished(const QString & installerName) override { m_told << "downloaded '" + installerName + "'"; }

	OVP::UpdateCheck::Answer	m_answer = OVP::UpdateCheck::A_NotNow;
	QStringList					m_told;
};

} // namespace


TEST_F(PreferencesTest, UpdateCheckOffersNewerVersionsAndCarriesOutTheAnswer) {
	// the server is a folder reached through file addresses; the flow over HTTP is tested with the updater
	const QString server = m_testDir + "/server";
	const QString downloads = m_testDir + "/downloads";
	QDir().mkpath(server);
	OVPTest::writeText(server + "/version.txt", "version: 2.1\ninstaller: setup.sh\n\nFaster charts.\n");
	OVPTest::writeText(server + "/setup.sh", "#!/bin/sh\n");
	// md5 of "#!/bin/sh\n", computed with md5sum
	OVPTest::writeText(server + "/setup.sh.md5", "3e2b31c72181b87149ff995e7202c0e3  setup.sh\n");

	RecordingUpdateInteraction ui;
	OVP::UpdateCheck check(*m_settings, ui, "2.0.3", downloads);
	QSignalSpy finished(&check, &OVP::UpdateCheck::finished);
	const auto run = [&](OVP::UpdateCheck::Mode mode, OVP::UpdateCheck::Answer answer) {
		ui.m_told.clear();
		ui.m_answer = answer;
		EXPECT_TRUE(check.start(mode));
		EXPECT_FALSE(check.start(mode));		// one check at a time
		EXPECT_TRUE(finished.wait(10000));
		return ui.m_told;
	};

	// an empty address never asks
	EXPECT_FALSE(check.start(OVP::UpdateCheck::M_Manual));
	EXPECT_TRUE(ui.m_told.isEmpty());

	m_settings->m_updateUrl = QUrl::fromLocalFile(server + "/version.txt").toString();
	EXPECT_EQ(run(OVP::UpdateCheck::M_Automatic, OVP::UpdateCheck::A_SkipVersion),
			  QStringList{ "offer 2.1 to 2.0.3: Faster charts." });
	EXPECT_EQ(m_settings->m_newestRejectedVersion, "2.1");
	// at the next start the skipped version is not offered, and nothing is said; the user's own
	// check offers it again
	EXPECT_TRUE(run(OVP::UpdateCheck::M_Automatic, OVP::UpdateCheck::A_Download).isEmpty());
	EXPECT_EQ(run(OVP::UpdateCheck::M_Manual, OVP::UpdateCheck::A_Download),
			  (QStringList{ "offer 2.1 to 2.0.3: Faster charts.", "download 2.1", "downloaded 'setup.sh'" }));
	EXPECT_EQ(check.installerFileName(), "setup.sh");
	EXPECT_EQ(OVPTest::readText(downloads + "/setup.sh"), "#!/bin/sh\n");

	// failures reach the user only when the user asked
	m_settings->m_updateUrl = QUrl::fromLocalFile(server + "/missing.txt").toString();
	EXPECT_TRUE(run(OVP::UpdateCheck::M_Automatic, OVP::UpdateCheck::A_Download).isEmpty());
	EXPECT_EQ(run(OVP::UpdateCheck::M_Manual, OVP::UpdateCheck::A_Download), QStringList{ "failure" });
}
