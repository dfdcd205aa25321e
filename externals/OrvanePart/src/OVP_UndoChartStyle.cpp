#include "OVP_UndoChartStyle.h"

#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

UndoChartStyle::UndoChartStyle(ProjectHandler & handler, int mapperIndex, ChartModelSnapshot before,
							   ChartModelSnapshot after, const QString & styleName) :
	UndoCommand(handler, ProjectHandler::tr("apply chart style '%1'").arg(styleName), false),
	m_mapperIndex(mapperIndex),
	m_before(std::move(before)),
	m_after(std::move(after))
{
}


void UndoChartStyle::doRedo() {
	if (m_applied)
		restore(m_after);
	m_applied = true;
}


void UndoChartStyle::restore(const ChartModelSnapshot & snapshot) {
	Mapper * m = mappers().mapper(m_mapperIndex);
	snapshot.restore(*m);
	handler().setModified(ProjectHandler::ChartModified, m);
}

} // namespace OVP
