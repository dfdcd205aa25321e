#include "QPB_BoolType.h"

#include "QPB_Property.h"

namespace QPB {

QString BoolType::displayText(const Property & property) const {
	return property.value().toBool() ? tr("Yes") : tr("No");
}


QString BoolType::check(const Property &, const QVariant & value) const {
	return value.type() == QVariant::Bool ? QString() : tr("Choose yes or no.");
}

} // namespace QPB
