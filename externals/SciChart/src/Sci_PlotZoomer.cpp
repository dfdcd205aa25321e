#include "Sci_PlotZoomer.h"

#include <QPen>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

namespace SCI {

PlotZoomer::PlotZoomer(QWidget * canvas) :
	QwtPlotZoomer(QwtPlot::xBottom, QwtPlot::yLeft, canvas, false)
{
	setRubberBand(QwtPicker::RectRubberBand);
	setRubberBandPen(QPen(QColor(60, 60, 60), 1, Qt::DashLine));
	setTrackerMode(QwtPicker::AlwaysOff);
	// right button: back one step; shift: forward; ctrl: full view; the middle button pans
	setMousePattern(QwtEventPattern::MouseSelect2, Qt::RightButton, Qt::ControlModifier);
	setMousePattern(QwtEventPattern::MouseSelect3, Qt::RightButton);
	setMousePattern(QwtEventPattern::MouseSelect6, Qt::RightButton, Qt::ShiftModifier);
}


void PlotZoomer::rescale() {
	QwtPlot * plt = plot();
	if (plt != nullptr && zoomRectIndex() > 0 && m_secondaryYAxis >= 0 && m_secondaryYAxis != yAxis() &&
		plt->axisEnabled(m_secondaryYAxis))
	{
		// both y axes share the canvas: map the zoom rectangle's y range through the pixels
		const QRectF rect = zoomRect();
		const QwtScaleMap primary = plt->canvasMap(yAxis());
		const QwtScaleMap secondary = plt->canvasMap(m_secondaryYAxis);
		const double y1 = secondary.invTransform(primary.transform(rect.top()));
		const double y2 = secondary.invTransform(primary.transform(rect.bottom()));
		plt->setAxisScale(m_secondaryYAxis, qMin(y1, y2), qMax(y1, y2));
	}
	QwtPlotZoomer::rescale();
}

} // namespace SCI
