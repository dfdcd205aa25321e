#include "EM_FieldCut.h"

#include <algorithm>

#include <DATAIO_GeoFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

namespace EM {

std::vector<unsigned int> FieldCut::freeDimensions(DATAIO::DataIO::DataFormat format, CutType cutType,
												   unsigned int freeCount, const char * functionId)
{
	const unsigned int spaceCount = spaceDimensionCount(format);
	if (spaceCount == 0)
		throw ZEB::Exception(ZEB::MessageFormat("Data format '%1' holds no field data.")
							 .arg(DATAIO::DataIO::dataFormatText(format)), functionId);
	if (cutType >= NUM_CT)
		throw ZEB::Exception("Invalid cut type.", functionId);
	std::vector<unsigned int> free;
	if (!CutTypes::isCut(cutType, CD_Time))
		free.push_back(CD_Time);
	for (unsigned int d = CD_X; d < CD_Time; ++d) {
		if (CutTypes::isCut(cutType, d)) {
			if (d >= spaceCount)
				throw ZEB::Exception(ZEB::MessageFormat("Cut type '%1' cuts a dimension that data format '%2' does not have.")
									 .arg(CutTypes::keyword(cutType)).arg(DATAIO::DataIO::dataFormatText(format)), functionId);
		}
		else if (d < spaceCount)
			free.push_back(d);
	}
	if (free.size() != freeCount)
		throw ZEB::Exception(ZEB::MessageFormat("Cut type '%1' leaves %2 dimensions of data format '%3', the extractor needs %4.")
							 .arg(CutTypes::keyword(cutType)).arg(static_cast<unsigned long>(free.size()))
							 .arg(DATAIO::DataIO::dataFormatText(format)).arg(freeCount), functionId);
	return free;
}


unsigned int FieldCut::spaceDimensionCount(DATAIO::DataIO::DataFormat format) {
	switch (format) {
		case DATAIO::DataIO::DF_3D : return 1;
		case DATAIO::DataIO::DF_4D : return 2;
		case DATAIO::DataIO::DF_5D : return 3;
		default : return 0;
	}
}


FieldCut::FieldCut(DATAIO::DataIO::DataFormat format, CutType cutType, unsigned int freeCount, const char * functionId) :
	m_format(format),
	m_free(freeDimensions(format, cutType, freeCount, functionId))
{
	for (unsigned int d : m_free)
		if (d != CD_Time)
			m_freeSpace.push_back(d);
}


const SpaceGrid & FieldCut::rebuildGrid(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile & geometry) const {
	m_grid.build(dataIO, geometry, spaceDimensionCount());
	return m_grid;
}


const SpaceGrid & FieldCut::grid(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile & geometry) const {
	if (!m_grid.isBuiltFor(dataIO, &geometry, spaceDimensionCount()))
		m_grid.build(dataIO, geometry, spaceDimensionCount());
	return m_grid;
}


std::vector<std::ptrdiff_t> FieldCut::selectColumns(const SpaceGrid & grid, const std::array<unsigned int, 3> & fixedCells) const {
	const unsigned int spaceCount = grid.dimensionCount();
	std::size_t slots = 1;
	for (unsigned int d : m_freeSpace)
		slots *= grid.cellCount(d);
	std::vector<std::ptrdiff_t> columns(slots, -1);
	for (std::size_t c = 0; c < grid.columnCount(); ++c) {
		std::size_t slot = 0;
		std::size_t stride = 1;
		bool inCut = true;
		for (unsigned int d = 0; d < spaceCount && inCut; ++d) {
			bool free = false;
			for (unsigned int f : m_freeSpace)
				free = free || f == d;
			if (!free)
				inCut = grid.cell(c, d) == fixedCells[d];
		}
		if (!inCut)
			continue;
		for (unsigned int d : m_freeSpace) {
			slot += grid.cell(c, d)*stride;
			stride *= grid.cellCount(d);
		}
		if (columns[slot] < 0)
			columns[slot] = static_cast<std::ptrdiff_t>(c);
	}
	return columns;
}


std::vector<double> FieldCut::cellCentres(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry,
										  unsigned int dimension) const
{
	if (geometry == nullptr)
		return std::vector<double>();
	return grid(dataIO, *geometry).centres(dimension);
}


bool FieldCut::checkInput(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry, const char * formatMessage,
						  const char * functionId) const
{
	if (dataIO.dataFormat() != m_format) {
		ZEB::reportError(formatMessage, functionId);
		return false;
	}
	if (geometry == nullptr || geometry->isEmpty()) {
		ZEB::reportError("Missing/invalid geometry data for DataIO container.", functionId);
		return false;
	}
	return true;
}


const SpaceGrid & FieldCut::selectCutColumns(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry,
											 const std::function<unsigned int(unsigned int, std::size_t)> & selectedCell,
											 std::vector<std::ptrdiff_t> & columns, const char * functionId) const
{
	if (geometry == nullptr)
		throw ZEB::Exception("Missing/invalid geometry data for DataIO container.", functionId);
	const SpaceGrid & spaceGrid = rebuildGrid(dataIO, *geometry);
	std::array<unsigned int, 3> fixedCells = { { 0, 0, 0 } };
	for (unsigned int d = 0; d < spaceGrid.dimensionCount(); ++d)
		if (std::find(m_freeSpace.begin(), m_freeSpace.end(), d) == m_freeSpace.end())
			fixedCells[d] = selectedCell(d, spaceGrid.cellCount(d));
	columns = selectColumns(spaceGrid, fixedCells);
	return spaceGrid;
}

} // namespace EM
