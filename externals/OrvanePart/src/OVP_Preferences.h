#ifndef OVP_PreferencesH
#define OVP_PreferencesH

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace OVP {

class Settings;

/*! The user preferences edited in the preferences dialog: taken from the settings, edited, checked
	and stored back. The dialog only shows these values; what storing changed tells the program
	what to apply at once (log levels, data manager filters) and what waits for the next start
	(language).
*/
class Preferences {
	Q_DECLARE_TR_FUNCTIONS(Preferences)
public:
	/*! What storeTo() changed in the settings, as bit flags. */
	enum Change {
		C_Language		= 0x1,	///< takes effect on the next program start
		C_LogLevels		= 0x2,
		C_DataManager	= 0x4,	///< file name filter or excluded directory names
		C_Other			= 0x8,
		C_DataTables	= 0x10	///< decimal places of the data tables
	};

	/*! Highest log level offered; higher levels show more detail. */
	static constexpr int MAX_LOG_LEVEL = 9;
	/*! Most decimal places offered for data tables. */
	static constexpr int MAX_DECIMAL_PLACES = 15;

	/*! The preferences as the settings hold them. */
	static Preferences fromSettings(const Settings & settings);

	/*! Why the values cannot be stored, as a sentence for the user; empty when they can. */
	QString problem() const;

	/*! Writes the values into the settings (in memory; the settings are written to their store
		by the caller) and returns the Change flags of what differs from before.
	*/
	int storeTo(Settings & settings) const;

	/*! A list entered as text: entries separated by ';', blanks around them and empty entries
		dropped.
	*/
	static QStringList listFromText(const QString & text);
	/*! The text form of a list, as listFromText() reads it. */
	static QString textFromList(const QStringList & list);

	/*! Language id, e.g. "en" or "de". */
	QString		m_langId;
	int			m_logLevelConsole = 1;
	int			m_logLevelLogfile = 2;
	bool		m_startWithLastSession = true;
	bool		m_writeAll = false;
	QString		m_textEditorExecutable;
	QStringList	m_fileNameFilter;
	QStringList	m_excludedDirNames;
	/*! Address of the version file on the update server; empty: never look for updates. */
	QString		m_updateUrl;
	/*! Data export (files and clipboard) writes header lines. */
	bool		m_exportHeaders = true;
	/*! Data export uses a decimal comma (and ";" between the fields of CSV files). */
	bool		m_exportGermanFormat = false;
	/*! Data export writes the units on a line of their own. */
	bool		m_exportSeparateUnitLines = false;
	/*! Decimal places of the numbers in data tables. */
	int			m_decimalPlaces = 6;
	/*! Show again all dialogs the user asked not to see again. */
	bool		m_resetDoNotShowAgain = false;
};

} // namespace OVP

#endif // OVP_PreferencesH
