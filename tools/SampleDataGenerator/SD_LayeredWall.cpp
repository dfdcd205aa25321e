#include "SD_LayeredWall.h"

#include <cmath>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "SD_GridSpacing.h"

namespace SD {

namespace {

/*! Clustering of the widths towards the layer faces: outer widths about 1/9 of the middle ones. */
const double CLUSTERING = 0.8;

} // namespace


LayeredWall::LayeredWall(const std::vector<Layer> & layers, unsigned int elementCount) :
	m_layers(layers)
{
	FUNCID(LayeredWall::LayeredWall);
	if (layers.empty() || elementCount < MIN_ELEMENTS_PER_LAYER*layers.size())
		throw ZEB::Exception(ZEB::MessageFormat("A wall of %1 layers needs at least %2 elements, %3 requested.")
							 .arg(static_cast<unsigned long>(layers.size()))
							 .arg(static_cast<unsigned long>(MIN_ELEMENTS_PER_LAYER*layers.size()))
							 .arg(elementCount), FUNC_ID);
	double weightSum = 0;
	for (const Layer & l : layers) {
		if (!(l.m_thickness > 0))
			throw ZEB::Exception(ZEB::MessageFormat("Layer '%1' has no thickness.").arg(l.m_material.name()), FUNC_ID);
		weightSum += std::sqrt(l.m_thickness);
	}
	// MIN_ELEMENTS_PER_LAYER each, the rest by weight; rounding the running total keeps the sum exact
	const unsigned int spare = elementCount - MIN_ELEMENTS_PER_LAYER*static_cast<unsigned int>(layers.size());
	double weightSoFar = 0;
	unsigned int assigned = 0;
	for (std::size_t li = 0; li < layers.size(); ++li) {
		weightSoFar += std::sqrt(layers[li].m_thickness);
		const unsigned int upTo = static_cast<unsigned int>(std::lround(spare*weightSoFar/weightSum));
		const unsigned int count = MIN_ELEMENTS_PER_LAYER + upTo - assigned;
		assigned = upTo;
		m_firstElement.push_back(m_widths.size());
		for (double w : GridSpacing::symmetric(layers[li].m_thickness, count, CLUSTERING)) {
			m_centres.push_back(m_thickness + 0.5*w);
			m_widths.push_back(w);
			m_layerOf.push_back(li);
			m_thickness += w;
		}
	}
	m_firstElement.push_back(m_widths.size());
}


std::vector<LayeredWall::Layer> LayeredWall::sampleLayers() {
	return { Layer{ Material::exteriorRender(), 0.02 },
			 Layer{ Material::solidBrick(), 0.24 },
			 Layer{ Material::calciumSilicate(), 0.06 } };
}


DATAIO::GeoFile LayeredWall::geometry() const {
	DATAIO::GeoFile geo;
	std::vector<DATAIO::GeoFile::Material> materials;
	for (const Layer & l : m_layers) {
		bool known = false;
		for (const DATAIO::GeoFile::Material & m : materials)
			known = known || m.m_id == l.m_material.id();
		if (!known)
			materials.push_back(DATAIO::GeoFile::Material{ l.m_material.id(), l.m_material.name() });
	}
	geo.setMaterials(materials);
	geo.setGrid(m_widths, { 1.0 }, { 1.0 });

	std::vector<DATAIO::GeoFile::Element> elements(m_widths.size());
	for (std::size_t i = 0; i < elements.size(); ++i) {
		DATAIO::GeoFile::Element & e = elements[i];
		e.m_n = static_cast<std::uint32_t>(i);
		e.m_x = m_centres[i];
		e.m_y = 0.5;
		e.m_z = 0.5;
		e.m_matId = material(i).id();
		e.m_i = static_cast<std::uint32_t>(i);
	}
	geo.setElements(elements);

	std::vector<DATAIO::GeoFile::Side> sides(m_widths.size() + 1);
	double x = 0;
	for (std::size_t s = 0; s < sides.size(); ++s) {
		DATAIO::GeoFile::Side & side = sides[s];
		side.m_n = static_cast<std::uint32_t>(s);
		side.m_x = x;
		side.m_y = 0.5;
		side.m_z = 0.5;
		side.m_orientation = 0;
		side.m_elementA = s == 0 ? DATAIO::GeoFile::NO_ELEMENT : static_cast<std::int32_t>(s - 1);
		side.m_elementB = s == m_widths.size() ? DATAIO::GeoFile::NO_ELEMENT : static_cast<std::int32_t>(s);
		if (s < m_widths.size())
			x += m_widths[s];
	}
	geo.setSides(sides);
	return geo;
}

} // namespace SD
