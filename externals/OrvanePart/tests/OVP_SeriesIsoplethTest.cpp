#include "OVP_ProjectTestUtils.h"

#include <algorithm>
#include <cmath>

#include <QDir>
#include <QSignalSpy>

#include <tinyxml.h>

#include <Sci_Chart.h>
#include <Sci_LineSeries.h>
#include <Sci_PlotCurve.h>

#include <OVP_ChartCreator.h>
#include <OVP_DataSetOptions.h>
#include <OVP_DataSetPropertyPage.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_SeriesClimatePlaneModel.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

/*! Hourly climates at 20 C with known outcomes, made into charts through the data manager's
	options as a user makes them.
*/
class SeriesIsoplethTest : public ProjectTest {
protected:
	void SetUp() override {
		ProjectTest::SetUp();
		handler().newProject();
		m_dir = m_testDir + "/data";
		QDir().mkpath(m_dir);
	}

	/*! Writes T.out (20 C) and RH.out: for each (hours, RH) part that many hours at that RH,
		one value per hour, and the last value once more at the end.
	*/
	void writeClimate(const std::vector<std::pair<int, double> > & parts) {
		std::vector<double> hours, RH;
		for (const std::pair<int, double> & p : parts)
			for (int h = 0; h < p.first; ++h) {
				hours.push_back(static_cast<double>(hours.size()));
				RH.push_back(p.second);
			}
		hours.push_back(static_cast<double>(hours.size()));
		RH.push_back(RH.back());
		writeTimeSeries(m_dir + "/T.out", hours, std::vector<double>(hours.size(), 20));
		writeTimeSeries(m_dir + "/RH.out", hours, RH, "Relative humidity", "%");
	}

	/*! Creates the chart of T.out and RH.out with a model and returns it; ASSERTs inside. */
	OVP::Mapper & createChart(const std::string & modelType) {
		OVP::DataSetOptions options(handler().dataManager());
		options.setSelection({ { m_dir + "/T.out" }, { m_dir + "/RH.out" } });
		options.setModelType(modelType);
		const int index = OVP::ChartCreator(handler(), *m_ui).createChart(options);
		EXPECT_GE(index, 0);
		return mapper(index);
	}

	OVP::Mapper & mapper(int index) { return *handler().project().mapperModel()->mapper(index); }

	QString m_dir;
};

/*! The points of a series as (x, y) pairs. */
std::vector<std::pair<double, double> > points(const OVP::Mapper & m, int series) {
	const LM & model = static_cast<const LM &>(*m.chartModel());
	std::vector<std::pair<double, double> > p;
	for (unsigned int i = 0; i < model.size(series); ++i)
		p.emplace_back(model.xValues(series)[i], model.yValues(series)[i]);
	return p;
}

/*! The legend text of a series. */
std::string legend(const OVP::Mapper & m, int series) {
	return m.chartModel()->seriesData(series, LM::SeriesTitle).toString().toStdString();
}

} // namespace


TEST_F(SeriesIsoplethTest, IsoplethChartShowsClimateLinesAndSummary) {
	// 48 h at 95 % lie above the germination limit (69.6 % at 20 C), then 24 h at 50 % below
	writeClimate({ { 48, 95 }, { 24, 50 } });
	OVP::Mapper & m = createChart("IsoplethModel");
	ASSERT_EQ(m.type(), OVP::Mapper::MT_Isopleth);
	ASSERT_EQ(m.chartModel()->seriesCount(), 7u);
	EXPECT_EQ(legend(m, 0), "Isopleth from T.out - 2 days mould risk (max period 48 h)");
	EXPECT_EQ(legend(m, 1), "Germination within 1 day");
	EXPECT_EQ(legend(m, 6), "Limit for germination");
	EXPECT_EQ(m.chartModel()->axisData(CM::LeftAxis, CM::AxisTitle).toString(), "Relative humidity [%]");

	// the climate: 73 hours, 48 of them at 95 %
	const std::vector<std::pair<double, double> > climate = points(m, 0);
	ASSERT_EQ(climate.size(), 73u);
	EXPECT_EQ(std::count(climate.begin(), climate.end(), std::make_pair(20.0, 95.0)), 48);
	// each line runs from 0 to 30 C, none above 100 %, a longer germination time never higher;
	// the limit -0.0017 T^3 + 0.1144 T^2 - 2.6784 T + 97.017 - 6 at 20 C is 69.609 %
	for (int i = 1; i <= 6; ++i) {
		const std::vector<std::pair<double, double> > line = points(m, i);
		ASSERT_GE(line.size(), 2u);
		EXPECT_EQ(line.front().first, 0);
		EXPECT_EQ(line.back().first, 30);
		for (std::size_t k = 0; k < line.size(); ++k) {
			EXPECT_LE(line[k].second, 100);
			if (i > 1) {
				EXPECT_LE(line[k].second, points(m, i - 1)[k].second) << i << " " << k;
			}
		}
	}
	EXPECT_NEAR(points(m, 6)[20].second, 69.609, 1e-9);

	// another axis unit converts every series; one of another quantity is refused
	EXPECT_TRUE(m.chartModel()->setAxisData(ZEB::Unit("K").id(), CM::BottomAxis, CM::AxisUnit));
	EXPECT_NEAR(points(m, 6).front().first, 273.15, 1e-9);
	EXPECT_FALSE(m.chartModel()->setAxisData(ZEB::Unit("Pa").id(), CM::LeftAxis, CM::AxisUnit));
	EXPECT_FALSE(m.chartModel()->setSeriesData(false, 0, LM::SeriesLeftAxis));
}


TEST_F(SeriesIsoplethTest, PeriodChangesUndoAndSessionRoundTrip) {
	// two days at 97 %, one at 50 %
	writeClimate({ { 48, 97 }, { 24, 50 } });
	createChart("IsoplethModel");
	createChart("WTAWoodDegradationModel");
	// the period ends with day 1: hours 0..24 count; the plot's legend follows
	const SCI::Chart & chart = *mapper(0).chart();
	OVP::DataSetSetup setup = mapper(0).dataSetSetup(0);
	setup.m_modelParameters = { { "TED", "1" } };
	handler().setDataSetSetup(0, 0, setup);
	EXPECT_EQ(legend(mapper(0), 0), "Isopleth from T.out - 1.04167 days mould risk (max period 25 h)");
	EXPECT_EQ(dynamic_cast<const SCI::LineSeries &>(*chart.series(0)).curve()->title().text().toStdString(),
			  legend(mapper(0), 0));
	EXPECT_EQ(points(mapper(0), 0).size(), 25u);
	handler().undoStack().undo();
	EXPECT_EQ(legend(mapper(0), 0), "Isopleth from T.out - 2 days mould risk (max period 48 h)");
	handler().undoStack().redo();
	mapper(0).chartModel()->setSeriesData(QString("Wall surface"), 0, LM::SeriesTitleText);
	mapper(1).chartModel()->setAxisData(ZEB::Unit("---").id(), CM::LeftAxis, CM::AxisUnit);

	const QString file = m_testDir + "/session.o2";
	ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(handler().loadProject(nullptr, file, true));
	ASSERT_EQ(mapper(0).type(), OVP::Mapper::MT_Isopleth);
	ASSERT_EQ(mapper(1).type(), OVP::Mapper::MT_WTA);
	// the panels edit the title without the results
	EXPECT_EQ(legend(mapper(0), 0), "Wall surface - 1.04167 days mould risk (max period 25 h)");
	EXPECT_EQ(mapper(0).chartModel()->seriesData(0, LM::SeriesTitleText).toString(), "Wall surface");
	// as fraction: the day at 50 % is 0.5, the limit 0.95
	ASSERT_EQ(points(mapper(1), 0).size(), 1u);
	EXPECT_NEAR(points(mapper(1), 0).front().second, 0.5, 1e-12);
	EXPECT_NEAR(points(mapper(1), 2).front().second, 0.95, 1e-12);
}


TEST_F(SeriesIsoplethTest, LinesOfAnotherSubstrateClassFromATableFile) {
	// 20 C: 24 h at 85 %, 24 h at 65 %, 25 h at 50 %; the default limit (69.6 %) counts the first day only
	writeClimate({ { 24, 85 }, { 24, 65 }, { 24, 50 } });
	OVP::Mapper & m = createChart("IsoplethModel");
	EXPECT_EQ(legend(m, 0), "Isopleth from T.out - 1 days mould risk (max period 24 h)");
	// two lines, linear from 0 to 30 C: at 20 C the 2-day line is at 81.67 %, the limit at 56.67 %
	const QString table = m_testDir + "/class-II.csv";
	writeText(table, "# substrate class II, own digitisation\n"
					 "T [C];Germination within 2 days;Limit for germination\n0;95;70\n30;75,0;50\n");
	OVP::DataSetPropertyPage page(m, 0);
	QSignalSpy refused(&page, &OVP::DataSetPropertyPage::editRefused);
	QPB::Property * lines = nullptr;
	const auto findLines = [&]() {
		QPB::Property * model = page.properties().root()->child(page.properties().root()->childCount() - 1);
		lines = model->child(model->childCount() - 1);
		return lines->name().toStdString();
	};
	ASSERT_EQ(findLines(), "Isopleth lines");
	EXPECT_EQ(lines->value().toString(), "");
	const auto edit = [&](const QString & value) {
		return page.properties().setData(page.properties().indexOf(lines, QPB::PropertyModel::C_Value), value);
	};
	ASSERT_TRUE(edit(table));
	ASSERT_EQ(refused.count(), 0) << refused[0][0].toString().toStdString();
	const auto expectClassII = [&](OVP::Mapper & c, const std::string & title) {
		ASSERT_EQ(c.chartModel()->seriesCount(), 3u);
		EXPECT_EQ(legend(c, 0), title + " - 2 days mould risk (max period 48 h)");
		EXPECT_EQ(legend(c, 1), "Germination within 2 days");
		EXPECT_EQ(legend(c, 2), "Limit for germination");
		EXPECT_EQ(points(c, 2).front(), std::make_pair(0.0, 70.0));
		EXPECT_EQ(points(c, 1).back(), std::make_pair(30.0, 75.0));
	};
	expectClassII(m, "Isopleth from T.out");
	ASSERT_EQ(findLines(), "Isopleth lines");
	EXPECT_EQ(lines->value().toString(), "class-II");

	handler().undoStack().undo();
	EXPECT_EQ(legend(m, 0), "Isopleth from T.out - 1 days mould risk (max period 24 h)");
	handler().undoStack().redo();

	// a table whose limit lies above the 2-day line is refused, and nothing changes
	const QString bad = m_testDir + "/bad.tsv";
	writeText(bad, "T\tGermination within 2 days\tLimit for germination\n0\t95\t70\n30\t75\t76\n");
	ASSERT_EQ(findLines(), "Isopleth lines");
	edit(bad);
	ASSERT_EQ(refused.count(), 1);
	EXPECT_TRUE(refused[0][0].toString().contains("Line 'Limit for germination' lies above line 'Germination within "
		"2 days' at 30 C")) << refused[0][0].toString().toStdString();
	expectClassII(m, "Isopleth from T.out");

	// the session keeps the lines themselves: it shows the same chart without the table file
	const QString file = m_testDir + "/session.o2";
	ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(QFile::remove(table));
	ASSERT_TRUE(handler().loadProject(nullptr, file, true));
	expectClassII(mapper(0), "Isopleth from T.out");
	EXPECT_EQ(mapper(0).dataSetSetup(0).m_isoplethLines.m_name, "class-II");
}


TEST_F(SeriesIsoplethTest, RefusalsAndSessionsOfLineCharts) {
	writeClimate({ { 48, 95 } });
	OVP::Mapper & m = createChart("IsoplethModel");
	// no further series, neither directly nor from the data manager
	const auto added = thrown([&]() { m.addExtractor({ { m_dir + "/T.out" } }); });
	EXPECT_EQ(added.first, "[Mapper::addExtractor]");
	EXPECT_EQ(added.second, "An isopleth or WTA wood chart shows the one model it was made of; further data sets cannot "
							"be added to it.");
	OVP::DataSetOptions options(handler().dataManager());
	options.setSelection({ { m_dir + "/T.out" } });
	EXPECT_FALSE(OVP::ChartCreator(handler(), *m_ui).addToChart(0, options));
	EXPECT_EQ(m_ui->m_shown.back().m_text.toStdString(), added.second);
	EXPECT_EQ(m.chartModel()->seriesCount(), 7u);
	// nor manipulators
	EXPECT_EQ(thrown([&]() { OVP::Mapper::createNewMapper(handler().dataManager(), { { m_dir + "/T.out" },
		{ m_dir + "/RH.out" } }, "WTAWoodDegradationModel", "", { { "2DOffset", "1" } }); }).first,
		"[Mapper::createNewMapper]");

	// a model element of a line chart stays a line chart; the isopleth chart needs its model
	const QString extractor = "<Extractors><Extractor><DataIOFileName>./T.out</DataIOFileName><DataIOFileName2>./RH.out"
		"</DataIOFileName2><CutType>NoCut</CutType><DataFormat>DF_2D</DataFormat><ModelType type=\"%1\" Parameter=\"\">"
		"MT_2DFromTwo2D</ModelType></Extractor></Extractors>";
	const auto read = [&](const QString & model, const QString & chartType, const QString & content = QString()) {
		TiXmlDocument doc;
		doc.Parse(("<Mapper>" + extractor.arg(model) + "<ChartModel chartType=\"" + chartType + "\">" + content
				   + "</ChartModel></Mapper>").toUtf8().constData());
		std::unique_ptr<OVP::Mapper> mapper(new OVP::Mapper(handler().dataManager()));
		mapper->readXML(doc.RootElement(), m_dir);
		return mapper;
	};
	// the line chart of the model's result keeps its isopleth lines too
	const QString lines = "<IsoplethLines extractor=\"0\" name=\"flat\"><Line name=\"limit\">0 50;30 50</Line></IsoplethLines>";
	std::unique_ptr<OVP::Mapper> line = read("IsoplethModel", "2D", lines);
	EXPECT_EQ(line->type(), OVP::Mapper::MT_2D);
	EXPECT_EQ(line->chartModel()->seriesCount(), 1u);
	EXPECT_EQ(line->dataSetSetup(0).m_isoplethLines.m_name, "flat");
	EXPECT_EQ(line->dataSetSetup(0).m_isoplethLines.m_lines.at(0).humidities(), (std::vector<double>{ 50, 50 }));
	EXPECT_EQ(thrown([&]() { read("VTTMouldModel", "2D", lines); }).second,
			  "Isopleth lines given for extractor 0, which has no isopleth model.");
	EXPECT_EQ(thrown([&]() { read("VTTMouldModel", "Isopleth"); }).second,
			  "Chart type 'Isopleth' needs one extractor of the model 'IsoplethModel'.");
}
