#ifndef SD_SmoothNoiseH
#define SD_SmoothNoiseH

#include <cstdint>

#include "SD_NormalRandom.h"

namespace SD {

/*! Smooth random weather noise sampled once per hour: white noise filtered twice by a first-order
	low-pass with the given correlation time. One filter alone (an AR(1) process) still jumps from
	hour to hour; the second one makes the course smooth, like weather changes. The result is
	scaled to the requested standard deviation and starts in its stationary state, so that the
	first hours look like any others.
*/
class SmoothNoise {
public:
	/*! \param seed Seed of this noise stream.
		\param correlationHours Time constant of each filter stage, in hours (> 0).
		\param standardDeviation Standard deviation of the values returned.
	*/
	SmoothNoise(std::uint64_t seed, double correlationHours, double standardDeviation);

	/*! Advances by one hour and returns the new value. */
	double next();

private:
	NormalRandom	m_random;
	double			m_a;		///< filter coefficient exp(-1 h / correlation time)
	double			m_sigma;	///< standard deviation of the first stage
	double			m_scale;	///< makes the second stage's standard deviation equal m_sigma
	double			m_first;	///< first stage: AR(1) process with standard deviation m_sigma
	double			m_second;	///< second stage: low-pass of the first one
};

} // namespace SD

#endif // SD_SmoothNoiseH
