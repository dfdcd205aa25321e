#include "OVP_UndoDataSetSetup.h"

#include <utility>
#include <vector>

#include <EM_ExtractorBase.h>

#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoDataSetSetup::UndoDataSetSetup(ProjectHandler & handler, int mapperIndex, unsigned int entryIndex,
								   const DataSetSetup & oldSetup, const DataSetSetup & newSetup) :
	UndoCommand(handler, changeText(oldSetup, newSetup,
									handler.project().mapperModel()->mapper(mapperIndex)->dataSetTitle(entryIndex)),
				false),
	m_mapperIndex(mapperIndex),
	m_entryIndex(entryIndex),
	m_oldSetup(oldSetup),
	m_newSetup(newSetup)
{
}


UndoDataSetSetup::~UndoDataSetSetup() = default;


void UndoDataSetSetup::prepareUndo() {
	prepare(m_oldSetup, true);
}


void UndoDataSetSetup::prepareRedo() {
	prepare(m_newSetup, false);
}


void UndoDataSetSetup::doRedo() {
	apply();
}


void UndoDataSetSetup::doUndo() {
	apply();
}


QString UndoDataSetSetup::changeText(const DataSetSetup & oldSetup, const DataSetSetup & newSetup, const QString & name) {
	const auto indexChanged = [&oldSetup, &newSetup](unsigned int d) {
		return oldSetup.usesIndex(d) != newSetup.usesIndex(d)
			|| (newSetup.usesIndex(d) && oldSetup.m_cutIndices[d] != newSetup.m_cutIndices[d]);
	};
	const bool cutTypeChanged = oldSetup.m_cutType != newSetup.m_cutType;
	const bool modelChanged = oldSetup.m_modelType != newSetup.m_modelType;
	// a new cut type brings its own indices, a new model its own parameters
	const std::vector<std::pair<bool, QString> > changes = {
		{ oldSetup.m_fileNames != newSetup.m_fileNames || oldSetup.m_column != newSetup.m_column
		  || oldSetup.m_column2 != newSetup.m_column2,
		  tr("change data file of '%1'") },
		{ cutTypeChanged, tr("change cut type of '%1'") },
		{ !cutTypeChanged && indexChanged(EM::CD_Time), tr("change time point of '%1'") },
		{ !cutTypeChanged && (indexChanged(EM::CD_X) || indexChanged(EM::CD_Y) || indexChanged(EM::CD_Z)),
		  tr("change cut position of '%1'") },
		{ oldSetup.m_manipulators != newSetup.m_manipulators, tr("change manipulators of '%1'") },
		{ modelChanged, tr("change model of '%1'") },
		{ !modelChanged && oldSetup.m_modelParameters != newSetup.m_modelParameters, tr("change model parameters of '%1'") }
	};
	QString text;
	int count = 0;
	for (const std::pair<bool, QString> & change : changes)
		if (change.first && ++count == 1)
			text = change.second;
	return (count == 1 ? text : tr("change data set of '%1'")).arg(name);
}


void UndoDataSetSetup::prepare(const DataSetSetup & setup, bool undoing) {
	if (m_prepared != nullptr && m_preparedForUndo == undoing)
		return;
	m_prepared.reset();
	m_prepared.reset(new Mapper::PreparedSetup(mappers().mapper(m_mapperIndex)->prepareDataSetSetup(m_entryIndex, setup)));
	m_preparedForUndo = undoing;
}


void UndoDataSetSetup::apply() {
	Q_ASSERT(m_prepared != nullptr);
	mappers().mapper(m_mapperIndex)->applyDataSetSetup(std::move(*m_prepared));
	m_prepared.reset();
	handler().mapperContentChanged(m_mapperIndex);
}

} // namespace OVP
