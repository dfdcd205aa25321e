#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include <QFile>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <EMF_PaintDevice.h>
#include <ZEB_Exception.h>

#include "EMF_TestParser.h"
#include "EMF_TestUtils.h"

using namespace EmfTest;

// All hand-computed coordinates below use a 96 dpi device with the default 1440 logical units per
// inch, i.e. 15 logical units per pixel.

namespace {

const uint32_t NULL_PEN_ID = 0x80000008;
const uint32_t NULL_BRUSH_ID = 0x80000005;

/*! The record that selected the object most recently before index, per kind (pen, brush, font),
	following SAVEDC/RESTOREDC.
*/
uint32_t selectedBefore(const File & f, int index, int kind) {
	std::map<uint32_t, int> kinds;
	uint32_t sel[3] = { 0x80000007, 0x80000000, 0x8000000E };
	std::vector<std::vector<uint32_t>> saved;
	for (int i = 0; i < index; ++i) {
		const Record & r = f.records[size_t(i)];
		if (r.type == T_EXTCREATEPEN || r.type == T_CREATEPEN)
			kinds[r.u32(8)] = 0;
		else if (r.type == T_CREATEBRUSHINDIRECT)
			kinds[r.u32(8)] = 1;
		else if (r.type == T_EXTCREATEFONTINDIRECTW)
			kinds[r.u32(8)] = 2;
		else if (r.type == T_SAVEDC)
			saved.push_back(std::vector<uint32_t>(sel, sel + 3));
		else if (r.type == T_RESTOREDC && !saved.empty()) {
			for (int k = 0; k < 3; ++k)
				sel[k] = saved.back()[size_t(k)];
			saved.pop_back();
		}
		else if (r.type == T_SELECTOBJECT) {
			uint32_t h = r.u32(8);
			if (h == NULL_PEN_ID || h == 0x80000007 || h == 0x80000006)
				sel[0] = h;
			else if (h == NULL_BRUSH_ID || h == 0x80000000 || h == 0x80000004)
				sel[1] = h;
			else if (h & 0x80000000)
				sel[2] = h;
			else if (kinds.count(h))
				sel[kinds[h]] = h;
		}
	}
	return sel[kind];
}

/*! The create record of the object with this handle that is live at index. */
const Record * creatorOf(const File & f, int index, uint32_t handle) {
	const Record * found = nullptr;
	for (int i = 0; i < index; ++i) {
		const Record & r = f.records[size_t(i)];
		if ((r.type == T_EXTCREATEPEN || r.type == T_CREATEBRUSHINDIRECT || r.type == T_EXTCREATEFONTINDIRECTW)
			&& r.u32(8) == handle)
			found = &r;
	}
	return found;
}

std::vector<Point> pts(std::initializer_list<std::pair<int, int>> l) {
	std::vector<Point> v;
	for (const auto & p : l) {
		Point q;
		q.x = p.first;
		q.y = p.second;
		v.push_back(q);
	}
	return v;
}

} // namespace


TEST(EMFPaintDevice, MetricsFollowSizeAndResolution) {
	EMF::PaintDevice dev(scratchFile("metrics.emf"), QSize(400, 300), 96);
	EXPECT_EQ(dev.width(), 400);
	EXPECT_EQ(dev.height(), 300);
	EXPECT_EQ(dev.logicalDpiX(), 96);
	EXPECT_EQ(dev.physicalDpiY(), 96);
	EXPECT_EQ(dev.widthMM(), 106);		// 105.83 mm
	EXPECT_EQ(dev.heightMM(), 79);		// 79.375 mm
	EXPECT_DOUBLE_EQ(dev.logicalUnitsPerPixel(), 15.0);
	EXPECT_NEAR(dev.sizeMM().width(), 105.8333, 1e-3);

	auto mm = EMF::PaintDevice::fromMillimeters(scratchFile("metrics.emf"), QSizeF(160, 120), 300);
	EXPECT_EQ(mm->size(), QSize(1890, 1417));	// 160 mm = 1889.76 px, 120 mm = 1417.32 px at 300 dpi
	EXPECT_DOUBLE_EQ(mm->logicalUnitsPerPixel(), 4.8);
}


TEST(EMFPaintDevice, InvalidArgumentsThrow) {
	EXPECT_THROW(EMF::PaintDevice(scratchFile("x.emf"), QSize(0, 10), 96), ZEB::Exception);
	EXPECT_THROW(EMF::PaintDevice(scratchFile("x.emf"), QSize(10, 10), 0), ZEB::Exception);
	EXPECT_THROW(EMF::PaintDevice(QString(), QSize(10, 10), 96), ZEB::Exception);
	EXPECT_THROW(EMF::PaintDevice::fromMillimeters(scratchFile("x.emf"), QSizeF(-1, 10), 96), ZEB::Exception);
}


TEST(EMFPaintDevice, EmptyPictureHeader) {
	File f = paintAndParse("empty.emf", QSize(400, 300), [](QPainter &) {});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	const Header & h = f.header;
	// whole picture in logical units: 400 x 300 px * 15
	EXPECT_EQ(h.bounds.l, 0);
	EXPECT_EQ(h.bounds.t, 0);
	EXPECT_EQ(h.bounds.r, 5999);
	EXPECT_EQ(h.bounds.b, 4499);
	// frame in 0.01 mm, inclusive: 105.833 mm -> 10583 - 1, 79.375 mm -> 7938 - 1
	EXPECT_EQ(h.frame.l, 0);
	EXPECT_EQ(h.frame.t, 0);
	EXPECT_EQ(h.frame.r, 10582);
	EXPECT_EQ(h.frame.b, 7937);
	// reference device: 106 x 79 mm at 1440/25.4 units per mm
	EXPECT_EQ(h.mmCx, 106);
	EXPECT_EQ(h.mmCy, 79);
	EXPECT_EQ(h.deviceCx, 6009);		// 106 * 56.693 = 6009.4
	EXPECT_EQ(h.deviceCy, 4479);		// 79 * 56.693 = 4478.7
	EXPECT_EQ(h.umCx, 105992u);		// 6009 units = 105.992 mm
	EXPECT_EQ(h.umCy, 79005u);
	EXPECT_EQ(h.handles, 1u);
	EXPECT_EQ(h.records, uint32_t(f.records.size()));
	EXPECT_EQ(h.description, QString("Orvane") + QChar(0) + "Chart" + QChar(0) + QChar(0));
	EXPECT_EQ(f.records.back().type, T_EOF);
	// state set up once: transparent background, baseline-left text alignment
	int bk = f.indexOf(T_SETBKMODE);
	ASSERT_GE(bk, 0);
	EXPECT_EQ(f.records[size_t(bk)].u32(8), 1u);
	int ta = f.indexOf(T_SETTEXTALIGN);
	ASSERT_GE(ta, 0);
	EXPECT_EQ(f.records[size_t(ta)].u32(8), 24u);
}


TEST(EMFPaintDevice, DrawingBoundsMode) {
	File f = paintAndParse("bounds.emf", QSize(400, 300), [](QPainter & p) {
		p.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::FlatCap));
		p.drawLine(QPointF(10, 20), QPointF(110, 20));
	}, 96, EMF::PaintDevice::DrawingBounds);
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	// line 150..1650 at y 300, pen 30 units wide: grown by half the width and a unit of rounding
	EXPECT_EQ(f.header.bounds.l, 150 - 16);
	EXPECT_EQ(f.header.bounds.r, 1650 + 16);
	EXPECT_EQ(f.header.bounds.t, 300 - 16);
	EXPECT_EQ(f.header.bounds.b, 300 + 16);

	File e = paintAndParse("bounds-empty.emf", QSize(40, 30), [](QPainter &) {}, 96,
						   EMF::PaintDevice::DrawingBounds);
	ASSERT_TRUE(e.errors.empty()) << e.errorText();
	EXPECT_EQ(e.header.bounds.l, 0);
	EXPECT_EQ(e.header.bounds.r, -1);
	EXPECT_EQ(e.header.bounds.b, -1);
}


TEST(EMFPaintDevice, LineWithPen) {
	File f = paintAndParse("line.emf", QSize(400, 300), [](QPainter & p) {
		p.setPen(QPen(QColor(255, 0, 0), 2));
		p.drawLine(QPointF(10, 20), QPointF(110, 20));
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto lines = f.ofType(T_POLYLINE16);
	ASSERT_EQ(lines.size(), 1u) << dump(f);
	EXPECT_EQ(lines[0]->size, 36u);
	EXPECT_EQ(polyPoints(*lines[0]), pts({ { 150, 300 }, { 1650, 300 } }));
	Rect b = polyBounds(*lines[0]);
	EXPECT_EQ(b.l, 150);
	EXPECT_EQ(b.t, 300);
	EXPECT_EQ(b.r, 1650);
	EXPECT_EQ(b.b, 300);

	auto pens = f.ofType(T_EXTCREATEPEN);
	ASSERT_EQ(pens.size(), 1u);
	Pen pen = decodePen(*pens[0]);
	// geometric, square cap, bevel join (QPen's defaults), solid
	EXPECT_EQ(pen.style, 0x00010000u | 0x100u | 0x1000u);
	EXPECT_EQ(pen.width, 30u);
	EXPECT_EQ(pen.color, 0x000000FFu);
	EXPECT_EQ(pen.brushStyle, 0u);

	int li = f.indexOf(T_POLYLINE16);
	EXPECT_EQ(selectedBefore(f, li, 0), pen.handle);
	EXPECT_EQ(selectedBefore(f, li, 1), NULL_BRUSH_ID);
}


TEST(EMFPaintDevice, PenWidthsCapsJoinsAndDashes) {
	File f = paintAndParse("pens.emf", QSize(200, 200), [](QPainter & p) {
		p.setPen(QPen(Qt::black, 0));						// cosmetic hairline: one pixel
		p.drawLine(QPointF(0, 10), QPointF(100, 10));
		p.save();
		p.scale(2, 2);
		p.setPen(QPen(Qt::black, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));	// scales: 3 px
		p.drawLine(QPointF(0, 10), QPointF(50, 10));
		QPen cosmetic(Qt::black, 2);
		cosmetic.setCosmetic(true);							// does not scale: 2 px
		p.setPen(cosmetic);
		p.drawLine(QPointF(0, 20), QPointF(50, 20));
		p.restore();
		p.setPen(QPen(Qt::black, 1, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
		p.drawLine(QPointF(0, 50), QPointF(100, 50));
		QPen custom(Qt::black, 2, Qt::CustomDashLine);
		custom.setDashPattern({ 3, 1, 0.5, 1 });
		p.setPen(custom);
		p.drawLine(QPointF(0, 60), QPointF(100, 60));
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto pens = f.ofType(T_EXTCREATEPEN);
	ASSERT_EQ(pens.size(), 5u) << dump(f);
	Pen hair = decodePen(*pens[0]);
	EXPECT_EQ(hair.width, 15u);
	Pen scaled = decodePen(*pens[1]);
	EXPECT_EQ(scaled.width, 45u);
	EXPECT_EQ(scaled.style, 0x00010000u);			// round cap (0) and round join (0)
	Pen cosm = decodePen(*pens[2]);
	EXPECT_EQ(cosm.width, 30u);
	Pen dash = decodePen(*pens[3]);
	EXPECT_EQ(dash.style, 0x00010000u | 0x200u | 0x2000u | 1u);	// flat, miter, PS_DASH
	Pen user = decodePen(*pens[4]);
	EXPECT_EQ(user.style & 0xFu, 7u);				// PS_USERSTYLE
	EXPECT_EQ(user.entries, (std::vector<uint32_t>{ 90, 30, 15, 30 }));	// pattern * 30 units
	// the scaled line: (0,10)-(50,10) * 2 * 15
	auto lines = f.ofType(T_POLYLINE16);
	ASSERT_EQ(lines.size(), 5u);
	EXPECT_EQ(polyPoints(*lines[1]), pts({ { 0, 300 }, { 1500, 300 } }));
	// a miter join pen brings its miter limit along (QPen's default 2)
	int ml = f.indexOf(T_SETMITERLIMIT);
	ASSERT_GE(ml, 0);
	EXPECT_EQ(f.records[size_t(ml)].u32(8), 2u);
}


TEST(EMFPaintDevice, FilledPolygonWithoutPen) {
	File f = paintAndParse("polygon.emf", QSize(200, 200), [](QPainter & p) {
		p.setPen(Qt::NoPen);
		p.setBrush(QColor(0, 128, 255));
		QPointF poly[3] = { QPointF(10, 10), QPointF(50, 10), QPointF(30, 40) };
		p.drawPolygon(poly, 3);
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto polys = f.ofType(T_POLYGON16);
	ASSERT_EQ(polys.size(), 1u) << dump(f);
	EXPECT_EQ(polyPoints(*polys[0]), pts({ { 150, 150 }, { 750, 150 }, { 450, 600 } }));
	auto brushes = f.ofType(T_CREATEBRUSHINDIRECT);
	ASSERT_EQ(brushes.size(), 1u);
	Brush b = decodeBrush(*brushes[0]);
	EXPECT_EQ(b.style, 0u);
	EXPECT_EQ(b.color, 0x00FF8000u);
	int pi = f.indexOf(T_POLYGON16);
	EXPECT_EQ(selectedBefore(f, pi, 0), NULL_PEN_ID);
	EXPECT_EQ(selectedBefore(f, pi, 1), b.handle);
}


TEST(EMFPaintDevice, PolygonWithPenAndBrushIsOneRecord) {
	File f = paintAndParse("polygon2.emf", QSize(200, 200), [](QPainter & p) {
		p.setPen(QPen(Qt::black, 1));
		p.setBrush(Qt::yellow);
		p.drawPolygon(QPolygonF() << QPointF(0, 0) << QPointF(10, 0) << QPointF(10, 10) << QPointF(0, 10));
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	ASSERT_EQ(f.count(T_POLYGON16), 1u) << dump(f);
	int pi = f.indexOf(T_POLYGON16);
	const Record * pen = creatorOf(f, pi, selectedBefore(f, pi, 0));
	const Record * brush = creatorOf(f, pi, selectedBefore(f, pi, 1));
	ASSERT_TRUE(pen && brush);
	EXPECT_EQ(decodePen(*pen).color, 0u);
	EXPECT_EQ(decodeBrush(*brush).color, 0x0000FFFFu);	// yellow as 0x00BBGGRR
}


TEST(EMFPaintDevice, PathWithHoleAndFillRules) {
	File f = paintAndParse("holes.emf", QSize(200, 200), [](QPainter & p) {
		QPainterPath path;
		path.addRect(QRectF(0, 0, 100, 100));
		path.addRect(QRectF(25, 25, 50, 50));
		p.setPen(Qt::NoPen);
		p.setBrush(Qt::black);
		p.drawPath(path);						// odd-even (QPainterPath's default)
		path.setFillRule(Qt::WindingFill);
		p.drawPath(path);
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto pp = f.ofType(T_POLYPOLYGON16);
	ASSERT_EQ(pp.size(), 2u) << dump(f);
	auto polys = polyPolyPoints(*pp[0]);
	ASSERT_EQ(polys.size(), 2u);
	EXPECT_EQ(polys[0], pts({ { 0, 0 }, { 1500, 0 }, { 1500, 1500 }, { 0, 1500 } }));
	EXPECT_EQ(polys[1], pts({ { 375, 375 }, { 1125, 375 }, { 1125, 1125 }, { 375, 1125 } }));
	// fill mode before each: alternate (the initial state) and winding
	int first = f.indexOf(T_POLYPOLYGON16);
	int second = f.indexOf(T_POLYPOLYGON16, first + 1);
	int mode = -1;
	for (int i = 0; i < first; ++i)
		if (f.records[size_t(i)].type == T_SETPOLYFILLMODE)
			mode = int(f.records[size_t(i)].u32(8));
	EXPECT_EQ(mode, 1);
	for (int i = first; i < second; ++i)
		if (f.records[size_t(i)].type == T_SETPOLYFILLMODE)
			mode = int(f.records[size_t(i)].u32(8));
	EXPECT_EQ(mode, 2);
}


TEST(EMFPaintDevice, BezierPathIsFlattened) {
	File f = paintAndParse("bezier.emf", QSize(200, 200), [](QPainter & p) {
		QPainterPath path;
		path.moveTo(0, 100);
		path.cubicTo(50, 0, 150, 200, 200, 100);
		p.setPen(QPen(Qt::blue, 1));
		p.drawPath(path);
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto lines = f.ofType(T_POLYLINE16);
	ASSERT_EQ(lines.size(), 1u) << dump(f);
	auto p = polyPoints(*lines[0]);
	ASSERT_GT(p.size(), 10u);
	EXPECT_EQ(p.front(), pts({ { 0, 1500 } })[0]);
	EXPECT_EQ(p.back(), pts({ { 3000, 1500 } })[0]);
	// the curve passes through its midpoint (100, 100) -> (1500, 1500), within a pixel
	bool near = false;
	for (const Point & q : p)
		if (std::abs(q.x - 1500) <= 60 && std::abs(q.y - 1500) <= 15)
			near = true;
	EXPECT_TRUE(near);
}


TEST(EMFPaintDevice, LargeCoordinatesUse32BitRecords) {
	File f = paintAndParse("large.emf", QSize(4000, 100), [](QPainter & p) {
		p.setPen(QPen(Qt::black, 1));
		p.drawLine(QPointF(0, 50), QPointF(3000, 50));		// 45000 units: beyond 16 bits
		p.drawLine(QPointF(0, 60), QPointF(2000, 60));		// 30000 units: fits
		p.setPen(Qt::NoPen);
		p.setBrush(Qt::red);
		QPainterPath path;
		path.addRect(QRectF(0, 0, 10, 10));
		path.addRect(QRectF(3000, 0, 10, 10));
		p.drawPath(path);
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto big = f.ofType(T_POLYLINE);
	ASSERT_EQ(big.size(), 1u) << dump(f);
	EXPECT_EQ(polyPoints(*big[0]), pts({ { 0, 750 }, { 45000, 750 } }));
	auto small = f.ofType(T_POLYLINE16);
	ASSERT_EQ(small.size(), 1u);
	EXPECT_EQ(polyPoints(*small[0]), pts({ { 0, 900 }, { 30000, 900 } }));
	auto pp = f.ofType(T_POLYPOLYGON);
	ASSERT_EQ(pp.size(), 1u);
	EXPECT_EQ(polyPolyPoints(*pp[0])[1], pts({ { 45000, 0 }, { 45150, 0 }, { 45150, 150 }, { 45000, 150 } }));
}


TEST(EMFPaintDevice, RectanglesAndEllipses) {
	File f = paintAndParse("shapes.emf", QSize(200, 200), [](QPainter & p) {
		p.setPen(QPen(Qt::black, 1));
		p.setBrush(Qt::green);
		p.drawRect(QRectF(10, 10, 20, 30));
		p.drawEllipse(QRectF(40, 10, 20, 30));
		p.setBrush(Qt::NoBrush);
		p.drawRect(QRectF(0, 0, 5, 5));
		p.setPen(Qt::NoPen);
		p.setBrush(Qt::red);
		p.drawRect(QRectF(1, 1, 2, 2));
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto rects = f.ofType(T_RECTANGLE);
	ASSERT_EQ(rects.size(), 3u) << dump(f);
	Rect r = rects[0]->rect(8);
	EXPECT_EQ(r.l, 150);
	EXPECT_EQ(r.t, 150);
	EXPECT_EQ(r.r, 450);
	EXPECT_EQ(r.b, 600);
	auto ellipses = f.ofType(T_ELLIPSE);
	ASSERT_EQ(ellipses.size(), 1u);
	Rect e = ellipses[0]->rect(8);
	EXPECT_EQ(e.l, 600);
	EXPECT_EQ(e.r, 900);
	// no brush -> NULL_BRUSH, no pen -> NULL_PEN
	int second = f.indexOf(T_RECTANGLE, f.indexOf(T_RECTANGLE) + 1);
	EXPECT_EQ(selectedBefore(f, second, 1), NULL_BRUSH_ID);
	int third = f.indexOf(T_RECTANGLE, second + 1);
	EXPECT_EQ(selectedBefore(f, third, 0), NULL_PEN_ID);
	EXPECT_NE(selectedBefore(f, third, 1), NULL_BRUSH_ID);
}


TEST(EMFPaintDevice, TextRecordFontAndColour) {
	QFont font("DejaVu Sans");
	font.setPixelSize(20);
	File f = paintAndParse("text.emf", QSize(400, 300), [&](QPainter & p) {
		p.setFont(font);
		p.setPen(QColor(255, 0, 0));
		p.drawText(QPointF(20, 50), "Hello");
		QFont bold("DejaVu Serif", 12);		// 12 pt at 96 dpi = 16 px
		bold.setBold(true);
		bold.setItalic(true);
		p.setFont(bold);
		p.setPen(QColor(0, 0, 255));
		p.drawText(QPointF(20, 100), QString::fromUtf8("Größe °C"));
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto texts = f.ofType(T_EXTTEXTOUTW);
	ASSERT_EQ(texts.size(), 2u) << dump(f);
	Text t = decodeText(*texts[0]);
	EXPECT_EQ(t.text, QString("Hello"));
	EXPECT_EQ(t.reference, pts({ { 300, 750 } })[0]);
	ASSERT_EQ(t.dx.size(), 5u);
	int sum = 0;
	for (int v : t.dx)
		sum += v;
	QFontMetricsF fm(font);
	EXPECT_NEAR(sum, fm.horizontalAdvance("Hello") * 15, 2);

	int ti = f.indexOf(T_EXTTEXTOUTW);
	const Record * fr = creatorOf(f, ti, selectedBefore(f, ti, 2));
	ASSERT_TRUE(fr != nullptr);
	Font fo = decodeFont(*fr);
	EXPECT_EQ(fo.height, -300);
	EXPECT_EQ(fo.escapement, 0);
	EXPECT_EQ(fo.weight, 400);
	EXPECT_EQ(fo.italic, 0);
	EXPECT_EQ(fo.face, QString("DejaVu Sans"));
	EXPECT_EQ(fr->size, 332u);		// LogFontPanose form
	// text colour red, set before the text
	uint32_t colour = 0xFFFFFFFF;
	for (int i = 0; i < ti; ++i)
		if (f.records[size_t(i)].type == T_SETTEXTCOLOR)
			colour = f.records[size_t(i)].u32(8);
	EXPECT_EQ(colour, 0x000000FFu);

	Text t2 = decodeText(*texts[1]);
	EXPECT_EQ(t2.text, QString::fromUtf8("Größe °C"));
	int ti2 = f.indexOf(T_EXTTEXTOUTW, ti + 1);
	Font fo2 = decodeFont(*creatorOf(f, ti2, selectedBefore(f, ti2, 2)));
	EXPECT_EQ(fo2.height, -240);
	EXPECT_EQ(fo2.weight, 700);
	EXPECT_EQ(fo2.italic, 1);
	EXPECT_EQ(fo2.face, QString("DejaVu Serif"));
	for (int i = ti; i < ti2; ++i)
		if (f.records[size_t(i)].type == T_SETTEXTCOLOR)
			colour = f.records[size_t(i)].u32(8);
	EXPECT_EQ(colour, 0x00FF0000u);
}


TEST(EMFPaintDevice, GenericFamiliesBecomeWindowsFaces) {
	File f = paintAndParse("faces.emf", QSize(200, 100), [](QPainter & p) {
		p.setFont(QFont("Sans Serif", 10));
		p.drawText(QPointF(0, 20), "a");
		p.setFont(QFont("Monospace", 10));
		p.drawText(QPointF(0, 40), "b");
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto fonts = f.ofType(T_EXTCREATEFONTINDIRECTW);
	ASSERT_EQ(fonts.size(), 2u);
	EXPECT_EQ(decodeFont(*fonts[0]).face, QString("Arial"));
	EXPECT_EQ(decodeFont(*fonts[1]).face, QString("Courier New"));
	EXPECT_EQ(decodeFont(*fonts[1]).pitchAndFamily & 0xF0, 0x30);	// FF_MODERN
}


TEST(EMFPaintDevice, RotatedTextUsesEscapement) {
	QFont font("DejaVu Sans");
	font.setPixelSize(12);
	File f = paintAndParse("rotated.emf", QSize(400, 300), [&](QPainter & p) {
		p.setFont(font);
		p.save();
		p.translate(30, 200);
		p.rotate(-90);							// reads bottom to top, like a left axis title
		p.drawText(QPointF(0, 0), "Axis");
		p.restore();
		p.save();
		p.translate(370, 100);
		p.rotate(90);							// top to bottom, like a right axis title
		p.drawText(QPointF(10, 0), "Right");
		p.restore();
		p.save();
		p.translate(100, 100);
		p.scale(2, 2);							// scaled text: bigger font
		p.drawText(QPointF(0, 0), "Big");
		p.restore();
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto texts = f.ofType(T_EXTTEXTOUTW);
	ASSERT_EQ(texts.size(), 3u) << dump(f);
	int i1 = f.indexOf(T_EXTTEXTOUTW);
	Font f1 = decodeFont(*creatorOf(f, i1, selectedBefore(f, i1, 2)));
	EXPECT_EQ(f1.escapement, 900);
	EXPECT_EQ(f1.orientation, 900);
	EXPECT_EQ(f1.height, -180);
	EXPECT_EQ(decodeText(*texts[0]).reference, pts({ { 450, 3000 } })[0]);

	int i2 = f.indexOf(T_EXTTEXTOUTW, i1 + 1);
	Font f2 = decodeFont(*creatorOf(f, i2, selectedBefore(f, i2, 2)));
	EXPECT_EQ(f2.escapement, 2700);
	EXPECT_EQ(decodeText(*texts[1]).reference, pts({ { 5550, 1650 } })[0]);	// (370, 110) * 15
	// the advances of rotated text are lengths along the baseline
	int sum = 0;
	for (int v : decodeText(*texts[1]).dx)
		sum += v;
	EXPECT_NEAR(sum, QFontMetricsF(font).horizontalAdvance("Right") * 15, 2);

	int i3 = f.indexOf(T_EXTTEXTOUTW, i2 + 1);
	Font f3 = decodeFont(*creatorOf(f, i3, selectedBefore(f, i3, 2)));
	EXPECT_EQ(f3.escapement, 0);
	EXPECT_EQ(f3.height, -360);
	EXPECT_EQ(decodeText(*texts[2]).reference, pts({ { 1500, 1500 } })[0]);
}


TEST(EMFPaintDevice, MirroredTextBecomesOutlines) {
	File f = paintAndParse("mirrored.emf", QSize(200, 100), [](QPainter & p) {
		p.setFont(QFont("DejaVu Sans", 20));
		p.scale(-1, 1);
		p.drawText(QPointF(-150, 50), "Mirror");
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	EXPECT_EQ(f.count(T_EXTTEXTOUTW), 0u);
	EXPECT_GE(f.count(T_POLYPOLYGON16) + f.count(T_POLYGON16), 1u);
}


TEST(EMFPaintDevice, RectangularClipAndRestore) {
	File f = paintAndParse("clip.emf", QSize(200, 200), [](QPainter & p) {
		p.setPen(QPen(Qt::black, 1));
		p.save();
		p.setClipRect(QRectF(10, 10, 50, 40));
		p.drawLine(QPointF(0, 0), QPointF(100, 100));
		p.restore();
		p.drawLine(QPointF(0, 100), QPointF(100, 0));
		p.setClipRect(QRectF(20, 20, 100, 100));
		p.setClipRect(QRectF(50, 0, 100, 60), Qt::IntersectClip);	// -> (50, 20) - (120, 60)
		p.drawLine(QPointF(0, 0), QPointF(10, 10));
		p.setClipping(false);
		p.drawLine(QPointF(0, 0), QPointF(20, 20));
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto clips = f.ofType(T_INTERSECTCLIPRECT);
	ASSERT_EQ(clips.size(), 2u) << dump(f);
	Rect c = clips[0]->rect(8);
	EXPECT_EQ(c.l, 150);
	EXPECT_EQ(c.t, 150);
	EXPECT_EQ(c.r, 900);
	EXPECT_EQ(c.b, 750);
	Rect c2 = clips[1]->rect(8);
	EXPECT_EQ(c2.l, 750);
	EXPECT_EQ(c2.t, 300);
	EXPECT_EQ(c2.r, 1800);
	EXPECT_EQ(c2.b, 900);

	// order: SAVEDC, clip, line, RESTOREDC, line, SAVEDC, clip, line, RESTOREDC, line
	std::vector<uint32_t> seq;
	for (const Record & r : f.records)
		if (r.type == T_SAVEDC || r.type == T_RESTOREDC || r.type == T_INTERSECTCLIPRECT || r.type == T_POLYLINE16)
			seq.push_back(r.type);
	EXPECT_EQ(seq, (std::vector<uint32_t>{ T_SAVEDC, T_INTERSECTCLIPRECT, T_POLYLINE16, T_RESTOREDC, T_POLYLINE16,
										   T_SAVEDC, T_INTERSECTCLIPRECT, T_POLYLINE16, T_RESTOREDC, T_POLYLINE16 }));
	// RESTOREDC goes back one level
	EXPECT_EQ(f.ofType(T_RESTOREDC)[0]->i32(8), -1);
}


TEST(EMFPaintDevice, NonRectangularClipIsAClipPath) {
	File f = paintAndParse("clippath.emf", QSize(200, 200), [](QPainter & p) {
		QPainterPath ellipse;
		ellipse.addEllipse(QRectF(10, 10, 100, 60));
		p.setClipPath(ellipse);
		p.fillRect(QRectF(0, 0, 200, 200), Qt::red);
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	int save = f.indexOf(T_SAVEDC);
	int begin = f.indexOf(59);			// EMR_BEGINPATH
	int poly = f.indexOf(T_POLYGON16, begin);
	int endp = f.indexOf(60, begin);	// EMR_ENDPATH
	int sel = f.indexOf(67, endp);		// EMR_SELECTCLIPPATH
	int fill = f.indexOf(T_RECTANGLE, sel);
	ASSERT_TRUE(save >= 0 && save < begin && begin < poly && poly < endp && endp < sel && sel < fill) << dump(f);
	EXPECT_EQ(f.records[size_t(begin)].size, 8u);
	EXPECT_EQ(f.records[size_t(sel)].u32(8), 5u);		// RGN_COPY
	Rect b = polyBounds(f.records[size_t(poly)]);
	EXPECT_EQ(b.l, 150);
	EXPECT_EQ(b.r, 1650);
	EXPECT_EQ(b.t, 150);
	EXPECT_EQ(b.b, 1050);
}


TEST(EMFPaintDevice, ImageAsStretchDibits) {
	QImage img(2, 2, QImage::Format_ARGB32);
	img.setPixel(0, 0, qRgb(255, 0, 0));
	img.setPixel(1, 0, qRgb(0, 255, 0));
	img.setPixel(0, 1, qRgb(0, 0, 255));
	img.setPixel(1, 1, qRgba(0, 0, 0, 0));		// transparent: blended over white
	File f = paintAndParse("image.emf", QSize(200, 200), [&](QPainter & p) {
		p.drawImage(QRectF(10, 20, 40, 30), img);
		p.drawImage(QRectF(100, 100, 20, 20), img, QRectF(1, 0, 1, 2));	// right column only
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto images = f.ofType(T_STRETCHDIBITS);
	ASSERT_EQ(images.size(), 2u) << dump(f);
	Image im = decodeImage(*images[0]);
	EXPECT_EQ(im.xDest, 150);
	EXPECT_EQ(im.yDest, 300);
	EXPECT_EQ(im.cxDest, 600);
	EXPECT_EQ(im.cyDest, 450);
	EXPECT_EQ(im.cxSrc, 2);
	EXPECT_EQ(im.cySrc, 2);
	EXPECT_EQ(im.width, 2);
	EXPECT_EQ(im.height, 2);			// positive: bottom-up rows
	EXPECT_EQ(im.bitCount, 24);
	EXPECT_EQ(im.compression, 0u);
	EXPECT_EQ(im.rop, 0x00CC0020u);		// SRCCOPY
	EXPECT_EQ(im.bits.size(), 16);		// 2 rows of 6 bytes padded to 8
	EXPECT_EQ(im.pixel(0, 0), 0xFF0000u);
	EXPECT_EQ(im.pixel(1, 0), 0x00FF00u);
	EXPECT_EQ(im.pixel(0, 1), 0x0000FFu);
	EXPECT_EQ(im.pixel(1, 1), 0xFFFFFFu);
	Image part = decodeImage(*images[1]);
	EXPECT_EQ(part.width, 1);
	EXPECT_EQ(part.height, 2);
	EXPECT_EQ(part.pixel(0, 0), 0x00FF00u);
	EXPECT_EQ(part.pixel(0, 1), 0xFFFFFFu);
	EXPECT_EQ(part.cxDest, 300);
}


TEST(EMFPaintDevice, RotatedImageIsRasterisedAndClipped) {
	QImage img(4, 4, QImage::Format_RGB32);
	img.fill(Qt::blue);
	File f = paintAndParse("image-rotated.emf", QSize(200, 200), [&](QPainter & p) {
		p.translate(100, 100);
		p.rotate(45);
		p.drawImage(QRectF(-20, -20, 40, 40), img);
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	ASSERT_EQ(f.count(T_STRETCHDIBITS), 1u);
	EXPECT_EQ(f.count(67), 1u);		// clipped by the rotated outline
	Image im = decodeImage(*f.ofType(T_STRETCHDIBITS)[0]);
	// bounding box of the rotated square: 100 +- 28.3 px
	EXPECT_NEAR(im.xDest, (100 - 28.28) * 15, 20);
	EXPECT_NEAR(im.cxDest, 56.57 * 15, 30);
	EXPECT_EQ(im.pixel(im.width / 2, im.height / 2), 0x0000FFu);
}


TEST(EMFPaintDevice, WorldTransformIsApplied) {
	File f = paintAndParse("transform.emf", QSize(400, 300), [](QPainter & p) {
		p.setPen(QPen(Qt::black, 1));
		p.translate(100, 50);
		p.scale(2, 2);
		p.drawLine(QPointF(0, 0), QPointF(10, 0));
		p.rotate(90);
		p.drawLine(QPointF(0, 0), QPointF(10, 0));		// now points down
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	auto lines = f.ofType(T_POLYLINE16);
	ASSERT_EQ(lines.size(), 2u);
	EXPECT_EQ(polyPoints(*lines[0]), pts({ { 1500, 750 }, { 1800, 750 } }));
	EXPECT_EQ(polyPoints(*lines[1]), pts({ { 1500, 750 }, { 1500, 1050 } }));
}


TEST(EMFPaintDevice, HandlesAreDeletedAndReused) {
	File f = paintAndParse("handles.emf", QSize(300, 300), [](QPainter & p) {
		for (int i = 0; i < 200; ++i) {
			p.setPen(QPen(QColor(i, 255 - i, (i * 7) % 256), 1));
			p.setBrush(QColor((i * 3) % 256, i, 0));
			p.drawRect(QRectF(i, i, 10, 10));
		}
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	EXPECT_EQ(f.count(T_EXTCREATEPEN), 200u);
	EXPECT_EQ(f.count(T_CREATEBRUSHINDIRECT), 200u);
	// every created object is deleted before the end
	EXPECT_EQ(f.count(T_DELETEOBJECT), 400u);
	EXPECT_LE(f.header.handles, 66u);
	std::set<uint32_t> seen;
	bool reused = false;
	for (const Record & r : f.records)
		if (r.type == T_EXTCREATEPEN || r.type == T_CREATEBRUSHINDIRECT) {
			if (seen.count(r.u32(8)))
				reused = true;
			seen.insert(r.u32(8));
		}
	EXPECT_TRUE(reused);
	// identical pens are created once
	File g = paintAndParse("handles-same.emf", QSize(100, 100), [](QPainter & p) {
		for (int i = 0; i < 20; ++i) {
			p.setPen(QPen(Qt::red, 2));
			p.drawLine(QPointF(0, i), QPointF(50, i));
		}
	});
	ASSERT_TRUE(g.errors.empty()) << g.errorText();
	EXPECT_EQ(g.count(T_EXTCREATEPEN), 1u);
	EXPECT_EQ(g.count(T_SELECTOBJECT), 3u);	// pen and NULL_BRUSH once, stock pen at the end
}


TEST(EMFPaintDevice, BrushStylesAndTransparency) {
	File f = paintAndParse("brushes.emf", QSize(200, 200), [](QPainter & p) {
		p.setPen(Qt::NoPen);
		p.setBrush(QBrush(Qt::black, Qt::CrossPattern));
		p.drawRect(QRectF(0, 0, 10, 10));
		p.setBrush(QColor(0, 0, 255, 128));			// half transparent: blended over white
		p.drawRect(QRectF(20, 0, 10, 10));
		p.setBrush(QColor(0, 0, 255, 0));			// invisible: nothing drawn
		p.drawRect(QRectF(40, 0, 10, 10));
		QLinearGradient g(0, 0, 10, 0);
		g.setColorAt(0, Qt::black);
		g.setColorAt(1, Qt::white);
		p.setBrush(g);								// gradient: its average colour
		p.drawRect(QRectF(60, 0, 10, 10));
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	EXPECT_EQ(f.count(T_RECTANGLE), 3u);
	auto brushes = f.ofType(T_CREATEBRUSHINDIRECT);
	ASSERT_EQ(brushes.size(), 3u);
	Brush hatch = decodeBrush(*brushes[0]);
	EXPECT_EQ(hatch.style, 2u);		// BS_HATCHED
	EXPECT_EQ(hatch.hatch, 4u);		// HS_CROSS
	Brush half = decodeBrush(*brushes[1]);
	EXPECT_EQ(half.color, 0x00FF7F7Fu);
	Brush grad = decodeBrush(*brushes[2]);
	EXPECT_EQ(grad.color & 0xFF, 0x80u);
}


TEST(EMFPaintDevice, HigherResolutionKeepsPhysicalSize) {
	// 160 x 120 mm at 300 dpi: 1890 x 1417 px, 4.8 units per px
	auto dev = EMF::PaintDevice::fromMillimeters(scratchFile("hires.emf"), QSizeF(160, 120), 300);
	{
		QPainter p(dev.get());
		p.setFont(QFont("DejaVu Sans", 10));		// 10 pt = 41.67 px at 300 dpi
		p.drawText(QPointF(100, 100), "x");
	}
	ASSERT_TRUE(dev->isWritten());
	File f;
	ASSERT_TRUE(f.parseFile(dev->fileName())) << f.errorText();
	EXPECT_EQ(f.header.frame.r, 16002 - 1);		// 1890 px = 160.02 mm
	EXPECT_EQ(f.header.frame.b, 11997 - 1);		// 1417 px = 119.973 mm
	EXPECT_EQ(f.header.bounds.r, 9072 - 1);		// 1890 * 4.8
	EXPECT_EQ(f.header.mmCx, 160);
	EXPECT_EQ(f.header.deviceCx, 9071);			// 160 mm * 1440 / 25.4 = 9070.9
	Font fo = decodeFont(*f.ofType(T_EXTCREATEFONTINDIRECTW)[0]);
	EXPECT_EQ(fo.height, -200);					// 41.67 px * 4.8
	EXPECT_EQ(decodeText(*f.ofType(T_EXTTEXTOUTW)[0]).reference, pts({ { 480, 480 } })[0]);
}


TEST(EMFPaintDevice, UnwritableFileIsReported) {
	const QString path = scratchFile("no-such-dir/sub/x.emf");
	EMF::PaintDevice dev(path, QSize(100, 100), 96);
	QPainter p;
	EXPECT_FALSE(p.begin(&dev));
	EXPECT_TRUE(dev.hasError());
	EXPECT_FALSE(dev.isWritten());
	EXPECT_NE(dev.errorMessage().find("x.emf"), std::string::npos);
	EXPECT_NE(dev.errorMessage().find("[EMF::PaintEngine::begin]"), std::string::npos);
	EXPECT_THROW(dev.throwIfError(), ZEB::Exception);
}


TEST(EMFPaintDevice, WriteFailureAtEndIsReported) {
	if (!QFile::exists("/dev/full"))
		GTEST_SKIP() << "/dev/full is not available";
	EMF::PaintDevice dev("/dev/full", QSize(100, 100), 96);
	QPainter p;
	ASSERT_TRUE(p.begin(&dev));
	p.drawLine(0, 0, 10, 10);
	EXPECT_FALSE(p.end());
	EXPECT_TRUE(dev.hasError());
	EXPECT_FALSE(dev.isWritten());
	try {
		dev.throwIfError();
		FAIL() << "no exception";
	}
	catch (const ZEB::Exception & ex) {
		EXPECT_NE(std::string(ex.what()).find("/dev/full"), std::string::npos);
		EXPECT_EQ(ex.messages().back().m_where, "[EMF::PaintEngine::end]");
	}
	// a later successful painting on another device is unaffected; this one can be retried
	EMF::PaintDevice ok(scratchFile("after-error.emf"), QSize(10, 10), 96);
	{
		QPainter q(&ok);
	}
	EXPECT_TRUE(ok.isWritten());
	EXPECT_NO_THROW(ok.throwIfError());
}


TEST(EMFPaintDevice, ConvertsWithEmf2Svg) {
	if (emf2svg().isEmpty())
		GTEST_SKIP() << "emf2svg-conv is not installed";
	const QString emf = scratchFile("convert.emf");
	{
		EMF::PaintDevice dev(emf, QSize(400, 300), 96);
		QPainter p(&dev);
		p.fillRect(QRectF(0, 0, 400, 300), Qt::white);
		p.setPen(QPen(Qt::darkBlue, 2));
		p.drawPolyline(QPolygonF() << QPointF(20, 250) << QPointF(120, 100) << QPointF(220, 180) << QPointF(380, 40));
		p.setBrush(QColor(200, 230, 255));
		p.drawPolygon(QPolygonF() << QPointF(50, 50) << QPointF(100, 50) << QPointF(75, 90));
		p.setFont(QFont("DejaVu Sans", 12));
		p.setPen(Qt::black);
		p.drawText(QPointF(150, 280), "Temperature");
		p.save();
		p.translate(15, 200);
		p.rotate(-90);
		p.drawText(QPointF(0, 0), "Zeit [h]");
		p.restore();
		p.end();
		ASSERT_TRUE(dev.isWritten());
	}
	const QString svgPath = scratchFile("convert.svg");
	QString log;
	const QString svg = convertToSvg(emf, svgPath, &log);
	ASSERT_FALSE(svg.isEmpty()) << log.toStdString();
	EXPECT_TRUE(svg.contains("Temperature"));
	EXPECT_TRUE(svg.contains("Zeit [h]"));
	EXPECT_TRUE(svg.contains("rotate(-90"));
	EXPECT_GE(svg.count("<path"), 2);
	// the canvas is the whole picture in logical units
	EXPECT_TRUE(svg.contains("width=\"6000.0000\"")) << svg.left(400).toStdString();
	svgToPng(svgPath, scratchFile("convert.png"), 800);
}


TEST(EMFPaintDevice, OtherPrimitivesGiveAValidFile) {
	QPixmap tile(8, 8);
	tile.fill(Qt::darkCyan);
	File f = paintAndParse("misc.emf", QSize(300, 200), [&](QPainter & p) {
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
		p.setFont(QFont("DejaVu Sans", 9));
		QFont u = p.font();
		u.setUnderline(true);
		p.setFont(u);
		p.drawText(QRectF(150, 100, 140, 80), Qt::AlignCenter | Qt::TextWordWrap,
				   "Wrapped and underlined text over several lines");
		p.setOpacity(0.5);
		p.fillRect(QRectF(0, 150, 50, 50), Qt::black);
	});
	ASSERT_TRUE(f.errors.empty()) << f.errorText();
	EXPECT_GE(f.count(T_EXTTEXTOUTW), 2u);
	// underline is drawn by QPainter as a line or rectangle, not by the font
	for (const Record * r : f.ofType(T_EXTCREATEFONTINDIRECTW))
		EXPECT_EQ(decodeFont(*r).underline, 0);
	// a hatched brush in opaque background mode: QPainter fills with the background colour first,
	// the hatch follows; the file's background mode stays transparent
	int bg = -1, hatch = -1;
	for (size_t i = 0; i < f.records.size(); ++i) {
		const Record & r = f.records[i];
		if (r.type == T_CREATEBRUSHINDIRECT && decodeBrush(r).color == 0x00C0C0C0u && decodeBrush(r).style == 0)
			bg = int(i);
		if (r.type == T_CREATEBRUSHINDIRECT && decodeBrush(r).style == 2 && decodeBrush(r).hatch == 3)
			hatch = int(i);
		if (r.type == T_SETBKMODE) {
			EXPECT_EQ(r.u32(8), 1u);
		}
	}
	EXPECT_GE(bg, 0) << dump(f);
	EXPECT_GT(hatch, bg);
	// half opacity: black over white becomes grey
	bool grey = false;
	for (const Record * r : f.ofType(T_CREATEBRUSHINDIRECT))
		if (decodeBrush(*r).color == 0x00808080u)
			grey = true;
	EXPECT_TRUE(grey);

	if (emf2svg().isEmpty())
		return;
	QString log;
	const QString svg = convertToSvg(scratchFile("misc.emf"), scratchFile("misc.svg"), &log);
	ASSERT_FALSE(svg.isEmpty()) << log.toStdString();
	EXPECT_TRUE(svg.contains("Wrapped"));
	svgToPng(scratchFile("misc.svg"), scratchFile("misc.png"), 600);
}
