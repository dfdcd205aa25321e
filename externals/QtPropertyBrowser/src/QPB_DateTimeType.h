#ifndef QPB_DateTimeTypeH
#define QPB_DateTimeTypeH

#include <QCoreApplication>

#include "QPB_ValueType.h"

namespace QPB {

/*! A date and time (QDateTime), shown and edited in a display format (default
	"yyyy-MM-dd hh:mm:ss"); the editor is a QDateTimeEdit with a calendar popup.
*/
class DateTimeType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::DateTimeType)
public:
	static constexpr const char * ID = "datetime";

	/*! Attribute: the display format (QString, see QDateTime::toString()). */
	static constexpr const char * Format = "format";

	QString id() const override { return ID; }
	QString displayText(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const Property & property) const override;
	void setEditorValue(QWidget * editor, const Property & property) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;
};

} // namespace QPB

#endif // QPB_DateTimeTypeH
