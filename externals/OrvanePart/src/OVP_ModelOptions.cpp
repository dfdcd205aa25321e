#include "OVP_ModelOptions.h"

#include <EM_ModelTwo2DBase.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_Mapper.h"
#include "OVP_UserInteraction.h"

namespace OVP {

namespace {

/*! The models in menu order: mould, wood decay, algae, isopleth, WTA wood, parametric function. */
const char * const MODEL_TYPES[] = {
	"VTTMouldModel",
	"VTTWoodDegradation",
	"AlgaeGrowModelBrick",
	"IsoplethModel",
	"WTAWoodDegradationModel",
	"ParametricFunction"
};

} // namespace


std::vector<std::string> ModelOptions::modelTypes() {
	std::vector<std::string> types(1, std::string());
	types.insert(types.end(), std::begin(MODEL_TYPES), std::end(MODEL_TYPES));
	return types;
}


QString ModelOptions::modelText(const std::string & modelType) {
	if (modelType.empty())
		return tr("None");
	return QString::fromUtf8(Mapper::createModel(modelType)->title());
}


void ModelOptions::setModelType(const std::string & modelType) {
	std::vector<EM::ModelParameter> parameters;
	if (!modelType.empty())
		parameters = Mapper::createModel(modelType)->parameterDescriptions();
	m_parameters = parameters;
	m_modelType = modelType;
	m_values.clear();
	for (const EM::ModelParameter & p : m_parameters)
		m_values.push_back(p.m_integer ? QString::number(static_cast<long long>(p.m_default))
									   : QString::number(p.m_default, 'g', 12));
}


void ModelOptions::setValue(unsigned int i, const QString & value) {
	FUNCID(ModelOptions::setValue);
	if (i >= m_values.size())
		throw ZEB::Exception(ZEB::MessageFormat("The model has no parameter #%1.").arg(i), FUNC_ID);
	m_values[i] = value;
}


QString ModelOptions::errorText() const {
	try {
		parameterText();
	}
	catch (ZEB::Exception & ex) {
		return exceptionText(ex);
	}
	return QString();
}


std::string ModelOptions::parameterText() const {
	FUNCID(ModelOptions::parameterText);
	std::string text;
	for (std::size_t i = 0; i < m_parameters.size(); ++i) {
		const QString value = m_values[i].trimmed();
		if (value.isEmpty())
			throw ZEB::Exception(ZEB::MessageFormat("Missing value of parameter '%1'.").arg(m_parameters[i].m_key), FUNC_ID);
		text += std::string(i == 0 ? "" : " ") + m_parameters[i].m_key + " " + value.toStdString();
	}
	if (m_modelType.empty())
		return text;
	std::unique_ptr<EM::ModelTwo2DBase> model = Mapper::createModel(m_modelType);
	model->setFromParameter(text);
	return model->parameter();
}

} // namespace OVP
