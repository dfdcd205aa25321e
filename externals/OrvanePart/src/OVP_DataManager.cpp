#include "OVP_DataManager.h"

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include <QFileInfo>

#include "OVP_FileReaderRegistry.h"
#include "OVP_ProgressNotifier.h"
#include "OVP_ProjectRelativePath.h"

namespace OVP {

/*! Marks the data manager as reading a file while it lives and announces the read to the
	progress notifier; ends both also when the read throws.
*/
class DataManager::ReadingFile {
public:
	ReadingFile(DataManager & manager, const QString & fileName) :
		m_manager(manager),
		m_progress(manager.m_progress, fileName)
	{
		++m_manager.m_reading;
	}
	~ReadingFile() { --m_manager.m_reading; }
	ReadingFile(const ReadingFile &) = delete;
	ReadingFile & operator=(const ReadingFile &) = delete;

private:
	DataManager &				m_manager;
	ProgressNotifier::Scope		m_progress;
};


DataManager::DataManager() = default;


DataManager::~DataManager() = default;


std::shared_ptr<DATAIO::DataIO> DataManager::container(const QString & fileName) {
	FUNCID(DataManager::container);
	dropUnused();
	const QString path = ProjectRelativePath::normalized(fileName);
	auto it = m_containers.find(path);
	if (it != m_containers.end()) {
		std::shared_ptr<DATAIO::DataIO> open = it->second.m_container.lock();
		if (open)
			return open;
	}
	std::shared_ptr<DATAIO::DataIO> dataIO = std::make_shared<DATAIO::DataIO>();
	ContainerRecord record;
	try {
		ReadingFile reading(*this, path);
		record.m_reader = FileReaderRegistry::instance().readerFor(path.toStdString());
		if (record.m_reader != nullptr)
			readForeign(path, *dataIO, record);
		else {
			dataIO->read(path.toStdString(), m_progress);
			determineDataFormat(*dataIO, record);
		}
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot open output file '%1'.").arg(path.toStdString()), FUNC_ID);
	}
	record.m_container = dataIO;
	m_containers[path] = record;
	return dataIO;
}


std::shared_ptr<const DATAIO::GeoFile> DataManager::geometry(const DATAIO::DataIO * container) const {
	const ContainerRecord * record = findRecord(container);
	return record == nullptr ? nullptr : record->m_geometry;
}


unsigned int DataManager::revision(const DATAIO::DataIO * container) const {
	const ContainerRecord * record = findRecord(container);
	return record == nullptr ? 0 : record->m_revision;
}


bool DataManager::refresh(DATAIO::DataIO * container, DATAIO::DataIO::RefreshMode mode) {
	FUNCID(DataManager::refresh);
	ContainerRecord * record = findRecord(container);
	if (record == nullptr)
		throw ZEB::Exception("Container was not opened by the data manager.", FUNC_ID);
	ReadingFile reading(*this, QString::fromStdString(container->filename()));
	if (record->m_reader != nullptr) {
		const QFileInfo info(QString::fromStdString(container->filename()));
		if (info.lastModified() == record->m_lastModified && info.size() == record->m_size)
			return false;
		// a foreign file is read anew as a whole: its writers rewrite it rather than append
		DATAIO::DataIO fresh;
		try {
			readForeign(QString::fromStdString(container->filename()), fresh, *record);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot read '%1' again.").arg(container->filename()), FUNC_ID);
		}
		*container = std::move(fresh);
		++record->m_revision;
		return true;
	}
	const DATAIO::DataIO::RefreshResult result = container->refresh(mode, m_progress);
	if (result == DATAIO::DataIO::RR_UNCHANGED)
		return false;
	if (result == DATAIO::DataIO::RR_RELOADED) {
		try {
			determineDataFormat(*container, *record);
		}
		catch (ZEB::Exception & ex) {
			++record->m_revision;
			throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot determine the data format of '%1' after reloading.")
								 .arg(container->filename()), FUNC_ID);
		}
	}
	++record->m_revision;
	return true;
}


std::size_t DataManager::openContainerCount() const {
	std::size_t count = 0;
	for (const auto & entry : m_containers)
		if (!entry.second.m_container.expired())
			++count;
	return count;
}


void DataManager::readForeign(const QString & path, DATAIO::DataIO & container, ContainerRecord & record) {
	// the file state is taken before reading, so that a change while reading shows at the next refresh
	const QFileInfo info(path);
	record.m_lastModified = info.lastModified();
	record.m_size = info.size();
	record.m_reader->read(path.toStdString(), container, m_progress);
}


void DataManager::determineDataFormat(DATAIO::DataIO & container, ContainerRecord & record) {
	record.m_geometry.reset();
	record.m_geometry = m_geometries.determineDataFormat(container);
}


DataManager::ContainerRecord * DataManager::findRecord(const DATAIO::DataIO * container) {
	for (auto & entry : m_containers)
		if (entry.second.m_container.lock().get() == container)
			return &entry.second;
	return nullptr;
}


const DataManager::ContainerRecord * DataManager::findRecord(const DATAIO::DataIO * container) const {
	for (const auto & entry : m_containers)
		if (entry.second.m_container.lock().get() == container)
			return &entry.second;
	return nullptr;
}


void DataManager::dropUnused() {
	for (auto it = m_containers.begin(); it != m_containers.end();) {
		if (it->second.m_container.expired())
			it = m_containers.erase(it);
		else
			++it;
	}
	m_geometries.dropUnused();
}

} // namespace OVP
