#ifndef OVP_ProjectHandlerH
#define OVP_ProjectHandlerH

#include <memory>
#include <vector>

#include <QColor>
#include <QDateTime>
#include <QObject>
#include <QStringList>
#include <QUndoStack>
#include <QVariant>

#include "OVP_DataManager.h"
#include "OVP_DataPathRemap.h"

class QWidget;

namespace OVP {

struct DataSetSetup;
class Mapper;
class Project;
class SplitLayout;
class UserInteraction;

/*! Owns the one project of the process together with its file name, the modified flag and the
	time the file was last read or written; opens, saves and closes projects and is the one
	place through which the project is changed, so that every change marks it modified and is
	announced to the views.

	Changes of the charts (created, deleted, renamed, moved, duplicated, their properties) and of
	the split views go through an undo stack (undoStack()), limited to the settings' number of
	undo steps and emptied when a session is opened or created. The session counts as modified
	while the stack is away from the state last saved or loaded, or after a change that is not on
	the stack (directories, data sets added to a chart) until it is saved.

	There is exactly one instance, created by the entry function and reached through instance().
	Dialogs are shown through a UserInteraction object, which tests replace.
*/
class ProjectHandler : public QObject {
	Q_OBJECT
public:
	/*! Kinds of changes announced by modified(); SeriesModified is the change of a series
		property through a series model, SplitViewStateModified a change of the split views'
		part sizes or focus only (the views stay as they are).
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
		SeriesModified				= 10,
		MappersMoved				= 11,
		SplitViewStateModified		= 12
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
	/*! The user interaction in use, for the panels that ask the user on the session's behalf. */
	UserInteraction & userInteraction() const { return *m_userInteraction; }

	/*! True when a project is open. */
	bool isValid() const { return m_project != nullptr; }
	/*! The open project; only valid when isValid(). */
	Project & project() const;
	/*! File of the project; empty for a new project that was never saved. */
	const QString & projectFile() const { return m_projectFile; }
	/*! True when the session differs from its file: the undo stack is not at the state saved
		or loaded, or a change that is not on the stack was made since. */
	bool isModified() const { return m_modified || !m_undoStack.isClean(); }
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
	/*! Reads a project file and, on success, makes it the open project. Unless silent, two
		rescues are offered when reading fails: when data files are missing, the user may point
		at the folder that holds the data now (the data files and directories are re-pointed
		there, see DataPathRemap::addFolderFor(), and the offer is repeated while files are
		still missing); when the file cannot be read but its backup copy can, the user may
		restore the session from the backup. A rescued session gets the file's name and is
		modified, the file itself is left as it is until the session is saved. On failure the
		open project stays and, unless silent, the errors are shown. Returns true on success.
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
		with optional data that identifies the changed part. While an undo command is done or
		undone (CommandScope), the change belongs to the command and is only announced.
	*/
	void setModified(int modificationType, void * data = nullptr);

	/*! Marks the time an undo command is done or undone, while it lives. */
	class CommandScope {
	public:
		explicit CommandScope(ProjectHandler & handler) : m_handler(handler) { ++m_handler.m_commandDepth; }
		~CommandScope() { --m_handler.m_commandDepth; }
		CommandScope(const CommandScope &) = delete;
		CommandScope & operator=(const CommandScope &) = delete;
	private:
		ProjectHandler & m_handler;
	};

	/*! The undoable changes of the open session. */
	QUndoStack & undoStack() { return m_undoStack; }
	/*! Undoes the last change. A change that cannot be undone (e.g. a deleted chart whose data
		files are gone) is shown through the user interaction and stays done. Returns true when
		a change was undone.
	*/
	bool undo(QWidget * parent);
	/*! Redoes the change undone last, as undo() does. */
	bool redo(QWidget * parent);

	/*! Sets a chart property (SCI::AbstractChartModel::ChartDataRole) of the chart of the mapper
		at a mapper index as an undoable change. Returns false when the chart model refuses the
		value (it reports why); the current value is no change and returns true. Throws
		ZEB::Exception for a bad mapper index.
	*/
	bool setChartProperty(int mapperIndex, int role, const QVariant & value);
	/*! Sets a property of the axis at axisPosition, as setChartProperty() does; throws
		ZEB::Exception for a bad axis position, too. */
	bool setAxisProperty(int mapperIndex, int axisPosition, int role, const QVariant & value);
	/*! Sets a property of the series at seriesIndex, as setChartProperty() does; throws
		ZEB::Exception for a bad series index, too. */
	bool setSeriesProperty(int mapperIndex, int seriesIndex, int role, const QVariant & value);
	/*! Applies the chart style file at path to the chart of the mapper at a mapper index as an
		undoable change. The chart keeps its texts (title, axis and series titles); the axis
		units of the style must fit the data of the chart. Throws
		ZEB::Exception (with SCI::ChartStyleFile::APPLY_ERROR_TEXT) when the style cannot be
		applied; the chart is then as it was and nothing is put on the undo stack.
	*/
	void applyChartStyle(int mapperIndex, const QString & path);
	/*! Gives extractor entry entryIndex (as Mapper::dataSetSetup() counts) of the chart of the
		mapper at a mapper index a new setup as an undoable change; the current setup again is no
		change. Throws ZEB::Exception for a bad index and, with the reason, when the chart refuses
		the setup; nothing is pushed then.
	*/
	void setDataSetSetup(int mapperIndex, unsigned int entryIndex, const DataSetSetup & setup);
	/*! Removes series entryIndex of the line chart of the mapper at a mapper index as an undoable
		change; undoing brings it back at its place with its display properties. Throws
		ZEB::Exception for a bad index, another kind of chart or the last series.
	*/
	void removeDataSet(int mapperIndex, unsigned int entryIndex);

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

	/*! Appends a mapper to the project (undoable). */
	void addMapper(std::unique_ptr<Mapper> mapper);
	/*! Removes count mappers starting at row (undoable); throws ZEB::Exception for a range
		outside the list. The split layout follows the closed-up indices.
	*/
	void removeMappers(int row, int count);
	/*! Marks the project modified after series were added to or changed in the mapper at a
		mapper index, and announces it (not undoable).
	*/
	void mapperContentChanged(int mapperIndex);
	/*! Renames the mapper at a mapper index (undoable); the same name again is no change. Throws
		ZEB::Exception for a bad index and for an empty or blank name.
	*/
	void renameMapper(int mapperIndex, const QString & name);
	/*! Deletes the mappers at the given mapper indices (any order, repeats count once) once the
		user has confirmed through the user interaction, as one undoable change; undoing brings
		them back at their places and in their views. The split layout follows as with
		removeMappers(). Returns false when the list is empty or the user declined. Throws
		ZEB::Exception for an index outside the list, before asking.
	*/
	bool deleteMappers(QWidget * parent, const QList<int> & mapperIndices);
	/*! Inserts a deep copy of the mapper at a mapper index right after it (undoable) and returns
		the copy's index. The copy is read back from the original's Mapper element (written with all
		properties), so it has the same extractors, cuts, manipulators, models and chart
		properties; it is named "<name> (copy)". Views keep their charts. Throws ZEB::Exception
		for a bad index or when the copy cannot be built.
	*/
	int duplicateMapper(int mapperIndex);
	/*! Moves the mappers at the given mapper indices (any order, repeats count once), keeping
		their order among each other, to the place before the mapper at destination as numbered
		now (mapperCount() for the end), as one undoable change. The split layout's views keep
		showing their charts.
		Returns false when the order stays as it was. Throws ZEB::Exception for an index or a
		destination outside the list.
	*/
	bool moveMappers(const QList<int> & mapperIndices, int destination);
	/*! Re-reads the data files of one mapper and updates its charts. RM_EXPLICIT for the user's
		refresh command, RM_FOLLOW for following running simulations (Mapper::refresh()).
	*/
	void refreshMapper(int mapperIndex, DATAIO::DataIO::RefreshMode mode = DATAIO::DataIO::RM_FOLLOW);
	/*! Refreshes all mappers in list order. */
	void refreshAllMappers(DATAIO::DataIO::RefreshMode mode = DATAIO::DataIO::RM_FOLLOW);

	/*! Replaces the layout of the split chart views (undoable; while an undo command is done,
		the change belongs to it). */
	void setSplitLayout(const SplitLayout & layout);
	/*! Replaces the layout of the split chart views after only the sizes of split parts or the
		focused view changed: the session is modified, but the change is no undo step (every
		splitter move and click into a view would be one).
	*/
	void setSplitViewState(const SplitLayout & layout);

	/*! Re-points the open session: every mapper gets its extractors rebuilt from the files remap
		points their data files at (chart properties and views stay as they are), the top-level
		directories follow (Project::repointDirectories()), and the session is modified. Throws
		ZEB::Exception naming the first data file that does not exist, or why an extractor
		cannot be rebuilt; nothing is changed then.
	*/
	void repointDataFiles(const DataPathRemap & remap);
	/*! The user's action "use another result folder": points the session at a variant of the
		simulation whose files have the same names in another folder. The old folder is the one
		folder of the session's data files, or the one the user picks when they lie in several;
		the user chooses the new folder. A failure is shown and changes nothing. Returns true
		when the session was re-pointed.
	*/
	bool useOtherResultFolder(QWidget * parent);

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
	std::unique_ptr<Project> read(const QString & fileName, QStringList & errors,
								  const DataPathRemap & remap = DataPathRemap());
	/*! Called when the file fileName could not be read: when data files are missing, asks for
		the folder that holds the data now and reads the file again with the data re-pointed,
		until it reads or the user declines. Returns the project read, or null; when a
		re-pointed reading failed for another reason than missing files, errors gets its messages.
	*/
	std::unique_ptr<Project> readWithMovedData(QWidget * parent, const QString & fileName, QStringList & errors);
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
	/*! The mapper at a mapper index; throws ZEB::Exception with the given function id for an
		index outside the list or without project.
	*/
	Mapper * mapperAt(int mapperIndex, const char * functionId) const;
	/*! Mapper indices sorted, repeats removed; throws like mapperAt() for an index outside the
		list.
	*/
	std::vector<int> sortedMapperIndices(const QList<int> & mapperIndices, const char * functionId) const;
	/*! Empties the undo stack and takes the undo limit from the settings, when they exist. */
	void resetUndoStack();
	/*! Pushes a change of a chart model property (see setChartProperty()); kind is an
		UndoChartProperty::TargetKind. */
	bool changeChartModel(int mapperIndex, int kind, int targetIndex, int role, const QVariant & value,
						  const char * functionId);
	/*! Prepares the command that undo (undoing) or redo would run next and runs it; a failure is
		shown. */
	bool undoOrRedo(QWidget * parent, bool undoing);

	static ProjectHandler *				m_self;

	/*! Declared before the project, so that it outlives the extractors of the project's mappers. */
	DataManager							m_dataManager;
	std::unique_ptr<Project>			m_project;
	QString								m_projectFile;
	/*! A change that is not on the undo stack was made since the last load or save. */
	bool								m_modified = false;
	/*! Declared after the project: commands may hold mappers that read through the data manager. */
	QUndoStack							m_undoStack;
	/*! Number of undo commands being done or undone (CommandScope). */
	int									m_commandDepth = 0;
	QDateTime							m_lastReadTime;
	std::unique_ptr<UserInteraction>	m_userInteraction;
};

} // namespace OVP

#endif // OVP_ProjectHandlerH
