#ifndef SD_CornerResponseH
#define SD_CornerResponseH

#include <vector>

namespace SD {

class CornerDetail;

/*! Time-dependent temperatures and heat fluxes of the corner detail: the steady-state field of
	the detail, driven by an outdoor temperature that reaches each element damped and delayed.
	Each element sees the outdoor temperature through a first-order low-pass whose time constant
	grows with the square of its distance from the exterior surface (diffusion time), so the
	daily swing fades into the wall while the seasonal one passes through. The room side follows
	the room temperature at once.
*/
class CornerResponse {
public:
	explicit CornerResponse(const CornerDetail & detail);

	/*! Sets every element's delayed outdoor temperature to the given one. */
	void setSteadyState(double outdoorTemperature);
	/*! Advances by dt hours with the outdoor temperature of that interval. */
	void step(double dt, double outdoorTemperature);

	/*! Element temperatures in C for the given room temperature. */
	void temperatures(double roomTemperature, std::vector<double> & temperatures) const;
	/*! Heat flux density in W/m2 across every side, counted positive from element A to element B
		(from the outside in on exterior sides, from the element into the room on interior ones),
		from element temperatures and the current air temperatures.
	*/
	void fluxes(double outdoorTemperature, double roomTemperature, const std::vector<double> & temperatures,
				std::vector<double> & fluxes) const;

	/*! Time constant of an element in hours. */
	double timeConstant(std::size_t element) const { return m_timeConstant[element]; }

private:
	const CornerDetail &	m_detail;
	std::vector<double>		m_timeConstant;
	std::vector<double>		m_delayedOutdoor;	///< outdoor temperature as each element sees it
	std::vector<double>		m_relaxation;		///< per element, for steps of m_relaxationStep hours
	double					m_relaxationStep = 0;
};

} // namespace SD

#endif // SD_CornerResponseH
