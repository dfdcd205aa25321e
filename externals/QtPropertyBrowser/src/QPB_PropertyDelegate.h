#ifndef QPB_PropertyDelegateH
#define QPB_PropertyDelegateH

#include <QHash>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace QPB {

class Property;

/*! The item delegate of a PropertyView: opens the value type's editor in a value cell, shows
	the value in it and hands the edited value to the PropertyModel (which asks the owner for it).

	Enter and Tab commit, Escape cancels. An editor whose content is invalid refuses Enter and
	Tab: it stays open, tinted, and its tool tip says why; leaving it otherwise closes it without
	a change. A choice made in a combo box or in the font dialog is committed at
	once.
*/
class PropertyDelegate : public QStyledItemDelegate {
	Q_OBJECT
public:
	explicit PropertyDelegate(QObject * parent = nullptr);

	QWidget * createEditor(QWidget * parent, const QStyleOptionViewItem & option,
						   const QModelIndex & index) const override;
	void setEditorData(QWidget * editor, const QModelIndex & index) const override;
	/*! Requests the editor's value; an invalid content requests nothing. */
	void setModelData(QWidget * editor, QAbstractItemModel * model, const QModelIndex & index) const override;
	void updateEditorGeometry(QWidget * editor, const QStyleOptionViewItem & option,
							  const QModelIndex & index) const override;
	/*! Rows tall enough for the editors. */
	QSize sizeHint(const QStyleOptionViewItem & option, const QModelIndex & index) const override;

protected:
	/*! Refuses Enter and Tab while the editor's content is invalid. */
	bool eventFilter(QObject * object, QEvent * event) override;

private:
	/*! Why the content of an editor of this delegate is invalid; empty when it is valid. */
	QString editorReason(QWidget * editor) const;

	/*! The cell of each open editor. */
	mutable QHash<const QWidget *, QPersistentModelIndex>	m_cells;
};

} // namespace QPB

#endif // QPB_PropertyDelegateH
