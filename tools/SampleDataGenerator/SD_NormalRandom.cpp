#include "SD_NormalRandom.h"

#include <cmath>

namespace SD {

namespace {

/*! The splitmix64 finaliser: spreads the bits of a seed over the whole 64-bit word. */
std::uint64_t mix(std::uint64_t x) {
	x += 0x9E3779B97F4A7C15ull;
	x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ull;
	x = (x ^ (x >> 27)) * 0x94D049BB133111EBull;
	return x ^ (x >> 31);
}

} // namespace


NormalRandom::NormalRandom(std::uint64_t seed) :
	m_engine(mix(seed))
{
}


double NormalRandom::uniform() {
	return static_cast<double>(m_engine() >> 11) * (1.0 / 9007199254740992.0);
}


double NormalRandom::normal() {
	if (m_hasSpare) {
		m_hasSpare = false;
		return m_spare;
	}
	const double pi = 3.14159265358979323846;
	// 1 - uniform() lies in (0, 1], so the logarithm is finite
	const double r = std::sqrt(-2.0*std::log(1.0 - uniform()));
	const double phi = 2.0*pi*uniform();
	m_spare = r*std::sin(phi);
	m_hasSpare = true;
	return r*std::cos(phi);
}


std::uint64_t NormalRandom::streamSeed(std::uint64_t masterSeed, std::uint64_t stream) {
	return mix(mix(masterSeed) ^ (stream*0xD1B54A32D192ED03ull));
}

} // namespace SD
