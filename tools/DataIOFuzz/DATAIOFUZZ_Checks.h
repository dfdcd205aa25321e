#ifndef DATAIOFUZZ_ChecksH
#define DATAIOFUZZ_ChecksH

#include <cstddef>
#include <string>

namespace ZEB {
class Exception;
}

namespace DATAIO {
class DataIO;
class GeoFile;
}

namespace DATAIOFUZZ {

/*! The properties the fuzz targets assert beyond "no crash": a rejected input yields a proper
	error chain, and whatever is read can be written and read back unchanged. A violation prints
	what differs and aborts, which libFuzzer reports as a crash and keeps the input.
*/
class Checks {
public:
	/*! The exception carries at least one message and its newest record names its origin. */
	static void checkError(const ZEB::Exception & ex);

	/*! Header fields, time points and values (all loaded) of two containers agree; NaN equals
		any NaN (the ASCII form keeps no payload), other doubles must have the same bits.
	*/
	static void checkSameContainer(DATAIO::DataIO & a, DATAIO::DataIO & b, const std::string & what);

	/*! n doubles agree (NaN as above). */
	static void checkSameValues(const double * a, const double * b, std::size_t n, const std::string & what);

	/*! Two geometries agree (NaN as above). */
	static void checkSameGeometry(const DATAIO::GeoFile & a, const DATAIO::GeoFile & b, const std::string & what);

	/*! Prints the message and aborts. */
	[[noreturn]] static void fail(const std::string & message);
};

} // namespace DATAIOFUZZ

#endif // DATAIOFUZZ_ChecksH
