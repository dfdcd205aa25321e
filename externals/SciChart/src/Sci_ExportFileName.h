#ifndef Sci_ExportFileNameH
#define Sci_ExportFileNameH

#include <QString>

namespace SCI {

/*! The file types a chart can be exported to and the rule that turns a file name the user typed
	into one of them: the bitmap export writes "png", "bmp" or "jpg", the vector export "pdf",
	"svg" or "emf"; any other extension is replaced by the first choice of the kind ("png" for
	bitmaps, "emf" for vector graphics).
*/
class ExportFileName {
public:
	/*! The two kinds of export target. */
	enum Kind {
		Bitmap,
		Vector
	};

	/*! The extension of the file name in lower case, the text after the last dot of the file
		name part; empty when there is none.
	*/
	static QString extension(const QString & fileName);

	/*! True for "png", "bmp" and "jpg" (lower case, without dot). */
	static bool isBitmapExtension(const QString & ext);
	/*! True for "pdf", "svg" and "emf" (lower case, without dot). */
	static bool isVectorExtension(const QString & ext);

	/*! The file name with an extension valid for kind: unchanged when its extension (in any
		case) is valid, otherwise with the extension replaced by "png" (bitmap) or "emf" (vector).
		A name without extension gets a "." and the replacement extension.
	*/
	static QString corrected(const QString & fileName, Kind kind);
};

} // namespace SCI

#endif // Sci_ExportFileNameH
