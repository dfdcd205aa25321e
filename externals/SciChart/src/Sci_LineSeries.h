#ifndef Sci_LineSeriesH
#define Sci_LineSeriesH

#include "Sci_ChartSeries.h"

namespace SCI {

class AbstractLineSeriesModel;
class PlotCurve;

/*! A line series of a chart: the curve of one series of a line chart model, with the pen,
	curve style, marker, axis, sign, fit and legend settings of its line record. Long curves are
	thinned while drawing when data reduction is on, unless the series is drawn as a fitted
	spline.
*/
class LineSeries : public ChartSeries {
public:
	explicit LineSeries(const AbstractLineSeriesModel * model);

	/*! Copies the values of model series seriesIndex into the curve (negated when inverted).
		Throws ZEB::Exception for a series that has a size but no values. */
	void updateData(int seriesIndex) override;
	/*! Applies one line role of the model (-1: all). */
	void updateProperty(int seriesIndex, int role) override;

	/*! Switches the thinning of long curves. */
	void setDataReduction(bool enabled);
	/*! Legend icon style (PlotCurve::IconStyle) and width in pixels. */
	void setLegendIcon(int style, int width);

	PlotCurve * curve() const;

private:
	/*! Chooses the curve fitter: spline for fitted series, else data reduction or none. */
	void updateFitter();
	/*! Builds the marker from the line record of the series. */
	void updateSymbol(int seriesIndex);

	const AbstractLineSeriesModel *	m_model;
	bool							m_inverted = false;
	bool							m_fitted = false;
	bool							m_dataReduction = false;
};

} // namespace SCI

#endif // Sci_LineSeriesH
