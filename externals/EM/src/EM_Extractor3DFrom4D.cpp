#include "EM_Extractor3DFrom4D.h"

#include <ZEB_FunctionId.h>

namespace EM {

Extractor3DFrom4D::Extractor3DFrom4D(DATAIO::DataIO * dataIO, CutType cutType,
									   std::shared_ptr<const DATAIO::GeoFile> geometry) :
	Extractor3DFromFieldBase(dataIO, DATAIO::DataIO::DF_4D, cutType, geometry, "[Extractor3DFrom4D::Extractor3DFrom4D]")
{
}


bool Extractor3DFrom4D::canUpdate() {
	FUNCID(Extractor3DFrom4D::canUpdate);
	return canUpdateField("Mismatching data format (expected 4D). Has output data format changed?", FUNC_ID);
}


void Extractor3DFrom4D::doUpdate() {
	FUNCID(Extractor3DFrom4D::doUpdate);
	doUpdateField(FUNC_ID);
}

} // namespace EM
