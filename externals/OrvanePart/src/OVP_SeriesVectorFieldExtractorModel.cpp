#include "OVP_SeriesVectorFieldExtractorModel.h"

#include <EM_ExtractorVecOutputBase.h>

namespace OVP {

SeriesVectorFieldExtractorModel::SeriesVectorFieldExtractorModel(Mapper * mapper) :
	SeriesGridExtractorModel(mapper)
{
}


const double * SeriesVectorFieldExtractorModel::xComponents(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->xComponents().m_data.data();
}


const double * SeriesVectorFieldExtractorModel::yComponents(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->yComponents().m_data.data();
}


ZEB::Unit SeriesVectorFieldExtractorModel::valueUnit(int seriesIndex) const {
	const EM::ExtractorVecOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->xComponents().m_unit;
}

} // namespace OVP
