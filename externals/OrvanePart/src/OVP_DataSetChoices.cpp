#include "OVP_DataSetChoices.h"

#include <DATAIO_DataIO.h>

#include <EM_ExtractorBase.h>
#include <EM_ExtractorFactory.h>

#include <ZEB_Exception.h>

#include "OVP_Mapper.h"

namespace OVP {

DataSetChoices::DataSetChoices(const Mapper & mapper, unsigned int index) {
	FUNCID(DataSetChoices::DataSetChoices);
	const Mapper::ExtractorEntry & entry = mapper.entryAt(index, FUNC_ID);
	const DATAIO::DataIO & dataIO = *entry.m_dataIOs.front();
	if (entry.m_dataIOs.size() > 1 || dataIO.dataFormat() == DATAIO::DataIO::DF_2D) {
		m_cutTypes.push_back(EM::CT_NoCut);
		return;
	}
	m_cutTypes = EM::ExtractorFactory::validCutTypes(dataIO.dataFormat(), dataIO.type(), entry.m_extractor->outputKind());
	m_cut.reset(new CutOptions(dataIO, entry.m_extractor->geoFile()));
}

} // namespace OVP
