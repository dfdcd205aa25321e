#ifndef DATAIO_BinaryReaderH
#define DATAIO_BinaryReaderH

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include <ZEB_BinaryIO.h>

namespace DATAIO {

/*! Reads the fields of a binary file section from a stream whose end position is known.
	Every declared string length, vector length or element count is checked against its maximum
	and against the bytes that remain before the end, before anything is allocated, so that a
	corrupt or hostile file never makes the reader allocate more than the file could hold.
*/
class BinaryReader {
public:
	/*! \param end Stream position of the end of the readable data (usually the file size). */
	BinaryReader(std::istream & in, std::uint64_t end) : m_in(in), m_end(end) {}

	/*! Current stream position. */
	std::uint64_t position() const;
	/*! Bytes between the current position and the end (0 when past it). */
	std::uint64_t remaining() const;

	/*! Reads one little-endian arithmetic value. */
	template <typename T>
	void value(T & v) { ZEB::read_value_binary(m_in, v); }

	/*! Reads a length-prefixed string of at most maxSize bytes. */
	void string(std::string & str, unsigned int maxSize);

	/*! Reads a length-prefixed vector of at most maxSize elements. */
	template <typename T>
	void vector(std::vector<T> & vec, unsigned int maxSize) {
		checkDeclaredLength(maxSize, sizeof(T));
		ZEB::read_vector_binary(m_in, vec, maxSize);
	}

	/*! Reads an unsigned 32-bit element count and checks that count elements of elementSize
		bytes each fit into the remaining bytes.
	*/
	std::uint32_t count(std::size_t elementSize);
	/*! Throws when count elements of elementSize bytes each do not fit into the remaining bytes. */
	void checkFits(std::uint64_t count, std::size_t elementSize) const;

	/*! Reads exactly size bytes into buf; false when the stream ends before. */
	bool raw(char * buf, std::size_t size);

	std::istream & stream() { return m_in; }

private:
	/*! Peeks the 32-bit length at the current position and, when it does not exceed maxSize
		(that is left to the foundation readers and their messages), checks that length elements
		of elementSize bytes fit into the remaining bytes. The stream position is not changed.
	*/
	void checkDeclaredLength(unsigned int maxSize, std::size_t elementSize);

	std::istream &	m_in;
	std::uint64_t	m_end;
};

} // namespace DATAIO

#endif // DATAIO_BinaryReaderH
