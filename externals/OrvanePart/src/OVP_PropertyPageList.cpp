#include "OVP_PropertyPageList.h"

#include <Sci_AbstractBarSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_PropertyRoleTable.h>

#include "OVP_BarAggregationPage.h"
#include "OVP_ChartPropertyPage.h"
#include "OVP_DataSetPropertyPage.h"
#include "OVP_Mapper.h"

namespace OVP {

namespace {

typedef SCI::AbstractCartesianChartModel AM;
typedef SCI::AbstractLineSeriesModel LM;

} // namespace


PropertyPageList::PropertyPageList(Mapper & mapper, QObject * parent) :
	QObject(parent),
	m_mapper(mapper)
{
	Q_ASSERT(mapper.chartModel() != nullptr);
	// the pages show and change what the chart shows
	mapper.extractPendingData();
	rebuild();
	SCI::AbstractCartesianChartModel * model = mapper.chartModel();
	for (auto signal : { &SCI::AbstractChartModel::seriesInserted, &SCI::AbstractChartModel::seriesRemoved })
		connect(model, signal, this, [this]() { rebuild(); emit pagesChanged(); });
	connect(model, &SCI::AbstractChartModel::modelReset, this, [this]() { rebuild(); emit pagesChanged(); });
	connect(model, &SCI::AbstractChartModel::seriesViewChanged, this, [this](int, int, int role) {
		if (SCI::PropertyRoleTable::seriesTarget(*m_mapper.chartModel()) == SCI::PropertyRoleTable::LineSeriesTarget
			&& rightAxisUsed() != m_hasRightAxis)
		{
			rebuild();
			emit pagesChanged();
		}
		// the title roles of line and bar series are both 1
		else if (role == LM::SeriesTitleText || role == -1) {
			emit titlesChanged();
		}
	});
}


PropertyPageList::~PropertyPageList() {
	for (Entry & e : m_entries)
		if (e.m_page != nullptr)
			e.m_page.release()->deleteLater();
}


QString PropertyPageList::title(int index) const {
	const Entry & e = m_entries[static_cast<size_t>(index)];
	return e.m_page != nullptr ? e.m_page->title() : e.m_title();
}


PropertyPage * PropertyPageList::page(int index) {
	Entry & e = m_entries[static_cast<size_t>(index)];
	if (e.m_page == nullptr)
		e.m_page.reset(e.m_make());
	return e.m_page.get();
}


int PropertyPageList::indexOf(const SCI::ChartElement & element) const {
	SCI::ChartElement wanted;
	switch (element.m_kind) {
		case SCI::ChartElement::Title :
		case SCI::ChartElement::Canvas :
			wanted = SCI::ChartElement(SCI::ChartElement::Canvas);
			break;
		case SCI::ChartElement::Legend :
			wanted = element.m_index < 0 ? SCI::ChartElement(SCI::ChartElement::Canvas)
										 : SCI::ChartElement(SCI::ChartElement::Series, element.m_index);
			break;
		case SCI::ChartElement::Axis :
			wanted = element;
			break;
		case SCI::ChartElement::Series :
			wanted = element;
			break;
		case SCI::ChartElement::ColorBar :
			// the one colour grid or vector field series draws the colour bar
			wanted = SCI::ChartElement(SCI::ChartElement::Series, 0);
			break;
		case SCI::ChartElement::None :
			return -1;
	}
	for (size_t i = 0; i < m_entries.size(); ++i)
		if (m_entries[i].m_element == wanted)
			return static_cast<int>(i);
	return -1;
}


void PropertyPageList::rebuild() {
	// the change may come from an edit of one of these pages, which is still running
	for (Entry & e : m_entries)
		if (e.m_page != nullptr)
			e.m_page.release()->deleteLater();
	m_entries.clear();
	Mapper & mapper = m_mapper;
	auto addChartPage = [this, &mapper](ChartPropertyPage::Kind kind, int index, const SCI::ChartElement & element) {
		Entry e;
		e.m_element = element;
		e.m_title = [&mapper, kind, index]() { return ChartPropertyPage::pageTitle(mapper, kind, index); };
		e.m_make = [&mapper, kind, index]() { return new ChartPropertyPage(mapper, kind, index); };
		m_entries.push_back(std::move(e));
	};
	addChartPage(ChartPropertyPage::ChartPage, 0, SCI::ChartElement(SCI::ChartElement::Canvas));
	if (mapper.type() == Mapper::MT_Bar) {
		Entry e;
		e.m_title = []() { return BarAggregationPage::pageTitle(); };
		e.m_make = [&mapper]() { return new BarAggregationPage(mapper); };
		m_entries.push_back(std::move(e));
	}
	m_hasRightAxis = rightAxisUsed();
	for (int axis : { AM::BottomAxis, AM::LeftAxis, AM::RightAxis })
		if (axis != AM::RightAxis || m_hasRightAxis)
			addChartPage(ChartPropertyPage::AxisPage, axis, SCI::ChartElement(SCI::ChartElement::Axis, axis));
	const int seriesCount = static_cast<int>(mapper.chartModel()->seriesCount());
	for (int i = 0; i < seriesCount; ++i)
		addChartPage(ChartPropertyPage::SeriesPage, i, SCI::ChartElement(SCI::ChartElement::Series, i));
	for (unsigned int i = 0; i < mapper.extractorCount(); ++i) {
		Entry e;
		e.m_title = [&mapper, i]() { return DataSetPropertyPage::pageTitle(mapper, i); };
		e.m_make = [&mapper, i]() { return new DataSetPropertyPage(mapper, i); };
		m_entries.push_back(std::move(e));
	}
}


bool PropertyPageList::rightAxisUsed() const {
	const SCI::AbstractCartesianChartModel & model = *m_mapper.chartModel();
	if (SCI::PropertyRoleTable::seriesTarget(model) != SCI::PropertyRoleTable::LineSeriesTarget)
		return false;
	for (unsigned int i = 0; i < model.seriesCount(); ++i)
		if (!model.seriesData(static_cast<int>(i), LM::SeriesLeftAxis).toBool())
			return true;
	return false;
}

} // namespace OVP
