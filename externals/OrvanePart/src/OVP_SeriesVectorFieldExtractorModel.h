#ifndef OVP_SeriesVectorFieldExtractorModelH
#define OVP_SeriesVectorFieldExtractorModelH

#include "OVP_SeriesGridExtractorModel.h"

namespace OVP {

/*! The chart model of a mapper with a vector field: the one field is the output of the
	mapper's vector-field extractor (grid positions and the two components per point), handed
	to the chart without copying. Axis titles, date axes and axis units as in
	SeriesGridExtractorModel; the value unit is the unit of the components.
*/
class SeriesVectorFieldExtractorModel :
		public SeriesGridExtractorModel<SCI::AbstractVectorFieldSeriesModel, EM::ExtractorVecOutputBase>
{
	Q_OBJECT
public:
	/*! The model of the mapper that owns it. */
	explicit SeriesVectorFieldExtractorModel(Mapper * mapper);

	const double * xComponents(int seriesIndex) const override;
	const double * yComponents(int seriesIndex) const override;
	ZEB::Unit valueUnit(int seriesIndex) const override;
};

} // namespace OVP

#endif // OVP_SeriesVectorFieldExtractorModelH
