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

TEST(ZEBStringUtils, ValueVectorSplitsAtAnyWhiteSpace) {
	std::vector<double> v{99};
	ZEB::string2valueVector("1.5 2e3\t-4.25E-2\r\n", v);
	ASSERT_EQ(v.size(), 3u);
	EXPECT_EQ(v[0], 1.5);
	EXPECT_EQ(v[1], 2000.0);
	EXPECT_EQ(v[2], -0.0425);

	ZEB::string2valueVector("", v);
	EXPECT_TRUE(v.empty());
	ZEB::string2valueVector(" \t\r\n ", v);
	EXPECT_TRUE(v.empty());

	ZEB::string2valueVector("+3 nan inf -inf 1e400 1e-400", v);
	ASSERT_EQ(v.size(), 6u);
	EXPECT_EQ(v[0], 3.0);
	EXPECT_TRUE(std::isnan(v[1]));
	EXPECT_EQ(v[2], std::numeric_limits<double>::infinity());
	EXPECT_EQ(v[3], -std::numeric_limits<double>::infinity());
	EXPECT_EQ(v[4], std::numeric_limits<double>::infinity());
	EXPECT_EQ(v[5], 0.0);
}

TEST(ZEBStringUtils, ValueVectorRejectsNonNumbersNamingTheText) {
	std::vector<double> v;
	const char * bad[] = { "1 2 x3", "1,5", "1.0.0", "--1", "+-2", "0x10", "1e", ".", "1e 2", "1e+\t3", "-", "2-", "1.5x 2" };
	for (const char * text : bad) {
		try {
			ZEB::string2valueVector(text, v);
			FAIL() << "accepted '" << text << "'";
		}
		catch (ZEB::Exception & ex) {
			EXPECT_EQ(std::string(ex.what()), std::string("'") + text + "' at character pos #2 is not a valid number.");
			EXPECT_EQ(ex.messages().back().m_where, "[ZEB::string2valueVector]");
		}
	}
}

TEST(ZEBStringUtils, ValuesReadBackExactlyWhateverTheLocale) {
	// a locale with decimal comma must not change parsing (only checked where one is installed)
	const bool haveGerman = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
	std::mt19937_64 gen(7);
	std::uniform_real_distribution<double> mant(-1.0, 1.0);
	std::uniform_int_distribution<int> expo(-300, 300);
	std::string text;
	std::vector<double> expected;
	for (int i = 0; i < 2000; ++i) {
		double d = mant(gen) * std::pow(10.0, expo(gen));
		expected.push_back(d);
		text += ZEB::shortestDoubleString(d) + (i % 3 == 0 ? "\t" : " ");
	}
	std::vector<double> v;
	ZEB::string2valueVector(text, v);
	ASSERT_EQ(v, expected);
	for (std::size_t i = 0; i < 50; ++i) {
		char buf[40];
		std::snprintf(buf, sizeof(buf), "%.17g", expected[i]);
		EXPECT_EQ(ZEB::string2val<double>(buf), expected[i]);
	}
	if (haveGerman)
		std::setlocale(LC_ALL, "C");

	// the formats simulation programs write, checked against the C library's conversion
	const char * formats[] = { "%.12e", "%.6f", "%.15g", "%.3E", "%g", "%.0f", "%.17g", "%.16e", "%.18e", "%.20g" };
	std::uniform_real_distribution<double> physical(-1e5, 1e5);
	for (const char * fmt : formats) {
		for (int i = 0; i < 3000; ++i) {
			char buf[64];
			double d = physical(gen) * std::pow(10.0, expo(gen) % 12);
			std::snprintf(buf, sizeof(buf), fmt, d);
			std::vector<double> one;
			ZEB::string2valueVector(buf, one);
			ASSERT_EQ(one.size(), 1u);
			ASSERT_EQ(one[0], std::strtod(buf, nullptr)) << buf;
		}
	}
}

TEST(ZEBStringUtils, String2valIsStrict) {
	EXPECT_EQ(ZEB::string2val<double>("  42.5 "), 42.5);
	EXPECT_EQ(ZEB::string2val<int>("-17"), -17);
	EXPECT_EQ(ZEB::string2val<unsigned int>("+4294967295"), 4294967295u);
	EXPECT_EQ(ZEB::string2val<long long>("-9000000000"), -9000000000ll);
	EXPECT_THROW(ZEB::string2val<unsigned int>("-1"), ZEB::Exception);
	EXPECT_THROW(ZEB::string2val<unsigned int>("4294967296"), ZEB::Exception);
	EXPECT_THROW(ZEB::string2val<int>("12abc"), ZEB::Exception);
	EXPECT_THROW(ZEB::string2val<int>("1.5"), ZEB::Exception);
	EXPECT_THROW(ZEB::string2val<int>(""), ZEB::Exception);
	try {
		ZEB::string2val<double>("1 2");
		FAIL();
	}
	catch (ZEB::Exception & ex) {
		EXPECT_EQ(ex.messages().back().m_where, "[ZEB::string2val<double>]");
	}
}

TEST(ZEBStringUtils, TrimAndExplode) {
	EXPECT_EQ(ZEB::trimmed(" \t a b \r\n"), "a b");
	EXPECT_EQ(ZEB::trimmed("   "), "");
	EXPECT_EQ(ZEB::trimmed("##x#", "#"), "x");
	std::vector<std::string> parts = ZEB::explode("2::a.png:", ':');
	ASSERT_EQ(parts.size(), 4u);
	EXPECT_EQ(parts[0], "2");
	EXPECT_EQ(parts[1], "");
	EXPECT_EQ(parts[2], "a.png");
	EXPECT_EQ(parts[3], "");
}
