#ifndef MapperTreeViewH
#define MapperTreeViewH

#include <QTreeView>

/*! The session's charts in the west panel: a tree view over the open session's
	OVP::MapperTreeModel, which it follows when sessions are opened and closed.

	Renaming (F2, double click) and reordering by drag are done by the model; deleting (Delete
	key, context menu, with confirmation) and duplicating go to OVP::ProjectHandler. Making
	another chart current announces it with mapperSelected(), for the focused view to show it.
*/
class MapperTreeView : public QTreeView {
	Q_OBJECT
public:
	/*! Width of the chart name column, in pixels. */
	static constexpr int NAME_COLUMN_WIDTH = 240;

	explicit MapperTreeView(QWidget * parent = nullptr);

public slots:
	/*! Deletes the selected charts (top-level rows) once the user has confirmed it. */
	void onDeleteSelected();
	/*! Duplicates the current chart. */
	void onDuplicateCurrent();

signals:
	/*! The user made a row of this chart (mapper index) current. */
	void mapperSelected(int mapperIndex);

protected:
	void keyPressEvent(QKeyEvent * event) override;
	void contextMenuEvent(QContextMenuEvent * event) override;
	void currentChanged(const QModelIndex & current, const QModelIndex & previous) override;
	/*! Focus alone does not choose a chart, although the view then makes its first row current. */
	void focusInEvent(QFocusEvent * event) override;

private:
	/*! Shows the mapper model of the open session, or nothing. */
	void followSession();
	/*! The mapper indices of the selected chart rows. */
	QList<int> selectedMapperIndices() const;

	QAction *	m_deleteAction;
	QAction *	m_duplicateAction;
	/*! True while the view takes the focus. */
	bool		m_takingFocus = false;
};

#endif // MapperTreeViewH
