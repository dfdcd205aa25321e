#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "SD_SignificantDigits.h"

namespace {

/*! Significant digits of the shortest round-trip text of v. */
int significantDigits(double v) {
	char buf[64];
	const std::to_chars_result r = std::to_chars(buf, buf + sizeof(buf), v, std::chars_format::scientific);
	const std::string text(buf, r.ptr);
	const std::string mantissa = text.substr(0, text.find('e'));
	int digits = 0;
	for (char c : mantissa)
		digits += c >= '0' && c <= '9';
	return digits;
}

} // namespace


TEST(SDSignificantDigits, HandComputedValues) {
	// (the digits of ordinary values are the random test's)
	EXPECT_EQ(SD::SignificantDigits::round(9.99999999999, 10), 10.0);
	EXPECT_EQ(SD::SignificantDigits::round(2.5, 1), 3.0);
	EXPECT_EQ(SD::SignificantDigits::round(0.1 + 0.2, 10), 0.3);
	EXPECT_EQ(SD::SignificantDigits::round(0.0, 10), 0.0);
	EXPECT_TRUE(std::isnan(SD::SignificantDigits::round(std::nan(""), 10)));
	EXPECT_EQ(SD::SignificantDigits::round(-HUGE_VAL, 10), -HUGE_VAL);
}


// Over many magnitudes: at most 10 digits in shortest form, and within half a unit of the 10th digit.
TEST(SDSignificantDigits, RandomValuesKeepTenDigits) {
	std::mt19937_64 gen(3);
	std::uniform_real_distribution<double> mantissa(1.0, 10.0);
	std::uniform_int_distribution<int> exponent(-12, 12);
	for (int i = 0; i < 200000; ++i) {
		const double v = (i % 2 == 0 ? 1 : -1)*mantissa(gen)*std::pow(10.0, exponent(gen));
		const double r = SD::SignificantDigits::round(v, 10);
		ASSERT_LE(significantDigits(r), 10) << v;
		ASSERT_LE(std::fabs(r - v), 0.5e-9*std::fabs(v)*(1 + 1e-6)) << v;
	}
}
