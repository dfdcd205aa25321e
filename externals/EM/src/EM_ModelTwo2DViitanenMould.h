#ifndef EM_ModelTwo2DViitanenMouldH
#define EM_ModelTwo2DViitanenMouldH

#include <vector>

#include "EM_ModelTwo2DBase.h"

namespace EM {

/*! The VTT mould growth model: the mould index (0 = no growth ... 6 = heavy growth) of a
	surface from hourly temperature and relative humidity.

	Parameters: material class MC, sensitivity class SC and decline class DC, each 1..4
	(defaults 1, 1, 4). The result has the time unit "d" and the value unit "-".
*/
class ModelTwo2DViitanenMould : public ModelTwo2DBase {
public:
	ModelTwo2DViitanenMould();

	const char * typeKeyword() const override { return "VTTMouldModel"; }
	const char * title() const override { return "VTT Mould Index"; }
	std::string valueLabel() const override { return "Mould index"; }
	ZEB::Unit valueUnit() const override;
	std::string parameter() const override;
	void setFromParameter(const std::string & text) override;
	std::vector<ModelParameter> parameterDescriptions() const override;

	int materialClass() const { return m_materialClass; }
	int sensitivityClass() const { return m_sensitivityClass; }
	int declineClass() const { return m_declineClass; }

	/*! The mould index over hourly values T (in C) and RH (in %) of equal length: M[0] = 0,
		then one step per hour. Throws (ZEB::f_log) for RH <= 0 at a point with T > 0.
	*/
	void mouldIndex(const std::vector<double> & T, const std::vector<double> & RH, std::vector<double> & M) const;

	/*! Critical relative humidity in % at temperature T (C); rhMin is 80 or 85 by material class. */
	static double criticalHumidity(double T, double rhMin);
	/*! Largest mould index reachable at T (C) and RH (%) for a material class 1..4. */
	static double maximumIndex(double T, double RH, int materialClass);

protected:
	void compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) override;

private:
	int	m_materialClass = 1;
	int	m_sensitivityClass = 1;
	int	m_declineClass = 4;
	/*! The resampled inputs of the last calculation; their memory serves the next one. */
	std::vector<double>	m_T;
	std::vector<double>	m_RH;
};

} // namespace EM

#endif // EM_ModelTwo2DViitanenMouldH
