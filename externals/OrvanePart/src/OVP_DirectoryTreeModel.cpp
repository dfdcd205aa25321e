#include "OVP_DirectoryTreeModel.h"

#include <algorithm>
#include <functional>

#include <QCollator>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHash>
#include <QMimeData>
#include <QUrl>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"
#include "OVP_ProjectRelativePath.h"
#include "OVP_Settings.h"

namespace OVP {

/*! One folder of the tree. */
struct DirectoryTreeModel::Node {
	Node(Node * parent, const QString & name, const QString & relativePath, const QString & absolutePath) :
		m_parent(parent), m_name(name), m_relativePath(relativePath), m_absolutePath(absolutePath)
	{
	}

	/*! Position among the children of the parent. */
	int row() const {
		const auto & siblings = m_parent->m_children;
		for (std::size_t i = 0; i < siblings.size(); ++i)
			if (siblings[i].get() == this)
				return static_cast<int>(i);
		return -1;
	}

	Node *								m_parent;
	/*! Shown name. */
	QString								m_name;
	/*! Key of the folder in the project's Directory. */
	QString								m_relativePath;
	/*! Path of the folder, through symbolic links as the user sees it; unique among siblings. */
	QString								m_absolutePath;
	std::vector<std::unique_ptr<Node> >	m_children;
	/*! The sub-folders were listed (successfully or not). */
	bool								m_listed = false;
	/*! A symbolic link to the folder itself or one of its ancestors: never listed. */
	bool								m_loop = false;
	/*! hasChildren() before listing: -1 not known yet, 0 no, 1 yes. */
	int									m_hasSubFolders = -1;
};


namespace {

/*! The path of a folder given relative to a top-level directory (TOP_LEVEL_KEY for itself). */
QString joinedPath(const QString & topLevelPath, const QString & relativePath) {
	return QDir::cleanPath(topLevelPath + "/" + relativePath);
}


/*! True for a folder entry that the tree shows: hidden entries are not listed at all, and the
	names of the ExcludedDirNames setting are left out.
*/
bool isShown(const QFileInfo & entry, const QStringList & excludedNames) {
	return entry.isDir() && !excludedNames.contains(entry.fileName());
}


/*! True when the folder has a sub-folder that the tree shows; stops at the first one. */
bool hasShownSubFolder(const QString & path, const QStringList & excludedNames) {
	QDirIterator it(path, QDir::Dirs | QDir::NoDotAndDotDot);
	while (it.hasNext()) {
		it.next();
		if (isShown(it.fileInfo(), excludedNames))
			return true;
	}
	return false;
}


/*! Sorts folder entries by name in the user's language, numbers by their value ("run2" before
	"run10"), case ignored; names that compare equal so are ordered by their characters, so that
	the order is total. (The C locale knows no numeric order: there "run10" comes first.)
*/
void sortByName(QFileInfoList & entries) {
	QCollator collator;
	collator.setNumericMode(true);
	collator.setCaseSensitivity(Qt::CaseInsensitive);
	std::sort(entries.begin(), entries.end(), [&collator](const QFileInfo & a, const QFileInfo & b) {
		const int c = collator.compare(a.fileName(), b.fileName());
		return c != 0 ? c < 0 : a.fileName() < b.fileName();
	});
}

} // namespace


DirectoryTreeModel::DirectoryTreeModel(ProjectHandler & handler, QObject * parent) :
	QAbstractItemModel(parent),
	m_handler(handler),
	m_root(new Node(nullptr, QString(), QString(), QString()))
{
	connect(&m_handler, &ProjectHandler::projectAboutToBeClosed, this, &DirectoryTreeModel::onProjectAboutToBeClosed);
	connect(&m_handler, &ProjectHandler::projectChanged, this, &DirectoryTreeModel::onProjectChanged);
	connect(&m_handler, &ProjectHandler::modified, this, &DirectoryTreeModel::onProjectModified);
	connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &DirectoryTreeModel::onDirectoryChanged);
	buildTopLevel();
	updateCheckedState();
	updateWatches();
}


DirectoryTreeModel::~DirectoryTreeModel() = default;


QModelIndex DirectoryTreeModel::index(int row, int column, const QModelIndex & parent) const {
	const Node * p = nodeOf(parent);
	if (column != 0 || row < 0 || row >= static_cast<int>(p->m_children.size()))
		return QModelIndex();
	return createIndex(row, 0, p->m_children[static_cast<std::size_t>(row)].get());
}


QModelIndex DirectoryTreeModel::parent(const QModelIndex & child) const {
	if (!child.isValid())
		return QModelIndex();
	return indexOf(nodeOf(child)->m_parent);
}


int DirectoryTreeModel::rowCount(const QModelIndex & parent) const {
	if (parent.column() > 0)
		return 0;
	return static_cast<int>(nodeOf(parent)->m_children.size());
}


int DirectoryTreeModel::columnCount(const QModelIndex &) const {
	return 1;
}


bool DirectoryTreeModel::hasChildren(const QModelIndex & parent) const {
	Node * n = nodeOf(parent);
	if (n == m_root.get() || n->m_listed)
		return !n->m_children.empty();
	if (n->m_loop)
		return false;
	if (n->m_hasSubFolders < 0)
		n->m_hasSubFolders = hasShownSubFolder(n->m_absolutePath, Settings::instance().m_excludedDirNames) ? 1 : 0;
	return n->m_hasSubFolders == 1;
}


bool DirectoryTreeModel::canFetchMore(const QModelIndex & parent) const {
	const Node * n = nodeOf(parent);
	return n != m_root.get() && !n->m_listed && !n->m_loop;
}


void DirectoryTreeModel::fetchMore(const QModelIndex & parent) {
	if (!canFetchMore(parent))
		return;
	relist(nodeOf(parent));
	updateWatches();
}


QVariant DirectoryTreeModel::data(const QModelIndex & index, int role) const {
	if (!index.isValid())
		return QVariant();
	const Node * n = nodeOf(index);
	switch (role) {
		case Qt::DisplayRole :
			return n->m_name;
		case Qt::ToolTipRole :
			if (n->m_parent == m_root.get())
				return n->m_absolutePath;
			break;
		case Qt::CheckStateRole :
			return static_cast<int>(isChecked(n) ? Qt::Checked : Qt::Unchecked);
		case ColorRole :
			return color(n);
		case Qt::DecorationRole : {
			const QColor c = color(n);
			if (Settings::instance().m_userColoring && c.isValid())
				return c;
		} break;
		default : ;
	}
	return QVariant();
}


bool DirectoryTreeModel::setData(const QModelIndex & index, const QVariant & value, int role) {
	if (!index.isValid())
		return false;
	const Node * n = nodeOf(index);
	if (role == Qt::CheckStateRole) {
		const bool checked = value.toInt() == Qt::Checked;
		const int d = directoryIndexOf(n);
		if (d >= 0 && checked != isChecked(n))
			m_handler.setSubDirectory(d, n->m_relativePath, color(n), checked);
		return d >= 0;
	}
	if (role == ColorRole) {
		setColor(index, value.value<QColor>());
		return true;
	}
	return false;
}


Qt::ItemFlags DirectoryTreeModel::flags(const QModelIndex & index) const {
	if (!index.isValid())
		return Qt::ItemIsDropEnabled;
	return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsDropEnabled;
}


QStringList DirectoryTreeModel::mimeTypes() const {
	return { "text/uri-list" };
}


Qt::DropActions DirectoryTreeModel::supportedDropActions() const {
	return Qt::CopyAction | Qt::LinkAction;
}


bool DirectoryTreeModel::canDropMimeData(const QMimeData * data, Qt::DropAction action, int, int,
										 const QModelIndex &) const
{
	if (data == nullptr || !(supportedDropActions() & action))
		return false;
	const QList<QUrl> urls = data->urls();
	return std::any_of(urls.begin(), urls.end(), [](const QUrl & url) { return url.isLocalFile(); });
}


bool DirectoryTreeModel::dropMimeData(const QMimeData * data, Qt::DropAction action, int row, int column,
									  const QModelIndex & parent)
{
	FUNCID(DirectoryTreeModel::dropMimeData);
	if (!canDropMimeData(data, action, row, column, parent))
		return false;
	bool added = false;
	for (const QUrl & url : data->urls()) {
		if (!url.isLocalFile()) {
			ZEB::reportWarning(ZEB::MessageFormat("'%1' is not a local file or directory and is not added.")
							   .arg(url.toString().toStdString()).str(), FUNC_ID);
			continue;
		}
		const QFileInfo info(url.toLocalFile());
		// a dropped file stands for its folder
		added = addDirectory(info.isFile() ? info.absolutePath() : info.absoluteFilePath()) || added;
	}
	return added;
}


QString DirectoryTreeModel::absolutePath(const QModelIndex & index) const {
	return index.isValid() ? nodeOf(index)->m_absolutePath : QString();
}


void DirectoryTreeModel::setColor(const QModelIndex & index, const QColor & color) {
	if (!index.isValid())
		return;
	const Node * n = nodeOf(index);
	const int d = directoryIndexOf(n);
	if (d >= 0 && color != this->color(n))
		m_handler.setSubDirectory(d, n->m_relativePath, color, isChecked(n));
}


void DirectoryTreeModel::setExpanded(const QModelIndex & index, bool expanded) {
	if (!index.isValid() || expanded == isExpanded(index))
		return;
	const Node * n = nodeOf(index);
	const int d = directoryIndexOf(n);
	if (d >= 0)
		m_handler.setSubDirectoryExpanded(d, n->m_relativePath, expanded);
}


bool DirectoryTreeModel::isExpanded(const QModelIndex & index) const {
	if (!index.isValid())
		return false;
	const Node * n = nodeOf(index);
	return directoryOf(n).m_expandedSubDirectories.count(n->m_relativePath) != 0;
}


bool DirectoryTreeModel::addDirectory(const QString & path) {
	FUNCID(DirectoryTreeModel::addDirectory);
	if (!QFileInfo(path).isDir()) {
		ZEB::reportWarning(ZEB::MessageFormat("'%1' is not an existing directory and is not added.")
						   .arg(path.toStdString()).str(), FUNC_ID);
		return false;
	}
	return m_handler.addDirectory(path);
}


bool DirectoryTreeModel::checkDirectory(const QString & path) {
	// addDirectory() reports what cannot be added
	if (!QFileInfo(path).isDir() || !m_handler.isValid())
		return addDirectory(path);
	const QString folder = ProjectRelativePath::normalized(path);
	const std::vector<Directory> & directories = m_handler.project().m_directories;
	for (std::size_t i = 0; i < directories.size(); ++i) {
		const QString relative = QDir(directories[i].m_path).relativeFilePath(folder);
		if (relative == ".." || relative.startsWith("../"))
			continue;
		const Directory::SubDirectory sub = directories[i].m_subDirectories.value(relative);
		if (!sub.m_checked)
			m_handler.setSubDirectory(static_cast<int>(i), relative, sub.m_color, true);
		return true;
	}
	if (!addDirectory(folder))
		return false;
	m_handler.setSubDirectory(static_cast<int>(directories.size()) - 1, TOP_LEVEL_KEY, QColor(), true);
	return true;
}


void DirectoryTreeModel::removeDirectories(int row, int count) {
	m_handler.removeDirectories(row, count);
}


QColor DirectoryTreeModel::colorOf(const QString & absolutePath) const {
	if (!m_handler.isValid())
		return QColor();
	for (const Directory & d : m_handler.project().m_directories) {
		for (auto it = d.m_subDirectories.constBegin(); it != d.m_subDirectories.constEnd(); ++it) {
			if (it.value().m_color.isValid() && joinedPath(d.m_path, it.key()) == absolutePath)
				return it.value().m_color;
		}
	}
	return QColor();
}


void DirectoryTreeModel::refresh() {
	for (const std::unique_ptr<Node> & top : m_root->m_children)
		relistTree(top.get());
	// the colours are shown or not after UserColoring
	emitDataChangedTree(m_root.get());
	updateCheckedState();
	updateWatches();
}


void DirectoryTreeModel::onProjectAboutToBeClosed() {
	beginResetModel();
	m_resetting = true;
}


void DirectoryTreeModel::onProjectChanged() {
	if (!m_resetting)
		beginResetModel();
	m_reported.clear();
	buildTopLevel();
	endResetModel();
	m_resetting = false;
	updateCheckedState();
	updateWatches();
}


void DirectoryTreeModel::onProjectModified(int modificationType) {
	switch (modificationType) {
		case ProjectHandler::DirectoriesModified :
			syncTopLevel();
			break;
		case ProjectHandler::SubDirectoriesModified :
			emitDataChangedTree(m_root.get());
			break;
		case ProjectHandler::AllModified :
			syncTopLevel();
			emitDataChangedTree(m_root.get());
			break;
		default :
			return;
	}
	updateCheckedState();
	updateWatches();
}


void DirectoryTreeModel::onDirectoryChanged(const QString & path) {
	std::vector<Node *> changed;
	std::function<void(Node *)> collect = [&](Node * n) {
		if (!n->m_listed)
			return;
		if (n->m_absolutePath == path)
			changed.push_back(n);
		for (const std::unique_ptr<Node> & c : n->m_children)
			collect(c.get());
	};
	for (const std::unique_ptr<Node> & top : m_root->m_children)
		collect(top.get());
	// nodes of the same path lie in different top-level directories, never below one another
	for (Node * n : changed)
		relist(n);
	updateCheckedState();
	updateWatches();
}


DirectoryTreeModel::Node * DirectoryTreeModel::nodeOf(const QModelIndex & index) const {
	return index.isValid() ? static_cast<Node *>(index.internalPointer()) : m_root.get();
}


QModelIndex DirectoryTreeModel::indexOf(const Node * node) const {
	if (node == nullptr || node == m_root.get())
		return QModelIndex();
	return createIndex(node->row(), 0, const_cast<Node *>(node));
}


int DirectoryTreeModel::directoryIndexOf(const Node * node) const {
	while (node->m_parent != m_root.get())
		node = node->m_parent;
	// found by path, not by row: between a change of the project's list and the model's update
	// (other receivers of the handler's signal come first) the rows may differ from it
	const std::vector<Directory> & dirs = m_handler.project().m_directories;
	for (std::size_t i = 0; i < dirs.size(); ++i)
		if (dirs[i].m_path == node->m_absolutePath)
			return static_cast<int>(i);
	return -1;
}


const Directory & DirectoryTreeModel::directoryOf(const Node * node) const {
	static const Directory NONE;
	const int i = directoryIndexOf(node);
	return i < 0 ? NONE : m_handler.project().m_directories[static_cast<std::size_t>(i)];
}


bool DirectoryTreeModel::isChecked(const Node * node) const {
	const Directory & d = directoryOf(node);
	const auto it = d.m_subDirectories.constFind(node->m_relativePath);
	return it != d.m_subDirectories.constEnd() && it.value().m_checked;
}


QColor DirectoryTreeModel::color(const Node * node) const {
	return directoryOf(node).m_subDirectories.value(node->m_relativePath).m_color;
}


void DirectoryTreeModel::buildTopLevel() {
	m_root->m_children.clear();
	if (!m_handler.isValid())
		return;
	for (const Directory & d : m_handler.project().m_directories)
		m_root->m_children.emplace_back(newTopLevelNode(d.m_path));
}


DirectoryTreeModel::Node * DirectoryTreeModel::newTopLevelNode(const QString & path) {
	FUNCID(DirectoryTreeModel::newTopLevelNode);
	if (!QFileInfo(path).isDir())
		reportOnce(ZEB::MessageFormat("Directory '%1' does not exist.").arg(path.toStdString()).str(), FUNC_ID);
	const QString name = QFileInfo(path).fileName();
	// the root folder has no name of its own
	return new Node(m_root.get(), name.isEmpty() ? path : name, TOP_LEVEL_KEY, path);
}


namespace {

/*! Makes the children of a node the nodes of paths, in this order, with as few row changes as
	possible: nodes whose path is still listed keep their place (and their listed children),
	the others are removed, and create(i) makes the node for paths[i] where one is missing.
	The model's begin/end functions are called through the callbacks.
*/
template <typename NodeT, typename RemoveRows, typename InsertRows>
void mergeChildren(NodeT * parent, const QStringList & paths, RemoveRows removeRows, InsertRows insertRows) {
	auto & children = parent->m_children;
	QHash<QString, int> position;
	for (int i = 0; i < paths.size(); ++i)
		position.insert(paths[i], i);
	// keep the nodes that are still there, as long as they stay in the order of paths
	std::vector<bool> keep(children.size(), false);
	int last = -1;
	for (std::size_t i = 0; i < children.size(); ++i) {
		const auto it = position.constFind(children[i]->m_absolutePath);
		if (it != position.constEnd() && it.value() > last) {
			keep[i] = true;
			last = it.value();
		}
	}
	for (int i = static_cast<int>(children.size()) - 1; i >= 0; ) {
		if (keep[static_cast<std::size_t>(i)]) {
			--i;
			continue;
		}
		int first = i;
		while (first > 0 && !keep[static_cast<std::size_t>(first - 1)])
			--first;
		removeRows(first, i);
		i = first - 1;
	}
	for (int i = 0; i < paths.size(); ) {
		const bool present = i < static_cast<int>(children.size());
		if (present && children[static_cast<std::size_t>(i)]->m_absolutePath == paths[i]) {
			++i;
			continue;
		}
		// the new paths up to the next node that is kept
		const QString next = present ? children[static_cast<std::size_t>(i)]->m_absolutePath : QString();
		int end = i;
		while (end < paths.size() && (!present || paths[end] != next))
			++end;
		insertRows(i, end);
		i = end;
	}
}

} // namespace


void DirectoryTreeModel::syncTopLevel() {
	QStringList paths;
	if (m_handler.isValid())
		for (const Directory & d : m_handler.project().m_directories)
			paths.append(d.m_path);
	Node * root = m_root.get();
	mergeChildren(root, paths,
		[this, root](int first, int last) {
			beginRemoveRows(QModelIndex(), first, last);
			root->m_children.erase(root->m_children.begin() + first, root->m_children.begin() + last + 1);
			endRemoveRows();
		},
		[this, root, &paths](int first, int end) {
			beginInsertRows(QModelIndex(), first, end - 1);
			for (int i = first; i < end; ++i)
				root->m_children.emplace(root->m_children.begin() + i, newTopLevelNode(paths[i]));
			endInsertRows();
		});
}


void DirectoryTreeModel::relist(Node * node) {
	FUNCID(DirectoryTreeModel::relist);
	QFileInfoList folders;
	const QFileInfo info(node->m_absolutePath);
	// a folder that cannot be listed stays unlisted, so that it is tried again when it is back
	node->m_listed = false;
	if (!info.isDir()) {
		reportOnce(ZEB::MessageFormat("Directory '%1' does not exist.").arg(node->m_absolutePath.toStdString()).str(),
				   FUNC_ID);
	}
	// without execute permission the names can be read, but not what they are
	else if (!info.isReadable() || !info.isExecutable()) {
		reportOnce(ZEB::MessageFormat("Directory '%1' cannot be read (missing permissions).")
				   .arg(node->m_absolutePath.toStdString()).str(), FUNC_ID);
	}
	else {
		node->m_listed = true;
		const QStringList & excluded = Settings::instance().m_excludedDirNames;
		// System lists broken symbolic links, too, so that they can be reported
		const QFileInfoList entries = QDir(node->m_absolutePath).entryInfoList(QDir::Dirs | QDir::System
																				| QDir::NoDotAndDotDot);
		for (const QFileInfo & e : entries) {
			if (e.isSymLink() && !e.exists())
				reportOnce(ZEB::MessageFormat("Broken symbolic link '%1' is not shown in the directory tree.")
						   .arg(e.absoluteFilePath().toStdString()).str(), FUNC_ID);
			else if (isShown(e, excluded))
				folders.append(e);
		}
		sortByName(folders);
	}

	QStringList paths;
	for (const QFileInfo & f : folders)
		paths.append(joinedPath(node->m_absolutePath, f.fileName()));
	const QModelIndex parentIndex = indexOf(node);
	mergeChildren(node, paths,
		[this, node, &parentIndex](int first, int last) {
			beginRemoveRows(parentIndex, first, last);
			node->m_children.erase(node->m_children.begin() + first, node->m_children.begin() + last + 1);
			endRemoveRows();
		},
		[this, node, &parentIndex, &folders, &paths](int first, int end) {
			beginInsertRows(parentIndex, first, end - 1);
			for (int i = first; i < end; ++i)
				node->m_children.emplace(node->m_children.begin() + i, newSubFolderNode(node, folders[i], paths[i]));
			endInsertRows();
		});
	// the content of the folders below may have changed as well
	for (const std::unique_ptr<Node> & c : node->m_children)
		c->m_hasSubFolders = -1;
}


DirectoryTreeModel::Node * DirectoryTreeModel::newSubFolderNode(Node * parent, const QFileInfo & folder,
																 const QString & path) const
{
	const QString name = folder.fileName();
	const QString relative = parent->m_relativePath == TOP_LEVEL_KEY ? name : parent->m_relativePath + "/" + name;
	Node * node = new Node(parent, name, relative, path);
	if (folder.isSymLink()) {
		const QString target = folder.canonicalFilePath();
		for (const Node * a = parent; a != m_root.get() && !node->m_loop; a = a->m_parent)
			node->m_loop = QFileInfo(a->m_absolutePath).canonicalFilePath() == target;
	}
	return node;
}


void DirectoryTreeModel::relistTree(Node * node) {
	node->m_hasSubFolders = -1;
	if (node->m_listed)
		relist(node);
	for (const std::unique_ptr<Node> & c : node->m_children)
		relistTree(c.get());
}


void DirectoryTreeModel::emitDataChangedTree(Node * node) {
	if (node->m_children.empty())
		return;
	const QModelIndex parent = indexOf(node);
	emit dataChanged(index(0, 0, parent), index(static_cast<int>(node->m_children.size()) - 1, 0, parent),
					 { Qt::CheckStateRole, Qt::DecorationRole, ColorRole });
	for (const std::unique_ptr<Node> & c : node->m_children)
		emitDataChangedTree(c.get());
}


void DirectoryTreeModel::updateCheckedState() {
	FUNCID(DirectoryTreeModel::updateCheckedState);
	QStringList checked;
	if (m_handler.isValid()) {
		for (const Directory & d : m_handler.project().m_directories) {
			// a missing top-level directory is reported once for all of its folders
			if (!QFileInfo(d.m_path).isDir())
				continue;
			for (auto it = d.m_subDirectories.constBegin(); it != d.m_subDirectories.constEnd(); ++it) {
				if (!it.value().m_checked)
					continue;
				const QString path = joinedPath(d.m_path, it.key());
				// a missing folder keeps its check mark in the session; it counts again when it is back
				if (!QFileInfo(path).isDir())
					reportOnce(ZEB::MessageFormat("Checked directory '%1' does not exist.").arg(path.toStdString()).str(),
							   FUNC_ID);
				else if (!checked.contains(path))
					checked.append(path);
			}
		}
	}
	const QStringList before = m_checked;
	m_checked = checked;
	for (const QString & path : before)
		if (!checked.contains(path))
			emit directoryUnchecked(path);
	for (const QString & path : checked)
		if (!before.contains(path))
			emit directoryChecked(path);
}


void DirectoryTreeModel::updateWatches() {
	FUNCID(DirectoryTreeModel::updateWatches);
	QSet<QString> wanted(m_checked.begin(), m_checked.end());
	std::function<void(const Node *)> collect = [&](const Node * n) {
		if (n->m_listed && QFileInfo(n->m_absolutePath).isDir())
			wanted.insert(n->m_absolutePath);
		for (const std::unique_ptr<Node> & c : n->m_children)
			collect(c.get());
	};
	for (const std::unique_ptr<Node> & top : m_root->m_children)
		collect(top.get());

	const QStringList watched = m_watcher.directories();
	const QSet<QString> current(watched.begin(), watched.end());
	const QSet<QString> obsolete = current - wanted;
	if (!obsolete.isEmpty())
		m_watcher.removePaths(obsolete.values());
	const QSet<QString> added = wanted - current;
	if (added.isEmpty())
		return;
	for (const QString & path : m_watcher.addPaths(added.values()))
		reportOnce(ZEB::MessageFormat("Changes in directory '%1' cannot be followed; use refresh to list it again.")
				   .arg(path.toStdString()).str(), FUNC_ID);
}


void DirectoryTreeModel::reportOnce(const std::string & message, const char * functionId) {
	const QString key = QString::fromStdString(message);
	if (m_reported.contains(key))
		return;
	m_reported.insert(key);
	ZEB::reportWarning(message, functionId);
}

} // namespace OVP
