#include "OVP_UndoMappersMoved.h"

#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoMappersMoved::UndoMappersMoved(ProjectHandler & handler, const std::vector<int> & order, const QString & text) :
	UndoCommand(handler, text, true),
	m_order(order)
{
}


void UndoMappersMoved::doUndo() {
	// the mapper now at position i goes back to m_order[i]
	std::vector<int> back(m_order.size());
	for (std::size_t i = 0; i < m_order.size(); ++i)
		back[static_cast<std::size_t>(m_order[i])] = static_cast<int>(i);
	reorder(back);
}


void UndoMappersMoved::reorder(const std::vector<int> & order) {
	std::vector<int> newIndex(order.size());
	for (std::size_t i = 0; i < order.size(); ++i)
		newIndex[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
	mappers().reorderMappers(order);
	handler().project().m_splitLayout.mappersRenumbered(newIndex);
	handler().setModified(ProjectHandler::MappersMoved);
}

} // namespace OVP
