#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <ZEB_UnitVector.h>

#include <EM_ModelTwo2DViitanenWoodDegradation.h>
#include <EM_ModelTwo2DWTAWoodDegradation.h>

#include "EM_TestUtils.h"

using EMTest::constantSeries;
using EMTest::expectError;
using EMTest::hourlySeries;

namespace {

/*! Hourly time points in days: 0, 1/24, ... (n points). */
std::vector<double> hoursInDays(std::size_t n) {
	std::vector<double> t;
	for (std::size_t i = 0; i < n; ++i)
		t.push_back(static_cast<double>(i) / 24);
	return t;
}

} // namespace


TEST(EMWoodDecayModel, CriticalTimeAndActivation) {
	// (3.5 + 46 - 48) / (2.8 - 42.9 + 45) * 720 = 1.5 / 4.9 * 720
	EXPECT_NEAR(EM::ModelTwo2DViitanenWoodDegradation::criticalTime(20, 100), 220.408163265306, 1e-9);
	const double rate = 0.000196*20 - 0.0596 + 0.000625*100; // mass loss per hour at 20 C, 100 %

	EM::ModelTwo2DViitanenWoodDegradation model;
	const std::size_t n = 500;
	std::vector<double> t = hoursInDays(n), T(n, 20.0), RH(n, 100.0), L;

	// AC 1, IA 0: no loss until the activation has reached 1 after 220.4 hours
	model.massLoss(t, T, RH, L);
	for (std::size_t i = 0; i <= 220; ++i)
		ASSERT_EQ(L[i], 0) << i;
	EXPECT_NEAR(L[221], rate, 1e-12);
	EXPECT_NEAR(L[n-1], (n - 221) * rate, 1e-9);

	// AC 0: loss from the first hour on, whatever the activation
	model.setFromParameter("AC 0");
	model.massLoss(t, T, RH, L);
	for (std::size_t i = 0; i < n; ++i)
		ASSERT_NEAR(L[i], i * rate, 1e-9) << i;

	// AC 1, IA 1: loss at once; one unfavourable hour lowers the activation below 1 and stops
	// the loss until favourable hours have brought it back
	model.setFromParameter("AC 1 IA 1");
	RH[10] = 90;
	model.massLoss(t, T, RH, L);
	EXPECT_NEAR(L[9], 9 * rate, 1e-12);
	EXPECT_EQ(L[10], L[9]);
	// back at 1 after 220.4/17520 of an hour of favourable climate: the next hour already counts
	EXPECT_NEAR(L[11], 10 * rate, 1e-12);

	// the whole calculation on the grid of 1/24 d
	model.setFromParameter("AC 0 IA 0");
	ZEB::UnitVector x, y;
	model.calculate(constantSeries(49, 20, "C"), constantSeries(49, 100, "%"), x, y);
	ASSERT_EQ(y.size(), 49u);
	EXPECT_EQ(x.m_unit, ZEB::Unit("d"));
	EXPECT_EQ(y.m_unit, ZEB::Unit("-"));
	EXPECT_NEAR(y.m_data[48], 48 * rate, 1e-9);
}


TEST(EMWoodDecayModel, MassLossBounds) {
	EM::ModelTwo2DViitanenWoodDegradation model;
	// 40 C and 100 % for long enough to exceed 100 % by far
	const std::size_t n = 24 * 500;
	std::vector<double> t = hoursInDays(n), T(n, 40.0), RH(n, 100.0), L;
	model.setFromParameter("AC 0");
	model.massLoss(t, T, RH, L);
	EXPECT_EQ(L.back(), 100);

	// random climates: the loss never decreases and never exceeds 100
	std::mt19937 gen(7);
	std::uniform_real_distribution<double> temp(-10, 45), hum(40, 100), coin(0, 1);
	for (int round = 0; round < 4; ++round) {
		for (std::size_t i = 0; i < n; ++i) {
			T[i] = temp(gen);
			RH[i] = coin(gen) < 0.6 ? 96 + 4 * coin(gen) : hum(gen);
		}
		model.setFromParameter(round % 2 ? "AC 1 IA 0" : "AC 0 IA 1");
		model.massLoss(t, T, RH, L);
		for (std::size_t i = 1; i < n; ++i) {
			ASSERT_GE(L[i], L[i-1]) << i;
			ASSERT_LE(L[i], 100) << i;
		}
		EXPECT_GT(L.back(), 0);
	}
}
TEST(EMWTAWoodModel, DailyMeans) {
	EM::ModelTwo2DWTAWoodDegradation model;
	// day 0: 10 C, RH alternating 92/100 (mean 96): above; day 1: mean 94.5: below;
	// day 2: RH 99 but a mean of -1 C: frost, below; day 3: only 10 hours, not evaluated
	std::vector<double> T, RH;
	for (int h = 0; h < 24; ++h) { T.push_back(10); RH.push_back(h % 2 ? 100 : 92); }
	for (int h = 0; h < 24; ++h) { T.push_back(10); RH.push_back(h % 2 ? 100 : 89); }
	for (int h = 0; h < 24; ++h) { T.push_back(h % 2 ? 1 : -3); RH.push_back(99); }
	for (int h = 0; h < 10; ++h) { T.push_back(20); RH.push_back(100); }
	ZEB::UnitVector x, y;
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_EQ(x.m_data, (std::vector<double>{ 0, 1, 2 }));
	EXPECT_EQ(y.m_data, (std::vector<double>{ 1, 0, 0 }));
	EXPECT_EQ(model.daysAboveLimit(), 1u);
	ASSERT_EQ(model.dailyHumidities().size(), 3u);
	EXPECT_NEAR(model.dailyHumidities()[1], 94.5, 1e-12);
	EXPECT_NEAR(model.dailyTemperatures()[2], -1, 1e-12);

	// the period on the shifted axis: days 1 and 2 only
	model.setFromParameter("TSD 1 TED 3");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_EQ(x.m_data, (std::vector<double>{ 1, 2 }));
	EXPECT_EQ(model.daysAboveLimit(), 0u);
	// shifted by a day, the first day of data is day 1 of the period
	model.setFromParameter("TSH 24 TSD 1 TED 2");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_EQ(x.m_data, (std::vector<double>{ 1 }));
	EXPECT_EQ(y.m_data, (std::vector<double>{ 1 }));
	// a period without complete days
	model.setFromParameter("TSH 0 TSD 5 TED 9");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_TRUE(x.empty());
	EXPECT_EQ(model.daysAboveLimit(), 0u);

	// a replaced limit: 90 % up to 10 C, 80 % from 20 C
	model.setFromParameter("TSD -1 TED -1");
	model.setLimit(EM::ClimateLimitCurve("custom", { 10, 20 }, { 90, 80 }, 0));
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_EQ(y.m_data, (std::vector<double>{ 1, 1, 0 }));
	expectError([&]() { model.setLimit(EM::ClimateLimitCurve()); }, "Limit curve has no points.",
				"[ModelTwo2DWTAWoodDegradation::setLimit]");
}
