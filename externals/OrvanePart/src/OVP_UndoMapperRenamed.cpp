#include "OVP_UndoMapperRenamed.h"

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoMapperRenamed::UndoMapperRenamed(ProjectHandler & handler, int index, const QString & oldName,
									 const QString & newName) :
	UndoCommand(handler, ProjectHandler::tr("rename chart '%1'").arg(oldName), false),
	m_index(index),
	m_oldName(oldName),
	m_newName(newName)
{
}


void UndoMapperRenamed::rename(const QString & name) {
	Mapper * m = mappers().mapper(m_index);
	m->setName(name);
	mappers().mapperChanged(m_index);
	handler().setModified(ProjectHandler::MapperRenamed, m);
}

} // namespace OVP
