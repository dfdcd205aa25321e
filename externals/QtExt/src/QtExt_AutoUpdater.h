#ifndef QtExt_AutoUpdaterH
#define QtExt_AutoUpdaterH

#include <memory>

#include <QObject>
#include <QNetworkReply>
#include <QPointer>
#include <QString>
#include <QUrl>

#include "QtExt_UpdateInfo.h"

class QNetworkAccessManager;
class QSaveFile;

namespace QtExt {

/*! Looks for a newer version of the application and fetches its installer.

	Usage:
	1. checkForUpdateInfo() downloads the version file (see UpdateInfo) and emits
	   updateInfoRetrieved(), telling whether the announced version is newer than the running
	   one and than the newest version the user rejected before.
	2. downloadUpdate() stores the installer and its MD5 hash file (installer name + ".md5") in
	   a download directory and emits updateDownloaded().
	3. After the application's event loop has ended, installUpdate() checks the installer against
	   its MD5 hash and starts it as a detached process.

	Failures of steps 1 and 2 are announced by errorOccurred(); only one transfer runs at a time.
*/
class AutoUpdater : public QObject {
	Q_OBJECT
public:
	explicit AutoUpdater(QObject * parent = nullptr);
	~AutoUpdater() override;

	/*! Starts downloading the version file; the result comes with updateInfoRetrieved() or
		errorOccurred().
		\param versionFileUrl Location of the version file (http(s) or file URL).
		\param runningVersion Version of the running program.
		\param newestRejectedVersion Newest version the user chose not to install, or empty.
	*/
	void checkForUpdateInfo(const QUrl & versionFileUrl, const QString & runningVersion,
							const QString & newestRejectedVersion);

	/*! Starts downloading installer and MD5 hash file of the last retrieved update information
		into downloadDir (created when missing); the result comes with updateDownloaded() or
		errorOccurred().
	*/
	void downloadUpdate(const QString & downloadDir);

	/*! Aborts a running transfer; a partly downloaded installer is discarded. */
	void abort();

	/*! True while a transfer runs. */
	bool isBusy() const { return m_reply != nullptr; }

	/*! The update information of the last successful check. */
	const UpdateInfo & updateInfo() const { return m_updateInfo; }

	/*! Compares two version numbers ("2.1" equals "2.1.0"); returns -1, 0 or 1.
		Throws ZEB::Exception when one of them is not a version number.
	*/
	static int compareVersions(const QString & a, const QString & b);

	/*! True when newVersion is newer than runningVersion and, unless newestRejectedVersion is
		empty, also newer than newestRejectedVersion. Throws ZEB::Exception for invalid versions.
	*/
	static bool isUpdateAvailable(const QString & newVersion, const QString & runningVersion,
								  const QString & newestRejectedVersion);

	/*! Checks the installer downloadDir/installerName against the MD5 hash in
		downloadDir/installerName.md5 and starts it as a detached process.
		Throws ZEB::Exception "Mismatching md5 hash of installer file." when the hashes differ and
		"Error installing update." (with the reason chained before it) on any other failure.
	*/
	static void installUpdate(const QString & downloadDir, const QString & installerName);

signals:
	/*! The version file was read; updateAvailable tells whether newVersion should be offered. */
	void updateInfoRetrieved(bool updateAvailable, QString newVersion);
	/*! Progress of the installer download in bytes; total is -1 when unknown. */
	void downloadProgress(qint64 received, qint64 total);
	/*! Installer and MD5 hash file are stored in the download directory. */
	void updateDownloaded(QString installerName);
	/*! A check or download failed; message says why. */
	void errorOccurred(QString message);

private:
	/*! Transfers that may run. */
	enum Transfer {
		T_VersionFile,
		T_Installer,
		T_Md5File
	};

	/*! Starts a GET request for url and connects it to the finish handler. */
	void startTransfer(Transfer transfer, const QUrl & url);
	/*! Handles the end of the running transfer. */
	void onReplyFinished();
	/*! Writes newly arrived installer bytes to the download file. */
	void onInstallerDataReady();
	/*! Evaluates a downloaded version file. */
	void handleVersionFile(const QByteArray & content, const QUrl & url);
	/*! Stores a downloaded MD5 hash file next to the installer. */
	void handleMd5File(const QByteArray & content);
	/*! Cleans up after a failure and emits errorOccurred(). */
	void fail(const QString & message);

	QNetworkAccessManager *			m_manager;
	QPointer<QNetworkReply>			m_reply;
	Transfer						m_transfer = T_VersionFile;
	bool							m_tooLarge = false;		///< reply aborted for exceeding its size limit
	QString							m_runningVersion;
	QString							m_newestRejectedVersion;
	UpdateInfo						m_updateInfo;
	QString							m_downloadDir;
	std::unique_ptr<QSaveFile>		m_installerFile;	///< installer being written, committed at the end
};

} // namespace QtExt

#endif // QtExt_AutoUpdaterH
