// The least a Qt Widgets program with Qwt does to write the demo's first chart as SVG: the floor
// of a single-chart scripted export with this stack, timed as a whole process beside the program
// and gnuplot (docs/performance.md). It reads the first 744 records (January 2023) of the demo's
// ASCII climate file, puts outdoor temperature and relative humidity on two y axes over a date
// axis, and renders the plot with QwtPlotRenderer into a QSvgGenerator of 1000 x 600 pixels.
//
//   QT_QPA_PLATFORM=offscreen build/benchmarks/svg_export_floor examples/demo/data/climate.s6o /tmp/floor.svg
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <QApplication>
#include <QPainter>
#include <QSvgGenerator>
#include <QVector>

#include <qwt_date.h>
#include <qwt_date_scale_draw.h>
#include <qwt_date_scale_engine.h>
#include <qwt_legend.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_renderer.h>

namespace {

/*! Records of January 2023 in the hourly climate file. */
constexpr int RECORDS = 744;
/*! 1 January 2023, 00:00 UTC, in milliseconds since the epoch. */
constexpr double START_MS = 1672531200000.0;

/*! Reads time (hours) and the first two values of the first RECORDS data lines; header lines
	do not start with a number and are skipped. False when the file holds fewer records.
*/
bool readClimate(const char * fileName, QVector<QPointF> & temperature, QVector<QPointF> & humidity) {
	std::ifstream in(fileName);
	std::string line;
	while (temperature.size() < RECORDS && std::getline(in, line)) {
		const char * p = line.c_str();
		char * end = nullptr;
		const double hours = std::strtod(p, &end);
		if (end == p)
			continue;
		p = end;
		const double t = std::strtod(p, &end);
		if (end == p)
			continue;
		p = end;
		const double rh = std::strtod(p, &end);
		if (end == p)
			continue;
		const double x = START_MS + hours*3600e3;
		temperature.append(QPointF(x, t));
		humidity.append(QPointF(x, rh));
	}
	return temperature.size() == RECORDS;
}

/*! A curve of the given colour on the given y axis. */
void addCurve(QwtPlot & plot, const QString & title, const QVector<QPointF> & points, const QColor & color, int yAxis) {
	QwtPlotCurve * curve = new QwtPlotCurve(title);
	curve->setPen(QPen(color, 1.5));
	curve->setRenderHint(QwtPlotItem::RenderAntialiased);
	curve->setSamples(points);
	curve->setYAxis(yAxis);
	curve->attach(&plot);
}

} // namespace


int main(int argc, char ** argv) {
	QApplication app(argc, argv);
	if (argc != 3) {
		std::fprintf(stderr, "usage: svg_export_floor CLIMATE.s6o OUT.svg\n");
		return 2;
	}
	QVector<QPointF> temperature, humidity;
	if (!readClimate(argv[1], temperature, humidity)) {
		std::fprintf(stderr, "svg_export_floor: fewer than %d records in %s\n", RECORDS, argv[1]);
		return 1;
	}

	QwtPlot plot;
	plot.setTitle("Outdoor climate in January 2023");
	plot.setCanvasBackground(Qt::white);
	plot.setAxisScaleDraw(QwtPlot::xBottom, new QwtDateScaleDraw(Qt::UTC));
	plot.setAxisScaleEngine(QwtPlot::xBottom, new QwtDateScaleEngine(Qt::UTC));
	plot.setAxisTitle(QwtPlot::xBottom, "Date");
	plot.setAxisTitle(QwtPlot::yLeft, "Temperature [C]");
	plot.enableAxis(QwtPlot::yRight);
	plot.setAxisTitle(QwtPlot::yRight, "Relative humidity [%]");
	QwtPlotGrid * grid = new QwtPlotGrid;
	grid->setMajorPen(QPen(Qt::lightGray, 0, Qt::DotLine));
	grid->attach(&plot);
	addCurve(plot, "Outdoor air temperature", temperature, QColor("#c0504d"), QwtPlot::yLeft);
	addCurve(plot, "Outdoor relative humidity", humidity, QColor("#4f81bd"), QwtPlot::yRight);
	plot.insertLegend(new QwtLegend, QwtPlot::BottomLegend);
	plot.resize(1000, 600);
	plot.replot();

	QSvgGenerator svg;
	svg.setFileName(QString::fromLocal8Bit(argv[2]));
	svg.setSize(QSize(1000, 600));
	svg.setViewBox(QRect(0, 0, 1000, 600));
	QPainter painter;
	if (!painter.begin(&svg)) {
		std::fprintf(stderr, "svg_export_floor: cannot write %s\n", argv[2]);
		return 1;
	}
	QwtPlotRenderer().render(&plot, &painter, QRectF(0, 0, 1000, 600));
	painter.end();
	return 0;
}
