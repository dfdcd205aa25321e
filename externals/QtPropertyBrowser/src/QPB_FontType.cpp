#include "QPB_FontType.h"

#include <QtExt_ValidatingLineEdit.h>

#include "QPB_BoolType.h"
#include "QPB_FontEditor.h"
#include "QPB_NumberType.h"
#include "QPB_Property.h"
#include "QPB_StringType.h"

namespace QPB {

namespace {

/*! Largest font size in points that is accepted. */
const double LARGEST_SIZE = 500;

} // namespace


QString FontType::fontText(const QFont & font) {
	QString text = font.family() + ", ";
	if (font.pointSizeF() > 0)
		text += tr("%1 pt").arg(QtExt::ValidatingLineEdit::formatNumber(font.pointSizeF(), 1, QLocale()));
	else
		text += tr("%1 px").arg(font.pixelSize());
	if (font.bold())
		text += ", " + tr("bold");
	if (font.italic())
		text += ", " + tr("italic");
	return text;
}


QString FontType::displayText(const Property & property) const {
	return fontText(property.value().value<QFont>());
}


QString FontType::check(const Property &, const QVariant & value) const {
	if (value.type() != QVariant::Font)
		return tr("Choose a font.");
	const QFont font = value.value<QFont>();
	if (font.family().trimmed().isEmpty())
		return tr("The font family must not be empty.");
	const double size = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize();
	if (size <= 0 || size > LARGEST_SIZE)
		return tr("The font size must be greater than 0 and at most %1.").arg(LARGEST_SIZE);
	return QString();
}


QWidget * FontType::createEditor(QWidget * parent, const Property &) const {
	return new FontEditor(parent);
}


void FontType::setEditorValue(QWidget * editor, const Property & property) const {
	static_cast<FontEditor *>(editor)->setChosenFont(property.value().value<QFont>());
}


QVariant FontType::readEditor(QWidget * editor) const {
	return static_cast<FontEditor *>(editor)->chosenFont();
}


void FontType::createSubProperties(Property & property) const {
	addSubProperty(property, tr("Family"), StringType::ID, QString())->setAttribute(StringType::NotEmpty, true);
	Property * size = addSubProperty(property, tr("Size"), NumberType::DOUBLE_ID, 0.0);
	size->setAttribute(NumberType::Minimum, 0.0);
	size->setAttribute(NumberType::MinimumExclusive, true);
	size->setAttribute(NumberType::Maximum, LARGEST_SIZE);
	size->setAttribute(NumberType::Decimals, 1);
	size->setAttribute(NumberType::Unit, tr("pt"));
	addSubProperty(property, tr("Bold"), BoolType::ID, false);
	addSubProperty(property, tr("Italic"), BoolType::ID, false);
}


void FontType::updateSubProperties(Property & property) const {
	const QFont font = property.value().value<QFont>();
	property.child(SP_Family)->setValue(font.family());
	property.child(SP_Size)->setValue(font.pointSizeF());
	property.child(SP_Bold)->setValue(font.bold());
	property.child(SP_Italic)->setValue(font.italic());
}


QVariant FontType::composeValue(const Property & property, int row, const QVariant & partValue) const {
	QFont font = property.value().value<QFont>();
	switch (row) {
		case SP_Family: font.setFamily(partValue.toString()); break;
		case SP_Size: font.setPointSizeF(partValue.toDouble()); break;
		case SP_Bold: font.setBold(partValue.toBool()); break;
		case SP_Italic: font.setItalic(partValue.toBool()); break;
	}
	return font;
}

} // namespace QPB
