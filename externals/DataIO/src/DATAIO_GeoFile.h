#ifndef DATAIO_GeoFileH
#define DATAIO_GeoFileH

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace DATAIO {

/*! The construction geometry that field and flux outputs refer to: the materials, the grid of
	element widths, and the tables of elements and sides with their positions.

	It is read from a geometry file (generation 6, ASCII "S6GAQXV!" or binary "S6GBQXV!") or, for
	generation-5 output files, from the geometry section embedded in the output file. Element
	and side numbers are their positions in the tables, starting at 0; the output files' element
	and side numbers index these tables.
*/
class GeoFile {
public:
	/*! Magic characters of the ASCII and binary geometry files. */
	static const char * const MAGIC_ASCII;
	static const char * const MAGIC_BINARY;
	/*! The version written by this program; files of a newer minor version are rejected. */
	static constexpr unsigned int MAJOR_FILE_VERSION = 6;
	static constexpr unsigned int MINOR_FILE_VERSION = 0;
	/*! Section keywords of the ASCII form. */
	static const char * const KW_MATERIALS;
	static const char * const KW_GRID;
	static const char * const KW_ELEMENTS;
	static const char * const KW_SIDES;

	/*! Value of a side's neighbour when there is no element on that side (a boundary). */
	static constexpr std::int32_t NO_ELEMENT = -1;

	/*! A material of the construction. */
	struct Material {
		std::uint32_t	m_id = 0;
		std::string		m_name;		///< one line of text, may contain blanks
		bool operator==(const Material & o) const { return m_id == o.m_id && m_name == o.m_name; }
	};

	/*! A grid element (cell): its number, the position of its centre, its material and its
		column, row and layer index in the grid (used to place it in colour grids).
	*/
	struct Element {
		std::uint32_t	m_n = 0;
		double			m_x = 0;
		double			m_y = 0;
		double			m_z = 0;
		std::uint32_t	m_matId = 0;
		std::uint32_t	m_i = 0;
		std::uint32_t	m_j = 0;
		std::uint32_t	m_k = 0;
		bool operator==(const Element & o) const;
	};

	/*! A side (face between two elements or on the boundary): its number, the position of its
		centre, its orientation (0: normal in x, 1: in y, 2: in z direction) and the elements on
		its two sides (NO_ELEMENT on a boundary); fluxes count positive from the first to the
		second element.
	*/
	struct Side {
		std::uint32_t	m_n = 0;
		double			m_x = 0;
		double			m_y = 0;
		double			m_z = 0;
		std::uint32_t	m_orientation = 0;
		std::int32_t	m_elementA = NO_ELEMENT;
		std::int32_t	m_elementB = NO_ELEMENT;
		bool operator==(const Side & o) const;
	};

	/*! Removes everything. */
	void clear();
	/*! True when the geometry holds no materials, widths, elements and sides. */
	bool isEmpty() const;

	/*! Reads a geometry file, ASCII or binary, replacing the current content. */
	void read(const std::string & filename);

	/*! Parses the ASCII sections (MATERIALS, GRID, ELEMENT_GEOMETRY, SIDES_GEOMETRY) from their
		text, replacing the current content. Used for ASCII geometry files and for the geometry
		embedded in generation-5 ASCII output files.
	*/
	void parseGeometryData(const std::string & text);

	/*! Reads the binary geometry data (everything after the magic block of a binary geometry
		file) from the stream, which ends at stream position end. Used for binary geometry files
		and the geometry embedded in generation-5 binary output files.
	*/
	void readBinaryGeometryData(std::istream & in, std::uint64_t end);

	const std::string & filename() const { return m_filename; }
	bool isBinary() const { return m_isBinary; }
	unsigned int majorFileVersion() const { return m_majorFileVersion; }
	unsigned int minorFileVersion() const { return m_minorFileVersion; }
	const std::vector<Material> & materials() const { return m_materials; }
	const std::vector<double> & xWidths() const { return m_xWidths; }
	const std::vector<double> & yWidths() const { return m_yWidths; }
	const std::vector<double> & zWidths() const { return m_zWidths; }
	const std::vector<Element> & elements() const { return m_elements; }
	const std::vector<Side> & sides() const { return m_sides; }

	void setBinary(bool binary) { m_isBinary = binary; }
	/*! Sets the version; a geometry embedded in a generation-5 file is marked with major version 5. */
	void setFileVersion(unsigned int majorVersion, unsigned int minorVersion);
	void setMaterials(const std::vector<Material> & materials) { m_materials = materials; }
	void setGrid(const std::vector<double> & xWidths, const std::vector<double> & yWidths,
				 const std::vector<double> & zWidths);
	void setElements(const std::vector<Element> & elements) { m_elements = elements; }
	void setSides(const std::vector<Side> & sides) { m_sides = sides; }

	/*! True when the material with this id exists. */
	bool hasMaterial(std::uint32_t id) const;

	/*! Same content (materials, grid, elements and sides; not file name or version). */
	bool sameContent(const GeoFile & other) const;

private:
	/*! Checks the grid widths and the element and side tables after reading: numbers equal to the
		table positions, grid indices within the grid, orientations 0-2 and neighbours that exist.
		Failures carry the function id of the caller.
	*/
	void checkTables(const char * funcId) const;

	std::string				m_filename;
	bool					m_isBinary = false;
	unsigned int			m_majorFileVersion = MAJOR_FILE_VERSION;
	unsigned int			m_minorFileVersion = MINOR_FILE_VERSION;
	std::vector<Material>	m_materials;
	std::vector<double>		m_xWidths;
	std::vector<double>		m_yWidths;
	std::vector<double>		m_zWidths;
	std::vector<Element>	m_elements;
	std::vector<Side>		m_sides;
};

} // namespace DATAIO

#endif // DATAIO_GeoFileH
