#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include <ZEB_UnitVector.h>

#include <EM_Factory.h>
#include <EM_Manipulator2DDifference2First.h>
#include <EM_Manipulator2DOffset.h>
#include <EM_Manipulator2DScaling.h>

#include "EM_TestUtils.h"

using EMTest::expectError;

namespace {

/*! x = 0, 1, 2, ... and the given y values. */
void makeSeries(const std::vector<double> & yValues, ZEB::UnitVector & x, ZEB::UnitVector & y) {
	x.m_data.clear();
	for (std::size_t i = 0; i < yValues.size(); ++i)
		x.m_data.push_back(static_cast<double>(i));
	y.m_data = yValues;
}

} // namespace


TEST(EMManipulator, ValuesAndOrder) {
	ZEB::UnitVector x, y;
	makeSeries({ 5, 7, 4 }, x, y);
	EM::Manipulator2DDifference2First diff;
	diff.apply(x, y);
	EXPECT_EQ(y.m_data, (std::vector<double>{ 0, 2, -1 }));
	EXPECT_EQ(x.m_data, (std::vector<double>{ 0, 1, 2 }));
	// gaps stay gaps; a series that starts with one is measured from its first present value
	const double gap = std::nan("");
	makeSeries({ gap, gap, 5, gap, 7 }, x, y);
	diff.apply(x, y);
	EXPECT_TRUE(std::isnan(y[0]) && std::isnan(y[1]) && std::isnan(y[3]));
	EXPECT_EQ(y[2], 0);
	EXPECT_EQ(y[4], 2);

	// (the order of several manipulators is checked through an extractor)
	EM::Manipulator2DScaling scaling;
	scaling.setFromParameter("2");
	makeSeries({ 1, -0.5 }, x, y);
	scaling.apply(x, y);
	EXPECT_EQ(y.m_data, (std::vector<double>{ 2, -1 }));

	// empty series stay empty; the point count comes from x
	makeSeries({}, x, y);
	diff.apply(x, y);
	scaling.apply(x, y);
	EXPECT_TRUE(y.empty());
	x.m_data = { 0, 1 };
	y.m_data = { 3, 4, 5 };
	diff.apply(x, y);
	EXPECT_EQ(y.m_data, (std::vector<double>{ 0, 1, 5 }));
	// a y series shorter than x is refused, not read past its end
	x.m_data = { 0, 1, 2 };
	y.m_data = { 1 };
	expectError([&]() { scaling.apply(x, y); }, "Size mismatch between x values (3) and y values (1).",
				"[Manipulator2DBase::apply]");
	EXPECT_EQ(y.m_data, (std::vector<double>{ 1 }));
}


TEST(EMManipulator, FactoryAndParameterText) {
	for (const std::string & kw : EM::Factory::manipulatorTypeKeywords())
		EXPECT_EQ(std::string(EM::Factory::createManipulator(kw)->typeKeyword()), kw);
	EXPECT_EQ(EM::Factory::createManipulator("2DScale"), nullptr);

	EM::Manipulator2DScaling scaling;
	EM::Manipulator2DOffset offset;
	EM::Manipulator2DDifference2First diff;
	EXPECT_EQ(diff.parameter(), "");
	offset.setFromParameter(" 1e-20 ");
	EXPECT_EQ(offset.parameter(), "1e-20");
	offset.setOffset(1.0/3);
	EXPECT_EQ(offset.parameter(), "0.333333333333");
	scaling.setFactor(-123456789012345.0);
	EXPECT_EQ(scaling.parameter(), "-1.23456789012e+14");

	// text round trip keeps 12 significant digits
	for (double v : { 2.5, -7.25e-7, 123456.789, 1e100 }) {
		scaling.setFactor(v);
		EM::Manipulator2DScaling other;
		other.setFromParameter(scaling.parameter());
		EXPECT_NEAR(other.factor(), v, std::fabs(v) * 1e-11);
	}

	scaling.setFactor(3);
	expectError([&]() { scaling.setFromParameter("1.5x"); }, "Invalid parameter, expected floating point number.",
				"[Manipulator2DScaling::setFromParameter]");
	for (const char * bad : { "", "1 2", "nan", "inf" }) {
		EXPECT_THROW(scaling.setFromParameter(bad), ZEB::Exception) << bad;
		EXPECT_THROW(offset.setFromParameter(bad), ZEB::Exception) << bad;
	}
	EXPECT_EQ(scaling.factor(), 3);
	EXPECT_EQ(offset.offset(), 1.0/3);
}
