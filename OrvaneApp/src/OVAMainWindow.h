#ifndef OVAMainWindowH
#define OVAMainWindowH

#include <memory>

#include <QMainWindow>
#include <QString>
#include <QList>
#include <QPair>

#include "PreferencesDialog.h"

class QDockWidget;
class ChartActions;
class DroppedFileOpener;
class MainView;
class SessionPanel;
class UpdateDialogs;

namespace SCI {
struct ChartElement;
}

namespace OVP {
class ProgressNotifier;
class PropertyPanel;
class UpdateCheck;
}

/*! The top-level window of the program. It holds the main view, shows its actions in the menu
	bar, names the open session in the window title, asks to save a modified session when it is
	closed, and offers to reload the session file when another program has changed it. Files
	and folders dropped on it from a file manager are opened (DroppedFileOpener); the chart
	actions of the data manager and of drops on chart views go to ChartActions.

	The status bar tells whether auto-refresh is on and, while the data manager reads a file,
	shows its progress.

	It also takes the scripted chart exports of the command line. There is exactly one instance,
	reached through instance().
*/
class OVAMainWindow : public QMainWindow {
	Q_OBJECT
public:
	/*! Width of the session panel on the first start, in pixels (at most a quarter of the window). */
	static constexpr int SESSION_PANEL_WIDTH = 420;
	/*! Width of the property panel on the first start (at most a fifth of the window). */
	static constexpr int PROPERTY_PANEL_WIDTH = 360;
	/*! Height of the log panel on the first start (at most a sixth of the window). */
	static constexpr int LOG_PANEL_HEIGHT = 160;

	/*! Creates the window with the main view and restores the stored geometry and state. */
	explicit OVAMainWindow(QWidget * parent = nullptr);
	~OVAMainWindow() override;

	/*! The one main window; it must exist. */
	static OVAMainWindow & instance();

	MainView * mainView() const { return m_mainView; }
	/*! The west panel with directories, data manager and charts. */
	SessionPanel * sessionPanel() const { return m_sessionPanel; }

	/*! Queues the one chart export of option --generate-chart (see ChartExportProperties). A
		malformed request is logged and the window closes without asking.
	*/
	void generateChart(const QString & exportSpec);
	/*! Queues the chart exports of option --generate-charts, one request per line of the file.
		An unreadable file, or malformed lines (each logged), close the window without asking.
	*/
	void generateCharts(const QString & exportSpecFile);

	/*! File name of an update installer downloaded during this run, to be installed after the
		event loop has ended; empty when there is none.
	*/
	const QString & updateInstallerFileName() const;

	/*! Opens the preferences dialog at a field; accepted values are applied and the settings
		written.
	*/
	void showPreferences(PreferencesDialog::Field field);

public slots:
	/*! Looks for a newer version without being asked (at start-up); tells only when there is one
		that the user has not skipped before. Nothing happens without an update address.
	*/
	void onCheckForUpdatesAtStart();
	/*! Looks for a newer version because the user asked for it; without an update address the
		preferences open at that field.
	*/
	void onCheckForUpdates();
	void onPreferences();
	void onAbout();

	/*! Closes the window without asking to save the session and without storing settings
		(used after a failed scripted export).
	*/
	void onCloseWithoutQuestion();

protected:
	/*! Asks to save a modified session; cancelling keeps the window open. Stores the last
		session file, window geometry and state in the settings.
	*/
	void closeEvent(QCloseEvent * event) override;
	/*! When the window becomes active, checks whether another program changed the session file
		(not in the middle of a read, whose files a reload would take away).
	*/
	void changeEvent(QEvent * event) override;
	/*! Takes files and folders dragged from a file manager, as a copy. */
	void dragEnterEvent(QDragEnterEvent * event) override;
	/*! Opens the dropped files and folders once the drop has ended. */
	void dropEvent(QDropEvent * event) override;

private slots:
	/*! Shows the session file's name and folder and the modified mark in the title:
		"demo.o2* — /home/me/sessions — Orvane", "unnamed.o2 — Orvane" before the session has a file. */
	void updateWindowTitle();

private:
	/*! Builds the menu bar from the main view's actions. */
	void setupMenus();
	/*! Adds panel in a dock of that area, with its entry for the View menu; the dock is shown as
		visibleSetting says, which then follows the dock's visibility. */
	QDockWidget * addPanel(QWidget * panel, const QString & title, const QString & name, const QString & menuText,
						   Qt::DockWidgetArea area, bool & visibleSetting);
	/*! Puts the session panel into a dock on the left. */
	void setupSessionPanel();
	/*! Puts the property panel into a dock on the right. */
	void setupPropertyPanel();
	/*! Puts the log panel into a dock at the bottom, with the messages of the start-up. */
	void setupLogPanel();
	/*! The status bar: auto-refresh state and the progress of reads. */
	void setupStatusBar();
	/*! Shows the chart of the focused view in the property panel. */
	void onFocusedChartChanged();
	/*! Shows the property panel with the page of an element of the focused view's chart. */
	void showProperties(const SCI::ChartElement & element);
	/*! Asks whether to reload a session file that has been changed by another program. */
	void checkForExternalChanges();

	static OVAMainWindow *				m_self;

	MainView *							m_mainView;
	SessionPanel *						m_sessionPanel;
	QDockWidget *						m_sessionDock;
	OVP::PropertyPanel *				m_propertyPanel;
	QDockWidget *						m_propertyDock;
	QDockWidget *						m_logDock;
	/*! The docks with the setting of their visibility. */
	QList<QPair<QDockWidget *, bool *>>	m_panelVisibility;
	/*! The double clicks of the chart in the focused view, which open its pages. */
	QMetaObject::Connection				m_doubleClickConnection;
	ChartActions *						m_chartActions;
	std::unique_ptr<DroppedFileOpener>	m_droppedFileOpener;
	/*! Receives the progress of the data manager's reads. */
	OVP::ProgressNotifier *				m_progressNotifier;
	/*! Set by onCloseWithoutQuestion(). */
	bool								m_closeWithoutQuestion = false;
	/*! True while the reload question is shown, so that it is not asked twice. */
	bool								m_askingForReload = false;
	UpdateDialogs *						m_updateDialogs;
	OVP::UpdateCheck *					m_updateCheck;
};

#endif // OVAMainWindowH
