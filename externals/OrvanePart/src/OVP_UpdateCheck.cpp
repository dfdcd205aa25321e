#include "OVP_UpdateCheck.h"

#include <QUrl>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "OVP_Settings.h"

namespace OVP {

UpdateCheck::Interaction::~Interaction() = default;


UpdateCheck::UpdateCheck(Settings & settings, Interaction & interaction, const QString & runningVersion,
						 const QString & downloadDir, QObject * parent) :
	QObject(parent),
	m_settings(settings),
	m_interaction(interaction),
	m_runningVersion(runningVersion),
	m_downloadDir(downloadDir)
{
	connect(&m_updater, &QtExt::AutoUpdater::updateInfoRetrieved, this, &UpdateCheck::onUpdateInfoRetrieved);
	connect(&m_updater, &QtExt::AutoUpdater::updateDownloaded, this, &UpdateCheck::onUpdateDownloaded);
	connect(&m_updater, &QtExt::AutoUpdater::errorOccurred, this, &UpdateCheck::onError);
	connect(&m_updater, &QtExt::AutoUpdater::downloadProgress, this, &UpdateCheck::downloadProgress);
}


bool UpdateCheck::start(Mode mode) {
	FUNCID(UpdateCheck::start);
	const QString address = m_settings.m_updateUrl.trimmed();
	if (address.isEmpty() || isBusy())
		return false;
	m_mode = mode;
	ZEB::reportProgress(ZEB::MessageFormat("Looking for updates at '%1'.\n").arg(address.toStdString()).str(), FUNC_ID, 2);
	// the user's own check offers a version skipped before again
	const QString rejected = mode == M_Manual ? QString() : m_settings.m_newestRejectedVersion;
	m_updater.checkForUpdateInfo(QUrl::fromUserInput(address), m_runningVersion, rejected);
	return true;
}


void UpdateCheck::cancel() {
	if (!isBusy())
		return;
	m_updater.abort();
	if (m_downloading) {
		m_downloading = false;
		m_interaction.downloadFinished(QString());
	}
	emit finished();
}


void UpdateCheck::onUpdateInfoRetrieved(bool updateAvailable, const QString & newVersion) {
	FUNCID(UpdateCheck::onUpdateInfoRetrieved);
	if (!updateAvailable) {
		ZEB::reportProgress(ZEB::MessageFormat("No update offered (newest version %1, running %2, skipped %3).\n")
							.arg(newVersion.toStdString()).arg(m_runningVersion.toStdString())
							.arg(m_settings.m_newestRejectedVersion.toStdString()).str(), FUNC_ID, 2);
		if (m_mode == M_Manual)
			m_interaction.showNoNewerVersion(m_runningVersion);
		emit finished();
		return;
	}
	switch (m_interaction.askAboutNewVersion(newVersion, m_runningVersion, m_updater.updateInfo().m_changeLog)) {
		case A_Download :
			m_downloading = true;
			m_interaction.downloadStarted(newVersion);
			m_updater.downloadUpdate(m_downloadDir);
			return;
		case A_SkipVersion :
			m_settings.m_newestRejectedVersion = newVersion;
			break;
		case A_NotNow :
			break;
	}
	emit finished();
}


void UpdateCheck::onUpdateDownloaded(const QString & installerName) {
	m_downloading = false;
	m_installerFileName = installerName;
	m_interaction.downloadFinished(installerName);
	emit finished();
}


void UpdateCheck::onError(const QString & message) {
	FUNCID(UpdateCheck::onError);
	ZEB::reportWarning(message.toStdString(), FUNC_ID);
	// a failed download was asked for, so it is always told
	if (m_downloading) {
		m_downloading = false;
		m_interaction.downloadFinished(QString());
		m_interaction.showFailure(message);
	}
	else if (m_mode == M_Manual)
		m_interaction.showFailure(message);
	emit finished();
}

} // namespace OVP
