#include "OVP_GeometryCache.h"

#include <QFileInfo>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_ProjectRelativePath.h"

namespace OVP {

std::shared_ptr<const DATAIO::GeoFile> GeometryCache::determineDataFormat(DATAIO::DataIO & container) {
	FUNCID(GeometryCache::determineDataFormat);
	if (container.dataFormat() != DATAIO::DataIO::NUM_DF)
		return nullptr;
	if (container.geoFileName().empty())
		throw ZEB::Exception(ZEB::MessageFormat("Output file '%1' holds a field or flux but names no geometry file.")
							 .arg(container.filename()), FUNC_ID);
	const QString outputDir = QFileInfo(QString::fromStdString(container.filename())).absolutePath();
	const QString geoPath = ProjectRelativePath::resolve(QString::fromStdString(container.geoFileName()), outputDir);
	std::shared_ptr<const DATAIO::GeoFile> geometry = load(geoPath);
	container.determineDataFormat(geometry.get());
	return geometry;
}


void GeometryCache::dropUnused() {
	for (auto it = m_geometries.begin(); it != m_geometries.end();) {
		if (it->second.m_geometry.expired())
			it = m_geometries.erase(it);
		else
			++it;
	}
}


std::shared_ptr<const DATAIO::GeoFile> GeometryCache::load(const QString & fileName) {
	FUNCID(GeometryCache::load);
	const QFileInfo info(fileName);
	if (!info.exists())
		throw ZEB::Exception(ZEB::MessageFormat("Geometry file '%1' does not exist.").arg(fileName.toStdString()), FUNC_ID);
	Record & record = m_geometries[fileName];
	std::shared_ptr<const DATAIO::GeoFile> loaded = record.m_geometry.lock();
	if (loaded && record.m_lastModified == info.lastModified() && record.m_size == info.size())
		return loaded;
	std::shared_ptr<DATAIO::GeoFile> geometry = std::make_shared<DATAIO::GeoFile>();
	geometry->read(fileName.toStdString());
	record.m_geometry = geometry;
	record.m_lastModified = info.lastModified();
	record.m_size = info.size();
	return geometry;
}

} // namespace OVP
