#ifndef QPB_PropertyViewH
#define QPB_PropertyViewH

#include <QTreeView>

namespace QPB {

class PropertyModel;

/*! The tree view of a PropertyModel: names left, values right, group rows across both columns,
	groups expanded when they appear, compound values (font, pen) collapsed. Its PropertyDelegate opens the editors.

	Keyboard: reached with Tab, the view opens the editor of the first value cell; Tab and Shift+Tab move to the next or previous value cell that can be edited and
	open its editor (from an open editor, after committing it); past the last cell Tab leaves the
	view. Enter or F2 opens the editor of the current row, Space toggles a check box. A click
	into a value cell opens its editor.
*/
class PropertyView : public QTreeView {
	Q_OBJECT
public:
	explicit PropertyView(QWidget * parent = nullptr);

	/*! Shows a PropertyModel (another model is not supported). */
	void setModel(QAbstractItemModel * model) override;
	PropertyModel * propertyModel() const;

protected:
	/*! Next and previous go from value cell to value cell. */
	QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
	/*! Tab moves to the next value cell and opens its editor. */
	bool focusNextPrevChild(bool next) override;
	/*! Reached with Tab, the view opens the editor of the current (first) value cell. */
	void focusInEvent(QFocusEvent * event) override;
	/*! Enter opens the editor; keys on a name act on the row's value cell. */
	void keyPressEvent(QKeyEvent * event) override;
	/*! A click into a value cell opens its editor. */
	void mousePressEvent(QMouseEvent * event) override;
	/*! The name column keeps its fitted width. */
	void resizeEvent(QResizeEvent * event) override;

private:
	/*! The next (or previous) visible value cell after from that can be edited or checked. */
	QModelIndex nextValueCell(const QModelIndex & from, bool forward) const;
	/*! Spans the group rows from first to last below parent (and all below them) across the
		columns and expands the groups; compound values (font, pen) stay collapsed.
	*/
	void layoutRows(const QModelIndex & parent, int first, int last);
	/*! Makes the name column as wide as its widest name, but at most 60 % of the view, so
		that the values keep room. */
	void fitNameColumn();
};

} // namespace QPB

#endif // QPB_PropertyViewH
