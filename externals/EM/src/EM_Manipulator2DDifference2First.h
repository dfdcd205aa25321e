#ifndef EM_Manipulator2DDifference2FirstH
#define EM_Manipulator2DDifference2FirstH

#include "EM_Manipulator2DBase.h"

namespace EM {

/*! Shows each y value as its difference to the first present one, so that the series starts
	at 0. Gaps (NaN) stay gaps, and a series that starts with gaps is measured from its first
	present value. Has no parameter.
*/
class Manipulator2DDifference2First : public Manipulator2DBase {
public:
	ManipulatorType type() const override { return MT_2DDifference2First; }
	const char * typeKeyword() const override { return ManipulatorBase::typeKeyword(MT_2DDifference2First); }
	/*! Always empty. */
	std::string parameter() const override { return std::string(); }
	/*! Accepts any text: there is nothing to set. */
	void setFromParameter(const std::string &) override {}

protected:
	void applyToValues(double * y, std::size_t n) const override;
};

} // namespace EM

#endif // EM_Manipulator2DDifference2FirstH
