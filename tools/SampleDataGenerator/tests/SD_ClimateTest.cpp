#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "SD_Climate.h"

namespace {

double mean(std::vector<double>::const_iterator begin, std::vector<double>::const_iterator end) {
	return std::accumulate(begin, end, 0.0)/static_cast<double>(end - begin);
}

/*! Pearson correlation of two equally long series. */
double correlation(const std::vector<double> & a, const std::vector<double> & b) {
	const double ma = mean(a.begin(), a.end());
	const double mb = mean(b.begin(), b.end());
	double sab = 0, saa = 0, sbb = 0;
	for (std::size_t i = 0; i < a.size(); ++i) {
		sab += (a[i] - ma)*(b[i] - mb);
		saa += (a[i] - ma)*(a[i] - ma);
		sbb += (b[i] - mb)*(b[i] - mb);
	}
	return sab/std::sqrt(saa*sbb);
}

/*! Deviations of hourly values from their daily means, for the full days of the series. */
std::vector<double> dailyDeviations(const std::vector<double> & v) {
	std::vector<double> dev;
	for (std::size_t d = 0; d + 24 <= v.size(); d += 24) {
		const double m = mean(v.begin() + static_cast<long>(d), v.begin() + static_cast<long>(d + 24));
		for (std::size_t h = d; h < d + 24; ++h)
			dev.push_back(v[h] - m);
	}
	return dev;
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
		const std::vector<double> & te = c.outdoorTemperature();
		const double annual = mean(te.begin(), te.end());
		EXPECT_GT(annual, 7.0);
		EXPECT_LT(annual, 11.0);

		// months of 730 h: coldest in Dec-Feb, warmest in Jun-Aug, about 2 x 9 K apart
		std::vector<double> months;
		for (std::size_t m = 0; m < 12; ++m) {
			double sum = 0;
			for (std::size_t y = 0; y < 2; ++y)
				sum += mean(te.begin() + static_cast<long>(y*year + m*730), te.begin() + static_cast<long>(y*year + (m + 1)*730));
			months.push_back(sum/2);
		}
		const std::size_t coldest = static_cast<std::size_t>(std::min_element(months.begin(), months.end()) - months.begin());
		const std::size_t warmest = static_cast<std::size_t>(std::max_element(months.begin(), months.end()) - months.begin());
		EXPECT_TRUE(coldest == 11 || coldest <= 1) << coldest;
		EXPECT_TRUE(warmest >= 5 && warmest <= 7) << warmest;
		EXPECT_GT(months[warmest] - months[coldest], 13.0);
		EXPECT_LT(months[warmest] - months[coldest], 24.0);

		// daily cycle of about 4 K amplitude, warmest in the afternoon; weather changes smoothly
		double amplitudeSum = 0;
		std::vector<double> byHour(24, 0.0);
		for (std::size_t d = 0; d < 2*365; ++d) {
			const auto begin = te.begin() + static_cast<long>(24*d);
			amplitudeSum += (*std::max_element(begin, begin + 24) - *std::min_element(begin, begin + 24))/2;
			for (std::size_t h = 0; h < 24; ++h)
				byHour[h] += begin[static_cast<long>(h)];
		}
		EXPECT_GT(amplitudeSum/730, 3.0);
		EXPECT_LT(amplitudeSum/730, 5.5);
		const std::size_t warmestHour = static_cast<std::size_t>(std::max_element(byHour.begin(), byHour.end()) - byHour.begin());
		EXPECT_GE(warmestHour, 12u);
		EXPECT_LE(warmestHour, 17u);
		for (std::size_t h = 1; h < te.size(); ++h)
			ASSERT_LT(std::fabs(te[h] - te[h - 1]), 3.0) << "jump at hour " << h;

		const std::vector<double> & rh = c.outdoorRelHum();
		EXPECT_GT(*std::min_element(rh.begin(), rh.end()), 10.0);
		EXPECT_LT(*std::max_element(rh.begin(), rh.end()), 100.0);
		EXPECT_GT(mean(rh.begin(), rh.end()), 70.0);
		EXPECT_LT(mean(rh.begin(), rh.end()), 88.0);
		EXPECT_LT(correlation(dailyDeviations(te), dailyDeviations(rh)), -0.6);

		const std::vector<double> & rad = c.globalRadiation();
		for (std::size_t d = 0; d < 730; ++d) {
			ASSERT_EQ(rad[24*d + 0], 0.0);		// midnight
			ASSERT_EQ(rad[24*d + 23], 0.0);
		}
		const double kWhPerYear = std::accumulate(rad.begin(), rad.end(), 0.0)/2/1000;
		EXPECT_GT(kWhPerYear, 900.0);
		EXPECT_LT(kWhPerYear, 1400.0);
		EXPECT_LT(*std::max_element(rad.begin(), rad.end()), 1000.0);
		// June noon brighter than December noon on average
		double june = 0, december = 0;
		for (std::size_t d = 151; d < 181; ++d)
			june += rad[24*d + 12];
		for (std::size_t d = 334; d < 364; ++d)
			december += rad[24*d + 12];
		EXPECT_GT(june, 2*december);

		const double rainPerYear = std::accumulate(c.rain().begin(), c.rain().end(), 0.0)/2;
		EXPECT_GT(rainPerYear, 300.0);
		EXPECT_LT(rainPerYear, 1500.0);
		EXPECT_GE(*std::min_element(c.rain().begin(), c.rain().end()), 0.0);
		EXPECT_GT(*std::min_element(c.windSpeed().begin(), c.windSpeed().end()), 0.0);
		EXPECT_GT(mean(c.windSpeed().begin(), c.windSpeed().end()), 2.0);
		EXPECT_LT(mean(c.windSpeed().begin(), c.windSpeed().end()), 5.0);

		for (std::size_t h = 0; h < c.hours(); ++h) {
			ASSERT_GE(c.indoorTemperature()[h], 20.0);
			ASSERT_LE(c.indoorTemperature()[h], 22.0);
			ASSERT_GE(c.indoorRelHum()[h], 40.0);
			ASSERT_LE(c.indoorRelHum()[h], 60.0);
		}
		// indoor air is drier in winter than in summer
		EXPECT_LT(mean(c.indoorRelHum().begin(), c.indoorRelHum().begin() + 730),
				  mean(c.indoorRelHum().begin() + 6*730, c.indoorRelHum().begin() + 7*730));
	}
}


// The same seed gives the same climate, another seed another one; a shorter period is the
// beginning of the longer one.
TEST(SDClimate, DeterministicPerSeed) {
	const SD::Climate a(7, 2000);
	const SD::Climate b(7, 2000);
	const SD::Climate other(8, 2000);
	const SD::Climate shorter(7, 100);
	EXPECT_EQ(a.outdoorTemperature(), b.outdoorTemperature());
	EXPECT_EQ(a.rain(), b.rain());
	EXPECT_EQ(a.indoorRelHum(), b.indoorRelHum());
	EXPECT_NE(a.outdoorTemperature(), other.outdoorTemperature());
	EXPECT_NE(a.windSpeed(), other.windSpeed());
	EXPECT_TRUE(std::equal(shorter.outdoorRelHum().begin(), shorter.outdoorRelHum().end(), a.outdoorRelHum().begin()));
}
