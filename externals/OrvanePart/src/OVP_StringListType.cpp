#include "OVP_StringListType.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <QPB_DialogEditor.h>
#include <QPB_Property.h>

namespace OVP {

namespace {

/*! Edits the list in a dialog, one entry per line; an invalid QVariant when cancelled. */
QVariant editList(QWidget * parent, const QVariant & value) {
	QDialog dialog(parent);
	dialog.setWindowTitle(StringListType::tr("Edit list"));
	QPlainTextEdit * text = new QPlainTextEdit(value.toStringList().join("\n"), &dialog);
	QDialogButtonBox * buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
	QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
	QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
	QVBoxLayout * layout = new QVBoxLayout(&dialog);
	layout->addWidget(new QLabel(StringListType::tr("One entry per line:"), &dialog));
	layout->addWidget(text);
	layout->addWidget(buttons);
	if (dialog.exec() != QDialog::Accepted)
		return QVariant();
	// a trailing line break is no entry
	QString lines = text->toPlainText();
	while (lines.endsWith('\n'))
		lines.chop(1);
	return lines.split('\n');
}

} // namespace


QString StringListType::displayText(const QPB::Property & property) const {
	return property.value().toStringList().join("; ");
}


QString StringListType::check(const QPB::Property &, const QVariant & value) const {
	if (value.type() != QVariant::StringList)
		return tr("Enter a list of texts.");
	for (const QString & entry : value.toStringList())
		if (entry.trimmed().isEmpty())
			return tr("The list must not have empty entries.");
	return QString();
}


QWidget * StringListType::createEditor(QWidget * parent, const QPB::Property &) const {
	return new QPB::DialogEditor(&editList, parent);
}


void StringListType::setEditorValue(QWidget * editor, const QPB::Property & property) const {
	static_cast<QPB::DialogEditor *>(editor)->setValue(property.value(), displayText(property));
}


QVariant StringListType::readEditor(QWidget * editor) const {
	return static_cast<QPB::DialogEditor *>(editor)->value();
}

} // namespace OVP
