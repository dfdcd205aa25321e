#ifndef QPB_StringTypeH
#define QPB_StringTypeH

#include <QCoreApplication>

#include "QPB_ValueType.h"

namespace QPB {

/*! A line of text (QString), optionally one that must not be empty or blank. */
class StringType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::StringType)
public:
	static constexpr const char * ID = "string";

	/*! Attribute: true when an empty or blank text is refused. */
	static constexpr const char * NotEmpty = "notEmpty";

	QString id() const override { return ID; }
	QString displayText(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const Property & property) const override;
	void setEditorValue(QWidget * editor, const Property & property) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;

private:
	/*! Why text is not acceptable, or an empty text. */
	static QString textReason(const QString & text, bool notEmpty);
};

} // namespace QPB

#endif // QPB_StringTypeH
