#ifndef EM_Extractor2DFrom5DH
#define EM_Extractor2DFrom5DH

#include "EM_Extractor2DFromFieldBase.h"

namespace EM {

/*! Extracts a 2D series from a 5D container (time and space dimensions X, Y, Z): XYZCut gives
	the time series of one cell, XYTCut the profile over Z, XZTCut over Y and YZTCut over X at
	one time point.
*/
class Extractor2DFrom5D : public Extractor2DFromFieldBase {
public:
	/*! Throws when the cut type does not leave exactly one dimension. The geometry, when given,
		replaces the container's embedded one.
	*/
	Extractor2DFrom5D(DATAIO::DataIO * dataIO, CutType cutType,
					   std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr);

	/*! The common checks, then data format 5D, geometry and target x unit. */
	bool canUpdate() override;

protected:
	void doUpdate() override;
};

} // namespace EM

#endif // EM_Extractor2DFrom5DH
