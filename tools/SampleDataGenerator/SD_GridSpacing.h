#ifndef SD_GridSpacingH
#define SD_GridSpacingH

#include <vector>

namespace SD {

/*! Non-uniform element widths as simulation grids use them: fine where gradients are steep
	(surfaces and material interfaces), coarser elsewhere.
*/
class GridSpacing {
public:
	/*! count widths that add up to length, finest at both ends and coarsest in the middle: the
		positions follow x(s) = s - c sin(2 pi s)/(2 pi), whose slope 1 - c cos(2 pi s) makes the
		outer widths about (1 - c)/(1 + c) times the middle ones. clustering c lies in [0, 1).
	*/
	static std::vector<double> symmetric(double length, unsigned int count, double clustering);

	/*! count widths that add up to length, growing from the first one by the factor ratio from
		element to element (fine at the start, coarse at the end).
	*/
	static std::vector<double> graded(double length, unsigned int count, double ratio);
};

} // namespace SD

#endif // SD_GridSpacingH
