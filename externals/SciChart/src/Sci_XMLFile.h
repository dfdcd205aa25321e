#ifndef Sci_XMLFileH
#define Sci_XMLFileH

#include <QString>

class TiXmlDocument;
class TiXmlElement;

namespace SCI {

/*! Reading and writing of the chart library's own XML files (chart styles, colour maps):
	document head with the Orvane namespace declarations, saving and loading through Qt's file
	classes (so that any file name works), and the error messages for unreadable files.
	Saving replaces a file only with complete content; the project file is saved this way, too.
*/
class XMLFile {
public:
	/*! Namespace of Orvane files. */
	static const char * const NAMESPACE_URI;
	/*! Namespace of the foundation library's elements (prefix "ZEB"). */
	static const char * const ZEB_NAMESPACE_URI;
	/*! The standard XML Schema instance namespace. */
	static const char * const XSI_NAMESPACE_URI;

	/*! Fills an empty document with the declaration (version 1.0, UTF-8) and a root element
		with the namespace attributes, schema location NAMESPACE_URI + " " + schemaFile and
		fileVersion "1.0"; returns the root element.
	*/
	static TiXmlElement * createDocument(TiXmlDocument & doc, const char * rootName, const char * schemaFile);

	/*! Writes the document to path such that path is never left incomplete: the text goes to a
		temporary file beside it that replaces path only once it is complete.
		With a backupPath, a previous file at path is kept as backupPath: its copy is made in a
		temporary file, too, and replaces the backup only after the new file is in place.
		Throws ZEB::Exception with funcId when the new file cannot be written or the backup
		copy cannot be made; path and backupPath are then exactly as before the call. When only
		the final replacement of the backup fails, the new file stays saved and a warning says
		that the backup still holds an older version.
	*/
	static void save(const TiXmlDocument & doc, const QString & path, const char * funcId,
					 const QString & backupPath = QString());

	/*! Largest file load() reads. */
	static constexpr qint64 MAX_FILE_SIZE = 16*1024*1024;

	/*! Reads and parses the file at path; the one way in which XML files of any kind (sessions,
		style and colour-map files) are read. A parse error is thrown as ZEB::Exception with the
		message parseErrorTemplate, whose placeholders are filled with the line, the path and
		the parser's message. A file that cannot be read, one larger than MAX_FILE_SIZE and one
		that XMLFileCheck refuses before parsing are reported as such.
	*/
	static void load(TiXmlDocument & doc, const QString & path, const char * parseErrorTemplate,
					 const char * funcId);
};

} // namespace SCI

#endif // Sci_XMLFileH
