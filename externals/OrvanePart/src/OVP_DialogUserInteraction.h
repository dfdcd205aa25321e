#ifndef OVP_DialogUserInteractionH
#define OVP_DialogUserInteractionH

#include "OVP_UserInteraction.h"

namespace OVP {

/*! The user interaction of the application: message boxes, file and folder dialogs and the
	input dialog of the toolkit.
*/
class DialogUserInteraction : public UserInteraction {
public:
	SaveAnswer askSaveDiscardCancel(QWidget * parent, const QString & title, const QString & text) override;
	void showCritical(QWidget * parent, const QString & title, const QString & text) override;
	bool askRestoreFromBackup(QWidget * parent, const QString & title, const QString & text) override;
	bool askConfirmation(QWidget * parent, const QString & title, const QString & text) override;
	QString saveFileName(QWidget * parent, const QString & caption, const QString & defaultFile,
						 const QString & filter) override;
	/*! The message with a folder field and browse button (DataFolderDialog). */
	QString askDataFolder(QWidget * parent, const QString & title, const QString & text,
						  const QString & startFolder) override;
	QString existingDirectory(QWidget * parent, const QString & caption, const QString & startFolder) override;
	/*! A list of the items in an input dialog. */
	QString askText(QWidget * parent, const QString & title, const QString & label) override;
	int chooseItem(QWidget * parent, const QString & title, const QString & label, const QStringList & items) override;
};

} // namespace OVP

#endif // OVP_DialogUserInteractionH
