#include "SD_SmoothNoise.h"

#include <cmath>

namespace SD {

SmoothNoise::SmoothNoise(std::uint64_t seed, double correlationHours, double standardDeviation) :
	m_random(seed),
	m_a(std::exp(-1.0/correlationHours)),
	m_sigma(standardDeviation)
{
	// y(k+1) = a y(k) + (1-a) x(k+1) with x an AR(1) process of the same coefficient and variance
	// s^2 has the variance s^2 (1 + a^2)/(1 + a)^2; m_scale undoes that factor.
	m_scale = (1.0 + m_a)/std::sqrt(1.0 + m_a*m_a);
	m_first = m_sigma*m_random.normal();
	m_second = m_first;
	// let the second stage settle so that the first values are already stationary
	const int settle = static_cast<int>(10.0*correlationHours) + 1;
	for (int i = 0; i < settle; ++i)
		next();
}


double SmoothNoise::next() {
	m_first = m_a*m_first + std::sqrt(1.0 - m_a*m_a)*m_sigma*m_random.normal();
	m_second = m_a*m_second + (1.0 - m_a)*m_first;
	return m_scale*m_second;
}

} // namespace SD
