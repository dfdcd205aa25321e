#ifndef OVP_DataManagerH
#define OVP_DataManagerH

#include <map>
#include <memory>

#include <QDateTime>
#include <QString>

#include <DATAIO_DataIO.h>

#include "OVP_GeometryCache.h"

namespace DATAIO {
class GeoFile;
}

namespace OVP {

class FileReader;
class ProgressNotifier;

/*! Holds the opened output containers: one DATAIO::DataIO per file, shared by all extractors
	that read from that file, and one geometry per geometry file, shared by all containers that
	refer to it. A container stays open as long as an extractor holds it.

	Each container carries a revision number that grows whenever refresh() finds new data, so
	that every mapper can tell whether its extractors still show the latest state, no matter
	which mapper triggered the refresh.

	Every file read (opening and refreshing) reports its progress to the progress notifier,
	when one is set.
*/
class DataManager {
public:
	DataManager();
	~DataManager();
	DataManager(const DataManager &) = delete;
	DataManager & operator=(const DataManager &) = delete;

	/*! The container of a file: the one already open, or the file read now. A foreign file goes
		to the data file reader that takes it (FileReaderRegistry) and is read whole. Field and flux
		outputs get their data format decided with their geometry file (a relative GEO_FILE is
		taken relative to the output file's folder). Throws ZEB::Exception when the file or its
		geometry cannot be read.
	*/
	std::shared_ptr<DATAIO::DataIO> container(const QString & fileName);

	/*! The separate geometry file of a container opened here; null when it has none (time
		series, or a geometry embedded in the output file).
	*/
	std::shared_ptr<const DATAIO::GeoFile> geometry(const DATAIO::DataIO * container) const;

	/*! The revision of a container opened here; 0 when it was never changed since opening. */
	unsigned int revision(const DATAIO::DataIO * container) const;

	/*! Reads what has changed in the file of a container opened here (appended records, or the
		whole file when it was rewritten) and returns true when the data changed. A rewritten
		file gets its data format decided again, with the geometry re-read when that file
		changed. The mode says whether this follows a growing file or is the user's own refresh
		(which also takes an ASCII last line that still lacks its line end). A foreign file is read
		anew when its modification time or size changed. Throws ZEB::Exception.
	*/
	bool refresh(DATAIO::DataIO * container, DATAIO::DataIO::RefreshMode mode = DATAIO::DataIO::RM_FOLLOW);

	/*! Number of containers currently open. */
	std::size_t openContainerCount() const;

	/*! The notifier that the reads report their progress to; null for none. */
	void setProgressNotifier(ProgressNotifier * notifier) { m_progress = notifier; }
	/*! True while a file is being read (the event loop may run meanwhile, see ProgressNotifier). */
	bool isReading() const { return m_reading > 0; }

private:
	class ReadingFile;

	/*! Book-keeping of one opened container. */
	struct ContainerRecord {
		std::weak_ptr<DATAIO::DataIO>			m_container;
		std::shared_ptr<const DATAIO::GeoFile>	m_geometry;
		unsigned int							m_revision = 0;
		/*! The data file reader of a foreign file, null for the simulation program's files. */
		const FileReader *						m_reader = nullptr;
		/*! Foreign files: modification time and size of the file when it was read. */
		QDateTime								m_lastModified;
		qint64									m_size = 0;
	};

	/*! Reads a foreign file with the record's reader into an empty container. */
	void readForeign(const QString & path, DATAIO::DataIO & container, ContainerRecord & record);

	/*! Decides the data format of a freshly read container, loading its geometry file when it
		needs one; stores the geometry in the record.
	*/
	void determineDataFormat(DATAIO::DataIO & container, ContainerRecord & record);
	/*! The record of a container opened here, or null. */
	ContainerRecord * findRecord(const DATAIO::DataIO * container);
	const ContainerRecord * findRecord(const DATAIO::DataIO * container) const;
	/*! Forgets containers and geometries that nobody holds any longer. */
	void dropUnused();

	/*! Records by normalised absolute file path. */
	std::map<QString, ContainerRecord>	m_containers;
	/*! The geometries held by the open containers. */
	GeometryCache						m_geometries;
	ProgressNotifier *					m_progress = nullptr;
	/*! Number of reads running (more than one when a read starts while the event loop runs). */
	int									m_reading = 0;
};

} // namespace OVP

#endif // OVP_DataManagerH
