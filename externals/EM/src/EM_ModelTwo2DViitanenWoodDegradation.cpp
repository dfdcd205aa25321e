#include "EM_ModelTwo2DViitanenWoodDegradation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <ZEB_Exception.h>
#include <ZEB_UnitVector.h>

namespace EM {

namespace {

/*! Hours of unfavourable conditions for a full recession of the activation (two years). */
const double RECESSION_HOURS = 17520;

/*! Upper limit of the mass loss in %. */
const double MAX_MASS_LOSS = 100;

} // namespace


ModelTwo2DViitanenWoodDegradation::ModelTwo2DViitanenWoodDegradation() :
	ModelTwo2DBase("d")
{
}


ZEB::Unit ModelTwo2DViitanenWoodDegradation::valueUnit() const {
	return ZEB::Unit("-");
}


std::string ModelTwo2DViitanenWoodDegradation::parameter() const {
	return std::string("AC ") + (m_activationConsidered ? "1" : "0") + " IA " + (m_initiallyActivated ? "1" : "0");
}


void ModelTwo2DViitanenWoodDegradation::setFromParameter(const std::string & text) {
	FUNCID(ModelTwo2DViitanenWoodDegradation::setFromParameter);
	bool ac = m_activationConsidered;
	bool ia = m_initiallyActivated;
	for (const auto & kv : parameterPairs(text, "Invalid parameter string, uneven number of entries.", FUNC_ID)) {
		bool * target = nullptr;
		if (kv.first == "AC")		target = &ac;
		else if (kv.first == "IA")	target = &ia;
		else
			throw ZEB::Exception("Invalid parameter string, unknown key.", FUNC_ID);
		*target = parameterInteger(kv.second, 0, 1, "Invalid parameter, expected int number of 0 or 1.", FUNC_ID) == 1;
	}
	m_activationConsidered = ac;
	m_initiallyActivated = ia;
}


std::vector<ModelParameter> ModelTwo2DViitanenWoodDegradation::parameterDescriptions() const {
	return {
		{ "AC", "Activation considered (0 or 1)", true, 1, 0, 1 },
		{ "IA", "Initially activated (0 or 1)", true, 0, 0, 1 }
	};
}


double ModelTwo2DViitanenWoodDegradation::criticalTime(double T, double RH) {
	// the sign of the 0.14*T term in the denominator is positive on purpose
	return (0.035*RH + 2.3*T - 0.024*T*RH) / (0.14*T - 42.9 + 0.45*RH) * 720;
}


void ModelTwo2DViitanenWoodDegradation::massLoss(const std::vector<double> & t, const std::vector<double> & T,
	const std::vector<double> & RH, std::vector<double> & L) const
{
	const std::size_t n = std::min(t.size(), std::min(T.size(), RH.size()));
	L.assign(n, 0.0);
	if (n == 0)
		return;
	const double threshold = m_activationConsidered ? 1 : 0;
	double activation = m_initiallyActivated ? 1 : 0;
	double loss = 0;
	for (std::size_t i = 1; i < n; ++i) {
		const double dh = (t[i] - t[i-1]) * 24;
		const double ti = T[i];
		const double rhi = RH[i];
		// an hour without climate is skipped: activation and mass loss stay, the hour has none
		if (std::isnan(ti) || std::isnan(rhi)) {
			L[i] = std::numeric_limits<double>::quiet_NaN();
			continue;
		}
		double a = activation;
		if (ti > 0 && rhi > 95)
			a += dh / criticalTime(ti, rhi);
		else
			a -= dh / RECESSION_HOURS;
		// 0/0 (critical time undefined) brings no change of the activation
		if (std::isnan(a))
			a = activation;
		activation = std::min(1.0, std::max(0.0, a));
		if (activation >= threshold) {
			loss += std::max(0.0, (0.000196*ti - 0.0596 + 0.000625*rhi) * dh);
			if (loss > MAX_MASS_LOSS)
				loss = MAX_MASS_LOSS;
		}
		L[i] = loss;
	}
}


void ModelTwo2DViitanenWoodDegradation::compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) {
	if (gridResult(first, second, 1.0/24, x, y, m_T, m_RH))
		massLoss(x.m_data, m_T, m_RH, y.m_data);
}

} // namespace EM
