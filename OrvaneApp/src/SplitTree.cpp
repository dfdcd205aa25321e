#include "SplitTree.h"

#include <algorithm>
#include <set>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace {

/*! Orientation code of splits with their parts side by side (Qt::Horizontal). */
const int SIDE_BY_SIDE = 1;
/*! Orientation code of splits with their parts on top of each other (Qt::Vertical). */
const int ON_TOP = 2;
/*! Largest widget id accepted in a stored layout; new ids count up from the largest one. */
const int MAX_WIDGET_ID = 1000000;

} // namespace


SplitTree::SplitTree(const OVP::SplitLayout & layout, int mapperCount) :
	m_mapperCount(mapperCount)
{
	const int firstMapper = mapperCount > 0 ? 0 : -1;
	if (layout.m_widgets.isEmpty()) {
		m_layout = singleView(firstMapper, false);
	}
	else {
		m_problem = structureProblem(layout);
		m_layout = m_problem.isEmpty() ? layout : singleView(firstMapper, false);
	}
	normalise();
}


int SplitTree::root() const {
	for (const OVP::SplitLayout::Widget & w : m_layout.m_widgets) {
		if (w.m_parent == -1)
			return w.m_id;
	}
	// the constructor guarantees a root
	Q_ASSERT(false);
	return -1;
}


const OVP::SplitLayout::Widget & SplitTree::node(int id) const {
	FUNCID(SplitTree::node);
	return m_layout.m_widgets[checkedRow(id, false, FUNC_ID)];
}


QList<int> SplitTree::children(int id) const {
	QList<int> ids;
	for (const OVP::SplitLayout::Widget & w : m_layout.m_widgets) {
		if (w.m_parent == id)
			ids.append(w.m_id);
	}
	return ids;
}


QList<int> SplitTree::views() const {
	QList<int> ids;
	collectViews(root(), ids);
	return ids;
}


int SplitTree::nextView(int viewId) const {
	const QList<int> ids = views();
	const int pos = ids.indexOf(viewId);
	return ids[(pos + 1) % ids.size()];
}


int SplitTree::viewOfMapper(int mapperIndex) const {
	if (mapperIndex < 0)
		return -1;
	for (int id : views()) {
		if (m_layout.m_widgets[rowOf(id)].m_mapperIndex == mapperIndex)
			return id;
	}
	return -1;
}


void SplitTree::setFocusedView(int viewId) {
	FUNCID(SplitTree::setFocusedView);
	checkedRow(viewId, true, FUNC_ID);
	m_layout.m_focusedWidget = viewId;
}


int SplitTree::split(int viewId, int orientation) {
	FUNCID(SplitTree::split);
	if (orientation != SIDE_BY_SIDE && orientation != ON_TOP)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid split orientation %1.").arg(orientation), FUNC_ID);
	const int row = checkedRow(viewId, true, FUNC_ID);

	// the first mapper that no view shows yet goes into the new part
	int unshown = -1;
	for (int m = 0; m < m_mapperCount && unshown == -1; ++m) {
		if (viewOfMapper(m) == -1)
			unshown = m;
	}

	OVP::SplitLayout::Widget & splitNode = m_layout.m_widgets[row];
	OVP::SplitLayout::Widget first;
	first.m_id = unusedId();
	first.m_parent = viewId;
	first.m_viewTable = splitNode.m_viewTable;
	first.m_mapperIndex = splitNode.m_mapperIndex;
	OVP::SplitLayout::Widget second;
	second.m_id = first.m_id + 1;
	second.m_parent = viewId;
	second.m_mapperIndex = unshown;

	splitNode.m_viewTable = false;
	splitNode.m_mapperIndex = -1;
	splitNode.m_size1 = 0;
	splitNode.m_size2 = 0;
	splitNode.m_orientation = orientation;
	m_layout.m_widgets.append(first);
	m_layout.m_widgets.append(second);
	m_layout.m_focusedWidget = second.m_id;
	return second.m_id;
}


bool SplitTree::unify(int viewId) {
	FUNCID(SplitTree::unify);
	const OVP::SplitLayout::Widget removed = m_layout.m_widgets[checkedRow(viewId, true, FUNC_ID)];
	if (removed.m_parent == -1)
		return false;
	const QList<int> parts = children(removed.m_parent);
	const int otherId = parts[0] == viewId ? parts[1] : parts[0];
	const OVP::SplitLayout::Widget other = m_layout.m_widgets[rowOf(otherId)];

	// the split takes over the remaining part: its content, or its parts
	OVP::SplitLayout::Widget & splitNode = m_layout.m_widgets[rowOf(removed.m_parent)];
	splitNode.m_viewTable = other.m_viewTable;
	splitNode.m_mapperIndex = other.m_mapperIndex;
	splitNode.m_size1 = other.m_size1;
	splitNode.m_size2 = other.m_size2;
	splitNode.m_orientation = other.m_orientation;
	const int splitId = splitNode.m_id;
	for (OVP::SplitLayout::Widget & w : m_layout.m_widgets) {
		if (w.m_parent == otherId)
			w.m_parent = splitId;
	}
	m_layout.m_widgets.removeAt(rowOf(viewId));
	m_layout.m_widgets.removeAt(rowOf(otherId));

	QList<int> remaining;
	collectViews(splitId, remaining);
	m_layout.m_focusedWidget = remaining.first();
	return true;
}


void SplitTree::unifyAll(int viewId) {
	FUNCID(SplitTree::unifyAll);
	const OVP::SplitLayout::Widget & view = m_layout.m_widgets[checkedRow(viewId, true, FUNC_ID)];
	m_layout = singleView(view.m_mapperIndex, view.m_viewTable);
}


void SplitTree::showMapper(int viewId, int mapperIndex) {
	FUNCID(SplitTree::showMapper);
	const int row = checkedRow(viewId, true, FUNC_ID);
	if (mapperIndex < -1 || mapperIndex >= m_mapperCount)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid mapper index %1.").arg(mapperIndex), FUNC_ID);
	const int shownIn = viewOfMapper(mapperIndex);
	if (shownIn != -1)
		m_layout.m_widgets[rowOf(shownIn)].m_mapperIndex = -1;
	m_layout.m_widgets[row].m_mapperIndex = mapperIndex;
}


void SplitTree::setViewTable(int viewId, bool viewTable) {
	FUNCID(SplitTree::setViewTable);
	m_layout.m_widgets[checkedRow(viewId, true, FUNC_ID)].m_viewTable = viewTable;
}


void SplitTree::setSizes(int splitId, int size1, int size2) {
	FUNCID(SplitTree::setSizes);
	const int row = checkedRow(splitId, false, FUNC_ID);
	if (children(splitId).isEmpty())
		throw ZEB::Exception(ZEB::MessageFormat("Widget %1 is not split.").arg(splitId), FUNC_ID);
	m_layout.m_widgets[row].m_size1 = std::max(0, size1);
	m_layout.m_widgets[row].m_size2 = std::max(0, size2);
}


int SplitTree::rowOf(int id) const {
	for (int i = 0; i < m_layout.m_widgets.size(); ++i) {
		if (m_layout.m_widgets[i].m_id == id)
			return i;
	}
	return -1;
}


int SplitTree::checkedRow(int id, bool view, const char * funcId) const {
	const int row = rowOf(id);
	if (row == -1)
		throw ZEB::Exception(ZEB::MessageFormat("Unknown split widget id %1.").arg(id), funcId);
	if (view && !children(id).isEmpty())
		throw ZEB::Exception(ZEB::MessageFormat("Split widget %1 is split and shows no chart.").arg(id), funcId);
	return row;
}


QString SplitTree::structureProblem(const OVP::SplitLayout & layout) {
	std::set<int> ids;
	int rootId = -1;
	int rootCount = 0;
	for (const OVP::SplitLayout::Widget & w : layout.m_widgets) {
		if (w.m_id < 0 || w.m_id > MAX_WIDGET_ID)
			return QString("widget id %1 is outside 0..%2").arg(w.m_id).arg(MAX_WIDGET_ID);
		if (!ids.insert(w.m_id).second)
			return QString("widget id %1 is used twice").arg(w.m_id);
		if (w.m_parent == -1) {
			rootId = w.m_id;
			++rootCount;
		}
	}
	if (rootCount != 1)
		return QString("%1 widgets without parent, expected exactly one").arg(rootCount);

	for (const OVP::SplitLayout::Widget & w : layout.m_widgets) {
		if (w.m_parent != -1 && ids.count(w.m_parent) == 0)
			return QString("widget %1 refers to the unknown parent %2").arg(w.m_id).arg(w.m_parent);
		int parts = 0;
		for (const OVP::SplitLayout::Widget & c : layout.m_widgets)
			parts += c.m_parent == w.m_id ? 1 : 0;
		if (parts != 0 && parts != 2)
			return QString("widget %1 is split into %2 parts, expected two").arg(w.m_id).arg(parts);
	}

	// every widget must be reached from the root; those on a cycle of parents are not
	std::set<int> reached{ rootId };
	QList<int> pending{ rootId };
	while (!pending.isEmpty()) {
		const int id = pending.takeFirst();
		for (const OVP::SplitLayout::Widget & w : layout.m_widgets) {
			if (w.m_parent == id && reached.insert(w.m_id).second)
				pending.append(w.m_id);
		}
	}
	if (reached.size() != static_cast<std::size_t>(layout.m_widgets.size()))
		return QString("%1 widgets are not connected to the root widget")
				.arg(layout.m_widgets.size() - static_cast<int>(reached.size()));
	return QString();
}


void SplitTree::normalise() {
	std::set<int> shown;
	const QList<int> viewIds = views();
	for (OVP::SplitLayout::Widget & w : m_layout.m_widgets) {
		w.m_size1 = std::max(0, w.m_size1);
		w.m_size2 = std::max(0, w.m_size2);
		if (!viewIds.contains(w.m_id) && w.m_orientation != SIDE_BY_SIDE && w.m_orientation != ON_TOP)
			w.m_orientation = SIDE_BY_SIDE;
	}
	// views in display order, so that the first view showing a mapper keeps it
	for (int id : viewIds) {
		OVP::SplitLayout::Widget & w = m_layout.m_widgets[rowOf(id)];
		if (w.m_mapperIndex < 0 || w.m_mapperIndex >= m_mapperCount || !shown.insert(w.m_mapperIndex).second)
			w.m_mapperIndex = -1;
	}
	if (!viewIds.contains(m_layout.m_focusedWidget))
		m_layout.m_focusedWidget = viewIds.first();
}


void SplitTree::collectViews(int id, QList<int> & views) const {
	const QList<int> parts = children(id);
	if (parts.isEmpty()) {
		views.append(id);
		return;
	}
	for (int part : parts)
		collectViews(part, views);
}


int SplitTree::unusedId() const {
	int id = 0;
	for (const OVP::SplitLayout::Widget & w : m_layout.m_widgets)
		id = std::max(id, w.m_id + 1);
	return id;
}


OVP::SplitLayout SplitTree::singleView(int mapperIndex, bool viewTable) {
	OVP::SplitLayout layout;
	OVP::SplitLayout::Widget w;
	w.m_id = 0;
	w.m_parent = -1;
	w.m_viewTable = viewTable;
	w.m_mapperIndex = mapperIndex;
	layout.m_widgets.append(w);
	layout.m_focusedWidget = 0;
	return layout;
}
