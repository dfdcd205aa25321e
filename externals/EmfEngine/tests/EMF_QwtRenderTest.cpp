#include <gtest/gtest.h>

#include <cmath>

#include <QPainter>
#include <QPen>

#include <qwt_color_map.h>
#include <qwt_legend.h>
#include <qwt_matrix_raster_data.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_renderer.h>
#include <qwt_plot_spectrogram.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>

#include <EMF_PaintDevice.h>

#include "EMF_TestParser.h"
#include "EMF_TestUtils.h"

using namespace EmfTest;

namespace {

const double kPi = 3.14159265358979323846;

/*! A chart as the application draws one: title, axis titles, grid, a colour-grid raster with a
	colour bar on the right axis, three curves (solid, dashed, with symbols) and a legend.
*/
void buildPlot(QwtPlot & plot) {
	plot.setTitle("Temperature profile");
	plot.setAxisTitle(QwtPlot::xBottom, "Time [h]");
	plot.setAxisTitle(QwtPlot::yLeft, "Temperature [C]");
	plot.setAxisTitle(QwtPlot::yRight, "Relative humidity [%]");
	plot.enableAxis(QwtPlot::yRight, true);
	plot.setCanvasBackground(Qt::white);
	plot.insertLegend(new QwtLegend, QwtPlot::BottomLegend);
	QwtPlotGrid * grid = new QwtPlotGrid;
	grid->setMajorPen(QPen(QColor(200, 200, 200), 0, Qt::DotLine));
	grid->attach(&plot);

	QwtMatrixRasterData * data = new QwtMatrixRasterData;
	QVector<double> values;
	for (int r = 0; r < 20; ++r)
		for (int c = 0; c < 30; ++c)
			values.append(std::sin(c / 5.0) * std::cos(r / 4.0) * 50 + 50);
	data->setValueMatrix(values, 30);
	data->setInterval(Qt::XAxis, QwtInterval(0, 24));
	data->setInterval(Qt::YAxis, QwtInterval(-5, 25));
	data->setInterval(Qt::ZAxis, QwtInterval(0, 100));
	auto colorMap = [] {
		QwtLinearColorMap * map = new QwtLinearColorMap(Qt::darkBlue, Qt::darkRed);
		map->addColorStop(0.5, Qt::yellow);
		return map;
	};
	QwtPlotSpectrogram * spectrogram = new QwtPlotSpectrogram;
	spectrogram->setColorMap(colorMap());
	spectrogram->setData(data);
	spectrogram->attach(&plot);
	plot.axisWidget(QwtPlot::yRight)->setColorBarEnabled(true);
	plot.axisWidget(QwtPlot::yRight)->setColorMap(QwtInterval(0, 100), colorMap());

	QVector<QPointF> outside, inside, rh;
	for (int i = 0; i <= 240; ++i) {
		const double t = i * 0.1;
		outside.append(QPointF(t, 5 + 8 * std::sin(t / 24.0 * 2 * kPi)));
		inside.append(QPointF(t, 20 + 1.5 * std::sin(t / 24.0 * 2 * kPi - 1)));
		if (i % 20 == 0)
			rh.append(QPointF(t, 60 + 20 * std::cos(t / 12.0 * kPi)));
	}
	QwtPlotCurve * c1 = new QwtPlotCurve("Outside air");
	c1->setPen(QPen(QColor(0, 70, 180), 2));
	c1->setSamples(outside);
	c1->setRenderHint(QwtPlotItem::RenderAntialiased);
	c1->attach(&plot);
	QwtPlotCurve * c2 = new QwtPlotCurve("Inside surface");
	c2->setPen(QPen(QColor(200, 30, 30), 1.5, Qt::DashLine));
	c2->setSamples(inside);
	c2->attach(&plot);
	QwtPlotCurve * c3 = new QwtPlotCurve("Relative humidity");
	c3->setPen(QPen(QColor(20, 140, 60), 1));
	c3->setSamples(rh);
	c3->setYAxis(QwtPlot::yRight);
	c3->setSymbol(new QwtSymbol(QwtSymbol::Ellipse, QBrush(QColor(20, 140, 60)), QPen(Qt::black, 0), QSize(5, 5)));
	c3->attach(&plot);

	plot.setAxisScale(QwtPlot::xBottom, 0, 24, 4);
	plot.setAxisScale(QwtPlot::yRight, 0, 100, 20);
	plot.resize(800, 600);
	plot.replot();
}

} // namespace


TEST(EMFQwt, PlotRendersTextsCurvesRasterAndRotatedTitles) {
	QwtPlot plot;
	buildPlot(plot);
	File f = paintAndParse("qwt.emf", plot.size(), [&](QPainter & p) {
		QwtPlotRenderer().render(&plot, &p, QRectF(QPointF(0, 0), QSizeF(plot.size())));
	}, 96, EMF::PaintDevice::PictureBounds, plot.title().text());
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	EXPECT_EQ(f.header.bounds.r, 800 * 15 - 1);
	EXPECT_EQ(f.header.description, QString("Orvane") + QChar(0) + "Temperature profile" + QChar(0) + QChar(0));

	// all texts are there with their fonts: the bold title, the left axis title reading upwards,
	// the right one downwards
	std::map<QString, Font> fonts;
	for (const Record * r : f.ofType(T_EXTTEXTOUTW))
		if (f.object(*r, FONT) != nullptr)
			fonts[decodeText(*r).text] = decodeFont(*f.object(*r, FONT));
	for (const char * text : {"Temperature profile", "Time [h]", "Temperature [C]", "Relative humidity [%]", "Outside air", "12"})
		ASSERT_EQ(fonts.count(text), 1u) << text;
	EXPECT_GE(fonts["Temperature profile"].weight, 600);
	EXPECT_EQ(fonts["Time [h]"].escapement, 0);
	EXPECT_EQ(fonts["Temperature [C]"].escapement, 900);
	EXPECT_EQ(fonts["Relative humidity [%]"].escapement, 2700);

	// the curves: a polyline with all 241 samples (fewer after rounding duplicates are removed)
	size_t longest = 0;
	for (const Record * r : f.ofType(T_POLYLINE16))
		longest = std::max(longest, polyPoints(*r).size());
	EXPECT_GE(longest, 100u);
	// canvas clipping is in use, and every clip is undone again; symbols are ellipses
	EXPECT_GE(f.count(T_INTERSECTCLIPRECT), 1u);
	EXPECT_EQ(f.count(T_SAVEDC), f.count(T_RESTOREDC));
	EXPECT_GE(f.count(T_ELLIPSE), 12u);
	// the raster and the colour bar are images
	bool big = false;
	for (const Record * r : f.ofType(T_STRETCHDIBITS)) {
		const Image im = decodeImage(*r);
		EXPECT_TRUE(im.bitCount == 24 || im.bitCount == 32);
		big = big || im.cxDest > 300 * 15;
	}
	EXPECT_TRUE(big) << dump(f);

	if (emf2svg().isEmpty())
		GTEST_SKIP() << "emf2svg-conv is not installed: conversion not checked";
	QString log;
	const QString svg = convertToSvg(scratchFile("qwt.emf"), scratchFile("qwt.svg"), &log);
	ASSERT_FALSE(svg.isEmpty()) << log.toStdString();
	for (const char * s : {"Temperature profile", "Time [h]", "Temperature [C]", "Relative humidity [%]", "Outside air",
						   "Inside surface", "<image"})
		EXPECT_TRUE(svg.contains(s)) << s;
	EXPECT_GE(svg.count("<path"), 20);
}
