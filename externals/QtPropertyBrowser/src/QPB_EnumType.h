#ifndef QPB_EnumTypeH
#define QPB_EnumTypeH

#include <QCoreApplication>

#include "QPB_ValueType.h"

namespace QPB {

/*! One of a list of named entries, chosen in a combo box; the value is the entry's index
	(int). Entries may have icons.
*/
class EnumType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::EnumType)
public:
	static constexpr const char * ID = "enum";

	/*! Attribute: the names of the entries (QStringList). */
	static constexpr const char * Names = "names";
	/*! Attribute: an icon per entry (QVariantList of QIcon; missing ones are left out). */
	static constexpr const char * Icons = "icons";

	QString id() const override { return ID; }
	QString displayText(const Property & property) const override;
	QIcon displayIcon(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const Property & property) const override;
	void setEditorValue(QWidget * editor, const Property & property) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;
};

} // namespace QPB

#endif // QPB_EnumTypeH
