#include "OVP_UndoDataSetSetup.h"

#include <utility>
#include <vector>

#include <Sci_AbstractLineSeriesModel.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoDataSetSetup::UndoDataSetSetup(int mapperIndex, unsigned int entryIndex, const DataSetSetup & oldSetup,
								   const DataSetSetup & newSetup, QUndoCommand * parent) :
	QUndoCommand(parent),
	m_mapperIndex(mapperIndex),
	m_entryIndex(entryIndex),
	m_oldSetup(oldSetup),
	m_newSetup(newSetup)
{
	FUNCID(UndoDataSetSetup::UndoDataSetSetup);
	const Mapper & m = mapper(FUNC_ID);
	m.entryAt(entryIndex, FUNC_ID);
	// a line series is known by its title, a colour grid or vector field by the chart's name
	const QString name = m.type() == Mapper::MT_2D
		? m.chartModel()->seriesData(static_cast<int>(entryIndex), SCI::AbstractLineSeriesModel::SeriesTitle).toString()
		: m.name();
	setText(changeText(oldSetup, newSetup, name));
}


void UndoDataSetSetup::undo() {
	apply(m_oldSetup);
}


void UndoDataSetSetup::redo() {
	apply(m_newSetup);
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
		{ oldSetup.m_fileNames != newSetup.m_fileNames || oldSetup.m_column != newSetup.m_column,
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


Mapper & UndoDataSetSetup::mapper(const char * functionId) const {
	ProjectHandler & handler = ProjectHandler::instance();
	if (!handler.isValid())
		throw ZEB::Exception("No session is open.", functionId);
	const MapperTreeModel & mappers = *handler.project().mapperModel();
	if (m_mapperIndex < 0 || m_mapperIndex >= mappers.mapperCount())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid mapper index %1.").arg(m_mapperIndex), functionId);
	return *mappers.mapper(m_mapperIndex);
}


void UndoDataSetSetup::apply(const DataSetSetup & setup) {
	FUNCID(UndoDataSetSetup::apply);
	try {
		mapper(FUNC_ID).setDataSetSetup(m_entryIndex, setup);
		ProjectHandler::instance().mapperContentChanged(m_mapperIndex);
	}
	catch (ZEB::Exception & ex) {
		ZEB::Exception(ex, ZEB::MessageFormat("Cannot %1.").arg(text().toStdString()), FUNC_ID).reportAllAsErrors();
		setObsolete(true);
	}
}

} // namespace OVP
