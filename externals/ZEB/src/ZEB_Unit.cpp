#include "ZEB_Unit.h"

#include "ZEB_Exception.h"
#include "ZEB_FunctionId.h"
#include "ZEB_MessageFormat.h"
#include "ZEB_UnitList.h"

namespace ZEB {

namespace {

unsigned int checkedId(unsigned int id, const char * funcId) {
	const UnitList & list = UnitList::instance();
	if (id >= list.size())
		throw Exception(MessageFormat("Unit index %1 out of range 0..%2.").arg(id).arg(list.size() - 1), funcId);
	return id;
}

unsigned int idOfName(const std::string & name, const char * funcId) {
	const UnitData * data = UnitList::instance().retrieve(name);
	if (data == nullptr)
		throw Exception(MessageFormat("Unit '%1' not found.").arg(name), funcId);
	return data->id();
}

} // namespace


Unit::Unit(unsigned int id) {
	FUNCID(Unit::Unit);
	m_id = checkedId(id, FUNC_ID);
}


Unit::Unit(const std::string & name) {
	FUNCID(Unit::Unit);
	m_id = idOfName(name, FUNC_ID);
}


void Unit::set(unsigned int id) {
	FUNCID(Unit::set);
	m_id = checkedId(id, FUNC_ID);
}


void Unit::set(const std::string & name) {
	FUNCID(Unit::set);
	m_id = idOfName(name, FUNC_ID);
}


const std::string & Unit::name() const {
	return UnitList::instance().retrieve(m_id)->name();
}


unsigned int Unit::base_id() const {
	return UnitList::instance().retrieve(m_id)->base_id();
}

} // namespace ZEB
