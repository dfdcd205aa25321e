#ifndef Sci_ChartH
#define Sci_ChartH

#include <functional>
#include <memory>
#include <vector>

#include <QList>

#include <qwt_plot.h>
#include <qwt_text.h>

#include "Sci_ChartElement.h"

class QwtPlotGrid;
class QwtPlotMarker;

namespace SCI {

class AbstractCartesianChartModel;
class ChartAxis;
class ChartSeries;
class LegendItem;
class PlotPicker;
class PlotRescaler;
class PlotScaleItem;
class PlotWheelZoom;
class PlotZoomer;

/*! The plot widget of a chart model. It draws the model's series (lines, one colour grid, one
	vector field, or bars; a chart shows series of one kind, decided by the kind of model) with
	the model's chart, axis and series properties, and follows every change the model announces.

	Redrawing can be suspended: prohibitUpdate() and allowUpdate()/allowUpdateAndReplot() count
	nested suspensions; the model's modelAboutToBeChanged()/modelChanged() bracket a batch of
	changes, which is then drawn once. The user zooms with a rubber band (left mouse button) or
	the mouse wheel, pans with the middle button, sees the coordinates under the mouse (also
	announced for a status bar) and can drag a legend that sits inside the canvas; resetView()
	returns to the model's axis settings. A click on the legend entry of a curve hides or shows
	the curve (a state of the view; the model has no such property). A double
	click on the title, an axis, the legend, a curve, the colour bar or the canvas is announced
	with the element clicked, and so is a request for a context menu (right button, or the menu
	key). On a zoomed canvas the right button zooms back instead.

	Series objects keep the index of the model series they show. A series that cannot be
	created (inconsistent model data) is left out and created again when the model announces
	new data for it.
*/
class Chart : public QwtPlot {
	Q_OBJECT
public:
	/*! Upper bound of the minimum width, in lines of the chart's font. */
	static constexpr int MINIMUM_WIDTH_LINES = 16;
	/*! Upper bound of the minimum height, in lines of the chart's font. */
	static constexpr int MINIMUM_HEIGHT_LINES = 10;

	/*! The kind of series shown, from the kind of model. */
	enum ChartType {
		NoChart,
		LineChart,
		ColorGridChart,
		VectorFieldChart,
		BarChart
	};

	explicit Chart(QWidget * parent = nullptr);
	~Chart() override;

	/*! Shows model (nullptr: none). The chart listens to the model's signals until another
		model is set or the model is destroyed. Throws ZEB::Exception for a model that is none of
		the line, colour grid, vector field and bar models. */
	void setModel(AbstractCartesianChartModel * model);
	AbstractCartesianChartModel * model() const { return m_model; }
	ChartType chartType() const { return m_chartType; }

	/*! Number of series objects (model series that could be drawn). */
	int seriesCount() const { return m_series.count(); }
	/*! Series object by position, in model order. */
	ChartSeries * series(int position) const { return m_series.at(position); }
	/*! Axis 0 (bottom), 1 (left) or 2 (right). */
	ChartAxis * chartAxis(int axisPosition) const;
	/*! The legend used when it sits inside the canvas. */
	LegendItem * legendItem() const { return m_legendItem.get(); }
	PlotZoomer * zoomer() const { return m_zoomer; }
	PlotWheelZoom * wheelZoom() const { return m_wheelZoom; }
	/*! Scales drawn inside the canvas (AxisScalesInside), one per shown axis. */
	const std::vector<std::unique_ptr<PlotScaleItem> > & scaleItems() const { return m_scaleItems; }

	/*! Lays the chart out at the given widget size, as an export of that size draws it: with
		proportional axes the scales are fitted anew so that they stay proportional in the
		picture. Returns the size before, to restore the screen layout after the export.
	*/
	QSize layoutForSize(const QSize & size);

	/*! Sets the title of an axis; a shown chart elides it where its axis is shorter. */
	void setFullAxisTitle(int axisId, const QwtText & title);
	/*! Switches the eliding of axis titles; off, the axes show their whole titles (exports
		draw them at their own size). */
	void setAxisTitlesElided(bool elided);

	/*! Create the series object of model series index and insert it; each returns false and
		reports when the series cannot be created (e.g. undefined units, inconsistent sizes).
		Series objects of later model series must have been shifted by the caller. */
	bool insertLineSeriesFromModel(int index);
	bool insertColorGridSeriesFromModel(int index);
	bool insertBarSeriesFromModel(int index);
	bool insertVectorFieldSeriesFromModel(int index);

	/*! Watches mouse events on the chart's widgets for double clicks and context menus. */
	bool eventFilter(QObject * watched, QEvent * event) override;

	/*! Lays out title, axes, canvas and legend, with the room for the end labels of the axes
		taken from this layout (see updateAxisBorderDistances()). */
	void updateLayout() override;
	/*! At most MINIMUM_WIDTH_LINES x MINIMUM_HEIGHT_LINES lines of the chart's font. The plot
		library asks for room for every tick label side by side and thereby keeps a few charts
		from sharing a screen; a smaller chart shrinks its canvas, wraps its title and thins out
		the tick labels. */
	QSize minimumSizeHint() const override;

signals:
	/*! The user double-clicked an element of the chart. */
	void elementDoubleClicked(const SCI::ChartElement & element);
	/*! The user asks for the context menu of an element, to be shown at globalPos. */
	void contextMenuRequested(const SCI::ChartElement & element, const QPoint & globalPos);
	/*! The mouse moved over the canvas: the text the picker shows there (empty when the mouse
		left the canvas). */
	void pickerTextChanged(const QString & text);

public slots:
	/*! Suspends redrawing (nested calls count). */
	void prohibitUpdate();
	/*! Ends one suspension without redrawing. */
	void allowUpdate();
	/*! Ends one suspension and redraws when the last one has ended. */
	void allowUpdateAndReplot();
	/*! Drops zoom and panning and shows the axes as the model sets them. */
	void resetView();

protected:
	/*! Lays the chart out again once its axes are shown with their sizes. */
	void showEvent(QShowEvent * event) override;

private slots:
	void onChartChanged(int chartDataRole);
	void onAxisChanged(int axisPosition, int role);
	void onSeriesViewChanged(int start, int end, int role);
	void onSeriesChanged(int start, int end);
	void onSeriesAboutToBeInserted(int start, int end);
	void onSeriesAboutToBeRemoved(int start, int end);
	void onSeriesInserted(int start, int end);
	void onSeriesRemoved(int start, int end);
	void onModelAboutToBeReset();
	void onSeriesModelReset();
	void onModelAboutToBeDeleted();
	/*! Back at the full view, the axes follow the model again. */
	void onZoomed(const QRectF & rect);
	/*! Stores the offset of a legend dragged inside the canvas in the model. */
	void onLegendMoved(const QSize & offset);
	/*! Hides or shows the curve of the legend entry clicked (itemInfo of the plot item). */
	void onLegendClicked(const QVariant & itemInfo);
	/*! Hides or shows the curve of the entry at pos of the legend inside the canvas. */
	void onLegendItemClicked(const QPoint & pos);

private:
	/*! Ends one suspension of redrawing; reports (from functionId) and returns false when none
		is open. */
	bool endUpdateSuspension(const char * functionId);
	/*! Removes all series objects and creates everything anew from the model. */
	void rebuild();
	/*! Position of the line series whose legend entry is at pos of widget (an entry of the
		legend beside the canvas, or the canvas with the legend inside), -1 for none. */
	int legendEntryLineSeries(const QWidget * widget, const QPoint & pos) const;
	/*! Hides a shown line series, shows a hidden one, and redraws. */
	void toggleLineSeries(int position);
	/*! Creates the series object of model series index with the operation of the chart's kind,
		reporting failures. */
	bool insertSeriesFromModel(int index);
	/*! Adds the series that create makes, which throws ZEB::Exception when the model's data
		make no series. Such a failure is reported with the exception's messages and then
		failureMessage (unless null) from functionId; returns false then.
	*/
	bool addCreatedSeries(const std::function<std::unique_ptr<ChartSeries>()> & create,
						  const char * failureMessage, const char * functionId);
	/*! Inserts a created series in model order and shows it. */
	void addSeries(ChartSeries * series);
	/*! Position of the series object of model series index, -1 if there is none. */
	int positionOf(int seriesIndex) const;
	void removeAllSeries();
	/*! Updates what depends on the set of series: axes, bar layout, colour bar, grid, zoom axes. */
	void afterSeriesStructureChanged();

	/*! Applies one chart property (role -1: all). */
	void applyChartProperty(int role);
	void updateLegend();
	void updateGrid();
	/*! Range, colour map and visibility of the colour bar of colour grid and vector charts. */
	void updateColorBar();
	void updateZoomerAxes();
	void updateScaleItems();
	void updateTimeMarker();
	void updateBarLayout();
	/*! Redraws unless redrawing is suspended; keeps the zoom base in step with the data. */
	void updatePlot();
	/*! Fits the scales of a chart with proportional axes around its data. */
	void fitProportional();
	/*! Sets the room beyond the canvas edges that each shown axis needs for the labels of its
		end ticks, measured with the axis' current length; returns true when any room changed. */
	bool updateAxisBorderDistances();
	/*! Shows each axis title whole or, on a shown chart with eliding on, elided to the length of
		its axis; returns true when a shown title changed. */
	bool elideAxisTitles();

	AbstractCartesianChartModel *				m_model = nullptr;
	ChartType									m_chartType = NoChart;
	/*! Series objects in model order. */
	QList<ChartSeries *>						m_series;
	/*! Nested suspensions of redrawing, 0 = drawing allowed. */
	int											m_noUpdateCounter = 0;
	std::unique_ptr<ChartAxis>					m_axes[3];
	/*! The legend inside the canvas (attached only when the legend sits there). */
	std::unique_ptr<LegendItem>					m_legendItem;
	/*! Grid lines of the x axis and of the y axis, each with its own pens. */
	std::unique_ptr<QwtPlotGrid>				m_xGrid;
	std::unique_ptr<QwtPlotGrid>				m_yGrid;
	/*! Vertical line at the current time position. */
	std::unique_ptr<QwtPlotMarker>				m_timeMarker;
	std::vector<std::unique_ptr<PlotScaleItem> >	m_scaleItems;
	PlotZoomer *								m_zoomer = nullptr;
	PlotWheelZoom *								m_wheelZoom = nullptr;
	PlotPicker *								m_picker = nullptr;
	PlotRescaler *								m_rescaler = nullptr;
	/*! The whole titles of the axes, by axis id. */
	QwtText										m_fullAxisTitles[QwtPlot::axisCnt];
	bool										m_elideAxisTitles = true;
};

} // namespace SCI

#endif // Sci_ChartH
