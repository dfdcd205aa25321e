#include "EM_ClimateLimitCurve.h"

#include <cmath>

#include <ZEB_Exception.h>

namespace EM {

ClimateLimitCurve::ClimateLimitCurve(const std::string & name, const std::vector<double> & temperatures,
									 const std::vector<double> & humidities, double lowestTemperature) :
	m_name(name)
{
	setPoints(temperatures, humidities, lowestTemperature);
}


void ClimateLimitCurve::setPoints(const std::vector<double> & temperatures, const std::vector<double> & humidities,
								  double lowestTemperature)
{
	FUNCID(ClimateLimitCurve::setPoints);
	if (std::isnan(lowestTemperature))
		throw ZEB::Exception("Invalid lowest temperature of limit curve.", FUNC_ID);
	try {
		m_curve.setValues(temperatures, humidities);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Invalid points of limit curve '" + m_name + "'.", FUNC_ID);
	}
	m_lowestTemperature = lowestTemperature;
}

} // namespace EM
