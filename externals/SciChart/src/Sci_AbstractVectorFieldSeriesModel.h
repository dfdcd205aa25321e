#ifndef Sci_AbstractVectorFieldSeriesModelH
#define Sci_AbstractVectorFieldSeriesModelH

#include <QPointF>

#include <ZEB_Unit.h>

#include "Sci_AbstractCartesianChartModel.h"
#include "Sci_VectorFieldProperties.h"

namespace SCI {

/*! Chart model of a vector field chart: arrows at the points of an x-y grid, coloured by the
	vector magnitude. The model keeps the display properties of the arrows; the derived model
	supplies the grid, the two vector components per point and the units through the pure
	virtual accessors, which the data roles of seriesData() hand on as QVariant values.

	Point (i, j) sits at (xGrid()[i], yGrid()[j]); its components are
	xComponents()[j*xGridSize() + i] and yComponents()[j*xGridSize() + i].
*/
class AbstractVectorFieldSeriesModel : public AbstractCartesianChartModel {
	Q_OBJECT
public:
	/*! Roles of the vector field; the numbers are part of the interface. Data roles are
		read-only, the others are settable display properties. */
	enum SeriesDataRole {
		VectorFieldXGrid				= 0,	///< data: QVector<double>, x coordinates
		VectorFieldYGrid				= 1,	///< data: QVector<double>, y coordinates
		VectorFieldXComponents			= 2,	///< data: QVector<double>, x components
		VectorFieldYComponents			= 3,	///< data: QVector<double>, y components
		VectorFieldXUnit				= 4,	///< data: unsigned int, id of the x unit
		VectorFieldColorMap				= 5,	///< SCI::ColorMap, linear blue -> red, 10 steps
		VectorFieldAutoScale			= 6,	///< bool, true: magnitude range from the data
		VectorFieldMinimumZ				= 7,	///< double, NaN
		VectorFieldMaximumZ				= 8,	///< double, NaN
		VectorFieldYUnit				= 9,	///< data: unsigned int, id of the y unit
		VectorFieldValueUnit			= 10,	///< data: unsigned int, id of the component unit
		VectorFieldMagnitudeRange		= 11,	///< data: QPointF, (minimum, maximum) drawn
		VectorFieldColorBar				= 12,	///< bool, true
		VectorFieldRasterEnabled		= 13,	///< bool, true
		VectorFieldRasterSize			= 14,	///< int, 15 pixels; set from a double, rounded
		VectorFieldColoredArrowsEnabled	= 15,	///< bool, true
		VectorFieldUniformArrowColor	= 16,	///< QColor, black
		VectorFieldIndicatorOrigin		= 17,	///< int, VectorFieldProperties::IndicatorOrigin, 2
		VectorFieldThinArrow			= 18,	///< bool, true
		VectorFieldMaximumArrowLength	= 19,	///< double, 50 pixels
		VectorFieldMinimumArrowLength	= 20,	///< double, 0 pixels
		VectorFieldArrowScaleFactor		= 21,	///< double, 1
		NUM_VFR
	};

	explicit AbstractVectorFieldSeriesModel(QObject * parent = nullptr);

	/*! Display properties and data of the field; invalid QVariant for unknown roles. */
	QVariant seriesData(int seriesIndex, int role) const override;
	/*! Stores a display property (roles 5..8, 12..21) and, when the model holds a series,
		emits seriesViewChanged(0, 0, role). The colour bar flag also emits axisChanged(2, 0),
		as the colour bar takes the place of the right axis. Returns false (and logs) for a
		series index above 1, roles that cannot be set and bad values.
	*/
	bool setSeriesData(const QVariant & value, int seriesIndex, int role) override;

	/*! Reads VectorPlotProperties, then the base class's elements. Throws ZEB::Exception. */
	void readXML(const TiXmlElement * element) override;
	/*! Writes VectorPlotProperties, then the base class's elements. */
	void writeXML(TiXmlElement * parent) const override;

	/*! All display properties of the field. */
	const VectorFieldProperties & vectorFieldProperties() const { return m_properties; }

	/*! The magnitude range to draw: MinimumZ..MaximumZ, or the data range when AutoScale is set. */
	QPointF magnitudeRange(int seriesIndex) const;

	virtual unsigned int xGridSize(int seriesIndex) const = 0;
	virtual const double * xGrid(int seriesIndex) const = 0;
	virtual unsigned int yGridSize(int seriesIndex) const = 0;
	virtual const double * yGrid(int seriesIndex) const = 0;
	/*! xGridSize()*yGridSize() x components, x index fastest. */
	virtual const double * xComponents(int seriesIndex) const = 0;
	/*! xGridSize()*yGridSize() y components, x index fastest. */
	virtual const double * yComponents(int seriesIndex) const = 0;
	virtual ZEB::Unit xUnit(int seriesIndex) const = 0;
	virtual ZEB::Unit yUnit(int seriesIndex) const = 0;
	/*! Unit of the vector components. */
	virtual ZEB::Unit valueUnit(int seriesIndex) const = 0;
	/*! Smallest and largest vector magnitude, ignoring NaN. Models that know them may override. */
	virtual double minimumMagnitude(int seriesIndex) const;
	virtual double maximumMagnitude(int seriesIndex) const;

private:
	/*! The magnitudes of all vectors. */
	QVector<double> magnitudes(int seriesIndex) const;

	VectorFieldProperties	m_properties;
};

} // namespace SCI

#endif // Sci_AbstractVectorFieldSeriesModelH
