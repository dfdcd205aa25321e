#ifndef Sci_PositiveNumberLineEditH
#define Sci_PositiveNumberLineEditH

#include <QLineEdit>

namespace SCI {

/*! A line edit for a size: accepts positive numbers (optionally whole numbers only). When
	editing finishes with anything else, the field turns red and its tool tip says "A positive
	number is required."; with a valid number it emits editingFinishedSuccessfully().
	Numbers are read with a decimal point, or else in the notation of the user's locale.

	A number shown with setValue() is kept exactly: as long as the user leaves the text as it
	was shown, value() returns the number given, not the rounded text, so that sizes computed
	from each other (pixels from millimetres and back) do not drift.
*/
class PositiveNumberLineEdit : public QLineEdit {
	Q_OBJECT
public:
	/*! Tool tip of a field with an invalid entry. */
	static const char * const INVALID_NUMBER_MESSAGE;

	explicit PositiveNumberLineEdit(QWidget * parent = nullptr);

	/*! Accept whole numbers only. */
	void setIntegerOnly(bool integerOnly) { m_integerOnly = integerOnly; }

	/*! True when the text is an acceptable number. */
	bool isValid() const;
	/*! The number in the field, 0 when it is not valid; the exact number of setValue() while
		the text is the one shown then. */
	double value() const;
	/*! Shows value with at most the given number of decimals, in the notation of the default
		locale, keeps value itself for value(), and clears the error mark. */
	void setValue(double value, int decimals);

	/*! Reads text as a positive number; false for anything else. */
	static bool parse(const QString & text, bool integerOnly, double & value);

signals:
	/*! Editing finished with a valid number. */
	void editingFinishedSuccessfully();

private slots:
	void onEditingFinished();

private:
	/*! Marks the field as invalid (red, with tool tip) or removes the mark. */
	void setErrorMark(bool invalid);

	bool	m_integerOnly = false;
	/*! The text that setValue() showed and the exact number behind it. */
	QString	m_shownText;
	double	m_shownValue = 0;
};

} // namespace SCI

#endif // Sci_PositiveNumberLineEditH
