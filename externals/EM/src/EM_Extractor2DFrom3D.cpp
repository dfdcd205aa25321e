#include "EM_Extractor2DFrom3D.h"

#include <ZEB_FunctionId.h>

namespace EM {

Extractor2DFrom3D::Extractor2DFrom3D(DATAIO::DataIO * dataIO, CutType cutType,
									   std::shared_ptr<const DATAIO::GeoFile> geometry) :
	Extractor2DFromFieldBase(dataIO, DATAIO::DataIO::DF_3D, cutType, geometry, "[Extractor2DFrom3D::Extractor2DFrom3D]")
{
}


bool Extractor2DFrom3D::canUpdate() {
	FUNCID(Extractor2DFrom3D::canUpdate);
	return canUpdateField("Mismatching data format (expected 3D). Has output data format changed?", FUNC_ID);
}


void Extractor2DFrom3D::doUpdate() {
	FUNCID(Extractor2DFrom3D::doUpdate);
	doUpdateField(FUNC_ID);
}

} // namespace EM
