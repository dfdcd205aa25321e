#include "EM_Extractor2DFrom2D.h"

#include <DATAIO_DataIO.h>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageHandler.h>

namespace EM {

Extractor2DFrom2D::Extractor2DFrom2D(DATAIO::DataIO * dataIO) :
	Extractor2DOutputBase(std::vector<DATAIO::DataIO *>(1, dataIO), CT_NoCut, CD_Time)
{
}


bool Extractor2DFrom2D::canUpdate() {
	FUNCID(Extractor2DFrom2D::canUpdate);
	if (!Extractor2DOutputBase::canUpdate())
		return false;
	if (m_dataIOs.front()->dataFormat() != DATAIO::DataIO::DF_2D) {
		ZEB::reportError("Mismatching data format (expected 2D). Has output data format changed?", FUNC_ID);
		return false;
	}
	return checkTargetXUnit(FUNC_ID);
}


void Extractor2DFrom2D::doUpdate() {
	FUNCID(Extractor2DFrom2D::doUpdate);
	extractAndManipulate([this]() { columnSeries(*m_dataIOs.front(), 0, m_x, m_y); }, FUNC_ID);
}

} // namespace EM
