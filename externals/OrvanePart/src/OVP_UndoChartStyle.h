#ifndef OVP_UndoChartStyleH
#define OVP_UndoChartStyleH

#include "OVP_ChartModelSnapshot.h"
#include "OVP_UndoCommand.h"

namespace OVP {

/*! A chart style applied to a chart: the chart's display properties before and after. The style
	is applied before the command is made (see ProjectHandler::applyChartStyle()), so the first
	redo() finds it done.
*/
class UndoChartStyle : public UndoCommand {
public:
	/*! The style named styleName applied to the chart of the mapper at mapperIndex. */
	UndoChartStyle(ProjectHandler & handler, int mapperIndex, ChartModelSnapshot before, ChartModelSnapshot after,
				   const QString & styleName);

protected:
	void doRedo() override;
	void doUndo() override { restore(m_before); }

private:
	/*! Gives the chart the properties of a snapshot and announces the change. */
	void restore(const ChartModelSnapshot & snapshot);

	int					m_mapperIndex;
	ChartModelSnapshot	m_before;
	ChartModelSnapshot	m_after;
	/*! False until the first redo(), which has nothing to do. */
	bool				m_applied = false;
};

} // namespace OVP

#endif // OVP_UndoChartStyleH
