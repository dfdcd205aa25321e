#include "SD_WallHeatSolver.h"

#include "SD_LayeredWall.h"

namespace SD {

WallHeatSolver::WallHeatSolver(const LayeredWall & wall, double exteriorTransfer, double interiorTransfer,
							   double solarAbsorptance) :
	m_exteriorTransfer(exteriorTransfer),
	m_interiorTransfer(interiorTransfer),
	m_solarAbsorptance(solarAbsorptance)
{
	const std::size_t n = wall.elementCount();
	const std::vector<double> & w = wall.widths();
	m_capacity.resize(n);
	m_conductance.resize(n > 0 ? n - 1 : 0);
	for (std::size_t i = 0; i < n; ++i) {
		m_capacity[i] = wall.material(i).volumetricHeatCapacity()*w[i];
		if (i + 1 < n)
			m_conductance[i] = 1.0/(0.5*w[i]/wall.material(i).conductivity() +
									0.5*w[i + 1]/wall.material(i + 1).conductivity());
	}
	m_exteriorConductance = 1.0/(1.0/exteriorTransfer + 0.5*w.front()/wall.material(0).conductivity());
	m_interiorConductance = 1.0/(1.0/interiorTransfer + 0.5*w.back()/wall.material(n - 1).conductivity());
	m_temperatures.assign(n, 20.0);
	m_work.resize(n);
}


void WallHeatSolver::setSteadyState(double outdoorTemperature, double solarRadiation, double indoorTemperature) {
	solve(0, outdoorTemperature, solarRadiation, indoorTemperature);
}


void WallHeatSolver::step(double dt, double outdoorTemperature, double solarRadiation, double indoorTemperature) {
	solve(dt, outdoorTemperature, solarRadiation, indoorTemperature);
}


void WallHeatSolver::solve(double dt, double outdoorTemperature, double solarRadiation, double indoorTemperature) {
	// absorbed radiation enters as an equivalent rise of the outdoor air temperature (sol-air)
	const double solAir = outdoorTemperature + m_solarAbsorptance*solarRadiation/m_exteriorTransfer;
	m_lastOutdoorTemperature = solAir;
	m_lastIndoorTemperature = indoorTemperature;
	const std::size_t n = m_temperatures.size();
	// row i: -K[i-1] T[i-1] + (C/dt + K[i-1] + K[i]) T[i] - K[i] T[i+1] = C/dt T_old + boundary;
	// Thomas algorithm, m_work holds the modified upper diagonal
	double previousRhs = 0;
	for (std::size_t i = 0; i < n; ++i) {
		const double left = i == 0 ? m_exteriorConductance : m_conductance[i - 1];
		const double right = i + 1 == n ? m_interiorConductance : m_conductance[i];
		const double storage = dt > 0 ? m_capacity[i]/dt : 0.0;
		double diag = storage + left + right;
		double rhs = storage*m_temperatures[i];
		if (i == 0)
			rhs += m_exteriorConductance*solAir;
		else {
			diag -= left*m_work[i - 1];		// elimination of T[i-1] with the previous row
			rhs += left*previousRhs;
		}
		if (i + 1 == n)
			rhs += m_interiorConductance*indoorTemperature;
		m_work[i] = i + 1 == n ? 0.0 : right/diag;
		previousRhs = rhs/diag;
		m_temperatures[i] = previousRhs;
	}
	for (std::size_t i = n - 1; i-- > 0;)
		m_temperatures[i] += m_work[i]*m_temperatures[i + 1];
}


double WallHeatSolver::interiorSurfaceTemperature() const {
	return m_lastIndoorTemperature - interiorHeatFlux()/m_interiorTransfer;
}


double WallHeatSolver::exteriorSurfaceTemperature() const {
	const double flux = m_exteriorConductance*(m_lastOutdoorTemperature - m_temperatures.front());
	return m_lastOutdoorTemperature - flux/m_exteriorTransfer;
}


double WallHeatSolver::interiorHeatFlux() const {
	return m_interiorConductance*(m_lastIndoorTemperature - m_temperatures.back());
}

} // namespace SD
