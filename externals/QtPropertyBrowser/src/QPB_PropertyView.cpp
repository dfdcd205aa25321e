#include "QPB_PropertyView.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "QPB_Property.h"
#include "QPB_PropertyDelegate.h"
#include "QPB_PropertyModel.h"

namespace QPB {

namespace {

/*! True when the value cell can be edited or checked. */
bool isValueCell(const QModelIndex & index) {
	return index.isValid() && index.column() == PropertyModel::C_Value
		&& (index.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable));
}

} // namespace


PropertyView::PropertyView(QWidget * parent) :
	QTreeView(parent)
{
	setItemDelegate(new PropertyDelegate(this));
	setSelectionBehavior(QAbstractItemView::SelectRows);
	setSelectionMode(QAbstractItemView::SingleSelection);
	setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
					| QAbstractItemView::AnyKeyPressed);
	setAllColumnsShowFocus(true);
	setUniformRowHeights(true);
	header()->setSectionResizeMode(QHeaderView::Interactive);
	header()->setStretchLastSection(true);
}


void PropertyView::setModel(QAbstractItemModel * model) {
	QTreeView::setModel(model);
	if (model == nullptr)
		return;
	// a model shown before may still send its signals: they are ignored
	connect(model, &QAbstractItemModel::rowsInserted, this, [this, model](const QModelIndex & parent, int first, int last) {
		if (model == this->model()) {
			layoutRows(parent, first, last);
			fitNameColumn();
		}
	});
	connect(model, &QAbstractItemModel::modelReset, this, [this, model]() {
		if (model == this->model()) {
			layoutRows(QModelIndex(), 0, model->rowCount() - 1);
			fitNameColumn();
		}
	});
	layoutRows(QModelIndex(), 0, model->rowCount() - 1);
	fitNameColumn();
}


void PropertyView::resizeEvent(QResizeEvent * event) {
	QTreeView::resizeEvent(event);
	fitNameColumn();
}


void PropertyView::fitNameColumn() {
	if (model() == nullptr)
		return;
	const int widest = sizeHintForColumn(0);
	setColumnWidth(0, qMin(widest, viewport()->width()*3/5));
}


PropertyModel * PropertyView::propertyModel() const {
	return qobject_cast<PropertyModel *>(model());
}


QModelIndex PropertyView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) {
	if (cursorAction == MoveNext || cursorAction == MovePrevious)
		return nextValueCell(currentIndex(), cursorAction == MoveNext);
	return QTreeView::moveCursor(cursorAction, modifiers);
}


bool PropertyView::focusNextPrevChild(bool next) {
	const QModelIndex cell = nextValueCell(currentIndex(), next);
	if (!cell.isValid())
		return QTreeView::focusNextPrevChild(next);
	setCurrentIndex(cell);
	if (cell.flags() & Qt::ItemIsEditable)
		edit(cell);
	return true;
}


void PropertyView::focusInEvent(QFocusEvent * event) {
	QTreeView::focusInEvent(event);
	const QModelIndex current = currentIndex();
	if ((event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
		&& (current.flags() & Qt::ItemIsEditable) && state() != EditingState)
	{
		edit(current);
	}
}


void PropertyView::keyPressEvent(QKeyEvent * event) {
	const QModelIndex current = currentIndex();
	const QModelIndex value = current.sibling(current.row(), PropertyModel::C_Value);
	const int key = event->key();
	const bool acts = key == Qt::Key_Enter || key == Qt::Key_Return || key == Qt::Key_F2 || key == Qt::Key_Space;
	if (acts && current.column() != PropertyModel::C_Value && isValueCell(value))
		setCurrentIndex(value);
	if ((key == Qt::Key_Enter || key == Qt::Key_Return) && state() != EditingState
		&& (value.flags() & Qt::ItemIsEditable))
	{
		edit(value);
		event->accept();
		return;
	}
	QTreeView::keyPressEvent(event);
}


void PropertyView::mousePressEvent(QMouseEvent * event) {
	QTreeView::mousePressEvent(event);
	const QModelIndex index = indexAt(event->pos());
	if (event->button() == Qt::LeftButton && index.column() == PropertyModel::C_Value
		&& (index.flags() & Qt::ItemIsEditable) && state() != EditingState)
	{
		edit(index);
	}
}


QModelIndex PropertyView::nextValueCell(const QModelIndex & from, bool forward) const {
	if (model() == nullptr)
		return QModelIndex();
	QModelIndex row = from.isValid() ? from.sibling(from.row(), PropertyModel::C_Name) : QModelIndex();
	if (!row.isValid()) {
		// no current row: start before the first or after the last
		row = model()->index(0, PropertyModel::C_Name);
		if (!forward)
			while (indexBelow(row).isValid())
				row = indexBelow(row);
		if (isValueCell(row.sibling(row.row(), PropertyModel::C_Value)))
			return row.sibling(row.row(), PropertyModel::C_Value);
	}
	for (row = forward ? indexBelow(row) : indexAbove(row); row.isValid();
		 row = forward ? indexBelow(row) : indexAbove(row))
	{
		const QModelIndex cell = row.sibling(row.row(), PropertyModel::C_Value);
		if (isValueCell(cell))
			return cell;
	}
	return QModelIndex();
}


void PropertyView::layoutRows(const QModelIndex & parent, int first, int last) {
	const PropertyModel * m = propertyModel();
	if (m == nullptr)
		return;
	if (parent.isValid() && m->property(parent)->isGroup())
		expand(parent);
	for (int row = first; row <= last; ++row) {
		const QModelIndex index = m->index(row, PropertyModel::C_Name, parent);
		const Property * p = m->property(index);
		if (p->isGroup())
			setFirstColumnSpanned(row, parent, true);
		if (p->childCount() > 0)
			layoutRows(index, 0, p->childCount() - 1);
	}
}

} // namespace QPB
