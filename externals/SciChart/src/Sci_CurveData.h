#ifndef Sci_CurveDataH
#define Sci_CurveDataH

#include <QRectF>
#include <QVector>

#include <qwt_series_data.h>

namespace SCI {

/*! The points of a line series as handed to its curve: copies of the model's x and y values
	(y negated for inverted series). The bounding rectangle ignores points that cannot be drawn:
	values that are not finite and, for logarithmic axes, values that are not positive. The four
	variants are computed once with the data.
*/
class CurveData : public QwtSeriesData<QPointF> {
public:
	/*! Points (x[i], y[i]); both vectors must be of the same size. */
	CurveData(const QVector<double> & x, const QVector<double> & y);

	size_t size() const override { return static_cast<size_t>(m_x.size()); }
	QPointF sample(size_t i) const override;
	const double * xData() const { return m_x.constData(); }
	const double * yData() const { return m_y.constData(); }
	/*! Bounding rectangle of the finite points. */
	QRectF boundingRect() const override { return m_rects[0]; }
	/*! Bounding rectangle of the points that can be drawn with linear or logarithmic axes;
		an invalid rectangle when there is none. */
	QRectF boundingRect(bool logarithmicX, bool logarithmicY) const;
	/*! True when every point can be drawn with linear or logarithmic axes: all values finite
		and, on logarithmic axes, positive. */
	bool allDrawable(bool logarithmicX, bool logarithmicY) const;

private:
	QVector<double>	m_x;
	QVector<double>	m_y;
	/*! Rectangles of the finite points: all, x > 0, y > 0, both > 0. */
	QRectF			m_rects[4];
	/*! Whether every point counts for the rectangle of the same index. */
	bool			m_all[4];
};

} // namespace SCI

#endif // Sci_CurveDataH
