#include "OVP_MapperTreeModel.h"

#include "OVP_Mapper.h"

namespace OVP {

MapperTreeModel::MapperTreeModel(QObject * parent) :
	QAbstractListModel(parent)
{
}


MapperTreeModel::~MapperTreeModel() = default;


int MapperTreeModel::rowCount(const QModelIndex & parent) const {
	return parent.isValid() ? 0 : mapperCount();
}


QVariant MapperTreeModel::data(const QModelIndex & index, int role) const {
	if (!index.isValid() || index.row() >= mapperCount())
		return QVariant();
	const Mapper * m = m_mappers[static_cast<std::size_t>(index.row())].get();
	switch (role) {
		case Qt::DisplayRole :
		case Qt::EditRole :
			return m->name();
		case Qt::ToolTipRole :
			return tr("%1 (%2 data sets)").arg(m->name()).arg(m->extractorCount());
		default :
			return QVariant();
	}
}


Mapper * MapperTreeModel::mapper(int index) const {
	Q_ASSERT(index >= 0 && index < mapperCount());
	return m_mappers[static_cast<std::size_t>(index)].get();
}


int MapperTreeModel::indexOf(const Mapper * mapper) const {
	for (std::size_t i = 0; i < m_mappers.size(); ++i)
		if (m_mappers[i].get() == mapper)
			return static_cast<int>(i);
	return -1;
}


void MapperTreeModel::appendMapper(std::unique_ptr<Mapper> mapper) {
	const int row = mapperCount();
	beginInsertRows(QModelIndex(), row, row);
	m_mappers.push_back(std::move(mapper));
	endInsertRows();
}


void MapperTreeModel::removeMappers(int first, int count) {
	Q_ASSERT(first >= 0 && count > 0 && first + count <= mapperCount());
	beginRemoveRows(QModelIndex(), first, first + count - 1);
	m_mappers.erase(m_mappers.begin() + first, m_mappers.begin() + first + count);
	endRemoveRows();
}


void MapperTreeModel::mapperChanged(int index) {
	const QModelIndex i = createIndex(index, 0);
	emit dataChanged(i, i);
}

} // namespace OVP
