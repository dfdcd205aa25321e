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


void ChartSeries::setVisible(bool visible) {
	m_item->setVisible(visible);
	m_item->legendChanged();
}


bool ChartSeries::isVisible() const {
	return m_item->isVisible();
}

} // namespace SCI
