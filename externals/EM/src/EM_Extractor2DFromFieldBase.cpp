#include "EM_Extractor2DFromFieldBase.h"

#include <ZEB_Exception.h>

namespace EM {

Extractor2DFromFieldBase::Extractor2DFromFieldBase(DATAIO::DataIO * dataIO, DATAIO::DataIO::DataFormat format,
												   CutType cutType, std::shared_ptr<const DATAIO::GeoFile> geometry,
												   const char * functionId) :
	Extractor2DOutputBase(std::vector<DATAIO::DataIO *>(1, dataIO), cutType,
						  FieldCut::freeDimensions(format, cutType, 1, functionId).front()),
	m_fieldCut(format, cutType, 1, functionId)
{
	if (geometry != nullptr)
		setGeoFile(geometry);
}


std::vector<double> Extractor2DFromFieldBase::cutValues(unsigned int dimension) const {
	if (dimension >= CD_Time || !isCutDimension(dimension))
		return Extractor2DOutputBase::cutValues(dimension);
	return m_fieldCut.cellCentres(*m_dataIOs.front(), geoFile(), dimension);
}


bool Extractor2DFromFieldBase::canUpdateField(const char * formatMessage, const char * functionId) {
	if (!Extractor2DOutputBase::canUpdate())
		return false;
	return m_fieldCut.checkInput(*m_dataIOs.front(), geoFile(), formatMessage, functionId) &&
		   checkTargetXUnit(functionId);
}


void Extractor2DFromFieldBase::doUpdateField(const char * functionId) {
	extractAndManipulate([this]() { extract(); }, functionId);
}


void Extractor2DFromFieldBase::extract() {
	FUNCID(Extractor2DFromFieldBase::extract);
	DATAIO::DataIO & dataIO = *m_dataIOs.front();
	std::vector<std::ptrdiff_t> columns;
	const SpaceGrid & grid = m_fieldCut.selectCutColumns(dataIO, geoFile(),
		[this](unsigned int dimension, std::size_t cellCount) { return resolveSpaceIndex(dimension, cellCount); },
		columns, FUNC_ID);

	if (xDimension() == CD_Time) {
		if (columns.front() < 0)
			throw ZEB::Exception("No value in the selected cut cell.", FUNC_ID);
		columnSeries(dataIO, static_cast<std::size_t>(columns.front()), m_x, m_y);
		return;
	}
	const unsigned int t = resolveTimeIndex(dataIO.timePoints().size());
	const double * values = dataIO.data(t);
	const std::vector<double> & centres = grid.centres(xDimension());
	for (std::size_t k = 0; k < columns.size(); ++k) {
		if (columns[k] < 0)
			continue;
		m_x.m_data.push_back(centres[k]);
		m_y.m_data.push_back(values[columns[k]]);
	}
	m_x.m_unit = ZEB::Unit("m");
	m_y.m_unit = unitFromDataIO(dataIO.valueUnit(), FUNC_ID);
}

} // namespace EM
