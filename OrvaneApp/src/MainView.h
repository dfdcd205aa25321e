#ifndef MainViewH
#define MainViewH

#include <memory>

#include <QTimer>
#include <QWidget>

#include <OVP_ChartStyleLibrary.h>

#include <Sci_ChartElement.h>
#include <Sci_ExportSettings.h>

#include "ChartExportProperties.h"

class QAction;
class QMenu;
class QMimeData;
class QwtPlot;
class ViewManager;

namespace QtExt {
class LogFileDialog;
}

namespace OVP {
class UserInteraction;
}

/*! The central widget of the main window. It shows the split chart views (ViewManager) and
	owns the user's actions on sessions, views and charts, which the main window puts into its
	menus.

	Once the event loop runs, it opens the session of the start-up: the file given on the
	command line, else the last session when the user wants that, else an empty session; then
	it starts pending scripted chart exports.
*/
class MainView : public QWidget {
	Q_OBJECT
public:
	/*! Interval of the auto-refresh of the charts, in milliseconds. */
	static constexpr int AUTO_REFRESH_INTERVAL_MS = 1000;

	/*! The actions, for the menus of the main window. */
	struct Actions {
		QAction * m_newSession;
		QAction * m_loadSession;
		QAction * m_saveSession;
		QAction * m_saveSessionAs;
		QAction * m_editSessionFile;
		QAction * m_useOtherResultFolder;
		/*! Undo and redo of the session's changes, their texts naming the change. */
		QAction * m_undo;
		QAction * m_redo;
		QAction * m_splitHorizontal;
		QAction * m_splitVertical;
		QAction * m_removeSplit;
		QAction * m_removeAllSplits;
		QAction * m_gotoNextSplit;
		/*! Checkable: the focused view shows the data table of its chart. */
		QAction * m_showDataTable;
		QAction * m_refreshMappers;
		QAction * m_autoRefresh;
		QAction * m_showLogFile;
		/*! Checkable; unchecked puts back the window state from before. */
		QAction * m_fullScreen;
		QAction * m_copyChartBitmap;
		QAction * m_copyChartEmf;
		QAction * m_exportCurrentChart;
		QAction * m_storeChartStyle;
		/*! Applies the style last applied again; its text names the style. */
		QAction * m_applyLastChartStyle;
	};

	explicit MainView(QWidget * parent = nullptr);
	~MainView() override;

	const Actions & actions() const { return m_actions; }
	/*! The submenu "Recent Sessions", kept up to date with the recent sessions of the settings. */
	QMenu * recentSessionsMenu() const { return m_recentSessionsMenu; }
	/*! The saved chart styles, one entry each (filled when shown). */
	QMenu * chartStylesMenu() const { return m_chartStylesMenu; }
	/*! The library of saved chart styles, in the user's data area. */
	static OVP::ChartStyleLibrary chartStyleLibrary();
	ViewManager * viewManager() const { return m_viewManager; }

	/*! Switches to a scripted run: from now on notices and questions go to the log instead of
		dialogs, so that nothing waits for an answer.
	*/
	void setScriptedRun();
	/*! Replaces the pending scripted chart exports; they start once the start-up session is open. */
	void setScriptedExports(const QList<ChartExportProperties> & exports);

	/*! Opens a session file: closes the current session (asking to save it; nothing happens when
		the user cancels), then loads the file. A file that cannot be accessed is reported and an
		empty session is started instead, as after a file that fails to load.
	*/
	void openSession(const QString & fileName);

public slots:
	void onNewSession();
	void onLoadSession();
	void onSaveSession();
	void onSaveSessionAs();
	/*! Opens the session file in the text editor of the settings. Without a session file it
		tells so; without a usable editor it asks for one (textEditorRequested()).
	*/
	void onEditSessionFile();
	/*! Points the session's charts at a variant of the simulation in another result folder. */
	void onUseOtherResultFolder();
	/*! Opens the recent session of the action that sent the signal. */
	void onLoadRecent();
	/*! Re-reads the data files of all charts. */
	void onRefreshMappers();
	void onAutoRefreshToggled(bool on);
	void onAutoRefreshTriggerd();
	/*! Shows the log file of this run, in a window of its own that may stay open. */
	void onShowLogFile();
	/*! Shows the main window on the full screen, or puts back its state from before. */
	void onFullScreenModeToggled(bool on);
	/*! Copies the chart of the focused view to the clipboard as bitmap, in its size on screen. */
	void onCopyCurrentChartToClipboard();
	/*! Copies the chart of the focused view to the clipboard as enhanced metafile, with a bitmap
		for programs that take no metafiles.
	*/
	void onCopyCurrentChartToClipboardEMF();
	/*! Opens the export dialog for the chart of the focused view. */
	void onExportCurrentChart();
	/*! Rebuilds the submenu of recent sessions from the settings. */
	void onUpdateRecentProjects();
	void onUndo();
	void onRedo();
	/*! Names the next change to undo and redo in the texts of the actions ("Undo: %1"), and
		disables an action without change. */
	void onUpdateUndoActions();
	/*! Saves the style of the focused view's chart under a name the user enters. */
	void onStoreCurrentChartStyle();
	/*! Applies the style file of the triggering action of the chart styles menu. */
	void onApplyStyleFile();
	/*! Applies the style last applied to the focused view's chart. */
	void onApplyLastChartStyleAgain();
	/*! Shows the context menu of a chart element: its properties, reset zoom, styles, export. */
	void onChartMenuRequested(const SCI::ChartElement & element, const QPoint & globalPos);

signals:
	/*! The user asked for the properties of an element of the focused view's chart. */
	void chartPropertiesRequested(const SCI::ChartElement & element);
	/*! No usable text editor is set: the preferences should open at the text editor. */
	void textEditorRequested();

private slots:
	/*! Opens the session of the start-up and starts the scripted exports. */
	void onStartup();
	/*! Lists the saved chart styles in the chart styles menu. */
	void onUpdateChartStylesMenu();
	/*! Checks the data table action when the focused view shows a table; enables it when the
		view has a chart. */
	void onUpdateDataTableAction();

private:
	/*! Applies a style file to the focused view's chart and remembers it as the last one;
		failures are shown. */
	void applyChartStyle(const QString & path);
	/*! Names the last applied style in its action, disabled when there is none. */
	void updateLastChartStyleAction();
	/*! Puts the chart of the focused view on the clipboard as made by makeMimeData; without
		chart, or when that fails, says so.
	*/
	void copyCurrentChart(std::unique_ptr<QMimeData> (*makeMimeData)(QwtPlot *));
	/*! Creates an action with text, shortcut and the slot it triggers. */
	template <typename Receiver, typename Slot>
	QAction * createAction(const QString & text, const QKeySequence & shortcut, Receiver * receiver, Slot slot);

	ViewManager *							m_viewManager;
	Actions									m_actions;
	QMenu *									m_recentSessionsMenu;
	QMenu *									m_chartStylesMenu;
	QTimer									m_autoRefreshTimer;
	/*! The window of the log file, made when first shown. */
	QtExt::LogFileDialog *					m_logFileDialog = nullptr;
	/*! The main window's state before it went to full screen. */
	Qt::WindowStates						m_stateBeforeFullScreen;
	/*! Dialogs of the session handling here: message boxes, or the log in a scripted run. */
	std::unique_ptr<OVP::UserInteraction>	m_userInteraction;
	/*! The export dialog's file name, tab and sizes of its last use while the program runs. */
	SCI::ExportSettings						m_exportSettings;
};

#endif // MainViewH
