#include "OVP_IsoplethLinesType.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <QPB_DialogEditor.h>
#include <QPB_Property.h>

namespace OVP {

namespace {

/*! Chooses the default lines or a table file; an invalid QVariant when cancelled. */
QVariant chooseLines(QWidget * parent, const QVariant &) {
	QDialog dialog(parent);
	dialog.setWindowTitle(IsoplethLinesType::tr("Isopleth lines"));
	QLabel * text = new QLabel(IsoplethLinesType::tr("The model evaluates the isopleth lines of one substrate class. "
		"The default lines approximate published isopleths; a table file gives the lines of another class "
		"(temperature in C in the first column, one column of relative humidity in % per line, "
		"the limit for germination last)."), &dialog);
	text->setWordWrap(true);
	QRadioButton * builtIn = new QRadioButton(IsoplethLinesType::tr("Default lines (approximations)"), &dialog);
	QRadioButton * fromFile = new QRadioButton(IsoplethLinesType::tr("Lines from a table file:"), &dialog);
	QLineEdit * path = new QLineEdit(&dialog);
	QPushButton * browse = new QPushButton(IsoplethLinesType::tr("Browse..."), &dialog);
	QDialogButtonBox * buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
	fromFile->setChecked(true);
	QObject::connect(browse, &QPushButton::clicked, &dialog, [&]() {
		const QString file = QFileDialog::getOpenFileName(&dialog, IsoplethLinesType::tr("Open isopleth lines"),
			path->text(), IsoplethLinesType::tr("Tables (*.csv *.tsv *.txt);;All files (*)"));
		if (!file.isEmpty()) {
			path->setText(file);
			fromFile->setChecked(true);
		}
	});
	const auto updateOk = [&]() {
		buttons->button(QDialogButtonBox::Ok)->setEnabled(builtIn->isChecked() || !path->text().trimmed().isEmpty());
	};
	QObject::connect(path, &QLineEdit::textChanged, &dialog, updateOk);
	QObject::connect(builtIn, &QRadioButton::toggled, &dialog, updateOk);
	QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
	QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
	updateOk();
	QGridLayout * layout = new QGridLayout(&dialog);
	layout->addWidget(text, 0, 0, 1, 3);
	layout->addWidget(builtIn, 1, 0, 1, 3);
	layout->addWidget(fromFile, 2, 0);
	layout->addWidget(path, 2, 1);
	layout->addWidget(browse, 2, 2);
	layout->addWidget(buttons, 3, 0, 1, 3);
	dialog.resize(560, dialog.sizeHint().height());
	if (dialog.exec() != QDialog::Accepted)
		return QVariant();
	return builtIn->isChecked() ? QString() : path->text().trimmed();
}

} // namespace


QString IsoplethLinesType::displayText(const QPB::Property & property) const {
	const QString name = property.value().toString();
	return name.isEmpty() ? tr("Default lines (approximations)") : name;
}


QString IsoplethLinesType::check(const QPB::Property & property, const QVariant & value) const {
	const QString text = value.toString();
	if (text.isEmpty() || text == property.value().toString())
		return QString();
	return QFileInfo(text).isFile() ? QString() : tr("There is no file '%1'.").arg(text);
}


QWidget * IsoplethLinesType::createEditor(QWidget * parent, const QPB::Property &) const {
	return new QPB::DialogEditor(&chooseLines, parent);
}


void IsoplethLinesType::setEditorValue(QWidget * editor, const QPB::Property & property) const {
	static_cast<QPB::DialogEditor *>(editor)->setValue(property.value(), displayText(property));
}


QVariant IsoplethLinesType::readEditor(QWidget * editor) const {
	return static_cast<QPB::DialogEditor *>(editor)->value();
}

} // namespace OVP
