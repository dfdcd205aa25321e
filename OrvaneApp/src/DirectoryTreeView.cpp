#include "DirectoryTreeView.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QSignalBlocker>

#include <QtExt_ColorListWidget.h>

#include <OVP_DirectoryTreeModel.h>
#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>
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

	m_addAction = new QAction(tr("Add directory..."), this);
	m_addAction->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_O));
	// the shortcut works wherever the focus is in the window
	m_addAction->setShortcutContext(Qt::WindowShortcut);
	connect(m_addAction, &QAction::triggered, this, &DirectoryTreeView::onAddDirectory);
	m_removeAction = new QAction(tr("Remove directory"), this);
	connect(m_removeAction, &QAction::triggered, this, &DirectoryTreeView::onRemoveDirectory);
	m_colorAction = new QAction(tr("Set colour..."), this);
	connect(m_colorAction, &QAction::triggered, this, &DirectoryTreeView::onSetColor);
	m_useColorsAction = new QAction(tr("Use colours"), this);
	m_useColorsAction->setCheckable(true);
	m_useColorsAction->setChecked(OVP::Settings::instance().m_userColoring);
	connect(m_useColorsAction, &QAction::toggled, this, &DirectoryTreeView::onUseColors);
	QAction * separator = new QAction(this);
	separator->setSeparator(true);
	addActions({ m_addAction, m_removeAction, separator, m_colorAction, m_useColorsAction });

	m_colorList = new QtExt::ColorListWidget(this);
	m_colorList->setNoColorEntry(true);
	m_colorList->hide();
	connect(m_colorList, &QtExt::ColorListWidget::colorChosen, this, [this](const QColor & color) {
		if (!m_colorIndex.isValid())
			return;
		m_model->setColor(m_colorIndex, color);
		// a colour is chosen to be seen
		if (color.isValid())
			m_useColorsAction->setChecked(true);
	});
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
	const QModelIndex index = currentIndex().sibling(currentIndex().row(), 0);
	if (!index.isValid())
		return;
	m_colorIndex = index;
	m_colorList->setCurrentColor(index.data(OVP::DirectoryTreeModel::ColorRole).value<QColor>());
	scrollTo(index);
	m_colorList->showPopup(viewport()->mapToGlobal(visualRect(index).bottomLeft()));
}


void DirectoryTreeView::onUseColors(bool use) {
	OVP::Settings::instance().m_userColoring = use;
	m_model->refresh();
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
	{
		// the setting may have been changed elsewhere
		const QSignalBlocker blocker(m_useColorsAction);
		m_useColorsAction->setChecked(OVP::Settings::instance().m_userColoring);
	}
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


void DirectoryTreeView::paintEvent(QPaintEvent * event) {
	QTreeView::paintEvent(event);
	if (model()->rowCount() > 0)
		return;
	QPainter painter(viewport());
	painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
	const QRect area = viewport()->rect().adjusted(12, 12, -12, -12);
	painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap,
					 tr("Drop a folder of result files here, or choose \"%1\" in the Session menu or the "
						"context menu.").arg(m_addAction->text().remove(QLatin1Char('&')).remove(QStringLiteral("..."))));
}
