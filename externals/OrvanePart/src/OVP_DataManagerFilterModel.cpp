#include "OVP_DataManagerFilterModel.h"

#include "OVP_DataManagerTableModel.h"

namespace OVP {

DataManagerFilterModel::DataManagerFilterModel(QObject * parent) :
	QSortFilterProxyModel(parent)
{
	setSortRole(Qt::UserRole);
	setSortCaseSensitivity(Qt::CaseInsensitive);
}


void DataManagerFilterModel::setFilterText(const QString & text) {
	if (text == m_filterText)
		return;
	m_filterText = text;
	invalidateFilter();
}


bool DataManagerFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex & sourceParent) const {
	if (m_filterText.isEmpty())
		return true;
	const QAbstractItemModel * source = sourceModel();
	const QModelIndex name = source->index(sourceRow, DataManagerTableModel::ColName, sourceParent);
	const QModelIndex quantity = source->index(sourceRow, DataManagerTableModel::ColQuantity, sourceParent);
	return name.data().toString().contains(m_filterText, Qt::CaseInsensitive)
		|| quantity.data().toString().contains(m_filterText, Qt::CaseInsensitive)
		|| quantity.data(Qt::ToolTipRole).toString().contains(m_filterText, Qt::CaseInsensitive);
}

} // namespace OVP
