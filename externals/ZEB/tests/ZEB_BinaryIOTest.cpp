#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include <ZEB_BinaryIO.h>
#include <ZEB_Math.h>

#include "ZEB_TestSupport.h"

namespace {

/*! The 4-byte little-endian length prefix of binary strings and vectors, written by hand. */
std::string lengthPrefix(std::uint32_t n) {
	const char b[4] = {char(n & 0xFF), char((n >> 8) & 0xFF), char((n >> 16) & 0xFF), char(n >> 24)};
	return std::string(b, 4);
}

} // namespace

TEST(ZEBBinaryIO, RoundTripAtTheMaximumAndLittleEndianLayout) {
	std::stringstream s;
	ZEB::write_string_binary(s, "Wand \xc2\xb5m");
	ZEB::write_string_binary(s, "");
	ZEB::write_string_binary_with_termination_character(s, "term");
	ZEB::write_vector_binary(s, std::vector<std::uint32_t>{1, 2, 4000000000u});
	ZEB::write_vector_binary(s, std::vector<double>{});
	ZEB::write_value_binary(s, -2.5);
	// lengths exactly at the maximum are accepted
	std::string a, b, c;
	std::vector<std::uint32_t> v;
	std::vector<double> w{1.0};
	double d;
	ZEB::read_string_binary(s, a, 8);
	ZEB::read_string_binary(s, b, 0);
	ZEB::read_string_binary_with_termination_character(s, c, 5);
	ZEB::read_vector_binary(s, v, 3);
	ZEB::read_vector_binary(s, w, 0);
	ZEB::read_value_binary(s, d);
	EXPECT_EQ(a, "Wand \xc2\xb5m");
	EXPECT_EQ(b, "");
	EXPECT_EQ(c, "term");
	EXPECT_EQ(v, (std::vector<std::uint32_t>{1, 2, 4000000000u}));
	EXPECT_TRUE(w.empty());
	EXPECT_EQ(d, -2.5);
	EXPECT_EQ(s.str().substr(0, 4), lengthPrefix(8));
}

TEST(ZEBBinaryIO, HostileLengthsAndTruncatedStreamsFail) {
	std::string str;
	std::vector<double> vec;
	// declared lengths above the maximum are rejected before anything is allocated
	std::istringstream huge(lengthPrefix(0xFFFFFFFFu));
	expectError([&] { ZEB::read_string_binary(huge, str, 10000); }, "String length exceeds given maximum!", "[read_string_binary]");
	std::istringstream many(lengthPrefix(1000001));
	expectError([&] { ZEB::read_vector_binary(many, vec, 1000000); }, "Vector length exceeds given maximum!", "[read_vector_binary]");
	std::istringstream empty(lengthPrefix(0));
	expectError([&] { ZEB::read_string_binary_with_termination_character(empty, str, 10); },
				"Invalid string length, must be > 0!", "[read_string_binary_with_termination_character]");
	std::istringstream unterminated(lengthPrefix(3) + "abc");
	expectError([&] { ZEB::read_string_binary_with_termination_character(unterminated, str, 10); },
				"Invalid string format, missing termination character!", "[read_string_binary_with_termination_character]");

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
	expectError([&] { ZEB::read_vector_binary(lying, vec, 1000000000u); }, "Error reading from input stream!", "[read_vector_binary]");
	EXPECT_LT(vec.capacity(), 1000000u);
}

TEST(ZEBMath, GuardedFunctions) {
	EXPECT_DOUBLE_EQ(ZEB::f_pow10(50), 1e50);
	EXPECT_DOUBLE_EQ(ZEB::f_log10(1e-3), -3.0);
	EXPECT_DOUBLE_EQ(ZEB::f_log(std::exp(2.0)), 2.0);
	EXPECT_THROW(ZEB::f_pow10(50.5), ZEB::Exception);
	expectError([] { ZEB::f_log(0); }, "Negative or zero value in log function, x = 0", "[ZEB::f_log]");
	expectError([] { ZEB::f_log10(-2); }, "Negative or zero value in log function, x = -2", "[ZEB::f_log10]");
	EXPECT_THROW(ZEB::f_log10(std::nan("")), ZEB::Exception);
}
