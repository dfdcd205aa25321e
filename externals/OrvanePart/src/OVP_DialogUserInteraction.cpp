#include "OVP_DialogUserInteraction.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

#include "OVP_DataFolderDialog.h"

namespace OVP {

UserInteraction::SaveAnswer DialogUserInteraction::askSaveDiscardCancel(QWidget * parent, const QString & title,
																		const QString & text)
{
	const int button = QMessageBox::question(parent, title, text,
											 QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
											 QMessageBox::Save);
	switch (button) {
		case QMessageBox::Save :	return AnswerSave;
		case QMessageBox::Discard :	return AnswerDiscard;
		default :					return AnswerCancel;
	}
}


void DialogUserInteraction::showCritical(QWidget * parent, const QString & title, const QString & text) {
	QMessageBox::critical(parent, title, text);
}


bool DialogUserInteraction::askRestoreFromBackup(QWidget * parent, const QString & title, const QString & text) {
	QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::NoButton, parent);
	QPushButton * restore = box.addButton(QObject::tr("Restore from backup"), QMessageBox::AcceptRole);
	box.addButton(QMessageBox::Cancel);
	box.setDefaultButton(restore);
	box.exec();
	return box.clickedButton() == restore;
}


bool DialogUserInteraction::askConfirmation(QWidget * parent, const QString & title, const QString & text) {
	return QMessageBox::question(parent, title, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes)
			== QMessageBox::Yes;
}


QString DialogUserInteraction::saveFileName(QWidget * parent, const QString & caption, const QString & defaultFile,
											const QString & filter)
{
	return QFileDialog::getSaveFileName(parent, caption, defaultFile, filter);
}


QString DialogUserInteraction::askDataFolder(QWidget * parent, const QString & title, const QString & text,
											 const QString & startFolder)
{
	DataFolderDialog dialog(parent, title, text, startFolder);
	return dialog.exec() == QDialog::Accepted ? dialog.folder() : QString();
}


QString DialogUserInteraction::existingDirectory(QWidget * parent, const QString & caption, const QString & startFolder) {
	return QFileDialog::getExistingDirectory(parent, caption, startFolder);
}


QString DialogUserInteraction::askText(QWidget * parent, const QString & title, const QString & label) {
	return QInputDialog::getText(parent, title, label).trimmed();
}


int DialogUserInteraction::chooseItem(QWidget * parent, const QString & title, const QString & label,
									  const QStringList & items)
{
	bool ok = false;
	const QString item = QInputDialog::getItem(parent, title, label, items, 0, false, &ok);
	return ok ? items.indexOf(item) : -1;
}

} // namespace OVP
