#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <ZEB_Exception.h>

#include <Sci_ColorGrid3DData.h>

using SCI::ColorGrid3DData;

TEST(SciColorGrid3DData, GridSizesMustFitTheValues) {
	const std::vector<double> values(10*2, 1.0);
	std::vector<double> y = {0, 1};
	// 10 cells: 10 centres or 11 edges
	for (std::size_t n : {10u, 11u, 12u}) {
		std::vector<double> x(n);
		for (std::size_t i = 0; i < n; ++i)
			x[i] = static_cast<double>(i);
		if (n == 10 || n == 11)
			EXPECT_NO_THROW(ColorGrid3DData(10, 2, values, x, y)) << n;
		else
			EXPECT_THROW(ColorGrid3DData(10, 2, values, x, y), ZEB::Exception) << n;
	}
	const std::vector<double> x10 = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
	// value count, descending or non-finite coordinates
	EXPECT_THROW(ColorGrid3DData(10, 2, std::vector<double>(19, 1.0), x10, y), ZEB::Exception);
	EXPECT_THROW(ColorGrid3DData(10, 2, values, x10, std::vector<double>({1, 0})), ZEB::Exception);
	EXPECT_THROW(ColorGrid3DData(10, 2, values, x10, std::vector<double>({0, INFINITY})), ZEB::Exception);
}


TEST(SciColorGrid3DData, LooksUpCellsOfCentresAndEdges) {
	// x given by centres 0, 1, 3 -> edges -0.5, 0.5, 2, 4; y given by edges 0, 10, 20
	const double nan = std::numeric_limits<double>::quiet_NaN();
	ColorGrid3DData d(3, 2, {1, 2, nan, 4, 5, 6}, {0, 1, 3}, {0, 10, 20});
	EXPECT_EQ(d.xEdges(), std::vector<double>({-0.5, 0.5, 2, 4}));
	EXPECT_EQ(d.value(0.7, 15), 5.0);
	EXPECT_EQ(d.value(-0.5, 0), 1.0);
	EXPECT_TRUE(std::isnan(d.value(3.9, 0.1)));		// the NaN cell
	EXPECT_EQ(d.value(4, 20), 6.0);					// upper edges belong to the last cells
	EXPECT_EQ(d.value(2, 10), 6.0);					// inner edges belong to the upper cell
	EXPECT_TRUE(std::isnan(d.value(-0.51, 5)));
	EXPECT_TRUE(std::isnan(d.value(nan, 5)));

	EXPECT_EQ(d.interval(Qt::XAxis), QwtInterval(-0.5, 4.0));
	EXPECT_EQ(d.interval(Qt::ZAxis), QwtInterval(1.0, 6.0));		// without the NaN cell

	// a single cell given by its centre is one unit wide
	ColorGrid3DData one(1, 1, {7}, {5}, {-2});
	EXPECT_EQ(one.value(5.49, -1.6), 7.0);
	EXPECT_TRUE(std::isnan(one.value(5.51, -2)));

}
