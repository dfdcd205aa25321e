#ifndef SD_ClimateH
#define SD_ClimateH

#include <cstddef>
#include <cstdint>
#include <vector>

namespace SD {

/*! Hourly outdoor and indoor climate of a central European site (latitude 50 N), generated from
	a seed.

	Outdoor temperature: annual mean 9 C with a seasonal cosine of 9 K amplitude (coldest around
	20 January), a daily cycle of about 4 K amplitude (warmest at 15 h, weaker under clouds) and
	smooth weather noise (spells of a few days and of about ten days). Relative humidity follows
	from a dew point that moves with the daily mean temperature, so it falls when the air warms
	during the day and rises at night: anti-correlated with temperature, as measured. Global
	radiation on the horizontal comes from the sun's elevation and a cloud cover; rain falls in
	cloudy spells; wind is log-normal around 3.4 m/s. Indoor climate follows the daily mean
	outdoor temperature: 20 C in winter up to 22 C in summer, 40 % relative humidity in cold
	weather up to 60 % in warm weather, with moisture peaks in the morning and the evening.

	Every year has 365 days; hour index h describes the hour that ends at h + 1 hours after
	1 January, 0:00, of the first year.
*/
class Climate {
public:
	/*! Latitude of the site in degrees north. */
	static constexpr double LATITUDE = 50.0;
	static constexpr std::size_t HOURS_PER_YEAR = 8760;

	/*! Generates the climate of the given number of hours. */
	Climate(std::uint64_t seed, std::size_t hours);

	std::size_t hours() const { return m_outdoorTemperature.size(); }

	/*! Outdoor air temperature in C. */
	const std::vector<double> & outdoorTemperature() const { return m_outdoorTemperature; }
	/*! Outdoor relative humidity in %. */
	const std::vector<double> & outdoorRelHum() const { return m_outdoorRelHum; }
	/*! Global radiation on the horizontal in W/m2. */
	const std::vector<double> & globalRadiation() const { return m_globalRadiation; }
	/*! Wind speed in m/s. */
	const std::vector<double> & windSpeed() const { return m_windSpeed; }
	/*! Rain on the horizontal in mm/h. */
	const std::vector<double> & rain() const { return m_rain; }
	/*! Indoor air temperature in C. */
	const std::vector<double> & indoorTemperature() const { return m_indoorTemperature; }
	/*! Indoor relative humidity in %. */
	const std::vector<double> & indoorRelHum() const { return m_indoorRelHum; }

private:
	/*! Fills the indoor climate from the running daily mean of the outdoor temperature. */
	void computeIndoorClimate();

	std::vector<double>	m_outdoorTemperature;
	std::vector<double>	m_outdoorRelHum;
	std::vector<double>	m_globalRadiation;
	std::vector<double>	m_windSpeed;
	std::vector<double>	m_rain;
	std::vector<double>	m_indoorTemperature;
	std::vector<double>	m_indoorRelHum;
};

} // namespace SD

#endif // SD_ClimateH
