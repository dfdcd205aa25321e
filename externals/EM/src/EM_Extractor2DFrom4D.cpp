#include "EM_Extractor2DFrom4D.h"

#include <ZEB_FunctionId.h>

namespace EM {

Extractor2DFrom4D::Extractor2DFrom4D(DATAIO::DataIO * dataIO, CutType cutType,
									   std::shared_ptr<const DATAIO::GeoFile> geometry) :
	Extractor2DFromFieldBase(dataIO, DATAIO::DataIO::DF_4D, cutType, geometry, "[Extractor2DFrom4D::Extractor2DFrom4D]")
{
}


bool Extractor2DFrom4D::canUpdate() {
	FUNCID(Extractor2DFrom4D::canUpdate);
	return canUpdateField("Mismatching data format (expected 4D). Has output data format changed?", FUNC_ID);
}


void Extractor2DFrom4D::doUpdate() {
	FUNCID(Extractor2DFrom4D::doUpdate);
	doUpdateField(FUNC_ID);
}

} // namespace EM
