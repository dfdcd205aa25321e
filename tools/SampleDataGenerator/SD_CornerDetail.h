#ifndef SD_CornerDetailH
#define SD_CornerDetailH

#include <cstddef>
#include <vector>

#include <DATAIO_GeoFile.h>

#include "SD_Material.h"

namespace SD {

/*! Two-dimensional detail of an uninsulated exterior wall corner (20 mm lime-cement render,
	240 mm solid brick, 15 mm lime plaster) in plan view, and its steady-state temperature field.

	The outer corner lies at the origin; the outdoor air touches the faces x = 0 and y = 0. One
	wall leg runs along y (0 <= x <= 0.275 m), the other along x (0 <= y <= 0.275 m), each 1 m
	long from the outer corner; the cut ends of the legs are adiabatic. The grid has the same
	cellsPerDirection widths in x and y: the wall thickness gets 60 % of them (render and plaster
	10 % each, finest at the layer faces), the rest grows away from the inner corner. Only the
	cells inside the L-shaped wall are elements (with 40 cells per direction 1344 of 1600).

	The interior surface resistance is 0.25 m2K/W, the value used to assess mould risk at
	thermal bridges; the exterior one 0.04 m2K/W. The inner corner is the thermal bridge: its
	surface is the coldest spot of the room side.
*/
class CornerDetail {
public:
	/*! What lies on the far side of a side, seen from the detail. */
	enum SideKind {
		SK_INNER,		///< between two elements
		SK_EXTERIOR,	///< outdoor air (element A is none)
		SK_INTERIOR,	///< room air (element B is none)
		SK_ADIABATIC	///< cut end of a wall leg, no heat flow
	};

	/*! How a side conducts heat: its kind, its elements (-1 for none) and the conductance per
		m2 of side area between the element centres, or between element centre and air.
	*/
	struct SideLink {
		SideKind	m_kind;
		int			m_elementA;
		int			m_elementB;
		double		m_conductance;	///< W/m2K
		double		m_area;			///< m2 per m of wall height
	};

	/*! Thickness of the wall and length of each leg from the outer corner, in m. */
	static constexpr double WALL_THICKNESS = 0.275;
	static constexpr double LEG_LENGTH = 1.0;
	static constexpr double EXTERIOR_TRANSFER = 25.0;
	static constexpr double INTERIOR_TRANSFER = 4.0;
	/*! Smallest cellsPerDirection accepted. */
	static constexpr unsigned int MIN_CELLS = 6;

	/*! Builds grid and geometry and solves the steady state; throws when cellsPerDirection is
		below MIN_CELLS.
	*/
	explicit CornerDetail(unsigned int cellsPerDirection);

	const DATAIO::GeoFile & geometry() const { return m_geometry; }
	std::size_t elementCount() const { return m_geometry.elements().size(); }
	const std::vector<SideLink> & sideLinks() const { return m_sides; }

	/*! Steady-state temperature factor of every element: (T - T_outdoor)/(T_room - T_outdoor). */
	const std::vector<double> & temperatureFactors() const { return m_factors; }
	/*! Distance of every element centre from the nearer exterior surface in m. */
	const std::vector<double> & exteriorDistances() const { return m_exteriorDistance; }
	const Material & material(std::size_t element) const;

	/*! The interior side next to the inner corner (on the leg along x, facing +y) and its element:
		the coldest interior surface.
	*/
	std::size_t cornerSurfaceSide() const { return m_cornerSide; }
	std::size_t cornerSurfaceElement() const { return static_cast<std::size_t>(m_sides[m_cornerSide].m_elementA); }
	/*! The interior side at the cut end of the leg along x, where the wall behaves like a plane
		wall.
	*/
	std::size_t planeSurfaceSide() const { return m_planeSide; }

	/*! Temperature of the face of an interior side in C for room air temperature and the
		temperature of the side's element.
	*/
	double surfaceTemperature(std::size_t side, double roomTemperature, double elementTemperature) const;

	/*! U-value of the plane wall in W/m2K: the surface resistances and the layers in series. */
	static double planeWallUValue();

private:
	/*! Solves the steady-state temperature factors (conjugate gradients, Jacobi preconditioned). */
	void solveSteadyState();

	std::vector<Material>	m_materials;		///< render, brick, plaster
	std::vector<std::size_t> m_materialOf;		///< index into m_materials per element
	DATAIO::GeoFile			m_geometry;
	std::vector<SideLink>	m_sides;
	std::vector<double>		m_factors;
	std::vector<double>		m_exteriorDistance;
	std::size_t				m_cornerSide = 0;
	std::size_t				m_planeSide = 0;
};

} // namespace SD

#endif // SD_CornerDetailH
