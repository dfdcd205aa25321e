#include "Sci_CurveData.h"

#include <cmath>

namespace SCI {

namespace {

/*! Grows a bounding box by one point. */
struct Box {
	void add(double x, double y) {
		if (!m_valid) {
			m_x1 = m_x2 = x;
			m_y1 = m_y2 = y;
			m_valid = true;
			return;
		}
		m_x1 = std::min(m_x1, x);
		m_x2 = std::max(m_x2, x);
		m_y1 = std::min(m_y1, y);
		m_y2 = std::max(m_y2, y);
	}
	/*! The box as rectangle; an invalid rectangle (negative width) when empty. */
	QRectF rect() const {
		if (!m_valid)
			return QRectF(1, 1, -2, -2);
		return QRectF(m_x1, m_y1, m_x2 - m_x1, m_y2 - m_y1);
	}
	bool	m_valid = false;
	double	m_x1 = 0, m_x2 = 0, m_y1 = 0, m_y2 = 0;
};

} // namespace


CurveData::CurveData(const QVector<double> & x, const QVector<double> & y) :
	m_x(x),
	m_y(y)
{
	Q_ASSERT(x.size() == y.size());
	Box boxes[4];
	int counts[4] = {0, 0, 0, 0};
	const int n = qMin(m_x.size(), m_y.size());
	for (int i = 0; i < n; ++i) {
		const double xi = m_x[i];
		const double yi = m_y[i];
		if (!std::isfinite(xi) || !std::isfinite(yi))
			continue;
		boxes[0].add(xi, yi);
		++counts[0];
		if (xi > 0) {
			boxes[1].add(xi, yi);
			++counts[1];
		}
		if (yi > 0) {
			boxes[2].add(xi, yi);
			++counts[2];
		}
		if (xi > 0 && yi > 0) {
			boxes[3].add(xi, yi);
			++counts[3];
		}
	}
	for (int k = 0; k < 4; ++k) {
		m_rects[k] = boxes[k].rect();
		m_all[k] = counts[k] == n;
	}
}


QPointF CurveData::sample(size_t i) const {
	const int k = static_cast<int>(i);
	return QPointF(m_x[k], m_y[k]);
}


QRectF CurveData::boundingRect(bool logarithmicX, bool logarithmicY) const {
	return m_rects[(logarithmicX ? 1 : 0) + (logarithmicY ? 2 : 0)];
}


bool CurveData::allDrawable(bool logarithmicX, bool logarithmicY) const {
	return m_all[(logarithmicX ? 1 : 0) + (logarithmicY ? 2 : 0)];
}

} // namespace SCI
