#include "OVP_Directory.h"

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include <Sci_XMLValueWriter.h>

#include "OVP_ProjectRelativePath.h"

namespace OVP {

Directory::Directory(const QString & path) :
	m_path(ProjectRelativePath::normalized(path))
{
}


void Directory::readXML(const TiXmlElement * element, const QString & projectDir) {
	FUNCID(Directory::readXML);
	const TiXmlElement * child = element->FirstChildElement();
	if (child == nullptr || child->ValueStr() != "Path" || child->GetText() == nullptr)
		throw ZEB::Exception("Missing 'Path' tag.", FUNC_ID);
	m_path = ProjectRelativePath::resolve(QString::fromUtf8(child->GetText()), projectDir);
	m_subDirectories.clear();
	m_expandedSubDirectories.clear();

	for (child = child->NextSiblingElement(); child != nullptr; child = child->NextSiblingElement()) {
		const std::string & name = child->ValueStr();
		if (name == "SubDir") {
			if (child->GetText() == nullptr)
				throw ZEB::Exception("Missing relative path in 'SubDir' tag.", FUNC_ID);
			SubDirectory sub;
			const char * color = child->Attribute("Color");
			if (color != nullptr)
				sub.m_color = QColor(QString::fromUtf8(color));
			const char * checked = child->Attribute("Checked");
			sub.m_checked = checked != nullptr && (std::string(checked) == "1" || std::string(checked) == "true");
			m_subDirectories[QString::fromUtf8(child->GetText())] = sub;
		}
		else if (name == "ExpandedSubDir") {
			if (child->GetText() == nullptr)
				throw ZEB::Exception("Missing relative path in 'ExpandedSubDir' tag.", FUNC_ID);
			m_expandedSubDirectories.insert(QString::fromUtf8(child->GetText()));
		}
		else {
			// the text names only the two tags that are most likely meant
			throw ZEB::Exception(ZEB::MessageFormat("Expected 'Path' or 'SubDir' tag, got '%1'").arg(name), FUNC_ID);
		}
	}
}


void Directory::writeXML(TiXmlElement * parent, const QString & projectDir) const {
	TiXmlElement * e = new TiXmlElement("Directory");
	parent->LinkEndChild(e);
	TiXmlElement * path = new TiXmlElement("Path");
	e->LinkEndChild(path);
	path->LinkEndChild(new TiXmlText(ProjectRelativePath::toFileText(m_path, projectDir).toStdString()));
	for (auto it = m_subDirectories.constBegin(); it != m_subDirectories.constEnd(); ++it) {
		TiXmlElement * sub = new TiXmlElement("SubDir");
		e->LinkEndChild(sub);
		// no colour chosen is no Color attribute, so that it is read back as no colour
		if (it.value().m_color.isValid())
			sub->SetAttribute("Color", SCI::XMLValueWriter::colorText(it.value().m_color));
		sub->SetAttribute("Checked", it.value().m_checked ? 1 : 0);
		sub->LinkEndChild(new TiXmlText(it.key().toStdString()));
	}
	for (const QString & expanded : m_expandedSubDirectories) {
		TiXmlElement * sub = new TiXmlElement("ExpandedSubDir");
		e->LinkEndChild(sub);
		sub->LinkEndChild(new TiXmlText(expanded.toStdString()));
	}
}


bool Directory::operator==(const Directory & other) const {
	return m_path == other.m_path && m_subDirectories == other.m_subDirectories
			&& m_expandedSubDirectories == other.m_expandedSubDirectories;
}

} // namespace OVP
