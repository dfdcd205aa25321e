#include "Sci_PlotScaleItem.h"

#include <QPalette>

#include <qwt_plot.h>
#include <qwt_scale_draw.h>

namespace SCI {

PlotScaleItem::PlotScaleItem(int axisPosition, QwtScaleDraw * scaleDraw, const QFont & font) {
	QwtScaleDraw::Alignment alignment = QwtScaleDraw::TopScale;
	if (axisPosition == 1)
		alignment = QwtScaleDraw::RightScale;
	else if (axisPosition == 2)
		alignment = QwtScaleDraw::LeftScale;
	setAxes(QwtPlot::xBottom, axisPosition == 2 ? QwtPlot::yRight : QwtPlot::yLeft);
	// labels go to the inner side of the ticks, whatever the axis' own label alignment is
	scaleDraw->setLabelAlignment(Qt::Alignment());
	setScaleDraw(scaleDraw);
	setAlignment(alignment);
	// at the border of the canvas, ticks and labels pointing inwards
	setBorderDistance(0);
	setFont(font);
	QPalette pal;
	pal.setColor(QPalette::WindowText, QColor(40, 40, 40));
	pal.setColor(QPalette::Text, QColor(40, 40, 40));
	setPalette(pal);
	setZ(40);
}

} // namespace SCI
