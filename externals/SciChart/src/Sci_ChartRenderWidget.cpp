#include "Sci_ChartRenderWidget.h"

#include <QPainter>

namespace SCI {

ChartRenderWidget::ChartRenderWidget(QWidget * parent) :
	QWidget(parent)
{
	setMinimumSize(100, 80);
}


void ChartRenderWidget::setImage(const QImage & image) {
	m_image = image;
	updateGeometry();
	update();
}


QSize ChartRenderWidget::sizeHint() const {
	if (m_image.isNull())
		return QSize(400, 300);
	return m_image.size().boundedTo(QSize(800, 600));
}


void ChartRenderWidget::paintEvent(QPaintEvent * event) {
	Q_UNUSED(event)
	QPainter painter(this);
	painter.fillRect(rect(), palette().color(QPalette::Window));
	if (m_image.isNull())
		return;
	// the largest size with the image's aspect ratio, never enlarged
	const QSize target = m_image.size().scaled(size() - QSize(8, 8), Qt::KeepAspectRatio).boundedTo(m_image.size());
	const QRect r(QPoint((width() - target.width())/2, (height() - target.height())/2), target);
	painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
	painter.drawImage(r, m_image);
	painter.setPen(QColor(160, 160, 160));
	painter.drawRect(r.adjusted(0, 0, -1, -1));
}

} // namespace SCI
