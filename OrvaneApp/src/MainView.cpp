#include "MainView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QVBoxLayout>

#include <OVP_DialogUserInteraction.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>

#include <Sci_AbstractCartesianChartModel.h>
#include <Sci_Chart.h>
#include <Sci_ChartMimeData.h>
#include <Sci_ExportDialog.h>

#include <ZEB_Exception.h>

#include <QtExt_LogFileDialog.h>
#include <QtExt_DoNotShowAgainMessage.h>
#include <QtExt_TextEditor.h>

#include "ChartView.h"
#include "LogUserInteraction.h"
#include "OVADirectories.h"
#include "ViewManager.h"

template <typename Receiver, typename Slot>
QAction * MainView::createAction(const QString & text, const QKeySequence & shortcut, Receiver * receiver, Slot slot) {
	QAction * action = new QAction(text, this);
	action->setShortcut(shortcut);
	connect(action, &QAction::triggered, receiver, slot);
	return action;
}


MainView::MainView(QWidget * parent) :
	QWidget(parent),
	m_userInteraction(new OVP::DialogUserInteraction)
{
	QFile styleSheet(":/OrvaneApp.qss");
	if (styleSheet.open(QIODevice::ReadOnly | QIODevice::Text))
		setStyleSheet(QString::fromUtf8(styleSheet.readAll()));

	m_viewManager = new ViewManager(this);
	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->setContentsMargins(4, 4, 4, 4);
	layout->addWidget(m_viewManager);

	m_actions.m_newSession = createAction(tr("New session"), QKeySequence(Qt::CTRL + Qt::Key_N),
										  this, &MainView::onNewSession);
	m_actions.m_loadSession = createAction(tr("Load session..."), QKeySequence(Qt::CTRL + Qt::Key_O),
										   this, &MainView::onLoadSession);
	m_actions.m_saveSession = createAction(tr("Save session"), QKeySequence(Qt::CTRL + Qt::Key_S),
										   this, &MainView::onSaveSession);
	m_actions.m_saveSessionAs = createAction(tr("Save session as..."), QKeySequence(),
											 this, &MainView::onSaveSessionAs);
	m_actions.m_editSessionFile = createAction(tr("Edit session file in text editor"), QKeySequence(Qt::Key_F2),
											   this, &MainView::onEditSessionFile);
	m_actions.m_useOtherResultFolder = createAction(tr("Use another result folder..."), QKeySequence(),
													this, &MainView::onUseOtherResultFolder);
	m_actions.m_undo = createAction(tr("Undo"), QKeySequence(Qt::CTRL + Qt::Key_Z), this, &MainView::onUndo);
	m_actions.m_redo = createAction(tr("Redo"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z), this, &MainView::onRedo);
	m_actions.m_redo->setShortcuts({ QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z), QKeySequence(Qt::CTRL + Qt::Key_Y) });
	QUndoStack & undoStack = OVP::ProjectHandler::instance().undoStack();
	connect(&undoStack, &QUndoStack::indexChanged, this, &MainView::onUpdateUndoActions);
	connect(&undoStack, &QUndoStack::undoTextChanged, this, &MainView::onUpdateUndoActions);
	connect(&undoStack, &QUndoStack::redoTextChanged, this, &MainView::onUpdateUndoActions);
	onUpdateUndoActions();
	m_actions.m_splitHorizontal = createAction(tr("Horizontal split"), QKeySequence(Qt::CTRL + Qt::Key_1),
											   m_viewManager, &ViewManager::onSplitHorizontal);
	m_actions.m_splitVertical = createAction(tr("Vertical split"), QKeySequence(Qt::CTRL + Qt::Key_2),
											 m_viewManager, &ViewManager::onSplitVertical);
	m_actions.m_removeSplit = createAction(tr("Unify"), QKeySequence(Qt::CTRL + Qt::Key_0),
										   m_viewManager, &ViewManager::onRemoveSplit);
	m_actions.m_removeAllSplits = createAction(tr("Unify all"), QKeySequence(),
											   m_viewManager, &ViewManager::onRemoveAllSplits);
	m_actions.m_gotoNextSplit = createAction(tr("Jump to next window"), QKeySequence(Qt::CTRL + Qt::Key_Tab),
											 m_viewManager, &ViewManager::onGotoNextSplit);
	m_actions.m_showDataTable = createAction(tr("Show data table"), QKeySequence(Qt::CTRL + Qt::Key_T),
											 m_viewManager, &ViewManager::onShowDataTable);
	m_actions.m_showDataTable->setCheckable(true);
	connect(m_viewManager, &ViewManager::focusedChartChanged, this, &MainView::onUpdateDataTableAction);
	onUpdateDataTableAction();
	m_actions.m_refreshMappers = createAction(tr("Refresh charts/data"), QKeySequence(Qt::Key_F5),
											  this, &MainView::onRefreshMappers);
	m_actions.m_refreshMappers->setShortcuts({ QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL + Qt::Key_R) });
	m_actions.m_showLogFile = createAction(tr("Show logfile..."), QKeySequence(), this, &MainView::onShowLogFile);
	m_actions.m_fullScreen = createAction(tr("Full screen mode"), QKeySequence(Qt::Key_F11),
										  this, &MainView::onFullScreenModeToggled);
	m_actions.m_fullScreen->setCheckable(true);
	m_actions.m_copyChartBitmap = createAction(tr("Copy current chart to clipboard (bitmap)"), QKeySequence(),
											   this, &MainView::onCopyCurrentChartToClipboard);
	m_actions.m_copyChartEmf = createAction(tr("Copy current chart to clipboard (emf)"), QKeySequence(),
											this, &MainView::onCopyCurrentChartToClipboardEMF);
	m_actions.m_exportCurrentChart = createAction(tr("Export current chart..."), QKeySequence(Qt::CTRL + Qt::Key_E),
												  this, &MainView::onExportCurrentChart);

	m_actions.m_storeChartStyle = createAction(tr("Save current chart style/format..."), QKeySequence(),
											   this, &MainView::onStoreCurrentChartStyle);
	m_actions.m_applyLastChartStyle = createAction(QString(), QKeySequence(Qt::CTRL + Qt::Key_F),
												   this, &MainView::onApplyLastChartStyleAgain);
	updateLastChartStyleAction();
	m_chartStylesMenu = new QMenu(tr("Apply saved chart style/format"), this);
	connect(m_chartStylesMenu, &QMenu::aboutToShow, this, &MainView::onUpdateChartStylesMenu);
	connect(m_viewManager, &ViewManager::chartMenuRequested, this, &MainView::onChartMenuRequested);

	m_actions.m_autoRefresh = new QAction(tr("Auto-refresh charts/data"), this);
	m_actions.m_autoRefresh->setCheckable(true);
	connect(m_actions.m_autoRefresh, &QAction::toggled, this, &MainView::onAutoRefreshToggled);
	m_autoRefreshTimer.setInterval(AUTO_REFRESH_INTERVAL_MS);
	connect(&m_autoRefreshTimer, &QTimer::timeout, this, &MainView::onAutoRefreshTriggerd);

	m_recentSessionsMenu = new QMenu(tr("Recent Sessions"), this);
	connect(&OVP::ProjectHandler::instance(), &OVP::ProjectHandler::updateRecentProjects,
			this, &MainView::onUpdateRecentProjects);
	onUpdateRecentProjects();

	QTimer::singleShot(0, this, &MainView::onStartup);
}


MainView::~MainView() {
	// the views announce focus changes while they are deleted with this widget's children
	disconnect(m_viewManager, nullptr, this, nullptr);
}


void MainView::setScriptedRun() {
	m_userInteraction.reset(new LogUserInteraction);
	OVP::ProjectHandler::instance().setUserInteraction(std::unique_ptr<OVP::UserInteraction>(new LogUserInteraction));
}


void MainView::setScriptedExports(const QList<ChartExportProperties> & exports) {
	m_viewManager->setScriptedExports(exports);
}


void MainView::openSession(const QString & fileName) {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (handler.isValid() && !handler.closeProject(this))
		return;
	const QFileInfo info(fileName);
	// a file that exists but cannot be read is handed on, too: it may be restored from its backup
	if (info.isFile()) {
		if (handler.loadProject(this, info.absoluteFilePath(), false))
			return;
		// the failure has been shown; the old session is closed already
	}
	else {
		m_userInteraction->showCritical(this, tr("File not found"),
			tr("Session file '%1' cannot be accessed or does not exist.").arg(fileName));
	}
	handler.newProject();
}


void MainView::onNewSession() {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (handler.isValid() && !handler.closeProject(this))
		return;
	handler.newProject();
}


void MainView::onLoadSession() {
	const QString fileName = QFileDialog::getOpenFileName(this, tr("Select Orvane session file"),
		OVP::ProjectHandler::lastUsedDirectory(), tr("Orvane session files (*.o2);;All files (*.*)"));
	if (!fileName.isEmpty())
		openSession(fileName);
}


void MainView::onSaveSession() {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (!handler.isValid())
		return;
	if (handler.projectFile().isEmpty())
		handler.saveWithNewFilename(this);
	else
		handler.saveProject(this, handler.projectFile());
}


void MainView::onSaveSessionAs() {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (handler.isValid())
		handler.saveWithNewFilename(this);
}


void MainView::onEditSessionFile() {
	const OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (!handler.isValid() || handler.projectFile().isEmpty()) {
		m_userInteraction->showCritical(this, tr("Edit session file"),
			tr("The session has not been saved to a file yet. Save it first, then edit its file."));
		return;
	}
	OVP::Settings & settings = OVP::Settings::instance();
	if (QtExt::TextEditor::resolvedExecutable(settings.m_textEditorExecutable).isEmpty()) {
		m_userInteraction->showCritical(this, tr("Edit session file"), settings.m_textEditorExecutable.isEmpty()
			? tr("No text editor is set. Choose one in the preferences.")
			: tr("The text editor '%1' cannot be found. Choose one in the preferences.").arg(settings.m_textEditorExecutable));
		emit textEditorRequested();
		return;
	}
	try {
		QtExt::TextEditor::open(settings.m_textEditorExecutable, handler.projectFile());
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		m_userInteraction->showCritical(this, tr("Edit session file"), OVP::exceptionText(ex));
		return;
	}
	QtExt::DoNotShowAgainMessage::information(this, settings, "EditSessionFileHint", tr("Edit session file"),
		tr("The session file is open in the text editor. Once you have saved it there and come back to "
		   "Orvane, you are asked whether to reload the changed session."));
}


void MainView::onUseOtherResultFolder() {
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (handler.isValid())
		handler.useOtherResultFolder(this);
}


void MainView::onLoadRecent() {
	const QAction * action = qobject_cast<const QAction *>(sender());
	if (action != nullptr)
		openSession(action->data().toString());
}


void MainView::onRefreshMappers() {
	// the user's own refresh: a last line still without its line end is taken as it is
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (handler.isValid())
		handler.refreshAllMappers(DATAIO::DataIO::RM_EXPLICIT);
}


void MainView::onAutoRefreshToggled(bool on) {
	if (on)
		m_autoRefreshTimer.start();
	else
		m_autoRefreshTimer.stop();
}


void MainView::onAutoRefreshTriggerd() {
	// following running simulations: a last line without line end waits for the file to settle
	OVP::ProjectHandler & handler = OVP::ProjectHandler::instance();
	if (handler.isValid())
		handler.refreshAllMappers(DATAIO::DataIO::RM_FOLLOW);
}


OVP::ChartStyleLibrary MainView::chartStyleLibrary() {
	return OVP::ChartStyleLibrary(OVADirectories::userDataDir() + "/styles");
}


void MainView::onStoreCurrentChartStyle() {
	const ChartView * view = m_viewManager->focusedView();
	if (view == nullptr || view->chart() == nullptr) {
		m_userInteraction->showCritical(this, tr("Save chart style/format"), tr("The current view shows no chart."));
		return;
	}
	OVP::Mapper * mapper = OVP::ProjectHandler::instance().project().mapperModel()->mapper(view->mapperIndex());
	try {
		chartStyleLibrary().saveStyle(this, *m_userInteraction, *mapper->chartModel());
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		m_userInteraction->showCritical(this, tr("Save chart style/format"), OVP::exceptionText(ex));
	}
}


void MainView::onApplyStyleFile() {
	const QAction * action = qobject_cast<const QAction *>(sender());
	if (action != nullptr)
		applyChartStyle(action->data().toString());
}


void MainView::onApplyLastChartStyleAgain() {
	const QString path = OVP::Settings::instance().m_chartStyleFileLastUsed;
	if (!path.isEmpty())
		applyChartStyle(path);
}


void MainView::onUpdateChartStylesMenu() {
	m_chartStylesMenu->clear();
	const QStringList files = chartStyleLibrary().styleFiles();
	for (const QString & file : files) {
		QAction * a = m_chartStylesMenu->addAction(QFileInfo(file).completeBaseName(), this, &MainView::onApplyStyleFile);
		a->setData(file);
	}
	if (files.isEmpty())
		m_chartStylesMenu->addAction(tr("(no saved styles)"))->setEnabled(false);
}


void MainView::applyChartStyle(const QString & path) {
	const ChartView * view = m_viewManager->focusedView();
	if (view == nullptr || view->chart() == nullptr) {
		m_userInteraction->showCritical(this, tr("Apply chart style/format"), tr("The current view shows no chart."));
		return;
	}
	try {
		OVP::ProjectHandler::instance().applyChartStyle(view->mapperIndex(), path);
		OVP::Settings::instance().m_chartStyleFileLastUsed = path;
		updateLastChartStyleAction();
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		m_userInteraction->showCritical(this, tr("Apply chart style/format"), OVP::exceptionText(ex));
	}
}


void MainView::updateLastChartStyleAction() {
	const QString path = OVP::Settings::instance().m_chartStyleFileLastUsed;
	// the text is kept as it has always read, without a closing quote
	m_actions.m_applyLastChartStyle->setText(tr("Apply style/format: '%1").arg(QFileInfo(path).completeBaseName()));
	m_actions.m_applyLastChartStyle->setEnabled(!path.isEmpty());
}


void MainView::onChartMenuRequested(const SCI::ChartElement & element, const QPoint & globalPos) {
	SCI::Chart * chart = m_viewManager->currentChart();
	if (chart == nullptr)
		return;
	QMenu menu(this);
	QString properties;
	switch (element.m_kind) {
		case SCI::ChartElement::Axis :		properties = tr("Axis properties..."); break;
		case SCI::ChartElement::Series :	properties = tr("Series properties..."); break;
		case SCI::ChartElement::ColorBar :	properties = tr("Colour map properties..."); break;
		case SCI::ChartElement::Legend :	properties = tr("Legend properties..."); break;
		default :							properties = tr("Chart properties..."); break;
	}
	menu.addAction(properties, this, [this, element]() { emit chartPropertiesRequested(element); });
	menu.addAction(tr("Reset zoom"), chart, &SCI::Chart::resetView);
	menu.addAction(m_actions.m_showDataTable);
	menu.addSeparator();
	menu.addAction(m_actions.m_storeChartStyle);
	menu.addMenu(m_chartStylesMenu);
	menu.addAction(m_actions.m_applyLastChartStyle);
	menu.addSeparator();
	menu.addAction(m_actions.m_copyChartBitmap);
	menu.addAction(m_actions.m_copyChartEmf);
	menu.addAction(m_actions.m_exportCurrentChart);
	menu.exec(globalPos);
}


void MainView::onUpdateDataTableAction() {
	const ChartView * view = m_viewManager->focusedView();
	m_actions.m_showDataTable->setChecked(view != nullptr && view->showsTable());
	m_actions.m_showDataTable->setEnabled(view != nullptr && view->chart() != nullptr);
}


void MainView::onShowLogFile() {
	if (m_logFileDialog == nullptr)
		m_logFileDialog = new QtExt::LogFileDialog(this);
	m_logFileDialog->setLogFile(OVADirectories::logFile());
	m_logFileDialog->show();
	m_logFileDialog->raise();
	m_logFileDialog->activateWindow();
}


void MainView::onFullScreenModeToggled(bool on) {
	QWidget * mainWindow = window();
	if (on) {
		m_stateBeforeFullScreen = mainWindow->windowState();
		mainWindow->setWindowState(m_stateBeforeFullScreen | Qt::WindowFullScreen);
	}
	else {
		mainWindow->setWindowState(m_stateBeforeFullScreen & ~Qt::WindowFullScreen);
	}
}


void MainView::onCopyCurrentChartToClipboard() {
	copyCurrentChart(&SCI::ChartMimeData::bitmap);
}


void MainView::onCopyCurrentChartToClipboardEMF() {
	copyCurrentChart(&SCI::ChartMimeData::emf);
}


void MainView::copyCurrentChart(std::unique_ptr<QMimeData> (*makeMimeData)(QwtPlot *)) {
	SCI::Chart * chart = m_viewManager->currentChart();
	if (chart == nullptr) {
		m_userInteraction->showCritical(this, tr("Copy chart"), tr("The current view shows no chart that could be copied."));
		return;
	}
	try {
		QApplication::clipboard()->setMimeData(makeMimeData(chart).release());
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		m_userInteraction->showCritical(this, tr("Copy chart"), OVP::exceptionText(ex));
	}
}


void MainView::onExportCurrentChart() {
	SCI::Chart * chart = m_viewManager->currentChart();
	if (chart == nullptr) {
		QMessageBox::information(this, tr("Export chart"), tr("The current view shows no chart that could be exported."));
		return;
	}
	SCI::ExportDialog dialog(chart, this);
	QStringList & history = OVP::Settings::instance().m_chartVectorExportDimensionHistory;
	m_exportSettings.m_dimensionHistory = history;
	dialog.setSettings(m_exportSettings);
	dialog.exec();
	m_exportSettings = dialog.settings();
	history = m_exportSettings.m_dimensionHistory;
}


void MainView::onUpdateRecentProjects() {
	m_recentSessionsMenu->clear();
	const QStringList & files = OVP::Settings::instance().m_recentProjects;
	for (int i = 0; i < files.size(); ++i) {
		QAction * action = m_recentSessionsMenu->addAction(QString("&%1 %2").arg(i + 1).arg(files[i]));
		action->setData(files[i]);
		connect(action, &QAction::triggered, this, &MainView::onLoadRecent);
	}
	m_recentSessionsMenu->setEnabled(!files.isEmpty());
}


void MainView::onUndo() {
	OVP::ProjectHandler::instance().undo(this);
}


void MainView::onRedo() {
	OVP::ProjectHandler::instance().redo(this);
}


void MainView::onUpdateUndoActions() {
	const QUndoStack & stack = OVP::ProjectHandler::instance().undoStack();
	m_actions.m_undo->setEnabled(stack.canUndo());
	m_actions.m_undo->setText(stack.canUndo() ? tr("Undo: %1").arg(stack.undoText()) : tr("Undo"));
	m_actions.m_redo->setEnabled(stack.canRedo());
	m_actions.m_redo->setText(stack.canRedo() ? tr("Redo: %1").arg(stack.redoText()) : tr("Redo"));
}


void MainView::onStartup() {
	const OVP::Settings & settings = OVP::Settings::instance();
	if (!settings.m_initialProjectFile.isEmpty())
		openSession(settings.m_initialProjectFile);
	else if (settings.m_startWithLastSession && !settings.m_lastProjectFile.isEmpty())
		openSession(settings.m_lastProjectFile);
	else
		OVP::ProjectHandler::instance().newProject();

	if (m_viewManager->hasScriptedExports())
		QTimer::singleShot(ViewManager::SCRIPTED_EXPORT_DELAY_MS, m_viewManager, &ViewManager::onExportChartsScripted);
}

