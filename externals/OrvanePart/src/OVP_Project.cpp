#include "OVP_Project.h"

#include <exception>

#include <QFile>
#include <QFileInfo>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include <Sci_XMLFile.h>

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_ProjectRelativePath.h"

namespace OVP {

const char * const Project::VERSION = "2.2.3";

Project::Project() :
	m_mapperModel(new MapperTreeModel)
{
}


Project::~Project() = default;


void Project::readXML(const QString & fileName, DataManager & dataManager, const DataPathRemap & remap) {
	FUNCID(Project::readXML);
	try {
		const std::string utf8Name = fileName.toStdString();
		TiXmlDocument doc;
		SCI::XMLFile::load(doc, fileName, "Error in line %1 of session file '%2':\n%3", FUNC_ID);

		const TiXmlElement * root = doc.RootElement();
		if (root == nullptr || root->ValueStr() != "Orvane")
			throw ZEB::Exception(ZEB::MessageFormat("Expected Orvane as root node in XML file %1.").arg(utf8Name), FUNC_ID);
		const char * version = root->Attribute("version");
		m_version = version == nullptr ? QString() : QString::fromUtf8(version);

		const QString projectDir = QFileInfo(fileName).absolutePath();
		const TiXmlElement * e = root->FirstChildElement("Directories");
		if (e != nullptr)
			readDirectories(e, projectDir);
		repointDirectories(remap);
		std::vector<int> skippedIndices;
		e = root->FirstChildElement("Mappers");
		if (e != nullptr)
			readMappers(e, projectDir, dataManager, remap, skippedIndices);
		e = root->FirstChildElement("Splitting");
		if (e != nullptr) {
			m_splitLayout.readXML(e);
			// the layout refers to mapper indices as they were in the file; close up the gaps of
			// skipped mappers, last one first so that earlier indices stay valid
			for (auto it = skippedIndices.rbegin(); it != skippedIndices.rend(); ++it)
				m_splitLayout.mappersRemoved(*it, 1);
		}
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading session file %1").arg(fileName.toStdString()), FUNC_ID);
	}
	catch (std::exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading session file %1").arg(fileName.toStdString()), FUNC_ID);
	}
}


void Project::readDirectories(const TiXmlElement * element, const QString & projectDir) {
	FUNCID(Project::readDirectories);
	for (const TiXmlElement * e = element->FirstChildElement(); e != nullptr; e = e->NextSiblingElement()) {
		if (e->ValueStr() != "Directory")
			throw ZEB::Exception(ZEB::MessageFormat("Expected 'Directory' tag, got '%1'").arg(e->ValueStr()), FUNC_ID);
		Directory d;
		d.readXML(e, projectDir);
		if (directoryIndex(d.m_path) != -1)
			throw ZEB::Exception(ZEB::MessageFormat("Top level directory '%1' was previously listed in session file.")
								 .arg(d.m_path.toStdString()), FUNC_ID);
		m_directories.push_back(d);
	}
}


void Project::readMappers(const TiXmlElement * element, const QString & projectDir, DataManager & dataManager,
						  const DataPathRemap & remap, std::vector<int> & skippedIndices)
{
	// skipped mappers are reported under the function id of the whole read
	FUNCID(Project::readXML);
	int mapperNumber = 0;
	for (const TiXmlElement * e = element->FirstChildElement(); e != nullptr; e = e->NextSiblingElement()) {
		if (e->ValueStr() != "Mapper")
			throw ZEB::Exception(ZEB::MessageFormat("Expected 'Mapper' tag, got '%1'").arg(e->ValueStr()), FUNC_ID);
		++mapperNumber;
		std::unique_ptr<Mapper> mapper(new Mapper(dataManager));
		try {
			const char * name = e->Attribute("name");
			mapper->setName(name == nullptr ? QString() : QString::fromUtf8(name));
			mapper->readXML(e, projectDir, remap, Mapper::ExtractWhenNeeded);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading Mapper definition #%1.").arg(mapperNumber), FUNC_ID);
		}
		catch (std::exception & ex) {
			throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading Mapper definition #%1.").arg(mapperNumber), FUNC_ID);
		}
		if (mapper->extractorCount() == 0) {
			ZEB::reportWarning(ZEB::MessageFormat("Mapper '%1' does not contain any extractors. Skipped.")
							   .arg(mapper->name().toStdString()).str(), FUNC_ID, 1);
			skippedIndices.push_back(mapperNumber - 1);
			continue;
		}
		m_mapperModel->appendMapper(std::move(mapper));
	}
}


void Project::writeXML(const QString & fileName, bool writeAll, const QString & backupName) const {
	FUNCID(Project::writeXML);
	const QString projectDir = QFileInfo(fileName).absolutePath();
	TiXmlDocument doc;
	doc.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
	TiXmlElement * root = new TiXmlElement("Orvane");
	doc.LinkEndChild(root);
	root->SetAttribute("version", VERSION);

	root->LinkEndChild(new TiXmlComment("List of all directories"));
	TiXmlElement * directories = new TiXmlElement("Directories");
	root->LinkEndChild(directories);
	for (const Directory & d : m_directories)
		d.writeXML(directories, projectDir);

	root->LinkEndChild(new TiXmlComment("All mappers."));
	TiXmlElement * mappers = new TiXmlElement("Mappers");
	root->LinkEndChild(mappers);
	for (int i = 0; i < m_mapperModel->mapperCount(); ++i) {
		const Mapper * m = m_mapperModel->mapper(i);
		TiXmlElement * e = new TiXmlElement("Mapper");
		mappers->LinkEndChild(e);
		e->SetAttribute("name", m->name().toStdString());
		m->writeXML(e, projectDir, writeAll);
	}

	root->LinkEndChild(new TiXmlComment("Split window state."));
	m_splitLayout.writeXML(root);

	SCI::XMLFile::save(doc, fileName, FUNC_ID, backupName);
}


QStringList Project::dataFileNames(const QString & fileName) {
	FUNCID(Project::dataFileNames);
	TiXmlDocument doc;
	try {
		SCI::XMLFile::load(doc, fileName, "Error in line %1 of session file '%2':\n%3", FUNC_ID);
	}
	catch (ZEB::Exception &) {
		// a file that cannot be parsed names no data files; reading it reports why
		return QStringList();
	}
	const TiXmlElement * root = doc.RootElement();
	const TiXmlElement * mappers = root == nullptr ? nullptr : root->FirstChildElement("Mappers");
	if (mappers == nullptr)
		return QStringList();
	const QString projectDir = QFileInfo(fileName).absolutePath();
	QStringList names;
	for (const TiXmlElement * e = mappers->FirstChildElement("Mapper"); e != nullptr; e = e->NextSiblingElement("Mapper"))
		names.append(Mapper::dataFileNames(e, projectDir));
	names.removeDuplicates();
	return names;
}


QStringList Project::dataFileNames() const {
	QStringList names;
	for (int i = 0; i < m_mapperModel->mapperCount(); ++i)
		names.append(m_mapperModel->mapper(i)->dataFileNames());
	names.removeDuplicates();
	return names;
}


bool Project::repointDirectories(const DataPathRemap & remap) {
	bool changed = false;
	for (Directory & d : m_directories) {
		const QString path = remap.apply(d.m_path);
		if (path != d.m_path && QFileInfo(path).isDir() && directoryIndex(path) == -1) {
			d.m_path = path;
			changed = true;
		}
	}
	return changed;
}


int Project::directoryIndex(const QString & path) const {
	const QString normalized = ProjectRelativePath::normalized(path);
	for (std::size_t i = 0; i < m_directories.size(); ++i)
		if (m_directories[i].m_path == normalized)
			return static_cast<int>(i);
	return -1;
}

} // namespace OVP
