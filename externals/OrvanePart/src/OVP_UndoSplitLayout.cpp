#include "OVP_UndoSplitLayout.h"

#include "OVP_ProjectHandler.h"

namespace OVP {

namespace {

/*! Id of the command for merging. */
constexpr int SPLIT_LAYOUT_ID = 2;

/*! The text of a change of the split views from before to after. */
QString changeText(const SplitLayout & before, const SplitLayout & after) {
	if (after.m_widgets.size() > before.m_widgets.size())
		return ProjectHandler::tr("split view");
	if (after.m_widgets.size() < before.m_widgets.size())
		return ProjectHandler::tr("remove split view");
	for (int i = 0; i < after.m_widgets.size(); ++i)
		if (after.m_widgets[i].m_viewTable != before.m_widgets[i].m_viewTable)
			return after.m_widgets[i].m_viewTable ? ProjectHandler::tr("show data table") : ProjectHandler::tr("show chart");
	return ProjectHandler::tr("show chart in view");
}

} // namespace


UndoSplitLayout::UndoSplitLayout(ProjectHandler & handler, const SplitLayout & before, const SplitLayout & after) :
	UndoCommand(handler, changeText(before, after), false),
	m_before(before),
	m_after(after)
{
}


int UndoSplitLayout::id() const {
	return SPLIT_LAYOUT_ID;
}


bool UndoSplitLayout::mergeWith(const QUndoCommand * other) {
	const UndoSplitLayout * next = static_cast<const UndoSplitLayout *>(other);
	if (next->isObsolete() || !sameViews(m_before, m_after) || !sameViews(next->m_before, next->m_after))
		return false;
	m_after = next->m_after;
	setObsolete(m_after == m_before);
	return true;
}


bool UndoSplitLayout::sameViews(const SplitLayout & a, const SplitLayout & b) {
	if (a.m_widgets.size() != b.m_widgets.size())
		return false;
	for (int i = 0; i < a.m_widgets.size(); ++i) {
		SplitLayout::Widget w = b.m_widgets[i];
		w.m_mapperIndex = a.m_widgets[i].m_mapperIndex;
		w.m_size1 = a.m_widgets[i].m_size1;
		w.m_size2 = a.m_widgets[i].m_size2;
		if (!(w == a.m_widgets[i]))
			return false;
	}
	return true;
}

} // namespace OVP
