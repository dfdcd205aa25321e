#include "EM_Extractor3DFromFieldBase.h"

#include <limits>

#include <DATAIO_GeoFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

namespace EM {

namespace {

/*! The free dimensions of a cut that leaves two of them, in output order. */
std::vector<unsigned int> axes(DATAIO::DataIO::DataFormat format, CutType cutType, const char * functionId) {
	return FieldCut::freeDimensions(format, cutType, 2, functionId);
}

} // namespace


Extractor3DFromFieldBase::Extractor3DFromFieldBase(DATAIO::DataIO * dataIO, DATAIO::DataIO::DataFormat format,
												   CutType cutType, std::shared_ptr<const DATAIO::GeoFile> geometry,
												   const char * functionId) :
	Extractor3DOutputBase(std::vector<DATAIO::DataIO *>(1, dataIO), cutType,
						  axes(format, cutType, functionId)[0], axes(format, cutType, functionId)[1]),
	m_fieldCut(format, cutType, 2, functionId)
{
	if (geometry != nullptr)
		setGeoFile(geometry);
}


std::vector<double> Extractor3DFromFieldBase::cutValues(unsigned int dimension) const {
	if (dimension >= CD_Time || !isCutDimension(dimension))
		return Extractor3DOutputBase::cutValues(dimension);
	const DATAIO::GeoFile * geometry = geoFile();
	if (geometry == nullptr)
		return std::vector<double>();
	return m_fieldCut.grid(*m_dataIOs.front(), *geometry).centres(dimension);
}


bool Extractor3DFromFieldBase::canUpdateField(const char * formatMessage, const char * functionId) {
	if (!Extractor3DOutputBase::canUpdate())
		return false;
	if (m_dataIOs.front()->dataFormat() != m_fieldCut.dataFormat()) {
		ZEB::reportError(formatMessage, functionId);
		return false;
	}
	const DATAIO::GeoFile * geometry = geoFile();
	if (geometry == nullptr || geometry->isEmpty()) {
		ZEB::reportError("Missing/invalid geometry data for DataIO container.", functionId);
		return false;
	}
	return true;
}


void Extractor3DFromFieldBase::doUpdateField(const char * functionId) {
	clearOutput();
	try {
		extract();
	}
	catch (ZEB::Exception & ex) {
		clearOutput();
		throw ZEB::Exception(ex, "Error accessing data from DataIO.", functionId);
	}
}


void Extractor3DFromFieldBase::extract() {
	FUNCID(Extractor3DFromFieldBase::extract);
	DATAIO::DataIO & dataIO = *m_dataIOs.front();
	const DATAIO::GeoFile * geometry = geoFile();
	if (geometry == nullptr)
		throw ZEB::Exception("Missing/invalid geometry data for DataIO container.", FUNC_ID);
	const SpaceGrid & grid = m_fieldCut.rebuildGrid(dataIO, *geometry);
	std::array<unsigned int, 3> fixedCells = { { 0, 0, 0 } };
	for (unsigned int d = 0; d < grid.dimensionCount(); ++d)
		if (isCutDimension(d))
			fixedCells[d] = resolveSpaceIndex(d, grid.cellCount(d));
	const std::vector<std::ptrdiff_t> columns = m_fieldCut.selectColumns(grid, fixedCells);
	const std::size_t stride = dataIO.nValues();
	const double nan = std::numeric_limits<double>::quiet_NaN();
	m_values.m_unit = unitFromDataIO(dataIO.valueUnit(), FUNC_ID);
	m_y.m_data = grid.drawCoordinates(yDimension());
	m_y.m_unit = ZEB::Unit("m");
	m_yCellCount = grid.cellCount(yDimension());

	if (xDimension() == CD_Time) {
		const double * values = dataIO.dataVector();
		const std::vector<double> & time = dataIO.timePoints();
		m_x.m_data = time;
		m_x.m_unit = unitFromDataIO(dataIO.timeUnit(), FUNC_ID);
		m_xCellCount = time.size();
		m_values.m_data.assign(m_xCellCount*m_yCellCount, nan);
		for (std::size_t j = 0; j < m_yCellCount; ++j) {
			if (columns[j] < 0)
				continue;
			const double * v = values + columns[j];
			double * row = &m_values.m_data[j*m_xCellCount];
			for (std::size_t t = 0; t < m_xCellCount; ++t)
				row[t] = v[t*stride];
		}
		return;
	}
	const double * values = dataIO.data(resolveTimeIndex(dataIO.timePoints().size()));
	m_x.m_data = grid.drawCoordinates(xDimension());
	m_x.m_unit = ZEB::Unit("m");
	m_xCellCount = grid.cellCount(xDimension());
	m_values.m_data.assign(m_xCellCount*m_yCellCount, nan);
	for (std::size_t k = 0; k < columns.size(); ++k)
		if (columns[k] >= 0)
			m_values.m_data[k] = values[columns[k]];
}

} // namespace EM
