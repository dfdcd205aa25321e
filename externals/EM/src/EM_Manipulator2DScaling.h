#ifndef EM_Manipulator2DScalingH
#define EM_Manipulator2DScalingH

#include "EM_Manipulator2DBase.h"

namespace EM {

/*! Multiplies every y value by a factor (default 1). A factor of exactly 1 leaves the series
	untouched, bit for bit.
*/
class Manipulator2DScaling : public Manipulator2DBase {
public:
	ManipulatorType type() const override { return MT_2DScaling; }
	const char * typeKeyword() const override { return ManipulatorBase::typeKeyword(MT_2DScaling); }
	std::string parameter() const override;
	void setFromParameter(const std::string & text) override;

	double factor() const { return m_factor; }
	void setFactor(double factor) { m_factor = factor; }

protected:
	void applyToValues(double * y, std::size_t n) const override;

private:
	double	m_factor = 1;
};

} // namespace EM

#endif // EM_Manipulator2DScalingH
