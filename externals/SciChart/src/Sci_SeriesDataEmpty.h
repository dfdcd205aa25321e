#ifndef Sci_SeriesDataEmptyH
#define Sci_SeriesDataEmptyH

#include <QPointF>
#include <QRectF>

#include <qwt_series_data.h>

namespace SCI {

/*! Curve data without points, given to the curve of a series that has no values (yet), so
	that the plot never holds a curve without data object. */
class SeriesDataEmpty : public QwtSeriesData<QPointF> {
public:
	size_t size() const override { return 0; }
	/*! There is no sample; answers a null point. */
	QPointF sample(size_t i) const override;
	/*! An invalid rectangle: the curve takes no part in autoscaling. */
	QRectF boundingRect() const override;
};

} // namespace SCI

#endif // Sci_SeriesDataEmptyH
