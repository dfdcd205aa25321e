#ifndef DEMO_ChartStyleH
#define DEMO_ChartStyleH

#include <QColor>
#include <QString>

#include <Sci_ColorMap.h>

namespace SCI {
class AbstractChartModel;
class AbstractCartesianChartModel;
class AbstractLineSeriesModel;
class AbstractColorGridSeriesModel;
class AbstractVectorFieldSeriesModel;
}

namespace DEMO {

/*! The look shared by the demo charts, set through the role interface of the chart models, the
	way a property panel sets it: fonts, title, axis titles and units, legend, grids, the date
	axis, line pens and the colour maps. Sizes are chosen for charts exported at about
	1000 x 600 pixels.

	Every setter checks that the model took the value: a role that the chart library renames or
	refuses makes the demo build fail instead of producing a chart that silently looks different.
*/
class ChartStyle {
public:
	/*! Title, fonts, legend below the plot without frame and light grids of all axes. */
	static void setChart(SCI::AbstractCartesianChartModel & model, const QString & title);
	/*! Title text of an axis ("$unit" stands for the unit) and, when unit is not null, its unit
		(a name of the unit table such as "cm").
	*/
	static void setAxis(SCI::AbstractCartesianChartModel & model, int axis, const QString & title,
						const char * unit = nullptr);
	/*! Shows the x axis as calendar dates counted from the start year of the data. */
	static void setDateAxis(SCI::AbstractCartesianChartModel & model);
	/*! Fixes the range of an axis (in the axis unit) instead of scaling it to the data. */
	static void setAxisRange(SCI::AbstractCartesianChartModel & model, int axis, double minimum, double maximum);
	/*! The most major ticks of an axis (the chart picks steps of 1, 2 or 5 times a power of 10). */
	static void setMajorTicks(SCI::AbstractCartesianChartModel & model, int axis, int count);
	/*! Equal scales in x and y: the chart widens the shorter axis range to keep them. */
	static void setProportional(SCI::AbstractCartesianChartModel & model);
	/*! Legend text, colour and pen width of a line series. */
	static void setLine(SCI::AbstractLineSeriesModel & model, int series, const QString & title,
						const QColor & color, int penWidth);
	/*! Colour map, value range, contour lines (interval 0: none) and whether colours blend
		between cell centres, of a colour grid.
	*/
	static void setColorGrid(SCI::AbstractColorGridSeriesModel & model, const SCI::ColorMap & colorMap,
							 double minimum, double maximum, double contourInterval, bool interpolate);
	/*! Colour map and arrow look of a vector field. */
	static void setVectorField(SCI::AbstractVectorFieldSeriesModel & model, const SCI::ColorMap & colorMap);

	/*! Diverging map from dark blue (cold) over pale yellow to dark red (warm). */
	static SCI::ColorMap temperatureColorMap();
	/*! Sequential map from light orange over red and purple to dark violet, for magnitudes; even
		its lightest colour stands out on white.
	*/
	static SCI::ColorMap magnitudeColorMap();

	/*! Colours of the quantities: temperatures in red, humidities in blue, mould in green and
		wood decay in brown.
	*/
	static const QColor TEMPERATURE_COLOR;
	static const QColor HUMIDITY_COLOR;
	static const QColor MOULD_COLOR;
	static const QColor DECAY_COLOR;
};

} // namespace DEMO

#endif // DEMO_ChartStyleH
