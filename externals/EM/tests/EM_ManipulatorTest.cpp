#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
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

bool sameBits(const std::vector<double> & a, const std::vector<double> & b) {
	return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

} // namespace


TEST(EMManipulator, FactoryCreatesByKeyword) {
	for (const std::string & kw : EM::Factory::manipulatorTypeKeywords()) {
		std::unique_ptr<EM::ManipulatorBase> m = EM::Factory::createManipulator(kw);
		ASSERT_TRUE(m != nullptr) << kw;
		EXPECT_EQ(std::string(m->typeKeyword()), kw);
	}
	EXPECT_EQ(EM::Factory::createManipulator("2DScaling")->type(), EM::ManipulatorBase::MT_2DScaling);
	EXPECT_EQ(EM::Factory::createManipulator("2DOffset")->type(), EM::ManipulatorBase::MT_2DOffset);
	EXPECT_EQ(EM::Factory::createManipulator("2DDifference2First")->type(), EM::ManipulatorBase::MT_2DDifference2First);
	EXPECT_EQ(EM::Factory::createManipulator("2DScale"), nullptr);
	EXPECT_EQ(EM::Factory::createManipulator(""), nullptr);
}


TEST(EMManipulator, NeutralParametersKeepBits) {
	const double nan = std::numeric_limits<double>::quiet_NaN();
	const std::vector<double> values = { -0.0, 1.5, nan, 1e308, -std::numeric_limits<double>::infinity(), 3e-320 };
	ZEB::UnitVector x, y;
	makeSeries(values, x, y);
	std::vector<double> xBefore = x.m_data;

	EM::Manipulator2DScaling scaling;
	scaling.apply(x, y);
	EXPECT_TRUE(sameBits(y.m_data, values));
	EM::Manipulator2DOffset offset;
	offset.apply(x, y);
	EXPECT_TRUE(sameBits(y.m_data, values));
	EXPECT_TRUE(sameBits(x.m_data, xBefore));

	// a non-neutral parameter does change the values, -0 included
	offset.setOffset(1);
	offset.apply(x, y);
	EXPECT_EQ(y.m_data[0], 1.0);
	EXPECT_TRUE(std::isnan(y.m_data[2]));
	EXPECT_TRUE(sameBits(x.m_data, xBefore));
}


TEST(EMManipulator, ValuesAndOrder) {
	ZEB::UnitVector x, y;
	makeSeries({ 5, 7, 4 }, x, y);
	EM::Manipulator2DDifference2First diff;
	diff.apply(x, y);
	EXPECT_EQ(y.m_data, (std::vector<double>{ 0, 2, -1 }));
	EXPECT_EQ(x.m_data, (std::vector<double>{ 0, 1, 2 }));

	EM::Manipulator2DOffset offset;
	offset.setFromParameter("10");
	EM::Manipulator2DScaling scaling;
	scaling.setFromParameter("2");
	std::vector<EM::ManipulatorBase *> chain = { &offset, &scaling };
	makeSeries({ 1 }, x, y);
	for (EM::ManipulatorBase * m : chain)
		m->apply(x, y);
	EXPECT_EQ(y.m_data[0], 22);
	makeSeries({ 1 }, x, y);
	for (auto it = chain.rbegin(); it != chain.rend(); ++it)
		(*it)->apply(x, y);
	EXPECT_EQ(y.m_data[0], 12);

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


TEST(EMManipulator, ParameterText) {
	EM::Manipulator2DScaling scaling;
	EM::Manipulator2DOffset offset;
	EM::Manipulator2DDifference2First diff;
	EXPECT_EQ(scaling.parameter(), "1");
	EXPECT_EQ(offset.parameter(), "0");
	EXPECT_EQ(diff.parameter(), "");
	scaling.setFromParameter("1.5");
	EXPECT_EQ(scaling.parameter(), "1.5");
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
	for (const char * bad : { "abc", "", "1.5x", "1 2", "nan", "inf" }) {
		expectError([&]() { scaling.setFromParameter(bad); }, "Invalid parameter, expected floating point number.",
					"[Manipulator2DScaling::setFromParameter]");
		expectError([&]() { offset.setFromParameter(bad); }, "Invalid parameter, expected floating point number.",
					"[Manipulator2DOffset::setFromParameter]");
	}
	EXPECT_EQ(scaling.factor(), 3);
	EXPECT_EQ(offset.offset(), 1.0/3);
}
