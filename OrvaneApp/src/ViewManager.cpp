#include "ViewManager.h"

#include <QApplication>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_ProjectHandler.h>

#include <Sci_Chart.h>
#include <Sci_ExportDialog.h>

#include "ChartView.h"
#include "SplitTree.h"

namespace {

/*! Name of the splitter property that holds the id of its split in the layout. */
const char * const SPLIT_ID_PROPERTY = "splitId";
/*! Size given to both parts of a split without stored sizes. */
const int EQUAL_PART_SIZE = 100000;

} // namespace


ViewManager::ViewManager(QWidget * parent) :
	QWidget(parent)
{
	m_layout = new QVBoxLayout(this);
	m_layout->setContentsMargins(0, 0, 0, 0);

	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	connect(&handler, &OVP::ProjectHandler::projectAboutToBeClosed, this, &ViewManager::onProjectAboutToBeClosed);
	connect(&handler, &OVP::ProjectHandler::projectChanged, this, &ViewManager::onProjectChanged);
	connect(&handler, &OVP::ProjectHandler::modified, this, &ViewManager::onProjectModified);
	rebuild();
}


ViewManager::~ViewManager() {
	clearViews();
}


QList<ChartView *> ViewManager::views() const {
	return m_views;
}


ChartView * ViewManager::focusedView() const {
	return view(m_focusedId);
}


SCI::Chart * ViewManager::currentChart() const {
	ChartView * v = focusedView();
	return v == nullptr ? nullptr : v->chart();
}


void ViewManager::onSplitHorizontal() {
	if (roomToSplit(Qt::Horizontal))
		editLayout([](SplitTree & tree) { tree.split(tree.focusedView(), Qt::Horizontal); });
}


void ViewManager::onSplitVertical() {
	if (roomToSplit(Qt::Vertical))
		editLayout([](SplitTree & tree) { tree.split(tree.focusedView(), Qt::Vertical); });
}


bool ViewManager::roomToSplit(Qt::Orientation orientation) const {
	FUNCID(ViewManager::roomToSplit);
	const ChartView * view = focusedView();
	// a view not on screen has no size to go by
	if (view == nullptr || !view->isVisible())
		return true;
	const QSize minimum = view->minimumSizeHint();
	const bool beside = orientation == Qt::Horizontal;
	const int needed = 2*(beside ? minimum.width() : minimum.height()) + SPLITTER_HANDLE_ROOM;
	if ((beside ? view->width() : view->height()) >= needed)
		return true;
	ZEB::reportWarning(beside ?
		"There is no room for another view beside this one: enlarge the window or unify views first.\n" :
		"There is no room for another view below this one: enlarge the window or unify views first.\n", FUNC_ID);
	return false;
}


void ViewManager::onRemoveSplit() {
	if (m_views.size() < 2)
		return;
	editLayout([](SplitTree & tree) { tree.unify(tree.focusedView()); });
}


void ViewManager::onRemoveAllSplits() {
	if (m_views.size() < 2)
		return;
	editLayout([](SplitTree & tree) { tree.unifyAll(tree.focusedView()); });
}


void ViewManager::onGotoNextSplit() {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (!handler.isValid() || m_views.isEmpty())
		return;
	const SplitTree tree(handler.project().m_splitLayout, mapperCount());
	setFocusedView(tree.nextView(m_focusedId));
	focusedView()->takeKeyboardFocus();
}


void ViewManager::onShowDataTable(bool viewTable) {
	const ChartView * v = focusedView();
	if (v != nullptr && v->showsTable() != viewTable)
		onViewTableRequested(v->widgetId(), viewTable);
}


void ViewManager::showMapper(int mapperIndex) {
	const ChartView * v = focusedView();
	if (v == nullptr || v->mapperIndex() == mapperIndex || mapperIndex < 0 || mapperIndex >= mapperCount())
		return;
	editLayout([mapperIndex](SplitTree & tree) { tree.showMapper(tree.focusedView(), mapperIndex); });
}


void ViewManager::onExportChartsScripted() {
	FUNCID(ViewManager::onExportChartsScripted);
	if (!m_scriptedExports.isEmpty()) {
		const ChartExportProperties request = m_scriptedExports.takeFirst();
		const int count = mapperCount();
		if (request.m_mapperIndex >= count) {
			ZEB::reportError(ZEB::MessageFormat("Invalid mapper index %1, number of mappers in session = %2")
							 .arg(request.m_mapperIndex).arg(count).str(), FUNC_ID);
		}
		else {
			ZEB::reportProgress(ZEB::MessageFormat("Exporting chart/mapper #%1 to file '%2'\n")
								.arg(request.m_mapperIndex + 1).arg(request.m_fileName.toStdString()).str(), FUNC_ID);
			OVP::Mapper * mapper = OVP::ProjectHandler::instance().project().mapperModel()->mapper(request.m_mapperIndex);
			SCI::Chart * chart = mapper->chart();
			// a mapper in a session always has a chart; exportChart() logs its own failures
			if (chart != nullptr)
				SCI::ExportDialog::exportChart(chart, request.m_fileName, QSize(request.m_width, request.m_height));
		}
	}
	if (m_scriptedExports.isEmpty())
		QCoreApplication::exit(0);
	else
		QTimer::singleShot(0, this, &ViewManager::onExportChartsScripted);
}


void ViewManager::onProjectAboutToBeClosed() {
	clearViews();
}


void ViewManager::onProjectChanged() {
	rebuild();
}


void ViewManager::onProjectModified(int modificationType, void * data) {
	switch (modificationType) {
		case OVP::ProjectHandler::MapperInserted : {
			// a new chart goes into the focused view when that one is empty
			ChartView * v = focusedView();
			if (v != nullptr && v->mapperIndex() == -1) {
				const int newMapper = OVP::ProjectHandler::instance().project().mapperModel()->indexOf(
										  static_cast<const OVP::Mapper *>(data));
				editLayout([newMapper](SplitTree & tree) { tree.showMapper(tree.focusedView(), newMapper); });
			}
			else {
				rebuild();
			}
		} break;
		case OVP::ProjectHandler::AllModified :
		case OVP::ProjectHandler::MapperRemoved :
		case OVP::ProjectHandler::MapperRenamed :
		case OVP::ProjectHandler::MappersMoved :
		case OVP::ProjectHandler::SplitLayoutModified :
			rebuild();
			break;
		default : ;
	}
}


void ViewManager::onViewActivated(int widgetId) {
	if (widgetId != m_focusedId)
		setFocusedView(widgetId);
}


void ViewManager::onViewMapperChosen(int widgetId, int mapperIndex) {
	editLayout([widgetId, mapperIndex](SplitTree & tree) {
		tree.showMapper(widgetId, mapperIndex);
		tree.setFocusedView(widgetId);
	});
}


void ViewManager::onViewTableRequested(int widgetId, bool viewTable) {
	editLayout([widgetId, viewTable](SplitTree & tree) {
		tree.setViewTable(widgetId, viewTable);
		tree.setFocusedView(widgetId);
	});
}


void ViewManager::onSplitterMoved() {
	QSplitter * splitter = qobject_cast<QSplitter *>(sender());
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (splitter == nullptr || !handler.isValid())
		return;
	const QList<int> sizes = splitter->sizes();
	SplitTree tree(handler.project().m_splitLayout, mapperCount());
	tree.setSizes(splitter->property(SPLIT_ID_PROPERTY).toInt(), sizes.value(0), sizes.value(1));
	handler.setSplitViewState(tree.layout());
}


void ViewManager::rebuild() {
	FUNCID(ViewManager::rebuild);
	const QWidget * keyboardFocus = QApplication::focusWidget();
	const bool hadKeyboardFocus = keyboardFocus != nullptr && isAncestorOf(keyboardFocus);
	clearViews();
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (!handler.isValid())
		return;

	OVP::SplitLayout & stored = handler.project().m_splitLayout;
	const SplitTree tree(stored, mapperCount());
	if (!tree.problem().isEmpty())
		ZEB::reportWarning(ZEB::MessageFormat("Invalid split window layout in session (%1), showing a single chart view.")
						   .arg(tree.problem().toStdString()).str(), FUNC_ID);
	// what the views show is what the session keeps; a repaired layout is not a user's change
	stored = tree.layout();

	m_root = buildNode(tree, tree.root(), mapperNames());
	m_layout->addWidget(m_root);
	m_focusedId = tree.focusedView();
	updateFocusHighlight();
	if (hadKeyboardFocus)
		focusedView()->takeKeyboardFocus();
}


void ViewManager::clearViews() {
	// the old views are silenced first: handing back a chart with the keyboard focus moves the
	// focus into another old view, whose activation must not reach the layout being built
	for (ChartView * v : m_views)
		v->disconnect(this);
	// views hand their charts back, so that deleting the widgets leaves the charts alone
	for (ChartView * v : m_views)
		v->setContent(QStringList(), -1, nullptr);
	m_views.clear();
	// deleted later: the change may have been started by a signal of one of these widgets
	if (m_root != nullptr) {
		m_root->hide();
		m_layout->removeWidget(m_root);
		m_root->deleteLater();
		m_root = nullptr;
	}
	m_focusedId = -1;
	emit focusedChartChanged();
}


QWidget * ViewManager::buildNode(const SplitTree & tree, int id, const QStringList & mapperNames) {
	const OVP::SplitLayout::Widget & node = tree.node(id);
	const QList<int> parts = tree.children(id);
	if (parts.isEmpty()) {
		ChartView * v = new ChartView(id);
		SCI::Chart * chart = nullptr;
		if (node.m_mapperIndex != -1)
			chart = OVP::ProjectHandler::instance().project().mapperModel()->mapper(node.m_mapperIndex)->chart();
		v->setContent(mapperNames, node.m_mapperIndex, chart, node.m_viewTable);
		connect(v, &ChartView::activated, this, &ViewManager::onViewActivated);
		connect(v, &ChartView::mapperChosen, this, &ViewManager::onViewMapperChosen);
		connect(v, &ChartView::viewTableRequested, this, &ViewManager::onViewTableRequested);
		connect(v, &ChartView::dataSetsDropped, this, &ViewManager::dataSetsDropped);
		connect(v, &ChartView::chartMenuRequested, this, &ViewManager::chartMenuRequested);
		connect(v, &ChartView::pickerTextChanged, this, &ViewManager::pickerTextChanged);
		m_views.append(v);
		return v;
	}

	QSplitter * splitter = new QSplitter(static_cast<Qt::Orientation>(node.m_orientation));
	splitter->setProperty(SPLIT_ID_PROPERTY, id);
	splitter->setChildrenCollapsible(false);
	for (int part : parts)
		splitter->addWidget(buildNode(tree, part, mapperNames));
	// the stored sizes also serve as stretch factors, so that the parts keep their proportion
	// when the window size changes; without stored sizes the parts are equal (sizes far above
	// any minimum size, which the splitter then scales down in proportion)
	const bool sized = node.m_size1 > 0 && node.m_size2 > 0;
	const int size1 = sized ? node.m_size1 : EQUAL_PART_SIZE;
	const int size2 = sized ? node.m_size2 : EQUAL_PART_SIZE;
	splitter->setStretchFactor(0, size1);
	splitter->setStretchFactor(1, size2);
	splitter->setSizes(QList<int>{ size1, size2 });
	connect(splitter, &QSplitter::splitterMoved, this, &ViewManager::onSplitterMoved);
	return splitter;
}


void ViewManager::editLayout(const std::function<void(SplitTree &)> & edit) {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (!handler.isValid())
		return;
	SplitTree tree(handler.project().m_splitLayout, mapperCount());
	edit(tree);
	handler.setSplitLayout(tree.layout());
}


void ViewManager::setFocusedView(int widgetId) {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (!handler.isValid() || view(widgetId) == nullptr)
		return;
	SplitTree tree(handler.project().m_splitLayout, mapperCount());
	tree.setFocusedView(widgetId);
	m_focusedId = widgetId;
	handler.setSplitViewState(tree.layout());
	updateFocusHighlight();
}


void ViewManager::updateFocusHighlight() {
	for (ChartView * v : m_views)
		v->setFocused(m_views.size() > 1 && v->widgetId() == m_focusedId);
	emit focusedChartChanged();
}


QStringList ViewManager::mapperNames() const {
	QStringList names;
	const int count = mapperCount();
	for (int i = 0; i < count; ++i)
		names.append(OVP::ProjectHandler::instance().project().mapperModel()->mapper(i)->name());
	return names;
}


int ViewManager::mapperCount() const {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	return handler.isValid() ? handler.project().mapperModel()->mapperCount() : 0;
}


ChartView * ViewManager::view(int widgetId) const {
	for (ChartView * v : m_views) {
		if (v->widgetId() == widgetId)
			return v;
	}
	return nullptr;
}
