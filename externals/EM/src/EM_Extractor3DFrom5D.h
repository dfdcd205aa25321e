#ifndef EM_Extractor3DFrom5DH
#define EM_Extractor3DFrom5DH

#include "EM_Extractor3DFromFieldBase.h"

namespace EM {

/*! Extracts a 3D field from a 5D container:
	ZTCut: X (x) and Y (y), YTCut: X and Z, XTCut: Y and Z, each at one time point and one cell of the
	third space dimension; XYCut: time (x) and Z (y), XZCut: time and Y, YZCut: time and X.
*/
class Extractor3DFrom5D : public Extractor3DFromFieldBase {
public:
	/*! Throws when the cut type does not leave exactly two dimensions. The geometry, when given,
		replaces the container's embedded one.
	*/
	Extractor3DFrom5D(DATAIO::DataIO * dataIO, CutType cutType,
					   std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr);

	/*! The common checks, then data format 5D and geometry. */
	bool canUpdate() override;

protected:
	void doUpdate() override;
};

} // namespace EM

#endif // EM_Extractor3DFrom5DH
