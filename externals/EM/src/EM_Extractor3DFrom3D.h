#ifndef EM_Extractor3DFrom3DH
#define EM_Extractor3DFrom3DH

#include "EM_Extractor3DFromFieldBase.h"

namespace EM {

/*! Extracts a 3D field from a 3D container:
	NoCut: the whole container over time (x) and X (y), e.g. a wall over time.
*/
class Extractor3DFrom3D : public Extractor3DFromFieldBase {
public:
	/*! Throws when the cut type does not leave exactly two dimensions. The geometry, when given,
		replaces the container's embedded one.
	*/
	Extractor3DFrom3D(DATAIO::DataIO * dataIO, CutType cutType,
					   std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr);

	/*! The common checks, then data format 3D and geometry. */
	bool canUpdate() override;

protected:
	void doUpdate() override;
};

} // namespace EM

#endif // EM_Extractor3DFrom3DH
