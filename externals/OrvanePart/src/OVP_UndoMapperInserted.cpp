#include "OVP_UndoMapperInserted.h"

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoMapperInserted::UndoMapperInserted(ProjectHandler & handler, int index, std::unique_ptr<Mapper> mapper,
									   const QString & text) :
	UndoCommand(handler, text, true),
	m_index(index),
	m_mapper(std::move(mapper))
{
}


UndoMapperInserted::~UndoMapperInserted() = default;


void UndoMapperInserted::prepareRedo() {
	if (!m_mapper && m_snapshot)
		m_mapper = m_snapshot->restore(handler().dataManager());
}


void UndoMapperInserted::doRedo() {
	insertMapper(m_index, std::move(m_mapper));
}


void UndoMapperInserted::doUndo() {
	m_snapshot.reset(new MapperSnapshot(*mappers().mapper(m_index)));
	removeMapper(m_index);
}

} // namespace OVP
