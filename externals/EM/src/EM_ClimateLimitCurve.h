#ifndef EM_ClimateLimitCurveH
#define EM_ClimateLimitCurveH

#include <string>
#include <vector>

#include <ZEB_LinearSpline.h>

namespace EM {

/*! A limit curve in the climate plane: relative humidity (%) over temperature (C), given as a
	table of points, linear between them and held constant beyond the first and last point.
	A climate reaches the curve when its temperature lies above the curve's lowest temperature
	and its humidity is at or above the curve. Used for germination isopleths and the decay
	limit of wood; curves are data, so that a user can replace them.
*/
class ClimateLimitCurve {
public:
	ClimateLimitCurve() = default;
	/*! Throws as setPoints() does. */
	ClimateLimitCurve(const std::string & name, const std::vector<double> & temperatures,
					  const std::vector<double> & humidities, double lowestTemperature);

	/*! Replaces the table; temperatures must increase strictly, both vectors be of equal size
		and hold finite numbers. Climates at or below lowestTemperature never reach the curve.
		On failure the curve keeps its previous table.
	*/
	void setPoints(const std::vector<double> & temperatures, const std::vector<double> & humidities,
				   double lowestTemperature);

	const std::string & name() const { return m_name; }
	void setName(const std::string & name) { m_name = name; }
	const std::vector<double> & temperatures() const { return m_curve.x(); }
	const std::vector<double> & humidities() const { return m_curve.y(); }
	double lowestTemperature() const { return m_lowestTemperature; }

	/*! Relative humidity of the curve at temperature T; throws for a curve without points. */
	double humidity(double T) const { return m_curve.value(T); }
	/*! True when T lies above the lowest temperature and RH at or above the curve. */
	bool isReached(double T, double RH) const { return T > m_lowestTemperature && RH >= m_curve.value(T); }

	/*! Equal when name, table and lowest temperature are. */
	bool operator==(const ClimateLimitCurve & other) const {
		return m_name == other.m_name && temperatures() == other.temperatures()
				&& humidities() == other.humidities() && m_lowestTemperature == other.m_lowestTemperature;
	}

private:
	std::string			m_name;
	ZEB::LinearSpline	m_curve;
	double				m_lowestTemperature = 0;
};

} // namespace EM

#endif // EM_ClimateLimitCurveH
