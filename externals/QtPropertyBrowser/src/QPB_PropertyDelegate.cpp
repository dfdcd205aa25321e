#include "QPB_PropertyDelegate.h"

#include <QComboBox>
#include <QKeyEvent>

#include "QPB_DialogEditor.h"
#include "QPB_FontEditor.h"
#include "QPB_Property.h"
#include "QPB_PropertyModel.h"
#include "QPB_ValueType.h"

namespace QPB {

namespace {

/*! The property of a cell of a PropertyModel, or nullptr. */
Property * propertyAt(const QModelIndex & index) {
	const PropertyModel * model = qobject_cast<const PropertyModel *>(index.model());
	return model == nullptr ? nullptr : model->property(index);
}

/*! Extra height of a row over the text, so that editors fit. */
const int ROW_PADDING = 8;

} // namespace


PropertyDelegate::PropertyDelegate(QObject * parent) :
	QStyledItemDelegate(parent)
{
}


QWidget * PropertyDelegate::createEditor(QWidget * parent, const QStyleOptionViewItem &,
										 const QModelIndex & index) const
{
	const Property * p = propertyAt(index);
	if (p == nullptr || p->isGroup() || index.column() != PropertyModel::C_Value || !p->type()->hasEditor())
		return nullptr;
	QWidget * editor = p->type()->createEditor(parent, *p);
	editor->setAutoFillBackground(true);
	m_cells.insert(editor, index);
	connect(editor, &QObject::destroyed, this, [this, editor]() { m_cells.remove(editor); });

	// a choice from a list or a dialog is the edit: commit it without waiting for Enter
	PropertyDelegate * self = const_cast<PropertyDelegate *>(this);
	if (QComboBox * combo = qobject_cast<QComboBox *>(editor))
		connect(combo, QOverload<int>::of(&QComboBox::activated), self, [self, editor]() { emit self->commitData(editor); });
	else if (FontEditor * fontEditor = qobject_cast<FontEditor *>(editor))
		connect(fontEditor, &FontEditor::fontChosen, self, [self, editor]() { emit self->commitData(editor); });
	else if (DialogEditor * dialogEditor = qobject_cast<DialogEditor *>(editor))
		connect(dialogEditor, &DialogEditor::valueChosen, self, [self, editor]() { emit self->commitData(editor); });
	return editor;
}


void PropertyDelegate::setEditorData(QWidget * editor, const QModelIndex & index) const {
	if (const Property * p = propertyAt(index))
		p->type()->setEditorValue(editor, *p);
}


void PropertyDelegate::setModelData(QWidget * editor, QAbstractItemModel * model, const QModelIndex & index) const {
	const Property * p = propertyAt(index);
	if (p == nullptr)
		return;
	QVariant value;
	if (p->type()->editorValue(editor, *p, value).isEmpty())
		model->setData(index, value, Qt::EditRole);
}


void PropertyDelegate::updateEditorGeometry(QWidget * editor, const QStyleOptionViewItem & option,
											const QModelIndex &) const
{
	editor->setGeometry(option.rect);
}


QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem & option, const QModelIndex & index) const {
	QSize size = QStyledItemDelegate::sizeHint(option, index);
	size.setHeight(std::max(size.height(), option.fontMetrics.height() + ROW_PADDING));
	return size;
}


bool PropertyDelegate::eventFilter(QObject * object, QEvent * event) {
	QWidget * editor = qobject_cast<QWidget *>(object);
	if (editor != nullptr && event->type() == QEvent::KeyPress) {
		switch (static_cast<QKeyEvent *>(event)->key()) {
			case Qt::Key_Enter: case Qt::Key_Return: case Qt::Key_Tab: case Qt::Key_Backtab:
				// the editor shows why by its tint and tool tip; a tool tip popped up here would
				// take the focus under some window managers and so close the editor
				if (!editorReason(editor).isEmpty())
					return true;
				break;
			default:
				break;
		}
	}
	return QStyledItemDelegate::eventFilter(object, event);
}


QString PropertyDelegate::editorReason(QWidget * editor) const {
	const Property * p = propertyAt(m_cells.value(editor));
	if (p == nullptr)
		return QString();
	QVariant value;
	return p->type()->editorValue(editor, *p, value);
}

} // namespace QPB
