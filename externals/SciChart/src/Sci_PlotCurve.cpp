#include "Sci_PlotCurve.h"

#include <cmath>

#include <QPaintEngine>
#include <QPainter>

#include <qwt_clipper.h>
#include <qwt_graphic.h>
#include <qwt_legend_data.h>
#include <qwt_painter.h>
#include <qwt_plot.h>
#include <qwt_scale_map.h>
#include <qwt_transform.h>

#include "Sci_CurveData.h"
#include "Sci_DataReductionCurveFitter.h"
#include "Sci_PixelColumnReduction.h"

namespace SCI {

namespace {

/*! Colour of the legend entry of a hidden curve. */
const QColor HIDDEN_COLOR(190, 190, 190);

/*! True when values on an axis with this map must be positive. */
bool isLogarithmic(const QwtScaleMap & map) {
	return dynamic_cast<const QwtLogTransform *>(map.transformation()) != nullptr;
}

} // namespace


PlotCurve::PlotCurve(const QString & title) :
	QwtPlotCurve(title)
{
	setRenderHint(QwtPlotItem::RenderAntialiased, true);
	setLegendAttribute(QwtPlotCurve::LegendShowLine, true);
	setLegendAttribute(QwtPlotCurve::LegendShowSymbol, true);
}


void PlotCurve::setLegendIconStyle(int style) {
	const int s = style == IconBox ? IconBox : IconLine;
	if (s == m_iconStyle)
		return;
	m_iconStyle = s;
	legendChanged();
}


QRectF PlotCurve::boundingRect() const {
	const CurveData * data = dynamic_cast<const CurveData *>(this->data());
	if (data == nullptr)
		return QwtPlotCurve::boundingRect();
	if (plot() == nullptr)
		return data->boundingRect();
	return data->boundingRect(isLogarithmic(plot()->canvasMap(xAxis())),
							  isLogarithmic(plot()->canvasMap(yAxis())));
}


void PlotCurve::drawSeries(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
						   const QRectF & canvasRect, int from, int to) const
{
	const int n = static_cast<int>(dataSize());
	if (to < 0)
		to = n - 1;
	from = qMax(from, 0);
	to = qMin(to, n - 1);
	const bool logX = isLogarithmic(xMap);
	const bool logY = isLogarithmic(yMap);
	const CurveData * curveData = dynamic_cast<const CurveData *>(data());
	if (curveData != nullptr && curveData->allDrawable(logX, logY)) {
		QwtPlotCurve::drawSeries(painter, xMap, yMap, canvasRect, from, to);
		return;
	}
	int runStart = -1;
	for (int i = from; i <= to + 1; ++i) {
		bool drawable = false;
		if (i <= to) {
			const QPointF p = curveData != nullptr ? QPointF(curveData->xData()[i], curveData->yData()[i])
												   : sample(static_cast<size_t>(i));
			drawable = std::isfinite(p.x()) && std::isfinite(p.y()) && (!logX || p.x() > 0) && (!logY || p.y() > 0);
		}
		if (drawable && runStart < 0)
			runStart = i;
		else if (!drawable && runStart >= 0) {
			QwtPlotCurve::drawSeries(painter, xMap, yMap, canvasRect, runStart, i - 1);
			runStart = -1;
		}
	}
}


void PlotCurve::drawCurve(QPainter * painter, int style, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
						  const QRectF & canvasRect, int from, int to) const
{
	if (style == QwtPlotCurve::Lines && drawColumnLines(painter, xMap, yMap, canvasRect, from, to))
		return;
	if (style == QwtPlotCurve::Lines && testCurveAttribute(QwtPlotCurve::Fitted))
		drawLines(painter, xMap, yMap, canvasRect, from, to);
	else
		QwtPlotCurve::drawCurve(painter, style, xMap, yMap, canvasRect, from, to);
}


bool PlotCurve::drawColumnLines(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
								const QRectF & canvasRect, int from, int to) const
{
	const CurveData * curveData = dynamic_cast<const CurveData *>(data());
	if (curveData == nullptr)
		return false;
	const bool fitted = testCurveAttribute(QwtPlotCurve::Fitted) && curveFitter() != nullptr;
	const bool thinned = fitted && dynamic_cast<const DataReductionCurveFitter *>(curveFitter()) != nullptr;
	if (fitted && !thinned)
		return false;
	const QPaintEngine * engine = painter->paintEngine();
	if (!thinned && (engine == nullptr || engine->type() != QPaintEngine::Raster))
		return false;
	const QTransform device = painter->deviceTransform();
	if (device.type() > QTransform::TxScale)
		return false;

	PixelRaster raster;
	raster.m_scale = device.m11();
	raster.m_offset = device.dx();
	raster.m_round = QwtPainter::roundingAlignment(painter);
	QPolygonF polyline = pixelColumnPolyline(curveData->xData(), curveData->yData(), from, to, xMap, yMap, raster);
	if (thinned)
		polyline = curveFitter()->fitCurve(polyline);

	const QBrush & b = brush();
	if (b.style() != Qt::NoBrush && b.color().alpha() > 0) {
		QPolygonF filled = polyline;
		fillCurve(painter, xMap, yMap, canvasRect, filled);
		if (painter->pen().style() == Qt::NoPen)
			return true;
	}
	if (testPaintAttribute(QwtPlotCurve::ClipPolygons)) {
		const qreal pw = qMax(qreal(1), painter->pen().widthF());
		polyline = QwtClipper::clipPolygonF(canvasRect.adjusted(-pw, -pw, pw, pw), polyline, false);
	}
	// a pen of at most one pixel has no joins to keep, so a dense column is drawn as one span
	if (!thinned && raster.m_round && painter->pen().widthF()*raster.m_scale <= 1) {
		const ColumnSpans spans = columnSpans(polyline);
		for (int k = 0; k < spans.m_starts.size(); ++k) {
			const int end = k + 1 < spans.m_starts.size() ? spans.m_starts[k + 1] : spans.m_points.size();
			painter->drawPolyline(spans.m_points.constData() + spans.m_starts[k], end - spans.m_starts[k]);
		}
		drawColumnSpans(painter, spans.m_spans, raster.m_scale);
	}
	else
		QwtPainter::drawPolyline(painter, polyline);
	return true;
}


void PlotCurve::drawColumnSpans(QPainter * painter, const QVector<QLineF> & spans, double scale) const {
	const QPen pen = painter->pen();
	if (spans.isEmpty() || pen.style() != Qt::SolidLine || pen.color().alpha() != 255
		|| !painter->testRenderHint(QPainter::Antialiasing) || !(scale > 0))
	{
		painter->drawLines(spans);
		return;
	}
	// the every-point line runs up and down such a column many times, and its antialiased
	// coverage of the two device pixels beside x adds up to the opaque pen colour
	const double half = 1/scale;
	QVector<QRectF> bands;
	bands.reserve(spans.size());
	for (const QLineF & s : spans)
		bands.append(QRectF(s.x1() - half, s.y1(), 2*half, s.y2() - s.y1()));
	painter->save();
	painter->setPen(Qt::NoPen);
	painter->setBrush(pen.color());
	painter->drawRects(bands);
	painter->restore();
}


QwtGraphic PlotCurve::legendIcon(int index, const QSizeF & size) const {
	if (!isVisible()) {
		// a grey line of the icon's width, whatever the style
		QwtGraphic icon;
		icon.setDefaultSize(size);
		icon.setRenderHint(QwtGraphic::RenderPensUnscaled, true);
		QPainter painter(&icon);
		painter.setPen(QPen(HIDDEN_COLOR, 2));
		painter.drawLine(QLineF(0, 0.5*size.height(), size.width(), 0.5*size.height()));
		return icon;
	}
	if (m_iconStyle == IconBox)
		return defaultIcon(pen().color(), size);
	return QwtPlotCurve::legendIcon(index, size);
}

QList<QwtLegendData> PlotCurve::legendData() const {
	QList<QwtLegendData> data = QwtPlotCurve::legendData();
	if (!isVisible()) {
		for (QwtLegendData & entry : data) {
			QwtText title = entry.title();
			title.setColor(HIDDEN_COLOR);
			entry.setValue(QwtLegendData::TitleRole, QVariant::fromValue(title));
		}
	}
	return data;
}

} // namespace SCI
