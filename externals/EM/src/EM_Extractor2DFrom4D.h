#ifndef EM_Extractor2DFrom4DH
#define EM_Extractor2DFrom4DH

#include "EM_Extractor2DFromFieldBase.h"

namespace EM {

/*! Extracts a 2D series from a 4D container (time and space dimensions X, Y): XYCut gives the
	time series of one cell, XTCut the profile over Y and YTCut the profile over X at one time
	point.
*/
class Extractor2DFrom4D : public Extractor2DFromFieldBase {
public:
	/*! Throws when the cut type does not leave exactly one dimension. The geometry, when given,
		replaces the container's embedded one.
	*/
	Extractor2DFrom4D(DATAIO::DataIO * dataIO, CutType cutType,
					   std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr);

	/*! The common checks, then data format 4D, geometry and target x unit. */
	bool canUpdate() override;

protected:
	void doUpdate() override;
};

} // namespace EM

#endif // EM_Extractor2DFrom4DH
