#include "DataManagerPanel.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

#include <OVP_DataManagerFilterModel.h>
#include <OVP_DataManagerTableModel.h>

DataManagerPanel::DataManagerPanel(OVP::DataManagerTableModel * model, QWidget * parent) :
	QWidget(parent),
	m_filterModel(new OVP::DataManagerFilterModel(this))
{
	m_filterModel->setSourceModel(model);

	m_filterEdit = new QLineEdit(this);
	m_filterEdit->setPlaceholderText(tr("Filter by file name or quantity"));
	m_filterEdit->setClearButtonEnabled(true);
	connect(m_filterEdit, &QLineEdit::textChanged, m_filterModel, &OVP::DataManagerFilterModel::setFilterText);

	m_tableView = new QTableView(this);
	m_tableView->setModel(m_filterModel);
	m_tableView->setSelectionBehavior(QAbstractItemView::SelectRows);
	m_tableView->setSelectionMode(QAbstractItemView::ExtendedSelection);
	m_tableView->setDragEnabled(true);
	m_tableView->setDragDropMode(QAbstractItemView::DragOnly);
	m_tableView->setWordWrap(false);
	m_tableView->setTextElideMode(Qt::ElideMiddle);
	m_tableView->verticalHeader()->setMinimumSectionSize(0);
	m_tableView->verticalHeader()->setDefaultSectionSize(m_tableView->fontMetrics().lineSpacing() + 2*ROW_MARGIN);
	m_tableView->horizontalHeader()->setStretchLastSection(true);
	// no sort column until the user clicks a header: the files keep their insertion order
	m_tableView->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
	m_tableView->setSortingEnabled(true);
	connect(model, &OVP::DataManagerTableModel::headersRead, this, &DataManagerPanel::fitColumns);

	QVBoxLayout * tableLayout = new QVBoxLayout;
	tableLayout->setContentsMargins(0, 0, 0, 0);
	tableLayout->addWidget(m_filterEdit);
	tableLayout->addWidget(m_tableView);
	// the option widgets of the selected data sets get their place to the right of the table
	QHBoxLayout * layout = new QHBoxLayout(this);
	layout->setContentsMargins(0, 0, 0, 0);
	layout->addLayout(tableLayout, 1);
}


void DataManagerPanel::fitColumns() {
	m_tableView->resizeColumnsToContents();
	QHeaderView * header = m_tableView->horizontalHeader();
	for (int column = 0; column < header->count(); ++column)
		header->resizeSection(column, std::min(header->sectionSize(column), MAX_COLUMN_WIDTH));
}
