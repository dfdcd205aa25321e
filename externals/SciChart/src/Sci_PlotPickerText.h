#ifndef Sci_PlotPickerTextH
#define Sci_PlotPickerTextH

#include <QCoreApplication>
#include <QString>

#include <ZEB_Unit.h>

class QPoint;

namespace SCI {

class Chart;

/*! Formats what lies under the mouse for the picker of a chart and for the status bar:

	- line and bar charts: the x value and the values of all shown y axes, "x: 36 h   y: 5.2 C | 81 %";
	  on the x axis of a bar chart the label of the nearest bar position, "x: Jan 2021   y: 5.2 C";
	- colour grids: x, y and the field value at that point, "x: 0.25 m   y: 1.5 m   value: 9.5 C"
	  (the colour bar is no axis of the grid's plane and is left out, as with vector fields).

	Every number comes with the unit of its axis (the chart model's axis unit, or the unit of the
	model's data when the axis has none; plain numbers of the unit "-" go without) and with as
	many decimals as one pixel of its axis resolves. Values on date-time axes are dates in the
	short date-time format of the default locale (the interface language), with seconds only
	when a pixel of the axis spans less than a minute.
*/
class PlotPickerText {
	Q_DECLARE_TR_FUNCTIONS(PlotPickerText)
public:
	explicit PlotPickerText(const Chart * chart);

	/*! The text for a position on the canvas. */
	QString text(const QPoint & canvasPos) const;

private:
	/*! The value of one axis (plot axis id) at a canvas pixel, with its unit or as date. */
	QString axisText(int axisId, double pixel) const;
	/*! The field value of a colour grid at a canvas position with its unit; empty outside the grid. */
	QString fieldValueText(const QPoint & canvasPos) const;
	/*! The unit of an axis position of the chart model, from the model's data when the axis has none. */
	ZEB::Unit axisUnit(int axisPosition) const;

	const Chart *	m_chart;
};

} // namespace SCI

#endif // Sci_PlotPickerTextH
