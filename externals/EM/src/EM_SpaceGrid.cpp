#include "EM_SpaceGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace EM {

namespace {

const char * const DIRECTION_NAMES[3] = { "x", "y", "z" };

/*! Position of an element or side along a geometric direction. */
template <typename T>
double coordinate(const T & item, unsigned int direction) {
	return direction == 0 ? item.m_x : (direction == 1 ? item.m_y : item.m_z);
}

/*! Grid index of an element along a geometric direction. */
std::uint32_t gridIndex(const DATAIO::GeoFile::Element & e, unsigned int direction) {
	return direction == 0 ? e.m_i : (direction == 1 ? e.m_j : e.m_k);
}

/*! Grid widths of a geometric direction. */
const std::vector<double> & widths(const DATAIO::GeoFile & geometry, unsigned int direction) {
	return direction == 0 ? geometry.xWidths() : (direction == 1 ? geometry.yWidths() : geometry.zWidths());
}

/*! Two side positions closer than this count as one grid line. */
bool samePosition(double a, double b) {
	return std::fabs(a - b) <= 1e-9*(1 + std::max(std::fabs(a), std::fabs(b)));
}

} // namespace


void SpaceGrid::build(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile & geometry, unsigned int dimensionCount) {
	FUNCID(SpaceGrid::build);
	m_geometry = nullptr;
	m_nums.clear();
	m_outputType = -1;
	const std::vector<std::uint32_t> & nums = dataIO.nums();
	if (dataIO.nValues() != nums.size())
		throw ZEB::Exception(ZEB::MessageFormat("Number of values per time point (%1) does not match the number "
			"of listed elements or sides (%2).").arg(dataIO.nValues()).arg(static_cast<unsigned long>(nums.size())), FUNC_ID);
	if (nums.empty())
		throw ZEB::Exception("No elements or sides listed in DataIO container.", FUNC_ID);

	const bool sides = dataIO.type() == DATAIO::DataIO::T_FLUX;
	std::vector<std::array<double, 3> > positions;
	positions.reserve(nums.size());
	if (sides) {
		for (std::uint32_t n : nums) {
			if (n >= geometry.sides().size())
				throw ZEB::Exception(ZEB::MessageFormat("Invalid side index #%1, sides vector has only %2 entries.")
									 .arg(n).arg(static_cast<unsigned long>(geometry.sides().size())), FUNC_ID);
			const DATAIO::GeoFile::Side & s = geometry.sides()[n];
			positions.push_back({ { s.m_x, s.m_y, s.m_z } });
		}
	}
	else {
		for (std::uint32_t n : nums) {
			if (n >= geometry.elements().size())
				throw ZEB::Exception(ZEB::MessageFormat("Invalid element index #%1, elements vector has only %2 entries.")
									 .arg(n).arg(static_cast<unsigned long>(geometry.elements().size())), FUNC_ID);
			const DATAIO::GeoFile::Element & e = geometry.elements()[n];
			positions.push_back({ { e.m_x, e.m_y, e.m_z } });
		}
	}
	const std::vector<unsigned int> directions = varyingDirections(positions);
	if (directions.size() != dimensionCount)
		throw ZEB::Exception(ZEB::MessageFormat("Positions of the listed elements or sides differ in %1 directions, "
			"the data format needs %2.").arg(static_cast<unsigned long>(directions.size())).arg(dimensionCount), FUNC_ID);
	if (sides)
		buildPositionAxes(positions, directions);
	else
		buildElementAxes(geometry, nums, directions);
	m_geometry = &geometry;
	m_nums = nums;
	m_outputType = dataIO.type();
}


void SpaceGrid::buildFromElements(const DATAIO::GeoFile & geometry, const std::vector<std::uint32_t> & elements,
								  const std::vector<unsigned int> & directions)
{
	FUNCID(SpaceGrid::buildFromElements);
	m_geometry = nullptr;
	m_nums.clear();
	m_outputType = -1;
	if (elements.empty())
		throw ZEB::Exception("No elements for the grid.", FUNC_ID);
	for (std::uint32_t n : elements)
		if (n >= geometry.elements().size())
			throw ZEB::Exception(ZEB::MessageFormat("Invalid element index #%1, elements vector has only %2 entries.")
								 .arg(n).arg(static_cast<unsigned long>(geometry.elements().size())), FUNC_ID);
	buildElementAxes(geometry, elements, directions);
}


bool SpaceGrid::isBuiltFor(const DATAIO::DataIO & dataIO, const DATAIO::GeoFile * geometry, unsigned int dimensionCount) const {
	return m_geometry != nullptr && m_geometry == geometry && m_outputType == dataIO.type()
			&& dimensionCount == m_axes.size() && m_nums == dataIO.nums();
}


const std::vector<double> & SpaceGrid::drawCoordinates(unsigned int dim) const {
	const Axis & axis = m_axes[dim];
	return axis.m_edges.empty() ? axis.m_centres : axis.m_edges;
}


std::vector<unsigned int> SpaceGrid::varyingDirections(const std::vector<std::array<double, 3> > & positions) {
	std::vector<unsigned int> directions;
	for (unsigned int d = 0; d < 3; ++d) {
		double lo = std::numeric_limits<double>::infinity();
		double hi = -lo;
		for (const std::array<double, 3> & p : positions) {
			lo = std::min(lo, p[d]);
			hi = std::max(hi, p[d]);
		}
		// the same rule as the container's data format: any difference counts
		if (hi > lo)
			directions.push_back(d);
	}
	return directions;
}


void SpaceGrid::buildElementAxes(const DATAIO::GeoFile & geometry, const std::vector<std::uint32_t> & elements,
								 const std::vector<unsigned int> & directions)
{
	FUNCID(SpaceGrid::buildElementAxes);
	const std::vector<DATAIO::GeoFile::Element> & table = geometry.elements();
	std::vector<Axis> axes(directions.size());
	std::vector<unsigned int> cells(elements.size()*3, 0);
	for (std::size_t d = 0; d < directions.size(); ++d) {
		const unsigned int dir = directions[d];
		std::uint32_t lo = std::numeric_limits<std::uint32_t>::max();
		std::uint32_t hi = 0;
		std::size_t first = 0; // a column in the lowest grid column: anchors the edges
		for (std::size_t c = 0; c < elements.size(); ++c) {
			const std::uint32_t g = gridIndex(table[elements[c]], dir);
			if (g < lo) {
				lo = g;
				first = c;
			}
			hi = std::max(hi, g);
		}
		const std::vector<double> & w = widths(geometry, dir);
		if (hi >= w.size())
			throw ZEB::Exception(ZEB::MessageFormat("Grid index %1 lies outside the %2 grid widths in %3 direction.")
								 .arg(hi).arg(static_cast<unsigned long>(w.size())).arg(DIRECTION_NAMES[dir]), FUNC_ID);
		Axis & axis = axes[d];
		axis.m_direction = dir;
		const std::size_t n = hi - lo + 1;
		axis.m_edges.resize(n + 1);
		axis.m_edges[0] = coordinate(table[elements[first]], dir) - 0.5*w[lo];
		for (std::size_t k = 0; k < n; ++k) {
			if (!(w[lo + k] > 0) || !std::isfinite(w[lo + k]))
				throw ZEB::Exception(ZEB::MessageFormat("Invalid grid width %1 in %2 direction.")
									 .arg(w[lo + k]).arg(DIRECTION_NAMES[dir]), FUNC_ID);
			axis.m_edges[k + 1] = axis.m_edges[k] + w[lo + k];
		}
		axis.m_centres.assign(n, std::numeric_limits<double>::quiet_NaN());
		for (std::size_t c = 0; c < elements.size(); ++c) {
			const unsigned int cell = gridIndex(table[elements[c]], dir) - lo;
			cells[c*3 + d] = cell;
			if (std::isnan(axis.m_centres[cell]))
				axis.m_centres[cell] = coordinate(table[elements[c]], dir);
		}
		for (std::size_t k = 0; k < n; ++k)
			if (std::isnan(axis.m_centres[k]))
				axis.m_centres[k] = 0.5*(axis.m_edges[k] + axis.m_edges[k + 1]);
	}
	m_axes.swap(axes);
	m_cells.swap(cells);
}


void SpaceGrid::buildPositionAxes(const std::vector<std::array<double, 3> > & positions,
								  const std::vector<unsigned int> & directions)
{
	std::vector<Axis> axes(directions.size());
	std::vector<unsigned int> cells(positions.size()*3, 0);
	for (std::size_t d = 0; d < directions.size(); ++d) {
		const unsigned int dir = directions[d];
		Axis & axis = axes[d];
		axis.m_direction = dir;
		std::vector<double> values;
		values.reserve(positions.size());
		for (const std::array<double, 3> & p : positions)
			values.push_back(p[dir]);
		std::sort(values.begin(), values.end());
		for (double v : values)
			if (axis.m_centres.empty() || !samePosition(axis.m_centres.back(), v))
				axis.m_centres.push_back(v);
		for (std::size_t c = 0; c < positions.size(); ++c) {
			const double v = positions[c][dir];
			// first centre not below v - tolerance: the grid line of v
			std::vector<double>::const_iterator it = std::lower_bound(axis.m_centres.begin(), axis.m_centres.end(), v,
				[](double centre, double value) { return centre < value && !samePosition(centre, value); });
			cells[c*3 + d] = static_cast<unsigned int>(it - axis.m_centres.begin());
		}
	}
	m_axes.swap(axes);
	m_cells.swap(cells);
}

} // namespace EM
