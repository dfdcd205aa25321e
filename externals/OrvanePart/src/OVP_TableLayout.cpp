#include "OVP_TableLayout.h"

#include <algorithm>

#include "OVP_TableFields.h"

namespace OVP {

void TableLayout::fillHeader(const std::string & fileName, DATAIO::DataIO & container) const {
	container.setType(DATAIO::DataIO::T_REFERENCE);
	container.setSpaceType(DATAIO::DataIO::ST_SINGLE);
	container.setTimeType(DATAIO::DataIO::TT_NONE);
	container.setDataFormat(DATAIO::DataIO::DF_2D);
	container.setFilename(fileName);
	container.setQuantity(m_collection);
	std::vector<std::uint32_t> nums(m_quantities.size());
	for (std::size_t i = 0; i < nums.size(); ++i)
		nums[i] = static_cast<std::uint32_t>(i);
	container.setNums(nums);
	container.setColumnProperties(m_quantities, m_units);
	container.setValueUnit(m_units.empty() ? std::string("-") : m_units.front());
	container.setTimeUnit(m_timeUnit);
	container.setStartYear(m_startYear);
	container.setDescription(m_description);
}



void TableLayout::decideDecimal(const std::vector<TableFile::Line> & dataLines) {
	m_decimalComma = false;
	m_decimalDecided = m_delimiter == ',';
	std::vector<std::string> cells;
	for (std::size_t r = 0; r < dataLines.size() && !m_decimalDecided; ++r) {
		TableFields::texts(dataLines[r].m_text, m_delimiter, cells);
		for (std::size_t i = 0; i < cells.size() && i < m_fields.size() && !m_decimalDecided; ++i) {
			const int role = m_fields[i];
			if (role < 0 && !(role == FIELD_TIME && !m_dateTime))
				continue;
			if (cells[i].find('.') != std::string::npos)
				m_decimalDecided = true;
			else if (cells[i].find(',') != std::string::npos)
				m_decimalComma = m_decimalDecided = true;
		}
	}
}



void TableLayout::setDataStart(const std::vector<TableFile::Line> & dataLines) {
	m_dataOffset = dataLines.front().m_start;
	m_dataLine = dataLines.front().m_number;
	m_lineLength = std::max<std::uint64_t>(1, (dataLines.back().m_end - dataLines.front().m_start)/dataLines.size());
}

} // namespace OVP
