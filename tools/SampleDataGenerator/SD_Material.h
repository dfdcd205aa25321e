#ifndef SD_MaterialH
#define SD_MaterialH

#include <cstdint>
#include <string>

namespace SD {

/*! A building material with the properties the sample constructions need: heat conduction and
	storage, vapour diffusion resistance and a moisture storage function.
*/
class Material {
public:
	Material(std::uint32_t id, const std::string & name, double conductivity, double density,
			 double heatCapacity, double vapourResistance, double freeWaterSaturation, double moistureAt80);

	/*! Lime-cement exterior render. */
	static Material exteriorRender();
	/*! Solid clay brick masonry. */
	static Material solidBrick();
	/*! Capillary-active calcium silicate interior insulation board. */
	static Material calciumSilicate();
	/*! Lime interior plaster. */
	static Material limePlaster();

	std::uint32_t id() const { return m_id; }
	const std::string & name() const { return m_name; }
	/*! Thermal conductivity in W/mK. */
	double conductivity() const { return m_conductivity; }
	/*! Volumetric heat capacity in J/m3K. */
	double volumetricHeatCapacity() const { return m_density*m_heatCapacity; }
	/*! Vapour diffusion resistance factor (mu), dimensionless. */
	double vapourResistance() const { return m_vapourResistance; }
	/*! Moisture content in kg/m3 at free water saturation. */
	double freeWaterSaturation() const { return m_freeWaterSaturation; }

	/*! Moisture mass density in kg/m3 at a relative humidity given as fraction (0..1): the
		sorption isotherm w = wf (b - 1) phi / (b - phi), with b chosen so that it passes through
		the moisture content at 80 % given to the constructor.
	*/
	double moistureContent(double relHum) const;

private:
	std::uint32_t	m_id;
	std::string		m_name;
	double			m_conductivity;
	double			m_density;				///< kg/m3
	double			m_heatCapacity;			///< J/kgK
	double			m_vapourResistance;
	double			m_freeWaterSaturation;
	double			m_sorptionB;			///< shape factor b of the isotherm
};

} // namespace SD

#endif // SD_MaterialH
