#include "QtExt_InvalidMarking.h"

#include <QWidget>

namespace QtExt {

namespace {

/*! Share of red mixed into the base colour: enough to be seen, little enough to keep the text
	readable.
*/
const double INVALID_TINT = 0.25;

} // namespace


void setInvalidMarking(QWidget * widget, bool invalid) {
	// the natural palette first, so that the tint follows the current base colour
	widget->setPalette(QPalette());
	if (!invalid)
		return;
	const QColor base = widget->palette().color(QPalette::Base);
	QPalette marked;
	marked.setColor(QPalette::Base, QColor::fromRgbF(base.redF() + INVALID_TINT*(1 - base.redF()),
													 base.greenF()*(1 - INVALID_TINT),
													 base.blueF()*(1 - INVALID_TINT)));
	widget->setPalette(marked);
}

} // namespace QtExt
