#ifndef EM_Manipulator2DOffsetH
#define EM_Manipulator2DOffsetH

#include "EM_Manipulator2DBase.h"

namespace EM {

/*! Adds an offset to every y value (default 0). An offset of exactly 0 leaves the series
	untouched, bit for bit (adding 0 would turn -0 into +0).
*/
class Manipulator2DOffset : public Manipulator2DBase {
public:
	ManipulatorType type() const override { return MT_2DOffset; }
	const char * typeKeyword() const override { return ManipulatorBase::typeKeyword(MT_2DOffset); }
	std::string parameter() const override;
	void setFromParameter(const std::string & text) override;

	double offset() const { return m_offset; }
	void setOffset(double offset) { m_offset = offset; }

protected:
	void applyToValues(double * y, std::size_t n) const override;

private:
	double	m_offset = 0;
};

} // namespace EM

#endif // EM_Manipulator2DOffsetH
