#include "ChartActions.h"

#include <algorithm>

#include <OVP_ChartCreator.h>
#include <OVP_DataSetOptions.h>
#include <OVP_ProjectHandler.h>

#include "ChartView.h"
#include "ViewManager.h"

namespace {

/*! The chart actions of the open session; the user interaction is taken anew each time, as a
	scripted run replaces it.
*/
OVP::ChartCreator creator(QWidget * dialogParent) {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	return OVP::ChartCreator(handler, handler.userInteraction(), dialogParent);
}

/*! The mapper index of the chart in the focused view, -1 for none. */
int focusedMapper(const ViewManager & views) {
	const ChartView * view = views.focusedView();
	return view == nullptr ? -1 : view->mapperIndex();
}

} // namespace


ChartActions::ChartActions(OVP::DataSetOptions & options, ViewManager & views, QWidget * dialogParent) :
	QObject(dialogParent),
	m_options(options),
	m_views(views),
	m_dialogParent(dialogParent)
{
}


void ChartActions::createChart() {
	const int mapperIndex = creator(m_dialogParent).createChart(m_options);
	if (mapperIndex != -1)
		m_views.showMapper(mapperIndex);
}


void ChartActions::addToCurrentChart() {
	creator(m_dialogParent).addToChart(focusedMapper(m_views), m_options);
}


void ChartActions::dropDataSets(const std::vector<OVP::Mapper::DataSet> & dataSets) {
	const std::vector<OVP::Mapper::DataSet> & selection = m_options.selection();
	const bool same = std::equal(dataSets.begin(), dataSets.end(), selection.begin(), selection.end(),
		[](const OVP::Mapper::DataSet & a, const OVP::Mapper::DataSet & b) {
			return a.m_fileName == b.m_fileName && a.m_column == b.m_column;
		});
	if (!same)
		m_options.setSelection(dataSets);
	if (focusedMapper(m_views) == -1)
		createChart();
	else
		addToCurrentChart();
}
