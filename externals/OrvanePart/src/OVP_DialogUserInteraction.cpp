#include "OVP_DialogUserInteraction.h"

#include <QFileDialog>
#include <QMessageBox>

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


QString DialogUserInteraction::saveFileName(QWidget * parent, const QString & caption, const QString & defaultFile,
											const QString & filter)
{
	return QFileDialog::getSaveFileName(parent, caption, defaultFile, filter);
}

} // namespace OVP
