// libs: SciChart
// Speed of exporting one chart (three curves of 5000 points, legend, title, axis titles) at
// 800 x 600 pixels to each file format: bitmaps through QImage, SVG, PDF and EMF through their
// paint devices.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <memory>

#include <QApplication>
#include <QTemporaryDir>

#include <qwt_legend.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <Sci_ChartExporter.h>

#include "Bench_GuiMain.h"

namespace {

/*! The chart exported by every benchmark, created once. */
QwtPlot * chart() {
	static std::unique_ptr<QwtPlot> plot;
	if (plot == nullptr) {
		plot.reset(new QwtPlot);
		plot->setTitle("Hourly temperatures");
		plot->setAxisTitle(QwtPlot::xBottom, "Time [h]");
		plot->setAxisTitle(QwtPlot::yLeft, "Temperature [C]");
		const QColor colors[3] = { Qt::red, Qt::darkGreen, Qt::blue };
		for (int c = 0; c < 3; ++c) {
			QVector<QPointF> points;
			for (int i = 0; i < 5000; ++i)
				points.append(QPointF(i, 10*c + 5*std::sin(i*0.01*(c + 1)) + std::sin(i*0.7)));
			QwtPlotCurve * curve = new QwtPlotCurve(QString("Layer %1").arg(c + 1));
			curve->setPen(QPen(colors[c], 2));
			curve->setSamples(points);
			curve->attach(plot.get());
		}
		plot->insertLegend(new QwtLegend, QwtPlot::BottomLegend);
		plot->resize(800, 600);
		plot->replot();
	}
	return plot.get();
}


/*! Exports the chart again and again to a file with the given extension. */
void exportTo(benchmark::State & state, const char * extension) {
	QTemporaryDir dir;
	const QString file = dir.filePath(QString("chart.") + extension);
	SCI::ChartExporter exporter;
	for (auto _ : state)
		exporter.exportFile(chart(), file, QSize(800, 600), 96);
}

void BM_ExportPng(benchmark::State & state) { exportTo(state, "png"); }
void BM_ExportBmp(benchmark::State & state) { exportTo(state, "bmp"); }
void BM_ExportJpg(benchmark::State & state) { exportTo(state, "jpg"); }
void BM_ExportSvg(benchmark::State & state) { exportTo(state, "svg"); }
void BM_ExportPdf(benchmark::State & state) { exportTo(state, "pdf"); }
void BM_ExportEmf(benchmark::State & state) { exportTo(state, "emf"); }

BENCHMARK(BM_ExportPng)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportBmp)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportJpg)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportSvg)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportPdf)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportEmf)->Unit(benchmark::kMillisecond);

} // namespace


int main(int argc, char ** argv) {
	return runGuiBenchmarks(argc, argv);
}
