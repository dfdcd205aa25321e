#include "Sci_LegendItem.h"

#include <QPen>

#include "Sci_AbstractChartModel.h"

namespace SCI {

LegendItem::LegendItem() {
	// the offset replaces the uniform distance to the canvas border
	setBorderDistance(0);
	setBackgroundMode(QwtPlotLegendItem::LegendBackground);
	setMargin(4);
	setItemMargin(2);
	setItemSpacing(4);
	setBorderRadius(0);
	setTextPen(QPen(QColor(40, 40, 40)));
	setZ(100);
}


void LegendItem::applyProperties(const AbstractChartModel & model) {
	typedef AbstractChartModel M;
	setAlignment(cornerAlignment(model.chartData(M::LegendAlignment).toInt()));
	setOffset(model.chartData(M::LegendOffset).toSize());
	setFont(model.chartData(M::LegendFont).value<QFont>());
	setMaxColumns(static_cast<uint>(qMax(0, model.chartData(M::LegendMaxColumns).toInt())));
	setSpacing(qMax(0, model.chartData(M::LegendSpacing).toInt()));
	QColor background = model.chartData(M::LegendBackgroundColor).value<QColor>();
	background.setAlphaF(qBound(0.0, model.chartData(M::LegendBackgroundTransparency).toDouble(), 1.0));
	setBackgroundBrush(background);
	setBorderPen(model.chartData(M::LegendHasFrame).toBool() ? QPen(QColor(90, 90, 90), 1) : QPen(Qt::NoPen));
}


void LegendItem::setOffset(const QSize & offset) {
	if (offset == m_offset)
		return;
	m_offset = offset;
	itemChanged();
}


QSize LegendItem::movedOffset(const QSize & start, const QPoint & delta) const {
	// offsets count into the canvas from the anchoring corner
	const Qt::Alignment a = alignment();
	return QSize((a & Qt::AlignRight) ? start.width() - delta.x() : start.width() + delta.x(),
				 (a & Qt::AlignBottom) ? start.height() - delta.y() : start.height() + delta.y());
}


QRect LegendItem::geometry(const QRectF & canvasRect) const {
	QRect r = QwtPlotLegendItem::geometry(canvasRect);
	const Qt::Alignment a = alignment();
	r.translate((a & Qt::AlignRight) ? -m_offset.width() : m_offset.width(),
				(a & Qt::AlignBottom) ? -m_offset.height() : m_offset.height());
	return r;
}


Qt::Alignment LegendItem::cornerAlignment(int alignment) {
	switch (alignment) {
		case 0 :	return Qt::AlignTop | Qt::AlignLeft;
		case 1 :	return Qt::AlignTop | Qt::AlignRight;
		case 2 :	return Qt::AlignBottom | Qt::AlignLeft;
		default :	return Qt::AlignBottom | Qt::AlignRight;
	}
}

} // namespace SCI
