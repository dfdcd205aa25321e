#ifndef EMF_RecordWriterH
#define EMF_RecordWriterH

#include <cstdint>
#include <vector>

#include <QByteArray>
#include <QString>

namespace EMF {

/*! A rectangle in the EMF sense (WMF RectL): four signed 32-bit values, inclusive-inclusive. */
struct RectL {
	RectL() = default;
	RectL(int32_t l, int32_t t, int32_t r, int32_t b) : left(l), top(t), right(r), bottom(b) {}
	/*! True for the "nothing drawn" rectangle (right < left or bottom < top). */
	bool isEmpty() const { return right < left || bottom < top; }
	/*! Grows this rectangle to include the other one; empty rectangles are ignored. */
	void unite(const RectL & other);
	bool operator==(const RectL & o) const {
		return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
	}

	int32_t left	= 0;
	int32_t top		= 0;
	int32_t right	= -1;
	int32_t bottom	= -1;
};

/*! Everything EMR_HEADER needs besides the counters the writer keeps itself. */
struct HeaderInfo {
	RectL		bounds;				///< inclusive bounds of the picture in device (= logical) units
	RectL		frame;				///< inclusive frame in 0.01 mm
	int32_t		deviceCx = 0;		///< reference device size in device units
	int32_t		deviceCy = 0;
	int32_t		millimetersCx = 0;	///< reference device size in millimetres
	int32_t		millimetersCy = 0;
	uint32_t	micrometersCx = 0;	///< reference device size in micrometres (header extension 2)
	uint32_t	micrometersCy = 0;
	QString		description;		///< "application\0picture\0" form; null characters allowed
};

/*! Serialises EMF records into a little-endian byte buffer.

	A record is opened with beginRecord(), filled with the write...() functions and closed with
	endRecord(), which pads it to a multiple of 4 bytes and patches its size field. The writer
	counts records, keeps the object handle table (lowest free index first, index 0 is reserved
	for the metafile itself) and, in finish(), puts EMR_HEADER in front and EMR_EOF at the end.
*/
class RecordWriter {
public:
	RecordWriter();

	/*! Starts a record of the given type (writes type and a placeholder size). */
	void beginRecord(uint32_t type);
	/*! Pads the open record to 4 bytes, writes its size and counts it. */
	void endRecord();

	void writeU8(uint8_t v);
	void writeU16(uint16_t v);
	void writeI16(int16_t v);
	void writeU32(uint32_t v);
	void writeI32(int32_t v);
	void writeF32(float v);
	void writeRect(const RectL & r);
	void writeZeros(int count);
	void writeBytes(const char * data, int count);
	/*! Writes the UTF-16LE code units of the text; with fixedChars >= 0 exactly that many code
		units are written (cut or padded with zeros), otherwise the text's own length.
	*/
	void writeUtf16(const QString & text, int fixedChars = -1);
	/*! Offset of the next byte relative to the start of the open record. */
	uint32_t recordOffset() const;
	/*! Overwrites a 32-bit value inside the open record at the given record offset. */
	void patchU32(uint32_t recordOffset, uint32_t v);

	/*! A record without parameters (e.g. EMR_SAVEDC). */
	void writeRecord(uint32_t type);
	/*! A record with one 32-bit parameter (e.g. EMR_SETBKMODE, EMR_SELECTOBJECT). */
	void writeRecord(uint32_t type, uint32_t value);

	/*! Reserves the lowest free object handle index (>= 1). */
	uint32_t allocateHandle();
	/*! Frees a handle index so that a later object can reuse it. */
	void releaseHandle(uint32_t index);
	/*! Number of handle table entries the picture needs: highest index ever used + 1. */
	uint32_t handleTableSize() const { return m_maxHandle + 1; }
	/*! Number of handles currently allocated. */
	int liveHandles() const;

	/*! Records written so far, without header and EOF. */
	uint32_t recordCount() const { return m_recordCount; }
	/*! Bytes written so far, without header and EOF. */
	int byteCount() const { return m_buffer.size(); }

	/*! Builds the complete file: EMR_HEADER, the records, EMR_EOF. */
	QByteArray finish(const HeaderInfo & info) const;

private:
	QByteArray			m_buffer;
	int					m_recordStart = -1;
	uint32_t			m_recordCount = 0;
	std::vector<bool>	m_handleUsed;		///< index 0 is the metafile itself, always used
	uint32_t			m_maxHandle = 0;
};

} // namespace EMF

#endif // EMF_RecordWriterH
