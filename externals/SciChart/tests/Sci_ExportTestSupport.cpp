#include "Sci_ExportTestSupport.h"

#include <cmath>

#include <QPainter>
#include <QProcess>
#include <QStandardPaths>

#include <qwt_legend.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_renderer.h>
#include <qwt_text.h>

namespace SciTest {

const QColor PLOT_BACKGROUND(190, 210, 255);
const QColor CANVAS_BACKGROUND(255, 255, 190);
const QColor CURVE_COLOR(230, 0, 0);
const QColor TITLE_COLOR(0, 110, 0);

std::unique_ptr<QwtPlot> createTestPlot() {
	std::unique_ptr<QwtPlot> plot(new QwtPlot);
	QwtText title("Export Test");
	QFont font = plot->font();
	font.setPointSize(16);
	font.setBold(true);
	title.setFont(font);
	title.setColor(TITLE_COLOR);
	plot->setTitle(title);
	plot->setAxisTitle(QwtPlot::xBottom, "Time [h]");
	plot->setAxisTitle(QwtPlot::yLeft, "Temperature [C]");

	QPalette palette = plot->palette();
	palette.setColor(QPalette::Window, PLOT_BACKGROUND);
	plot->setPalette(palette);
	plot->setAutoFillBackground(true);
	plot->setCanvasBackground(CANVAS_BACKGROUND);

	QVector<QPointF> points;
	for (int i = 0; i <= 200; ++i)
		points.append(QPointF(i*0.1, 20 + 5*std::sin(i*0.05)));
	QwtPlotCurve * curve = new QwtPlotCurve("Temperature");
	curve->setPen(QPen(CURVE_COLOR, 3));
	curve->setSamples(points);
	curve->attach(plot.get());

	plot->insertLegend(new QwtLegend, QwtPlot::BottomLegend);
	plot->resize(600, 400);
	plot->replot();
	return plot;
}


QImage directRender(QwtPlot * plot, const QSize & size) {
	QImage image(size, QImage::Format_ARGB32);
	image.fill(Qt::white);
	QPainter painter(&image);
	QwtPlotRenderer renderer;
	renderer.render(plot, &painter, QRectF(QPointF(0, 0), QSizeF(size)));
	return image;
}


bool toolAvailable(const QString & program) {
	return !QStandardPaths::findExecutable(program).isEmpty();
}


bool runTool(const QString & program, const QStringList & args, QString * output) {
	QProcess process;
	process.start(program, args);
	if (!process.waitForFinished(60000))
		return false;
	if (output != nullptr)
		*output = QString::fromLocal8Bit(process.readAllStandardOutput());
	return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}


int countPixels(const QImage & image, const QRect & region, const std::function<bool(const QColor &)> & pred) {
	const QRect r = region.isEmpty() ? image.rect() : region.intersected(image.rect());
	int n = 0;
	for (int y = r.top(); y <= r.bottom(); ++y)
		for (int x = r.left(); x <= r.right(); ++x)
			if (pred(image.pixelColor(x, y)))
				++n;
	return n;
}


bool isDark(const QColor & c) {
	return qGray(c.rgb()) < 90;
}


bool isNear(const QColor & c, const QColor & ref, int tol) {
	return std::abs(c.red() - ref.red()) <= tol && std::abs(c.green() - ref.green()) <= tol
			&& std::abs(c.blue() - ref.blue()) <= tol;
}


bool isCurveColor(const QColor & c) {
	return isNear(c, CURVE_COLOR, 40);
}


QRect titleRegion(const QImage & image) {
	return QRect(image.width()/4, 0, image.width()/2, image.height()/10);
}


double blockDifference(const QImage & a, const QImage & b) {
	const QSize blocks(30, 20);
	const QImage sa = a.convertToFormat(QImage::Format_RGB32).scaled(blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
	const QImage sb = b.convertToFormat(QImage::Format_RGB32).scaled(blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
	double sum = 0;
	for (int y = 0; y < blocks.height(); ++y)
		for (int x = 0; x < blocks.width(); ++x)
			sum += std::abs(qGray(sa.pixel(x, y)) - qGray(sb.pixel(x, y)));
	return sum/(255.0*blocks.width()*blocks.height());
}


bool isTitleColor(const QColor & c) {
	return isNear(c, TITLE_COLOR, 40);
}


int titleTextHeight(const QImage & image) {
	int top = -1;
	int bottom = -1;
	for (int y = 0; y < image.height(); ++y) {
		for (int x = 0; x < image.width(); ++x) {
			if (isTitleColor(image.pixelColor(x, y))) {
				if (top < 0)
					top = y;
				bottom = y;
				break;
			}
		}
	}
	return top < 0 ? 0 : bottom - top + 1;
}

} // namespace SciTest
