#ifndef ChartViewH
#define ChartViewH

#include <QFrame>
#include <QPointer>
#include <QStringList>

#include <OVP_Mapper.h>

#include <Sci_ChartElement.h>

class QComboBox;
class QLabel;
class QToolButton;
class QVBoxLayout;
class ChartTableView;

namespace SCI {
class Chart;
}

/*! One of the split views: a header with the list of the session's charts, in which the user
	picks the chart to show, and a button that switches between the chart and its data table;
	below it the chart of the chosen mapper or its data as a table, or a note when there is
	none.

	The chart belongs to its mapper; the view only lends it a place. When the view shows another
	chart or is destroyed, it hands the chart back without parent, so that the mapper keeps it.

	Data sets dragged from the data manager (OVP::DataSetMimeData) can be dropped anywhere on the
	view, the chart included; a drop activates the view and announces the data sets.
*/
class ChartView : public QFrame {
	Q_OBJECT
public:
	/*! Width of the chart list at the least, in characters. */
	static constexpr int CHART_LIST_MINIMUM_CHARACTERS = 12;

	/*! A view for the split widget with this id of the session's layout. */
	explicit ChartView(int widgetId, QWidget * parent = nullptr);
	/*! Hands the chart back to its mapper. */
	~ChartView() override;

	int widgetId() const { return m_widgetId; }
	/*! Index of the mapper shown, -1 for none. */
	int mapperIndex() const { return m_mapperIndex; }
	/*! The chart shown; null when none. */
	SCI::Chart * chart() const;

	/*! The table that shows the chart's data. */
	ChartTableView * tableView() const { return m_table; }
	/*! True when the view shows the data table of its chart instead of the chart. */
	bool showsTable() const { return m_viewTable; }

	/*! Lists mapperNames in the chart list and shows chart, the chart of the mapper at
		mapperIndex (-1 and null: none), or its data table when viewTable is set.
	*/
	void setContent(const QStringList & mapperNames, int mapperIndex, SCI::Chart * chart, bool viewTable = false);
	/*! Decimal places of the numbers in the data table. */
	void setDecimalPlaces(int decimalPlaces);
	/*! Marks the view as the one that the chart actions work on. */
	void setFocused(bool focused);
	/*! Gives the keyboard focus to the chart, or to the chart list when there is none. */
	void takeKeyboardFocus();

signals:
	/*! The user clicked into the view or moved the keyboard focus into it. */
	void activated(int widgetId);
	/*! The user chose another chart in the list (mapper index, -1: none). */
	void mapperChosen(int widgetId, int mapperIndex);
	/*! Data sets were dropped on the view, after activated(). */
	void dataSetsDropped(const std::vector<OVP::Mapper::DataSet> & dataSets);
	/*! The user asked for the context menu of an element of the chart, after activated(). */
	void chartMenuRequested(const SCI::ChartElement & element, const QPoint & globalPos);
	/*! The user asked for the data table (true) or the chart (false), after activated(). */
	void viewTableRequested(int widgetId, bool viewTable);
	/*! The chart's picker shows this text (empty: the mouse left the chart). */
	void pickerTextChanged(const QString & text);

protected:
	/*! Reports clicks and focus changes in the chart and the chart list as activated(); the
		focus coming back with the window or after a menu is no choice of the user. */
	bool eventFilter(QObject * watched, QEvent * event) override;
	void mousePressEvent(QMouseEvent * event) override;
	/*! Takes drags of data sets. */
	void dragEnterEvent(QDragEnterEvent * event) override;
	/*! Announces dropped data sets; damaged ones are reported and refused. */
	void dropEvent(QDropEvent * event) override;

private slots:
	void onChartListActivated(int index);
	/*! Makes the view the focused one and passes the request on. */
	void onChartMenuRequested(const SCI::ChartElement & element, const QPoint & globalPos);

private:
	/*! Removes the chart from the view without deleting it. */
	void detachChart();

	int						m_widgetId;
	int						m_mapperIndex = -1;
	QComboBox *				m_chartList;
	QToolButton *			m_tableButton;
	ChartTableView *		m_table;
	bool					m_viewTable = false;
	QLabel *				m_placeholder;
	QVBoxLayout *			m_contentLayout;
	/*! Guarded: the mapper deletes its chart when it is removed from the session. */
	QPointer<SCI::Chart>	m_chart;
};

#endif // ChartViewH
