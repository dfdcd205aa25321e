#include "QPB_StringType.h"

#include <QLineEdit>

#include "QPB_Property.h"

namespace QPB {

QString StringType::displayText(const Property & property) const {
	return property.value().toString();
}


QString StringType::check(const Property & property, const QVariant & value) const {
	if (value.type() != QVariant::String)
		return tr("Enter a text.");
	return textReason(value.toString(), property.attribute(NotEmpty).toBool());
}


QWidget * StringType::createEditor(QWidget * parent, const Property & property) const {
	QLineEdit * edit = new QLineEdit(parent);
	edit->setFrame(false);
	const bool notEmpty = property.attribute(NotEmpty).toBool();
	QObject::connect(edit, &QLineEdit::textChanged, edit, [edit, notEmpty](const QString & text) {
		markEditor(edit, textReason(text, notEmpty));
	});
	return edit;
}


void StringType::setEditorValue(QWidget * editor, const Property & property) const {
	static_cast<QLineEdit *>(editor)->setText(property.value().toString());
}


QVariant StringType::readEditor(QWidget * editor) const {
	return static_cast<QLineEdit *>(editor)->text();
}


QString StringType::textReason(const QString & text, bool notEmpty) {
	return notEmpty && text.trimmed().isEmpty() ? tr("The text must not be empty.") : QString();
}

} // namespace QPB
