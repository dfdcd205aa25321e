#include "QtExt_ValidatingLineEdit.h"

#include <cmath>

#include <QKeyEvent>

#include "QtExt_InvalidMarking.h"

namespace QtExt {

namespace {

/*! Beyond this magnitude fixed notation shows more digits than the number holds. */
const double LARGEST_FIXED = 1e15;

/*! The locale without group separators, in either direction. */
QLocale withoutGroups(QLocale locale) {
	locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
	return locale;
}

/*! Reads a number in locale; false when the text is none or not of the kind. */
bool readNumber(const QString & text, bool integer, const QLocale & locale, double & number) {
	bool ok = false;
	if (integer)
		number = static_cast<double>(locale.toLongLong(text, &ok));
	else
		number = locale.toDouble(text, &ok);
	return ok && std::isfinite(number);
}

} // namespace


ValidatingLineEdit::ValidatingLineEdit(QWidget * parent) :
	QLineEdit(parent)
{
	connect(this, &QLineEdit::textChanged, this, &ValidatingLineEdit::validate);
	connect(this, &QLineEdit::returnPressed, this, &ValidatingLineEdit::confirm);
	validate();
}


void ValidatingLineEdit::setInteger(bool integer) {
	m_integer = integer;
	validate();
}


void ValidatingLineEdit::setMinimum(double minimum, bool inclusive) {
	m_minimum = minimum;
	m_minimumInclusive = inclusive;
	validate();
}


void ValidatingLineEdit::setMaximum(double maximum, bool inclusive) {
	m_maximum = maximum;
	m_maximumInclusive = inclusive;
	validate();
}


void ValidatingLineEdit::setDecimals(int decimals) {
	m_decimals = decimals;
}


void ValidatingLineEdit::setValue(double value) {
	setText(m_integer ? withoutGroups(locale()).toString(std::llround(value))
					  : formatNumber(value, m_decimals, locale()));
	m_lastValid = value;
	m_hasLastValid = true;
	m_showsLastValid = true;
}


double ValidatingLineEdit::value() const {
	return isValid() && !m_showsLastValid ? m_value : m_lastValid;
}


QString ValidatingLineEdit::formatNumber(double value, int decimals, const QLocale & locale) {
	const QLocale l = withoutGroups(locale);
	const double magnitude = std::fabs(value);
	if (magnitude >= LARGEST_FIXED || (value != 0 && magnitude < 0.5*std::pow(10.0, -decimals)))
		return l.toString(value, 'g', std::max(decimals, 1));
	QString text = l.toString(value, 'f', decimals);
	if (decimals > 0) {
		while (text.endsWith(l.zeroDigit()))
			text.chop(1);
		if (text.endsWith(l.decimalPoint()))
			text.chop(1);
	}
	// a small negative value rounded to zero
	if (text == QString(l.negativeSign()) + l.zeroDigit())
		text = l.zeroDigit();
	return text;
}


void ValidatingLineEdit::keyPressEvent(QKeyEvent * event) {
	if (event->key() == Qt::Key_Escape && (isModified() || !isValid())) {
		if (m_hasLastValid)
			setValue(m_lastValid);
		else
			clear();
		event->accept();
		return;
	}
	QLineEdit::keyPressEvent(event);
}


void ValidatingLineEdit::focusOutEvent(QFocusEvent * event) {
	confirm();
	QLineEdit::focusOutEvent(event);
}


bool ValidatingLineEdit::event(QEvent * event) {
	const bool done = QLineEdit::event(event);
	if (!m_marking && event->type() == QEvent::ToolTipChange) {
		// the caller's tool tip; while the text is invalid, the reason stays on top of it
		m_toolTip = toolTip();
		if (!isValid())
			validate();
	}
	else if (event->type() == QEvent::LocaleChange) {
		validate();
	}
	return done;
}


QString ValidatingLineEdit::parse(const QString & text, double & number) const {
	const QString t = text.trimmed();
	if (t.isEmpty())
		return m_integer ? tr("Enter a whole number.") : tr("Enter a number.");
	if (!readNumber(t, m_integer, withoutGroups(locale()), number)
		&& !readNumber(t, m_integer, withoutGroups(QLocale::c()), number))
	{
		return m_integer ? tr("'%1' is not a whole number.").arg(t) : tr("'%1' is not a number.").arg(t);
	}
	const bool aboveMinimum = m_minimumInclusive ? number >= m_minimum : number > m_minimum;
	const bool belowMaximum = m_maximumInclusive ? number <= m_maximum : number < m_maximum;
	return aboveMinimum && belowMaximum ? QString()
		: rangeMessage(m_minimum, m_minimumInclusive, m_maximum, m_maximumInclusive, m_decimals, locale());
}


QString ValidatingLineEdit::rangeMessage(double minimum, bool minimumInclusive, double maximum,
										 bool maximumInclusive, int decimals, const QLocale & locale)
{
	const QString low = formatNumber(minimum, decimals, locale);
	const QString high = formatNumber(maximum, decimals, locale);
	if (std::isinf(maximum))
		return minimumInclusive ? tr("Value must be at least %1.").arg(low)
								: tr("Value must be greater than %1.").arg(low);
	if (std::isinf(minimum))
		return maximumInclusive ? tr("Value must be at most %1.").arg(high)
								: tr("Value must be less than %1.").arg(high);
	if (minimumInclusive && maximumInclusive)
		return tr("Value must be between %1 and %2.").arg(low, high);
	if (minimumInclusive)
		return tr("Value must be at least %1 and less than %2.").arg(low, high);
	if (maximumInclusive)
		return tr("Value must be greater than %1 and at most %2.").arg(low, high);
	return tr("Value must be greater than %1 and less than %2.").arg(low, high);
}


void ValidatingLineEdit::validate() {
	double number = 0;
	m_reason = parse(text(), number);
	m_showsLastValid = false;
	if (m_reason.isEmpty())
		m_value = number;

	m_marking = true;
	setInvalidMarking(this, !m_reason.isEmpty());
	setToolTip(m_reason.isEmpty() ? m_toolTip
		: m_toolTip.isEmpty() ? m_reason : m_reason + "\n\n" + m_toolTip);
	m_marking = false;
}


void ValidatingLineEdit::confirm() {
	if (!isValid() || !isModified())
		return;
	setModified(false);
	m_lastValid = m_value;
	m_hasLastValid = true;
	emit valueConfirmed(m_value);
}

} // namespace QtExt
