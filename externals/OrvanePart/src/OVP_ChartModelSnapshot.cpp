#include "OVP_ChartModelSnapshot.h"

#include <tinyxml.h>

#include <Sci_AbstractLineSeriesModel.h>

#include "OVP_Mapper.h"

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
	mapper.applyAxisUnits();
}

} // namespace OVP
