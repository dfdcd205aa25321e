#include "EMF_PaintEngine.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <vector>

#include <QFile>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QRegion>
#include <QTextItem>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "EMF_Constants.h"
#include "EMF_PaintDevice.h"
#include "EMF_RecordWriter.h"

namespace EMF {

namespace {

/*! GDI coordinates must stay within 2^27 (see [MS-EMF] on coordinate ranges). */
const double COORD_LIMIT = 134217727.0;

const double PI = 3.14159265358979323846;

/*! Most GDI objects that are kept alive at the same time before unused ones are deleted. */
const size_t MAX_LIVE_OBJECTS = 64;

struct Pt {
	int32_t x;
	int32_t y;
	bool operator==(const Pt & o) const { return x == o.x && y == o.y; }
	bool operator!=(const Pt & o) const { return !(*this == o); }
};

typedef std::vector<Pt> Poly;

int32_t toInt(double v) {
	if (!std::isfinite(v))
		return 0;
	if (v > COORD_LIMIT)
		v = COORD_LIMIT;
	else if (v < -COORD_LIMIT)
		v = -COORD_LIMIT;
	return int32_t(std::lround(v));
}

bool fits16(const Poly & p) {
	for (const Pt & pt : p)
		if (pt.x < -32768 || pt.x > 32767 || pt.y < -32768 || pt.y > 32767)
			return false;
	return true;
}

RectL boundsOf(const Poly & p) {
	RectL r;
	if (p.empty())
		return r;
	r = RectL(p[0].x, p[0].y, p[0].x, p[0].y);
	for (const Pt & pt : p) {
		r.left = std::min(r.left, pt.x);
		r.top = std::min(r.top, pt.y);
		r.right = std::max(r.right, pt.x);
		r.bottom = std::max(r.bottom, pt.y);
	}
	return r;
}

/*! Removes consecutive duplicates (after rounding to integers). */
void dedupe(Poly & p) {
	if (p.size() < 2)
		return;
	Poly out;
	out.reserve(p.size());
	out.push_back(p[0]);
	for (size_t i = 1; i < p.size(); ++i)
		if (p[i] != out.back())
			out.push_back(p[i]);
	p.swap(out);
}

/*! Twice the signed area of a figure; positive when it runs clockwise on screen (y down). */
double doubleArea(const Poly & p) {
	double a = 0;
	for (size_t i = 0, j = p.size() - 1; i < p.size(); j = i++)
		a += double(p[j].x) * p[i].y - double(p[i].x) * p[j].y;
	return a;
}

/*! Where a point lies relative to a figure: 1 inside, -1 outside, 0 on its outline. Exact, as
	the coordinates are integers.
*/
int pointInFigure(const Pt & q, const Poly & p) {
	bool inside = false;
	for (size_t i = 0, j = p.size() - 1; i < p.size(); j = i++) {
		const Pt & a = p[j];
		const Pt & b = p[i];
		const int64_t cross = int64_t(b.x - a.x) * (q.y - a.y) - int64_t(b.y - a.y) * (q.x - a.x);
		if (cross == 0 && std::min(a.x, b.x) <= q.x && q.x <= std::max(a.x, b.x)
			&& std::min(a.y, b.y) <= q.y && q.y <= std::max(a.y, b.y))
		{
			return 0;
		}
		// the edge crosses the horizontal ray to the right of q
		if ((a.y > q.y) != (b.y > q.y) && (cross > 0) == (b.y > a.y))
			inside = !inside;
	}
	return inside ? 1 : -1;
}

/*! True when figure inner lies inside figure outer, judged by the first of its points that is
	not on the outline of outer.
*/
bool figureInside(const Poly & inner, const Poly & outer) {
	for (const Pt & q : inner) {
		const int where = pointInFigure(q, outer);
		if (where != 0)
			return where > 0;
	}
	return false;
}

/*! Lets figures that are filled with the alternate rule run so that the winding rule fills the
	same area: a figure inside an odd number of others (a hole) runs against the figures around
	it. Readers that ignore the fill mode of the file then still draw holes as holes. Exact for
	figures that do not cross each other, as Qt's frames, rings and glyph outlines.
*/
void orientForEitherFillRule(std::vector<Poly> & polys) {
	if (polys.size() < 2)
		return;
	std::vector<RectL> bounds;
	for (const Poly & p : polys)
		bounds.push_back(boundsOf(p));
	for (size_t i = 0; i < polys.size(); ++i) {
		int depth = 0;
		for (size_t j = 0; j < polys.size(); ++j) {
			const RectL & bi = bounds[i];
			const RectL & bj = bounds[j];
			if (j != i && bi.left >= bj.left && bi.right <= bj.right && bi.top >= bj.top && bi.bottom <= bj.bottom
				&& figureInside(polys[i], polys[j]))
			{
				++depth;
			}
		}
		const double area = doubleArea(polys[i]);
		if ((depth % 2 == 0 && area < 0) || (depth % 2 == 1 && area > 0))
			std::reverse(polys[i].begin(), polys[i].end());
	}
}

/*! Little-endian byte builder for object payloads (the part of a create record after the handle). */
struct Bytes {
	QByteArray b;
	void u8(uint8_t v) { b.append(char(v)); }
	void u16(uint16_t v) { b.append(char(v & 0xFF)); b.append(char(v >> 8)); }
	void u32(uint32_t v) { for (int i = 0; i < 4; ++i) b.append(char((v >> (8 * i)) & 0xFF)); }
	void i32(int32_t v) { u32(uint32_t(v)); }
	void utf16(const QString & s, int chars) {
		for (int i = 0; i < chars; ++i)
			u16(i < s.size() ? s.at(i).unicode() : 0);
	}
};

/*! Blends a colour with the given opacity over white (EMF has no alpha for pens, brushes, text). */
uint32_t colorRef(const QColor & color, double opacity) {
	QColor c = color.toRgb();
	double a = std::max(0.0, std::min(1.0, c.alphaF() * opacity));
	auto chan = [a](double v) { return uint32_t(std::lround(255.0 * (v * a + (1.0 - a)))); };
	return chan(c.redF()) | (chan(c.greenF()) << 8) | (chan(c.blueF()) << 16);
}

/*! Average colour of a gradient over its stops (weighted by the interval each stop covers). */
QColor gradientAverage(const QGradient * g) {
	QGradientStops stops = g->stops();
	if (stops.isEmpty())
		return QColor(Qt::black);
	if (stops.size() == 1)
		return stops.front().second;
	double r = 0, gr = 0, b = 0, a = 0, total = 0;
	// constant colour before the first and after the last stop
	auto add = [&](const QColor & c1, const QColor & c2, double w) {
		r  += 0.5 * (c1.redF() + c2.redF()) * w;
		gr += 0.5 * (c1.greenF() + c2.greenF()) * w;
		b  += 0.5 * (c1.blueF() + c2.blueF()) * w;
		a  += 0.5 * (c1.alphaF() + c2.alphaF()) * w;
		total += w;
	};
	add(stops.front().second, stops.front().second, stops.front().first);
	for (int i = 1; i < stops.size(); ++i)
		add(stops[i - 1].second, stops[i].second, stops[i].first - stops[i - 1].first);
	add(stops.back().second, stops.back().second, 1.0 - stops.back().first);
	if (total <= 0)
		return stops.front().second;
	return QColor::fromRgbF(r / total, gr / total, b / total, a / total);
}

/*! The one colour a brush degrades to when it cannot be written as solid or hatched brush. */
QColor brushColor(const QBrush & brush) {
	switch (brush.style()) {
		case Qt::LinearGradientPattern:
		case Qt::RadialGradientPattern:
		case Qt::ConicalGradientPattern:
			if (brush.gradient())
				return gradientAverage(brush.gradient());
			return brush.color();
		case Qt::TexturePattern: {
			QImage img = brush.textureImage();
			if (img.isNull())
				return brush.color();
			QImage one = img.convertToFormat(QImage::Format_ARGB32).scaled(1, 1, Qt::IgnoreAspectRatio,
																		  Qt::SmoothTransformation);
			return QColor::fromRgba(one.pixel(0, 0));
		}
		default:
			return brush.color();
	}
}

/*! Qt5 font weight (0..99) to the LogFont weight (100..900). */
int32_t winWeight(int qtWeight) {
	static const int qt[]  = { 0, 12, 25, 50, 57, 63, 75, 81, 87 };
	static const int win[] = { 100, 200, 300, 400, 500, 600, 700, 800, 900 };
	int best = 0;
	for (int i = 1; i < 9; ++i)
		if (std::abs(qt[i] - qtWeight) < std::abs(qt[best] - qtWeight))
			best = i;
	return win[best];
}

/*! Face name written into the LogFont: fontconfig aliases become the common Windows faces. */
QString faceName(const QFont & font) {
	QString fam = font.family().trimmed();
	if (fam.isEmpty())
		fam = QFontInfo(font).family();
	const QString l = fam.toLower();
	if (l == "sans serif" || l == "sans-serif" || l == "sans" || l == "helvetica" || l.isEmpty())
		return QStringLiteral("Arial");
	if (l == "serif" || l == "times")
		return QStringLiteral("Times New Roman");
	if (l == "monospace" || l == "mono" || l == "courier")
		return QStringLiteral("Courier New");
	return fam.left(31);
}

uint8_t pitchAndFamily(const QFont & font, const QString & face) {
	uint8_t pitch = QFontInfo(font).fixedPitch() ? FIXED_PITCH : VARIABLE_PITCH;
	switch (font.styleHint()) {
		case QFont::SansSerif:		return pitch | FF_SWISS;
		case QFont::Serif:			return pitch | FF_ROMAN;
		case QFont::TypeWriter:
		case QFont::Monospace:		return FIXED_PITCH | FF_MODERN;
		case QFont::Cursive:		return pitch | FF_SCRIPT;
		case QFont::Decorative:
		case QFont::Fantasy:		return pitch | FF_DECORATIVE;
		default: break;
	}
	const QString l = face.toLower();
	if (l.contains("courier") || l.contains("mono") || l.contains("consolas"))
		return FIXED_PITCH | FF_MODERN;
	if (l.contains("times") || l.contains("serif") || l.contains("georgia") || l.contains("roman"))
		return pitch | FF_ROMAN;
	if (l.contains("arial") || l.contains("helvetica") || l.contains("sans") || l.contains("verdana")
		|| l.contains("tahoma") || l.contains("segoe") || l.contains("calibri"))
		return pitch | FF_SWISS;
	return pitch | FF_DONTCARE;
}

/*! A clip area in device pixel coordinates. */
struct Clip {
	enum Kind { None, Rect, Path };
	Kind			kind = None;
	QRectF			rect;		///< Rect: the rectangle (may be empty: everything clipped)
	QPainterPath	path;		///< Path: the area

	QPainterPath toPath() const {
		QPainterPath p;
		if (kind == Rect)
			p.addRect(rect);
		else if (kind == Path)
			p = path;
		return p;
	}
	QRectF bounds() const {
		if (kind == Rect)
			return rect;
		return path.boundingRect();
	}
};

/*! Builds a clip from a path in device coordinates, recognising axis-parallel rectangles. */
Clip clipFromPath(const QPainterPath & devPath) {
	Clip c;
	if (devPath.isEmpty()) {
		c.kind = Clip::Rect;
		c.rect = QRectF();
		return c;
	}
	bool onlyLines = true;
	for (int i = 0; i < devPath.elementCount(); ++i)
		if (devPath.elementAt(i).isCurveTo())
			onlyLines = false;
	if (onlyLines && devPath.elementCount() <= 5) {
		QRectF br = devPath.boundingRect();
		const double eps = 1e-9 * std::max(1.0, std::max(std::fabs(br.right()), std::fabs(br.bottom())));
		bool rect = true;
		for (int i = 0; i < devPath.elementCount(); ++i) {
			QPointF pt = devPath.elementAt(i);
			bool xOk = std::fabs(pt.x() - br.left()) <= eps || std::fabs(pt.x() - br.right()) <= eps;
			bool yOk = std::fabs(pt.y() - br.top()) <= eps || std::fabs(pt.y() - br.bottom()) <= eps;
			if (!xOk || !yOk)
				rect = false;
		}
		if (rect && devPath.elementCount() >= 4) {
			c.kind = Clip::Rect;
			c.rect = br;
			return c;
		}
	}
	c.kind = Clip::Path;
	c.path = devPath;
	return c;
}

Clip clipFromRegion(const QRegion & region, const QTransform & xf) {
	if (region.rectCount() == 1 && xf.type() <= QTransform::TxScale) {
		Clip c;
		c.kind = Clip::Rect;
		c.rect = xf.mapRect(QRectF(region.boundingRect()));
		return c;
	}
	QPainterPath p;
	p.addRegion(region);
	return clipFromPath(xf.map(p));
}

Clip intersectClips(const Clip & a, const Clip & b) {
	if (a.kind == Clip::None)
		return b;
	if (b.kind == Clip::None)
		return a;
	if (a.kind == Clip::Rect && b.kind == Clip::Rect) {
		Clip c;
		c.kind = Clip::Rect;
		c.rect = a.rect.intersected(b.rect);
		return c;
	}
	return clipFromPath(a.toPath().intersected(b.toPath()));
}

/*! Pen properties resolved for EMF. */
struct PenInfo {
	bool		visible = false;
	uint32_t	style = 0;
	uint32_t	width = 1;
	uint32_t	color = 0;
	uint32_t	miter = 10;
	std::vector<uint32_t> dashes;
};

/*! Brush properties resolved for EMF. */
struct BrushInfo {
	bool		visible = false;
	uint32_t	style = BS_SOLID;
	uint32_t	color = 0;
	uint32_t	hatch = 0;
};

} // namespace


class PaintEngine::Private {
public:
	/*! GDI object kinds, used to know which slot an object is selected into. */
	enum ObjectKind { KindPen = 0, KindBrush = 1, KindFont = 2 };

	/*! The part of the playback device context the engine keeps track of. */
	struct DcState {
		uint32_t selected[3] = { BLACK_PEN, WHITE_BRUSH, DEVICE_DEFAULT_FONT };
		uint32_t textColor	= 0;
		uint32_t bkMode		= BKMODE_OPAQUE;
		uint32_t polyFill	= POLYFILL_ALTERNATE;
		uint32_t miter		= 10;
		uint32_t stretch	= 0;
		uint32_t textAlign	= 0;
	};

	struct Object {
		uint32_t	handle = 0;
		uint64_t	lastUse = 0;
	};

	PaintDevice *	m_dev = nullptr;
	QFile			m_file;
	RecordWriter	m_w;
	double			m_S = 1;			///< logical units per device pixel

	// painter state
	QPen			m_pen;
	QBrush			m_brush;
	QTransform		m_xf;				///< world transform (device pixels)
	QTransform		m_full;				///< world transform followed by the logical scale
	double			m_opacity = 1;
	QPainter::RenderHints m_hints;
	bool			m_clipEnabled = false;
	Clip			m_clip;

	// what the file's device context looks like
	DcState			m_dc;
	std::vector<DcState> m_saved;
	Clip			m_emittedClip;
	bool			m_clipSaved = false;

	std::map<QByteArray, Object> m_objects;
	uint64_t		m_useCounter = 0;

	void reset();
	void writeInitialState();
	void finishObjects();

	// device context helpers
	void saveDc();
	void restoreDc();
	void setDcValue(uint32_t & slot, uint32_t value, uint32_t recordType);
	void select(int kind, uint32_t handle);
	/*! The handle of an object with this create record content, created (and an unused object
		deleted) when needed.
	*/
	uint32_t object(uint32_t recordType, const QByteArray & payload);

	// state resolution
	PenInfo penInfo() const;
	BrushInfo brushInfo(const QBrush & brush) const;
	uint32_t penObject(const PenInfo & p);
	uint32_t brushObject(const BrushInfo & b);
	void prepare(const PenInfo & pen, const BrushInfo & brush);
	void syncClip();
	void emitClip(const Clip & clip);
	void emitPathClip(const QPainterPath & devPath, uint32_t mode);

	// geometry
	Pt map(const QPointF & p) const {
		QPointF q = m_full.map(p);
		return Pt{ toInt(q.x()), toInt(q.y()) };
	}
	Poly mapPolygon(const QPolygonF & poly, const QTransform & t) const;

	// records
	void writePoly(uint32_t type16, uint32_t type32, const Poly & p);
	void writePolyPoly(uint32_t type16, uint32_t type32, const std::vector<Poly> & polys);
	void writeBox(uint32_t type, const RectL & box);

	/*! Draws polygons/polylines with the current pen and (if fill) brush.
		\param polys Mapped polygons (logical units).
		\param closed Stroke as closed figures (Qt closes polygons, not open path subpaths).
		\param fill Fill with the brush.
		\param fillMode POLYFILL_ALTERNATE or POLYFILL_WINDING.
	*/
	void drawShapes(std::vector<Poly> polys, const std::vector<bool> & closed, bool fill, uint32_t fillMode);
	void drawPathWith(const QPainterPath & path, const QTransform & t, bool stroke, bool fill);
	void drawDots(const std::vector<QPointF> & points);
	void drawTextAsPath(const QPointF & p, const QString & text, const QFont & font, double pixelSize);
	void writeImage(const QRectF & r, const QImage & image, const QRectF & sr);
	void writeAlignedImage(const QRectF & r, const QImage & image);
};


void PaintEngine::Private::reset() {
	m_w = RecordWriter();
	m_pen = QPen();
	m_brush = QBrush();
	m_xf = QTransform();
	m_full = QTransform::fromScale(m_S, m_S);
	m_opacity = 1;
	m_hints = QPainter::RenderHints();
	m_clipEnabled = false;
	m_clip = Clip();
	m_dc = DcState();
	m_saved.clear();
	m_emittedClip = Clip();
	m_clipSaved = false;
	m_objects.clear();
	m_useCounter = 0;
}


void PaintEngine::Private::writeInitialState() {
	m_w.writeRecord(EMR_SETMAPMODE, MM_TEXT);
	m_dc.bkMode = BKMODE_OPAQUE;
	setDcValue(m_dc.bkMode, BKMODE_TRANSPARENT, EMR_SETBKMODE);
	m_dc.textAlign = 0xFFFFFFFF;
	setDcValue(m_dc.textAlign, TA_BASELINE | TA_LEFT, EMR_SETTEXTALIGN);
	m_dc.textColor = 0xFFFFFFFF;
	setDcValue(m_dc.textColor, 0, EMR_SETTEXTCOLOR);
	m_dc.polyFill = 0;
	setDcValue(m_dc.polyFill, POLYFILL_ALTERNATE, EMR_SETPOLYFILLMODE);
	m_dc.stretch = 0;
	setDcValue(m_dc.stretch, COLORONCOLOR, EMR_SETSTRETCHBLTMODE);
}


void PaintEngine::Private::finishObjects() {
	while (!m_saved.empty())
		restoreDc();
	m_clipSaved = false;
	m_emittedClip = Clip();
	// deselect created objects before deleting them
	static const uint32_t stock[3] = { BLACK_PEN, WHITE_BRUSH, DEVICE_DEFAULT_FONT };
	for (int k = 0; k < 3; ++k)
		if (!(m_dc.selected[k] & STOCK_OBJECT_FLAG))
			select(k, stock[k]);
	// delete in handle order (deterministic output)
	std::vector<uint32_t> handles;
	for (const auto & o : m_objects)
		handles.push_back(o.second.handle);
	std::sort(handles.begin(), handles.end());
	for (uint32_t h : handles) {
		m_w.writeRecord(EMR_DELETEOBJECT, h);
		m_w.releaseHandle(h);
	}
	m_objects.clear();
}


void PaintEngine::Private::saveDc() {
	m_w.writeRecord(EMR_SAVEDC);
	m_saved.push_back(m_dc);
}


void PaintEngine::Private::restoreDc() {
	Q_ASSERT(!m_saved.empty());
	m_w.beginRecord(EMR_RESTOREDC);
	m_w.writeI32(-1);
	m_w.endRecord();
	m_dc = m_saved.back();
	m_saved.pop_back();
}


void PaintEngine::Private::setDcValue(uint32_t & slot, uint32_t value, uint32_t recordType) {
	if (slot == value)
		return;
	m_w.writeRecord(recordType, value);
	slot = value;
}


void PaintEngine::Private::select(int kind, uint32_t handle) {
	if (m_dc.selected[kind] == handle)
		return;
	m_w.writeRecord(EMR_SELECTOBJECT, handle);
	m_dc.selected[kind] = handle;
}


uint32_t PaintEngine::Private::object(uint32_t recordType, const QByteArray & payload) {
	QByteArray key;
	key.append(char(recordType));
	key.append(payload);
	auto it = m_objects.find(key);
	if (it != m_objects.end()) {
		it->second.lastUse = ++m_useCounter;
		return it->second.handle;
	}
	// keep the handle table small: delete the least recently used object nobody has selected
	while (m_objects.size() >= MAX_LIVE_OBJECTS) {
		auto victim = m_objects.end();
		for (auto o = m_objects.begin(); o != m_objects.end(); ++o) {
			bool inUse = false;
			for (int k = 0; k < 3; ++k) {
				if (m_dc.selected[k] == o->second.handle)
					inUse = true;
				for (const DcState & s : m_saved)
					if (s.selected[k] == o->second.handle)
						inUse = true;
			}
			if (inUse)
				continue;
			if (victim == m_objects.end() || o->second.lastUse < victim->second.lastUse)
				victim = o;
		}
		if (victim == m_objects.end())
			break; // everything is in use (deeply nested saves): grow the table instead
		m_w.writeRecord(EMR_DELETEOBJECT, victim->second.handle);
		m_w.releaseHandle(victim->second.handle);
		m_objects.erase(victim);
	}
	Object obj;
	obj.handle = m_w.allocateHandle();
	obj.lastUse = ++m_useCounter;
	m_w.beginRecord(recordType);
	m_w.writeU32(obj.handle);
	m_w.writeBytes(payload.constData(), payload.size());
	m_w.endRecord();
	m_objects[key] = obj;
	return obj.handle;
}


PenInfo PaintEngine::Private::penInfo() const {
	PenInfo p;
	if (m_pen.style() == Qt::NoPen)
		return p;
	QColor c = (m_pen.brush().style() == Qt::SolidPattern || m_pen.brush().style() == Qt::NoBrush)
			? m_pen.color() : brushColor(m_pen.brush());
	if (c.alpha() == 0 || m_opacity <= 0)
		return p;
	p.visible = true;
	p.color = colorRef(c, m_opacity);

	// width in logical units: cosmetic pens are device pixels, others scale with the transform
	double w = m_pen.widthF();
	if (m_pen.isCosmetic()) {
		w = std::max(1.0, w) * m_S;
	}
	else {
		double det = std::fabs(m_xf.m11() * m_xf.m22() - m_xf.m12() * m_xf.m21());
		w = w * std::sqrt(det) * m_S;
	}
	p.width = uint32_t(std::max<long>(1, std::lround(std::min(w, COORD_LIMIT))));

	uint32_t style = PS_GEOMETRIC;
	switch (m_pen.capStyle()) {
		case Qt::FlatCap:	style |= PS_ENDCAP_FLAT; break;
		case Qt::RoundCap:	style |= PS_ENDCAP_ROUND; break;
		default:			style |= PS_ENDCAP_SQUARE; break;
	}
	switch (m_pen.joinStyle()) {
		case Qt::RoundJoin:	style |= PS_JOIN_ROUND; break;
		case Qt::BevelJoin:	style |= PS_JOIN_BEVEL; break;
		default:			style |= PS_JOIN_MITER; break;
	}
	switch (m_pen.style()) {
		case Qt::DashLine:			style |= PS_DASH; break;
		case Qt::DotLine:			style |= PS_DOT; break;
		case Qt::DashDotLine:		style |= PS_DASHDOT; break;
		case Qt::DashDotDotLine:	style |= PS_DASHDOTDOT; break;
		case Qt::CustomDashLine: {
			QVector<qreal> pattern = m_pen.dashPattern();
			double unit = p.width;
			for (qreal v : pattern)
				p.dashes.push_back(uint32_t(std::max<long>(1, std::lround(v * unit))));
			if (p.dashes.size() % 2 != 0)
				p.dashes.push_back(p.dashes.back());
			if (p.dashes.empty())
				style |= PS_SOLID;
			else
				style |= PS_USERSTYLE;
			break;
		}
		default:					style |= PS_SOLID; break;
	}
	p.style = style;
	p.miter = uint32_t(std::max(1L, std::lround(m_pen.miterLimit())));
	return p;
}


BrushInfo PaintEngine::Private::brushInfo(const QBrush & brush) const {
	BrushInfo b;
	Qt::BrushStyle st = brush.style();
	if (st == Qt::NoBrush || m_opacity <= 0)
		return b;
	QColor c = brushColor(brush);
	if (c.alpha() == 0)
		return b;
	b.visible = true;
	switch (st) {
		case Qt::HorPattern:		b.style = BS_HATCHED; b.hatch = HS_HORIZONTAL; break;
		case Qt::VerPattern:		b.style = BS_HATCHED; b.hatch = HS_VERTICAL; break;
		case Qt::CrossPattern:		b.style = BS_HATCHED; b.hatch = HS_CROSS; break;
		case Qt::BDiagPattern:		b.style = BS_HATCHED; b.hatch = HS_BDIAGONAL; break;
		case Qt::FDiagPattern:		b.style = BS_HATCHED; b.hatch = HS_FDIAGONAL; break;
		case Qt::DiagCrossPattern:	b.style = BS_HATCHED; b.hatch = HS_DIAGCROSS; break;
		case Qt::Dense1Pattern: case Qt::Dense2Pattern: case Qt::Dense3Pattern: case Qt::Dense4Pattern:
		case Qt::Dense5Pattern: case Qt::Dense6Pattern: case Qt::Dense7Pattern: {
			// dot patterns: solid colour with the pattern's coverage
			static const double coverage[] = { 0.94, 0.88, 0.63, 0.5, 0.37, 0.12, 0.06 };
			double cov = coverage[int(st) - int(Qt::Dense1Pattern)];
			c.setAlphaF(c.alphaF() * cov);
			break;
		}
		default:					b.style = BS_SOLID; break;
	}
	b.color = colorRef(c, m_opacity);
	return b;
}


uint32_t PaintEngine::Private::penObject(const PenInfo & p) {
	if (!p.visible)
		return NULL_PEN;
	Bytes b;
	b.u32(0); b.u32(0); b.u32(0); b.u32(0);	// offBmi, cbBmi, offBits, cbBits: no pattern
	b.u32(p.style);
	b.u32(p.width);
	b.u32(BS_SOLID);
	b.u32(p.color);
	b.u32(0);								// hatch
	b.u32(uint32_t(p.dashes.size()));
	for (uint32_t d : p.dashes)
		b.u32(d);
	// the record always has room for one style entry (the size of the C structure with its
	// one-element array); readers such as libUEMF reject shorter records
	if (p.dashes.empty())
		b.u32(0);
	return object(EMR_EXTCREATEPEN, b.b);
}


uint32_t PaintEngine::Private::brushObject(const BrushInfo & br) {
	if (!br.visible)
		return NULL_BRUSH;
	Bytes b;
	b.u32(br.style);
	b.u32(br.color);
	b.u32(br.hatch);
	return object(EMR_CREATEBRUSHINDIRECT, b.b);
}


void PaintEngine::Private::prepare(const PenInfo & pen, const BrushInfo & brush) {
	syncClip();
	uint32_t ph = penObject(pen);
	uint32_t bh = brushObject(brush);
	select(KindPen, ph);
	select(KindBrush, bh);
	// hatch and dash gaps stay transparent: QPainter emulates Qt's opaque background mode itself
	// (it fills with the background colour first), so the file never needs BKMODE_OPAQUE
	setDcValue(m_dc.bkMode, BKMODE_TRANSPARENT, EMR_SETBKMODE);
	if (pen.visible && (pen.style & PS_JOIN_MITER))
		setDcValue(m_dc.miter, pen.miter, EMR_SETMITERLIMIT);
}


void PaintEngine::Private::syncClip() {
	Clip want = m_clipEnabled ? m_clip : Clip();
	bool same = want.kind == m_emittedClip.kind;
	if (same && want.kind == Clip::Rect)
		same = want.rect == m_emittedClip.rect || (want.rect.isEmpty() && m_emittedClip.rect.isEmpty());
	else if (same && want.kind == Clip::Path)
		same = want.path == m_emittedClip.path;
	if (same)
		return;
	if (m_clipSaved) {
		restoreDc();
		m_clipSaved = false;
	}
	if (want.kind != Clip::None) {
		saveDc();
		m_clipSaved = true;
		emitClip(want);
	}
	m_emittedClip = want;
}


void PaintEngine::Private::emitClip(const Clip & clip) {
	QRectF r = clip.bounds();
	if (clip.kind == Clip::Rect || r.isEmpty()) {
		RectL box(0, 0, 0, 0);
		if (!r.isEmpty())
			box = RectL(toInt(r.left() * m_S), toInt(r.top() * m_S), toInt(r.right() * m_S), toInt(r.bottom() * m_S));
		m_w.beginRecord(EMR_INTERSECTCLIPRECT);
		m_w.writeRect(box);
		m_w.endRecord();
		return;
	}
	emitPathClip(clip.path, RGN_COPY);
}


void PaintEngine::Private::emitPathClip(const QPainterPath & devPath, uint32_t mode) {
	// the area as a path bracket whose figures become the clip region
	QList<QPolygonF> subpaths = devPath.toSubpathPolygons(QTransform::fromScale(m_S, m_S));
	std::vector<Poly> polys;
	for (const QPolygonF & sp : subpaths) {
		Poly p = mapPolygon(sp, QTransform());
		dedupe(p);
		if (p.size() > 2 && p.front() == p.back())
			p.pop_back();
		if (p.size() >= 3)
			polys.push_back(p);
	}
	if (polys.empty()) {
		m_w.beginRecord(EMR_INTERSECTCLIPRECT);
		m_w.writeRect(RectL(0, 0, 0, 0));
		m_w.endRecord();
		return;
	}
	if (devPath.fillRule() == Qt::OddEvenFill)
		orientForEitherFillRule(polys);
	setDcValue(m_dc.polyFill, devPath.fillRule() == Qt::WindingFill ? POLYFILL_WINDING : POLYFILL_ALTERNATE,
			   EMR_SETPOLYFILLMODE);
	m_w.writeRecord(EMR_BEGINPATH);
	if (polys.size() == 1)
		writePoly(EMR_POLYGON16, EMR_POLYGON, polys.front());
	else
		writePolyPoly(EMR_POLYPOLYGON16, EMR_POLYPOLYGON, polys);
	m_w.writeRecord(EMR_ENDPATH);
	m_w.writeRecord(EMR_SELECTCLIPPATH, mode);
}


Poly PaintEngine::Private::mapPolygon(const QPolygonF & poly, const QTransform & t) const {
	Poly p;
	p.reserve(size_t(poly.size()));
	for (const QPointF & q : poly) {
		QPointF m = t.map(q);
		p.push_back(Pt{ toInt(m.x()), toInt(m.y()) });
	}
	return p;
}


void PaintEngine::Private::writePoly(uint32_t type16, uint32_t type32, const Poly & p) {
	const bool small = fits16(p);
	m_w.beginRecord(small ? type16 : type32);
	m_w.writeRect(boundsOf(p));
	m_w.writeU32(uint32_t(p.size()));
	for (const Pt & pt : p) {
		if (small) {
			m_w.writeI16(int16_t(pt.x));
			m_w.writeI16(int16_t(pt.y));
		}
		else {
			m_w.writeI32(pt.x);
			m_w.writeI32(pt.y);
		}
	}
	m_w.endRecord();
}


void PaintEngine::Private::writePolyPoly(uint32_t type16, uint32_t type32, const std::vector<Poly> & polys) {
	bool small = true;
	RectL bounds;
	uint32_t total = 0;
	for (const Poly & p : polys) {
		small = small && fits16(p);
		bounds.unite(boundsOf(p));
		total += uint32_t(p.size());
	}
	m_w.beginRecord(small ? type16 : type32);
	m_w.writeRect(bounds);
	m_w.writeU32(uint32_t(polys.size()));
	m_w.writeU32(total);
	for (const Poly & p : polys)
		m_w.writeU32(uint32_t(p.size()));
	for (const Poly & p : polys) {
		for (const Pt & pt : p) {
			if (small) {
				m_w.writeI16(int16_t(pt.x));
				m_w.writeI16(int16_t(pt.y));
			}
			else {
				m_w.writeI32(pt.x);
				m_w.writeI32(pt.y);
			}
		}
	}
	m_w.endRecord();
}


void PaintEngine::Private::writeBox(uint32_t type, const RectL & box) {
	m_w.beginRecord(type);
	m_w.writeRect(box);
	m_w.endRecord();
}


void PaintEngine::Private::drawShapes(std::vector<Poly> polys, const std::vector<bool> & closed, bool fill,
									  uint32_t fillMode)
{
	PenInfo pen = penInfo();
	BrushInfo brush = fill ? brushInfo(m_brush) : BrushInfo();
	if (!pen.visible && !brush.visible)
		return;

	// clean up: rounding duplicates, closing points (GDI closes polygons itself)
	std::vector<Poly> closedPolys, openPolys, fillPolys;
	for (size_t i = 0; i < polys.size(); ++i) {
		Poly & p = polys[i];
		dedupe(p);
		bool isClosed = closed[i];
		if (p.size() > 2 && p.front() == p.back()) {
			p.pop_back();
			isClosed = true;
		}
		if (p.empty())
			continue;
		if (brush.visible && p.size() >= 3)
			fillPolys.push_back(p);
		if (pen.visible) {
			if (isClosed && p.size() >= 3)
				closedPolys.push_back(p);
			else {
				if (p.size() == 1)
					p.push_back(p.front());
				if (isClosed && p.size() == 2)
					p.push_back(p.front());
				openPolys.push_back(p);
			}
		}
	}

	RectL ink;
	for (const Poly & p : polys)
		ink.unite(boundsOf(p));
	if (ink.isEmpty())
		return;

	if (brush.visible && !fillPolys.empty())
		setDcValue(m_dc.polyFill, fillMode, EMR_SETPOLYFILLMODE);
	if (fillMode == POLYFILL_ALTERNATE)
		orientForEitherFillRule(fillPolys);

	// one record fills and strokes when every stroked figure is closed and they are the same figures
	if (brush.visible && pen.visible && openPolys.empty() && closedPolys.size() == fillPolys.size()) {
		prepare(pen, brush);
		if (fillPolys.size() == 1)
			writePoly(EMR_POLYGON16, EMR_POLYGON, fillPolys.front());
		else if (!fillPolys.empty())
			writePolyPoly(EMR_POLYPOLYGON16, EMR_POLYPOLYGON, fillPolys);
		return;
	}
	if (brush.visible && !fillPolys.empty()) {
		prepare(PenInfo(), brush);
		if (fillPolys.size() == 1)
			writePoly(EMR_POLYGON16, EMR_POLYGON, fillPolys.front());
		else
			writePolyPoly(EMR_POLYPOLYGON16, EMR_POLYPOLYGON, fillPolys);
	}
	if (pen.visible) {
		if (!closedPolys.empty()) {
			prepare(pen, BrushInfo());
			if (closedPolys.size() == 1)
				writePoly(EMR_POLYGON16, EMR_POLYGON, closedPolys.front());
			else
				writePolyPoly(EMR_POLYPOLYGON16, EMR_POLYPOLYGON, closedPolys);
		}
		if (!openPolys.empty()) {
			prepare(pen, BrushInfo());
			if (openPolys.size() == 1)
				writePoly(EMR_POLYLINE16, EMR_POLYLINE, openPolys.front());
			else
				writePolyPoly(EMR_POLYPOLYLINE16, EMR_POLYPOLYLINE, openPolys);
		}
	}
}


void PaintEngine::Private::drawPathWith(const QPainterPath & path, const QTransform & t, bool stroke, bool fill) {
	if (path.isEmpty())
		return;
	// flatten curves in logical units (QPainterPath's flattening tolerance is about half a unit)
	QList<QPolygonF> subpaths = path.toSubpathPolygons(t);
	std::vector<Poly> polys;
	std::vector<bool> closed;
	for (const QPolygonF & sp : subpaths) {
		if (sp.isEmpty())
			continue;
		polys.push_back(mapPolygon(sp, QTransform()));
		closed.push_back(sp.size() > 2 && sp.isClosed());
	}
	QPen savedPen = m_pen;
	if (!stroke)
		m_pen = QPen(Qt::NoPen);
	drawShapes(polys, closed, fill,
			   path.fillRule() == Qt::WindingFill ? POLYFILL_WINDING : POLYFILL_ALTERNATE);
	m_pen = savedPen;
}


void PaintEngine::Private::drawDots(const std::vector<QPointF> & points) {
	// a zero-length line with square or round caps is a dot of the pen's width (as in Qt)
	PenInfo pen = penInfo();
	if (!pen.visible || points.empty())
		return;
	QPen savedPen = m_pen;
	QBrush savedBrush = m_brush;
	QColor c = m_pen.color();
	bool round = m_pen.capStyle() == Qt::RoundCap;
	double half = pen.width / 2.0;
	m_pen = QPen(Qt::NoPen);
	m_brush = QBrush(c);
	BrushInfo brush = brushInfo(m_brush);
	prepare(PenInfo(), brush);
	for (const QPointF & p : points) {
		QPointF q = m_full.map(p);
		RectL box(toInt(q.x() - half), toInt(q.y() - half), toInt(q.x() + half), toInt(q.y() + half));
		writeBox(round ? EMR_ELLIPSE : EMR_RECTANGLE, box);
	}
	m_pen = savedPen;
	m_brush = savedBrush;
}


void PaintEngine::Private::drawTextAsPath(const QPointF & p, const QString & text, const QFont & font,
										  double pixelSize)
{
	// outlines at a reference size of 100 pixels, scaled to the wanted size
	QFont f(font);
	f.setPixelSize(100);
	QPainterPath path;
	path.addText(0, 0, f, text);
	QTransform t = QTransform::fromScale(pixelSize / 100.0, pixelSize / 100.0) * QTransform::fromTranslate(p.x(), p.y());
	QBrush savedBrush = m_brush;
	m_brush = QBrush(m_pen.color());
	drawPathWith(path, t * m_full, false, true);
	m_brush = savedBrush;
}


void PaintEngine::Private::writeImage(const QRectF & r, const QImage & image, const QRectF & sr) {
	if (image.isNull() || r.isEmpty() || m_opacity <= 0)
		return;
	QRect src = sr.toAlignedRect().intersected(image.rect());
	if (src.isEmpty())
		return;
	QImage img = (src == image.rect()) ? image : image.copy(src);
	if (m_xf.type() <= QTransform::TxScale) {
		syncClip();
		writeAlignedImage(r, img);
		return;
	}

	// rotated, sheared or projected: paint the transformed image into an axis-parallel image
	// covering its bounding box, and clip that with the image's outline
	const QPolygonF outline = m_xf.map(QPolygonF(r));
	const QRectF bb = outline.boundingRect();
	if (bb.isEmpty())
		return;
	// pixel size of the raster in device pixels: a device pixel, or finer when the source is finer
	const double srcPixel = std::min(std::fabs(r.width()) / img.width(), std::fabs(r.height()) / img.height())
			* std::sqrt(std::fabs(m_xf.m11() * m_xf.m22() - m_xf.m12() * m_xf.m21()));
	double px = std::max(0.25, std::min(1.0, srcPixel));
	const double maxSide = 4096;
	px = std::max(px, std::max(bb.width(), bb.height()) / maxSide);
	const int ow = std::max(1, int(std::ceil(bb.width() / px)));
	const int oh = std::max(1, int(std::ceil(bb.height() / px)));
	QImage raster(ow, oh, QImage::Format_ARGB32_Premultiplied);
	raster.fill(Qt::transparent);
	{
		QPainter rp(&raster);
		rp.setRenderHint(QPainter::SmoothPixmapTransform, m_hints.testFlag(QPainter::SmoothPixmapTransform));
		QTransform t = QTransform::fromScale(r.width() / img.width(), r.height() / img.height())
				* QTransform::fromTranslate(r.left(), r.top()) * m_xf
				* QTransform::fromTranslate(-bb.left(), -bb.top()) * QTransform::fromScale(1.0 / px, 1.0 / px);
		rp.setTransform(t);
		rp.drawImage(QPointF(0, 0), img);
	}
	syncClip();
	saveDc();
	QPainterPath clipPath;
	clipPath.addPolygon(outline);
	clipPath.closeSubpath();
	emitPathClip(clipPath, RGN_AND);
	const QTransform savedXf = m_xf;
	m_xf = QTransform();
	m_full = QTransform::fromScale(m_S, m_S);
	writeAlignedImage(QRectF(bb.left(), bb.top(), ow * px, oh * px), raster);
	m_xf = savedXf;
	m_full = m_xf * QTransform::fromScale(m_S, m_S);
	restoreDc();
}


void PaintEngine::Private::writeAlignedImage(const QRectF & r, const QImage & image) {
	QImage img = image.convertToFormat(QImage::Format_ARGB32);
	const int w = img.width();
	const int h = img.height();
	const uint32_t rowBytes = (uint32_t(w) * 3 + 3) & ~3u;
	const uint64_t bitsSize64 = uint64_t(rowBytes) * uint64_t(h);
	if (bitsSize64 > 0x7FFF0000ull)
		return; // larger than a record can hold
	const uint32_t bitsSize = uint32_t(bitsSize64);

	const bool smooth = m_hints.testFlag(QPainter::SmoothPixmapTransform);
	setDcValue(m_dc.stretch, smooth ? HALFTONE : COLORONCOLOR, EMR_SETSTRETCHBLTMODE);

	// destination in logical units; a mirroring transform gives negative extents
	const QPointF a = m_full.map(r.topLeft());
	const QPointF b = m_full.map(r.bottomRight());
	const int32_t x0 = toInt(a.x());
	const int32_t y0 = toInt(a.y());
	const int32_t cx = toInt(b.x()) - x0;
	const int32_t cy = toInt(b.y()) - y0;
	const RectL bounds(std::min(x0, x0 + cx), std::min(y0, y0 + cy), std::max(x0, x0 + cx), std::max(y0, y0 + cy));

	m_w.beginRecord(EMR_STRETCHDIBITS);
	m_w.writeRect(bounds);
	m_w.writeI32(x0);
	m_w.writeI32(y0);
	m_w.writeI32(0);		// xSrc
	m_w.writeI32(0);		// ySrc
	m_w.writeI32(w);		// cxSrc
	m_w.writeI32(h);		// cySrc
	m_w.writeU32(80);		// offBmiSrc
	m_w.writeU32(BITMAPINFOHEADER_SIZE);
	m_w.writeU32(80 + BITMAPINFOHEADER_SIZE);	// offBitsSrc
	m_w.writeU32(bitsSize);
	m_w.writeU32(DIB_RGB_COLORS);
	m_w.writeU32(SRCCOPY);
	m_w.writeI32(cx);
	m_w.writeI32(cy);
	// BITMAPINFOHEADER: 24 bit, bottom-up
	const int32_t ppm = toInt(m_dev->resolution() / 0.0254);
	m_w.writeU32(BITMAPINFOHEADER_SIZE);
	m_w.writeI32(w);
	m_w.writeI32(h);
	m_w.writeU16(1);		// planes
	m_w.writeU16(24);		// bit count
	m_w.writeU32(BI_RGB);
	m_w.writeU32(bitsSize);
	m_w.writeI32(ppm);
	m_w.writeI32(ppm);
	m_w.writeU32(0);		// colours used
	m_w.writeU32(0);		// important colours
	// pixels, blended over white with the painter's opacity
	QByteArray row(int(rowBytes), '\0');
	for (int y = h - 1; y >= 0; --y) {
		const QRgb * line = reinterpret_cast<const QRgb *>(img.constScanLine(y));
		char * out = row.data();
		for (int x = 0; x < w; ++x) {
			const QRgb px = line[x];
			int alpha = qAlpha(px);
			if (m_opacity < 1)
				alpha = int(std::lround(alpha * m_opacity));
			if (alpha == 255) {
				out[3 * x]	   = char(qBlue(px));
				out[3 * x + 1] = char(qGreen(px));
				out[3 * x + 2] = char(qRed(px));
			}
			else {
				auto blend = [alpha](int v) { return char((v * alpha + 255 * (255 - alpha) + 127) / 255); };
				out[3 * x]	   = blend(qBlue(px));
				out[3 * x + 1] = blend(qGreen(px));
				out[3 * x + 2] = blend(qRed(px));
			}
		}
		m_w.writeBytes(row.constData(), row.size());
	}
	m_w.endRecord();
}


// *** PaintEngine ***

PaintEngine::PaintEngine() :
	QPaintEngine(QPaintEngine::AllFeatures),
	d(new Private)
{
}


PaintEngine::~PaintEngine() {
}


bool PaintEngine::begin(QPaintDevice * pdev) {
	FUNCID(EMF::PaintEngine::begin);
	PaintDevice * dev = dynamic_cast<PaintDevice *>(pdev);
	if (dev == nullptr)
		return false;
	d->m_dev = dev;
	dev->clearState();
	d->m_S = dev->logicalUnitsPerPixel();
	d->reset();
	if (d->m_file.isOpen())
		d->m_file.close();
	d->m_file.setFileName(dev->fileName());
	if (!dev->fileName().isEmpty() && !d->m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
		dev->setError(ZEB::Exception(ZEB::MessageFormat("Cannot open file '%1' for writing: %2")
									 .arg(dev->fileName().toStdString())
									 .arg(d->m_file.errorString().toStdString()), FUNC_ID));
		return false;
	}
	d->writeInitialState();
	return true;
}


bool PaintEngine::end() {
	FUNCID(EMF::PaintEngine::end);
	PaintDevice * dev = d->m_dev;
	if (dev == nullptr)
		return false;
	d->finishObjects();

	// header: picture in logical units, reference device with the exact logical-units-per-mm ratio
	const double S = d->m_S;
	const double unitsPerMM = S * dev->resolution() / 25.4;
	const QSizeF mm = dev->sizeMM();
	const int32_t W = toInt(dev->size().width() * S);
	const int32_t H = toInt(dev->size().height() * S);
	HeaderInfo info;
	// the whole picture: readers that size the picture by its bounds show the requested size
	info.bounds = RectL(0, 0, W - 1, H - 1);
	info.frame = RectL(0, 0, std::max(0, toInt(mm.width() * 100) - 1), std::max(0, toInt(mm.height() * 100) - 1));
	info.millimetersCx = std::max(1, toInt(mm.width()));
	info.millimetersCy = std::max(1, toInt(mm.height()));
	info.deviceCx = std::max(1, toInt(info.millimetersCx * unitsPerMM));
	info.deviceCy = std::max(1, toInt(info.millimetersCy * unitsPerMM));
	info.micrometersCx = uint32_t(std::lround(info.deviceCx / unitsPerMM * 1000));
	info.micrometersCy = uint32_t(std::lround(info.deviceCy / unitsPerMM * 1000));
	info.description = QStringLiteral("Orvane") + QChar(0) + dev->title() + QChar(0) + QChar(0);

	QByteArray data = d->m_w.finish(info);
	if (dev->fileName().isEmpty()) {
		dev->setData(data);
		d->m_w = RecordWriter();
		d->m_dev = nullptr;
		return true;
	}
	bool ok = d->m_file.isOpen() && d->m_file.write(data) == data.size() && d->m_file.flush();
	QString err = d->m_file.errorString();
	d->m_file.close();
	if (ok && d->m_file.error() != QFileDevice::NoError) {
		ok = false;
		err = d->m_file.errorString();
	}
	if (!ok) {
		dev->setError(ZEB::Exception(ZEB::MessageFormat("Cannot write file '%1': %2")
									 .arg(dev->fileName().toStdString()).arg(err.toStdString()), FUNC_ID));
	}
	else
		dev->setWritten();
	d->m_w = RecordWriter(); // free the memory
	d->m_dev = nullptr;
	return ok;
}


void PaintEngine::updateState(const QPaintEngineState & state) {
	QPaintEngine::DirtyFlags flags = state.state();
	if (flags & DirtyTransform) {
		d->m_xf = state.transform();
		d->m_full = d->m_xf * QTransform::fromScale(d->m_S, d->m_S);
	}
	if (flags & DirtyPen)
		d->m_pen = state.pen();
	if (flags & DirtyBrush)
		d->m_brush = state.brush();
	if (flags & DirtyOpacity)
		d->m_opacity = state.opacity();
	if (flags & DirtyHints)
		d->m_hints = state.renderHints();
	if (flags & DirtyClipEnabled)
		d->m_clipEnabled = state.isClipEnabled();
	if (flags & (DirtyClipRegion | DirtyClipPath)) {
		// clips arrive in the coordinates of the transform that is current with them
		const QTransform xf = state.transform();
		Qt::ClipOperation op = state.clipOperation();
		if (op == Qt::NoClip) {
			d->m_clip = Clip();
			d->m_clipEnabled = false;
		}
		else {
			Clip c = (flags & DirtyClipPath) ? clipFromPath(xf.map(state.clipPath()))
											 : clipFromRegion(state.clipRegion(), xf);
			if (op == Qt::IntersectClip)
				d->m_clip = intersectClips(d->m_clip, c);
			else
				d->m_clip = c;
			d->m_clipEnabled = true;
		}
	}
}


void PaintEngine::drawPath(const QPainterPath & path) {
	d->drawPathWith(path, d->m_full, true, true);
}


void PaintEngine::drawPolygon(const QPointF * points, int pointCount, PolygonDrawMode mode) {
	if (pointCount < 1)
		return;
	QPolygonF poly;
	poly.reserve(pointCount);
	for (int i = 0; i < pointCount; ++i)
		poly.append(points[i]);
	std::vector<Poly> polys(1, d->mapPolygon(poly, d->m_full));
	if (mode == PolylineMode) {
		if (pointCount == 2 && points[0] == points[1]) {
			if (d->m_pen.capStyle() != Qt::FlatCap)
				d->drawDots(std::vector<QPointF>(1, points[0]));
			return;
		}
		d->drawShapes(polys, std::vector<bool>(1, false), false, POLYFILL_ALTERNATE);
	}
	else
		d->drawShapes(polys, std::vector<bool>(1, true), true,
					  mode == WindingMode ? POLYFILL_WINDING : POLYFILL_ALTERNATE);
}


void PaintEngine::drawPolygon(const QPoint * points, int pointCount, PolygonDrawMode mode) {
	std::vector<QPointF> pts(points, points + pointCount);
	drawPolygon(pts.data(), pointCount, mode);
}


void PaintEngine::drawLines(const QLineF * lines, int lineCount) {
	std::vector<Poly> polys;
	std::vector<QPointF> dots;
	for (int i = 0; i < lineCount; ++i) {
		if (lines[i].p1() == lines[i].p2()) {
			if (d->m_pen.capStyle() != Qt::FlatCap)
				dots.push_back(lines[i].p1());
			continue;
		}
		Poly p;
		p.push_back(d->map(lines[i].p1()));
		p.push_back(d->map(lines[i].p2()));
		if (p[0] == p[1])
			continue; // shorter than a logical unit
		polys.push_back(p);
	}
	if (!polys.empty())
		d->drawShapes(polys, std::vector<bool>(polys.size(), false), false, POLYFILL_ALTERNATE);
	if (!dots.empty())
		d->drawDots(dots);
}


void PaintEngine::drawLines(const QLine * lines, int lineCount) {
	std::vector<QLineF> l(lines, lines + lineCount);
	drawLines(l.data(), lineCount);
}


void PaintEngine::drawBox(const QRectF & rect, std::uint32_t recordType,
						  void (QPainterPath::*addShape)(const QRectF &))
{
	const QRectF r = rect.normalized();
	if (d->m_xf.type() > QTransform::TxScale || r.width() <= 0 || r.height() <= 0) {
		QPainterPath p;
		(p.*addShape)(r);
		d->drawPathWith(p, d->m_full, true, true);
		return;
	}
	PenInfo pen = d->penInfo();
	BrushInfo brush = d->brushInfo(d->m_brush);
	if (!pen.visible && !brush.visible)
		return;
	QPointF a = d->m_full.map(r.topLeft());
	QPointF b = d->m_full.map(r.bottomRight());
	RectL box(toInt(std::min(a.x(), b.x())), toInt(std::min(a.y(), b.y())),
			  toInt(std::max(a.x(), b.x())), toInt(std::max(a.y(), b.y())));
	d->prepare(pen, brush);
	d->writeBox(recordType, box);
}


void PaintEngine::drawRects(const QRectF * rects, int rectCount) {
	for (int i = 0; i < rectCount; ++i)
		drawBox(rects[i], EMR_RECTANGLE, &QPainterPath::addRect);
}


void PaintEngine::drawRects(const QRect * rects, int rectCount) {
	std::vector<QRectF> r(rects, rects + rectCount);
	drawRects(r.data(), rectCount);
}


void PaintEngine::drawEllipse(const QRectF & rect) {
	drawBox(rect, EMR_ELLIPSE, &QPainterPath::addEllipse);
}


void PaintEngine::drawEllipse(const QRect & rect) {
	drawEllipse(QRectF(rect));
}


void PaintEngine::drawPixmap(const QRectF & r, const QPixmap & pm, const QRectF & sr) {
	d->writeImage(r, pm.toImage(), sr);
}


void PaintEngine::drawImage(const QRectF & r, const QImage & image, const QRectF & sr, Qt::ImageConversionFlags) {
	d->writeImage(r, image, sr);
}


void PaintEngine::drawTextItem(const QPointF & p, const QTextItem & textItem) {
	const QString text = textItem.text();
	if (text.isEmpty())
		return;
	PenInfo pen = d->penInfo();
	if (!pen.visible)
		return;
	PaintDevice * dev = d->m_dev;
	const QFont font = textItem.font();
	const double pixelSize = font.pixelSize() > 0 ? double(font.pixelSize())
												  : font.pointSizeF() * dev->logicalDpiY() / 72.0;
	if (!(pixelSize > 0))
		return;

	// the transform must be a rotation with (possibly unequal) scaling, without mirror or shear
	const QTransform & m = d->m_xf;
	const double ax = m.m11(), ay = m.m12(), bx = m.m21(), by = m.m22();
	const double sx = std::hypot(ax, ay);
	const double sy = std::hypot(bx, by);
	const double det = ax * by - ay * bx;
	const bool usable = m.type() != QTransform::TxProject && sx > 0 && sy > 0 && det > 0
			&& std::fabs(ax * bx + ay * by) <= 1e-6 * sx * sy;
	if (!usable) {
		d->drawTextAsPath(p, text, font, pixelSize);
		return;
	}

	QFontMetricsF fm(font, dev);
	const double S = d->m_S;

	// escapement: counter-clockwise angle of the baseline in tenths of a degree (y points down)
	double angle = std::atan2(-ay, ax) * 180.0 / PI;
	int32_t esc = int32_t(std::lround(angle * 10.0)) % 3600;
	if (esc < 0)
		esc += 3600;

	const QString face = faceName(font);
	int32_t height = -std::max<int32_t>(1, toInt(pixelSize * sy * S));
	int32_t width = 0;
	if (std::fabs(sx / sy - 1.0) > 0.01)
		width = std::max<int32_t>(1, toInt(fm.averageCharWidth() * sx * S));

	Bytes lf;
	lf.i32(height);
	lf.i32(width);
	lf.i32(esc);		// escapement
	lf.i32(esc);		// orientation
	lf.i32(winWeight(font.weight()));
	lf.u8(font.style() != QFont::StyleNormal ? 1 : 0);
	lf.u8(0);			// underline: QPainter draws decorations itself
	lf.u8(0);			// strike-out: likewise
	lf.u8(DEFAULT_CHARSET);
	lf.u8(OUT_TT_PRECIS);
	lf.u8(CLIP_DEFAULT_PRECIS);
	lf.u8(ANTIALIASED_QUALITY);
	lf.u8(pitchAndFamily(font, face));
	lf.utf16(face, 32);
	// LogFontPanose extension: full name, style, version, style size, match, reserved, vendor,
	// culture, panose (all "any"), padding
	lf.utf16(face, 64);
	lf.utf16(QString(), 32);
	for (int i = 0; i < 6; ++i)
		lf.u32(0);
	for (int i = 0; i < 12; ++i)
		lf.u8(0);
	Q_ASSERT(lf.b.size() == int(LOGFONT_PANOSE_SIZE));

	// character advances along the baseline, cumulative so that rounding does not add up
	const int n = text.size();
	std::vector<int32_t> dx(size_t(n), 0);
	{
		double cum = 0;
		int32_t prevL = 0;
		for (int i = 0; i < n; ++i) {
			if (text.at(i).isHighSurrogate() && i + 1 < n && text.at(i + 1).isLowSurrogate()) {
				dx[size_t(i)] = 0;
				continue;
			}
			if (n <= 200)
				cum = fm.horizontalAdvance(text.left(i + 1));
			else
				cum += fm.horizontalAdvance(text.mid(i > 0 && text.at(i).isLowSurrogate() ? i - 1 : i,
													 text.at(i).isLowSurrogate() ? 2 : 1));
			int32_t L = toInt(cum * sx * S);
			dx[size_t(i)] = L - prevL;
			prevL = L;
		}
	}

	d->syncClip();
	uint32_t fh = d->object(EMR_EXTCREATEFONTINDIRECTW, lf.b);
	d->select(Private::KindFont, fh);
	d->setDcValue(d->m_dc.textColor, pen.color, EMR_SETTEXTCOLOR);
	d->setDcValue(d->m_dc.bkMode, BKMODE_TRANSPARENT, EMR_SETBKMODE);
	d->setDcValue(d->m_dc.textAlign, TA_BASELINE | TA_LEFT, EMR_SETTEXTALIGN);

	const Pt ref = d->map(p);
	const QRectF box(p.x(), p.y() - fm.ascent(), fm.horizontalAdvance(text), fm.ascent() + fm.descent());
	RectL bounds = boundsOf(d->mapPolygon(QPolygonF(box), d->m_full));

	const uint32_t offString = 76;
	const uint32_t stringBytes = (uint32_t(n) * 2 + 3) & ~3u;
	const uint32_t offDx = offString + stringBytes;
	const float scale = float(100.0 * 25.4 / (S * dev->resolution())); // logical units to 0.01 mm
	RecordWriter & w = d->m_w;
	w.beginRecord(EMR_EXTTEXTOUTW);
	w.writeRect(bounds);
	w.writeU32(GM_COMPATIBLE);
	w.writeF32(scale);
	w.writeF32(scale);
	w.writeI32(ref.x);
	w.writeI32(ref.y);
	w.writeU32(uint32_t(n));
	w.writeU32(offString);
	w.writeU32(0);				// options: no clipping or opaquing rectangle
	w.writeRect(RectL(0, 0, -1, -1));
	w.writeU32(offDx);
	Q_ASSERT(w.recordOffset() == offString);
	w.writeUtf16(text);
	w.writeZeros(int(stringBytes) - 2 * n);
	for (int32_t v : dx)
		w.writeI32(v);
	w.endRecord();
}

} // namespace EMF
