#include "OVP_ProjectHandler.h"

#include <exception>
#include <memory>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSettings>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "OVP_DialogUserInteraction.h"
#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_Settings.h"

namespace OVP {

namespace {

/*! Settings key of the folder of the project file last loaded or saved. */
const char * const LAST_PROJECT_DIRECTORY_KEY = "LastProjectDirectory";

/*! The backup copy of a project file: the name without its last three characters (".o2")
	followed by ".bak".
*/
QString backupFileName(const QString & fileName) {
	return fileName.left(fileName.size() - 3) + ".bak";
}

} // namespace


ProjectHandler * ProjectHandler::m_self = nullptr;


ProjectHandler::ProjectHandler(QObject * parent) :
	QObject(parent),
	m_userInteraction(new DialogUserInteraction)
{
	FUNCID(ProjectHandler::ProjectHandler);
	if (m_self != nullptr)
		throw ZEB::Exception("You must not create two instances of the project handler in your code!", FUNC_ID);
	m_self = this;
}


ProjectHandler::~ProjectHandler() {
	if (m_self == this)
		m_self = nullptr;
}


ProjectHandler & ProjectHandler::instance() {
	FUNCID(ProjectHandler::instance);
	if (m_self == nullptr)
		throw ZEB::Exception("Project handler hasn't been created yet!", FUNC_ID);
	return *m_self;
}


void ProjectHandler::setUserInteraction(std::unique_ptr<UserInteraction> userInteraction) {
	if (userInteraction)
		m_userInteraction = std::move(userInteraction);
	else
		m_userInteraction.reset(new DialogUserInteraction);
}


Project & ProjectHandler::project() const {
	Q_ASSERT(m_project != nullptr);
	return *m_project;
}


QString ProjectHandler::lastUsedDirectory() {
	return Settings::instance().openStore()->value(LAST_PROJECT_DIRECTORY_KEY).toString();
}


void ProjectHandler::newProject() {
	replaceProject(std::unique_ptr<Project>(new Project));
	m_projectFile.clear();
	m_modified = false;
	m_lastReadTime = QDateTime();
}


bool ProjectHandler::closeProject(QWidget * parent) {
	if (isValid() && m_modified) {
		const UserInteraction::SaveAnswer answer = m_userInteraction->askSaveDiscardCancel(parent,
			tr("Save project before closing"), tr("Would you like to save the project before closing it?"));
		if (answer == UserInteraction::AnswerCancel)
			return false;
		if (answer == UserInteraction::AnswerSave) {
			const SaveResult result = m_projectFile.isEmpty() ? saveWithNewFilename(parent)
															  : saveProject(parent, m_projectFile);
			if (result != SaveOK)
				return false;
		}
	}
	replaceProject(nullptr);
	m_projectFile.clear();
	m_modified = false;
	m_lastReadTime = QDateTime();
	return true;
}


bool ProjectHandler::loadProject(QWidget * parent, const QString & fileName, bool silent) {
	QStringList errors;
	std::unique_ptr<Project> project = read(fileName, errors);
	bool restored = false;
	if (!project && !silent) {
		project = restoreFromBackup(parent, fileName, errors);
		restored = project != nullptr;
	}
	if (!project) {
		if (!silent)
			m_userInteraction->showCritical(parent, tr("Error loading project"),
				tr("Data in project was missing/invalid.\n%1").arg(errors.join("\n")));
		return false;
	}
	if (m_project)
		emit projectAboutToBeClosed();
	m_project = std::move(project);
	m_projectFile = fileName;
	updateLastReadTime();
	// a restored session differs from its file until it is saved
	m_modified = restored;
	rememberProjectFile(fileName);
	emit projectChanged();
	return true;
}


ProjectHandler::SaveResult ProjectHandler::saveWithNewFilename(QWidget * parent) {
	QString defaultFile = m_projectFile;
	if (defaultFile.isEmpty() && Settings::instance().openStore()->contains(LAST_PROJECT_DIRECTORY_KEY))
		defaultFile = lastUsedDirectory() + "/unnamed.o2";
	const QString fileName = m_userInteraction->saveFileName(parent, tr("Specify Orvane project file"), defaultFile,
															 tr("Orvane Projects (*.o2);;All files (*.*)"));
	if (fileName.isEmpty())
		return SaveCancelled;
	return saveProject(parent, fileName);
}


ProjectHandler::SaveResult ProjectHandler::saveProject(QWidget * parent, const QString & fileName) {
	QString name = fileName;
	if (!QRegularExpression(".+[.]o2$").match(name).hasMatch())
		name += ".o2";
	QStringList errors;
	if (!write(name, errors)) {
		m_userInteraction->showCritical(parent, tr("Saving failed"), tr("Error while saving project file!"));
		return SaveFailed;
	}
	m_modified = false;
	m_projectFile = name;
	rememberProjectFile(name);
	return SaveOK;
}


bool ProjectHandler::write(const QString & fileName, QStringList & errors) {
	FUNCID(ProjectHandler::write);
	checkValid(FUNC_ID);
	const std::string utf8Name = fileName.toStdString();
	{
		// the test creates the temporary file that saving needs beside the file and removes it
		// again; the file itself is not touched
		QSaveFile test(fileName);
		if (!test.open(QIODevice::WriteOnly)) {
			ZEB::reportError(ZEB::MessageFormat("Error writing file '%1' (path does not exists or missing permissions).")
							 .arg(utf8Name).str(), FUNC_ID);
			errors.append(tr("Cannot create/write file '%1' (path does not exists or missing permissions).").arg(fileName));
			return false;
		}
	}

	try {
		// the previous file and its backup stay untouched unless the new file is saved completely
		m_project->writeXML(fileName, Settings::instance().m_writeAll, backupFileName(fileName));
		m_projectFile = fileName;
		updateLastReadTime();
		return true;
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		const std::string msg = ZEB::MessageFormat("An unexpected error occurred while writing file '%1'.").arg(utf8Name).str();
		ZEB::reportError(msg, FUNC_ID);
		errors.append(QString::fromStdString(msg));
	}
	catch (std::exception & ex) {
		const std::string msg = ZEB::MessageFormat("An unexpected error occurred while writing file '%1': %2")
								.arg(utf8Name).arg(ex.what()).str();
		ZEB::reportError(msg, FUNC_ID);
		errors.append(QString::fromStdString(msg));
	}
	return false;
}


void ProjectHandler::updateLastReadTime() {
	FUNCID(ProjectHandler::updateLastReadTime);
	if (!isValid())
		throw ZEB::Exception("Must not call updateLastReadTime() on invalid project.", FUNC_ID);
	m_lastReadTime = QFileInfo(m_projectFile).lastModified();
}


void ProjectHandler::setModified(int modificationType, void * data) {
	m_modified = true;
	emit modified(modificationType, data);
}


bool ProjectHandler::addDirectory(const QString & path) {
	FUNCID(ProjectHandler::addDirectory);
	checkValid(FUNC_ID);
	if (m_project->directoryIndex(path) != -1) {
		ZEB::reportWarning(ZEB::MessageFormat("Directory '%1' is already in the list of top-level directories and is "
											  "not added again..").arg(path.toStdString()).str(), FUNC_ID);
		return false;
	}
	m_project->m_directories.push_back(Directory(path));
	setModified(DirectoriesModified);
	return true;
}


void ProjectHandler::removeDirectories(int row, int count) {
	FUNCID(ProjectHandler::removeDirectories);
	checkValid(FUNC_ID);
	std::vector<Directory> & dirs = m_project->m_directories;
	if (row < 0 || count < 1 || row + count > static_cast<int>(dirs.size()))
		throw ZEB::Exception("Invalid arguments row or count.", FUNC_ID);
	dirs.erase(dirs.begin() + row, dirs.begin() + row + count);
	setModified(DirectoriesModified);
}


void ProjectHandler::setSubDirectory(int directoryIndex, const QString & relativePath, const QColor & color,
									 bool checked)
{
	FUNCID(ProjectHandler::setSubDirectory);
	checkValid(FUNC_ID);
	if (directoryIndex < 0 || directoryIndex >= static_cast<int>(m_project->m_directories.size()))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid directory index %1.").arg(directoryIndex), FUNC_ID);
	Directory & d = m_project->m_directories[static_cast<std::size_t>(directoryIndex)];
	// an unchecked sub-directory without colour is the default and needs no entry
	if (!checked && !color.isValid()) {
		d.m_subDirectories.remove(relativePath);
	}
	else {
		Directory::SubDirectory & sub = d.m_subDirectories[relativePath];
		sub.m_color = color;
		sub.m_checked = checked;
	}
	setModified(SubDirectoriesModified, &d);
}


void ProjectHandler::setSubDirectoryExpanded(int directoryIndex, const QString & relativePath, bool expanded) {
	FUNCID(ProjectHandler::setSubDirectoryExpanded);
	checkValid(FUNC_ID);
	if (directoryIndex < 0 || directoryIndex >= static_cast<int>(m_project->m_directories.size()))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid directory index %1.").arg(directoryIndex), FUNC_ID);
	Directory & d = m_project->m_directories[static_cast<std::size_t>(directoryIndex)];
	if (expanded)
		d.m_expandedSubDirectories.insert(relativePath);
	else
		d.m_expandedSubDirectories.erase(relativePath);
	setModified(ExpandedSubDirsModified, &d);
}


void ProjectHandler::addMapper(std::unique_ptr<Mapper> mapper) {
	FUNCID(ProjectHandler::addMapper);
	checkValid(FUNC_ID);
	Mapper * m = mapper.get();
	m_project->mapperModel()->appendMapper(std::move(mapper));
	setModified(MapperInserted, m);
}


void ProjectHandler::removeMappers(int row, int count) {
	FUNCID(ProjectHandler::removeMappers);
	checkValid(FUNC_ID);
	if (row < 0 || count < 1 || row + count > m_project->mapperModel()->mapperCount())
		throw ZEB::Exception("Invalid arguments row or count.", FUNC_ID);
	m_project->mapperModel()->removeMappers(row, count);
	m_project->m_splitLayout.mappersRemoved(row, count);
	setModified(MapperRemoved);
}


void ProjectHandler::mapperContentChanged(int mapperIndex) {
	FUNCID(ProjectHandler::mapperContentChanged);
	checkValid(FUNC_ID);
	if (mapperIndex < 0 || mapperIndex >= m_project->mapperModel()->mapperCount())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid mapper index %1.").arg(mapperIndex), FUNC_ID);
	m_project->mapperModel()->mapperChanged(mapperIndex);
	setModified(MapperContentModified, m_project->mapperModel()->mapper(mapperIndex));
}


void ProjectHandler::renameMapper(int mapperIndex, const QString & name) {
	FUNCID(ProjectHandler::renameMapper);
	checkValid(FUNC_ID);
	if (mapperIndex < 0 || mapperIndex >= m_project->mapperModel()->mapperCount())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid mapper index %1.").arg(mapperIndex), FUNC_ID);
	Mapper * m = m_project->mapperModel()->mapper(mapperIndex);
	m->setName(name);
	m_project->mapperModel()->mapperChanged(mapperIndex);
	setModified(MapperRenamed, m);
}


void ProjectHandler::refreshMapper(int mapperIndex) {
	FUNCID(ProjectHandler::refreshMapper);
	checkValid(FUNC_ID);
	if (mapperIndex < 0 || mapperIndex >= m_project->mapperModel()->mapperCount())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid mapper index %1.").arg(mapperIndex), FUNC_ID);
	m_project->mapperModel()->mapper(mapperIndex)->refresh();
}


void ProjectHandler::refreshAllMappers() {
	FUNCID(ProjectHandler::refreshAllMappers);
	checkValid(FUNC_ID);
	ZEB::reportProgress("Begin update of mappers.\n", FUNC_ID, 2);
	MapperTreeModel * mappers = m_project->mapperModel();
	for (int i = 0; i < mappers->mapperCount(); ++i) {
		ZEB::reportProgress(ZEB::MessageFormat("Updating mapper #%1.\n").arg(i + 1).str(), FUNC_ID, 3);
		mappers->mapper(i)->refresh();
	}
	ZEB::reportProgress("Mapper update done.\n", FUNC_ID, 2);
}


void ProjectHandler::setSplitLayout(const SplitLayout & layout) {
	FUNCID(ProjectHandler::setSplitLayout);
	checkValid(FUNC_ID);
	m_project->m_splitLayout = layout;
	setModified(SplitLayoutModified);
}


std::unique_ptr<Project> ProjectHandler::read(const QString & fileName, QStringList & errors) {
	FUNCID(ProjectHandler::read);
	if (!QFileInfo::exists(fileName)) {
		errors.append(tr("File '%1' does exists or missing permissions.").arg(fileName));
		return nullptr;
	}
	std::unique_ptr<Project> project(new Project);
	try {
		project->readXML(fileName, m_dataManager);
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		for (const ZEB::Exception::MsgInfo & msg : ex.messages())
			errors.append(QString::fromStdString(msg.m_what));
		return nullptr;
	}
	catch (std::exception & ex) {
		ZEB::reportError(ex.what(), FUNC_ID);
		errors.append(QString::fromUtf8(ex.what()));
		return nullptr;
	}
	return project;
}


std::unique_ptr<Project> ProjectHandler::restoreFromBackup(QWidget * parent, const QString & fileName,
															const QStringList & errors)
{
	FUNCID(ProjectHandler::restoreFromBackup);
	const QString backupName = backupFileName(fileName);
	if (!QFileInfo::exists(backupName))
		return nullptr;
	QStringList backupErrors;
	std::unique_ptr<Project> backup = read(backupName, backupErrors);
	if (!backup)
		return nullptr;
	if (!m_userInteraction->askRestoreFromBackup(parent, tr("Restore from backup"),
			tr("The session file '%1' cannot be read:\n%2\n\nIts backup copy '%3' can be read. Restore the session "
			   "from the backup? The session file itself is replaced only when you save the session.")
			.arg(fileName, errors.join("\n"), backupName)))
		return nullptr;
	ZEB::reportProgress(ZEB::MessageFormat("Session '%1' restored from its backup copy '%2'.\n")
						.arg(fileName.toStdString()).arg(backupName.toStdString()).str(), FUNC_ID, 1);
	return backup;
}


void ProjectHandler::replaceProject(std::unique_ptr<Project> project) {
	if (m_project)
		emit projectAboutToBeClosed();
	m_project = std::move(project);
	emit projectChanged();
}


void ProjectHandler::rememberProjectFile(const QString & fileName) {
	const QFileInfo info(fileName);
	Settings & settings = Settings::instance();
	settings.openStore()->setValue(LAST_PROJECT_DIRECTORY_KEY, info.absolutePath());
	settings.addRecentProject(info.absoluteFilePath());
	emit updateRecentProjects();
}


void ProjectHandler::checkValid(const char * functionId) const {
	if (!isValid())
		throw ZEB::Exception("No project open.", functionId);
}

} // namespace OVP
