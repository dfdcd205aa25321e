#ifndef Sci_LegendItemMoverH
#define Sci_LegendItemMoverH

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>

class QwtPlot;

namespace SCI {

class LegendItem;

/*! Lets the user drag the legend inside the canvas with the left mouse button. While dragging,
	the legend follows the mouse; when the button is released, legendMoved() hands the new
	offset on (the chart stores it in its model); a click without moving is announced with its
	position instead. Mouse events that start on the legend do not reach zoomer and picker.
	The mover belongs to the canvas it watches, so it goes with the canvas; events that the
	canvas receives while the plot is torn down are recognised by the stored canvas pointer
	alone, without calling into the plot that is being destroyed.
*/
class LegendItemMover : public QObject {
	Q_OBJECT
public:
	/*! Watches the canvas of plot; item is the legend inside that canvas. */
	LegendItemMover(QwtPlot * plot, LegendItem * item);

	bool eventFilter(QObject * watched, QEvent * event) override;

signals:
	/*! The legend was dropped at this offset from its corner. */
	void legendMoved(const QSize & offset);
	/*! The legend was clicked at pos (canvas coordinates) without being moved. */
	void legendClicked(const QPoint & pos);

private:
	QwtPlot *			m_plot;
	/*! The watched canvas; compared with the watched object, never dereferenced after its end. */
	QPointer<QWidget>	m_canvas;
	LegendItem *		m_item;
	bool				m_dragging = false;
	/*! Mouse position where the drag began. */
	QPoint				m_start;
	/*! Offset of the legend when the drag began. */
	QSize				m_startOffset;
};

} // namespace SCI

#endif // Sci_LegendItemMoverH
