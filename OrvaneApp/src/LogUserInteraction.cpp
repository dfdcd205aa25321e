#include "LogUserInteraction.h"

#include <ZEB_FunctionId.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

OVP::UserInteraction::SaveAnswer LogUserInteraction::askSaveDiscardCancel(QWidget *, const QString & title,
																		   const QString & text)
{
	FUNCID(LogUserInteraction::askSaveDiscardCancel);
	ZEB::reportWarning(ZEB::MessageFormat("%1: %2 -> changes are discarded in a scripted run.")
					   .arg(title.toStdString()).arg(text.toStdString()).str(), FUNC_ID);
	return AnswerDiscard;
}


void LogUserInteraction::showCritical(QWidget *, const QString & title, const QString & text) {
	FUNCID(LogUserInteraction::showCritical);
	ZEB::reportError(ZEB::MessageFormat("%1: %2").arg(title.toStdString()).arg(text.toStdString()).str(), FUNC_ID);
}


bool LogUserInteraction::askRestoreFromBackup(QWidget *, const QString & title, const QString & text) {
	FUNCID(LogUserInteraction::askRestoreFromBackup);
	ZEB::reportWarning(ZEB::MessageFormat("%1: %2 -> the backup is not used in a scripted run.")
					   .arg(title.toStdString()).arg(text.toStdString()).str(), FUNC_ID);
	return false;
}


bool LogUserInteraction::askConfirmation(QWidget *, const QString & title, const QString & text) {
	FUNCID(LogUserInteraction::askConfirmation);
	ZEB::reportWarning(ZEB::MessageFormat("%1: %2 -> refused in a scripted run.")
					   .arg(title.toStdString()).arg(text.toStdString()).str(), FUNC_ID);
	return false;
}


QString LogUserInteraction::saveFileName(QWidget *, const QString & caption, const QString &, const QString &) {
	FUNCID(LogUserInteraction::saveFileName);
	ZEB::reportWarning(ZEB::MessageFormat("%1: no file can be chosen in a scripted run.")
					   .arg(caption.toStdString()).str(), FUNC_ID);
	return QString();
}


QString LogUserInteraction::askDataFolder(QWidget *, const QString & title, const QString & text, const QString &) {
	FUNCID(LogUserInteraction::askDataFolder);
	ZEB::reportWarning(ZEB::MessageFormat("%1: %2 -> no folder can be chosen in a scripted run.")
					   .arg(title.toStdString()).arg(text.toStdString()).str(), FUNC_ID);
	return QString();
}


QString LogUserInteraction::existingDirectory(QWidget *, const QString & caption, const QString &) {
	FUNCID(LogUserInteraction::existingDirectory);
	ZEB::reportWarning(ZEB::MessageFormat("%1: no folder can be chosen in a scripted run.")
					   .arg(caption.toStdString()).str(), FUNC_ID);
	return QString();
}


QString LogUserInteraction::askText(QWidget *, const QString & title, const QString & label) {
	FUNCID(LogUserInteraction::askText);
	ZEB::reportWarning(ZEB::MessageFormat("%1: %2 -> no text can be entered in a scripted run.")
					   .arg(title.toStdString()).arg(label.toStdString()).str(), FUNC_ID);
	return QString();
}


int LogUserInteraction::chooseItem(QWidget *, const QString & title, const QString & label, const QStringList &) {
	FUNCID(LogUserInteraction::chooseItem);
	ZEB::reportWarning(ZEB::MessageFormat("%1: %2 -> nothing can be chosen in a scripted run.")
					   .arg(title.toStdString()).arg(label.toStdString()).str(), FUNC_ID);
	return -1;
}
