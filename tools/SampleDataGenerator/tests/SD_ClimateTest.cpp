#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "SD_Climate.h"

namespace {

using Values = std::vector<double>;

/*! Mean of the hours [first, last) of a series. */
double mean(const Values & v, std::size_t first, std::size_t last) {
	return std::accumulate(v.begin() + static_cast<long>(first), v.begin() + static_cast<long>(last), 0.0)/static_cast<double>(last - first);
}

::testing::AssertionResult between(double v, double low, double high) {
	if (v >= low && v <= high)
		return ::testing::AssertionSuccess();
	return ::testing::AssertionFailure() << v << " is not within [" << low << ", " << high << "]";
}

/*! Pearson correlation of the deviations of two series from their daily means. */
double dailyCorrelation(const Values & a, const Values & b) {
	double sab = 0, saa = 0, sbb = 0;
	for (std::size_t d = 0; d + 24 <= a.size(); d += 24) {
		const double ma = mean(a, d, d + 24), mb = mean(b, d, d + 24);
		for (std::size_t h = d; h < d + 24; ++h) {
			sab += (a[h] - ma)*(b[h] - mb);
			saa += (a[h] - ma)*(a[h] - ma);
			sbb += (b[h] - mb)*(b[h] - mb);
		}
	}
	return sab/std::sqrt(saa*sbb);
}

} // namespace


// Central European climate over two years for several seeds: annual mean, seasonal phase,
// daily cycle, humidity anti-correlated with temperature, radiation, rain and indoor ranges.
TEST(SDClimate, CentralEuropeanPlausibility) {
	const std::size_t year = SD::Climate::HOURS_PER_YEAR;
	for (std::uint64_t seed : { 1u, 2u, 17u, 12345u }) {
		SCOPED_TRACE(seed);
		const SD::Climate c(seed, 2*year);
		ASSERT_EQ(c.hours(), 2*year);
		const Values & te = c.outdoorTemperature();
		EXPECT_TRUE(between(mean(te, 0, te.size()), 7.0, 11.0));

		// months of 730 h: coldest in Dec-Feb, warmest in Jun-Aug, about 2 x 9 K apart
		Values months;
		for (std::size_t m = 0; m < 12; ++m)
			months.push_back((mean(te, m*730, (m + 1)*730) + mean(te, year + m*730, year + (m + 1)*730))/2);
		const auto coldest = std::min_element(months.begin(), months.end()) - months.begin();
		const auto warmest = std::max_element(months.begin(), months.end()) - months.begin();
		EXPECT_TRUE(coldest == 11 || coldest <= 1) << coldest;
		EXPECT_TRUE(between(warmest, 5, 7));
		EXPECT_TRUE(between(months[warmest] - months[coldest], 13.0, 24.0));

		// daily cycle of about 4 K amplitude, warmest in the afternoon; weather changes smoothly
		double amplitudeSum = 0;
		Values byHour(24, 0.0);
		for (std::size_t d = 0; d < 2*365; ++d) {
			const auto day = te.begin() + static_cast<long>(24*d);
			amplitudeSum += (*std::max_element(day, day + 24) - *std::min_element(day, day + 24))/2;
			for (std::size_t h = 0; h < 24; ++h)
				byHour[h] += day[static_cast<long>(h)];
		}
		EXPECT_TRUE(between(amplitudeSum/730, 3.0, 5.5));
		EXPECT_TRUE(between(std::max_element(byHour.begin(), byHour.end()) - byHour.begin(), 12, 17));
		for (std::size_t h = 1; h < te.size(); ++h)
			ASSERT_LT(std::fabs(te[h] - te[h - 1]), 3.0) << "jump at hour " << h;

		const Values & rh = c.outdoorRelHum();
		EXPECT_TRUE(between(*std::min_element(rh.begin(), rh.end()), 10.0, 100.0));
		EXPECT_TRUE(between(*std::max_element(rh.begin(), rh.end()), 10.0, 100.0));
		EXPECT_TRUE(between(mean(rh, 0, rh.size()), 70.0, 88.0));
		EXPECT_LT(dailyCorrelation(te, rh), -0.6);

		// dark at midnight, brighter at noon in June than in December, about 1100 kWh/m2 a year
		const Values & rad = c.globalRadiation();
		double june = 0, december = 0;
		for (std::size_t d = 0; d < 730; ++d) {
			ASSERT_EQ(rad[24*d + 0] + rad[24*d + 23], 0.0);
			june += d >= 151 && d < 181 ? rad[24*d + 12] : 0;
			december += d >= 334 && d < 364 ? rad[24*d + 12] : 0;
		}
		EXPECT_GT(june, 2*december);
		EXPECT_TRUE(between(std::accumulate(rad.begin(), rad.end(), 0.0)/2/1000, 900.0, 1400.0));
		EXPECT_LT(*std::max_element(rad.begin(), rad.end()), 1000.0);

		EXPECT_TRUE(between(std::accumulate(c.rain().begin(), c.rain().end(), 0.0)/2, 300.0, 1500.0));
		EXPECT_GE(*std::min_element(c.rain().begin(), c.rain().end()), 0.0);
		EXPECT_GT(*std::min_element(c.windSpeed().begin(), c.windSpeed().end()), 0.0);
		EXPECT_TRUE(between(mean(c.windSpeed(), 0, c.hours()), 2.0, 5.0));

		const Values & ti = c.indoorTemperature();
		const Values & phi = c.indoorRelHum();
		EXPECT_TRUE(between(*std::min_element(ti.begin(), ti.end()), 20.0, 22.0));
		EXPECT_TRUE(between(*std::max_element(ti.begin(), ti.end()), 20.0, 22.0));
		EXPECT_TRUE(between(*std::min_element(phi.begin(), phi.end()), 40.0, 60.0));
		EXPECT_TRUE(between(*std::max_element(phi.begin(), phi.end()), 40.0, 60.0));
		EXPECT_LT(mean(phi, 0, 730), mean(phi, 6*730, 7*730));		// drier in winter than in summer
	}
}


// A shorter period is the beginning of the longer one of the same seed (that the same options
// give the same files, and another seed other weather, the sample set's test shows).
TEST(SDClimate, ShorterPeriodIsTheBeginning) {
	const SD::Climate shorter(7, 100);
	const SD::Climate longer(7, 2000);
	EXPECT_TRUE(std::equal(shorter.outdoorRelHum().begin(), shorter.outdoorRelHum().end(), longer.outdoorRelHum().begin()));
	EXPECT_TRUE(std::equal(shorter.rain().begin(), shorter.rain().end(), longer.rain().begin()));
}
