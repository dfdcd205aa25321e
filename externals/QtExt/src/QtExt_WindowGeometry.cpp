#include "QtExt_WindowGeometry.h"

#include <algorithm>

namespace QtExt {

QRect WindowGeometry::fitted(const QRect & geometry, const QRect & available) {
	QRect r(geometry.topLeft(), geometry.size().boundedTo(available.size()));
	r.moveLeft(std::max(available.left(), std::min(r.left(), available.right() - r.width() + 1)));
	r.moveTop(std::max(available.top(), std::min(r.top(), available.bottom() - r.height() + 1)));
	return r;
}

} // namespace QtExt
