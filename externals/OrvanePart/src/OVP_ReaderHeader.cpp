#include "OVP_ReaderHeader.h"

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include <DATAIO_DataIO.h>

namespace OVP {

void ReaderHeader::apply(const std::string & fileName, DATAIO::DataIO & container) const {
	FUNCID(ReaderHeader::apply);
	if (m_units.empty())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' has no value column.").arg(fileName), FUNC_ID);
	container.setFilename(fileName);
	container.setType(DATAIO::DataIO::T_REFERENCE);
	container.setSpaceType(DATAIO::DataIO::ST_SINGLE);
	container.setTimeType(DATAIO::DataIO::TT_NONE);
	container.setDataFormat(DATAIO::DataIO::DF_2D);
	container.setQuantity(m_quantity);
	std::vector<std::uint32_t> nums(m_units.size());
	for (std::size_t i = 0; i < nums.size(); ++i)
		nums[i] = static_cast<std::uint32_t>(i);
	container.setNums(nums);
	container.setColumnProperties(m_quantities, m_units);
	container.setValueUnit(m_units.front());
	container.setTimeUnit(m_timeUnit);
	container.setStartYear(m_startYear);
	container.setDescription(m_description);
}

} // namespace OVP
