#include "OVP_ProjectTestUtils.h"

#include <cmath>

#include <QFile>
#include <QSignalSpy>

#include <tinyxml.h>

#include <DATAIO_DataIO.h>

#include <ZEB_UnitVector.h>

#include <EM_Extractor2DOutputBase.h>
#include <EM_ExtractorBase.h>
#include <EM_ModelTwo2DViitanenMould.h>

#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_Chart.h>

#include <OVP_DataManager.h>
#include <OVP_Mapper.h>
#include <OVP_SeriesLineExtractorModel.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

/*! A fixture with sample files in a scratch folder. */
class MapperTest : public SampleSessionTest {
protected:
	/*! Reads a mapper from the XML text of a Mapper element; throws as readXML(). */
	std::unique_ptr<OVP::Mapper> readMapper(const QString & xml) {
		TiXmlDocument doc;
		doc.Parse(xml.toUtf8().constData());
		EXPECT_FALSE(doc.Error()) << xml.toStdString();
		std::unique_ptr<OVP::Mapper> m(new OVP::Mapper(handler().dataManager()));
		m->readXML(doc.RootElement(), m_dir);
		return m;
	}

	/*! The innermost message of the exception f throws, with its origin. */
	template <typename F>
	std::pair<std::string, std::string> firstMessage(F f) {
		try {
			f();
		}
		catch (ZEB::Exception & ex) {
			return { ex.messages().front().m_what, ex.messages().front().m_where };
		}
		return {};
	}

};

/*! An Extractor element of a file with the given inner elements. */
QString extractor(const QString & file, const QString & format, const QString & more = QString()) {
	return "<Extractor><DataIOFileName>" + file + "</DataIOFileName><CutType>NoCut</CutType><DataFormat>" + format
			+ "</DataFormat>" + more + "</Extractor>";
}

} // namespace


TEST_F(MapperTest, ReadErrors) {
	const QString ts = extractor("./T.out", "DF_2D");
	const QString grid = extractor("./plane.out", "DF_4D").replace("NoCut", "TimeCut");
	struct Case {
		QString		m_xml;
		std::string	m_message;
		std::string	m_where = "[Mapper::readXML]";
	};
	const std::vector<Case> cases = {
		{ "<Mapper><ChartModel chartType=\"2D\"/><Extractors>" + ts + "</Extractors></Mapper>",
		  "Cannot have 'ChartModel' tag before added Extractors to mapper." },
		{ "<Mapper><Extractors>" + grid + grid + "</Extractors></Mapper>",
		  "Invalid extractor definition in mapper. Only one 3D/vector field extractor allowed." },
		{ "<Mapper><Extractors>" + ts + "</Extractors><ChartModel chartType=\"3D\"/></Mapper>",
		  "Chart type '3D' does not fit the extractors of the mapper (expected '2D')." },
		{ "<Mapper><Chart/></Mapper>", "Expected 'Extractors' tag or 'ChartModel' tag, got 'Chart'" },
		{ "<Mapper><Extractors>" + extractor("./T.out", "DF_2D", "<Colour>red</Colour>") + "</Extractors></Mapper>",
		  "Unknown/invalid xml tag 'Colour' in Extractor section." },
		{ "<Mapper><Extractors>" + extractor("./T.out", "DF_2D", "<Manipulator type=\"2DShift\">2</Manipulator>")
		  + "</Extractors></Mapper>", "Unknown/unsupported manipulator of type '2DShift'.", "[Mapper::createManipulator]" },
		{ "<Mapper><Extractors><Extractor><DataFormat>DF_2D</DataFormat></Extractor></Extractors></Mapper>",
		  "Extractor does not reference a DataIO file, which is necessary to re-create the extractor." },
		{ "<Mapper><Extractors>" + extractor("./T.out", "DF_2D", "<DataIOFileName2>./RH.out</DataIOFileName2>"
		  "<ModelType type=\"MouldModel\" Parameter=\"\">MT_2DFromTwo2D</ModelType>") + "</Extractors></Mapper>",
		  "Invalid extractor definition in mapper. Unknown model type 'MouldModel'." },
	};
	for (const Case & c : cases) {
		SCOPED_TRACE(c.m_xml.toStdString());
		const auto msg = firstMessage([this, &c]() { readMapper(c.m_xml); });
		EXPECT_EQ(msg.first, c.m_message);
		EXPECT_EQ(msg.second, c.m_where);
	}

	// a time index on an extractor that does not cut time (a missing file goes the same way)
	EXPECT_EQ(thrown([this]() { readMapper("<Mapper><Extractors>" + extractor("./T.out", "DF_2D",
		"<CutIndexT locked=\"no\">1</CutIndexT>") + "</Extractors></Mapper>"); }).second,
		"Cannot create extractor (DataIO = " + (m_dir + "/T.out").toStdString() + ").");
}


TEST_F(MapperTest, CreateExtractorMessages) {
	OVP::DataManager & dm = handler().dataManager();
	const auto message = [this, &dm](const QString & file, EM::CutType cut) {
		return firstMessage([&]() { OVP::Mapper::createNewMapper(dm, { { m_dir + file, 0, cut } }); });
	};
	EXPECT_EQ(message("/profile.out", EM::CT_XYCut),
			  std::make_pair(std::string("Cannot create extractor from 3D without valid cut type."),
							 std::string("[Mapper::createExtractor]")));
	EXPECT_EQ(message("/flux.out", EM::CT_XCut).first, "Cannot create extractor from vector field for non-time cut types.");

	// a time series ignores the cut type
	std::unique_ptr<OVP::Mapper> ts = OVP::Mapper::createNewMapper(dm, { { m_dir + "/T.out", 0, EM::CT_XTCut } });
	EXPECT_EQ(ts->extractors2D()[0].m_extractor->cutType(), EM::CT_NoCut);

	// every kind of chart from the cut type
	EXPECT_EQ(OVP::Mapper::createNewMapper(dm, { { m_dir + "/profile.out", 0, EM::CT_NoCut } })->type(),
			  OVP::Mapper::MT_3D);
	EXPECT_EQ(OVP::Mapper::createNewMapper(dm, { { m_dir + "/plane.out", 0, EM::CT_XYCut } })->type(),
			  OVP::Mapper::MT_2D);
	EXPECT_EQ(OVP::Mapper::createNewMapper(dm, { { m_dir + "/flux.out", 0, EM::CT_TimeCut } })->type(),
			  OVP::Mapper::MT_Vector);

	// two data sets must both be time series and need a known model
	EXPECT_EQ(firstMessage([&]() { OVP::Mapper::createNewMapper(dm, { { m_dir + "/T.out" },
		{ m_dir + "/profile.out", 0, EM::CT_XCut } }, "VTTMouldModel"); }),
		std::make_pair(std::string("Invalid data format type"), std::string("[Mapper::createNewMapper]")));
	EXPECT_EQ(firstMessage([&]() { OVP::Mapper::createNewMapper(dm, { { m_dir + "/T.out" }, { m_dir + "/RH.out" } },
		"MouldModel"); }), std::make_pair(std::string("Unknown/unsupported model of type 'MouldModel'."),
										   std::string("[Mapper::createModel]")));
}


TEST_F(MapperTest, ModelSeriesTitles) {
	OVP::DataManager & dm = handler().dataManager();
	// (the isopleth and WTA wood charts add the model's results, as their tests show)
	const std::pair<std::string, std::string> models[] = {
		{ "VTTMouldModel", "VTT Mould Index" }, { "VTTWoodDegradation", "VTT percentage of wood degradation" },
		{ "AlgaeGrowModelBrick", "Algae coverage area" },
		{ "ParametricFunction", "Combining two data sets as parametric function" } };
	for (const auto & model : models) {
		std::unique_ptr<OVP::Mapper> m = OVP::Mapper::createNewMapper(dm, { { m_dir + "/T.out" }, { m_dir + "/RH.out" } },
																	 model.first);
		EXPECT_EQ(m->name().toStdString(), model.second);
		EXPECT_EQ(m->extractors2D()[0].m_title.toStdString(), model.second + " from $filename");
		EXPECT_EQ(m->chartModel()->seriesData(0, LM::SeriesTitle).toString().toStdString(), model.second + " from T.out");
	}
}


TEST_F(MapperTest, AddExtractorChecks) {
	OVP::DataManager & dm = handler().dataManager();
	std::unique_ptr<OVP::Mapper> m = OVP::Mapper::createNewMapper(dm, { { m_dir + "/T.out" } });
	const auto message = [&](const std::vector<OVP::Mapper::DataSet> & ds, const std::string & model) {
		return firstMessage([&]() { m->addExtractor(ds, model); });
	};
	// 1. data format
	EXPECT_EQ(message({ { m_dir + "/profile.out", 0, EM::CT_XCut } }, ""),
			  std::make_pair(std::string("Mismatching data format of selected datasets and datasets in chart. Selected "
				"data set hat format '3D [time, vector of values]', whereas data set in diagram/mapper has "
				"'2D [time, value]'."), std::string("[Mapper::addExtractor]")));
	// 2. x units: the parametric function has temperatures on its x axis
	EXPECT_EQ(message({ { m_dir + "/T.out" }, { m_dir + "/RH.out" } }, "ParametricFunction").first,
			  "X-axis units are not compatible.");
	// 3. value units: neither axis unit fits
	m->chartModel()->setAxisData(ZEB::Unit("Pa").id(), CM::RightAxis, CM::AxisUnit);
	EXPECT_EQ(message({ { m_dir + "/RH.out" } }, ""),
			  std::make_pair(std::string("Unit [%] of selected dataset does match neither left y-axis unit [C] nor right "
							 "y-axis unit [Pa]"), std::string("[Mapper::addExtractor]")));
	EXPECT_EQ(m->extractorCount(), 1u);

	// a Kelvin series joins the left axis in C, a humidity series the right axis in its unit; the
	// chart made before shows them
	SCI::Chart * chart = m->chart();
	m->addExtractor({ { m_dir + "/TK.out" } });
	EXPECT_EQ(chart->seriesCount(), 2);
	m->chartModel()->setAxisData(ZEB::Unit("%").id(), CM::RightAxis, CM::AxisUnit);
	m->addExtractor({ { m_dir + "/RH.out" } });
	// a right axis without unit takes the unit of the first series that needs it
	std::unique_ptr<OVP::Mapper> fresh = OVP::Mapper::createNewMapper(dm, { { m_dir + "/T.out" } });
	fresh->addExtractor({ { m_dir + "/RH.out" } });
	EXPECT_EQ(fresh->chartModel()->axisData(CM::RightAxis, CM::AxisUnit).toUInt(), ZEB::Unit("%").id());
	EXPECT_FALSE(fresh->chartModel()->seriesData(1, LM::SeriesLeftAxis).toBool());
	const OVP::SeriesLineExtractorModel & model = static_cast<const OVP::SeriesLineExtractorModel &>(*m->chartModel());
	ASSERT_EQ(model.seriesCount(), 3u);
	EXPECT_TRUE(model.seriesData(1, LM::SeriesLeftAxis).toBool());
	EXPECT_NEAR(model.yValues(1)[0], 20, 1e-9);
	EXPECT_FALSE(model.seriesData(2, LM::SeriesLeftAxis).toBool());
	EXPECT_DOUBLE_EQ(model.yValues(2)[3], 95);

}


TEST_F(MapperTest, RefreshFollowsGrowingFiles) {
	OVP::DataManager & dm = handler().dataManager();
	std::unique_ptr<OVP::Mapper> a = OVP::Mapper::createNewMapper(dm, { { m_dir + "/T.out" } });
	std::unique_ptr<OVP::Mapper> b = OVP::Mapper::createNewMapper(dm, { { m_dir + "/T.out" } });
	b->addExtractor({ { m_dir + "/TK.out" } });
	EXPECT_EQ(a->extractors2D()[0].m_dataIOs[0], b->extractors2D()[0].m_dataIOs[0]);
	EXPECT_EQ(dm.openContainerCount(), 2u);

	// nothing changed: nothing to redraw
	QSignalSpy changedA(a->chartModel(), &SCI::AbstractChartModel::modelChanged);
	a->refresh();
	EXPECT_EQ(changedA.count(), 0);

	writeTimeSeries(m_dir + "/T.out", { 0, 1, 2, 3, 4, 5 }, { 20, 21, 22, 23, 24, 25 });
	a->refresh();
	const SCI::AbstractLineSeriesModel & lineA = static_cast<const SCI::AbstractLineSeriesModel &>(*a->chartModel());
	ASSERT_EQ(lineA.size(0), 6u);
	EXPECT_DOUBLE_EQ(lineA.yValues(0)[5], 25);

	// a last line still without its line end waits while following, the user's refresh takes it
	{
		QFile f(m_dir + "/T.out");
		ASSERT_TRUE(f.open(QIODevice::Append));
		f.write("6 26");
	}
	a->refresh();
	EXPECT_EQ(lineA.size(0), 6u);
	a->refresh(DATAIO::DataIO::RM_EXPLICIT);
	ASSERT_EQ(lineA.size(0), 7u);
	EXPECT_DOUBLE_EQ(lineA.yValues(0)[6], 26);

	// the other mapper reads the same container, refreshed already: it still updates its series
	b->refresh();
	EXPECT_EQ(static_cast<const SCI::AbstractLineSeriesModel &>(*b->chartModel()).size(0), 7u);

	// a file that vanished is reported, the series keeps its data
	QFile::remove(m_dir + "/TK.out");
	m_messages->m_messages.clear();
	b->refresh();
	EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Cannot refresh data file '" + (m_dir + "/TK.out").toStdString()
								+ "', the chart keeps its data.", "[Mapper::refresh]"), 1);
	EXPECT_EQ(static_cast<const SCI::AbstractLineSeriesModel &>(*b->chartModel()).size(1), 4u);

	// containers are released with their last extractor
	a.reset();
	b.reset();
	EXPECT_EQ(dm.openContainerCount(), 0u);
}


TEST_F(MapperTest, ModelOverTwoColumnsOfOneCollection) {
	// a logger's collection as a data file reader leaves it: its own unit per column, a gap
	const QString path = m_dir + "/logger.out";
	std::vector<double> time;
	std::vector<std::vector<double> > rows;
	EM::TimeSeries t, rh;
	for (int i = 0; i < 24*10; ++i) {
		time.push_back(i);
		rows.push_back({ 21 + std::sin(0.2*i), 0.96 });
	}
	rows[100][0] = std::nan("");
	writeReference(path, { 3, 8 }, time, rows);
	OVP::DataManager & dm = handler().dataManager();
	// held open here, so that the mappers share it with its column properties
	const std::shared_ptr<DATAIO::DataIO> collection = dm.container(path);
	collection->setColumnProperties({ "Temp", "RH" }, { "C", "-" });
	for (std::size_t i = 0; i < rows.size(); ++i) {
		t.m_values.push_back(rows[i][0]);
		rh.m_values.push_back(rows[i][1] * 100);
	}
	t.m_time = rh.m_time = time;
	t.m_timeUnit = rh.m_timeUnit = ZEB::Unit("h");
	t.m_valueUnit = ZEB::Unit("C");
	rh.m_valueUnit = ZEB::Unit("%");
	EM::ModelTwo2DViitanenMould expected;
	ZEB::UnitVector x, y;
	expected.calculate(t, rh, x, y);
	ASSERT_GT(y.m_data.back(), 0.1);

	// humidity first: the model finds the temperature itself
	std::unique_ptr<OVP::Mapper> m = OVP::Mapper::createNewMapper(dm, { { path, 8 }, { path, 3 } }, "VTTMouldModel");
	const auto sameValues = [&](const OVP::Mapper & mapper) {
		const OVP::SeriesLineExtractorModel & model = static_cast<const OVP::SeriesLineExtractorModel &>(*mapper.chartModel());
		ASSERT_EQ(model.size(0), y.size());
		for (std::size_t i = 0; i < y.size(); ++i)
			EXPECT_TRUE(std::isnan(y[i]) ? std::isnan(model.yValues(0)[i]) : std::fabs(model.yValues(0)[i] - y[i]) < 1e-12) << i;
	};
	sameValues(*m);

	// the session keeps both columns; read back, the model reads them again
	TiXmlElement element("Mapper");
	m->writeXML(&element, m_dir, false);
	TiXmlPrinter printer;
	element.Accept(&printer);
	std::unique_ptr<OVP::Mapper> back = readMapper(QString::fromStdString(printer.CStr()));
	EXPECT_EQ(back->dataSetSetup(0).m_column, 8u);
	EXPECT_EQ(back->dataSetSetup(0).m_column2, 3u);
	sameValues(*back);

	// a single column charted on its own shows its own unit
	std::unique_ptr<OVP::Mapper> line = OVP::Mapper::createNewMapper(dm, { { path, 8 } });
	EXPECT_EQ(line->chartModel()->axisData(CM::LeftAxis, CM::AxisUnit).toUInt(), ZEB::Unit("-").id());
	EXPECT_EQ(line->name(), "RH");
	// the collection's start year puts its hours onto real dates
	EXPECT_EQ(line->chartModel()->axisData(CM::BottomAxis, CM::AxisDateTimeZero).toDateTime(),
			  QDateTime(QDate(2015, 1, 1), QTime(0, 0), Qt::UTC));
	EXPECT_EQ(firstMessage([&]() { OVP::Mapper::createNewMapper(dm, { { path, 8 }, { path, 5 } }, "VTTMouldModel"); }).first,
			  "File '" + path.toStdString() + "' has no data set in column 5.");
}
