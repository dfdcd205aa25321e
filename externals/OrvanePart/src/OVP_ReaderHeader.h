#ifndef OVP_ReaderHeaderH
#define OVP_ReaderHeaderH

#include <cstdint>
#include <string>
#include <vector>

#include <DATAIO_DataIO.h>

namespace OVP {

/*! What a data file reader found in a file's header, put into a container as a reference output
	with one data set per value column.
*/
struct ReaderHeader {
	/*! Fills the container's header: reference output of single values, data format DF_2D, one
		column number per value column with its quantity and unit, the value unit of the first
		column. Throws ZEB::Exception when the file has no value column.
	*/
	void apply(const std::string & fileName, DATAIO::DataIO & container) const;

	std::string					m_quantity;			///< name of the collection
	std::vector<std::string>	m_quantities;		///< one per value column
	std::vector<std::string>	m_units;			///< one per value column, unit table names
	std::string					m_timeUnit;
	std::int32_t				m_startYear = DATAIO::DataIO::UNSET_START_YEAR;
	std::string					m_description;
};

} // namespace OVP

#endif // OVP_ReaderHeaderH
