#ifndef OVP_DirectoryH
#define OVP_DirectoryH

#include <set>

#include <QColor>
#include <QMap>
#include <QString>

class TiXmlElement;

namespace OVP {

/*! One top-level directory of a project: the folder whose data files are browsed, the colours
	and check marks the user gave to its sub-directories and the sub-directories that are
	expanded in the directory tree. Its XML form is the element Directory of the project file.
*/
class Directory {
public:
	/*! Colour and check mark of one sub-directory. */
	struct SubDirectory {
		/*! User colour; invalid when none was chosen. */
		QColor	m_color;
		bool	m_checked = false;
		bool operator==(const SubDirectory & other) const {
			return m_color == other.m_color && m_checked == other.m_checked;
		}
	};

	Directory() = default;
	/*! A directory without sub-directory settings; the path is stored in normalised absolute form. */
	explicit Directory(const QString & path);

	/*! Reads a Directory element; relative paths are resolved against projectDir.
		Throws ZEB::Exception for missing or unexpected children.
	*/
	void readXML(const TiXmlElement * element, const QString & projectDir);
	/*! Appends a Directory element to parent, with the path relative to projectDir where possible. */
	void writeXML(TiXmlElement * parent, const QString & projectDir) const;

	bool operator==(const Directory & other) const;
	bool operator!=(const Directory & other) const { return !(*this == other); }

	/*! Absolute, normalised path of the directory. */
	QString							m_path;
	/*! Settings of sub-directories, by path relative to m_path ("." for the directory itself,
		"a/b" for nested folders).
	*/
	QMap<QString, SubDirectory>		m_subDirectories;
	/*! Sub-directories (relative to m_path) expanded in the directory tree. */
	std::set<QString>				m_expandedSubDirectories;
};

} // namespace OVP

#endif // OVP_DirectoryH
