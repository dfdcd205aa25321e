#include "Sci_XMLFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

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


namespace {

/*! The exception for a file that could not be written. */
ZEB::Exception cannotWrite(const QString & path, const QString & reason, const char * funcId) {
	return ZEB::Exception(ZEB::MessageFormat("Cannot write file '%1' (%2).")
						  .arg(path.toStdString()).arg(reason.toStdString()), funcId);
}


/*! Writes a byte-identical copy of the file source into target, which is opened here and left
	uncommitted. Throws ZEB::Exception when source cannot be read or the copy cannot be written.
*/
void writeUncommittedCopy(const QString & source, QSaveFile & target, const char * funcId) {
	QFile in(source);
	QByteArray content;
	if (in.open(QIODevice::ReadOnly))
		content = in.readAll();
	const qint64 size = content.size();
	if (in.error() != QFileDevice::NoError || !target.open(QIODevice::WriteOnly)
			|| target.write(content) != size || !target.flush())
	{
		const QString reason = in.error() != QFileDevice::NoError ? in.errorString() : target.errorString();
		throw ZEB::Exception(ZEB::MessageFormat("Cannot create backup copy '%1' of file '%2' (%3).")
							 .arg(target.fileName().toStdString()).arg(source.toStdString())
							 .arg(reason.toStdString()), funcId);
	}
}

} // namespace


void XMLFile::save(const TiXmlDocument & doc, const QString & path, const char * funcId, const QString & backupPath) {
	TiXmlPrinter printer;
	printer.SetIndent("\t");
	doc.Accept(&printer);
	const qint64 size = static_cast<qint64>(printer.Size());

	// The new content and the backup copy go to temporary files beside their targets. Nothing
	// replaces a target before both are complete, so every failure up to the commit of the new
	// file leaves the previous file and the old backup as they were (uncommitted temporary files
	// are removed by QSaveFile).
	QSaveFile file(path);
	if (!file.open(QIODevice::WriteOnly) || file.write(printer.CStr(), size) != size || !file.flush())
		throw cannotWrite(path, file.errorString(), funcId);
	const bool keepBackup = !backupPath.isEmpty() && QFileInfo::exists(path);
	QSaveFile backup(backupPath);
	if (keepBackup)
		writeUncommittedCopy(path, backup, funcId);
	if (!file.commit())
		throw cannotWrite(path, file.errorString(), funcId);
	// the new file is in place; a backup that cannot follow keeps its older content
	if (keepBackup && !backup.commit())
		ZEB::reportWarning(ZEB::MessageFormat("File '%1' was saved, but its backup copy '%2' could not be updated "
											  "(%3) and still holds an older version.")
						   .arg(path.toStdString()).arg(backupPath.toStdString())
						   .arg(backup.errorString().toStdString()).str(), funcId);
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
