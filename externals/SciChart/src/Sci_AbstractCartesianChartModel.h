#ifndef Sci_AbstractCartesianChartModelH
#define Sci_AbstractCartesianChartModelH

#include "Sci_AbstractChartModel.h"
#include "Sci_AxisProperties.h"

namespace SCI {

/*! Chart model with three axes: the x axis at the bottom (position 0), the left y axis (1) and
	the right y axis "y2" (2). Axis properties are addressed by axis position and role.
*/
class AbstractCartesianChartModel : public AbstractChartModel {
	Q_OBJECT
public:
	/*! Axis positions. */
	enum AxisPosition {
		BottomAxis	= 0,
		LeftAxis	= 1,
		RightAxis	= 2,
		NUM_AXES
	};

	/*! Roles of the axis properties; the numbers are part of the interface. */
	enum AxisDataRole {
		AxisEnabled				= 0,	///< bool, true
		AxisTitle				= 1,	///< QString, read-only: title with "$unit" replaced
		AxisTitleText			= 2,	///< QString, title as stored
		AxisMaximum				= 3,	///< double, 0
		AxisMinimum				= 4,	///< double, 0
		AxisLogarithmic			= 5,	///< bool, false
		AxisProportional		= 6,	///< bool, false
		AxisAutoscale			= 7,	///< bool, true
		AxisTitleFont			= 8,	///< QFont
		AxisLabelFont			= 9,	///< QFont
		AxisLabelHAlignment		= 10,	///< int, per axis position
		AxisLabelVAlignment		= 11,	///< int, per axis position
		AxisLabelRotation		= 12,	///< double, degrees, 0
		AxisMaxMinorScale		= 13,	///< int, 5
		AxisMaxMajorScale		= 14,	///< int, 8
		AxisUnit				= 15,	///< unsigned int, id of a ZEB::Unit, 0 = undefined
		AxisGridVisible			= 16,	///< bool, true
		AxisGridPen				= 17,	///< QPen, gray, dashed
		AxisGridPenWidth		= 18,	///< double, twice the grid pen's width
		AxisGridPenColor		= 19,	///< QColor, gray
		AxisMinorGridVisible	= 20,	///< bool, true
		AxisMinorGridPen		= 21,	///< QPen, light gray
		AxisMinorGridPenWidth	= 22,	///< double, twice the minor grid pen's width
		AxisMinorGridPenColor	= 23,	///< QColor, light gray
		AxisTitleSpacing		= 24,	///< int, 35
		AxisLabelSpacing		= 25,	///< int, 5
		AxisDateTimeEnabled		= 26,	///< bool, false
		AxisDateTimeZero		= 27,	///< QDateTime, 2000-01-01 00:00 UTC
		AxisDateTimeSpec		= 28,	///< int, Qt::TimeSpec, 1 (UTC)
		AxisDateTimeFormats		= 29,	///< QStringList, one format per date interval
		NUM_AXIS_ROLES
	};

	explicit AbstractCartesianChartModel(QObject * parent = nullptr);

	/*! Value of an axis property; invalid QVariant for a position >= 3 or an unknown role. */
	virtual QVariant axisData(int axisPosition, int role) const;
	/*! Stores an axis property and emits axisChanged(axisPosition, role). Returns false (and
		reports) for unknown positions and roles, the read-only role AxisTitle and values that do
		not convert to the role's type. The width roles take twice the pen width, the colour
		roles change only the pen colour.
	*/
	virtual bool setAxisData(const QVariant & value, int axisPosition, int role);

	/*! Reads AxisProperties, then the base class's elements. Throws ZEB::Exception. */
	void readXML(const TiXmlElement * element) override;
	/*! Writes AxisProperties with its three Axis elements, then the base class's elements. */
	void writeXML(TiXmlElement * parent) const override;

	/*! All properties of one axis (position 0..2). */
	const AxisProperties & axisProperties(int axisPosition) const {
		Q_ASSERT(axisPosition >= 0 && axisPosition < NUM_AXES);
		return m_axes[axisPosition];
	}

protected:
	/*! Announces a changed display property of the one series of a chart drawn through a colour
		map (colour grid, vector field): seriesViewChanged(0, 0, role) when the model holds the
		series, and axisChanged(RightAxis, AxisEnabled) when colorBarSwitched, as the colour bar
		takes the place of the right axis.
	*/
	void announceColorMappedChange(int role, bool colorBarSwitched);

private:
	AxisProperties	m_axes[NUM_AXES];
};

} // namespace SCI

#endif // Sci_AbstractCartesianChartModelH
