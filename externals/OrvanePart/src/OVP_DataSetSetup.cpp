#include "OVP_DataSetSetup.h"

namespace OVP {

bool DataSetSetup::usesIndex(unsigned int dimension) const {
	if (!EM::CutTypes::isCut(m_cutType, dimension))
		return false;
	return dimension != EM::CD_Time || !m_followLastTimePoint;
}


bool DataSetSetup::operator==(const DataSetSetup & other) const {
	if (m_fileNames != other.m_fileNames || m_column != other.m_column || m_column2 != other.m_column2
		|| m_cutType != other.m_cutType
		|| m_manipulators != other.m_manipulators || m_modelType != other.m_modelType
		|| m_modelParameters != other.m_modelParameters || m_isoplethLines != other.m_isoplethLines)
		return false;
	const bool cutsTime = EM::CutTypes::isCut(m_cutType, EM::CD_Time);
	if (cutsTime && m_followLastTimePoint != other.m_followLastTimePoint)
		return false;
	for (unsigned int d = 0; d < EM::NUM_CD; ++d)
		if (usesIndex(d) && m_cutIndices[d] != other.m_cutIndices[d])
			return false;
	return true;
}

} // namespace OVP
