#include "OVP_ProjectTestUtils.h"

#include <functional>

#include <QAbstractItemModelTester>
#include <QFile>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_ChartStyleFile.h>
#include <Sci_ColorMap.h>

#include <OVP_ChartStyleLibrary.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

/*! The y values of a line series as the chart shows them. */
std::vector<double> lineValues(const OVP::Mapper & m, int series) {
	const LM & model = static_cast<const LM &>(*m.chartModel());
	return std::vector<double>(model.yValues(series), model.yValues(series) + model.size(series));
}

/*! A saved session of three charts (line, colour grid, vector field) shown in three of four
	views; the mapper model runs under the model tester.
*/
class UndoTest : public SampleSessionTest {
protected:
	void SetUp() override {
		SampleSessionTest::SetUp();
		m_tester.reset(new QAbstractItemModelTester(handler().project().mapperModel(),
													QAbstractItemModelTester::FailureReportingMode::Fatal));
		addChart("T.out");
		addChart("plane.out", EM::CT_TimeCut);
		addChart("flux.out", EM::CT_TimeCut);
		OVP::SplitLayout layout;
		for (int i = 0; i < 4; ++i)
			layout.m_widgets.append(OVP::SplitLayout::Widget{ i, -1, false, i < 3 ? i : -1, 0, 0, 0 });
		handler().setSplitLayout(layout);
		ASSERT_EQ(handler().saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	}
	void TearDown() override {
		m_tester.reset();
		SampleSessionTest::TearDown();
	}

	/*! The session file as it would be saved now. */
	std::string sessionXML() {
		const QString file = m_testDir + "/now.o2";
		handler().project().writeXML(file, false);
		return readText(file).toStdString();
	}

	/*! A style file "look" saved from a temperature chart outside the session, with its own
		title, legend place, pen and axis unit (K). */
	QString styleOfAnotherChart() {
		std::unique_ptr<OVP::Mapper> other = OVP::Mapper::createNewMapper(handler().dataManager(),
																		  { { m_dir + "/T.out", 0, EM::CT_NoCut } });
		SCI::AbstractCartesianChartModel & model = *other->chartModel();
		model.setChartData("Styled", SCI::AbstractChartModel::TitleText);
		model.setSeriesData("Styled series", 0, LM::SeriesTitleText);
		model.setChartData(SCI::ChartProperties::LegendInside, SCI::AbstractChartModel::LegendPosition);
		model.setSeriesData(QColor(Qt::darkGreen), 0, LM::SeriesPenColor);
		model.setAxisData(ZEB::Unit("K").id(), CM::LeftAxis, CM::AxisUnit);
		const QString path = m_testDir + "/look.o2style";
		SCI::ChartStyleFile::save(model, path);
		// the series model marks the open session modified, although the chart is not in it
		EXPECT_EQ(handler().saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
		return path;
	}

	std::unique_ptr<QAbstractItemModelTester>		m_tester;
};

} // namespace


TEST_F(UndoTest, MapperCommandsUndoToTheSameSession) {
	OVP::ProjectHandler & h = handler();
	OVP::SplitLayout split = h.project().m_splitLayout;
	split.m_widgets.append(OVP::SplitLayout::Widget{ 4, 0, false, -1, 0, 0, 1 });
	SCI::ColorMap map;
	map.setLinearMap(Qt::green, Qt::black, 4);
	const QString style = styleOfAnotherChart();
	const std::pair<QString, std::function<void()> > operations[] = {
		{ "create chart 'RH.out'", [&]() { addChart("RH.out"); } },
		{ "delete 2 charts", [&]() { m_ui->m_confirmAnswers = { true }; h.deleteMappers(nullptr, { 2, 0 }); } },
		{ "delete chart 'plane.out'", [&]() { h.removeMappers(1, 1); } },
		{ "rename chart 'T.out'", [&]() { h.renameMapper(0, "Wall"); } },
		{ "move chart 'flux.out'", [&]() { h.moveMappers({ 2 }, 0); } },
		{ "duplicate chart 'plane.out'", [&]() { h.duplicateMapper(1); } },
		{ "split view", [&]() { h.setSplitLayout(split); } },
		{ "change colour map", [&]() { h.setSeriesProperty(1, 0, SCI::AbstractColorGridSeriesModel::ColorGridColorMap,
														   QVariant::fromValue(map)); } },
		{ "apply chart style 'look'", [&]() { h.applyChartStyle(0, style); } }
	};
	const std::string saved = sessionXML();
	for (const auto & op : operations) {
		SCOPED_TRACE(op.first.toStdString());
		op.second();
		EXPECT_EQ(h.undoStack().undoText(), op.first);
		EXPECT_TRUE(h.isModified());
		const std::string changed = sessionXML();
		EXPECT_NE(changed, saved);
		ASSERT_TRUE(h.undo(nullptr));
		EXPECT_EQ(sessionXML(), saved);
		EXPECT_FALSE(h.isModified());
		ASSERT_TRUE(h.redo(nullptr));
		EXPECT_EQ(sessionXML(), changed);
		EXPECT_TRUE(h.isModified());
		ASSERT_TRUE(h.undo(nullptr));
	}
}


TEST_F(UndoTest, PropertyChangesNameTheRoleAndMerge) {
	OVP::ProjectHandler & h = handler();
	QUndoStack & stack = h.undoStack();
	const std::string saved = sessionXML();
	const int base = stack.count();

	// typing a title is one step, picking two colours two
	EXPECT_TRUE(h.setChartProperty(0, SCI::AbstractChartModel::TitleText, "W"));
	EXPECT_TRUE(h.setChartProperty(0, SCI::AbstractChartModel::TitleText, "Wall"));
	EXPECT_EQ(stack.count(), base + 1);
	EXPECT_EQ(stack.undoText(), "change title");
	EXPECT_TRUE(h.setSeriesProperty(0, 0, LM::SeriesPenColor, QColor(Qt::red)));
	EXPECT_TRUE(h.setSeriesProperty(0, 0, LM::SeriesPenColor, QColor(Qt::blue)));
	EXPECT_EQ(stack.count(), base + 3);
	EXPECT_EQ(stack.undoText(), "change pen colour of 'T.out'");
	EXPECT_TRUE(h.setAxisProperty(0, CM::LeftAxis, CM::AxisMaximum, 30.5));
	EXPECT_EQ(stack.undoText(), "change y-axis maximum");
	// refused values and the current value leave the stack alone
	EXPECT_FALSE(h.setAxisProperty(0, CM::LeftAxis, CM::AxisMaximum, "thirty"));
	EXPECT_TRUE(h.setAxisProperty(0, CM::LeftAxis, CM::AxisMaximum, 30.5));
	EXPECT_EQ(stack.count(), base + 4);
	EXPECT_EQ(thrown([&h]() { h.setSeriesProperty(0, 1, LM::SeriesPenWidth, 2); }).second, "Invalid series index 1.");
	// typed back to what it was: no step at all
	EXPECT_TRUE(h.setAxisProperty(2, CM::BottomAxis, CM::AxisTitleText, "x"));
	const QVariant before = mapper(2).chartModel()->axisData(CM::BottomAxis, CM::AxisTitleText);
	EXPECT_TRUE(h.setAxisProperty(2, CM::BottomAxis, CM::AxisTitleText, "x $unit"));
	EXPECT_EQ(stack.count(), base + 5);
	EXPECT_TRUE(h.setAxisProperty(2, CM::BottomAxis, CM::AxisTitleText, before));
	EXPECT_EQ(stack.count(), base + 5);
	// the series title is stored with a placeholder for the file name
	EXPECT_TRUE(h.setSeriesProperty(0, 0, LM::SeriesTitleText, "Outside"));
	EXPECT_EQ(stack.undoText(), "change title of 'T.out'");

	while (stack.index() > base)
		ASSERT_TRUE(h.undo(nullptr));
	EXPECT_EQ(sessionXML(), saved);
	EXPECT_FALSE(h.isModified());
	EXPECT_EQ(mapper(0).extractors2D()[0].m_title, "$filename");
	while (h.redo(nullptr)) {}
	EXPECT_EQ(mapper(0).chartModel()->seriesData(0, LM::SeriesPenColor).value<QColor>(), QColor(Qt::blue));
}


TEST_F(UndoTest, LimitOutsideChangesAndFailedUndo) {
	OVP::ProjectHandler & h = handler();
	// the limit of the settings applies from the next session on; the saved state falls off
	m_settings->m_maxNumUNDOSteps = 2;
	ASSERT_TRUE(h.loadProject(nullptr, m_testDir + "/s.o2", false));
	EXPECT_EQ(h.undoStack().count(), 0);
	for (const char * name : { "a", "b", "c" })
		h.renameMapper(0, name);
	EXPECT_EQ(h.undoStack().count(), 2);
	while (h.undo(nullptr)) {}
	EXPECT_EQ(mapper(0).name(), "a");

	// a change that is not on the stack keeps the session modified until it is saved
	ASSERT_EQ(h.saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	h.addDirectory(m_dir);
	h.renameMapper(0, "d");
	ASSERT_TRUE(h.undo(nullptr));
	EXPECT_TRUE(h.isModified());
	ASSERT_EQ(h.saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);

	// a deleted chart whose data file has gone cannot come back: the deletion stays done
	m_ui->m_confirmAnswers = { true };
	ASSERT_TRUE(h.deleteMappers(nullptr, { 1 }));
	ASSERT_TRUE(QFile::rename(m_dir + "/plane.out", m_dir + "/gone.out"));
	EXPECT_FALSE(h.undo(nullptr));
	EXPECT_EQ(m_ui->m_shown.back().m_title, "Cannot undo");
	EXPECT_EQ(h.project().mapperModel()->mapperCount(), 2);
	ASSERT_TRUE(QFile::rename(m_dir + "/gone.out", m_dir + "/plane.out"));
	ASSERT_TRUE(h.undo(nullptr));
	EXPECT_EQ(mapper(1).name(), "plane.out");
	EXPECT_EQ(h.project().m_splitLayout.m_widgets[1].m_mapperIndex, 1);
	EXPECT_FALSE(h.isModified());
}


TEST_F(UndoTest, ChartStylesAreSavedByNameAndAppliedAsOneStep) {
	OVP::ProjectHandler & h = handler();
	QUndoStack & stack = h.undoStack();
	const std::vector<double> celsius = lineValues(mapper(0), 0);

	// applied: the look of the other chart, the data converted to its axis unit, the texts kept
	const CM & model = *mapper(0).chartModel();
	const QString title = model.chartData(SCI::AbstractChartModel::TitleText).toString();
	h.applyChartStyle(0, styleOfAnotherChart());
	EXPECT_EQ(model.chartData(SCI::AbstractChartModel::LegendPosition).toInt(), SCI::ChartProperties::LegendInside);
	EXPECT_EQ(model.chartData(SCI::AbstractChartModel::TitleText).toString(), title);
	const std::vector<double> kelvin = lineValues(mapper(0), 0);
	ASSERT_EQ(kelvin.size(), celsius.size());
	for (std::size_t i = 0; i < kelvin.size(); ++i)
		EXPECT_DOUBLE_EQ(kelvin[i], celsius[i] + 273.15);
	ASSERT_TRUE(h.undo(nullptr));
	EXPECT_EQ(lineValues(mapper(0), 0), celsius);

	// the library: named files, a name in use only replaced on request, no way out of the folder
	const OVP::ChartStyleLibrary library(m_testDir + "/styles/mine");
	m_ui->m_texts = { "Report", "Report", "../escape" };
	m_ui->m_confirmAnswers = { false };
	EXPECT_EQ(library.saveStyle(nullptr, *m_ui, *mapper(1).chartModel()), library.directory() + "/Report.o2style");
	EXPECT_EQ(library.saveStyle(nullptr, *m_ui, *mapper(0).chartModel()), QString());
	EXPECT_THROW(library.saveStyle(nullptr, *m_ui, *mapper(0).chartModel()), ZEB::Exception);
	EXPECT_EQ(library.styleFiles(), QStringList{ library.directory() + "/Report.o2style" });

	// refused: a colour grid's style on a line chart, a humidity unit on a temperature axis and
	// a file that is no style; the chart stays as it was and no step is added
	std::unique_ptr<OVP::Mapper> humidity = OVP::Mapper::createNewMapper(h.dataManager(), { { m_dir + "/RH.out", 0, EM::CT_NoCut } });
	SCI::ChartStyleFile::save(*humidity->chartModel(), m_testDir + "/rh.o2style");
	QFile broken(m_testDir + "/broken.o2style");
	ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
	broken.write("<OrvaneStyle><ChartModel chartType=\"2D\"><ChartProperties><Legend><Font>");
	broken.close();
	const std::string before = sessionXML();
	const int steps = stack.count();
	for (const QString & style : { library.directory() + "/Report.o2style", m_testDir + "/rh.o2style", broken.fileName() }) {
		SCOPED_TRACE(style.toStdString());
		const auto failure = thrown([&]() { h.applyChartStyle(0, style); });
		EXPECT_EQ(failure.second, SCI::ChartStyleFile::APPLY_ERROR_TEXT);
		EXPECT_EQ(sessionXML(), before);
		EXPECT_EQ(stack.count(), steps);
	}
}
