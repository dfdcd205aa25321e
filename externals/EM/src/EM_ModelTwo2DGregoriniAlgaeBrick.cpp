#include "EM_ModelTwo2DGregoriniAlgaeBrick.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_UnitVector.h>

namespace EM {

namespace {

/*! Coefficients (porosity, roughness, constant) of the cubic temperature factors: rA, sA, uA, vA
	of tauA and rK, sK, uK, vK of tauK, each = c1*porosity + c2*Ra + c3.
*/
const double TAU_A_COEFFICIENTS[4][3] = {
	{ 3.8447e-4,  -4.0800e-6,  -2.1164e-4 },
	{ -2.7874e-2, 2.95905e-4,  1.1856e-2 },
	{ 5.5270e-1,  -5.8670e-3,  -1.4727e-1 },
	{ -2.1146,    2.2450e-2,   4.7041e-1 }
};
const double TAU_K_COEFFICIENTS[4][3] = {
	{ 8.3270e-5,  6.7e-7,      -1.8459e-4 },
	{ -6.0378e-3, -4.88e-5,    9.877e-3 },
	{ 1.1971e-1,  9.69e-4,     -1.0759e-1 },
	{ -4.5803e-1, -3.71e-3,    3.1809e-1 }
};

/*! Material factors alpha, beta, gamma of the model; 1 for brick. */
const double ALPHA = 1;
const double BETA = 1;
const double GAMMA = 1;

/*! Roughness at which the delay formula is singular, and the delay used there, in days. */
const double SINGULAR_ROUGHNESS = 5.02;
const double SINGULAR_DELAY = 30;

/*! Growth conditions of a day: relative humidity (fraction) and temperature range in C. */
const double MIN_GROWTH_HUMIDITY = 0.98;
const double MIN_GROWTH_TEMPERATURE = 5;
const double MAX_GROWTH_TEMPERATURE = 40;

/*! Grid points per day. */
const unsigned int HOURS_PER_DAY = 24;

/*! Cubic c[0] T^3 + c[1] T^2 + c[2] T + c[3] with coefficients from porosity and roughness,
	clipped to [0, 1].
*/
double temperatureFactor(const double (&coef)[4][3], double T, double porosity, double roughness) {
	double c[4];
	for (int i = 0; i < 4; ++i)
		c[i] = coef[i][0]*porosity + coef[i][1]*roughness + coef[i][2];
	const double v = c[0]*T*T*T + c[1]*T*T + c[2]*T + c[3];
	return std::min(1.0, std::max(0.0, v));
}

} // namespace


const double ModelTwo2DGregoriniAlgaeBrick::TOTAL_PORE_AREA = 2.22;


ModelTwo2DGregoriniAlgaeBrick::ModelTwo2DGregoriniAlgaeBrick() :
	ModelTwo2DBase("d")
{
}


ZEB::Unit ModelTwo2DGregoriniAlgaeBrick::valueUnit() const {
	return ZEB::Unit("%");
}


std::string ModelTwo2DGregoriniAlgaeBrick::parameter() const {
	return "PO " + numberText(m_porosity) + " RV " + numberText(m_roughness);
}


std::string ModelTwo2DGregoriniAlgaeBrick::parameterCaption() const {
	return ZEB::MessageFormat("CT %1  MC %2").arg(numberText(m_porosity)).arg(numberText(m_roughness)).str();
}


void ModelTwo2DGregoriniAlgaeBrick::setFromParameter(const std::string & text) {
	FUNCID(ModelTwo2DGregoriniAlgaeBrick::setFromParameter);
	double porosity = m_porosity;
	double roughness = m_roughness;
	for (const auto & kv : parameterPairs(text, "Invalid parameter string, eneven number of entries.", FUNC_ID)) {
		if (kv.first == "PO") {
			porosity = parameterNumber(kv.second, FUNC_ID);
			if (porosity < 0 || porosity > 1)
				throw ZEB::Exception("Invalid parameter, porosity must be between 0 and 1.", FUNC_ID);
		}
		else if (kv.first == "RV") {
			roughness = parameterNumber(kv.second, FUNC_ID);
			if (roughness < 0)
				throw ZEB::Exception("Invalid parameter, roughness must not be negative.", FUNC_ID);
		}
		else
			throw ZEB::Exception("Invalid parameter string, unknown key.", FUNC_ID);
	}
	m_porosity = porosity;
	m_roughness = roughness;
}


std::vector<ModelParameter> ModelTwo2DGregoriniAlgaeBrick::parameterDescriptions() const {
	return {
		{ "PO", "Porosity [-]", false, 0.25, 0, 1 },
		{ "RV", "Surface roughness Ra [\u00b5m]", false, 2.95, 0, ModelParameter::UNBOUNDED }
	};
}


double ModelTwo2DGregoriniAlgaeBrick::delayTime(double roughness) {
	const double d = roughness - SINGULAR_ROUGHNESS;
	if (d == 0)
		return SINGULAR_DELAY;
	return GAMMA * 5 / (d*d);
}


double ModelTwo2DGregoriniAlgaeBrick::areaRatio(double porosity, double roughness) {
	const double b = 2.48*porosity + 0.126*roughness;
	const double r = 1 - std::exp(-ALPHA * b*b*b*b);
	return std::min(1.0, std::max(0.0, r));
}


double ModelTwo2DGregoriniAlgaeBrick::growthRate(double porosity, double totalPoreArea) {
	const double b = (4.49e-3*porosity*totalPoreArea - 5.79e-3) / 2.09;
	return std::max(0.0, 1 - std::exp(-BETA * b*b));
}


double ModelTwo2DGregoriniAlgaeBrick::tauA(double T, double porosity, double roughness) {
	return temperatureFactor(TAU_A_COEFFICIENTS, T, porosity, roughness);
}


double ModelTwo2DGregoriniAlgaeBrick::tauK(double T, double porosity, double roughness) {
	return temperatureFactor(TAU_K_COEFFICIENTS, T, porosity, roughness);
}


double ModelTwo2DGregoriniAlgaeBrick::getShiftValue(double X, double Xmax, double rate, double t, double t1) {
	FUNCID(ModelTwo2DGregoriniAlgaeBrick::getShiftValue);
	if (!(rate > 0) || !(Xmax > 0) || !(X >= 0) || !(X < Xmax))
		throw ZEB::Exception("Invalid values.", FUNC_ID);
	return std::pow(-std::log(1 - X/Xmax) / rate, 0.25) - (t - 1 - t1);
}


void ModelTwo2DGregoriniAlgaeBrick::dailyCoverage(const std::vector<double> & T, const std::vector<double> & RH,
	std::vector<double> & X, std::vector<double> & Xmax) const
{
	const std::size_t days = std::min(T.size(), RH.size());
	X.assign(days + 1, 0.0);
	Xmax.assign(days + 1, 0.0);
	const double t1 = delayTime(m_roughness);
	const double ratio = areaRatio(m_porosity, m_roughness);
	const double K = growthRate(m_porosity, TOTAL_PORE_AREA);
	for (std::size_t j = 1; j <= days; ++j) {
		const double t = static_cast<double>(j);
		const double temperature = T[j-1];
		const double maxCoverage = tauA(temperature, m_porosity, m_roughness) * ratio;
		const double rate = tauK(temperature, m_porosity, m_roughness) * K;
		Xmax[j] = maxCoverage;
		const double previous = X[j-1];
		X[j] = previous;
		// a day without climate is skipped: the coverage stays
		if (std::isnan(temperature) || std::isnan(RH[j-1]))
			continue;
		const bool growing = t > t1 && RH[j-1] >= MIN_GROWTH_HUMIDITY
				&& temperature >= MIN_GROWTH_TEMPERATURE && temperature <= MAX_GROWTH_TEMPERATURE;
		if (!growing || previous >= maxCoverage || !(rate > 0))
			continue;
		const double shift = getShiftValue(previous, maxCoverage, rate, t, t1);
		const double dt = t + shift - t1;
		const double coverage = maxCoverage * (1 - std::exp(-rate * dt*dt*dt*dt));
		// coverage never decreases
		X[j] = std::max(previous, coverage);
	}
}


void ModelTwo2DGregoriniAlgaeBrick::compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) {
	std::vector<double> grid, T, RH;
	unifiedData(first, second, grid, T, RH, 1.0/HOURS_PER_DAY);
	x.m_unit = timeUnit();
	y.m_unit = valueUnit();
	std::vector<double> maximum;
	if (!grid.empty()) {
		// daily means of complete days; relative humidity as a fraction
		std::vector<double> dailyT, dailyRH;
		for (std::size_t start = 0; start + HOURS_PER_DAY <= grid.size(); start += HOURS_PER_DAY) {
			double sumT = 0;
			double sumRH = 0;
			for (std::size_t k = start; k < start + HOURS_PER_DAY; ++k) {
				sumT += T[k];
				sumRH += RH[k];
			}
			dailyT.push_back(sumT / HOURS_PER_DAY);
			dailyRH.push_back(sumRH / HOURS_PER_DAY / 100);
		}
		std::vector<double> X, Xmax;
		dailyCoverage(dailyT, dailyRH, X, Xmax);
		// a day without climate has no result
		const double absent = std::numeric_limits<double>::quiet_NaN();
		for (std::size_t j = 0; j < X.size(); ++j) {
			const bool gap = j > 0 && (std::isnan(dailyT[j-1]) || std::isnan(dailyRH[j-1]));
			x.m_data.push_back(grid.front() + static_cast<double>(j));
			y.m_data.push_back(gap ? absent : 100 * X[j]);
			maximum.push_back(gap ? absent : 100 * Xmax[j]);
		}
	}
	m_maximumCoverage.swap(maximum);
}

} // namespace EM
