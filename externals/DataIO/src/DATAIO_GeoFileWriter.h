#ifndef DATAIO_GeoFileWriterH
#define DATAIO_GeoFileWriterH

#include <iosfwd>
#include <string>

namespace DATAIO {

class GeoFile;

/*! Writes geometry files, ASCII or binary, and the geometry sections that generation-5 output
	files embed. Doubles are written in shortest round-trip form (ASCII) or as their 8 bytes
	(binary), so that reading back gives the same geometry bit for bit.
*/
class GeoFileWriter {
public:
	/*! Writes a complete geometry file with magic block. */
	static void write(const std::string & filename, const GeoFile & geometry, bool binary);

	/*! Writes the ASCII sections MATERIALS, GRID, ELEMENT_GEOMETRY and SIDES_GEOMETRY. Throws
		when a material name contains a line break or begins or ends with blanks, which the
		line-based form cannot keep.
	*/
	static void writeASCIISections(std::ostream & out, const GeoFile & geometry);

	/*! Writes the binary geometry data (the part after the magic block). */
	static void writeBinaryGeometryData(std::ostream & out, const GeoFile & geometry);
};

} // namespace DATAIO

#endif // DATAIO_GeoFileWriterH
