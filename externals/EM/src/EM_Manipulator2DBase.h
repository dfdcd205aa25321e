#ifndef EM_Manipulator2DBaseH
#define EM_Manipulator2DBaseH

#include <cstddef>

#include "EM_ManipulatorBase.h"

namespace EM {

/*! Base of the manipulators of 2D series (x values and y values).
	apply() changes only the y values; the number of points is that of the x series, and a
	y series shorter than that is refused instead of being read past its end.
*/
class Manipulator2DBase : public ManipulatorBase {
public:
	void apply(ZEB::UnitVector & x, ZEB::UnitVector & y) const override;

protected:
	/*! Changes the first n y values in place; called only for n > 0. */
	virtual void applyToValues(double * y, std::size_t n) const = 0;
};

} // namespace EM

#endif // EM_Manipulator2DBaseH
