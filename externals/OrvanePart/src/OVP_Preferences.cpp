#include "OVP_Preferences.h"

#include <QUrl>

#include "OVP_Settings.h"

namespace OVP {

Preferences Preferences::fromSettings(const Settings & settings) {
	Preferences p;
	p.m_langId = settings.m_langId;
	p.m_logLevelConsole = settings.m_userLogLevelConsole;
	p.m_logLevelLogfile = settings.m_userLogLevelLogfile;
	p.m_startWithLastSession = settings.m_startWithLastSession;
	p.m_writeAll = settings.m_writeAll;
	p.m_textEditorExecutable = settings.m_textEditorExecutable;
	p.m_fileNameFilter = settings.m_fileNameFilter;
	p.m_excludedDirNames = settings.m_excludedDirNames;
	p.m_updateUrl = settings.m_updateUrl;
	p.m_exportHeaders = settings.m_exportHeadersEnabled;
	p.m_exportGermanFormat = settings.m_exportGermanFormatEnabled == 1;
	p.m_exportSeparateUnitLines = settings.m_exportSeperateLinesForUnitsEnabled;
	p.m_decimalPlaces = settings.m_decimalPlaces;
	return p;
}


QString Preferences::problem() const {
	for (int level : { m_logLevelConsole, m_logLevelLogfile })
		if (level < 0 || level > MAX_LOG_LEVEL)
			return tr("Log levels must be between 0 and %1.").arg(MAX_LOG_LEVEL);
	if (m_decimalPlaces < 0 || m_decimalPlaces > MAX_DECIMAL_PLACES)
		return tr("Decimal places must be between 0 and %1.").arg(MAX_DECIMAL_PLACES);
	if (m_fileNameFilter.isEmpty())
		return tr("The file name filter needs at least one pattern, such as '*.out'.");
	for (const QString & name : m_excludedDirNames)
		if (name.contains('/') || name.contains('\\'))
			return tr("Excluded directory names are names, not paths: '%1'.").arg(name);
	if (!m_updateUrl.isEmpty()) {
		const QUrl url(m_updateUrl, QUrl::StrictMode);
		const QString scheme = url.scheme();
		if (!url.isValid() || !(scheme == "http" || scheme == "https" || scheme == "file") || url.path().isEmpty())
			return tr("The update address must be an http, https or file address of the version file, "
					  "or empty: '%1'.").arg(m_updateUrl);
	}
	return QString();
}


int Preferences::storeTo(Settings & settings) const {
	int changes = 0;
	// assigns and records a change when the value differs
	auto take = [&changes](auto & member, const auto & value, Change change) {
		if (member != value) {
			member = value;
			changes |= change;
		}
	};
	take(settings.m_langId, m_langId, C_Language);
	take(settings.m_userLogLevelConsole, m_logLevelConsole, C_LogLevels);
	take(settings.m_userLogLevelLogfile, m_logLevelLogfile, C_LogLevels);
	take(settings.m_startWithLastSession, m_startWithLastSession, C_Other);
	take(settings.m_writeAll, m_writeAll, C_Other);
	take(settings.m_textEditorExecutable, m_textEditorExecutable, C_Other);
	take(settings.m_fileNameFilter, m_fileNameFilter, C_DataManager);
	take(settings.m_excludedDirNames, m_excludedDirNames, C_DataManager);
	take(settings.m_updateUrl, m_updateUrl, C_Other);
	take(settings.m_exportHeadersEnabled, m_exportHeaders, C_Other);
	// not chosen stays undecided until the start-up decides it from the system
	const int undecided = settings.m_exportGermanFormatEnabled == -1 ? -1 : 0;
	take(settings.m_exportGermanFormatEnabled, m_exportGermanFormat ? 1 : undecided, C_Other);
	take(settings.m_exportSeperateLinesForUnitsEnabled, m_exportSeparateUnitLines, C_Other);
	take(settings.m_decimalPlaces, m_decimalPlaces, C_DataTables);
	if (m_resetDoNotShowAgain && settings.doNotShowAgainCount() > 0) {
		settings.resetDoNotShowAgain();
		changes |= C_Other;
	}
	return changes;
}


QStringList Preferences::listFromText(const QString & text) {
	QStringList list;
	for (const QString & entry : text.split(';')) {
		const QString trimmed = entry.trimmed();
		if (!trimmed.isEmpty())
			list << trimmed;
	}
	return list;
}


QString Preferences::textFromList(const QStringList & list) {
	return list.join("; ");
}

} // namespace OVP
