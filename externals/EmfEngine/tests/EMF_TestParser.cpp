#include "EMF_TestParser.h"

#include <map>
#include <sstream>

namespace EmfTest {

namespace {

/*! Little-endian unsigned value of 1 to 4 bytes at off; 0 outside the data. */
uint32_t rd(const QByteArray & d, uint32_t off, int bytes) {
	if (off + uint32_t(bytes) > uint32_t(d.size()))
		return 0;
	uint32_t v = 0;
	for (int i = bytes - 1; i >= 0; --i)
		v = (v << 8) | uint8_t(d[int(off) + i]);
	return v;
}

std::string str(const char * what, uint32_t index, const Record & r) {
	std::ostringstream o;
	o << "record #" << index << " (type " << r.type << ", size " << r.size << ", offset " << r.offset << "): " << what;
	return o.str();
}

/*! Object kind of a stock object index (without the high bit), or -1. */
int stockKind(uint32_t idx) {
	if (idx <= 5 || idx == 18)
		return 1; // brush
	if ((idx >= 6 && idx <= 8) || idx == 19)
		return 0; // pen
	if ((idx >= 10 && idx <= 14) || idx == 16 || idx == 17)
		return 2; // font
	return -1;
}

int createKind(uint32_t type) {
	switch (type) {
		case T_CREATEPEN: case T_EXTCREATEPEN: return 0;
		case T_CREATEBRUSHINDIRECT: case 93: case 94: return 1;
		case T_EXTCREATEFONTINDIRECTW: return 2;
		case 49: return 3;
		default: return -1;
	}
}

} // namespace


uint32_t Record::u32(uint32_t off) const { return rd(data, off, 4); }
int32_t Record::i32(uint32_t off) const { return int32_t(rd(data, off, 4)); }
uint16_t Record::u16(uint32_t off) const { return uint16_t(rd(data, off, 2)); }
uint8_t Record::u8(uint32_t off) const { return uint8_t(rd(data, off, 1)); }
Rect Record::rect(uint32_t off) const { return Rect{i32(off), i32(off + 4), i32(off + 8), i32(off + 12)}; }
Point Record::point(uint32_t off, bool small) const {
	return small ? Point{int16_t(u16(off)), int16_t(u16(off + 2))} : Point{i32(off), i32(off + 4)};
}


uint32_t Image::pixel(int x, int y) const {
	const int bpp = bitCount / 8;
	const int rowBytes = ((width * bitCount + 31) / 32) * 4;
	const int row = height > 0 ? height - 1 - y : y;
	const int off = row * rowBytes + x * bpp;
	if (off + bpp > bits.size())
		return 0xFFFFFFFF;
	const unsigned char * p = reinterpret_cast<const unsigned char *>(bits.constData()) + off;
	return (uint32_t(p[2]) << 16) | (uint32_t(p[1]) << 8) | uint32_t(p[0]);
}


bool File::parse(const QByteArray & bytes) {
	records.clear();
	errors.clear();
	const uint32_t fileSize = uint32_t(bytes.size());
	uint32_t off = 0;
	while (off < fileSize) {
		if (off + 8 > fileSize) {
			errors.push_back("truncated record header at end of file");
			break;
		}
		Record r;
		r.type = rd(bytes, off, 4);
		r.size = rd(bytes, off + 4, 4);
		r.offset = off;
		if (r.size < 8 || r.size % 4 != 0 || off + r.size > fileSize) {
			errors.push_back(str("bad record size", uint32_t(records.size()), r));
			break;
		}
		r.data = bytes.mid(int(off), int(r.size));
		records.push_back(r);
		off += r.size;
		if (r.type == T_EOF)
			break;
	}
	if (off != fileSize)
		errors.push_back("bytes after the EOF record or unparsed rest");
	if (records.empty() || records.front().type != T_HEADER) {
		errors.push_back("first record is not EMR_HEADER");
		return false;
	}
	if (records.back().type != T_EOF)
		errors.push_back("last record is not EMR_EOF");

	// header
	const Record & h = records.front();
	if (h.size < 88)
		errors.push_back("header smaller than 88 bytes");
	header.bounds = h.rect(8);
	header.frame = h.rect(24);
	header.bytes = h.u32(48);
	header.records = h.u32(52);
	header.handles = h.u16(56);
	header.nDescription = h.u32(60);
	header.offDescription = h.u32(64);
	header.deviceCx = h.i32(72);
	header.deviceCy = h.i32(76);
	header.mmCx = h.i32(80);
	header.mmCy = h.i32(84);
	if (h.size >= 108 && (header.offDescription == 0 || header.offDescription >= 108)) {
		header.umCx = h.u32(100);
		header.umCy = h.u32(104);
	}
	if (h.u32(40) != 0x464D4520)
		errors.push_back("wrong header signature");
	if (h.u32(44) != 0x00010000)
		errors.push_back("wrong header version");
	if (header.bytes != fileSize)
		errors.push_back("header byte count " + std::to_string(header.bytes) + " != file size " + std::to_string(fileSize));
	if (header.records != records.size())
		errors.push_back("header record count " + std::to_string(header.records) + " != " + std::to_string(records.size()));
	if (h.u16(58) != 0)
		errors.push_back("header reserved field not 0");
	if (header.nDescription > 0) {
		if (header.offDescription < 88 || header.offDescription + 2 * header.nDescription > h.size)
			errors.push_back("description outside the header record");
		else
			for (uint32_t i = 0; i < header.nDescription; ++i)
				header.description.append(QChar(h.u16(header.offDescription + 2 * i)));
	}

	// per record checks and the object table
	std::map<uint32_t, int> objects;		// handle index -> kind
	std::map<uint32_t, int> creators;		// handle index -> index of the creating record
	uint32_t selected[4] = { 0x80000007, 0x80000000, 0x8000000D, 0x8000000F };
	std::vector<std::vector<uint32_t>> savedSel;
	for (uint32_t i = 0; i < records.size(); ++i) {
		Record & r = records[i];
		for (int k = 0; k < 3; ++k) {
			r.selected[k] = selected[k];
			r.creator[k] = (selected[k] & 0x80000000) ? -1 : creators[selected[k]];
		}
		auto fail = [&](const char * what) { errors.push_back(str(what, i, r)); };
		if (i > 0 && r.type == T_HEADER)
			fail("second header");
		static const std::map<uint32_t, uint32_t> fixedSizes = {
			{T_SETMAPMODE, 12}, {T_SETBKMODE, 12}, {T_SETPOLYFILLMODE, 12}, {T_SETSTRETCHBLTMODE, 12}, {T_SETTEXTALIGN, 12},
			{T_SETTEXTCOLOR, 12}, {T_SETBKCOLOR, 12}, {T_SETMITERLIMIT, 12}, {T_SAVEDC, 8}, {T_RESTOREDC, 12},
			{T_SELECTOBJECT, 12}, {T_DELETEOBJECT, 12}, {T_INTERSECTCLIPRECT, 24}, {T_RECTANGLE, 24}, {T_ELLIPSE, 24},
			{T_CREATEBRUSHINDIRECT, 24}, {T_BEGINPATH, 8}, {T_ENDPATH, 8}, {T_SELECTCLIPPATH, 12}};
		const auto fixed = fixedSizes.find(r.type);
		if (fixed != fixedSizes.end() && r.size != fixed->second)
			fail("record size differs from the size of its type");
		switch (r.type) {
			case T_EOF: {
				uint32_t nPal = r.u32(8);
				if (r.size != 20 + 4 * nPal)
					fail("EOF size does not match its palette");
				if (r.u32(r.size - 4) != r.size)
					fail("EOF SizeLast differs from the record size");
				break;
			}
			case T_SAVEDC:
				savedSel.push_back(std::vector<uint32_t>(selected, selected + 4));
				break;
			case T_RESTOREDC: {
				int32_t n = r.i32(8);
				if (n >= 0 || size_t(-n) > savedSel.size()) {
					fail("RESTOREDC without matching SAVEDC");
					break;
				}
				for (int k = 0; k < -n - 1; ++k)
					savedSel.pop_back();
				for (int k = 0; k < 4; ++k)
					selected[k] = savedSel.back()[size_t(k)];
				savedSel.pop_back();
				break;
			}
			case T_SETWORLDTRANSFORM:		// converters keep it after RESTOREDC, so it is never written
				fail("world transform written");
				break;
			case T_POLYBEZIER16: case T_POLYGON16: case T_POLYLINE16: case 88: case 89:
				if (r.size != 28 + 4 * r.u32(24))
					fail("16-bit poly record size does not match its point count");
				break;
			case 2: case T_POLYGON: case T_POLYLINE: case 5: case 6:
				if (r.size != 28 + 8 * r.u32(24))
					fail("poly record size does not match its point count");
				break;
			case T_POLYPOLYLINE16: case T_POLYPOLYGON16: case T_POLYPOLYLINE: case T_POLYPOLYGON: {
				const uint32_t n = r.u32(24), total = r.u32(28);
				const uint32_t ptSize = (r.type == T_POLYPOLYLINE16 || r.type == T_POLYPOLYGON16) ? 4 : 8;
				if (uint64_t(r.size) != 32 + 4ull * n + uint64_t(ptSize) * total) {
					fail("poly-poly record size does not match its counts");
					break;
				}
				uint64_t sum = 0;
				for (uint32_t k = 0; k < n; ++k)
					sum += r.u32(32 + 4 * k);
				if (sum != total)
					fail("poly-poly point counts do not add up");
				break;
			}
			case T_EXTTEXTOUTW: {
				if (r.size < 76) {
					fail("text record too small");
					break;
				}
				const uint32_t n = r.u32(44), offString = r.u32(48), options = r.u32(52), offDx = r.u32(72);
				if (offString < 76 || offString + 2 * n > r.size)
					fail("text string outside the record");
				if (offDx != 0 && offDx + ((options & 0x2000) ? 8 : 4) * n > r.size)
					fail("dx array outside the record");
				if (offDx != 0 && offDx < offString + 2 * n)
					fail("dx array overlaps the string");
				break;
			}
			case T_STRETCHDIBITS: {
				if (r.size < 80) {
					fail("STRETCHDIBITS too small");
					break;
				}
				const uint32_t offBmi = r.u32(48), cbBmi = r.u32(52), offBits = r.u32(56), cbBits = r.u32(60);
				if (offBmi < 80 || offBmi + cbBmi > r.size || cbBmi < 40)
					fail("bitmap info header outside the record");
				if (offBits + cbBits > r.size)
					fail("bitmap bits outside the record");
				const int32_t w = r.i32(offBmi + 4), hh = r.i32(offBmi + 8);
				const uint16_t bpp = r.u16(offBmi + 14);
				const uint64_t rowBytes = ((uint64_t(w) * bpp + 31) / 32) * 4;
				if (r.u32(offBmi + 16) == 0 && rowBytes * uint64_t(hh < 0 ? -hh : hh) > cbBits)
					fail("bitmap bits smaller than width x height");
				break;
			}
			case T_EXTCREATEPEN: {
				const uint32_t nEntries = r.u32(48);
				const uint32_t cbBmi = r.u32(16), cbBits = r.u32(24);
				if (r.size < 52 + 4 * nEntries || (cbBmi == 0 && cbBits == 0 && r.size > 56 + 4 * nEntries))
					fail("EXTCREATEPEN size does not match its style entries");
				break;
			}
			case T_EXTCREATEFONTINDIRECTW:
				if (r.size < 12 + 92)
					fail("font record smaller than a LogFont");
				break;
			default:
				break;
		}

		// object table
		const int ck = createKind(r.type);
		if (ck >= 0) {
			const uint32_t ih = r.u32(8);
			if (ih == 0 || ih >= header.handles)
				fail("object handle outside the header's handle table");
			if (objects.count(ih))
				fail("object created in a handle that is still in use");
			objects[ih] = ck;
			creators[ih] = int(i);
		}
		else if (r.type == T_DELETEOBJECT) {
			const uint32_t ih = r.u32(8);
			if (!objects.count(ih))
				fail("DELETEOBJECT of a handle that was not created");
			for (int k = 0; k < 4; ++k)
				if (selected[k] == ih)
					fail("object deleted while selected");
			for (const auto & s : savedSel)
				for (int k = 0; k < 4; ++k)
					if (s[size_t(k)] == ih)
						fail("object deleted while selected in a saved state");
			objects.erase(ih);
		}
		else if (r.type == T_SELECTOBJECT) {
			const uint32_t ih = r.u32(8);
			if (ih & 0x80000000) {
				int k = stockKind(ih & 0x7FFFFFFF);
				if (k < 0)
					fail("unknown stock object");
				else
					selected[k] = ih;
			}
			else if (!objects.count(ih))
				fail("SELECTOBJECT of a handle that was not created");
			else
				selected[objects[ih]] = ih;
		}
	}
	if (!objects.empty())		// every object the writer creates is deleted again before the end
		errors.push_back(std::to_string(objects.size()) + " objects not deleted at the end");
	return errors.empty();
}


std::vector<const Record *> File::ofType(uint32_t type) const {
	std::vector<const Record *> v;
	for (const Record & r : records)
		if (r.type == type)
			v.push_back(&r);
	return v;
}


int File::indexOf(uint32_t type, int start) const {
	for (size_t i = size_t(std::max(0, start)); i < records.size(); ++i)
		if (records[i].type == type)
			return int(i);
	return -1;
}


const Record * File::object(const Record & r, int slot) const {
	return r.creator[slot] < 0 ? nullptr : &records[size_t(r.creator[slot])];
}


uint32_t File::stateBefore(uint32_t type, int index) const {
	uint32_t value = ~0u;
	for (int i = 0; i < index && i < int(records.size()); ++i)
		if (records[size_t(i)].type == type)
			value = records[size_t(i)].u32(8);
	return value;
}


std::string File::errorText() const {
	std::string s;
	for (const std::string & e : errors)
		s += e + "\n";
	return s;
}


std::vector<Point> polyPoints(const Record & r) {
	std::vector<Point> pts;
	const bool small = r.type >= 85 && r.type <= 89;
	for (uint32_t i = 0; i < r.u32(24); ++i)
		pts.push_back(r.point(28 + (small ? 4 : 8) * i, small));
	return pts;
}


std::vector<std::vector<Point>> polyPolyPoints(const Record & r) {
	std::vector<std::vector<Point>> polys(r.u32(24));
	const bool small = r.type == T_POLYPOLYLINE16 || r.type == T_POLYPOLYGON16;
	uint32_t off = 32 + 4 * r.u32(24);
	for (uint32_t k = 0; k < polys.size(); ++k)
		for (uint32_t i = 0; i < r.u32(32 + 4 * k); ++i, off += small ? 4 : 8)
			polys[k].push_back(r.point(off, small));
	return polys;
}


Pen decodePen(const Record & r) {
	Pen p;
	p.style = r.u32(28);
	p.width = r.u32(32);
	p.brushStyle = r.u32(36);
	p.color = r.u32(40);
	for (uint32_t i = 0; i < r.u32(48); ++i)
		p.entries.push_back(r.u32(52 + 4 * i));
	return p;
}


Brush decodeBrush(const Record & r) {
	Brush b;
	b.style = r.u32(12);
	b.color = r.u32(16);
	b.hatch = r.u32(20);
	return b;
}


Font decodeFont(const Record & r) {
	Font f;
	f.height = r.i32(12);
	f.escapement = r.i32(20);
	f.orientation = r.i32(24);
	f.weight = r.i32(28);
	f.italic = r.u8(32);
	f.underline = r.u8(33);
	f.pitchAndFamily = r.u8(39);
	for (uint32_t i = 0; i < 32 && r.u16(40 + 2 * i) != 0; ++i)
		f.face.append(QChar(r.u16(40 + 2 * i)));
	return f;
}


Text decodeText(const Record & r) {
	Text t;
	t.reference.x = r.i32(36);
	t.reference.y = r.i32(40);
	const uint32_t n = r.u32(44), offString = r.u32(48), offDx = r.u32(72);
	for (uint32_t i = 0; i < n; ++i) {
		t.text.append(QChar(r.u16(offString + 2 * i)));
		if (offDx != 0)
			t.dx.push_back(r.i32(offDx + 4 * i));
	}
	return t;
}


Image decodeImage(const Record & r) {
	Image im;
	im.xDest = r.i32(24);
	im.yDest = r.i32(28);
	im.cxSrc = r.i32(40);
	im.cySrc = r.i32(44);
	const uint32_t offBmi = r.u32(48), offBits = r.u32(56), cbBits = r.u32(60);
	im.rop = r.u32(68);
	im.cxDest = r.i32(72);
	im.cyDest = r.i32(76);
	im.width = r.i32(offBmi + 4);
	im.height = r.i32(offBmi + 8);
	im.bitCount = r.u16(offBmi + 14);
	im.compression = r.u32(offBmi + 16);
	im.bits = r.data.mid(int(offBits), int(cbBits));
	return im;
}


} // namespace EmfTest
