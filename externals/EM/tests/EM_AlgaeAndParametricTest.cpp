#include <gtest/gtest.h>

#include <cmath>

#include <ZEB_UnitVector.h>

#include <EM_ModelTwo2DGregoriniAlgaeBrick.h>
#include <EM_ModelTwo2DParametricFunction.h>

#include "EM_TestUtils.h"

using EM::ModelTwo2DGregoriniAlgaeBrick;
using EMTest::expectError;
using EMTest::hourlySeries;

TEST(EMAlgaeModel, MaterialQuantities) {
	// published facts for porosity 0.25, Ra 2.95 um, S 2.22 m2/g
	EXPECT_NEAR(ModelTwo2DGregoriniAlgaeBrick::delayTime(2.95), 1.16689, 1e-5);
	EXPECT_NEAR(ModelTwo2DGregoriniAlgaeBrick::areaRatio(0.25, 2.95), 0.619858, 1e-6);
	EXPECT_NEAR(ModelTwo2DGregoriniAlgaeBrick::growthRate(0.25, 2.22), 2.49013e-6, 1e-10);
	EXPECT_NEAR(ModelTwo2DGregoriniAlgaeBrick::tauA(20, 0.25, 2.95), 0.7636, 1e-4);
	EXPECT_NEAR(ModelTwo2DGregoriniAlgaeBrick::tauK(20, 0.25, 2.95), 0.6916, 1e-4);
	// the singular roughness
	EXPECT_EQ(ModelTwo2DGregoriniAlgaeBrick::delayTime(5.02), 30);
	// the temperature factors stay within [0, 1]
	for (double T = -30; T <= 60; T += 0.5) {
		const double a = ModelTwo2DGregoriniAlgaeBrick::tauA(T, 0.25, 2.95);
		const double k = ModelTwo2DGregoriniAlgaeBrick::tauK(T, 0.25, 2.95);
		ASSERT_TRUE(a >= 0 && a <= 1) << T;
		ASSERT_TRUE(k >= 0 && k <= 1) << T;
	}

	// the shift restarts the curve: a coverage reached after s days of curve time gives back s
	const double t1 = 1.16689;
	for (double s : { 0.5, 3.0, 17.0 }) {
		const double X = 0.4 * (1 - std::exp(-1e-4 * s*s*s*s));
		EXPECT_NEAR(ModelTwo2DGregoriniAlgaeBrick::getShiftValue(X, 0.4, 1e-4, 30, t1), s - (30 - 1 - t1), 1e-9);
	}
	EXPECT_DOUBLE_EQ(ModelTwo2DGregoriniAlgaeBrick::getShiftValue(0, 0.4, 0.01, 10, t1), -(10 - 1 - t1));
	const char * const where = "[ModelTwo2DGregoriniAlgaeBrick::getShiftValue]";
	expectError([]() { ModelTwo2DGregoriniAlgaeBrick::getShiftValue(0.4, 0.4, 0.01, 10, 1); }, "Invalid values.", where);
	expectError([]() { ModelTwo2DGregoriniAlgaeBrick::getShiftValue(0.1, 0.4, 0, 10, 1); }, "Invalid values.", where);
	expectError([]() { ModelTwo2DGregoriniAlgaeBrick::getShiftValue(-0.1, 0.4, 0.01, 10, 1); }, "Invalid values.", where);
}


TEST(EMAlgaeModel, DailyCoverage) {
	ModelTwo2DGregoriniAlgaeBrick model;
	const double maxCoverage = ModelTwo2DGregoriniAlgaeBrick::tauA(20, 0.25, 2.95) * 0.619858;
	const double rate = ModelTwo2DGregoriniAlgaeBrick::tauK(20, 0.25, 2.95) * 2.49013e-6;
	// 20 C and saturated air every day: growth from day 2 on (t1 = 1.17); restarting the curve
	// every day from the last coverage is the same as following it: day j is at curve time j - 1
	std::vector<double> T(80, 20.0), RH(80, 1.0), X, Xmax;
	model.dailyCoverage(T, RH, X, Xmax);
	ASSERT_EQ(X.size(), 81u);
	EXPECT_EQ(X[0], 0);
	EXPECT_EQ(X[1], 0);
	for (std::size_t j = 2; j <= 80; ++j) {
		const double s = static_cast<double>(j - 1);
		ASSERT_NEAR(X[j], maxCoverage * (1 - std::exp(-rate * s*s*s*s)), 1e-6 * maxCoverage) << j;
		ASSERT_NEAR(Xmax[j], maxCoverage, 1e-5);
	}
	EXPECT_GT(X[80], 0.9 * maxCoverage);

	// ten dry days (RH 0.9) and ten cold days (3 C) keep the coverage; growth resumes where it stopped
	for (std::size_t d = 10; d < 20; ++d) RH[d] = 0.9;
	for (std::size_t d = 20; d < 30; ++d) T[d] = 3;
	model.dailyCoverage(T, RH, X, Xmax);
	for (std::size_t j = 11; j <= 30; ++j)
		ASSERT_EQ(X[j], X[10]) << j;
	EXPECT_NEAR(X[31], maxCoverage * (1 - std::exp(-rate * std::pow(10.0, 4))), 1e-6 * maxCoverage);

	// the whole calculation on hourly data: 5 complete days and 3 hours
	ZEB::UnitVector x, y;
	model.calculate(hourlySeries(std::vector<double>(123, 20.0), "C"), hourlySeries(std::vector<double>(123, 100.0), "%"), x, y);
	ASSERT_EQ(x.size(), 6u);
	EXPECT_EQ(x.m_unit, ZEB::Unit("d"));
	EXPECT_EQ(y.m_unit, ZEB::Unit("%"));
	EXPECT_NEAR(x.m_data[5], 5, 1e-12);
	EXPECT_NEAR(y.m_data[5], 100 * maxCoverage * (1 - std::exp(-rate * 256)), 1e-5 * y.m_data[5]);
	ASSERT_EQ(model.maximumCoverage().size(), 6u);
	EXPECT_NEAR(model.maximumCoverage()[3], 100 * maxCoverage, 1e-3);
	for (std::size_t j = 1; j < y.size(); ++j)
		EXPECT_GE(y.m_data[j], y.m_data[j-1]);
	// the caption names porosity and roughness in the chart's words
	model.setFromParameter("RV 4 PO 0.3");
	EXPECT_EQ(model.parameterCaption(), "CT 0.3  MC 4");
}
TEST(EMParametricFunction, PointsInPeriod) {
	EM::ModelTwo2DParametricFunction model;
	std::vector<double> T, RH;
	for (int h = 0; h < 48; ++h) {
		T.push_back(h);
		RH.push_back(100 - h);
	}
	ZEB::UnitVector x, y;
	model.calculate(hourlySeries(RH, "%"), hourlySeries(T, "C"), x, y);
	ASSERT_EQ(x.size(), 48u);
	EXPECT_EQ(x.m_unit, ZEB::Unit("C"));
	EXPECT_EQ(y.m_unit, ZEB::Unit("%"));
	for (std::size_t i = 0; i < x.size(); ++i)
		EXPECT_DOUBLE_EQ(x.m_data[i] + y.m_data[i], 100);

	// hours 24..30 of the shifted axis = data hours 14..20; then only RH >= 82 % (hours <= 18)
	model.setFromParameter("TSH 10 TSD 1 TED 1.25 TH 82");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_EQ(x.m_data, (std::vector<double>{ 14, 15, 16, 17, 18 }));
	// a trailing mean over 3 hours lowers each temperature by one hour
	model.setFromParameter("TH 0 TAH 3");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_EQ(x.m_data, (std::vector<double>{ 13, 14, 15, 16, 17, 18, 19 }));
	EXPECT_EQ(model.parameter(), "TSH 10 TSD 1 TED 1.25 TAH 3 TH 0");

	// inputs that are not a temperature and a relative humidity
	expectError([&]() { model.calculate(hourlySeries(T, "C"), hourlySeries(T, "kg"), x, y); },
				"wrong data setting for parametric functions", "[ModelTwo2DBase::unifiedData]");
}
