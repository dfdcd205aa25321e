#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

#include <EM_Extractor2DFrom3D.h>
#include <EM_Extractor2DFrom4D.h>
#include <EM_Extractor2DFrom5D.h>
#include <EM_Extractor3DFrom3D.h>
#include <EM_Extractor3DFrom4D.h>
#include <EM_Extractor3DFrom5D.h>
#include <EM_ExtractorVecFromFluxField.h>

#include "EM_ExtractorTestUtils.h"
#include "EM_TestUtils.h"

using EMTest::GridGeometry;
using EMTest::MessageRecorder;
using EMTest::expectError;
using EMTest::setTargetUnits;
using EMTest::fieldContainer;

namespace {

const unsigned int LAST = EM::ExtractorBase::LAST_INDEX;

/*! Values of time point t: 10 t + element number + 1, for the listed elements. */
std::vector<std::vector<double> > elementValues(const std::vector<std::uint32_t> & nums, std::size_t timePoints) {
	std::vector<std::vector<double> > values;
	for (std::size_t t = 0; t < timePoints; ++t) {
		std::vector<double> row;
		for (std::uint32_t n : nums)
			row.push_back(10.0*t + n + 1);
		values.push_back(row);
	}
	return values;
}

/*! Expects equal vectors within a tight tolerance (coordinates are sums of widths). */
void expectNear(const std::vector<double> & actual, const std::vector<double> & expected) {
	ASSERT_EQ(actual.size(), expected.size());
	for (std::size_t i = 0; i < actual.size(); ++i)
		EXPECT_NEAR(actual[i], expected[i], 1e-12*(1 + std::fabs(expected[i]))) << i;
}

} // namespace


TEST(EMFieldExtractor, WallProfileTimeSeriesAndCuts) {
	MessageRecorder rec;
	// a wall of three elements, 1, 2 and 4 cm wide: centres at 0.5, 2 and 5 cm
	GridGeometry wall({ 0.01, 0.02, 0.04 }, { 1.0 });
	std::unique_ptr<DATAIO::DataIO> d = fieldContainer({ 0, 1, 2 }, { 0, 1, 2 }, elementValues({ 0, 1, 2 }, 3),
														DATAIO::DataIO::DF_3D);
	EM::Extractor2DFrom3D profile(d.get(), EM::CT_TimeCut, wall.m_geo);
	setTargetUnits(profile, "mm", "C");
	EXPECT_EQ(profile.cutValues(EM::CD_Time), std::vector<double>({ 0, 1, 2 }));
	EXPECT_EQ(profile.cutValue(EM::CD_Time), 2);

	// a fresh time cut follows the newest time point
	profile.update();
	ASSERT_EQ(profile.status(), EM::ExtractorBase::US_UpToDate);
	expectNear(profile.x().m_data, { 5, 20, 50 });
	EXPECT_EQ(profile.y().m_data, std::vector<double>({ 21, 22, 23 }));
	EXPECT_EQ(profile.information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_X), "X");
	EXPECT_EQ(profile.axisUnitFromDataIO(0), ZEB::Unit("m"));

	// an index past the end becomes the follow-last marker and follows new time points; the
	// log says which index is shown instead
	profile.setCutIndex(EM::CD_Time, 7, true);
	EXPECT_EQ(profile.y().m_data, std::vector<double>({ 21, 22, 23 }));
	EXPECT_EQ(profile.cutIndex(EM::CD_Time), LAST);
	EXPECT_TRUE(rec.has(ZEB::MSG_WARNING, "Cut index 7 of dimension 'Time' is past the end of 'field.d6o'; index 2 is "
						"used instead, and the cut follows the newest time point from now on.", "[ExtractorBase::resolveTimeIndex]"));
	d->setData({ 0, 1, 2, 3 }, elementValues({ 0, 1, 2 }, 4));
	profile.update();
	EXPECT_EQ(profile.y().m_data, std::vector<double>({ 31, 32, 33 }));
	// locked: the index stays, the newest time point is shown
	profile.setTimeCutIndex(9, true, true);
	EXPECT_EQ(profile.cutIndex(EM::CD_Time), 9u);
	EXPECT_EQ(profile.y().m_data, std::vector<double>({ 31, 32, 33 }));
	EXPECT_TRUE(rec.has(ZEB::MSG_WARNING, "Cut index 9 of dimension 'Time' is past the end of 'field.d6o'; index 3 is "
						"used instead.", "[ExtractorBase::resolveTimeIndex]"));
	profile.setTimeCutIndex(1, true, true);
	EXPECT_EQ(profile.y().m_data, std::vector<double>({ 11, 12, 13 }));
	EXPECT_EQ(profile.cutValue(EM::CD_Time), 1);

	// setCutValue: nearest time point, the upper one exactly between two, tolerance |v|*1e-6 + 1e-10
	// (the newest time point by value follows new time points, unless locked)
	profile.setTimeIndexLocked(false);
	const std::pair<double, unsigned int> nearest[] = { { 1.5, 2 }, { 0.5, 1 }, { 1.4999, 1 }, { 1.5 - 1e-7, 2 }, { -4, 0 },
														{ 17, LAST } };
	for (const std::pair<double, unsigned int> & v : nearest) {
		profile.setCutValue(EM::CD_Time, v.first);
		EXPECT_EQ(profile.cutIndex(EM::CD_Time), v.second) << v.first;
	}
	profile.setTimeIndexLocked(true);
	profile.setCutValue(EM::CD_Time, 3);
	EXPECT_EQ(profile.cutIndex(EM::CD_Time), 3u);
	expectError([&]() { profile.setCutValue(EM::CD_X, 0.01); },
				"Calling setCutValue on an extractor without cut values is invalid!", "[ExtractorBase::setCutValue]");

	// the profile's x axis must be a length
	profile.setTargetXUnit(ZEB::Unit("h"));
	EXPECT_TRUE(rec.updateFails(profile, "Mismatching target unit for x-coordinate. Expected a length, requested is 'h'.",
								"[Extractor2DFrom3D::canUpdate]"));
	EXPECT_EQ(profile.status(), EM::ExtractorBase::US_NotUpdatableAfterUpToDate);

	// the time series at one position, chosen by coordinate
	EM::Extractor2DFrom3D series(d.get(), EM::CT_XCut, wall.m_geo);
	setTargetUnits(series, "h", "K");
	expectNear(series.cutValues(EM::CD_X), { 0.005, 0.02, 0.05 });
	EXPECT_EQ(series.cutValue(EM::CD_X), 0); // nothing selected yet
	series.setCutValue(EM::CD_X, 0.0125);	 // between 0.5 and 2 cm: the upper one
	EXPECT_EQ(series.cutIndex(EM::CD_X), 1u);
	EXPECT_NEAR(series.cutValue(EM::CD_X), 0.02, 1e-15);
	series.update();
	ASSERT_EQ(series.status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(series.x().m_data, std::vector<double>({ 0, 1, 2, 3 }));
	expectNear(series.y().m_data, { 275.15, 285.15, 295.15, 305.15 });
	// past the end of a space dimension: the last cell, the index stays
	series.setCutIndex(EM::CD_X, 99, true);
	EXPECT_EQ(series.cutIndex(EM::CD_X), 99u);
	expectNear(series.y().m_data, { 276.15, 286.15, 296.15, 306.15 });
	EXPECT_TRUE(rec.has(ZEB::MSG_WARNING, "Cut index 99 of dimension 'X' is past the end of 'field.d6o'; index 2 is "
						"used instead.", "[ExtractorBase::resolveSpaceIndex]"));

	// a 4D container is refused
	d->setDataFormat(DATAIO::DataIO::DF_4D);
	EXPECT_TRUE(rec.updateFails(series, "Mismatching data format (expected 3D). Has output data format changed?",
								"[Extractor2DFrom3D::canUpdate]"));
	expectError([&]() { EM::Extractor2DFrom3D e(d.get(), EM::CT_NoCut, wall.m_geo); },
				"Cut type 'NoCut' leaves 2 dimensions of data format '3D [time, vector of values]', the extractor needs 1.",
				"[Extractor2DFrom3D::Extractor2DFrom3D]");
}


TEST(EMFieldExtractor, WallOverTimeHasCellEdges) {
	MessageRecorder rec;
	GridGeometry wall({ 0.01, 0.02, 0.04 }, { 1.0 });
	// element 1 not listed, the columns in another order than the elements
	std::unique_ptr<DATAIO::DataIO> d = fieldContainer({ 2, 0 }, { 0, 6, 12 }, elementValues({ 2, 0 }, 3),
														DATAIO::DataIO::DF_3D);
	EM::Extractor3DFrom3D e(d.get(), EM::CT_NoCut, wall.m_geo);
	setTargetUnits(e, "d", "C");
	EXPECT_TRUE(rec.updateFails(e, "Target y-coordinate unit not set.", "[Extractor3DOutputBase::canUpdate]"));
	e.setTargetYUnit(ZEB::Unit("cm"));
	e.update();
	ASSERT_EQ(e.status(), EM::ExtractorBase::US_UpToDate);
	expectNear(e.x().m_data, { 0, 0.25, 0.5 });
	// edges of cells of 1, 2 and 4 cm from the origin; the uncovered cell keeps its width
	expectNear(e.y().m_data, { 0, 1, 3, 7 });
	ASSERT_EQ(e.xCellCount(), 3u);
	ASSERT_EQ(e.yCellCount(), 3u);
	for (std::size_t t = 0; t < 3; ++t) {
		EXPECT_EQ(e.value(t, 0), 10.0*t + 1);
		EXPECT_TRUE(std::isnan(e.value(t, 1)));
		EXPECT_EQ(e.value(t, 2), 10.0*t + 3);
	}
	EXPECT_EQ(e.information(EM::ExtractorBase::IT_Unit, EM::ExtractorBase::ODT_Y), "cm");
	EXPECT_EQ(e.information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_Values), "Temperature");
	expectError([&]() { e.axisUnitFromDataIO(3); }, "Invalid axis requested.", "[Extractor3DOutputBase::axisUnitFromDataIO]");

	// only the inner layers listed: the grid begins at the first listed one
	std::unique_ptr<DATAIO::DataIO> inner = fieldContainer({ 1, 2 }, { 0 }, elementValues({ 1, 2 }, 1), DATAIO::DataIO::DF_3D);
	EM::Extractor3DFrom3D e2(inner.get(), EM::CT_NoCut, wall.m_geo);
	setTargetUnits(e2, "h", "C", "cm");
	e2.update();
	ASSERT_EQ(e2.status(), EM::ExtractorBase::US_UpToDate);
	expectNear(e2.y().m_data, { 1, 3, 7 });
	EXPECT_EQ(e2.value(0, 0), 2);

	// a y unit that is no length
	e.setTargetYUnit(ZEB::Unit("h"));
	EXPECT_TRUE(rec.updateFails(e, "Error converting y-unit: no valid unit conversion found between source and "
								"target units.\n", "[Extractor3DOutputBase::convertUnits]"));
	EXPECT_TRUE(rec.has(ZEB::MSG_ERROR, "Update from DataIO failed.", "[ExtractorBase::update]"));
	EXPECT_TRUE(e.values().empty());
}


TEST(EMFieldExtractor, DetailCutsOf4D) {
	MessageRecorder rec;
	// 3 x 2 cells; cell (2, 1) (element 5) is not listed; columns shuffled
	GridGeometry detail({ 0.1, 0.2, 0.3 }, { 0.5, 1.5 });
	const std::vector<std::uint32_t> nums = { 4, 2, 0, 3, 1 };
	std::unique_ptr<DATAIO::DataIO> d = fieldContainer(nums, { 0, 1 }, elementValues(nums, 2), DATAIO::DataIO::DF_4D);
	auto value = [&](std::size_t t, std::uint32_t i, std::uint32_t j) { return 10.0*t + detail.element(i, j) + 1; };

	EM::Extractor3DFrom4D plane(d.get(), EM::CT_TimeCut, detail.m_geo);
	setTargetUnits(plane, "m", "C", "m");
	plane.setCutIndex(EM::CD_Time, 0, true);
	ASSERT_EQ(plane.status(), EM::ExtractorBase::US_UpToDate);
	expectNear(plane.x().m_data, { 0, 0.1, 0.3, 0.6 });
	expectNear(plane.y().m_data, { 0, 0.5, 2.0 });
	for (std::uint32_t j = 0; j < 2; ++j)
		for (std::uint32_t i = 0; i < 3; ++i) {
			if (i == 2 && j == 1)
				EXPECT_TRUE(std::isnan(plane.value(i, j)));
			else
				EXPECT_EQ(plane.value(i, j), value(0, i, j)) << i << " " << j;
		}
	EXPECT_EQ(plane.information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_X), "X");
	EXPECT_EQ(plane.information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_Y), "Y");

	// fixed X: time over Y
	EM::Extractor3DFrom4D xCut(d.get(), EM::CT_XCut, detail.m_geo);
	setTargetUnits(xCut, "h", "C", "m");
	expectNear(xCut.cutValues(EM::CD_X), { 0.05, 0.2, 0.45 });
	xCut.setCutValue(EM::CD_X, 0.3);
	EXPECT_EQ(xCut.cutIndex(EM::CD_X), 1u);
	xCut.update();
	ASSERT_EQ(xCut.status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(xCut.x().m_data, std::vector<double>({ 0, 1 }));
	expectNear(xCut.y().m_data, { 0, 0.5, 2.0 });
	for (std::size_t t = 0; t < 2; ++t)
		for (std::uint32_t j = 0; j < 2; ++j)
			EXPECT_EQ(xCut.value(t, j), value(t, 1, j));

	// fixed Y: time over X, the uncovered cell empty
	EM::Extractor3DFrom4D yCut(d.get(), EM::CT_YCut, detail.m_geo);
	setTargetUnits(yCut, "h", "C", "m");
	yCut.setCutIndex(EM::CD_Y, 1, true);
	expectNear(yCut.y().m_data, { 0, 0.1, 0.3, 0.6 });
	EXPECT_EQ(yCut.value(1, 0), value(1, 0, 1));
	EXPECT_EQ(yCut.value(1, 1), value(1, 1, 1));
	EXPECT_TRUE(std::isnan(yCut.value(1, 2)));

	// 2D series: one cell over time, profiles along X and Y at one time point
	EM::Extractor2DFrom4D cell(d.get(), EM::CT_XYCut, detail.m_geo);
	setTargetUnits(cell, "h", "C");
	cell.setCutIndex(EM::CD_X, 1, false);
	cell.setCutIndex(EM::CD_Y, 1, true);
	EXPECT_EQ(cell.y().m_data, std::vector<double>({ value(0, 1, 1), value(1, 1, 1) }));
	// the uncovered cell has no series
	cell.setCutIndex(EM::CD_X, 2, false);
	EXPECT_TRUE(rec.updateFails(cell, "No value in the selected cut cell.", "[Extractor2DFromFieldBase::extract]"));
	EXPECT_TRUE(rec.has(ZEB::MSG_ERROR, "Error accessing data from DataIO.", "[Extractor2DFrom4D::doUpdate]"));

	EM::Extractor2DFrom4D alongY(d.get(), EM::CT_XTCut, detail.m_geo);
	setTargetUnits(alongY, "m", "C");
	alongY.setCutIndex(EM::CD_X, 2, false);
	alongY.setCutIndex(EM::CD_Time, 0, true);
	expectNear(alongY.x().m_data, { 0.25 });
	EXPECT_EQ(alongY.y().m_data, std::vector<double>({ value(0, 2, 0) }));

	EM::Extractor2DFrom4D alongX(d.get(), EM::CT_YTCut, detail.m_geo);
	setTargetUnits(alongX, "cm", "C");
	alongX.update();
	expectNear(alongX.x().m_data, { 5, 20, 45 });
	EXPECT_EQ(alongX.y().m_data, std::vector<double>({ value(1, 0, 0), value(1, 1, 0), value(1, 2, 0) }));

	// a geometry whose listed elements vary in one direction only does not fit 4D
	GridGeometry wall({ 0.1, 0.2 }, { 1.0 });
	std::unique_ptr<DATAIO::DataIO> flat = fieldContainer({ 0, 1 }, { 0 }, elementValues({ 0, 1 }, 1), DATAIO::DataIO::DF_4D);
	EM::Extractor3DFrom4D wrong(flat.get(), EM::CT_TimeCut, wall.m_geo);
	setTargetUnits(wrong, "m", "C", "m");
	EXPECT_TRUE(rec.updateFails(wrong, "Positions of the listed elements or sides differ in 1 directions, the data format needs 2.",
								"[SpaceGrid::build]"));
	// without geometry
	EM::Extractor3DFrom4D noGeometry(d.get(), EM::CT_TimeCut);
	setTargetUnits(noGeometry, "m", "C", "m");
	EXPECT_TRUE(rec.updateFails(noGeometry, "Missing/invalid geometry data for DataIO container.", "[Extractor3DFrom4D::canUpdate]"));
}


TEST(EMFieldExtractor, CutsOf5D) {
	MessageRecorder rec;
	GridGeometry block({ 1, 1 }, { 1, 2 }, { 1, 1, 1 });
	std::vector<std::uint32_t> nums;
	for (std::uint32_t n = 0; n < 12; ++n)
		nums.push_back(n);
	std::unique_ptr<DATAIO::DataIO> d = fieldContainer(nums, { 0, 1, 2 }, elementValues(nums, 3), DATAIO::DataIO::DF_5D);

	EM::Extractor2DFrom5D cell(d.get(), EM::CT_XYZCut, block.m_geo);
	setTargetUnits(cell, "h", "C");
	cell.setCutIndex(EM::CD_X, 1, false);
	cell.setCutIndex(EM::CD_Z, 2, true);
	// Y unset reads as 0: element (1, 0, 2)
	const double e = block.element(1, 0, 2) + 1;
	EXPECT_EQ(cell.y().m_data, std::vector<double>({ e, 10 + e, 20 + e }));

	EM::Extractor2DFrom5D alongZ(d.get(), EM::CT_XYTCut, block.m_geo);
	setTargetUnits(alongZ, "m", "C");
	alongZ.setCutIndex(EM::CD_Y, 1, true);
	expectNear(alongZ.x().m_data, { 0.5, 1.5, 2.5 });
	EXPECT_EQ(alongZ.y().m_data, std::vector<double>({ 21.0 + block.element(0, 1, 0), 21.0 + block.element(0, 1, 1),
														21.0 + block.element(0, 1, 2) }));

	// X and Z at one Y cell and time point
	EM::Extractor3DFrom5D xz(d.get(), EM::CT_YTCut, block.m_geo);
	setTargetUnits(xz, "m", "C", "m");
	xz.setCutIndex(EM::CD_Y, 1, false);
	xz.setCutIndex(EM::CD_Time, 1, true);
	ASSERT_EQ(xz.status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(xz.information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_Y), "Z");
	expectNear(xz.x().m_data, { 0, 1, 2 });
	expectNear(xz.y().m_data, { 0, 1, 2, 3 });
	for (std::uint32_t k = 0; k < 3; ++k)
		for (std::uint32_t i = 0; i < 2; ++i)
			EXPECT_EQ(xz.value(i, k), 11.0 + block.element(i, 1, k));

	// time over Y at one X and Z cell
	EM::Extractor3DFrom5D overY(d.get(), EM::CT_XZCut, block.m_geo);
	setTargetUnits(overY, "h", "C", "m");
	overY.setCutIndex(EM::CD_Z, 1, true);
	expectNear(overY.y().m_data, { 0, 1, 3 });
	EXPECT_EQ(overY.value(2, 1), 21.0 + block.element(0, 1, 1));

	expectError([&]() { EM::Extractor3DFrom5D bad(d.get(), EM::CT_XCut, block.m_geo); },
				"Cut type 'XCut' leaves 3 dimensions of data format '5D [time, matrix 3x3 of values]', the extractor needs 2.",
				"[Extractor3DFrom5D::Extractor3DFrom5D]");
	expectError([&]() { EM::Extractor2DFrom4D bad(d.get(), EM::CT_XYZCut, block.m_geo); },
				"Cut type 'XYZCut' cuts a dimension that data format '4D [time, matrix 2x2 of values]' does not have.",
				"[Extractor2DFrom4D::Extractor2DFrom4D]");
}


TEST(EMFieldExtractor, FluxVectorField) {
	MessageRecorder rec;
	GridGeometry detail({ 1, 2 }, { 1, 1 });
	// flux of every side: x-normal sides 1 + i + 3j, y-normal sides 20 + 2i + j (per unit)
	std::vector<double> flux(detail.m_geo->sides().size());
	for (std::uint32_t j = 0; j < 2; ++j)
		for (std::uint32_t i = 0; i <= 2; ++i)
			flux[detail.xSide(i, j)] = 1.0 + i + 3*j;
	for (std::uint32_t i = 0; i < 2; ++i)
		for (std::uint32_t j = 0; j <= 2; ++j)
			flux[detail.ySide(i, j)] = 20.0 + 2*i + j;
	// one side with its elements the other way round: its flux counts the other way
	std::vector<DATAIO::GeoFile::Side> sides = detail.m_geo->sides();
	std::swap(sides[detail.xSide(1, 0)].m_elementA, sides[detail.xSide(1, 0)].m_elementB);
	flux[detail.xSide(1, 0)] = -flux[detail.xSide(1, 0)];
	detail.m_geo->setSides(sides);

	std::vector<std::uint32_t> nums;
	for (std::uint32_t n = 0; n < flux.size(); ++n)
		nums.push_back(n);
	std::vector<std::vector<double> > values = { std::vector<double>(flux.size(), 0.0), flux };
	std::unique_ptr<DATAIO::DataIO> d = fieldContainer(nums, { 0, 1 }, values, DATAIO::DataIO::DF_4D,
														DATAIO::DataIO::T_FLUX, "W/m2");
	EM::ExtractorVecFromFluxField e(d.get(), detail.m_geo);
	setTargetUnits(e, "cm", "W/m2", "m");
	EXPECT_EQ(e.cutType(), EM::CT_TimeCut);
	e.update();
	ASSERT_EQ(e.status(), EM::ExtractorBase::US_UpToDate);
	expectNear(e.x().m_data, { 50, 200 });
	expectNear(e.y().m_data, { 0.5, 1.5 });
	ASSERT_EQ(e.xComponents().size(), 4u);
	for (std::uint32_t j = 0; j < 2; ++j)
		for (std::uint32_t i = 0; i < 2; ++i) {
			// the mean of the element's two sides in each direction
			const double vx = (1.0 + i + 3*j + 1.0 + (i + 1) + 3*j)/2;
			const double vy = (20.0 + 2*i + j + 20.0 + 2*i + (j + 1))/2;
			EXPECT_DOUBLE_EQ(e.xComponents()[j*2 + i], vx) << i << " " << j;
			EXPECT_DOUBLE_EQ(e.yComponents()[j*2 + i], vy) << i << " " << j;
		}

	// only x-normal sides listed: no y component; the first time point
	std::vector<std::uint32_t> xSides;
	std::vector<double> xFlux;
	for (std::uint32_t j = 0; j < 2; ++j)
		for (std::uint32_t i = 0; i <= 2; ++i) {
			xSides.push_back(detail.xSide(i, j));
			xFlux.push_back(flux[detail.xSide(i, j)]);
		}
	std::unique_ptr<DATAIO::DataIO> dx = fieldContainer(xSides, { 0 }, { xFlux }, DATAIO::DataIO::DF_4D,
														 DATAIO::DataIO::T_FLUX, "W/m2");
	EM::ExtractorVecFromFluxField ex(dx.get(), detail.m_geo);
	setTargetUnits(ex, "m", "W/m2", "m");
	ex.update();
	ASSERT_EQ(ex.status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_DOUBLE_EQ(ex.xComponents()[3], 5.5);
	EXPECT_EQ(ex.yComponents()[3], 0);

	// the checks of the vector extractor
	auto expectRefused = [&](const std::string & msg, const std::string & where) {
		rec.m_messages.clear();
		EXPECT_FALSE(e.canUpdate());
		EXPECT_TRUE(rec.has(ZEB::MSG_ERROR, msg, where)) << msg;
	};
	e.setTargetXUnit(ZEB::Unit("h"));
	expectRefused("Invalid or not compatible units in DataIO container.", "[ExtractorVecOutputBase::canUpdate]");
	e.setTargetXUnit(ZEB::Unit("m"));
	d->setType(DATAIO::DataIO::T_FIELD);
	expectRefused("Update failed: Invalid type, expected FLUX file type.\n", "[ExtractorVecFromFluxField::canUpdate]");
	d->setType(DATAIO::DataIO::T_FLUX);
	d->setDataFormat(DATAIO::DataIO::DF_3D);
	expectRefused("Update failed: Invalid data format (only flux fields for 2D geometries supported).\n",
				  "[ExtractorVecFromFluxField::canUpdate]");
	d->setDataFormat(DATAIO::DataIO::DF_4D);
	EM::ExtractorVecFromFluxField noGeometry(d.get());
	setTargetUnits(noGeometry, "m", "W/m2", "m");
	rec.m_messages.clear();
	EXPECT_FALSE(noGeometry.canUpdate());
	EXPECT_TRUE(rec.has(ZEB::MSG_ERROR, "Update failed: Missing/invalid GeoFile.\n", "[ExtractorVecFromFluxField::canUpdate]"));
}


TEST(EMFieldExtractor, FluxAlongAWallUsesSidePositions) {
	MessageRecorder rec;
	GridGeometry wall({ 0.01, 0.02, 0.04 }, { 1.0 });
	std::vector<std::uint32_t> nums;
	for (std::uint32_t i = 0; i <= 3; ++i)
		nums.push_back(wall.xSide(i, 0));
	std::unique_ptr<DATAIO::DataIO> d = fieldContainer(nums, { 0, 1 }, { { 1, 2, 3, 4 }, { 5, 6, 7, 8 } },
														DATAIO::DataIO::DF_3D, DATAIO::DataIO::T_FLUX, "W/m2");
	EM::Extractor2DFrom3D profile(d.get(), EM::CT_TimeCut, wall.m_geo);
	setTargetUnits(profile, "cm", "W/m2");
	profile.update();
	ASSERT_EQ(profile.status(), EM::ExtractorBase::US_UpToDate);
	expectNear(profile.x().m_data, { 0, 1, 3, 7 });
	EXPECT_EQ(profile.y().m_data, std::vector<double>({ 5, 6, 7, 8 }));

	// over time: the side positions themselves are the y coordinates
	EM::Extractor3DFrom3D field(d.get(), EM::CT_NoCut, wall.m_geo);
	setTargetUnits(field, "h", "W/m2", "m");
	field.update();
	ASSERT_EQ(field.status(), EM::ExtractorBase::US_UpToDate);
	expectNear(field.y().m_data, { 0, 0.01, 0.03, 0.07 });
	EXPECT_EQ(field.yCellCount(), 4u);
	EXPECT_EQ(field.value(1, 3), 8);
}
