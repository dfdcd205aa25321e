#include "EM_Manipulator2DScaling.h"

#include <ZEB_FunctionId.h>

namespace EM {

std::string Manipulator2DScaling::parameter() const {
	return numberText(m_factor);
}


void Manipulator2DScaling::setFromParameter(const std::string & text) {
	FUNCID(Manipulator2DScaling::setFromParameter);
	m_factor = parseNumber(text, FUNC_ID);
}


void Manipulator2DScaling::applyToValues(double * y, std::size_t n) const {
	if (m_factor == 1.0)
		return;
	for (std::size_t i = 0; i < n; ++i)
		y[i] *= m_factor;
}

} // namespace EM
