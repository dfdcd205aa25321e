#include "DirectoryTreeView.h"

#include <QAction>
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QMenu>

#include <OVP_DirectoryTreeModel.h>
#include <OVP_ProjectHandler.h>
#include <OVP_UserInteraction.h>

DirectoryTreeView::DirectoryTreeView(OVP::DirectoryTreeModel * model, QWidget * parent) :
	QTreeView(parent),
	m_model(model)
{
	setModel(model);
	setHeaderHidden(true);
	setUniformRowHeights(true);
	setSelectionMode(QAbstractItemView::SingleSelection);
	// folders dropped from a file manager are added by the model
	setAcceptDrops(true);
	setDragDropMode(QAbstractItemView::DropOnly);
	setDropIndicatorShown(true);
	setDefaultDropAction(Qt::CopyAction);

	connect(this, &QTreeView::expanded, this, [this](const QModelIndex & index) { m_model->setExpanded(index, true); });
	connect(this, &QTreeView::collapsed, this, [this](const QModelIndex & index) { m_model->setExpanded(index, false); });
	connect(model, &QAbstractItemModel::modelReset, this, [this]() { restoreExpansion(QModelIndex()); });

	QAction * add = new QAction(tr("Add directory..."), this);
	connect(add, &QAction::triggered, this, &DirectoryTreeView::onAddDirectory);
	m_removeAction = new QAction(tr("Remove directory"), this);
	connect(m_removeAction, &QAction::triggered, this, &DirectoryTreeView::onRemoveDirectory);
	m_colorAction = new QAction(tr("Set colour..."), this);
	connect(m_colorAction, &QAction::triggered, this, &DirectoryTreeView::onSetColor);
	addActions({ add, m_removeAction, m_colorAction });
}


void DirectoryTreeView::onAddDirectory() {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (!handler.isValid())
		return;
	const QString start = m_model->absolutePath(currentIndex()).isEmpty()
			? OVP::ProjectHandler::lastUsedDirectory() : m_model->absolutePath(currentIndex());
	const QString path = handler.userInteraction().existingDirectory(this, tr("Select directory with result files"), start);
	if (!path.isEmpty())
		m_model->addDirectory(path);
}


void DirectoryTreeView::onRemoveDirectory() {
	const QModelIndex top = currentTopLevel();
	if (!top.isValid())
		return;
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (handler.userInteraction().askConfirmation(this, tr("Remove directory"),
			tr("Remove the directory '%1' from the session?").arg(m_model->absolutePath(top))))
		m_model->removeDirectories(top.row(), 1);
}


void DirectoryTreeView::onSetColor() {
	const QModelIndex index = currentIndex();
	if (!index.isValid())
		return;
	const QColor color = QColorDialog::getColor(index.data(OVP::DirectoryTreeModel::ColorRole).value<QColor>(), this,
		tr("Colour of '%1'").arg(index.data().toString()));
	if (color.isValid())
		m_model->setColor(index, color);
}


void DirectoryTreeView::keyPressEvent(QKeyEvent * event) {
	if (event->key() == Qt::Key_Delete && currentTopLevel().isValid()) {
		onRemoveDirectory();
		return;
	}
	// Space reaches the item delegate, which toggles the check mark
	QTreeView::keyPressEvent(event);
}


void DirectoryTreeView::contextMenuEvent(QContextMenuEvent * event) {
	m_removeAction->setEnabled(currentTopLevel().isValid());
	m_colorAction->setEnabled(currentIndex().isValid());
	QMenu::exec(actions(), event->globalPos(), nullptr, this);
}


void DirectoryTreeView::restoreExpansion(const QModelIndex & parent) {
	if (m_model->canFetchMore(parent))
		m_model->fetchMore(parent);
	for (int row = 0; row < m_model->rowCount(parent); ++row) {
		const QModelIndex child = m_model->index(row, 0, parent);
		if (m_model->isExpanded(child)) {
			expand(child);
			restoreExpansion(child);
		}
	}
}


QModelIndex DirectoryTreeView::currentTopLevel() const {
	const QModelIndex index = currentIndex();
	return index.isValid() && !index.parent().isValid() ? index.sibling(index.row(), 0) : QModelIndex();
}
