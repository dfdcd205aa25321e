#ifndef ChartActionsH
#define ChartActionsH

#include <vector>

#include <QObject>

#include <OVP_Mapper.h>

class QWidget;
class ViewManager;

namespace OVP {
class DataSetOptions;
}

/*! The chart actions on the data sets chosen in the data manager, aimed at the focused view:
	"create chart" makes a chart of them and shows it there, "add to current chart" adds them to
	the chart shown there, and data sets dropped on a view (which focuses it) go into its chart
	or, in a view without chart, make one. Failures are shown through the project handler's
	user interaction and change nothing.
*/
class ChartActions : public QObject {
	Q_OBJECT
public:
	/*! Actions with the options of the data manager on the views of views; both must outlive
		them. Messages get dialogParent as parent.
	*/
	ChartActions(OVP::DataSetOptions & options, ViewManager & views, QWidget * dialogParent);

public slots:
	/*! Creates a chart of the selection and shows it in the focused view. */
	void createChart();
	/*! Adds the selection to the chart of the focused view; without one, says so. */
	void addToCurrentChart();
	/*! Takes dropped data sets as the selection (the cut starts anew when they differ from it)
		and adds them to the chart of the focused view, or creates a chart when it shows none.
	*/
	void dropDataSets(const std::vector<OVP::Mapper::DataSet> & dataSets);

private:
	OVP::DataSetOptions &	m_options;
	ViewManager &			m_views;
	QWidget *				m_dialogParent;
};

#endif // ChartActionsH
