#ifndef Sci_ChartSeriesH
#define Sci_ChartSeriesH

#include <memory>

class QwtPlot;
class QwtPlotItem;

namespace SCI {

/*! Base of the series objects of a chart: one per series of the chart model, owning the plot
	item that draws it. The chart tells a series which model series it shows (the index changes
	when series before it are inserted or removed) and asks it to re-read its data or to apply
	a display property.
*/
class ChartSeries {
public:
	virtual ~ChartSeries();
	ChartSeries(const ChartSeries &) = delete;
	ChartSeries & operator=(const ChartSeries &) = delete;

	/*! Re-reads the data of model series seriesIndex. Throws ZEB::Exception for data that
		cannot be drawn; the series then keeps its previous data. */
	virtual void updateData(int seriesIndex) = 0;
	/*! Applies one display property of model series seriesIndex (a series role of the model),
		or all of them for role -1. */
	virtual void updateProperty(int seriesIndex, int role) = 0;

	/*! Index of the model series shown; the chart keeps it up to date. */
	int seriesIndex() const { return m_seriesIndex; }
	void setSeriesIndex(int seriesIndex) { m_seriesIndex = seriesIndex; }

	/*! Shows the series in the plot (nullptr: takes it out). */
	void attach(QwtPlot * plot);
	/*! Shows or hides the series in its plot and tells its legend entry. Hiding is a state of
		the view: the model knows nothing of it, and a series created anew is shown. */
	void setVisible(bool visible);
	bool isVisible() const;
	/*! The plot item that draws the series. */
	QwtPlotItem * plotItem() const { return m_item.get(); }

protected:
	/*! Takes ownership of the item. */
	explicit ChartSeries(QwtPlotItem * item);

private:
	std::unique_ptr<QwtPlotItem>	m_item;
	int								m_seriesIndex = 0;
};

} // namespace SCI

#endif // Sci_ChartSeriesH
