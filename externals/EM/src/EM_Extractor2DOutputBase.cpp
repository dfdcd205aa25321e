#include "EM_Extractor2DOutputBase.h"

#include <DATAIO_DataIO.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "EM_Manipulator2DBase.h"

namespace EM {

Extractor2DOutputBase::Extractor2DOutputBase(const std::vector<DATAIO::DataIO *> & dataIOs, CutType cutType,
											 unsigned int xDimension) :
	ExtractorBase(dataIOs, cutType),
	m_xDimension(xDimension)
{
}


std::string Extractor2DOutputBase::information(InformationType type, OutputDataType data) const {
	FUNCID(Extractor2DOutputBase::information);
	if (type != IT_Name && type != IT_Unit)
		throw ZEB::Exception("Invalid data information type.", FUNC_ID);
	if (data != ODT_X && data != ODT_Y)
		throw ZEB::Exception("Invalid data information type (OutputDataTypes).", FUNC_ID);
	if (type == IT_Name)
		return dataName(data);
	return data == ODT_X ? targetXUnit().name() : targetValueUnit().name();
}


ZEB::Unit Extractor2DOutputBase::axisUnitFromDataIO(unsigned int axis) const {
	FUNCID(Extractor2DOutputBase::axisUnitFromDataIO);
	if (axis == 0)
		return xUnitFromDataIO();
	if (axis == 1)
		return yUnitFromDataIO();
	throw ZEB::Exception("Invalid axis requested.", FUNC_ID);
}


void Extractor2DOutputBase::clearOutput() {
	m_x.clear();
	m_y.clear();
	m_xOutput.clear();
	m_yOutput.clear();
	// an empty series is in the target units, so that a chart can show it while it waits for data
	m_xOutput.m_unit = targetXUnit();
	m_yOutput.m_unit = targetValueUnit();
}


void Extractor2DOutputBase::convertUnits() {
	FUNCID(Extractor2DOutputBase::convertUnits);
	try {
		convertedCopy(m_x, targetXUnit(), m_xOutput);
	}
	catch (ZEB::Exception & ex) {
		m_xOutput.clear();
		m_yOutput.clear();
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error converting x values from '%1' to '%2'.")
							 .arg(m_x.m_unit.name()).arg(targetXUnit().name()), FUNC_ID);
	}
	if (m_xShift != 0)
		for (double & v : m_xOutput.m_data)
			v += m_xShift;
	try {
		convertedCopy(m_y, targetValueUnit(), m_yOutput);
	}
	catch (ZEB::Exception & ex) {
		m_xOutput.clear();
		m_yOutput.clear();
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error converting y values from '%1' to '%2'.")
							 .arg(m_y.m_unit.name()).arg(targetValueUnit().name()), FUNC_ID);
	}
}


ZEB::Unit Extractor2DOutputBase::xUnitFromDataIO() const {
	FUNCID(Extractor2DOutputBase::xUnitFromDataIO);
	if (m_xDimension != CD_Time)
		return ZEB::Unit("m");
	return unitFromDataIO(m_dataIOs.front()->timeUnit(), FUNC_ID);
}


ZEB::Unit Extractor2DOutputBase::yUnitFromDataIO() const {
	FUNCID(Extractor2DOutputBase::yUnitFromDataIO);
	return unitFromDataIO(valueUnitName(0), FUNC_ID);
}


std::string Extractor2DOutputBase::dataName(OutputDataType data) const {
	if (data == ODT_X)
		return cutRecord(m_xDimension).m_name;
	return m_dataIOs.front()->quantity();
}


bool Extractor2DOutputBase::checkTargetXUnit(const char * functionId) const {
	const bool time = m_xDimension == CD_Time;
	const ZEB::Unit expected(time ? "s" : "m");
	if (targetXUnit().base_id() == expected.base_id())
		return true;
	ZEB::reportError(ZEB::MessageFormat(time
		? "Mismatching target unit for x-coordinate. Expected a time unit, requested is '%1'."
		: "Mismatching target unit for x-coordinate. Expected a length, requested is '%1'.")
		.arg(targetXUnit().name()).str(), functionId);
	return false;
}


void Extractor2DOutputBase::columnSeries(DATAIO::DataIO & dataIO, std::size_t column, ZEB::UnitVector & x,
										 ZEB::UnitVector & y)
{
	FUNCID(Extractor2DOutputBase::columnSeries);
	const std::size_t stride = dataIO.nValues();
	if (column >= stride)
		throw ZEB::Exception(ZEB::MessageFormat("Column %1 out of range, the container has %2 values per time point.")
							 .arg(static_cast<unsigned long>(column)).arg(static_cast<unsigned long>(stride)), FUNC_ID);
	const double * values = dataIO.dataVector();
	const std::vector<double> & time = dataIO.timePoints();
	x.m_data = time;
	x.m_unit = unitFromDataIO(dataIO.timeUnit(), FUNC_ID);
	y.m_data.resize(time.size());
	for (std::size_t t = 0; t < time.size(); ++t)
		y.m_data[t] = values[t*stride + column];
	y.m_unit = unitFromDataIO(dataIO.columnUnit(column), FUNC_ID);
}


void Extractor2DOutputBase::extractAndManipulate(const std::function<void()> & extract, const char * functionId) {
	extractIntoClearedOutput(extract, functionId);
	try {
		for (const std::unique_ptr<ManipulatorBase> & m : m_manipulators) {
			const Manipulator2DBase * m2D = dynamic_cast<const Manipulator2DBase *>(m.get());
			if (m2D == nullptr)
				throw ZEB::Exception("Invalid manipulator associated with extractor.", functionId);
			m2D->apply(m_x, m_y);
		}
	}
	catch (ZEB::Exception &) {
		clearOutput();
		throw;
	}
}

} // namespace EM
