#include "EMF_RecordWriter.h"

#include <cstring>

#include "EMF_Constants.h"

namespace EMF {

namespace {

void putU32(QByteArray & buf, uint32_t v) {
	char b[4] = { char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF), char((v >> 24) & 0xFF) };
	buf.append(b, 4);
}

void setU32(QByteArray & buf, int pos, uint32_t v) {
	buf[pos]	 = char(v & 0xFF);
	buf[pos + 1] = char((v >> 8) & 0xFF);
	buf[pos + 2] = char((v >> 16) & 0xFF);
	buf[pos + 3] = char((v >> 24) & 0xFF);
}

void putRect(QByteArray & buf, const RectL & r) {
	putU32(buf, uint32_t(r.left));
	putU32(buf, uint32_t(r.top));
	putU32(buf, uint32_t(r.right));
	putU32(buf, uint32_t(r.bottom));
}

} // namespace


void RectL::unite(const RectL & other) {
	if (other.isEmpty())
		return;
	if (isEmpty()) {
		*this = other;
		return;
	}
	if (other.left < left)		left = other.left;
	if (other.top < top)		top = other.top;
	if (other.right > right)	right = other.right;
	if (other.bottom > bottom)	bottom = other.bottom;
}


RecordWriter::RecordWriter() {
	m_handleUsed.push_back(true); // index 0 refers to the metafile itself
	m_buffer.reserve(1 << 16);
}


void RecordWriter::beginRecord(uint32_t type) {
	Q_ASSERT(m_recordStart < 0);
	m_recordStart = m_buffer.size();
	putU32(m_buffer, type);
	putU32(m_buffer, 0); // size, patched in endRecord()
}


void RecordWriter::endRecord() {
	Q_ASSERT(m_recordStart >= 0);
	while ((m_buffer.size() - m_recordStart) % 4 != 0)
		m_buffer.append('\0');
	setU32(m_buffer, m_recordStart + 4, uint32_t(m_buffer.size() - m_recordStart));
	m_recordStart = -1;
	++m_recordCount;
}


void RecordWriter::writeU8(uint8_t v) {
	m_buffer.append(char(v));
}


void RecordWriter::writeU16(uint16_t v) {
	m_buffer.append(char(v & 0xFF));
	m_buffer.append(char((v >> 8) & 0xFF));
}


void RecordWriter::writeI16(int16_t v) {
	writeU16(uint16_t(v));
}


void RecordWriter::writeU32(uint32_t v) {
	putU32(m_buffer, v);
}


void RecordWriter::writeI32(int32_t v) {
	putU32(m_buffer, uint32_t(v));
}


void RecordWriter::writeF32(float v) {
	uint32_t bits;
	static_assert(sizeof(float) == 4, "IEEE single precision float expected");
	std::memcpy(&bits, &v, 4);
	putU32(m_buffer, bits);
}


void RecordWriter::writeRect(const RectL & r) {
	putRect(m_buffer, r);
}


void RecordWriter::writeZeros(int count) {
	if (count > 0)
		m_buffer.append(QByteArray(count, '\0'));
}


void RecordWriter::writeBytes(const char * data, int count) {
	m_buffer.append(data, count);
}


void RecordWriter::writeUtf16(const QString & text, int fixedChars) {
	int n = fixedChars >= 0 ? fixedChars : text.size();
	for (int i = 0; i < n; ++i)
		writeU16(i < text.size() ? text.at(i).unicode() : 0);
}


uint32_t RecordWriter::recordOffset() const {
	Q_ASSERT(m_recordStart >= 0);
	return uint32_t(m_buffer.size() - m_recordStart);
}


void RecordWriter::patchU32(uint32_t recordOffset, uint32_t v) {
	Q_ASSERT(m_recordStart >= 0);
	setU32(m_buffer, m_recordStart + int(recordOffset), v);
}


void RecordWriter::writeRecord(uint32_t type) {
	beginRecord(type);
	endRecord();
}


void RecordWriter::writeRecord(uint32_t type, uint32_t value) {
	beginRecord(type);
	writeU32(value);
	endRecord();
}


uint32_t RecordWriter::allocateHandle() {
	for (uint32_t i = 1; i < m_handleUsed.size(); ++i) {
		if (!m_handleUsed[i]) {
			m_handleUsed[i] = true;
			return i;
		}
	}
	m_handleUsed.push_back(true);
	uint32_t idx = uint32_t(m_handleUsed.size() - 1);
	if (idx > m_maxHandle)
		m_maxHandle = idx;
	return idx;
}


void RecordWriter::releaseHandle(uint32_t index) {
	if (index > 0 && index < m_handleUsed.size())
		m_handleUsed[index] = false;
}


int RecordWriter::liveHandles() const {
	int n = 0;
	for (size_t i = 1; i < m_handleUsed.size(); ++i)
		if (m_handleUsed[i])
			++n;
	return n;
}


QByteArray RecordWriter::finish(const HeaderInfo & info) const {
	Q_ASSERT(m_recordStart < 0);

	// description: UTF-16, padded to 4 bytes after the fixed header
	const uint32_t nDescription = uint32_t(info.description.size());
	uint32_t descBytes = nDescription * 2;
	uint32_t descPadded = (descBytes + 3) & ~3u;
	const uint32_t headerSize = HEADER_SIZE + descPadded;
	const uint32_t eofSize = 20;
	const uint32_t totalBytes = headerSize + uint32_t(m_buffer.size()) + eofSize;
	const uint32_t totalRecords = m_recordCount + 2;

	QByteArray out;
	out.reserve(int(totalBytes));
	putU32(out, EMR_HEADER);
	putU32(out, headerSize);
	putRect(out, info.bounds);
	putRect(out, info.frame);
	putU32(out, ENHMETA_SIGNATURE);
	putU32(out, EMF_VERSION);
	putU32(out, totalBytes);
	putU32(out, totalRecords);
	uint32_t handles = handleTableSize();
	out.append(char(handles & 0xFF));
	out.append(char((handles >> 8) & 0xFF));
	out.append('\0'); // reserved
	out.append('\0');
	putU32(out, nDescription);
	putU32(out, nDescription > 0 ? HEADER_SIZE : 0);	// offDescription
	putU32(out, 0);										// nPalEntries
	putU32(out, uint32_t(info.deviceCx));
	putU32(out, uint32_t(info.deviceCy));
	putU32(out, uint32_t(info.millimetersCx));
	putU32(out, uint32_t(info.millimetersCy));
	putU32(out, 0);										// cbPixelFormat
	putU32(out, 0);										// offPixelFormat
	putU32(out, 0);										// bOpenGL
	putU32(out, info.micrometersCx);
	putU32(out, info.micrometersCy);
	Q_ASSERT(out.size() == int(HEADER_SIZE));
	for (uint32_t i = 0; i < nDescription; ++i) {
		ushort c = info.description.at(int(i)).unicode();
		out.append(char(c & 0xFF));
		out.append(char((c >> 8) & 0xFF));
	}
	while (out.size() % 4 != 0)
		out.append('\0');

	out.append(m_buffer);

	// EMR_EOF: no palette; offPalEntries points behind the fixed fields, SizeLast repeats the size
	putU32(out, EMR_EOF);
	putU32(out, eofSize);
	putU32(out, 0);			// nPalEntries
	putU32(out, 16);		// offPalEntries
	putU32(out, eofSize);	// SizeLast
	Q_ASSERT(out.size() == int(totalBytes));
	return out;
}

} // namespace EMF
