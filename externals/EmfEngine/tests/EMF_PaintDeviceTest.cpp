#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

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
// inch, i.e. 15 logical units per pixel, unless a test says otherwise.

namespace {

using Points = std::vector<Point>;

/*! Sum of the character advances of a text record. */
int advance(const Record & r) {
	const Text t = decodeText(r);
	return std::accumulate(t.dx.begin(), t.dx.end(), 0);
}

} // namespace


TEST(EMFPaintDevice, MetricsAndHeaderFollowSizeAndResolution) {
	EXPECT_THROW(EMF::PaintDevice(scratchFile("x.emf"), QSize(0, 10), 96), ZEB::Exception);
	EXPECT_THROW(EMF::PaintDevice(QString(), QSize(10, 10), 96), ZEB::Exception);

	File f = paintAndParse("empty.emf", QSize(400, 300), [](QPainter &) {}, 96, "Wall");
	const Header & h = f.header;
	EXPECT_EQ(h.bounds, (Rect{0, 0, 5999, 4499}));	// whole picture: 400 x 300 px * 15
	EXPECT_EQ(h.frame, (Rect{0, 0, 10582, 7937}));	// 0.01 mm, inclusive: 105.833 mm, 79.375 mm
	// reference device: 106 x 79 mm at 1440/25.4 units per mm (6009.4, 4478.7); 6009 units = 105.992 mm
	EXPECT_EQ(std::vector<int64_t>({h.mmCx, h.mmCy, h.deviceCx, h.deviceCy, h.umCx, h.umCy}),
			  std::vector<int64_t>({106, 79, 6009, 4479, 105992, 79005}));
	// the description follows the fixed header; 13 UTF-16 characters are padded to 28 bytes
	EXPECT_EQ(h.description, QString("Orvane") + QChar(0) + "Wall" + QChar(0) + QChar(0));
	EXPECT_EQ(std::vector<uint32_t>({h.nDescription, h.offDescription, f.records.at(0).size}), std::vector<uint32_t>({13, 108, 136}));
	// text alignment set up once: baseline-left
	EXPECT_EQ(f.stateBefore(T_SETTEXTALIGN, int(f.records.size())), 24u);

	// at 300 dpi a pixel is 4.8 units: 1890 x 1417 px are 160.02 x 119.973 mm
	File g = paintAndParse("hires.emf", QSize(1890, 1417), [](QPainter & p) { p.drawLine(QPointF(100, 100), QPointF(200, 100)); }, 300);
	EXPECT_EQ(g.header.frame, (Rect{0, 0, 16002 - 1, 11997 - 1}));
	EXPECT_EQ(polyPoints(*g.ofType(T_POLYLINE16).at(0)), (Points{ { 480, 480 }, { 960, 480 } }));
}


TEST(EMFPaintDevice, PensAndTransformedLines) {
	File f = paintAndParse("pens.emf", QSize(200, 200), [](QPainter & p) {
		p.setPen(QPen(QColor(255, 0, 0), 2));
		p.drawLine(QPointF(10, 20), QPointF(110, 20));
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
		p.setPen(QPen(Qt::black, 3, Qt::SolidLine, Qt::RoundCap));
		p.drawLine(QPointF(40, 10), QPointF(40, 10));		// zero length, round cap: a dot
		p.setPen(QPen(Qt::black, 3, Qt::SolidLine, Qt::FlatCap));
		p.drawLine(QPointF(60, 10), QPointF(60, 10));		// zero length, flat cap: nothing
		p.setPen(QPen(Qt::blue, 1));
		p.translate(100, 50);
		p.scale(2, 2);
		p.rotate(90);
		p.drawLine(QPointF(0, 0), QPointF(10, 0));		// now points down
	});
	const uint32_t geometric = 0x00010000, square = 0x100, flat = 0x200, bevel = 0x1000, miter = 0x2000;
	const uint32_t solid = 0, dash = 1, userStyle = 7;
	struct Line { std::vector<Point> points; uint32_t width, style; };	// round cap and join are 0
	const std::vector<Line> expected = {
		{Points{{150, 300}, {1650, 300}}, 30, geometric | square | bevel | solid},	// QPen's defaults
		{Points{{0, 150}, {1500, 150}}, 15, geometric | square | bevel | solid},
		{Points{{0, 300}, {1500, 300}}, 45, geometric},
		{Points{{0, 600}, {1500, 600}}, 30, geometric | square | bevel | solid},
		{Points{{0, 750}, {1500, 750}}, 15, geometric | flat | miter | dash},
		{Points{{0, 900}, {1500, 900}}, 30, geometric | square | bevel | userStyle},
		{Points{{1500, 750}, {1500, 1050}}, 30, geometric | square | bevel | solid}};
	const std::vector<const Record *> lines = f.ofType(T_POLYLINE16);
	ASSERT_EQ(lines.size(), expected.size());
	for (size_t i = 0; i < lines.size(); ++i) {
		SCOPED_TRACE(i);
		const Points & pts = expected[i].points;
		EXPECT_EQ(polyPoints(*lines[i]), pts);
		EXPECT_EQ(lines[i]->rect(8), (Rect{pts[0].x, pts[0].y, pts[1].x, pts[1].y}));
		ASSERT_NE(f.object(*lines[i], PEN), nullptr);
		const Pen pen = decodePen(*f.object(*lines[i], PEN));
		EXPECT_EQ(std::vector<uint32_t>({pen.width, pen.style, pen.brushStyle}), std::vector<uint32_t>({expected[i].width, expected[i].style, 0}));
	}
	EXPECT_EQ(decodePen(*f.object(*lines[0], PEN)).color, 0x000000FFu);		// 0x00BBGGRR
	EXPECT_EQ(decodePen(*f.object(*lines[5], PEN)).entries, (std::vector<uint32_t>{ 90, 30, 15, 30 }));	// pattern * 30 units
	// a miter join pen brings its miter limit along (QPen's default 2)
	EXPECT_EQ(f.stateBefore(T_SETMITERLIMIT, int(lines[4] - f.records.data())), 2u);
	// the dot is a filled circle of the pen's width around (600, 150): 45 units across
	ASSERT_EQ(f.count(T_ELLIPSE) + f.count(T_RECTANGLE), 1u);
	const Rect dot = f.ofType(T_ELLIPSE).at(0)->rect(8);
	EXPECT_TRUE(std::abs(dot.l - 577) <= 1 && std::abs(dot.t - 127) <= 1 && std::abs(dot.r - 623) <= 1 && std::abs(dot.b - 173) <= 1) << dot;
}


TEST(EMFPaintDevice, FilledShapesBrushesAndTransparency) {
	File f = paintAndParse("shapes.emf", QSize(200, 200), [](QPainter & p) {
		p.setPen(Qt::NoPen);
		p.setBrush(QColor(0, 128, 255));
		p.drawPolygon(QPolygonF() << QPointF(10, 10) << QPointF(50, 10) << QPointF(30, 40));
		p.setPen(QPen(Qt::black, 1));
		p.setBrush(Qt::yellow);
		p.drawPolygon(QPolygonF() << QPointF(0, 0) << QPointF(10, 0) << QPointF(10, 10) << QPointF(0, 10));
		p.setBrush(Qt::green);
		p.drawRect(QRectF(10, 10, 20, 30));
		p.drawEllipse(QRectF(40, 10, 20, 30));
		p.setBrush(Qt::NoBrush);
		p.drawRect(QRectF(0, 0, 5, 5));
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
	// Qt's opaque background mode: QPainter fills with the background colour before the hatch,
	// the file stays in transparent mode
	File g = paintAndParse("opaque.emf", QSize(100, 100), [](QPainter & p) {
		p.setPen(Qt::NoPen);
		p.setBackgroundMode(Qt::OpaqueMode);
		p.setBackground(Qt::lightGray);
		p.setBrush(QBrush(Qt::red, Qt::BDiagPattern));
		p.drawRect(QRectF(10, 10, 30, 30));
		p.setBackgroundMode(Qt::TransparentMode);
		p.setOpacity(0.5);							// blends as a colour's alpha does
		p.setBrush(Qt::red);
		p.drawRect(QRectF(50, 10, 10, 10));
	});
	const std::vector<const Record *> polys = f.ofType(T_POLYGON16);
	ASSERT_EQ(polys.size(), 2u);
	EXPECT_EQ(polyPoints(*polys[0]), (Points{ { 150, 150 }, { 750, 150 }, { 450, 600 } }));
	EXPECT_EQ(polys[0]->selected[PEN], NULL_PEN);
	EXPECT_EQ(decodeBrush(*f.object(*polys[1], BRUSH)).color, 0x0000FFFFu);	// pen and brush in one record
	EXPECT_EQ(decodePen(*f.object(*polys[1], PEN)).color, 0u);
	const std::vector<const Record *> rects = f.ofType(T_RECTANGLE);
	ASSERT_EQ(rects.size(), 5u);
	EXPECT_EQ(rects[0]->rect(8), (Rect{150, 150, 450, 600}));
	EXPECT_EQ(f.ofType(T_ELLIPSE).at(0)->rect(8), (Rect{600, 150, 900, 600}));
	EXPECT_EQ(rects[1]->selected[BRUSH], NULL_BRUSH);
	EXPECT_NE(rects[1]->selected[PEN], NULL_PEN);
	EXPECT_EQ(rects[2]->selected[PEN], NULL_PEN);
	// every brush in the order of creation; solid: 0x00BBGGRR, hatched (BS_HATCHED): 0x02000000 | hatch style
	auto brushes = [](const File & file) {
		std::vector<uint32_t> list;
		for (const Record * r : file.ofType(T_CREATEBRUSHINDIRECT))
			list.push_back(decodeBrush(*r).style == 2 ? 0x02000000u | decodeBrush(*r).hatch : decodeBrush(*r).color);
		return list;
	};
	EXPECT_EQ(brushes(f), (std::vector<uint32_t>{ 0x00FF8000u, 0x0000FFFFu, 0x0000FF00u, 0x02000004u /* HS_CROSS */,
												  0x00FF7F7Fu, 0x00808080u }));
	EXPECT_EQ(brushes(g), (std::vector<uint32_t>{ 0x00C0C0C0u, 0x02000003u /* HS_BDIAGONAL */, 0x008080FFu }));
	for (const Record * r : g.ofType(T_SETBKMODE))
		EXPECT_EQ(r->u32(8), 1u);
}


TEST(EMFPaintDevice, PathsBeziersAndLargeCoordinates) {
	File f = paintAndParse("paths.emf", QSize(4000, 200), [](QPainter & p) {
		QPainterPath holes;
		holes.addRect(QRectF(0, 0, 100, 100));
		holes.addRect(QRectF(25, 25, 50, 50));
		holes.addRect(QRectF(40, 40, 20, 20));	// an island in the hole
		p.setPen(Qt::NoPen);
		p.setBrush(Qt::black);
		p.drawPath(holes);						// odd-even (QPainterPath's default)
		holes.setFillRule(Qt::WindingFill);
		p.drawPath(holes);
		QPainterPath far;						// 45000 units: beyond 16 bits
		far.addRect(QRectF(0, 0, 10, 10));
		far.addRect(QRectF(3000, 0, 10, 10));
		p.drawPath(far);
		QPainterPath bezier;
		bezier.moveTo(0, 100);
		bezier.cubicTo(50, 0, 150, 200, 200, 100);
		p.setPen(QPen(Qt::blue, 1));
		p.setBrush(Qt::NoBrush);
		p.drawPath(bezier);
		p.drawLine(QPointF(0, 50), QPointF(3000, 50));
		p.drawLine(QPointF(0, 60), QPointF(2184, 60));		// 32760 units: still fits
	});
	const std::vector<const Record *> holes = f.ofType(T_POLYPOLYGON16);
	ASSERT_EQ(holes.size(), 2u);
	const std::vector<Points> figures = polyPolyPoints(*holes[0]);
	ASSERT_EQ(figures.size(), 3u);
	EXPECT_EQ(figures[0], (Points{ { 0, 0 }, { 1500, 0 }, { 1500, 1500 }, { 0, 1500 } }));
	// Qt's three rectangles run the same way; the hole is written against the others, so that
	// readers filling with the winding rule (emf2svg) see the same area as with the odd-even rule
	for (Qt::FillRule rule : { Qt::OddEvenFill, Qt::WindingFill }) {
		QPainterPath area;
		area.setFillRule(rule);
		for (const Points & figure : figures) {
			QPolygonF polygon;
			for (const Point & q : figure)
				polygon << QPointF(q.x, q.y);
			area.addPolygon(polygon);
			area.closeSubpath();
		}
		EXPECT_TRUE(area.contains(QPointF(150, 150))) << rule;	// the ring
		EXPECT_FALSE(area.contains(QPointF(480, 480))) << rule;	// the hole
		EXPECT_TRUE(area.contains(QPointF(750, 750))) << rule;	// the island
	}
	// fill mode before each: alternate (the initial state) and winding
	const int first = f.indexOf(T_POLYPOLYGON16);
	EXPECT_EQ(f.stateBefore(T_SETPOLYFILLMODE, first), 1u);
	EXPECT_EQ(f.stateBefore(T_SETPOLYFILLMODE, f.indexOf(T_POLYPOLYGON16, first + 1)), 2u);
	ASSERT_EQ(f.count(T_POLYPOLYGON), 1u);
	EXPECT_EQ(polyPolyPoints(*f.ofType(T_POLYPOLYGON)[0])[1], (Points{ { 45000, 0 }, { 45150, 0 }, { 45150, 150 }, { 45000, 150 } }));

	const std::vector<const Record *> small = f.ofType(T_POLYLINE16);
	ASSERT_EQ(small.size(), 2u);
	// the flattened curve runs from end to end through its midpoint (100, 100), within a pixel
	const std::vector<Point> curve = polyPoints(*small[0]);
	ASSERT_GT(curve.size(), 10u);
	EXPECT_EQ(curve.front(), (Point{0, 1500}));
	EXPECT_EQ(curve.back(), (Point{3000, 1500}));
	EXPECT_TRUE(std::any_of(curve.begin(), curve.end(), [](const Point & q) { return std::abs(q.x - 1500) <= 60 && std::abs(q.y - 1500) <= 15; }));
	EXPECT_EQ(polyPoints(*small[1]), (Points{ { 0, 900 }, { 32760, 900 } }));
	ASSERT_EQ(f.count(T_POLYLINE), 1u);
	EXPECT_EQ(polyPoints(*f.ofType(T_POLYLINE)[0]), (Points{ { 0, 750 }, { 45000, 750 } }));
}


TEST(EMFPaintDevice, TextFontsColoursAndOrientation) {
	QFont sans("DejaVu Sans");
	sans.setPixelSize(20);
	QFont serif("DejaVu Serif", 12);		// 12 pt at 96 dpi = 16 px
	serif.setBold(true);
	serif.setItalic(true);
	serif.setUnderline(true);				// QPainter draws the line: not a font attribute
	QFont small("DejaVu Sans");
	small.setPixelSize(12);
	File f = paintAndParse("text.emf", QSize(400, 300), [&](QPainter & p) {
		p.setFont(sans);
		p.setPen(QColor(255, 0, 0));
		p.drawText(QPointF(20, 50), "Hello");
		p.setFont(serif);
		p.setPen(QColor(0, 0, 255));
		p.drawText(QPointF(20, 100), QString::fromUtf8("Größe °C"));
		p.setFont(QFont("Monospace", 10));
		p.drawText(QPointF(0, 40), "b");
		p.setFont(small);
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
		p.scale(-1, 1);							// mirrored text cannot be a text record: outlines
		p.drawText(QPointF(-150, 50), "Mirror");
	});
	struct Expected { QString text; Point reference; int32_t height, escapement, weight; uint8_t italic; QString face; uint32_t colour; };
	const std::vector<Expected> expected = {
		{"Hello", Point{300, 750}, -300, 0, 400, 0, "DejaVu Sans", 0x000000FF},
		{QString::fromUtf8("Größe °C"), Point{300, 1500}, -240, 0, 700, 1, "DejaVu Serif", 0x00FF0000},
		{"b", Point{0, 600}, -200, 0, 400, 0, "Courier New", 0x00FF0000},
		{"Axis", Point{450, 3000}, -180, 900, 400, 0, "DejaVu Sans", 0x00FF0000},
		{"Right", Point{5550, 1650}, -180, 2700, 400, 0, "DejaVu Sans", 0x00FF0000},	// (370, 110) * 15
		{"Big", Point{1500, 1500}, -360, 0, 400, 0, "DejaVu Sans", 0x00FF0000}};
	const std::vector<const Record *> texts = f.ofType(T_EXTTEXTOUTW);
	ASSERT_EQ(texts.size(), expected.size());
	for (size_t i = 0; i < texts.size(); ++i) {
		const Expected & e = expected[i];
		SCOPED_TRACE(e.text.toStdString());
		const Text t = decodeText(*texts[i]);
		EXPECT_EQ(t.text, e.text);
		EXPECT_EQ(t.reference, e.reference);
		EXPECT_EQ(t.dx.size(), size_t(e.text.size()));
		ASSERT_NE(f.object(*texts[i], FONT), nullptr);
		EXPECT_EQ(f.object(*texts[i], FONT)->size, 332u);		// LogFontPanose form
		const Font fo = decodeFont(*f.object(*texts[i], FONT));
		EXPECT_EQ(std::vector<int>({fo.height, fo.escapement, fo.orientation, fo.weight, fo.italic, fo.underline}),
				  std::vector<int>({e.height, e.escapement, e.escapement, e.weight, e.italic, 0}));
		EXPECT_EQ(fo.face, e.face);
		EXPECT_EQ(f.stateBefore(T_SETTEXTCOLOR, int(texts[i] - f.records.data())), e.colour);
	}
	EXPECT_EQ(decodeFont(*f.object(*texts[2], FONT)).pitchAndFamily & 0xF0, 0x30);		// FF_MODERN
	// the advances are lengths along the baseline, also for rotated text
	EXPECT_NEAR(advance(*texts[0]), QFontMetricsF(sans).horizontalAdvance("Hello") * 15, 2);
	EXPECT_NEAR(advance(*texts[4]), QFontMetricsF(small).horizontalAdvance("Right") * 15, 2);
	EXPECT_GE(f.count(T_POLYPOLYGON16) + f.count(T_POLYGON16), 1u);	// the mirrored text
}


TEST(EMFPaintDevice, ClipRectanglesRestoreAndClipPaths) {
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
	const std::vector<const Record *> clips = f.ofType(T_INTERSECTCLIPRECT);
	ASSERT_EQ(clips.size(), 2u);
	EXPECT_EQ(clips[0]->rect(8), (Rect{150, 150, 900, 750}));
	EXPECT_EQ(clips[1]->rect(8), (Rect{750, 300, 1800, 900}));
	std::vector<uint32_t> seq;
	for (const Record & r : f.records)
		if (r.type == T_SAVEDC || r.type == T_RESTOREDC || r.type == T_INTERSECTCLIPRECT || r.type == T_POLYLINE16)
			seq.push_back(r.type);
	EXPECT_EQ(seq, (std::vector<uint32_t>{ T_SAVEDC, T_INTERSECTCLIPRECT, T_POLYLINE16, T_RESTOREDC, T_POLYLINE16,
										   T_SAVEDC, T_INTERSECTCLIPRECT, T_POLYLINE16, T_RESTOREDC, T_POLYLINE16 }));
	EXPECT_EQ(f.ofType(T_RESTOREDC)[0]->i32(8), -1);	// one level back

	// a clip that is no rectangle becomes a clip path: the outline between BEGINPATH and ENDPATH
	File g = paintAndParse("clippath.emf", QSize(200, 200), [](QPainter & p) {
		QPainterPath ellipse;
		ellipse.addEllipse(QRectF(10, 10, 100, 60));
		p.setClipPath(ellipse);
		p.fillRect(QRectF(0, 0, 200, 200), Qt::red);
	});
	const int save = g.indexOf(T_SAVEDC), begin = g.indexOf(T_BEGINPATH), poly = g.indexOf(T_POLYGON16, begin);
	const int end = g.indexOf(T_ENDPATH, begin), select = g.indexOf(T_SELECTCLIPPATH, end), fill = g.indexOf(T_RECTANGLE, select);
	ASSERT_TRUE(save >= 0 && save < begin && begin < poly && poly < end && end < select && select < fill);
	EXPECT_EQ(g.records[size_t(select)].u32(8), 5u);		// RGN_COPY
	EXPECT_EQ(g.records[size_t(poly)].rect(8), (Rect{150, 150, 1650, 1050}));
}


TEST(EMFPaintDevice, ImagesAsStretchDibits) {
	QImage img(2, 2, QImage::Format_ARGB32);
	img.setPixel(0, 0, qRgb(255, 0, 0));
	img.setPixel(1, 0, qRgb(0, 255, 0));
	img.setPixel(0, 1, qRgb(0, 0, 255));
	img.setPixel(1, 1, qRgba(0, 0, 0, 0));		// transparent: blended over white
	QImage blue(4, 4, QImage::Format_RGB32);
	blue.fill(Qt::blue);
	File f = paintAndParse("image.emf", QSize(200, 200), [&](QPainter & p) {
		p.drawImage(QRectF(10, 20, 40, 30), img);
		p.drawImage(QRectF(100, 100, 20, 20), img, QRectF(1, 0, 1, 2));	// right column only
		p.translate(100, 100);
		p.rotate(45);
		p.drawImage(QRectF(-20, -20, 40, 40), blue);
	});
	const std::vector<const Record *> images = f.ofType(T_STRETCHDIBITS);
	ASSERT_EQ(images.size(), 3u);
	const Image im = decodeImage(*images[0]);
	EXPECT_EQ(std::vector<int>({im.xDest, im.yDest, im.cxDest, im.cyDest, im.cxSrc, im.cySrc, im.width, im.height}),
			  std::vector<int>({150, 300, 600, 450, 2, 2, 2, 2}));		// positive height: bottom-up rows
	// 24 bits, uncompressed, SRCCOPY; 2 rows of 6 bytes padded to 8
	EXPECT_EQ(std::vector<uint32_t>({im.bitCount, im.compression, im.rop, uint32_t(im.bits.size())}),
			  std::vector<uint32_t>({24, 0, 0x00CC0020u, 16}));
	EXPECT_EQ(std::vector<uint32_t>({im.pixel(0, 0), im.pixel(1, 0), im.pixel(0, 1), im.pixel(1, 1)}),
			  std::vector<uint32_t>({0xFF0000u, 0x00FF00u, 0x0000FFu, 0xFFFFFFu}));
	const Image part = decodeImage(*images[1]);
	EXPECT_EQ(std::vector<int>({part.width, part.height, part.cxDest}), std::vector<int>({1, 2, 300}));
	EXPECT_EQ(std::vector<uint32_t>({part.pixel(0, 0), part.pixel(0, 1)}), std::vector<uint32_t>({0x00FF00u, 0xFFFFFFu}));
	// the rotated image is rasterised into its bounding box (100 +- 28.3 px) and clipped by its outline
	const Image rotated = decodeImage(*images[2]);
	EXPECT_EQ(f.count(T_SELECTCLIPPATH), 1u);
	EXPECT_NEAR(rotated.xDest, (100 - 28.28) * 15, 20);
	EXPECT_NEAR(rotated.cxDest, 56.57 * 15, 30);
	EXPECT_EQ(rotated.pixel(rotated.width / 2, rotated.height / 2), 0x0000FFu);
}


TEST(EMFPaintDevice, WriteFailuresAreReported) {
	EMF::PaintDevice dev(scratchFile("no-such-dir/sub/x.emf"), QSize(100, 100), 96);
	QPainter p;
	EXPECT_FALSE(p.begin(&dev));
	EXPECT_NE(dev.errorMessage().find("x.emf"), std::string::npos);
	EXPECT_THROW(dev.throwIfError(), ZEB::Exception);

	if (!QFile::exists("/dev/full"))
		GTEST_SKIP() << "/dev/full is not available";
	EMF::PaintDevice full("/dev/full", QSize(100, 100), 96);
	ASSERT_TRUE(p.begin(&full));
	p.drawLine(0, 0, 10, 10);
	EXPECT_FALSE(p.end());
	EXPECT_NE(full.errorMessage().find("[EMF::PaintEngine::end]"), std::string::npos) << full.errorMessage();
	EXPECT_THROW(full.throwIfError(), ZEB::Exception);
}
