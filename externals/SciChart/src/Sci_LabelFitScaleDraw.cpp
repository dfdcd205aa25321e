#include "Sci_LabelFitScaleDraw.h"

#include <QPainter>

#include "Sci_ScaleLabelFit.h"

namespace SCI {

void LabelFitScaleDraw::drawLabel(QPainter * painter, double value) const {
	if (ScaleLabelFit::isLabelDrawn(*this, painter->font(), value))
		QwtScaleDraw::drawLabel(painter, value);
}

} // namespace SCI
