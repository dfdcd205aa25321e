#include "ChartTableView.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>

#include <ZEB_Exception.h>

#include <OVP_ChartDataTableModel.h>
#include <OVP_ChartDataText.h>
#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>
#include <OVP_UserInteraction.h>

ChartTableView::ChartTableView(QWidget * parent) :
	QTableView(parent),
	m_model(new OVP::ChartDataTableModel(this))
{
	m_model->setDecimalPlaces(OVP::Settings::instance().m_decimalPlaces);
	setModel(m_model);
	setSelectionMode(QAbstractItemView::ExtendedSelection);
	setEditTriggers(QAbstractItemView::NoEditTriggers);
	horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
	horizontalHeader()->setTextElideMode(Qt::ElideRight);
	// new columns fit their headers and the first rows; later updates keep the user's widths
	connect(m_model, &QAbstractItemModel::modelReset, this, &ChartTableView::fitColumns);
	verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
	verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
}


void ChartTableView::fitColumns() {
	// each fit lays out the whole header again: a matrix of thousands of columns fits only its first ones
	const int count = qMin(m_model->columnCount(), MAX_FITTED_COLUMNS);
	// long headers are cut (their tool tips show them whole), so that the numbers stay in sight
	const int widest = MAX_FITTED_CHARACTERS*fontMetrics().averageCharWidth();
	for (int c = 0; c < count; ++c) {
		resizeColumnToContents(c);
		if (columnWidth(c) > widest)
			setColumnWidth(c, widest);
	}
}


void ChartTableView::setChartModel(SCI::AbstractChartModel * chartModel) {
	m_model->setChartModel(chartModel);
}


void ChartTableView::copySelection() {
	const OVP::ChartDataText::Format format = OVP::ChartDataText::clipboardFormat(OVP::Settings::instance());
	QApplication::clipboard()->setText(m_model->selectionText(selectionModel()->selectedIndexes(), format));
}


void ChartTableView::copyAll() {
	const OVP::ChartDataText::Format format = OVP::ChartDataText::clipboardFormat(OVP::Settings::instance());
	QApplication::clipboard()->setText(OVP::ChartDataText::text(m_model->table(), format));
}


void ChartTableView::exportData() {
	OVP::UserInteraction & ui = OVP::ProjectHandler::instance().userInteraction();
	const QString defaultFile = OVP::ProjectHandler::lastUsedDirectory() + "/"
			+ (m_exportName.isEmpty() ? QString("data") : m_exportName) + ".csv";
	QString fileName = ui.saveFileName(this, tr("Export data"), defaultFile,
									   tr("CSV files (*.csv);;TSV files (*.tsv);;Text files (*.txt);;All files (*.*)"));
	if (fileName.isEmpty())
		return;
	if (QFileInfo(fileName).suffix().isEmpty())
		fileName += ".csv";
	try {
		OVP::ChartDataText::writeFile(m_model->table(), fileName,
									  OVP::ChartDataText::fileFormat(OVP::Settings::instance(), fileName));
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		ui.showCritical(this, tr("Export data"), OVP::exceptionText(ex));
	}
}


void ChartTableView::contextMenuEvent(QContextMenuEvent * event) {
	QMenu menu(this);
	menu.addAction(tr("Copy selection"), this, &ChartTableView::copySelection, QKeySequence::Copy)
			->setEnabled(selectionModel()->hasSelection());
	menu.addAction(tr("Copy all"), this, &ChartTableView::copyAll);
	menu.addAction(tr("Export data..."), this, &ChartTableView::exportData);
	menu.addSeparator();
	menu.addAction(tr("Show chart"), this, &ChartTableView::showChartRequested);
	menu.exec(event->globalPos());
}


void ChartTableView::keyPressEvent(QKeyEvent * event) {
	if (event->matches(QKeySequence::Copy)) {
		copySelection();
		event->accept();
		return;
	}
	QTableView::keyPressEvent(event);
}
