#ifndef QtExt_ValidatingLineEditH
#define QtExt_ValidatingLineEditH

#include <limits>

#include <QLineEdit>
#include <QLocale>

namespace QtExt {

/*! A line edit for one whole or floating-point number, optionally limited to a range.

	Text is read in the widget's locale (a German locale takes "1,5") and, failing that, in the
	C form ("1.5"); group separators are never accepted, as "1.500" would mean 1500 in one locale
	and 1.5 in the other. A text that is no number or lies outside the range is marked with a
	reddish tint of the palette's base colour, and the tool tip tells why; the usual tool tip
	comes back once the text is valid.

	Keyboard: Enter and leaving the field confirm the text; a valid, edited text then emits
	valueConfirmed() (an invalid one stays marked and emits nothing). Escape puts back the last
	valid value.
*/
class ValidatingLineEdit : public QLineEdit {
	Q_OBJECT
public:
	/*! A range limit that leaves the range open on its side. */
	static constexpr double UNBOUNDED = std::numeric_limits<double>::infinity();

	/*! An edit for floating-point numbers without range and without value. */
	explicit ValidatingLineEdit(QWidget * parent = nullptr);

	/*! Whole numbers only (else floating-point numbers). */
	void setInteger(bool integer);

	/*! Sets the smallest accepted value; -UNBOUNDED leaves the range open below.
		\param inclusive The limit itself is accepted.
	*/
	void setMinimum(double minimum, bool inclusive = true);
	/*! Sets the largest accepted value; UNBOUNDED leaves the range open above. */
	void setMaximum(double maximum, bool inclusive = true);

	/*! Decimal places with which setValue() shows floating-point numbers (see formatNumber()). */
	void setDecimals(int decimals);

	/*! Shows a value (rounded to the decimals); it becomes the value that Escape puts back and,
		until the text changes, the exact value().
	*/
	void setValue(double value);
	/*! The value of the text while it is valid, else the last valid value (0 when there was
		none).
	*/
	double value() const;
	/*! True when the text is a number of the accepted kind and range. */
	bool isValid() const { return m_reason.isEmpty(); }
	/*! Why the text is invalid (the text of the tool tip), empty while it is valid. */
	const QString & invalidReason() const { return m_reason; }

	/*! A value with at most decimals decimal places and without trailing zeros, in the locale,
		without group separators: 2.5 with 6 places is "2.5", 1/3 is "0.333333". A value that
		would read as 0 or needs more than 15 digits before the point is written with an
		exponent and decimals significant digits.
	*/
	static QString formatNumber(double value, int decimals, const QLocale & locale);

	/*! Why a value lies outside a range, e.g. "Value must be between 0 and 100."; the limits
		are written with formatNumber(), an infinite one leaves its side open.
	*/
	static QString rangeMessage(double minimum, bool minimumInclusive, double maximum, bool maximumInclusive,
								int decimals, const QLocale & locale);

signals:
	/*! The user confirmed an edited, valid text (Enter or leaving the field). */
	void valueConfirmed(double value);

protected:
	void keyPressEvent(QKeyEvent * event) override;
	void focusOutEvent(QFocusEvent * event) override;
	/*! Keeps the caller's tool tip and checks the text again in a new locale. */
	bool event(QEvent * event) override;

private:
	/*! Reads text; returns an empty reason and the number, or why it is no accepted number. */
	QString parse(const QString & text, double & number) const;
	/*! Checks the text and shows the marking and tool tip that belong to the result. */
	void validate();
	/*! Emits valueConfirmed() for an edited, valid text and takes it as last valid value. */
	void confirm();

	bool	m_integer = false;
	double	m_minimum = -UNBOUNDED;
	double	m_maximum = UNBOUNDED;
	bool	m_minimumInclusive = true;
	bool	m_maximumInclusive = true;
	int		m_decimals = 6;
	/*! Value of the text, while it is valid. */
	double	m_value = 0;
	/*! The value that Escape puts back, and whether there is one. */
	double	m_lastValid = 0;
	bool	m_hasLastValid = false;
	/*! The text is the one setValue() wrote for m_lastValid, perhaps rounded. */
	bool	m_showsLastValid = false;
	/*! Why the text is invalid; empty while valid. */
	QString	m_reason;
	/*! The tool tip shown while the text is valid. */
	QString	m_toolTip;
	/*! True while the marking is being applied, so that it is not taken for a palette change. */
	bool	m_marking = false;
};

} // namespace QtExt

#endif // QtExt_ValidatingLineEditH
