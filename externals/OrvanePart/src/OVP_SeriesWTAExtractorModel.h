#ifndef OVP_SeriesWTAExtractorModelH
#define OVP_SeriesWTAExtractorModelH

#include "OVP_SeriesClimatePlaneModel.h"

namespace EM {
class ModelTwo2DWTAWoodDegradation;
}

namespace OVP {

/*! The WTA wood chart of a mapper whose extractor combines a temperature and a relative
	humidity series by the WTA wood degradation model: the daily means the model evaluated
	against its decay limit. Series 0 are the days below the limit, series 1 the days that
	reach it (markers of another colour and shape), series 2 the limit curve. The legend text
	of series 0 ends with the number of days above the limit.
*/
class SeriesWTAExtractorModel : public SeriesClimatePlaneModel {
	Q_OBJECT
public:
	/*! The series in their order. */
	enum Series {
		DaysBelow,
		DaysAbove,
		LimitCurve,
		NUM_SERIES
	};

	explicit SeriesWTAExtractorModel(Mapper * mapper);

	/*! The three series; none without extractor. */
	unsigned int seriesCount() const override;
	/*! Days below: the mapper's series title; days above and the limit: their own names. */
	void initSeries() override;

protected:
	std::vector<PlanePoints> planePoints() const override;
	/*! Series 0: its title followed by the number of days above the limit; the others as
		stored.
	*/
	QString legendTitle(int seriesIndex, const QString & title) const override;

private:
	/*! The WTA model of the extractor; null while there is none. */
	const EM::ModelTwo2DWTAWoodDegradation * wta() const;
};

} // namespace OVP

#endif // OVP_SeriesWTAExtractorModelH
