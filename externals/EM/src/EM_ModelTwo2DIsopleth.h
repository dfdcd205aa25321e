#ifndef EM_ModelTwo2DIsoplethH
#define EM_ModelTwo2DIsoplethH

#include <vector>

#include "EM_ClimateLimitCurve.h"
#include "EM_ModelPeriod.h"
#include "EM_ModelTwo2DBase.h"

namespace EM {

/*! Germination isopleths: evaluates, hour by hour within a period, which isopleth lines the
	climate reaches and accumulates per line the time spent at or above it.

	The lines, shortest germination time first and the germination limit last, are data
	(defaultLines(): approximations of published isopleths for building materials; see the
	model documentation) and can be replaced with setLines(), for example by the lines of
	another substrate class.

	Parameters: TSH time shift in hours, TSD/TED first and last day of the period (negative:
	open), TAH averaging window in hours (trailing mean of T and RH; 1 or less: none).
	Result: time in "h" (shifted) and the accumulated days at or above the limit line ("d").
*/
class ModelTwo2DIsopleth : public ModelTwo2DBase {
public:
	/*! Template of the summary: days at or above the limit line, longest period there in hours. */
	static const char * const SUMMARY_TEMPLATE;

	ModelTwo2DIsopleth();

	const char * typeKeyword() const override { return "IsoplethModel"; }
	const char * title() const override { return "Isopleth"; }
	std::string valueLabel() const override { return "Days above germination limit"; }
	ZEB::Unit valueUnit() const override;
	std::string parameter() const override;
	void setFromParameter(const std::string & text) override;
	std::vector<ModelParameter> parameterDescriptions() const override;

	const ModelPeriod & period() const { return m_period; }
	double averagingHours() const { return m_averagingHours; }

	/*! The six default lines: germination within 1, 2, 4, 8, 16 days and the limit. */
	static std::vector<ClimateLimitCurve> defaultLines();
	const std::vector<ClimateLimitCurve> & lines() const { return m_lines; }
	/*! Name of the line set in use, e.g. the substrate class of a table the user loaded; empty
		for the default lines. */
	const std::string & linesName() const { return m_linesName; }
	/*! Replaces the lines (shortest germination time first, the limit last) and names the set;
		no lines and the empty name restore the default lines. Throws for a line without points
		and for lines without a name. */
	void setLines(const std::vector<ClimateLimitCurve> & lines, const std::string & name);

	// results of the last calculation

	/*! Hours at or above each line within the period. */
	const std::vector<double> & hoursAbove() const { return m_hoursAbove; }
	/*! Days at or above the limit line (the last line). */
	double riskDays() const;
	/*! Longest uninterrupted period at or above the limit line, in hours. */
	double maxRiskPeriodHours() const { return m_maxRiskPeriodHours; }
	/*! The evaluated climate points (after averaging) within the period. */
	const std::vector<double> & temperatures() const { return m_temperatures; }
	const std::vector<double> & humidities() const { return m_humidities; }
	/*! SUMMARY_TEMPLATE filled with riskDays() and maxRiskPeriodHours(). */
	std::string summary() const;

protected:
	void compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) override;

private:
	ModelPeriod						m_period;
	double							m_averagingHours = 0;
	std::vector<ClimateLimitCurve>	m_lines;
	std::string						m_linesName;

	std::vector<double>				m_hoursAbove;
	double							m_maxRiskPeriodHours = 0;
	std::vector<double>				m_temperatures;
	std::vector<double>				m_humidities;
};

} // namespace EM

#endif // EM_ModelTwo2DIsoplethH
