#include "OVP_UndoBarAggregation.h"

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"
#include "OVP_SeriesBarExtractorModel.h"

namespace OVP {

namespace {

typedef SCI::AbstractCartesianChartModel CM;

/*! The unit id of the left axis of a chart model. */
unsigned int leftUnitId(const CM & model) {
	return model.CM::axisData(CM::LeftAxis, CM::AxisUnit).toUInt();
}

} // namespace


void UndoBarAggregation::push(ProjectHandler & handler, int mapperIndex, const BarAggregation::Settings & settings) {
	FUNCID(UndoBarAggregation::push);
	const MapperTreeModel & mappers = *handler.project().mapperModel();
	if (mapperIndex < 0 || mapperIndex >= mappers.mapperCount())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid mapper index %1.").arg(mapperIndex), FUNC_ID);
	const Mapper & mapper = *mappers.mapper(mapperIndex);
	if (mapper.type() != Mapper::MT_Bar)
		throw ZEB::Exception("Only a bar chart has periods and statistics of its bars.", FUNC_ID);
	const SeriesBarExtractorModel & model = static_cast<const SeriesBarExtractorModel &>(*mapper.chartModel());
	const BarAggregation::Settings & old = model.aggregation();
	if (old == settings)
		return;
	QString text = tr("change bar threshold of '%1'");
	if (old.m_period != settings.m_period)
		text = tr("change bar period of '%1'");
	else if (old.m_statistic != settings.m_statistic)
		text = tr("change bar statistic of '%1'");
	handler.undoStack().push(new UndoBarAggregation(handler, text.arg(mapper.name()), mapperIndex, old, settings,
													leftUnitId(model)));
}


UndoBarAggregation::UndoBarAggregation(ProjectHandler & handler, const QString & text, int mapperIndex,
									   const BarAggregation::Settings & oldSettings,
									   const BarAggregation::Settings & newSettings, unsigned int oldUnitId) :
	UndoCommand(handler, text, false),
	m_mapperIndex(mapperIndex),
	m_oldSettings(oldSettings),
	m_newSettings(newSettings),
	m_oldUnitId(oldUnitId)
{
}


void UndoBarAggregation::doRedo() {
	apply(m_newSettings, m_newUnitId);
	if (m_newUnitId == 0)
		m_newUnitId = leftUnitId(*mappers().mapper(m_mapperIndex)->chartModel());
}


void UndoBarAggregation::doUndo() {
	apply(m_oldSettings, m_oldUnitId);
}


void UndoBarAggregation::apply(const BarAggregation::Settings & settings, unsigned int unitId) {
	Mapper * mapper = mappers().mapper(m_mapperIndex);
	SeriesBarExtractorModel & model = static_cast<SeriesBarExtractorModel &>(*mapper->chartModel());
	model.setAggregation(settings);
	if (unitId != 0 && unitId != leftUnitId(model))
		model.setAxisData(unitId, CM::LeftAxis, CM::AxisUnit);
	handler().setModified(ProjectHandler::ChartModified, mapper);
}

} // namespace OVP
