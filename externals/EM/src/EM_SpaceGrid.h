#ifndef EM_SpaceGridH
#define EM_SpaceGridH

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace DATAIO {
class DataIO;
class GeoFile;
}

namespace EM {

/*! The space grid of the values of a field or flux container: for each space dimension (the
	geometric directions in which the positions of the listed elements or sides differ, in the
	order x, y, z) the cells along it with their centres and, for elements, their edges; and for
	each value column the cell it lies in. Coordinates are in metres.

	An element grid spans every grid column from the first to the last one that holds a listed
	element, so that a colour grid draws uncovered cells (as empty) with their true widths; the
	edges follow from the grid widths of the geometry, anchored at the centre of a listed
	element. A cell's centre is the centre of the first listed element in it, or the middle
	between its edges when none lies there. A side grid has one cell per distinct side position
	and no edges.
*/
class SpaceGrid {
public:
	/*! Builds the grid of the values of a container, one value per listed element (or side for
		flux outputs). The positions must differ in exactly dimensionCount directions.
		Throws ZEB::Exception.
	*/
	void build(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile & geometry, unsigned int dimensionCount);

	/*! Builds the grid of the given elements over the given geometric directions (0 x, 1 y,
		2 z, ascending); column c is elements[c]. Throws ZEB::Exception.
	*/
	void buildFromElements(const DATAIO::GeoFile & geometry, const std::vector<std::uint32_t> & elements,
						   const std::vector<unsigned int> & directions);

	/*! True when build() made this grid from the current list of this container and this
		geometry, with this dimension count.
	*/
	bool isBuiltFor(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry, unsigned int dimensionCount) const;

	unsigned int dimensionCount() const { return static_cast<unsigned int>(m_axes.size()); }
	/*! Geometric direction (0 x, 1 y, 2 z) of a space dimension. */
	unsigned int direction(unsigned int dim) const { return m_axes[dim].m_direction; }
	/*! Number of cells along a space dimension. */
	std::size_t cellCount(unsigned int dim) const { return m_axes[dim].m_centres.size(); }
	/*! Cell centres along a space dimension, ascending. */
	const std::vector<double> & centres(unsigned int dim) const { return m_axes[dim].m_centres; }
	/*! Cell edges along a space dimension (one more than cells); empty for side grids. */
	const std::vector<double> & edges(unsigned int dim) const { return m_axes[dim].m_edges; }
	/*! The coordinates a colour grid draws: the edges when known, else the centres. */
	const std::vector<double> & drawCoordinates(unsigned int dim) const;

	/*! Number of value columns. */
	std::size_t columnCount() const { return m_cells.size()/3; }
	/*! The cell of a column along a space dimension. */
	unsigned int cell(std::size_t column, unsigned int dim) const { return m_cells[column*3 + dim]; }

	/*! The geometric directions (0 x, 1 y, 2 z) in which the positions differ, ascending. */
	static std::vector<unsigned int> varyingDirections(const std::vector<std::array<double, 3> > & positions);

private:
	/*! One space dimension. */
	struct Axis {
		unsigned int		m_direction = 0;
		std::vector<double>	m_centres;
		std::vector<double>	m_edges;
	};

	/*! Axes and cells of elements from their grid indices and the grid widths. */
	void buildElementAxes(const DATAIO::GeoFile & geometry, const std::vector<std::uint32_t> & elements,
						  const std::vector<unsigned int> & directions);
	/*! Axes and cells of points from their distinct coordinates. */
	void buildPositionAxes(const std::vector<std::array<double, 3> > & positions,
						   const std::vector<unsigned int> & directions);

	std::vector<Axis>			m_axes;
	/*! Three cell indices per column (unused dimensions 0). */
	std::vector<unsigned int>	m_cells;

	/*! What build() was called with, for isBuiltFor(). */
	const DATAIO::GeoFile *		m_geometry = nullptr;
	std::vector<std::uint32_t>	m_nums;
	int							m_outputType = -1;
};

} // namespace EM

#endif // EM_SpaceGridH
