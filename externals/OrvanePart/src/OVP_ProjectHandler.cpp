#include "OVP_ProjectHandler.h"

#include <algorithm>
#include <climits>
#include <exception>
#include <memory>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSettings>

#include <EM_ExtractorBase.h>

#include <Sci_AbstractCartesianChartModel.h>
#include <Sci_ChartStyleFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "OVP_ChartModelSnapshot.h"
#include "OVP_DialogUserInteraction.h"
#include "OVP_Mapper.h"
#include "OVP_MapperSnapshot.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectRelativePath.h"
#include "OVP_Settings.h"
#include "OVP_UndoChartProperty.h"
#include "OVP_UndoChartStyle.h"
#include "OVP_UndoDataSetRemoved.h"
#include "OVP_UndoDataSetSetup.h"
#include "OVP_UndoMapperInserted.h"
#include "OVP_UndoMapperRenamed.h"
#include "OVP_UndoMappersMoved.h"
#include "OVP_UndoMappersRemoved.h"
#include "OVP_UndoSplitLayout.h"

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

/*! Number of missing data files that a question lists; the rest is counted. */
constexpr int MAX_LISTED_FILES = 10;

/*! The data files a project file names that do not exist once re-pointed by remap, as the file
	names them.
*/
QStringList missingDataFiles(const QString & fileName, const DataPathRemap & remap) {
	QStringList missing;
	for (const QString & f : Project::dataFileNames(fileName))
		if (!QFileInfo(remap.apply(f)).isFile())
			missing.append(f);
	return missing;
}


/*! The nearest existing folder above a path: where a folder chooser starts looking for it. */
QString existingFolderAbove(const QString & path) {
	QString folder = QFileInfo(path).absolutePath();
	while (!QFileInfo(folder).isDir()) {
		const QString parent = QFileInfo(folder).absolutePath();
		if (parent == folder)
			break;
		folder = parent;
	}
	return folder;
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
	resetUndoStack();
	m_projectFile.clear();
	m_modified = false;
	m_lastReadTime = QDateTime();
}


bool ProjectHandler::closeProject(QWidget * parent) {
	if (isValid() && isModified()) {
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
	resetUndoStack();
	m_projectFile.clear();
	m_modified = false;
	m_lastReadTime = QDateTime();
	return true;
}


bool ProjectHandler::loadProject(QWidget * parent, const QString & fileName, bool silent) {
	QStringList errors;
	std::unique_ptr<Project> project = read(fileName, errors);
	bool rescued = false;
	if (!project && !silent) {
		project = readWithMovedData(parent, fileName, errors);
		if (!project)
			project = restoreFromBackup(parent, fileName, errors);
		rescued = project != nullptr;
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
	resetUndoStack();
	m_projectFile = fileName;
	updateLastReadTime();
	// a re-pointed or restored session differs from its file until it is saved
	m_modified = rescued;
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
	m_undoStack.setClean();
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
	if (m_commandDepth == 0)
		m_modified = true;
	emit modified(modificationType, data);
}


bool ProjectHandler::undo(QWidget * parent) {
	return undoOrRedo(parent, true);
}


bool ProjectHandler::redo(QWidget * parent) {
	return undoOrRedo(parent, false);
}


bool ProjectHandler::setChartProperty(int mapperIndex, int role, const QVariant & value) {
	FUNCID(ProjectHandler::setChartProperty);
	return changeChartModel(mapperIndex, UndoChartProperty::ChartProperty, 0, role, value, FUNC_ID);
}


bool ProjectHandler::setAxisProperty(int mapperIndex, int axisPosition, int role, const QVariant & value) {
	FUNCID(ProjectHandler::setAxisProperty);
	return changeChartModel(mapperIndex, UndoChartProperty::AxisProperty, axisPosition, role, value, FUNC_ID);
}


bool ProjectHandler::setSeriesProperty(int mapperIndex, int seriesIndex, int role, const QVariant & value) {
	FUNCID(ProjectHandler::setSeriesProperty);
	return changeChartModel(mapperIndex, UndoChartProperty::SeriesProperty, seriesIndex, role, value, FUNC_ID);
}


void ProjectHandler::applyChartStyle(int mapperIndex, const QString & path) {
	FUNCID(ProjectHandler::applyChartStyle);
	Mapper * m = mapperAt(mapperIndex, FUNC_ID);
	ChartModelSnapshot before(*m);
	const ChartTexts texts(*m->chartModel());
	{
		// the change is announced by the command, which is made once the style is in place
		CommandScope scope(*this);
		try {
			SCI::ChartStyleFile::apply(*m->chartModel(), path);
			texts.restore(*m->chartModel());
			ChartModelSnapshot::adopt(*m);
		}
		catch (ZEB::Exception & ex) {
			before.restore(*m);
			throw ZEB::Exception(ex, SCI::ChartStyleFile::APPLY_ERROR_TEXT, FUNC_ID);
		}
	}
	m_undoStack.push(new UndoChartStyle(*this, mapperIndex, std::move(before), ChartModelSnapshot(*m),
										QFileInfo(path).completeBaseName()));
}


void ProjectHandler::setDataSetSetup(int mapperIndex, unsigned int entryIndex, const DataSetSetup & setup) {
	FUNCID(ProjectHandler::setDataSetSetup);
	const DataSetSetup old = mapperAt(mapperIndex, FUNC_ID)->dataSetSetup(entryIndex);
	if (old == setup)
		return;
	std::unique_ptr<UndoDataSetSetup> command(new UndoDataSetSetup(*this, mapperIndex, entryIndex, old, setup));
	// a setup the chart refuses throws here, before anything is pushed
	command->prepareRedo();
	m_undoStack.push(command.release());
}


void ProjectHandler::removeDataSet(int mapperIndex, unsigned int entryIndex) {
	FUNCID(ProjectHandler::removeDataSet);
	const Mapper * m = mapperAt(mapperIndex, FUNC_ID);
	m->checkRemovable(entryIndex);
	m_undoStack.push(new UndoDataSetRemoved(*this, mapperIndex, entryIndex,
											tr("remove series '%1'").arg(m->dataSetTitle(entryIndex))));
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
	const QString text = tr("create chart '%1'").arg(mapper->name());
	m_undoStack.push(new UndoMapperInserted(*this, m_project->mapperModel()->mapperCount(), std::move(mapper), text));
}


void ProjectHandler::removeMappers(int row, int count) {
	FUNCID(ProjectHandler::removeMappers);
	checkValid(FUNC_ID);
	if (row < 0 || count < 1 || row + count > m_project->mapperModel()->mapperCount())
		throw ZEB::Exception("Invalid arguments row or count.", FUNC_ID);
	std::vector<int> rows;
	for (int i = row; i < row + count; ++i)
		rows.push_back(i);
	const QString text = count == 1 ? tr("delete chart '%1'").arg(m_project->mapperModel()->mapper(row)->name())
									: tr("delete %1 charts").arg(count);
	m_undoStack.push(new UndoMappersRemoved(*this, rows, text));
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
	Mapper * m = mapperAt(mapperIndex, FUNC_ID);
	if (name.trimmed().isEmpty())
		throw ZEB::Exception("A chart name must not be empty.", FUNC_ID);
	if (name == m->name())
		return;
	m_undoStack.push(new UndoMapperRenamed(*this, mapperIndex, m->name(), name));
}


bool ProjectHandler::deleteMappers(QWidget * parent, const QList<int> & mapperIndices) {
	FUNCID(ProjectHandler::deleteMappers);
	const std::vector<int> rows = sortedMapperIndices(mapperIndices, FUNC_ID);
	if (rows.empty())
		return false;
	const MapperTreeModel * mappers = m_project->mapperModel();
	QString question;
	if (rows.size() == 1) {
		question = tr("Delete the chart '%1'?").arg(mappers->mapper(rows.front())->name());
	}
	else {
		QStringList names;
		for (int r : rows)
			names.append(mappers->mapper(r)->name());
		question = tr("Delete these %1 charts?\n%2").arg(rows.size()).arg(names.join("\n"));
	}
	if (!m_userInteraction->askConfirmation(parent, tr("Delete charts"), question))
		return false;
	const QString text = rows.size() == 1 ? tr("delete chart '%1'").arg(mappers->mapper(rows.front())->name())
										  : tr("delete %1 charts").arg(rows.size());
	m_undoStack.push(new UndoMappersRemoved(*this, rows, text));
	return true;
}


int ProjectHandler::duplicateMapper(int mapperIndex) {
	FUNCID(ProjectHandler::duplicateMapper);
	const Mapper * original = mapperAt(mapperIndex, FUNC_ID);
	std::unique_ptr<Mapper> copy;
	try {
		copy = MapperSnapshot(*original).restore(m_dataManager);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot duplicate chart '%1'.").arg(original->name().toStdString()),
							 FUNC_ID);
	}
	copy->setName(tr("%1 (copy)").arg(original->name()));
	const int copyIndex = mapperIndex + 1;
	m_undoStack.push(new UndoMapperInserted(*this, copyIndex, std::move(copy),
											tr("duplicate chart '%1'").arg(original->name())));
	return copyIndex;
}


bool ProjectHandler::moveMappers(const QList<int> & mapperIndices, int destination) {
	FUNCID(ProjectHandler::moveMappers);
	const std::vector<int> moved = sortedMapperIndices(mapperIndices, FUNC_ID);
	MapperTreeModel * mappers = m_project->mapperModel();
	const int count = mappers->mapperCount();
	if (destination < 0 || destination > count)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid destination %1 for moving mappers.").arg(destination), FUNC_ID);
	// order[new index] = old index: the moved ones go in where the destination is
	std::vector<int> order;
	for (int i = 0; i <= count; ++i) {
		if (i == destination)
			order.insert(order.end(), moved.begin(), moved.end());
		if (i < count && !std::binary_search(moved.begin(), moved.end(), i))
			order.push_back(i);
	}
	std::vector<int> newIndex(static_cast<std::size_t>(count));
	bool changed = false;
	for (int i = 0; i < count; ++i) {
		newIndex[static_cast<std::size_t>(order[static_cast<std::size_t>(i)])] = i;
		changed = changed || order[static_cast<std::size_t>(i)] != i;
	}
	if (!changed)
		return false;
	const QString text = moved.size() == 1 ? tr("move chart '%1'").arg(mappers->mapper(moved.front())->name())
										   : tr("move %1 charts").arg(moved.size());
	m_undoStack.push(new UndoMappersMoved(*this, order, text));
	return true;
}


void ProjectHandler::refreshMapper(int mapperIndex, DATAIO::DataIO::RefreshMode mode) {
	FUNCID(ProjectHandler::refreshMapper);
	mapperAt(mapperIndex, FUNC_ID)->refresh(mode);
}


void ProjectHandler::refreshAllMappers(DATAIO::DataIO::RefreshMode mode) {
	FUNCID(ProjectHandler::refreshAllMappers);
	checkValid(FUNC_ID);
	ZEB::reportProgress("Begin update of mappers.\n", FUNC_ID, 2);
	MapperTreeModel * mappers = m_project->mapperModel();
	for (int i = 0; i < mappers->mapperCount(); ++i) {
		ZEB::reportProgress(ZEB::MessageFormat("Updating mapper #%1.\n").arg(i + 1).str(), FUNC_ID, 3);
		mappers->mapper(i)->refresh(mode);
	}
	ZEB::reportProgress("Mapper update done.\n", FUNC_ID, 2);
}


void ProjectHandler::setSplitLayout(const SplitLayout & layout) {
	FUNCID(ProjectHandler::setSplitLayout);
	checkValid(FUNC_ID);
	if (m_commandDepth > 0) {
		m_project->m_splitLayout = layout;
		setModified(SplitLayoutModified);
	}
	else if (layout != m_project->m_splitLayout) {
		m_undoStack.push(new UndoSplitLayout(*this, m_project->m_splitLayout, layout));
	}
}


void ProjectHandler::setSplitViewState(const SplitLayout & layout) {
	FUNCID(ProjectHandler::setSplitViewState);
	checkValid(FUNC_ID);
	if (layout == m_project->m_splitLayout)
		return;
	m_project->m_splitLayout = layout;
	setModified(SplitViewStateModified);
}


void ProjectHandler::repointDataFiles(const DataPathRemap & remap) {
	FUNCID(ProjectHandler::repointDataFiles);
	checkValid(FUNC_ID);
	for (const QString & f : m_project->dataFileNames()) {
		const QString path = remap.apply(f);
		if (!QFileInfo(path).isFile())
			throw ZEB::Exception(ZEB::MessageFormat("Data file '%1' does not exist.").arg(path.toStdString()), FUNC_ID);
	}
	// every mapper is rebuilt before the first one is changed, so that a failure changes nothing
	MapperTreeModel * mappers = m_project->mapperModel();
	std::vector<std::vector<Mapper::ExtractorEntry> > entries;
	for (int i = 0; i < mappers->mapperCount(); ++i)
		entries.push_back(mappers->mapper(i)->repointedEntries(remap));
	for (int i = 0; i < mappers->mapperCount(); ++i) {
		Mapper * m = mappers->mapper(i);
		m->replaceEntries(std::move(entries[static_cast<std::size_t>(i)]));
		mappers->mapperChanged(i);
		setModified(MapperContentModified, m);
	}
	if (m_project->repointDirectories(remap))
		setModified(DirectoriesModified);
	for (const DataPathRemap::FolderPair & f : remap.folders())
		ZEB::reportProgress(ZEB::MessageFormat("Session re-pointed from '%1' to '%2'.\n").arg(f.first.toStdString())
							.arg(f.second.toStdString()).str(), FUNC_ID, 1);
}


bool ProjectHandler::useOtherResultFolder(QWidget * parent) {
	FUNCID(ProjectHandler::useOtherResultFolder);
	checkValid(FUNC_ID);
	const QString title = tr("Use another result folder");
	const QStringList files = m_project->dataFileNames();
	if (files.isEmpty()) {
		m_userInteraction->showCritical(parent, title, tr("The session has no charts with data files."));
		return false;
	}
	QStringList folders;
	for (const QString & f : files)
		folders.append(QFileInfo(f).absolutePath());
	folders.removeDuplicates();
	QString oldFolder = folders.front();
	if (folders.size() > 1) {
		const QString common = DataPathRemap::commonFolder(files);
		if (!common.isEmpty()) {
			folders.prepend(common);
			folders.removeDuplicates();
		}
		const int choice = m_userInteraction->chooseItem(parent, title,
			tr("The data files of the session lie in several folders. Which folder holds the results to replace?"),
			folders);
		if (choice < 0 || choice >= folders.size())
			return false;
		oldFolder = folders[choice];
	}
	const QString newFolder = m_userInteraction->existingDirectory(parent,
		tr("Select the result folder to use instead of '%1'").arg(oldFolder), QFileInfo(oldFolder).absolutePath());
	if (newFolder.isEmpty() || ProjectRelativePath::normalized(newFolder) == oldFolder)
		return false;

	DataPathRemap remap;
	remap.addFolder(oldFolder, newFolder);
	try {
		repointDataFiles(remap);
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		QStringList lines;
		for (const ZEB::Exception::MsgInfo & msg : ex.messages())
			lines.append(QString::fromStdString(msg.m_what));
		m_userInteraction->showCritical(parent, title, tr("The session is not changed:\n%1").arg(lines.join("\n")));
		return false;
	}
	return true;
}


std::unique_ptr<Project> ProjectHandler::read(const QString & fileName, QStringList & errors,
											  const DataPathRemap & remap)
{
	FUNCID(ProjectHandler::read);
	if (!QFileInfo::exists(fileName)) {
		errors.append(tr("File '%1' does exists or missing permissions.").arg(fileName));
		return nullptr;
	}
	std::unique_ptr<Project> project(new Project);
	try {
		project->readXML(fileName, m_dataManager, remap);
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


std::unique_ptr<Project> ProjectHandler::readWithMovedData(QWidget * parent, const QString & fileName,
															QStringList & errors)
{
	FUNCID(ProjectHandler::readWithMovedData);
	DataPathRemap remap;
	QStringList missing = missingDataFiles(fileName, remap);
	// what became of the previous answer, told before the next question
	QString note;
	while (!missing.isEmpty()) {
		const QString first = remap.apply(missing.front());
		QString text = note + tr("The data file '%1' does not exist.").arg(first);
		if (missing.size() > 1)
			text += " " + tr("Data files missing in all: %1.").arg(missing.size());
		text += "\n\n" + tr("If the data has been moved, choose the folder that holds it now. Every data file and "
							 "directory of the session in the old folder is then re-pointed to it.");
		const QString folder = m_userInteraction->askDataFolder(parent, tr("Data files missing"), text,
																existingFolderAbove(first));
		if (folder.isEmpty())
			return nullptr;
		if (!remap.addFolderFor(missing.front(), folder, missing)) {
			note = tr("The folder '%1' holds no file '%2', neither directly nor in the sub-folders of its old path.")
				   .arg(folder, QFileInfo(first).fileName()) + "\n\n";
			continue;
		}

		QStringList repointedErrors;
		std::unique_ptr<Project> project = read(fileName, repointedErrors, remap);
		if (project) {
			for (const DataPathRemap::FolderPair & f : remap.folders())
				ZEB::reportProgress(ZEB::MessageFormat("Data files of session '%1' re-pointed from '%2' to '%3'.\n")
									.arg(fileName.toStdString()).arg(f.first.toStdString())
									.arg(f.second.toStdString()).str(), FUNC_ID, 1);
			return project;
		}
		missing = missingDataFiles(fileName, remap);
		if (missing.isEmpty()) {
			// the data is all there now, the session fails for another reason
			errors = repointedErrors;
			return nullptr;
		}
		QStringList listed;
		for (int i = 0; i < missing.size() && i < MAX_LISTED_FILES; ++i)
			listed.append(remap.apply(missing[i]));
		if (missing.size() > MAX_LISTED_FILES)
			listed.append("...");
		note = tr("After re-pointing, these data files are still missing:\n%1").arg(listed.join("\n")) + "\n\n";
	}
	return nullptr;
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
		throw ZEB::Exception("No session open.", functionId);
}


Mapper * ProjectHandler::mapperAt(int mapperIndex, const char * functionId) const {
	checkValid(functionId);
	const MapperTreeModel * mappers = m_project->mapperModel();
	if (mapperIndex < 0 || mapperIndex >= mappers->mapperCount())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid mapper index %1.").arg(mapperIndex), functionId);
	return mappers->mapper(mapperIndex);
}


std::vector<int> ProjectHandler::sortedMapperIndices(const QList<int> & mapperIndices, const char * functionId) const {
	checkValid(functionId);
	for (int i : mapperIndices)
		mapperAt(i, functionId);
	std::vector<int> sorted(mapperIndices.begin(), mapperIndices.end());
	std::sort(sorted.begin(), sorted.end());
	sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
	return sorted;
}


void ProjectHandler::resetUndoStack() {
	m_undoStack.clear();
	// without settings (tools building sessions) the stack has no limit
	const unsigned int limit = Settings::exists() ? Settings::instance().m_maxNumUNDOSteps : 0;
	m_undoStack.setUndoLimit(static_cast<int>(qMin<unsigned int>(limit, INT_MAX)));
}


bool ProjectHandler::changeChartModel(int mapperIndex, int kind, int targetIndex, int role, const QVariant & value,
									  const char * functionId)
{
	const SCI::AbstractCartesianChartModel & model = *mapperAt(mapperIndex, functionId)->chartModel();
	const UndoChartProperty::TargetKind k = static_cast<UndoChartProperty::TargetKind>(kind);
	if (k == UndoChartProperty::AxisProperty && (targetIndex < 0 || targetIndex >= SCI::AbstractCartesianChartModel::NUM_AXES))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid axis position %1.").arg(targetIndex), functionId);
	if (k == UndoChartProperty::SeriesProperty && (targetIndex < 0 || targetIndex >= static_cast<int>(model.seriesCount())))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid series index %1.").arg(targetIndex), functionId);
	const QVariant old = UndoChartProperty::storedValue(model, k, targetIndex, role);
	if (old == value)
		return true;
	bool accepted = false;
	m_undoStack.push(new UndoChartProperty(*this, mapperIndex, k, targetIndex, role, old, value, &accepted));
	return accepted;
}


bool ProjectHandler::undoOrRedo(QWidget * parent, bool undoing) {
	FUNCID(ProjectHandler::undoOrRedo);
	if (undoing ? !m_undoStack.canUndo() : !m_undoStack.canRedo())
		return false;
	const int index = undoing ? m_undoStack.index() - 1 : m_undoStack.index();
	UndoCommand * command = dynamic_cast<UndoCommand *>(const_cast<QUndoCommand *>(m_undoStack.command(index)));
	try {
		if (command != nullptr) {
			if (undoing)
				command->prepareUndo();
			else
				command->prepareRedo();
		}
	}
	catch (ZEB::Exception & ex) {
		const QString text = undoing ? m_undoStack.undoText() : m_undoStack.redoText();
		ZEB::Exception(ex, ZEB::MessageFormat("Cannot undo/redo '%1'.").arg(text.toStdString()), FUNC_ID)
			.reportAllAsErrors();
		m_userInteraction->showCritical(parent, undoing ? tr("Cannot undo") : tr("Cannot redo"),
			(undoing ? tr("'%1' cannot be undone:\n%2") : tr("'%1' cannot be redone:\n%2")).arg(text, exceptionText(ex)));
		return false;
	}
	if (undoing)
		m_undoStack.undo();
	else
		m_undoStack.redo();
	return true;
}

} // namespace OVP
