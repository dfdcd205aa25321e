#ifndef DATAIOFUZZ_SessionDataH
#define DATAIOFUZZ_SessionDataH

#include <string>

namespace DATAIOFUZZ {

/*! The small result set that the session seeds are built on and that the session target reads
	them with: a week of the sample data generator's 1D wall and 2D corner on coarse grids, the
	files a few kB each, so that the mappers of a session find their data.
*/
class SessionData {
public:
	/*! Writes the files into dir (created when missing); throws ZEB::Exception. */
	static void write(const std::string & dir);

	/*! True for the names of output files (not geometry files) of the set. */
	static bool isOutputFile(const std::string & fileName);
};

} // namespace DATAIOFUZZ

#endif // DATAIOFUZZ_SessionDataH
