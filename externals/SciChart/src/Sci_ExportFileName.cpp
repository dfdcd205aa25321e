#include "Sci_ExportFileName.h"

#include <QFileInfo>

namespace SCI {

QString ExportFileName::extension(const QString & fileName) {
	return QFileInfo(fileName).suffix().toLower();
}


bool ExportFileName::isBitmapExtension(const QString & ext) {
	return ext == "png" || ext == "bmp" || ext == "jpg";
}


bool ExportFileName::isVectorExtension(const QString & ext) {
	return ext == "pdf" || ext == "svg" || ext == "emf";
}


QString ExportFileName::corrected(const QString & fileName, Kind kind) {
	const QString ext = extension(fileName);
	if (kind == Bitmap ? isBitmapExtension(ext) : isVectorExtension(ext))
		return fileName;
	const QString replacement = kind == Bitmap ? "png" : "emf";
	if (!ext.isEmpty())
		return fileName.left(fileName.size() - ext.size()) + replacement;
	// a trailing dot already separates the missing extension
	if (fileName.endsWith('.'))
		return fileName + replacement;
	return fileName + "." + replacement;
}

} // namespace SCI
