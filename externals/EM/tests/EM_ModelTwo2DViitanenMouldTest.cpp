#include <gtest/gtest.h>

#include <cmath>

#include <ZEB_UnitVector.h>

#include <EM_ModelTwo2DViitanenMould.h>

#include "EM_TestUtils.h"

using EMTest::constantSeries;
using EMTest::expectError;

namespace {

/*! Growth of one hour at T, RH with factors k1, k2, written with powers instead of exp/log. */
double growth(double T, double RH, double k1, double k2) {
	return std::pow(RH, 13.9) * std::pow(T, 0.68) / (24 * 7 * std::exp(66.02)) * k1 * k2;
}

/*! Hourly series: n1 hours at (T1, RH1), then n2 hours at (T2, RH2). */
void twoPhases(std::size_t n1, double T1, double RH1, std::size_t n2, double T2, double RH2,
			   std::vector<double> & T, std::vector<double> & RH)
{
	T.assign(n1, T1);
	RH.assign(n1, RH1);
	T.insert(T.end(), n2, T2);
	RH.insert(RH.end(), n2, RH2);
}

} // namespace


TEST(EMMouldModel, CriticalHumidityAndMaximum) {
	EXPECT_EQ(EM::ModelTwo2DViitanenMould::criticalHumidity(0, 80), 99.999);
	EXPECT_EQ(EM::ModelTwo2DViitanenMould::criticalHumidity(-5, 80), 99.999);
	EXPECT_EQ(EM::ModelTwo2DViitanenMould::criticalHumidity(50, 80), 99.999);
	EXPECT_EQ(EM::ModelTwo2DViitanenMould::criticalHumidity(20, 85), 85);
	EXPECT_EQ(EM::ModelTwo2DViitanenMould::criticalHumidity(49.9, 80), 80);
	// -0.00267*1000 + 0.16*100 - 31.3 + 100 = 82.03; at 5 C 88.01625; at 15 C 80.03875; at 18 C
	// the polynomial (79.92856) is below 80
	EXPECT_NEAR(EM::ModelTwo2DViitanenMould::criticalHumidity(10, 80), 82.03, 1e-12);
	EXPECT_NEAR(EM::ModelTwo2DViitanenMould::criticalHumidity(5, 85), 88.01625, 1e-12);
	EXPECT_NEAR(EM::ModelTwo2DViitanenMould::criticalHumidity(15, 80), 80.03875, 1e-12);
	EXPECT_EQ(EM::ModelTwo2DViitanenMould::criticalHumidity(18, 80), 80);
	EXPECT_EQ(EM::ModelTwo2DViitanenMould::criticalHumidity(15, 85), 85);

	// x = (80 - 95) / (80 - 100) = 0.75
	EXPECT_DOUBLE_EQ(EM::ModelTwo2DViitanenMould::maximumIndex(25, 95, 1), 1 + 7*0.75 - 2*0.5625);
	EXPECT_DOUBLE_EQ(EM::ModelTwo2DViitanenMould::maximumIndex(25, 95, 2), 0.3 + 6*0.75 - 0.5625);
	// MC 3 and 4: RHmin 85, x = (85 - 95) / (85 - 100) = 2/3
	EXPECT_DOUBLE_EQ(EM::ModelTwo2DViitanenMould::maximumIndex(25, 95, 3), 10.0/3 - 1.5*4/9);
	EXPECT_DOUBLE_EQ(EM::ModelTwo2DViitanenMould::maximumIndex(25, 95, 4), 2 - 4.0/9);
	// below the critical humidity the maximum is 0
	EXPECT_EQ(EM::ModelTwo2DViitanenMould::maximumIndex(25, 60, 1), 0);
}


TEST(EMMouldModel, GrowthAtConstantClimate) {
	EM::ModelTwo2DViitanenMould model;
	const double mMax = 5.125;
	std::vector<double> T(24 * 365, 25.0), RH(24 * 365, 95.0), M;
	model.mouldIndex(T, RH, M);
	ASSERT_EQ(M.size(), T.size());
	EXPECT_EQ(M[0], 0);
	EXPECT_NEAR(M[1], growth(25, 95, 1, 1 - std::exp(-2.3 * mMax)), 1e-15);

	std::size_t crossing = 0;
	for (std::size_t i = 1; i < M.size(); ++i) {
		ASSERT_GE(M[i], M[i-1]) << i;
		ASSERT_LT(M[i], mMax) << i;
		if (crossing == 0 && M[i-1] >= 1)
			crossing = i;
	}
	ASSERT_GT(crossing, 1u);
	// k1 switches from 1 to 2 once M >= 1: the step doubles (k2 hardly changes across one hour)
	const double before = M[crossing - 1] - M[crossing - 2];
	const double after = M[crossing] - M[crossing - 1];
	const double k2Before = 1 - std::exp(2.3 * (M[crossing - 2] - mMax));
	const double k2After = 1 - std::exp(2.3 * (M[crossing - 1] - mMax));
	EXPECT_NEAR(before, growth(25, 95, 1, k2Before), 1e-15);
	EXPECT_NEAR(after, growth(25, 95, 2, k2After), 1e-15);
	// the index levels off close below the maximum
	EXPECT_GT(M.back(), mMax - 0.01);

	// the whole calculation: daily time axis, hourly grid, same values
	ZEB::UnitVector x, y;
	model.calculate(constantSeries(T.size(), 25, "C"), constantSeries(T.size(), 95, "%"), x, y);
	ASSERT_EQ(y.size(), M.size());
	EXPECT_EQ(x.m_unit, ZEB::Unit("d"));
	EXPECT_EQ(y.m_unit, ZEB::Unit("-"));
	EXPECT_NEAR(x.m_data[24], 1.0, 1e-12);
	EXPECT_EQ(y.m_data, M);
}


TEST(EMMouldModel, DeclineInDrySpellAndHotHours) {
	EM::ModelTwo2DViitanenMould model; // DC 4: decline factor 0.1
	std::vector<double> T, RH, M;
	twoPhases(24 * 100, 25, 97, 24 * 30, 25, 50, T, RH);
	model.mouldIndex(T, RH, M);
	const std::size_t dry = 24 * 100; // first dry hour
	const double fast = 0.1 * 0.032 / 24;
	const double slow = 0.1 * 0.016 / 24;
	ASSERT_GT(M[dry - 1], 1);
	for (std::size_t h = 1; h <= 5; ++h)
		EXPECT_NEAR(M[dry + h - 1] - M[dry + h - 2], -fast, 1e-14) << h;
	for (std::size_t h = 6; h <= 23; ++h)
		EXPECT_EQ(M[dry + h - 1], M[dry + h - 2]) << h;
	for (std::size_t h = 24; h <= 100; ++h)
		EXPECT_NEAR(M[dry + h - 1] - M[dry + h - 2], -slow, 1e-14) << h;

	// a long dry spell ends at 0 and stays there
	twoPhases(24 * 5, 25, 97, 24 * 400, 25, 50, T, RH);
	model.mouldIndex(T, RH, M);
	EXPECT_GT(M[24 * 5 - 1], 0);
	EXPECT_EQ(M.back(), 0);
	for (double m : M)
		ASSERT_GE(m, 0);

	// decline class 1: the full rates
	model.setFromParameter("DC 1");
	twoPhases(24 * 100, 25, 97, 10, -5, 97, T, RH);
	model.mouldIndex(T, RH, M);
	EXPECT_NEAR(M[dry] - M[dry - 1], -0.032 / 24, 1e-14);

	// 60 C leaves the index unchanged. At 90 % the hot hours count as unfavourable: the dry
	// hours that follow are hours 11, 12, ... of the spell and bring no decline until hour 24. At
	// 100 % the critical 99.999 % is reached: the counter is reset, the dry hours start at once.
	model.setFromParameter("DC 4");
	for (double hotRH : { 90.0, 100.0 }) {
		twoPhases(dry, 25, 97, 10, 60, hotRH, T, RH);
		T.insert(T.end(), 20, 25.0);
		RH.insert(RH.end(), 20, 50.0);
		model.mouldIndex(T, RH, M);
		const std::size_t still = hotRH < 100 ? 10 + 13 : 10;
		for (std::size_t i = dry; i < dry + still; ++i)
			EXPECT_EQ(M[i], M[dry - 1]) << hotRH << " " << i;
		EXPECT_LT(M[dry + still], M[dry + still - 1]) << hotRH;
	}
}


TEST(EMMouldModel, LogGuard) {
	EM::ModelTwo2DViitanenMould model;
	std::vector<double> T(48, 20.0), RH(48, 90.0), M;
	// RH of 0 at a point with T > 0 cannot be taken the logarithm of
	RH[10] = 0;
	expectError([&]() { model.mouldIndex(T, RH, M); }, "Negative or zero value in log function, x = 0", "[ZEB::f_log]");
	// at T <= 0 the logarithm is not needed
	T[10] = -1;
	model.mouldIndex(T, RH, M);
	EXPECT_EQ(M.size(), T.size());
}
