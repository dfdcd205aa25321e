#include "EM_Extractor2DFrom5D.h"

#include <ZEB_FunctionId.h>

namespace EM {

Extractor2DFrom5D::Extractor2DFrom5D(DATAIO::DataIO * dataIO, CutType cutType,
									   std::shared_ptr<const DATAIO::GeoFile> geometry) :
	Extractor2DFromFieldBase(dataIO, DATAIO::DataIO::DF_5D, cutType, geometry, "[Extractor2DFrom5D::Extractor2DFrom5D]")
{
}


bool Extractor2DFrom5D::canUpdate() {
	FUNCID(Extractor2DFrom5D::canUpdate);
	return canUpdateField("Mismatching data format (expected 5D). Has output data format changed?", FUNC_ID);
}


void Extractor2DFrom5D::doUpdate() {
	FUNCID(Extractor2DFrom5D::doUpdate);
	doUpdateField(FUNC_ID);
}

} // namespace EM
