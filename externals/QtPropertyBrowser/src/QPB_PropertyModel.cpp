#include "QPB_PropertyModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include "QPB_Property.h"
#include "QPB_ValueType.h"

namespace QPB {

PropertyModel::PropertyModel(QObject * parent) :
	QAbstractItemModel(parent),
	m_root(new Property(QString()))
{
	qRegisterMetaType<QPB::Property *>();
	m_root->setModel(this);
}


PropertyModel::~PropertyModel() {
	// the properties must not call back into a model being destroyed
	m_root->setModel(nullptr);
}


void PropertyModel::clear() {
	beginResetModel();
	m_root->setModel(nullptr);
	m_root->clearChildren();
	m_root->setModel(this);
	endResetModel();
}


Property * PropertyModel::property(const QModelIndex & index) const {
	return index.isValid() ? static_cast<Property *>(index.internalPointer()) : nullptr;
}


QModelIndex PropertyModel::indexOf(const Property * property, int column) const {
	if (property == nullptr || property == m_root.get())
		return QModelIndex();
	return createIndex(property->row(), column, const_cast<Property *>(property));
}


QModelIndex PropertyModel::index(int row, int column, const QModelIndex & parent) const {
	const Property * p = parent.isValid() ? property(parent) : m_root.get();
	if (row < 0 || row >= p->childCount() || column < 0 || column >= NUM_C)
		return QModelIndex();
	return createIndex(row, column, p->child(row));
}


QModelIndex PropertyModel::parent(const QModelIndex & child) const {
	const Property * p = property(child);
	return p == nullptr ? QModelIndex() : indexOf(p->parent());
}


int PropertyModel::rowCount(const QModelIndex & parent) const {
	if (parent.column() > 0)
		return 0;
	const Property * p = parent.isValid() ? property(parent) : m_root.get();
	return p->childCount();
}


int PropertyModel::columnCount(const QModelIndex &) const {
	return NUM_C;
}


QVariant PropertyModel::data(const QModelIndex & index, int role) const {
	const Property * p = property(index);
	if (p == nullptr)
		return QVariant();
	const bool valueCell = index.column() == C_Value && !p->isGroup();
	switch (role) {
		case Qt::DisplayRole:
			if (index.column() == C_Name)
				return p->name();
			return valueCell ? p->type()->displayText(*p) : QVariant();
		case Qt::EditRole:
			return valueCell ? p->value() : QVariant();
		case Qt::DecorationRole:
			return valueCell ? QVariant(p->type()->displayIcon(*p)) : QVariant();
		case Qt::CheckStateRole:
			if (valueCell && p->type()->isCheckable())
				return p->value().toBool() ? Qt::Checked : Qt::Unchecked;
			return QVariant();
		case Qt::ToolTipRole:
			return p->toolTip().isEmpty() ? QVariant() : p->toolTip();
		case Qt::FontRole:
			if (index.column() == C_Name && p->isModified()) {
				QFont font = QApplication::font();
				font.setBold(true);
				return font;
			}
			return QVariant();
		case Qt::BackgroundRole:
			return p->isGroup() ? QVariant(QApplication::palette().brush(QPalette::Button)) : QVariant();
		default:
			return QVariant();
	}
}


bool PropertyModel::setData(const QModelIndex & index, const QVariant & value, int role) {
	Property * p = property(index);
	if (p == nullptr || !(flags(index) & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)))
		return false;
	QVariant newValue = value;
	if (role == Qt::CheckStateRole) {
		if (!p->type()->isCheckable())
			return false;
		newValue = value.toInt() == Qt::Checked;
	}
	else if (role != Qt::EditRole) {
		return false;
	}
	if (!p->type()->check(*p, newValue).isEmpty())
		return false;
	if (newValue == p->value())
		return true;
	if (p->isSubProperty()) {
		Property * whole = p->parent();
		const QVariant wholeValue = whole->type()->composeValue(*whole, p->row(), newValue);
		if (!whole->type()->check(*whole, wholeValue).isEmpty())
			return false;
		emit valueEditRequested(whole, wholeValue);
	}
	else {
		emit valueEditRequested(p, newValue);
	}
	return true;
}


Qt::ItemFlags PropertyModel::flags(const QModelIndex & index) const {
	const Property * p = property(index);
	if (p == nullptr || !p->isEffectivelyEnabled())
		return Qt::NoItemFlags;
	Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
	if (index.column() == C_Value && !p->isGroup()) {
		if (p->type()->isCheckable())
			f |= Qt::ItemIsUserCheckable;
		else if (p->type()->hasEditor())
			f |= Qt::ItemIsEditable;
	}
	return f;
}


QVariant PropertyModel::headerData(int section, Qt::Orientation orientation, int role) const {
	if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
		return QVariant();
	return section == C_Name ? tr("Property") : tr("Value");
}


void PropertyModel::beginInsertChild(Property * parent, int row) {
	beginInsertRows(indexOf(parent), row, row);
}


void PropertyModel::endInsertChild() {
	endInsertRows();
}


void PropertyModel::beginRemoveChildren(Property * parent, int first, int last) {
	beginRemoveRows(indexOf(parent), first, last);
}


void PropertyModel::endRemoveChildren() {
	endRemoveRows();
}


void PropertyModel::propertyChanged(Property * property) {
	if (property != m_root.get())
		emit dataChanged(indexOf(property, C_Name), indexOf(property, C_Value));
}


void PropertyModel::subtreeChanged(Property * property) {
	propertyChanged(property);
	for (int row = 0; row < property->childCount(); ++row)
		subtreeChanged(property->child(row));
}

} // namespace QPB
