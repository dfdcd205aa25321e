#ifndef EM_Extractor3DFrom4DH
#define EM_Extractor3DFrom4DH

#include "EM_Extractor3DFromFieldBase.h"

namespace EM {

/*! Extracts a 3D field from a 4D container:
	TimeCut: X (x) and Y (y) at one time point; XCut: time (x) and Y (y) at one X cell; YCut: time (x)
	and X (y) at one Y cell.
*/
class Extractor3DFrom4D : public Extractor3DFromFieldBase {
public:
	/*! Throws when the cut type does not leave exactly two dimensions. The geometry, when given,
		replaces the container's embedded one.
	*/
	Extractor3DFrom4D(DATAIO::DataIO * dataIO, CutType cutType,
					   std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr);

	/*! The common checks, then data format 4D and geometry. */
	bool canUpdate() override;

protected:
	void doUpdate() override;
};

} // namespace EM

#endif // EM_Extractor3DFrom4DH
