#include "EM_Extractor2DFromReference.h"

#include <algorithm>

#include <DATAIO_DataIO.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

namespace EM {

Extractor2DFromReference::Extractor2DFromReference(DATAIO::DataIO * dataIO, std::uint32_t column) :
	Extractor2DOutputBase(std::vector<DATAIO::DataIO *>(1, dataIO), CT_NoCut, CD_Time),
	m_column(column)
{
}


bool Extractor2DFromReference::canUpdate() {
	FUNCID(Extractor2DFromReference::canUpdate);
	if (!Extractor2DOutputBase::canUpdate())
		return false;
	if (m_dataIOs.front()->dataFormat() != DATAIO::DataIO::DF_2D) {
		ZEB::reportError("Mismatching data format (expected 2D). Has output data format changed?", FUNC_ID);
		return false;
	}
	if (!checkTargetXUnit(FUNC_ID))
		return false;
	if (columnPosition() >= m_dataIOs.front()->nValues()) {
		ZEB::reportError("Given column is not in DataIO container.", FUNC_ID);
		return false;
	}
	return true;
}


std::string Extractor2DFromReference::dataSetName() const {
	const DATAIO::DataIO & dataIO = *m_dataIOs.front();
	const std::size_t position = columnPosition();
	if (dataIO.hasColumnProperties())
		return position < dataIO.nValues() ? dataIO.columnQuantity(position) : std::string();
	const std::vector<std::string> names = dataIO.referenceDataSetNames();
	return position < names.size() ? names[position] : std::string();
}


std::string Extractor2DFromReference::valueUnitName(std::size_t input) const {
	return m_dataIOs[input]->columnUnit(columnPosition());
}


std::string Extractor2DFromReference::dataName(OutputDataType data) const {
	const std::string name = data == ODT_Y ? dataSetName() : std::string();
	return name.empty() ? Extractor2DOutputBase::dataName(data) : name;
}


void Extractor2DFromReference::doUpdate() {
	FUNCID(Extractor2DFromReference::doUpdate);
	extractAndManipulate([this]() { columnSeries(*m_dataIOs.front(), columnPosition(), m_x, m_y); }, FUNC_ID);
}


std::size_t Extractor2DFromReference::columnPosition() const {
	const std::vector<std::uint32_t> & nums = m_dataIOs.front()->nums();
	return static_cast<std::size_t>(std::find(nums.begin(), nums.end(), m_column) - nums.begin());
}

} // namespace EM
