#include "OVP_UndoChartProperty.h"

#include <Sci_AbstractBarSeriesModel.h>
#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_PropertyRoleTable.h>

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

namespace {

typedef SCI::PropertyRoleTable PRT;

/*! Id of the command for merging. */
constexpr int CHART_PROPERTY_ID = 1;

/*! The chart model of the mapper at a mapper index. */
SCI::AbstractCartesianChartModel & modelOf(ProjectHandler & handler, int mapperIndex) {
	return *handler.project().mapperModel()->mapper(mapperIndex)->chartModel();
}

/*! The role table entry of a property, null when the role is not in the tables. */
const PRT::Entry * tableEntry(const SCI::AbstractCartesianChartModel & model, UndoChartProperty::TargetKind kind,
							  int role)
{
	PRT::Target target = PRT::ChartTarget;
	if (kind == UndoChartProperty::AxisProperty)
		target = PRT::AxisTarget;
	else if (kind == UndoChartProperty::SeriesProperty)
		target = PRT::seriesTarget(model);
	return target == PRT::NUM_TARGETS ? nullptr : PRT::entry(target, role);
}

} // namespace


UndoChartProperty::UndoChartProperty(ProjectHandler & handler, int mapperIndex, TargetKind kind, int targetIndex,
									 int role, const QVariant & oldValue, const QVariant & newValue, bool * accepted) :
	UndoCommand(handler, describe(modelOf(handler, mapperIndex), kind, targetIndex, role), false),
	m_mapperIndex(mapperIndex),
	m_kind(kind),
	m_targetIndex(targetIndex),
	m_role(role),
	m_oldValue(oldValue),
	m_newValue(newValue),
	m_accepted(accepted)
{
	const PRT::Entry * e = tableEntry(modelOf(handler, mapperIndex), kind, role);
	m_mergeable = e != nullptr && (e->m_kind == PRT::StringEditor || e->m_kind == PRT::IntEditor
								   || e->m_kind == PRT::DoubleEditor || e->m_kind == PRT::SizeEditor);
}


int UndoChartProperty::id() const {
	return CHART_PROPERTY_ID;
}


bool UndoChartProperty::mergeWith(const QUndoCommand * other) {
	const UndoChartProperty * next = static_cast<const UndoChartProperty *>(other);
	if (!m_mergeable || next->isObsolete() || next->m_mapperIndex != m_mapperIndex || next->m_kind != m_kind
		|| next->m_targetIndex != m_targetIndex || next->m_role != m_role)
		return false;
	m_newValue = next->m_newValue;
	setObsolete(m_newValue == m_oldValue);
	return true;
}


QVariant UndoChartProperty::storedValue(const SCI::AbstractCartesianChartModel & model, TargetKind kind,
										int targetIndex, int role)
{
	switch (kind) {
		case ChartProperty :	return model.SCI::AbstractChartModel::chartData(role);
		case AxisProperty :		return model.SCI::AbstractCartesianChartModel::axisData(targetIndex, role);
		case SeriesProperty : ;
	}
	// the qualified calls skip what a derived model makes of the stored value
	if (const SCI::AbstractLineSeriesModel * m = dynamic_cast<const SCI::AbstractLineSeriesModel *>(&model))
		return m->SCI::AbstractLineSeriesModel::seriesData(targetIndex, role);
	if (const SCI::AbstractColorGridSeriesModel * m = dynamic_cast<const SCI::AbstractColorGridSeriesModel *>(&model))
		return m->SCI::AbstractColorGridSeriesModel::seriesData(targetIndex, role);
	if (const SCI::AbstractVectorFieldSeriesModel * m = dynamic_cast<const SCI::AbstractVectorFieldSeriesModel *>(&model))
		return m->SCI::AbstractVectorFieldSeriesModel::seriesData(targetIndex, role);
	if (const SCI::AbstractBarSeriesModel * m = dynamic_cast<const SCI::AbstractBarSeriesModel *>(&model))
		return m->SCI::AbstractBarSeriesModel::seriesData(targetIndex, role);
	return model.seriesData(targetIndex, role);
}


void UndoChartProperty::doRedo() {
	const bool accepted = apply(m_newValue);
	if (m_accepted != nullptr) {
		*m_accepted = accepted;
		m_accepted = nullptr;
	}
	if (!accepted
		|| storedValue(modelOf(handler(), m_mapperIndex), m_kind, m_targetIndex, m_role) == m_oldValue)
		setObsolete(true);
}


void UndoChartProperty::doUndo() {
	apply(m_oldValue);
}


bool UndoChartProperty::apply(const QVariant & value) {
	Mapper * mapper = mappers().mapper(m_mapperIndex);
	SCI::AbstractCartesianChartModel & model = *mapper->chartModel();
	bool stored = false;
	switch (m_kind) {
		case ChartProperty :
			stored = model.setChartData(value, m_role);
			break;
		case AxisProperty :
			stored = model.setAxisData(value, m_targetIndex, m_role);
			break;
		case SeriesProperty :
			stored = m_targetIndex < static_cast<int>(model.seriesCount())
					 && model.setSeriesData(value, m_targetIndex, m_role);
			break;
	}
	if (stored)
		handler().setModified(m_kind == SeriesProperty ? ProjectHandler::SeriesModified : ProjectHandler::ChartModified,
							  mapper);
	return stored;
}


QString UndoChartProperty::describe(const SCI::AbstractCartesianChartModel & model, TargetKind kind, int targetIndex,
									int role)
{
	const PRT::Entry * e = tableEntry(model, kind, role);
	const QString name = e != nullptr ? e->name() : ProjectHandler::tr("property %1").arg(role);
	switch (kind) {
		case ChartProperty :
			return ProjectHandler::tr("change %1").arg(name);
		case AxisProperty :
			return ProjectHandler::tr("change %1 %2").arg(PRT::axisName(targetIndex), name);
		case SeriesProperty : ;
	}
	// series of line and bar charts are told apart by their titles
	if (dynamic_cast<const SCI::AbstractLineSeriesModel *>(&model) != nullptr)
		return ProjectHandler::tr("change %1 of '%2'").arg(name,
			model.seriesData(targetIndex, SCI::AbstractLineSeriesModel::SeriesTitle).toString());
	if (dynamic_cast<const SCI::AbstractBarSeriesModel *>(&model) != nullptr)
		return ProjectHandler::tr("change %1 of '%2'").arg(name,
			model.seriesData(targetIndex, SCI::AbstractBarSeriesModel::BarTitleText).toString());
	return ProjectHandler::tr("change %1").arg(name);
}

} // namespace OVP
