#ifndef LogUserInteractionH
#define LogUserInteractionH

#include <OVP_UserInteraction.h>

/*! The user interaction of a scripted run (command-line chart export), where nobody is there to
	answer: notices go to the log as errors, questions about unsaved changes are answered with
	"discard", a session is not restored from its backup, neither is moved data looked for,
	confirmations are refused, and file, folder and choice questions are cancelled.
	The program therefore never waits for a dialog while it exports charts.
*/
class LogUserInteraction : public OVP::UserInteraction {
public:
	SaveAnswer askSaveDiscardCancel(QWidget * parent, const QString & title, const QString & text) override;
	void showCritical(QWidget * parent, const QString & title, const QString & text) override;
	bool askRestoreFromBackup(QWidget * parent, const QString & title, const QString & text) override;
	bool askConfirmation(QWidget * parent, const QString & title, const QString & text) override;
	QString saveFileName(QWidget * parent, const QString & caption, const QString & defaultFile,
						 const QString & filter) override;
	QString askDataFolder(QWidget * parent, const QString & title, const QString & text,
						  const QString & startFolder) override;
	QString existingDirectory(QWidget * parent, const QString & caption, const QString & startFolder) override;
	QString askText(QWidget * parent, const QString & title, const QString & label) override;
	int chooseItem(QWidget * parent, const QString & title, const QString & label, const QStringList & items) override;
};

#endif // LogUserInteractionH
