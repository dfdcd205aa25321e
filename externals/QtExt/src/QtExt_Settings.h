#ifndef QtExt_SettingsH
#define QtExt_SettingsH

#include <climits>
#include <memory>
#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>

class QSettings;

namespace ZEB {
	class ArgParser;
}

namespace QtExt {

/*! General user preferences of an application: language, log levels, recent projects, dialogs
	the user asked not to see again, and the command-line options that belong to the start-up
	(no-splash, lang, initial project file).

	Values live in the persistent settings store of the given organisation and application, or,
	when a settings file is given, in that INI file (used by tests and portable set-ups).

	Start-up order: construct (applies the defaults), read(), then applyCommandLineArgs().
	Applications derive from this class to add their own keys; they override setDefaults(),
	read() and write() and call the base versions first.
*/
class Settings : public QObject {
	Q_OBJECT
public:
	/*! A dialog with a "do not show again" check box and whether the user checked it. */
	struct DoNotShowAgainDialog {
		QString	m_dialogID;
		bool	m_checked = false;
	};

	/*! The answer (a button code) remembered for a "do not show again" dialog. */
	struct DoNotShowAgainDialogAnswer {
		QString	m_dialogID;
		int		m_answer = 0;
	};

	/*! Applies the defaults.
		\param organization Organisation name of the settings store.
		\param appName Application name of the settings store.
		\param settingsFile When not empty, an INI file used instead of the store of
			organisation and application.
	*/
	Settings(const QString & organization, const QString & appName, const QString & settingsFile = QString());
	~Settings() override;

	/*! Puts path at the front of the recent projects, removes other entries of the same path and
		drops the oldest entries beyond m_maxRecentProjects.
	*/
	void addRecentProject(const QString & path);

	/*! Reads the main window geometry and state written by write(); empty arrays when none are
		stored.
	*/
	void readMainWindowGeometry(QByteArray & geometry, QByteArray & state) const;

	/*! True when the user asked not to see the dialog dialogID again; answer then receives the
		answer remembered for it (0 when none was remembered).
	*/
	bool isDoNotShowAgain(const QString & dialogID, int * answer = nullptr) const;
	/*! Remembers that the dialog dialogID is not to be shown again and the answer given to it. */
	void setDoNotShowAgain(const QString & dialogID, int answer);
	/*! Number of dialogs the user asked not to see again. */
	int doNotShowAgainCount() const;
	/*! Shows every dialog again: forgets all "do not show again" choices and their answers. */
	void resetDoNotShowAgain();

	/*! Opens the settings store (INI file or organisation/application store). */
	std::unique_ptr<QSettings> openStore() const;

	/*! The default text editor: the first existing Notepad++ install location, else the first of
		gedit, kate, mousepad and xed found on the executable search path, else empty.
	*/
	static QString defaultTextEditor();

	/*! Returns the first existing file of candidates; when none exists, the first of executables
		found in searchPaths (the executable search path when searchPaths is empty); else empty.
	*/
	static QString findTextEditor(const QStringList & candidates, const QStringList & executables,
								  const QStringList & searchPaths = QStringList());

	/*! Organisation name of the settings store. */
	QString		m_organization;
	/*! Application name of the settings store. */
	QString		m_appName;
	/*! INI file used instead of the organisation/application store, or empty. */
	QString		m_settingsFile;

	/*! Project file of the last session. */
	QString		m_lastProjectFile;
	/*! Recently used project files, newest first. */
	QStringList	m_recentProjects;
	/*! Maximum number of entries in m_recentProjects. */
	unsigned int m_maxRecentProjects;
	/*! Maximum number of undo steps (read from "MaxNumUndoSteps", written as "UndoSize"). */
	unsigned int m_maxNumUNDOSteps;
	/*! Executable of the external text editor. */
	QString		m_textEditorExecutable;
	/*! Two-character language id, e.g. "en" or "de". */
	QString		m_langId;
	/*! Verbosity level of console messages. */
	int			m_userLogLevelConsole;
	/*! Verbosity level of log-file messages. */
	int			m_userLogLevelLogfile;
	/*! Dialogs with a "do not show again" check box. */
	std::vector<DoNotShowAgainDialog>		m_doNotShowAgainDialogs;
	/*! Remembered answers of "do not show again" dialogs. */
	std::vector<DoNotShowAgainDialogAnswer>	m_doNotShowAgainDialogAnswers;

	/*! Directory of the application executable; not stored. */
	QString		m_installDir;
	/*! Project file given on the command line; not stored. */
	QString		m_initialProjectFile;
	/*! True when the splash screen is switched off on the command line; not stored. */
	bool		m_noSplashScreen;

public slots:
	/*! Sets every member to its default. */
	virtual void setDefaults();
	/*! Registers the options "no-splash" and "lang" with the command-line parser. */
	virtual void updateArgParser(ZEB::ArgParser & argParser);
	/*! Takes "no-splash" (on only for exactly "true"), "lang" (when given) and the first
		positional argument (initial project file) from a parsed command line.
	*/
	virtual void applyCommandLineArgs(const ZEB::ArgParser & argParser);
	/*! Reads all stored keys; a missing key keeps the current value. Stored values that cannot
		be converted are reported as warnings and the current value is kept.
	*/
	virtual void read();
	/*! Writes all keys, plus the main window geometry and state. */
	virtual void write(const QByteArray & geometry, const QByteArray & state);

protected:
	/*! Readers used by read(): each returns fallback when the key is missing, and reports a
		warning and returns fallback when the stored value has the wrong type or range.
	*/
	static QString readString(const QSettings & store, const QString & key, const QString & fallback);
	static QStringList readStringList(const QSettings & store, const QString & key, const QStringList & fallback);
	static bool readBool(const QSettings & store, const QString & key, bool fallback);
	static int readInt(const QSettings & store, const QString & key, int fallback,
					   int minValue = INT_MIN, int maxValue = INT_MAX);
	static unsigned int readUInt(const QSettings & store, const QString & key, unsigned int fallback);
};

} // namespace QtExt

#endif // QtExt_SettingsH
