#include "OVP_MapperSnapshot.h"

#include <exception>

#include <QDir>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_Mapper.h"

namespace OVP {

namespace {

/*! Paths are written relative to a folder and resolved against the same folder, so any folder
	gives back the original paths. */
QString anyFolder() {
	return QDir::rootPath();
}

} // namespace


MapperSnapshot::MapperSnapshot(const Mapper & mapper) :
	m_name(mapper.name()),
	m_element(new TiXmlElement("Mapper"))
{
	mapper.writeXML(m_element.get(), anyFolder(), true);
}


MapperSnapshot::~MapperSnapshot() = default;
MapperSnapshot::MapperSnapshot(MapperSnapshot && other) noexcept = default;
MapperSnapshot & MapperSnapshot::operator=(MapperSnapshot && other) noexcept = default;


std::unique_ptr<Mapper> MapperSnapshot::restore(DataManager & dataManager) const {
	FUNCID(MapperSnapshot::restore);
	std::unique_ptr<Mapper> mapper(new Mapper(dataManager));
	try {
		mapper->readXML(m_element.get(), anyFolder());
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot rebuild chart '%1'.").arg(m_name.toStdString()), FUNC_ID);
	}
	catch (std::exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot rebuild chart '%1'.").arg(m_name.toStdString()), FUNC_ID);
	}
	mapper->setName(m_name);
	return mapper;
}

} // namespace OVP
