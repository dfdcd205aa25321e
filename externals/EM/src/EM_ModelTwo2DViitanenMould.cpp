#include "EM_ModelTwo2DViitanenMould.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <ZEB_Exception.h>
#include <ZEB_Math.h>
#include <ZEB_UnitVector.h>

namespace EM {

namespace {

/*! Coefficients A, B, C of the maximum mould index A + B*x - C*x^2, per material class. */
const double MMAX_COEFFICIENTS[4][3] = {
	{ 1.0, 7, 2 },
	{ 0.3, 6, 1 },
	{ 0.0, 5, 1.5 },
	{ 0.0, 3, 1 }
};

/*! Growth factor k1 per sensitivity class: below mould index 1, and from 1 on. */
const double K1_FACTORS[4][2] = {
	{ 1,     2 },
	{ 0.578, 0.386 },
	{ 0.072, 0.097 },
	{ 0.033, 0.014 }
};

/*! Decline factor per decline class. */
const double DECLINE_FACTORS[4] = { 1.0, 0.5, 0.25, 0.1 };

/*! Critical humidity above 0 C and below 50 C, where it is 99.999 %. */
const double RHCRIT_OUTSIDE = 99.999;

/*! Critical relative humidity in % at T (C); kept inline for the hourly loop. */
inline double rhCritical(double T, double rhMin) {
	if (T <= 0 || T >= 50)
		return RHCRIT_OUTSIDE;
	if (T >= 20)
		return rhMin;
	return std::max(rhMin, ((-0.00267*T + 0.16)*T - 3.13)*T + 100);
}

} // namespace


ModelTwo2DViitanenMould::ModelTwo2DViitanenMould() :
	ModelTwo2DBase("d")
{
}


ZEB::Unit ModelTwo2DViitanenMould::valueUnit() const {
	return ZEB::Unit("-");
}


std::string ModelTwo2DViitanenMould::parameter() const {
	return "MC " + std::to_string(m_materialClass) + " SC " + std::to_string(m_sensitivityClass)
			+ " DC " + std::to_string(m_declineClass);
}


void ModelTwo2DViitanenMould::setFromParameter(const std::string & text) {
	FUNCID(ModelTwo2DViitanenMould::setFromParameter);
	int mc = m_materialClass;
	int sc = m_sensitivityClass;
	int dc = m_declineClass;
	for (const auto & kv : parameterPairs(text, "Invalid parameter string, eneven number of entries.", FUNC_ID)) {
		int * target = nullptr;
		if (kv.first == "MC")		target = &mc;
		else if (kv.first == "SC")	target = &sc;
		else if (kv.first == "DC")	target = &dc;
		else
			throw ZEB::Exception("Invalid parameter string, unknown key.", FUNC_ID);
		*target = parameterInteger(kv.second, 1, 4, "Invalid parameter, expected int number between 1 and 4.", FUNC_ID);
	}
	m_materialClass = mc;
	m_sensitivityClass = sc;
	m_declineClass = dc;
}


std::vector<ModelParameter> ModelTwo2DViitanenMould::parameterDescriptions() const {
	return {
		{ "MC", "Material class (1..4)", true, 1, 1, 4 },
		{ "SC", "Sensitivity class (1..4)", true, 1, 1, 4 },
		{ "DC", "Decline class (1..4)", true, 4, 1, 4 }
	};
}


double ModelTwo2DViitanenMould::criticalHumidity(double T, double rhMin) {
	return rhCritical(T, rhMin);
}


double ModelTwo2DViitanenMould::maximumIndex(double T, double RH, int materialClass) {
	const double rhMin = materialClass <= 2 ? 80 : 85;
	const double * c = MMAX_COEFFICIENTS[materialClass - 1];
	const double rhCrit = rhCritical(T, rhMin);
	const double x = (rhCrit - RH) / (rhCrit - 100);
	return std::max(0.0, c[0] + c[1]*x - c[2]*x*x);
}


void ModelTwo2DViitanenMould::mouldIndex(const std::vector<double> & T, const std::vector<double> & RH, std::vector<double> & M) const {
	const std::size_t n = std::min(T.size(), RH.size());
	M.assign(n, 0.0);
	if (n == 0)
		return;

	// everything that does not depend on the index is fixed before the loop
	const double rhMin = m_materialClass <= 2 ? 80 : 85;
	const double * mmax = MMAX_COEFFICIENTS[m_materialClass - 1];
	const double k1Below1 = K1_FACTORS[m_sensitivityClass - 1][0];
	const double k1From1 = K1_FACTORS[m_sensitivityClass - 1][1];
	const double decline = DECLINE_FACTORS[m_declineClass - 1];
	const double declineFast = (-0.032/24) * decline;
	const double declineSlow = (-0.016/24) * decline;

	double m = 0;
	unsigned int unfavourableHours = 0;
	// an hour without climate is skipped: the index and the count of unfavourable hours stay,
	// and the hour has no index
	const double absent = std::numeric_limits<double>::quiet_NaN();
	if (std::isnan(T[0]) || std::isnan(RH[0]))
		M[0] = absent;
	for (std::size_t i = 1; i < n; ++i) {
		const double t = T[i];
		const double rh = RH[i];
		if (std::isnan(t) || std::isnan(rh)) {
			M[i] = absent;
			continue;
		}
		const double rhCrit = rhCritical(t, rhMin);

		// the first unfavourable hour counts as 1, so the fast decline lasts five hours
		double d = 0;
		if (t < 0 || rh < rhCrit) {
			++unfavourableHours;
			if (unfavourableHours < 6)
				d = declineFast;
			else if (unfavourableHours >= 24)
				d = declineSlow;
		}
		else
			unfavourableHours = 0;

		double change = d;
		if (t > 0) {
			// the growth term takes the logarithm of RH whenever T > 0
			if (!(rh > 0))
				ZEB::f_log(rh);
			if (t >= 50)
				change = 0;
			else if (rh >= rhCrit) {
				// k2 = max(0, 1 - exp(2.3 (M - Mmax))) vanishes for M >= Mmax, and then so does
				// the growth: the logarithms and exponentials are only evaluated below Mmax
				const double x = (rhCrit - rh) / (rhCrit - 100);
				const double mMax = std::max(0.0, mmax[0] + mmax[1]*x - mmax[2]*x*x);
				change = 0;
				if (m < mMax) {
					const double k1 = m < 1 ? k1Below1 : k1From1;
					const double k2 = std::max(0.0, 1 - std::exp(2.3*(m - mMax)));
					change = (1.0/24) / (7*std::exp(66.02 - 13.9*std::log(rh) - 0.68*std::log(t))) * k1 * k2;
				}
			}
		}
		m += change;
		if (m < 0)
			m = 0;
		M[i] = m;
	}
}


void ModelTwo2DViitanenMould::compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) {
	if (gridResult(first, second, 1.0/24, x, y, m_T, m_RH))
		mouldIndex(m_T, m_RH, y.m_data);
}

} // namespace EM
