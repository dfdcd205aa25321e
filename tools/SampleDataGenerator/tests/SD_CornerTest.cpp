#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include <ZEB_Exception.h>

#include "SD_CornerDetail.h"
#include "SD_CornerResponse.h"

using SD::CornerDetail;

namespace {

/*! Heat flow per m of wall height through all sides of one kind, counted from A to B. */
double heatFlow(const CornerDetail & detail, const std::vector<double> & fluxes, CornerDetail::SideKind kind) {
	double flow = 0;
	for (std::size_t s = 0; s < fluxes.size(); ++s)
		if (detail.sideLinks()[s].m_kind == kind)
			flow += fluxes[s]*detail.sideLinks()[s].m_area;
	return flow;
}

} // namespace


// Grid and geometry of the L-shaped corner.
TEST(SDCornerDetail, Geometry) {
	const CornerDetail detail(40);
	const DATAIO::GeoFile & geo = detail.geometry();
	// 24 of 40 cells span the wall thickness, the 16 x 16 cells beyond both legs are room
	EXPECT_EQ(detail.elementCount(), 40u*40u - 16u*16u);
	ASSERT_EQ(geo.yWidths().size(), 40u);
	double length = 0;
	for (double w : geo.xWidths())
		length += w;
	EXPECT_NEAR(length, CornerDetail::LEG_LENGTH, 1e-12);
	for (const DATAIO::GeoFile::Element & e : geo.elements()) {
		EXPECT_TRUE(e.m_x < CornerDetail::WALL_THICKNESS || e.m_y < CornerDetail::WALL_THICKNESS);
		EXPECT_TRUE(geo.hasMaterial(e.m_matId));
	}
	// every element has four sides; sides between elements count once, boundary sides once
	std::vector<int> sidesPerElement(detail.elementCount(), 0);
	for (const DATAIO::GeoFile::Side & s : geo.sides())
		for (int e : { s.m_elementA, s.m_elementB })
			if (e >= 0)
				++sidesPerElement[static_cast<std::size_t>(e)];
	EXPECT_EQ(sidesPerElement, std::vector<int>(detail.elementCount(), 4));
	// the corner surface element touches the inner corner (x and y just beyond the wall thickness)
	const DATAIO::GeoFile::Element & corner = geo.elements()[detail.cornerSurfaceElement()];
	EXPECT_GT(corner.m_x, CornerDetail::WALL_THICKNESS);
	EXPECT_LT(corner.m_x, CornerDetail::WALL_THICKNESS + 0.05);
	EXPECT_LT(corner.m_y, CornerDetail::WALL_THICKNESS);
	EXPECT_GT(corner.m_y, CornerDetail::WALL_THICKNESS - 0.01);
	EXPECT_THROW(CornerDetail(5), ZEB::Exception);
}


// Steady state: heat balance, plane wall against the hand-computed U-value, the corner as
// thermal bridge.
TEST(SDCornerDetail, SteadyStateThermalBridge) {
	for (unsigned int cells : { 6u, 20u, 40u }) {
		SCOPED_TRACE(cells);
		const CornerDetail detail(cells);
		for (double t : detail.temperatureFactors())
			ASSERT_TRUE(t > 0.0 && t < 1.0) << t;
		// outdoor 0, room 1: the factors are the temperatures; what enters from the room leaves
		// outside, and each element's inflow equals its outflow
		SD::CornerResponse response(detail);
		response.setSteadyState(0.0);
		std::vector<double> temperatures, fluxes;
		response.temperatures(1.0, temperatures);
		response.fluxes(0.0, 1.0, temperatures, fluxes);
		const double in = heatFlow(detail, fluxes, CornerDetail::SK_INTERIOR);
		EXPECT_LT(in, 0.0);		// from the room (B) into the wall (A): against the side direction
		EXPECT_NEAR(heatFlow(detail, fluxes, CornerDetail::SK_EXTERIOR), in, 1e-9*std::fabs(in));
		EXPECT_EQ(heatFlow(detail, fluxes, CornerDetail::SK_ADIABATIC), 0.0);
		std::vector<double> net(detail.elementCount(), 0.0);
		for (std::size_t s = 0; s < fluxes.size(); ++s) {
			const CornerDetail::SideLink & l = detail.sideLinks()[s];
			if (l.m_elementA >= 0)
				net[static_cast<std::size_t>(l.m_elementA)] -= fluxes[s]*l.m_area;
			if (l.m_elementB >= 0)
				net[static_cast<std::size_t>(l.m_elementB)] += fluxes[s]*l.m_area;
		}
		for (double v : net)
			ASSERT_NEAR(v, 0.0, 1e-9);
	}

	const CornerDetail detail(40);
	// R = 0.04 + 0.02/0.8 + 0.24/0.6 + 0.015/0.7 + 0.25
	const double u = 1.0/(0.04 + 0.025 + 0.4 + 0.015/0.7 + 0.25);
	EXPECT_NEAR(CornerDetail::planeWallUValue(), u, 1e-12);
	auto surfaceFactor = [&](std::size_t side) {
		return detail.surfaceTemperature(side, 1.0, detail.temperatureFactors()[static_cast<std::size_t>(detail.sideLinks()[side].m_elementA)]);
	};
	// at the cut end of the leg the wall is plane: f_Rsi = 1 - U R_si; the inner corner is clearly
	// colder, and the coldest of all interior surfaces
	EXPECT_NEAR(surfaceFactor(detail.planeSurfaceSide()), 1.0 - u*0.25, 0.01);
	const double cornerFactor = surfaceFactor(detail.cornerSurfaceSide());
	EXPECT_LT(cornerFactor, surfaceFactor(detail.planeSurfaceSide()) - 0.05);
	EXPECT_GT(cornerFactor, 0.35);
	for (std::size_t s = 0; s < detail.sideLinks().size(); ++s)
		EXPECT_TRUE(detail.sideLinks()[s].m_kind != CornerDetail::SK_INTERIOR || surfaceFactor(s) >= cornerFactor - 1e-12) << s;
}


// Winter fluxes run from warm to cold; outdoor changes reach deep elements later.
TEST(SDCornerResponse, FluxDirectionAndDelay) {
	const CornerDetail detail(20);
	SD::CornerResponse response(detail);
	response.setSteadyState(-10.0);
	std::vector<double> t, q;
	response.temperatures(20.0, t);
	response.fluxes(-10.0, 20.0, t, q);
	for (std::size_t s = 0; s < q.size(); ++s) {
		const CornerDetail::SideLink & l = detail.sideLinks()[s];
		if (l.m_kind == CornerDetail::SK_INNER) {
			const double dt = t[static_cast<std::size_t>(l.m_elementA)] - t[static_cast<std::size_t>(l.m_elementB)];
			EXPECT_TRUE(dt == 0 ? q[s] == 0 : (q[s] > 0) == (dt > 0)) << "side " << s;
		}
		else if (l.m_kind != CornerDetail::SK_ADIABATIC) {
			EXPECT_LT(q[s], 0.0) << "side " << s;	// heat flows towards x = 0 and y = 0
		}
	}

	// a sudden thaw: the element at the exterior surface warms first, in the end all follow
	const std::vector<double> & dist = detail.exteriorDistances();
	const auto nearest = static_cast<std::size_t>(std::min_element(dist.begin(), dist.end()) - dist.begin());
	const auto deepest = static_cast<std::size_t>(std::max_element(dist.begin(), dist.end()) - dist.begin());
	EXPECT_LT(response.timeConstant(nearest), response.timeConstant(deepest));
	const std::vector<double> before = t;
	for (int h = 0; h < 6; ++h)
		response.step(1.0, 10.0);
	response.temperatures(20.0, t);
	auto rise = [&](std::size_t e) { return (t[e] - before[e])/(1.0 - detail.temperatureFactors()[e]); };
	EXPECT_GT(rise(nearest), 15.0);	// most of the 20 K of the delayed outdoor temperature
	EXPECT_LT(rise(deepest), 5.0);
	for (int h = 0; h < 24*60; ++h)
		response.step(1.0, 10.0);
	response.temperatures(20.0, t);
	for (std::size_t e = 0; e < t.size(); ++e)
		ASSERT_NEAR(t[e], 10.0 + 10.0*detail.temperatureFactors()[e], 1e-6);
}
