#ifndef OVP_DataPathRemapH
#define OVP_DataPathRemapH

#include <utility>
#include <vector>

#include <QString>
#include <QStringList>

namespace OVP {

/*! Re-points data file paths from folders where the data used to be to the folders that hold it
	now. It is a list of folder pairs (old folder -> new folder); a path in or below an old folder
	gets that folder replaced by its new one. When several old folders contain a path, the
	deepest one wins, so a narrower pair added later overrides a wider one for its part of the
	tree. Folders are kept in normalised absolute form.
*/
class DataPathRemap {
public:
	/*! A pair of folders: data that was in or below first is now in or below second. */
	typedef std::pair<QString, QString> FolderPair;

	/*! Adds a pair; a pair with the same old folder is replaced. */
	void addFolder(const QString & oldFolder, const QString & newFolder);

	/*! The path re-pointed by the deepest old folder containing it; unchanged when none does. */
	QString apply(const QString & path) const;

	/*! Finds where a missing data file went, given the folder the user says holds the data now,
		and adds that pair. Every trailing part of the file's path (its name, then its parent
		folder's name and its name, and so on) that exists as a file below newFolder is a
		candidate; its old folder is the rest of the path. The candidate after which the most of
		missingFiles exist wins, among equals the one with the shortest trailing part. Returns
		false (and adds nothing) when no trailing part of the path exists below newFolder.
		\param missingFile A missing data file as the session names it (not re-pointed).
		\param missingFiles All missing data files as the session names them.
	*/
	bool addFolderFor(const QString & missingFile, const QString & newFolder, const QStringList & missingFiles);

	bool isEmpty() const { return m_folders.empty(); }
	/*! The pairs in the order they were added. */
	const std::vector<FolderPair> & folders() const { return m_folders; }

	/*! The deepest folder that contains all the files (the folder of the file for one); empty
		when there are no files or they share nothing below a file-system root.
	*/
	static QString commonFolder(const QStringList & files);

private:
	/*! Number of files that exist as files once re-pointed. */
	int existingCount(const QStringList & files) const;

	std::vector<FolderPair>	m_folders;
};

} // namespace OVP

#endif // OVP_DataPathRemapH
