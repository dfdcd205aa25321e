#ifndef OVP_SeriesColorGridExtractorModelH
#define OVP_SeriesColorGridExtractorModelH

#include "OVP_SeriesGridExtractorModel.h"

namespace OVP {

/*! The chart model of a mapper with a colour grid: the one grid is the output of the mapper's
	3D extractor (x and y coordinates, the values, x index fastest), handed to the chart without
	copying. Axis titles, date axes and axis units as in SeriesGridExtractorModel.
*/
class SeriesColorGridExtractorModel :
		public SeriesGridExtractorModel<SCI::AbstractColorGridSeriesModel, EM::Extractor3DOutputBase>
{
	Q_OBJECT
public:
	/*! The model of the mapper that owns it. */
	explicit SeriesColorGridExtractorModel(Mapper * mapper);

	unsigned int xValueSize(int seriesIndex) const override;
	unsigned int yValueSize(int seriesIndex) const override;
	const double * values(int seriesIndex) const override;
	ZEB::Unit valueUnit(int seriesIndex) const override;
};

} // namespace OVP

#endif // OVP_SeriesColorGridExtractorModelH
