#include "OVP_UndoDataSetRemoved.h"

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoDataSetRemoved::UndoDataSetRemoved(ProjectHandler & handler, int mapperIndex, unsigned int entryIndex,
									   const QString & text) :
	UndoCommand(handler, text, false),
	m_mapperIndex(mapperIndex),
	m_entryIndex(entryIndex)
{
}


UndoDataSetRemoved::~UndoDataSetRemoved() = default;


void UndoDataSetRemoved::prepareUndo() {
	if (m_restored == nullptr)
		m_restored = m_snapshot->restore(handler().dataManager());
}


void UndoDataSetRemoved::prepareRedo() {
	mappers().mapper(m_mapperIndex)->checkRemovable(m_entryIndex);
}


void UndoDataSetRemoved::doRedo() {
	Mapper & mapper = *mappers().mapper(m_mapperIndex);
	// taken each time: the chart may have changed since the last undo
	m_snapshot.reset(new MapperSnapshot(mapper));
	m_restored.reset();
	mapper.removeExtractor(m_entryIndex);
	handler().mapperContentChanged(m_mapperIndex);
}


void UndoDataSetRemoved::doUndo() {
	mappers().mapper(m_mapperIndex)->restoreSeries(m_entryIndex, *m_restored);
	m_restored.reset();
	handler().mapperContentChanged(m_mapperIndex);
}

} // namespace OVP
