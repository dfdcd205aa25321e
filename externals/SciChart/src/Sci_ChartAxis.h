#ifndef Sci_ChartAxisH
#define Sci_ChartAxisH

#include <QStringList>

#include "Sci_DateTimeMapping.h"

class QwtScaleDraw;
class QwtScaleEngine;

namespace SCI {

class AbstractCartesianChartModel;
class Chart;

/*! One axis of a chart (position 0: bottom x axis, 1: left y axis, 2: right y axis): applies the
	axis properties of the chart's model to the plot's axis widget, i.e. title ("$unit" replaced),
	fonts, label alignment and rotation, tick counts, scale range or autoscale, linear,
	logarithmic, date-time or bar label scales.

	Label alignment codes: horizontal 0 left, 1 right, 2 centred; vertical 0 top, 1 bottom,
	2 centred. TitleSpacing is the least distance in pixels between the axis and its title
	(room reserved for ticks and labels), LabelSpacing the distance between ticks and labels.
	The right axis of colour grid and vector field charts carries the colour bar; its range and
	visibility are set by the chart.
*/
class ChartAxis {
public:
	ChartAxis(Chart * chart, int axisPosition);

	int axisPosition() const { return m_position; }
	/*! The plot's axis id (QwtPlot::Axis). */
	int axisId() const;

	/*! Applies one axis role of the chart's model, or all for role -1. Grid roles and
		proportional scales are left to the chart. */
	void apply(int role);
	/*! Autoscale, or the fixed range of the model (bar chart x axis: one place per bar). */
	void applyScale();
	/*! Scale engine, scale draw, label font and tick counts: linear, logarithmic, date or bar
		labels; with scales inside the canvas the axis keeps only its title. */
	void applyScaleDraw();

	/*! A new scale draw of the axis' kind, configured from the model (owned by the caller); the
		axis uses one, scales inside the canvas another. */
	QwtScaleDraw * createScaleDraw() const;
	/*! True when the axis labels are dates. */
	bool isDateTime() const { return m_dateTime; }
	/*! Relation of axis values and dates, valid when isDateTime(). */
	const DateTimeMapping & dateTimeMapping() const { return m_mapping; }

	/*! Qt alignment flags of the model's label alignment codes. */
	static Qt::Alignment labelAlignment(int horizontal, int vertical);

private:
	void applyEnabled();
	void applyTitle();
	/*! Decides between date labels and numbers; reports axes that cannot show dates. */
	void updateDateTimeMapping();
	/*! True for the colour bar axis of colour grid and vector field charts. */
	bool isColorBarAxis() const;
	/*! True for the x axis of a bar chart. */
	bool isBarLabelAxis() const;
	const AbstractCartesianChartModel * model() const;

	Chart *			m_chart;
	int				m_position;
	bool			m_dateTime = false;
	DateTimeMapping	m_mapping;
};

} // namespace SCI

#endif // Sci_ChartAxisH
