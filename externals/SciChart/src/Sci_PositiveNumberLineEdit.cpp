#include "Sci_PositiveNumberLineEdit.h"

#include <cmath>

#include <QLocale>

namespace SCI {

const char * const PositiveNumberLineEdit::INVALID_NUMBER_MESSAGE = "A positive number is required.";

PositiveNumberLineEdit::PositiveNumberLineEdit(QWidget * parent) :
	QLineEdit(parent)
{
	connect(this, &QLineEdit::editingFinished, this, &PositiveNumberLineEdit::onEditingFinished);
}


bool PositiveNumberLineEdit::isValid() const {
	double v;
	return parse(text(), m_integerOnly, v);
}


double PositiveNumberLineEdit::value() const {
	double v;
	if (!parse(text(), m_integerOnly, v))
		return 0;
	return !m_shownText.isNull() && text() == m_shownText ? m_shownValue : v;
}


void PositiveNumberLineEdit::setValue(double value, int decimals) {
	// fixed notation in the user's notation with trailing zeros removed: 158.75 with one decimal
	// gives "158.8" (German "158,8"), 20.0 gives "20"
	QLocale locale;
	locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
	QString text = locale.toString(value, 'f', decimals);
	if (text.contains(locale.decimalPoint())) {
		while (text.endsWith('0'))
			text.chop(1);
		if (text.endsWith(locale.decimalPoint()))
			text.chop(1);
	}
	setText(text);
	m_shownText = text;
	m_shownValue = value;
	setErrorMark(false);
}


bool PositiveNumberLineEdit::parse(const QString & text, bool integerOnly, double & value) {
	const QString t = text.trimmed();
	bool ok = false;
	value = QLocale::c().toDouble(t, &ok);
	if (!ok)
		value = QLocale().toDouble(t, &ok);
	if (!ok || !std::isfinite(value) || value <= 0)
		return false;
	return !integerOnly || value == std::floor(value);
}


void PositiveNumberLineEdit::onEditingFinished() {
	const bool valid = isValid();
	setErrorMark(!valid);
	if (valid)
		emit editingFinishedSuccessfully();
}


void PositiveNumberLineEdit::setErrorMark(bool invalid) {
	if (invalid) {
		setStyleSheet("background-color: #ffb0b0");
		setToolTip(tr(INVALID_NUMBER_MESSAGE));
	}
	else {
		setStyleSheet(QString());
		setToolTip(QString());
	}
}

} // namespace SCI
