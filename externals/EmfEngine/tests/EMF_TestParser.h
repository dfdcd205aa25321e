#ifndef EMF_TestParserH
#define EMF_TestParserH

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include <QByteArray>
#include <QString>

/*! An EMF reader for the tests, written independently of the library's writer: it walks the
	records of a file, checks the structural rules of [MS-EMF] and decodes the records the tests
	look at. Record type numbers are spelled out here again on purpose.
*/
namespace EmfTest {

enum : uint32_t {
	T_HEADER = 1, T_POLYGON = 3, T_POLYLINE = 4, T_POLYPOLYLINE = 7, T_POLYPOLYGON = 8, T_EOF = 14,
	T_SETMAPMODE = 17, T_SETBKMODE = 18, T_SETPOLYFILLMODE = 19, T_SETSTRETCHBLTMODE = 21, T_SETTEXTALIGN = 22,
	T_SETTEXTCOLOR = 24, T_SETBKCOLOR = 25, T_INTERSECTCLIPRECT = 30, T_SAVEDC = 33, T_RESTOREDC = 34,
	T_SETWORLDTRANSFORM = 35, T_SELECTOBJECT = 37, T_CREATEPEN = 38, T_CREATEBRUSHINDIRECT = 39,
	T_DELETEOBJECT = 40, T_ELLIPSE = 42, T_RECTANGLE = 43, T_SETMITERLIMIT = 58, T_BEGINPATH = 59,
	T_ENDPATH = 60, T_SELECTCLIPPATH = 67, T_EXTSELECTCLIPRGN = 75, T_STRETCHDIBITS = 81,
	T_EXTCREATEFONTINDIRECTW = 82, T_EXTTEXTOUTW = 84, T_POLYBEZIER16 = 85, T_POLYGON16 = 86, T_POLYLINE16 = 87,
	T_POLYPOLYLINE16 = 90, T_POLYPOLYGON16 = 91, T_EXTCREATEPEN = 95
};

/*! Selection slots of Record::selected. */
enum { PEN, BRUSH, FONT };
const uint32_t NULL_PEN = 0x80000008;
const uint32_t NULL_BRUSH = 0x80000005;

struct Rect {
	int32_t l = 0, t = 0, r = 0, b = 0;
	bool operator==(const Rect & o) const { return l == o.l && t == o.t && r == o.r && b == o.b; }
};
struct Point {
	int32_t x = 0, y = 0;
	bool operator==(const Point & o) const { return x == o.x && y == o.y; }
};
inline std::ostream & operator<<(std::ostream & o, const Rect & r) { return o << "(" << r.l << "," << r.t << ")-(" << r.r << "," << r.b << ")"; }
inline std::ostream & operator<<(std::ostream & o, const Point & p) { return o << "(" << p.x << "," << p.y << ")"; }

struct Record {
	uint32_t	type = 0;
	uint32_t	size = 0;
	uint32_t	offset = 0;		///< offset in the file
	QByteArray	data;			///< the whole record, including type and size
	uint32_t	selected[3] = {0, 0, 0};	///< pen, brush and font selected when the record is reached
	int			creator[3] = {-1, -1, -1};	///< index of the records that created them (-1 for stock objects)

	uint32_t u32(uint32_t off) const;
	int32_t i32(uint32_t off) const;
	uint16_t u16(uint32_t off) const;
	uint8_t u8(uint32_t off) const;
	Rect rect(uint32_t off) const;
	/*! A point of two 16-bit (small) or two 32-bit coordinates. */
	Point point(uint32_t off, bool small) const;
};

struct Header {
	Rect		bounds, frame;
	uint32_t	bytes = 0, records = 0;
	uint16_t	handles = 0;
	uint32_t	nDescription = 0, offDescription = 0;
	int32_t		deviceCx = 0, deviceCy = 0, mmCx = 0, mmCy = 0;
	uint32_t	umCx = 0, umCy = 0;		///< only with header extension 2
	QString		description;
};

struct Pen {		///< EMR_EXTCREATEPEN
	uint32_t	style = 0, width = 0, brushStyle = 0, color = 0;
	std::vector<uint32_t> entries;
};

struct Brush {		///< EMR_CREATEBRUSHINDIRECT
	uint32_t	style = 0, color = 0, hatch = 0;
};

struct Font {		///< EMR_EXTCREATEFONTINDIRECTW
	int32_t		height = 0, escapement = 0, orientation = 0, weight = 0;
	uint8_t		italic = 0, underline = 0, pitchAndFamily = 0;
	QString		face;
};

struct Text {		///< EMR_EXTTEXTOUTW
	Point		reference;
	QString		text;
	std::vector<int32_t> dx;
};

struct Image {		///< EMR_STRETCHDIBITS
	int32_t		xDest = 0, yDest = 0, cxDest = 0, cyDest = 0, cxSrc = 0, cySrc = 0, width = 0, height = 0;
	uint32_t	rop = 0, compression = 0;
	uint16_t	bitCount = 0;
	QByteArray	bits;
	/*! Colour 0xRRGGBB of pixel (x, y), y counted from the top of the picture. */
	uint32_t pixel(int x, int y) const;
};

/*! A parsed file. parse() fills records and header and lists every violation in errors. */
struct File {
	Header					header;
	std::vector<Record>		records;
	std::vector<std::string> errors;

	bool parse(const QByteArray & bytes);

	std::vector<const Record *> ofType(uint32_t type) const;
	size_t count(uint32_t type) const { return ofType(type).size(); }
	/*! Index of the first record of the type at or after start, or -1. */
	int indexOf(uint32_t type, int start = 0) const;
	/*! The record that created the pen, brush or font selected at r, or null for a stock object. */
	const Record * object(const Record & r, int slot) const;
	/*! Value of the last state record (SETTEXTCOLOR, SETPOLYFILLMODE...) before index, or ~0u. */
	uint32_t stateBefore(uint32_t type, int index) const;
	std::string errorText() const;
};

/*! Points of POLYLINE/POLYGON/POLYBEZIER records (16 and 32 bit forms). */
std::vector<Point> polyPoints(const Record & r);
/*! Polygons of POLYPOLYLINE/POLYPOLYGON records (16 and 32 bit forms). */
std::vector<std::vector<Point>> polyPolyPoints(const Record & r);
Pen decodePen(const Record & r);
Brush decodeBrush(const Record & r);
Font decodeFont(const Record & r);
Text decodeText(const Record & r);
Image decodeImage(const Record & r);

} // namespace EmfTest

#endif // EMF_TestParserH
