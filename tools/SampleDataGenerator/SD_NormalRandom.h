#ifndef SD_NormalRandomH
#define SD_NormalRandomH

#include <cstdint>
#include <random>

namespace SD {

/*! Seeded random numbers that are the same on every platform: the 64-bit Mersenne twister,
	whose output sequence is fixed by the C++ standard, turned into uniform and normal numbers by
	our own code (the standard distributions may differ between library implementations, which
	would make the sample data differ between machines).
*/
class NormalRandom {
public:
	/*! The seed is mixed first, so that neighbouring seeds give unrelated sequences. */
	explicit NormalRandom(std::uint64_t seed);

	/*! Uniform in [0, 1) with 53 random bits. */
	double uniform();
	/*! Standard normal (mean 0, standard deviation 1), Box-Muller transform. */
	double normal();

	/*! Derives the seed of an independent stream from a master seed and a stream number. */
	static std::uint64_t streamSeed(std::uint64_t masterSeed, std::uint64_t stream);

private:
	std::mt19937_64	m_engine;
	/*! Box-Muller yields two numbers at a time; the second is kept for the next call. */
	double			m_spare = 0;
	bool			m_hasSpare = false;
};

} // namespace SD

#endif // SD_NormalRandomH
