#include "Sci_SeriesDataEmpty.h"

namespace SCI {

QPointF SeriesDataEmpty::sample(size_t i) const {
	Q_ASSERT_X(false, "SeriesDataEmpty::sample", "no samples");
	Q_UNUSED(i)
	return QPointF();
}


QRectF SeriesDataEmpty::boundingRect() const {
	return QRectF(1.0, 1.0, -2.0, -2.0);
}

} // namespace SCI
