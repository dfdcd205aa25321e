#include <gtest/gtest.h>


#include <QApplication>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWidget>

#include <qwt_abstract_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_renderer.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#include <qwt_text_label.h>

#include <Sci_BarSeries.h>
#include <Sci_ChartExporter.h>
#include <Sci_ChartElementLocator.h>
#include <Sci_ColorGridSeries.h>
#include <Sci_DataReductionCurveFitter.h>
#include <Sci_LegendItem.h>
#include <Sci_LineSeries.h>
#include <Sci_PlotCurve.h>
#include <Sci_PlotPickerText.h>
#include <Sci_PlotScaleItem.h>
#include <Sci_PlotSpectrogram.h>
#include <Sci_PlotZoomer.h>

#include "Sci_ChartTestModels.h"
#include "Sci_TestSupport.h"

using namespace SciTest;
typedef SCI::AbstractChartModel CDM;
typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

namespace {

VectorLineModel::Series makeSeries(std::vector<double> x, std::vector<double> y) {
	VectorLineModel::Series s;
	s.m_x = x;
	s.m_y = y;
	return s;
}

SCI::PlotCurve * curveAt(const SCI::Chart & chart, int position) {
	return dynamic_cast<SCI::LineSeries &>(*chart.series(position)).curve();
}

std::vector<double> ramp(int n) {
	std::vector<double> v;
	for (int i = 0; i < n; ++i)
		v.push_back(i);
	return v;
}

/*! Two series over x 0..xMax: one rising to 10 on the left axis, one rising to 100 in
	rightUnit on the right axis; all axes fixed to these ranges. */
void addTwoAxisSeries(VectorLineModel & model, double xMax, const ZEB::Unit & rightUnit) {
	model.addSeries(makeSeries({0, xMax}, {0, 10}));
	VectorLineModel::Series right = makeSeries({0, xMax}, {0, 100});
	right.m_yUnit = rightUnit;
	model.addSeries(right);
	model.setSeriesData(false, 1, LM::SeriesLeftAxis);
	setAxisRange(model, CM::BottomAxis, 0, xMax);
	setAxisRange(model, CM::LeftAxis, 0, 10);
	setAxisRange(model, CM::RightAxis, 0, 100);
}

double cellValue(unsigned int i, unsigned int j) {
	return i + 10.0*j;
}

/*! A paint device that keeps the bounding rectangles of the texts drawn on it. */
class TextRecordingDevice : public QPaintDevice {
public:
	explicit TextRecordingDevice(const QSize & size) : m_size(size) {}
	QPaintEngine * paintEngine() const override { return &m_engine; }

	/*! Pixel metrics of a screen at 96 dpi. */
	int metric(PaintDeviceMetric m) const override {
		if (m == PdmDevicePixelRatioScaled)
			return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
		return m == PdmWidth ? m_size.width() : m == PdmHeight ? m_size.height() : m == PdmDevicePixelRatio ? 1 : 96;
	}

	struct Engine : public QPaintEngine {
		Engine() : QPaintEngine(QPaintEngine::AllFeatures) {}
		bool begin(QPaintDevice *) override { return true; }
		bool end() override { return true; }
		void updateState(const QPaintEngineState &) override {}
		void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
		void drawPath(const QPainterPath &) override {}
		void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
		Type type() const override { return QPaintEngine::User; }
		void drawTextItem(const QPointF & p, const QTextItem & item) override {
			const QFontMetricsF fm(item.font());
			const QRectF r(p.x(), p.y() - fm.ascent(), fm.horizontalAdvance(item.text()), fm.ascent() + fm.descent());
			m_texts.append(qMakePair(item.text(), painter()->deviceTransform().mapRect(r)));
		}
		QList<QPair<QString, QRectF> >	m_texts;
	};

	QSize			m_size;
	mutable Engine	m_engine;
};

/*! The texts, with their rectangles, that renderer draws of chart on a device of that size. */
template <typename Renderer>
QList<QPair<QString, QRectF> > drawnTexts(SCI::Chart & chart, const QSize & size, Renderer && renderer) {
	TextRecordingDevice device(size);
	QPainter painter(&device);
	renderer.render(&chart, &painter, QRectF(QPointF(0, 0), QSizeF(size)));
	painter.end();
	return device.m_engine.m_texts;
}

} // namespace


TEST(SciChart, SmallChartsAskForLittleRoomAndDrawNoTextOverAnother) {
	VectorLineModel model;
	model.addSeries(makeSeries({0, 50000, 100000}, {-10000, 0, 120000}));
	model.setChartData("Temperature and relative humidity at the inner surface of the wall corner", CDM::TitleText);
	for (int axis : {CM::BottomAxis, CM::LeftAxis}) {
		model.setAxisData(QFont("DejaVu Sans", 14), axis, CM::AxisLabelFont);
		model.setAxisData(10, axis, CM::AxisMaxMajorScale);
	}
	model.setAxisData(false, CM::RightAxis, CM::AxisEnabled);
	SCI::Chart chart;
	chart.setModel(&model);
	const int line = chart.fontMetrics().height();
	const QSize small(16*line, 12*line);
	EXPECT_TRUE(chart.minimumSizeHint().width() <= small.width() && chart.minimumSizeHint().height() <= small.height());
	chart.resize(small);
	const QList<QPair<QString, QRectF> > texts = drawnTexts(chart, small, QwtPlotRenderer());
	ASSERT_GT(texts.size(), 6);
	for (int i = 0; i < texts.size(); ++i)
		for (int j = i + 1; j < texts.size(); ++j)
			// lines of the wrapped title may share a pixel row
			EXPECT_FALSE(texts[i].second.adjusted(1, 1, -1, -1).intersects(texts[j].second))
					<< texts[i].first.toStdString() << " and " << texts[j].first.toStdString();
}


TEST(SciChart, AxisTitlesLongerThanTheirAxisAreElidedOnScreenOnly) {
	VectorLineModel model;
	model.addSeries(makeSeries({0, 1, 2}, {5, 6, 7}));
	const QString title = "Temperature at the inner surface of the wall corner behind the cupboard [C]";
	model.setAxisData(title, CM::LeftAxis, CM::AxisTitleText);
	SCI::Chart chart;
	chart.setModel(&model);
	chart.resize(300, 200);
	chart.show();
	QCoreApplication::processEvents();
	const QString shown = chart.axisTitle(QwtPlot::yLeft).text();
	EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
	EXPECT_TRUE(title.startsWith(shown.chopped(1)));
	const QwtScaleWidget * axis = chart.axisWidget(QwtPlot::yLeft);
	EXPECT_LE(QFontMetrics(chart.axisTitle(QwtPlot::yLeft).font()).horizontalAdvance(shown), axis->height());

	// an export draws the whole title, and the screen gets its elided one back
	bool whole = false;
	for (const QPair<QString, QRectF> & text : drawnTexts(chart, QSize(1200, 900), SCI::ChartExporter()))
		whole = whole || text.first == title;
	EXPECT_TRUE(whole);
	EXPECT_EQ(chart.axisTitle(QwtPlot::yLeft).text(), shown);

	// with room enough the whole title shows
	chart.resize(1200, 900);
	QCoreApplication::processEvents();
	EXPECT_EQ(chart.axisTitle(QwtPlot::yLeft).text(), title);
}


TEST(SciChart, TwoNestedChangeBracketsRedrawOnceAfterTheSecond) {
	MessageCapture capture;
	VectorLineModel model;
	model.addSeries(makeSeries({0, 1, 2}, {5, 6, 7}));
	CountingChart chart;
	chart.setModel(&model);
	chart.m_replots = 0;

	model.beginChangeModel();
	model.beginChangeModel();
	model.setChartData("Changed title", CDM::TitleText);
	model.setAxisData("Time [$unit]", CM::BottomAxis, CM::AxisTitleText);
	model.setAxisData(ZEB::Unit("h").id(), CM::BottomAxis, CM::AxisUnit);
	model.setSeriesData(QColor(Qt::red), 0, LM::SeriesPenColor);
	model.changeSeries(0, makeSeries({0, 1, 2, 3}, {1, 2, 3, 4}));
	model.endChangeModel();
	EXPECT_EQ(chart.m_replots, 0);
	model.endChangeModel();
	EXPECT_EQ(chart.m_replots, 1);
	// everything changed while drawing was suspended has arrived
	EXPECT_EQ(chart.axisTitle(QwtPlot::xBottom).text(), QString("Time [h]"));
	EXPECT_EQ(curveAt(chart, 0)->pen().color(), QColor(Qt::red));
	EXPECT_EQ(curveAt(chart, 0)->dataSize(), 4u);

	// allowUpdate() ends a suspension without drawing, changes outside brackets draw at once
	chart.prohibitUpdate();
	model.setChartData("Third title", CDM::TitleText);
	chart.allowUpdate();
	EXPECT_EQ(chart.m_replots, 1);
	model.setChartData("Fourth title", CDM::TitleText);
	EXPECT_EQ(chart.m_replots, 2);
}


TEST(SciChart, AxesKeepRoomForTheirEndLabelsWhenAChartRedrawnHiddenIsShown) {
	VectorLineModel model;
	model.addSeries(makeSeries({0, 10}, {0, 2}));
	model.setChartData("Temperature and relative humidity at the inner surface of the wall corner behind the insulation",
					   CDM::TitleText);
	model.setChartData(QFont("DejaVu Sans", 14, QFont::Bold), CDM::TitleFont);
	for (int hiddenRedraws = 0; hiddenRedraws < 3; ++hiddenRedraws) {
		QWidget view;
		QVBoxLayout * layout = new QVBoxLayout(&view);
		view.resize(550, 415);
		view.show();
		SCI::Chart * chart = new SCI::Chart;
		chart->setModel(&model);
		QCoreApplication::processEvents();
		// a long title wraps in a narrow chart rather than being cut off
		const QwtText title = chart->title();
		EXPECT_GT(title.heightForWidth(150, title.font()), 2*title.heightForWidth(10000, title.font()));
		// redrawn while hidden at the plot's default size, where the wrapped title leaves the axes no length
		for (int i = 0; i < hiddenRedraws; ++i)
			chart->replot();
		layout->addWidget(chart);
		chart->show();
		for (int i = 0; i < 3; ++i)
			QCoreApplication::processEvents();
		for (int axisId : {QwtPlot::yLeft, QwtPlot::xBottom}) {
			const QwtScaleWidget * axis = chart->axisWidget(axisId);
			const QwtScaleDraw * draw = axis->scaleDraw();
			const QwtScaleDiv & div = chart->axisScaleDiv(axisId);
			// the labels of the first and the last tick lie inside the axis widget, which draws them
			for (double tick : {div.lowerBound(), div.upperBound()}) {
				const QRectF label = draw->labelRect(axis->font(), tick).translated(draw->labelPosition(tick));
				EXPECT_TRUE(QRectF(axis->rect()).contains(label))
						<< hiddenRedraws << " redraws, axis " << axisId << ", tick " << tick;
			}
		}
		// a redraw at this size keeps the layout (the plot measures its axes anew when it redraws)
		const QRect canvas = chart->canvas()->geometry();
		const QRect yAxis = chart->axisWidget(QwtPlot::yLeft)->geometry();
		chart->replot();
		QCoreApplication::processEvents();
		EXPECT_EQ(chart->canvas()->geometry(), canvas) << hiddenRedraws;
		EXPECT_EQ(chart->axisWidget(QwtPlot::yLeft)->geometry(), yAxis) << hiddenRedraws;
	}
}


TEST(SciChart, FollowsSeriesInsertionRemovalChangesAndResetsAndOutlivesItsModel) {
	MessageCapture capture;
	VectorLineModel * model = new VectorLineModel;
	model->addSeries(makeSeries({0, 1}, {10, 11}));
	model->addSeries(makeSeries({0, 1}, {20, 21}));
	SCI::Chart chart;
	chart.setModel(model);
	ASSERT_EQ(chart.seriesCount(), 2);

	model->addSeries(makeSeries({0, 1, 2}, {30, 31, 32}));

	// removing the first series shifts the others down, with their own data
	model->removeSeries(0);
	ASSERT_EQ(chart.seriesCount(), 2);
	EXPECT_EQ(curveAt(chart, 0)->sample(0).y(), 20);
	EXPECT_EQ(curveAt(chart, 1)->sample(2).y(), 32);

	model->setSeriesData(false, 0, LM::SeriesLeftAxis);
	EXPECT_EQ(curveAt(chart, 0)->yAxis(), static_cast<int>(QwtPlot::yRight));
	model->setSeriesData(true, 1, LM::SeriesInverted);
	EXPECT_EQ(curveAt(chart, 1)->sample(1), QPointF(1, -31));

	model->beginResetModel();
	model->m_series.pop_back();
	model->endResetModel();
	EXPECT_EQ(chart.seriesCount(), 1);

	delete model;
	EXPECT_EQ(chart.model(), nullptr);
	// the chart keeps what it shows and can still draw and reset its view
	EXPECT_EQ(chart.seriesCount(), 1);
	chart.replot();
	chart.resetView();
}


TEST(SciChart, LineSeriesWithUndefinedUnitIsLeftOutAndCreatedWhenItsDataBecomeValid) {
	MessageCapture capture;
	VectorLineModel model;
	model.addSeries(makeSeries({0, 1}, {1, 1}));
	VectorLineModel::Series bad = makeSeries({0, 1}, {2, 2});
	bad.m_yUnit = ZEB::Unit();
	model.addSeries(bad);
	model.addSeries(makeSeries({0, 1}, {3, 3}));
	SCI::Chart chart;
	chart.setModel(&model);

	ASSERT_EQ(chart.seriesCount(), 2);
	EXPECT_EQ(chart.series(1)->seriesIndex(), 2);
	EXPECT_EQ(curveAt(chart, 1)->sample(0).y(), 3);
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Invalid xunit or yunit returned from LineSeriesModel.", "[Chart::insertLineSeriesFromModel]"));


	// new, valid data for the missing series: it is created at its place
	model.changeSeries(1, makeSeries({0, 1}, {2, 2}));
	ASSERT_EQ(chart.seriesCount(), 3);
	EXPECT_EQ(chart.series(1)->seriesIndex(), 1);
	EXPECT_EQ(curveAt(chart, 1)->sample(0).y(), 2);
}


TEST(SciChart, LogarithmicAxesAreRefusedForColourGridsOnly) {
	MessageCapture capture;
	VectorGridModel grid;
	grid.setGrid({0, 1, 2}, {0, 1}, 3, 2, &cellValue);
	SCI::Chart gridChart;
	gridChart.setModel(&grid);
	grid.setAxisData(true, CM::LeftAxis, CM::AxisLogarithmic);
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Cannot set logarithmic axis for colormap plot.", "[Chart::onAxisChanged]"));
	EXPECT_EQ(dynamic_cast<const QwtLogScaleEngine *>(gridChart.axisScaleEngine(QwtPlot::yLeft)), nullptr);

	// a line chart takes it, and scales over the positive values only
	VectorLineModel lines;
	lines.addSeries(makeSeries({1, 2, 3, 4}, {-5, 0, 0.5, 200}));
	SCI::Chart lineChart;
	lineChart.setModel(&lines);
	lines.setAxisData(true, CM::LeftAxis, CM::AxisLogarithmic);
	ASSERT_NE(dynamic_cast<const QwtLogScaleEngine *>(lineChart.axisScaleEngine(QwtPlot::yLeft)), nullptr);
	lineChart.replot();
	const QwtScaleDiv & div = lineChart.axisScaleDiv(QwtPlot::yLeft);
	EXPECT_TRUE(div.lowerBound() > 0 && div.lowerBound() <= 0.5 && div.upperBound() >= 200) << div.lowerBound();
}


TEST(SciChartColorGrid, GridsThatDoNotFitTheirValuesOrUnitsAreLeftOut) {
	// which sizes fit is ColorGrid3DData's rule; the chart reports a misfit and shows nothing
	MessageCapture capture;
	VectorGridModel model;
	model.setGrid(ramp(4), ramp(5), 4, 3, &cellValue);
	SCI::Chart chart;
	chart.setModel(&model);
	EXPECT_EQ(chart.seriesCount(), 0);
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Invalid y-grid and y-value sizes.", "[ColorGridSeries::setData]"));
	model.m_xUnit = ZEB::Unit();
	model.setGrid(ramp(4), ramp(3), 4, 3, &cellValue);
	EXPECT_EQ(chart.seriesCount(), 0);
	// a fitting grid with units is shown; a second colour grid is refused
	model.m_xUnit = ZEB::Unit("m");
	model.setGrid(ramp(4), ramp(3), 4, 3, &cellValue);
	ASSERT_EQ(chart.seriesCount(), 1);
	EXPECT_FALSE(chart.insertColorGridSeriesFromModel(0));
}


TEST(SciChartColorGrid, ColourBarFollowsValueRangeAndVisibility) {
	VectorGridModel model;
	model.setGrid({0, 1, 2}, {0, 1}, 3, 2, &cellValue);
	SCI::Chart chart;
	chart.setModel(&model);
	typedef SCI::AbstractColorGridSeriesModel GM;
	EXPECT_TRUE(chart.axisWidget(QwtPlot::yRight)->isColorBarEnabled());
	// autoscaled: values 0..12
	EXPECT_EQ(chart.axisScaleDiv(QwtPlot::yRight).lowerBound(), 0);
	EXPECT_EQ(chart.axisScaleDiv(QwtPlot::yRight).upperBound(), 12);
	model.setSeriesData(false, 0, GM::ColorGridAutoScale);
	model.setSeriesData(-4.0, 0, GM::ColorGridMinimumZ);
	model.setSeriesData(30.0, 0, GM::ColorGridMaximumZ);
	EXPECT_EQ(chart.axisScaleDiv(QwtPlot::yRight).lowerBound(), -4);
	EXPECT_EQ(chart.axisScaleDiv(QwtPlot::yRight).upperBound(), 30);
	model.setSeriesData(false, 0, GM::ColorGridColorBarVisible);
	EXPECT_FALSE(chart.axisEnabled(QwtPlot::yRight));
	// contour lines at multiples of the interval inside the range
	model.setSeriesData(10.0, 0, GM::ColorGridContourInterval);
	const SCI::ColorGridSeries & series = dynamic_cast<const SCI::ColorGridSeries &>(*chart.series(0));
	EXPECT_EQ(series.spectrogram()->contourLevels(), QList<double>({0, 10, 20, 30}));
}


TEST(SciChartLegend, ClickedEntriesHideTheirCurveAndTheLegendInsideTheCanvasMovesWithTheMouse) {
	VectorLineModel model;
	model.addSeries(makeSeries({0, 10}, {0, 10}));
	model.addSeries(makeSeries({0, 10}, {5, 5}));
	SCI::Chart chart;
	chart.setModel(&model);
	renderCanvas(chart, QSize(600, 400));
	ASSERT_NE(chart.legend(), nullptr);
	const QList<QwtLegendLabel *> entries = chart.legend()->findChildren<QwtLegendLabel *>();
	ASSERT_EQ(entries.size(), 2);
	auto mouse = [](QWidget * widget, QEvent::Type type, const QPoint & pos, Qt::MouseButtons buttons) {
		QMouseEvent event(type, pos, Qt::LeftButton, buttons, Qt::NoModifier);
		QApplication::sendEvent(widget, &event);
	};
	auto click = [&mouse](QWidget * widget, const QPoint & pos) {
		mouse(widget, QEvent::MouseButtonPress, pos, Qt::LeftButton);
		mouse(widget, QEvent::MouseButtonRelease, pos, Qt::NoButton);
	};
	const QColor shown = entries[1]->data().title().color();
	click(entries[1], QPoint(3, 3));
	EXPECT_FALSE(curveAt(chart, 1)->isVisible());
	EXPECT_NE(entries[1]->data().title().color(), shown);
	click(entries[1], QPoint(3, 3));
	EXPECT_TRUE(curveAt(chart, 1)->isVisible());

	model.setChartData(SCI::ChartProperties::LegendInside, CDM::LegendPosition);
	ASSERT_EQ(chart.legendItem()->plot(), &chart);
	renderCanvas(chart, QSize(600, 400));
	const QRect canvasRect = chart.canvas()->contentsRect();
	const QRect legendRect = chart.legendItem()->geometry(canvasRect);
	// default corner bottom right, 10 pixels into the canvas
	EXPECT_NEAR(legendRect.bottom(), canvasRect.bottom() - 10, 1);

	// drag it 30 pixels left and 20 up: the offset from the corner grows by that much
	const QPoint start = legendRect.center();
	const QPoint end = start + QPoint(-30, -20);
	mouse(chart.canvas(), QEvent::MouseButtonPress, start, Qt::LeftButton);
	mouse(chart.canvas(), QEvent::MouseMove, end, Qt::LeftButton);
	mouse(chart.canvas(), QEvent::MouseButtonRelease, end, Qt::NoButton);
	EXPECT_EQ(model.chartData(CDM::LegendOffset).toSize(), QSize(40, 30));
	EXPECT_EQ(chart.zoomer()->zoomRectIndex(), 0u);
}


TEST(SciChartLegend, EntriesUseTheLegendFontAlsoUnderAnApplicationStyleSheet) {
	const QString previousSheet = qApp->styleSheet();
	qApp->setStyleSheet("QMessageBox { messagebox-text-interaction-flags: 5; }");
	VectorLineModel model;
	model.addSeries(makeSeries({0, 10}, {0, 10}));
	QFont legendFont("DejaVu Sans", 17);
	model.setChartData(legendFont, CDM::LegendFont);
	SCI::Chart chart;
	chart.setModel(&model);
	chart.show();
	model.addSeries(makeSeries({0, 10}, {5, 5}));
	ASSERT_NE(chart.legend(), nullptr);
	const QList<QwtLegendLabel *> labels = chart.legend()->findChildren<QwtLegendLabel *>();
	ASSERT_EQ(labels.size(), 2);
	for (const QwtLegendLabel * label : labels)
		EXPECT_EQ(label->font().pointSize(), 17);
	// a later change of the font reaches the existing entries
	legendFont.setPointSize(8);
	model.setChartData(legendFont, CDM::LegendFont);
	for (const QwtLegendLabel * label : chart.legend()->findChildren<QwtLegendLabel *>())
		EXPECT_EQ(label->font().pointSize(), 8);
	qApp->setStyleSheet(previousSheet);
}


TEST(SciChart, ScalesInsideAndCurveFitterFollowTheModel) {
	VectorLineModel model;
	model.addSeries(makeSeries({0, 10}, {0, 10}));
	SCI::Chart chart;
	chart.setModel(&model);
	EXPECT_TRUE(chart.scaleItems().empty());
	model.setChartData(true, CDM::AxisScalesInside);
	EXPECT_FALSE(chart.scaleItems().empty());
	EXPECT_FALSE(chart.axisScaleDraw(QwtPlot::yLeft)->hasComponent(QwtAbstractScaleDraw::Labels));
	model.setChartData(false, CDM::AxisScalesInside);
	EXPECT_TRUE(chart.scaleItems().empty());

	// data reduction is on by default; a fitted series takes the spline fitter instead
	SCI::PlotCurve * curve = curveAt(chart, 0);
	EXPECT_NE(dynamic_cast<SCI::DataReductionCurveFitter *>(curve->curveFitter()), nullptr);
	model.setSeriesData(true, 0, LM::SeriesFitted);
	EXPECT_NE(dynamic_cast<QwtSplineCurveFitter *>(curve->curveFitter()), nullptr);
	model.setSeriesData(false, 0, LM::SeriesFitted);
	model.setChartData(false, CDM::DataReduction);
	EXPECT_FALSE(curve->testCurveAttribute(QwtPlotCurve::Fitted));
}


TEST(SciChartBars, BarsOfAllSeriesStandSideBySideAtTheirLabels) {
	MessageCapture capture;
	TestBarModel model(2);
	SCI::Chart chart;
	chart.setModel(&model);
	ASSERT_EQ(chart.seriesCount(), 2);
	// a group spans 0.8 around each position: two bars of 0.4 at -0.2 and +0.2
	const QwtPlotBarChart * first = dynamic_cast<SCI::BarSeries &>(*chart.series(0)).barChart();
	const QwtPlotBarChart * second = dynamic_cast<SCI::BarSeries &>(*chart.series(1)).barChart();
	EXPECT_EQ(first->sample(1), QPointF(0.8, 0.5));
	EXPECT_EQ(second->sample(0), QPointF(0.2, 1));
	EXPECT_EQ(chart.axisScaleDraw(QwtPlot::xBottom)->label(1).text(), QString("Bar 1"));
	EXPECT_TRUE(chart.axisScaleDraw(QwtPlot::xBottom)->label(0.5).isEmpty());
	// the picker names the bar position under the mouse
	renderCanvas(chart, QSize(400, 300));
	const QPoint nearBar1(qRound(chart.canvasMap(QwtPlot::xBottom).transform(1.3)), 100);
	EXPECT_TRUE(SCI::PlotPickerText(&chart).text(nearBar1).startsWith("x: Bar 1   y: "));

	model.insertSeries(2);
	ASSERT_EQ(chart.seriesCount(), 3);
	EXPECT_NEAR(first->sample(0).x(), -0.4 + 0.8/6, 1e-12);
}


TEST(SciChart, ZoomMovesBothYAxesAndWheelZoomsAroundTheCursor) {
	VectorLineModel model;
	addTwoAxisSeries(model, 100, ZEB::Unit("C"));
	SCI::Chart chart;
	chart.setModel(&model);
	renderCanvas(chart, QSize(600, 400));

	// zooming into 2..4 on the left axis shows 20..40 on the right one; the full zoom gives back
	// the model's ranges
	chart.zoomer()->zoom(QRectF(10, 2, 20, 2));
	EXPECT_NEAR(chart.axisScaleDiv(QwtPlot::yLeft).lowerBound(), 2, 1e-9);
	EXPECT_NEAR(chart.axisScaleDiv(QwtPlot::yRight).lowerBound(), 20, 0.5);
	EXPECT_NEAR(chart.axisScaleDiv(QwtPlot::yRight).upperBound(), 40, 0.5);
	chart.zoomer()->zoom(0);

	// one wheel step over the canvas at (30, 4): every axis shows 0.8 of its range, and the
	// point under the cursor stays under it
	auto range = [&chart](int axisId) { return chart.axisScaleDiv(axisId).range(); };
	auto turnWheel = [](QWidget * widget, const QPoint & pos, int degrees) {
		QWheelEvent wheel(pos, widget->mapToGlobal(pos), QPoint(), QPoint(0, 8*degrees), Qt::NoButton,
						  Qt::NoModifier, Qt::NoScrollPhase, false);
		QApplication::sendEvent(widget, &wheel);
	};
	const QPoint cursor(qRound(chart.canvasMap(QwtPlot::xBottom).transform(30)),
						qRound(chart.canvasMap(QwtPlot::yLeft).transform(4)));
	const double x = chart.canvasMap(QwtPlot::xBottom).invTransform(cursor.x());
	const double y = chart.canvasMap(QwtPlot::yLeft).invTransform(cursor.y());
	turnWheel(chart.canvas(), cursor, 15);
	EXPECT_NEAR(range(QwtPlot::xBottom), 80, 1e-9);
	EXPECT_NEAR(range(QwtPlot::yRight), 80, 1e-9);
	EXPECT_NEAR(chart.canvasMap(QwtPlot::xBottom).invTransform(cursor.x()), x, 0.5);
	EXPECT_NEAR(chart.canvasMap(QwtPlot::yLeft).invTransform(cursor.y()), y, 0.05);
}


TEST(SciChart, ProportionalAxesKeepEqualScales) {
	VectorLineModel model;
	VectorLineModel::Series s = makeSeries({0, 4}, {0, 1});
	s.m_xUnit = ZEB::Unit("m");
	s.m_yUnit = ZEB::Unit("m");
	model.addSeries(s);
	model.setAxisData(true, CM::BottomAxis, CM::AxisProportional);
	SCI::Chart chart;
	chart.setModel(&model);
	for (const QSize & size : {QSize(700, 300), QSize(300, 600)}) {
		renderCanvas(chart, size);
		const QwtScaleMap x = chart.canvasMap(QwtPlot::xBottom);
		const QwtScaleMap y = chart.canvasMap(QwtPlot::yLeft);
		const double xPixelsPerUnit = x.transform(1) - x.transform(0);
		const double yPixelsPerUnit = y.transform(0) - y.transform(1);
		EXPECT_NEAR(xPixelsPerUnit/yPixelsPerUnit, 1, 0.01) << size.width() << " x " << size.height();
		// all data stay visible
		EXPECT_TRUE(chart.axisScaleDiv(QwtPlot::xBottom).contains(0) && chart.axisScaleDiv(QwtPlot::xBottom).contains(4));
		EXPECT_TRUE(chart.axisScaleDiv(QwtPlot::yLeft).contains(0) && chart.axisScaleDiv(QwtPlot::yLeft).contains(1));
	}
	// laid out for an export of another shape the scales are refitted
	chart.layoutForSize(QSize(400, 900));
	const QwtScaleMap x = chart.canvasMap(QwtPlot::xBottom);
	const QwtScaleMap y = chart.canvasMap(QwtPlot::yLeft);
	EXPECT_NEAR((x.transform(1) - x.transform(0))/(y.transform(0) - y.transform(1)), 1, 0.01);
}


namespace SCI {
/*! Element as "kind:index" in test messages. */
void PrintTo(const ChartElement & e, std::ostream * os) { *os << e.m_kind << ":" << e.m_index; }
}

namespace {

/*! The elements that double clicks at the given points of the given widgets announce. */
std::vector<SCI::ChartElement> doubleClickAll(SCI::Chart & chart, const std::vector<std::pair<QWidget *, QPoint> > & clicks) {
	std::vector<SCI::ChartElement> found;
	QObject::connect(&chart, &SCI::Chart::elementDoubleClicked, [&found](const SCI::ChartElement & e) { found.push_back(e); });
	for (const auto & click : clicks) {
		QMouseEvent event(QEvent::MouseButtonDblClick, click.second, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
		QApplication::sendEvent(click.first, &event);
	}
	QObject::disconnect(&chart, &SCI::Chart::elementDoubleClicked, nullptr, nullptr);
	return found;
}

} // namespace


TEST(SciChartElements, DoubleClicksAndContextMenusNameThePartUnderTheMouse) {
	typedef SCI::ChartElement E;
	// hand-computed distances: to the inside of a segment, beyond its end, to a point
	EXPECT_DOUBLE_EQ(SCI::distanceToSegment(QPointF(5, 3), QPointF(0, 0), QPointF(10, 0)), 3);
	EXPECT_DOUBLE_EQ(SCI::distanceToSegment(QPointF(13, 4), QPointF(0, 0), QPointF(10, 0)), 5);
	EXPECT_DOUBLE_EQ(SCI::distanceToSegment(QPointF(3, 4), QPointF(0, 0), QPointF(0, 0)), 5);

	VectorLineModel model;
	model.addSeries(makeSeries({0, 10}, {2, 2}));
	model.addSeries(makeSeries({0, 5, 10}, {8, 8, 8}));
	model.setSeriesData("second", 1, LM::SeriesTitleText);
	setAxisRange(model, CM::BottomAxis, 0, 10);
	setAxisRange(model, CM::LeftAxis, 0, 10);
	SCI::Chart chart;
	chart.setModel(&model);
	renderCanvas(chart, QSize(600, 400));
	const QwtScaleMap xMap = chart.canvasMap(QwtPlot::xBottom);
	const QwtScaleMap yMap = chart.canvasMap(QwtPlot::yLeft);
	auto canvasPoint = [&](double x, double y) { return QPoint(qRound(xMap.transform(x)), qRound(yMap.transform(y))); };
	ASSERT_NE(chart.legend(), nullptr);
	const QList<QwtLegendLabel *> entries = chart.legend()->findChildren<QwtLegendLabel *>();
	ASSERT_EQ(entries.size(), 2);

	const std::vector<E> found = doubleClickAll(chart, {
		{ chart.titleLabel(), chart.titleLabel()->rect().center() },
		{ chart.axisWidget(QwtPlot::xBottom), QPoint(20, 5) },
		{ chart.axisWidget(QwtPlot::yLeft), QPoint(5, 20) },
		{ chart.canvas(), canvasPoint(7.3, 8) + QPoint(0, 3) },		// 3 pixels beside the second curve
		{ chart.canvas(), canvasPoint(2, 2) },						// on the first one
		{ chart.canvas(), canvasPoint(5, 5) },						// between them
		{ entries[1], QPoint(2, 2) },
		{ chart.legend(), QPoint(0, 0) }
	});
	const std::vector<E> expected = { E(E::Title), E(E::Axis, 0), E(E::Axis, 1), E(E::Series, 1), E(E::Series, 0),
									  E(E::Canvas), E(E::Legend, 1), E(E::Legend, -1) };
	EXPECT_EQ(found, expected);
}


TEST(SciChartPicker, ValuesWithUnitsFieldValuesAndDatesOfTheInterfaceLanguage) {
	const QLocale previous;
	QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
	VectorLineModel model;
	addTwoAxisSeries(model, 72, ZEB::Unit("%"));
	SCI::Chart chart;
	chart.setModel(&model);
	renderCanvas(chart, QSize(600, 400));
	SCI::PlotPickerText picker(&chart);
	const QPoint middle(qRound(chart.canvasMap(QwtPlot::xBottom).transform(36)),
						qRound(chart.canvasMap(QwtPlot::yLeft).transform(5)));

	// hours with their unit, each y axis with its own; a pixel is 0.01 .. 0.1 of these units
	const QRegularExpression numbers("^x: (3[56]\\.\\d) h   y: ([45]\\.\\d\\d) C \\| ([45]\\d\\.\\d) %$");
	const QRegularExpressionMatch hours = numbers.match(picker.text(middle));
	ASSERT_TRUE(hours.hasMatch()) << picker.text(middle).toStdString();
	EXPECT_NEAR(hours.captured(1).toDouble(), 36, 0.2);
	EXPECT_NEAR(hours.captured(2).toDouble(), 5, 0.05);
	EXPECT_NEAR(hours.captured(3).toDouble(), 50, 0.5);

	// 36 h after 2000-01-01 00:00 UTC: noon of 2 January, in the language's short format,
	// without seconds while a pixel spans minutes
	model.setAxisData(true, CM::BottomAxis, CM::AxisDateTimeEnabled);
	renderCanvas(chart, QSize(600, 400));
	EXPECT_TRUE(QRegularExpression("^x: 1/2/00 1[12]:\\d\\d [AP]M   y: ").match(picker.text(middle)).hasMatch())
			<< picker.text(middle).toStdString();
	QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
	EXPECT_TRUE(QRegularExpression("^x: 0[12]\\.01\\.00 \\d\\d:\\d\\d   y: \\d,\\d\\d C").match(picker.text(middle)).hasMatch())
			<< picker.text(middle).toStdString();
	// 36 seconds over the axis: the seconds count
	setAxisRange(model, CM::BottomAxis, 0, 0.01);
	renderCanvas(chart, QSize(600, 400));
	EXPECT_TRUE(QRegularExpression("^x: 01\\.01\\.00 00:00:\\d\\d   ").match(picker.text(middle)).hasMatch())
			<< picker.text(middle).toStdString();
	QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

	// a colour grid: x, y and the value of the cell under the mouse, not the colour bar's scale;
	// cell (1, 1) spans x 0.1 .. 0.3 and y 1 .. 2 and holds 9.5
	VectorGridModel grid(true);
	SCI::Chart gridChart;
	gridChart.setModel(&grid);
	renderCanvas(gridChart, QSize(600, 400));
	const QPoint cell(qRound(gridChart.canvasMap(QwtPlot::xBottom).transform(0.2)),
					  qRound(gridChart.canvasMap(QwtPlot::yLeft).transform(1.5)));
	const QRegularExpressionMatch field = QRegularExpression("^x: (0\\.\\d+) m   y: (1\\.\\d+) m   value: 9\\.5 C$")
			.match(SCI::PlotPickerText(&gridChart).text(cell));
	ASSERT_TRUE(field.hasMatch()) << SCI::PlotPickerText(&gridChart).text(cell).toStdString();
	EXPECT_NEAR(field.captured(1).toDouble(), 0.2, 0.01);
	EXPECT_NEAR(field.captured(2).toDouble(), 1.5, 0.01);

	// the chart hands the text on while the mouse moves over the canvas, and clears it when it leaves
	QStringList announced;
	QObject::connect(&gridChart, &SCI::Chart::pickerTextChanged, [&announced](const QString & t) { announced << t; });
	QMouseEvent move(QEvent::MouseMove, cell, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
	QApplication::sendEvent(gridChart.canvas(), &move);
	QEvent leave(QEvent::Leave);
	QApplication::sendEvent(gridChart.canvas(), &leave);
	EXPECT_EQ(announced, QStringList({ SCI::PlotPickerText(&gridChart).text(cell), QString() }));
	QLocale::setDefault(previous);
}
