#ifndef OVP_DataFolderDialogH
#define OVP_DataFolderDialogH

#include <QDialog>

class QPushButton;

namespace QtExt {
class BrowseFilenameWidget;
}

namespace OVP {

/*! The question after data files of a session went missing: the message (naming the first
	missing file) and a folder field with a browse button, so that the user points at the folder
	that holds the data now. OK is enabled only while the field names an existing folder.
*/
class DataFolderDialog : public QDialog {
	Q_OBJECT
public:
	/*! A dialog showing text; the folder field starts with startFolder. */
	DataFolderDialog(QWidget * parent, const QString & title, const QString & text, const QString & startFolder);

	/*! The folder in the field. */
	QString folder() const;

private:
	QtExt::BrowseFilenameWidget *	m_folder;
	QPushButton *					m_ok;
};

} // namespace OVP

#endif // OVP_DataFolderDialogH
