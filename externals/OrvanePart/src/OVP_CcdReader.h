#ifndef OVP_CcdReaderH
#define OVP_CcdReaderH

#include "OVP_FileReader.h"

namespace OVP {

class ReaderLines;
struct ReaderHeader;

/*! Reads CCD climate data files: comment lines starting with "#", one line with a quantity
	keyword and its unit, then lines "day hh:mm[:ss] value" (day 0 = 1 January). Times are
	seconds from 1 January 00:00; the start year comes from a comment "# year: 2023" before the
	keyword line, else the container has none. A missing value or a gap mark is a gap.
*/
class CcdReader : public FileReader {
public:
	std::string name() const override;
	std::vector<std::string> patterns() const override;
	bool accepts(const std::string & fileName, const std::string & head) const override;
	void readHeader(const std::string & fileName, DATAIO::DataIO & container) const override;
	void read(const std::string & fileName, DATAIO::DataIO & container,
			  ZEB::NotificationHandler * notification = nullptr) const override;

private:
	/*! Reads the comments and the keyword line; lines stands on the keyword line afterwards. */
	static void readKeywordLine(ReaderLines & lines, ReaderHeader & header);
	/*! Seconds from 1 January 00:00 of the day number and time of day texts of a data line. */
	static double parseTime(const ReaderLines & lines, const char * dayBegin, const char * dayEnd,
							const char * timeBegin, const char * timeEnd);
};

} // namespace OVP

#endif // OVP_CcdReaderH
