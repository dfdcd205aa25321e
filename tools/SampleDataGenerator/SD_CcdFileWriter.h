#ifndef SD_CcdFileWriterH
#define SD_CcdFileWriterH

#include <string>
#include <vector>

namespace SD {

/*! Writes one hourly climate quantity as a CCD climate data file, the plain text format of
	climate data sets: comment lines starting with "#" (a description and "# year: <start year>"),
	the line with the quantity keyword and its unit, then one line per hour "day hh:mm:ss value",
	days counted from 0 = 1 January of the start year. Values are rounded to the significant
	digits of the output files, so a CCD file and a reference output column of the same quantity
	hold the same numbers.
*/
class CcdFileWriter {
public:
	/*! Writes the file; value h belongs to the end of hour h + 1 (the first line is "0 01:00:00").
		Throws ZEB::Exception when the file cannot be written.
	*/
	static void write(const std::string & path, const std::string & description, int startYear,
					  const std::string & keyword, const std::string & unit, const std::vector<double> & hourlyValues);
};

} // namespace SD

#endif // SD_CcdFileWriterH
