#ifndef OVP_TecplotConverterH
#define OVP_TecplotConverterH

#include <cstddef>
#include <string>
#include <vector>

#include <QString>

namespace OVP {

class FieldOutputFile;

/*! Writes the element values of a field output as a Tecplot ASCII data file that ParaView and
	other Tecplot readers open.

	The file has the variables "x", "y" (and "z" for grids that extend in z), in metres, and
	"<quantity> [<value unit>]"; one zone per time point with its solution time in the output's
	time unit (named in the zone title and in the data set's TimeUnit aux data). Each zone is a
	finite-element zone over the nodes of the construction's grid (line segments, quadrilaterals
	or bricks for grids in one, two or three directions) with the values cell-centred, one per
	element that the output lists; grid cells that it does not list (other materials, elements
	outside the output) are left out, so that no placeholder value is ever shown. Every zone
	repeats nodes and connectivity, so that each zone can be read on its own.

	Flux outputs (values on sides) are refused.
*/
class TecplotConverter {
public:
	/*! Values written per line in the data blocks. */
	static constexpr std::size_t VALUES_PER_LINE = 10;

	/*! A converter of the file, all of whose time points are written unless a range is set. */
	explicit TecplotConverter(FieldOutputFile & input);

	/*! Writes only the time point indexes first to last (both included). */
	void setTimeRange(unsigned int first, unsigned int last);

	/*! Writes the file through a temporary file beside the target. Throws ZEB::Exception for a
		flux output, a time range outside the file and a target that cannot be written; no
		file is left behind then.
	*/
	void write(const QString & target);

private:
	/*! Builds the grid's node coordinates and connectivity text and the value column of each
		written cell.
	*/
	void buildMesh();
	/*! The file header: title, variables and the data set's aux data. */
	std::string fileHeader() const;
	/*! Appends the zone of a time point. */
	void appendZone(std::string & out, unsigned int timeIndex);

	FieldOutputFile &			m_input;
	unsigned int				m_first = 0;
	/*! Last time point index; the last time point of the file when no range was set. */
	unsigned int				m_last;
	bool						m_rangeSet = false;
	/*! Number of coordinate variables (2 or 3). */
	unsigned int				m_coordinateCount = 2;
	const char *				m_zoneType = "";
	std::size_t					m_nodeCount = 0;
	/*! Value column of each written cell, in the order of the connectivity. */
	std::vector<std::size_t>	m_cellColumns;
	/*! The node coordinate blocks and the connectivity, the same in every zone. */
	std::string					m_nodeText;
	std::string					m_connectivityText;
};

} // namespace OVP

#endif // OVP_TecplotConverterH
