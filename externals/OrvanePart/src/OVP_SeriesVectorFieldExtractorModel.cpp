#include "OVP_SeriesVectorFieldExtractorModel.h"

#include <EM_ExtractorVecOutputBase.h>

#include "OVP_ExtractorAxisData.h"
#include "OVP_Mapper.h"

namespace OVP {

SeriesVectorFieldExtractorModel::SeriesVectorFieldExtractorModel(Mapper * mapper) :
	m_mapper(mapper)
{
}


unsigned int SeriesVectorFieldExtractorModel::seriesCount() const {
	return m_mapper->extractor3D().m_extractor ? 1 : 0;
}


unsigned int SeriesVectorFieldExtractorModel::xGridSize(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(o->x().size());
}


const double * SeriesVectorFieldExtractorModel::xGrid(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->x().m_data.data();
}


unsigned int SeriesVectorFieldExtractorModel::yGridSize(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(o->y().size());
}


const double * SeriesVectorFieldExtractorModel::yGrid(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->y().m_data.data();
}


const double * SeriesVectorFieldExtractorModel::xComponents(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->xComponents().m_data.data();
}


const double * SeriesVectorFieldExtractorModel::yComponents(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->yComponents().m_data.data();
}


ZEB::Unit SeriesVectorFieldExtractorModel::xUnit(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->x().m_unit;
}


ZEB::Unit SeriesVectorFieldExtractorModel::yUnit(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->y().m_unit;
}


ZEB::Unit SeriesVectorFieldExtractorModel::valueUnit(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->xComponents().m_unit;
}


QVariant SeriesVectorFieldExtractorModel::axisData(int axisPosition, int role) const {
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


bool SeriesVectorFieldExtractorModel::setAxisData(const QVariant & value, int axisPosition, int role) {
	const bool stored = AbstractCartesianChartModel::setAxisData(value, axisPosition, role);
	if (stored && role == AxisUnit)
		m_mapper->applyAxisUnits();
	return stored;
}


const EM::ExtractorVecOutputBase * SeriesVectorFieldExtractorModel::output(int seriesIndex) const {
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	if (seriesIndex != 0 || !m_mapper->extractor3D().m_extractor)
		return nullptr;
	return static_cast<const EM::ExtractorVecOutputBase *>(m_mapper->extractor3D().m_extractor.get());
}

} // namespace OVP
