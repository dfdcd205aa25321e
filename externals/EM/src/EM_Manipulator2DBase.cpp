#include "EM_Manipulator2DBase.h"

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_UnitVector.h>

namespace EM {

void Manipulator2DBase::apply(ZEB::UnitVector & x, ZEB::UnitVector & y) const {
	FUNCID(Manipulator2DBase::apply);
	const std::size_t n = x.size();
	if (n == 0)
		return;
	if (y.size() < n)
		throw ZEB::Exception(ZEB::MessageFormat("Size mismatch between x values (%1) and y values (%2).")
							 .arg(n).arg(y.size()), FUNC_ID);
	applyToValues(y.m_data.data(), n);
}

} // namespace EM
