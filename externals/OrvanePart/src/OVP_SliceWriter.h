#ifndef OVP_SliceWriterH
#define OVP_SliceWriterH

#include <cstdint>
#include <vector>

#include <QString>

#include <DATAIO_DataIO.h>

#include <EM_CutType.h>

namespace EM {
class SpaceGrid;
}

namespace OVP {

class FieldOutputFile;

/*! Cuts a field output down to a new output file in the simulation program's own format, read
	like any result: the history at one element (one value per time point), or the profile along
	the grid row or column through an element, at one time point or over all of them (a field
	output of the elements on the line, with the same geometry). A flux output of a
	one-dimensional grid is cut alike, its sides taking the place of the elements; the slice
	stays a flux output. Fluxes of larger grids are refused: the charts show them as vectors only.

	The cuts are made by the extractors that the charts use, so that a slice holds exactly what a
	chart of the same cut shows. The new file keeps the variant (ASCII or binary) and the
	generation of the source: generation-6 files refer to the source's geometry file (the name
	written relative to the new file's folder), generation-5 files embed its geometry. Quantity,
	units, project file and start year are copied; the quantity names the cut.
*/
class SliceWriter {
public:
	/*! Time index of a profile over all time points. */
	static constexpr unsigned int ALL_TIMES = 0xFFFFFFFFu;

	explicit SliceWriter(FieldOutputFile & input);

	/*! Writes the values of the element (the side of a flux output) at every time point.
		Throws ZEB::Exception for a flux output of a grid in more than one direction, an element
		the output does not list and a target that cannot be written; no file is left behind
		then.
	*/
	void writeHistory(std::uint32_t element, const QString & target);

	/*! Writes the values along the grid line through the element in a geometric direction (0 x,
		1 y, 2 z) at one time point index, or at all of them (ALL_TIMES). Throws ZEB::Exception
		as writeHistory(), and for a direction in which the output's values do not vary and a time
		index outside the file.
	*/
	void writeProfile(std::uint32_t element, unsigned int direction, unsigned int timeIndex, const QString & target);

private:
	/*! Builds the output's space grid into grid and returns the cells of the element along its
		dimensions; checks that the output can be cut and lists the element.
	*/
	std::vector<unsigned int> elementCells(std::uint32_t element, EM::SpaceGrid & grid) const;
	/*! "element", or "side" for a flux output. */
	const char * itemName() const;
	/*! The cut type that fixes the space dimensions selected by the bit mask (1 << dimension)
		and, with cutTime, the time.
	*/
	static EM::CutType cutType(unsigned int spaceMask, bool cutTime);
	/*! The header of a slice: the source's, with the given element numbers and quantity. */
	DATAIO::DataIO sliceHeader(const std::vector<std::uint32_t> & elements, const std::string & quantity,
							   const QString & target) const;
	/*! Writes header and records through a temporary file beside the target. */
	static void writeFile(const DATAIO::DataIO & header, const std::vector<double> & timePoints,
						  const std::vector<double> & values, const QString & target);

	FieldOutputFile &	m_input;
};

} // namespace OVP

#endif // OVP_SliceWriterH
