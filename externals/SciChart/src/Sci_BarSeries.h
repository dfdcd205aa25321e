#ifndef Sci_BarSeriesH
#define Sci_BarSeriesH

#include "Sci_ChartSeries.h"

class QwtPlotBarChart;

namespace SCI {

class AbstractBarSeriesModel;

/*! One bar symbol of a bar chart: the bars of one series of a bar chart model, one bar per bar
	position. The bars of all series at a position stand side by side in a group of 80 % of the
	distance between positions; setGroupLayout() places this series inside the group.
*/
class BarSeries : public ChartSeries {
public:
	explicit BarSeries(const AbstractBarSeriesModel * model);

	/*! Reads the values of model series seriesIndex at all bar positions. */
	void updateData(int seriesIndex) override;
	/*! Applies one bar symbol role of the model (-1: all): title, fill colour, frame pen. */
	void updateProperty(int seriesIndex, int role) override;

	/*! Places the bars as the seriesIndex-th of seriesCount bars in each group. */
	void setGroupLayout(int seriesIndex, int seriesCount);

	QwtPlotBarChart * barChart() const;

private:
	const AbstractBarSeriesModel *	m_model;
	/*! Offset of the bar centres from the bar positions, in axis units. */
	double							m_offset = 0;
};

} // namespace SCI

#endif // Sci_BarSeriesH
