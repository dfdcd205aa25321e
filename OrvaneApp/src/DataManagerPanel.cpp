#include "DataManagerPanel.h"

#include <algorithm>

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QScrollArea>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <ZEB_Exception.h>

#include <OVP_DataManagerFilterModel.h>
#include <OVP_DataManagerTableModel.h>
#include <OVP_DataSetMimeData.h>
#include <OVP_DataSetOptions.h>
#include <OVP_DataSetOptionsWidget.h>
#include <OVP_FieldOutputFile.h>
#include <OVP_ProjectHandler.h>
#include <OVP_UserInteraction.h>

#include "ConvertDialog.h"

DataManagerPanel::DataManagerPanel(OVP::DataManagerTableModel * model, QWidget * parent) :
	QWidget(parent),
	m_model(model),
	m_filterModel(new OVP::DataManagerFilterModel(this)),
	m_options(new OVP::DataSetOptions(OVP::ProjectHandler::instance().dataManager(), this))
{
	m_filterModel->setSourceModel(model);

	QWidget * tablePart = new QWidget;
	m_filterEdit = new QLineEdit(tablePart);
	m_filterEdit->setPlaceholderText(tr("Filter by file name or quantity"));
	m_filterEdit->setClearButtonEnabled(true);
	connect(m_filterEdit, &QLineEdit::textChanged, m_filterModel, &OVP::DataManagerFilterModel::setFilterText);

	m_tableView = new QTableView(tablePart);
	m_tableView->setModel(m_filterModel);
	m_tableView->setSelectionBehavior(QAbstractItemView::SelectRows);
	m_tableView->setSelectionMode(QAbstractItemView::ExtendedSelection);
	m_tableView->setDragEnabled(true);
	m_tableView->setDragDropMode(QAbstractItemView::DragOnly);
	// Tab leaves the table for the options instead of moving from cell to cell
	m_tableView->setTabKeyNavigation(false);
	m_tableView->setWordWrap(false);
	m_tableView->setTextElideMode(Qt::ElideMiddle);
	m_tableView->verticalHeader()->setMinimumSectionSize(0);
	m_tableView->verticalHeader()->setDefaultSectionSize(m_tableView->fontMetrics().lineSpacing() + 2*ROW_MARGIN);
	m_tableView->horizontalHeader()->setStretchLastSection(true);
	// no sort column until the user clicks a header: the files keep their insertion order
	m_tableView->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
	m_tableView->setSortingEnabled(true);
	m_tableView->installEventFilter(this);
	m_tableView->setContextMenuPolicy(Qt::CustomContextMenu);
	connect(m_tableView, &QTableView::customContextMenuRequested, this, &DataManagerPanel::showContextMenu);
	m_filterEdit->installEventFilter(this);
	connect(model, &OVP::DataManagerTableModel::headersRead, this, &DataManagerPanel::fitColumns);
	connect(model, &OVP::DataManagerTableModel::headersRead, this, &DataManagerPanel::selectWaitingFile);
	connect(model, &QAbstractItemModel::rowsInserted, this, &DataManagerPanel::selectWaitingFile);
	connect(m_tableView->selectionModel(), &QItemSelectionModel::selectionChanged,
			this, &DataManagerPanel::onSelectionChanged);

	QVBoxLayout * tableLayout = new QVBoxLayout(tablePart);
	tableLayout->setContentsMargins(0, 0, 0, 0);
	tableLayout->addWidget(m_filterEdit);
	tableLayout->addWidget(m_tableView);

	m_optionsWidget = new OVP::DataSetOptionsWidget(*m_options);
	connect(m_optionsWidget, &OVP::DataSetOptionsWidget::createChartRequested,
			this, &DataManagerPanel::createChartRequested);
	connect(m_optionsWidget, &OVP::DataSetOptionsWidget::addToChartRequested,
			this, &DataManagerPanel::addToChartRequested);
	// after the option panel has built its fields
	connect(m_options, &OVP::DataSetOptions::structureChanged, this, [this]() { fitOptions(true); });
	// the fields of a model with many parameters stay reachable in a low panel
	QScrollArea * optionsArea = new QScrollArea;
	optionsArea->setWidget(m_optionsWidget);
	optionsArea->setWidgetResizable(true);
	optionsArea->setFrameShape(QFrame::NoFrame);
	// Tab goes from the table straight to the first option
	optionsArea->setFocusPolicy(Qt::NoFocus);

	m_splitter = new QSplitter(Qt::Vertical, this);
	m_splitter->setChildrenCollapsible(false);
	m_splitter->addWidget(tablePart);
	m_splitter->addWidget(optionsArea);
	m_splitter->setStretchFactor(0, 2);
	m_splitter->setStretchFactor(1, 1);
	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->setContentsMargins(0, 0, 0, 0);
	layout->addWidget(m_splitter);
}


DataManagerPanel::~DataManagerPanel() = default;


void DataManagerPanel::selectFile(const QString & path) {
	m_fileToSelect = path;
	selectWaitingFile();
}


bool DataManagerPanel::eventFilter(QObject * watched, QEvent * event) {
	// reached by keyboard, the table selects a row at once, so that its options show
	if (watched == m_tableView && event->type() == QEvent::FocusIn
		&& static_cast<QFocusEvent *>(event)->reason() != Qt::MouseFocusReason
		&& !m_tableView->selectionModel()->hasSelection() && m_filterModel->rowCount() > 0)
	{
		const QModelIndex current = m_tableView->currentIndex();
		m_tableView->selectionModel()->setCurrentIndex(current.isValid() ? current : m_filterModel->index(0, 0),
				QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
	}
	// Down in the filter line goes on to the files it leaves
	if (watched == m_filterEdit && event->type() == QEvent::KeyPress
		&& static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down)
	{
		m_tableView->setFocus(Qt::TabFocusReason);
		return true;
	}
	if (watched == m_tableView && event->type() == QEvent::KeyPress) {
		const int key = static_cast<QKeyEvent *>(event)->key();
		if ((key == Qt::Key_Return || key == Qt::Key_Enter) && m_options->isComplete()) {
			emit createChartRequested();
			return true;
		}
	}
	return QWidget::eventFilter(watched, event);
}


void DataManagerPanel::resizeEvent(QResizeEvent * event) {
	QWidget::resizeEvent(event);
	const Qt::Orientation orientation = width() < WIDE_LAYOUT_WIDTH ? Qt::Vertical : Qt::Horizontal;
	if (orientation == m_splitter->orientation())
		return;
	m_splitter->setOrientation(orientation);
	fitOptions(false);
}


void DataManagerPanel::fitOptions(bool keepLarger) {
	const bool horizontal = m_splitter->orientation() == Qt::Horizontal;
	const QSize wanted = m_optionsWidget->sizeHint();
	const int total = horizontal ? width() : height();
	int options = horizontal ? wanted.width() : wanted.height();
	if (keepLarger)
		options = std::max(options, m_splitter->sizes().value(1));
	options = std::min(options, total/2);
	m_splitter->setSizes({ total - options, options });
}


void DataManagerPanel::fitColumns() {
	m_tableView->resizeColumnsToContents();
	QHeaderView * header = m_tableView->horizontalHeader();
	for (int column = 0; column < header->count(); ++column)
		header->resizeSection(column, std::min(header->sectionSize(column), MAX_COLUMN_WIDTH));
}


void DataManagerPanel::onSelectionChanged() {
	const QModelIndexList selected = m_tableView->selectionModel()->selectedRows();
	QModelIndexList rows;
	for (const QModelIndex & index : selected)
		rows.append(m_filterModel->mapToSource(index));
	// a file that cannot be opened makes the options show its messages; nothing else changes
	m_options->setSelection(OVP::DataSetMimeData::mapperDataSets(m_model->dataSets(rows)));
}


void DataManagerPanel::selectWaitingFile() {
	if (m_fileToSelect.isEmpty())
		return;
	const int row = m_model->rowOfFile(m_fileToSelect);
	if (row < 0) {
		// its header is still to be read, or it failed its check and the log tells why
		if (!m_model->isReadingHeaders())
			m_fileToSelect.clear();
		return;
	}
	m_fileToSelect.clear();
	QModelIndex index = m_filterModel->mapFromSource(m_model->index(row, 0));
	if (!index.isValid()) {
		// hidden by the filter text
		m_filterEdit->clear();
		index = m_filterModel->mapFromSource(m_model->index(row, 0));
	}
	m_tableView->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
	m_tableView->scrollTo(index);
}


void DataManagerPanel::showContextMenu(const QPoint & position) {
	const QModelIndex index = m_tableView->indexAt(position);
	if (!index.isValid())
		return;
	const OVP::DataCollection & collection = m_model->collection(m_filterModel->mapToSource(index).row());
	const bool grid = collection.m_dataFormat == DATAIO::DataIO::DF_3D || collection.m_dataFormat == DATAIO::DataIO::DF_4D
					  || collection.m_dataFormat == DATAIO::DataIO::DF_5D;
	if (!grid)
		return;
	const QString path = collection.m_path;
	QMenu menu(this);
	connect(menu.addAction(tr("Convert to Tecplot...")), &QAction::triggered, this,
			[this, path]() { openConvertDialog(path, ConvertDialog::M_Tecplot); });
	connect(menu.addAction(tr("Write slice...")), &QAction::triggered, this,
			[this, path]() { openConvertDialog(path, ConvertDialog::M_Slice); });
	menu.exec(m_tableView->viewport()->mapToGlobal(position));
}


void DataManagerPanel::openConvertDialog(const QString & path, int mode) {
	try {
		ConvertDialog dialog(static_cast<ConvertDialog::Mode>(mode), std::make_unique<OVP::FieldOutputFile>(path), this);
		dialog.exec();
	}
	catch (ZEB::Exception & ex) {
		QMessageBox::critical(this, tr("Convert"), OVP::exceptionText(ex));
	}
}
