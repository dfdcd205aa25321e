#ifndef OVP_StatisticsReaderH
#define OVP_StatisticsReaderH

#include "OVP_FileReader.h"

namespace OVP {

class ReaderLines;
struct ReaderHeader;

/*! Reads the run statistics files of the simulation program ("*_stats.tsv", "*_stats.txt"):
	generation 6 with a tab-separated header row "Name [unit]" per column, generation 5 with
	comment lines starting with "#", the last of which names the columns "Name [unit]" one after
	the other, and blank-separated values. The first column is the simulation time, in the unit
	its header names.
*/
class StatisticsReader : public FileReader {
public:
	std::string name() const override;
	std::vector<std::string> patterns() const override;
	bool accepts(const std::string & fileName, const std::string & head) const override;
	void readHeader(const std::string & fileName, DATAIO::DataIO & container) const override;
	void read(const std::string & fileName, DATAIO::DataIO & container,
			  ZEB::NotificationHandler * notification = nullptr) const override;

private:
	/*! Splits a header into its columns "Name [unit]": at tabs with tabs, else after each "]".
		False when a column lacks its unit in brackets or its name.
	*/
	static bool splitColumns(const std::string & text, bool tabs, std::vector<std::string> & columns);
	/*! Reads the header; tabs tells the generation (6: tab-separated values, 5: blank-separated).
		Returns true when lines stands on the first data line afterwards (generation 5), false
		when it stands on the last line of the header.
	*/
	static bool readColumns(ReaderLines & lines, ReaderHeader & header, bool & tabs);
};

} // namespace OVP

#endif // OVP_StatisticsReaderH
