#ifndef EM_FieldCutH
#define EM_FieldCutH

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

#include <DATAIO_DataIO.h>

#include "EM_CutType.h"
#include "EM_SpaceGrid.h"

namespace EM {

/*! The cut of a field or flux container (data format 3D, 4D or 5D) as the field extractors use
	it: which dimensions the cut type fixes, which remain for the output and in which order, and
	which value columns lie in the output cells for given fixed space cells.

	The space dimensions of a container are X (3D), X and Y (4D), X, Y and Z (5D). The remaining
	(free) dimensions form the output in this order: time first when it is free, then the space
	dimensions in the order X, Y, Z.
*/
class FieldCut {
public:
	/*! The free dimensions of a cut type on a data format, in output order. Throws with the
		given function id when the format is no field format, when the cut type fixes a
		dimension that the format does not have, or when it leaves other than freeCount
		dimensions.
	*/
	static std::vector<unsigned int> freeDimensions(DATAIO::DataIO::DataFormat format, CutType cutType,
													unsigned int freeCount, const char * functionId);
	/*! Number of space dimensions of a field format (1 to 3), 0 for other formats. */
	static unsigned int spaceDimensionCount(DATAIO::DataIO::DataFormat format);

	/*! A cut that must leave freeCount dimensions; throws as freeDimensions(). */
	FieldCut(DATAIO::DataIO::DataFormat format, CutType cutType, unsigned int freeCount, const char * functionId);

	DATAIO::DataIO::DataFormat dataFormat() const { return m_format; }
	unsigned int spaceDimensionCount() const { return spaceDimensionCount(m_format); }
	/*! The free dimensions in output order. */
	const std::vector<unsigned int> & freeDimensions() const { return m_free; }
	/*! The free space dimensions, in order. */
	const std::vector<unsigned int> & freeSpaceDimensions() const { return m_freeSpace; }

	/*! The space grid of the container, built anew. Throws ZEB::Exception. */
	const SpaceGrid & rebuildGrid(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile & geometry) const;
	/*! The space grid of the container; built again only when its list or the geometry changed
		since it was last built. Throws ZEB::Exception.
	*/
	const SpaceGrid & grid(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile & geometry) const;

	/*! The value column of each output cell: the first column whose cells in the fixed space
		dimensions equal fixedCells (indexed by space dimension) and whose cells in the free space
		dimensions are those of the output cell; -1 for a cell without a column. Output cells are
		numbered along the free space dimensions, the first one fastest; without free space
		dimension there is one output cell.
	*/
	std::vector<std::ptrdiff_t> selectColumns(const SpaceGrid & grid, const std::array<unsigned int, 3> & fixedCells) const;

	// the steps that the field extractors share

	/*! The cell centres (metres) along a space dimension of the container; none without
		geometry. Throws ZEB::Exception when the geometry does not fit the container.
	*/
	std::vector<double> cellCentres(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry,
									unsigned int dimension) const;
	/*! Checks that the container has the cut's data format (else reports formatMessage) and that
		there is a geometry with data; reports a failure with the given function id and returns
		false then.
	*/
	bool checkInput(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry, const char * formatMessage,
					const char * functionId) const;
	/*! Builds the space grid of the container anew and selects the value columns of the output
		cells (selectColumns()) in the cells that selectedCell(dimension, cellCount) gives for the
		fixed space dimensions. Returns the grid. Throws ZEB::Exception; without geometry the
		message is "Missing/invalid geometry data for DataIO container." with the given function
		id.
	*/
	const SpaceGrid & selectCutColumns(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry,
									   const std::function<unsigned int(unsigned int, std::size_t)> & selectedCell,
									   std::vector<std::ptrdiff_t> & columns, const char * functionId) const;

private:
	DATAIO::DataIO::DataFormat	m_format;
	std::vector<unsigned int>	m_free;
	std::vector<unsigned int>	m_freeSpace;
	/*! The grid of the last build, kept for cut values between updates. */
	mutable SpaceGrid			m_grid;
};

} // namespace EM

#endif // EM_FieldCutH
