#include "SD_SignificantDigits.h"

#include <cmath>

namespace SD {

namespace {

/*! 10^e for 0 <= e <= 22, all exact in a double. */
double exactPowerOf10(int e) {
	static const double powers[] = {
		1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11,
		1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22
	};
	return powers[e];
}

/*! v scaled by 10^shift and rounded to an integer; false when 10^|shift| is not exact. */
bool scaledInteger(double v, int shift, double & result) {
	if (shift > 22 || shift < -22)
		return false;
	result = shift >= 0 ? std::round(v*exactPowerOf10(shift)) : std::round(v/exactPowerOf10(-shift));
	return true;
}

} // namespace


double SignificantDigits::round(double v, int digits) {
	if (v == 0 || !std::isfinite(v))
		return v;
	// the digits to keep become the integer part: v * 10^shift with shift = digits - 1 - exponent;
	// log10 may be off by one next to powers of ten, which the integer's size reveals
	int shift = digits - 1 - static_cast<int>(std::floor(std::log10(std::fabs(v))));
	const double lower = exactPowerOf10(digits - 1);
	const double upper = exactPowerOf10(digits);
	double integer = 0;
	for (int attempt = 0; attempt < 3; ++attempt) {
		if (!scaledInteger(v, shift, integer))
			return v;	// magnitudes far outside those of simulation results stay as they are
		if (attempt < 2 && std::fabs(integer) >= upper)
			--shift;
		else if (attempt < 2 && std::fabs(integer) < lower)
			++shift;
		else
			break;
	}
	// dividing the integer by an exact power of ten gives the double nearest to the decimal number
	return shift >= 0 ? integer/exactPowerOf10(shift) : integer*exactPowerOf10(-shift);
}

} // namespace SD
