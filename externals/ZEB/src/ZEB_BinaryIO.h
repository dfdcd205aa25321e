#ifndef ZEB_BinaryIOH
#define ZEB_BinaryIOH

#include <cstdint>
#include <cstring>
#include <istream>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include "ZEB_Exception.h"

#if !defined(__BYTE_ORDER__) || __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "Binary file I/O assumes a little-endian host."
#endif

namespace ZEB {

/*! Reads one arithmetic value stored little-endian; throws when the stream ends early. */
template <typename T>
void read_value_binary(std::istream & in, T & value) {
	static_assert(std::is_arithmetic<T>::value, "only arithmetic types are stored in binary files");
	FUNCID(read_value_binary);
	unsigned char buf[sizeof(T)];
	if (!in.read(reinterpret_cast<char*>(buf), sizeof(T)))
		throw Exception("Error reading from input stream!", FUNC_ID);
	std::memcpy(&value, buf, sizeof(T));
}

/*! Writes one arithmetic value little-endian. */
template <typename T>
void write_value_binary(std::ostream & out, const T & value) {
	static_assert(std::is_arithmetic<T>::value, "only arithmetic types are stored in binary files");
	out.write(reinterpret_cast<const char*>(&value), sizeof(T));
}

/*! Reads an unsigned 32-bit length and that many bytes (no terminator).
	A length above maxSize is rejected before anything is allocated; a truncated stream throws.
*/
void read_string_binary(std::istream & in, std::string & str, unsigned int maxSize);

/*! Writes the string as unsigned 32-bit length and its bytes. */
void write_string_binary(std::ostream & out, const std::string & str);

/*! Reads an unsigned 32-bit length (> 0) and that many bytes, the last of which must be the
	termination character; the stored string excludes it.
*/
void read_string_binary_with_termination_character(std::istream & in, std::string & str,
												   unsigned int maxSize, char termination = '\0');

/*! Writes length (including terminator), the bytes and the termination character. */
void write_string_binary_with_termination_character(std::ostream & out, const std::string & str,
													char termination = '\0');

/*! Reads an unsigned 32-bit count and that many little-endian elements.
	A count above maxSize is rejected before allocation; the vector grows in bounded chunks as
	elements arrive, so a lying count on a short stream never allocates more than was read.
*/
template <typename T>
void read_vector_binary(std::istream & in, std::vector<T> & vec, unsigned int maxSize) {
	static_assert(std::is_arithmetic<T>::value, "only arithmetic types are stored in binary files");
	FUNCID(read_vector_binary);
	std::uint32_t count = 0;
	if (!in.read(reinterpret_cast<char*>(&count), sizeof(count)))
		throw Exception("Error reading from input stream!", FUNC_ID);
	if (count > maxSize)
		throw Exception("Vector length exceeds given maximum!", FUNC_ID);
	vec.clear();
	const std::size_t chunk = 65536;
	std::size_t done = 0;
	while (done < count) {
		std::size_t n = std::min<std::size_t>(chunk, count - done);
		vec.resize(done + n);
		if (!in.read(reinterpret_cast<char*>(vec.data() + done), static_cast<std::streamsize>(n*sizeof(T)))) {
			vec.clear();
			throw Exception("Error reading from input stream!", FUNC_ID);
		}
		done += n;
	}
}

/*! Writes the vector as unsigned 32-bit count and its elements. */
template <typename T>
void write_vector_binary(std::ostream & out, const std::vector<T> & vec) {
	static_assert(std::is_arithmetic<T>::value, "only arithmetic types are stored in binary files");
	std::uint32_t count = static_cast<std::uint32_t>(vec.size());
	out.write(reinterpret_cast<const char*>(&count), sizeof(count));
	if (!vec.empty())
		out.write(reinterpret_cast<const char*>(vec.data()), static_cast<std::streamsize>(vec.size()*sizeof(T)));
}

} // namespace ZEB

#endif // ZEB_BinaryIOH
