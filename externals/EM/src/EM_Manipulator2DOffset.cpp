#include "EM_Manipulator2DOffset.h"

#include <ZEB_FunctionId.h>

namespace EM {

std::string Manipulator2DOffset::parameter() const {
	return numberText(m_offset);
}


void Manipulator2DOffset::setFromParameter(const std::string & text) {
	FUNCID(Manipulator2DOffset::setFromParameter);
	m_offset = parseNumber(text, FUNC_ID);
}


void Manipulator2DOffset::applyToValues(double * y, std::size_t n) const {
	if (m_offset == 0.0)
		return;
	for (std::size_t i = 0; i < n; ++i)
		y[i] += m_offset;
}

} // namespace EM
