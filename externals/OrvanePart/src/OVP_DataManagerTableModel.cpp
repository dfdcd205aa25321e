#include "OVP_DataManagerTableModel.h"

#include <algorithm>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "OVP_Settings.h"

namespace OVP {

namespace {

/*! The path of a file with symbolic links resolved; the path itself when it cannot be resolved
	(a broken link).
*/
QString fileIdentity(const QString & path) {
	const QString canonical = QFileInfo(path).canonicalFilePath();
	return canonical.isEmpty() ? path : canonical;
}

/*! The absolute form of a path in which folders and files are compared, "." and ".." resolved. */
QString normalizedPath(const QString & path) {
	return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

/*! True when nothing is at the path any more, not even a broken link. */
bool vanished(const QString & path) {
	const QFileInfo info(path);
	return !info.exists() && !info.isSymLink();
}

/*! The text of a failure for the tool tip: the newest message first, then its causes. */
QString failureText(const ZEB::Exception & ex) {
	QStringList lines;
	const std::vector<ZEB::Exception::MsgInfo> & messages = ex.messages();
	for (auto it = messages.rbegin(); it != messages.rend(); ++it)
		lines << QString::fromStdString(it->m_what).trimmed();
	return lines.join('\n');
}

} // namespace


DataManagerTableModel::DataManagerTableModel(QObject * parent) :
	QAbstractTableModel(parent)
{
	m_changeTimer.setSingleShot(true);
	m_changeTimer.setInterval(CHANGE_DELAY_MS);
	m_batchTimer.setSingleShot(true);
	m_batchTimer.setInterval(0);
	connect(&m_changeTimer, &QTimer::timeout, this, &DataManagerTableModel::processChanges);
	connect(&m_batchTimer, &QTimer::timeout, this, [this]() {
		QElapsedTimer clock;
		clock.start();
		readHeaders([&clock]() { return clock.elapsed() < BATCH_MS; });
	});
	auto changed = [this](QSet<QString> & paths, const QString & path) {
		paths.insert(path);
		if (!m_changeTimer.isActive())
			m_changeTimer.start();
	};
	connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
			[this, changed](const QString & path) { changed(m_changedDirectories, path); });
	connect(&m_watcher, &QFileSystemWatcher::fileChanged, this,
			[this, changed](const QString & path) { changed(m_changedFiles, path); });
}


DataManagerTableModel::~DataManagerTableModel() = default;


int DataManagerTableModel::rowCount(const QModelIndex & parent) const {
	return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}


int DataManagerTableModel::columnCount(const QModelIndex & parent) const {
	return parent.isValid() ? 0 : NUM_COLUMNS;
}


QVariant DataManagerTableModel::data(const QModelIndex & index, int role) const {
	if (!index.isValid() || index.row() >= rowCount())
		return QVariant();
	const DataCollection & c = collection(index.row());
	switch (role) {
		case Qt::DisplayRole:
			switch (index.column()) {
				case ColDataFormat:		return DataCollection::dataFormatText(c.m_dataFormat);
				case ColName:			return c.fileName();
				case ColQuantity:		return c.quantityText();
				case ColValueUnit:		return c.m_valueUnit;
				case ColTimeUnit:		return c.m_timeUnit;
				case ColLastChanged:	return c.m_lastModified.toString("yyyy-MM-dd hh:mm:ss");
				case ColFileSize:		return DataCollection::sizeText(c.m_size);
				case ColPath:			return QDir::toNativeSeparators(c.m_path);
				default:				return QVariant();
			}
		case Qt::UserRole:
			switch (index.column()) {
				case ColDataFormat:		return int(c.m_dataFormat);
				case ColColor: {
					const ListedDirectory * d = findDirectory(c.m_directory);
					return d != nullptr && d->m_color.isValid() ? d->m_color.name() : QString();
				}
				case ColName:			return c.fileName();
				case ColQuantity:		return c.quantityText();
				case ColValueUnit:		return c.m_valueUnit;
				case ColTimeUnit:		return c.m_timeUnit;
				case ColLastChanged:	return c.m_lastModified;
				case ColFileSize:		return c.m_size;
				case ColPath:			return c.m_path;
				default:				return QVariant();
			}
		case Qt::DecorationRole:
			if (index.column() == ColColor) {
				const ListedDirectory * d = findDirectory(c.m_directory);
				if (d != nullptr && d->m_color.isValid())
					return d->m_color;
			}
			return QVariant();
		case Qt::ToolTipRole:
			if (index.column() == ColQuantity && c.isReferenceCollection())
				return c.m_dataSetNames.join('\n');
			return QVariant();
		case Qt::TextAlignmentRole:
			if (index.column() == ColFileSize)
				return int(Qt::AlignRight | Qt::AlignVCenter);
			return QVariant();
		default:
			return QVariant();
	}
}


QVariant DataManagerTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
	if (role != Qt::DisplayRole)
		return QVariant();
	if (orientation == Qt::Vertical)
		return QString("%1").arg(section + 1);
	switch (section) {
		case ColName:			return tr("Name");
		case ColQuantity:		return tr("Quantity");
		case ColValueUnit:		return tr("Value unit");
		case ColTimeUnit:		return tr("Time unit");
		case ColLastChanged:	return tr("Last changed");
		case ColFileSize:		return tr("File size");
		case ColPath:			return tr("Path");
		default:				return QVariant();
	}
}


Qt::ItemFlags DataManagerTableModel::flags(const QModelIndex & index) const {
	if (!index.isValid())
		return Qt::NoItemFlags;
	return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled;
}


QStringList DataManagerTableModel::mimeTypes() const {
	return QStringList() << DataSetMimeData::MIME_TYPE;
}


QMimeData * DataManagerTableModel::mimeData(const QModelIndexList & indexes) const {
	return DataSetMimeData::create(dataSets(indexes));
}


std::vector<DataSetMimeData::DataSet> DataManagerTableModel::dataSets(const QModelIndexList & indexes) const {
	std::vector<int> rows;
	for (const QModelIndex & index : indexes)
		if (index.isValid() && index.row() < rowCount())
			rows.push_back(index.row());
	std::sort(rows.begin(), rows.end());
	rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
	std::vector<DataSetMimeData::DataSet> dataSets;
	for (int row : rows) {
		const DataCollection & c = collection(row);
		if (!c.isReferenceCollection()) {
			dataSets.push_back(DataSetMimeData::DataSet{ c.m_path, DataSetMimeData::NO_COLUMN });
			continue;
		}
		for (std::uint32_t column : c.m_dataSetColumns)
			dataSets.push_back(DataSetMimeData::DataSet{ c.m_path, column });
	}
	return dataSets;
}


Qt::DropActions DataManagerTableModel::supportedDragActions() const {
	return Qt::CopyAction;
}


QStringList DataManagerTableModel::listedDirectories() const {
	QStringList paths;
	for (const ListedDirectory & d : m_directories)
		paths << d.m_path;
	return paths;
}


int DataManagerTableModel::rowOfFile(const QString & path) const {
	const QString wanted = normalizedPath(path);
	for (std::size_t i = 0; i < m_rows.size(); ++i)
		if (m_rows[i].m_path == wanted)
			return static_cast<int>(i);
	return -1;
}


void DataManagerTableModel::setListedDirectories(const QStringList & directories) {
	QStringList wanted;
	for (const QString & d : directories)
		if (!d.isEmpty())
			wanted << normalizedPath(d);
	for (const QString & listed : listedDirectories())
		if (!wanted.contains(listed))
			removeDirectory(listed);
	for (const QString & d : wanted)
		addDirectory(d);
}


void DataManagerTableModel::addDirectory(const QString & directory, const QColor & color) {
	if (directory.isEmpty())
		return;
	const QString path = normalizedPath(directory);
	if (findDirectory(path) != nullptr)
		return;
	ListedDirectory listed;
	listed.m_path = path;
	listed.m_color = color;
	m_directories.push_back(listed);
	m_watcher.addPath(path);
	listDirectory(m_directories.back());
	if (!m_pending.empty() && !m_batchTimer.isActive())
		m_batchTimer.start();
}


void DataManagerTableModel::removeDirectory(const QString & directory) {
	const QString path = normalizedPath(directory);
	auto it = std::find_if(m_directories.begin(), m_directories.end(),
						   [&path](const ListedDirectory & d) { return d.m_path == path; });
	if (it == m_directories.end())
		return;
	removeRowsWhere([&path](const DataCollection & c) { return c.m_directory == path; });
	QStringList forgotten;
	for (auto f = m_files.begin(); f != m_files.end();) {
		if (f->m_directory == path) {
			forgotten << f.key();
			m_rejected.remove(f.key());
			m_identities.remove(f->m_identity);
			f = m_files.erase(f);
		}
		else
			++f;
	}
	if (!forgotten.isEmpty())
		m_watcher.removePaths(forgotten);
	m_watcher.removePath(path);
	m_directories.erase(it);
	m_reader.dropUnusedGeometries();
	// files that were shown through the removed folder only may be found through another one
	for (ListedDirectory & d : m_directories)
		if (d.m_skippedDuplicates)
			listDirectory(d);
	if (!m_pending.empty() && !m_batchTimer.isActive())
		m_batchTimer.start();
}


void DataManagerTableModel::setDirectoryColor(const QString & directory, const QColor & color) {
	ListedDirectory * d = findDirectory(normalizedPath(directory));
	if (d == nullptr || d->m_color == color)
		return;
	d->m_color = color;
	for (std::size_t i = 0; i < m_rows.size(); ++i)
		if (m_rows[i].m_directory == d->m_path)
			emit dataChanged(index(int(i), ColColor), index(int(i), ColColor));
}


void DataManagerTableModel::readPendingHeaders() {
	m_batchTimer.stop();
	readHeaders([]() { return true; });
}


void DataManagerTableModel::relistDirectories() {
	for (ListedDirectory & d : m_directories)
		listDirectory(d);
	if (!m_pending.empty() && !m_batchTimer.isActive())
		m_batchTimer.start();
}


void DataManagerTableModel::readHeaders(const std::function<bool()> & more) {
	std::vector<DataCollection> newRows;
	while (!m_pending.empty() && more()) {
		const QString path = m_pending.front();
		m_pending.pop_front();
		auto it = m_files.find(path);
		if (it != m_files.end() && it->m_state == KnownFile::S_PENDING)
			checkFile(path, newRows);
	}
	appendRows(newRows);
	if (!m_pending.empty())
		m_batchTimer.start();
	else
		emit headersRead();
}


QStringList DataManagerTableModel::listDirectory(ListedDirectory & directory) {
	FUNCID(DataManagerTableModel::listDirectory);
	QStringList found;
	try {
		found = m_lister.files(directory.m_path, Settings::instance().m_fileNameFilter);
	}
	catch (ZEB::Exception & ex) {
		const QString message = failureText(ex);
		if (message != directory.m_error) {
			directory.m_error = message;
			ZEB::reportWarning(ZEB::MessageFormat("Files of directory '%1' cannot be listed: %2")
							   .arg(directory.m_path.toStdString()).arg(message.simplified().toStdString()).str(), FUNC_ID);
		}
		// the folder vanished or became unreadable: its files are gone with it
		for (const QString & path : m_files.keys())
			if (m_files[path].m_directory == directory.m_path)
				forgetFile(path, false);
		return QStringList();
	}
	directory.m_error.clear();
	directory.m_skippedDuplicates = false;

	const QSet<QString> foundSet(found.begin(), found.end());
	QStringList stillThere;
	for (const QString & path : m_files.keys()) {
		if (m_files[path].m_directory != directory.m_path)
			continue;
		if (foundSet.contains(path))
			stillThere << path;
		else
			forgetFile(path, vanished(path));	// a file that no longer matches the patterns leaves quietly
	}
	QStringList newPaths;
	for (const QString & path : found) {
		if (m_files.contains(path))
			continue;
		const QString identity = fileIdentity(path);
		if (m_identities.contains(identity)) {
			directory.m_skippedDuplicates = true;
			continue;
		}
		KnownFile file;
		file.m_directory = directory.m_path;
		file.m_identity = identity;
		m_files.insert(path, file);
		m_identities.insert(identity);
		m_pending.push_back(path);
		newPaths << path;
	}
	if (!newPaths.isEmpty())
		m_watcher.addPaths(newPaths);
	return stillThere;
}


void DataManagerTableModel::checkFile(const QString & path, std::vector<DataCollection> & newRows) {
	KnownFile & file = m_files[path];
	const QFileInfo info(path);
	if (!info.exists() && !info.isSymLink()) {
		forgetFile(path, true);
		return;
	}
	if (file.m_state != KnownFile::S_PENDING && file.m_lastModified == info.lastModified() && file.m_size == info.size())
		return;
	file.m_lastModified = info.lastModified();
	file.m_size = info.size();
	if (!DataCollectionReader::isDataFile(path)) {
		if (file.m_state == KnownFile::S_LISTED)
			removeRowsWhere([&path](const DataCollection & c) { return c.m_path == path; });
		m_rejected.remove(path);
		file.m_state = KnownFile::S_NO_DATA;
		return;
	}
	try {
		DataCollection c = m_reader.read(path);
		c.m_directory = file.m_directory;
		if (file.m_state == KnownFile::S_LISTED) {
			const int row = rowOfFile(path);
			m_rows[static_cast<std::size_t>(row)] = c;
			emit dataChanged(index(row, 0), index(row, NUM_COLUMNS - 1));
		}
		else {
			m_rejected.remove(path);
			file.m_state = KnownFile::S_LISTED;
			newRows.push_back(c);
		}
	}
	catch (ZEB::Exception & ex) {
		if (vanished(path)) {
			forgetFile(path, true);
			return;
		}
		if (file.m_state == KnownFile::S_LISTED)
			removeRowsWhere([&path](const DataCollection & c) { return c.m_path == path; });
		file.m_state = KnownFile::S_REJECTED;
		reject(path, ex);
	}
}


void DataManagerTableModel::reject(const QString & path, const ZEB::Exception & ex) {
	FUNCID(DataManagerTableModel::reject);
	const QString message = failureText(ex);
	QString & stored = m_rejected[path];
	if (stored == message)
		return;
	stored = message;
	ZEB::reportWarning(ZEB::MessageFormat("File '%1' is not listed: %2")
					   .arg(path.toStdString()).arg(message.simplified().toStdString()).str(), FUNC_ID);
}


void DataManagerTableModel::forgetFile(const QString & path, bool reportVanished) {
	FUNCID(DataManagerTableModel::forgetFile);
	auto it = m_files.find(path);
	if (it == m_files.end())
		return;
	if (it->m_state == KnownFile::S_LISTED) {
		removeRowsWhere([&path](const DataCollection & c) { return c.m_path == path; });
		if (reportVanished)
			ZEB::reportWarning(ZEB::MessageFormat("File '%1' no longer exists and is removed from the list.")
							   .arg(path.toStdString()).str(), FUNC_ID);
	}
	m_rejected.remove(path);
	m_identities.remove(it->m_identity);
	m_files.erase(it);
	m_watcher.removePath(path);
}


void DataManagerTableModel::removeRowsWhere(const std::function<bool(const DataCollection &)> & predicate) {
	int last = rowCount() - 1;
	while (last >= 0) {
		if (!predicate(m_rows[static_cast<std::size_t>(last)])) {
			--last;
			continue;
		}
		int first = last;
		while (first > 0 && predicate(m_rows[static_cast<std::size_t>(first - 1)]))
			--first;
		beginRemoveRows(QModelIndex(), first, last);
		m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
		endRemoveRows();
		last = first - 1;
	}
}


void DataManagerTableModel::appendRows(std::vector<DataCollection> & rows) {
	if (rows.empty())
		return;
	beginInsertRows(QModelIndex(), rowCount(), rowCount() + static_cast<int>(rows.size()) - 1);
	std::move(rows.begin(), rows.end(), std::back_inserter(m_rows));
	endInsertRows();
	rows.clear();
}


void DataManagerTableModel::rewatch(const QSet<QString> & files) {
	const QStringList watchedFiles = m_watcher.files();
	const QStringList watchedDirs = m_watcher.directories();
	const QSet<QString> watched = QSet<QString>(watchedFiles.begin(), watchedFiles.end())
								  + QSet<QString>(watchedDirs.begin(), watchedDirs.end());
	QStringList missing;
	for (const ListedDirectory & d : m_directories)
		if (!watched.contains(d.m_path))
			missing << d.m_path;
	for (const QString & path : files)
		if (!watched.contains(path) && m_files.contains(path) && QFileInfo::exists(path))
			missing << path;
	if (!missing.isEmpty())
		m_watcher.addPaths(missing);
}


void DataManagerTableModel::processChanges() {
	const QSet<QString> directories = m_changedDirectories;
	m_changedDirectories.clear();
	QSet<QString> files = m_changedFiles;
	m_changedFiles.clear();
	for (const QString & path : directories) {
		ListedDirectory * d = findDirectory(path);
		if (d == nullptr)
			continue;
		for (const QString & file : listDirectory(*d))
			files.insert(file);
	}
	std::vector<DataCollection> newRows;
	for (const QString & path : files) {
		auto it = m_files.find(path);
		// waiting files are read in their turn
		if (it != m_files.end() && it->m_state != KnownFile::S_PENDING)
			checkFile(path, newRows);
	}
	appendRows(newRows);
	rewatch(files);
	if (!m_pending.empty() && !m_batchTimer.isActive())
		m_batchTimer.start();
}


DataManagerTableModel::ListedDirectory * DataManagerTableModel::findDirectory(const QString & path) {
	for (ListedDirectory & d : m_directories)
		if (d.m_path == path)
			return &d;
	return nullptr;
}


const DataManagerTableModel::ListedDirectory * DataManagerTableModel::findDirectory(const QString & path) const {
	for (const ListedDirectory & d : m_directories)
		if (d.m_path == path)
			return &d;
	return nullptr;
}

} // namespace OVP
