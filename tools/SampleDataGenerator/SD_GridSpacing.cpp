#include "SD_GridSpacing.h"

#include <cmath>

namespace SD {

std::vector<double> GridSpacing::symmetric(double length, unsigned int count, double clustering) {
	const double twoPi = 2.0*3.14159265358979323846;
	std::vector<double> widths(count);
	double previous = 0;
	for (unsigned int k = 1; k <= count; ++k) {
		// the last position is exactly length, so the widths add up without drift
		const double s = static_cast<double>(k)/count;
		const double x = k == count ? length : length*(s - clustering*std::sin(twoPi*s)/twoPi);
		widths[k - 1] = x - previous;
		previous = x;
	}
	return widths;
}


std::vector<double> GridSpacing::graded(double length, unsigned int count, double ratio) {
	std::vector<double> widths(count);
	double total = 0;
	double w = 1;
	for (unsigned int k = 0; k < count; ++k) {
		widths[k] = w;
		total += w;
		w *= ratio;
	}
	for (double & width : widths)
		width *= length/total;
	return widths;
}

} // namespace SD
