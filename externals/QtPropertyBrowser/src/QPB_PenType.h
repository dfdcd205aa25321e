#ifndef QPB_PenTypeH
#define QPB_PenTypeH

#include <QCoreApplication>

#include "QPB_ValueType.h"

namespace QPB {

/*! A pen (QPen): colour, width in pixels and line style, shown as "Red, 1.5 px, Dashed" and
	edited in the three sub-properties (the pen has no editor of its own). Only the solid and the
	standard dashed styles and "No line" are offered.
*/
class PenType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::PenType)
public:
	static constexpr const char * ID = "pen";

	/*! Rows of the sub-properties. */
	enum SubProperty {
		SP_Color,
		SP_Width,
		SP_Style
	};

	QString id() const override { return ID; }
	QString displayText(const Property & property) const override;
	QIcon displayIcon(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	bool hasEditor() const override { return false; }
	void createSubProperties(Property & property) const override;
	void updateSubProperties(Property & property) const override;
	QVariant composeValue(const Property & property, int row, const QVariant & partValue) const override;
};

} // namespace QPB

#endif // QPB_PenTypeH
