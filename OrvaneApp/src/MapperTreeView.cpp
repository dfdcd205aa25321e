#include "MapperTreeView.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

#include <ZEB_Exception.h>

#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_ProjectHandler.h>

namespace {

/*! The mapper model shown, null without session. */
OVP::MapperTreeModel * mapperModel(const QTreeView * view) {
	return qobject_cast<OVP::MapperTreeModel *>(view->model());
}

} // namespace


MapperTreeView::MapperTreeView(QWidget * parent) :
	QTreeView(parent)
{
	setSelectionMode(QAbstractItemView::ExtendedSelection);
	setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
	// charts are reordered by dragging them between each other
	setDragEnabled(true);
	setAcceptDrops(true);
	setDragDropMode(QAbstractItemView::InternalMove);
	setDefaultDropAction(Qt::MoveAction);
	setDropIndicatorShown(true);
	setUniformRowHeights(true);
	header()->setStretchLastSection(true);

	m_deleteAction = new QAction(tr("Delete"), this);
	connect(m_deleteAction, &QAction::triggered, this, &MapperTreeView::onDeleteSelected);
	m_duplicateAction = new QAction(tr("Duplicate"), this);
	connect(m_duplicateAction, &QAction::triggered, this, &MapperTreeView::onDuplicateCurrent);
	addActions({ m_deleteAction, m_duplicateAction });

	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	connect(&handler, &OVP::ProjectHandler::projectAboutToBeClosed, this, [this]() { setModel(nullptr); });
	connect(&handler, &OVP::ProjectHandler::projectChanged, this, &MapperTreeView::followSession);
	followSession();
}


void MapperTreeView::onDeleteSelected() {
	const QList<int> indices = selectedMapperIndices();
	if (!indices.isEmpty())
		OVP::ProjectHandler::instance().deleteMappers(this, indices);
}


void MapperTreeView::onDuplicateCurrent() {
	FUNCID(MapperTreeView::onDuplicateCurrent);
	const OVP::MapperTreeModel * model = mapperModel(this);
	const int mapperIndex = model == nullptr ? -1 : model->mapperIndex(currentIndex());
	if (mapperIndex == -1)
		return;
	try {
		OVP::ProjectHandler::instance().duplicateMapper(mapperIndex);
	}
	catch (ZEB::Exception & ex) {
		ZEB::Exception(ex, "The chart could not be duplicated.", FUNC_ID).reportAllAsErrors();
	}
}


void MapperTreeView::keyPressEvent(QKeyEvent * event) {
	if (event->key() == Qt::Key_Delete && state() != QAbstractItemView::EditingState) {
		onDeleteSelected();
		return;
	}
	QTreeView::keyPressEvent(event);
}


void MapperTreeView::contextMenuEvent(QContextMenuEvent * event) {
	m_deleteAction->setEnabled(!selectedMapperIndices().isEmpty());
	m_duplicateAction->setEnabled(currentIndex().isValid());
	QMenu::exec(actions(), event->globalPos(), nullptr, this);
}


void MapperTreeView::focusInEvent(QFocusEvent * event) {
	m_takingFocus = true;
	QTreeView::focusInEvent(event);
	m_takingFocus = false;
}


void MapperTreeView::currentChanged(const QModelIndex & current, const QModelIndex & previous) {
	QTreeView::currentChanged(current, previous);
	const OVP::MapperTreeModel * model = mapperModel(this);
	if (model == nullptr || !current.isValid() || m_takingFocus)
		return;
	// moving between the data sets of one chart keeps the chart
	const int mapperIndex = model->mapperIndex(current);
	if (!previous.isValid() || model->mapperIndex(previous) != mapperIndex)
		emit mapperSelected(mapperIndex);
}


void MapperTreeView::followSession() {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	setModel(handler.isValid() ? handler.project().mapperModel() : nullptr);
	if (model() != nullptr)
		header()->resizeSection(OVP::MapperTreeModel::ColumnName, NAME_COLUMN_WIDTH);
}


QList<int> MapperTreeView::selectedMapperIndices() const {
	QList<int> indices;
	const OVP::MapperTreeModel * model = mapperModel(this);
	if (model == nullptr)
		return indices;
	// data-set rows are parts of a chart, not charts to delete
	for (const QModelIndex & index : selectionModel()->selectedRows()) {
		if (!index.parent().isValid())
			indices.append(model->mapperIndex(index));
	}
	return indices;
}
