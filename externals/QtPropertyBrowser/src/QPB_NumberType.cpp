#include "QPB_NumberType.h"

#include <cmath>
#include <limits>

#include <QtExt_ValidatingLineEdit.h>

#include "QPB_Property.h"

namespace QPB {

namespace {

/*! True for a variant that holds a number (not a text that could be read as one). */
bool holdsNumber(const QVariant & value) {
	switch (static_cast<QMetaType::Type>(value.type())) {
		case QMetaType::Int: case QMetaType::UInt: case QMetaType::LongLong: case QMetaType::ULongLong:
		case QMetaType::Double: case QMetaType::Float:
			return true;
		default:
			return false;
	}
}

} // namespace


NumberType::NumberType(bool integer) :
	m_integer(integer)
{
}


QString NumberType::displayText(const Property & property) const {
	if (isSpecialValue(property, property.value().toDouble()))
		return property.attribute(SpecialValueText).toString();
	const QString text = QtExt::ValidatingLineEdit::formatNumber(property.value().toDouble(), decimals(property),
																 QLocale());
	const QString unit = property.attribute(Unit).toString();
	return unit.isEmpty() ? text : text + " " + unit;
}


QString NumberType::check(const Property & property, const QVariant & value) const {
	const double number = value.toDouble();
	if (holdsNumber(value) && !m_integer && std::isnan(number) && isSpecialValue(property, number))
		return QString();
	if (!holdsNumber(value) || !std::isfinite(number))
		return m_integer ? tr("Enter a whole number.") : tr("Enter a number.");
	if (m_integer && number != std::floor(number))
		return tr("Enter a whole number.");
	double minimum, maximum;
	range(property, minimum, maximum);
	const bool minimumExclusive = property.attribute(MinimumExclusive).toBool();
	const bool maximumExclusive = property.attribute(MaximumExclusive).toBool();
	if ((minimumExclusive ? number > minimum : number >= minimum)
		&& (maximumExclusive ? number < maximum : number <= maximum))
	{
		return QString();
	}
	return QtExt::ValidatingLineEdit::rangeMessage(minimum, !minimumExclusive, maximum, !maximumExclusive,
												   decimals(property), QLocale());
}


QWidget * NumberType::createEditor(QWidget * parent, const Property & property) const {
	QtExt::ValidatingLineEdit * edit = new QtExt::ValidatingLineEdit(parent);
	edit->setFrame(false);
	edit->setInteger(m_integer);
	edit->setDecimals(decimals(property));
	double minimum, maximum;
	range(property, minimum, maximum);
	edit->setMinimum(minimum, !property.attribute(MinimumExclusive).toBool());
	edit->setMaximum(maximum, !property.attribute(MaximumExclusive).toBool());
	if (!m_integer)
		edit->setPlaceholderText(property.attribute(SpecialValueText).toString());
	return edit;
}


void NumberType::setEditorValue(QWidget * editor, const Property & property) const {
	QtExt::ValidatingLineEdit * edit = static_cast<QtExt::ValidatingLineEdit *>(editor);
	const double value = property.value().toDouble();
	if (std::isnan(value))
		edit->clear();
	else
		edit->setValue(value);
}


QString NumberType::editorReason(QWidget * editor) const {
	const QtExt::ValidatingLineEdit * edit = static_cast<QtExt::ValidatingLineEdit *>(editor);
	// an empty field is the special value where there is one (the placeholder shows its text)
	if (isEmptySpecial(edit))
		return QString();
	return edit->invalidReason();
}


QVariant NumberType::readEditor(QWidget * editor) const {
	if (isEmptySpecial(static_cast<QtExt::ValidatingLineEdit *>(editor)))
		return std::numeric_limits<double>::quiet_NaN();
	const double number = static_cast<QtExt::ValidatingLineEdit *>(editor)->value();
	return m_integer ? QVariant(static_cast<int>(std::llround(number))) : QVariant(number);
}


void NumberType::range(const Property & property, double & minimum, double & maximum) const {
	const double lowest = m_integer ? std::numeric_limits<int>::min() : -QtExt::ValidatingLineEdit::UNBOUNDED;
	const double highest = m_integer ? std::numeric_limits<int>::max() : QtExt::ValidatingLineEdit::UNBOUNDED;
	minimum = std::max(lowest, property.attribute(Minimum, lowest).toDouble());
	maximum = std::min(highest, property.attribute(Maximum, highest).toDouble());
}


bool NumberType::isSpecialValue(const Property & property, double value) const {
	if (!property.attribute(SpecialValueText).isValid())
		return false;
	if (!m_integer)
		return std::isnan(value);
	double minimum, maximum;
	range(property, minimum, maximum);
	return value == minimum;
}


bool NumberType::isEmptySpecial(const QtExt::ValidatingLineEdit * edit) const {
	return !m_integer && !edit->placeholderText().isEmpty() && edit->text().trimmed().isEmpty();
}


int NumberType::decimals(const Property & property) const {
	return m_integer ? 0 : property.attribute(Decimals, 6).toInt();
}

} // namespace QPB
