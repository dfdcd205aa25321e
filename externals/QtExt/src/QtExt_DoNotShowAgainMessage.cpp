#include "QtExt_DoNotShowAgainMessage.h"

#include <QCheckBox>
#include <QMessageBox>

#include "QtExt_Settings.h"

namespace QtExt {

bool DoNotShowAgainMessage::information(QWidget * parent, Settings & settings, const QString & dialogID,
										const QString & title, const QString & text)
{
	if (settings.isDoNotShowAgain(dialogID))
		return false;
	QMessageBox box(QMessageBox::Information, title, text, QMessageBox::Ok, parent);
	QCheckBox * check = new QCheckBox(tr("Do not show this again"));
	box.setCheckBox(check);
	const int answer = box.exec();
	if (check->isChecked())
		settings.setDoNotShowAgain(dialogID, answer);
	return true;
}

} // namespace QtExt
