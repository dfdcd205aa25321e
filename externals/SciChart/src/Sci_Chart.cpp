#include "Sci_Chart.h"

#include <cmath>

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPen>

#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_panner.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>
#include <qwt_text_label.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "Sci_AbstractBarSeriesModel.h"
#include "Sci_AbstractColorGridSeriesModel.h"
#include "Sci_AbstractLineSeriesModel.h"
#include "Sci_AbstractVectorFieldSeriesModel.h"
#include "Sci_BarSeries.h"
#include "Sci_ChartAxis.h"
#include "Sci_ChartElementLocator.h"
#include "Sci_ColorGridSeries.h"
#include "Sci_Legend.h"
#include "Sci_LegendItem.h"
#include "Sci_LegendItemMover.h"
#include "Sci_LineSeries.h"
#include "Sci_PlotColorMap.h"
#include "Sci_PlotPicker.h"
#include "Sci_PlotRescaler.h"
#include "Sci_PlotScaleItem.h"
#include "Sci_PlotWheelZoom.h"
#include "Sci_PlotZoomer.h"
#include "Sci_VectorFieldSeries.h"

namespace SCI {

namespace {

typedef AbstractChartModel CDM;
typedef AbstractCartesianChartModel CM;

/*! Reports a requirement of an operation that the caller did not meet. */
void reportUnmetRequirement(const char * condition, const char * functionId) {
	ZEB::reportError(ZEB::MessageFormat("Requirement '%1' not met.").arg(condition).str(), functionId);
}

/*! Colour of axis lines, ticks and labels. */
const QColor FRAME_COLOR(40, 40, 40);

/*! The chart's model as a series model of the kind Model; reports the unmet requirement and
	returns null for a model of another kind.
*/
template <class Model>
const Model * seriesModel(const AbstractCartesianChartModel * model, const char * requirement, const char * functionId) {
	const Model * kindModel = dynamic_cast<const Model *>(model);
	if (kindModel == nullptr)
		reportUnmetRequirement(requirement, functionId);
	return kindModel;
}

/*! True when index is a series of the model; reports the unmet requirement otherwise. */
bool isSeriesIndex(const AbstractChartModel * model, int index, const char * functionId) {
	if (index >= 0 && index < static_cast<int>(model->seriesCount()))
		return true;
	reportUnmetRequirement("index >= 0 && index < seriesCount()", functionId);
	return false;
}

/*! What a new series takes from the model first. Colour grids and vector fields take their data
	first, as their value range and contour levels derive from them.
*/
enum LoadOrder {
	PropertiesFirst,
	DataFirst
};

/*! A new series of type S that shows series index of the model, with its data and all its
	properties loaded in the given order. Throws ZEB::Exception for data it cannot show.
*/
template <class S, class Model>
std::unique_ptr<S> newSeries(const Model * model, int index, LoadOrder order) {
	std::unique_ptr<S> series(new S(model));
	series->setSeriesIndex(index);
	if (order == DataFirst)
		series->updateData(index);
	series->updateProperty(index, -1);
	if (order == PropertiesFirst)
		series->updateData(index);
	return series;
}

/*! Throws when a colour grid or vector field model leaves a unit of series index undefined;
	modelName names the model in the message.
*/
template <class Model>
void checkColorMappedUnits(const Model * model, int index, const char * modelName, const char * functionId) {
	if (model->xUnit(index).id() == 0 || model->yUnit(index).id() == 0)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid x-unit or y-unit returned from %1.").arg(modelName), functionId);
	if (model->valueUnit(index).id() == 0)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid value unit returned from %1.").arg(modelName), functionId);
}

} // namespace


Chart::Chart(QWidget * parent) :
	QwtPlot(parent)
{
	setAutoReplot(false);
	// white paper, a thin frame around the canvas that also serves as axis lines
	setAutoFillBackground(true);
	QPalette pal = palette();
	pal.setColor(QPalette::Window, Qt::white);
	pal.setColor(QPalette::WindowText, FRAME_COLOR);
	pal.setColor(QPalette::Text, FRAME_COLOR);
	setPalette(pal);
	setContentsMargins(8, 8, 12, 8);
	// the plot library's default (minimum expanding) takes its size hint, with room for every
	// tick label, as the minimum size
	setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
	QwtPlotCanvas * plotCanvas = new QwtPlotCanvas;
	plotCanvas->setFrameStyle(QFrame::Box | QFrame::Plain);
	plotCanvas->setLineWidth(1);
	QPalette canvasPalette = plotCanvas->palette();
	canvasPalette.setColor(QPalette::WindowText, FRAME_COLOR);
	plotCanvas->setPalette(canvasPalette);
	setCanvas(plotCanvas);
	setCanvasBackground(Qt::white);
	plotLayout()->setAlignCanvasToScales(true);
	plotLayout()->setCanvasMargin(0);
	enableAxis(QwtPlot::xTop, false);

	for (int i = 0; i < CM::NUM_AXES; ++i)
		m_axes[i].reset(new ChartAxis(this, i));
	m_xGrid.reset(new QwtPlotGrid);
	m_xGrid->enableY(false);
	m_xGrid->enableYMin(false);
	m_xGrid->attach(this);
	m_yGrid.reset(new QwtPlotGrid);
	m_yGrid->enableX(false);
	m_yGrid->enableXMin(false);
	m_yGrid->attach(this);
	m_legendItem.reset(new LegendItem);
	m_timeMarker.reset(new QwtPlotMarker);
	m_timeMarker->setLineStyle(QwtPlotMarker::VLine);
	m_timeMarker->setLinePen(QPen(QColor(170, 30, 30), 1.5, Qt::DashLine));
	m_timeMarker->setZ(30);

	m_zoomer = new PlotZoomer(canvas());
	QwtPlotPanner * panner = new QwtPlotPanner(canvas());
	panner->setMouseButton(Qt::MiddleButton);
	m_picker = new PlotPicker(this);
	m_rescaler = new PlotRescaler(canvas());
	m_wheelZoom = new PlotWheelZoom(this);
	// installed last, so that it sees mouse events on the canvas first
	LegendItemMover * legendMover = new LegendItemMover(this, m_legendItem.get());
	connect(m_zoomer, &QwtPlotZoomer::zoomed, this, &Chart::onZoomed);
	connect(legendMover, &LegendItemMover::legendMoved, this, &Chart::onLegendMoved);
	connect(legendMover, &LegendItemMover::legendClicked, this, &Chart::onLegendItemClicked);

	titleLabel()->installEventFilter(this);
	for (int axis : { QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight })
		axisWidget(axis)->installEventFilter(this);
}


Chart::~Chart() {
	removeAllSeries();
}


bool Chart::eventFilter(QObject * watched, QEvent * event) {
	QWidget * widget = qobject_cast<QWidget *>(watched);
	if (widget != nullptr && event->type() == QEvent::MouseButtonDblClick &&
		static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton)
	{
		const QPoint pos = static_cast<QMouseEvent *>(event)->pos();
		const ChartElement element = ChartElementLocator::elementAt(*this, widget, pos);
		if (element.m_kind != ChartElement::None) {
			// the first click of the double click has hidden or shown a curve: undo that
			const int clickedLine = legendEntryLineSeries(widget, pos);
			if (clickedLine >= 0)
				toggleLineSeries(clickedLine);
			// taken here, so that the legend's entries do not pass it on to the legend
			emit elementDoubleClicked(element);
			return true;
		}
	}
	else if (widget != nullptr && event->type() == QEvent::ContextMenu) {
		QContextMenuEvent * menuEvent = static_cast<QContextMenuEvent *>(event);
		// on a zoomed canvas the right button steps the zoom back
		const bool zoomStep = widget == canvas() && menuEvent->reason() == QContextMenuEvent::Mouse &&
				m_zoomer->zoomRectIndex() > 0;
		const ChartElement element = ChartElementLocator::elementAt(*this, widget, menuEvent->pos());
		if (!zoomStep && element.m_kind != ChartElement::None) {
			emit contextMenuRequested(element, menuEvent->globalPos());
			return true;
		}
	}
	else if (widget != nullptr && widget == canvas() && event->type() == QEvent::MouseMove) {
		emit pickerTextChanged(m_picker->text(static_cast<QMouseEvent *>(event)->pos()));
	}
	else if (widget != nullptr && widget == canvas() && event->type() == QEvent::Leave) {
		emit pickerTextChanged(QString());
	}
	return QwtPlot::eventFilter(watched, event);
}


ChartAxis * Chart::chartAxis(int axisPosition) const {
	Q_ASSERT(axisPosition >= 0 && axisPosition < CM::NUM_AXES);
	return m_axes[axisPosition].get();
}


void Chart::setModel(AbstractCartesianChartModel * model) {
	FUNCID(Chart::setModel);
	ChartType type = NoChart;
	if (dynamic_cast<AbstractLineSeriesModel *>(model) != nullptr)
		type = LineChart;
	else if (dynamic_cast<AbstractColorGridSeriesModel *>(model) != nullptr)
		type = ColorGridChart;
	else if (dynamic_cast<AbstractVectorFieldSeriesModel *>(model) != nullptr)
		type = VectorFieldChart;
	else if (dynamic_cast<AbstractBarSeriesModel *>(model) != nullptr)
		type = BarChart;
	else if (model != nullptr)
		throw ZEB::Exception("Unsupported kind of chart model, expected a line, colour grid, vector field or bar model.", FUNC_ID);

	if (m_model != nullptr)
		disconnect(m_model, nullptr, this, nullptr);
	m_model = model;
	m_chartType = type;
	if (m_model == nullptr) {
		removeAllSeries();
		updatePlot();
		return;
	}
	connect(m_model, &CDM::chartChanged, this, &Chart::onChartChanged);
	connect(m_model, &CDM::axisChanged, this, &Chart::onAxisChanged);
	connect(m_model, &CDM::seriesViewChanged, this, &Chart::onSeriesViewChanged);
	connect(m_model, &CDM::seriesChanged, this, &Chart::onSeriesChanged);
	connect(m_model, &CDM::seriesAboutToBeInserted, this, &Chart::onSeriesAboutToBeInserted);
	connect(m_model, &CDM::seriesAboutToBeRemoved, this, &Chart::onSeriesAboutToBeRemoved);
	connect(m_model, &CDM::seriesInserted, this, &Chart::onSeriesInserted);
	connect(m_model, &CDM::seriesRemoved, this, &Chart::onSeriesRemoved);
	connect(m_model, &CDM::modelAboutToBeReset, this, &Chart::onModelAboutToBeReset);
	connect(m_model, &CDM::modelReset, this, &Chart::onSeriesModelReset);
	connect(m_model, &CDM::modelAboutToBeChanged, this, &Chart::prohibitUpdate);
	connect(m_model, &CDM::modelChanged, this, &Chart::allowUpdateAndReplot);
	connect(m_model, &QObject::destroyed, this, &Chart::onModelAboutToBeDeleted);
	rebuild();
}


// *** update suppression ***

void Chart::prohibitUpdate() {
	++m_noUpdateCounter;
}


void Chart::allowUpdate() {
	FUNCID(Chart::allowUpdate);
	endUpdateSuspension(FUNC_ID);
}


void Chart::allowUpdateAndReplot() {
	FUNCID(Chart::allowUpdateAndReplot);
	if (endUpdateSuspension(FUNC_ID))
		updatePlot();
}


bool Chart::endUpdateSuspension(const char * functionId) {
	Q_ASSERT(m_noUpdateCounter > 0);
	if (m_noUpdateCounter == 0) {
		reportUnmetRequirement("m_noUpdateCounter > 0", functionId);
		return false;
	}
	--m_noUpdateCounter;
	return true;
}


void Chart::updatePlot() {
	if (m_noUpdateCounter > 0)
		return;
	if (m_rescaler->isEnabled())
		fitProportional();
	else
		replot();
	if (m_zoomer->zoomRectIndex() == 0)
		m_zoomer->setZoomBase(false);
}


void Chart::updateLayout() {
	QwtPlot::updateLayout();
	// The plot measures the room for the end labels only when it redraws, with the axis lengths
	// of the layout at that time. A chart drawn before it got its size (e.g. hidden, where a
	// wrapped title left the axes no length at all) would keep wrong room through every later
	// resize, and its end labels would be cut. One more pass settles it, as the room depends on
	// the length only through ticks that do not sit on the ends of the scale.
	// both run; eliding keeps the thickness of a title, so one more layout suffices
	const bool bordersChanged = updateAxisBorderDistances();
	const bool titlesChanged = elideAxisTitles();
	if (bordersChanged || titlesChanged)
		QwtPlot::updateLayout();
}


void Chart::setFullAxisTitle(int axisId, const QwtText & title) {
	m_fullAxisTitles[axisId] = title;
	setAxisTitle(axisId, title);
	elideAxisTitles();
}


void Chart::setAxisTitlesElided(bool elided) {
	m_elideAxisTitles = elided;
	if (elideAxisTitles())
		QwtPlot::updateLayout();
}


bool Chart::elideAxisTitles() {
	bool changed = false;
	for (int axisId = 0; axisId < QwtPlot::axisCnt; ++axisId) {
		QwtScaleWidget * axis = axisWidget(axisId);
		const QwtText & full = m_fullAxisTitles[axisId];
		QwtText shown = full;
		if (m_elideAxisTitles && isVisible() && axisEnabled(axisId)) {
			const bool vertical = axisId == QwtPlot::yLeft || axisId == QwtPlot::yRight;
			const int length = (vertical ? axis->height() : axis->width()) - axis->startBorderDist() - axis->endBorderDist();
			const QFontMetrics metrics(full.font());
			if (length > 0)
				shown.setText(metrics.elidedText(full.text(), Qt::ElideRight, length));
		}
		if (axis->title().text() != shown.text()) {
			axis->setTitle(shown);
			changed = true;
		}
	}
	return changed;
}


QSize Chart::minimumSizeHint() const {
	const int line = fontMetrics().height();
	return QwtPlot::minimumSizeHint().boundedTo(QSize(MINIMUM_WIDTH_LINES*line, MINIMUM_HEIGHT_LINES*line));
}


void Chart::showEvent(QShowEvent * event) {
	QwtPlot::showEvent(event);
	// hidden axes get their new sizes only when shown, so the layout done while the chart was
	// hidden measured their labels with the old lengths
	updateLayout();
}


bool Chart::updateAxisBorderDistances() {
	bool changed = false;
	for (int axisId = 0; axisId < QwtPlot::axisCnt; ++axisId) {
		QwtScaleWidget * axis = axisWidget(axisId);
		// a chart too small to give the axis any length has nothing to measure
		if (!axisEnabled(axisId) || axis->scaleDraw()->length() <= 0)
			continue;
		int start = 0;
		int end = 0;
		axis->getBorderDistHint(start, end);
		if (start != axis->startBorderDist() || end != axis->endBorderDist()) {
			axis->setBorderDist(start, end);
			changed = true;
		}
	}
	return changed;
}


QSize Chart::layoutForSize(const QSize & size) {
	const QSize previous = this->size();
	if (!m_rescaler->isEnabled() || size == previous || size.isEmpty())
		return previous;
	resize(size);
	updateLayout();
	fitProportional();
	updateAxes();
	return previous;
}


void Chart::resetView() {
	FUNCID(Chart::resetView);
	if (m_model != nullptr) {
		for (const std::unique_ptr<ChartAxis> & axis : m_axes)
			axis->applyScale();
		updateColorBar();
	}
	updatePlot();
	m_zoomer->setZoomBase(false);
	ZEB::reportProgress("Chart view reset.\n", FUNC_ID);
}


// *** building the chart ***

void Chart::rebuild() {
	removeAllSeries();
	for (const std::unique_ptr<ChartAxis> & axis : m_axes)
		axis->apply(-1);
	applyChartProperty(-1);
	const int count = static_cast<int>(m_model->seriesCount());
	for (int i = 0; i < count; ++i)
		insertSeriesFromModel(i);
	afterSeriesStructureChanged();
	updateScaleItems();
	m_rescaler->setEnabled(m_model->axisData(CM::BottomAxis, CM::AxisProportional).toBool() ||
						   m_model->axisData(CM::LeftAxis, CM::AxisProportional).toBool());
	updatePlot();
	m_zoomer->setZoomBase(false);
}


bool Chart::insertSeriesFromModel(int index) {
	FUNCID(Chart::insertSeriesFromModel);
	switch (m_chartType) {
		case LineChart :
			if (insertLineSeriesFromModel(index))
				return true;
			ZEB::reportError("Error creating line series from model, probably incomplete model implementation.", FUNC_ID);
			return false;
		case ColorGridChart :
			return insertColorGridSeriesFromModel(index);
		case VectorFieldChart :
			if (insertVectorFieldSeriesFromModel(index))
				return true;
			ZEB::reportError("Error creating vector field series from model, probably incomplete model implementation.", FUNC_ID);
			return false;
		case BarChart :
			if (insertBarSeriesFromModel(index))
				return true;
			ZEB::reportError("Error creating bar series from model, probably incomplete model implementation.", FUNC_ID);
			return false;
		case NoChart :
			break;
	}
	return false;
}


bool Chart::insertLineSeriesFromModel(int index) {
	FUNCID(Chart::insertLineSeriesFromModel);
	const AbstractLineSeriesModel * lineModel = seriesModel<AbstractLineSeriesModel>(m_model, "lineModel != nullptr", FUNC_ID);
	if (lineModel == nullptr || !isSeriesIndex(lineModel, index, FUNC_ID))
		return false;
	return addCreatedSeries([&]() {
		if (lineModel->xUnit(index).id() == 0 || lineModel->yUnit(index).id() == 0)
			throw ZEB::Exception("Invalid xunit or yunit returned from LineSeriesModel.", FUNC_ID);
		std::unique_ptr<LineSeries> series = newSeries<LineSeries>(lineModel, index, PropertiesFirst);
		series->setDataReduction(m_model->chartData(CDM::DataReduction).toBool());
		series->setLegendIcon(m_model->chartData(CDM::LegendIconStyle).toInt(),
							  m_model->chartData(CDM::LegendIconWidth).toInt());
		return series;
	}, "Exception caught while creating new line series.", FUNC_ID);
}


bool Chart::insertColorGridSeriesFromModel(int index) {
	FUNCID(Chart::insertColorGridSeriesFromModel);
	if (!m_series.empty()) {
		reportUnmetRequirement("m_series.empty()", FUNC_ID);
		return false;
	}
	const AbstractColorGridSeriesModel * colorModel =
			seriesModel<AbstractColorGridSeriesModel>(m_model, "colorModel != nullptr", FUNC_ID);
	if (colorModel == nullptr)
		return false;
	return addCreatedSeries([&]() {
		checkColorMappedUnits(colorModel, index, "ColorGridSeriesModel", FUNC_ID);
		return newSeries<ColorGridSeries>(colorModel, index, DataFirst);
	}, "Failed to add ColorGridSeries to chart, probably due to missing/inconsistent data in ColorGridSeriesModel.", FUNC_ID);
}


bool Chart::insertBarSeriesFromModel(int index) {
	FUNCID(Chart::insertBarSeriesFromModel);
	const AbstractBarSeriesModel * barModel = seriesModel<AbstractBarSeriesModel>(m_model, "barModel != nullptr", FUNC_ID);
	if (barModel == nullptr || !isSeriesIndex(barModel, index, FUNC_ID))
		return false;
	return addCreatedSeries([&]() {
		if (barModel->yUnit().id() == 0)
			throw ZEB::Exception("Invalid y-unit returned from BarSeriesModel.", FUNC_ID);
		return newSeries<BarSeries>(barModel, index, PropertiesFirst);
	}, nullptr, FUNC_ID);
}


bool Chart::insertVectorFieldSeriesFromModel(int index) {
	FUNCID(Chart::insertVectorFieldSeriesFromModel);
	const AbstractVectorFieldSeriesModel * vectorFieldModel =
			seriesModel<AbstractVectorFieldSeriesModel>(m_model, "vectorFieldModel != nullptr", FUNC_ID);
	if (vectorFieldModel == nullptr)
		return false;
	return addCreatedSeries([&]() {
		checkColorMappedUnits(vectorFieldModel, index, "AbstractVectorFieldSeriesModel", FUNC_ID);
		return newSeries<VectorFieldSeries>(vectorFieldModel, index, DataFirst);
	}, nullptr, FUNC_ID);
}


bool Chart::addCreatedSeries(const std::function<std::unique_ptr<ChartSeries>()> & create,
							 const char * failureMessage, const char * functionId)
{
	try {
		addSeries(create().release());
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		if (failureMessage != nullptr)
			ZEB::reportError(failureMessage, functionId);
		return false;
	}
	return true;
}


void Chart::addSeries(ChartSeries * series) {
	int position = 0;
	while (position < m_series.count() && m_series[position]->seriesIndex() < series->seriesIndex())
		++position;
	m_series.insert(position, series);
	series->attach(this);
}


int Chart::positionOf(int seriesIndex) const {
	for (int i = 0; i < m_series.count(); ++i)
		if (m_series[i]->seriesIndex() == seriesIndex)
			return i;
	return -1;
}


void Chart::removeAllSeries() {
	qDeleteAll(m_series);
	m_series.clear();
}


void Chart::afterSeriesStructureChanged() {
	// axis visibility and titles may depend on the series (e.g. on which y axis they are)
	for (const std::unique_ptr<ChartAxis> & axis : m_axes) {
		axis->apply(CM::AxisEnabled);
		axis->apply(CM::AxisTitle);
	}
	if (m_chartType == BarChart) {
		// bar labels and the number of bar positions come with the series
		m_axes[CM::BottomAxis]->applyScaleDraw();
		m_axes[CM::BottomAxis]->applyScale();
		updateBarLayout();
	}
	updateColorBar();
	updateGrid();
	updateZoomerAxes();
}


void Chart::updateBarLayout() {
	for (int i = 0; i < m_series.count(); ++i) {
		BarSeries * bars = dynamic_cast<BarSeries *>(m_series[i]);
		if (bars != nullptr)
			bars->setGroupLayout(i, m_series.count());
	}
}


// *** model signals ***

void Chart::onChartChanged(int chartDataRole) {
	if (m_model == nullptr)
		return;
	applyChartProperty(chartDataRole);
	updatePlot();
}


void Chart::onAxisChanged(int axisPosition, int role) {
	FUNCID(Chart::onAxisChanged);
	if (m_model == nullptr || axisPosition < 0 || axisPosition >= CM::NUM_AXES)
		return;
	if (role == CM::AxisLogarithmic && m_chartType == ColorGridChart &&
		m_model->axisData(axisPosition, role).toBool())
	{
		ZEB::reportError("Cannot set logarithmic axis for colormap plot.", FUNC_ID);
		return;
	}
	if (role >= CM::AxisGridVisible && role <= CM::AxisMinorGridPenColor)
		updateGrid();
	else if (role == CM::AxisProportional)
		m_rescaler->setEnabled(m_model->axisData(CM::BottomAxis, CM::AxisProportional).toBool() ||
							   m_model->axisData(CM::LeftAxis, CM::AxisProportional).toBool());
	else {
		m_axes[axisPosition]->apply(role);
		if (role == CM::AxisEnabled) {
			updateColorBar();
			updateGrid();
			updateZoomerAxes();
		}
		if (m_model->chartData(CDM::AxisScalesInside).toBool())
			updateScaleItems();
	}
	updatePlot();
}


void Chart::onSeriesViewChanged(int start, int end, int role) {
	if (m_model == nullptr)
		return;
	for (int i = start; i <= end; ++i) {
		const int position = positionOf(i);
		if (position >= 0)
			m_series[position]->updateProperty(i, role);
	}
	if (m_chartType == LineChart && role == AbstractLineSeriesModel::SeriesLeftAxis)
		afterSeriesStructureChanged();
	updateColorBar();
	updatePlot();
}


void Chart::onSeriesChanged(int start, int end) {
	FUNCID(Chart::onSeriesChanged);
	if (m_model == nullptr)
		return;
	for (int i = start; i <= end; ++i) {
		const int position = positionOf(i);
		// a series that could not be created before gets another chance with new data
		if (position < 0) {
			if (i >= 0 && i < static_cast<int>(m_model->seriesCount()))
				insertSeriesFromModel(i);
			continue;
		}
		try {
			m_series[position]->updateData(i);
		}
		catch (ZEB::Exception & ex) {
			ex.reportAllAsErrors();
			ZEB::reportError(ZEB::MessageFormat("Series #%1 keeps its previous data.").arg(i).str(), FUNC_ID);
		}
	}
	if (m_chartType == BarChart) {
		m_axes[CM::BottomAxis]->applyScaleDraw();
		m_axes[CM::BottomAxis]->applyScale();
	}
	updateColorBar();
	updatePlot();
}


void Chart::onSeriesAboutToBeInserted(int start, int end) {
	// series objects behind the insertion move up
	const int count = end - start + 1;
	for (ChartSeries * s : m_series)
		if (s->seriesIndex() >= start)
			s->setSeriesIndex(s->seriesIndex() + count);
}


void Chart::onSeriesInserted(int start, int end) {
	if (m_model == nullptr)
		return;
	for (int i = start; i <= end; ++i)
		if (!insertSeriesFromModel(i))
			ZEB::reportError("Error in SeriesModel. Series cannot be inserted", "Chart::onSeriesInserted");
	afterSeriesStructureChanged();
	updatePlot();
}


void Chart::onSeriesAboutToBeRemoved(int start, int end) {
	const int count = end - start + 1;
	for (int i = m_series.count() - 1; i >= 0; --i) {
		ChartSeries * s = m_series[i];
		if (s->seriesIndex() >= start && s->seriesIndex() <= end) {
			m_series.removeAt(i);
			delete s;
		}
		else if (s->seriesIndex() > end)
			s->setSeriesIndex(s->seriesIndex() - count);
	}
}


void Chart::onSeriesRemoved(int start, int end) {
	Q_UNUSED(start)
	Q_UNUSED(end)
	if (m_model == nullptr)
		return;
	afterSeriesStructureChanged();
	updatePlot();
}


void Chart::onModelAboutToBeReset() {
	removeAllSeries();
}


void Chart::onSeriesModelReset() {
	if (m_model != nullptr)
		rebuild();
}


void Chart::onModelAboutToBeDeleted() {
	FUNCID(Chart::onModelAboutToBeDeleted);
	ZEB::reportProgress("Chart model about to be deleted, setting m_model pointer to nullptr.\n", FUNC_ID);
	m_model = nullptr;
}


void Chart::onZoomed(const QRectF & rect) {
	Q_UNUSED(rect)
	if (m_zoomer->zoomRectIndex() != 0 || m_model == nullptr)
		return;
	for (const std::unique_ptr<ChartAxis> & axis : m_axes)
		axis->applyScale();
	updateColorBar();
	updatePlot();
}


void Chart::onLegendMoved(const QSize & offset) {
	if (m_model != nullptr)
		m_model->setChartData(offset, CDM::LegendOffset);
}


void Chart::onLegendClicked(const QVariant & itemInfo) {
	const QwtPlotItem * item = infoToItem(itemInfo);
	for (int i = 0; i < m_series.count(); ++i)
		if (m_series[i]->plotItem() == item && dynamic_cast<LineSeries *>(m_series[i]) != nullptr)
			toggleLineSeries(i);
}


void Chart::onLegendItemClicked(const QPoint & pos) {
	const int position = legendEntryLineSeries(canvas(), pos);
	if (position >= 0)
		toggleLineSeries(position);
}


int Chart::legendEntryLineSeries(const QWidget * widget, const QPoint & pos) const {
	int seriesIndex = -1;
	if (widget == canvas()) {
		if (m_legendItem->plot() != this || !m_legendItem->isVisible())
			return -1;
		for (const ChartSeries * s : m_series)
			for (const QRect & r : m_legendItem->legendGeometries(s->plotItem()))
				if (r.contains(pos))
					seriesIndex = s->seriesIndex();
	}
	else {
		const ChartElement element = ChartElementLocator::elementAt(*this, widget, pos);
		if (element.m_kind == ChartElement::Legend)
			seriesIndex = element.m_index;
	}
	const int position = seriesIndex >= 0 ? positionOf(seriesIndex) : -1;
	return position >= 0 && dynamic_cast<const LineSeries *>(m_series[position]) != nullptr ? position : -1;
}


void Chart::toggleLineSeries(int position) {
	ChartSeries * series = m_series[position];
	series->setVisible(!series->isVisible());
	updatePlot();
}


// *** chart-wide properties ***

void Chart::applyChartProperty(int role) {
	const bool all = role < 0;
	if (all || role == CDM::TitleText || role == CDM::TitleFont) {
		QwtText title(m_model->chartData(CDM::TitleText).toString());
		title.setFont(m_model->chartData(CDM::TitleFont).value<QFont>());
		// a title wider than the chart wraps instead of being cut off at both ends
		title.setRenderFlags(Qt::AlignCenter | Qt::TextWordWrap);
		setTitle(title);
	}
	if (all || (role >= CDM::LegendVisible && role <= CDM::LegendFont))
		updateLegend();
	if (all || role == CDM::LegendIconStyle || role == CDM::LegendIconWidth) {
		for (ChartSeries * s : m_series) {
			LineSeries * line = dynamic_cast<LineSeries *>(s);
			if (line != nullptr)
				line->setLegendIcon(m_model->chartData(CDM::LegendIconStyle).toInt(),
									m_model->chartData(CDM::LegendIconWidth).toInt());
		}
	}
	if (role == CDM::AxisY2TitleInverted)
		m_axes[CM::RightAxis]->apply(CM::AxisTitle);
	if (role == CDM::AxisScalesInside) {
		for (const std::unique_ptr<ChartAxis> & axis : m_axes)
			axis->applyScaleDraw();
		updateScaleItems();
	}
	if (all || role == CDM::DataReduction) {
		for (ChartSeries * s : m_series) {
			LineSeries * line = dynamic_cast<LineSeries *>(s);
			if (line != nullptr)
				line->setDataReduction(m_model->chartData(CDM::DataReduction).toBool());
		}
	}
	if (all || role == CDM::ShowCurrentTimePosition || role == CDM::CurrentTimePosition)
		updateTimeMarker();
}


void Chart::updateLegend() {
	const bool visible = m_model->chartData(CDM::LegendVisible).toBool();
	const int position = m_model->chartData(CDM::LegendPosition).toInt();
	if (!visible || position == ChartProperties::LegendInside) {
		insertLegend(nullptr);
		if (visible) {
			m_legendItem->applyProperties(*m_model);
			if (m_legendItem->plot() != this)
				m_legendItem->attach(this);
		}
		else
			m_legendItem->detach();
		return;
	}
	m_legendItem->detach();
	Legend * legend = new Legend;
	legend->setEntryEventFilter(this);
	connect(legend, &QwtLegend::clicked, this, &Chart::onLegendClicked);
	legend->applyProperties(*m_model);
	// the model's positions 0..3 are numbered like the plot's legend positions
	insertLegend(legend, static_cast<QwtPlot::LegendPosition>(position));
}


void Chart::updateGrid() {
	if (m_model == nullptr)
		return;
	// y grid lines follow the left axis, or the right one when only that is shown
	int yPosition = CM::LeftAxis;
	if (!axisEnabled(QwtPlot::yLeft) && axisEnabled(QwtPlot::yRight) && m_chartType == LineChart)
		yPosition = CM::RightAxis;
	m_xGrid->setAxes(QwtPlot::xBottom, m_axes[yPosition]->axisId());
	m_yGrid->setAxes(QwtPlot::xBottom, m_axes[yPosition]->axisId());
	// bars stand on the x ticks, vertical grid lines would cut through them
	const bool xLines = m_chartType != BarChart;
	m_xGrid->enableX(xLines && m_model->axisData(CM::BottomAxis, CM::AxisGridVisible).toBool());
	m_xGrid->enableXMin(xLines && m_model->axisData(CM::BottomAxis, CM::AxisMinorGridVisible).toBool());
	m_xGrid->setMajorPen(m_model->axisData(CM::BottomAxis, CM::AxisGridPen).value<QPen>());
	m_xGrid->setMinorPen(m_model->axisData(CM::BottomAxis, CM::AxisMinorGridPen).value<QPen>());
	m_yGrid->enableY(m_model->axisData(yPosition, CM::AxisGridVisible).toBool());
	m_yGrid->enableYMin(m_model->axisData(yPosition, CM::AxisMinorGridVisible).toBool());
	m_yGrid->setMajorPen(m_model->axisData(yPosition, CM::AxisGridPen).value<QPen>());
	m_yGrid->setMinorPen(m_model->axisData(yPosition, CM::AxisMinorGridPen).value<QPen>());
}


void Chart::updateColorBar() {
	if (m_model == nullptr || (m_chartType != ColorGridChart && m_chartType != VectorFieldChart))
		return;
	bool visible = false;
	QwtInterval range;
	ColorMap colorMap;
	if (m_chartType == ColorGridChart) {
		typedef AbstractColorGridSeriesModel GM;
		visible = m_model->seriesData(0, GM::ColorGridColorBarVisible).toBool();
		colorMap = m_model->seriesData(0, GM::ColorGridColorMap).value<ColorMap>();
		if (!m_series.empty())
			range = static_cast<ColorGridSeries *>(m_series.front())->valueRange();
	}
	else {
		typedef AbstractVectorFieldSeriesModel VM;
		// arrows in one colour have no use for a colour bar
		visible = m_model->seriesData(0, VM::VectorFieldColorBar).toBool() &&
				m_model->seriesData(0, VM::VectorFieldColoredArrowsEnabled).toBool();
		colorMap = m_model->seriesData(0, VM::VectorFieldColorMap).value<ColorMap>();
		if (!m_series.empty())
			range = static_cast<VectorFieldSeries *>(m_series.front())->magnitudeRange();
	}
	const bool validRange = range.isValid() && std::isfinite(range.minValue()) && std::isfinite(range.maxValue());
	QwtScaleWidget * bar = axisWidget(QwtPlot::yRight);
	if (!visible || !validRange) {
		bar->setColorBarEnabled(false);
		enableAxis(QwtPlot::yRight, false);
		return;
	}
	// a constant field still gets a readable scale
	if (range.width() == 0)
		range = QwtInterval(range.minValue() - 0.5, range.maxValue() + 0.5);
	enableAxis(QwtPlot::yRight, true);
	bar->setColorBarEnabled(true);
	bar->setColorBarWidth(14);
	bar->setColorMap(range, PlotColorMap::create(colorMap));
	setAxisScale(QwtPlot::yRight, range.minValue(), range.maxValue());
}


void Chart::updateZoomerAxes() {
	int yAxis = QwtPlot::yLeft;
	if (!axisEnabled(QwtPlot::yLeft) && axisEnabled(QwtPlot::yRight) && m_chartType == LineChart)
		yAxis = QwtPlot::yRight;
	m_zoomer->setAxis(QwtPlot::xBottom, yAxis);
	// the colour bar does not zoom
	m_zoomer->setSecondaryYAxis(yAxis == QwtPlot::yLeft && m_chartType == LineChart ? QwtPlot::yRight : -1);
	m_picker->setAxis(QwtPlot::xBottom, yAxis);
}


void Chart::updateScaleItems() {
	m_scaleItems.clear();
	if (m_model == nullptr || !m_model->chartData(CDM::AxisScalesInside).toBool())
		return;
	for (int position = 0; position < CM::NUM_AXES; ++position) {
		const ChartAxis & axis = *m_axes[position];
		const bool colorBar = position == CM::RightAxis && (m_chartType == ColorGridChart || m_chartType == VectorFieldChart);
		if (!axisEnabled(axis.axisId()) || colorBar)
			continue;
		m_scaleItems.emplace_back(new PlotScaleItem(position, axis.createScaleDraw(),
													m_model->axisData(position, CM::AxisLabelFont).value<QFont>()));
		m_scaleItems.back()->attach(this);
	}
}


void Chart::updateTimeMarker() {
	if (m_model->chartData(CDM::ShowCurrentTimePosition).toBool()) {
		m_timeMarker->setXValue(m_model->chartData(CDM::CurrentTimePosition).toDouble());
		m_timeMarker->attach(this);
	}
	else
		m_timeMarker->detach();
}


void Chart::fitProportional() {
	// the data rectangle of the items on the bottom and left axes, or the model's fixed ranges
	QRectF rect;
	bool haveRect = false;
	for (const QwtPlotItem * item : itemList()) {
		if (!item->testItemAttribute(QwtPlotItem::AutoScale) || item->xAxis() != QwtPlot::xBottom ||
			item->yAxis() != QwtPlot::yLeft)
		{
			continue;
		}
		const QRectF r = item->boundingRect();
		if (r.width() >= 0 && r.height() >= 0) {
			// united() would drop rectangles of a single point
			rect = haveRect ? QRectF(QPointF(qMin(rect.left(), r.left()), qMin(rect.top(), r.top())),
									 QPointF(qMax(rect.right(), r.right()), qMax(rect.bottom(), r.bottom()))) : r;
			haveRect = true;
		}
	}
	double x1 = rect.left(), x2 = rect.right(), y1 = rect.top(), y2 = rect.bottom();
	if (!m_model->axisData(CM::BottomAxis, CM::AxisAutoscale).toBool()) {
		x1 = m_model->axisData(CM::BottomAxis, CM::AxisMinimum).toDouble();
		x2 = m_model->axisData(CM::BottomAxis, CM::AxisMaximum).toDouble();
	}
	if (!m_model->axisData(CM::LeftAxis, CM::AxisAutoscale).toBool()) {
		y1 = m_model->axisData(CM::LeftAxis, CM::AxisMinimum).toDouble();
		y2 = m_model->axisData(CM::LeftAxis, CM::AxisMaximum).toDouble();
	}
	if (!(x2 > x1) || !(y2 > y1)) {
		replot();
		return;
	}
	m_rescaler->fitTo(QRectF(x1, y1, x2 - x1, y2 - y1));
}

} // namespace SCI
