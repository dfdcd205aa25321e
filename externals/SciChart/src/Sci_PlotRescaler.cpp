#include "Sci_PlotRescaler.h"

#include <qwt_interval.h>
#include <qwt_plot.h>

namespace SCI {

PlotRescaler::PlotRescaler(QWidget * canvas) :
	QwtPlotRescaler(canvas, QwtPlot::xBottom, QwtPlotRescaler::Fitting)
{
	setAspectRatio(QwtPlot::yLeft, 1.0);
	setAspectRatio(QwtPlot::yRight, 0.0);
	setAspectRatio(QwtPlot::xTop, 0.0);
	setExpandingDirection(QwtPlotRescaler::ExpandBoth);
	setEnabled(false);
}


void PlotRescaler::fitTo(const QRectF & rect) {
	setIntervalHint(QwtPlot::xBottom, QwtInterval(rect.left(), rect.right()));
	setIntervalHint(QwtPlot::yLeft, QwtInterval(rect.top(), rect.bottom()));
	rescale();
}

} // namespace SCI
