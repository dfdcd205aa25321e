#include "QtExt_UpdateInfo.h"

#include <QRegularExpression>
#include <QStringList>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace QtExt {

namespace {

/*! Resolves a URL written in the version file against the version file's own URL. */
QUrl resolvedUrl(const QString & text, const QUrl & baseUrl) {
	const QUrl url(text, QUrl::StrictMode);
	if (!url.isValid())
		return QUrl();
	return baseUrl.resolved(url);
}

} // namespace


UpdateInfo UpdateInfo::parse(const QByteArray & content, const QUrl & baseUrl) {
	FUNCID(UpdateInfo::parse);
	UpdateInfo info;
	QString md5Text;
	const QStringList lines = QString::fromUtf8(content).split('\n');
	int i = 0;
	for (; i < lines.size(); ++i) {
		const QString line = lines[i].trimmed();
		if (line.isEmpty())
			break;
		if (line.startsWith('#'))
			continue;
		const int colon = line.indexOf(':');
		if (colon < 1)
			throw ZEB::Exception(ZEB::MessageFormat("Invalid line %1 in version file: '%2'.")
								 .arg(i + 1).arg(line.left(80).toStdString()), FUNC_ID);
		const QString key = line.left(colon).trimmed();
		const QString value = line.mid(colon + 1).trimmed();
		if (key == "version")
			info.m_version = value;
		else if (key == "installer")
			info.m_installerUrl = resolvedUrl(value, baseUrl);
		else if (key == "md5")
			md5Text = value;
	}
	// everything after the empty line is the change log
	if (i + 1 < lines.size())
		info.m_changeLog = lines.mid(i + 1).join('\n').trimmed();

	if (info.m_version.isEmpty())
		throw ZEB::Exception("Version file lacks the 'version' entry.", FUNC_ID);
	if (!isValidVersion(info.m_version))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid version number '%1' in version file.")
							 .arg(info.m_version.left(80).toStdString()), FUNC_ID);
	const QString name = info.installerName();
	if (!info.m_installerUrl.isValid() || name.isEmpty() || name == "." || name == "..")
		throw ZEB::Exception("Version file lacks a valid 'installer' entry.", FUNC_ID);
	if (md5Text.isEmpty())
		info.m_md5Url = QUrl(info.m_installerUrl.toString() + ".md5");
	else
		info.m_md5Url = resolvedUrl(md5Text, baseUrl);
	if (!info.m_md5Url.isValid())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid 'md5' entry '%1' in version file.")
							 .arg(md5Text.left(80).toStdString()), FUNC_ID);
	return info;
}


bool UpdateInfo::isValidVersion(const QString & text) {
	static const QRegularExpression pattern("^\\d{1,9}(\\.\\d{1,9})*$");
	return pattern.match(text).hasMatch();
}

} // namespace QtExt
