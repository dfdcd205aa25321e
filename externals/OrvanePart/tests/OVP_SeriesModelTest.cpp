#include "OVP_ProjectTestUtils.h"

#include <cmath>

#include <set>

#include <QDir>
#include <QSignalSpy>

#include <EM_Extractor2DFromTwo2D.h>
#include <EM_ExtractorBase.h>
#include <EM_ModelTwo2DBase.h>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_SeriesColorGridExtractorModel.h>
#include <OVP_SeriesLineExtractorModel.h>
#include <OVP_SeriesVectorFieldExtractorModel.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;

/*! A fixture with sample files and an open project. */
class SeriesModelTest : public ProjectTest {
protected:
	void SetUp() override {
		ProjectTest::SetUp();
		m_dir = m_testDir + "/data";
		QDir().mkpath(m_dir);
		const std::vector<double> t = { 0, 24, 48, 72 };
		writeTimeSeries(m_dir + "/T.out", t, { 20, 15, 10, 5 });
		writeTimeSeries(m_dir + "/RH.out", t, { 80, 90, 99, 99 }, "Relative humidity", "%");
		writeTimeSeries(m_dir + "/noyear.out", t, { 1, 2, 3, 4 }, "Temperature", "C", -10000);
		handler().newProject();
	}

	/*! A new mapper of the given data sets, added to the project; the project is then saved, so
		that it counts as unmodified.
	*/
	OVP::Mapper & addMapper(const std::vector<OVP::Mapper::DataSet> & dataSets, const std::string & model = std::string()) {
		handler().addMapper(OVP::Mapper::createNewMapper(handler().dataManager(), dataSets, model));
		EXPECT_EQ(handler().saveProject(nullptr, m_dir + "/p.o2"), OVP::ProjectHandler::SaveOK);
		const OVP::MapperTreeModel & mappers = *handler().project().mapperModel();
		return *mappers.mapper(mappers.mapperCount() - 1);
	}

	static OVP::SeriesLineExtractorModel & lineModel(OVP::Mapper & m) {
		return static_cast<OVP::SeriesLineExtractorModel &>(*m.chartModel());
	}

	QString m_dir;
};

} // namespace


TEST_F(SeriesModelTest, RightAxisFollowsSeriesWithDistinctColours) {
	OVP::Mapper & m = addMapper({ { m_dir + "/T.out" } });
	m.addExtractor({ { m_dir + "/T.out" } });
	OVP::SeriesLineExtractorModel & model = lineModel(m);
	ASSERT_EQ(model.seriesCount(), 2u);
	EXPECT_TRUE(model.axisData(CM::BottomAxis, CM::AxisEnabled).toBool());
	EXPECT_TRUE(model.axisData(CM::LeftAxis, CM::AxisEnabled).toBool());
	EXPECT_FALSE(model.axisData(CM::RightAxis, CM::AxisEnabled).toBool());
	// the stored flag does not matter, the series decide
	model.setAxisData(false, CM::LeftAxis, CM::AxisEnabled);
	EXPECT_TRUE(model.axisData(CM::LeftAxis, CM::AxisEnabled).toBool());

	ASSERT_TRUE(model.setSeriesData(false, 1, LM::SeriesLeftAxis));
	EXPECT_TRUE(model.axisData(CM::RightAxis, CM::AxisEnabled).toBool());
	EXPECT_TRUE(handler().isModified());
	ASSERT_TRUE(model.setSeriesData(true, 1, LM::SeriesLeftAxis));
	EXPECT_FALSE(model.axisData(CM::RightAxis, CM::AxisEnabled).toBool());

	// new series get distinct colours, none the model's default black
	m.addExtractor({ { m_dir + "/RH.out" } });
	std::set<QRgb> colours;
	for (int i = 0; i < 3; ++i)
		colours.insert(model.seriesData(i, LM::SeriesPenColor).value<QColor>().rgb());
	EXPECT_EQ(colours.size(), 3u);
	EXPECT_EQ(colours.count(QColor(Qt::black).rgb()), 0u);
}


TEST_F(SeriesModelTest, QuantityInAxisTitles) {
	OVP::Mapper & m = addMapper({ { m_dir + "/T.out" } });
	OVP::SeriesLineExtractorModel & model = lineModel(m);
	model.setAxisData(QString("$quantity [$unit]"), CM::LeftAxis, CM::AxisTitleText);
	model.setAxisData(QString("$quantity [$unit]"), CM::RightAxis, CM::AxisTitleText);
	model.setAxisData(ZEB::Unit("C").id(), CM::RightAxis, CM::AxisUnit);
	EXPECT_EQ(model.axisData(CM::LeftAxis, CM::AxisTitle).toString(), "Temperature [C]");
	EXPECT_EQ(model.axisData(CM::RightAxis, CM::AxisTitle).toString(), "$quantity [C]");
	// the stored title keeps its placeholders
	EXPECT_EQ(model.axisData(CM::LeftAxis, CM::AxisTitleText).toString(), "$quantity [$unit]");

	// every occurrence is replaced, and the first series of each axis names it
	model.setAxisData(QString("$quantity/$quantity"), CM::RightAxis, CM::AxisTitleText);
	m.chartModel()->setAxisData(ZEB::Unit("%").id(), CM::RightAxis, CM::AxisUnit);
	m.addExtractor({ { m_dir + "/RH.out" } });
	m.addExtractor({ { m_dir + "/RH.out" } });
	model.setSeriesData(QString("x"), 2, LM::SeriesTitleText);
	EXPECT_FALSE(model.seriesData(1, LM::SeriesLeftAxis).toBool());
	EXPECT_EQ(model.axisData(CM::RightAxis, CM::AxisTitle).toString(), "Relative humidity/Relative humidity");
	EXPECT_EQ(model.axisData(CM::LeftAxis, CM::AxisTitle).toString(), "Temperature [C]");
}


TEST_F(SeriesModelTest, ColorGridModel) {
	writeGeometry(m_dir + "/wall.g6a", 3, 2);
	writeField(m_dir + "/plane.out", "wall.g6a", { 0, 1, 2, 3, 4, 5 }, { 0, 10 },
			   { { 1, 2, 3, 4, 5, 6 }, { 7, 8, 9, 10, 11, 12 } });
	OVP::Mapper & m = addMapper({ { m_dir + "/plane.out", 0, EM::CT_TimeCut } });
	ASSERT_EQ(m.type(), OVP::Mapper::MT_3D);
	OVP::SeriesColorGridExtractorModel & model = static_cast<OVP::SeriesColorGridExtractorModel &>(*m.chartModel());
	ASSERT_EQ(model.seriesCount(), 1u);
	ASSERT_EQ(model.xValueSize(0), 3u);
	ASSERT_EQ(model.yValueSize(0), 2u);
	// the last time point, element (i, j) = j*3 + i, x index fastest
	for (unsigned int j = 0; j < 2; ++j)
		for (unsigned int i = 0; i < 3; ++i)
			EXPECT_DOUBLE_EQ(model.values(0)[j*3 + i], 7 + j*3 + i);
	// cell edges from the element widths
	ASSERT_EQ(model.xGridSize(0), 4u);
	EXPECT_NEAR(model.xGrid(0)[3], 0.3, 1e-12);
	ASSERT_EQ(model.yGridSize(0), 3u);
	EXPECT_NEAR(model.yGrid(0)[2], 0.4, 1e-12);

	// the right axis carries the value unit, converted on change
	model.setAxisData(QString("$quantity in $unit"), CM::RightAxis, CM::AxisTitleText);
	EXPECT_EQ(model.axisData(CM::RightAxis, CM::AxisTitle).toString(), "Temperature in C");
	ASSERT_TRUE(model.setAxisData(ZEB::Unit("K").id(), CM::RightAxis, CM::AxisUnit));
	EXPECT_NEAR(model.values(0)[0], 280.15, 1e-9);
	ASSERT_TRUE(model.setAxisData(ZEB::Unit("cm").id(), CM::BottomAxis, CM::AxisUnit));
	EXPECT_NEAR(model.xGrid(0)[3], 30, 1e-9);

	// the unit survives saving, so the values are converted again after loading
	ASSERT_EQ(handler().saveProject(nullptr, m_dir + "/p.o2"), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(handler().loadProject(nullptr, m_dir + "/p.o2", false));
	const OVP::SeriesColorGridExtractorModel & loaded = static_cast<const OVP::SeriesColorGridExtractorModel &>(
		*handler().project().mapperModel()->mapper(0)->chartModel());
	EXPECT_NEAR(loaded.values(0)[5], 285.15, 1e-9);
	EXPECT_NEAR(loaded.xGrid(0)[1], 10, 1e-9);
}


TEST_F(SeriesModelTest, VectorFieldModel) {
	writeGeometry(m_dir + "/wall.g6a", 3, 2);
	// sides normal to x carry 1 at hour 0 and 2 at hour 1, sides normal to y 0 and -1 (numbering
	// of writeGeometry); the chart shows the last time point
	std::vector<std::uint32_t> sides;
	std::vector<double> first, last;
	for (std::uint32_t s = 0; s < 17; ++s) {
		sides.push_back(s);
		first.push_back(s < 8 ? 1.0 : 0.0);
		last.push_back(s < 8 ? 2.0 : -1.0);
	}
	writeField(m_dir + "/flux.out", "wall.g6a", sides, { 0, 1 }, { first, last }, true);
	OVP::Mapper & m = addMapper({ { m_dir + "/flux.out", 0, EM::CT_TimeCut } });
	ASSERT_EQ(m.type(), OVP::Mapper::MT_Vector);
	OVP::SeriesVectorFieldExtractorModel & model = static_cast<OVP::SeriesVectorFieldExtractorModel &>(*m.chartModel());
	ASSERT_EQ(model.seriesCount(), 1u);
	ASSERT_EQ(model.xGridSize(0), 3u);
	ASSERT_EQ(model.yGridSize(0), 2u);
	EXPECT_NEAR(model.xGrid(0)[2], 0.25, 1e-12);
	EXPECT_NEAR(model.yGrid(0)[1], 0.3, 1e-12);
	for (unsigned int p = 0; p < 6; ++p) {
		EXPECT_DOUBLE_EQ(model.xComponents(0)[p], 2);
		EXPECT_DOUBLE_EQ(model.yComponents(0)[p], -1);
	}
	model.setAxisData(QString("$quantity"), CM::RightAxis, CM::AxisTitleText);
	EXPECT_EQ(model.axisData(CM::RightAxis, CM::AxisTitle).toString(), "Heat flux");
	ASSERT_TRUE(model.setAxisData(ZEB::Unit("mm").id(), CM::LeftAxis, CM::AxisUnit));
	EXPECT_NEAR(model.yGrid(0)[1], 300, 1e-9);

	// saved and read again, the vector extractor is a flux extractor
	ASSERT_EQ(handler().saveProject(nullptr, m_dir + "/p.o2"), OVP::ProjectHandler::SaveOK);
	EXPECT_TRUE(readText(m_dir + "/p.o2").contains("<DataType>T_FLUX</DataType>"));
	EXPECT_TRUE(readText(m_dir + "/p.o2").contains("<ChartModel chartType=\"Vector\">"));
	ASSERT_TRUE(handler().loadProject(nullptr, m_dir + "/p.o2", false));
	const OVP::Mapper & loaded = *handler().project().mapperModel()->mapper(0);
	EXPECT_EQ(loaded.type(), OVP::Mapper::MT_Vector);
	EXPECT_NEAR(static_cast<const OVP::SeriesVectorFieldExtractorModel &>(*loaded.chartModel()).yGrid(0)[1], 300, 1e-9);
}
