#ifndef DirectoryTreeViewH
#define DirectoryTreeViewH

#include <QPersistentModelIndex>
#include <QTreeView>

namespace OVP {
class DirectoryTreeModel;
}

namespace QtExt {
class ColorListWidget;
}

/*! The session's directories in the west panel: a tree view over OVP::DirectoryTreeModel.

	It hands the user's actions to the model: expanding and collapsing folders, adding a
	directory (browse dialog or a folder dropped from a file manager), removing a top-level
	directory (Delete key or context menu, after a confirmation), choosing a folder colour from
	a popup list (or none) and switching the colours on and off ("Use colours", the UserColoring
	setting). Space toggles the check mark of the current folder. After a session is loaded, the folders
	that the session keeps expanded are expanded again.
*/
class DirectoryTreeView : public QTreeView {
	Q_OBJECT
public:
	explicit DirectoryTreeView(OVP::DirectoryTreeModel * model, QWidget * parent = nullptr);

	/*! "Add directory...", also offered in the Session menu. */
	QAction * addDirectoryAction() const { return m_addAction; }

public slots:
	/*! Asks for a folder and adds it as top-level directory. */
	void onAddDirectory();
	/*! Removes the selected top-level directory once the user has confirmed it. */
	void onRemoveDirectory();
	/*! Shows the colour list below the current folder; a chosen colour (which also switches
		the colours on) or "No colour" is set for it.
	*/
	void onSetColor();
	/*! Switches the user colours on or off and lets the model show it. */
	void onUseColors(bool use);

protected:
	void keyPressEvent(QKeyEvent * event) override;
	void contextMenuEvent(QContextMenuEvent * event) override;
	/*! Without directories, tells how to add one. */
	void paintEvent(QPaintEvent * event) override;

private:
	/*! Expands the folders below parent that the session keeps expanded, depth first. */
	void restoreExpansion(const QModelIndex & parent);
	/*! The current row when it is a top-level directory; invalid otherwise. */
	QModelIndex currentTopLevel() const;

	OVP::DirectoryTreeModel *	m_model;
	QAction *					m_addAction;
	QAction *					m_removeAction;
	QAction *					m_colorAction;
	QAction *					m_useColorsAction;
	QtExt::ColorListWidget *	m_colorList;
	/*! The folder whose colour the list shows. */
	QPersistentModelIndex		m_colorIndex;
};

#endif // DirectoryTreeViewH
