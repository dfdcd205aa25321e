#ifndef OVP_SeriesIsoplethExtractorModelH
#define OVP_SeriesIsoplethExtractorModelH

#include "OVP_SeriesClimatePlaneModel.h"

namespace EM {
class ModelTwo2DIsopleth;
}

namespace OVP {

/*! The isopleth chart of a mapper whose extractor combines a temperature and a relative
	humidity series by the isopleth model: series 0 is the hourly climate the model evaluated
	(markers only), series 1 onwards are the model's isopleth lines, shortest germination time
	first and the germination limit last, titled as the model names them. The legend text of
	the climate series ends with the model's germination summary, the days of mould risk and
	the longest period of it.
*/
class SeriesIsoplethExtractorModel : public SeriesClimatePlaneModel {
	Q_OBJECT
public:
	explicit SeriesIsoplethExtractorModel(Mapper * mapper);

	/*! The climate series and one series per isopleth line; none without extractor. */
	unsigned int seriesCount() const override;
	/*! The climate series: the mapper's series title; the lines: their names. */
	void initSeries() override;
	/*! Gives the line series the names and looks of the model's lines, after the model got
		another set of lines. */
	void initLineSeries();

protected:
	std::vector<PlanePoints> planePoints() const override;
	/*! The climate series' title followed by the germination summary; the lines as stored. */
	QString legendTitle(int seriesIndex, const QString & title) const override;

private:
	/*! The isopleth model of the extractor; null while there is none. */
	const EM::ModelTwo2DIsopleth * isopleth() const;
};

} // namespace OVP

#endif // OVP_SeriesIsoplethExtractorModelH
