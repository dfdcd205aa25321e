#ifndef QPB_NumberTypeH
#define QPB_NumberTypeH

#include <QCoreApplication>

#include "QPB_ValueType.h"

namespace QtExt {
class ValidatingLineEdit;
}

namespace QPB {

/*! A whole number (id "int", value int) or a floating-point number (id "double", value
	double), optionally limited to a range and shown with a unit.

	The text is written and read in the application's locale (QLocale()), without group
	separators; the editor also takes the C form ("1.5" where the locale writes "1,5") and is a
	QtExt::ValidatingLineEdit, which marks text that is no number or lies outside the range.
*/
class NumberType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::NumberType)
public:
	static constexpr const char * INT_ID = "int";
	static constexpr const char * DOUBLE_ID = "double";

	/*! Attribute: smallest accepted value (double; open when not set). */
	static constexpr const char * Minimum = "minimum";
	/*! Attribute: largest accepted value (double; open when not set). */
	static constexpr const char * Maximum = "maximum";
	/*! Attribute: true when the minimum itself is not accepted. */
	static constexpr const char * MinimumExclusive = "minimumExclusive";
	/*! Attribute: true when the maximum itself is not accepted. */
	static constexpr const char * MaximumExclusive = "maximumExclusive";
	/*! Attribute: decimal places shown of a floating-point number (int, default 6); trailing
		zeros are dropped.
	*/
	static constexpr const char * Decimals = "decimals";
	/*! Attribute: unit shown after the number, e.g. "px" (QString). */
	static constexpr const char * Unit = "unit";
	/*! Attribute: text shown for a special value (QString): the minimum of a whole number, NaN
		of a floating-point number ("from the data"). A floating-point property with this
		attribute accepts NaN; its editor takes an empty text as NaN and shows the text as
		placeholder.
	*/
	static constexpr const char * SpecialValueText = "specialValueText";

	/*! The type of whole numbers (integer) or of floating-point numbers. */
	explicit NumberType(bool integer);

	QString id() const override { return m_integer ? INT_ID : DOUBLE_ID; }
	QString displayText(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const Property & property) const override;
	void setEditorValue(QWidget * editor, const Property & property) const override;

protected:
	QString editorReason(QWidget * editor) const override;
	QVariant readEditor(QWidget * editor) const override;

private:
	/*! The limits of property: the range attributes, for whole numbers at most that of int. */
	void range(const Property & property, double & minimum, double & maximum) const;
	/*! True when value is the special value of property (see SpecialValueText). */
	bool isSpecialValue(const Property & property, double value) const;
	/*! True for the empty editor of a floating-point property with a special value. */
	bool isEmptySpecial(const QtExt::ValidatingLineEdit * edit) const;
	/*! Decimal places of property (0 for whole numbers). */
	int decimals(const Property & property) const;

	bool	m_integer;
};

} // namespace QPB

#endif // QPB_NumberTypeH
