#include "EM_Manipulator2DDifference2First.h"

#include <algorithm>
#include <cmath>

namespace EM {

void Manipulator2DDifference2First::applyToValues(double * y, std::size_t n) const {
	// the first present value: a series that starts with a gap is not all gaps afterwards
	const double * first = std::find_if(y, y + n, [](double v) { return !std::isnan(v); });
	if (first == y + n)
		return;
	// read once before the loop: the loop overwrites it
	const double reference = *first;
	for (std::size_t i = 0; i < n; ++i)
		y[i] -= reference;
}

} // namespace EM
