#ifndef EM_ModelTwo2DWTAWoodDegradationH
#define EM_ModelTwo2DWTAWoodDegradationH

#include <vector>

#include "EM_ClimateLimitCurve.h"
#include "EM_ModelPeriod.h"
#include "EM_ModelTwo2DBase.h"

namespace EM {

/*! Moisture assessment of timber after the WTA approach: the daily means of temperature and
	relative humidity are compared with a temperature-dependent limit of the relative humidity,
	above which wood-destroying fungi can be active.

	The limit is data (defaultLimit(): 95 % above 0 C; see the model documentation) and can be
	replaced with setLimit(). Parameters: TSH time shift in hours, TSD/TED first and last day of
	the period (negative: open). Only complete days (24 hourly grid points) within the period
	are evaluated. Result: the day's start in "d" (shifted time axis) and 1 when the day's mean
	climate reaches the limit, else 0 (unit "-").
*/
class ModelTwo2DWTAWoodDegradation : public ModelTwo2DBase {
public:
	ModelTwo2DWTAWoodDegradation();

	const char * typeKeyword() const override { return "WTAWoodDegradationModel"; }
	const char * title() const override { return "Probability of wood degradation"; }
	std::string valueLabel() const override { return "Daily mean above decay limit"; }
	ZEB::Unit valueUnit() const override;
	std::string parameter() const override;
	void setFromParameter(const std::string & text) override;
	std::vector<ModelParameter> parameterDescriptions() const override;

	const ModelPeriod & period() const { return m_period; }

	/*! 95 % relative humidity above 0 C, no decay at or below 0 C. */
	static ClimateLimitCurve defaultLimit();
	const ClimateLimitCurve & limit() const { return m_limit; }
	/*! Replaces the limit curve; throws for a curve without points. */
	void setLimit(const ClimateLimitCurve & limit);

	// results of the last calculation

	/*! Number of evaluated days whose mean climate reaches the limit. */
	unsigned int daysAboveLimit() const { return m_daysAboveLimit; }
	/*! Daily mean temperatures and humidities of the evaluated days. */
	const std::vector<double> & dailyTemperatures() const { return m_dailyTemperatures; }
	const std::vector<double> & dailyHumidities() const { return m_dailyHumidities; }

protected:
	void compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) override;

private:
	ModelPeriod			m_period;
	ClimateLimitCurve	m_limit;

	unsigned int		m_daysAboveLimit = 0;
	std::vector<double>	m_dailyTemperatures;
	std::vector<double>	m_dailyHumidities;
};

} // namespace EM

#endif // EM_ModelTwo2DWTAWoodDegradationH
