#include "OVP_ChartModelSnapshot.h"

#include <tinyxml.h>

#include <Sci_AbstractBarSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>

#include "OVP_Mapper.h"
#include "OVP_UndoChartProperty.h"

namespace OVP {

ChartModelSnapshot::ChartModelSnapshot(const Mapper & mapper) :
	m_element(new TiXmlElement("ChartModel"))
{
	SCI::AbstractCartesianChartModel & model = *mapper.chartModel();
	const bool writeAll = model.writeAll();
	model.setWriteAll(true);
	model.writeXML(m_element.get());
	model.setWriteAll(writeAll);
}


ChartModelSnapshot::~ChartModelSnapshot() = default;
ChartModelSnapshot::ChartModelSnapshot(ChartModelSnapshot && other) noexcept = default;
ChartModelSnapshot & ChartModelSnapshot::operator=(ChartModelSnapshot && other) noexcept = default;


void ChartModelSnapshot::restore(Mapper & mapper) const {
	mapper.chartModel()->readXML(m_element.get());
	adopt(mapper);
}


void ChartModelSnapshot::adopt(Mapper & mapper) {
	typedef SCI::AbstractCartesianChartModel CM;
	const CM & model = *mapper.chartModel();
	for (int axis = 0; axis < CM::NUM_AXES; ++axis)
		mapper.checkAxisUnit(axis, model.axisData(axis, CM::AxisUnit).toUInt());
	if (mapper.type() == Mapper::MT_2D) {
		const SCI::AbstractLineSeriesModel & lineModel = static_cast<const SCI::AbstractLineSeriesModel &>(model);
		for (unsigned int i = 0; i < mapper.extractorCount(); ++i)
			mapper.setSeriesTitle(i, lineModel.lineProperties(static_cast<int>(i)).m_titleText);
	}
	else if (mapper.type() == Mapper::MT_Bar) {
		const SCI::AbstractBarSeriesModel & barModel = static_cast<const SCI::AbstractBarSeriesModel &>(model);
		for (unsigned int i = 0; i < mapper.extractorCount(); ++i)
			mapper.setSeriesTitle(i, barModel.barSymbolInfo(static_cast<int>(i)).m_titleText);
	}
	mapper.applyAxisUnits();
}


ChartTexts::ChartTexts(const SCI::AbstractCartesianChartModel & model) {
	typedef SCI::AbstractCartesianChartModel CM;
	typedef UndoChartProperty U;
	m_title = U::storedValue(model, U::ChartProperty, 0, SCI::AbstractChartModel::TitleText);
	for (int axis = 0; axis < CM::NUM_AXES; ++axis)
		m_axisTitles.push_back(U::storedValue(model, U::AxisProperty, axis, CM::AxisTitleText));
	if (dynamic_cast<const SCI::AbstractLineSeriesModel *>(&model) != nullptr)
		m_seriesTitleRole = SCI::AbstractLineSeriesModel::SeriesTitleText;
	else if (dynamic_cast<const SCI::AbstractBarSeriesModel *>(&model) != nullptr)
		m_seriesTitleRole = SCI::AbstractBarSeriesModel::BarTitleText;
	for (unsigned int i = 0; m_seriesTitleRole >= 0 && i < model.seriesCount(); ++i)
		m_seriesTitles.push_back(U::storedValue(model, U::SeriesProperty, static_cast<int>(i), m_seriesTitleRole));
}


void ChartTexts::restore(SCI::AbstractCartesianChartModel & model) const {
	typedef SCI::AbstractCartesianChartModel CM;
	model.setChartData(m_title, SCI::AbstractChartModel::TitleText);
	for (int axis = 0; axis < CM::NUM_AXES; ++axis)
		model.setAxisData(m_axisTitles[static_cast<std::size_t>(axis)], axis, CM::AxisTitleText);
	for (std::size_t i = 0; i < m_seriesTitles.size() && i < model.seriesCount(); ++i)
		model.setSeriesData(m_seriesTitles[i], static_cast<int>(i), m_seriesTitleRole);
}

} // namespace OVP
