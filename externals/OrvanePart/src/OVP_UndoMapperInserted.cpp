#include "OVP_UndoMapperInserted.h"

#include <ZEB_Exception.h>

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
	try {
		prepareRedo();
	}
	catch (ZEB::Exception & ex) {
		// only when the stack is driven without the handler, which prepares first
		ex.reportAllAsErrors();
		return;
	}
	insertMapper(m_index, std::move(m_mapper));
	m_inSession = true;
}


void UndoMapperInserted::doUndo() {
	if (!m_inSession)
		return;
	m_snapshot.reset(new MapperSnapshot(*mappers().mapper(m_index)));
	removeMapper(m_index);
	m_inSession = false;
}

} // namespace OVP
