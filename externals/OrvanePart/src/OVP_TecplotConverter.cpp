#include "OVP_TecplotConverter.h"

#include <array>
#include <fstream>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_NumberText.h>

#include <EM_FieldCut.h>
#include <EM_SpaceGrid.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

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

/*! Writes a buffer to the stream and empties it. */
void flushBuffer(std::ofstream & out, std::string & buffer) {
	out.write(buffer.data(), static_cast<std::streamsize>(buffer.size()));
	buffer.clear();
}

} // namespace


TecplotConverter::TecplotConverter(FieldOutputFile & input) :
	m_input(input),
	m_last(0)
{
}


void TecplotConverter::setTimeRange(unsigned int first, unsigned int last) {
	m_first = first;
	m_last = last;
	m_rangeSet = true;
}


void TecplotConverter::write(const QString & target) {
	FUNCID(TecplotConverter::write);
	try {
		if (m_input.isFlux())
			throw ZEB::Exception(ZEB::MessageFormat("Output file '%1' holds fluxes across the sides of the grid; the "
				"Tecplot conversion writes the element values of field outputs only.")
				.arg(m_input.path().toStdString()), FUNC_ID);
		const std::size_t count = m_input.dataIO().timePoints().size();
		const unsigned int last = m_rangeSet ? m_last : static_cast<unsigned int>(count == 0 ? 0 : count - 1);
		m_input.checkTimeRange(m_first, last);
		buildMesh();

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


void TecplotConverter::buildMesh() {
	const DATAIO::DataIO & dataIO = m_input.dataIO();
	const unsigned int dims = EM::FieldCut::spaceDimensionCount(dataIO.dataFormat());
	EM::SpaceGrid grid;
	grid.build(dataIO, m_input.geometry(), dims);

	// cells and nodes of the grid, the first dimension fastest
	std::array<std::size_t, 3> cells = { { 1, 1, 1 } };
	std::array<std::size_t, 3> nodes = { { 1, 1, 1 } };
	std::array<int, 3> dimensionOfDirection = { { -1, -1, -1 } };
	for (unsigned int d = 0; d < dims; ++d) {
		cells[d] = grid.cellCount(d);
		nodes[d] = cells[d] + 1;
		dimensionOfDirection[grid.direction(d)] = static_cast<int>(d);
	}
	m_nodeCount = nodes[0]*nodes[1]*nodes[2];
	m_coordinateCount = dims == 3 || dimensionOfDirection[2] >= 0 ? 3 : 2;
	static const char * const ZONE_TYPES[3] = { "FELINESEG", "FEQUADRILATERAL", "FEBRICK" };
	m_zoneType = ZONE_TYPES[dims - 1];

	// coordinates: the grid's edges along its dimensions, the listed elements' common position
	// in the other directions
	const DATAIO::GeoFile::Element & anyElement = m_input.geometry().elements()[dataIO.nums().front()];
	const double fixedPosition[3] = { anyElement.m_x, anyElement.m_y, anyElement.m_z };
	m_nodeText.clear();
	for (unsigned int direction = 0; direction < m_coordinateCount; ++direction) {
		const int d = dimensionOfDirection[direction];
		if (d < 0) {
			appendBlock(m_nodeText, m_nodeCount, [&](std::size_t) { return fixedPosition[direction]; });
			continue;
		}
		const std::vector<double> & edges = grid.edges(static_cast<unsigned int>(d));
		std::size_t stride = 1;
		for (int e = 0; e < d; ++e)
			stride *= nodes[static_cast<std::size_t>(e)];
		appendBlock(m_nodeText, m_nodeCount, [&](std::size_t n) { return edges[(n/stride) % nodes[static_cast<std::size_t>(d)]]; });
	}

	// the first column in a cell gives its value, as in the extractors
	std::vector<std::ptrdiff_t> cellColumn(cells[0]*cells[1]*cells[2], -1);
	for (std::size_t c = 0; c < grid.columnCount(); ++c) {
		std::size_t index = 0;
		for (unsigned int d = dims; d-- > 0;)
			index = index*cells[d] + grid.cell(c, d);
		if (cellColumn[index] < 0)
			cellColumn[index] = static_cast<std::ptrdiff_t>(c);
	}

	// node numbers (counted from 1) of each written cell: Tecplot's corner order, the lower face
	// counter-clockwise, then the upper one
	static const unsigned int CORNERS[8][3] = {
		{ 0, 0, 0 }, { 1, 0, 0 }, { 1, 1, 0 }, { 0, 1, 0 }, { 0, 0, 1 }, { 1, 0, 1 }, { 1, 1, 1 }, { 0, 1, 1 } };
	const unsigned int cornerCount = 1u << dims;
	m_cellColumns.clear();
	m_connectivityText.clear();
	for (std::size_t index = 0; index < cellColumn.size(); ++index) {
		if (cellColumn[index] < 0)
			continue;
		m_cellColumns.push_back(static_cast<std::size_t>(cellColumn[index]));
		const std::size_t i = index % cells[0];
		const std::size_t j = (index/cells[0]) % cells[1];
		const std::size_t k = index/(cells[0]*cells[1]);
		for (unsigned int corner = 0; corner < cornerCount; ++corner) {
			const std::size_t node = (i + CORNERS[corner][0]) +
				nodes[0]*((j + CORNERS[corner][1]) + nodes[1]*(k + CORNERS[corner][2]));
			DATAIO::NumberText::appendInteger(m_connectivityText, node + 1);
			m_connectivityText += corner + 1 == cornerCount ? '\n' : ' ';
		}
	}
}


std::string TecplotConverter::fileHeader() const {
	const DATAIO::DataIO & dataIO = m_input.dataIO();
	const std::string quantity = quotable(dataIO.quantity());
	std::string text = "TITLE = \"" + quantity + " from " + quotable(m_input.fileName().toStdString()) + "\"\n";
	text += m_coordinateCount == 3 ? "VARIABLES = \"x\" \"y\" \"z\"" : "VARIABLES = \"x\" \"y\"";
	text += " \"" + quantity + " [" + quotable(dataIO.valueUnit()) + "]\"\n";
	text += "DATASETAUXDATA CoordinateUnit = \"m\"\n";
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
	DATAIO::NumberText::appendInteger(out, m_cellColumns.size());
	out += ", ZONETYPE = ";
	out += m_zoneType;
	out += ", DATAPACKING = BLOCK, VARLOCATION = ([";
	DATAIO::NumberText::appendInteger(out, m_coordinateCount + 1);
	out += "] = CELLCENTERED)\n";
	out += m_nodeText;
	const double * values = dataIO.data(timeIndex);
	appendBlock(out, m_cellColumns.size(), [&](std::size_t c) { return values[m_cellColumns[c]]; });
	out += m_connectivityText;
}

} // namespace OVP
