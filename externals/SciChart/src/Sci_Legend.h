#ifndef Sci_LegendH
#define Sci_LegendH

#include <qwt_legend.h>

namespace SCI {

class AbstractChartModel;

/*! The legend of a chart when it is placed beside the canvas (left, right, top or bottom):
	entries of the curves and bars, with the frame, font, background, spacing and column limit
	of the chart model's legend properties.
*/
class Legend : public QwtLegend {
	Q_OBJECT
public:
	explicit Legend(QWidget * parent = nullptr);

	/*! Takes over the legend properties of the model. */
	void applyProperties(const AbstractChartModel & model);
	/*! The legend and every entry it creates report their events to filter (the chart, which
		looks for double clicks and context menu requests). */
	void setEntryEventFilter(QObject * filter);

protected:
	/*! New entries get the legend font explicitly: with an application style sheet in place
		they would otherwise take the application font instead of the legend's.
	*/
	QWidget * createWidget(const QwtLegendData & data) const override;

private:
	QObject *	m_entryEventFilter = nullptr;
};

} // namespace SCI

#endif // Sci_LegendH
