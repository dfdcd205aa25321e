#include "OVP_ChartDataTableModel.h"

#include <cmath>
#include <set>

#include <QLocale>

#include <Sci_AbstractBarSeriesModel.h>
#include <Sci_AbstractCartesianChartModel.h>
#include <Sci_AbstractLineSeriesModel.h>

namespace OVP {

ChartDataTableModel::ChartDataTableModel(QObject * parent) :
	QAbstractTableModel(parent)
{
}


void ChartDataTableModel::setChartModel(SCI::AbstractChartModel * chartModel) {
	if (!m_chartModel.isNull())
		m_chartModel->disconnect(this);
	m_chartModel = chartModel;
	m_inBatch = false;
	if (chartModel != nullptr) {
		typedef SCI::AbstractChartModel M;
		connect(chartModel, &M::seriesChanged, this, &ChartDataTableModel::onDataChanged);
		connect(chartModel, &M::seriesInserted, this, &ChartDataTableModel::onDataChanged);
		connect(chartModel, &M::seriesRemoved, this, &ChartDataTableModel::onDataChanged);
		connect(chartModel, &M::modelReset, this, &ChartDataTableModel::onDataChanged);
		connect(chartModel, &M::axisChanged, this, &ChartDataTableModel::onAxisChanged);
		connect(chartModel, &M::seriesViewChanged, this, &ChartDataTableModel::onSeriesViewChanged);
		connect(chartModel, &M::modelAboutToBeChanged, this, &ChartDataTableModel::onBatchStarted);
		connect(chartModel, &M::modelChanged, this, &ChartDataTableModel::onBatchEnded);
		// a deleted chart model leaves an empty table
		connect(chartModel, &QObject::destroyed, this, &ChartDataTableModel::refresh);
	}
	beginResetModel();
	m_table = chartModel == nullptr ? ChartDataTable() : ChartDataTable::fromChart(*chartModel);
	endResetModel();
}


void ChartDataTableModel::setDecimalPlaces(int decimalPlaces) {
	if (decimalPlaces == m_decimalPlaces)
		return;
	m_decimalPlaces = decimalPlaces;
	if (rowCount() > 0 && columnCount() > 0)
		emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), { Qt::DisplayRole });
}


int ChartDataTableModel::rowCount(const QModelIndex & parent) const {
	return parent.isValid() ? 0 : m_table.rowCount();
}


int ChartDataTableModel::columnCount(const QModelIndex & parent) const {
	return parent.isValid() ? 0 : m_table.columnCount();
}


QVariant ChartDataTableModel::data(const QModelIndex & index, int role) const {
	if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount())
		return QVariant();
	const QString text = m_table.text(index.row(), index.column());
	const double value = m_table.value(index.row(), index.column());
	switch (role) {
		case Qt::DisplayRole :
			return text.isEmpty() ? displayNumber(value, m_decimalPlaces) : text;
		case Qt::EditRole :
			return text.isEmpty() ? QVariant(value) : QVariant(text);
		case ValueRole :
			return value;
		case Qt::TextAlignmentRole :
			return text.isEmpty() ? int(Qt::AlignRight | Qt::AlignVCenter) : int(Qt::AlignLeft | Qt::AlignVCenter);
		default :
			return QVariant();
	}
}


QVariant ChartDataTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
	if (role != Qt::DisplayRole && !(role == Qt::ToolTipRole && orientation == Qt::Horizontal))
		return QVariant();
	if (orientation == Qt::Vertical)
		return section + 1;
	return section < columnCount() ? m_table.header(section) : QVariant();
}


QString ChartDataTableModel::selectionText(const QModelIndexList & cells, const ChartDataText::Format & format) const {
	std::set<int> rows;
	std::set<int> columns;
	for (const QModelIndex & cell : cells) {
		if (cell.isValid() && cell.model() == this) {
			rows.insert(cell.row());
			columns.insert(cell.column());
		}
	}
	return ChartDataText::text(m_table, QList<int>(rows.begin(), rows.end()), QList<int>(columns.begin(), columns.end()),
							   format);
}


QString ChartDataTableModel::displayNumber(double value, int decimalPlaces) {
	if (std::isnan(value))
		return QString();
	const double magnitude = std::fabs(value);
	QLocale locale;
	locale.setNumberOptions(QLocale::OmitGroupSeparator);
	if (value != 0 && (magnitude < std::pow(10.0, -decimalPlaces) || magnitude >= 1e15))
		return locale.toString(value, 'e', decimalPlaces);
	return locale.toString(value, 'f', decimalPlaces);
}


void ChartDataTableModel::refresh() {
	ChartDataTable table = m_chartModel.isNull() ? ChartDataTable() : ChartDataTable::fromChart(*m_chartModel);
	if (table.columnCount() != m_table.columnCount()) {
		beginResetModel();
		m_table = std::move(table);
		endResetModel();
		return;
	}
	const int oldRows = m_table.rowCount();
	const int newRows = table.rowCount();
	if (newRows > oldRows) {
		beginInsertRows(QModelIndex(), oldRows, newRows - 1);
		m_table = std::move(table);
		endInsertRows();
	}
	else if (newRows < oldRows) {
		beginRemoveRows(QModelIndex(), newRows, oldRows - 1);
		m_table = std::move(table);
		endRemoveRows();
	}
	else {
		m_table = std::move(table);
	}
	if (newRows > 0 && columnCount() > 0)
		emit dataChanged(index(0, 0), index(newRows - 1, columnCount() - 1));
	if (columnCount() > 0)
		emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}


void ChartDataTableModel::onDataChanged() {
	if (!m_inBatch)
		refresh();
}


void ChartDataTableModel::onAxisChanged(int /*axisPosition*/, int role) {
	typedef SCI::AbstractCartesianChartModel CM;
	// what names the columns, their units and date texts
	if (role == CM::AxisTitle || role == CM::AxisTitleText || role == CM::AxisUnit || role == CM::AxisDateTimeEnabled
		|| role == CM::AxisDateTimeZero || role == CM::AxisDateTimeSpec)
	{
		onDataChanged();
	}
}


void ChartDataTableModel::onSeriesViewChanged(int /*start*/, int /*end*/, int role) {
	// the titles of line and bar series name their columns; grids name theirs by the axes
	const bool lineOrBars = qobject_cast<SCI::AbstractLineSeriesModel *>(m_chartModel.data()) != nullptr
			|| qobject_cast<SCI::AbstractBarSeriesModel *>(m_chartModel.data()) != nullptr;
	if (lineOrBars && (role == SCI::AbstractLineSeriesModel::SeriesTitleText || role == SCI::AbstractLineSeriesModel::SeriesTitle))
		onDataChanged();
}


void ChartDataTableModel::onBatchEnded() {
	m_inBatch = false;
	refresh();
}

} // namespace OVP
