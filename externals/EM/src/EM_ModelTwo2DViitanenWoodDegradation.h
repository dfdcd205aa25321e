#ifndef EM_ModelTwo2DViitanenWoodDegradationH
#define EM_ModelTwo2DViitanenWoodDegradationH

#include <vector>

#include "EM_ModelTwo2DBase.h"

namespace EM {

/*! The VTT wood decay model: activation of brown-rot decay and the resulting mass loss of wood
	(in %) from hourly temperature and relative humidity.

	Parameters: AC (activation considered: mass loss waits for full activation), IA (initially
	activated: the activation starts at 1), each 0 or 1 (defaults AC 1, IA 0). The result has
	the time unit "d" and the mass loss as values with the unit "-".
*/
class ModelTwo2DViitanenWoodDegradation : public ModelTwo2DBase {
public:
	ModelTwo2DViitanenWoodDegradation();

	const char * typeKeyword() const override { return "VTTWoodDegradation"; }
	const char * title() const override { return "VTT percentage of wood degradation"; }
	std::string valueLabel() const override { return "Wood degradation"; }
	ZEB::Unit valueUnit() const override;
	std::string parameter() const override;
	void setFromParameter(const std::string & text) override;
	std::vector<ModelParameter> parameterDescriptions() const override;

	bool activationConsidered() const { return m_activationConsidered; }
	bool initiallyActivated() const { return m_initiallyActivated; }

	/*! Mass loss over time points t (in d) with T (C) and RH (%), all of equal length. */
	void massLoss(const std::vector<double> & t, const std::vector<double> & T, const std::vector<double> & RH,
				  std::vector<double> & L) const;

	/*! Critical time in hours until activation at constant T (C) and RH (%). */
	static double criticalTime(double T, double RH);

protected:
	void compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) override;

private:
	bool	m_activationConsidered = true;
	bool	m_initiallyActivated = false;
	/*! The resampled inputs of the last calculation; their memory serves the next one. */
	std::vector<double>	m_T;
	std::vector<double>	m_RH;
};

} // namespace EM

#endif // EM_ModelTwo2DViitanenWoodDegradationH
