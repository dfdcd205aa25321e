#ifndef OVP_ChartCreatorH
#define OVP_ChartCreatorH

#include <vector>

#include <QCoreApplication>

#include "OVP_DataSetOptions.h"

class QWidget;

namespace ZEB {
class Exception;
}

namespace OVP {

class ProjectHandler;
class UserInteraction;

/*! The actions on the data sets selected in the data manager: "create chart" makes a new
	mapper of the selection and its options (a line or bar chart of 2D data sets, as the options
	choose) and appends it to the session; "add to current chart" adds the selection's series to
	an existing line or bar chart. Both go through the project
	handler, which marks the session modified and announces the change. A failure is shown to
	the user with every message of its cause and changes nothing.
*/
class ChartCreator {
	Q_DECLARE_TR_FUNCTIONS(ChartCreator)
public:
	/*! Actions on the session of handler; failures are shown through userInteraction with
		dialogParent as parent.
	*/
	ChartCreator(ProjectHandler & handler, UserInteraction & userInteraction, QWidget * dialogParent = nullptr);

	/*! Creates a mapper of the selection with the options (the first series creates it, the
		others are added to it) and appends it to the session. Returns its mapper index, or -1
		after a failure.
	*/
	int createChart(const DataSetOptions & options);

	/*! Adds the series of the selection with the options to the mapper at mapperIndex. Returns
		false after a failure; the mapper is then unchanged.
	*/
	bool addToChart(int mapperIndex, const DataSetOptions & options);

private:
	/*! Adds the series to a mapper in order; throws at the first one the mapper refuses. */
	static void addSeries(Mapper & mapper, const std::vector<DataSetOptions::Series> & series,
						  std::size_t first = 0);
	/*! Reports a failure to the log and shows it to the user. */
	void showFailure(const QString & title, const ZEB::Exception & ex) const;

	ProjectHandler &	m_handler;
	UserInteraction &	m_userInteraction;
	QWidget *			m_dialogParent;
};

} // namespace OVP

#endif // OVP_ChartCreatorH
