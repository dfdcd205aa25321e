#ifndef DATAIO_VersionH
#define DATAIO_VersionH

#include <iosfwd>

namespace DATAIO {

/*! The 16-byte magic block that starts every generation-6 file: two 4-byte magic words that tell
	the kind of file and its ASCII or binary variant, then the file version.
	- Binary variant: bytes 8-11 are a little-endian 32-bit word, major version in the lowest
	  byte, minor version in the next one; bytes 12-15 are reserved (written as zero).
	- ASCII variant: bytes 8-15 are text " MM.0mmm": major version in bytes 9-10, minor version
	  in bytes 13-15, both as decimal digits.
*/
class Version {
public:
	/*! Reads the magic block at the current stream position.
		\param magicAscii The eight magic characters of the ASCII variant, e.g. "S6OAQXV!".
		\param magicBinary The eight magic characters of the binary variant, e.g. "S6OBQXV!".
		\param isBinary Set to true when the binary variant was found.
		Throws "Invalid magic header or unknown file format." when the first word matches neither
		variant (or the block is incomplete) and "Wrong second magic number!" when the second word
		does not belong to the variant of the first.
	*/
	static void read(std::istream & in, const char * magicAscii, const char * magicBinary,
					 bool & isBinary, unsigned int & majorVersion, unsigned int & minorVersion);

	/*! Writes the magic block; magic holds the eight magic characters of the chosen variant. */
	static void write(std::ostream & out, const char * magic, bool isBinary,
					  unsigned int majorVersion, unsigned int minorVersion);
};

} // namespace DATAIO

#endif // DATAIO_VersionH
