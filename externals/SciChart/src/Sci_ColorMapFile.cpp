#include "Sci_ColorMapFile.h"

#include <tinyxml.h>

#include <ZEB_Exception.h>

#include "Sci_XMLFile.h"

namespace SCI {

const char * const ColorMapFile::EXTENSION = ".o2colormap";
const char * const ColorMapFile::FILE_FILTER = "Color map files (*.o2colormap);;All files (*.*)";
const char * const ColorMapFile::DIALOG_TITLE = "Select Color Map File";
const char * const ColorMapFile::READ_ERROR_TITLE = "File error";
const char * const ColorMapFile::READ_ERROR_TEXT = "Error reading color map from file. See logfile '%1' for details.";


void ColorMapFile::save(const ColorMap & map, const QString & path) {
	FUNCID(ColorMapFile::save);
	TiXmlDocument doc;
	TiXmlElement * root = XMLFile::createDocument(doc, "OrvaneColorMap", "OrvaneColorMap.xsd");
	TiXmlElement * e = new TiXmlElement("ColorMap");
	root->LinkEndChild(e);
	map.writeXML(e);
	XMLFile::save(doc, path, FUNC_ID);
}


ColorMap ColorMapFile::load(const QString & path) {
	FUNCID(ColorMapFile::load);
	TiXmlDocument doc;
	XMLFile::load(doc, path, "Error in line %1 of file '%2':\n%3", FUNC_ID);
	const TiXmlElement * root = doc.RootElement();
	if (root == nullptr || root->ValueStr() != "OrvaneColorMap")
		throw ZEB::Exception("Expected OrvaneColorMap as root node in XML file.", FUNC_ID);
	const TiXmlElement * e = root->FirstChildElement("ColorMap");
	if (e == nullptr)
		throw ZEB::Exception("Expected top-level 'ColorMap' element.", FUNC_ID);
	ColorMap map;
	map.readXML(e);
	return map;
}

} // namespace SCI
