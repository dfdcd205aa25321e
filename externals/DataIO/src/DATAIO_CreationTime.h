#ifndef DATAIO_CreationTimeH
#define DATAIO_CreationTimeH

#include <cstdint>
#include <string>

namespace DATAIO {

/*! Converts the creation time of an output file between its two stored forms: the text of the
	ASCII CREATED line, "YYYY-MM-DD HH:MM:SS" in UTC, and the 8-byte field of the binary header,
	a signed 64-bit count of seconds since 1970-01-01 00:00:00 UTC. The value 0 stands for "no
	creation time" and corresponds to the empty text. Times outside the years 0001-9999 are
	written as text "@" followed by the decimal seconds.
*/
class CreationTime {
public:
	/*! Text form of the seconds. */
	static std::string toText(std::int64_t seconds);
	/*! Seconds of a text in one of the forms above; false when the text has neither form. */
	static bool fromText(const std::string & text, std::int64_t & seconds);
};

} // namespace DATAIO

#endif // DATAIO_CreationTimeH
