#ifndef Sci_VectorFieldSeriesH
#define Sci_VectorFieldSeriesH

#include <qwt_interval.h>

#include "Sci_ChartSeries.h"

namespace SCI {

class AbstractVectorFieldSeriesModel;
class PlotVectorField;

/*! The vector field of a chart: the arrows of a vector field model, drawn by a
	PlotVectorField with the model's colour map, magnitude range, raster and arrow settings.
	At an arrow scale factor of 1, the largest magnitude of the range gets the maximum arrow
	length and smaller ones proportionally less.
*/
class VectorFieldSeries : public ChartSeries {
public:
	explicit VectorFieldSeries(const AbstractVectorFieldSeriesModel * model);

	/*! Reads grid and components of the model's field (seriesIndex 0). Throws ZEB::Exception
		for missing or inconsistent data. */
	void updateData(int seriesIndex) override;
	/*! Applies one vector field role of the model (-1: all). */
	void updateProperty(int seriesIndex, int role) override;

	/*! The magnitude range drawn, from the model (may be invalid). */
	QwtInterval magnitudeRange() const;
	PlotVectorField * vectorField() const;

private:
	/*! Pixels per magnitude unit from the maximum length, the scale factor and the range. */
	void updateScaleFactor();

	const AbstractVectorFieldSeriesModel *	m_model;
};

} // namespace SCI

#endif // Sci_VectorFieldSeriesH
