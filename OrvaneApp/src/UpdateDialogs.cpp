#include "UpdateDialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QVBoxLayout>

UpdateDialogs::UpdateDialogs(QWidget * parent) :
	QObject(parent),
	m_parent(parent)
{
}


OVP::UpdateCheck::Answer UpdateDialogs::askAboutNewVersion(const QString & newVersion, const QString & runningVersion,
														   const QString & changeLog)
{
	QDialog dialog(m_parent);
	dialog.setWindowTitle(tr("Newer version available"));
	QLabel * label = new QLabel(tr("Orvane %1 is available; you are using version %2.").arg(newVersion, runningVersion));
	label->setWordWrap(true);
	QPlainTextEdit * changes = new QPlainTextEdit(changeLog.isEmpty() ? tr("No changes listed.") : changeLog);
	changes->setReadOnly(true);

	QDialogButtonBox * buttons = new QDialogButtonBox;
	QPushButton * download = buttons->addButton(tr("Download and install"), QDialogButtonBox::AcceptRole);
	buttons->addButton(tr("Not now"), QDialogButtonBox::RejectRole);
	QPushButton * skip = buttons->addButton(tr("Skip this version"), QDialogButtonBox::DestructiveRole);
	OVP::UpdateCheck::Answer answer = OVP::UpdateCheck::A_NotNow;
	connect(buttons, &QDialogButtonBox::clicked, &dialog, [&](QAbstractButton * button) {
		if (button == download)
			answer = OVP::UpdateCheck::A_Download;
		else if (button == skip)
			answer = OVP::UpdateCheck::A_SkipVersion;
		dialog.done(answer == OVP::UpdateCheck::A_NotNow ? QDialog::Rejected : QDialog::Accepted);
	});
	download->setDefault(true);

	QVBoxLayout * layout = new QVBoxLayout(&dialog);
	layout->addWidget(label);
	layout->addWidget(new QLabel(tr("Changes:")));
	layout->addWidget(changes, 1);
	layout->addWidget(buttons);
	dialog.resize(520, 360);
	dialog.exec();
	return answer;
}


void UpdateDialogs::showNoNewerVersion(const QString & runningVersion) {
	QMessageBox::information(m_parent, tr("Check for updates"),
							 tr("There is no newer version; Orvane %1 is up to date.").arg(runningVersion));
}


void UpdateDialogs::showFailure(const QString & message) {
	QMessageBox::critical(m_parent, tr("Check for updates"), tr("Looking for updates failed:\n%1").arg(message));
}


void UpdateDialogs::downloadStarted(const QString & newVersion) {
	m_progress = new QProgressDialog(tr("Downloading Orvane %1...").arg(newVersion), tr("Cancel"), 0, 0, m_parent);
	m_progress->setWindowTitle(tr("Download update"));
	m_progress->setWindowModality(Qt::WindowModal);
	m_progress->setMinimumDuration(0);
	m_progress->setAttribute(Qt::WA_DeleteOnClose);
	if (m_check != nullptr) {
		connect(m_check, &OVP::UpdateCheck::downloadProgress, m_progress.data(), [this](qint64 received, qint64 total) {
			if (m_progress == nullptr)
				return;
			// the dialog counts in KiB so that large installers stay within int
			m_progress->setMaximum(total > 0 ? int(total/1024) : 0);
			m_progress->setValue(int(received/1024));
		});
		connect(m_progress.data(), &QProgressDialog::canceled, m_check, &OVP::UpdateCheck::cancel);
	}
	m_progress->show();
}


void UpdateDialogs::downloadFinished(const QString & installerName) {
	if (m_progress != nullptr) {
		// closing must not count as a cancel
		m_progress->disconnect(m_check);
		m_progress->close();
	}
	if (!installerName.isEmpty())
		QMessageBox::information(m_parent, tr("Download update"),
								 tr("The update has been downloaded. It will be installed when you close Orvane."));
}
