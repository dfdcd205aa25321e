#ifndef OVP_ProjectHandlerH
#define OVP_ProjectHandlerH

#include <memory>

#include <QColor>
#include <QDateTime>
#include <QObject>
#include <QStringList>

#include "OVP_DataManager.h"

class QWidget;

namespace OVP {

class Mapper;
class Project;
class SplitLayout;
class UserInteraction;

/*! Owns the one project of the process together with its file name, the modified flag and the
	time the file was last read or written; opens, saves and closes projects and is the one
	place through which the project is changed, so that every change marks it modified and is
	announced to the views.

	There is exactly one instance, created by the entry function and reached through instance().
	Dialogs are shown through a UserInteraction object, which tests replace.
*/
class ProjectHandler : public QObject {
	Q_OBJECT
public:
	/*! Kinds of changes announced by modified(); SeriesModified is the change of a series
		property through a series model.
	*/
	enum ModificationTypes {
		AllModified					= 0,
		DirectoriesModified			= 1,
		SubDirectoriesModified		= 2,
		ExpandedSubDirsModified		= 3,
		MapperInserted				= 4,
		MapperRemoved				= 5,
		MapperRenamed				= 6,
		MapperContentModified		= 7,
		SplitLayoutModified			= 8,
		ChartModified				= 9,
		SeriesModified				= 10
	};

	/*! Outcome of a save request. */
	enum SaveResult {
		SaveOK,
		SaveFailed,
		SaveCancelled
	};

	/*! Registers the instance; throws ZEB::Exception when one exists already. Starts without a
		project and with the dialog-based user interaction.
	*/
	explicit ProjectHandler(QObject * parent = nullptr);
	/*! Unregisters the instance. */
	~ProjectHandler() override;

	/*! The one instance; throws ZEB::Exception when none has been created. */
	static ProjectHandler & instance();

	/*! Replaces the user interaction (dialogs, questions); null restores the dialog-based one. */
	void setUserInteraction(std::unique_ptr<UserInteraction> userInteraction);

	/*! True when a project is open. */
	bool isValid() const { return m_project != nullptr; }
	/*! The open project; only valid when isValid(). */
	Project & project() const;
	/*! File of the project; empty for a new project that was never saved. */
	const QString & projectFile() const { return m_projectFile; }
	bool isModified() const { return m_modified; }
	/*! Last-modified time of the project file as of the last load or save. */
	const QDateTime & lastReadTime() const { return m_lastReadTime; }
	/*! The containers of all open data files. */
	DataManager & dataManager() { return m_dataManager; }

	/*! The directory of the project file last loaded or saved, as remembered in the settings. */
	static QString lastUsedDirectory();

	/*! Replaces the project by an empty one; no file name, not modified. */
	void newProject();
	/*! Closes the project, asking to save it when modified. Returns false when the user
		cancelled or saving failed; the project is then kept.
	*/
	bool closeProject(QWidget * parent);
	/*! Reads a project file and, on success, makes it the open project. When the file cannot be
		read but its backup copy can, the user is offered to restore the session from the backup
		(not when silent); the restored session gets the file's name and is modified, the file
		itself is left as it is until the session is saved. On failure the open project stays
		and, unless silent, the errors are shown. Returns true on success.
	*/
	bool loadProject(QWidget * parent, const QString & fileName, bool silent);
	/*! Asks for a file name and saves the project there. */
	SaveResult saveWithNewFilename(QWidget * parent);
	/*! Saves the project to a file (".o2" is appended when missing); a failure is shown. */
	SaveResult saveProject(QWidget * parent, const QString & fileName);
	/*! Writes the project file and keeps the previous file as backup copy (the name with ".bak"
		instead of ".o2"). The file is replaced only by complete content, and the backup only
		after that, so a failure leaves both as they were. On success the file becomes the
		project file. Error texts are appended to errors; returns false on failure.
	*/
	bool write(const QString & fileName, QStringList & errors);
	/*! Takes the last read time from the project file; throws ZEB::Exception without a project. */
	void updateLastReadTime();

	/*! Marks the project modified and announces the kind of change (a ModificationTypes value)
		with optional data that identifies the changed part.
	*/
	void setModified(int modificationType, void * data = nullptr);

	/*! Appends a top-level directory; a directory already listed is reported and not added
		again. Returns true when it was added.
	*/
	bool addDirectory(const QString & path);
	/*! Removes count top-level directories starting at row; throws ZEB::Exception for a range
		that is not within the list.
	*/
	void removeDirectories(int row, int count);
	/*! Sets colour and check mark of a sub-directory (path relative to the top-level directory,
		"." for the directory itself); unchecked and without colour, its entry is removed.
	*/
	void setSubDirectory(int directoryIndex, const QString & relativePath, const QColor & color, bool checked);
	/*! Marks a sub-directory as expanded or collapsed in the directory tree. */
	void setSubDirectoryExpanded(int directoryIndex, const QString & relativePath, bool expanded);

	/*! Appends a mapper to the project. */
	void addMapper(std::unique_ptr<Mapper> mapper);
	/*! Removes count mappers starting at row; throws ZEB::Exception for a range outside the
		list. The split layout follows the closed-up indices.
	*/
	void removeMappers(int row, int count);
	/*! Marks the project modified after series were added to or changed in the mapper at a
		mapper index, and announces it.
	*/
	void mapperContentChanged(int mapperIndex);
	/*! Renames the mapper at a mapper index. */
	void renameMapper(int mapperIndex, const QString & name);
	/*! Re-reads the data files of one mapper and updates its charts. */
	void refreshMapper(int mapperIndex);
	/*! Refreshes all mappers in list order. */
	void refreshAllMappers();

	/*! Replaces the layout of the split chart views. */
	void setSplitLayout(const SplitLayout & layout);

signals:
	/*! The project changed (see ModificationTypes); data identifies the changed part or is null. */
	void modified(int modificationType, void * data);
	/*! The open project is about to be destroyed or replaced. */
	void projectAboutToBeClosed();
	/*! A project was opened, replaced or closed. */
	void projectChanged();
	/*! The list of recent projects in the settings changed. */
	void updateRecentProjects();

private:
	/*! Reads a project file and returns the project read; on failure the messages go to the log
		and to errors and null is returned. The open project is not touched.
	*/
	std::unique_ptr<Project> read(const QString & fileName, QStringList & errors);
	/*! Called when the file fileName could not be read (errors): reads its backup copy and, when
		that works and the user agrees, returns the project read from it; null otherwise.
	*/
	std::unique_ptr<Project> restoreFromBackup(QWidget * parent, const QString & fileName, const QStringList & errors);
	/*! Replaces the open project (null closes it) and announces it. */
	void replaceProject(std::unique_ptr<Project> project);
	/*! Remembers the folder of a project file as last used directory and the file as recent
		project.
	*/
	void rememberProjectFile(const QString & fileName);
	/*! Checks that a project is open; throws with the given function id otherwise. */
	void checkValid(const char * functionId) const;

	static ProjectHandler *				m_self;

	/*! Declared before the project, so that it outlives the extractors of the project's mappers. */
	DataManager							m_dataManager;
	std::unique_ptr<Project>			m_project;
	QString								m_projectFile;
	bool								m_modified = false;
	QDateTime							m_lastReadTime;
	std::unique_ptr<UserInteraction>	m_userInteraction;
};

} // namespace OVP

#endif // OVP_ProjectHandlerH
