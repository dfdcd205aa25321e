#include "ZEB_BinaryIO.h"

#include <algorithm>

namespace ZEB {

namespace {

/*! Reads len bytes into str in bounded chunks, so that a short stream never allocates the
	declared length at once. Returns false when the stream ends early.
*/
bool readBytes(std::istream & in, std::string & str, std::uint32_t len) {
	str.clear();
	const std::size_t chunk = 1 << 20;
	std::size_t done = 0;
	while (done < len) {
		std::size_t n = std::min<std::size_t>(chunk, len - done);
		str.resize(done + n);
		if (!in.read(&str[done], static_cast<std::streamsize>(n))) {
			str.clear();
			return false;
		}
		done += n;
	}
	return true;
}

} // namespace


void read_string_binary(std::istream & in, std::string & str, unsigned int maxSize) {
	FUNCID(read_string_binary);
	std::uint32_t len = 0;
	if (!in.read(reinterpret_cast<char*>(&len), sizeof(len)))
		throw Exception("Error reading from input stream!", FUNC_ID);
	if (len > maxSize)
		throw Exception("String length exceeds given maximum!", FUNC_ID);
	if (!readBytes(in, str, len))
		throw Exception("Error reading from input stream!", FUNC_ID);
}


void write_string_binary(std::ostream & out, const std::string & str) {
	std::uint32_t len = static_cast<std::uint32_t>(str.size());
	out.write(reinterpret_cast<const char*>(&len), sizeof(len));
	out.write(str.data(), static_cast<std::streamsize>(str.size()));
}


void read_string_binary_with_termination_character(std::istream & in, std::string & str,
												   unsigned int maxSize, char termination)
{
	FUNCID(read_string_binary_with_termination_character);
	std::uint32_t len = 0;
	if (!in.read(reinterpret_cast<char*>(&len), sizeof(len)))
		throw Exception("Error reading from input stream!", FUNC_ID);
	if (len == 0)
		throw Exception("Invalid string length, must be > 0!", FUNC_ID);
	if (len > maxSize)
		throw Exception("String length exceeds given maximum!", FUNC_ID);
	if (!readBytes(in, str, len))
		throw Exception("Error reading from input stream!", FUNC_ID);
	if (str.back() != termination) {
		str.clear();
		throw Exception("Invalid string format, missing termination character!", FUNC_ID);
	}
	str.pop_back();
}


void write_string_binary_with_termination_character(std::ostream & out, const std::string & str,
													char termination)
{
	std::uint32_t len = static_cast<std::uint32_t>(str.size() + 1);
	out.write(reinterpret_cast<const char*>(&len), sizeof(len));
	out.write(str.data(), static_cast<std::streamsize>(str.size()));
	out.put(termination);
}

} // namespace ZEB
