#ifndef Sci_PixelColumnReductionH
#define Sci_PixelColumnReductionH

#include <QPolygonF>
#include <QLineF>
#include <QVector>

class QwtScaleMap;

namespace SCI {

/*! Where the points of a curve land on a pixel raster: paint coordinates come from the scale maps
	(rounded to whole numbers where the painter aligns to pixels), and device pixel column
	floor(x*m_scale + m_offset) holds a point of paint x coordinate x.
*/
struct PixelRaster {
	double	m_scale = 1;
	double	m_offset = 0;
	bool	m_round = false;
};

/*! The polyline through points from..to of x and y (data coordinates, all finite), mapped to paint
	coordinates and thinned without changing the drawn picture: of each run of consecutive points
	in one device pixel column it keeps the first, the lowest, the highest and the last (the lowest
	and highest in their order along the line), and repeated points once. A polyline through the
	kept points covers the same pixels of each column as the polyline through all of them, and
	joins neighbouring columns by the same segments. One pass over the points; a noisy curve of
	millions of points shrinks to at most four points per column.
*/
QPolygonF pixelColumnPolyline(const double * x, const double * y, int from, int to,
							  const QwtScaleMap & xMap, const QwtScaleMap & yMap, const PixelRaster & raster);

/*! A polyline split into the vertical spans of the columns it runs up and down in and the pieces
	between them: piece k holds the points m_points[m_starts[k]] up to the next piece's start.
*/
struct ColumnSpans {
	QPolygonF		m_points;
	QVector<int>	m_starts;
	QVector<QLineF>	m_spans;	///< each from the lowest to the highest point of its run
};

/*! The polyline as spans and pieces that cover the same points: each run of three or more
	consecutive points of one x coordinate, where a thinned noisy curve goes up and down its pixel
	column, becomes one vertical span from the run's lowest to its highest point, so that each part
	of a column is painted once instead of two or three times; the pieces keep the rest. A curve of
	at most two points per column stays one piece.
*/
ColumnSpans columnSpans(const QPolygonF & polyline);

} // namespace SCI

#endif // Sci_PixelColumnReductionH
