#ifndef OVP_DirectoryListerH
#define OVP_DirectoryListerH

#include <QStringList>

namespace OVP {

/*! Lists the data files of one folder, without its sub-folders: the regular files and symbolic
	links (broken ones too, so that they can be reported) whose names match one of the wildcard
	patterns, case-insensitively, as absolute paths sorted by name ignoring case. Pipes, sockets
	and devices are never listed: opening them could block.
*/
class DirectoryLister {
public:
	/*! The matching files of the folder; throws ZEB::Exception when the folder does not exist,
		is no folder or cannot be read.
	*/
	QStringList files(const QString & directory, const QStringList & patterns) const;
};

} // namespace OVP

#endif // OVP_DirectoryListerH
