#include "EM_Extractor3DFrom3D.h"

#include <ZEB_FunctionId.h>

namespace EM {

Extractor3DFrom3D::Extractor3DFrom3D(DATAIO::DataIO * dataIO, CutType cutType,
									   std::shared_ptr<const DATAIO::GeoFile> geometry) :
	Extractor3DFromFieldBase(dataIO, DATAIO::DataIO::DF_3D, cutType, geometry, "[Extractor3DFrom3D::Extractor3DFrom3D]")
{
}


bool Extractor3DFrom3D::canUpdate() {
	FUNCID(Extractor3DFrom3D::canUpdate);
	return canUpdateField("Mismatching data format (expected 3D). Has output data format changed?", FUNC_ID);
}


void Extractor3DFrom3D::doUpdate() {
	FUNCID(Extractor3DFrom3D::doUpdate);
	doUpdateField(FUNC_ID);
}

} // namespace EM
