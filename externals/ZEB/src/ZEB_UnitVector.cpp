#include "ZEB_UnitVector.h"

#include "ZEB_Exception.h"
#include "ZEB_FunctionId.h"
#include "ZEB_UnitList.h"

namespace ZEB {

void UnitVector::convert(const Unit & target) {
	double factor;
	UnitData::Operation op;
	UnitList::instance().relate_units(m_unit, target, factor, op);
	switch (op) {
		case UnitData::OP_MUL:
			if (factor != 1)
				for (double & v : m_data) v *= factor;
			break;
		case UnitData::OP_DIV:
			for (double & v : m_data) v /= factor;
			break;
		case UnitData::OP_ADD:
			for (double & v : m_data) v += factor;
			break;
		case UnitData::OP_SUB:
			for (double & v : m_data) v -= factor;
			break;
		case UnitData::OP_SPECIAL:
			convert_special(target); // sets m_unit
			return;
	}
	m_unit = target;
}


void UnitVector::convert_special(const Unit & target) {
	FUNCID(UnitVector::convert_special);
	const UnitList & list = UnitList::instance();
	std::vector<double> converted(m_data);
	for (double & v : converted) {
		try {
			list.convert_special(m_unit, target, v);
		}
		catch (Exception & ex) {
			const UnitData * t = list.retrieve(target.id());
			const UnitData * s = list.retrieve(m_unit.id());
			if (t->base_id() != s->base_id())
				throw; // "Can't relate unit [..." as it is
			// the power of ten of a log unit fails only for exponents above 50 (ZEB::f_pow10)
			if (s->specialFunction() == UnitData::SF_LOG10 && v > 50)
				throw Exception(ex, "Conversion error (exponent too large in power function)!", FUNC_ID);
			if (t->specialFunction() == UnitData::SF_SQRT)
				throw Exception(ex, "Conversion error (square-root of negative number)!", FUNC_ID);
			throw Exception(ex, "Conversion error (logarithm of zero or negative number)!", FUNC_ID);
		}
	}
	m_data.swap(converted);
	m_unit = target;
}

} // namespace ZEB
