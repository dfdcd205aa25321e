#include "OVP_FieldOutputFile.h"

#include <QFile>
#include <QFileInfo>

#include <DATAIO_GeoFile.h>

#include <EM_ExtractorBase.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_ProjectRelativePath.h"

namespace OVP {

FieldOutputFile::FieldOutputFile(const QString & path) :
	m_path(path)
{
	FUNCID(FieldOutputFile::FieldOutputFile);
	m_dataIO.read(QFile::encodeName(path).toStdString());
	const bool singleValue = m_dataIO.dataFormat() == DATAIO::DataIO::DF_2D;
	if (singleValue)
		throw ZEB::Exception(ZEB::MessageFormat("Output file '%1' holds one value per time point (data format 2D), "
			"not values over a construction grid.").arg(path.toStdString()), FUNC_ID);
	if (m_dataIO.geometry() != nullptr)
		m_geometry = std::make_shared<DATAIO::GeoFile>(*m_dataIO.geometry());
	else
		readGeometryFile();
	if (m_dataIO.dataFormat() == DATAIO::DataIO::NUM_DF)
		throw ZEB::Exception(ZEB::MessageFormat("The data format of output file '%1' cannot be determined.")
							 .arg(path.toStdString()), FUNC_ID);
}


QString FieldOutputFile::fileName() const {
	return QFileInfo(m_path).fileName();
}


void FieldOutputFile::checkTimeRange(unsigned int first, unsigned int last) const {
	FUNCID(FieldOutputFile::checkTimeRange);
	const std::size_t count = m_dataIO.timePoints().size();
	if (count == 0)
		throw ZEB::Exception(ZEB::MessageFormat("Output file '%1' has no time points.").arg(m_path.toStdString()), FUNC_ID);
	if (first > last)
		throw ZEB::Exception(ZEB::MessageFormat("The first time point index %1 comes after the last one, %2.")
							 .arg(first).arg(last), FUNC_ID);
	if (last >= count)
		throw ZEB::Exception(ZEB::MessageFormat("Time point indexes %1 to %2 lie outside output file '%3', which has "
			"%4 time points (indexes 0 to %5).").arg(first).arg(last).arg(m_path.toStdString())
			.arg(static_cast<unsigned long>(count)).arg(static_cast<unsigned long>(count - 1)), FUNC_ID);
}


void FieldOutputFile::runExtractor(EM::ExtractorBase & extractor, const char * functionId) const {
	extractor.update();
	if (extractor.status() != EM::ExtractorBase::US_UpToDate)
		throw ZEB::Exception(ZEB::MessageFormat("The values cannot be extracted from output file '%1' "
			"(the log tells why).").arg(m_path.toStdString()), functionId);
}


void FieldOutputFile::readGeometryFile() {
	FUNCID(FieldOutputFile::readGeometryFile);
	const std::string name = m_dataIO.geoFileName();
	if (name.empty())
		throw ZEB::Exception(ZEB::MessageFormat("Output file '%1' holds values over a construction grid but names no "
			"geometry file.").arg(m_path.toStdString()), FUNC_ID);
	m_geometryPath = ProjectRelativePath::resolve(QString::fromStdString(name), QFileInfo(m_path).absolutePath());
	if (!QFileInfo(m_geometryPath).isFile())
		throw ZEB::Exception(ZEB::MessageFormat("Output file '%1' needs its geometry file '%2', which does not exist.")
							 .arg(m_path.toStdString()).arg(m_geometryPath.toStdString()), FUNC_ID);
	try {
		std::shared_ptr<DATAIO::GeoFile> geometry = std::make_shared<DATAIO::GeoFile>();
		geometry->read(QFile::encodeName(m_geometryPath).toStdString());
		m_dataIO.determineDataFormat(geometry.get());
		m_geometry = geometry;
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Output file '%1' needs its geometry file '%2', which cannot be read "
			"or does not fit the output.").arg(m_path.toStdString()).arg(m_geometryPath.toStdString()), FUNC_ID);
	}
}

} // namespace OVP
