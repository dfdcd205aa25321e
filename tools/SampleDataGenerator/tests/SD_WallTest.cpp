#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include <ZEB_Exception.h>

#include "SD_GridSpacing.h"
#include "SD_LayeredWall.h"
#include "SD_Psychrometrics.h"
#include "SD_WallHeatSolver.h"
#include "SD_WallMoistureModel.h"

namespace {

const double PI = 3.14159265358979323846;

/*! Sum of v[first, last). */
double sum(const std::vector<double> & v, std::size_t first, std::size_t last) {
	double s = 0;
	for (std::size_t i = first; i < last; ++i)
		s += v[i];
	return s;
}

} // namespace


TEST(SDGridSpacing, WidthsAddUpAndGrade) {
	for (unsigned int count : { 1u, 2u, 3u, 7u, 50u, 1000u }) {
		const std::vector<double> w = SD::GridSpacing::symmetric(0.24, count, 0.8);
		ASSERT_EQ(w.size(), count);
		EXPECT_NEAR(sum(w, 0, w.size()), 0.24, 1e-15);
		for (std::size_t i = 0; i < count; ++i)
			ASSERT_TRUE(w[i] > 0.0 && std::fabs(w[i] - w[count - 1 - i]) < 1e-12) << count << " " << i;	// symmetric
		EXPECT_TRUE(count < 7 || w[count/2]/w.front() > 3.0);	// fine at the faces
	}
	const std::vector<double> g = SD::GridSpacing::graded(0.725, 16, 1.15);
	EXPECT_NEAR(sum(g, 0, g.size()), 0.725, 1e-15);
	for (std::size_t i = 1; i < g.size(); ++i)
		EXPECT_NEAR(g[i]/g[i - 1], 1.15, 1e-12);
}


// Layer shares, widths fine at every layer face, geometry consistent with the grid.
TEST(SDLayeredWall, GridFollowsLayers) {
	const std::vector<SD::LayeredWall::Layer> layers = SD::LayeredWall::sampleLayers();
	ASSERT_EQ(layers.size(), 3u);
	for (unsigned int n : { 9u, 10u, 60u, 90u, 120u, 997u }) {
		SCOPED_TRACE(n);
		const SD::LayeredWall wall(layers, n);
		ASSERT_EQ(wall.elementCount(), n);
		EXPECT_NEAR(wall.thickness(), 0.32, 1e-12);
		for (std::size_t l = 0; l < layers.size(); ++l) {
			const std::size_t first = wall.firstElement(l);
			const std::size_t last = wall.firstElement(l + 1);
			ASSERT_GE(last - first, 3u);
			EXPECT_NEAR(sum(wall.widths(), first, last), layers[l].m_thickness, 1e-12);
			for (std::size_t i = first; i < last; ++i)
				ASSERT_EQ(wall.layerOf(i), l);
			const double middle = wall.widths()[(first + last)/2];
			EXPECT_TRUE(last - first < 5 || std::max(wall.widths()[first], wall.widths()[last - 1]) < middle/2);
		}
		// the thick brick layer gets more elements than the thin render once there are spare ones
		EXPECT_TRUE(n == 9 ? wall.firstElement(1) == 3 :
					wall.firstElement(2) - wall.firstElement(1) > wall.firstElement(1) - wall.firstElement(0));

		// each element centre lies between its two sides; the outer sides border no element
		const DATAIO::GeoFile geo = wall.geometry();
		ASSERT_EQ(geo.elements().size(), n);
		ASSERT_EQ(geo.sides().size(), n + 1);
		EXPECT_EQ(geo.sides().front().m_x, 0.0);
		EXPECT_NEAR(geo.sides().back().m_x, 0.32, 1e-12);
		EXPECT_EQ(geo.sides().front().m_elementA, DATAIO::GeoFile::NO_ELEMENT);
		EXPECT_EQ(geo.sides().back().m_elementB, DATAIO::GeoFile::NO_ELEMENT);
		for (std::size_t i = 0; i < n; ++i)
			ASSERT_TRUE(geo.elements()[i].m_x > geo.sides()[i].m_x && geo.elements()[i].m_x < geo.sides()[i + 1].m_x
						&& geo.hasMaterial(geo.elements()[i].m_matId)) << i;
	}
	EXPECT_THROW(SD::LayeredWall(layers, 8), ZEB::Exception);
}


// Steady state against the hand-computed U-value, and the energy balance of a transient step.
TEST(SDWallHeatSolver, SteadyStateAndEnergyBalance) {
	const SD::LayeredWall wall(SD::LayeredWall::sampleLayers(), 90);
	SD::WallHeatSolver solver(wall, 25.0, 7.7, 0.6);
	// R = 1/25 + 0.02/0.8 + 0.24/0.6 + 0.06/0.065 + 1/7.7
	const double u = 1.0/(0.04 + 0.025 + 0.4 + 0.06/0.065 + 1.0/7.7);
	solver.setSteadyState(-5.0, 0.0, 20.0);
	EXPECT_NEAR(solver.interiorHeatFlux(), u*25.0, 1e-9);
	EXPECT_NEAR(solver.interiorSurfaceTemperature(), 20.0 - u*25.0/7.7, 1e-9);
	EXPECT_NEAR(solver.exteriorSurfaceTemperature(), -5.0 + u*25.0/25.0, 1e-9);
	EXPECT_TRUE(std::is_sorted(solver.temperatures().begin(), solver.temperatures().end()));

	// 500 W/m2 absorbed at 60 % raise the outdoor side like 12 K warmer air
	solver.setSteadyState(20.0, 500.0, 20.0);
	EXPECT_NEAR(solver.interiorHeatFlux(), -u*12.0, 1e-9);

	// one implicit step: heat stored equals heat in through the surfaces within the step
	solver.setSteadyState(0.0, 0.0, 20.0);
	const std::vector<double> before = solver.temperatures();
	const double dt = 1800;
	solver.step(dt, 8.0, 300.0, 21.0);
	double stored = 0;
	for (std::size_t i = 0; i < before.size(); ++i)
		stored += wall.material(i).volumetricHeatCapacity()*wall.widths()[i]*(solver.temperatures()[i] - before[i]);
	const double solAir = 8.0 + 0.6*300.0/25.0;
	const double gained = 25.0*(solAir - solver.exteriorSurfaceTemperature()) + solver.interiorHeatFlux();
	EXPECT_NEAR(stored/dt, gained, 1e-6*std::fabs(gained));

	// long after a jump the steady state of the new conditions is reached
	for (int h = 0; h < 3000; ++h)
		solver.step(3600, 10.0, 0.0, 20.0);
	EXPECT_NEAR(solver.interiorHeatFlux(), u*10.0, 1e-6);
}


// A daily temperature wave outside is damped and delayed on its way through the wall.
TEST(SDWallHeatSolver, DailyWaveDampedAndDelayed) {
	const SD::LayeredWall wall(SD::LayeredWall::sampleLayers(), 60);
	SD::WallHeatSolver solver(wall, 25.0, 7.7, 0.6);
	solver.setSteadyState(10.0, 0.0, 20.0);
	const std::size_t inner = wall.elementCount() - 1;
	std::vector<double> outer, inside;
	for (int step = 0; step < 20*24*4; ++step) {
		const double hours = step*0.25;
		solver.step(900, 10.0 + 10.0*std::sin(2*PI*hours/24), 0.0, 20.0);
		if (step >= 18*24*4) {
			outer.push_back(solver.temperatures().front());
			inside.push_back(solver.temperatures()[inner]);
		}
	}
	const auto outerRange = std::minmax_element(outer.begin(), outer.end());
	const auto innerRange = std::minmax_element(inside.begin(), inside.end());
	const double outerAmplitude = (*outerRange.second - *outerRange.first)/2;
	const double innerAmplitude = (*innerRange.second - *innerRange.first)/2;
	EXPECT_GT(outerAmplitude, 5.0);
	EXPECT_LT(innerAmplitude, 0.05*outerAmplitude);
	// the peak inside comes hours after the peak outside (both within the first day of the window)
	const long outerPeak = (outerRange.second - outer.begin()) % 96;
	const long innerPeak = (innerRange.second - inside.begin()) % 96;
	const long lagQuarterHours = (innerPeak - outerPeak + 96) % 96;
	EXPECT_GT(lagQuarterHours, 4*4);
}


// Vapour pressure profile, response times and rain wetting of the moisture model.
TEST(SDWallMoistureModel, ProfileResponseAndRain) {
	const SD::LayeredWall wall(SD::LayeredWall::sampleLayers(), 90);
	const std::size_t n = wall.elementCount();
	SD::WallMoistureModel dry(wall);
	SD::WallMoistureModel wet(wall);
	const double pvOut = SD::Psychrometrics::vapourPressure(5.0, 80.0);
	const double pvIn = SD::Psychrometrics::vapourPressure(20.0, 50.0);
	dry.setSteadyState(pvOut, pvIn);
	wet.setSteadyState(pvOut, pvIn);
	// time constants grow from both surfaces into the wall
	EXPECT_LT(dry.timeConstant(0), dry.timeConstant(n/2));
	EXPECT_LT(dry.timeConstant(n - 1), dry.timeConstant(n/2));
	EXPECT_GT(dry.timeConstant(n/2), 24.0*7);

	// at a uniform 20 C the relative humidity runs from the outdoor to the indoor value
	const std::vector<double> warm(n, 20.0);
	std::vector<double> rh;
	dry.relativeHumidity(warm, rh);
	ASSERT_EQ(rh.size(), n);
	EXPECT_TRUE(std::is_sorted(rh.begin(), rh.end()));
	EXPECT_GE(rh.front(), 100.0*pvOut/SD::Psychrometrics::saturationPressure(20.0) - 1e-9);
	EXPECT_LE(rh.back(), 50.0 + 1e-9);
	// moisture of the brick layer lies on the isotherm between the driest and wettest element
	const double w = dry.layerMoistureContent(1, rh);
	const SD::Material brick = SD::Material::solidBrick();
	EXPECT_GT(w, brick.moistureContent(rh[wall.firstElement(1)]/100.0));
	EXPECT_LT(w, brick.moistureContent(rh[wall.firstElement(2) - 1]/100.0));

	// three hours of driving rain wet the render, which then dries out
	for (int h = 0; h < 3; ++h) {
		dry.step(1.0, pvOut, pvIn, 0.0, 5.0);
		wet.step(1.0, pvOut, pvIn, 2.0, 5.0);
	}
	EXPECT_GT(wet.surfaceWetness(), 0.9);
	EXPECT_EQ(dry.surfaceWetness(), 0.0);
	const std::vector<double> cold(n, 5.0);
	std::vector<double> rhDry, rhWet;
	dry.relativeHumidity(cold, rhDry);
	wet.relativeHumidity(cold, rhWet);
	EXPECT_GT(rhWet[0], rhDry[0] + 5.0);
	EXPECT_NEAR(rhWet[n - 1], rhDry[n - 1], 0.5);	// the inside hardly notices within hours
	EXPECT_LT(*std::max_element(rhWet.begin(), rhWet.end()), 99.0 + 1e-9);
	for (int h = 0; h < 24*10; ++h)
		wet.step(1.0, pvOut, pvIn, 0.0, 5.0);
	EXPECT_LT(wet.surfaceWetness(), 0.01);
}
