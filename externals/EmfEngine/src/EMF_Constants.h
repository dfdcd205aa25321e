#ifndef EMF_ConstantsH
#define EMF_ConstantsH

#include <cstdint>

/*! Numeric constants of the enhanced metafile format ([MS-EMF] and the [MS-WMF] enumerations it
	uses): the record types and enumeration values around what the EMF paint engine writes.
*/
namespace EMF {

/*! Record types (RecordType enumeration). */
enum RecordType : uint32_t {
	EMR_HEADER						= 1,
	EMR_POLYBEZIER					= 2,
	EMR_POLYGON						= 3,
	EMR_POLYLINE					= 4,
	EMR_POLYPOLYLINE				= 7,
	EMR_POLYPOLYGON					= 8,
	EMR_SETWINDOWEXTEX				= 9,
	EMR_SETWINDOWORGEX				= 10,
	EMR_SETVIEWPORTEXTEX			= 11,
	EMR_SETVIEWPORTORGEX			= 12,
	EMR_SETBRUSHORGEX				= 13,
	EMR_EOF							= 14,
	EMR_SETMAPMODE					= 17,
	EMR_SETBKMODE					= 18,
	EMR_SETPOLYFILLMODE				= 19,
	EMR_SETROP2						= 20,
	EMR_SETSTRETCHBLTMODE			= 21,
	EMR_SETTEXTALIGN				= 22,
	EMR_SETTEXTCOLOR				= 24,
	EMR_SETBKCOLOR					= 25,
	EMR_INTERSECTCLIPRECT			= 30,
	EMR_SAVEDC						= 33,
	EMR_RESTOREDC					= 34,
	EMR_SETWORLDTRANSFORM			= 35,
	EMR_MODIFYWORLDTRANSFORM		= 36,
	EMR_SELECTOBJECT				= 37,
	EMR_CREATEPEN					= 38,
	EMR_CREATEBRUSHINDIRECT			= 39,
	EMR_DELETEOBJECT				= 40,
	EMR_ELLIPSE						= 42,
	EMR_RECTANGLE					= 43,
	EMR_SETMITERLIMIT				= 58,
	EMR_BEGINPATH					= 59,
	EMR_ENDPATH						= 60,
	EMR_CLOSEFIGURE					= 61,
	EMR_FILLPATH					= 62,
	EMR_STROKEANDFILLPATH			= 63,
	EMR_STROKEPATH					= 64,
	EMR_SELECTCLIPPATH				= 67,
	EMR_COMMENT						= 70,
	EMR_EXTSELECTCLIPRGN			= 75,
	EMR_STRETCHDIBITS				= 81,
	EMR_EXTCREATEFONTINDIRECTW		= 82,
	EMR_EXTTEXTOUTW					= 84,
	EMR_POLYBEZIER16				= 85,
	EMR_POLYGON16					= 86,
	EMR_POLYLINE16					= 87,
	EMR_POLYPOLYLINE16				= 90,
	EMR_POLYPOLYGON16				= 91,
	EMR_EXTCREATEPEN				= 95
};

/*! Header constants. */
const uint32_t ENHMETA_SIGNATURE		= 0x464D4520;	///< " EMF"
const uint32_t EMF_VERSION				= 0x00010000;

/*! Stock objects (StockObject enumeration): the high bit marks a stock object index. */
const uint32_t STOCK_OBJECT_FLAG		= 0x80000000;
const uint32_t WHITE_BRUSH				= 0x80000000;
const uint32_t BLACK_BRUSH				= 0x80000004;
const uint32_t NULL_BRUSH				= 0x80000005;
const uint32_t WHITE_PEN				= 0x80000006;
const uint32_t BLACK_PEN				= 0x80000007;
const uint32_t NULL_PEN					= 0x80000008;
const uint32_t DEVICE_DEFAULT_FONT		= 0x8000000E;

/*! Pen styles (PenStyle enumeration), combined by bitwise or. */
const uint32_t PS_SOLID					= 0x00000000;
const uint32_t PS_DASH					= 0x00000001;
const uint32_t PS_DOT					= 0x00000002;
const uint32_t PS_DASHDOT				= 0x00000003;
const uint32_t PS_DASHDOTDOT			= 0x00000004;
const uint32_t PS_NULL					= 0x00000005;
const uint32_t PS_USERSTYLE				= 0x00000007;
const uint32_t PS_ENDCAP_ROUND			= 0x00000000;
const uint32_t PS_ENDCAP_SQUARE			= 0x00000100;
const uint32_t PS_ENDCAP_FLAT			= 0x00000200;
const uint32_t PS_JOIN_ROUND			= 0x00000000;
const uint32_t PS_JOIN_BEVEL			= 0x00001000;
const uint32_t PS_JOIN_MITER			= 0x00002000;
const uint32_t PS_COSMETIC				= 0x00000000;
const uint32_t PS_GEOMETRIC				= 0x00010000;

/*! Brush styles and hatch styles. */
const uint32_t BS_SOLID					= 0;
const uint32_t BS_NULL					= 1;
const uint32_t BS_HATCHED				= 2;
const uint32_t HS_HORIZONTAL			= 0;
const uint32_t HS_VERTICAL				= 1;
const uint32_t HS_FDIAGONAL				= 2;
const uint32_t HS_BDIAGONAL				= 3;
const uint32_t HS_CROSS					= 4;
const uint32_t HS_DIAGCROSS				= 5;

/*! Modes. */
const uint32_t MM_TEXT					= 1;
const uint32_t BKMODE_TRANSPARENT		= 1;
const uint32_t BKMODE_OPAQUE			= 2;
const uint32_t POLYFILL_ALTERNATE		= 1;
const uint32_t POLYFILL_WINDING			= 2;
const uint32_t TA_LEFT					= 0;
const uint32_t TA_BASELINE				= 24;
const uint32_t COLORONCOLOR				= 3;
const uint32_t HALFTONE					= 4;
const uint32_t RGN_AND					= 1;
const uint32_t RGN_COPY					= 5;
const uint32_t GM_COMPATIBLE			= 1;
const uint32_t GM_ADVANCED				= 2;
const uint32_t DIB_RGB_COLORS			= 0;
const uint32_t BI_RGB					= 0;
const uint32_t SRCCOPY					= 0x00CC0020;

/*! Font constants (LogFont fields). */
const uint8_t DEFAULT_CHARSET			= 1;
const uint8_t OUT_TT_PRECIS				= 4;
const uint8_t CLIP_DEFAULT_PRECIS		= 0;
const uint8_t ANTIALIASED_QUALITY		= 4;
const uint8_t DEFAULT_PITCH				= 0;
const uint8_t FIXED_PITCH				= 1;
const uint8_t VARIABLE_PITCH			= 2;
const uint8_t FF_DONTCARE				= 0x00;
const uint8_t FF_ROMAN					= 0x10;
const uint8_t FF_SWISS					= 0x20;
const uint8_t FF_MODERN					= 0x30;
const uint8_t FF_SCRIPT					= 0x40;
const uint8_t FF_DECORATIVE				= 0x50;

/*! Fixed sizes in bytes. */
const uint32_t HEADER_SIZE				= 108;	///< EMR_HEADER with both header extensions
const uint32_t LOGFONT_SIZE				= 92;
const uint32_t LOGFONT_PANOSE_SIZE		= 320;
const uint32_t BITMAPINFOHEADER_SIZE	= 40;

} // namespace EMF

#endif // EMF_ConstantsH
