#include "DATAIO_BinaryReader.h"

#include <ZEB_MessageFormat.h>

namespace DATAIO {

std::uint64_t BinaryReader::position() const {
	const std::streamoff pos = m_in.tellg();
	return pos < 0 ? m_end : static_cast<std::uint64_t>(pos);
}


std::uint64_t BinaryReader::remaining() const {
	const std::uint64_t pos = position();
	return pos >= m_end ? 0 : m_end - pos;
}


void BinaryReader::string(std::string & str, unsigned int maxSize) {
	checkDeclaredLength(maxSize, 1);
	ZEB::read_string_binary(m_in, str, maxSize);
}


std::uint32_t BinaryReader::count(std::size_t elementSize) {
	std::uint32_t n = 0;
	ZEB::read_value_binary(m_in, n);
	checkFits(n, elementSize);
	return n;
}


void BinaryReader::checkFits(std::uint64_t count, std::size_t elementSize) const {
	FUNCID(BinaryReader::checkFits);
	const std::uint64_t left = remaining();
	if (count*elementSize > left)
		throw ZEB::Exception(ZEB::MessageFormat("Declared count %1 of %2-byte entries exceeds the "
			"%3 bytes remaining in the file.").arg(static_cast<unsigned long long>(count))
			.arg(static_cast<unsigned long long>(elementSize))
			.arg(static_cast<unsigned long long>(left)), FUNC_ID);
}


bool BinaryReader::raw(char * buf, std::size_t size) {
	return static_cast<bool>(m_in.read(buf, static_cast<std::streamsize>(size)));
}


void BinaryReader::checkDeclaredLength(unsigned int maxSize, std::size_t elementSize) {
	FUNCID(BinaryReader::checkDeclaredLength);
	const std::streamoff start = m_in.tellg();
	std::uint32_t len = 0;
	if (start < 0 || !m_in.read(reinterpret_cast<char*>(&len), sizeof(len)))
		throw ZEB::Exception("Error reading from input stream!", FUNC_ID);
	const std::uint64_t left = remaining();
	m_in.seekg(start);
	if (len <= maxSize && static_cast<std::uint64_t>(len)*elementSize > left)
		throw ZEB::Exception(ZEB::MessageFormat("Declared length %1 exceeds the %2 bytes remaining in the file.")
							 .arg(len).arg(static_cast<unsigned long long>(left)), FUNC_ID);
}

} // namespace DATAIO
