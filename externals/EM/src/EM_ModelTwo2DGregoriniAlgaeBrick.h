#ifndef EM_ModelTwo2DGregoriniAlgaeBrickH
#define EM_ModelTwo2DGregoriniAlgaeBrickH

#include <vector>

#include "EM_ModelTwo2DBase.h"

namespace EM {

/*! Algae growth on brick surfaces after the modified Avrami law of Quagliarini, Gianangeli,
	D'Orazio, Gregorini et al.: the covered fraction of a façade from daily mean temperature and
	relative humidity, with material quantities from the porosity and surface roughness.

	Parameters: PO porosity (fraction 0..1, default 0.25), RV surface roughness Ra in µm
	(default 2.95). The total pore area S is the brick reference value TOTAL_PORE_AREA.
	The hourly grid is averaged day by day (24 grid points from the grid start) and the model
	steps once a day. Result: time in "d" (grid start, then the end of each complete day) and
	the covered area in % (unit "%").
*/
class ModelTwo2DGregoriniAlgaeBrick : public ModelTwo2DBase {
public:
	/*! Total pore area S of brick in m2/g. */
	static const double TOTAL_PORE_AREA;

	ModelTwo2DGregoriniAlgaeBrick();

	const char * typeKeyword() const override { return "AlgaeGrowModelBrick"; }
	const char * title() const override { return "Algae coverage area"; }
	/*! Title of the series of maximumCoverage(). */
	static const char * maximumCoverageTitle() { return "Maximum possible algae coverage area fractile"; }
	std::string valueLabel() const override { return "Algae coverage area percentage"; }
	ZEB::Unit valueUnit() const override;
	std::string parameter() const override;
	void setFromParameter(const std::string & text) override;
	std::vector<ModelParameter> parameterDescriptions() const override;
	/*! Short display of the parameters: "CT <porosity>  MC <roughness>". */
	std::string parameterCaption() const;

	double porosity() const { return m_porosity; }
	double roughness() const { return m_roughness; }

	/*! Delay t1 in days before growth can start, from the roughness Ra in µm. */
	static double delayTime(double roughness);
	/*! Maximum covered area fraction Ac/At from porosity and roughness. */
	static double areaRatio(double porosity, double roughness);
	/*! Growth rate K from porosity and total pore area S. */
	static double growthRate(double porosity, double totalPoreArea);
	/*! Temperature factors of the maximum coverage (tauA) and of the growth rate (tauK) at the
		daily mean temperature T in C, each within [0, 1].
	*/
	static double tauA(double T, double porosity, double roughness);
	static double tauK(double T, double porosity, double roughness);
	/*! Time offset that restarts the growth curve at the coverage X of day t - 1:
		(-ln(1 - X/Xmax) / rate)^(1/4) - (t - 1 - t1), rate = tauK*K. Throws "Invalid values."
		unless 0 <= X < Xmax and rate > 0.
	*/
	static double getShiftValue(double X, double Xmax, double rate, double t, double t1);

	/*! Coverage fractions of days 1..n from daily mean T (C) and RH (fraction); X[0] is the
		start (0), X[j] the coverage after day j; Xmax[j] the largest possible coverage of day j
		(Xmax[0] = 0).
	*/
	void dailyCoverage(const std::vector<double> & T, const std::vector<double> & RH,
					   std::vector<double> & X, std::vector<double> & Xmax) const;

	/*! Result of the last calculation: the largest possible coverage in % on the result's time
		points.
	*/
	const std::vector<double> & maximumCoverage() const { return m_maximumCoverage; }

protected:
	void compute(const TimeSeries & first, const TimeSeries & second, ZEB::UnitVector & x, ZEB::UnitVector & y) override;

private:
	double				m_porosity = 0.25;
	double				m_roughness = 2.95;
	std::vector<double>	m_maximumCoverage;
};

} // namespace EM

#endif // EM_ModelTwo2DGregoriniAlgaeBrickH
