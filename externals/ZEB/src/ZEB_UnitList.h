#ifndef ZEB_UnitListH
#define ZEB_UnitListH

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ZEB_Exception.h"
#include "ZEB_FunctionId.h"
#include "ZEB_UnitData.h"

namespace ZEB {

class Unit;

/*! An owning list of pointers: every element added is deleted with the list.
	A pointer can be added only once ("Pointer already exists in the list.").
*/
template <typename T>
class ptr_list {
public:
	ptr_list() = default;
	~ptr_list() { clear(); }
	ptr_list(const ptr_list &) = delete;
	ptr_list & operator=(const ptr_list &) = delete;
	ptr_list(ptr_list && other) noexcept : m_ptrs(std::move(other.m_ptrs)) { other.m_ptrs.clear(); }
	ptr_list & operator=(ptr_list && other) noexcept { swap(other); return *this; }

	/*! Appends p and takes ownership of it. A pointer that is already in the list is refused
		with an exception; ownership then stays with the caller.
		The duplicate check is linear: the list is meant for registries filled once.
	*/
	void add(T * p) {
		FUNCID(ptr_list<T>::add);
		if (std::find(m_ptrs.begin(), m_ptrs.end(), p) != m_ptrs.end())
			throw Exception("Pointer already exists in the list.", FUNC_ID);
		m_ptrs.push_back(p);
	}

	/*! Deletes all elements. */
	void clear() {
		for (T * p : m_ptrs)
			delete p;
		m_ptrs.clear();
	}

	void swap(ptr_list & other) noexcept { m_ptrs.swap(other.m_ptrs); }

	std::size_t size() const { return m_ptrs.size(); }
	bool empty() const { return m_ptrs.empty(); }
	/*! Element i, unchecked. */
	T * operator[](std::size_t i) const { return m_ptrs[i]; }

	typename std::vector<T *>::const_iterator begin() const { return m_ptrs.begin(); }
	typename std::vector<T *>::const_iterator end() const { return m_ptrs.end(); }

private:
	std::vector<T *>	m_ptrs;
};


/*! The registry of all units: names, ids, groups and how each unit relates to the base unit of
	its group. Conversions always go through the base unit, so any two units of one group can be
	converted and units of different groups cannot.

	The process-wide registry is instance(); it is filled on first use from the built-in table
	(read_default()) and never changed afterwards. Further lists can be created and filled from
	other table texts (read_default(text)), e.g. to test table errors; their conversion
	functions use the ids of the given units to look up entries of that list.
*/
class UnitList {
public:
	/*! An empty list; see read_default(). */
	UnitList() = default;
	UnitList(const UnitList &) = delete;
	UnitList & operator=(const UnitList &) = delete;

	/*! The process-wide registry, filled from the built-in table at first use (thread-safe). */
	static const UnitList & instance();

	/*! The built-in unit table: 79 groups, 252 units (see ZEB_UnitList.cpp). */
	static const char * defaultTable();

	/*! Replaces the content with the built-in table. */
	void read_default();

	/*! Replaces the content with the given table text (format of the built-in table).
		Groups are separated by ";", tokens by blanks/line breaks. A group is the base unit name
		followed by triples: operator ("*", "/", "-", "%"), factor and unit name. A single token
		left after the last triple (no operator, no factor) is ignored: the built-in table has
		one such stray token ("mm/mK" in the group of "-"), which therefore is no unit.
		On failure (function id "[UnitList::read_default]") the list is left unchanged.
	*/
	void read_default(const std::string & table);

	/*! Number of units, "undefined" included. */
	unsigned int size() const { return static_cast<unsigned int>(m_list.size()); }

	/*! The entry of the given name (case-sensitive), or nullptr if there is none. */
	const UnitData * retrieve(const std::string & name) const;
	/*! The entry of the given id; throws "Unit index %1 out of range 0..%2." for a bad id. */
	const UnitData * retrieve(unsigned int id) const;

	/*! Operation and factor that take a value from unit src to unit target:
		target value = src value (op) factor. Special conversions give OP_SPECIAL and factor 0.
		Throws "Can't relate unit [src] to [target]" for units of different groups, "Div by zero!"
		for factors that cannot be combined, and the mixing messages when a "-" unit would be
		combined with a "*"/"/" unit of factor != 1 (function id "[UnitList::relate_units]").
	*/
	void relate_units(const Unit & src, const Unit & target, double & factor, UnitData::Operation & op) const;

	/*! Converts val (in unit src) in place to unit target. */
	void convert(const Unit & src, const Unit & target, double & val) const;

	/*! Conversion when src or target (or both) is a special unit: src -> base -> target.
		Special to base: "sqrt(X)": v^2 in X; "log(X)": 10^v in X (ZEB::f_pow10, exponents above
		50 are refused); then X to base. Base to special: base to X, then square root
		("Trying to take square root of negative number!") or decimal logarithm
		("Trying to take logarithm of zero or negative number!"), function id
		"[UnitList::convert_special]". Ordinary units pass through unchanged rules.
	*/
	void convert_special(const Unit & src, const Unit & target, double & val) const;

	/*! Value in unit u from the base value (ordinary units only). */
	static double fromBase(const UnitData & u, double baseValue);
	/*! Base value from a value in unit u (ordinary units only). */
	static double toBase(const UnitData & u, double value);

private:
	/*! Entry for a unit given by its id, with range check. */
	const UnitData & entry(const Unit & u) const;

	ptr_list<UnitData>								m_list;
	std::unordered_map<std::string, unsigned int>	m_index;
};

} // namespace ZEB

#endif // ZEB_UnitListH
