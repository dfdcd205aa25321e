#ifndef OVP_SettingsH
#define OVP_SettingsH

#include <QColor>
#include <QLocale>
#include <QStringList>

#include <QtExt_Settings.h>

namespace OVP {

/*! The application's user preferences: the general keys of QtExt::Settings plus data manager
	filters, session and export options and the visibility of the main view's panels.

	There is exactly one instance, created by the entry function and reached through instance().
	By default it uses the settings store of organisation "ZEB" and application "OrvanePart".
*/
class Settings : public QtExt::Settings {
	Q_OBJECT
public:
	/*! Applies the defaults and registers the instance.
		Throws ZEB::Exception when an instance exists already.
		\param organization Organisation name of the settings store.
		\param appName Application name of the settings store.
		\param settingsFile When not empty, an INI file used instead of the store.
	*/
	explicit Settings(const QString & organization = "ZEB", const QString & appName = "OrvanePart",
					  const QString & settingsFile = QString());
	/*! Unregisters the instance. */
	~Settings() override;

	/*! The one instance; throws ZEB::Exception when none has been created. */
	static Settings & instance();
	/*! True when the instance exists (tools may run without settings). */
	static bool exists() { return m_self != nullptr; }

	/*! Whether data export uses a decimal comma, decided from a locale: 1 when its decimal point
		is ",", else 0.
	*/
	static int germanFormatForLocale(const QLocale & locale);

	/*! Decides m_exportGermanFormatEnabled from the system locale when it is still undecided
		(-1); a decided value stays as it is.
	*/
	void decideExportGermanFormat(const QLocale & systemLocale);

	/*! User colouring of the data manager switched on. */
	bool		m_userColoring;
	/*! Number of decimal places of exported and displayed values. */
	int			m_decimalPlaces;
	/*! File patterns listed in the data manager. */
	QStringList	m_fileNameFilter;
	/*! Directory names excluded from the directory tree. */
	QStringList	m_excludedDirNames;
	/*! Write all properties in session file, also those equal to their default. */
	bool		m_writeAll;
	/*! Reopen last session on program start (else start with empty session). */
	bool		m_startWithLastSession;
	/*! Last applied chart style file. */
	QString		m_chartStyleFileLastUsed;
	/*! Newest version the user chose not to install. */
	QString		m_newestRejectedVersion;
	/*! Address of the version file on the update server; empty: never look for updates. */
	QString		m_updateUrl;
	/*! Sizes used in earlier vector exports of charts. */
	QStringList	m_chartVectorExportDimensionHistory;
	/*! Data export writes header lines. */
	bool		m_exportHeadersEnabled;
	/*! Data export uses a decimal comma: -1 not decided yet, 0 no, 1 yes. */
	int			m_exportGermanFormatEnabled;
	/*! Data export writes units on a line of their own. */
	bool		m_exportSeperateLinesForUnitsEnabled;
	/*! Visibility of the east (property panels), west (directories and mappers) and south (log)
		panels; all shown by default so that a first start presents the complete main view.
	*/
	bool		m_panelEastVisible;
	bool		m_panelWestVisible;
	bool		m_panelSouthVisible;

	/*! Background of data manager rows of output files that are used by a mapper, when user
		colouring is on; not stored.
	*/
	QColor		m_usedFileColor;
	/*! Background of data manager rows of output files used by the selected mapper, when user
		colouring is on; not stored.
	*/
	QColor		m_selectedMapperFileColor;

public slots:
	/*! Sets the defaults of the base and of all members of this class. */
	void setDefaults() override;
	/*! Reads the keys of the base and of this class. */
	void read() override;
	/*! Writes the keys of the base and of this class. */
	void write(const QByteArray & geometry, const QByteArray & state) override;

private:
	/*! The one instance, or null. */
	static Settings * m_self;
};

} // namespace OVP

#endif // OVP_SettingsH
