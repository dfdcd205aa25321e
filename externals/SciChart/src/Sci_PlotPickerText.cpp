#include "Sci_PlotPickerText.h"

#include <QPoint>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include "Sci_DateScaleDraw.h"

namespace SCI {

PlotPickerText::PlotPickerText(const QwtPlot * plot) :
	m_plot(plot)
{
}


QString PlotPickerText::text(const QPoint & canvasPos) const {
	QString x = axisText(QwtPlot::xBottom, canvasPos.x());
	QStringList y;
	if (m_plot->axisEnabled(QwtPlot::yLeft))
		y << axisText(QwtPlot::yLeft, canvasPos.y());
	if (m_plot->axisEnabled(QwtPlot::yRight))
		y << axisText(QwtPlot::yRight, canvasPos.y());
	return QString("x: %1   y: %2").arg(x, y.join(" | "));
}


QString PlotPickerText::numberText(double value) {
	return QString::number(value, 'g', 6);
}


QString PlotPickerText::axisText(int axisId, double pixel) const {
	const double value = m_plot->canvasMap(axisId).invTransform(pixel);
	const DateScaleDraw * dateDraw = dynamic_cast<const DateScaleDraw *>(m_plot->axisScaleDraw(axisId));
	if (dateDraw != nullptr)
		return dateDraw->mapping().toDateTime(value).toString("dd.MM.yyyy hh:mm:ss");
	return numberText(value);
}

} // namespace SCI
