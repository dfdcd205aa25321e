#ifndef ZEB_UnitDataH
#define ZEB_UnitDataH

#include <string>

namespace ZEB {

/*! One entry of the unit registry (ZEB::UnitList).
	An entry knows its group through the id of the group's base unit, and how a value in this
	unit follows from a value in the base unit: operation() applied with factor().
	\code
	value = base * factor   (OP_MUL, e.g. "m * 1e+03 mm")
	value = base / factor   (OP_DIV, e.g. "s / 3600 h")
	value = base - factor   (OP_SUB, only "K - 273.15 C")
	special (OP_SPECIAL, factor 0): square root or decimal logarithm of the base value
	converted to an inner unit, e.g. "sqrt(h)" or "log(g/m3)"
	\endcode
	A base unit is its own base and has OP_MUL with factor 1.
*/
class UnitData {
public:
	/*! Operations of the table, and the results of UnitList::relate_units().
		OP_ADD never appears in the table; relate_units() returns it for the way back from an
		OP_SUB unit (e.g. "C" -> "K": value + 273.15).
	*/
	enum Operation {
		OP_MUL,		///< "*": value = base * factor
		OP_DIV,		///< "/": value = base / factor
		OP_SUB,		///< "-": value = base - factor
		OP_ADD,		///< value = base + factor (conversion results only)
		OP_SPECIAL	///< "%": conversion by code, factor 0
	};

	/*! Function of a special unit: value = f(base value converted to the inner unit). */
	enum SpecialFunction {
		SF_NONE,	///< ordinary unit
		SF_SQRT,	///< "sqrt(<inner>)": value = sqrt(inner value)
		SF_LOG10	///< "log(<inner>)":  value = log10(inner value)
	};

	UnitData(unsigned int id, const std::string & name, unsigned int baseId, Operation op, double factor) :
		m_id(id), m_name(name), m_baseId(baseId), m_operation(op), m_factor(factor)
	{}

	/*! Index in the registry; "undefined" has id 0. */
	unsigned int id() const { return m_id; }
	/*! The unit's text, e.g. "kg/m3" (case-sensitive). */
	const std::string & name() const { return m_name; }
	/*! Id of the group's base unit (the first unit of the group). */
	unsigned int base_id() const { return m_baseId; }
	/*! How a value in this unit follows from the base value. */
	Operation operation() const { return m_operation; }
	/*! Factor of the operation (0 for special units). */
	double factor() const { return m_factor; }

	/*! True for the units converted by code (operator "%"). */
	bool isSpecial() const { return m_operation == OP_SPECIAL; }
	/*! True for the units of operator "-". */
	bool isAdditive() const { return m_operation == OP_SUB || m_operation == OP_ADD; }

	/*! Function of a special unit; SF_NONE for ordinary units. */
	SpecialFunction specialFunction() const { return m_special; }
	/*! Id of the unit inside "sqrt(...)" / "log(...)" of a special unit (e.g. "h" of "sqrt(h)"). */
	unsigned int innerId() const { return m_innerId; }

	/*! The table symbol of an operation: "*", "/", "-", "+", "%". */
	static const char * operationSymbol(Operation op);

private:
	friend class UnitList;

	unsigned int	m_id;
	std::string		m_name;
	unsigned int	m_baseId;
	Operation		m_operation;
	double			m_factor;
	/*! Set by UnitList after reading the table, for special units only. */
	SpecialFunction	m_special = SF_NONE;
	unsigned int	m_innerId = 0;
};

inline const char * UnitData::operationSymbol(Operation op) {
	switch (op) {
		case OP_MUL: return "*";
		case OP_DIV: return "/";
		case OP_SUB: return "-";
		case OP_ADD: return "+";
		case OP_SPECIAL: return "%";
	}
	return "?";
}

} // namespace ZEB

#endif // ZEB_UnitDataH
