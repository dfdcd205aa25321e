#include "SD_CornerDetail.h"

#include <algorithm>
#include <cmath>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "SD_GridSpacing.h"

namespace SD {

namespace {

const double RENDER_THICKNESS = 0.02;
const double BRICK_THICKNESS = 0.24;
const double PLASTER_THICKNESS = 0.015;
/*! Growth of the cell widths along the wall legs, away from the inner corner. */
const double LEG_GRADING = 1.15;

/*! Zone of a grid column or row, counted from the exterior surface. */
enum Zone {
	Z_RENDER,
	Z_BRICK,
	Z_PLASTER,
	Z_BEYOND	///< beyond the wall thickness: only part of the wall leg that runs this way
};

} // namespace


CornerDetail::CornerDetail(unsigned int cellsPerDirection) :
	m_materials{ Material::exteriorRender(), Material::solidBrick(), Material::limePlaster() }
{
	FUNCID(CornerDetail::CornerDetail);
	const unsigned int n = cellsPerDirection;
	if (n < MIN_CELLS)
		throw ZEB::Exception(ZEB::MessageFormat("The corner detail needs at least %1 cells per direction, %2 requested.")
							 .arg(MIN_CELLS).arg(n), FUNC_ID);
	const unsigned int nRender = std::max(1u, static_cast<unsigned int>(std::lround(0.1*n)));
	const unsigned int nPlaster = nRender;
	const unsigned int nWall = static_cast<unsigned int>(std::lround(0.6*n));
	const unsigned int nBrick = nWall - nRender - nPlaster;

	std::vector<double> widths;
	std::vector<Zone> zone;
	auto addZone = [&](const std::vector<double> & w, Zone z) {
		widths.insert(widths.end(), w.begin(), w.end());
		zone.insert(zone.end(), w.size(), z);
	};
	addZone(GridSpacing::symmetric(RENDER_THICKNESS, nRender, 0.8), Z_RENDER);
	addZone(GridSpacing::symmetric(BRICK_THICKNESS, nBrick, 0.8), Z_BRICK);
	addZone(GridSpacing::symmetric(PLASTER_THICKNESS, nPlaster, 0.8), Z_PLASTER);
	addZone(GridSpacing::graded(LEG_LENGTH - WALL_THICKNESS, n - nWall, LEG_GRADING), Z_BEYOND);
	std::vector<double> edges(n + 1, 0.0);
	std::vector<double> centres(n);
	for (unsigned int i = 0; i < n; ++i) {
		edges[i + 1] = edges[i] + widths[i];
		centres[i] = edges[i] + 0.5*widths[i];
	}

	// elements: the cells inside the L, row by row
	std::vector<int> elementAt(n*n, -1);
	std::vector<DATAIO::GeoFile::Element> elements;
	for (unsigned int j = 0; j < n; ++j)
		for (unsigned int i = 0; i < n; ++i) {
			if (zone[i] == Z_BEYOND && zone[j] == Z_BEYOND)
				continue;
			std::size_t mat = 1;
			if (zone[i] == Z_RENDER || zone[j] == Z_RENDER)
				mat = 0;
			else if ((zone[i] == Z_PLASTER && zone[j] >= Z_PLASTER) || (zone[j] == Z_PLASTER && zone[i] >= Z_PLASTER))
				mat = 2;
			DATAIO::GeoFile::Element e;
			e.m_n = static_cast<std::uint32_t>(elements.size());
			e.m_x = centres[i];
			e.m_y = centres[j];
			e.m_z = 0.5;
			e.m_matId = m_materials[mat].id();
			e.m_i = i;
			e.m_j = j;
			elementAt[j*n + i] = static_cast<int>(elements.size());
			elements.push_back(e);
			m_materialOf.push_back(mat);
			m_exteriorDistance.push_back(std::min(centres[i], centres[j]));
		}

	// sides: first all faces normal to x, then all normal to y
	std::vector<DATAIO::GeoFile::Side> sides;
	for (unsigned int orientation = 0; orientation < 2; ++orientation)
		for (unsigned int row = 0; row < n; ++row)
			for (unsigned int face = 0; face <= n; ++face) {
				// along x: row is j, face between columns face-1 and face; along y transposed
				auto cell = [&](unsigned int along) {
					return orientation == 0 ? elementAt[row*n + along] : elementAt[along*n + row];
				};
				const int a = face > 0 ? cell(face - 1) : -1;
				const int b = face < n ? cell(face) : -1;
				if (a < 0 && b < 0)
					continue;
				SideLink link{ SK_INNER, a, b, 0.0, widths[row] };
				auto halfResistance = [&](int element, unsigned int column) {
					return 0.5*widths[column]/m_materials[m_materialOf[static_cast<std::size_t>(element)]].conductivity();
				};
				if (a >= 0 && b >= 0)
					link.m_conductance = 1.0/(halfResistance(a, face - 1) + halfResistance(b, face));
				else if (a < 0) {
					link.m_kind = SK_EXTERIOR;
					link.m_conductance = 1.0/(1.0/EXTERIOR_TRANSFER + halfResistance(b, face));
				}
				else if (face == n)
					link.m_kind = SK_ADIABATIC;
				else {
					link.m_kind = SK_INTERIOR;
					link.m_conductance = 1.0/(1.0/INTERIOR_TRANSFER + halfResistance(a, face - 1));
				}
				if (orientation == 1 && link.m_kind == SK_INTERIOR) {
					if (row == nWall)
						m_cornerSide = sides.size();
					if (row == n - 1)
						m_planeSide = sides.size();
				}
				DATAIO::GeoFile::Side s;
				s.m_n = static_cast<std::uint32_t>(sides.size());
				s.m_x = orientation == 0 ? edges[face] : centres[row];
				s.m_y = orientation == 0 ? centres[row] : edges[face];
				s.m_z = 0.5;
				s.m_orientation = orientation;
				s.m_elementA = a;
				s.m_elementB = b;
				sides.push_back(s);
				m_sides.push_back(link);
			}

	std::vector<DATAIO::GeoFile::Material> materials;
	for (const Material & m : m_materials)
		materials.push_back(DATAIO::GeoFile::Material{ m.id(), m.name() });
	m_geometry.setMaterials(materials);
	m_geometry.setGrid(widths, widths, { 1.0 });
	m_geometry.setElements(elements);
	m_geometry.setSides(sides);
	solveSteadyState();
}


const Material & CornerDetail::material(std::size_t element) const {
	return m_materials[m_materialOf[element]];
}


double CornerDetail::surfaceTemperature(std::size_t side, double roomTemperature, double elementTemperature) const {
	const double fluxIntoWall = m_sides[side].m_conductance*(roomTemperature - elementTemperature);
	return roomTemperature - fluxIntoWall/INTERIOR_TRANSFER;
}


double CornerDetail::planeWallUValue() {
	const double resistance = 1.0/EXTERIOR_TRANSFER + 1.0/INTERIOR_TRANSFER +
			RENDER_THICKNESS/Material::exteriorRender().conductivity() +
			BRICK_THICKNESS/Material::solidBrick().conductivity() +
			PLASTER_THICKNESS/Material::limePlaster().conductivity();
	return 1.0/resistance;
}


void CornerDetail::solveSteadyState() {
	FUNCID(CornerDetail::solveSteadyState);
	// heat balance of every element: sum over its sides of g (theta_neighbour - theta) = 0 with
	// g = conductance * area, theta = 0 outdoors and 1 in the room
	const std::size_t n = elementCount();
	std::vector<double> diag(n, 0.0);
	std::vector<double> rhs(n, 0.0);
	for (const SideLink & s : m_sides) {
		const double g = s.m_conductance*s.m_area;
		if (s.m_elementA >= 0)
			diag[static_cast<std::size_t>(s.m_elementA)] += g;
		if (s.m_elementB >= 0)
			diag[static_cast<std::size_t>(s.m_elementB)] += g;
		if (s.m_kind == SK_INTERIOR)
			rhs[static_cast<std::size_t>(s.m_elementA)] += g;
	}
	auto multiply = [&](const std::vector<double> & x, std::vector<double> & y) {
		for (std::size_t i = 0; i < n; ++i)
			y[i] = diag[i]*x[i];
		for (const SideLink & s : m_sides)
			if (s.m_kind == SK_INNER) {
				const double g = s.m_conductance*s.m_area;
				y[static_cast<std::size_t>(s.m_elementA)] -= g*x[static_cast<std::size_t>(s.m_elementB)];
				y[static_cast<std::size_t>(s.m_elementB)] -= g*x[static_cast<std::size_t>(s.m_elementA)];
			}
	};
	auto dot = [n](const std::vector<double> & a, const std::vector<double> & b) {
		double sum = 0;
		for (std::size_t i = 0; i < n; ++i)
			sum += a[i]*b[i];
		return sum;
	};
	m_factors.assign(n, 0.5);
	std::vector<double> r(n), z(n), p(n), q(n);
	multiply(m_factors, q);
	for (std::size_t i = 0; i < n; ++i) {
		r[i] = rhs[i] - q[i];
		z[i] = r[i]/diag[i];
	}
	p = z;
	double rz = dot(r, z);
	const double tolerance = 1e-24*dot(rhs, rhs);
	for (std::size_t iteration = 0; dot(r, r) > tolerance; ++iteration) {
		if (iteration > 20*n)
			throw ZEB::Exception("Steady-state temperature field did not converge.", FUNC_ID);
		multiply(p, q);
		const double alpha = rz/dot(p, q);
		for (std::size_t i = 0; i < n; ++i) {
			m_factors[i] += alpha*p[i];
			r[i] -= alpha*q[i];
			z[i] = r[i]/diag[i];
		}
		const double rzNew = dot(r, z);
		for (std::size_t i = 0; i < n; ++i)
			p[i] = z[i] + rzNew/rz*p[i];
		rz = rzNew;
	}
}

} // namespace SD
