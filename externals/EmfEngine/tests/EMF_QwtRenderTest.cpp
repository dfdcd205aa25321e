#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include <QPainter>
#include <QPen>
#include <QPixmap>

#include <qwt_color_map.h>
#include <qwt_legend.h>
#include <qwt_matrix_raster_data.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
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

/*! A chart as the application draws one: title, axis titles, a colour-grid raster with a
	colour bar on the right axis, two curves (one with symbols) and a legend.
*/
void buildPlot(QwtPlot & plot) {
	plot.setTitle("Temperature profile");
	plot.setAxisTitle(QwtPlot::xBottom, "Time [h]");
	plot.setAxisTitle(QwtPlot::yLeft, "Temperature [C]");
	plot.setAxisTitle(QwtPlot::yRight, "Relative humidity [%]");
	plot.enableAxis(QwtPlot::yRight, true);
	plot.setCanvasBackground(Qt::white);
	plot.insertLegend(new QwtLegend, QwtPlot::BottomLegend);

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

	QVector<QPointF> outside, rh;
	for (int i = 0; i <= 240; ++i) {
		const double t = i * 0.1;
		outside.append(QPointF(t, 5 + 8 * std::sin(t / 24.0 * 2 * kPi)));
		if (i % 20 == 0)
			rh.append(QPointF(t, 60 + 20 * std::cos(t / 12.0 * kPi)));
	}
	QwtPlotCurve * c1 = new QwtPlotCurve("Outside air");
	c1->setPen(QPen(QColor(0, 70, 180), 2));
	c1->setSamples(outside);
	c1->setRenderHint(QwtPlotItem::RenderAntialiased);
	c1->attach(&plot);
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

/*! Primitives a chart draws besides Qwt's: points, a zero-length line, rounded and elliptic
	shapes, pixmaps, a hatch over an opaque background, wrapped underlined and rotated text and a
	half transparent fill.
*/
void paintOtherPrimitives(QPainter & p) {
	QPixmap tile(8, 8);
	tile.fill(Qt::darkCyan);
	p.setRenderHint(QPainter::Antialiasing);
	p.setPen(QPen(Qt::black, 3, Qt::SolidLine, Qt::RoundCap));
	QPointF points[3] = { QPointF(10, 10), QPointF(20, 10), QPointF(30, 10) };
	p.drawPoints(points, 3);
	p.drawLine(QPointF(40, 10), QPointF(40, 10));		// zero length with round cap: a dot
	p.setPen(QPen(Qt::blue, 1));
	p.setBrush(Qt::yellow);
	p.drawRoundedRect(QRectF(10, 30, 60, 40), 8, 8);
	p.drawArc(QRectF(80, 30, 60, 40), 0, 180 * 16);
	p.drawPie(QRectF(150, 30, 60, 40), 30 * 16, 120 * 16);
	p.drawChord(QRectF(220, 30, 60, 40), 30 * 16, 120 * 16);
	p.drawTiledPixmap(QRectF(10, 100, 40, 20), tile);
	p.drawPixmap(QPointF(60, 100), tile);
	p.setBackgroundMode(Qt::OpaqueMode);
	p.setBackground(Qt::lightGray);
	p.setBrush(QBrush(Qt::red, Qt::BDiagPattern));
	p.drawRect(QRectF(100, 100, 30, 30));
	QFont u("DejaVu Sans", 9);
	u.setUnderline(true);
	p.setFont(u);
	p.drawText(QRectF(150, 100, 140, 80), Qt::AlignCenter | Qt::TextWordWrap,
			   "Wrapped and underlined text over several lines");
	p.setFont(QFont("DejaVu Sans", 12));
	p.save();
	p.translate(15, 280);
	p.rotate(-90);
	p.drawText(QPointF(0, 0), "Zeit [h]");
	p.restore();
	p.setOpacity(0.5);
	p.fillRect(QRectF(0, 150, 50, 50), Qt::black);
}

} // namespace


TEST(EMFQwt, PlotAndOtherPrimitivesRenderAndConvert) {
	QwtPlot plot;
	buildPlot(plot);
	File f = paintAndParse("qwt.emf", plot.size(), [&](QPainter & p) {
		QwtPlotRenderer().render(&plot, &p, QRectF(QPointF(0, 0), QSizeF(plot.size())));
		paintOtherPrimitives(p);
	});

	// all texts are there with their fonts: the left axis title reading upwards,
	// the right one downwards; underlines are drawn by QPainter, not by the font
	std::map<QString, Font> fonts;
	for (const Record * r : f.ofType(T_EXTTEXTOUTW))
		if (f.object(*r, FONT) != nullptr)
			fonts[decodeText(*r).text] = decodeFont(*f.object(*r, FONT));
	for (const char * text : {"Temperature profile", "Time [h]", "Temperature [C]", "Relative humidity [%]", "Outside air", "12"})
		ASSERT_EQ(fonts.count(text), 1u) << text;
	EXPECT_EQ(std::vector<int>({fonts["Time [h]"].escapement, fonts["Temperature [C]"].escapement, fonts["Relative humidity [%]"].escapement}),
			  std::vector<int>({0, 900, 2700}));
	for (const Record * r : f.ofType(T_EXTCREATEFONTINDIRECTW))
		EXPECT_EQ(decodeFont(*r).underline, 0);

	// the curve: a polyline with all 241 samples (fewer after rounding duplicates are removed);
	// canvas clipping is in use, and every clip is undone again; symbols are ellipses
	size_t longest = 0;
	for (const Record * r : f.ofType(T_POLYLINE16))
		longest = std::max(longest, polyPoints(*r).size());
	EXPECT_GE(longest, 100u);
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
	EXPECT_TRUE(big);
	// a hatched brush in opaque background mode: QPainter fills with the background colour first,
	// the hatch follows; the file's background mode stays transparent. Half opacity: black over
	// white becomes grey.
	int bg = -1, hatch = -1, grey = -1;
	for (size_t i = 0; i < f.records.size(); ++i) {
		const Record & r = f.records[i];
		EXPECT_TRUE(r.type != T_SETBKMODE || r.u32(8) == 1u) << "opaque background mode written";
		const Brush b = r.type == T_CREATEBRUSHINDIRECT ? decodeBrush(r) : Brush{1, 0, 0};
		bg = b.color == 0x00C0C0C0u && b.style == 0 ? int(i) : bg;
		hatch = b.style == 2 && b.hatch == 3 ? int(i) : hatch;
		grey = b.color == 0x00808080u ? int(i) : grey;
	}
	EXPECT_GE(bg, 0);
	EXPECT_GT(hatch, bg);
	EXPECT_GE(grey, 0);

	if (emf2svg().isEmpty())
		GTEST_SKIP() << "emf2svg-conv is not installed: conversion not checked";
	QString log;
	const QString svg = convertToSvg(scratchFile("qwt.emf"), scratchFile("qwt.svg"), &log);
	ASSERT_FALSE(svg.isEmpty()) << log.toStdString();
	for (const char * s : {"Temperature profile", "Time [h]", "Temperature [C]", "Relative humidity [%]", "Outside air",
						   "Wrapped", "Zeit [h]", "rotate(-90", "<image"})
		EXPECT_TRUE(svg.contains(s)) << s;
	EXPECT_GE(svg.count("<path"), 20);
}
