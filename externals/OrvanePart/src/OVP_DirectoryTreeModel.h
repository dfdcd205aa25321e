#ifndef OVP_DirectoryTreeModelH
#define OVP_DirectoryTreeModelH

#include <memory>

#include <QAbstractItemModel>
#include <QColor>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSet>
#include <QStringList>

namespace OVP {

class Directory;
class ProjectHandler;

/*! The directories of the open session as a tree for the west panel: the top-level directories
	of the project in their order and, below each, its sub-folders as found on disk.

	Sub-folders are listed one level at a time when a view expands a folder (canFetchMore() /
	fetchMore()); hidden folders, folders named in the ExcludedDirNames setting and files are not
	shown, and a symbolic link back to one of its own ancestors is shown without children, so
	that a link loop cannot be expanded forever.

	Every folder, the top-level directory itself included, can be checked, coloured and expanded;
	these states live in the project's Directory under the folder's path relative to the
	top-level directory (TOP_LEVEL_KEY for the directory itself) and are changed only through the
	ProjectHandler, which marks the session modified. The model follows the handler (a new,
	loaded or closed session, directories added or removed elsewhere) and the file system (a
	watcher on every listed folder).

	The checked folders that exist on disk are announced by directoryChecked() and
	directoryUnchecked() with their absolute paths; the data manager's file table listens to
	them. A checked folder that is missing on disk is reported once and keeps its check mark in
	the session.

	The handler must outlive the model.
*/
class DirectoryTreeModel : public QAbstractItemModel {
	Q_OBJECT
public:
	/*! Item data role of the user colour of a folder (QColor, invalid when none was chosen). */
	static constexpr int ColorRole = Qt::UserRole + 1;
	/*! The relative path under which a top-level directory keeps its own check mark, colour and
		expanded state in the session.
	*/
	static constexpr const char * TOP_LEVEL_KEY = ".";

	explicit DirectoryTreeModel(ProjectHandler & handler, QObject * parent = nullptr);
	~DirectoryTreeModel() override;

	QModelIndex index(int row, int column, const QModelIndex & parent = QModelIndex()) const override;
	QModelIndex parent(const QModelIndex & child) const override;
	int rowCount(const QModelIndex & parent = QModelIndex()) const override;
	int columnCount(const QModelIndex & parent = QModelIndex()) const override;
	/*! True for a folder that was not listed yet when it has at least one sub-folder to show. */
	bool hasChildren(const QModelIndex & parent = QModelIndex()) const override;
	bool canFetchMore(const QModelIndex & parent) const override;
	/*! Lists the sub-folders of a folder and starts watching it. */
	void fetchMore(const QModelIndex & parent) override;
	/*! Display: the folder name; tool tip of a top-level row: its full path; CheckStateRole;
		ColorRole; decoration: the user colour while user colouring is switched on.
	*/
	QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
	/*! Accepts CheckStateRole and ColorRole; returns false for other roles. */
	bool setData(const QModelIndex & index, const QVariant & value, int role = Qt::EditRole) override;
	Qt::ItemFlags flags(const QModelIndex & index) const override;

	/*! Folders and files dragged from a file manager: "text/uri-list". */
	QStringList mimeTypes() const override;
	/*! Copy and link; never move, so that a file manager does not delete what was dropped. */
	Qt::DropActions supportedDropActions() const override;
	/*! True when the data holds at least one local file or folder. */
	bool canDropMimeData(const QMimeData * data, Qt::DropAction action, int row, int column,
						 const QModelIndex & parent) const override;
	/*! Adds every dropped local folder, and the folder of every dropped file, as a top-level
		directory; other URLs are reported. Returns true when a directory was added.
	*/
	bool dropMimeData(const QMimeData * data, Qt::DropAction action, int row, int column,
					  const QModelIndex & parent) override;

	/*! The absolute path of the folder at index; empty for an invalid index. */
	QString absolutePath(const QModelIndex & index) const;
	/*! Sets the user colour of a folder (an invalid colour removes it). */
	void setColor(const QModelIndex & index, const QColor & color);
	/*! Stores whether the view shows the folder expanded; storing the state it has already is no
		change of the session.
	*/
	void setExpanded(const QModelIndex & index, bool expanded);
	/*! Whether the folder was expanded in the session, for the view to restore. */
	bool isExpanded(const QModelIndex & index) const;

	/*! Adds an existing folder as top-level directory through the handler (which reports a
		folder already listed); anything else is reported and not added. Returns true when added.
	*/
	bool addDirectory(const QString & path);
	/*! Checks an existing folder so that its files are listed: a folder below a top-level
		directory (or that directory itself) is checked there, any other folder is added as
		top-level directory first. Anything else is reported; returns false when nothing is
		checked.
	*/
	bool checkDirectory(const QString & path);
	/*! Removes count top-level directories starting at row through the handler; throws
		ZEB::Exception for a range outside the list.
	*/
	void removeDirectories(int row, int count);

	/*! The user colour of a folder given by its absolute path (invalid when it has none or is
		not in the session), for the data manager to show with the folder's files.
	*/
	QColor colorOf(const QString & absolutePath) const;

	/*! Absolute paths of the checked folders that exist, in session order. */
	const QStringList & checkedDirectories() const { return m_checked; }

public slots:
	/*! Lists every listed folder again and re-reads the settings that decide what is shown (after
		ExcludedDirNames or UserColoring changed, or for a folder that came back on disk).
	*/
	void refresh();

signals:
	/*! A folder became checked, or a checked folder appeared on disk. */
	void directoryChecked(const QString & absolutePath);
	/*! A folder was unchecked, or a checked folder left the session or disappeared on disk. */
	void directoryUnchecked(const QString & absolutePath);

private:
	struct Node;

	void onProjectAboutToBeClosed();
	void onProjectChanged();
	void onProjectModified(int modificationType);
	/*! A watched folder changed: lists it again and follows the checked folders. */
	void onDirectoryChanged(const QString & path);

	/*! The node of an index; the invisible root for an invalid index. */
	Node * nodeOf(const QModelIndex & index) const;
	/*! The index of a node; invalid for the root. */
	QModelIndex indexOf(const Node * node) const;
	/*! The project's entry for the top-level directory that node belongs to; an empty one while
		the project no longer lists it.
	*/
	const Directory & directoryOf(const Node * node) const;
	/*! The project index of the top-level directory that node belongs to; -1 while the project
		no longer lists it.
	*/
	int directoryIndexOf(const Node * node) const;
	bool isChecked(const Node * node) const;
	QColor color(const Node * node) const;

	/*! Creates the top-level nodes from the open project. */
	void buildTopLevel();
	/*! A new top-level node (a missing folder is reported). */
	Node * newTopLevelNode(const QString & path);
	/*! A new node for a sub-folder of parent found on disk at path; a symbolic link to parent or
		one of its ancestors is marked as loop.
	*/
	Node * newSubFolderNode(Node * parent, const QFileInfo & folder, const QString & path) const;
	/*! Brings the top-level rows in line with the project's directories. */
	void syncTopLevel();
	/*! Lists the sub-folders of node and merges them into its children, keeping the nodes of
		folders that are still there. A folder that is missing or cannot be read is reported,
		loses its children and stays unlisted.
	*/
	void relist(Node * node);
	/*! Calls relist() for node and every listed node below it. */
	void relistTree(Node * node);
	/*! Announces a change of check mark or colour for every row. */
	void emitDataChangedTree(Node * node);
	/*! Compares the checked folders that exist with those announced last and announces the
		difference.
	*/
	void updateCheckedState();
	/*! Watches exactly the listed folders and the checked folders. */
	void updateWatches();
	/*! Logs a warning unless the same text was logged before in this session. */
	void reportOnce(const std::string & message, const char * functionId);

	ProjectHandler &		m_handler;
	/*! Invisible root; its children are the top-level directories in project order. */
	std::unique_ptr<Node>	m_root;
	/*! The checked folders announced last. */
	QStringList				m_checked;
	QFileSystemWatcher		m_watcher;
	/*! Warnings already logged in this session. */
	QSet<QString>			m_reported;
	/*! Set between projectAboutToBeClosed() and projectChanged(). */
	bool					m_resetting = false;
};

} // namespace OVP

#endif // OVP_DirectoryTreeModelH
