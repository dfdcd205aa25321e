#include "OVP_SeriesColorGridExtractorModel.h"

#include <EM_Extractor3DOutputBase.h>

namespace OVP {

SeriesColorGridExtractorModel::SeriesColorGridExtractorModel(Mapper * mapper) :
	SeriesGridExtractorModel(mapper)
{
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


ZEB::Unit SeriesColorGridExtractorModel::valueUnit(int seriesIndex) const {
	const EM::Extractor3DOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->values().m_unit;
}

} // namespace OVP
