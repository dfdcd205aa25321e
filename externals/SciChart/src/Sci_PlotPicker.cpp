#include "Sci_PlotPicker.h"

#include <qwt_text.h>

#include "Sci_Chart.h"

namespace SCI {

PlotPicker::PlotPicker(Chart * chart) :
	QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::NoRubberBand, QwtPicker::AlwaysOn, chart->canvas()),
	m_text(chart)
{
	setTrackerPen(QPen(QColor(40, 40, 40)));
}


QwtText PlotPicker::trackerText(const QPoint & pos) const {
	QwtText text(m_text.text(pos));
	text.setBackgroundBrush(QColor(255, 255, 255, 220));
	return text;
}

} // namespace SCI
