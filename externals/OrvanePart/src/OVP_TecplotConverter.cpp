#include "OVP_TecplotConverter.h"

#include <array>
#include <cmath>
#include <fstream>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_NumberText.h>

#include <EM_ExtractorFactory.h>
#include <EM_ExtractorVecFromFluxField.h>
#include <EM_FieldCut.h>
#include <EM_SpaceGrid.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_UnitList.h>

#include "OVP_FieldOutputFile.h"
#include "OVP_TemporaryTarget.h"

namespace OVP {

namespace {

/*! A text that Tecplot keeps inside double quotes: double quotes become single ones, line breaks blanks. */
std::string quotable(const std::string & text) {
	std::string result = text;
	for (char & c : result) {
		if (c == '"')
			c = '\'';
		else if (c == '\n' || c == '\r')
			c = ' ';
	}
	return result;
}

/*! Appends numbers, VALUES_PER_LINE on a line. */
template <typename Value>
void appendBlock(std::string & out, std::size_t count, Value value) {
	for (std::size_t i = 0; i < count; ++i) {
		DATAIO::NumberText::appendDouble(out, value(i));
		out += (i + 1) % TecplotConverter::VALUES_PER_LINE == 0 || i + 1 == count ? '\n' : ' ';
	}
}

const char * const DIRECTION_NAMES[3] = { "x", "y", "z" };

/*! The symbol of a flux in variable names: q for heat (units of W/m2), g for mass (units of
	kg/m2s), j for any other flux.
*/
std::string fluxSymbol(const std::string & unitName) {
	const ZEB::UnitData * unit = ZEB::UnitList::instance().retrieve(unitName);
	if (unit != nullptr && unit->base_id() == ZEB::Unit("J/m2s").id())
		return "q";
	if (unit != nullptr && unit->base_id() == ZEB::Unit("kg/m2s").id())
		return "g";
	return "j";
}

/*! The position of an element or side. */
template <typename T>
void positionOf(const T & item, double position[3]) {
	position[0] = item.m_x;
	position[1] = item.m_y;
	position[2] = item.m_z;
}

/*! Writes a buffer to the stream and empties it. */
void flushBuffer(std::ofstream & out, std::string & buffer) {
	out.write(buffer.data(), static_cast<std::streamsize>(buffer.size()));
	buffer.clear();
}

} // namespace


TecplotConverter::TecplotConverter(FieldOutputFile & input) :
	m_input(input)
{
}


TecplotConverter::~TecplotConverter() = default;


void TecplotConverter::setTimeRange(unsigned int first, unsigned int last) {
	m_first = first;
	m_last = last;
	m_rangeSet = true;
}


void TecplotConverter::write(const QString & target) {
	FUNCID(TecplotConverter::write);
	try {
		const DATAIO::DataIO & dataIO = m_input.dataIO();
		const std::size_t count = dataIO.timePoints().size();
		const unsigned int last = m_rangeSet ? m_last : static_cast<unsigned int>(count == 0 ? 0 : count - 1);
		m_input.checkTimeRange(m_first, last);
		if (!m_input.isFlux())
			prepareField();
		else if (dataIO.dataFormat() == DATAIO::DataIO::DF_4D)
			prepareFluxVectors();
		else if (dataIO.dataFormat() == DATAIO::DataIO::DF_3D)
			prepareFluxLine();
		else
			throw ZEB::Exception(ZEB::MessageFormat("Output file '%1' holds fluxes across the sides of a "
				"three-dimensional grid; the Tecplot conversion writes fluxes of one- and two-dimensional grids only.")
				.arg(m_input.path().toStdString()), FUNC_ID);

		TemporaryTarget file(target);
		std::ofstream out(file.path(), std::ios::binary | std::ios::trunc);
		std::string buffer = fileHeader();
		for (unsigned int t = m_first; t <= last; ++t) {
			appendZone(buffer, t);
			if (buffer.size() > (1u << 20))
				flushBuffer(out, buffer);
		}
		flushBuffer(out, buffer);
		out.close();
		if (!out)
			throw ZEB::Exception(ZEB::MessageFormat("Error writing file '%1'.").arg(file.path()), FUNC_ID);
		file.commit();
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Converting '%1' to Tecplot file '%2' failed.")
							 .arg(m_input.path().toStdString()).arg(target.toStdString()), FUNC_ID);
	}
}


void TecplotConverter::prepareField() {
	const DATAIO::DataIO & dataIO = m_input.dataIO();
	const unsigned int dims = EM::FieldCut::spaceDimensionCount(dataIO.dataFormat());
	EM::SpaceGrid grid;
	grid.build(dataIO, m_input.geometry(), dims);

	// the first column in a cell gives its value, as in the extractors
	std::array<std::size_t, 3> cells = { { 1, 1, 1 } };
	std::vector<const std::vector<double> *> edges;
	std::vector<unsigned int> directions;
	for (unsigned int d = 0; d < dims; ++d) {
		cells[d] = grid.cellCount(d);
		edges.push_back(&grid.edges(d));
		directions.push_back(grid.direction(d));
	}
	std::vector<std::ptrdiff_t> cellColumn(cells[0]*cells[1]*cells[2], -1);
	for (std::size_t c = 0; c < grid.columnCount(); ++c) {
		std::size_t index = 0;
		for (unsigned int d = dims; d-- > 0;)
			index = index*cells[d] + grid.cell(c, d);
		if (cellColumn[index] < 0)
			cellColumn[index] = static_cast<std::ptrdiff_t>(c);
	}
	std::vector<std::size_t> written;
	m_columns.clear();
	for (std::size_t index = 0; index < cellColumn.size(); ++index)
		if (cellColumn[index] >= 0) {
			written.push_back(index);
			m_columns.push_back(static_cast<std::size_t>(cellColumn[index]));
		}

	double fixedPosition[3];
	positionOf(m_input.geometry().elements()[dataIO.nums().front()], fixedPosition);
	buildMesh(edges, directions, written, fixedPosition);
	m_kind = K_Field;
	m_valueNames = { quotable(dataIO.quantity()) + " [" + quotable(dataIO.valueUnit()) + "]" };
}


void TecplotConverter::prepareFluxVectors() {
	FUNCID(TecplotConverter::prepareFluxVectors);
	DATAIO::DataIO & dataIO = m_input.dataIO();
	// the extractor of the vector chart, with the container's own units (positions in metres)
	std::unique_ptr<EM::ExtractorBase> extractor = EM::ExtractorFactory::createExtractor(&dataIO, EM::CT_TimeCut,
																						  m_input.sharedGeometry());
	EM::ExtractorVecFromFluxField * vectors = dynamic_cast<EM::ExtractorVecFromFluxField *>(extractor.get());
	if (vectors == nullptr)
		throw ZEB::Exception("The vector field of a flux output needs the flux field extractor.", FUNC_ID);
	extractor.release();
	m_vectors.reset(vectors);
	extractVectors(m_first);

	// the points that hold a vector are the cells of the elements next to the listed sides
	std::vector<std::size_t> written;
	const std::vector<double> & vx = m_vectors->xComponents().m_data;
	for (std::size_t p = 0; p < vx.size(); ++p)
		if (!std::isnan(vx[p]))
			written.push_back(p);
	m_columns = written;

	const std::array<unsigned int, 2> & plane = m_vectors->planeDirections();
	double fixedPosition[3];
	positionOf(m_input.geometry().sides()[dataIO.nums().front()], fixedPosition);
	buildMesh({ &m_vectors->cellEdges(0), &m_vectors->cellEdges(1) }, { plane[0], plane[1] }, written, fixedPosition);
	m_kind = K_FluxVectors;
	const std::string symbol = fluxSymbol(dataIO.valueUnit());
	const std::string unit = " [" + quotable(dataIO.valueUnit()) + "]";
	m_valueNames = { symbol + "_" + DIRECTION_NAMES[plane[0]] + unit, symbol + "_" + DIRECTION_NAMES[plane[1]] + unit,
					 "|" + symbol + "|" + unit };
}


void TecplotConverter::prepareFluxLine() {
	const DATAIO::DataIO & dataIO = m_input.dataIO();
	EM::SpaceGrid grid;
	grid.build(dataIO, m_input.geometry(), 1);
	// a node at every side position, with the value of the first side there, as in the extractors
	const std::size_t nodes = grid.cellCount(0);
	std::vector<std::ptrdiff_t> nodeColumn(nodes, -1);
	for (std::size_t c = 0; c < grid.columnCount(); ++c)
		if (nodeColumn[grid.cell(c, 0)] < 0)
			nodeColumn[grid.cell(c, 0)] = static_cast<std::ptrdiff_t>(c);
	m_columns.assign(nodeColumn.begin(), nodeColumn.end());
	std::vector<std::size_t> segments;
	for (std::size_t s = 0; s + 1 < nodes; ++s)
		segments.push_back(s);

	double fixedPosition[3];
	positionOf(m_input.geometry().sides()[dataIO.nums().front()], fixedPosition);
	buildMesh({ &grid.centres(0) }, { grid.direction(0) }, segments, fixedPosition);
	m_kind = K_FluxLine;
	m_valueNames = { fluxSymbol(dataIO.valueUnit()) + " [" + quotable(dataIO.valueUnit()) + "]" };
}


void TecplotConverter::buildMesh(const std::vector<const std::vector<double> *> & edges,
								 const std::vector<unsigned int> & directions, const std::vector<std::size_t> & cells,
								 const double fixedPosition[3])
{
	const unsigned int dims = static_cast<unsigned int>(edges.size());
	std::array<std::size_t, 3> nodes = { { 1, 1, 1 } };
	std::array<std::size_t, 3> cellCounts = { { 1, 1, 1 } };
	std::array<int, 3> dimensionOfDirection = { { -1, -1, -1 } };
	for (unsigned int d = 0; d < dims; ++d) {
		nodes[d] = edges[d]->size();
		cellCounts[d] = nodes[d] - 1;
		dimensionOfDirection[directions[d]] = static_cast<int>(d);
	}
	m_nodeCount = nodes[0]*nodes[1]*nodes[2];
	m_cellCount = cells.size();
	m_coordinateCount = dims == 3 || dimensionOfDirection[2] >= 0 ? 3 : 2;
	static const char * const ZONE_TYPES[3] = { "FELINESEG", "FEQUADRILATERAL", "FEBRICK" };
	m_zoneType = ZONE_TYPES[dims - 1];

	// coordinates: the edges along the grid's dimensions, the fixed position in the other directions
	m_nodeText.clear();
	for (unsigned int direction = 0; direction < m_coordinateCount; ++direction) {
		const int d = dimensionOfDirection[direction];
		if (d < 0) {
			appendBlock(m_nodeText, m_nodeCount, [&](std::size_t) { return fixedPosition[direction]; });
			continue;
		}
		const std::vector<double> & along = *edges[static_cast<std::size_t>(d)];
		std::size_t stride = 1;
		for (int e = 0; e < d; ++e)
			stride *= nodes[static_cast<std::size_t>(e)];
		appendBlock(m_nodeText, m_nodeCount, [&](std::size_t n) { return along[(n/stride) % nodes[static_cast<std::size_t>(d)]]; });
	}

	// node numbers (counted from 1) of each written cell: Tecplot's corner order, the lower face
	// counter-clockwise, then the upper one
	static const unsigned int CORNERS[8][3] = {
		{ 0, 0, 0 }, { 1, 0, 0 }, { 1, 1, 0 }, { 0, 1, 0 }, { 0, 0, 1 }, { 1, 0, 1 }, { 1, 1, 1 }, { 0, 1, 1 } };
	const unsigned int cornerCount = 1u << dims;
	m_connectivityText.clear();
	for (std::size_t index : cells) {
		const std::size_t i = index % cellCounts[0];
		const std::size_t j = (index/cellCounts[0]) % cellCounts[1];
		const std::size_t k = index/(cellCounts[0]*cellCounts[1]);
		for (unsigned int corner = 0; corner < cornerCount; ++corner) {
			const std::size_t node = (i + CORNERS[corner][0]) +
				nodes[0]*((j + CORNERS[corner][1]) + nodes[1]*(k + CORNERS[corner][2]));
			DATAIO::NumberText::appendInteger(m_connectivityText, node + 1);
			m_connectivityText += corner + 1 == cornerCount ? '\n' : ' ';
		}
	}
}


void TecplotConverter::extractVectors(unsigned int timeIndex) {
	FUNCID(TecplotConverter::extractVectors);
	m_vectors->setTimeCutIndex(timeIndex, true, false);
	m_input.runExtractor(*m_vectors, FUNC_ID);
}


std::string TecplotConverter::fileHeader() const {
	const DATAIO::DataIO & dataIO = m_input.dataIO();
	std::string text = "TITLE = \"" + quotable(dataIO.quantity()) + " from " + quotable(m_input.fileName().toStdString()) + "\"\n";
	text += m_coordinateCount == 3 ? "VARIABLES = \"x\" \"y\" \"z\"" : "VARIABLES = \"x\" \"y\"";
	for (const std::string & name : m_valueNames)
		text += " \"" + name + "\"";
	text += "\nDATASETAUXDATA CoordinateUnit = \"m\"\n";
	text += "DATASETAUXDATA TimeUnit = \"" + quotable(dataIO.timeUnit()) + "\"\n";
	return text;
}


void TecplotConverter::appendZone(std::string & out, unsigned int timeIndex) {
	DATAIO::DataIO & dataIO = m_input.dataIO();
	const double time = dataIO.timePoints()[timeIndex];
	out += "ZONE T = \"t = ";
	DATAIO::NumberText::appendDouble(out, time);
	out += ' ' + quotable(dataIO.timeUnit()) + "\", STRANDID = 1, SOLUTIONTIME = ";
	DATAIO::NumberText::appendDouble(out, time);
	out += ", NODES = ";
	DATAIO::NumberText::appendInteger(out, m_nodeCount);
	out += ", ELEMENTS = ";
	DATAIO::NumberText::appendInteger(out, m_cellCount);
	out += ", ZONETYPE = ";
	out += m_zoneType;
	out += ", DATAPACKING = BLOCK";
	if (m_kind != K_FluxLine) {
		out += ", VARLOCATION = ([";
		DATAIO::NumberText::appendInteger(out, m_coordinateCount + 1);
		if (m_valueNames.size() > 1) {
			out += '-';
			DATAIO::NumberText::appendInteger(out, m_coordinateCount + m_valueNames.size());
		}
		out += "] = CELLCENTERED)";
	}
	out += '\n';
	out += m_nodeText;
	if (m_kind == K_FluxVectors) {
		if (timeIndex != m_first)
			extractVectors(timeIndex);
		const std::vector<double> & vx = m_vectors->xComponents().m_data;
		const std::vector<double> & vy = m_vectors->yComponents().m_data;
		appendBlock(out, m_columns.size(), [&](std::size_t c) { return vx[m_columns[c]]; });
		appendBlock(out, m_columns.size(), [&](std::size_t c) { return vy[m_columns[c]]; });
		appendBlock(out, m_columns.size(), [&](std::size_t c) { return std::hypot(vx[m_columns[c]], vy[m_columns[c]]); });
	}
	else {
		const double * values = dataIO.data(timeIndex);
		appendBlock(out, m_columns.size(), [&](std::size_t c) { return values[m_columns[c]]; });
	}
	out += m_connectivityText;
}

} // namespace OVP
