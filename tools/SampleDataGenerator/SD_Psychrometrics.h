#ifndef SD_PsychrometricsH
#define SD_PsychrometricsH

namespace SD {

/*! Relations between temperature, water vapour pressure and relative humidity of moist air. */
class Psychrometrics {
public:
	/*! Saturation vapour pressure in Pa at a temperature in C (Magnus formula, over water at or
		above 0 C and over ice below, as used in building physics).
	*/
	static double saturationPressure(double temperature);
	/*! Vapour pressure in Pa of air at a temperature in C and a relative humidity in %. */
	static double vapourPressure(double temperature, double relHumPercent);
	/*! Dew point in C of air with the given vapour pressure in Pa (inverse of
		saturationPressure()).
	*/
	static double dewPoint(double vapourPressure);
	/*! Relative humidity as a fraction for vapour pressure and temperature, bent smoothly
		towards 0.99 above 0.9: the models of this generator are not moisture-transport
		solutions and would otherwise report supersaturation, which real materials and air
		bound by condensation and liquid transport.
	*/
	static double boundedRelativeHumidity(double vapourPressure, double temperature);
};

} // namespace SD

#endif // SD_PsychrometricsH
