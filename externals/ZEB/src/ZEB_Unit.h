#ifndef ZEB_UnitH
#define ZEB_UnitH

#include <string>

namespace ZEB {

/*! A unit: the id of an entry of the process-wide registry (ZEB::UnitList::instance()).
	A small value type, compared by id. The default unit is "undefined" (id 0).
	\code
	ZEB::Unit u("kg/m3");		// by name (case-sensitive), throws when unknown
	double v = 3;
	ZEB::UnitList::instance().convert(ZEB::Unit("log(g/m3)"), u, v); // v == 1
	\endcode
*/
class Unit {
public:
	/*! The "undefined" unit, id 0. */
	Unit() = default;
	/*! Unit of the given id; throws "Unit index %1 out of range 0..%2." ("[Unit::Unit]"). */
	explicit Unit(unsigned int id);
	/*! Unit of the given name; throws "Unit '%1' not found." ("[Unit::Unit]"). */
	explicit Unit(const std::string & name);

	/*! Sets the unit by id; throws as the constructor, function id "[Unit::set]". */
	void set(unsigned int id);
	/*! Sets the unit by name; throws as the constructor, function id "[Unit::set]". */
	void set(const std::string & name);

	/*! The unit's name, e.g. "kg/m3". */
	const std::string & name() const;
	/*! The registry id. */
	unsigned int id() const { return m_id; }
	/*! Id of the base unit of the unit's group. */
	unsigned int base_id() const;

	bool operator==(const Unit & other) const { return m_id == other.m_id; }
	bool operator!=(const Unit & other) const { return m_id != other.m_id; }
	bool operator<(const Unit & other) const { return m_id < other.m_id; }

private:
	unsigned int	m_id = 0;
};

} // namespace ZEB

#endif // ZEB_UnitH
