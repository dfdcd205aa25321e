#ifndef OVP_SeriesVectorFieldExtractorModelH
#define OVP_SeriesVectorFieldExtractorModelH

#include <Sci_AbstractVectorFieldSeriesModel.h>

namespace EM {
class ExtractorVecOutputBase;
}

namespace OVP {

class Mapper;

/*! The chart model of a mapper with a vector field: the one field is the output of the
	mapper's vector-field extractor (grid positions and the two components per point), handed
	to the chart without copying. Display properties stay in the abstract vector field model;
	like the line model this model fills "$quantity" in axis titles (x: the output's x name,
	left: its y name, right: the component name), counts date axes from the container's start
	year and passes axis unit changes on to the extractor.
*/
class SeriesVectorFieldExtractorModel : public SCI::AbstractVectorFieldSeriesModel {
	Q_OBJECT
public:
	/*! The model of the mapper that owns it. */
	explicit SeriesVectorFieldExtractorModel(Mapper * mapper);

	/*! 1 when the mapper has its vector-field extractor, else 0. */
	unsigned int seriesCount() const override;
	unsigned int xGridSize(int seriesIndex) const override;
	const double * xGrid(int seriesIndex) const override;
	unsigned int yGridSize(int seriesIndex) const override;
	const double * yGrid(int seriesIndex) const override;
	const double * xComponents(int seriesIndex) const override;
	const double * yComponents(int seriesIndex) const override;
	ZEB::Unit xUnit(int seriesIndex) const override;
	ZEB::Unit yUnit(int seriesIndex) const override;
	ZEB::Unit valueUnit(int seriesIndex) const override;

	/*! Titles with "$quantity" (role 1) and the time zero of date axes (role 27) from the data. */
	QVariant axisData(int axisPosition, int role) const override;
	/*! Stores an axis property; a new axis unit becomes the extractor's target unit. */
	bool setAxisData(const QVariant & value, int axisPosition, int role) override;

private:
	/*! The output of series 0; null for a bad index or without extractor. */
	const EM::ExtractorVecOutputBase * output(int seriesIndex) const;

	Mapper *	m_mapper;
};

} // namespace OVP

#endif // OVP_SeriesVectorFieldExtractorModelH
