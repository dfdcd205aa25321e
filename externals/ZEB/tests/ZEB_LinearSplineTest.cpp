#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include <ZEB_Exception.h>
#include <ZEB_LinearSpline.h>

#include "ZEB_TestSupport.h"

using ZEB::LinearSpline;

namespace {

/*! Reference interpolation by linear scan, written from the definition. */
double referenceValue(const std::vector<double> & x, const std::vector<double> & y, double v) {
	if (v <= x.front())
		return y.front();
	for (std::size_t i = 1; i < x.size(); ++i)
		if (v < x[i]) {
			const double w = (v - x[i-1]) / (x[i] - x[i-1]);
			return (1 - w) * y[i-1] + w * y[i];
		}
	return y.back();
}

} // namespace


TEST(ZEBLinearSpline, HandComputedValues) {
	const double inf = std::numeric_limits<double>::infinity();
	// slope 10 on [0,1], slope -10 on [1,3], constant outside the table
	const LinearSpline s({0, 1, 3}, {0, 10, -10});
	const std::vector<std::pair<double, double> > values = {{0.25, 2.5}, {1, 10}, {2.75, -7.5}, {-inf, 0}, {inf, -10}};
	for (const auto & v : values)
		EXPECT_DOUBLE_EQ(s.value(v.first), v.second) << "at " << v.first;
	EXPECT_TRUE(std::isnan(s.value(std::nan(""))));
	// a single point is a constant
	EXPECT_EQ(LinearSpline({2}, {7}).value(9), 7);
	// huge values of opposite sign do not overflow
	const LinearSpline line({10, 20}, {-1e308, 1e308});
	EXPECT_EQ(line.value(15), 0);
	EXPECT_DOUBLE_EQ(line.value(17.5), 5e307);
}


TEST(ZEBLinearSpline, RejectsInvalidTables) {
	const char * const where = "[LinearSpline::setValues]";
	const double nan = std::nan("");
	const double inf = std::numeric_limits<double>::infinity();
	LinearSpline s({0, 1}, {5, 6});

	EXPECT_THROW(s.setValues({}, {}), ZEB::Exception);
	expectError([&] { s.setValues({1, 2}, {1}); }, "Size mismatch: 2 x values but 1 y values.", where);
	expectError([&] { s.setValues({0, nan}, {1, 2}); }, "Invalid x value (NaN or infinite) at index 1.", where);
	EXPECT_THROW(s.setValues({0, 1}, {inf, 2}), ZEB::Exception);
	EXPECT_THROW(s.setValues({0, 1, 1}, {1, 2, 3}), ZEB::Exception);
	expectError([&] { s.setValues({0, 2, 1.5}, {1, 2, 3}); },
				"x values must be strictly increasing, but x[2] = 1.5 follows x[1] = 2.", where);
	// a failed set keeps the previous table
	EXPECT_EQ(s.x().size(), 2u);
	EXPECT_DOUBLE_EQ(s.value(0.5), 5.5);

	s.clear();
	expectError([&] { s.value(1); }, "Spline has no values.", "[LinearSpline::value]");

}


TEST(ZEBLinearSpline, AgreesWithReferenceOnEquidistantAndIrregularTables) {
	std::mt19937 rng(12345);
	std::uniform_real_distribution<double> unit(0, 1);
	for (int table = 0; table < 40; ++table) {
		SCOPED_TRACE(table);
		const std::size_t n = 2 + rng() % 200;
		std::vector<double> x(n);
		std::vector<double> y(n);
		// equidistant steps written as i*0.1 carry rounding, the case the direct estimate must survive
		for (std::size_t i = 0; i < n; ++i) {
			x[i] = table % 2 == 0 ? -3.0 + static_cast<double>(i) * 0.1 : (i == 0 ? -3.0 : x[i-1] + 1e-3 + unit(rng));
			y[i] = 100 * unit(rng) - 50;
		}
		const LinearSpline s(x, y);
		// every knot exactly, and just below it (which belongs to the interval before)
		for (std::size_t i = 0; i < n; ++i) {
			EXPECT_EQ(s.value(x[i]), y[i]);
			EXPECT_NEAR(s.value(std::nextafter(x[i], -1e300)), y[i], 1e-9);
		}
		// random points across and beyond the table
		const double span = x.back() - x.front();
		for (int k = 0; k < 500; ++k) {
			const double v = x.front() - 0.1 * span + 1.2 * span * unit(rng);
			EXPECT_NEAR(s.value(v), referenceValue(x, y, v), 1e-9) << "at " << v;
		}
	}
}
