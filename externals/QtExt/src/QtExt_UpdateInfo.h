#ifndef QtExt_UpdateInfoH
#define QtExt_UpdateInfoH

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace QtExt {

/*! What the version file on the update server announces: the newest version, where its
	installer and the installer's MD5 hash file are, and the change log.

	The file is UTF-8 text. Header lines "key: value" come first ("#" lines are comments),
	then, after the first empty line, the change log:
	\code
	version: 2.1.0
	installer: OrvaneApp_2.1.0_setup.exe
	md5: OrvaneApp_2.1.0_setup.exe.md5

	Changes in 2.1.0: ...
	\endcode
	"version" and "installer" are required; "md5" defaults to the installer URL with ".md5"
	appended. Relative URLs are relative to the version file. Unknown keys are ignored.
*/
struct UpdateInfo {
	/*! Parses the content of a version file downloaded from baseUrl; throws ZEB::Exception when
		the content is not a valid version file.
	*/
	static UpdateInfo parse(const QByteArray & content, const QUrl & baseUrl);

	/*! Checks that text is a version number: one or more dot-separated decimal numbers. */
	static bool isValidVersion(const QString & text);

	/*! File name under which the installer is stored in the download directory. */
	QString installerName() const { return m_installerUrl.fileName(); }

	/*! The announced version, e.g. "2.1.0". */
	QString	m_version;
	/*! Absolute URL of the installer. */
	QUrl	m_installerUrl;
	/*! Absolute URL of the installer's MD5 hash file. */
	QUrl	m_md5Url;
	/*! Change log text shown to the user. */
	QString	m_changeLog;
};

} // namespace QtExt

#endif // QtExt_UpdateInfoH
