#include "OVP_ChartPropertyPage.h"

#include <cmath>
#include <memory>

#include <QPen>
#include <QSize>

#include <qwt_scale_div.h>
#include <qwt_scale_widget.h>

#include <ZEB_Exception.h>
#include <ZEB_Unit.h>

#include <QtExt_ValidatingLineEdit.h>

#include <QPB_BoolType.h>
#include <QPB_ColorType.h>
#include <QPB_DateTimeType.h>
#include <QPB_EnumType.h>
#include <QPB_FontType.h>
#include <QPB_NumberType.h>
#include <QPB_PenType.h>
#include <QPB_StringType.h>
#include <QPB_ValueTypeFactory.h>

#include <Sci_AbstractBarSeriesModel.h>
#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_Chart.h>
#include <Sci_ColorMap.h>

#include "OVP_ColorMapType.h"
#include "OVP_IsoplethLinesType.h"
#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"
#include "OVP_SizeType.h"
#include "OVP_StringListType.h"

namespace OVP {

namespace {

typedef SCI::PropertyRoleTable RT;
typedef SCI::AbstractCartesianChartModel AM;

/*! The plot axis of an axis position. */
int plotAxis(int axisPosition) {
	static const int AXES[AM::NUM_AXES] = { QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight };
	return AXES[axisPosition];
}

/*! The property value type of an editor kind. */
const char * typeOf(RT::EditorKind kind) {
	switch (kind) {
		case RT::BoolEditor :		return QPB::BoolType::ID;
		case RT::IntEditor :		return QPB::NumberType::INT_ID;
		case RT::DoubleEditor :		return QPB::NumberType::DOUBLE_ID;
		case RT::StringEditor :		return QPB::StringType::ID;
		case RT::EnumEditor :		return QPB::EnumType::ID;
		case RT::ColorEditor :		return QPB::ColorType::ID;
		case RT::FontEditor :		return QPB::FontType::ID;
		case RT::PenEditor :		return QPB::PenType::ID;
		case RT::DateTimeEditor :	return QPB::DateTimeType::ID;
		case RT::StringListEditor :	return StringListType::ID;
		case RT::ColorMapEditor :	return ColorMapType::ID;
		case RT::UnitEditor :		return QPB::EnumType::ID;
		case RT::SizeEditor :		return SizeType::ID;
	}
	return QPB::StringType::ID;
}

/*! Pairs of roles of a target (lower, upper) where the lower must stay below the upper. */
std::vector<std::pair<int, int> > orderedPairs(RT::Target target) {
	typedef SCI::AbstractColorGridSeriesModel GM;
	typedef SCI::AbstractVectorFieldSeriesModel VM;
	switch (target) {
		case RT::AxisTarget :			return { { AM::AxisMinimum, AM::AxisMaximum } };
		case RT::ColorGridTarget :		return { { GM::ColorGridMinimumZ, GM::ColorGridMaximumZ } };
		case RT::VectorFieldTarget :	return { { VM::VectorFieldMinimumZ, VM::VectorFieldMaximumZ },
												 { VM::VectorFieldMinimumArrowLength, VM::VectorFieldMaximumArrowLength } };
		default :						return {};
	}
}

} // namespace


ChartPropertyPage::ChartPropertyPage(Mapper & mapper, Kind kind, int index, QObject * parent) :
	PropertyPage(parent),
	m_mapper(mapper),
	m_kind(kind),
	m_index(index),
	m_target(RT::ChartTarget),
	m_model(mapper.chartModel())
{
	Q_ASSERT(m_model != nullptr);
	registerValueTypes();
	if (kind == AxisPage)
		m_target = RT::AxisTarget;
	else if (kind == SeriesPage)
		m_target = RT::seriesTarget(*m_model);

	build();

	connect(m_model, &SCI::AbstractChartModel::chartChanged, this, [this](int role) {
		if (m_kind == ChartPage)
			refresh(role);
	});
	connect(m_model, &SCI::AbstractChartModel::axisChanged, this, [this](int axisPosition, int role) {
		if (m_kind != AxisPage || axisPosition != m_index)
			return;
		if (role == AM::AxisUnit)
			updateUnitChoices();
		refresh(role);
		updateEnabledStates();
	});
	connect(m_model, &SCI::AbstractChartModel::seriesViewChanged, this, [this](int start, int end, int role) {
		if (m_kind == SeriesPage && m_index >= start && m_index <= end)
			refresh(role);
	});
	// data and the set of series decide the units an axis offers; a reset may change anything
	for (auto signal : { &SCI::AbstractChartModel::seriesInserted, &SCI::AbstractChartModel::seriesRemoved,
						 &SCI::AbstractChartModel::seriesChanged })
		connect(m_model, signal, this, &ChartPropertyPage::refreshAll);
	connect(m_model, &SCI::AbstractChartModel::modelReset, this, &ChartPropertyPage::refreshAll);

	if (kind == AxisPage) {
		m_chart = mapper.chart();
		if (m_chart != nullptr)
			connect(m_chart->axisWidget(plotAxis(m_index)), &QwtScaleWidget::scaleDivChanged,
					this, &ChartPropertyPage::updateShownRange);
		updateShownRange();
	}
}


QString ChartPropertyPage::pageTitle(const Mapper & mapper, Kind kind, int index) {
	switch (kind) {
		case ChartPage :	return tr("Chart");
		case AxisPage :		return RT::axisName(index);
		case SeriesPage :	break;
	}
	const SCI::AbstractCartesianChartModel * model = mapper.chartModel();
	switch (RT::seriesTarget(*model)) {
		case RT::ColorGridTarget :		return tr("Colour grid");
		case RT::VectorFieldTarget :	return tr("Vector field");
		case RT::BarSeriesTarget :
			return tr("Series '%1'").arg(model->seriesData(index, SCI::AbstractBarSeriesModel::BarTitleText).toString());
		default :
			return tr("Series '%1'").arg(model->seriesData(index, SCI::AbstractLineSeriesModel::SeriesTitle).toString());
	}
}


QString ChartPropertyPage::title() const {
	return pageTitle(m_mapper, m_kind, m_index);
}


QPB::Property * ChartPropertyPage::propertyOfRole(int role) const {
	const auto it = m_rows.find(role);
	return it == m_rows.end() ? nullptr : it->second;
}


void ChartPropertyPage::registerValueTypes() {
	static bool registered = false;
	if (registered)
		return;
	registered = true;
	SCI::ColorMap::registerMetaType();
	QPB::ValueTypeFactory & factory = QPB::ValueTypeFactory::instance();
	factory.registerType(std::unique_ptr<QPB::ValueType>(new ColorMapType));
	factory.registerType(std::unique_ptr<QPB::ValueType>(new StringListType));
	factory.registerType(std::unique_ptr<QPB::ValueType>(new SizeType));
	factory.registerType(std::unique_ptr<QPB::ValueType>(new IsoplethLinesType));
}


void ChartPropertyPage::onEditRequested(QPB::Property * property, const QVariant & newValue) {
	if (!property->tag().isValid() || !isValid())
		return;
	const int role = property->tag().toInt();
	const RT::Entry * entry = RT::entry(m_target, role);
	Q_ASSERT(entry != nullptr);
	const QVariant value = storedValue(*entry, newValue);
	const QString reason = pageCheck(role, value);
	if (!reason.isEmpty())
		emit editRefused(reason);
	else if (!apply(role, value))
		emit editRefused(tr("The chart does not take this value for '%1'; the log says why.").arg(entry->name()));
	// the row shows what the model holds, whatever became of the edit
	refresh(role);
}


void ChartPropertyPage::build() {
	QPB::PropertyModel & model = properties();
	model.clear();
	m_rows.clear();
	std::map<QString, QPB::Property *> groups;
	for (const RT::Entry & entry : RT::editableRoles(m_target))
		if (entry.m_partOf == -1)
			addEntry(entry, groups);
	// the parts of a pen are its sub-properties; a part whose pen is not shown gets a row
	for (const RT::Entry & entry : RT::editableRoles(m_target)) {
		if (entry.m_partOf == -1)
			continue;
		QPB::Property * pen = propertyOfRole(entry.m_partOf);
		if (pen == nullptr) {
			addEntry(entry, groups);
			continue;
		}
		const int row = entry.m_kind == RT::ColorEditor ? QPB::PenType::SP_Color : QPB::PenType::SP_Width;
		pen->child(row)->setTag(entry.m_role);
		m_rows[entry.m_role] = pen->child(row);
	}
	if (m_kind == AxisPage) {
		QPB::Property * shown = model.root()->addGroup(tr("Shown range"));
		m_shownMinimum = shown->addChild(tr("shown minimum"), QPB::NumberType::DOUBLE_ID, 0.0);
		m_shownMaximum = shown->addChild(tr("shown maximum"), QPB::NumberType::DOUBLE_ID, 0.0);
		for (QPB::Property * p : { m_shownMinimum, m_shownMaximum }) {
			p->setEnabled(false);
			p->setToolTip(tr("The range shown now, after zooming and panning."));
		}
	}
	refreshAll();
}


void ChartPropertyPage::addEntry(const RT::Entry & entry, std::map<QString, QPB::Property *> & groups) {
	QPB::Property *& group = groups[entry.group()];
	if (group == nullptr)
		group = properties().root()->addGroup(entry.group());
	// "legend position" reads "position" under "Legend": the panel is narrow
	QString name = entry.name();
	const QString prefix = entry.group() + " ";
	if (name.startsWith(prefix, Qt::CaseInsensitive) && name.size() > prefix.size())
		name = name.mid(prefix.size());
	QPB::Property * p = group->addChild(name, typeOf(entry.m_kind), shownValue(entry, modelValue(entry.m_role)));
	p->setToolTip(entry.name());
	p->setTag(entry.m_role);
	switch (entry.m_kind) {
		case RT::IntEditor : case RT::DoubleEditor : case RT::SizeEditor :
			p->setAttribute(QPB::NumberType::Minimum, entry.m_minimum);
			p->setAttribute(QPB::NumberType::Maximum, entry.m_maximum);
			if (entry.m_kind == RT::DoubleEditor)
				p->setAttribute(QPB::NumberType::Decimals, entry.m_decimals);
			if (entry.m_specialValueText != nullptr)
				p->setAttribute(QPB::NumberType::SpecialValueText, RT::tr(entry.m_specialValueText));
			break;
		case RT::EnumEditor : {
			QStringList names;
			for (const RT::Choice & c : entry.m_choices)
				names << RT::tr(c.m_text);
			p->setAttribute(QPB::EnumType::Names, names);
		} break;
		default : ;
	}
	m_rows[entry.m_role] = p;
}


void ChartPropertyPage::refresh(int role) {
	const RT::Entry * entry = RT::entry(m_target, role);
	if (entry == nullptr) {
		// a role the page does not show may stand for several (a reset of the series' view)
		refreshAll();
		return;
	}
	if (!isValid())
		return;
	if (entry->m_partOf != -1 && propertyOfRole(entry->m_partOf) != nullptr)
		entry = RT::entry(m_target, entry->m_partOf);
	if (QPB::Property * p = propertyOfRole(entry->m_role))
		p->setValue(shownValue(*entry, modelValue(entry->m_role)));
	if (entry->m_role == AM::AxisAutoscale)
		updateEnabledStates();
}


void ChartPropertyPage::refreshAll() {
	if (!isValid())
		return;
	if (m_kind == AxisPage)
		updateUnitChoices();
	for (const RT::Entry & entry : RT::editableRoles(m_target)) {
		QPB::Property * p = propertyOfRole(entry.m_role);
		if (p != nullptr && !p->isSubProperty())
			p->setValue(shownValue(entry, modelValue(entry.m_role)));
	}
	updateEnabledStates();
	updateShownRange();
}


void ChartPropertyPage::updateUnitChoices() {
	QPB::Property * unit = propertyOfRole(AM::AxisUnit);
	if (unit == nullptr)
		return;
	m_unitIds.clear();
	QStringList names;
	for (const ZEB::Unit & u : m_mapper.axisUnitChoices(m_index)) {
		m_unitIds.push_back(u.id());
		names << QString::fromStdString(u.name());
	}
	// an axis without data has no unit to choose; its own unit is shown
	if (m_unitIds.empty()) {
		const unsigned int id = modelValue(AM::AxisUnit).toUInt();
		m_unitIds.push_back(id);
		names << QString::fromStdString(ZEB::Unit(id).name());
	}
	unit->setAttribute(QPB::EnumType::Names, names);
	unit->setEnabled(m_unitIds.size() > 1);
	unit->setValue(shownValue(*RT::entry(m_target, AM::AxisUnit), modelValue(AM::AxisUnit)));
}


void ChartPropertyPage::updateEnabledStates() {
	if (m_kind != AxisPage)
		return;
	// the axes of a line chart are shown while series use them, whatever is stored
	if (QPB::Property * visible = propertyOfRole(AM::AxisEnabled)) {
		if (RT::seriesTarget(*m_model) == RT::LineSeriesTarget) {
			visible->setEnabled(false);
			visible->setToolTip(tr("An axis of a line chart is shown while a series uses it."));
		}
	}
	const bool fixed = !modelValue(AM::AxisAutoscale).toBool();
	for (int role : { AM::AxisMinimum, AM::AxisMaximum })
		if (QPB::Property * p = propertyOfRole(role))
			p->setEnabled(fixed);
}


void ChartPropertyPage::updateShownRange() {
	if (m_chart == nullptr || m_shownMinimum == nullptr)
		return;
	const QwtScaleDiv & div = m_chart->axisScaleDiv(plotAxis(m_index));
	m_shownMinimum->setValue(div.lowerBound());
	m_shownMaximum->setValue(div.upperBound());
}


QVariant ChartPropertyPage::modelValue(int role) const {
	switch (m_kind) {
		case ChartPage :	return m_model->chartData(role);
		case AxisPage :		return m_model->axisData(m_index, role);
		case SeriesPage :	return m_model->seriesData(m_index, role);
	}
	return QVariant();
}


QVariant ChartPropertyPage::shownValue(const RT::Entry & entry, const QVariant & modelValue) const {
	switch (entry.m_kind) {
		case RT::EnumEditor :
			for (size_t i = 0; i < entry.m_choices.size(); ++i)
				if (entry.m_choices[i].m_value == modelValue.toInt())
					return static_cast<int>(i);
			return -1;
		case RT::UnitEditor :
			for (size_t i = 0; i < m_unitIds.size(); ++i)
				if (m_unitIds[i] == modelValue.toUInt())
					return static_cast<int>(i);
			return -1;
		case RT::IntEditor :		return modelValue.toInt();
		case RT::DoubleEditor :		return modelValue.toDouble();
		case RT::BoolEditor :		return modelValue.toBool();
		default :					return modelValue;
	}
}


QVariant ChartPropertyPage::storedValue(const RT::Entry & entry, const QVariant & shownValue) const {
	const size_t index = static_cast<size_t>(shownValue.toInt());
	switch (entry.m_kind) {
		case RT::EnumEditor :	return entry.m_choices.at(index).m_value;
		case RT::UnitEditor :	return m_unitIds.at(index);
		default :				return shownValue;
	}
}


QString ChartPropertyPage::pageCheck(int role, const QVariant & value) const {
	for (const std::pair<int, int> & pair : orderedPairs(m_target)) {
		if (role != pair.first && role != pair.second)
			continue;
		const bool isLower = role == pair.first;
		const double mine = value.toDouble();
		const double other = modelValue(isLower ? pair.second : pair.first).toDouble();
		// a limit taken from the data (NaN) orders with nothing
		if (std::isnan(mine) || std::isnan(other) || (isLower ? mine < other : mine > other))
			return QString();
		const QString lower = RT::entry(m_target, pair.first)->name();
		const QString upper = RT::entry(m_target, pair.second)->name();
		const QString otherText = QtExt::ValidatingLineEdit::formatNumber(other, 6, QLocale());
		return isLower ? tr("The %1 must be less than the %2 (%3).").arg(lower, upper, otherText)
					   : tr("The %1 must be greater than the %2 (%3).").arg(upper, lower, otherText);
	}
	return QString();
}


bool ChartPropertyPage::apply(int role, const QVariant & value) {
	FUNCID(ChartPropertyPage::apply);
	ProjectHandler & handler = ProjectHandler::instance();
	try {
		const int mapperIndex = handler.project().mapperModel()->indexOf(&m_mapper);
		switch (m_kind) {
			case ChartPage :	return handler.setChartProperty(mapperIndex, role, value);
			case AxisPage :		return handler.setAxisProperty(mapperIndex, m_index, role, value);
			case SeriesPage :	return handler.setSeriesProperty(mapperIndex, m_index, role, value);
		}
	}
	catch (ZEB::Exception & ex) {
		ZEB::Exception(ex, "Property of the chart could not be set.", FUNC_ID).reportAllAsErrors();
	}
	return false;
}


bool ChartPropertyPage::isValid() const {
	return m_kind != SeriesPage || m_index < static_cast<int>(m_model->seriesCount());
}

} // namespace OVP
