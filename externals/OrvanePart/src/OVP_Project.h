#ifndef OVP_ProjectH
#define OVP_ProjectH

#include <memory>
#include <vector>

#include <QString>
#include <QStringList>

#include "OVP_DataPathRemap.h"
#include "OVP_Directory.h"
#include "OVP_SplitLayout.h"

class TiXmlElement;

namespace OVP {

class DataManager;
class MapperTreeModel;

/*! Everything the user has set up in one session: the top-level directories with their
	sub-directory settings, the mappers in list order and the layout of the split chart views.
	It reads and writes the project file (XML, extension ".o2").
*/
class Project {
public:
	/*! The version written into the root element. */
	static const char * const VERSION;

	Project();
	~Project();
	Project(const Project &) = delete;
	Project & operator=(const Project &) = delete;

	/*! Reads a project file into this (empty) project. Mappers re-create their extractors
		from the data files, opened through dataManager; each chart's data is extracted when it
		is first needed (Mapper::ExtractWhenNeeded). The data file paths, and the top-level
		directories as repointDirectories() says, are re-pointed by remap. Every failure is
		thrown as ZEB::Exception "Error reading session file %1" with the cause chained.
	*/
	void readXML(const QString & fileName, DataManager & dataManager, const DataPathRemap & remap = DataPathRemap());

	/*! The data files that the mappers of a project file name, in the order they are read, each
		once; empty when the file cannot be read or parsed (readXML() tells why).
	*/
	static QStringList dataFileNames(const QString & fileName);
	/*! The data files the mappers read, in mapper and series order, each once. */
	QStringList dataFileNames() const;

	/*! Re-points the top-level directories in or below an old folder of remap, each only when
		its new folder exists and is not listed already (sub-directory settings stay, they are
		relative). Returns true when a directory was re-pointed.
	*/
	bool repointDirectories(const DataPathRemap & remap);

	/*! Writes the project file; paths are stored relative to its folder where possible and the
		chart models write all properties when writeAll is set. The previous file is replaced
		only by complete content and, with a backupName, kept as that backup (SCI::XMLFile::save).
		Throws ZEB::Exception; the previous file and backup are then unchanged.
	*/
	void writeXML(const QString & fileName, bool writeAll, const QString & backupName = QString()) const;

	/*! The mappers; the project owns the model and the model owns the mappers. */
	MapperTreeModel * mapperModel() const { return m_mapperModel.get(); }

	/*! Index of the top-level directory with this path (compared in normalised form), -1 if
		there is none.
	*/
	int directoryIndex(const QString & path) const;

	/*! The top-level directories in the order they were added. */
	std::vector<Directory>				m_directories;
	/*! Layout of the split chart views. */
	SplitLayout							m_splitLayout;
	/*! Version attribute of the file read last; empty when it had none. */
	QString								m_version;

private:
	/*! Reads the children of Directories. */
	void readDirectories(const TiXmlElement * element, const QString & projectDir);
	/*! Reads the children of Mappers; skipped mappers are reported and close up the indices
		(the removed original indices are appended to skippedIndices).
	*/
	void readMappers(const TiXmlElement * element, const QString & projectDir, DataManager & dataManager,
					 const DataPathRemap & remap, std::vector<int> & skippedIndices);

	std::unique_ptr<MapperTreeModel>	m_mapperModel;
};

} // namespace OVP

#endif // OVP_ProjectH
