#ifndef OVP_SeriesGridExtractorModelH
#define OVP_SeriesGridExtractorModelH

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>

namespace EM {
class Extractor3DOutputBase;
class ExtractorVecOutputBase;
}

namespace OVP {

class Mapper;

/*! Base of the chart models over the mapper's one 3D or vector-field extractor: ChartModel is
	the abstract model of the chart kind (colour grid or vector field), Output the output base
	of the extractor. The one series is the extractor's output; this base hands its grid (x and
	y coordinates with their units) to the chart without copying, the derived model the values.
	Display properties stay in the abstract chart model; like the line model this model fills
	"$quantity" in axis titles (x: the output's x name, left: its y name, right: the value
	name), counts date axes from the container's start year and passes axis unit changes on to
	the extractor.
*/
template <class ChartModel, class Output>
class SeriesGridExtractorModel : public ChartModel {
public:
	/*! 1 when the mapper has its 3D or vector-field extractor, else 0. */
	unsigned int seriesCount() const override;
	unsigned int xGridSize(int seriesIndex) const override;
	const double * xGrid(int seriesIndex) const override;
	unsigned int yGridSize(int seriesIndex) const override;
	const double * yGrid(int seriesIndex) const override;
	ZEB::Unit xUnit(int seriesIndex) const override;
	ZEB::Unit yUnit(int seriesIndex) const override;

	/*! Titles with "$quantity" (role 1) and the time zero of date axes (role 27) from the data. */
	QVariant axisData(int axisPosition, int role) const override;
	/*! Stores an axis property; a new axis unit becomes the extractor's target unit. A unit the
		data on the axis do not convert to is refused (reported, false returned).
	*/
	bool setAxisData(const QVariant & value, int axisPosition, int role) override;

protected:
	/*! The model of the mapper that owns it. */
	explicit SeriesGridExtractorModel(Mapper * mapper);

	/*! The output of series 0, extracted first when the mapper's data is still pending; null
		for a bad index or without extractor.
	*/
	const Output * output(int seriesIndex) const;

	Mapper *	m_mapper;
};

// both chart kinds are instantiated once, in OVP_SeriesGridExtractorModel.cpp
extern template class SeriesGridExtractorModel<SCI::AbstractColorGridSeriesModel, EM::Extractor3DOutputBase>;
extern template class SeriesGridExtractorModel<SCI::AbstractVectorFieldSeriesModel, EM::ExtractorVecOutputBase>;

} // namespace OVP

#endif // OVP_SeriesGridExtractorModelH
