#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include <ZEB_BinaryIO.h>
#include <ZEB_Math.h>

namespace {

/*! The 4-byte little-endian length prefix of binary strings and vectors. */
std::string lengthPrefix(std::uint32_t n) {
	return std::string(reinterpret_cast<const char*>(&n), 4);
}

} // namespace

TEST(ZEBBinaryIO, RoundTripOfStringsVectorsAndValues) {
	std::stringstream s;
	ZEB::write_string_binary(s, "Wand \xc2\xb5m");
	ZEB::write_string_binary(s, "");
	ZEB::write_string_binary_with_termination_character(s, "term");
	ZEB::write_vector_binary(s, std::vector<std::uint32_t>{1, 2, 4000000000u});
	ZEB::write_vector_binary(s, std::vector<double>{});
	ZEB::write_value_binary(s, -2.5);
	ZEB::write_value_binary(s, std::int32_t(-7));

	std::string a, b, c;
	std::vector<std::uint32_t> v;
	std::vector<double> w{1.0};
	double d;
	std::int32_t i;
	ZEB::read_string_binary(s, a, 100);
	ZEB::read_string_binary(s, b, 0);
	ZEB::read_string_binary_with_termination_character(s, c, 100);
	ZEB::read_vector_binary(s, v, 3);
	ZEB::read_vector_binary(s, w, 10);
	ZEB::read_value_binary(s, d);
	ZEB::read_value_binary(s, i);
	EXPECT_EQ(a, "Wand \xc2\xb5m");
	EXPECT_EQ(b, "");
	EXPECT_EQ(c, "term");
	EXPECT_EQ(v, (std::vector<std::uint32_t>{1, 2, 4000000000u}));
	EXPECT_TRUE(w.empty());
	EXPECT_EQ(d, -2.5);
	EXPECT_EQ(i, -7);
	// little-endian layout, independent of how the helpers are written
	std::stringstream le;
	ZEB::write_value_binary(le, std::uint32_t(0x01020304));
	EXPECT_EQ(le.str(), std::string("\x04\x03\x02\x01", 4));
}

TEST(ZEBBinaryIO, DeclaredLengthsAboveMaximumOrBeyondStreamFail) {
	std::string str;
	std::vector<double> vec;
	// 4 GB declared, no payload: rejected by the maximum before any allocation
	{
		std::istringstream in(lengthPrefix(0xFFFFFFFFu));
		try { ZEB::read_string_binary(in, str, 10000); FAIL(); }
		catch (ZEB::Exception & ex) {
			EXPECT_STREQ(ex.what(), "String length exceeds given maximum!");
			EXPECT_EQ(ex.messages().back().m_where, "[read_string_binary]");
		}
	}
	{
		std::istringstream in(lengthPrefix(2000000));
		try { ZEB::read_vector_binary(in, vec, 1000000); FAIL(); }
		catch (ZEB::Exception & ex) {
			EXPECT_STREQ(ex.what(), "Vector length exceeds given maximum!");
			EXPECT_EQ(ex.messages().back().m_where, "[read_vector_binary]");
		}
	}
	// within the maximum but the stream ends early: every truncation point fails cleanly
	std::stringstream full;
	ZEB::write_string_binary(full, "0123456789");
	ZEB::write_vector_binary(full, std::vector<double>{1, 2, 3});
	const std::string bytes = full.str();
	for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
		std::istringstream in(bytes.substr(0, cut));
		EXPECT_THROW({
			ZEB::read_string_binary(in, str, 100);
			ZEB::read_vector_binary(in, vec, 100);
		}, ZEB::Exception) << "cut at " << cut;
	}
	// a huge count within the maximum on a short stream does not reserve the declared size
	std::istringstream lying(lengthPrefix(900000000u) + std::string(16, '\0'));
	EXPECT_THROW(ZEB::read_vector_binary(lying, vec, 1000000000u), ZEB::Exception);
	EXPECT_LT(vec.capacity(), 1000000u);
}

TEST(ZEBBinaryIO, TerminatedStrings) {
	std::string s;
	{
		std::istringstream in(lengthPrefix(0));
		try { ZEB::read_string_binary_with_termination_character(in, s, 10); FAIL(); }
		catch (ZEB::Exception & ex) { EXPECT_STREQ(ex.what(), "Invalid string length, must be > 0!"); }
	}
	{
		std::istringstream in(lengthPrefix(3) + "abc");
		try { ZEB::read_string_binary_with_termination_character(in, s, 10); FAIL(); }
		catch (ZEB::Exception & ex) { EXPECT_STREQ(ex.what(), "Invalid string format, missing termination character!"); }
	}
}

TEST(ZEBMath, GuardedFunctions) {
	EXPECT_DOUBLE_EQ(ZEB::f_pow10(3), 1000.0);
	EXPECT_DOUBLE_EQ(ZEB::f_pow10(50), 1e50);
	EXPECT_DOUBLE_EQ(ZEB::f_log10(1e-3), -3.0);
	EXPECT_DOUBLE_EQ(ZEB::f_log(std::exp(2.0)), 2.0);
	try { ZEB::f_pow10(50.5); FAIL(); }
	catch (ZEB::Exception & ex) {
		EXPECT_STREQ(ex.what(), "Exponent too large in power function, exponent = 50.5");
		EXPECT_EQ(ex.messages().back().m_where, "[ZEB::f_pow10]");
	}
	try { ZEB::f_log(0); FAIL(); }
	catch (ZEB::Exception & ex) {
		EXPECT_STREQ(ex.what(), "Negative or zero value in log function, x = 0");
		EXPECT_EQ(ex.messages().back().m_where, "[ZEB::f_log]");
	}
	try { ZEB::f_log10(-2); FAIL(); }
	catch (ZEB::Exception & ex) { EXPECT_EQ(ex.messages().back().m_where, "[ZEB::f_log10]"); }
	EXPECT_THROW(ZEB::f_log10(std::nan("")), ZEB::Exception);
}
