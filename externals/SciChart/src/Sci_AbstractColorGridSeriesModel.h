#ifndef Sci_AbstractColorGridSeriesModelH
#define Sci_AbstractColorGridSeriesModelH

#include <QPointF>

#include <ZEB_Unit.h>

#include "Sci_AbstractCartesianChartModel.h"
#include "Sci_ColorGridProperties.h"

namespace SCI {

/*! Chart model of a colour grid chart: one grid of values over x and y drawn in colours of a
	colour map. The model keeps the display properties of the grid; the derived model supplies
	the grid coordinates, the values and their units through the pure virtual accessors, which
	the data roles of seriesData() hand on as QVariant values.

	Grid coordinates of a direction hold either one entry per cell (cell centres) or one more
	(cell edges), ascending. The values are stored row by row, the x index running fastest:
	value (i, j) is values()[j*xValueSize() + i].
*/
class AbstractColorGridSeriesModel : public AbstractCartesianChartModel {
	Q_OBJECT
public:
	/*! Roles of the colour grid; the numbers are part of the interface. Data roles are
		read-only, the others are settable display properties. */
	enum SeriesDataRole {
		ColorGridXGrid					= 0,	///< data: QVector<double>, x grid coordinates
		ColorGridYGrid					= 1,	///< data: QVector<double>, y grid coordinates
		ColorGridValues					= 2,	///< data: QVector<double>, the values
		ColorGridXUnit					= 3,	///< data: unsigned int, id of the x unit
		ColorGridYUnit					= 4,	///< data: unsigned int, id of the y unit
		ColorGridValueUnit				= 5,	///< data: unsigned int, id of the value unit
		ColorGridValueSize				= 6,	///< data: QSize, number of values in x and y
		ColorGridColorMap				= 7,	///< SCI::ColorMap, linear blue -> red, 10 steps
		ColorGridAutoScale				= 8,	///< bool, true: value range from the data
		ColorGridMinimumZ				= 9,	///< double, NaN
		ColorGridMaximumZ				= 10,	///< double, NaN
		ColorGridDataMinimum			= 11,	///< data: double, smallest value
		ColorGridDataMaximum			= 12,	///< data: double, largest value
		ColorGridValueRange				= 13,	///< data: QPointF, (minimum, maximum) drawn
		ColorGridInterpolationMode		= 14,	///< int, 0
		ColorGridDisplayMode			= 15,	///< int, 1
		ColorGridColorBarVisible		= 16,	///< bool, true
		ColorGridContourIntervalColor	= 17,	///< bool, false
		ColorGridContourInterval		= 18,	///< double, NaN = no contour lines
		ColorGridContourPen				= 19,	///< QPen, default pen
		NUM_CGR
	};

	explicit AbstractColorGridSeriesModel(QObject * parent = nullptr);

	/*! Display properties and data of the grid; invalid QVariant for unknown roles. */
	QVariant seriesData(int seriesIndex, int role) const override;
	/*! Stores a display property (roles 7..10, 14..19) and, when the model holds a series,
		emits seriesViewChanged(0, 0, role); AutoScale, MinimumZ and MaximumZ are announced as
		ColorGridValueRange. ColorBarVisible also emits axisChanged(2, 0), as the colour bar
		takes the place of the right axis. Returns false (and logs) for a series index above 1,
		roles that cannot be set and bad values.
	*/
	bool setSeriesData(const QVariant & value, int seriesIndex, int role) override;

	/*! Reads ColorGridProperties, then the base class's elements. Throws ZEB::Exception. */
	void readXML(const TiXmlElement * element) override;
	/*! Writes ColorGridProperties, then the base class's elements. */
	void writeXML(TiXmlElement * parent) const override;

	/*! All display properties of the grid. */
	const ColorGridProperties & colorGridProperties() const { return m_properties; }

	/*! The value range to draw: MinimumZ..MaximumZ, or the data range when AutoScale is set. */
	QPointF valueRange(int seriesIndex) const;

	virtual unsigned int xGridSize(int seriesIndex) const = 0;
	virtual const double * xGrid(int seriesIndex) const = 0;
	virtual unsigned int yGridSize(int seriesIndex) const = 0;
	virtual const double * yGrid(int seriesIndex) const = 0;
	/*! Number of values (cells) in x direction. */
	virtual unsigned int xValueSize(int seriesIndex) const = 0;
	/*! Number of values (cells) in y direction. */
	virtual unsigned int yValueSize(int seriesIndex) const = 0;
	/*! xValueSize()*yValueSize() values, x index fastest. */
	virtual const double * values(int seriesIndex) const = 0;
	virtual ZEB::Unit xUnit(int seriesIndex) const = 0;
	virtual ZEB::Unit yUnit(int seriesIndex) const = 0;
	virtual ZEB::Unit valueUnit(int seriesIndex) const = 0;
	/*! Smallest value, ignoring NaN (NaN when there is none). Models that know it may override. */
	virtual double minimumValue(int seriesIndex) const;
	/*! Largest value, ignoring NaN (NaN when there is none). Models that know it may override. */
	virtual double maximumValue(int seriesIndex) const;

private:
	ColorGridProperties	m_properties;
};

} // namespace SCI

#endif // Sci_AbstractColorGridSeriesModelH
