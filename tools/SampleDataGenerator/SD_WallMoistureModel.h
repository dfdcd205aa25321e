#ifndef SD_WallMoistureModelH
#define SD_WallMoistureModelH

#include <cstddef>
#include <vector>

namespace SD {

class LayeredWall;

/*! Moisture in a layered wall as a damped and delayed response to the climate, not a moisture
	transport solution, but with the right shape: the vapour pressure of each element relaxes
	towards the steady-state diffusion profile between outdoor and indoor vapour pressure
	(linear in the accumulated vapour diffusion resistance), with a time constant that grows
	with the square of the distance to the nearer surface. Driving rain wets the outer surface,
	which dries out over about two days. The relative humidity of an element follows from its
	vapour pressure and temperature; the moisture mass density from the material's sorption
	isotherm.
*/
class WallMoistureModel {
public:
	explicit WallMoistureModel(const LayeredWall & wall);

	/*! Sets every element to the steady-state vapour pressure between the given outdoor and
		indoor vapour pressures (Pa) and a dry outer surface.
	*/
	void setSteadyState(double outdoorVapourPressure, double indoorVapourPressure);

	/*! Advances by dt hours. drivingRain is the rain hitting the facade in mm/h,
		exteriorSurfaceTemperature in C (the outer surface is saturated while wet).
	*/
	void step(double dt, double outdoorVapourPressure, double indoorVapourPressure, double drivingRain,
			  double exteriorSurfaceTemperature);

	/*! Relative humidity of every element in % at the given element temperatures in C. */
	void relativeHumidity(const std::vector<double> & temperatures, std::vector<double> & relHum) const;

	/*! Mean moisture mass density in kg/m3 of a layer, weighted by element width, from the
		relative humidities in %.
	*/
	double layerMoistureContent(std::size_t layer, const std::vector<double> & relHum) const;

	/*! Wetness of the outer surface, 0 (dry) to 1 (saturated by rain). */
	double surfaceWetness() const { return m_wetness; }

	/*! Time constant of an element's vapour pressure in hours. */
	double timeConstant(std::size_t element) const { return m_timeConstant[element]; }

private:
	const LayeredWall &	m_wall;
	/*! Position of each element centre in the vapour diffusion resistance, 0 outside, 1 inside. */
	std::vector<double>	m_resistanceFraction;
	std::vector<double>	m_timeConstant;
	std::vector<double>	m_vapourPressure;
	double				m_wetness = 0;
	/*! Share of the distance to the target covered in one step of m_relaxationStep hours. */
	std::vector<double>	m_relaxation;
	double				m_relaxationStep = 0;
};

} // namespace SD

#endif // SD_WallMoistureModelH
