#include "OVP_UndoMappersRemoved.h"

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoMappersRemoved::UndoMappersRemoved(ProjectHandler & handler, const std::vector<int> & indices,
									   const QString & text) :
	UndoCommand(handler, text, true),
	m_indices(indices)
{
}


UndoMappersRemoved::~UndoMappersRemoved() = default;


void UndoMappersRemoved::prepareUndo() {
	if (!m_rebuilt.empty())
		return;
	std::vector<std::unique_ptr<Mapper> > rebuilt;
	for (const MapperSnapshot & s : m_snapshots)
		rebuilt.push_back(s.restore(handler().dataManager()));
	m_rebuilt = std::move(rebuilt);
}


void UndoMappersRemoved::doRedo() {
	// taken each time: the charts may have changed since the last undo
	m_snapshots.clear();
	for (int i : m_indices)
		m_snapshots.emplace_back(*mappers().mapper(i));
	for (auto i = m_indices.rbegin(); i != m_indices.rend(); ++i)
		removeMapper(*i);
}


void UndoMappersRemoved::doUndo() {
	for (std::size_t k = 0; k < m_indices.size(); ++k)
		insertMapper(m_indices[k], std::move(m_rebuilt[k]));
	m_rebuilt.clear();
}

} // namespace OVP
