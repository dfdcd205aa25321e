#ifndef EM_ExtractorVecFromFluxFieldH
#define EM_ExtractorVecFromFluxFieldH

#include <array>
#include <memory>
#include <vector>

#include "EM_ExtractorVecOutputBase.h"

namespace EM {

/*! Extracts the vector field of a flux output of a 2D geometry at one time point (TimeCut).

	The container holds one flux per side. A side whose normal points along the first space
	dimension (X) gives the X component, one along the second (Y) the Y component; the flux is
	counted positive in the direction of increasing coordinate (the sign follows from where its
	elements lie, as a flux counts positive from its first to its second element). Each element
	next to a listed side gets, per component, the mean of the fluxes of its listed sides of that
	orientation (0 when it has none). The vectors sit at the element centres on the grid of these
	elements; grid points without an element hold NaN. The cells' edges and the plane's geometric
	directions are kept too, for writers that draw the cells themselves.
*/
class ExtractorVecFromFluxField : public ExtractorVecOutputBase {
public:
	/*! The geometry, when given, replaces the container's embedded one. */
	explicit ExtractorVecFromFluxField(DATAIO::DataIO * dataIO, std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr);

	/*! The common checks of vector outputs, then a flux output of data format 4D with geometry. */
	bool canUpdate() override;
	void clearOutput() override;

	/*! Geometric directions (0 x, 1 y, 2 z) of the field's x and y, from the last update. */
	const std::array<unsigned int, 2> & planeDirections() const { return m_planeDirections; }
	/*! Edges of the cells around the grid points along the field's x (0) or y (1), in metres,
		one more than points; from the last update.
	*/
	const std::vector<double> & cellEdges(unsigned int dim) const { return m_cellEdges[dim]; }

protected:
	void doUpdate() override;

private:
	/*! Extracts the field into m_x, m_y, m_vx and m_vy. */
	void extract();

	std::array<unsigned int, 2>			m_planeDirections = { { 0, 1 } };
	std::array<std::vector<double>, 2>	m_cellEdges;
};

} // namespace EM

#endif // EM_ExtractorVecFromFluxFieldH
