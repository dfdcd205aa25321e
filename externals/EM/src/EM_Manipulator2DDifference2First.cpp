#include "EM_Manipulator2DDifference2First.h"

namespace EM {

void Manipulator2DDifference2First::applyToValues(double * y, std::size_t n) const {
	// read once before the loop: the loop overwrites y[0] first
	const double first = y[0];
	for (std::size_t i = 0; i < n; ++i)
		y[i] -= first;
}

} // namespace EM
