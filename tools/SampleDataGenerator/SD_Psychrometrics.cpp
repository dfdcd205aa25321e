#include "SD_Psychrometrics.h"

#include <cmath>

namespace SD {

namespace {

// Magnus coefficients over water and over ice
const double P0 = 610.5;
const double A_WATER = 17.269;
const double B_WATER = 237.3;
const double A_ICE = 21.875;
const double B_ICE = 265.5;
/*! Upper bound of boundedRelativeHumidity(). */
const double MAX_RELHUM = 0.99;

} // namespace


double Psychrometrics::saturationPressure(double temperature) {
	if (temperature >= 0)
		return P0*std::exp(A_WATER*temperature/(B_WATER + temperature));
	return P0*std::exp(A_ICE*temperature/(B_ICE + temperature));
}


double Psychrometrics::vapourPressure(double temperature, double relHumPercent) {
	return saturationPressure(temperature)*relHumPercent/100.0;
}


double Psychrometrics::dewPoint(double vapourPressure) {
	const double l = std::log(vapourPressure/P0);
	if (vapourPressure >= P0)
		return B_WATER*l/(A_WATER - l);
	return B_ICE*l/(A_ICE - l);
}


double Psychrometrics::boundedRelativeHumidity(double vapourPressure, double temperature) {
	const double phi = vapourPressure/saturationPressure(temperature);
	if (phi <= 0.9)
		return phi;
	// continuous with slope 1 at 0.9, approaching MAX_RELHUM asymptotically
	const double range = MAX_RELHUM - 0.9;
	return MAX_RELHUM - range*std::exp(-(phi - 0.9)/range);
}

} // namespace SD
