// libs: SciChart
// Drawing speed of charts: a line chart of 5 series with 100 000 points each, drawn with and
// without data reduction, and a colour grid of 400 x 400 cells rendered into a 1600 x 1200
// image on one thread and on all threads. Charts are rendered into images as an export does.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <qwt_plot_renderer.h>

#include <ZEB_MessageHandler.h>
#include <ZEB_Unit.h>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_Chart.h>
#include <Sci_ColorGridSeries.h>
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


/*! Renders the chart into an image of the given size, as an export does. */
QImage render(SCI::Chart & chart, const QSize & size) {
	QImage image(size, QImage::Format_ARGB32);
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


void BM_ColorGrid(benchmark::State & state) {
	LargeGridModel model;
	SCI::Chart chart;
	chart.setModel(&model);
	chart.resize(1600, 1200);
	SCI::PlotSpectrogram * spectrogram = dynamic_cast<SCI::ColorGridSeries &>(*chart.series(0)).spectrogram();
	spectrogram->setRenderThreadCount(static_cast<uint>(state.range(0)));
	for (auto _ : state)
		benchmark::DoNotOptimize(render(chart, QSize(1600, 1200)));
	state.SetLabel(state.range(0) == 1 ? "1 thread" : "all threads");
}
BENCHMARK(BM_ColorGrid)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

} // namespace


int main(int argc, char ** argv) {
	return runGuiBenchmarks(argc, argv);
}
