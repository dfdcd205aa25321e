#ifndef SD_WallHeatSolverH
#define SD_WallHeatSolverH

#include <vector>

namespace SD {

class LayeredWall;

/*! Transient heat conduction through a layered wall, one finite volume per grid element,
	implicit Euler in time (stable for any step, so the thin surface elements need no tiny
	steps). The outside exchanges heat with the outdoor air and absorbs solar radiation, the
	inside exchanges heat with the room.
*/
class WallHeatSolver {
public:
	/*! Surface heat transfer coefficients in W/m2K and the solar absorptance of the outer
		surface (0..1).
	*/
	WallHeatSolver(const LayeredWall & wall, double exteriorTransfer, double interiorTransfer,
				   double solarAbsorptance);

	/*! Sets the steady-state temperatures for constant conditions (temperatures in C, radiation
		on the outer surface in W/m2).
	*/
	void setSteadyState(double outdoorTemperature, double solarRadiation, double indoorTemperature);

	/*! Advances by dt seconds with the conditions of that interval. */
	void step(double dt, double outdoorTemperature, double solarRadiation, double indoorTemperature);

	/*! Element temperatures in C, from outside to inside. */
	const std::vector<double> & temperatures() const { return m_temperatures; }
	/*! Temperature of the inner surface in C (for the room air temperature of the last step). */
	double interiorSurfaceTemperature() const;
	/*! Temperature of the outer surface in C (for the conditions of the last step). */
	double exteriorSurfaceTemperature() const;
	/*! Heat flux density in W/m2 from the room into the wall, positive when the wall loses
		heat to the outside.
	*/
	double interiorHeatFlux() const;

private:
	/*! Solves the tridiagonal system of one step; capacityOverDt is 0 for the steady state. */
	void solve(double dt, double outdoorTemperature, double solarRadiation, double indoorTemperature);

	std::vector<double>	m_capacity;		///< heat capacity per m2 of each element in J/m2K
	std::vector<double>	m_conductance;	///< m_conductance[i]: between element i and i+1 in W/m2K
	double				m_exteriorConductance;	///< outdoor air to element 0, W/m2K
	double				m_interiorConductance;	///< last element to room air, W/m2K
	double				m_exteriorTransfer;
	double				m_interiorTransfer;
	double				m_solarAbsorptance;
	std::vector<double>	m_temperatures;
	double				m_lastOutdoorTemperature = 0;	///< sol-air temperature of the last step
	double				m_lastIndoorTemperature = 0;
	std::vector<double>	m_work;			///< scratch of the tridiagonal solver
};

} // namespace SD

#endif // SD_WallHeatSolverH
