#include "PreferencesDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <QtExt_BrowseFilenameWidget.h>

namespace {

/*! A spin box for a log level. */
QSpinBox * logLevelBox(int value) {
	QSpinBox * box = new QSpinBox;
	box->setRange(0, OVP::Preferences::MAX_LOG_LEVEL);
	box->setValue(value);
	return box;
}

/*! A hint below a field, in the text colour of disabled widgets. */
QLabel * hintLabel(const QString & text) {
	QLabel * label = new QLabel(text);
	label->setWordWrap(true);
	QPalette palette = label->palette();
	palette.setColor(QPalette::WindowText, palette.color(QPalette::Disabled, QPalette::WindowText));
	label->setPalette(palette);
	return label;
}

} // namespace


PreferencesDialog::PreferencesDialog(const OVP::Preferences & preferences, int hiddenMessages, QWidget * parent) :
	QDialog(parent)
{
	setWindowTitle(tr("Preferences"));

	m_language = new QComboBox;
	m_language->addItem(tr("English"), "en");
	m_language->addItem(tr("German (Deutsch)"), "de");
	// a language chosen on the command line or in an older version stays selectable
	if (m_language->findData(preferences.m_langId) < 0)
		m_language->addItem(preferences.m_langId, preferences.m_langId);
	m_language->setCurrentIndex(m_language->findData(preferences.m_langId));
	m_logLevelConsole = logLevelBox(preferences.m_logLevelConsole);
	m_logLevelLogfile = logLevelBox(preferences.m_logLevelLogfile);
	QGroupBox * general = new QGroupBox(tr("Language and log"));
	QFormLayout * generalLayout = new QFormLayout(general);
	generalLayout->addRow(tr("Language:"), m_language);
	generalLayout->addRow(QString(), hintLabel(tr("A changed language takes effect on the next program start.")));
	generalLayout->addRow(tr("Console log level:"), m_logLevelConsole);
	generalLayout->addRow(tr("Log file log level:"), m_logLevelLogfile);
	generalLayout->addRow(QString(), hintLabel(tr("Higher levels write more detail; errors are always written.")));

	m_startWithLastSession = new QRadioButton(tr("Reopen last session on program start"));
	m_startWithEmptySession = new QRadioButton(tr("Start with empty session"));
	(preferences.m_startWithLastSession ? m_startWithLastSession : m_startWithEmptySession)->setChecked(true);
	m_writeAll = new QCheckBox(tr("Write all properties in session file"));
	m_writeAll->setChecked(preferences.m_writeAll);
	m_textEditor = new QtExt::BrowseFilenameWidget(QtExt::BrowseFilenameWidget::OpenFile);
	m_textEditor->setCaption(tr("Select text editor"));
	m_textEditor->setFilename(preferences.m_textEditorExecutable);
	QGroupBox * sessions = new QGroupBox(tr("Sessions"));
	QFormLayout * sessionLayout = new QFormLayout(sessions);
	sessionLayout->addRow(m_startWithLastSession);
	sessionLayout->addRow(m_startWithEmptySession);
	sessionLayout->addRow(m_writeAll);
	sessionLayout->addRow(tr("Text editor:"), m_textEditor);
	sessionLayout->addRow(QString(), hintLabel(tr("Opens the session file with \"Edit session file in text editor\" (F2).")));

	m_fileNameFilter = new QLineEdit(OVP::Preferences::textFromList(preferences.m_fileNameFilter));
	m_excludedDirNames = new QLineEdit(OVP::Preferences::textFromList(preferences.m_excludedDirNames));
	QGroupBox * dataManager = new QGroupBox(tr("Data manager"));
	QFormLayout * dataLayout = new QFormLayout(dataManager);
	dataLayout->addRow(tr("File name filter:"), m_fileNameFilter);
	dataLayout->addRow(tr("Excluded directory names:"), m_excludedDirNames);
	dataLayout->addRow(QString(), hintLabel(tr("Separate several entries with ';'. Changes apply at once.")));

	m_exportHeaders = new QCheckBox(tr("Write header lines"));
	m_exportHeaders->setChecked(preferences.m_exportHeaders);
	m_exportGermanFormat = new QCheckBox(tr("German number format (decimal comma, ';' between fields)"));
	m_exportGermanFormat->setChecked(preferences.m_exportGermanFormat);
	m_exportSeparateUnitLines = new QCheckBox(tr("Units on a line of their own"));
	m_exportSeparateUnitLines->setChecked(preferences.m_exportSeparateUnitLines);
	m_decimalPlaces = new QSpinBox;
	m_decimalPlaces->setRange(0, OVP::Preferences::MAX_DECIMAL_PLACES);
	m_decimalPlaces->setValue(preferences.m_decimalPlaces);
	QGroupBox * dataExport = new QGroupBox(tr("Data tables and export"));
	QFormLayout * exportLayout = new QFormLayout(dataExport);
	exportLayout->addRow(m_exportHeaders);
	exportLayout->addRow(m_exportGermanFormat);
	exportLayout->addRow(m_exportSeparateUnitLines);
	exportLayout->addRow(tr("Decimal places shown in tables:"), m_decimalPlaces);
	exportLayout->addRow(hintLabel(tr("Copied and exported numbers keep their full precision.")));

	m_updateUrl = new QLineEdit(preferences.m_updateUrl);
	m_updateUrl->setPlaceholderText(tr("https://.../version.txt"));
	m_resetMessages = new QPushButton(tr("Show hidden messages again (%1)").arg(hiddenMessages));
	m_resetMessages->setEnabled(hiddenMessages > 0);
	connect(m_resetMessages, &QPushButton::clicked, this, [this]() {
		m_resetDoNotShowAgain = true;
		m_resetMessages->setEnabled(false);
	});
	QGroupBox * updates = new QGroupBox(tr("Updates and messages"));
	QFormLayout * updateLayout = new QFormLayout(updates);
	updateLayout->addRow(tr("Update address:"), m_updateUrl);
	updateLayout->addRow(QString(), hintLabel(tr("Address of the version file; empty: never look for updates.")));
	updateLayout->addRow(m_resetMessages);

	QDialogButtonBox * buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
	connect(buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::accept);
	connect(buttons, &QDialogButtonBox::rejected, this, &PreferencesDialog::reject);

	// two columns, so that the dialog fits screens of 768 pixels height
	QVBoxLayout * left = new QVBoxLayout;
	left->addWidget(general);
	left->addWidget(sessions);
	left->addStretch(1);
	QVBoxLayout * right = new QVBoxLayout;
	right->addWidget(dataManager);
	right->addWidget(dataExport);
	right->addWidget(updates);
	right->addStretch(1);
	QHBoxLayout * columns = new QHBoxLayout;
	columns->addLayout(left, 1);
	columns->addLayout(right, 1);
	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addLayout(columns, 1);
	layout->addWidget(buttons);
	setMinimumWidth(860);
}


void PreferencesDialog::focusField(Field field) {
	switch (field) {
		case F_Language :	m_language->setFocus(); break;
		case F_TextEditor :	m_textEditor->setFocus(); break;
		case F_UpdateUrl :	m_updateUrl->setFocus(); break;
	}
}


PreferencesDialog::Field PreferencesDialog::focusedField() const {
	if (m_textEditor->isAncestorOf(focusWidget()))
		return F_TextEditor;
	if (focusWidget() == m_updateUrl)
		return F_UpdateUrl;
	return F_Language;
}


OVP::Preferences PreferencesDialog::preferences() const {
	OVP::Preferences p;
	p.m_langId = m_language->currentData().toString();
	p.m_logLevelConsole = m_logLevelConsole->value();
	p.m_logLevelLogfile = m_logLevelLogfile->value();
	p.m_startWithLastSession = m_startWithLastSession->isChecked();
	p.m_writeAll = m_writeAll->isChecked();
	p.m_textEditorExecutable = m_textEditor->filename().trimmed();
	p.m_fileNameFilter = OVP::Preferences::listFromText(m_fileNameFilter->text());
	p.m_excludedDirNames = OVP::Preferences::listFromText(m_excludedDirNames->text());
	p.m_exportHeaders = m_exportHeaders->isChecked();
	p.m_exportGermanFormat = m_exportGermanFormat->isChecked();
	p.m_exportSeparateUnitLines = m_exportSeparateUnitLines->isChecked();
	p.m_decimalPlaces = m_decimalPlaces->value();
	p.m_updateUrl = m_updateUrl->text().trimmed();
	p.m_resetDoNotShowAgain = m_resetDoNotShowAgain;
	return p;
}


void PreferencesDialog::accept() {
	const QString problem = preferences().problem();
	if (!problem.isEmpty()) {
		QMessageBox::critical(this, tr("Preferences"), problem);
		return;
	}
	QDialog::accept();
}
