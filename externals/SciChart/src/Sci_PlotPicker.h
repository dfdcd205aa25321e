#ifndef Sci_PlotPickerH
#define Sci_PlotPickerH

#include <qwt_plot_picker.h>

#include "Sci_PlotPickerText.h"

namespace SCI {

class Chart;

/*! Shows the coordinates under the mouse next to the cursor while it moves over the canvas
	of a chart; the text comes from a PlotPickerText. */
class PlotPicker : public QwtPlotPicker {
public:
	/*! A picker on the canvas of chart. */
	explicit PlotPicker(Chart * chart);

	/*! The text shown for a position on the canvas. */
	QString text(const QPoint & canvasPos) const { return m_text.text(canvasPos); }

protected:
	QwtText trackerText(const QPoint & pos) const override;

private:
	PlotPickerText	m_text;
};

} // namespace SCI

#endif // Sci_PlotPickerH
