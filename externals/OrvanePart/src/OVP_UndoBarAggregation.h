#ifndef OVP_UndoBarAggregationH
#define OVP_UndoBarAggregationH

#include <QCoreApplication>

#include "OVP_BarAggregation.h"
#include "OVP_UndoCommand.h"

namespace OVP {

/*! The change of the aggregation settings of a bar chart (period, statistic, threshold), e.g.
	"change bar period of 'Mould index'". The left axis takes the unit it had before and after
	the change, so that undoing a switch between values and counted days brings back a unit the
	user had chosen.
*/
class UndoBarAggregation : public UndoCommand {
	Q_DECLARE_TR_FUNCTIONS(UndoBarAggregation)
public:
	/*! Pushes the change of the bar chart of the mapper at mapperIndex to settings onto the undo
		stack of handler, unless they are the current ones. Throws ZEB::Exception for a bad
		mapper index and a chart that is no bar chart.
	*/
	static void push(ProjectHandler & handler, int mapperIndex, const BarAggregation::Settings & settings);

protected:
	void doRedo() override;
	void doUndo() override;

private:
	UndoBarAggregation(ProjectHandler & handler, const QString & text, int mapperIndex,
					   const BarAggregation::Settings & oldSettings, const BarAggregation::Settings & newSettings,
					   unsigned int oldUnitId);

	/*! Sets the settings of the chart, then the unit of its left axis unless unitId is 0. */
	void apply(const BarAggregation::Settings & settings, unsigned int unitId);

	int							m_mapperIndex;
	BarAggregation::Settings	m_oldSettings;
	BarAggregation::Settings	m_newSettings;
	/*! Left axis units (ids) before and after; 0 after until the change was first done. */
	unsigned int				m_oldUnitId;
	unsigned int				m_newUnitId = 0;
};

} // namespace OVP

#endif // OVP_UndoBarAggregationH
