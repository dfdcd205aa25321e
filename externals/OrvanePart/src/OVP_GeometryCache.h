#ifndef OVP_GeometryCacheH
#define OVP_GeometryCacheH

#include <map>
#include <memory>

#include <QDateTime>
#include <QString>

namespace DATAIO {
class DataIO;
class GeoFile;
}

namespace OVP {

/*! The geometry files that field and flux outputs refer to, each read once and read again only
	when the file changed (size or modification time). A geometry stays cached as long as
	someone holds the pointer handed out; dropUnused() forgets the others.
*/
class GeometryCache {
public:
	/*! Decides the data format of a container whose header has been read. Time series and
		generation-5 files (embedded geometry) know their format already and get null; field and
		flux outputs get it from their geometry file (a relative GEO_FILE is taken relative to
		the output file's folder), which is returned. Throws ZEB::Exception when the geometry
		cannot be read or does not fit the output.
	*/
	std::shared_ptr<const DATAIO::GeoFile> determineDataFormat(DATAIO::DataIO & container);

	/*! Forgets geometries that nobody holds any longer. */
	void dropUnused();

private:
	/*! One loaded geometry file and the file state it was read from. */
	struct Record {
		std::weak_ptr<const DATAIO::GeoFile>	m_geometry;
		QDateTime								m_lastModified;
		qint64									m_size = 0;
	};

	/*! The geometry of a file: the loaded one when the file is unchanged, else read now. */
	std::shared_ptr<const DATAIO::GeoFile> load(const QString & fileName);

	/*! Records by absolute file path. */
	std::map<QString, Record>	m_geometries;
};

} // namespace OVP

#endif // OVP_GeometryCacheH
