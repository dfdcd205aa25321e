#include "Sci_ChartSeries.h"

#include <qwt_plot_item.h>

namespace SCI {

ChartSeries::ChartSeries(QwtPlotItem * item) :
	m_item(item)
{
}


// the item takes itself out of the plot when it is deleted
ChartSeries::~ChartSeries() = default;


void ChartSeries::attach(QwtPlot * plot) {
	m_item->attach(plot);
}

} // namespace SCI
