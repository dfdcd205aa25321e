#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_StringUtils.h>

#include "ZEB_TestSupport.h"

TEST(ZEBStringUtils, ValueVectorSplitsAtAnyWhiteSpaceAndRejectsNonNumbers) {
	const double inf = std::numeric_limits<double>::infinity();
	std::vector<double> v{99};
	ZEB::string2valueVector("1.5 2e3\t-4.25E-2\r\n+3 inf -inf 1e400 1e-400", v);
	EXPECT_EQ(v, (std::vector<double>{1.5, 2000.0, -0.0425, 3.0, inf, -inf, inf, 0.0}));
	ZEB::string2valueVector("nan", v);
	ASSERT_EQ(v.size(), 1u);
	EXPECT_TRUE(std::isnan(v[0]));
	ZEB::string2valueVector(" \t\r\n ", v);
	EXPECT_TRUE(v.empty());

	for (const char * text : { "1 2 x3", "1,5", "1.0.0", "--1", "+-2", "0x10", "1e", ".", "1e 2", "1e+\t3", "-", "2-", "1.5x 2" })
		expectError([&] { ZEB::string2valueVector(text, v); },
					std::string("'") + text + "' at character pos #2 is not a valid number.", "[ZEB::string2valueVector]");
}

TEST(ZEBStringUtils, ValuesReadBackExactlyWhateverTheLocale) {
	// the formats simulation programs write and the shortest round-trip form, over the whole
	// exponent range, checked against the C library's conversion in the "C" locale
	std::mt19937_64 gen(7);
	std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
	std::uniform_int_distribution<int> exponent(-300, 300);
	const char * formats[] = {"%.12e", "%.6f", "%.15g", "%.3E", "%g", "%.0f", "%.17g", "%.16e", "%.18e", "%.20g", nullptr};
	std::string text;
	std::vector<double> expected;
	for (int i = 0; i < 33000; ++i) {
		const char * fmt = formats[i % 11];
		const double d = mantissa(gen) * std::pow(10.0, fmt == nullptr ? exponent(gen) : exponent(gen) % 17);
		char buf[400];
		if (fmt != nullptr)
			std::snprintf(buf, sizeof(buf), fmt, d);
		text += (fmt != nullptr ? std::string(buf) : ZEB::shortestDoubleString(d)) + (i % 3 == 0 ? "\t" : " ");
		expected.push_back(fmt != nullptr ? std::strtod(buf, nullptr) : d);
	}
	// a locale with decimal comma must not change parsing (only checked where one is installed)
	const bool haveGerman = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
	std::vector<double> v;
	ZEB::string2valueVector(text, v);
	if (haveGerman)
		std::setlocale(LC_ALL, "C");
	ASSERT_EQ(v.size(), expected.size());
	for (std::size_t i = 0; i < v.size(); ++i)
		ASSERT_EQ(v[i], expected[i]) << "value " << i << " in format " << (formats[i % 11] ? formats[i % 11] : "shortest");
}

TEST(ZEBStringUtils, String2valIsStrict) {
	EXPECT_EQ(ZEB::string2val<double>("  42.5 "), 42.5);
	EXPECT_EQ(ZEB::string2val<int>("-17"), -17);
	EXPECT_EQ(ZEB::string2val<unsigned int>("+4294967295"), 4294967295u);
	EXPECT_EQ(ZEB::string2val<long long>("-9000000000"), -9000000000ll);
	for (const char * bad : {"-1", "4294967296", "12abc", "1.5", ""})
		EXPECT_THROW(ZEB::string2val<unsigned int>(bad), ZEB::Exception) << bad;
	EXPECT_THROW(ZEB::string2val<int>("2147483648"), ZEB::Exception);
	for (const char * bad : {"1 2", "1.5.2"})
		EXPECT_THROW(ZEB::string2val<double>(bad), ZEB::Exception) << bad;
}


TEST(ZEBStringUtils, TrimAndExplode) {
	EXPECT_EQ(ZEB::trimmed(" \t a b \r\n"), "a b");
	EXPECT_EQ(ZEB::trimmed("   "), "");
	EXPECT_EQ(ZEB::trimmed("##x#", "#"), "x");
	EXPECT_EQ(ZEB::explode("2::a.png:", ':'), (std::vector<std::string>{"2", "", "a.png", ""}));
}
