#ifndef OVP_UpdateCheckH
#define OVP_UpdateCheckH

#include <QObject>
#include <QString>

#include <QtExt_AutoUpdater.h>

namespace OVP {

class Settings;

/*! Looks for a newer version of the program at the address of the settings (UpdateUrl) and
	carries out the user's answer: download the installer, not now, or skip this version
	(remembered as NewestRejectedVersion). An empty address never asks the network.

	The automatic check at start-up offers only versions newer than the one skipped before and
	says nothing when there is none or the server cannot be reached (the log tells). A check the
	user asked for offers every newer version and tells the outcome, also "no newer version".

	The user is asked through Interaction, so that tests answer without windows. A downloaded
	installer is installed after the program's event loop has ended (installerFileName()).
*/
class UpdateCheck : public QObject {
	Q_OBJECT
public:
	/*! Who started the check. */
	enum Mode {
		M_Automatic,
		M_Manual
	};

	/*! The user's answer to a newer version. */
	enum Answer {
		A_Download,
		A_NotNow,
		A_SkipVersion
	};

	/*! The questions and notices of the update check. */
	class Interaction {
	public:
		virtual ~Interaction();
		/*! Offers a newer version with its change log. */
		virtual Answer askAboutNewVersion(const QString & newVersion, const QString & runningVersion,
										  const QString & changeLog) = 0;
		/*! Tells that the running version is the newest (only for a check the user asked for). */
		virtual void showNoNewerVersion(const QString & runningVersion) = 0;
		/*! Tells that checking or downloading failed. */
		virtual void showFailure(const QString & message) = 0;
		/*! The installer download starts; its progress comes with UpdateCheck::downloadProgress. */
		virtual void downloadStarted(const QString & newVersion) = 0;
		/*! The installer download has ended: installerName is empty when it failed or was
			cancelled.
		*/
		virtual void downloadFinished(const QString & installerName) = 0;
	};

	/*! \param runningVersion Version of the running program.
		\param downloadDir Directory the installer is downloaded to.
	*/
	UpdateCheck(Settings & settings, Interaction & interaction, const QString & runningVersion,
				const QString & downloadDir, QObject * parent = nullptr);

	/*! Starts a check; returns false when nothing is asked because the update address is empty
		or a check or download runs already.
	*/
	bool start(Mode mode);
	/*! Stops a running check or download; a partly downloaded installer is discarded. */
	void cancel();
	/*! True while a check or download runs. */
	bool isBusy() const { return m_updater.isBusy(); }

	/*! File name of the installer downloaded in this run (in the download directory), empty when
		there is none.
	*/
	const QString & installerFileName() const { return m_installerFileName; }

signals:
	/*! Progress of the installer download in bytes; total is -1 when unknown. */
	void downloadProgress(qint64 received, qint64 total);
	/*! A check, and the download that followed it, has ended (also after a failure or cancel). */
	void finished();

private:
	void onUpdateInfoRetrieved(bool updateAvailable, const QString & newVersion);
	void onUpdateDownloaded(const QString & installerName);
	void onError(const QString & message);

	Settings &				m_settings;
	Interaction &			m_interaction;
	QString					m_runningVersion;
	QString					m_downloadDir;
	QtExt::AutoUpdater		m_updater;
	Mode					m_mode = M_Automatic;
	bool					m_downloading = false;
	QString					m_installerFileName;
};

} // namespace OVP

#endif // OVP_UpdateCheckH
