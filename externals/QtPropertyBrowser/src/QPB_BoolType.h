#ifndef QPB_BoolTypeH
#define QPB_BoolTypeH

#include <QCoreApplication>

#include "QPB_ValueType.h"

namespace QPB {

/*! A yes/no value (bool), toggled with the check box in the value column: "Yes" or "No". */
class BoolType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::BoolType)
public:
	static constexpr const char * ID = "bool";

	QString id() const override { return ID; }
	QString displayText(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	bool isCheckable() const override { return true; }
};

} // namespace QPB

#endif // QPB_BoolTypeH
