#include "OVP_CutOptions.h"

#include <algorithm>

#include <DATAIO_DataIO.h>

#include <EM_ExtractorBase.h>
#include <EM_ExtractorFactory.h>
#include <EM_FieldCut.h>
#include <EM_SpaceGrid.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace OVP {

namespace {

/*! Names of the geometric directions of a space grid. */
const char * const DIRECTION_NAMES[] = { "x", "y", "z" };

} // namespace


CutOptions::CutOptions(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry) :
	m_cutTypes(EM::ExtractorFactory::validCutTypes(dataIO.dataFormat(), dataIO.type())),
	m_timeUnit(QString::fromStdString(dataIO.timeUnit()))
{
	FUNCID(CutOptions::CutOptions);
	if (m_cutTypes.empty())
		throw ZEB::Exception(ZEB::MessageFormat("No chart can be made of data format '%1'.")
							 .arg(DATAIO::DataIO::dataFormatText(dataIO.dataFormat())), FUNC_ID);
	m_cutType = m_cutTypes.front();
	m_coordinates[EM::CD_Time] = dataIO.timePoints();
	m_names[EM::CD_Time] = "Time";

	// the space coordinates come from the grid of the values, built only when a cut needs them
	const unsigned int spaceCount = EM::FieldCut::spaceDimensionCount(dataIO.dataFormat());
	bool cutsSpace = false;
	for (EM::CutType c : m_cutTypes)
		for (unsigned int d = 0; d < spaceCount; ++d)
			cutsSpace = cutsSpace || EM::CutTypes::isCut(c, d);
	if (!cutsSpace)
		return;
	if (geometry == nullptr)
		geometry = dataIO.geometry();
	if (geometry == nullptr)
		throw ZEB::Exception("Missing/invalid geometry data for DataIO container.", FUNC_ID);
	try {
		EM::SpaceGrid grid;
		grid.build(dataIO, *geometry, spaceCount);
		for (unsigned int d = 0; d < spaceCount; ++d) {
			m_coordinates[d] = grid.centres(d);
			m_names[d] = DIRECTION_NAMES[grid.direction(d)];
		}
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Cannot determine the cut positions of the data set.", FUNC_ID);
	}
}


void CutOptions::setCutType(EM::CutType cutType) {
	FUNCID(CutOptions::setCutType);
	if (std::find(m_cutTypes.begin(), m_cutTypes.end(), cutType) == m_cutTypes.end())
		throw ZEB::Exception(ZEB::MessageFormat("Cut type '%1' is not offered for this data set.")
							 .arg(EM::CutTypes::keyword(cutType)), FUNC_ID);
	m_cutType = cutType;
}


std::vector<unsigned int> CutOptions::cutDimensions() const {
	std::vector<unsigned int> dimensions;
	for (unsigned int d = 0; d < EM::NUM_CD; ++d)
		if (EM::CutTypes::isCut(m_cutType, d))
			dimensions.push_back(d);
	return dimensions;
}


QString CutOptions::unit(unsigned int dimension) const {
	return dimension == EM::CD_Time ? m_timeUnit : QString("m");
}


unsigned int CutOptions::index(unsigned int dimension) const {
	if (dimension == EM::CD_Time && m_followLastTimePoint && !m_coordinates[dimension].empty())
		return static_cast<unsigned int>(m_coordinates[dimension].size() - 1);
	return m_indices[dimension];
}


void CutOptions::setIndex(unsigned int dimension, unsigned int index) {
	FUNCID(CutOptions::setIndex);
	if (dimension >= EM::NUM_CD || index >= m_coordinates[dimension].size())
		throw ZEB::Exception(ZEB::MessageFormat("Cut index %1 is outside the coordinates of dimension #%2.")
							 .arg(index).arg(dimension), FUNC_ID);
	m_indices[dimension] = index;
	if (dimension == EM::CD_Time)
		m_followLastTimePoint = false;
}


void CutOptions::setFollowLastTimePoint(bool follow) {
	m_indices[EM::CD_Time] = index(EM::CD_Time);
	m_followLastTimePoint = follow;
}


void CutOptions::apply(Mapper::DataSet & dataSet) const {
	dataSet.m_cutType = m_cutType;
	dataSet.m_cutIndices.clear();
	for (unsigned int d : cutDimensions()) {
		const bool follow = d == EM::CD_Time && m_followLastTimePoint;
		dataSet.m_cutIndices.emplace_back(d, follow ? EM::ExtractorBase::LAST_INDEX : m_indices[d]);
	}
}

} // namespace OVP
