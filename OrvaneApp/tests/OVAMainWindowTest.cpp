#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QScreen>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QTableView>
#include <QTimer>

#include <Sci_AbstractChartModel.h>
#include <Sci_Chart.h>

#include <OVP_DataManagerTableModel.h>
#include <OVP_DirectoryTreeModel.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_ProgressNotifier.h>
#include <OVP_Project.h>
#include <OVP_PropertyPage.h>
#include <OVP_PropertyPanel.h>

#include <EM_Extractor2DOutputBase.h>
#include <ZEB_UnitVector.h>

#include "ChartView.h"
#include "DataManagerPanel.h"
#include "MainView.h"
#include "MapperTreeView.h"
#include "OVAMainWindow.h"
#include "OVA_TestUtils.h"
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

	/*! Lets the handler answer save questions with answer; returns the interaction to inspect. */
	OVATest::AnsweringUserInteraction * answerWith(OVP::UserInteraction::SaveAnswer answer) {
		OVATest::AnsweringUserInteraction * ui = new OVATest::AnsweringUserInteraction(answer);
		handler().setUserInteraction(std::unique_ptr<OVP::UserInteraction>(ui));
		return ui;
	}
};

} // namespace


TEST_F(MainWindowTest, CancelInTheSaveQuestionKeepsWindowAndSession) {
	const QString file = writeModifiedSession("mw-cancel");
	OVAMainWindow window;
	window.show();
	OVATest::AnsweringUserInteraction * ui = answerWith(OVP::UserInteraction::AnswerCancel);

	EXPECT_FALSE(window.close());
	EXPECT_TRUE(window.isVisible());
	ASSERT_EQ(ui->m_shown.size(), 1);
	EXPECT_EQ(ui->m_shown[0], "Would you like to save the project before closing it?");
	ASSERT_TRUE(handler().isValid());
	EXPECT_TRUE(handler().isModified());
	EXPECT_EQ(handler().projectFile(), file);
	EXPECT_EQ(handler().project().mapperModel()->mapperCount(), 2);
	// nothing was stored
	EXPECT_FALSE(m_settings->openStore()->contains("MainWindowGeometry"));
}


TEST_F(MainWindowTest, ClosingStoresTheSessionFileAndWindowState) {
	const QString file = writeModifiedSession("mw-close");
	{
		OVAMainWindow window;
		window.show();
		answerWith(OVP::UserInteraction::AnswerDiscard);

		EXPECT_TRUE(window.close());
		EXPECT_FALSE(handler().isValid());
		std::unique_ptr<QSettings> store = m_settings->openStore();
		EXPECT_EQ(store->value("LastProjectFile").toString(), file);
		EXPECT_FALSE(store->value("MainWindowGeometry").toByteArray().isEmpty());
		EXPECT_FALSE(store->value("MainWindowState").toByteArray().isEmpty());
	}

	// a second window (there is one main window at a time) without session clears the last
	// session file
	OVAMainWindow second;
	second.show();
	EXPECT_TRUE(second.close());
	EXPECT_TRUE(m_settings->openStore()->value("LastProjectFile").toString().isEmpty());
}


TEST_F(MainWindowTest, CloseWithoutQuestionNeitherAsksNorStores) {
	writeModifiedSession("mw-noquestion");
	OVAMainWindow window;
	window.show();
	OVATest::AnsweringUserInteraction * ui = answerWith(OVP::UserInteraction::AnswerCancel);
	window.onCloseWithoutQuestion();
	EXPECT_FALSE(window.isVisible());
	EXPECT_TRUE(ui->m_shown.isEmpty());
	EXPECT_FALSE(m_settings->openStore()->contains("LastProjectFile"));
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
	EXPECT_TRUE(handler().projectFile().isEmpty());
	EXPECT_EQ(handler().project().mapperModel()->mapperCount(), 0);
	EXPECT_EQ(window.windowTitle(), QString::fromUtf8("Unnamed session[*] \u2014 Orvane"));

	view->openSession(file);
	ASSERT_TRUE(handler().isValid());
	EXPECT_EQ(handler().projectFile(), file);
	EXPECT_EQ(handler().project().mapperModel()->mapperCount(), 2);
	EXPECT_FALSE(handler().isModified());
	EXPECT_EQ(m_settings->m_recentProjects.value(0), file);
	// the title names file and folder and marks changes
	EXPECT_EQ(window.windowTitle(), QString::fromUtf8("session.o2[*] \u2014 %1 \u2014 Orvane")
			  .arg(QFileInfo(file).absolutePath()));
	EXPECT_FALSE(window.isWindowModified());
	handler().renameMapper(0, "Indoor temperature");
	EXPECT_TRUE(window.isWindowModified());

	// a file that is no session fails to load and also leaves an empty session
	OVATest::writeText(QFileInfo(file).absolutePath() + "/broken.o2", "<orvane/>");
	view->openSession(QFileInfo(file).absolutePath() + "/broken.o2");
	ASSERT_TRUE(handler().isValid());
	EXPECT_EQ(handler().project().mapperModel()->mapperCount(), 0);
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


TEST_F(MainWindowTest, EditMenuNamesTheChangeAndUndoingToTheSavedStateClearsTheMark) {
	writeModifiedSession("mw-undo");
	OVAMainWindow window;
	const MainView::Actions & a = window.mainView()->actions();
	QMenu * edit = nullptr;
	for (QAction * menu : window.menuBar()->actions())
		if (menu->text() == "&Edit")
			edit = menu->menu();
	ASSERT_NE(edit, nullptr);
	EXPECT_EQ(edit->actions(), QList<QAction *>({ a.m_undo, a.m_redo }));
	EXPECT_EQ(a.m_undo->shortcut(), QKeySequence("Ctrl+Z"));
	EXPECT_EQ(a.m_redo->shortcuts(), QList<QKeySequence>({ QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y") }));

	EXPECT_TRUE(window.isWindowModified());
	EXPECT_EQ(a.m_undo->text(), "Undo: rename chart 'T'");
	EXPECT_FALSE(a.m_redo->isEnabled());
	EXPECT_EQ(a.m_redo->text(), "Redo");
	a.m_undo->trigger();
	EXPECT_FALSE(window.isWindowModified());
	EXPECT_EQ(handler().project().mapperModel()->mapper(0)->name(), "T");
	EXPECT_EQ(a.m_redo->text(), "Redo: rename chart 'T'");
	a.m_redo->trigger();
	EXPECT_TRUE(window.isWindowModified());
	EXPECT_EQ(handler().project().mapperModel()->mapper(0)->name(), "Temperature");

	handler().newProject();
	EXPECT_FALSE(a.m_undo->isEnabled());
	EXPECT_EQ(a.m_undo->text(), "Undo");
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

	// switched off, a rewritten file is not read in by itself, but on request
	window.mainView()->actions().m_autoRefresh->setChecked(false);
	rewriteAndWait(70, 42, 2500);
	EXPECT_EQ(y.size(), 60u);
	window.mainView()->actions().m_refreshMappers->trigger();
	ASSERT_EQ(y.size(), 70u);
	EXPECT_EQ(y[0], 42);
}


TEST_F(MainWindowTest, SessionPanelListsCheckedFoldersAndShowsSelectedCharts) {
	// the panels follow their settings, and the View menu entries change them
	m_settings->m_panelWestVisible = false;
	m_settings->m_panelEastVisible = false;
	OVAMainWindow window;
	window.show();
	QCoreApplication::processEvents();
	for (const char * dock : { "SessionPanel", "PropertyPanel" }) {
		QDockWidget * panelDock = window.findChild<QDockWidget *>(dock);
		EXPECT_FALSE(panelDock->isVisible());
		EXPECT_FALSE(panelDock->toggleViewAction()->isChecked());
		if (dock == std::string("SessionPanel"))
			panelDock->toggleViewAction()->trigger();
	}
	EXPECT_TRUE(window.sessionPanel()->isVisible());
	EXPECT_TRUE(m_settings->m_panelWestVisible);
	const QString dir = OVATest::scratchDir("mw-panel");
	createSession(dir, { "T", "RH", "TSurface" });
	SessionPanel * panel = window.sessionPanel();

	// a checked folder lists its files in the table, with the folder's colour; unchecked, none
	OVP::DirectoryTreeModel * folders = panel->directoryModel();
	ASSERT_TRUE(folders->addDirectory(dir));
	const QModelIndex top = folders->index(0, 0);
	folders->setColor(top, QColor("#ff8000"));
	ASSERT_TRUE(folders->setData(top, Qt::Checked, Qt::CheckStateRole));
	panel->fileModel()->readPendingHeaders();
	const QAbstractItemModel * table = panel->dataManager()->tableView()->model();
	QStringList names;
	for (int row = 0; row < table->rowCount(); ++row) {
		names.append(table->index(row, OVP::DataManagerTableModel::ColName).data().toString());
		EXPECT_EQ(table->index(row, OVP::DataManagerTableModel::ColColor).data(Qt::DecorationRole).value<QColor>(),
				  QColor("#ff8000"));
	}
	names.sort();
	EXPECT_EQ(names, QStringList({ "RH.out", "T.out", "TSurface.out" }));
	panel->dataManager()->filterEdit()->setText("rh");
	EXPECT_EQ(table->rowCount(), 1);
	ASSERT_TRUE(folders->setData(top, Qt::Unchecked, Qt::CheckStateRole));
	panel->dataManager()->filterEdit()->clear();
	EXPECT_EQ(table->rowCount(), 0);

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

	// another program touches the file: the question comes once, "No" keeps the session
	QFile touched(file);
	ASSERT_TRUE(touched.open(QIODevice::ReadWrite));
	ASSERT_TRUE(touched.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
	touched.close();
	{
		BoxAnswerer no(QMessageBox::No);
		reactivate(window);
		reactivate(window);
		EXPECT_EQ(no.m_titles, QStringList{ "Reload project file" });
	}
	EXPECT_EQ(handler().project().mapperModel()->mapper(0)->name(), "Changed here");
	EXPECT_TRUE(handler().isModified());
	const std::string where = "[OVAMainWindow::changeEvent]";
	int asked = 0;
	for (const OVATest::RecordedMessage & m : m_messages->m_messages)
		asked += m.m_where == where && m.m_text.find("asking for update.\n") != std::string::npos ? 1 : 0;
	EXPECT_EQ(asked, 1);

	// the next change: in the middle of reading a large file (the event loop running at every
	// percent) the question waits, a reload would take the files away; the status bar shows the read
	ASSERT_TRUE(touched.open(QIODevice::ReadWrite));
	ASSERT_TRUE(touched.setFileTime(QDateTime::currentDateTime().addSecs(120), QFileDevice::FileModificationTime));
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

	// after the read, answered with "Yes", the file is reloaded and the change made here dropped
	{
		BoxAnswerer yes(QMessageBox::Yes);
		reactivate(window);
		EXPECT_EQ(yes.m_titles.size(), 1);
	}
	EXPECT_EQ(handler().project().mapperModel()->mapper(0)->name(), "T");
	EXPECT_FALSE(handler().isModified());
	EXPECT_EQ(handler().lastReadTime(), QFileInfo(file).lastModified());
}
