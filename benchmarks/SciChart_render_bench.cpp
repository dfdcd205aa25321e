// libs: SciChart
// Drawing speed of charts: a line chart of 5 series with 100 000 points each, drawn with and
// without data reduction, one noisy curve of 1 M and of 10 M points redrawn at 1600 x 1000, and a
// colour grid of 400 x 400 cells rendered into a 1600 x 1200 image on one and on two threads, as a
// whole chart and as the grid's image alone. Charts are rendered into images as an export does.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <qwt_plot_renderer.h>
#include <qwt_scale_map.h>

#include <ZEB_MessageHandler.h>
#include <ZEB_Unit.h>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_Chart.h>
#include <Sci_ColorGrid3DData.h>
#include <Sci_ColorGridInterpolation.h>
#include <Sci_ColorGridSeries.h>
#include <Sci_ColorMap.h>
#include <Sci_PlotColorMap.h>
#include <Sci_PixelColumnReduction.h>
#include <Sci_PlotSpectrogram.h>

#include "Bench_GuiMain.h"

namespace {

/*! Five hourly series of 100 000 points: daily and yearly cycles with noise. */
class LongSeriesModel : public SCI::AbstractLineSeriesModel {
public:
	static const int SERIES = 5;
	static const int POINTS = 100000;

	LongSeriesModel() {
		std::mt19937 gen(7);
		std::normal_distribution<double> noise(0, 0.8);
		const double pi = 3.14159265358979;
		m_x.resize(POINTS);
		for (int i = 0; i < POINTS; ++i)
			m_x[i] = i;
		for (int s = 0; s < SERIES; ++s) {
			std::vector<double> y(POINTS);
			for (int i = 0; i < POINTS; ++i)
				y[i] = 5*s + 8*std::sin(2*pi*i/8760) + 3*std::sin(2*pi*i/24 + s) + noise(gen);
			m_y.push_back(y);
		}
	}
	unsigned int seriesCount() const override { return SERIES; }
	unsigned int size(int) const override { return POINTS; }
	const double * xValues(int) const override { return m_x.data(); }
	const double * yValues(int i) const override { return m_y[static_cast<std::size_t>(i)].data(); }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("h"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("C"); }

private:
	std::vector<double>					m_x;
	std::vector<std::vector<double> >	m_y;
};


/*! One noisy series of the given number of points, as a long measurement or a fine simulation. */
class NoisySeriesModel : public SCI::AbstractLineSeriesModel {
public:
	explicit NoisySeriesModel(int points) : m_x(static_cast<std::size_t>(points)), m_y(m_x.size()) {
		std::mt19937 gen(3);
		std::normal_distribution<double> noise(0, 1);
		for (std::size_t i = 0; i < m_x.size(); ++i) {
			m_x[i] = static_cast<double>(i);
			m_y[i] = 10*std::sin(6.2832*static_cast<double>(i)/static_cast<double>(points)) + noise(gen);
		}
	}
	unsigned int seriesCount() const override { return 1; }
	unsigned int size(int) const override { return static_cast<unsigned int>(m_x.size()); }
	const double * xValues(int) const override { return m_x.data(); }
	const double * yValues(int) const override { return m_y.data(); }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("s"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("C"); }

private:
	std::vector<double>	m_x;
	std::vector<double>	m_y;
};


/*! A smooth field on a 400 x 400 grid with cells growing towards one side. */
class LargeGridModel : public SCI::AbstractColorGridSeriesModel {
public:
	static const unsigned int N = 400;

	LargeGridModel() {
		for (unsigned int i = 0; i <= N; ++i) {
			m_x.push_back(0.001*i*i);
			m_y.push_back(0.5*i);
		}
		for (unsigned int j = 0; j < N; ++j)
			for (unsigned int i = 0; i < N; ++i)
				m_values.push_back(std::sin(0.03*i)*std::cos(0.02*j) + 0.001*i);
	}
	unsigned int seriesCount() const override { return 1; }
	unsigned int xGridSize(int) const override { return N + 1; }
	const double * xGrid(int) const override { return m_x.data(); }
	unsigned int yGridSize(int) const override { return N + 1; }
	const double * yGrid(int) const override { return m_y.data(); }
	unsigned int xValueSize(int) const override { return N; }
	unsigned int yValueSize(int) const override { return N; }
	const double * values(int) const override { return m_values.data(); }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("d"); }
	ZEB::Unit valueUnit(int) const override { return ZEB::Unit("C"); }

private:
	std::vector<double>	m_x;
	std::vector<double>	m_y;
	std::vector<double>	m_values;
};


/*! Renders the chart into an image of the given size and format, as an export does. */
QImage render(SCI::Chart & chart, const QSize & size) {
	QImage image(size, QImage::Format_ARGB32_Premultiplied);
	image.fill(Qt::white);
	QPainter painter(&image);
	QwtPlotRenderer().render(&chart, &painter, QRectF(QPointF(0, 0), QSizeF(size)));
	return image;
}


void BM_LineChart(benchmark::State & state) {
	LongSeriesModel model;
	model.setChartData(state.range(0) != 0, SCI::AbstractChartModel::DataReduction);
	SCI::Chart chart;
	chart.setModel(&model);
	chart.resize(1600, 1000);
	for (auto _ : state)
		benchmark::DoNotOptimize(render(chart, QSize(1600, 1000)));
	state.SetLabel(state.range(0) != 0 ? "data reduction" : "all points");
}
BENCHMARK(BM_LineChart)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);


/*! Redraw of a chart of one noisy curve of 1 M or 10 M points at 1600 x 1000, every point drawn
	(data reduction off); the matplotlib side of the comparison is benchmarks/long_curve_matplotlib.py.
*/
void BM_LongCurve(benchmark::State & state) {
	NoisySeriesModel model(static_cast<int>(state.range(0)));
	model.setChartData(false, SCI::AbstractChartModel::DataReduction);
	SCI::Chart chart;
	chart.setModel(&model);
	chart.resize(1600, 1000);
	// a redraw paints over the same picture, as a window does over its backing store
	QImage image(1600, 1000, QImage::Format_ARGB32);
	for (auto _ : state) {
		image.fill(Qt::white);
		QPainter painter(&image);
		QwtPlotRenderer().render(&chart, &painter, QRectF(0, 0, 1600, 1000));
	}
	state.SetLabel(std::to_string(state.range(0)) + " points");
}
BENCHMARK(BM_LongCurve)->Arg(1000000)->Arg(10000000)->Unit(benchmark::kMillisecond);


/*! The pass of BM_LongCurve that thins the curve to at most four points per pixel column, alone:
	the rest of the redraw is the stroke of the thinned line and the chart around it.
*/
void BM_LongCurvePass(benchmark::State & state) {
	NoisySeriesModel model(static_cast<int>(state.range(0)));
	const int n = static_cast<int>(model.size(0));
	QwtScaleMap xMap, yMap;
	xMap.setPaintInterval(0, 1600);
	xMap.setScaleInterval(0, n - 1);
	yMap.setPaintInterval(1000, 0);
	yMap.setScaleInterval(-15, 15);
	SCI::PixelRaster raster;
	raster.m_round = true;
	for (auto _ : state)
		benchmark::DoNotOptimize(SCI::pixelColumnPolyline(model.xValues(0), model.yValues(0), 0, n - 1, xMap, yMap, raster));
	state.SetLabel(std::to_string(state.range(0)) + " points");
}
BENCHMARK(BM_LongCurvePass)->Arg(1000000)->Arg(10000000)->Unit(benchmark::kMillisecond);


void BM_ColorGrid(benchmark::State & state) {
	LargeGridModel model;
	SCI::Chart chart;
	chart.setModel(&model);
	chart.resize(1600, 1200);
	SCI::PlotSpectrogram * spectrogram = dynamic_cast<SCI::ColorGridSeries &>(*chart.series(0)).spectrogram();
	spectrogram->setRenderThreadCount(static_cast<uint>(state.range(0)));
	for (auto _ : state)
		benchmark::DoNotOptimize(render(chart, QSize(1600, 1200)));
	state.SetLabel(std::to_string(state.range(0)) + " thread(s)");
}
/*! The best of the repetitions, beside their median. */
double best(const std::vector<double> & v) {
	return *std::min_element(v.begin(), v.end());
}
BENCHMARK(BM_ColorGrid)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime()->ComputeStatistics("best", best);


/*! The colour grid item with its image rendering open to the benchmark. */
class GridImage : public SCI::PlotSpectrogram {
public:
	using SCI::PlotSpectrogram::renderImage;
};


/*! The image of the 400 x 400 grid of LargeGridModel in the default colour map over its value
	range, 1600 x 1200 pixels, on 1 or 2 threads, plain cells (0) or interpolated (1): the part of
	BM_ColorGrid that the threads share.
*/
void BM_ColorGridImage(benchmark::State & state) {
	const LargeGridModel model;
	const unsigned int n = LargeGridModel::N;
	const std::vector<double> x(model.xGrid(0), model.xGrid(0) + n + 1);
	const std::vector<double> y(model.yGrid(0), model.yGrid(0) + n + 1);
	const std::vector<double> values(model.values(0), model.values(0) + n*n);
	std::vector<double> xCentres, yCentres;
	for (unsigned int i = 0; i < n; ++i) {
		xCentres.push_back(0.5*(x[i] + x[i+1]));
		yCentres.push_back(0.5*(y[i] + y[i+1]));
	}
	GridImage grid;
	SCI::ColorGrid3DData * cells = new SCI::ColorGrid3DData(n, n, values, x, y);
	grid.setData(cells);
	grid.setInterpolatedData(new SCI::ColorGridInterpolation(xCentres, yCentres, values, cells->xEdges(), cells->yEdges()));
	grid.setInterpolationEnabled(state.range(1) != 0);
	grid.setColorMap(SCI::PlotColorMap::create(SCI::ColorMap()));
	grid.setValueRange(cells->interval(Qt::ZAxis));
	grid.setRenderThreadCount(static_cast<uint>(state.range(0)));
	QwtScaleMap xMap, yMap;
	xMap.setScaleInterval(x.front(), x.back());
	xMap.setPaintInterval(0, 1600);
	yMap.setScaleInterval(y.front(), y.back());
	yMap.setPaintInterval(1200, 0);
	const QRectF area(x.front(), y.front(), x.back() - x.front(), y.back() - y.front());
	for (auto _ : state)
		benchmark::DoNotOptimize(grid.renderImage(xMap, yMap, area, QSize(1600, 1200)));
	state.SetLabel(std::to_string(state.range(0)) + " thread(s), " + (state.range(1) != 0 ? "interpolated" : "cells"));
}
BENCHMARK(BM_ColorGridImage)->Args({1, 0})->Args({2, 0})->Args({1, 1})->Args({2, 1})
	->Unit(benchmark::kMillisecond)->UseRealTime()->ComputeStatistics("best", best);

} // namespace


int main(int argc, char ** argv) {
	return runGuiBenchmarks(argc, argv);
}
