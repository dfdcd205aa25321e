#include "OVP_ProjectTestUtils.h"

#include <QAbstractItemModelTester>
#include <QDataStream>
#include <QMimeData>
#include <QSignalSpy>

#include <EM_ExtractorBase.h>
#include <EM_ManipulatorBase.h>

#include <Sci_AbstractCartesianChartModel.h>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

using namespace OVPTest;

namespace {

typedef OVP::MapperTreeModel TM;

/*! Sample files and a fresh session whose mapper model runs under the model tester. */
class MapperTreeModelTest : public SampleSessionTest {
protected:
	void SetUp() override {
		SampleSessionTest::SetUp();
		m_model = handler().project().mapperModel();
		m_tester.reset(new QAbstractItemModelTester(m_model, QAbstractItemModelTester::FailureReportingMode::Fatal));
	}
	void TearDown() override {
		m_tester.reset();
		SampleSessionTest::TearDown();
	}

	/*! Adds time series charts named names[i]. */
	void addNamedCharts(const QStringList & names) {
		for (const QString & n : names)
			addChart("T.out").setName(n);
	}

	/*! Names of the charts in session order. */
	QStringList names() const {
		QStringList n;
		for (int i = 0; i < m_model->rowCount(); ++i)
			n.append(m_model->index(i, TM::ColumnName).data().toString());
		return n;
	}

	/*! Text of a data set row of chart row in a column (role display, or tool tip). */
	QString child(int row, int dataSet, int column, int role = Qt::DisplayRole) const {
		return m_model->index(dataSet, column, m_model->index(row, 0)).data(role).toString();
	}

	/*! The mapper index of every view of the split layout. */
	std::vector<int> viewMappers() {
		std::vector<int> v;
		for (const OVP::SplitLayout::Widget & w : handler().project().m_splitLayout.m_widgets)
			v.push_back(w.m_mapperIndex);
		return v;
	}

	/*! Views showing mappers 0..count-1 in order, and one empty view. */
	void setViews(int count) {
		OVP::SplitLayout layout;
		for (int i = 0; i <= count; ++i)
			layout.m_widgets.append(OVP::SplitLayout::Widget{ i, -1, false, i < count ? i : -1, 0, 0, 0 });
		handler().setSplitLayout(layout);
	}

	OVP::MapperTreeModel *						m_model = nullptr;
	std::unique_ptr<QAbstractItemModelTester>	m_tester;
};

} // namespace


TEST_F(MapperTreeModelTest, TreeContent) {
	OVP::Mapper & lines = addChart("T.out");
	EM::ExtractorBase & t = *lines.extractors2D()[0].m_extractor;
	t.addManipulator(OVP::Mapper::createManipulator("2DScaling"));
	t.manipulators().back()->setFromParameter("2");
	t.addManipulator(OVP::Mapper::createManipulator("2DOffset"));
	t.manipulators().back()->setFromParameter("-1.5");
	OVP::Mapper & grid = addChart("plane.out", EM::CT_TimeCut);
	OVP::Mapper & profile = addChart("plane.out", EM::CT_XTCut);
	profile.extractors2D()[0].m_extractor->setCutIndex(EM::CD_X, 2, false);

	// a series added to a chart in the session appears as a child row
	QSignalSpy inserted(m_model, &QAbstractItemModel::rowsInserted);
	lines.addExtractor({ { m_dir + "/T.out" }, { m_dir + "/RH.out" } }, "VTTMouldModel");
	ASSERT_EQ(inserted.count(), 1);
	EXPECT_EQ(inserted[0][0].value<QModelIndex>(), m_model->index(0, 0));
	EXPECT_EQ(inserted[0][1].toInt(), 1);

	EXPECT_EQ(m_model->index(0, 0).data(Qt::ToolTipRole).toString(), "Line chart with 2 data sets");
	EXPECT_EQ(m_model->index(1, 0).data(Qt::ToolTipRole).toString(), "Colour grid with 1 data set");
	EXPECT_EQ(child(0, 0, TM::ColumnManipulators), "2DScaling(2), 2DOffset(-1.5)");
	EXPECT_EQ(child(0, 1, TM::ColumnName), "T.out, RH.out");
	EXPECT_EQ(child(0, 1, TM::ColumnName, Qt::ToolTipRole), m_dir + "/T.out\n" + m_dir + "/RH.out");
	EXPECT_TRUE(child(0, 1, TM::ColumnModel).startsWith("VTTMouldModel: ")) << child(0, 1, TM::ColumnModel).toStdString();
	EXPECT_EQ(child(1, 0, TM::ColumnCut), "TimeCut: t = follow last time point");
	EXPECT_EQ(child(2, 0, TM::ColumnCut), "XTCut: x = 2, t = follow last time point");
	grid.extractor3D().m_extractor->setTimeCutIndex(1, true, false);
	EXPECT_EQ(child(1, 0, TM::ColumnCut), "TimeCut: t = 1 (locked)");

	// every row tells its chart (which rows can be edited, the refusals show)
	EXPECT_EQ(m_model->mapperIndex(m_model->index(0, TM::ColumnCut, m_model->index(2, 0))), 2);
}


TEST_F(MapperTreeModelTest, OperationsSurviveSaveAndLoad) {
	addChart("T.out");
	OVP::Mapper & grid = addChart("plane.out", EM::CT_TimeCut);
	addChart("RH.out");
	grid.chartModel()->setChartData("Plane title", SCI::AbstractChartModel::TitleText);
	grid.extractor3D().m_extractor->setTimeCutIndex(1, true, false);
	setViews(3);

	EXPECT_TRUE(m_model->setData(m_model->index(0, 0), "Wall temperature"));
	EXPECT_EQ(handler().duplicateMapper(1), 2);
	EXPECT_EQ(names(), QStringList({ "Wall temperature", "plane.out", "plane.out (copy)", "RH.out" }));
	EXPECT_EQ(viewMappers(), std::vector<int>({ 0, 1, 3, -1 }));

	// the last chart to the front: every view keeps the chart it showed
	EXPECT_TRUE(handler().moveMappers({ 3 }, 0));
	EXPECT_EQ(names(), QStringList({ "RH.out", "Wall temperature", "plane.out", "plane.out (copy)" }));
	EXPECT_EQ(viewMappers(), std::vector<int>({ 1, 2, 0, -1 }));

	m_ui->m_confirmAnswers = { true };
	EXPECT_TRUE(handler().deleteMappers(nullptr, { 2, 0, 2 }));
	ASSERT_EQ(m_ui->m_shown.size(), 1u);
	EXPECT_EQ(m_ui->m_shown[0].m_title, "Delete charts");
	EXPECT_EQ(m_ui->m_shown[0].m_text, "Delete these 2 charts?\nRH.out\nplane.out");
	EXPECT_EQ(names(), QStringList({ "Wall temperature", "plane.out (copy)" }));
	EXPECT_EQ(viewMappers(), std::vector<int>({ 0, -1, -1, -1 }));

	// the copy outlives its original
	handler().moveMappers({ 1 }, 0);
	setViews(2);
	ASSERT_EQ(handler().saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	m_tester.reset();
	ASSERT_TRUE(handler().loadProject(nullptr, m_testDir + "/s.o2", false));
	m_model = handler().project().mapperModel();
	EXPECT_EQ(names(), QStringList({ "plane.out (copy)", "Wall temperature" }));
	EXPECT_EQ(m_model->mapper(0)->chartModel()->chartData(SCI::AbstractChartModel::TitleText).toString(), "Plane title");
	EXPECT_EQ(child(0, 0, TM::ColumnCut), "TimeCut: t = 1 (locked)");
	EXPECT_EQ(viewMappers(), std::vector<int>({ 0, 1, -1 }));
}


TEST_F(MapperTreeModelTest, DragAndDropReorder) {
	addNamedCharts({ "m0", "m1", "m2", "m3" });
	setViews(4);
	const QPersistentModelIndex m0Data(m_model->index(0, TM::ColumnCut, m_model->index(0, 0)));

	// rows 3 and 1, picked in several columns, with a data set row that does not count
	std::unique_ptr<QMimeData> drag(m_model->mimeData({ m_model->index(3, 0), m_model->index(1, TM::ColumnCut),
		m_model->index(1, 0), m_model->index(0, 0, m_model->index(2, 0)) }));
	ASSERT_TRUE(drag);
	EXPECT_FALSE(m_model->canDropMimeData(drag.get(), Qt::CopyAction, 0, 0, QModelIndex()));
	EXPECT_FALSE(m_model->canDropMimeData(drag.get(), Qt::MoveAction, 0, 0, m_model->index(2, 0)));
	EXPECT_FALSE(m_model->canDropMimeData(drag.get(), Qt::MoveAction, 5, 0, QModelIndex()));
	EXPECT_TRUE(m_model->dropMimeData(drag.get(), Qt::MoveAction, 0, 0, QModelIndex()));
	EXPECT_EQ(names(), QStringList({ "m1", "m3", "m0", "m2" }));
	EXPECT_EQ(viewMappers(), std::vector<int>({ 2, 0, 3, 1, -1 }));
	EXPECT_EQ(m0Data.parent(), m_model->index(2, 0));

	// row -1 (the empty area below the rows) is the end; between its own neighbours nothing moves
	drag.reset(m_model->mimeData({ m_model->index(0, 0) }));
	EXPECT_TRUE(m_model->dropMimeData(drag.get(), Qt::MoveAction, -1, 0, QModelIndex()));
	EXPECT_EQ(names(), QStringList({ "m3", "m0", "m2", "m1" }));
	QSignalSpy modified(&handler(), &OVP::ProjectHandler::modified);
	drag.reset(m_model->mimeData({ m_model->index(1, 0) }));
	EXPECT_TRUE(m_model->dropMimeData(drag.get(), Qt::MoveAction, 2, 0, QModelIndex()));
	EXPECT_EQ(names(), QStringList({ "m3", "m0", "m2", "m1" }));
	EXPECT_EQ(modified.count(), 0);

	// rows dragged from another session's model are not taken (forged ones fail the same check); a model that is not
	// the open session's takes no edits
	OVP::Project other;
	OVP::MapperTreeModel & otherModel = *other.mapperModel();
	otherModel.appendMapper(OVP::Mapper::createNewMapper(handler().dataManager(), { { m_dir + "/T.out" } }));
	drag.reset(otherModel.mimeData({ otherModel.index(0, 0) }));
	EXPECT_FALSE(m_model->canDropMimeData(drag.get(), Qt::MoveAction, 0, 0, QModelIndex()));
	EXPECT_FALSE(otherModel.dropMimeData(drag.get(), Qt::MoveAction, 0, 0, QModelIndex()));
	EXPECT_FALSE(otherModel.setData(otherModel.index(0, 0), "renamed"));
	EXPECT_EQ(names(), QStringList({ "m3", "m0", "m2", "m1" }));
}


TEST_F(MapperTreeModelTest, Refusals) {
	addNamedCharts({ "m0", "m1" });
	ASSERT_EQ(handler().saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);

	// empty or blank names, data set rows, the same name again
	EXPECT_FALSE(m_model->setData(m_model->index(1, 0), " \t"));
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "A chart name must not be empty.", "[ProjectHandler::renameMapper]"), 1);
	EXPECT_FALSE(m_model->setData(m_model->index(0, 0, m_model->index(1, 0)), "x"));
	EXPECT_FALSE(m_model->setData(m_model->index(1, TM::ColumnCut), "x"));
	EXPECT_TRUE(m_model->setData(m_model->index(1, 0), "m1"));
	EXPECT_EQ(names(), QStringList({ "m0", "m1" }));
	EXPECT_FALSE(handler().isModified());

	// declined or empty deletions, moves that change nothing
	m_ui->m_confirmAnswers = { false };
	EXPECT_FALSE(handler().deleteMappers(nullptr, { 1 }));
	ASSERT_EQ(m_ui->m_shown.size(), 1u);
	EXPECT_EQ(m_ui->m_shown[0].m_text, "Delete the chart 'm1'?");
	EXPECT_FALSE(handler().deleteMappers(nullptr, {}));
	EXPECT_FALSE(handler().moveMappers({ 1 }, 1));
	EXPECT_FALSE(handler().moveMappers({ 0, 1 }, 2));
	EXPECT_EQ(names(), QStringList({ "m0", "m1" }));
	EXPECT_FALSE(handler().isModified());

	// bad rows are refused before anyone is asked
	EXPECT_EQ(thrown([this]() { handler().deleteMappers(nullptr, { 0, 2 }); }).second, "Invalid mapper index 2.");
	EXPECT_EQ(thrown([this]() { handler().duplicateMapper(-1); }).first, "[ProjectHandler::duplicateMapper]");
	EXPECT_EQ(thrown([this]() { handler().moveMappers({ 1 }, 3); }).first, "[ProjectHandler::moveMappers]");
	EXPECT_EQ(thrown([this]() { handler().removeMappers(1, 2); }).first, "[ProjectHandler::removeMappers]");
	EXPECT_EQ(m_ui->m_shown.size(), 1u);
	EXPECT_EQ(names(), QStringList({ "m0", "m1" }));
	EXPECT_FALSE(handler().isModified());
}
