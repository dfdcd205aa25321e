#include "SD_Material.h"

namespace SD {

Material::Material(std::uint32_t id, const std::string & name, double conductivity, double density,
				   double heatCapacity, double vapourResistance, double freeWaterSaturation, double moistureAt80) :
	m_id(id),
	m_name(name),
	m_conductivity(conductivity),
	m_density(density),
	m_heatCapacity(heatCapacity),
	m_vapourResistance(vapourResistance),
	m_freeWaterSaturation(freeWaterSaturation)
{
	// w80 (b - 0.8) = wf (b - 1) 0.8  solved for b
	m_sorptionB = 0.8*(freeWaterSaturation - moistureAt80)/(0.8*freeWaterSaturation - moistureAt80);
}


Material Material::exteriorRender() {
	return Material(11, "Lime-cement render", 0.8, 1900, 850, 15, 280, 35);
}


Material Material::solidBrick() {
	return Material(12, "Solid brick", 0.6, 1800, 850, 10, 190, 4.5);
}


Material Material::calciumSilicate() {
	return Material(13, "Calcium silicate board", 0.065, 250, 1000, 6, 850, 6);
}


Material Material::limePlaster() {
	return Material(14, "Lime plaster", 0.7, 1600, 850, 7, 280, 12);
}


double Material::moistureContent(double relHum) const {
	return m_freeWaterSaturation*(m_sorptionB - 1.0)*relHum/(m_sorptionB - relHum);
}

} // namespace SD
