#ifndef OVP_WacReaderH
#define OVP_WacReaderH

#include <vector>

#include "OVP_FileReader.h"

namespace OVP {

class ReaderLines;
struct ReaderHeader;

/*! Reads climate files of the WAC layout, version 2: a format line ending in "_WAC_02", a line
	offset to the "Number of DataColumns" line, title and site data (kept as the description),
	time step [h] and number of data lines, the column keywords with an optional line of units in
	brackets, then one line per time step. The first line belongs to the end of the first step
	(time = step, in hours from 1 January 00:00); relative humidity given as a fraction is read
	in % (times 100).
*/
class WacReader : public FileReader {
public:
	std::string name() const override;
	std::vector<std::string> patterns() const override;
	bool accepts(const std::string & fileName, const std::string & head) const override;
	void readHeader(const std::string & fileName, DATAIO::DataIO & container) const override;
	void read(const std::string & fileName, DATAIO::DataIO & container,
			  ZEB::NotificationHandler * notification = nullptr) const override;

private:
	/*! What the header says about the data lines. */
	struct Layout {
		double				m_timeStep = 0;		///< hours
		unsigned long		m_dataLines = 0;
		std::size_t			m_columns = 0;
		std::vector<double>	m_factors;			///< per column, 100 for a fraction read in %
		/*! True when the header ended with a data line (there was no units line): lines
			stands on it.
		*/
		bool				m_onDataLine = false;
	};

	/*! Reads the header up to the keywords and the units line. */
	static void readWacHeader(ReaderLines & lines, ReaderHeader & header, Layout & layout);
	/*! Moves lines to the next line of the header, which is line n; throws when the file ends. */
	static void nextHeaderLine(ReaderLines & lines, std::uint64_t n);
	/*! The number in the first field of the current header line, whose text must contain
		label (blanks and case ignored; an empty label fits every line).
	*/
	static double headerValue(ReaderLines & lines, const char * label);
	/*! Quantity, unit and factor of each column, from its keyword and the unit text of the
		units line (empty without one).
	*/
	static void setColumns(ReaderLines & lines, const std::vector<std::string> & keywords,
						   const std::vector<std::string> & unitTexts, ReaderHeader & header, Layout & layout);
};

} // namespace OVP

#endif // OVP_WacReaderH
