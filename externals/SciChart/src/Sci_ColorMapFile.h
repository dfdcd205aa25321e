#ifndef Sci_ColorMapFileH
#define Sci_ColorMapFileH

#include <QString>

#include "Sci_ColorMap.h"

namespace SCI {

/*! Colour-map files (".o2colormap"): one colour map saved from and loaded into the colour
	map editor. The root element OrvaneColorMap holds exactly one ColorMap element with the
	map's children (Type, ColorStops, AlphaColor).
*/
class ColorMapFile {
public:
	/*! File name extension of colour-map files. */
	static const char * const EXTENSION;
	/*! Filter of the file dialogs. */
	static const char * const FILE_FILTER;
	/*! Title of the file dialogs. */
	static const char * const DIALOG_TITLE;
	/*! Title and text (placeholder: the log file path) of the message box shown when a colour
		map file cannot be read. */
	static const char * const READ_ERROR_TITLE;
	static const char * const READ_ERROR_TEXT;

	/*! Writes map to path. Throws ZEB::Exception. */
	static void save(const ColorMap & map, const QString & path);

	/*! Reads the colour map in the file at path. Throws ZEB::Exception for unreadable files,
		a foreign root element, a missing ColorMap element and invalid colour maps. */
	static ColorMap load(const QString & path);
};

} // namespace SCI

#endif // Sci_ColorMapFileH
