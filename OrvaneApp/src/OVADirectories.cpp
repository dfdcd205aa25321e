#include "OVADirectories.h"

#include <QCoreApplication>
#include <QDir>

QString OVADirectories::m_appName;


void OVADirectories::setAppName(const QString & appName) {
	m_appName = appName;
	QCoreApplication::setApplicationName(appName);
}


QString OVADirectories::userDataDir() {
	return QDir::toNativeSeparators(QDir::homePath() + "/AppData/Roaming/" + m_appName);
}


QString OVADirectories::logFile() {
	return QDir::toNativeSeparators(userDataDir() + "/" + m_appName + ".log");
}


QString OVADirectories::translationsDir() {
	return QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + "/resources/translations");
}


QString OVADirectories::updateDownloadDir() {
	return QDir::toNativeSeparators(QDir::homePath() + "/AppData/Local/" + m_appName + "/updates");
}
