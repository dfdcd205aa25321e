#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

#include <QFontMetrics>
#include <QPainter>
#include <QWidget>

#include <qwt_color_map.h>
#include <qwt_date.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

#include <ZEB_MessageFormat.h>

#include <Sci_ColorGrid3DData.h>
#include <Sci_ColorGridInterpolation.h>
#include <Sci_ColorMap.h>
#include <Sci_DataReductionCurveFitter.h>
#include <Sci_DateScaleDraw.h>
#include <Sci_DateScaleEngine.h>
#include <Sci_CurveData.h>
#include <Sci_PixelColumnReduction.h>
#include <Sci_PlotColorMap.h>
#include <Sci_PlotCurve.h>
#include <Sci_PlotSpectrogram.h>
#include <Sci_PlotVectorField.h>
#include <Sci_ScaleLabelFit.h>

#include "Sci_ChartTestModels.h"
#include "Sci_TestSupport.h"

using namespace SciTest;
typedef SCI::AbstractChartModel CDM;
typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;
typedef SCI::AbstractColorGridSeriesModel GM;
typedef SCI::AbstractVectorFieldSeriesModel VM;

namespace {

const double NaN = std::numeric_limits<double>::quiet_NaN();

/*! Switches off the grid lines of the bottom and left axes, for clean pixel checks. */
void hideGrid(CM & model) {
	for (int axis : {0, 1}) {
		model.setAxisData(false, axis, CM::AxisGridVisible);
		model.setAxisData(false, axis, CM::AxisMinorGridVisible);
	}
}

/*! Canvas pixel of the plot point (x, y) on the bottom and left axes. */
QPoint pixelOf(const SCI::Chart & chart, double x, double y) {
	return QPoint(qRound(chart.canvasMap(QwtPlot::xBottom).transform(x)),
				  qRound(chart.canvasMap(QwtPlot::yLeft).transform(y)));
}

/*! True when a pixel in the square of radius r around p is darker than the gray level. */
bool darkPixelNear(const QImage & image, const QPoint & p, int r, int grayLevel) {
	for (int y = p.y() - r; y <= p.y() + r; ++y)
		for (int x = p.x() - r; x <= p.x() + r; ++x)
			if (image.rect().contains(x, y) && qGray(image.pixel(x, y)) < grayLevel)
				return true;
	return false;
}

/*! Black arrows of the given maximum length, without raster unless rasterSize > 0, on fixed
	axes x -0.5..2.5, y -1..1 without grid lines. */
void blackArrows(VectorFieldTestModel & model, double maxLength, double rasterSize) {
	model.setSeriesData(rasterSize > 0, 0, VM::VectorFieldRasterEnabled);
	if (rasterSize > 0)
		model.setSeriesData(rasterSize, 0, VM::VectorFieldRasterSize);
	model.setSeriesData(false, 0, VM::VectorFieldColoredArrowsEnabled);
	model.setSeriesData(QColor(Qt::black), 0, VM::VectorFieldUniformArrowColor);
	model.setSeriesData(maxLength, 0, VM::VectorFieldMaximumArrowLength);
	setAxisRange(model, CM::BottomAxis, -0.5, 2.5);
	setAxisRange(model, CM::LeftAxis, -1, 1);
	hideGrid(model);
}

/*! Grey level of value v on a black -> white map over 0..12. */
QRgb grayOf(double v) {
	const int g = static_cast<int>(255*v/12);
	return qRgb(g, g, g);
}

double gridValue(unsigned int i, unsigned int j) {
	return i + 10.0*j;
}

/*! Points (i, 0) and (i, amplitude) alternating. */
QPolygonF zigzag(int n, double amplitude) {
	QPolygonF p;
	for (int i = 0; i < n; ++i)
		p << QPointF(i, (i % 2) ? amplitude : 0);
	return p;
}

} // namespace


TEST(SciChartRender, CurvePixelsLieWhereTheAxisScalesPutThem) {
	VectorLineModel model;
	VectorLineModel::Series s;
	s.m_x = {0, 2, 4, 6, 8, 10};
	s.m_y = {0, 2, NaN, 6, 8, 10};
	model.addSeries(s);
	model.setSeriesData(QPen(QBrush(Qt::red), 3), 0, LM::SeriesPen);
	setAxisRange(model, CM::BottomAxis, 0, 10);
	setAxisRange(model, CM::LeftAxis, -10, 10);
	model.setAxisData(false, CM::RightAxis, CM::AxisEnabled);
	hideGrid(model);
	model.setChartData(false, CDM::LegendVisible);
	SCI::Chart chart;
	chart.setModel(&model);
	QImage image = renderCanvas(chart, QSize(600, 400));

	// the canvas spans the axis ranges: x = 5 is half-way across, y = 0 half-way down
	const QRect canvas = chart.canvas()->contentsRect();
	EXPECT_NEAR(pixelOf(chart, 5, 0).x(), canvas.center().x(), 2);
	EXPECT_NEAR(pixelOf(chart, 5, 0).y(), canvas.center().y(), 2);
	const QRgb red = qRgb(255, 0, 0);
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 1, 1)), red, 40));
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 7, 7)), red, 40));
	// no line across the missing value between x = 2 and x = 6
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 3, 3)), qRgb(255, 255, 255), 10));
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 7, -7)), qRgb(255, 255, 255), 10));

	model.setSeriesData(true, 0, LM::SeriesInverted);
	image = renderCanvas(chart, QSize(600, 400));
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 7, -7)), red, 40));
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 7, 7)), qRgb(255, 255, 255), 10));
}


TEST(SciChartRender, ColourGridCellsReachHalfWayToTheirNeighboursWithinAValidRange) {
	VectorGridModel model;
	// cell centres: x 0, 1, 3 (edges -0.5, 0.5, 2, 4), y 0, 2 (edges -1, 1, 3)
	model.setGrid({0, 1, 3}, {0, 2}, 3, 2, &gridValue);
	SCI::ColorMap map;
	map.setLinearMap(Qt::black, Qt::white, 1);
	model.setSeriesData(QVariant::fromValue(map), 0, GM::ColorGridColorMap);
	model.setSeriesData(false, 0, GM::ColorGridAutoScale);
	model.setSeriesData(0.0, 0, GM::ColorGridMinimumZ);
	model.setSeriesData(12.0, 0, GM::ColorGridMaximumZ);
	setAxisRange(model, CM::BottomAxis, -1, 4.5);
	setAxisRange(model, CM::LeftAxis, -1, 3);
	hideGrid(model);
	SCI::Chart chart;
	chart.setModel(&model);
	const QImage image = renderCanvas(chart, QSize(600, 400));

	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 0.4, 0.9)), grayOf(0), 2));
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 0.6, 0.9)), grayOf(1), 2));
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 2.1, 0)), grayOf(2), 2));
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 0, 2.9)), grayOf(10), 2));
	// outside the cells the white canvas shows
	EXPECT_TRUE(similarColor(image.pixel(pixelOf(chart, 4.3, 0)), qRgb(255, 255, 255), 2));

	// interpolated: values blend between cell centres
	model.setSeriesData(1, 0, GM::ColorGridInterpolationMode);
	const QImage smooth = renderCanvas(chart, QSize(600, 400));
	EXPECT_TRUE(similarColor(smooth.pixel(pixelOf(chart, 0.5, 0)), grayOf(0.5), 3));
	EXPECT_TRUE(similarColor(smooth.pixel(pixelOf(chart, 0, 1)), grayOf(5), 3));
	EXPECT_TRUE(similarColor(smooth.pixel(pixelOf(chart, 2, 2)), grayOf(11.5), 3));

	// a value range whose minimum lies above its maximum is reported and draws nothing
	MessageCapture capture;
	model.setSeriesData(13.0, 0, GM::ColorGridMinimumZ);
	EXPECT_TRUE(similarColor(renderCanvas(chart, QSize(600, 400)).pixel(pixelOf(chart, 0.5, 0.5)), qRgb(255, 255, 255), 2));
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Invalid data/z-value range.", "[SciSpectrogramChart::renderImage]"));
}


/*! The colour grid item with its image rendering open to the test. */
class GridImage : public SCI::PlotSpectrogram {
public:
	using SCI::PlotSpectrogram::renderImage;
};


TEST(SciChartRender, ColourGridImageHasTheColourOfTheMapAtEveryPixel) {
	// 37 x 23 cells of uneven size; values on the stops of the maps over 0..10 (whole numbers),
	// between them, NaN, and below and above the range
	std::vector<double> xCentres, yCentres, values;
	for (int i = 0; i < 37; ++i)
		xCentres.push_back(i*i*0.01);
	for (int j = 0; j < 23; ++j)
		yCentres.push_back(std::sqrt(j));
	for (int j = 0; j < 23; ++j)
		for (int i = 0; i < 37; ++i)
			values.push_back((i + j) % 7 == 3 ? NaN : (i + 2*j) % 13 - 1 + ((i % 3) ? 0.0 : 0.37));
	GridImage grid;
	SCI::ColorGrid3DData * cells = new SCI::ColorGrid3DData(37, 23, values, xCentres, yCentres);
	SCI::ColorGridInterpolation * interpolation = new SCI::ColorGridInterpolation(xCentres, yCentres, values,
																				  cells->xEdges(), cells->yEdges());
	grid.setData(cells);
	grid.setInterpolatedData(interpolation);
	// the image reaches beyond the grid on three sides; its last rows show the top cells
	QwtScaleMap xMap, yMap;
	xMap.setScaleInterval(-1, 15);
	xMap.setPaintInterval(0, 400);
	yMap.setScaleInterval(-0.5, 4.5);
	yMap.setPaintInterval(0, 300);
	SCI::ColorMap alpha;
	alpha.m_type = SCI::ColorMap::AlphaMap;

	// on one thread and on three, for each map, range and kind of image (the colour table is
	// rebuilt after each change): every pixel has the map's colour of the value at its centre
	for (const QwtInterval & range : { QwtInterval(0, 10), QwtInterval(2.5, 7) })
		for (const SCI::ColorMap & map : { SCI::ColorMap(), alpha })
			for (bool interpolated : { false, true })
				for (unsigned int threads : { 1u, 3u }) {
					grid.setValueRange(range);
					grid.setColorMap(SCI::PlotColorMap::create(map));
					grid.setInterpolationEnabled(interpolated);
					grid.setRenderThreadCount(threads);
					const QImage image = grid.renderImage(xMap, yMap, QRectF(-1, -0.5, 16, 5), QSize(400, 300));
					const QwtRasterData & source = interpolated ? static_cast<const QwtRasterData &>(*interpolation) : *cells;
					int differing = 0;
					for (int r = 0; r < 300; ++r)
						for (int c = 0; c < 400; ++c) {
							const double v = source.value(xMap.invTransform(c + 0.5), yMap.invTransform(r + 0.5));
							differing += image.pixel(c, r) != (std::isnan(v) ? 0u : grid.colorMap()->rgb(range, v));
						}
					EXPECT_EQ(differing, 0) << range.minValue() << " alpha " << map.m_type << " interpolated " << interpolated
											<< " threads " << threads;
				}
}


TEST(SciChartVectorField, ArrowLengthScalesAndIsClamped) {
	SCI::PlotVectorField field;
	field.setMagnitudeScaleFactor(10);
	field.setMinArrowLength(5);
	field.setMaxArrowLength(40);
	EXPECT_EQ(field.arrowLength(0), 0);
	EXPECT_EQ(field.arrowLength(0.1), 5);
	EXPECT_EQ(field.arrowLength(3.5), 35);
	EXPECT_EQ(field.arrowLength(10), 40);
	EXPECT_EQ(field.arrowLength(NaN), 0);
}


TEST(SciChartVectorField, ZeroVectorDrawsNoArrowEvenWithMinimumLength) {
	VectorFieldTestModel model;
	// one row of points; magnitudes 1, 0 and almost 0
	model.setField({0, 1, 2}, {0}, {1, 0, 1e-9}, {0, 0, 0});
	blackArrows(model, 30, 0);
	model.setSeriesData(SCI::VectorFieldProperties::OriginTail, 0, VM::VectorFieldIndicatorOrigin);
	model.setSeriesData(10.0, 0, VM::VectorFieldMinimumArrowLength);
	SCI::Chart chart;
	chart.setModel(&model);
	const QImage image = renderCanvas(chart, QSize(600, 300));

	const QPoint p0 = pixelOf(chart, 0, 0);
	const QPoint p1 = pixelOf(chart, 1, 0);
	const QPoint p2 = pixelOf(chart, 2, 0);
	// the largest vector gets the maximum length, 30 pixels to the right
	EXPECT_TRUE(darkPixelNear(image, p0 + QPoint(25, 0), 1, 128));
	EXPECT_FALSE(darkPixelNear(image, p0 + QPoint(36, 0), 3, 200));
	// the tiny vector is drawn with the minimum length of 10 pixels
	EXPECT_TRUE(darkPixelNear(image, p2 + QPoint(6, 0), 1, 128));
	EXPECT_FALSE(darkPixelNear(image, p2 + QPoint(16, 0), 3, 200));
	// the zero vector draws nothing at all
	for (int dx = -12; dx <= 12; ++dx)
		EXPECT_FALSE(darkPixelNear(image, p1 + QPoint(dx, 0), 4, 200)) << dx;
}


TEST(SciChartDataReduction, ToleranceRisesInDecadesUntilAtMost500Points) {
	MessageCapture capture;
	SCI::DataReductionCurveFitter fitter;
	EXPECT_EQ(fitter.chunkSize(), 100u);

	// every point of a zigzag deviates from its neighbours' chord: nothing can be dropped
	EXPECT_EQ(fitter.fitCurve(zigzag(501, 1)).size(), 501);
	EXPECT_TRUE(capture.has(ZEB::MSG_PROGRESS, "Data reduction (tol=0.1): 501   -> 501\n", "[DataReductionCurveFitter::fitCurve]"));

	// a line with a ripple of 0.005: kept at tolerances 1e-4 and 1e-3, smoothed away at 1e-2
	QPolygonF ripple;
	for (int i = 0; i < 600; ++i)
		ripple << QPointF(i, 0.5*i + ((i % 2) ? 0.005 : -0.005));
	const QPolygonF reduced = fitter.fitCurve(ripple);
	EXPECT_LE(reduced.size(), 20);
	EXPECT_EQ(reduced.front(), ripple.front());
	EXPECT_EQ(reduced.back(), ripple.back());
	EXPECT_TRUE(capture.has(ZEB::MSG_PROGRESS, ZEB::MessageFormat("Data reduction (tol=0.01): 600   -> %1\n").arg(reduced.size()).str(),
							"[DataReductionCurveFitter::fitCurve]"));
}


/*! A noisy curve of n points over x in [0, 1): a slow wave, spikes and noise. */
QVector<double> noisyCurve(int n, QVector<double> & x) {
	std::mt19937 gen(11);
	std::normal_distribution<double> noise(0, 0.15);
	x.resize(n);
	QVector<double> y(n);
	for (int i = 0; i < n; ++i) {
		x[i] = double(i)/n;
		y[i] = std::sin(6.28*x[i]) + noise(gen) + ((i % 9973) == 0 ? 2.5 : 0);
	}
	return y;
}


TEST(SciChartLongCurves, PixelColumnDrawingGivesThePictureOfEveryPoint) {
	// at most four kept points a column, the ends among them
	QVector<double> x;
	const QVector<double> y = noisyCurve(200000, x);
	QwtScaleMap xMap, yMap;
	xMap.setPaintInterval(0, 800);
	xMap.setScaleInterval(0, 1);
	yMap.setPaintInterval(600, 0);
	yMap.setScaleInterval(-2, 4);
	const QPolygonF reduced = SCI::pixelColumnPolyline(x.constData(), y.constData(), 0, x.size() - 1, xMap, yMap,
													   SCI::PixelRaster());
	EXPECT_LE(reduced.size(), 4*800);
	EXPECT_EQ(reduced.front(), QPointF(xMap.transform(x.front()), yMap.transform(y.front())));
	EXPECT_EQ(reduced.back(), QPointF(xMap.transform(x.back()), yMap.transform(y.back())));

	// drawn in pieces: a run up and down one column becomes its vertical span, a sparse polyline
	// stays whole
	const QPolygonF zigzag({{0, 0}, {1, 5}, {1, 1}, {1, 3}, {2, 2}});
	const SCI::ColumnSpans spans = SCI::columnSpans(zigzag);
	EXPECT_EQ(spans.m_points, QPolygonF({{0, 0}, {1, 5}, {1, 3}, {2, 2}}));
	EXPECT_EQ(spans.m_starts, QVector<int>({0, 2}));
	EXPECT_EQ(spans.m_spans, QVector<QLineF>({QLineF(1, 1, 1, 5)}));
	const QPolygonF sparse({{0, 0}, {1, 5}, {1, 6}, {2, 2}});
	EXPECT_EQ(SCI::columnSpans(sparse).m_points, sparse);
	EXPECT_EQ(SCI::columnSpans(sparse).m_starts, QVector<int>({0}));
	EXPECT_TRUE(SCI::columnSpans(sparse).m_spans.isEmpty());

	// drawn into an image with pens of one and three pixels, antialiased or not, compared with the
	// plotting library's own curve through every point: without antialiasing the same pixels, but
	// for a few where pen joins and caps differ; in any case every pixel that one picture touches
	// lies within the pen's half width (at least a pixel) of one the other touches. Antialiased, the
	// every-point line covers a dense band many times over and paints it in the full pen colour,
	// lighter only at its ragged edges: a one-pixel line keeps that shade but for a few pixels;
	// wider pens darken where the library's pieces of a long line overlap, so their shades differ.
	const QRectF canvas(0, 0, 800, 600);
	for (bool antialiased : {false, true})
		for (double penWidth : {1.0, 3.0}) {
			QImage images[2];
			for (int k = 0; k < 2; ++k) {
				images[k] = QImage(800, 600, QImage::Format_ARGB32);
				images[k].fill(Qt::white);
				QPainter painter(&images[k]);
				painter.setRenderHint(QPainter::Antialiasing, antialiased);
				std::unique_ptr<QwtPlotCurve> curve(k == 0 ? new SCI::PlotCurve : new QwtPlotCurve);
				curve->setData(new SCI::CurveData(x, y));
				curve->setPen(QPen(Qt::darkBlue, penWidth));
				curve->setRenderHint(QwtPlotItem::RenderAntialiased, antialiased);
				curve->draw(&painter, xMap, yMap, canvas);
			}
			int differing = 0, otherShade = 0;
			for (int r = 0; r < 600; ++r)
				for (int c = 0; c < 800; ++c) {
					const QRgb a = images[0].pixel(c, r), b = images[1].pixel(c, r);
					differing += a != b;
					otherShade += std::max({ std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
											 std::abs(qBlue(a) - qBlue(b)) }) > 64;
					const int reach = std::max(1, int(std::ceil(penWidth/2)));
					for (int k = 0; k < 2; ++k) {
						if (images[k].pixel(c, r) == qRgb(255, 255, 255))
							continue;
						bool near = false;
						for (int dr = -reach; dr <= reach && !near; ++dr) {
							for (int dc = -reach; dc <= reach && !near; ++dc)
								near = images[1 - k].rect().contains(c + dc, r + dr)
									   && images[1 - k].pixel(c + dc, r + dr) != qRgb(255, 255, 255);
						}
						ASSERT_TRUE(near) << "pixel " << c << "," << r << " antialiased " << antialiased << " pen " << penWidth;
					}
				}
			if (!antialiased) {
				EXPECT_LT(differing, 800*600/500) << "pen " << penWidth;
			}
			else if (penWidth == 1) {
				EXPECT_LT(otherShade, 800*600/500);
			}
		}
}


TEST(SciChartDateAxis, TicksOnCalendarBoundariesAndLabelsPerInterval) {
	const QDateTime zero(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC);
	EXPECT_EQ(SCI::DateTimeMapping::msecsPerUnit(ZEB::Unit("min")), 60000.0);
	EXPECT_THROW(SCI::DateTimeMapping::msecsPerUnit(ZEB::Unit("m")), ZEB::Exception);
	const SCI::DateTimeMapping hours(zero, 3600000, Qt::UTC);
	const QStringList formats = SCI::AxisProperties::defaultDateTimeFormats();

	SCI::DateScaleEngine engine(hours);
	const QwtScaleDiv days = engine.divideScale(0, 72, 4, 0);
	EXPECT_EQ(days.ticks(QwtScaleDiv::MajorTick), QList<double>({0, 24, 48, 72}));
	SCI::DateScaleDraw draw(hours, formats);
	draw.setScaleDiv(days);
	EXPECT_EQ(draw.label(24).text(), QString("02.01.2000"));

	// "hh:mm;;dd.MM." gives two lines
	draw.setScaleDiv(engine.divideScale(0, 24, 4, 0));
	EXPECT_EQ(draw.label(18).text(), QString("18:00\n01.01."));

	// in days, over more than two years: 2000 is a leap year, 2001 starts at day 366
	const SCI::DateTimeMapping days2000(zero, 86400000, Qt::UTC);
	SCI::DateScaleEngine yearEngine(days2000);
	const QwtScaleDiv years = yearEngine.divideScale(0, 800, 3, 0);
	EXPECT_TRUE(years.ticks(QwtScaleDiv::MajorTick).contains(366));
	EXPECT_TRUE(years.ticks(QwtScaleDiv::MajorTick).contains(731));
	SCI::DateScaleDraw yearDraw(days2000, formats);
	yearDraw.setScaleDiv(years);
	EXPECT_EQ(yearDraw.label(366).text(), QString("2001"));

}


TEST(SciChartDateAxis, LabelsThatWouldOverlapAreThinnedOut) {
	const SCI::DateTimeMapping hours(QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC), 3600000, Qt::UTC);
	SCI::DateScaleDraw draw(hours, SCI::AxisProperties::defaultDateTimeFormats());
	QList<double> ticks;
	for (int d = 0; d <= 30; ++d)
		ticks << 24.0*d;
	draw.setScaleDiv(QwtScaleDiv(0, 720, QList<double>(), QList<double>(), ticks));
	const QFont font;
	const double labelWidth = QFontMetrics(font).horizontalAdvance("30.12.2000");

	// on a wide axis every day gets its label
	draw.setLength(31*labelWidth*2);
	EXPECT_EQ(SCI::ScaleLabelFit::labelStep(draw, font), 1);
	// on a narrow one only every k-th day, and the labels drawn do not touch
	draw.setLength(400);
	const int step = SCI::ScaleLabelFit::labelStep(draw, font);
	EXPECT_GT(step, 1);
	for (int i = 0; i + step < ticks.size(); i += step) {
		const double right = draw.scaleMap().transform(ticks[i]) + draw.labelRect(font, ticks[i]).right();
		const double left = draw.scaleMap().transform(ticks[i+step]) + draw.labelRect(font, ticks[i+step]).left();
		EXPECT_LT(right, left);
		EXPECT_TRUE(SCI::ScaleLabelFit::isLabelDrawn(draw, font, ticks[i]));
		EXPECT_FALSE(SCI::ScaleLabelFit::isLabelDrawn(draw, font, ticks[i+1]));
	}
}


TEST(SciChartDateAxis, ChartUsesTheSeriesTimeUnitOrFallsBackToNumbers) {
	MessageCapture capture;
	VectorLineModel model;
	VectorLineModel::Series s;
	s.m_x = {0, 48};
	s.m_y = {1, 2};
	model.addSeries(s);
	model.setAxisData(true, CM::BottomAxis, CM::AxisDateTimeEnabled);
	SCI::Chart chart;
	chart.setModel(&model);
	// no axis unit: the series' time unit "h" counts
	const SCI::DateScaleDraw * draw = dynamic_cast<const SCI::DateScaleDraw *>(chart.axisScaleDraw(QwtPlot::xBottom));
	ASSERT_NE(draw, nullptr);
	EXPECT_EQ(draw->mapping().toDateTime(36), QDateTime(QDate(2000, 1, 2), QTime(12, 0), Qt::UTC));

	// a length unit cannot be shown as dates
	model.setAxisData(ZEB::Unit("m").id(), CM::BottomAxis, CM::AxisUnit);
	EXPECT_EQ(dynamic_cast<const SCI::DateScaleDraw *>(chart.axisScaleDraw(QwtPlot::xBottom)), nullptr);
	bool warned = false;
	for (const MessageCapture::Record & r : capture.m_records)
		warned = warned || (r.m_type == ZEB::MSG_WARNING && r.m_msg.find("Axis #0 shows numbers instead of dates") == 0);
	EXPECT_TRUE(warned);
}
