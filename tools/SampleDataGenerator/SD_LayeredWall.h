#ifndef SD_LayeredWallH
#define SD_LayeredWallH

#include <cstddef>
#include <vector>

#include <DATAIO_GeoFile.h>

#include "SD_Material.h"

namespace SD {

/*! A one-dimensional multi-layer wall and its simulation grid. Layer 0 is on the outside (x = 0),
	the last layer on the inside. Each layer gets a share of the elements that grows with the
	square root of its thickness (at least three), and within a layer the widths are finest at
	both faces, where temperature and moisture change fastest.
*/
class LayeredWall {
public:
	/*! One layer: its material and thickness in m. */
	struct Layer {
		Material	m_material;
		double		m_thickness;
	};

	/*! Smallest number of elements per layer. */
	static constexpr unsigned int MIN_ELEMENTS_PER_LAYER = 3;

	/*! Builds the grid; throws when there are fewer than MIN_ELEMENTS_PER_LAYER elements per
		layer or a layer is not thicker than 0.
	*/
	LayeredWall(const std::vector<Layer> & layers, unsigned int elementCount);

	/*! The sample wall of an old building insulated from inside: 20 mm lime-cement render,
		240 mm solid brick, 60 mm calcium silicate board.
	*/
	static std::vector<Layer> sampleLayers();

	const std::vector<Layer> & layers() const { return m_layers; }
	std::size_t elementCount() const { return m_widths.size(); }
	/*! Width of every element in m, from outside to inside. */
	const std::vector<double> & widths() const { return m_widths; }
	/*! Centre of every element, distance from the outer surface in m. */
	const std::vector<double> & centres() const { return m_centres; }
	/*! Total thickness in m. */
	double thickness() const { return m_thickness; }
	/*! Index of the layer an element lies in. */
	std::size_t layerOf(std::size_t element) const { return m_layerOf[element]; }
	/*! Index of the first element of a layer; firstElement(layers().size()) is the element count. */
	std::size_t firstElement(std::size_t layer) const { return m_firstElement[layer]; }
	const Material & material(std::size_t element) const { return m_layers[m_layerOf[element]].m_material; }

	/*! The geometry: elements along x, one row in y and z (unit height and depth), sides between
		neighbours and on both surfaces (side 0 on the outside, its element A is none).
	*/
	DATAIO::GeoFile geometry() const;

private:
	std::vector<Layer>			m_layers;
	std::vector<double>			m_widths;
	std::vector<double>			m_centres;
	std::vector<std::size_t>	m_layerOf;
	std::vector<std::size_t>	m_firstElement;
	double						m_thickness = 0;
};

} // namespace SD

#endif // SD_LayeredWallH
