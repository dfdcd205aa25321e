#include "Sci_PixelColumnReduction.h"

#include <algorithm>
#include <cmath>

#include <qwt_scale_map.h>

namespace SCI {

namespace {

/*! Maps values to paint coordinates: linear maps without the virtual transformation call, others
	through the scale map; rounded as the plotting library rounds where the painter aligns to pixels
	(qRound, without its integer range limit).
*/
class Mapping {
public:
	Mapping(const QwtScaleMap & map, bool round) :
		m_map(map),
		m_linear(map.transformation() == nullptr),
		m_round(round),
		m_p1(map.p1()),
		m_s1(map.s1())
	{
		// the scale map's own arithmetic for linear maps, so that both give the same numbers
		if (map.s1() != map.s2())
			m_factor = (map.p2() - map.p1())/(map.s2() - map.s1());
	}
	double operator()(double v) const {
		const double p = unrounded(v);
		return m_round ? std::floor(p + 0.5) : p;
	}
	/*! The paint coordinate before rounding. */
	double unrounded(double v) const {
		return m_linear ? m_p1 + (v - m_s1)*m_factor : m_map.transform(v);
	}

private:
	const QwtScaleMap &	m_map;
	bool				m_linear;
	bool				m_round;
	double				m_p1;
	double				m_s1;
	double				m_factor = 1;
};


/*! Appends p unless it repeats the last point. */
void appendPoint(QPolygonF & out, const QPointF & p) {
	if (out.isEmpty() || out.last() != p)
		out.append(p);
}

} // namespace


QPolygonF pixelColumnPolyline(const double * x, const double * y, int from, int to,
							  const QwtScaleMap & xMap, const QwtScaleMap & yMap, const PixelRaster & raster)
{
	QPolygonF out;
	if (to < from)
		return out;
	const Mapping mapX(xMap, raster.m_round);
	const Mapping mapY(yMap, raster.m_round);
	const double scale = raster.m_scale;
	const double offset = raster.m_offset;
	const bool round = raster.m_round;
	// Both mappings are monotonic, so the lowest and highest values of a column are found on the
	// data values and mapped once when the column is done.
	double column = 0;
	// unrounded paint x coordinates from lo to below hi surely fall into the current column: most
	// points are placed by this test alone, without rounding
	double lo = 0, hi = 0;
	double firstX = 0, lastX = 0;
	int first = from, last = from, low = from, high = from;
	const auto flush = [&]() {
		appendPoint(out, QPointF(firstX, mapY(y[first])));
		const int i1 = std::min(low, high);
		const int i2 = std::max(low, high);
		if (i1 != first && i1 != last)
			appendPoint(out, QPointF(mapX(x[i1]), mapY(y[i1])));
		if (i2 != first && i2 != last && i2 != i1)
			appendPoint(out, QPointF(mapX(x[i2]), mapY(y[i2])));
		if (last != first)
			appendPoint(out, QPointF(lastX, mapY(y[last])));
	};
	for (int i = from; i <= to; ++i) {
		const double raw = mapX.unrounded(x[i]);
		bool same = raw >= lo && raw < hi;
		double px = raw;
		if (!same) {
			px = round ? std::floor(raw + 0.5) : raw;
			const double c = std::floor(px*scale + offset);
			same = i > from && c == column;
			if (!same) {
				if (i > from)
					flush();
				column = c;
				first = last = low = high = i;
				firstX = px;
				// the interval of one rounded coordinate, or of the column, shrunk by a margin
				// against rounding errors of this computation
				const double margin = 1e-9*(1 + std::fabs(raw));
				if (round) {
					lo = px - 0.5 + margin;
					hi = px + 0.5 - margin;
				}
				else if (scale > 0) {
					lo = (c - offset)/scale + margin;
					hi = (c + 1 - offset)/scale - margin;
				}
				else
					lo = hi = 0;
				lastX = px;
				continue;
			}
		}
		else if (round)
			px = firstX;
		last = i;
		lastX = px;
		const double v = y[i];
		if (v < y[low])
			low = i;
		if (v > y[high])
			high = i;
	}
	flush();
	return out;
}


ColumnSpans columnSpans(const QPolygonF & polyline) {
	ColumnSpans result;
	const int n = polyline.size();
	if (n == 0)
		return result;
	result.m_points.reserve(n);
	// the current piece ends with point i at the top of the loop
	result.m_starts.append(0);
	result.m_points.append(polyline[0]);
	int i = 0;
	while (i < n) {
		// the run of points i..j-1 of one x coordinate
		const double x = polyline[i].x();
		double low = polyline[i].y(), high = low;
		int j = i + 1;
		for (; j < n && polyline[j].x() == x; ++j) {
			low = std::min(low, polyline[j].y());
			high = std::max(high, polyline[j].y());
		}
		if (j - i >= 3) {
			// the current piece ends at the run's first point; a piece of that point alone is
			// covered by the span
			if (result.m_points.size() - result.m_starts.last() < 2) {
				result.m_points.removeLast();
				result.m_starts.removeLast();
			}
			result.m_spans.append(QLineF(x, low, x, high));
			result.m_starts.append(result.m_points.size());
			result.m_points.append(polyline[j - 1]);
		}
		else {
			for (int k = i + 1; k < j; ++k)
				result.m_points.append(polyline[k]);
		}
		if (j < n)
			result.m_points.append(polyline[j]);
		i = j;
	}
	// a last piece of one point is covered by the span before it
	if (!result.m_spans.isEmpty() && result.m_points.size() - result.m_starts.last() < 2) {
		result.m_points.removeLast();
		result.m_starts.removeLast();
	}
	return result;
}

} // namespace SCI
