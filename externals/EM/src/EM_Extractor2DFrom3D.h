#ifndef EM_Extractor2DFrom3DH
#define EM_Extractor2DFrom3DH

#include "EM_Extractor2DFromFieldBase.h"

namespace EM {

/*! Extracts a 2D series from a 3D container (time and one space dimension X): XCut gives the
	time series at one position, TimeCut the profile over X at one time point (x in a length
	unit).
*/
class Extractor2DFrom3D : public Extractor2DFromFieldBase {
public:
	/*! Throws when the cut type does not leave exactly one dimension. The geometry, when given,
		replaces the container's embedded one.
	*/
	Extractor2DFrom3D(DATAIO::DataIO * dataIO, CutType cutType,
					   std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr);

	/*! The common checks, then data format 3D, geometry and target x unit. */
	bool canUpdate() override;

protected:
	void doUpdate() override;
};

} // namespace EM

#endif // EM_Extractor2DFrom3DH
