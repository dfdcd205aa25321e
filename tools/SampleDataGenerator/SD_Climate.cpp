#include "SD_Climate.h"

#include <algorithm>
#include <cmath>

#include "SD_Psychrometrics.h"
#include "SD_SmoothNoise.h"

namespace SD {

namespace {

const double PI = 3.14159265358979323846;

/*! Noise streams of the climate; each gets its own seed so that changing one leaves the others. */
enum Stream {
	STREAM_SLOW_TEMPERATURE,
	STREAM_FAST_TEMPERATURE,
	STREAM_CLOUDS,
	STREAM_DEW_POINT,
	STREAM_WIND,
	STREAM_RAIN
};

double clamp01(double x) {
	return std::min(1.0, std::max(0.0, x));
}

/*! Global radiation on the horizontal in W/m2 from day of year, solar hour and cloud cover
	(0..1): a clear-sky model of the sun's elevation, reduced by clouds.
*/
double horizontalRadiation(double dayOfYear, double solarHour, double cloudCover) {
	const double lat = Climate::LATITUDE*PI/180.0;
	const double declination = 23.44*PI/180.0*std::sin(2.0*PI*(284.0 + dayOfYear)/365.0);
	const double hourAngle = (solarHour - 12.0)*15.0*PI/180.0;
	const double sinElevation = std::sin(lat)*std::sin(declination) +
			std::cos(lat)*std::cos(declination)*std::cos(hourAngle);
	if (sinElevation <= 0.01)
		return 0;
	const double clearSky = 1098.0*sinElevation*std::exp(-0.057/sinElevation);
	return clearSky*(1.0 - 0.8*cloudCover*cloudCover);
}

} // namespace


Climate::Climate(std::uint64_t seed, std::size_t hours) {
	SmoothNoise slowTemperature(NormalRandom::streamSeed(seed, STREAM_SLOW_TEMPERATURE), 240, 1.8);
	SmoothNoise fastTemperature(NormalRandom::streamSeed(seed, STREAM_FAST_TEMPERATURE), 30, 2.2);
	SmoothNoise clouds(NormalRandom::streamSeed(seed, STREAM_CLOUDS), 20, 1.0);
	SmoothNoise dewPoint(NormalRandom::streamSeed(seed, STREAM_DEW_POINT), 24, 1.0);
	SmoothNoise wind(NormalRandom::streamSeed(seed, STREAM_WIND), 10, 1.0);
	SmoothNoise rain(NormalRandom::streamSeed(seed, STREAM_RAIN), 4, 1.0);

	m_outdoorTemperature.resize(hours);
	m_outdoorRelHum.resize(hours);
	m_globalRadiation.resize(hours);
	m_windSpeed.resize(hours);
	m_rain.resize(hours);
	for (std::size_t h = 0; h < hours; ++h) {
		const double hourOfDay = static_cast<double>(h % 24) + 0.5;
		const double dayOfYear = (static_cast<double>(h % HOURS_PER_YEAR) + 0.5)/24.0;
		// -1 around 20 January, +1 around 21 July
		const double season = -std::cos(2.0*PI*(dayOfYear - 20.0)/365.0);
		const double summer = 0.5*(1.0 + season);

		const double cloudDriver = clouds.next();
		const double cloudCover = 1.0/(1.0 + std::exp(-(1.6*cloudDriver + 1.2 - 0.8*summer)));

		const double dailyMean = 9.0 + 9.0*season + slowTemperature.next() + fastTemperature.next();
		const double dailyAmplitude = 4.0*(1.38 - 0.6*cloudCover)*(0.8 + 0.4*summer);
		const double temperature = dailyMean + dailyAmplitude*std::cos(2.0*PI*(hourOfDay - 15.0)/24.0);
		m_outdoorTemperature[h] = temperature;

		// the dew point stays with the daily mean; dry summer air, humid overcast winter air
		const double depression = std::max(0.2, 1.5 + 4.0*summer - 2.0*(2.0*cloudCover - 1.0) + dewPoint.next());
		const double vapourPressure = Psychrometrics::saturationPressure(dailyMean - depression);
		m_outdoorRelHum[h] = 100.0*Psychrometrics::boundedRelativeHumidity(vapourPressure, temperature);

		m_globalRadiation[h] = horizontalRadiation(dayOfYear, hourOfDay, cloudCover);

		const double gusts = 1.0 + 0.15*std::cos(2.0*PI*(hourOfDay - 14.0)/24.0);
		m_windSpeed[h] = 3.0*std::exp(0.45*wind.next() + 0.25*cloudDriver)*(1.0 - 0.12*season)*gusts;

		const double rainDriver = 0.75*cloudDriver + 0.66*rain.next();
		m_rain[h] = rainDriver > 1.2 ? 1.6*std::pow(rainDriver - 1.2, 1.3) : 0.0;
	}
	computeIndoorClimate();
}


void Climate::computeIndoorClimate() {
	const std::size_t hours = m_outdoorTemperature.size();
	m_indoorTemperature.resize(hours);
	m_indoorRelHum.resize(hours);
	double sum = 0;
	for (std::size_t h = 0; h < hours; ++h) {
		sum += m_outdoorTemperature[h];
		if (h >= 24)
			sum -= m_outdoorTemperature[h - 24];
		const double dailyMean = sum/static_cast<double>(std::min<std::size_t>(h + 1, 24));
		m_indoorTemperature[h] = 20.0 + 2.0*clamp01((dailyMean - 10.0)/10.0);
		// showers in the morning, cooking in the evening
		const double hourOfDay = static_cast<double>(h % 24) + 0.5;
		const double peaks = 4.0*std::exp(-std::pow((hourOfDay - 7.5)/1.5, 2)) +
				3.0*std::exp(-std::pow((hourOfDay - 19.0)/2.0, 2));
		const double relHum = 40.0 + 20.0*clamp01((dailyMean + 10.0)/30.0) + peaks - 1.5;
		m_indoorRelHum[h] = std::min(60.0, std::max(40.0, relHum));
	}
}

} // namespace SD
