#include "EM_Extractor3DFromFieldBase.h"

#include <limits>
#include <utility>
#include <vector>

#include <ZEB_Exception.h>

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
	return m_fieldCut.cellCentres(*m_dataIOs.front(), geoFile(), dimension);
}


bool Extractor3DFromFieldBase::canUpdateField(const char * formatMessage, const char * functionId) {
	if (!Extractor3DOutputBase::canUpdate())
		return false;
	return m_fieldCut.checkInput(*m_dataIOs.front(), geoFile(), formatMessage, functionId);
}


void Extractor3DFromFieldBase::doUpdateField(const char * functionId) {
	extractIntoClearedOutput([this]() { extract(); }, functionId);
}


void Extractor3DFromFieldBase::extract() {
	FUNCID(Extractor3DFromFieldBase::extract);
	DATAIO::DataIO & dataIO = *m_dataIOs.front();
	std::vector<std::ptrdiff_t> columns;
	const SpaceGrid & grid = m_fieldCut.selectCutColumns(dataIO, geoFile(),
		[this](unsigned int dimension, std::size_t cellCount) { return resolveSpaceIndex(dimension, cellCount); },
		columns, FUNC_ID);
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
		// time point by time point: each record is read once, in order, and spread over the rows
		std::vector<std::pair<std::size_t, double *> > rows;
		for (std::size_t j = 0; j < m_yCellCount; ++j)
			if (columns[j] >= 0)
				rows.emplace_back(static_cast<std::size_t>(columns[j]), &m_values.m_data[j*m_xCellCount]);
		for (std::size_t t = 0; t < m_xCellCount; ++t) {
			const double * record = values + t*stride;
			for (const std::pair<std::size_t, double *> & row : rows)
				row.second[t] = record[row.first];
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
