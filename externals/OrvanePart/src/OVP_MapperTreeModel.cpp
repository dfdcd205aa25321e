#include "OVP_MapperTreeModel.h"

#include <algorithm>

#include <QCoreApplication>
#include <QDataStream>
#include <QFileInfo>
#include <QMimeData>

#include <EM_CutType.h>
#include <EM_Extractor2DFromTwo2D.h>
#include <EM_ExtractorBase.h>
#include <EM_ManipulatorBase.h>
#include <EM_ModelTwo2DBase.h>

#include <Sci_AbstractCartesianChartModel.h>

#include <ZEB_Exception.h>

#include "OVP_Mapper.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

namespace {

/*! The extractor entry shown in child row row of a mapper (row < extractorCount()). */
const Mapper::ExtractorEntry & entryAt(const Mapper & mapper, int row) {
	return mapper.isSeriesChart() ? mapper.extractors2D()[static_cast<std::size_t>(row)] : mapper.extractor3D();
}


/*! The paths of the files an entry reads, in order. */
QStringList filePaths(const Mapper::ExtractorEntry & entry) {
	QStringList paths;
	for (const std::shared_ptr<DATAIO::DataIO> & d : entry.m_dataIOs)
		paths.append(QString::fromStdString(d->filename()));
	return paths;
}


/*! The cut type keyword with the selected index of every cut dimension. */
QString cutText(const EM::ExtractorBase & extractor) {
	static const char * const DIMENSION_NAMES[EM::NUM_CD] = { "x", "y", "z", "t" };
	QStringList indices;
	for (unsigned int d = 0; d < EM::NUM_CD; ++d) {
		if (!extractor.isCutDimension(d))
			continue;
		const unsigned int index = extractor.cutIndex(d);
		QString text;
		if (d != EM::CD_Time)
			// a space cut without selection reads the first cell
			text = QString::number(index == EM::ExtractorBase::LAST_INDEX ? 0u : index);
		else if (index == EM::ExtractorBase::LAST_INDEX)
			text = MapperTreeModel::tr("follow last time point");
		else if (extractor.isTimeIndexLocked())
			text = MapperTreeModel::tr("%1 (locked)").arg(index);
		else
			text = QString::number(index);
		indices.append(QString("%1 = %2").arg(DIMENSION_NAMES[d], text));
	}
	const QString keyword = QString::fromLatin1(EM::CutTypes::keyword(extractor.cutType()));
	return indices.isEmpty() ? keyword : keyword + ": " + indices.join(", ");
}


/*! The manipulators in order, each as type keyword with its parameter in brackets. */
QString manipulatorsText(const EM::ExtractorBase & extractor) {
	QStringList parts;
	for (const std::unique_ptr<EM::ManipulatorBase> & m : extractor.manipulators()) {
		const QString parameter = QString::fromStdString(m->parameter());
		const QString type = QString::fromLatin1(m->typeKeyword());
		parts.append(parameter.isEmpty() ? type : QString("%1(%2)").arg(type, parameter));
	}
	return parts.join(", ");
}


/*! The model type keyword and its parameter text; empty for an extractor without model. */
QString modelText(const EM::ExtractorBase & extractor) {
	const EM::Extractor2DFromTwo2D * twoFiles = dynamic_cast<const EM::Extractor2DFromTwo2D *>(&extractor);
	if (twoFiles == nullptr)
		return QString();
	const QString parameter = QString::fromStdString(twoFiles->model().parameter());
	const QString type = QString::fromLatin1(twoFiles->model().typeKeyword());
	return parameter.isEmpty() ? type : QString("%1: %2").arg(type, parameter);
}


/*! The tool tip of a top-level row: the kind of chart and its number of data sets. */
QString mapperToolTip(const Mapper & mapper) {
	QString kind;
	switch (mapper.type()) {
		case Mapper::MT_2D :		kind = MapperTreeModel::tr("Line chart"); break;
		case Mapper::MT_3D :		kind = MapperTreeModel::tr("Colour grid"); break;
		case Mapper::MT_Vector :	kind = MapperTreeModel::tr("Vector field"); break;
		case Mapper::MT_Isopleth :	kind = MapperTreeModel::tr("Isopleth chart"); break;
		case Mapper::MT_WTA :		kind = MapperTreeModel::tr("WTA wood chart"); break;
		case Mapper::MT_Bar :		kind = MapperTreeModel::tr("Bar chart"); break;
		case Mapper::MT_Empty :		kind = MapperTreeModel::tr("Empty chart"); break;
	}
	const unsigned int count = mapper.extractorCount();
	return count == 1 ? MapperTreeModel::tr("%1 with 1 data set").arg(kind)
					  : MapperTreeModel::tr("%1 with %2 data sets").arg(kind).arg(count);
}


/*! The text of a child row (a data set of mapper) in a column. */
QVariant childText(const Mapper & mapper, int row, int column) {
	if (row >= static_cast<int>(mapper.extractorCount()))
		return QVariant();
	const Mapper::ExtractorEntry & entry = entryAt(mapper, row);
	switch (column) {
		case MapperTreeModel::ColumnName : {
			QStringList names;
			for (const QString & path : filePaths(entry))
				names.append(QFileInfo(path).fileName());
			return names.join(", ");
		}
		case MapperTreeModel::ColumnCut :			return cutText(*entry.m_extractor);
		case MapperTreeModel::ColumnManipulators :	return manipulatorsText(*entry.m_extractor);
		case MapperTreeModel::ColumnModel :			return modelText(*entry.m_extractor);
		default :					return QVariant();
	}
}

} // namespace


MapperTreeModel::MapperTreeModel(QObject * parent) :
	QAbstractItemModel(parent)
{
}


MapperTreeModel::~MapperTreeModel() = default;


QModelIndex MapperTreeModel::index(int row, int column, const QModelIndex & parent) const {
	if (row < 0 || column < 0 || column >= NUM_COLUMNS || row >= rowCount(parent))
		return QModelIndex();
	// top-level items carry no pointer, child items the mapper they belong to
	if (!parent.isValid())
		return createIndex(row, column, nullptr);
	return createIndex(row, column, mapper(parent.row()));
}


QModelIndex MapperTreeModel::parent(const QModelIndex & child) const {
	if (!child.isValid() || child.internalPointer() == nullptr)
		return QModelIndex();
	return createIndex(indexOf(static_cast<const Mapper *>(child.internalPointer())), 0, nullptr);
}


int MapperTreeModel::rowCount(const QModelIndex & parent) const {
	if (!parent.isValid())
		return mapperCount();
	if (parent.internalPointer() != nullptr || parent.column() != 0)
		return 0;
	return static_cast<int>(mapper(parent.row())->extractorCount());
}


int MapperTreeModel::columnCount(const QModelIndex &) const {
	return NUM_COLUMNS;
}


QVariant MapperTreeModel::data(const QModelIndex & index, int role) const {
	if (!index.isValid())
		return QVariant();
	const Mapper * parentMapper = static_cast<const Mapper *>(index.internalPointer());
	if (parentMapper != nullptr) {
		if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
			return QVariant();
		if (role == Qt::ToolTipRole && index.column() == ColumnName)
			return filePaths(entryAt(*parentMapper, index.row())).join("\n");
		return childText(*parentMapper, index.row(), index.column());
	}
	const Mapper * m = mapper(index.row());
	switch (role) {
		case Qt::DisplayRole :
		case Qt::EditRole :
			return index.column() == ColumnName ? QVariant(m->name()) : QVariant();
		case Qt::ToolTipRole :
			return mapperToolTip(*m);
		default :
			return QVariant();
	}
}


QVariant MapperTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
	if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
		return QVariant();
	switch (section) {
		case ColumnName :			return tr("Chart / data set");
		case ColumnCut :			return tr("Cut");
		case ColumnManipulators :	return tr("Manipulators");
		case ColumnModel :			return tr("Model");
		default :					return QVariant();
	}
}


bool MapperTreeModel::setData(const QModelIndex & index, const QVariant & value, int role) {
	if (role != Qt::EditRole || !index.isValid() || index.internalPointer() != nullptr || index.column() != ColumnName)
		return false;
	ProjectHandler * handler = sessionHandler();
	if (handler == nullptr)
		return false;
	try {
		handler->renameMapper(index.row(), value.toString());
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		return false;
	}
	return true;
}


Qt::ItemFlags MapperTreeModel::flags(const QModelIndex & index) const {
	if (!index.isValid())
		return Qt::ItemIsDropEnabled;
	if (index.internalPointer() != nullptr)
		return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
	Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
	if (index.column() == ColumnName)
		f |= Qt::ItemIsEditable;
	return f;
}


QStringList MapperTreeModel::mimeTypes() const {
	return { MIME_TYPE };
}


QMimeData * MapperTreeModel::mimeData(const QModelIndexList & indexes) const {
	QList<int> rows;
	for (const QModelIndex & i : indexes)
		if (i.isValid() && i.internalPointer() == nullptr && !rows.contains(i.row()))
			rows.append(i.row());
	if (rows.isEmpty())
		return nullptr;
	std::sort(rows.begin(), rows.end());
	QByteArray encoded;
	QDataStream out(&encoded, QIODevice::WriteOnly);
	out << static_cast<qint64>(QCoreApplication::applicationPid()) << static_cast<quint64>(reinterpret_cast<quintptr>(this))
		<< rows;
	QMimeData * data = new QMimeData;
	data->setData(MIME_TYPE, encoded);
	return data;
}


Qt::DropActions MapperTreeModel::supportedDropActions() const {
	return Qt::MoveAction;
}


bool MapperTreeModel::canDropMimeData(const QMimeData * data, Qt::DropAction action, int row, int,
									  const QModelIndex & parent) const
{
	return action == Qt::MoveAction && !parent.isValid() && row >= -1 && row <= mapperCount()
			&& !draggedMapperIndices(data).isEmpty();
}


bool MapperTreeModel::dropMimeData(const QMimeData * data, Qt::DropAction action, int row, int column,
								   const QModelIndex & parent)
{
	ProjectHandler * handler = sessionHandler();
	if (handler == nullptr || !canDropMimeData(data, action, row, column, parent))
		return false;
	handler->moveMappers(draggedMapperIndices(data), row == -1 ? mapperCount() : row);
	return true;
}


int MapperTreeModel::mapperIndex(const QModelIndex & index) const {
	if (!index.isValid())
		return -1;
	return index.internalPointer() == nullptr ? index.row() : indexOf(static_cast<const Mapper *>(index.internalPointer()));
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
	insertMapper(mapperCount(), std::move(mapper));
}


void MapperTreeModel::insertMapper(int index, std::unique_ptr<Mapper> mapper) {
	Q_ASSERT(index >= 0 && index <= mapperCount());
	Mapper * m = mapper.get();
	beginInsertRows(QModelIndex(), index, index);
	m_mappers.insert(m_mappers.begin() + index, std::move(mapper));
	endInsertRows();
	followSeries(m);
}


void MapperTreeModel::removeMappers(int first, int count) {
	Q_ASSERT(first >= 0 && count > 0 && first + count <= mapperCount());
	beginRemoveRows(QModelIndex(), first, first + count - 1);
	m_mappers.erase(m_mappers.begin() + first, m_mappers.begin() + first + count);
	endRemoveRows();
}


void MapperTreeModel::reorderMappers(const std::vector<int> & order) {
	Q_ASSERT(order.size() == m_mappers.size());
	emit layoutAboutToBeChanged(QList<QPersistentModelIndex>(), QAbstractItemModel::VerticalSortHint);
	std::vector<int> newRow(order.size());
	std::vector<std::unique_ptr<Mapper> > reordered;
	for (std::size_t i = 0; i < order.size(); ++i) {
		newRow[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
		reordered.push_back(std::move(m_mappers[static_cast<std::size_t>(order[i])]));
	}
	m_mappers.swap(reordered);
	// child items keep row, column and mapper; only the top-level items move
	QModelIndexList from;
	QModelIndexList to;
	for (const QModelIndex & i : persistentIndexList()) {
		if (i.internalPointer() != nullptr)
			continue;
		from.append(i);
		to.append(createIndex(newRow[static_cast<std::size_t>(i.row())], i.column(), nullptr));
	}
	changePersistentIndexList(from, to);
	emit layoutChanged(QList<QPersistentModelIndex>(), QAbstractItemModel::VerticalSortHint);
}


void MapperTreeModel::mapperChanged(int index) {
	emit dataChanged(createIndex(index, 0, nullptr), createIndex(index, NUM_COLUMNS - 1, nullptr));
}


ProjectHandler * MapperTreeModel::sessionHandler() const {
	ProjectHandler & handler = ProjectHandler::instance();
	return handler.isValid() && handler.project().mapperModel() == this ? &handler : nullptr;
}


QList<int> MapperTreeModel::draggedMapperIndices(const QMimeData * data) const {
	if (data == nullptr || !data->hasFormat(MIME_TYPE))
		return QList<int>();
	QDataStream in(data->data(MIME_TYPE));
	qint64 pid = 0;
	quint64 model = 0;
	QList<int> rows;
	in >> pid >> model >> rows;
	if (in.status() != QDataStream::Ok || !in.atEnd() || pid != QCoreApplication::applicationPid()
		|| model != static_cast<quint64>(reinterpret_cast<quintptr>(this)))
		return QList<int>();
	for (int r : rows)
		if (r < 0 || r >= mapperCount())
			return QList<int>();
	return rows;
}


void MapperTreeModel::followSeries(Mapper * mapper) {
	SCI::AbstractChartModel * chart = mapper->chartModel();
	if (chart == nullptr)
		return;
	// the chart model and its connections go with the mapper, so mapper is in the list whenever
	// one of these is called
	connect(chart, &SCI::AbstractChartModel::seriesAboutToBeInserted, this, [this, mapper](int start, int end) {
		beginInsertRows(index(indexOf(mapper), 0), start, end);
	});
	connect(chart, &SCI::AbstractChartModel::seriesInserted, this, [this]() { endInsertRows(); });
	connect(chart, &SCI::AbstractChartModel::seriesAboutToBeRemoved, this, [this, mapper](int start, int end) {
		beginRemoveRows(index(indexOf(mapper), 0), start, end);
	});
	connect(chart, &SCI::AbstractChartModel::seriesRemoved, this, [this]() { endRemoveRows(); });
	connect(chart, &SCI::AbstractChartModel::seriesChanged, this, [this, mapper](int start, int end) {
		const QModelIndex parent = index(indexOf(mapper), 0);
		start = std::max(start, 0);
		end = std::min(end, rowCount(parent) - 1);
		if (start <= end)
			emit dataChanged(index(start, 0, parent), index(end, NUM_COLUMNS - 1, parent));
	});
}

} // namespace OVP
