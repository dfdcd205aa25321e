#include "OVAMainWindow.h"

#include <algorithm>

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include <QtExt_WindowGeometry.h>

#include <Sci_Chart.h>

#include <QtExt_LogWidget.h>

#include <OVP_DataManagerTableModel.h>
#include <OVP_DirectoryTreeModel.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_MessageHandler.h>
#include <OVP_ProgressNotifier.h>
#include <OVP_Project.h>
#include <OVP_ProjectHandler.h>
#include <OVP_PropertyPanel.h>
#include <OVP_Settings.h>
#include <OVP_UpdateCheck.h>

#include "AboutDialog.h"
#include "ChartActions.h"
#include "ChartView.h"
#include "ChartExportProperties.h"
#include "DataManagerPanel.h"
#include "DroppedFileOpener.h"
#include "MainView.h"
#include "MapperTreeView.h"
#include "OVADirectories.h"
#include "ReadProgressWidget.h"
#include "DirectoryTreeView.h"
#include "SessionPanel.h"
#include "UpdateDialogs.h"
#include "ViewManager.h"

namespace {

/*! Time stamps in log messages about the session file. */
std::string timeText(const QDateTime & t) {
	return t.toString("yyyy-MM-dd hh:mm:ss.zzz").toStdString();
}

} // namespace


OVAMainWindow * OVAMainWindow::m_self = nullptr;


OVAMainWindow::OVAMainWindow(QWidget * parent) :
	QMainWindow(parent)
{
	Q_ASSERT_X(m_self == nullptr, "OVAMainWindow", "There must be only one main window.");
	m_self = this;

	QIcon icon;
	for (const char * size : { "32x32", "48x48", "64x64" })
		icon.addFile(QString(":/gfx/OrvaneApp_%1.png").arg(size));
	setWindowIcon(icon);

	m_mainView = new MainView(this);
	setCentralWidget(m_mainView);
	m_updateDialogs = new UpdateDialogs(this);
	m_updateCheck = new OVP::UpdateCheck(OVP::Settings::instance(), *m_updateDialogs, ORVANEAPP_VERSION,
										 OVADirectories::updateDownloadDir(), this);
	m_updateDialogs->setUpdateCheck(m_updateCheck);
	connect(m_mainView, &MainView::textEditorRequested, this, [this]() { showPreferences(PreferencesDialog::F_TextEditor); });
	setupSessionPanel();
	setupPropertyPanel();
	setupLogPanel();
	setupMenus();
	setupStatusBar();
	setAcceptDrops(true);

	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	connect(&handler, &OVP::ProjectHandler::projectChanged, this, &OVAMainWindow::updateWindowTitle);
	connect(&handler, &OVP::ProjectHandler::modified, this, &OVAMainWindow::updateWindowTitle);
	// undoing back to the saved state clears the modified mark
	connect(&handler.undoStack(), &QUndoStack::cleanChanged, this, &OVAMainWindow::updateWindowTitle);
	// saving announces the new recent file; the title then shows the saved state
	connect(&handler, &OVP::ProjectHandler::updateRecentProjects, this, &OVAMainWindow::updateWindowTitle);
	updateWindowTitle();

	QByteArray geometry;
	QByteArray state;
	OVP::Settings::instance().readMainWindowGeometry(geometry, state);
	// the first start fills most of the screen, also where no window manager maximises it; a
	// window stored on a larger or another screen comes back onto this one
	if (geometry.isEmpty() || !restoreGeometry(geometry)) {
		const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
		setGeometry(screen.adjusted(screen.width()/20, screen.height()/20, -screen.width()/20, -screen.height()/20));
	}
	else {
		const QRect restored = QWidget::geometry();
		const QScreen * screen = QGuiApplication::screenAt(restored.center());
		if (screen == nullptr)
			screen = QGuiApplication::primaryScreen();
		setGeometry(QtExt::WindowGeometry::fitted(restored, screen->availableGeometry()));
	}
	if (!state.isEmpty())
		restoreState(state);
	else {
		// the docks get their sizes once the window has its size; on a small screen the charts
		// keep at least half of its width and most of its height
		QTimer::singleShot(0, this, [this]() {
			resizeDocks({ m_sessionDock, m_propertyDock },
						{ std::min(SESSION_PANEL_WIDTH, width()/4), std::min(PROPERTY_PANEL_WIDTH, width()/5) },
						Qt::Horizontal);
			resizeDocks({ m_logDock }, { std::min(LOG_PANEL_HEIGHT, height()/6) }, Qt::Vertical);
		});
	}
	// the settings decide, also when the stored window state says otherwise; from then on the
	// settings follow the docks
	for (const QPair<QDockWidget *, bool *> & panel : m_panelVisibility) {
		bool * visibleSetting = panel.second;
		panel.first->setVisible(*visibleSetting);
		connect(panel.first->toggleViewAction(), &QAction::toggled, this, [visibleSetting](bool visible) {
			*visibleSetting = visible;
		});
	}
}


OVAMainWindow::~OVAMainWindow() {
	// the views are torn down after this window and announce it; nothing may reach this window then
	m_mainView->viewManager()->disconnect(this);
	m_mainView->disconnect(this);
	disconnect(m_doubleClickConnection);
	OVP::ProjectHandler::instance().dataManager().setProgressNotifier(nullptr);
	m_self = nullptr;
}


OVAMainWindow & OVAMainWindow::instance() {
	Q_ASSERT_X(m_self != nullptr, "OVAMainWindow::instance", "Main window hasn't been created yet!");
	return *m_self;
}


void OVAMainWindow::generateChart(const QString & exportSpec) {
	m_mainView->setScriptedRun();
	QList<ChartExportProperties> requests;
	requests.append(ChartExportProperties());
	try {
		requests[0].parse(exportSpec);
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		m_mainView->setScriptedExports(QList<ChartExportProperties>());
		QTimer::singleShot(0, this, &OVAMainWindow::onCloseWithoutQuestion);
		return;
	}
	m_mainView->setScriptedExports(requests);
}


void OVAMainWindow::generateCharts(const QString & exportSpecFile) {
	FUNCID(OVAMainWindow::generateCharts);
	m_mainView->setScriptedRun();
	QFile file(exportSpecFile);
	if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
		ZEB::reportError(ZEB::MessageFormat("Cannot read export spec file %1.").arg(exportSpecFile.toStdString()).str(),
						 FUNC_ID);
		m_mainView->setScriptedExports(QList<ChartExportProperties>());
		QTimer::singleShot(0, this, &OVAMainWindow::onCloseWithoutQuestion);
		return;
	}
	const QStringList lines = ChartExportProperties::specFileLines(QString::fromUtf8(file.readAll()));
	QList<ChartExportProperties> requests;
	bool failed = false;
	for (const QString & line : lines) {
		requests.append(ChartExportProperties());
		try {
			requests.last().parse(line);
		}
		catch (ZEB::Exception & ex) {
			ex.reportAllAsErrors();
			ZEB::reportError(ZEB::MessageFormat("Invalid chart export spec in file %1.")
							 .arg(exportSpecFile.toStdString()).str(), FUNC_ID);
			failed = true;
		}
	}
	if (failed) {
		m_mainView->setScriptedExports(QList<ChartExportProperties>());
		QTimer::singleShot(0, this, &OVAMainWindow::onCloseWithoutQuestion);
		return;
	}
	m_mainView->setScriptedExports(requests);
}


const QString & OVAMainWindow::updateInstallerFileName() const {
	return m_updateCheck->installerFileName();
}


void OVAMainWindow::showPreferences(PreferencesDialog::Field field) {
	FUNCID(OVAMainWindow::showPreferences);
	OVP::Settings & settings = OVP::Settings::instance();
	PreferencesDialog dialog(OVP::Preferences::fromSettings(settings), settings.doNotShowAgainCount(), this);
	dialog.focusField(field);
	if (dialog.exec() != QDialog::Accepted)
		return;
	const int changes = dialog.preferences().storeTo(settings);
	if (changes & OVP::Preferences::C_LogLevels) {
		ZEB::MessageHandler::current()->setConsoleVerbosityLevel(settings.m_userLogLevelConsole);
		ZEB::MessageHandler::current()->setLogfileVerbosityLevel(settings.m_userLogLevelLogfile);
	}
	if (changes & OVP::Preferences::C_DataTables) {
		for (ChartView * view : m_mainView->viewManager()->views())
			view->setDecimalPlaces(settings.m_decimalPlaces);
	}
	if (changes & OVP::Preferences::C_DataManager) {
		m_sessionPanel->directoryModel()->refresh();
		m_sessionPanel->fileModel()->relistDirectories();
	}
	try {
		settings.write(saveGeometry(), saveState());
	}
	catch (ZEB::Exception & ex) {
		ZEB::Exception(ex, "Settings could not be stored.", FUNC_ID).reportAllAsErrors();
	}
}


void OVAMainWindow::onCheckForUpdatesAtStart() {
	m_updateCheck->start(OVP::UpdateCheck::M_Automatic);
}


void OVAMainWindow::onCheckForUpdates() {
	if (OVP::Settings::instance().m_updateUrl.trimmed().isEmpty())
		showPreferences(PreferencesDialog::F_UpdateUrl);
	else
		m_updateCheck->start(OVP::UpdateCheck::M_Manual);
}


void OVAMainWindow::onPreferences() {
	showPreferences(PreferencesDialog::F_Language);
}


void OVAMainWindow::onAbout() {
	AboutDialog dialog(this);
	dialog.exec();
}


void OVAMainWindow::onCloseWithoutQuestion() {
	m_closeWithoutQuestion = true;
	close();
}


void OVAMainWindow::closeEvent(QCloseEvent * event) {
	FUNCID(OVAMainWindow::closeEvent);
	if (m_closeWithoutQuestion) {
		event->accept();
		return;
	}
	// an editor with the focus commits its pending edit when it loses the focus
	if (QWidget * focused = QApplication::focusWidget())
		focused->clearFocus();

	OVP::Settings & settings = OVP::Settings::instance();
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (handler.isValid()) {
		settings.m_lastProjectFile = handler.projectFile();
		if (!handler.closeProject(this)) {
			event->ignore();
			return;
		}
	}
	else {
		settings.m_lastProjectFile.clear();
	}
	try {
		settings.write(saveGeometry(), saveState());
	}
	catch (ZEB::Exception & ex) {
		ZEB::Exception(ex, "Settings could not be stored.", FUNC_ID).reportAllAsErrors();
	}
	event->accept();
}


void OVAMainWindow::changeEvent(QEvent * event) {
	QMainWindow::changeEvent(event);
	// the window manager may end the full screen mode, too
	if (event->type() == QEvent::WindowStateChange)
		m_mainView->actions().m_fullScreen->setChecked(isFullScreen());
	if (event->type() == QEvent::ActivationChange && isActiveWindow() && !m_askingForReload
		&& !OVP::ProjectHandler::instance().dataManager().isReading())
		checkForExternalChanges();
}


void OVAMainWindow::dragEnterEvent(QDragEnterEvent * event) {
	// never a move: the file manager would delete what was dropped
	if (DroppedFileOpener::accepts(event->mimeData()) && (event->possibleActions() & Qt::CopyAction)) {
		event->setDropAction(Qt::CopyAction);
		event->accept();
	}
}


void OVAMainWindow::dropEvent(QDropEvent * event) {
	if (!DroppedFileOpener::accepts(event->mimeData()) || !(event->possibleActions() & Qt::CopyAction))
		return;
	event->setDropAction(Qt::CopyAction);
	event->accept();
	// questions about the session wait until the file manager has finished its drag
	const QList<QUrl> urls = event->mimeData()->urls();
	QTimer::singleShot(0, this, [this, urls]() { m_droppedFileOpener->open(urls); });
}


void OVAMainWindow::updateWindowTitle() {
	const OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	// "[*]" is where the toolkit shows the modified mark
	QStringList parts{ QString("unnamed.o2[*]") };
	if (handler.isValid() && !handler.projectFile().isEmpty()) {
		const QFileInfo file(handler.projectFile());
		parts = QStringList{ file.fileName() + "[*]", QDir::toNativeSeparators(file.absolutePath()) };
	}
	parts.append("Orvane");
	setWindowTitle(parts.join(QString(" %1 ").arg(QChar(0x2014))));
	setWindowModified(handler.isValid() && handler.isModified());
}


void OVAMainWindow::setupMenus() {
	const MainView::Actions & a = m_mainView->actions();

	QMenu * sessionMenu = menuBar()->addMenu(tr("&Session"));
	sessionMenu->addAction(a.m_newSession);
	sessionMenu->addAction(a.m_loadSession);
	sessionMenu->addMenu(m_mainView->recentSessionsMenu());
	sessionMenu->addSeparator();
	sessionMenu->addAction(a.m_saveSession);
	sessionMenu->addAction(a.m_saveSessionAs);
	sessionMenu->addAction(a.m_editSessionFile);
	sessionMenu->addSeparator();
	sessionMenu->addAction(m_sessionPanel->directoryView()->addDirectoryAction());
	sessionMenu->addAction(a.m_useOtherResultFolder);
	sessionMenu->addSeparator();
	QAction * quit = sessionMenu->addAction(tr("Quit"));
	quit->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Q));
	connect(quit, &QAction::triggered, this, &OVAMainWindow::close);

	QMenu * editMenu = menuBar()->addMenu(tr("&Edit"));
	editMenu->addAction(a.m_undo);
	editMenu->addAction(a.m_redo);
	editMenu->addSeparator();
	editMenu->addAction(tr("Preferences..."), this, &OVAMainWindow::onPreferences);

	QMenu * viewMenu = menuBar()->addMenu(tr("&View"));
	viewMenu->addAction(a.m_splitHorizontal);
	viewMenu->addAction(a.m_splitVertical);
	viewMenu->addAction(a.m_removeSplit);
	viewMenu->addAction(a.m_removeAllSplits);
	viewMenu->addAction(a.m_gotoNextSplit);
	viewMenu->addAction(a.m_showDataTable);
	viewMenu->addSeparator();
	viewMenu->addAction(m_sessionDock->toggleViewAction());
	viewMenu->addAction(m_propertyDock->toggleViewAction());
	viewMenu->addAction(m_logDock->toggleViewAction());
	viewMenu->addAction(a.m_fullScreen);
	viewMenu->addSeparator();
	viewMenu->addAction(a.m_refreshMappers);
	viewMenu->addAction(a.m_autoRefresh);
	viewMenu->addSeparator();
	viewMenu->addAction(a.m_showLogFile);

	QMenu * chartMenu = menuBar()->addMenu(tr("&Chart"));
	chartMenu->addAction(a.m_copyChartBitmap);
	chartMenu->addAction(a.m_copyChartEmf);
	chartMenu->addAction(a.m_exportCurrentChart);
	chartMenu->addSeparator();
	chartMenu->addAction(a.m_storeChartStyle);
	chartMenu->addMenu(m_mainView->chartStylesMenu());
	chartMenu->addAction(a.m_applyLastChartStyle);

	QMenu * helpMenu = menuBar()->addMenu(tr("&Help"));
	helpMenu->addAction(tr("Check for updates..."), this, &OVAMainWindow::onCheckForUpdates);
	helpMenu->addSeparator();
	helpMenu->addAction(tr("About Orvane..."), this, &OVAMainWindow::onAbout);
}


QDockWidget * OVAMainWindow::addPanel(QWidget * panel, const QString & title, const QString & name,
									 const QString & menuText, Qt::DockWidgetArea area, bool & visibleSetting) {
	QDockWidget * dock = new QDockWidget(title, this);
	// the name identifies the dock in the stored window state
	dock->setObjectName(name);
	dock->setWidget(panel);
	const bool sides = area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
	dock->setAllowedAreas(sides ? Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea
								: Qt::BottomDockWidgetArea | Qt::TopDockWidgetArea);
	addDockWidget(area, dock);
	dock->toggleViewAction()->setText(menuText);
	m_panelVisibility.append({ dock, &visibleSetting });
	return dock;
}


void OVAMainWindow::setupSessionPanel() {
	m_sessionPanel = new SessionPanel;
	m_sessionDock = addPanel(m_sessionPanel, tr("Session"), "SessionPanel", tr("Session panel"), Qt::LeftDockWidgetArea,
							 OVP::Settings::instance().m_panelWestVisible);
	connect(m_sessionPanel->mapperView(), &MapperTreeView::mapperSelected,
			m_mainView->viewManager(), &ViewManager::showMapper);

	DataManagerPanel * dataManager = m_sessionPanel->dataManager();
	m_chartActions = new ChartActions(dataManager->options(), *m_mainView->viewManager(), this);
	connect(dataManager, &DataManagerPanel::createChartRequested, m_chartActions, &ChartActions::createChart);
	connect(dataManager, &DataManagerPanel::addToChartRequested, m_chartActions, &ChartActions::addToCurrentChart);
	connect(m_mainView->viewManager(), &ViewManager::dataSetsDropped, m_chartActions, &ChartActions::dropDataSets);
	m_droppedFileOpener.reset(new DroppedFileOpener(*m_mainView, *m_sessionPanel));
}


void OVAMainWindow::setupPropertyPanel() {
	m_propertyPanel = new OVP::PropertyPanel;
	m_propertyDock = addPanel(m_propertyPanel, tr("Properties"), "PropertyPanel", tr("Property panel"),
							  Qt::RightDockWidgetArea, OVP::Settings::instance().m_panelEastVisible);
	connect(m_mainView->viewManager(), &ViewManager::focusedChartChanged, this, &OVAMainWindow::onFocusedChartChanged);
	connect(m_mainView, &MainView::chartPropertiesRequested, this, &OVAMainWindow::showProperties);
	onFocusedChartChanged();
}


void OVAMainWindow::setupLogPanel() {
	QtExt::LogWidget * log = new QtExt::LogWidget;
	m_logDock = addPanel(log, tr("Log"), "LogPanel", tr("Log panel"), Qt::BottomDockWidgetArea,
						 OVP::Settings::instance().m_panelSouthVisible);
	OVP::MessageHandler * messages = dynamic_cast<OVP::MessageHandler *>(ZEB::MessageHandler::current());
	if (messages == nullptr)
		return;
	for (const OVP::MessageHandler::Message & m : messages->takeBacklog())
		log->onMsgReceived(m.first, m.second);
	connect(messages, &OVP::MessageHandler::msgReceived, log, &QtExt::LogWidget::onMsgReceived);
}


void OVAMainWindow::setupStatusBar() {
	QLabel * autoRefresh = new QLabel;
	autoRefresh->setObjectName("autoRefreshLabel");
	const QAction * action = m_mainView->actions().m_autoRefresh;
	auto showAutoRefresh = [autoRefresh](bool on) {
		autoRefresh->setText(on ? tr("Auto-refresh on") : tr("Auto-refresh off"));
	};
	showAutoRefresh(action->isChecked());
	connect(action, &QAction::toggled, autoRefresh, showAutoRefresh);

	m_progressNotifier = new OVP::ProgressNotifier(this);
	statusBar()->addPermanentWidget(new ReadProgressWidget(m_progressNotifier));
	statusBar()->addPermanentWidget(autoRefresh);
	OVP::ProjectHandler::instance().dataManager().setProgressNotifier(m_progressNotifier);
	// the picker's text of the chart under the mouse
	connect(m_mainView->viewManager(), &ViewManager::pickerTextChanged, this,
			[this](const QString & text) { statusBar()->showMessage(text); });
}


void OVAMainWindow::onFocusedChartChanged() {
	OVP::Mapper * mapper = nullptr;
	const ChartView * view = m_mainView->viewManager()->focusedView();
	const OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (view != nullptr && view->mapperIndex() >= 0 && handler.isValid())
		mapper = handler.project().mapperModel()->mapper(view->mapperIndex());
	m_propertyPanel->setMapper(mapper);

	// the first click of a double click focuses the view, so the focused chart is the one clicked
	disconnect(m_doubleClickConnection);
	SCI::Chart * chart = m_mainView->viewManager()->currentChart();
	if (chart == nullptr)
		return;
	m_doubleClickConnection = connect(chart, &SCI::Chart::elementDoubleClicked, this, &OVAMainWindow::showProperties);
}


void OVAMainWindow::showProperties(const SCI::ChartElement & element) {
	m_propertyDock->show();
	m_propertyDock->raise();
	m_propertyPanel->showElement(element);
}


void OVAMainWindow::checkForExternalChanges() {
	FUNCID(OVAMainWindow::changeEvent);
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (!handler.isValid() || handler.projectFile().isEmpty())
		return;
	const QDateTime lastModified = QFileInfo(handler.projectFile()).lastModified();
	if (!lastModified.isValid() || lastModified <= handler.lastReadTime())
		return;

	ZEB::reportProgress(ZEB::MessageFormat("Last read time '%1', last modified '%2', asking for update.\n")
						.arg(timeText(handler.lastReadTime())).arg(timeText(lastModified)).str(), FUNC_ID, 4);
	// taken first, so that the question comes once per change
	handler.updateLastReadTime();
	m_askingForReload = true;
	const int answer = QMessageBox::question(this, tr("Reload project file"),
		tr("The project file has been modified by an external application. When reloading this project file all "
		   "unsaved changes will be lost. Reload modified project file?"), QMessageBox::Yes | QMessageBox::No);
	m_askingForReload = false;
	if (answer != QMessageBox::Yes)
		return;
	const QString fileName = handler.projectFile();
	handler.loadProject(this, fileName, false);
	ZEB::reportProgress(ZEB::MessageFormat("New last read time '%1'.\n").arg(timeText(handler.lastReadTime())).str(),
						FUNC_ID, 4);
}
