#include <gtest/gtest.h>

#include <memory>

#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTableView>
#include <QUrl>

#include <OVP_DataManagerTableModel.h>
#include <OVP_DirectoryTreeModel.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

#include <Sci_Chart.h>

#include "ChartView.h"
#include "DataManagerPanel.h"
#include "MainView.h"
#include "OVAMainWindow.h"
#include "OVA_TestUtils.h"
#include "SessionPanel.h"
#include "ViewManager.h"

namespace {

/*! The main window over a new session, with the time series T, RH and TSurface (all in C)
	in the folder data/ of the test's scratch folder.
*/
class ChartActionsTest : public OVATest::SessionTest {
protected:
	void SetUp() override {
		SessionTest::SetUp();
		m_dir = OVATest::scratchDir(QString::fromUtf8(::testing::UnitTest::GetInstance()->current_test_info()->name()));
		QDir(m_dir).mkpath("data");
		for (const char * quantity : { "T", "RH", "TSurface" })
			OVATest::writeTimeSeries(m_dir + "/data/" + quantity + ".out", { 0, 1, 2 }, { 20, 21, 22 }, quantity);
		handler().newProject();
		m_window.reset(new OVAMainWindow);
		m_window->mainView()->setScriptedRun();
		QCoreApplication::processEvents();
	}

	void TearDown() override {
		m_window.reset();
		SessionTest::TearDown();
	}

	SessionPanel * panel() { return m_window->sessionPanel(); }
	ViewManager * views() { return m_window->mainView()->viewManager(); }
	QTableView * table() { return panel()->dataManager()->tableView(); }

	/*! The table rows of these files in data/ (the table is neither sorted nor filtered). */
	QModelIndexList rows(const QStringList & names) {
		QModelIndexList indexes;
		for (const QString & name : names)
			indexes << table()->model()->index(panel()->fileModel()->rowOfFile(m_dir + "/data/" + name), 0);
		return indexes;
	}

	void select(const QStringList & names) {
		table()->clearSelection();
		for (const QModelIndex & index : rows(names))
			table()->selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
	}

	void click(const char * button) {
		panel()->dataManager()->findChild<QPushButton *>(button)->click();
	}

	/*! Drags mime onto target and drops it there, offering copy and move and asking for a move
		(Shift); the target must take it as a copy (a move would let a file manager delete the
		file).
	*/
	void dragAndDrop(QWidget * target, const QMimeData * mime) {
		const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
		QDragEnterEvent enter(QPoint(5, 5), offered, mime, Qt::LeftButton, Qt::ShiftModifier);
		QCoreApplication::sendEvent(target, &enter);
		QDropEvent drop(QPointF(5, 5), offered, mime, Qt::LeftButton, Qt::ShiftModifier);
		QCoreApplication::sendEvent(target, &drop);
		EXPECT_TRUE(drop.isAccepted());
		EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
	}

	/*! Drops URLs on the window and runs the event loop until pending headers are read. */
	void dropUrls(const QList<QUrl> & urls) {
		QMimeData mime;
		mime.setUrls(urls);
		dragAndDrop(m_window.get(), &mime);
		QElapsedTimer clock;
		clock.start();
		do
			QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
		while (panel()->fileModel()->isReadingHeaders() && clock.elapsed() < 5000);
	}

	/*! Names of the selected files in the table. */
	QStringList selectedNames() {
		QStringList names;
		for (const QModelIndex & index : table()->selectionModel()->selectedRows(OVP::DataManagerTableModel::ColName))
			names << index.data().toString();
		return names;
	}

	const OVP::Mapper & mapper(int index) { return *handler().project().mapperModel()->mapper(index); }
	int mapperCount() { return handler().project().mapperModel()->mapperCount(); }

	QString							m_dir;
	std::unique_ptr<OVAMainWindow>	m_window;
};

} // namespace


TEST_F(ChartActionsTest, SelectionMakesChartsInTheFocusedViewAndDropsGoToTheirView) {
	ASSERT_TRUE(panel()->directoryModel()->checkDirectory(m_dir + "/data"));
	panel()->fileModel()->readPendingHeaders();
	views()->onSplitHorizontal();
	ASSERT_EQ(views()->views().size(), 2);
	/*! The mapper index of each view. */
	auto shown = [this]() {
		QList<int> mappers;
		for (const ChartView * v : views()->views())
			mappers << v->mapperIndex();
		return mappers;
	};

	// nothing to add to yet: said, nothing changes
	select({ "T.out" });
	click("addToChart");
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Cannot add to chart: There is no chart to add the data sets to.",
								"[LogUserInteraction::showCritical]"), 1);
	EXPECT_EQ(mapperCount(), 0);

	click("createChart");
	ASSERT_EQ(mapperCount(), 1);
	EXPECT_EQ(mapper(0).name(), "T");
	// in the view made by the split, which has the focus
	EXPECT_EQ(shown(), QList<int>({ -1, 0 }));
	select({ "RH.out", "TSurface.out" });
	const std::size_t logged = m_messages->m_messages.size();
	click("addToChart");
	// the shown chart takes the new series without complaint
	EXPECT_EQ(handler().project().mapperModel()->mapper(0)->chart()->seriesCount(), 3);
	for (std::size_t i = logged; i < m_messages->m_messages.size(); ++i)
		EXPECT_NE(m_messages->m_messages[i].m_type, ZEB::MSG_ERROR) << m_messages->m_messages[i].m_text;

	// a drop on the empty view makes a chart in it, a drop on a chart adds to it
	std::unique_ptr<QMimeData> mime(table()->model()->mimeData(rows({ "TSurface.out" })));
	dragAndDrop(views()->views().at(0), mime.get());
	ASSERT_EQ(mapperCount(), 2);
	EXPECT_EQ(shown(), QList<int>({ 1, 0 }));
	EXPECT_EQ(views()->focusedView()->mapperIndex(), 1);
	mime.reset(table()->model()->mimeData(rows({ "RH.out" })));
	dragAndDrop(views()->views().at(1), mime.get());
	EXPECT_EQ(mapper(0).extractors2D().size(), 4u);
	EXPECT_EQ(views()->focusedView()->mapperIndex(), 0);

	// from the filter line, Down selects the first file shown, and Enter creates its chart
	QLineEdit * filter = panel()->dataManager()->filterEdit();
	filter->setText("RH");
	table()->clearSelection();
	QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
	QCoreApplication::sendEvent(filter, &down);
	QFocusEvent focusIn(QEvent::FocusIn, Qt::TabFocusReason);
	QCoreApplication::sendEvent(table(), &focusIn);
	EXPECT_EQ(selectedNames(), QStringList({ "RH.out" }));
	QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
	QCoreApplication::sendEvent(table(), &enter);
	ASSERT_EQ(mapperCount(), 3);
	EXPECT_EQ(shown(), QList<int>({ 1, 2 }));
}


TEST_F(ChartActionsTest, FilesDroppedFromAFileManager) {
	ASSERT_TRUE(handler().addDirectory(m_dir));
	const std::vector<OVP::Directory> & directories = handler().project().m_directories;

	// a result file below a registered directory has its own folder checked there
	dropUrls({ QUrl::fromLocalFile(m_dir + "/data/RH.out") });
	ASSERT_EQ(directories.size(), 1u);
	EXPECT_TRUE(directories[0].m_subDirectories.value("data").m_checked);
	EXPECT_EQ(selectedNames(), QStringList({ "RH.out" }));

	// a folder is registered (a file elsewhere adds its folder alike, as in the folder tree); other
	// files and remote URLs are refused with a message
	OVATest::writeText(m_dir + "/notes.txt", "notes");
	m_settings->m_fileNameFilter = QStringList({ "*.out", "*.s6o" });
	const QString other = OVATest::scratchDir("drop-folder");
	dropUrls({ QUrl::fromLocalFile(other), QUrl::fromLocalFile(m_dir + "/notes.txt"), QUrl("https://example.org/a.out") });
	ASSERT_EQ(directories.size(), 2u);
	EXPECT_EQ(directories[1].m_path, other);
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, ("Cannot open dropped file: '" + m_dir + "/notes.txt' is neither a "
		"session file (*.o2), a result file (*.out *.s6o) nor a folder; nothing was opened.").toStdString(),
		"[LogUserInteraction::showCritical]"), 1);
	EXPECT_EQ(m_messages->text(ZEB::MSG_ERROR).find("'https://example.org/a.out' is not a local file") != std::string::npos, true);

	// a session file replaces the session
	const QString session = m_dir + "/saved.o2";
	createSession(m_dir, { "Tsession" });
	ASSERT_EQ(handler().saveProject(nullptr, session), OVP::ProjectHandler::SaveOK);
	handler().newProject();
	dropUrls({ QUrl::fromLocalFile(session) });
	EXPECT_EQ(handler().projectFile(), session);
	EXPECT_EQ(mapperCount(), 1);
}
