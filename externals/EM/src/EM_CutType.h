#ifndef EM_CutTypeH
#define EM_CutTypeH

#include <string>

namespace EM {

/*! The dimensions of a container that an extractor can cut. The space dimensions X, Y, Z are
	the container's space indices in order (for a field of a 2D geometry in the x-z plane, X is
	the x direction and Y the z direction); the time dimension has the number 3.
*/
enum CutDimension {
	CD_X	= 0,
	CD_Y	= 1,
	CD_Z	= 2,
	CD_Time	= 3,
	NUM_CD	= 4
};

/*! A cut type names the dimensions that an extractor fixes (cuts); the dimensions that remain
	form its output. "NoCut" fixes nothing, "TimeCut" only the time, "XTCut" X and time, ...
*/
enum CutType {
	CT_NoCut,
	CT_TimeCut,
	CT_XCut,
	CT_YCut,
	CT_XYCut,
	CT_XZCut,
	CT_YZCut,
	CT_XTCut,
	CT_YTCut,
	CT_ZTCut,
	CT_XYZCut,
	CT_XYTCut,
	CT_XZTCut,
	CT_YZTCut,
	NUM_CT
};

/*! Keywords of the cut types and the dimensions each of them fixes. */
class CutTypes {
public:
	/*! The keyword of a cut type ("NoCut", "XTCut", ...); an empty text for NUM_CT. */
	static const char * keyword(CutType type);
	/*! The cut type of a keyword; NUM_CT for an unknown keyword. */
	static CutType fromKeyword(const std::string & keyword);
	/*! True when the cut type fixes the dimension (a CutDimension number). */
	static bool isCut(CutType type, unsigned int dimension);
	/*! Number of dimensions the cut type fixes. */
	static unsigned int cutCount(CutType type);
	/*! The dimension bits (1 << CutDimension) that the cut type fixes; 0 for NUM_CT. */
	static unsigned int dimensionMask(CutType type);
};

} // namespace EM

#endif // EM_CutTypeH
