#ifndef OVP_FieldOutputFileH
#define OVP_FieldOutputFileH

#include <memory>

#include <QString>

#include <DATAIO_DataIO.h>

namespace DATAIO {
class GeoFile;
}

namespace EM {
class ExtractorBase;
}

namespace OVP {

/*! An output file of values over a construction grid (a field or flux output, data format 3D,
	4D or 5D) read together with its geometry: the geometry file that GEO_FILE names (relative
	names taken relative to the output file's folder) or the geometry a generation-5 file embeds.
	The converters start from it.
*/
class FieldOutputFile {
public:
	/*! Reads the header and time points of the file and its geometry (values are loaded when
		asked for). Throws ZEB::Exception when the file cannot be read, when its geometry is
		missing or does not fit ("... needs its geometry file ..."), and when it holds one value
		per time point (no grid).
	*/
	explicit FieldOutputFile(const QString & path);

	const QString & path() const { return m_path; }
	DATAIO::DataIO & dataIO() { return m_dataIO; }
	const DATAIO::DataIO & dataIO() const { return m_dataIO; }
	const DATAIO::GeoFile & geometry() const { return *m_geometry; }
	std::shared_ptr<const DATAIO::GeoFile> sharedGeometry() const { return m_geometry; }
	/*! Absolute path of the geometry file; empty for an embedded geometry. */
	const QString & geometryPath() const { return m_geometryPath; }
	/*! True for flux outputs (values on sides). */
	bool isFlux() const { return m_dataIO.type() == DATAIO::DataIO::T_FLUX; }
	/*! The file name without folder, for messages and titles. */
	QString fileName() const;
	/*! Checks that the time point indexes first to last (both included) exist. Throws
		ZEB::Exception for a file without time points and for a range outside the file.
	*/
	void checkTimeRange(unsigned int first, unsigned int last) const;
	/*! Updates an extractor of this file; throws ZEB::Exception with the caller's function id
		when it did not get up to date (the extractor has reported the cause to the message
		handler).
	*/
	void runExtractor(EM::ExtractorBase & extractor, const char * functionId) const;

private:
	/*! Reads the geometry file of a generation-6 output and decides the data format. */
	void readGeometryFile();

	QString									m_path;
	DATAIO::DataIO							m_dataIO;
	std::shared_ptr<const DATAIO::GeoFile>	m_geometry;
	QString									m_geometryPath;
};

} // namespace OVP

#endif // OVP_FieldOutputFileH
