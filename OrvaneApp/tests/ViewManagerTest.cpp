#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QSplitter>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

#include <Sci_Chart.h>

#include "ChartTableView.h"
#include "ChartView.h"
#include "OVA_TestUtils.h"
#include "ViewManager.h"

namespace {

class ViewManagerTest : public OVATest::SessionTest {
protected:
	/*! The chart of a mapper of the open session. */
	SCI::Chart * mapperChart(int index) {
		return handler().project().mapperModel()->mapper(index)->chart();
	}

	/*! Mapper index shown by each view, in view order. */
	static QList<int> shownMappers(const ViewManager & vm) {
		QList<int> mappers;
		for (const ChartView * v : vm.views())
			mappers.append(v->mapperIndex());
		return mappers;
	}
};

} // namespace

TEST_F(ViewManagerTest, FocusAndSplitterMovesModifyWithoutUndoStepsAsDoesAChartChoice) {
	const QString file = OVATest::scratchDir("vm-focus") + "/s.o2";
	createSession(OVATest::scratchDir("vm-focus"), { "T", "RH", "Tsurf" });
	ViewManager vm;
	vm.onSplitHorizontal();
	vm.onGotoNextSplit();
	ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	const int undoSteps = handler().undoStack().count();

	// a click into the chart of the second view focuses it
	ChartView * second = vm.views()[1];
	QWidget * canvas = second->chart()->canvas();
	QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
	QCoreApplication::sendEvent(canvas, &press);
	EXPECT_EQ(vm.focusedView(), second);
	EXPECT_TRUE(handler().isModified());

	// a moved splitter is kept in the session file
	ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	QSplitter * splitter = qobject_cast<QSplitter *>(second->parentWidget());
	ASSERT_NE(splitter, nullptr);
	splitter->setSizes({ 150, 450 });
	emit splitter->splitterMoved(150, 1);
	EXPECT_TRUE(handler().isModified());
	EXPECT_EQ(handler().undoStack().count(), undoSteps);
	ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	const QString saved = OVATest::readText(file);
	EXPECT_TRUE(saved.contains(QString("size1=\"%1\" size2=\"%2\"").arg(splitter->sizes()[0]).arg(splitter->sizes()[1])))
			<< saved.toStdString();
	EXPECT_TRUE(saved.contains(QString("<FocusedWidget>%1<").arg(second->widgetId())));

	// choosing the third chart in the list of the first view
	QComboBox * list = vm.views()[0]->findChild<QComboBox *>();
	ASSERT_NE(list, nullptr);
	ASSERT_EQ(list->count(), 4);
	emit list->activated(3);
	EXPECT_TRUE(handler().isModified());
	EXPECT_EQ(shownMappers(vm), QList<int>({ 2, 1 }));
	EXPECT_EQ(vm.focusedView(), vm.views()[0]);
}

TEST_F(ViewManagerTest, SplitsEditTheSessionFocusTheNewViewAndChartsStayWithTheirMappers) {
	const QString dir = OVATest::scratchDir("vm-split");
	createSession(dir, { "T", "RH", "Tsurf", "Tin" });
	handler().setSplitLayout(OVP::SplitLayout());
	ViewManager vm;
	vm.resize(1400, 900);
	vm.show();
	QApplication::setActiveWindow(&vm);
	vm.views()[0]->takeKeyboardFocus();
	// saving clears the modified flag, so that the splits below must set it again
	ASSERT_EQ(handler().saveProject(nullptr, dir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	// an action as the user gives it, with the events that follow it
	const auto act = [&vm](void (ViewManager::*slot)()) {
		(vm.*slot)();
		QCoreApplication::processEvents();
	};
	const auto keyboardView = [&vm]() {
		for (ChartView * v : vm.views())
			if (v->isAncestorOf(QApplication::focusWidget()))
				return v;
		return static_cast<ChartView *>(nullptr);
	};

	// each split hands focus and keyboard to the new view
	act(&ViewManager::onSplitHorizontal);
	EXPECT_TRUE(handler().isModified());
	act(&ViewManager::onSplitVertical);
	act(&ViewManager::onSplitHorizontal);
	ASSERT_EQ(vm.views().size(), 4);
	EXPECT_EQ(keyboardView(), vm.views()[3]);

	// a view too small for two is not split, so the window need not grow beyond the screen
	act(&ViewManager::onSplitHorizontal);
	EXPECT_EQ(shownMappers(vm), QList<int>({ 0, 1, 2, 3 }));
	EXPECT_EQ(m_messages->count(ZEB::MSG_WARNING, "There is no room for another view beside this one: enlarge the "
								"window or unify views first.\n", "[ViewManager::roomToSplit]"), 1);

	// the next view in layout order, the first after the last; unify hands the chart back, not deleted
	SCI::Chart * chart1 = mapperChart(1);
	SCI::Chart * chart2 = mapperChart(2);
	act(&ViewManager::onGotoNextSplit);
	act(&ViewManager::onGotoNextSplit);
	act(&ViewManager::onRemoveSplit);
	EXPECT_EQ(shownMappers(vm), QList<int>({ 0, 2, 3 }));
	EXPECT_EQ(chart1->parentWidget(), nullptr);
	ASSERT_EQ(vm.focusedView()->mapperIndex(), 2);
	EXPECT_EQ(keyboardView(), vm.focusedView());

	// unify all keeps the chart of the focused view
	act(&ViewManager::onRemoveAllSplits);
	EXPECT_EQ(shownMappers(vm), QList<int>{ 2 });
	EXPECT_EQ(chart2->parentWidget(), vm.views().first());
	EXPECT_EQ(keyboardView(), vm.views()[0]);
}

TEST_F(ViewManagerTest, ViewsFollowRemovedMappersAndClosedSessions) {
	const QString dir = OVATest::scratchDir("vm-remove");
	createSession(dir, { "T", "RH", "Tsurf" });
	ViewManager vm;
	vm.onSplitHorizontal();
	vm.onSplitHorizontal();
	ASSERT_EQ(shownMappers(vm), QList<int>({ 0, 1, 2 }));

	// the layout indices follow in the session; the views take the charts of their new indices
	handler().removeMappers(1, 1);
	EXPECT_EQ(shownMappers(vm), QList<int>({ 0, -1, 1 }));
	EXPECT_EQ(vm.views()[2]->chart(), mapperChart(1));
	ASSERT_TRUE(handler().undo(nullptr));
	EXPECT_EQ(vm.views()[1]->chart(), mapperChart(1));

	ASSERT_TRUE(handler().closeProject(nullptr));
	EXPECT_TRUE(vm.views().isEmpty());

	handler().newProject();
	EXPECT_EQ(shownMappers(vm), QList<int>{ -1 });

	// a new chart goes into the empty focused view
	OVATest::writeTimeSeries(dir + "/new.out", { 0, 1, 2 }, { 5, 6, 7 }, "T");
	handler().addMapper(OVP::Mapper::createNewMapper(handler().dataManager(), { { dir + "/new.out" } }));
	EXPECT_EQ(shownMappers(vm), QList<int>{ 0 });
	EXPECT_EQ(vm.currentChart(), mapperChart(0));
}

TEST_F(ViewManagerTest, AViewShowsTheDataTableOfItsChartAsAnUndoableChangeKeptInTheSession) {
	const QString dir = OVATest::scratchDir("vm-table");
	createSession(dir, { "T", "RH" });
	ASSERT_EQ(handler().saveProject(nullptr, dir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	ViewManager vm;
	vm.onShowDataTable(true);
	ChartView * v = vm.views()[0];
	ASSERT_TRUE(v->showsTable());
	EXPECT_FALSE(v->chart()->isVisibleTo(v));
	ASSERT_TRUE(handler().undo(nullptr));
	EXPECT_FALSE(vm.views()[0]->showsTable());
	ASSERT_TRUE(handler().redo(nullptr));
	ASSERT_EQ(handler().saveProject(nullptr, dir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(handler().loadProject(nullptr, dir + "/s.o2", true));
	EXPECT_TRUE(vm.views()[0]->showsTable());
	EXPECT_EQ(vm.views()[0]->tableView()->model()->rowCount(), 49);
}
