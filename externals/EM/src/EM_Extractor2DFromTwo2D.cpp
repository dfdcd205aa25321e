#include "EM_Extractor2DFromTwo2D.h"

#include <algorithm>

#include <DATAIO_DataIO.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "EM_ModelTwo2DParametricFunction.h"

namespace EM {

Extractor2DFromTwo2D::Extractor2DFromTwo2D(const std::vector<DATAIO::DataIO *> & dataIOs,
										   std::unique_ptr<ModelTwo2DBase> model, const std::array<std::uint32_t, 2> & columns) :
	Extractor2DOutputBase(dataIOs, CT_NoCut, CD_Time),
	m_model(std::move(model)),
	m_columns(columns)
{
	FUNCID(Extractor2DFromTwo2D::Extractor2DFromTwo2D);
	if (m_model == nullptr)
		throw ZEB::Exception("Invalid model (null pointer).", FUNC_ID);
}


Extractor2DFromTwo2D::~Extractor2DFromTwo2D() = default;


bool Extractor2DFromTwo2D::canUpdate() {
	FUNCID(Extractor2DFromTwo2D::canUpdate);
	if (!canUpdateCommon(false))
		return false;
	if (m_dataIOs.size() != 2) {
		ZEB::reportError("Extractor2DFromTwo2D needs exactly 2 DataIO container.", FUNC_ID);
		return false;
	}
	if (targetValueUnit().base_id() != m_model->valueUnit().base_id()) {
		ZEB::reportError(ZEB::MessageFormat("Incompatible value units in model and Extractor: %1 <-> %2.")
						 .arg(m_model->valueUnit().name()).arg(targetValueUnit().name()).str(), FUNC_ID);
		return false;
	}
	return true;
}


void Extractor2DFromTwo2D::doUpdate() {
	FUNCID(Extractor2DFromTwo2D::doUpdate);
	extractAndManipulate([this]() { m_model->calculate(m_dataIOs[0], m_columns[0], m_dataIOs[1], m_columns[1], m_x, m_y); },
						 FUNC_ID);
}


std::string Extractor2DFromTwo2D::valueUnitName(std::size_t input) const {
	const DATAIO::DataIO & dataIO = *m_dataIOs[input];
	if (input >= m_columns.size() || m_columns[input] == ModelTwo2DBase::SINGLE_VALUE)
		return dataIO.valueUnit();
	const std::vector<std::uint32_t> & nums = dataIO.nums();
	return dataIO.columnUnit(static_cast<std::size_t>(std::find(nums.begin(), nums.end(), m_columns[input]) - nums.begin()));
}


ZEB::Unit Extractor2DFromTwo2D::xUnitFromDataIO() const {
	// the parametric function draws the humidity over the temperature
	if (dynamic_cast<const ModelTwo2DParametricFunction *>(m_model.get()) != nullptr)
		return m_model->temperatureUnit();
	return m_model->timeUnit();
}


ZEB::Unit Extractor2DFromTwo2D::yUnitFromDataIO() const {
	return m_model->valueUnit();
}


std::string Extractor2DFromTwo2D::dataName(OutputDataType data) const {
	return data == ODT_Y ? m_model->valueLabel() : Extractor2DOutputBase::dataName(data);
}

} // namespace EM
