#ifndef QtExt_WindowGeometryH
#define QtExt_WindowGeometryH

#include <QRect>

namespace QtExt {

/*! Brings a stored window geometry onto a screen, so that a window saved on a larger screen or
	on a screen that is gone does not reopen out of reach.
*/
class WindowGeometry {
public:
	/*! The geometry made at most as large as the available area and moved just far enough to lie
		inside it; a geometry inside stays as it is. */
	static QRect fitted(const QRect & geometry, const QRect & available);
};

} // namespace QtExt

#endif // QtExt_WindowGeometryH
