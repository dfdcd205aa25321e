#include "EM_Extractor3DFrom5D.h"

#include <ZEB_FunctionId.h>

namespace EM {

Extractor3DFrom5D::Extractor3DFrom5D(DATAIO::DataIO * dataIO, CutType cutType,
									   std::shared_ptr<const DATAIO::GeoFile> geometry) :
	Extractor3DFromFieldBase(dataIO, DATAIO::DataIO::DF_5D, cutType, geometry, "[Extractor3DFrom5D::Extractor3DFrom5D]")
{
}


bool Extractor3DFrom5D::canUpdate() {
	FUNCID(Extractor3DFrom5D::canUpdate);
	return canUpdateField("Mismatching data format (expected 5D). Has output data format changed?", FUNC_ID);
}


void Extractor3DFrom5D::doUpdate() {
	FUNCID(Extractor3DFrom5D::doUpdate);
	doUpdateField(FUNC_ID);
}

} // namespace EM
