#include "OVP_SeriesGridExtractorModel.h"

#include <EM_Extractor3DOutputBase.h>
#include <EM_ExtractorVecOutputBase.h>

#include "OVP_ExtractorAxisData.h"
#include "OVP_Mapper.h"

namespace OVP {

template <class ChartModel, class Output>
SeriesGridExtractorModel<ChartModel, Output>::SeriesGridExtractorModel(Mapper * mapper) :
	m_mapper(mapper)
{
}


template <class ChartModel, class Output>
unsigned int SeriesGridExtractorModel<ChartModel, Output>::seriesCount() const {
	return m_mapper->extractor3D().m_extractor ? 1 : 0;
}


template <class ChartModel, class Output>
unsigned int SeriesGridExtractorModel<ChartModel, Output>::xGridSize(int seriesIndex) const {
	const Output * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(o->x().size());
}


template <class ChartModel, class Output>
const double * SeriesGridExtractorModel<ChartModel, Output>::xGrid(int seriesIndex) const {
	const Output * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->x().m_data.data();
}


template <class ChartModel, class Output>
unsigned int SeriesGridExtractorModel<ChartModel, Output>::yGridSize(int seriesIndex) const {
	const Output * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(o->y().size());
}


template <class ChartModel, class Output>
const double * SeriesGridExtractorModel<ChartModel, Output>::yGrid(int seriesIndex) const {
	const Output * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->y().m_data.data();
}


template <class ChartModel, class Output>
ZEB::Unit SeriesGridExtractorModel<ChartModel, Output>::xUnit(int seriesIndex) const {
	const Output * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->x().m_unit;
}


template <class ChartModel, class Output>
ZEB::Unit SeriesGridExtractorModel<ChartModel, Output>::yUnit(int seriesIndex) const {
	const Output * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->y().m_unit;
}


template <class ChartModel, class Output>
QVariant SeriesGridExtractorModel<ChartModel, Output>::axisData(int axisPosition, int role) const {
	typedef SCI::AbstractCartesianChartModel CM;
	const Mapper::ExtractorEntry & entry = m_mapper->extractor3D();
	if (role == CM::AxisTitle) {
		const QString title = CM::axisData(axisPosition, role).toString();
		if (!entry.m_extractor || axisPosition < CM::BottomAxis || axisPosition > CM::RightAxis)
			return title;
		const EM::ExtractorBase::OutputDataType data[] = {
			EM::ExtractorBase::ODT_X, EM::ExtractorBase::ODT_Y, EM::ExtractorBase::ODT_Values };
		return ExtractorAxisData::replaceQuantity(title,
			entry.m_extractor->information(EM::ExtractorBase::IT_Name, data[axisPosition]));
	}
	if (role == CM::AxisDateTimeZero) {
		const QDateTime stored = CM::axisData(axisPosition, role).toDateTime();
		if (!entry.m_extractor)
			return stored;
		return ExtractorAxisData::dateTimeZero(stored, entry.m_dataIOs.front().get());
	}
	return CM::axisData(axisPosition, role);
}


template <class ChartModel, class Output>
bool SeriesGridExtractorModel<ChartModel, Output>::setAxisData(const QVariant & value, int axisPosition, int role) {
	typedef SCI::AbstractCartesianChartModel CM;
	if (role == CM::AxisUnit && !ExtractorAxisData::acceptsUnit(*m_mapper, axisPosition, value))
		return false;
	const bool stored = CM::setAxisData(value, axisPosition, role);
	if (stored && role == CM::AxisUnit)
		m_mapper->applyAxisUnits();
	return stored;
}


template <class ChartModel, class Output>
const Output * SeriesGridExtractorModel<ChartModel, Output>::output(int seriesIndex) const {
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	if (seriesIndex != 0 || !m_mapper->extractor3D().m_extractor)
		return nullptr;
	m_mapper->extractPendingData();
	return static_cast<const Output *>(m_mapper->extractor3D().m_extractor.get());
}


template class SeriesGridExtractorModel<SCI::AbstractColorGridSeriesModel, EM::Extractor3DOutputBase>;
template class SeriesGridExtractorModel<SCI::AbstractVectorFieldSeriesModel, EM::ExtractorVecOutputBase>;

} // namespace OVP
