#include "SD_WallMoistureModel.h"

#include <algorithm>
#include <cmath>

#include "SD_LayeredWall.h"
#include "SD_Psychrometrics.h"

namespace SD {

namespace {

/*! Apparent moisture diffusivity in m2/s that sets the response times: a few hours at the
	surfaces, about a month in the middle of the brick.
*/
const double MOISTURE_DIFFUSIVITY = 5e-9;
/*! Shortest response time in hours (surface elements). */
const double MIN_TIME_CONSTANT = 3.0;
/*! Drying time of a rain-wetted outer surface in hours. */
const double DRYING_TIME = 48.0;
/*! Share of the remaining dryness that 1 mm of driving rain wets. */
const double WETTING_PER_MM = 0.6;

} // namespace


WallMoistureModel::WallMoistureModel(const LayeredWall & wall) :
	m_wall(wall)
{
	const std::size_t n = wall.elementCount();
	std::vector<double> resistance(n);
	double total = 0;
	for (std::size_t i = 0; i < n; ++i) {
		const double r = wall.material(i).vapourResistance()*wall.widths()[i];
		resistance[i] = total + 0.5*r;
		total += r;
	}
	m_resistanceFraction.resize(n);
	m_timeConstant.resize(n);
	for (std::size_t i = 0; i < n; ++i) {
		m_resistanceFraction[i] = resistance[i]/total;
		const double depth = std::min(wall.centres()[i], wall.thickness() - wall.centres()[i]);
		m_timeConstant[i] = MIN_TIME_CONSTANT + depth*depth/MOISTURE_DIFFUSIVITY/3600.0;
	}
	m_vapourPressure.assign(n, 0.0);
	m_relaxation.assign(n, 0.0);
}


void WallMoistureModel::setSteadyState(double outdoorVapourPressure, double indoorVapourPressure) {
	for (std::size_t i = 0; i < m_vapourPressure.size(); ++i)
		m_vapourPressure[i] = outdoorVapourPressure + m_resistanceFraction[i]*(indoorVapourPressure - outdoorVapourPressure);
	m_wetness = 0;
}


void WallMoistureModel::step(double dt, double outdoorVapourPressure, double indoorVapourPressure,
							 double drivingRain, double exteriorSurfaceTemperature) {
	m_wetness = m_wetness*std::exp(-dt/DRYING_TIME);
	m_wetness += (1.0 - m_wetness)*std::min(1.0, WETTING_PER_MM*drivingRain*dt);
	// a wet surface holds saturated vapour pressure, the rain water is drawn in from there
	const double surfacePressure = outdoorVapourPressure + m_wetness*
			std::max(0.0, Psychrometrics::saturationPressure(exteriorSurfaceTemperature) - outdoorVapourPressure);
	if (dt != m_relaxationStep) {
		m_relaxationStep = dt;
		for (std::size_t i = 0; i < m_relaxation.size(); ++i)
			m_relaxation[i] = 1.0 - std::exp(-dt/m_timeConstant[i]);
	}
	for (std::size_t i = 0; i < m_vapourPressure.size(); ++i) {
		const double target = surfacePressure + m_resistanceFraction[i]*(indoorVapourPressure - surfacePressure);
		m_vapourPressure[i] += m_relaxation[i]*(target - m_vapourPressure[i]);
	}
}


void WallMoistureModel::relativeHumidity(const std::vector<double> & temperatures, std::vector<double> & relHum) const {
	relHum.resize(m_vapourPressure.size());
	for (std::size_t i = 0; i < m_vapourPressure.size(); ++i)
		relHum[i] = 100.0*Psychrometrics::boundedRelativeHumidity(m_vapourPressure[i], temperatures[i]);
}


double WallMoistureModel::layerMoistureContent(std::size_t layer, const std::vector<double> & relHum) const {
	double sum = 0;
	double width = 0;
	for (std::size_t i = m_wall.firstElement(layer); i < m_wall.firstElement(layer + 1); ++i) {
		sum += m_wall.material(i).moistureContent(relHum[i]/100.0)*m_wall.widths()[i];
		width += m_wall.widths()[i];
	}
	return sum/width;
}

} // namespace SD
