#ifndef OVP_DataManagerTableModelH
#define OVP_DataManagerTableModelH

#include <deque>
#include <functional>
#include <vector>

#include <QAbstractTableModel>
#include <QColor>
#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include "OVP_DataCollection.h"
#include "OVP_DataCollectionReader.h"
#include "OVP_DataSetMimeData.h"
#include "OVP_DirectoryLister.h"

namespace ZEB {
class Exception;
}

namespace OVP {

/*! The data manager's file table: one row per data file found in the listed folders (each
	folder without its sub-folders), for the files that match the FileNameFilter patterns of the
	settings at the time of listing.

	Only headers are read, in insertion order, in batches from the event loop so that the window
	stays responsive; headersRead() tells when no file waits any more. A file whose header fails
	its checks is not listed: its message goes to the log once and is kept in rejectedFiles().
	A file is never listed twice, not even through two paths (symbolic links).

	The model follows the file system: new files appear, changed files are read again (a file
	that fails now disappears), deleted files disappear. Changes are collected for
	CHANGE_DELAY_MS and then handled together, so that a simulation writing constantly does not
	flood the event loop.

	Qt::UserRole gives the raw value of a cell for sorting (bytes, date and time, data format
	number); rows are dragged as DataSetMimeData.
*/
class DataManagerTableModel : public QAbstractTableModel {
	Q_OBJECT
public:
	/*! The columns of the table. */
	enum Column {
		ColDataFormat,
		ColColor,
		ColName,
		ColQuantity,
		ColValueUnit,
		ColTimeUnit,
		ColLastChanged,
		ColFileSize,
		ColPath,
		NUM_COLUMNS
	};

	/*! Time during which changes in the file system are collected before they are handled. */
	static constexpr int CHANGE_DELAY_MS = 200;
	/*! Time spent reading headers before the event loop gets its turn again. */
	static constexpr int BATCH_MS = 30;

	explicit DataManagerTableModel(QObject * parent = nullptr);
	~DataManagerTableModel() override;

	int rowCount(const QModelIndex & parent = QModelIndex()) const override;
	int columnCount(const QModelIndex & parent = QModelIndex()) const override;
	/*! Display texts, the raw values as Qt::UserRole, the folder colour as decoration of the
		colour column, the data set names of a reference collection as tool tip of its quantity.
	*/
	QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
	/*! Column titles, and the row number plus one as vertical header. */
	QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
	/*! Items are selectable, enabled and draggable, never editable. */
	Qt::ItemFlags flags(const QModelIndex & index) const override;
	QStringList mimeTypes() const override;
	/*! The data sets of the rows, as dataSets() gives them. */
	QMimeData * mimeData(const QModelIndexList & indexes) const override;
	/*! The data sets of the rows of indexes, each row once and in row order: the file, a
		reference collection with each of its columns.
	*/
	std::vector<DataSetMimeData::DataSet> dataSets(const QModelIndexList & indexes) const;
	Qt::DropActions supportedDragActions() const override;

	/*! The listed folders (absolute, normalised), in the order they were added. */
	QStringList listedDirectories() const;
	/*! The collection of a row (0 <= row < rowCount()). */
	const DataCollection & collection(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
	/*! The row of a file, -1 when it is not listed. */
	int rowOfFile(const QString & path) const;
	/*! The files of the listed folders that failed their header check, by absolute path, with
		the reason (for the tool tip of the file).
	*/
	const QMap<QString, QString> & rejectedFiles() const { return m_rejected; }
	/*! True while files wait for their header to be read. */
	bool isReadingHeaders() const { return !m_pending.empty(); }

public slots:
	/*! Lists exactly these folders: removes the others, adds the new ones in this order. */
	void setListedDirectories(const QStringList & directories);
	/*! Lists the files of a folder, shown with its colour; a folder listed already stays as it
		is, an empty path is ignored. A folder that cannot be read gives one message and no rows.
	*/
	void addDirectory(const QString & directory, const QColor & color = QColor());
	/*! Removes the rows of a folder and stops following it. */
	void removeDirectory(const QString & directory);
	/*! Changes the colour shown for the files of a listed folder. */
	void setDirectoryColor(const QString & directory, const QColor & color);
	/*! Reads all headers still waiting, at once. */
	void readPendingHeaders();
	/*! Lists every listed folder again, after the FileNameFilter of the settings changed: files
		that no longer match leave, newly matching ones are read.
	*/
	void relistDirectories();

signals:
	/*! No file waits for its header any more. */
	void headersRead();

private:
	/*! A listed folder. */
	struct ListedDirectory {
		QString	m_path;
		QColor	m_color;
		/*! Why the folder cannot be listed; empty when it can. */
		QString	m_error;
		/*! Files were left out because another listed folder shows them already. */
		bool	m_skippedDuplicates = false;
	};

	/*! A file found in a listed folder. */
	struct KnownFile {
		enum State {
			S_PENDING,		///< waits for its header to be read
			S_LISTED,		///< has a row
			S_REJECTED,		///< failed its check, see m_rejected
			S_NO_DATA		///< a text file that no data file reader takes: neither listed nor reported
		};
		QString		m_directory;
		/*! The file with symbolic links resolved: no two known files share it. */
		QString		m_identity;
		State		m_state = S_PENDING;
		/*! Modification time and size when the header was last read. */
		QDateTime	m_lastModified;
		qint64		m_size = -1;
	};

	/*! Reads headers from the queue while more() allows it (at least one), appends the rows of
		those that pass, and schedules the rest.
	*/
	void readHeaders(const std::function<bool()> & more);
	/*! Lists a folder: queues its new files, forgets the files that left it. Returns the known
		files of the folder that are still there.
	*/
	QStringList listDirectory(ListedDirectory & directory);
	/*! Reads the header of a known file that is new or has changed, and lists, updates, rejects
		or forgets it; new rows are collected in newRows.
	*/
	void checkFile(const QString & path, std::vector<DataCollection> & newRows);
	/*! Records the failure of a file and reports it when its message is new. */
	void reject(const QString & path, const ZEB::Exception & ex);
	/*! Forgets a known file and removes its row; a listed file that vanished from the disk is
		reported when reportVanished is set.
	*/
	void forgetFile(const QString & path, bool reportVanished);
	/*! Removes the rows for which the predicate holds, in blocks of neighbouring rows. */
	void removeRowsWhere(const std::function<bool(const DataCollection &)> & predicate);
	/*! Appends rows at the end. */
	void appendRows(std::vector<DataCollection> & rows);
	/*! Watches the listed folders and those of the given files that are known, when the
		watcher dropped them (a replaced file loses its watch).
	*/
	void rewatch(const QSet<QString> & files);
	/*! Handles the changes collected by the watcher. */
	void processChanges();
	/*! The listed folder of a path, or null. */
	ListedDirectory * findDirectory(const QString & path);
	const ListedDirectory * findDirectory(const QString & path) const;

	DirectoryLister						m_lister;
	DataCollectionReader				m_reader;
	std::vector<ListedDirectory>		m_directories;
	/*! Files found in the listed folders, by absolute path. */
	QHash<QString, KnownFile>			m_files;
	/*! Identities of the known files. */
	QSet<QString>						m_identities;
	/*! Files waiting for their header, in insertion order (forgotten ones are skipped). */
	std::deque<QString>					m_pending;
	std::vector<DataCollection>			m_rows;
	QMap<QString, QString>				m_rejected;

	QFileSystemWatcher					m_watcher;
	/*! Paths reported by the watcher since the last processChanges(). */
	QSet<QString>						m_changedDirectories;
	QSet<QString>						m_changedFiles;
	/*! Single shot: starts processChanges() CHANGE_DELAY_MS after the first change. */
	QTimer								m_changeTimer;
	/*! Single shot: reads the next batch of headers from the event loop. */
	QTimer								m_batchTimer;
};

} // namespace OVP

#endif // OVP_DataManagerTableModelH
