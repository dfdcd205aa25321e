#include "QPB_ValueTypeFactory.h"

#include <ZEB_Exception.h>

#include "QPB_BoolType.h"
#include "QPB_ColorType.h"
#include "QPB_CoordinateIndexType.h"
#include "QPB_DateTimeType.h"
#include "QPB_EnumType.h"
#include "QPB_FontType.h"
#include "QPB_NumberType.h"
#include "QPB_PenType.h"
#include "QPB_StringType.h"

namespace QPB {

ValueTypeFactory & ValueTypeFactory::instance() {
	static ValueTypeFactory factory;
	return factory;
}


ValueTypeFactory::ValueTypeFactory() {
	registerType(std::unique_ptr<ValueType>(new BoolType));
	registerType(std::unique_ptr<ValueType>(new NumberType(true)));
	registerType(std::unique_ptr<ValueType>(new NumberType(false)));
	registerType(std::unique_ptr<ValueType>(new StringType));
	registerType(std::unique_ptr<ValueType>(new EnumType));
	registerType(std::unique_ptr<ValueType>(new ColorType));
	registerType(std::unique_ptr<ValueType>(new FontType));
	registerType(std::unique_ptr<ValueType>(new PenType));
	registerType(std::unique_ptr<ValueType>(new DateTimeType));
	registerType(std::unique_ptr<ValueType>(new CoordinateIndexType));
}


void ValueTypeFactory::registerType(std::unique_ptr<ValueType> type) {
	FUNCID(ValueTypeFactory::registerType);
	const QString id = type->id();
	if (m_types.count(id) != 0)
		throw ZEB::Exception("A property value type '" + id.toStdString() + "' is registered already.", FUNC_ID);
	m_types[id] = std::move(type);
}


const ValueType * ValueTypeFactory::type(const QString & id) const {
	auto it = m_types.find(id);
	return it == m_types.end() ? nullptr : it->second.get();
}

} // namespace QPB
