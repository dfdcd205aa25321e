#ifndef OVADirectoriesH
#define OVADirectoriesH

#include <QString>

/*! The application name and the per-user and installation directories derived from it: data
	directory with the log file, translation directory and update download directory.

	The name is set once at start-up, before the application object exists.
*/
class OVADirectories {
public:
	/*! Sets the application name used for all paths, and as the toolkit's application name. */
	static void setAppName(const QString & appName);
	static const QString & appName() { return m_appName; }

	/*! Per-user data directory: home directory + "/AppData/Roaming/" + application name, with
		native separators.
	*/
	static QString userDataDir();
	/*! Log file: application name + ".log" in the per-user data directory. */
	static QString logFile();
	/*! Directory of the translation files: application directory + "/resources/translations". */
	static QString translationsDir();
	/*! Directory of downloaded update installers: home directory + "/AppData/Local/" +
		application name + "/updates", with native separators.
	*/
	static QString updateDownloadDir();

private:
	static QString m_appName;
};

#endif // OVADirectoriesH
