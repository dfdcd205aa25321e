#ifndef OVP_SeriesColorGridExtractorModelH
#define OVP_SeriesColorGridExtractorModelH

#include <Sci_AbstractColorGridSeriesModel.h>

namespace EM {
class Extractor3DOutputBase;
}

namespace OVP {

class Mapper;

/*! The chart model of a mapper with a colour grid: the one grid is the output of the mapper's
	3D extractor (x and y coordinates, the values, x index fastest), handed to the chart without
	copying. Display properties stay in the abstract colour grid model; like the line model this
	model fills "$quantity" in axis titles (x: the output's x name, left: its y name, right: the
	value name), counts date axes from the container's start year and passes axis unit changes
	on to the extractor.
*/
class SeriesColorGridExtractorModel : public SCI::AbstractColorGridSeriesModel {
	Q_OBJECT
public:
	/*! The model of the mapper that owns it. */
	explicit SeriesColorGridExtractorModel(Mapper * mapper);

	/*! 1 when the mapper has its 3D extractor, else 0. */
	unsigned int seriesCount() const override;
	unsigned int xGridSize(int seriesIndex) const override;
	const double * xGrid(int seriesIndex) const override;
	unsigned int yGridSize(int seriesIndex) const override;
	const double * yGrid(int seriesIndex) const override;
	unsigned int xValueSize(int seriesIndex) const override;
	unsigned int yValueSize(int seriesIndex) const override;
	const double * values(int seriesIndex) const override;
	ZEB::Unit xUnit(int seriesIndex) const override;
	ZEB::Unit yUnit(int seriesIndex) const override;
	ZEB::Unit valueUnit(int seriesIndex) const override;

	/*! Titles with "$quantity" (role 1) and the time zero of date axes (role 27) from the data. */
	QVariant axisData(int axisPosition, int role) const override;
	/*! Stores an axis property; a new axis unit becomes the extractor's target unit. */
	bool setAxisData(const QVariant & value, int axisPosition, int role) override;

private:
	/*! The output of series 0; null for a bad index or without extractor. */
	const EM::Extractor3DOutputBase * output(int seriesIndex) const;

	Mapper *	m_mapper;
};

} // namespace OVP

#endif // OVP_SeriesColorGridExtractorModelH
