#include <gtest/gtest.h>

#include <cmath>

#include <ZEB_UnitVector.h>

#include <EM_ModelTwo2DIsopleth.h>

#include "EM_TestUtils.h"

using EMTest::expectError;
using EMTest::hourlySeries;

namespace {

/*! 48 h at 20 C / 75 % (between the 8-day and the 16-day line), 24 h at 20 C / 50 % (below all
	lines), 10 h at 20 C / 99 % (above all lines).
*/
void threePhases(std::vector<double> & T, std::vector<double> & RH) {
	T.assign(82, 20.0);
	RH.assign(48, 75.0);
	RH.insert(RH.end(), 24, 50.0);
	RH.insert(RH.end(), 10, 99.0);
}

} // namespace


TEST(EMIsoplethModel, DefaultLines) {
	const std::vector<EM::ClimateLimitCurve> lines = EM::ModelTwo2DIsopleth::defaultLines();
	ASSERT_EQ(lines.size(), 6u);
	EXPECT_EQ(lines[0].name(), "Germination within 1 day");
	EXPECT_EQ(lines[4].name(), "Germination within 16 days");
	EXPECT_EQ(lines[5].name(), "Limit for germination");
	// published fits at 20 C: 16 days -9.6 + 36.56 - 47.2 + 93; limit -13.6 + 45.76 - 53.568 + 97.017 - 6
	EXPECT_NEAR(lines[4].humidity(20), 72.76, 1e-9);
	EXPECT_NEAR(lines[5].humidity(20), 69.609, 1e-9);
	EXPECT_NEAR(lines[0].humidity(10), -1.2 + 9.14 - 23.7 + 106.18, 1e-9);
	// ordered, capped at 100 and never reached at or below 0 C
	for (double T = -10; T <= 45; T += 0.25) {
		for (std::size_t l = 0; l < lines.size(); ++l) {
			EXPECT_LE(lines[l].humidity(T), 100) << T;
			if (l > 0) {
				EXPECT_LE(lines[l].humidity(T), lines[l-1].humidity(T)) << T << " " << l;
			}
			if (T <= 0) {
				EXPECT_FALSE(lines[l].isReached(T, 100)) << T;
			}
		}
	}
	EXPECT_TRUE(lines[0].isReached(25, 100));
}


TEST(EMIsoplethModel, Accumulation) {
	EM::ModelTwo2DIsopleth model;
	std::vector<double> T, RH;
	threePhases(T, RH);
	ZEB::UnitVector x, y;
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	ASSERT_EQ(x.size(), 82u);
	EXPECT_EQ(x.m_unit, ZEB::Unit("h"));
	EXPECT_EQ(y.m_unit, ZEB::Unit("d"));
	EXPECT_EQ(model.hoursAbove(), (std::vector<double>{ 10, 10, 10, 10, 58, 58 }));
	EXPECT_DOUBLE_EQ(model.riskDays(), 58.0 / 24);
	EXPECT_EQ(model.maxRiskPeriodHours(), 48);
	EXPECT_EQ(model.summary(), "- 2.41667 days mould risk (max period 48 h)");
	EXPECT_DOUBLE_EQ(y.m_data[47], 2);
	EXPECT_DOUBLE_EQ(y.m_data[71], 2);
	EXPECT_DOUBLE_EQ(y.m_data.back(), 58.0 / 24);

	// period: hours 24 to 48 of the shifted axis, both included
	model.setFromParameter("TSD 1 TED 2");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	ASSERT_EQ(x.size(), 25u);
	EXPECT_EQ(x.m_data.front(), 24);
	EXPECT_EQ(x.m_data.back(), 48);
	EXPECT_EQ(model.hoursAbove().back(), 24);
	EXPECT_EQ(model.temperatures().size(), 25u);

	// shifted by 24 h the same period holds the hours 0 to 24 of the data
	model.setFromParameter("TSH 24");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	ASSERT_EQ(x.size(), 25u);
	EXPECT_EQ(x.m_data.front(), 24);
	EXPECT_EQ(model.hoursAbove().back(), 25);

	// a trailing mean over 2 h: the first hour at 50 % becomes 62.5 %
	model.setFromParameter("TSH 0 TSD -1 TED -1 TAH 2");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_DOUBLE_EQ(model.humidities()[48], 62.5);
	EXPECT_DOUBLE_EQ(model.humidities()[49], 50);
	EXPECT_DOUBLE_EQ(model.humidities()[0], 75);
	EXPECT_EQ(model.hoursAbove().back(), 58);
	EXPECT_EQ(model.parameter(), "TSH 0 TSD -1 TED -1 TAH 2");

	// replaced lines: one limit line at 60 %
	model.setLines({ EM::ClimateLimitCurve("limit", { 0 }, { 60 }, 0) }, "one line");
	model.calculate(hourlySeries(T, "C"), hourlySeries(RH, "%"), x, y);
	EXPECT_EQ(model.hoursAbove(), (std::vector<double>{ 59 }));
	expectError([&]() { model.setLines({}, "none"); }, "At least the limit line is needed.", "[ModelTwo2DIsopleth::setLines]");
	// no lines and no name: the default lines again
	model.setLines({}, std::string());
	EXPECT_EQ(model.lines().size(), 6u);
	EXPECT_TRUE(model.linesName().empty());
}
