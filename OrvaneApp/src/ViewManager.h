#ifndef ViewManagerH
#define ViewManagerH

#include <functional>

#include <QList>
#include <QStringList>
#include <QWidget>

#include <OVP_Mapper.h>

#include <Sci_ChartElement.h>

#include "ChartExportProperties.h"

class QVBoxLayout;
class ChartView;
class SplitTree;

namespace SCI {
class Chart;
}

/*! The centre of the main view: the split chart views of the open session.

	The session's split layout (OVP::SplitLayout, see SplitTree) is the one source of the views:
	every split, unify and chart choice edits the layout through the project handler, which marks
	the session modified and announces the change; the views are then rebuilt from the layout.
	Sizes of the split parts and the focused view are kept in the session's layout as they
	change; they modify the session but are no undo steps. After a rebuild the view focused in
	the layout keeps the keyboard focus when the views had it before.

	The view manager also runs the scripted chart export of the command line, one request per
	call of onExportChartsScripted().
*/
class ViewManager : public QWidget {
	Q_OBJECT
public:
	/*! Pause before the first scripted export, in milliseconds, so that the window is set up. */
	static constexpr int SCRIPTED_EXPORT_DELAY_MS = 100;
	/*! Room taken by a splitter handle between two views, in pixels. */
	static constexpr int SPLITTER_HANDLE_ROOM = 8;

	explicit ViewManager(QWidget * parent = nullptr);
	~ViewManager() override;

	/*! The views in layout order (depth first, first part before second part). */
	QList<ChartView *> views() const;
	/*! The view the chart actions work on; null without session. */
	ChartView * focusedView() const;
	/*! The chart of the focused view; null when it shows none. */
	SCI::Chart * currentChart() const;

	/*! Replaces the pending scripted chart exports. */
	void setScriptedExports(const QList<ChartExportProperties> & exports) { m_scriptedExports = exports; }
	bool hasScriptedExports() const { return !m_scriptedExports.isEmpty(); }

signals:
	/*! Data sets were dropped on a view, which is the focused view now. */
	void dataSetsDropped(const std::vector<OVP::Mapper::DataSet> & dataSets);
	/*! The context menu of an element of the focused view's chart was asked for. */
	void chartMenuRequested(const SCI::ChartElement & element, const QPoint & globalPos);
	/*! The focused view changed, or the chart it shows. */
	void focusedChartChanged();
	/*! The picker of a view's chart shows this text (empty: the mouse left the chart). */
	void pickerTextChanged(const QString & text);

public slots:
	/*! Shows the chart of the mapper at mapperIndex in the focused view. */
	void showMapper(int mapperIndex);
	/*! Splits the focused view into two views side by side. */
	void onSplitHorizontal();
	/*! Splits the focused view into two views on top of each other. */
	void onSplitVertical();
	/*! Removes the focused view; the other part of its split takes its place. */
	void onRemoveSplit();
	/*! Replaces all views by one showing the chart of the focused view. */
	void onRemoveAllSplits();
	/*! Moves the focus to the next view. */
	void onGotoNextSplit();
	/*! Lets the focused view show the data table of its chart (true) or the chart (false). */
	void onShowDataTable(bool viewTable);
	/*! Exports the chart of the first pending scripted export request and drops the request;
		calls itself again as soon as the event loop is free while requests are left and ends the
		application with exit code 0 after the last one. A request for a mapper that the
		session does not have is logged and skipped.
	*/
	void onExportChartsScripted();

private slots:
	void onProjectAboutToBeClosed();
	void onProjectChanged();
	void onProjectModified(int modificationType, void * data);
	void onViewActivated(int widgetId);
	void onViewMapperChosen(int widgetId, int mapperIndex);
	void onViewTableRequested(int widgetId, bool viewTable);
	/*! Keeps the sizes of a split's parts in the session's layout. */
	void onSplitterMoved();

private:
	/*! Builds the views from the session's layout. */
	void rebuild();
	/*! Removes all views; the charts stay with their mappers. */
	void clearViews();
	/*! Creates the widget of a node of the layout and, for splits, of its parts. */
	QWidget * buildNode(const SplitTree & tree, int id, const QStringList & mapperNames);
	/*! Edits the session's layout and hands it to the project handler, which announces it. */
	void editLayout(const std::function<void(SplitTree &)> & edit);
	/*! True when the focused view on screen is large enough for two views side by side
		(Qt::Horizontal) or one above the other, so that a split does not make the window grow
		beyond the screen; otherwise says so as a warning. */
	bool roomToSplit(Qt::Orientation orientation) const;
	/*! Focuses a view in the session's layout (no undo step). */
	void setFocusedView(int widgetId);
	/*! Highlights the focused view when there is more than one. */
	void updateFocusHighlight();
	/*! Names of the session's mappers in list order. */
	QStringList mapperNames() const;
	/*! Number of mappers of the open session, 0 without session. */
	int mapperCount() const;
	/*! The view with this widget id, or null. */
	ChartView * view(int widgetId) const;

	QVBoxLayout *						m_layout;
	/*! Top widget of the views: a view or a splitter; null without session. */
	QWidget *							m_root = nullptr;
	/*! The views in layout order. */
	QList<ChartView *>					m_views;
	/*! Id of the focused view. */
	int									m_focusedId = -1;
	QList<ChartExportProperties>		m_scriptedExports;
};

#endif // ViewManagerH
