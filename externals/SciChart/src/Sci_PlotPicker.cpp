#include "Sci_PlotPicker.h"

#include <qwt_plot.h>
#include <qwt_text.h>

namespace SCI {

PlotPicker::PlotPicker(QwtPlot * plot) :
	QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::NoRubberBand, QwtPicker::AlwaysOn, plot->canvas()),
	m_text(plot)
{
	setTrackerPen(QPen(QColor(40, 40, 40)));
}


QwtText PlotPicker::trackerText(const QPoint & pos) const {
	QwtText text(m_text.text(pos));
	text.setBackgroundBrush(QColor(255, 255, 255, 220));
	return text;
}

} // namespace SCI
