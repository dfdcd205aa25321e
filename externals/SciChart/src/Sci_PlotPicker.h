#ifndef Sci_PlotPickerH
#define Sci_PlotPickerH

#include <qwt_plot_picker.h>

#include "Sci_PlotPickerText.h"

namespace SCI {

/*! Shows the coordinates under the mouse next to the cursor while it moves over the canvas
	of a chart; the text comes from a PlotPickerText. */
class PlotPicker : public QwtPlotPicker {
public:
	/*! A picker on the canvas of plot. */
	explicit PlotPicker(QwtPlot * plot);

protected:
	QwtText trackerText(const QPoint & pos) const override;

private:
	PlotPickerText	m_text;
};

} // namespace SCI

#endif // Sci_PlotPickerH
