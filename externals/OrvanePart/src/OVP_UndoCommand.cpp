#include "OVP_UndoCommand.h"

#include <ZEB_Exception.h>

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoCommand::UndoCommand(ProjectHandler & handler, const QString & text, bool tracksLayout) :
	QUndoCommand(text),
	m_handler(handler),
	m_tracksLayout(tracksLayout)
{
}


void UndoCommand::redo() {
	const ProjectHandler::CommandScope scope(m_handler);
	if (!prepare(false))
		return;
	if (!m_done && m_tracksLayout)
		m_layoutBefore = m_handler.project().m_splitLayout;
	doRedo();
	if (m_tracksLayout) {
		if (m_done)
			applyLayout(m_layoutAfter);
		else
			m_layoutAfter = m_handler.project().m_splitLayout;
	}
	m_done = true;
}


void UndoCommand::undo() {
	const ProjectHandler::CommandScope scope(m_handler);
	if (!prepare(true))
		return;
	doUndo();
	if (m_tracksLayout)
		applyLayout(m_layoutBefore);
}


bool UndoCommand::prepare(bool undoing) {
	// the handler prepares a command before it runs it and shows a failure; this is for a stack
	// driven without the handler, which drops an obsolete command instead of moving past it
	try {
		if (undoing)
			prepareUndo();
		else
			prepareRedo();
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		setObsolete(true);
		return false;
	}
	return true;
}


MapperTreeModel & UndoCommand::mappers() const {
	return *m_handler.project().mapperModel();
}


void UndoCommand::insertMapper(int index, std::unique_ptr<Mapper> mapper) {
	std::vector<int> newIndex;
	for (int i = 0; i < mappers().mapperCount(); ++i)
		newIndex.push_back(i < index ? i : i + 1);
	Mapper * m = mapper.get();
	mappers().insertMapper(index, std::move(mapper));
	m_handler.project().m_splitLayout.mappersRenumbered(newIndex);
	m_handler.setModified(ProjectHandler::MapperInserted, m);
}


void UndoCommand::removeMapper(int index) {
	mappers().removeMappers(index, 1);
	m_handler.project().m_splitLayout.mappersRemoved(index, 1);
	m_handler.setModified(ProjectHandler::MapperRemoved);
}


void UndoCommand::applyLayout(const SplitLayout & layout) {
	if (m_handler.project().m_splitLayout == layout)
		return;
	m_handler.project().m_splitLayout = layout;
	m_handler.setModified(ProjectHandler::SplitLayoutModified);
}

} // namespace OVP
