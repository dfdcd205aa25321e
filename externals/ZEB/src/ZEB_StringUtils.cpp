#include "ZEB_StringUtils.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "ZEB_Exception.h"
#include "ZEB_MessageFormat.h"

namespace ZEB {

namespace {

inline bool isSeparator(char c) {
	return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/*! Parses an integer type from the whole trimmed string. */
template <typename T>
bool parseInteger(const std::string & str, T & value) {
	std::string s = trimmed(str);
	const char * b = s.data();
	const char * e = b + s.size();
	if (b != e && *b == '+')
		++b;
	if (b == e)
		return false;
	std::from_chars_result res = std::from_chars(b, e, value);
	return res.ec == std::errc() && res.ptr == e;
}

template <typename T>
T string2integer(const std::string & str, const char * funcId) {
	T value{};
	if (!parseInteger(str, value))
		throw Exception(MessageFormat("Cannot convert '%1' to a number.").arg(str), funcId);
	return value;
}

/*! True when all eight bytes of the little-endian word are ASCII digits. */
inline bool isEightDigits(std::uint64_t v) {
	return (((v & 0xF0F0F0F0F0F0F0F0ull) | (((v + 0x0606060606060606ull) & 0xF0F0F0F0F0F0F0F0ull) >> 4))
			== 0x3333333333333333ull);
}

/*! Value of eight ASCII digits held in a little-endian word, combining digit pairs, then
	pairs of pairs, with multiplications instead of eight dependent steps.
*/
inline std::uint32_t eightDigitsValue(std::uint64_t v) {
	const std::uint64_t mask = 0x000000FF000000FFull;
	const std::uint64_t mul1 = 100 + (1000000ull << 32);
	const std::uint64_t mul2 = 1 + (10000ull << 32);
	v -= 0x3030303030303030ull;
	v = (v * 10) + (v >> 8);
	v = (((v & mask) * mul1) + (((v >> 16) & mask) * mul2)) >> 32;
	return static_cast<std::uint32_t>(v);
}

/*! Appends the digits at p to mantissa and counts all and significant digits; eight digits at
	a time once a non-zero digit has been seen. Returns the position after the digits.
*/
inline const char * accumulateDigits(const char * p, const char * end, std::uint64_t & mantissa,
									 int & digits, int & significantDigits)
{
	while (mantissa != 0 && end - p >= 8 && significantDigits <= 11) {
		std::uint64_t word;
		std::memcpy(&word, p, 8);
		if (!isEightDigits(word))
			break;
		mantissa = mantissa*100000000ull + eightDigitsValue(word);
		p += 8;
		digits += 8;
		significantDigits += 8;
	}
	for (; p != end && static_cast<unsigned>(*p - '0') < 10; ++p, ++digits) {
		if (mantissa != 0 || *p != '0')
			++significantDigits;
		mantissa = mantissa*10 + static_cast<unsigned>(*p - '0');
	}
	return p;
}

/*! Number of significant bits of v. */
inline int bitLength(unsigned __int128 v) {
	const std::uint64_t high = static_cast<std::uint64_t>(v >> 64);
	if (high != 0)
		return 128 - __builtin_clzll(high);
	const std::uint64_t low = static_cast<std::uint64_t>(v);
	return low != 0 ? 64 - __builtin_clzll(low) : 0;
}

/*! Correctly rounded mantissa * 10^exponent for mantissas of up to 64 bits (the 17 significant
	digits of shortest round-trip output do not fit the 53 bits of the simple fast path).
	A positive exponent of at most 19 gives an exact 128-bit product, which converts with one
	rounding. A negative exponent of at most 21 starts from an estimate within one unit in the
	last place and decides with exact 128-bit integer comparisons against the midpoints to the
	neighbouring doubles. Returns false for cases outside these bounds (subnormal results, a
	power-of-two estimate, products too wide): the caller then uses the general parser.
*/
bool exactWideMantissa(std::uint64_t mantissa, int exponent, double & value) {
	using u128 = unsigned __int128;
	struct PowersOfTen {
		u128 m_value[22];
		PowersOfTen() {
			m_value[0] = 1;
			for (int i = 1; i < 22; ++i)
				m_value[i] = m_value[i-1]*10;
		}
	};
	static const PowersOfTen powers;
	if (exponent >= 0) {
		if (exponent > 19)
			return false;
		value = static_cast<double>(static_cast<u128>(mantissa) * powers.m_value[exponent]);
		return true;
	}
	const int k = -exponent;
	if (k > 21)
		return false;
	const u128 pow10k = powers.m_value[k];
	const int mantissaBits = 64 - __builtin_clzll(mantissa);
	const int powerBits = bitLength(pow10k);
	double d = static_cast<double>(mantissa) / static_cast<double>(pow10k);
	for (int step = 0; step < 3; ++step) {
		std::uint64_t bits;
		std::memcpy(&bits, &d, sizeof(bits));
		const int biasedExp = static_cast<int>((bits >> 52) & 0x7FF);
		const std::uint64_t M = (bits & ((std::uint64_t(1) << 52) - 1)) | (std::uint64_t(1) << 52);
		const int E = biasedExp - 1075;		// d = M * 2^E exactly
		const int shift = 1 - E;			// compare 2^(1-E)*q with 2M+1 and 2M-1
		if (biasedExp == 0 || M == (std::uint64_t(1) << 52) || shift < 1)
			return false;
		if (mantissaBits + shift > 127 || 54 + powerBits > 127)
			return false;
		const u128 scaled = static_cast<u128>(mantissa) << shift;	// 2^(1-E) * q * 10^k
		const u128 upper = (static_cast<u128>(2*M + 1)) * pow10k;	// midpoint to the next double
		const u128 lower = (static_cast<u128>(2*M - 1)) * pow10k;	// midpoint to the previous one
		if (scaled > upper || (scaled == upper && (M & 1) != 0))
			d = std::nextafter(d, HUGE_VAL);
		else if (scaled < lower || (scaled == lower && (M & 1) != 0))
			d = std::nextafter(d, 0.0);
		else {
			value = d;
			return true;
		}
	}
	return false;
}

} // namespace


/*! Exact fast path for the common case of at most 19 significant digits. When the integer
	mantissa fits into 53 bits and the decimal exponent lies within +-22, both factors are exact
	doubles and one IEEE multiplication or division rounds correctly (Clinger's method); wider
	mantissas go through exactWideMantissa().
	Parses the number at the start of [p, end) and returns the position after it, or null when
	the number is outside that case; the caller then uses the general parser.
*/
const char * parseDoubleFastPrefix(const char * p, const char * end, double & value) {
	static const double pow10[] = {
		1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11,
		1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22
	};
	bool negative = false;
	if (p != end && *p == '-') {
		negative = true;
		++p;
	}
	std::uint64_t mantissa = 0;
	int significantDigits = 0;
	int digits = 0;
	p = accumulateDigits(p, end, mantissa, digits, significantDigits);
	int exponent = 0;
	if (p != end && *p == '.') {
		const int integerDigits = digits;
		p = accumulateDigits(p + 1, end, mantissa, digits, significantDigits);
		exponent = integerDigits - digits;
	}
	// beyond 19 significant digits the mantissa may have wrapped: leave it to the general parser
	if (digits == 0 || significantDigits > 19)
		return nullptr;
	if (p != end && (*p == 'e' || *p == 'E')) {
		++p;
		bool negativeExp = false;
		if (p != end && (*p == '-' || *p == '+')) {
			negativeExp = (*p == '-');
			++p;
		}
		if (p == end || static_cast<unsigned>(*p - '0') >= 10)
			return nullptr;	// an exponent needs digits
		int e = 0;
		for (; p != end && static_cast<unsigned>(*p - '0') < 10; ++p) {
			if (e > 10000)
				return nullptr;
			e = e*10 + (*p - '0');
		}
		exponent += negativeExp ? -e : e;
	}
	if (mantissa == 0) {
		value = negative ? -0.0 : 0.0;
		return p;
	}
	double d;
	if (mantissa <= (std::uint64_t(1) << 53) && exponent >= -22 && exponent <= 22) {
		d = static_cast<double>(mantissa);
		d = exponent < 0 ? d / pow10[-exponent] : d * pow10[exponent];
	}
	else if (!exactWideMantissa(mantissa, exponent, d)) {
		return nullptr;
	}
	value = negative ? -d : d;
	return p;
}


bool parseDouble(const char * begin, const char * end, double & value) {
	if (parseDoubleFastPrefix(begin, end, value) == end)
		return true;
	if (begin != end && *begin == '+') {
		++begin;
		// "+-1" is no number
		if (begin != end && *begin == '-')
			return false;
	}
	if (begin == end)
		return false;
	std::from_chars_result res = std::from_chars(begin, end, value, std::chars_format::general);
	if (res.ptr != end)
		return false;
	// values beyond the double range are read as infinity, like strtod does
	if (res.ec == std::errc::result_out_of_range) {
		value = (*begin == '-') ? -HUGE_VAL : HUGE_VAL;
		// a tiny exponent underflows to zero rather than to infinity
		const char * ePos = begin;
		while (ePos != end && *ePos != 'e' && *ePos != 'E')
			++ePos;
		if (ePos != end && ePos + 1 != end && ePos[1] == '-')
			value = (*begin == '-') ? -0.0 : 0.0;
		return true;
	}
	return res.ec == std::errc();
}


template <>
double string2val<double>(const std::string & str) {
	FUNCID(ZEB::string2val<double>);
	std::string s = trimmed(str);
	double value = 0;
	if (!parseDouble(s.data(), s.data() + s.size(), value))
		throw Exception(MessageFormat("Cannot convert '%1' to a number.").arg(str), FUNC_ID);
	return value;
}

template <>
int string2val<int>(const std::string & str) {
	FUNCID(ZEB::string2val<int>);
	return string2integer<int>(str, FUNC_ID);
}

template <>
unsigned int string2val<unsigned int>(const std::string & str) {
	FUNCID(ZEB::string2val<unsigned int>);
	return string2integer<unsigned int>(str, FUNC_ID);
}

template <>
long long string2val<long long>(const std::string & str) {
	FUNCID(ZEB::string2val<long long>);
	return string2integer<long long>(str, FUNC_ID);
}

template <>
unsigned long long string2val<unsigned long long>(const std::string & str) {
	FUNCID(ZEB::string2val<unsigned long long>);
	return string2integer<unsigned long long>(str, FUNC_ID);
}


void string2valueVector(const std::string & text, std::vector<double> & values) {
	string2valueVector(text.data(), text.data() + text.size(), values);
}


void string2valueVector(const char * begin, const char * end, std::vector<double> & values) {
	FUNCID(ZEB::string2valueVector);
	values.clear();
	const char * p = begin;
	while (true) {
		while (p != end && isSeparator(*p))
			++p;
		if (p == end)
			break;
		// most tokens are plain numbers that end at a separator: parse them in one pass
		double v;
		const char * stop = parseDoubleFastPrefix(p, end, v);
		if (stop == nullptr || (stop != end && !isSeparator(*stop))) {
			stop = p;
			while (stop != end && !isSeparator(*stop))
				++stop;
			if (!parseDouble(p, stop, v))
				throw Exception(MessageFormat("'%1' at character pos #2 is not a valid number.")
								.arg(std::string(begin, end)), FUNC_ID);
		}
		values.push_back(v);
		p = stop;
	}
}


std::string trimmed(const std::string & str, const char * chars) {
	std::size_t first = str.find_first_not_of(chars);
	if (first == std::string::npos)
		return std::string();
	std::size_t last = str.find_last_not_of(chars);
	return str.substr(first, last - first + 1);
}


std::vector<std::string> explode(const std::string & str, char separator) {
	std::vector<std::string> parts;
	std::size_t start = 0;
	while (true) {
		std::size_t pos = str.find(separator, start);
		if (pos == std::string::npos) {
			parts.push_back(str.substr(start));
			break;
		}
		parts.push_back(str.substr(start, pos - start));
		start = pos + 1;
	}
	return parts;
}

} // namespace ZEB
