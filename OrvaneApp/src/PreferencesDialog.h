#ifndef PreferencesDialogH
#define PreferencesDialogH

#include <QDialog>

#include <OVP_Preferences.h>

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QCheckBox;
class QSpinBox;

namespace QtExt {
class BrowseFilenameWidget;
}

/*! The preferences dialog: shows and edits OVP::Preferences (language, log levels, start-up
	session, session file writing, text editor, data manager filters, data export and tables, update
	address) and offers
	to show the hidden "do not show again" messages again. Accepting checks the values; the
	caller stores them.
*/
class PreferencesDialog : public QDialog {
	Q_OBJECT
public:
	/*! Fields the dialog can open at. */
	enum Field {
		F_Language,
		F_TextEditor,
		F_UpdateUrl
	};

	/*! \param hiddenMessages Number of messages the user asked not to see again. */
	PreferencesDialog(const OVP::Preferences & preferences, int hiddenMessages, QWidget * parent = nullptr);

	/*! Gives a field the keyboard focus. */
	void focusField(Field field);
	/*! The field with the focus; F_Language when it is none of the others. */
	Field focusedField() const;

	/*! The edited values. */
	OVP::Preferences preferences() const;

	/*! Closes the dialog when the values are valid; otherwise tells why and stays open. */
	void accept() override;

private:
	QComboBox *						m_language;
	QSpinBox *						m_logLevelConsole;
	QSpinBox *						m_logLevelLogfile;
	QRadioButton *					m_startWithLastSession;
	QRadioButton *					m_startWithEmptySession;
	QCheckBox *						m_writeAll;
	QtExt::BrowseFilenameWidget *	m_textEditor;
	QLineEdit *						m_fileNameFilter;
	QLineEdit *						m_excludedDirNames;
	QCheckBox *						m_exportHeaders;
	QCheckBox *						m_exportGermanFormat;
	QCheckBox *						m_exportSeparateUnitLines;
	QSpinBox *						m_decimalPlaces;
	QLineEdit *						m_updateUrl;
	QPushButton *					m_resetMessages;
	bool							m_resetDoNotShowAgain = false;
};

#endif // PreferencesDialogH
