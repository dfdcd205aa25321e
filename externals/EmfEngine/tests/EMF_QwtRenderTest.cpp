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

/*! A line chart as the application draws one: title, axis titles, grid, two curves, legend. */
void buildLinePlot(QwtPlot & plot) {
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

	QVector<QPointF> outside, inside, rh;
	for (int i = 0; i <= 240; ++i) {
		double t = i * 0.1;
		outside.append(QPointF(t, 5 + 8 * std::sin(t / 24.0 * 2 * kPi)));
		inside.append(QPointF(t, 20 + 1.5 * std::sin(t / 24.0 * 2 * kPi - 1)));
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
	QwtSymbol * sym = new QwtSymbol(QwtSymbol::Ellipse, QBrush(QColor(20, 140, 60)), QPen(Qt::black, 0), QSize(5, 5));
	c3->setSymbol(sym);
	c3->setStyle(QwtPlotCurve::Lines);
	QVector<QPointF> few;
	for (int i = 0; i < rh.size(); i += 20)
		few.append(rh[i]);
	c3->setSamples(few);
	c3->attach(&plot);

	plot.setAxisScale(QwtPlot::xBottom, 0, 24, 4);
	plot.setAxisScale(QwtPlot::yRight, 0, 100, 20);
	plot.resize(800, 600);
	plot.replot();
}

/*! A colour-grid chart: spectrogram raster with a colour bar on the right axis. */
void buildColorGridPlot(QwtPlot & plot) {
	plot.setTitle("Moisture content");
	plot.setAxisTitle(QwtPlot::xBottom, "x [m]");
	plot.setAxisTitle(QwtPlot::yLeft, "Time [d]");
	plot.setAxisTitle(QwtPlot::yRight, "w [kg/m3]");
	QwtMatrixRasterData * data = new QwtMatrixRasterData;
	QVector<double> values;
	const int cols = 30, rows = 20;
	for (int r = 0; r < rows; ++r)
		for (int c = 0; c < cols; ++c)
			values.append(std::sin(c / 5.0) * std::cos(r / 4.0) * 50 + 50);
	data->setValueMatrix(values, cols);
	data->setInterval(Qt::XAxis, QwtInterval(0, 0.3));
	data->setInterval(Qt::YAxis, QwtInterval(0, 20));
	data->setInterval(Qt::ZAxis, QwtInterval(0, 100));
	QwtPlotSpectrogram * spectrogram = new QwtPlotSpectrogram;
	QwtLinearColorMap * map = new QwtLinearColorMap(Qt::darkBlue, Qt::darkRed);
	map->addColorStop(0.33, Qt::cyan);
	map->addColorStop(0.66, Qt::yellow);
	spectrogram->setColorMap(map);
	spectrogram->setData(data);
	spectrogram->attach(&plot);
	QwtScaleWidget * bar = plot.axisWidget(QwtPlot::yRight);
	bar->setColorBarEnabled(true);
	QwtLinearColorMap * barMap = new QwtLinearColorMap(Qt::darkBlue, Qt::darkRed);
	barMap->addColorStop(0.33, Qt::cyan);
	barMap->addColorStop(0.66, Qt::yellow);
	bar->setColorMap(QwtInterval(0, 100), barMap);
	plot.setAxisScale(QwtPlot::yRight, 0, 100);
	plot.enableAxis(QwtPlot::yRight);
	plot.resize(700, 500);
	plot.replot();
}

/*! Renders the plot into an EMF file of the plot's size at 96 dpi and parses it. */
File renderPlot(QwtPlot & plot, const QString & name) {
	const QString path = scratchFile(name);
	EMF::PaintDevice dev(path, plot.size(), 96);
	dev.setTitle(plot.title().text());
	{
		QPainter p(&dev);
		QwtPlotRenderer renderer;
		renderer.render(&plot, &p, QRectF(QPointF(0, 0), QSizeF(plot.size())));
	}
	File f;
	if (!dev.isWritten()) {
		f.errors.push_back("not written: " + dev.errorMessage());
		return f;
	}
	f.parseFile(path);
	return f;
}

std::vector<Text> texts(const File & f) {
	std::vector<Text> v;
	for (const Record * r : f.ofType(T_EXTTEXTOUTW))
		v.push_back(decodeText(*r));
	return v;
}

/*! Font selected for the text record at index. */
Font fontAt(const File & f, int index) {
	std::map<uint32_t, Font> fonts;
	uint32_t selected = 0;
	std::vector<uint32_t> saved;
	for (int i = 0; i < index; ++i) {
		const Record & r = f.records[size_t(i)];
		if (r.type == T_EXTCREATEFONTINDIRECTW)
			fonts[r.u32(8)] = decodeFont(r);
		else if (r.type == T_SELECTOBJECT && fonts.count(r.u32(8)))
			selected = r.u32(8);
		else if (r.type == T_SAVEDC)
			saved.push_back(selected);
		else if (r.type == T_RESTOREDC && !saved.empty()) {
			selected = saved.back();
			saved.pop_back();
		}
	}
	return fonts.count(selected) ? fonts[selected] : Font();
}

} // namespace


TEST(EMFQwt, LinePlotRendersTextCurvesAndRotatedTitles) {
	QwtPlot plot;
	buildLinePlot(plot);
	File f = renderPlot(plot, "qwt-lines.emf");
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	EXPECT_EQ(f.header.bounds.r, 800 * 15 - 1);
	EXPECT_EQ(f.header.description, QString("Orvane") + QChar(0) + "Temperature profile" + QChar(0) + QChar(0));

	// all texts are there, the left axis title reads upwards, the right one downwards
	bool title = false, xTitle = false, legend = false, tick = false;
	int leftEsc = -1, rightEsc = -1;
	for (size_t i = 0; i < f.records.size(); ++i) {
		if (f.records[i].type != T_EXTTEXTOUTW)
			continue;
		Text t = decodeText(f.records[i]);
		Font fo = fontAt(f, int(i));
		if (t.text == "Temperature profile")
			title = fo.weight >= 600;				// Qwt's title font is bold
		if (t.text == "Time [h]")
			xTitle = fo.escapement == 0;
		if (t.text == "Temperature [C]")
			leftEsc = fo.escapement;
		if (t.text == "Relative humidity [%]")
			rightEsc = fo.escapement;
		if (t.text == "Outside air")
			legend = true;
		if (t.text == "12")
			tick = true;
	}
	EXPECT_TRUE(title);
	EXPECT_TRUE(xTitle);
	EXPECT_TRUE(legend);
	EXPECT_TRUE(tick);
	EXPECT_EQ(leftEsc, 900);
	EXPECT_EQ(rightEsc, 2700);

	// the curves: a polyline with all 241 samples (fewer after rounding duplicates are removed)
	size_t longest = 0;
	for (const Record * r : f.ofType(T_POLYLINE16))
		longest = std::max(longest, polyPoints(*r).size());
	EXPECT_GE(longest, 100u);
	// canvas clipping is in use, and every clip is undone again
	EXPECT_GE(f.count(T_INTERSECTCLIPRECT), 1u);
	EXPECT_EQ(f.count(T_SAVEDC), f.count(T_RESTOREDC));
	// symbols are ellipses
	EXPECT_GE(f.count(T_ELLIPSE), 12u);

	if (emf2svg().isEmpty())
		GTEST_SKIP() << "emf2svg-conv is not installed: conversion not checked";
	const QString svgPath = scratchFile("qwt-lines.svg");
	QString log;
	const QString svg = convertToSvg(scratchFile("qwt-lines.emf"), svgPath, &log);
	ASSERT_FALSE(svg.isEmpty()) << log.toStdString();
	for (const char * s : { "Temperature profile", "Time [h]", "Temperature [C]", "Relative humidity [%]",
							"Outside air", "Inside surface" })
		EXPECT_TRUE(svg.contains(s)) << s;
	EXPECT_GE(svg.count("<path"), 20);
	svgToPng(svgPath, scratchFile("qwt-lines.png"), 800);
}


TEST(EMFQwt, ColorGridPlotWritesRasterImages) {
	QwtPlot plot;
	buildColorGridPlot(plot);
	File f = renderPlot(plot, "qwt-grid.emf");
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	// the raster and the colour bar are images
	auto images = f.ofType(T_STRETCHDIBITS);
	ASSERT_GE(images.size(), 1u) << dump(f);
	bool big = false;
	for (const Record * r : images) {
		Image im = decodeImage(*r);
		EXPECT_TRUE(im.bitCount == 24 || im.bitCount == 32);
		if (im.cxDest > 300 * 15)
			big = true;
	}
	EXPECT_TRUE(big);
	bool title = false;
	for (const Text & t : texts(f))
		if (t.text == "Moisture content")
			title = true;
	EXPECT_TRUE(title);

	if (emf2svg().isEmpty())
		GTEST_SKIP() << "emf2svg-conv is not installed: conversion not checked";
	const QString svgPath = scratchFile("qwt-grid.svg");
	QString log;
	const QString svg = convertToSvg(scratchFile("qwt-grid.emf"), svgPath, &log);
	ASSERT_FALSE(svg.isEmpty()) << log.toStdString();
	EXPECT_TRUE(svg.contains("Moisture content"));
	EXPECT_TRUE(svg.contains("<image"));
	svgToPng(svgPath, scratchFile("qwt-grid.png"), 700);
}
