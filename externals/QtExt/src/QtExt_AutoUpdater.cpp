#include "QtExt_AutoUpdater.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QProcess>
#include <QRegularExpression>
#include <QSaveFile>
#include <QVersionNumber>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace QtExt {

namespace {

/*! Largest version file accepted; anything bigger is not a version file. */
const qint64 MAX_VERSION_FILE_SIZE = 64*1024;
/*! Largest MD5 hash file accepted. */
const qint64 MAX_MD5_FILE_SIZE = 4*1024;

/*! Extracts the hash from an MD5 file: its first word, 32 hexadecimal digits (the form written
	by md5sum, "<hash>  <file name>", is accepted). Returns the lower-case hash or an empty array.
*/
QByteArray md5FromFile(const QByteArray & content) {
	const QByteArray word = content.trimmed().split(' ').front().split('\t').front().trimmed().toLower();
	static const QRegularExpression hex("^[0-9a-f]{32}$");
	if (!hex.match(QString::fromLatin1(word)).hasMatch())
		return QByteArray();
	return word;
}

/*! Parses a version number; throws for text that is not one. */
QVersionNumber parsedVersion(const QString & text) {
	FUNCID(AutoUpdater::compareVersions);
	if (!UpdateInfo::isValidVersion(text))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid version number '%1'.")
							 .arg(text.left(80).toStdString()), FUNC_ID);
	return QVersionNumber::fromString(text).normalized();
}

} // namespace


AutoUpdater::AutoUpdater(QObject * parent) :
	QObject(parent),
	m_manager(new QNetworkAccessManager(this))
{
}


AutoUpdater::~AutoUpdater() {
	abort();
}


void AutoUpdater::checkForUpdateInfo(const QUrl & versionFileUrl, const QString & runningVersion,
									 const QString & newestRejectedVersion)
{
	if (isBusy()) {
		emit errorOccurred(tr("An update transfer is already running."));
		return;
	}
	m_runningVersion = runningVersion;
	m_newestRejectedVersion = newestRejectedVersion;
	m_updateInfo = UpdateInfo();
	startTransfer(T_VersionFile, versionFileUrl);
}


void AutoUpdater::downloadUpdate(const QString & downloadDir) {
	if (isBusy()) {
		emit errorOccurred(tr("An update transfer is already running."));
		return;
	}
	if (m_updateInfo.m_version.isEmpty()) {
		emit errorOccurred(tr("No update information has been retrieved yet."));
		return;
	}
	m_downloadDir = downloadDir;
	if (!QDir().mkpath(downloadDir)) {
		fail(tr("Cannot create download directory '%1'.").arg(downloadDir));
		return;
	}
	const QString installerPath = QDir(downloadDir).filePath(m_updateInfo.installerName());
	// a hash file of an earlier download must not be taken for the new installer's one
	QFile::remove(installerPath + ".md5");
	m_installerFile.reset(new QSaveFile(installerPath));
	if (!m_installerFile->open(QIODevice::WriteOnly)) {
		fail(tr("Cannot create installer file '%1'.").arg(installerPath));
		return;
	}
	startTransfer(T_Installer, m_updateInfo.m_installerUrl);
}


void AutoUpdater::abort() {
	if (m_reply != nullptr) {
		QNetworkReply * reply = m_reply;
		m_reply = nullptr;
		reply->disconnect(this);
		reply->abort();
		reply->deleteLater();
	}
	m_installerFile.reset();
}


int AutoUpdater::compareVersions(const QString & a, const QString & b) {
	const int c = QVersionNumber::compare(parsedVersion(a), parsedVersion(b));
	return c < 0 ? -1 : (c > 0 ? 1 : 0);
}


bool AutoUpdater::isUpdateAvailable(const QString & newVersion, const QString & runningVersion,
									const QString & newestRejectedVersion)
{
	if (compareVersions(newVersion, runningVersion) <= 0)
		return false;
	return newestRejectedVersion.isEmpty() || compareVersions(newVersion, newestRejectedVersion) > 0;
}


void AutoUpdater::installUpdate(const QString & downloadDir, const QString & installerName) {
	FUNCID(AutoUpdater::installUpdate);
	// every failure but a hash mismatch ends in the same message, with the reason before it
	auto failure = [FUNC_ID](const ZEB::MessageFormat & reason) {
		return ZEB::Exception(ZEB::Exception(reason, FUNC_ID), "Error installing update.", FUNC_ID);
	};

	const QString installerPath = QDir(downloadDir).filePath(installerName);
	const QString md5Path = installerPath + ".md5";
	if (installerName.isEmpty() || !QFileInfo(installerPath).isFile())
		throw failure(ZEB::MessageFormat("Installer file '%1' does not exist.").arg(installerPath.toStdString()));

	QFile md5File(md5Path);
	if (md5File.size() > MAX_MD5_FILE_SIZE || !md5File.open(QIODevice::ReadOnly))
		throw failure(ZEB::MessageFormat("Cannot read md5 hash file '%1'.").arg(md5Path.toStdString()));
	const QByteArray expected = md5FromFile(md5File.readAll());
	if (expected.isEmpty())
		throw failure(ZEB::MessageFormat("Invalid md5 hash file '%1'.").arg(md5Path.toStdString()));

	QFile installer(installerPath);
	QCryptographicHash hash(QCryptographicHash::Md5);
	if (!installer.open(QIODevice::ReadOnly) || !hash.addData(&installer))
		throw failure(ZEB::MessageFormat("Cannot read installer file '%1'.").arg(installerPath.toStdString()));
	installer.close();
	const QByteArray actual = hash.result().toHex();
	if (actual != expected)
		throw ZEB::Exception(ZEB::Exception(ZEB::MessageFormat("Installer file '%1' has md5 hash %2, expected %3.")
											.arg(installerPath.toStdString()).arg(actual.toStdString())
											.arg(expected.toStdString()), FUNC_ID),
							 "Mismatching md5 hash of installer file.", FUNC_ID);

#ifndef Q_OS_WIN
	// a downloaded file is not executable yet
	if (!installer.setPermissions(installer.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeUser))
		throw failure(ZEB::MessageFormat("Cannot make installer file '%1' executable.").arg(installerPath.toStdString()));
#endif
	if (!QProcess::startDetached(QFileInfo(installerPath).absoluteFilePath(), QStringList(), downloadDir))
		throw failure(ZEB::MessageFormat("Cannot start installer '%1'.").arg(installerPath.toStdString()));
}


void AutoUpdater::startTransfer(Transfer transfer, const QUrl & url) {
	m_transfer = transfer;
	m_tooLarge = false;
	QNetworkRequest request(url);
	request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
	m_reply = m_manager->get(request);
	connect(m_reply.data(), &QNetworkReply::finished, this, &AutoUpdater::onReplyFinished);
	if (transfer == T_Installer) {
		connect(m_reply.data(), &QNetworkReply::readyRead, this, &AutoUpdater::onInstallerDataReady);
		connect(m_reply.data(), &QNetworkReply::downloadProgress, this, &AutoUpdater::downloadProgress);
	}
	else {
		const qint64 limit = transfer == T_VersionFile ? MAX_VERSION_FILE_SIZE : MAX_MD5_FILE_SIZE;
		connect(m_reply.data(), &QNetworkReply::downloadProgress, this, [this, limit](qint64 received, qint64) {
			if (received > limit && m_reply != nullptr) {
				m_tooLarge = true;
				m_reply->abort();
			}
		});
	}
}


void AutoUpdater::onReplyFinished() {
	QNetworkReply * reply = m_reply;
	if (reply == nullptr)
		return;
	m_reply = nullptr;
	reply->deleteLater();
	const QString url = reply->url().toString();

	if (m_tooLarge) {
		fail(tr("Download of '%1' is larger than expected, stopped.").arg(url));
		return;
	}
	if (reply->error() != QNetworkReply::NoError) {
		fail(tr("Cannot download '%1': %2").arg(url, reply->errorString()));
		return;
	}

	switch (m_transfer) {
		case T_VersionFile:
			handleVersionFile(reply->readAll(), reply->url());
			break;

		case T_Installer: {
			m_installerFile->write(reply->readAll());
			const QString path = m_installerFile->fileName();
			const bool written = m_installerFile->commit();
			m_installerFile.reset();
			if (!written) {
				fail(tr("Cannot write installer file '%1'.").arg(path));
				return;
			}
			startTransfer(T_Md5File, m_updateInfo.m_md5Url);
		} break;

		case T_Md5File:
			handleMd5File(reply->readAll());
			break;
	}
}


void AutoUpdater::onInstallerDataReady() {
	if (m_reply != nullptr && m_installerFile != nullptr)
		m_installerFile->write(m_reply->readAll());
}


void AutoUpdater::handleVersionFile(const QByteArray & content, const QUrl & url) {
	try {
		m_updateInfo = UpdateInfo::parse(content, url);
		const bool available = isUpdateAvailable(m_updateInfo.m_version, m_runningVersion, m_newestRejectedVersion);
		emit updateInfoRetrieved(available, m_updateInfo.m_version);
	}
	catch (ZEB::Exception & ex) {
		m_updateInfo = UpdateInfo();
		fail(tr("Invalid update information from '%1': %2").arg(url.toString(), QString::fromStdString(ex.what())));
	}
}


void AutoUpdater::handleMd5File(const QByteArray & content) {
	const QString name = m_updateInfo.installerName();
	const QString md5Path = QDir(m_downloadDir).filePath(name + ".md5");
	const QByteArray md5 = md5FromFile(content);
	if (md5.isEmpty()) {
		fail(tr("Invalid md5 hash file '%1'.").arg(m_updateInfo.m_md5Url.toString()));
		return;
	}
	QSaveFile file(md5Path);
	if (!file.open(QIODevice::WriteOnly) || file.write(md5 + "  " + name.toUtf8() + "\n") < 0 || !file.commit()) {
		fail(tr("Cannot write md5 hash file '%1'.").arg(md5Path));
		return;
	}
	emit updateDownloaded(name);
}


void AutoUpdater::fail(const QString & message) {
	m_installerFile.reset();
	emit errorOccurred(message);
}

} // namespace QtExt
