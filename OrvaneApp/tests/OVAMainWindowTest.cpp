#include <gtest/gtest.h>

#include <functional>

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QCoreApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMainWindow>
#include <QScreen>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QTableView>
#include <QTimer>

#include <Sci_AbstractChartModel.h>
#include <Sci_Chart.h>

#include <OVP_DataManagerTableModel.h>
#include <OVP_DirectoryTreeModel.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_MessageHandler.h>
#include <OVP_ProgressNotifier.h>
#include <OVP_Project.h>
#include <OVP_PropertyPage.h>
#include <OVP_PropertyPanel.h>

#include <QtExt_LogFileDialog.h>
#include <QtExt_LogModel.h>
#include <QtExt_LogWidget.h>
#include <QtExt_BrowseFilenameWidget.h>

#include <EM_Extractor2DOutputBase.h>
#include <ZEB_UnitVector.h>

#include "ChartView.h"
#include "DataManagerPanel.h"
#include "MainView.h"
#include "MapperTreeView.h"
#include "OVADirectories.h"
#include "OVAMainWindow.h"
#include "OVA_TestUtils.h"
#include "PreferencesDialog.h"
#include "ReadProgressWidget.h"
#include "SessionPanel.h"
#include "ViewManager.h"

namespace {

class MainWindowTest : public OVATest::SessionTest {
protected:
	/*! Writes a session of two charts; the session stays open and is modified afterwards. */
	QString writeModifiedSession(const QString & name) {
		const QString dir = OVATest::scratchDir(name);
		createSession(dir, { "T", "RH" });
		const QString file = dir + "/session.o2";
		EXPECT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
		handler().renameMapper(0, "Temperature");
		EXPECT_TRUE(handler().isModified());
		return file;
	}

	/*! The entries of the menu bar's menu with that text. */
	static QList<QAction *> menuActions(const OVAMainWindow & window, const QString & menu) {
		for (QAction * a : window.menuBar()->actions())
			if (a->text() == menu)
				return a->menu()->actions();
		return QList<QAction *>();
	}

	/*! The entry with that text of the menu bar's menu with text menu, or null. */
	static QAction * menuAction(const OVAMainWindow & window, const QString & menu, const QString & action) {
		for (QAction * a : menuActions(window, menu))
			if (a->text() == action)
				return a;
		return nullptr;
	}

	/*! Lets the handler answer the next save question with answer; returns the interaction to inspect. */
	OVATest::TestUserInteraction * answerWith(OVP::UserInteraction::SaveAnswer answer) {
		OVATest::TestUserInteraction * ui = new OVATest::TestUserInteraction;
		ui->m_saveAnswers = { answer };
		handler().setUserInteraction(std::unique_ptr<OVP::UserInteraction>(ui));
		return ui;
	}
};

} // namespace


// The answers themselves are the project handler's; the window asks once and stores its state.
TEST_F(MainWindowTest, ClosingAsksAboutChangesAndStoresTheSessionFileAndWindowState) {
	const QString file = writeModifiedSession("mw-close");
	OVATest::TestUserInteraction * ui = answerWith(OVP::UserInteraction::AnswerCancel);
	{
		// "Cancel" keeps window and session; closing without question neither asks nor stores
		OVAMainWindow window;
		window.show();
		EXPECT_FALSE(window.close());
		EXPECT_TRUE(window.isVisible());
		window.onCloseWithoutQuestion();
		EXPECT_FALSE(window.isVisible());
		EXPECT_EQ(ui->m_shown.size(), 1u);
	}
	ASSERT_TRUE(handler().isModified());
	EXPECT_FALSE(m_settings->openStore()->contains("LastProjectFile"));
	{
		OVAMainWindow window;
		window.show();
		answerWith(OVP::UserInteraction::AnswerDiscard);
		EXPECT_TRUE(window.close());
		std::unique_ptr<QSettings> store = m_settings->openStore();
		EXPECT_EQ(store->value("LastProjectFile").toString(), file);
		EXPECT_FALSE(store->value("MainWindowGeometry").toByteArray().isEmpty());
	}
	// a window closed without session clears the last session file
	OVAMainWindow second;
	second.show();
	EXPECT_TRUE(second.close());
	EXPECT_TRUE(m_settings->openStore()->value("LastProjectFile").toString().isEmpty());
}


TEST_F(MainWindowTest, OpeningSessionFiles) {
	const QString file = writeModifiedSession("mw-open");
	ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	OVAMainWindow window;
	MainView * view = window.mainView();
	view->setScriptedRun();

	// a missing file is reported and leaves an empty session
	const QString missing = QFileInfo(file).absolutePath() + "/missing.o2";
	view->openSession(missing);
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, ("File not found: Session file '" + missing
				+ "' cannot be accessed or does not exist.").toStdString(), "[LogUserInteraction::showCritical]"), 1);
	ASSERT_TRUE(handler().isValid());
	EXPECT_EQ(window.windowTitle(), QString::fromUtf8("unnamed.o2[*] \u2014 Orvane"));

	view->openSession(file);
	EXPECT_EQ(handler().project().mapperModel()->mapperCount(), 2);
	EXPECT_EQ(m_settings->m_recentProjects.value(0), file);
	// the title names file and folder and marks changes
	EXPECT_EQ(window.windowTitle(), QString::fromUtf8("session.o2[*] \u2014 %1 \u2014 Orvane")
			  .arg(QFileInfo(file).absolutePath()));
	EXPECT_FALSE(window.isWindowModified());
	handler().renameMapper(0, "Indoor temperature");
	EXPECT_TRUE(window.isWindowModified());
	// undone to the saved state, the mark goes
	window.mainView()->actions().m_undo->trigger();
	EXPECT_FALSE(window.isWindowModified());
}


TEST_F(MainWindowTest, FourChartsWithLongTitlesFitASmallScreenAndAWindowStoredLargerComesBack) {
	// as stored on a larger screen, right of this one
	QMainWindow large;
	large.setGeometry(1500, 100, 2307, 900);
	m_settings->write(large.saveGeometry(), QByteArray());
	// the program's font
	const QFont testFont = QApplication::font();
	QFont programFont = testFont;
	programFont.setPointSize(9);
	QApplication::setFont(programFont);
	QSize minimum;
	{
		OVAMainWindow window;
		window.show();
		QCoreApplication::processEvents();
		const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
		EXPECT_TRUE(screen.contains(window.geometry().topLeft()));
		EXPECT_TRUE(window.width() <= screen.width() && window.height() <= screen.height());

		createSession(OVATest::scratchDir("mw-fit"), { "T", "RH", "Tsurf", "Tin" });
		OVP::SplitLayout twoByTwo;
		twoByTwo.m_widgets = { { 0, -1, false, -1, 0, 0, 2 }, { 1, 0, false, -1, 0, 0, 1 }, { 2, 0, false, -1, 0, 0, 1 },
							   { 3, 1, false, 0, 0, 0, 0 }, { 4, 1, false, 1, 0, 0, 0 }, { 5, 2, false, 2, 0, 0, 0 },
							   { 6, 2, false, 3, 0, 0, 0 } };
		handler().setSplitLayout(twoByTwo);
		for (int i = 0; i < 4; ++i) {
			handler().renameMapper(i, QString("Chart number %1 with a long name that says what it shows").arg(i + 1));
			handler().setChartProperty(i, SCI::AbstractChartModel::TitleText,
									   "Temperature and relative humidity at the inner surface of the wall corner");
		}
		QCoreApplication::processEvents();
		EXPECT_EQ(window.mainView()->viewManager()->views().size(), 4);
		minimum = window.minimumSizeHint();
	}
	QApplication::setFont(testFont);
	// a 1366x768 screen less the window frame, menu and status bar stay for the docks and views
	EXPECT_LE(minimum.width(), 1366);
	EXPECT_LE(minimum.height(), 768 - 150);
}


TEST_F(MainWindowTest, AutoRefreshFollowsRewrittenDataFiles) {
	const QString dir = OVATest::scratchDir("mw-refresh");
	createSession(dir, { "T" });
	// the window opens the session given on the command line once the event loop runs
	m_settings->m_initialProjectFile = dir + "/session.o2";
	ASSERT_EQ(handler().saveProject(nullptr, m_settings->m_initialProjectFile), OVP::ProjectHandler::SaveOK);
	handler().closeProject(nullptr);
	OVAMainWindow window;
	QCoreApplication::processEvents();
	ASSERT_TRUE(handler().isValid());
	ASSERT_EQ(handler().projectFile(), m_settings->m_initialProjectFile);
	const OVP::Mapper & mapper = *handler().project().mapperModel()->mapper(0);
	const ZEB::UnitVector & y = mapper.extractors2D()[0].output2D().y();
	ASSERT_EQ(y.size(), 49u);

	/*! Rewrites the data file with n time points of a constant value, as a running simulation
		would, and runs the event loop until the chart data has n values or the time is up.
	*/
	auto rewriteAndWait = [&](std::size_t n, double value, int maxMs) {
		std::vector<double> time;
		for (std::size_t i = 0; i < n; ++i)
			time.push_back(static_cast<double>(i));
		OVATest::writeTimeSeries(dir + "/T.out", time, std::vector<double>(n, value), "T");
		QElapsedTimer clock;
		clock.start();
		while (y.size() != n && clock.elapsed() < maxMs)
			QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
	};

	window.mainView()->actions().m_autoRefresh->setChecked(true);
	rewriteAndWait(60, 99, 5000);
	ASSERT_EQ(y.size(), 60u);
	EXPECT_EQ(y[59], 99);

	// switched off, a rewritten file is read on request
	window.mainView()->actions().m_autoRefresh->setChecked(false);
	rewriteAndWait(70, 42, 0);
	window.mainView()->actions().m_refreshMappers->trigger();
	ASSERT_EQ(y.size(), 70u);
	EXPECT_EQ(y[0], 42);
}


TEST_F(MainWindowTest, SessionPanelListsCheckedFoldersAndShowsSelectedCharts) {
	// the panels follow their settings, and the View menu entries change them
	m_settings->m_panelWestVisible = false;
	m_settings->m_panelEastVisible = false;
	m_settings->m_panelSouthVisible = false;
	OVAMainWindow window;
	window.show();
	QCoreApplication::processEvents();
	for (const char * dock : { "SessionPanel", "PropertyPanel", "LogPanel" }) {
		QDockWidget * panelDock = window.findChild<QDockWidget *>(dock);
		EXPECT_FALSE(panelDock->isVisible());
		EXPECT_TRUE(menuActions(window, "&View").contains(panelDock->toggleViewAction()));
	}
	window.findChild<QDockWidget *>("SessionPanel")->toggleViewAction()->trigger();
	EXPECT_TRUE(window.sessionPanel()->isVisible());
	EXPECT_TRUE(m_settings->m_panelWestVisible);
	const QString dir = OVATest::scratchDir("mw-panel");
	createSession(dir, { "T", "RH", "TSurface" });
	SessionPanel * panel = window.sessionPanel();

	// a checked folder lists its files in the table (what is listed is the table model's); unchecked, none
	OVP::DirectoryTreeModel * folders = panel->directoryModel();
	ASSERT_TRUE(folders->addDirectory(dir));
	ASSERT_TRUE(folders->setData(folders->index(0, 0), Qt::Checked, Qt::CheckStateRole));
	panel->fileModel()->readPendingHeaders();
	EXPECT_EQ(panel->dataManager()->tableView()->model()->rowCount(), 3);
	ASSERT_TRUE(folders->setData(folders->index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
	EXPECT_EQ(panel->dataManager()->tableView()->model()->rowCount(), 0);

	// taking the focus makes a row current but chooses no chart
	MapperTreeView * charts = panel->mapperView();
	ViewManager * views = window.mainView()->viewManager();
	ASSERT_NE(views->focusedView(), nullptr);
	views->showMapper(1);
	QFocusEvent focusIn(QEvent::FocusIn, Qt::TabFocusReason);
	QCoreApplication::sendEvent(charts, &focusIn);
	EXPECT_TRUE(charts->currentIndex().isValid());
	EXPECT_EQ(views->focusedView()->mapperIndex(), 1);
	// the property panel shows the focused chart; a double click on an axis opens its page
	OVP::PropertyPanel * properties = window.findChild<OVP::PropertyPanel *>();
	EXPECT_EQ(properties->mapper(), handler().project().mapperModel()->mapper(1));
	emit views->currentChart()->elementDoubleClicked(SCI::ChartElement(SCI::ChartElement::Axis, 1));
	EXPECT_TRUE(properties->isVisible());
	EXPECT_TRUE(m_settings->m_panelEastVisible);
	EXPECT_EQ(properties->currentPage()->title(), "y-axis");
	// a chart made current in the tree goes into the focused view; Delete asks first
	charts->setCurrentIndex(charts->model()->index(2, 0));
	EXPECT_EQ(views->focusedView()->mapperIndex(), 2);
	QKeyEvent del(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
	QCoreApplication::sendEvent(charts, &del);
	EXPECT_EQ(m_messages->count(ZEB::MSG_WARNING, "Delete charts: Delete the chart 'TSurface'? -> refused in a scripted run.",
								"[LogUserInteraction::askConfirmation]"), 1);
	EXPECT_EQ(handler().project().mapperModel()->mapperCount(), 3);
}


namespace {

/*! Answers the next modal message box with a button and records its title. */
class BoxAnswerer {
public:
	explicit BoxAnswerer(QMessageBox::StandardButton button) {
		m_poll.setInterval(10);
		QObject::connect(&m_poll, &QTimer::timeout, [this, button]() {
			QMessageBox * box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
			if (box == nullptr)
				return;
			m_titles.append(box->windowTitle());
			box->button(button)->click();
		});
		m_poll.start();
	}
	QStringList	m_titles;
private:
	QTimer		m_poll;
};

/*! Moves the activation away from window and back, as when the user returns to the program. */
void reactivate(QWidget & window) {
	QWidget other;
	other.show();
	other.activateWindow();
	QCoreApplication::processEvents();
	window.activateWindow();
	QCoreApplication::processEvents();
}

} // namespace


TEST_F(MainWindowTest, ExternallyChangedSessionFileIsReloadedOnRequest) {
	const QString file = writeModifiedSession("mw-external");
	m_settings->m_initialProjectFile = file;
	OVAMainWindow window;
	window.show();
	window.activateWindow();
	QCoreApplication::processEvents();
	ASSERT_EQ(handler().projectFile(), file);
	handler().renameMapper(0, "Changed here");

	// another program touches the file in the middle of reading a large file (the event loop running
	// at every percent): the question waits, a reload would take the files away; the status bar shows the read
	QFile touched(file);
	ASSERT_TRUE(touched.open(QIODevice::ReadWrite));
	ASSERT_TRUE(touched.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
	touched.close();
	const QString large = QFileInfo(file).absolutePath() + "/large.out";
	OVATest::writeTimeSeries(large, { 0 }, { 20 }, "T");
	QFile append(large);
	ASSERT_TRUE(append.open(QIODevice::Append));
	for (int t = 1; t <= 1000000; ++t)
		append.write(QByteArray::number(t) + " 20\n");
	append.close();
	window.findChild<OVP::ProgressNotifier *>()->setEventInterval(0);
	const ReadProgressWidget * progress = window.findChild<ReadProgressWidget *>();
	ASSERT_NE(progress, nullptr);
	bool shownWhileReading = false;
	{
		BoxAnswerer yes(QMessageBox::Yes);
		QMetaObject::invokeMethod(&window, [&]() {
			shownWhileReading = progress->isVisible();
			reactivate(window);
		}, Qt::QueuedConnection);
		EXPECT_EQ(handler().dataManager().container(large)->timePoints().size(), 1000001u);
		EXPECT_TRUE(yes.m_titles.isEmpty());
	}
	EXPECT_TRUE(shownWhileReading);
	EXPECT_FALSE(progress->isVisible());

	// after the read the question comes, once; answered with "Yes", the file is reloaded and the
	// change made here dropped
	{
		BoxAnswerer yes(QMessageBox::Yes);
		reactivate(window);
		reactivate(window);
		EXPECT_EQ(yes.m_titles, QStringList{ "Reload project file" });
	}
	EXPECT_EQ(handler().project().mapperModel()->mapper(0)->name(), "T");
	EXPECT_FALSE(handler().isModified());
	EXPECT_EQ(handler().lastReadTime(), QFileInfo(file).lastModified());
}


TEST_F(MainWindowTest, LogPanelLogFileAndFullScreen) {
	// the program's message handler; what it said before the window exists shows in the log panel
	OVP::MessageHandler messages;
	messages.setConsoleVerbosityLevel(0);
	ZEB::MessageHandler::setCurrent(&messages);
	ZEB::reportWarning("before the window", "[Test]", 0);
	OVAMainWindow window;
	window.setWindowState(Qt::WindowMaximized);
	window.show();
	ZEB::reportError("with the window", "[Test]", 0);
	ZEB::MessageHandler::setCurrent(m_messages.get());
	const QtExt::LogModel * log = window.findChild<QtExt::LogWidget *>()->model();
	ASSERT_EQ(log->rowCount(), 2);
	EXPECT_EQ(log->index(0).data(), "before the window");
	EXPECT_EQ(log->index(1).data(QtExt::LogModel::TypeRole), ZEB::MSG_ERROR);

	const MainView::Actions & a = window.mainView()->actions();
	a.m_fullScreen->trigger();
	EXPECT_TRUE(window.isFullScreen());
	a.m_fullScreen->trigger();
	EXPECT_EQ(window.windowState(), Qt::WindowMaximized);
	EXPECT_FALSE(a.m_fullScreen->isChecked());

	// the log file of this run, in a window of its own
	QDir().mkpath(OVADirectories::userDataDir());
	OVATest::writeText(OVADirectories::logFile(), "first\nlast\n");
	a.m_showLogFile->trigger();
	const QtExt::LogFileDialog * logFile = window.findChild<QtExt::LogFileDialog *>();
	ASSERT_NE(logFile, nullptr);
	EXPECT_EQ(logFile->text(), "first\nlast\n");
}


TEST_F(MainWindowTest, ChartMenuCopiesTheCurrentChartToTheClipboard) {
	OVAMainWindow window;
	window.mainView()->setScriptedRun();
	window.show();
	// the start-up session (an empty one) opens
	QCoreApplication::processEvents();
	const MainView::Actions & a = window.mainView()->actions();

	// without chart in the view, a message and an untouched clipboard
	QApplication::clipboard()->setText("before");
	a.m_copyChartEmf->trigger();
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Copy chart: The current view shows no chart that could be copied.",
								"[LogUserInteraction::showCritical]"), 1);
	EXPECT_EQ(QApplication::clipboard()->text(), "before");

	createSession(OVATest::scratchDir("mw-copy"), { "T" });
	window.mainView()->viewManager()->showMapper(0);
	QCoreApplication::processEvents();
	ASSERT_NE(window.mainView()->viewManager()->currentChart(), nullptr);
	// what the clipboard holds is the chart library's; both actions reach it
	const QSize size = window.mainView()->viewManager()->currentChart()->size();
	a.m_copyChartBitmap->trigger();
	EXPECT_EQ(qvariant_cast<QImage>(QApplication::clipboard()->mimeData()->imageData()).size(), size);
	a.m_copyChartEmf->trigger();
	EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasFormat("image/x-emf"));
}


namespace {

/*! Hands the next modal dialog, which must be a Dialog, to handle, which closes it. */
template <typename Dialog>
void onNextModal(const std::function<void(Dialog *)> & handle) {
	QTimer * poll = new QTimer;
	poll->setInterval(10);
	QObject::connect(poll, &QTimer::timeout, [poll, handle]() {
		QWidget * modal = QApplication::activeModalWidget();
		if (modal == nullptr)
			return;
		poll->deleteLater();
		poll->stop();
		Dialog * dialog = qobject_cast<Dialog *>(modal);
		ASSERT_NE(dialog, nullptr) << modal->metaObject()->className();
		handle(dialog);
	});
	poll->start();
}

} // namespace


TEST_F(MainWindowTest, EditSessionFileAboutAndUpdateActions) {
	OVAMainWindow window;
	window.mainView()->setScriptedRun();
	QCoreApplication::processEvents();
	QAction * edit = window.mainView()->actions().m_editSessionFile;
	QAction * updates = menuAction(window, "&Help", "Check for updates...");
	QAction * about = menuAction(window, "&Help", "About Orvane...");
	ASSERT_TRUE(edit && updates && about);

	// without a session file there is nothing to edit
	edit->trigger();
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Edit session file: The session has not been saved to a file yet. "
				"Save it first, then edit its file.", "[LogUserInteraction::showCritical]"), 1);

	// without an editor the preferences open at the editor; the editor chosen there is stored
	const QString dir = OVATest::scratchDir("mw-edit");
	createSession(dir, { "T" });
	ASSERT_EQ(handler().saveProject(nullptr, dir + "/session.o2"), OVP::ProjectHandler::SaveOK);
	const QString editor = dir + "/editor.sh";
	OVATest::writeText(editor, "#!/bin/sh\necho \"$1\" > \"$1.edited\"\n");
	QFile(editor).setPermissions(QFile(editor).permissions() | QFileDevice::ExeOwner);
	m_settings->m_textEditorExecutable = dir + "/no-editor";
	PreferencesDialog::Field focused = PreferencesDialog::F_Language;
	onNextModal<PreferencesDialog>([&](PreferencesDialog * dialog) {
		focused = dialog->focusedField();
		dialog->findChild<QtExt::BrowseFilenameWidget *>()->setFilename(editor);
		dialog->accept();
	});
	edit->trigger();
	EXPECT_EQ(focused, PreferencesDialog::F_TextEditor);
	EXPECT_EQ(m_settings->openStore()->value("TextEditorExecutable").toString(), editor);

	// the editor gets the session file; the hint after it can be switched off
	onNextModal<QMessageBox>([](QMessageBox * hint) {
		hint->checkBox()->setChecked(true);
		hint->accept();
	});
	edit->trigger();
	EXPECT_TRUE(m_settings->isDoNotShowAgain("EditSessionFileHint"));
	const QString edited = dir + "/session.o2.edited";
	QElapsedTimer waited;
	waited.start();
	while (!QFileInfo::exists(edited) && waited.elapsed() < 10000)
		QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
	EXPECT_EQ(OVATest::readText(edited).trimmed(), dir + "/session.o2");

	// without an update address the update check asks for one instead of using the network
	onNextModal<PreferencesDialog>([&](PreferencesDialog * dialog) {
		focused = dialog->focusedField();
		dialog->reject();
	});
	updates->trigger();
	EXPECT_EQ(focused, PreferencesDialog::F_UpdateUrl);

	QString aboutText;
	onNextModal<QDialog>([&](QDialog * dialog) {
		aboutText = dialog->findChild<QLabel *>("AboutText")->text();
		dialog->accept();
	});
	about->trigger();
	for (const QString & expected : { QString("Orvane " ORVANEAPP_VERSION), QString("Qt ") + qVersion(),
									  QString("Qwt 6.1"), OVADirectories::logFile() })
		EXPECT_TRUE(aboutText.contains(expected)) << expected.toStdString() << " in " << aboutText.toStdString();
}


TEST_F(MainWindowTest, EveryActionOfTheTablesIsInAMenuWithItsShortcutAndSlot) {
	OVAMainWindow window;
	window.mainView()->setScriptedRun();
	QCoreApplication::processEvents();
	const MainView::Actions & a = window.mainView()->actions();
	// actions with one shortcut, with two, with a text that names the style, and one without
	struct Row { const QAction * action; const char * text; QList<QKeySequence> keys; };
	const Row rows[] = {
		{ a.m_newSession, "New session", { QKeySequence("Ctrl+N") } },
		{ a.m_editSessionFile, "Edit session file in text editor", { QKeySequence("F2") } },
		{ a.m_removeSplit, "Unify", { QKeySequence("Ctrl+0") } },
		{ a.m_gotoNextSplit, "Jump to next window", { QKeySequence("Ctrl+Tab") } },
		{ a.m_undo, "Undo", { QKeySequence("Ctrl+Z") } },
		{ a.m_redo, "Redo", { QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y") } },
		{ a.m_refreshMappers, "Refresh charts/data", { QKeySequence("F5"), QKeySequence("Ctrl+R") } },
		{ a.m_fullScreen, "Full screen mode", { QKeySequence("F11") } },
		{ a.m_applyLastChartStyle, "Apply style/format: '", { QKeySequence("Ctrl+F") } },
		{ a.m_autoRefresh, "Auto-refresh charts/data", {} },
	};
	// every action and submenu reachable from the menu bar
	QList<QAction *> inMenus;
	std::function<void(const QMenu *)> collect = [&](const QMenu * menu) {
		for (QAction * entry : menu->actions()) {
			inMenus.append(entry);
			if (entry->menu() != nullptr)
				collect(entry->menu());
		}
	};
	for (const QAction * m : window.menuBar()->actions())
		collect(m->menu());
	for (const Row & row : rows) {
		SCOPED_TRACE(row.text);
		ASSERT_NE(row.action, nullptr);
		EXPECT_TRUE(row.action->text().startsWith(row.text)) << row.action->text().toStdString();
		EXPECT_EQ(row.action->shortcuts(), row.keys);
		EXPECT_TRUE(inMenus.contains(const_cast<QAction *>(row.action)));
	}
}
