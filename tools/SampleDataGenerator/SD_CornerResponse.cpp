#include "SD_CornerResponse.h"

#include <cmath>

#include "SD_CornerDetail.h"

namespace SD {

namespace {

/*! Thermal diffusivity in m2/s that sets the delay, about that of brick masonry. */
const double THERMAL_DIFFUSIVITY = 5e-7;
/*! Shortest time constant in hours (elements at the exterior surface). */
const double MIN_TIME_CONSTANT = 0.5;

} // namespace


CornerResponse::CornerResponse(const CornerDetail & detail) :
	m_detail(detail)
{
	const std::vector<double> & distances = detail.exteriorDistances();
	m_timeConstant.resize(distances.size());
	for (std::size_t i = 0; i < distances.size(); ++i)
		m_timeConstant[i] = MIN_TIME_CONSTANT + distances[i]*distances[i]/THERMAL_DIFFUSIVITY/3600.0;
	m_delayedOutdoor.assign(distances.size(), 0.0);
	m_relaxation.assign(distances.size(), 0.0);
}


void CornerResponse::setSteadyState(double outdoorTemperature) {
	m_delayedOutdoor.assign(m_delayedOutdoor.size(), outdoorTemperature);
}


void CornerResponse::step(double dt, double outdoorTemperature) {
	if (dt != m_relaxationStep) {
		m_relaxationStep = dt;
		for (std::size_t i = 0; i < m_relaxation.size(); ++i)
			m_relaxation[i] = 1.0 - std::exp(-dt/m_timeConstant[i]);
	}
	for (std::size_t i = 0; i < m_delayedOutdoor.size(); ++i)
		m_delayedOutdoor[i] += m_relaxation[i]*(outdoorTemperature - m_delayedOutdoor[i]);
}


void CornerResponse::temperatures(double roomTemperature, std::vector<double> & temperatures) const {
	const std::vector<double> & factors = m_detail.temperatureFactors();
	temperatures.resize(factors.size());
	for (std::size_t i = 0; i < factors.size(); ++i)
		temperatures[i] = m_delayedOutdoor[i] + factors[i]*(roomTemperature - m_delayedOutdoor[i]);
}


void CornerResponse::fluxes(double outdoorTemperature, double roomTemperature, const std::vector<double> & temperatures,
							std::vector<double> & fluxes) const {
	const std::vector<CornerDetail::SideLink> & sides = m_detail.sideLinks();
	fluxes.resize(sides.size());
	for (std::size_t s = 0; s < sides.size(); ++s) {
		const CornerDetail::SideLink & l = sides[s];
		const std::size_t a = static_cast<std::size_t>(l.m_elementA);
		const std::size_t b = static_cast<std::size_t>(l.m_elementB);
		switch (l.m_kind) {
			case CornerDetail::SK_INNER:		fluxes[s] = l.m_conductance*(temperatures[a] - temperatures[b]); break;
			case CornerDetail::SK_EXTERIOR:		fluxes[s] = l.m_conductance*(outdoorTemperature - temperatures[b]); break;
			case CornerDetail::SK_INTERIOR:		fluxes[s] = l.m_conductance*(temperatures[a] - roomTemperature); break;
			case CornerDetail::SK_ADIABATIC:	fluxes[s] = 0; break;
		}
	}
}

} // namespace SD
