#include "EM_ExtractorVecOutputBase.h"

#include <DATAIO_DataIO.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

namespace EM {

ExtractorVecOutputBase::ExtractorVecOutputBase(const std::vector<DATAIO::DataIO *> & dataIOs, CutType cutType) :
	ExtractorBase(dataIOs, cutType)
{
}


std::string ExtractorVecOutputBase::information(InformationType type, OutputDataType data) const {
	FUNCID(ExtractorVecOutputBase::information);
	if (type != IT_Name && type != IT_Unit)
		throw ZEB::Exception("Invalid data information type.", FUNC_ID);
	switch (data) {
		case ODT_X :
			return type == IT_Name ? cutRecord(CD_X).m_name : targetXUnit().name();
		case ODT_Y :
			return type == IT_Name ? cutRecord(CD_Y).m_name : targetYUnit().name();
		case ODT_Values :
			return type == IT_Name ? m_dataIOs.front()->quantity() : targetValueUnit().name();
		default :
			throw ZEB::Exception("Invalid data information type (OutputDataTypes).", FUNC_ID);
	}
}


ZEB::Unit ExtractorVecOutputBase::axisUnitFromDataIO(unsigned int axis) const {
	FUNCID(ExtractorVecOutputBase::axisUnitFromDataIO);
	switch (axis) {
		case 0 :
		case 1 : return ZEB::Unit("m");
		case 2 : return unitFromDataIO(m_dataIOs.front()->valueUnit(), FUNC_ID);
		default :
			throw ZEB::Exception("Invalid axis requested.", FUNC_ID);
	}
}


void ExtractorVecOutputBase::clearOutput() {
	m_x.clear();
	m_y.clear();
	m_vx.clear();
	m_vy.clear();
	m_xOutput.clear();
	m_yOutput.clear();
	m_vxOutput.clear();
	m_vyOutput.clear();
}


void ExtractorVecOutputBase::convertUnits() {
	FUNCID(ExtractorVecOutputBase::convertUnits);
	try {
		convertedCopy(m_x, targetXUnit(), m_xOutput);
		convertedCopy(m_y, targetYUnit(), m_yOutput);
		convertedCopy(m_vx, targetValueUnit(), m_vxOutput);
		convertedCopy(m_vy, targetValueUnit(), m_vyOutput);
	}
	catch (ZEB::Exception & ex) {
		m_xOutput.clear();
		m_yOutput.clear();
		m_vxOutput.clear();
		m_vyOutput.clear();
		throw ZEB::Exception(ex, "Error converting the vector field to the target units.", FUNC_ID);
	}
}


bool ExtractorVecOutputBase::canUpdate() {
	FUNCID(ExtractorVecOutputBase::canUpdate);
	if (!ExtractorBase::canUpdate())
		return false;
	if (targetYUnit().id() == 0) {
		ZEB::reportError("Target y-coordinate unit not set.", FUNC_ID);
		return false;
	}
	// the positions come from the geometry in metres
	const unsigned int lengthBase = ZEB::Unit("m").base_id();
	if (targetXUnit().base_id() != lengthBase || targetYUnit().base_id() != lengthBase) {
		ZEB::reportError("Invalid or not compatible units in DataIO container.", FUNC_ID);
		return false;
	}
	return true;
}

} // namespace EM
