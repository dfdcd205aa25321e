#ifndef EM_ModelTwo2DParametricFunctionH
#define EM_ModelTwo2DParametricFunctionH

#include "EM_ModelPeriod.h"
#include "EM_ModelTwo2DBase.h"

namespace EM {

/*! Combines two data sets as a parametric function: the relative humidity plotted over the
	temperature, one point per hour of the common grid within a period.

	Parameters: TSH time shift in hours, TSD/TED first and last day of the period on the
	shifted time axis (negative: open), TAH averaging window in hours (trailing mean of both
	series; 1 or less: none), TH threshold in % RH (only hours with a relative humidity at or
	above it are kept; 0 or less: all). Result: x the temperatures ("C"), y the relative
	humidities ("%").
*/
class ModelTwo2DParametricFunction : public ModelTwo2DBase {
public:
	ModelTwo2DParametricFunction();

	const char * typeKeyword() const override { return "ParametricFunction"; }
	const char * title() const override { return "Combining two data sets as parametric function"; }
	std::string valueLabel() const override { return "Relative humidity"; }
	ZEB::Unit valueUnit() const override;
	std::string parameter() const override;
	void setFromParameter(const std::string & text) override;
	std::vector<ModelParameter> parameterDescriptions() const override;

	const ModelPeriod & period() const { return m_period; }
	double averagingHours() const { return m_averagingHours; }
	double threshold() const { return m_threshold; }

protected:
	void compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) override;
	/*! "wrong data setting for parametric functions". */
	std::string inputUnitsMessage(const TimeSeries & first, const TimeSeries & second) const override;

private:
	ModelPeriod	m_period;
	double		m_averagingHours = 0;
	double		m_threshold = 0;
};

} // namespace EM

#endif // EM_ModelTwo2DParametricFunctionH
