#include "Sci_LegendItemMover.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <qwt_plot.h>

#include "Sci_LegendItem.h"

namespace SCI {

LegendItemMover::LegendItemMover(QwtPlot * plot, LegendItem * item) :
	QObject(plot->canvas()),
	m_plot(plot),
	m_canvas(plot->canvas()),
	m_item(item)
{
	m_canvas->installEventFilter(this);
}


bool LegendItemMover::eventFilter(QObject * watched, QEvent * event) {
	if (m_canvas.isNull() || watched != m_canvas.data())
		return false;
	switch (event->type()) {
		case QEvent::MouseButtonPress : {
			QMouseEvent * e = static_cast<QMouseEvent *>(event);
			if (e->button() != Qt::LeftButton || m_item->plot() != m_plot || !m_item->isVisible())
				return false;
			if (!m_item->geometry(m_canvas->contentsRect()).contains(e->pos()))
				return false;
			m_dragging = true;
			m_start = e->pos();
			m_startOffset = m_item->offset();
			m_canvas->setCursor(Qt::SizeAllCursor);
			return true;
		}
		case QEvent::MouseMove : {
			if (!m_dragging)
				return false;
			QMouseEvent * e = static_cast<QMouseEvent *>(event);
			const QSize moved = m_item->movedOffset(m_startOffset, e->pos() - m_start);
			// the legend stays inside the canvas
			m_item->setOffset(QSize(qMax(0, moved.width()), qMax(0, moved.height())));
			m_plot->replot();
			return true;
		}
		case QEvent::MouseButtonRelease : {
			if (!m_dragging)
				return false;
			m_dragging = false;
			m_canvas->unsetCursor();
			const QPoint pos = static_cast<QMouseEvent *>(event)->pos();
			if ((pos - m_start).manhattanLength() < QApplication::startDragDistance()) {
				// a click: the legend stays where it was
				m_item->setOffset(m_startOffset);
				emit legendClicked(pos);
			}
			else
				emit legendMoved(m_item->offset());
			return true;
		}
		default :
			return false;
	}
}

} // namespace SCI
