#ifndef Sci_PlotPickerTextH
#define Sci_PlotPickerTextH

#include <QString>

class QPoint;
class QwtPlot;

namespace SCI {

/*! Formats the coordinates under the mouse for the picker of a chart: the x value (as a date on
	date-time axes) and the values of all shown y axes.
*/
class PlotPickerText {
public:
	explicit PlotPickerText(const QwtPlot * plot);

	/*! The text for a position on the canvas, e.g. "x: 12.5   y: 20.3 | 81.2". */
	QString text(const QPoint & canvasPos) const;

	/*! A number with up to six significant digits. */
	static QString numberText(double value);

private:
	/*! The value of one axis at a canvas pixel, as text. */
	QString axisText(int axisId, double pixel) const;

	const QwtPlot *	m_plot;
};

} // namespace SCI

#endif // Sci_PlotPickerTextH
