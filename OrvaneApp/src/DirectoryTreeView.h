#ifndef DirectoryTreeViewH
#define DirectoryTreeViewH

#include <QTreeView>

namespace OVP {
class DirectoryTreeModel;
}

/*! The session's directories in the west panel: a tree view over OVP::DirectoryTreeModel.

	It hands the user's actions to the model: expanding and collapsing folders, adding a
	directory (browse dialog or a folder dropped from a file manager), removing a top-level
	directory (Delete key or context menu, after a confirmation) and choosing a folder colour.
	Space toggles the check mark of the current folder. After a session is loaded, the folders
	that the session keeps expanded are expanded again.
*/
class DirectoryTreeView : public QTreeView {
	Q_OBJECT
public:
	explicit DirectoryTreeView(OVP::DirectoryTreeModel * model, QWidget * parent = nullptr);

public slots:
	/*! Asks for a folder and adds it as top-level directory. */
	void onAddDirectory();
	/*! Removes the selected top-level directory once the user has confirmed it. */
	void onRemoveDirectory();
	/*! Lets the user choose the colour of the current folder. */
	void onSetColor();

protected:
	void keyPressEvent(QKeyEvent * event) override;
	void contextMenuEvent(QContextMenuEvent * event) override;

private:
	/*! Expands the folders below parent that the session keeps expanded, depth first. */
	void restoreExpansion(const QModelIndex & parent);
	/*! The current row when it is a top-level directory; invalid otherwise. */
	QModelIndex currentTopLevel() const;

	OVP::DirectoryTreeModel *	m_model;
	QAction *					m_removeAction;
	QAction *					m_colorAction;
};

#endif // DirectoryTreeViewH
