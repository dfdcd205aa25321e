#ifndef UpdateDialogsH
#define UpdateDialogsH

#include <QObject>
#include <QPointer>

#include <OVP_UpdateCheck.h>

class QProgressDialog;
class QWidget;

/*! The dialogs of the update check: the offer of a newer version with its change log, the
	download progress (whose Cancel stops the download) and the notices.
*/
class UpdateDialogs : public QObject, public OVP::UpdateCheck::Interaction {
	Q_OBJECT
public:
	explicit UpdateDialogs(QWidget * parent);

	/*! The check whose download progress is shown and cancelled. */
	void setUpdateCheck(OVP::UpdateCheck * check) { m_check = check; }

	OVP::UpdateCheck::Answer askAboutNewVersion(const QString & newVersion, const QString & runningVersion,
												const QString & changeLog) override;
	void showNoNewerVersion(const QString & runningVersion) override;
	void showFailure(const QString & message) override;
	void downloadStarted(const QString & newVersion) override;
	void downloadFinished(const QString & installerName) override;

private:
	QWidget *					m_parent;
	OVP::UpdateCheck *			m_check = nullptr;
	QPointer<QProgressDialog>	m_progress;
};

#endif // UpdateDialogsH
