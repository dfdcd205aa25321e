#include "EM_ExtractorVecFromFluxField.h"

#include <array>
#include <limits>
#include <unordered_map>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "EM_SpaceGrid.h"

namespace EM {

namespace {

/*! Position of an element or side along a geometric direction. */
template <typename T>
double coordinate(const T & item, unsigned int direction) {
	return direction == 0 ? item.m_x : (direction == 1 ? item.m_y : item.m_z);
}

/*! Flux sums and counts of one element, per component. */
struct ElementFlux {
	double			m_sum[2] = { 0, 0 };
	unsigned int	m_count[2] = { 0, 0 };
};

} // namespace


ExtractorVecFromFluxField::ExtractorVecFromFluxField(DATAIO::DataIO * dataIO, std::shared_ptr<const DATAIO::GeoFile> geometry) :
	ExtractorVecOutputBase(std::vector<DATAIO::DataIO *>(1, dataIO), CT_TimeCut)
{
	if (geometry != nullptr)
		setGeoFile(geometry);
}


bool ExtractorVecFromFluxField::canUpdate() {
	FUNCID(ExtractorVecFromFluxField::canUpdate);
	if (!ExtractorVecOutputBase::canUpdate())
		return false;
	const DATAIO::DataIO & dataIO = *m_dataIOs.front();
	if (dataIO.type() != DATAIO::DataIO::T_FLUX) {
		ZEB::reportError("Update failed: Invalid type, expected FLUX file type.\n", FUNC_ID);
		return false;
	}
	if (dataIO.dataFormat() != DATAIO::DataIO::DF_4D) {
		ZEB::reportError("Update failed: Invalid data format (only flux fields for 2D geometries supported).\n", FUNC_ID);
		return false;
	}
	const DATAIO::GeoFile * geometry = geoFile();
	if (geometry == nullptr || geometry->isEmpty()) {
		ZEB::reportError("Update failed: Missing/invalid GeoFile.\n", FUNC_ID);
		return false;
	}
	return true;
}


void ExtractorVecFromFluxField::clearOutput() {
	ExtractorVecOutputBase::clearOutput();
	m_cellEdges[0].clear();
	m_cellEdges[1].clear();
}


void ExtractorVecFromFluxField::doUpdate() {
	FUNCID(ExtractorVecFromFluxField::doUpdate);
	extractIntoClearedOutput([this]() { extract(); }, FUNC_ID);
}


void ExtractorVecFromFluxField::extract() {
	FUNCID(ExtractorVecFromFluxField::extract);
	DATAIO::DataIO & dataIO = *m_dataIOs.front();
	const DATAIO::GeoFile * geometry = geoFile();
	if (geometry == nullptr)
		throw ZEB::Exception("Update failed: Missing/invalid GeoFile.\n", FUNC_ID);
	const std::vector<DATAIO::GeoFile::Side> & sides = geometry->sides();
	const std::vector<DATAIO::GeoFile::Element> & elements = geometry->elements();
	const std::vector<std::uint32_t> & nums = dataIO.nums();
	if (dataIO.nValues() != nums.size())
		throw ZEB::Exception(ZEB::MessageFormat("Number of values per time point (%1) does not match the number "
			"of listed sides (%2).").arg(dataIO.nValues()).arg(static_cast<unsigned long>(nums.size())), FUNC_ID);

	std::vector<std::array<double, 3> > positions;
	for (std::uint32_t n : nums) {
		if (n >= sides.size())
			throw ZEB::Exception(ZEB::MessageFormat("Invalid side index #%1, sides vector has only %2 entries.")
								 .arg(n).arg(static_cast<unsigned long>(sides.size())), FUNC_ID);
		positions.push_back({ { sides[n].m_x, sides[n].m_y, sides[n].m_z } });
	}
	const std::vector<unsigned int> directions = SpaceGrid::varyingDirections(positions);
	if (directions.size() != 2)
		throw ZEB::Exception(ZEB::MessageFormat("Positions of the listed sides differ in %1 directions, a flux field "
			"of a 2D geometry needs 2.").arg(static_cast<unsigned long>(directions.size())), FUNC_ID);

	const double * values = dataIO.data(resolveTimeIndex(dataIO.timePoints().size()));
	// sums of the sides' fluxes per element, in the order the elements are met
	std::vector<std::uint32_t> fluxElements;
	std::vector<ElementFlux> fluxes;
	std::unordered_map<std::uint32_t, std::size_t> elementIndex;
	for (std::size_t c = 0; c < nums.size(); ++c) {
		const DATAIO::GeoFile::Side & side = sides[nums[c]];
		unsigned int component;
		if (side.m_orientation == directions[0])
			component = 0;
		else if (side.m_orientation == directions[1])
			component = 1;
		else
			continue; // a side across the plane of the geometry has no component in it
		const std::int32_t neighbours[2] = { side.m_elementA, side.m_elementB };
		for (std::int32_t e : neighbours)
			if (e != DATAIO::GeoFile::NO_ELEMENT && (e < 0 || static_cast<std::size_t>(e) >= elements.size()))
				throw ZEB::Exception(ZEB::MessageFormat("Invalid element index #%1 next to side #%2.")
									 .arg(e).arg(nums[c]), FUNC_ID);
		// positive from A to B: along increasing coordinate when A lies below the side
		const double p = coordinate(side, side.m_orientation);
		double sign;
		if (side.m_elementA != DATAIO::GeoFile::NO_ELEMENT)
			sign = coordinate(elements[static_cast<std::size_t>(side.m_elementA)], side.m_orientation) < p ? 1 : -1;
		else if (side.m_elementB != DATAIO::GeoFile::NO_ELEMENT)
			sign = coordinate(elements[static_cast<std::size_t>(side.m_elementB)], side.m_orientation) > p ? 1 : -1;
		else
			continue; // a side without elements belongs to no vector
		for (std::int32_t e : neighbours) {
			if (e == DATAIO::GeoFile::NO_ELEMENT)
				continue;
			const std::uint32_t element = static_cast<std::uint32_t>(e);
			std::unordered_map<std::uint32_t, std::size_t>::const_iterator it = elementIndex.find(element);
			std::size_t index;
			if (it == elementIndex.end()) {
				index = fluxElements.size();
				elementIndex[element] = index;
				fluxElements.push_back(element);
				fluxes.push_back(ElementFlux());
			}
			else
				index = it->second;
			fluxes[index].m_sum[component] += sign*values[c];
			++fluxes[index].m_count[component];
		}
	}
	if (fluxElements.empty())
		throw ZEB::Exception("No element next to the listed sides.", FUNC_ID);

	SpaceGrid grid;
	grid.buildFromElements(*geometry, fluxElements, directions);
	m_x.m_data = grid.centres(0);
	m_y.m_data = grid.centres(1);
	m_planeDirections = { { directions[0], directions[1] } };
	m_cellEdges[0] = grid.edges(0);
	m_cellEdges[1] = grid.edges(1);
	m_x.m_unit = ZEB::Unit("m");
	m_y.m_unit = ZEB::Unit("m");
	const std::size_t nx = grid.cellCount(0);
	const double nan = std::numeric_limits<double>::quiet_NaN();
	m_vx.m_data.assign(nx*grid.cellCount(1), nan);
	m_vy.m_data.assign(nx*grid.cellCount(1), nan);
	m_vx.m_unit = unitFromDataIO(dataIO.valueUnit(), FUNC_ID);
	m_vy.m_unit = m_vx.m_unit;
	std::vector<bool> filled(m_vx.m_data.size(), false);
	for (std::size_t k = 0; k < fluxElements.size(); ++k) {
		const std::size_t slot = grid.cell(k, 1)*nx + grid.cell(k, 0);
		if (filled[slot])
			continue; // a second element in the same cell: the first one's vector stays
		filled[slot] = true;
		const ElementFlux & f = fluxes[k];
		m_vx.m_data[slot] = f.m_count[0] == 0 ? 0 : f.m_sum[0]/f.m_count[0];
		m_vy.m_data[slot] = f.m_count[1] == 0 ? 0 : f.m_sum[1]/f.m_count[1];
	}
}

} // namespace EM
