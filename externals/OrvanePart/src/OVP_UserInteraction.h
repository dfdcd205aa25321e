#ifndef OVP_UserInteractionH
#define OVP_UserInteractionH

#include <QString>
#include <QStringList>

class QWidget;

namespace ZEB {
class Exception;
}

namespace OVP {

/*! The messages of an exception chain as shown to the user: one line each, innermost cause first. */
QString exceptionText(const ZEB::Exception & ex);

/*! The questions and notices that project handling puts to the user. The project handler talks
	to the user only through this interface, so that the application shows real dialogs
	(DialogUserInteraction) while tests answer with prepared replies and run without windows.
*/
class UserInteraction {
public:
	/*! Answers to a "save before closing" question. */
	enum SaveAnswer {
		AnswerSave,
		AnswerDiscard,
		AnswerCancel
	};

	virtual ~UserInteraction();

	/*! Asks a question with the buttons Save, Discard and Cancel. */
	virtual SaveAnswer askSaveDiscardCancel(QWidget * parent, const QString & title, const QString & text) = 0;

	/*! Shows an error notice with an Ok button. */
	virtual void showCritical(QWidget * parent, const QString & title, const QString & text) = 0;

	/*! Offers to restore a session whose file cannot be read from its backup copy; true when
		the user accepts.
	*/
	virtual bool askRestoreFromBackup(QWidget * parent, const QString & title, const QString & text) = 0;

	/*! Asks whether to go on with an action that cannot be undone (buttons Yes and No); true
		when the user answers Yes.
	*/
	virtual bool askConfirmation(QWidget * parent, const QString & title, const QString & text) = 0;

	/*! Asks for the name of a file to save to; an empty text means the user cancelled.
		\param caption Dialog caption.
		\param defaultFile File name the dialog starts with.
		\param filter File type filter, e.g. "Orvane Projects (*.o2);;All files (*.*)".
	*/
	virtual QString saveFileName(QWidget * parent, const QString & caption, const QString & defaultFile,
								 const QString & filter) = 0;

	/*! Tells that data files are missing and offers to choose the folder that holds the data
		now; returns the chosen folder, empty when the user declines.
		\param startFolder Folder the folder chooser starts in.
	*/
	virtual QString askDataFolder(QWidget * parent, const QString & title, const QString & text,
								  const QString & startFolder) = 0;

	/*! Asks for an existing folder; an empty text means the user cancelled. */
	virtual QString existingDirectory(QWidget * parent, const QString & caption, const QString & startFolder) = 0;

	/*! Asks for a line of text; an empty text means the user cancelled. */
	virtual QString askText(QWidget * parent, const QString & title, const QString & label) = 0;
	/*! Lets the user pick one of several texts; returns its index, -1 when the user cancelled. */
	virtual int chooseItem(QWidget * parent, const QString & title, const QString & label,
						   const QStringList & items) = 0;
};

} // namespace OVP

#endif // OVP_UserInteractionH
