#include "Sci_PlotVectorField.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QPolygonF>

#include <qwt_color_map.h>
#include <qwt_scale_map.h>

namespace SCI {

namespace {

/*! Index i with x[i] <= v <= x[i+1] and the weight of x[i+1]; false outside x. */
bool bracket(const std::vector<double> & x, double v, std::size_t & i, double & weight) {
	if (!(v >= x.front() && v <= x.back()))
		return false;
	const std::size_t upper = static_cast<std::size_t>(std::upper_bound(x.begin(), x.end(), v) - x.begin());
	i = std::min(upper, x.size() - 1) - 1;
	weight = (v - x[i])/(x[i+1] - x[i]);
	return true;
}

} // namespace


PlotVectorField::PlotVectorField() {
	setRenderHint(QwtPlotItem::RenderAntialiased, true);
	setItemAttribute(QwtPlotItem::Legend, false);
	setItemAttribute(QwtPlotItem::AutoScale, true);
	setZ(20);
}


PlotVectorField::~PlotVectorField() = default;


void PlotVectorField::setField(const std::vector<double> & x, const std::vector<double> & y,
							   const std::vector<double> & u, const std::vector<double> & v)
{
	m_x = x;
	m_y = y;
	m_u = u;
	m_v = v;
	itemChanged();
}


void PlotVectorField::setColorMap(QwtColorMap * colorMap) {
	m_colorMap.reset(colorMap);
	itemChanged();
}


void PlotVectorField::setMagnitudeRange(const QwtInterval & range) {
	m_magnitudeRange = range;
	itemChanged();
}


void PlotVectorField::setColoredArrows(bool colored) {
	m_coloredArrows = colored;
	itemChanged();
}


void PlotVectorField::setUniformColor(const QColor & color) {
	m_uniformColor = color;
	itemChanged();
}


void PlotVectorField::setRaster(bool enabled, int spacing) {
	m_rasterEnabled = enabled;
	m_rasterSpacing = std::max(2, spacing);
	itemChanged();
}


void PlotVectorField::setIndicatorOrigin(int origin) {
	m_origin = (origin == OriginHead || origin == OriginTail) ? origin : OriginCenter;
	itemChanged();
}


void PlotVectorField::setThinArrows(bool thin) {
	m_thinArrows = thin;
	itemChanged();
}


void PlotVectorField::setMagnitudeScaleFactor(double pixelsPerUnit) {
	m_magnitudeScaleFactor = pixelsPerUnit;
	itemChanged();
}


void PlotVectorField::setMaxArrowLength(double pixels) {
	m_maxArrowLength = pixels;
	itemChanged();
}


void PlotVectorField::setMinArrowLength(double pixels) {
	m_minArrowLength = pixels;
	itemChanged();
}


double PlotVectorField::arrowLength(double magnitude) const {
	double length = magnitude*m_magnitudeScaleFactor;
	if (!(length > 0))
		return 0;
	if (length < m_minArrowLength)
		length = m_minArrowLength;
	if (length > m_maxArrowLength)
		length = m_maxArrowLength;
	return length;
}


QRectF PlotVectorField::boundingRect() const {
	if (m_x.empty() || m_y.empty())
		return QRectF(1, 1, -2, -2);
	return QRectF(m_x.front(), m_y.front(), m_x.back() - m_x.front(), m_y.back() - m_y.front());
}


void PlotVectorField::draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
						   const QRectF & canvasRect) const
{
	if (m_x.empty() || m_y.empty() || m_u.size() != m_x.size()*m_y.size() || m_v.size() != m_u.size())
		return;
	painter->save();
	// raster sampling needs cells to interpolate in, a grid of one row or column is drawn per point
	if (m_rasterEnabled && m_x.size() > 1 && m_y.size() > 1) {
		const double step = m_rasterSpacing;
		for (double py = canvasRect.top() + 0.5*step; py < canvasRect.bottom(); py += step) {
			for (double px = canvasRect.left() + 0.5*step; px < canvasRect.right(); px += step) {
				double u, v;
				if (sample(xMap.invTransform(px), yMap.invTransform(py), u, v))
					drawArrow(painter, QPointF(px, py), u, v);
			}
		}
	}
	else {
		const std::size_t nx = m_x.size();
		for (std::size_t j = 0; j < m_y.size(); ++j) {
			const double py = yMap.transform(m_y[j]);
			for (std::size_t i = 0; i < nx; ++i) {
				const QPointF pos(xMap.transform(m_x[i]), py);
				if (canvasRect.contains(pos))
					drawArrow(painter, pos, m_u[j*nx + i], m_v[j*nx + i]);
			}
		}
	}
	painter->restore();
}


bool PlotVectorField::sample(double x, double y, double & u, double & v) const {
	std::size_t i, j;
	double wx, wy;
	if (!bracket(m_x, x, i, wx) || !bracket(m_y, y, j, wy))
		return false;
	const std::size_t nx = m_x.size();
	const std::size_t k00 = j*nx + i;
	const std::size_t k01 = (j + 1)*nx + i;
	u = (1 - wy)*((1 - wx)*m_u[k00] + wx*m_u[k00+1]) + wy*((1 - wx)*m_u[k01] + wx*m_u[k01+1]);
	v = (1 - wy)*((1 - wx)*m_v[k00] + wx*m_v[k00+1]) + wy*((1 - wx)*m_v[k01] + wx*m_v[k01+1]);
	return true;
}


void PlotVectorField::drawArrow(QPainter * painter, const QPointF & pos, double u, double v) const {
	const double magnitude = std::hypot(u, v);
	const double length = arrowLength(magnitude);
	if (!(length > 0) || !std::isfinite(length))
		return;
	// direction on screen: pixel y grows downwards
	const QPointF dir(u/magnitude, -v/magnitude);
	const QPointF normal(-dir.y(), dir.x());
	QPointF tail = pos;
	if (m_origin == OriginHead)
		tail = pos - length*dir;
	else if (m_origin == OriginCenter)
		tail = pos - 0.5*length*dir;
	const QPointF tip = tail + length*dir;

	QColor color = m_uniformColor;
	if (m_coloredArrows && m_colorMap)
		color = m_colorMap->color(m_magnitudeRange, magnitude);

	if (m_thinArrows) {
		QPen pen(color, 1.0);
		pen.setCapStyle(Qt::RoundCap);
		pen.setJoinStyle(Qt::RoundJoin);
		painter->setPen(pen);
		painter->setBrush(Qt::NoBrush);
		painter->drawLine(tail, tip);
		// open head of about 25 degrees to each side, shortened for short arrows
		const double head = std::min(length, std::max(3.0, std::min(0.3*length, 9.0)));
		const QPointF base = tip - head*dir;
		painter->drawLine(tip, base + 0.45*head*normal);
		painter->drawLine(tip, base - 0.45*head*normal);
		return;
	}
	const double shaft = std::max(0.6, std::min(0.07*length, 2.0));
	const double head = std::min(length, std::max(4.0, std::min(0.35*length, 12.0)));
	const double headWidth = std::max(2.2*shaft, 0.45*head);
	const QPointF neck = tip - head*dir;
	QPolygonF arrow;
	arrow << tail + shaft*normal << neck + shaft*normal << neck + headWidth*normal << tip
		  << neck - headWidth*normal << neck - shaft*normal << tail - shaft*normal;
	painter->setPen(Qt::NoPen);
	painter->setBrush(color);
	painter->drawPolygon(arrow);
}

} // namespace SCI
