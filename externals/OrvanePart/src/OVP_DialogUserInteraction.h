#ifndef OVP_DialogUserInteractionH
#define OVP_DialogUserInteractionH

#include "OVP_UserInteraction.h"

namespace OVP {

/*! The user interaction of the application: message boxes and the file dialog of the toolkit. */
class DialogUserInteraction : public UserInteraction {
public:
	SaveAnswer askSaveDiscardCancel(QWidget * parent, const QString & title, const QString & text) override;
	void showCritical(QWidget * parent, const QString & title, const QString & text) override;
	bool askRestoreFromBackup(QWidget * parent, const QString & title, const QString & text) override;
	bool askConfirmation(QWidget * parent, const QString & title, const QString & text) override;
	QString saveFileName(QWidget * parent, const QString & caption, const QString & defaultFile,
						 const QString & filter) override;
};

} // namespace OVP

#endif // OVP_DialogUserInteractionH
