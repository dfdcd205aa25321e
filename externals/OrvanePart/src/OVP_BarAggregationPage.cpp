#include "OVP_BarAggregationPage.h"

#include <limits>

#include <QPB_EnumType.h>
#include <QPB_NumberType.h>

#include <ZEB_Exception.h>

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"
#include "OVP_SeriesBarExtractorModel.h"
#include "OVP_UndoBarAggregation.h"
#include "OVP_UserInteraction.h"

namespace OVP {

BarAggregationPage::BarAggregationPage(Mapper & mapper, QObject * parent) :
	PropertyPage(parent),
	m_mapper(&mapper)
{
	Q_ASSERT(mapper.type() == Mapper::MT_Bar);
	QPB::Property * group = properties().root()->addGroup(tr("Aggregation"));
	QStringList periods;
	for (int p = 0; p < BarAggregation::NUM_P; ++p)
		periods << BarAggregation::periodText(static_cast<BarAggregation::Period>(p));
	m_period = group->addChild(tr("period"), QPB::EnumType::ID, 0);
	m_period->setAttribute(QPB::EnumType::Names, periods);
	m_period->setTag(R_Period);
	QStringList statistics;
	for (int s = 0; s < BarAggregation::NUM_S; ++s)
		statistics << BarAggregation::statisticText(static_cast<BarAggregation::Statistic>(s));
	m_statistic = group->addChild(tr("statistic"), QPB::EnumType::ID, 0);
	m_statistic->setAttribute(QPB::EnumType::Names, statistics);
	m_statistic->setTag(R_Statistic);
	m_statistic->setToolTip(tr("A sum keeps the unit of the values; counted days are in days."));
	m_threshold = group->addChild(tr("threshold"), QPB::NumberType::DOUBLE_ID, 0.0);
	m_threshold->setAttribute(QPB::NumberType::Minimum, -std::numeric_limits<double>::max());
	m_threshold->setAttribute(QPB::NumberType::Maximum, std::numeric_limits<double>::max());
	m_threshold->setAttribute(QPB::NumberType::Decimals, 3);
	m_threshold->setTag(R_Threshold);

	SCI::AbstractChartModel * model = mapper.chartModel();
	// the settings change with their bars; a reload of the chart replaces them
	connect(model, &SCI::AbstractChartModel::seriesChanged, this, &BarAggregationPage::refresh);
	connect(model, &SCI::AbstractChartModel::modelReset, this, &BarAggregationPage::refresh);
	refresh();
}


QString BarAggregationPage::pageTitle() {
	return tr("Bars");
}


void BarAggregationPage::onEditRequested(QPB::Property * property, const QVariant & newValue) {
	if (m_mapper.isNull())
		return;
	BarAggregation::Settings s = settings();
	switch (property->tag().toInt()) {
		case R_Period :		s.m_period = static_cast<BarAggregation::Period>(newValue.toInt()); break;
		case R_Statistic :	s.m_statistic = static_cast<BarAggregation::Statistic>(newValue.toInt()); break;
		default :			s.m_threshold = newValue.toDouble(); break;
	}
	try {
		ProjectHandler & handler = ProjectHandler::instance();
		UndoBarAggregation::push(handler, handler.project().mapperModel()->indexOf(m_mapper), s);
	}
	catch (ZEB::Exception & ex) {
		emit editRefused(exceptionText(ex));
	}
	refresh();
}


void BarAggregationPage::refresh() {
	if (m_mapper.isNull())
		return;
	const BarAggregation::Settings s = settings();
	m_period->setValue(static_cast<int>(s.m_period));
	m_statistic->setValue(static_cast<int>(s.m_statistic));
	m_threshold->setValue(s.m_threshold);
	m_threshold->setEnabled(s.countsDays());
	const ZEB::Unit unit = static_cast<const SeriesBarExtractorModel &>(*m_mapper->chartModel()).thresholdUnit();
	m_threshold->setName(tr("threshold [%1]").arg(QString::fromStdString(unit.name())));
}


BarAggregation::Settings BarAggregationPage::settings() const {
	return static_cast<const SeriesBarExtractorModel &>(*m_mapper->chartModel()).aggregation();
}

} // namespace OVP
