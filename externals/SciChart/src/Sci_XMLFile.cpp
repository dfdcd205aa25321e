#include "Sci_XMLFile.h"

#include <QFile>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "Sci_XMLFileCheck.h"

namespace SCI {

const char * const XMLFile::NAMESPACE_URI = "http://www.orvane.org";
const char * const XMLFile::ZEB_NAMESPACE_URI = "http://www.orvane.org/ZEB";
const char * const XMLFile::XSI_NAMESPACE_URI = "http://www.w3.org/2001/XMLSchema-instance";


TiXmlElement * XMLFile::createDocument(TiXmlDocument & doc, const char * rootName, const char * schemaFile) {
	doc.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
	TiXmlElement * root = new TiXmlElement(rootName);
	doc.LinkEndChild(root);
	root->SetAttribute("xmlns", NAMESPACE_URI);
	root->SetAttribute("xmlns:xsi", XSI_NAMESPACE_URI);
	root->SetAttribute("xmlns:ZEB", ZEB_NAMESPACE_URI);
	root->SetAttribute("xsi:schemaLocation", std::string(NAMESPACE_URI) + " " + schemaFile);
	root->SetAttribute("fileVersion", "1.0");
	return root;
}


void XMLFile::save(const TiXmlDocument & doc, const QString & path, const char * funcId) {
	TiXmlPrinter printer;
	printer.SetIndent("\t");
	doc.Accept(&printer);
	QFile f(path);
	if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)
			|| f.write(printer.CStr(), static_cast<qint64>(printer.Size())) != static_cast<qint64>(printer.Size())
			|| !f.flush())
	{
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write file '%1' (%2).")
							 .arg(path.toStdString()).arg(f.errorString().toStdString()), funcId);
	}
}


void XMLFile::load(TiXmlDocument & doc, const QString & path, const char * parseErrorTemplate,
				   const char * funcId)
{
	QFile f(path);
	if (!f.open(QIODevice::ReadOnly))
		throw ZEB::Exception(ZEB::MessageFormat("Cannot open file '%1' (%2).")
							 .arg(path.toStdString()).arg(f.errorString().toStdString()), funcId);
	// one byte more than allowed is asked for, so that neither a huge file nor an endless device
	// is read completely
	const qint64 expectedSize = f.isSequential() ? MAX_FILE_SIZE : qMin(f.size(), MAX_FILE_SIZE);
	const QByteArray data = f.read(expectedSize + 1);
	if (f.error() != QFileDevice::NoError)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot read file '%1' (%2).")
							 .arg(path.toStdString()).arg(f.errorString().toStdString()), funcId);
	if (data.size() > MAX_FILE_SIZE)
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' is larger than %2 bytes, too large for an XML file "
												"of this program.").arg(path.toStdString()).arg(MAX_FILE_SIZE), funcId);
	XMLFileCheck::check(data.constData(), static_cast<std::size_t>(data.size()), path.toStdString());
	doc.Parse(data.constData(), nullptr, TIXML_ENCODING_UTF8);
	if (doc.Error())
		throw ZEB::Exception(ZEB::MessageFormat(parseErrorTemplate)
							 .arg(doc.ErrorRow()).arg(path.toStdString()).arg(doc.ErrorDesc()), funcId);
}

} // namespace SCI
