#include "EM_Extractor3DOutputBase.h"

#include <utility>

#include <DATAIO_DataIO.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

namespace EM {

Extractor3DOutputBase::Extractor3DOutputBase(const std::vector<DATAIO::DataIO *> & dataIOs, CutType cutType,
											 unsigned int xDimension, unsigned int yDimension) :
	ExtractorBase(dataIOs, cutType),
	m_xDimension(xDimension),
	m_yDimension(yDimension)
{
}


std::string Extractor3DOutputBase::information(InformationType type, OutputDataType data) const {
	FUNCID(Extractor3DOutputBase::information);
	if (type != IT_Name && type != IT_Unit)
		throw ZEB::Exception("Invalid data information type.", FUNC_ID);
	switch (data) {
		case ODT_X :
			return type == IT_Name ? cutRecord(m_xDimension).m_name : targetXUnit().name();
		case ODT_Y :
			return type == IT_Name ? cutRecord(m_yDimension).m_name : targetYUnit().name();
		case ODT_Values :
			return type == IT_Name ? m_dataIOs.front()->quantity() : targetValueUnit().name();
		default :
			throw ZEB::Exception("Invalid data information type (OutputDataTypes).", FUNC_ID);
	}
}


ZEB::Unit Extractor3DOutputBase::axisUnitFromDataIO(unsigned int axis) const {
	FUNCID(Extractor3DOutputBase::axisUnitFromDataIO);
	switch (axis) {
		case 0 : return dimensionUnit(m_xDimension);
		case 1 : return dimensionUnit(m_yDimension);
		case 2 : return unitFromDataIO(m_dataIOs.front()->valueUnit(), FUNC_ID);
		default :
			throw ZEB::Exception("Invalid axis requested.", FUNC_ID);
	}
}


void Extractor3DOutputBase::clearOutput() {
	m_x.clear();
	m_y.clear();
	m_values.clear();
	m_xCellCount = 0;
	m_yCellCount = 0;
	m_xOutput.clear();
	m_yOutput.clear();
	m_valuesOutput.clear();
}


void Extractor3DOutputBase::convertUnits() {
	FUNCID(Extractor3DOutputBase::convertUnits);
	// a failed conversion raises the message of the part that failed
	const auto convert = [FUNC_ID](ZEB::UnitVector source, const ZEB::Unit & target, ZEB::UnitVector & result,
								   const char * message)
	{
		try {
			convertedCopy(std::move(source), target, result);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, message, FUNC_ID);
		}
	};
	try {
		convert(m_x, targetXUnit(), m_xOutput,
				"Error converting x-unit: no valid unit conversion found between source and target units.\n");
		convert(m_y, targetYUnit(), m_yOutput,
				"Error converting y-unit: no valid unit conversion found between source and target units.\n");
		// the values are taken over, not copied: a grid over a long time span holds millions;
		// the next update extracts them anew
		convert(std::move(m_values), targetValueUnit(), m_valuesOutput,
				"Error converting value unit: no valid unit conversion found between source and target units.\n");
	}
	catch (ZEB::Exception &) {
		// no output half in target units
		m_xOutput.clear();
		m_yOutput.clear();
		m_valuesOutput.clear();
		throw;
	}
}


bool Extractor3DOutputBase::canUpdate() {
	FUNCID(Extractor3DOutputBase::canUpdate);
	if (!ExtractorBase::canUpdate())
		return false;
	if (targetYUnit().id() == 0) {
		ZEB::reportError("Target y-coordinate unit not set.", FUNC_ID);
		return false;
	}
	return true;
}


ZEB::Unit Extractor3DOutputBase::dimensionUnit(unsigned int dimension) const {
	FUNCID(Extractor3DOutputBase::dimensionUnit);
	if (dimension != CD_Time)
		return ZEB::Unit("m");
	return unitFromDataIO(m_dataIOs.front()->timeUnit(), FUNC_ID);
}

} // namespace EM
