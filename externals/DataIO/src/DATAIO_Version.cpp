#include "DATAIO_Version.h"

#include <cstdint>
#include <cstring>
#include <istream>
#include <ostream>

#include <ZEB_Exception.h>

namespace DATAIO {

namespace {

/*! The 4-byte little-endian word at p. */
std::uint32_t word(const char * p) {
	std::uint32_t w;
	std::memcpy(&w, p, sizeof(w));
	return w;
}

/*! Value of count decimal digits at p, or -1 when one of them is no digit. */
int digits(const char * p, int count) {
	int v = 0;
	for (int i = 0; i < count; ++i) {
		if (p[i] < '0' || p[i] > '9')
			return -1;
		v = 10*v + (p[i] - '0');
	}
	return v;
}

} // namespace


void Version::read(std::istream & in, const char * magicAscii, const char * magicBinary,
				   bool & isBinary, unsigned int & majorVersion, unsigned int & minorVersion)
{
	FUNCID(Version::read);
	char block[16];
	if (!in.read(block, sizeof(block)))
		throw ZEB::Exception("Invalid magic header or unknown file format.", FUNC_ID);
	const std::uint32_t first = word(block);
	const char * magic = nullptr;
	if (first == word(magicAscii))
		magic = magicAscii;
	else if (first == word(magicBinary))
		magic = magicBinary;
	else
		throw ZEB::Exception("Invalid magic header or unknown file format.", FUNC_ID);
	if (word(block + 4) != word(magic + 4))
		throw ZEB::Exception("Wrong second magic number!", FUNC_ID);
	isBinary = (magic == magicBinary);
	if (isBinary) {
		const std::uint32_t v = word(block + 8);
		majorVersion = v & 0xFF;
		minorVersion = (v >> 8) & 0xFF;
	}
	else {
		const int major = digits(block + 9, 2);
		const int minor = digits(block + 13, 3);
		if (major < 0 || minor < 0)
			throw ZEB::Exception("Invalid version number in magic header.", FUNC_ID);
		majorVersion = static_cast<unsigned int>(major);
		minorVersion = static_cast<unsigned int>(minor);
	}
}


void Version::write(std::ostream & out, const char * magic, bool isBinary,
					unsigned int majorVersion, unsigned int minorVersion)
{
	char block[16] = {};
	std::memcpy(block, magic, 8);
	if (isBinary) {
		const std::uint32_t v = (majorVersion & 0xFF) | ((minorVersion & 0xFF) << 8);
		std::memcpy(block + 8, &v, sizeof(v));
	}
	else {
		majorVersion %= 100;
		minorVersion %= 1000;
		block[8] = ' ';
		block[9] = static_cast<char>('0' + majorVersion/10);
		block[10] = static_cast<char>('0' + majorVersion%10);
		block[11] = '.';
		block[12] = '0';
		block[13] = static_cast<char>('0' + minorVersion/100);
		block[14] = static_cast<char>('0' + (minorVersion/10)%10);
		block[15] = static_cast<char>('0' + minorVersion%10);
	}
	out.write(block, sizeof(block));
}

} // namespace DATAIO
