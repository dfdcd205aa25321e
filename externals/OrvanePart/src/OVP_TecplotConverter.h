#ifndef OVP_TecplotConverterH
#define OVP_TecplotConverterH

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <QString>

namespace EM {
class ExtractorVecFromFluxField;
}

namespace OVP {

class FieldOutputFile;

/*! Writes a field or flux output on its construction's grid as a Tecplot ASCII data file that
	ParaView and other Tecplot readers open.

	The file has the coordinate variables "x", "y" (and "z" for grids that extend in z), in
	metres, then the value variables; one zone per time point with its solution time in the
	output's time unit (named in the zone title and in the data set's TimeUnit aux data). Every
	zone repeats nodes and connectivity, so that each zone can be read on its own.

	- Field outputs: a finite-element zone over the nodes of the grid (line segments,
	  quadrilaterals or bricks for grids in one, two or three directions) with the values
	  "<quantity> [<value unit>]" cell-centred, one per element that the output lists; grid
	  cells that it does not list are left out, so that no placeholder value is ever shown.
	- Flux outputs of two-dimensional grids: the vector field of the vector chart
	  (EM::ExtractorVecFromFluxField), cell-centred on the quadrilaterals of the elements next
	  to the listed sides, as the components along the plane's two directions and the magnitude
	  ("q_x [W/m2]", "q_y [W/m2]", "|q| [W/m2]"; q for heat, g for mass, j for other fluxes).
	- Flux outputs of one-dimensional grids: the flux through each side as it stands in the
	  file ("q [W/m2]"), a value at each side position, the sides joined by line segments.

	Flux outputs of three-dimensional grids are refused.
*/
class TecplotConverter {
public:
	/*! Values written per line in the data blocks. */
	static constexpr std::size_t VALUES_PER_LINE = 10;

	/*! A converter of the file, all of whose time points are written unless a range is set. */
	explicit TecplotConverter(FieldOutputFile & input);
	~TecplotConverter();

	/*! Writes only the time point indexes first to last (both included). */
	void setTimeRange(unsigned int first, unsigned int last);

	/*! Writes the file through a temporary file beside the target. Throws ZEB::Exception for a
		flux output of a three-dimensional grid, a time range outside the file and a target that
		cannot be written; no file is left behind then.
	*/
	void write(const QString & target);

private:
	/*! What the zones hold. */
	enum Kind {
		K_Field,		///< element values, cell-centred
		K_FluxVectors,	///< vector components and magnitude, cell-centred
		K_FluxLine		///< side values at the nodes
	};

	/*! Builds the mesh and the value columns of the element values of a field output. */
	void prepareField();
	/*! Builds the mesh of the vector field from its extraction at the first time point. */
	void prepareFluxVectors();
	/*! Builds the line through the side positions of a flux output of a one-dimensional grid. */
	void prepareFluxLine();
	/*! Builds node coordinates and connectivity of a structured grid: for each of its dimensions
		the edges (nodes) along its geometric direction (0 x, 1 y, 2 z); the grid cells to write
		as linear indexes, the first dimension fastest; the position of all nodes in the other
		directions.
	*/
	void buildMesh(const std::vector<const std::vector<double> *> & edges, const std::vector<unsigned int> & directions,
				   const std::vector<std::size_t> & cells, const double fixedPosition[3]);
	/*! Extracts the vector field at a time point; throws when the extractor fails. */
	void extractVectors(unsigned int timeIndex);
	/*! The file header: title, variables and the data set's aux data. */
	std::string fileHeader() const;
	/*! Appends the zone of a time point. */
	void appendZone(std::string & out, unsigned int timeIndex);

	FieldOutputFile &			m_input;
	unsigned int				m_first = 0;
	/*! Last time point index; the last time point of the file when no range was set. */
	unsigned int				m_last = 0;
	bool						m_rangeSet = false;

	Kind						m_kind = K_Field;
	/*! Names of the value variables, with unit. */
	std::vector<std::string>	m_valueNames;
	/*! Number of coordinate variables (2 or 3). */
	unsigned int				m_coordinateCount = 2;
	const char *				m_zoneType = "";
	std::size_t					m_nodeCount = 0;
	std::size_t					m_cellCount = 0;
	/*! Per written cell (field, vectors) or node (line): the value column of the output, or for
		vectors the point of the extracted field.
	*/
	std::vector<std::size_t>	m_columns;
	/*! The node coordinate blocks and the connectivity, the same in every zone. */
	std::string					m_nodeText;
	std::string					m_connectivityText;
	/*! The vector chart's extractor, for flux outputs of two-dimensional grids. */
	std::unique_ptr<EM::ExtractorVecFromFluxField>	m_vectors;
};

} // namespace OVP

#endif // OVP_TecplotConverterH
