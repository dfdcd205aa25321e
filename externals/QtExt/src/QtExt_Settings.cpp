#include "QtExt_Settings.h"

#include <algorithm>

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <ZEB_ArgParser.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

namespace QtExt {

namespace {

/*! Upper limit of records read from one stored array, so that a corrupt size entry cannot make
	reading run for ages.
*/
const int MAX_ARRAY_SIZE = 10000;

/*! The stored value as text for messages. */
QString variantText(const QVariant & v) {
	if (v.type() == QVariant::StringList)
		return v.toStringList().join(", ");
	return v.toString();
}

/*! Reports a stored value that cannot be used. */
void reportInvalidValue(const QString & key, const QVariant & stored, const QString & kept) {
	FUNCID(Settings::read);
	ZEB::reportWarning(ZEB::MessageFormat("Invalid value '%1' of setting '%2', keeping '%3'.")
					   .arg(variantText(stored).toStdString()).arg(key.toStdString())
					   .arg(kept.toStdString()).str(), FUNC_ID);
}

/*! Number of records of an array opened with beginReadArray(), limited to MAX_ARRAY_SIZE. */
int limitedArraySize(int size, const QString & key) {
	FUNCID(Settings::read);
	if (size > MAX_ARRAY_SIZE) {
		ZEB::reportWarning(ZEB::MessageFormat("Setting '%1' holds %2 records, reading only the first %3.")
						   .arg(key.toStdString()).arg(size).arg(MAX_ARRAY_SIZE).str(), FUNC_ID);
		return MAX_ARRAY_SIZE;
	}
	return size;
}

} // namespace


Settings::Settings(const QString & organization, const QString & appName, const QString & settingsFile) :
	m_organization(organization),
	m_appName(appName),
	m_settingsFile(settingsFile)
{
	Settings::setDefaults();
}


Settings::~Settings() = default;


void Settings::setDefaults() {
	m_lastProjectFile.clear();
	m_recentProjects.clear();
	m_maxRecentProjects = 10;
	m_maxNumUNDOSteps = 10000;
	m_textEditorExecutable = defaultTextEditor();
	m_langId = "en";
	m_userLogLevelConsole = 1;
	m_userLogLevelLogfile = 2;
	m_doNotShowAgainDialogs.clear();
	m_doNotShowAgainDialogAnswers.clear();
	m_installDir = QCoreApplication::instance() != nullptr ? QCoreApplication::applicationDirPath() : QString();
	m_initialProjectFile.clear();
	m_noSplashScreen = false;
}


void Settings::updateArgParser(ZEB::ArgParser & argParser) {
	argParser.addFlag("no-splash", "Disables splash screen.");
	argParser.addOption("lang", "Specify the program language using a 2 character language ID.",
						"en;de;it;...", "en");
}


void Settings::applyCommandLineArgs(const ZEB::ArgParser & argParser) {
	// only the exact text "true" switches the splash off; "TRUE" or "yes" leave it on
	m_noSplashScreen = argParser.value("no-splash") == "true";
	if (argParser.hasOption("lang"))
		m_langId = QString::fromStdString(argParser.value("lang"));
	if (!argParser.args().empty())
		m_initialProjectFile = QString::fromStdString(argParser.args().front());
}


void Settings::read() {
	FUNCID(Settings::read);
	std::unique_ptr<QSettings> store = openStore();
	if (store->status() != QSettings::NoError)
		ZEB::reportWarning(ZEB::MessageFormat("Settings in '%1' are not readable or corrupt, using defaults for "
											  "what cannot be read.").arg(store->fileName().toStdString()).str(), FUNC_ID);

	m_lastProjectFile = readString(*store, "LastProjectFile", m_lastProjectFile);
	m_recentProjects = readStringList(*store, "RecentProjects", m_recentProjects);
	m_maxRecentProjects = readUInt(*store, "MaxRecentProjects", m_maxRecentProjects);
	// the undo limit is read under this name but written as "UndoSize"
	m_maxNumUNDOSteps = readUInt(*store, "MaxNumUndoSteps", m_maxNumUNDOSteps);
	m_textEditorExecutable = readString(*store, "TextEditorExecutable", m_textEditorExecutable);
	m_langId = readString(*store, "LangID", m_langId);
	m_userLogLevelConsole = readInt(*store, "UserLogLevelConsole", m_userLogLevelConsole);
	m_userLogLevelLogfile = readInt(*store, "UserLogLevelLogfile", m_userLogLevelLogfile);

	if (store->contains("DoNotShowAgainDialogs/size")) {
		m_doNotShowAgainDialogs.clear();
		const int size = limitedArraySize(store->beginReadArray("DoNotShowAgainDialogs"), "DoNotShowAgainDialogs");
		for (int i = 0; i < size; ++i) {
			store->setArrayIndex(i);
			DoNotShowAgainDialog d;
			d.m_dialogID = readString(*store, "DialogID", QString());
			d.m_checked = readBool(*store, "Checked", false);
			if (!d.m_dialogID.isEmpty())
				m_doNotShowAgainDialogs.push_back(d);
		}
		store->endArray();
	}

	if (store->contains("DoNotShowAgainDialogsAnswer/size")) {
		m_doNotShowAgainDialogAnswers.clear();
		const int size = limitedArraySize(store->beginReadArray("DoNotShowAgainDialogsAnswer"), "DoNotShowAgainDialogsAnswer");
		for (int i = 0; i < size; ++i) {
			store->setArrayIndex(i);
			DoNotShowAgainDialogAnswer a;
			a.m_dialogID = readString(*store, "DialogID", QString());
			a.m_answer = readInt(*store, "Answer", 0);
			if (!a.m_dialogID.isEmpty())
				m_doNotShowAgainDialogAnswers.push_back(a);
		}
		store->endArray();
	}
}


void Settings::write(const QByteArray & geometry, const QByteArray & state) {
	FUNCID(Settings::write);
	std::unique_ptr<QSettings> store = openStore();

	store->setValue("LastProjectFile", m_lastProjectFile);
	store->setValue("RecentProjects", m_recentProjects);
	store->setValue("MaxRecentProjects", m_maxRecentProjects);
	store->setValue("UndoSize", m_maxNumUNDOSteps);
	store->setValue("TextEditorExecutable", m_textEditorExecutable);
	store->setValue("LangID", m_langId);
	store->setValue("UserLogLevelConsole", m_userLogLevelConsole);
	store->setValue("UserLogLevelLogfile", m_userLogLevelLogfile);
	store->setValue("MainWindowGeometry", geometry);
	store->setValue("MainWindowState", state);

	// remove old arrays first so that no records of a longer earlier array stay behind
	store->remove("DoNotShowAgainDialogs");
	store->beginWriteArray("DoNotShowAgainDialogs", static_cast<int>(m_doNotShowAgainDialogs.size()));
	for (std::size_t i = 0; i < m_doNotShowAgainDialogs.size(); ++i) {
		store->setArrayIndex(static_cast<int>(i));
		store->setValue("DialogID", m_doNotShowAgainDialogs[i].m_dialogID);
		store->setValue("Checked", m_doNotShowAgainDialogs[i].m_checked);
	}
	store->endArray();

	store->remove("DoNotShowAgainDialogsAnswer");
	store->beginWriteArray("DoNotShowAgainDialogsAnswer", static_cast<int>(m_doNotShowAgainDialogAnswers.size()));
	for (std::size_t i = 0; i < m_doNotShowAgainDialogAnswers.size(); ++i) {
		store->setArrayIndex(static_cast<int>(i));
		store->setValue("DialogID", m_doNotShowAgainDialogAnswers[i].m_dialogID);
		store->setValue("Answer", m_doNotShowAgainDialogAnswers[i].m_answer);
	}
	store->endArray();

	store->sync();
	if (store->status() != QSettings::NoError)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write settings to '%1'.")
							 .arg(store->fileName().toStdString()), FUNC_ID);
}


void Settings::addRecentProject(const QString & path) {
	if (path.isEmpty())
		return;
	m_recentProjects.removeAll(path);
	m_recentProjects.prepend(path);
	while (static_cast<unsigned int>(m_recentProjects.size()) > m_maxRecentProjects)
		m_recentProjects.removeLast();
}


bool Settings::isDoNotShowAgain(const QString & dialogID, int * answer) const {
	const auto dialog = std::find_if(m_doNotShowAgainDialogs.begin(), m_doNotShowAgainDialogs.end(),
		[&dialogID](const DoNotShowAgainDialog & d) { return d.m_dialogID == dialogID; });
	if (dialog == m_doNotShowAgainDialogs.end() || !dialog->m_checked)
		return false;
	if (answer != nullptr) {
		const auto a = std::find_if(m_doNotShowAgainDialogAnswers.begin(), m_doNotShowAgainDialogAnswers.end(),
			[&dialogID](const DoNotShowAgainDialogAnswer & d) { return d.m_dialogID == dialogID; });
		*answer = a == m_doNotShowAgainDialogAnswers.end() ? 0 : a->m_answer;
	}
	return true;
}


void Settings::setDoNotShowAgain(const QString & dialogID, int answer) {
	auto dialog = std::find_if(m_doNotShowAgainDialogs.begin(), m_doNotShowAgainDialogs.end(),
		[&dialogID](const DoNotShowAgainDialog & d) { return d.m_dialogID == dialogID; });
	if (dialog == m_doNotShowAgainDialogs.end())
		dialog = m_doNotShowAgainDialogs.insert(m_doNotShowAgainDialogs.end(), DoNotShowAgainDialog{ dialogID, true });
	dialog->m_checked = true;
	auto a = std::find_if(m_doNotShowAgainDialogAnswers.begin(), m_doNotShowAgainDialogAnswers.end(),
		[&dialogID](const DoNotShowAgainDialogAnswer & d) { return d.m_dialogID == dialogID; });
	if (a == m_doNotShowAgainDialogAnswers.end())
		a = m_doNotShowAgainDialogAnswers.insert(m_doNotShowAgainDialogAnswers.end(), DoNotShowAgainDialogAnswer{ dialogID, 0 });
	a->m_answer = answer;
}


int Settings::doNotShowAgainCount() const {
	return static_cast<int>(std::count_if(m_doNotShowAgainDialogs.begin(), m_doNotShowAgainDialogs.end(),
		[](const DoNotShowAgainDialog & d) { return d.m_checked; }));
}


void Settings::resetDoNotShowAgain() {
	m_doNotShowAgainDialogs.clear();
	m_doNotShowAgainDialogAnswers.clear();
}


void Settings::readMainWindowGeometry(QByteArray & geometry, QByteArray & state) const {
	std::unique_ptr<QSettings> store = openStore();
	geometry = store->value("MainWindowGeometry").toByteArray();
	state = store->value("MainWindowState").toByteArray();
}


std::unique_ptr<QSettings> Settings::openStore() const {
	if (!m_settingsFile.isEmpty())
		return std::unique_ptr<QSettings>(new QSettings(m_settingsFile, QSettings::IniFormat));
	return std::unique_ptr<QSettings>(new QSettings(m_organization, m_appName));
}


QString Settings::defaultTextEditor() {
	const QStringList notepadPlusPlus = {
		"C:\\ProgramData\\chocolatey\\bin\\notepad++.exe",
		"C:\\Users\\All Users\\chocolatey\\bin\\notepad++.exe",
		"C:\\Program Files\\Notepad++\\notepad++.exe",
		"C:\\Program Files (x86)\\Notepad++\\notepad++.exe"
	};
	// on Linux none of the Notepad++ locations exist, so a desktop editor on the PATH is used
	const QStringList linuxEditors = { "gedit", "kate", "mousepad", "xed" };
	return findTextEditor(notepadPlusPlus, linuxEditors);
}


QString Settings::findTextEditor(const QStringList & candidates, const QStringList & executables,
								 const QStringList & searchPaths)
{
	for (const QString & c : candidates) {
		if (QFileInfo(c).isFile())
			return c;
	}
	for (const QString & exe : executables) {
		const QString found = QStandardPaths::findExecutable(exe, searchPaths);
		if (!found.isEmpty())
			return found;
	}
	return QString();
}


QString Settings::readString(const QSettings & store, const QString & key, const QString & fallback) {
	if (!store.contains(key))
		return fallback;
	const QVariant v = store.value(key);
	// an unquoted text with commas in an INI file comes back as a list: take it as written
	if (v.type() == QVariant::StringList)
		return v.toStringList().join(", ");
	if (!v.canConvert<QString>()) {
		reportInvalidValue(key, v, fallback);
		return fallback;
	}
	return v.toString();
}


QStringList Settings::readStringList(const QSettings & store, const QString & key, const QStringList & fallback) {
	if (!store.contains(key))
		return fallback;
	// an empty list is stored as an invalid value and reads back as an empty list
	return store.value(key).toStringList();
}


bool Settings::readBool(const QSettings & store, const QString & key, bool fallback) {
	if (!store.contains(key))
		return fallback;
	const QVariant v = store.value(key);
	if (v.type() == QVariant::Bool)
		return v.toBool();
	const QString text = v.toString().trimmed().toLower();
	if (text == "true" || text == "1")
		return true;
	if (text == "false" || text == "0")
		return false;
	reportInvalidValue(key, v, fallback ? "true" : "false");
	return fallback;
}


int Settings::readInt(const QSettings & store, const QString & key, int fallback, int minValue, int maxValue) {
	if (!store.contains(key))
		return fallback;
	const QVariant v = store.value(key);
	bool ok = false;
	const int value = v.toString().trimmed().toInt(&ok);
	if (!ok || value < minValue || value > maxValue) {
		reportInvalidValue(key, v, QString::number(fallback));
		return fallback;
	}
	return value;
}


unsigned int Settings::readUInt(const QSettings & store, const QString & key, unsigned int fallback) {
	if (!store.contains(key))
		return fallback;
	const QVariant v = store.value(key);
	bool ok = false;
	const unsigned int value = v.toString().trimmed().toUInt(&ok);
	if (!ok) {
		reportInvalidValue(key, v, QString::number(fallback));
		return fallback;
	}
	return value;
}

} // namespace QtExt
