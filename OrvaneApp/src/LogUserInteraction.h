#ifndef LogUserInteractionH
#define LogUserInteractionH

#include <OVP_UserInteraction.h>

/*! The user interaction of a scripted run (command-line chart export), where nobody is there to
	answer: notices go to the log as errors, questions about unsaved changes are answered with
	"discard", a session is not restored from its backup, confirmations are refused and file name
	questions are cancelled.
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
};

#endif // LogUserInteractionH
