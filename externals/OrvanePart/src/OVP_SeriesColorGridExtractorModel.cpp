#include "OVP_SeriesColorGridExtractorModel.h"

#include <EM_Extractor3DOutputBase.h>

#include "OVP_ExtractorAxisData.h"
#include "OVP_Mapper.h"

namespace OVP {

SeriesColorGridExtractorModel::SeriesColorGridExtractorModel(Mapper * mapper) :
	m_mapper(mapper)
{
}


unsigned int SeriesColorGridExtractorModel::seriesCount() const {
	return m_mapper->extractor3D().m_extractor ? 1 : 0;
}


unsigned int SeriesColorGridExtractorModel::xGridSize(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(o->x().size());
}


const double * SeriesColorGridExtractorModel::xGrid(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->x().m_data.data();
}


unsigned int SeriesColorGridExtractorModel::yGridSize(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(o->y().size());
}


const double * SeriesColorGridExtractorModel::yGrid(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->y().m_data.data();
}


unsigned int SeriesColorGridExtractorModel::xValueSize(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(o->xCellCount());
}


unsigned int SeriesColorGridExtractorModel::yValueSize(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(o->yCellCount());
}


const double * SeriesColorGridExtractorModel::values(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->values().m_data.data();
}


ZEB::Unit SeriesColorGridExtractorModel::xUnit(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->x().m_unit;
}


ZEB::Unit SeriesColorGridExtractorModel::yUnit(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->y().m_unit;
}


ZEB::Unit SeriesColorGridExtractorModel::valueUnit(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->values().m_unit;
}


QVariant SeriesColorGridExtractorModel::axisData(int axisPosition, int role) const {
	const Mapper::ExtractorEntry & entry = m_mapper->extractor3D();
	if (role == AxisTitle) {
		const QString title = AbstractCartesianChartModel::axisData(axisPosition, role).toString();
		if (!entry.m_extractor || axisPosition < BottomAxis || axisPosition > RightAxis)
			return title;
		const EM::ExtractorBase::OutputDataType data[] = {
			EM::ExtractorBase::ODT_X, EM::ExtractorBase::ODT_Y, EM::ExtractorBase::ODT_Values };
		return ExtractorAxisData::replaceQuantity(title,
			entry.m_extractor->information(EM::ExtractorBase::IT_Name, data[axisPosition]));
	}
	if (role == AxisDateTimeZero) {
		const QDateTime stored = AbstractCartesianChartModel::axisData(axisPosition, role).toDateTime();
		if (!entry.m_extractor)
			return stored;
		return ExtractorAxisData::dateTimeZero(stored, entry.m_dataIOs.front().get());
	}
	return AbstractCartesianChartModel::axisData(axisPosition, role);
}


bool SeriesColorGridExtractorModel::setAxisData(const QVariant & value, int axisPosition, int role) {
	const bool stored = AbstractCartesianChartModel::setAxisData(value, axisPosition, role);
	if (stored && role == AxisUnit)
		m_mapper->applyAxisUnits();
	return stored;
}


const EM::Extractor3DOutputBase * SeriesColorGridExtractorModel::output(int seriesIndex) const {
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	if (seriesIndex != 0 || !m_mapper->extractor3D().m_extractor)
		return nullptr;
	return static_cast<const EM::Extractor3DOutputBase *>(m_mapper->extractor3D().m_extractor.get());
}

} // namespace OVP
