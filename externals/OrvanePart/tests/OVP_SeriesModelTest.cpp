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


// Both take their cells from the geometry (x index fastest) and show the last time point; their axis
// units convert the values, also after loading (the units themselves are kept with every property).
TEST_F(SeriesModelTest, ColorGridAndVectorFieldModels) {
	writeGeometry(m_dir + "/wall.g6a", 3, 2);
	writeField(m_dir + "/plane.out", "wall.g6a", { 0, 1, 2, 3, 4, 5 }, { 0, 10 },
			   { { 1, 2, 3, 4, 5, 6 }, { 7, 8, 9, 10, 11, 12 } });
	// sides normal to x carry 1 at hour 0 and 2 at hour 1, sides normal to y 0 and -1 (numbering
	// of writeGeometry)
	std::vector<std::uint32_t> sides;
	std::vector<double> first, last;
	for (std::uint32_t s = 0; s < 17; ++s) {
		sides.push_back(s);
		first.push_back(s < 8 ? 1.0 : 0.0);
		last.push_back(s < 8 ? 2.0 : -1.0);
	}
	writeField(m_dir + "/flux.out", "wall.g6a", sides, { 0, 1 }, { first, last }, true);
	OVP::Mapper & m = addMapper({ { m_dir + "/plane.out", 0, EM::CT_TimeCut } });
	OVP::SeriesColorGridExtractorModel & grid = static_cast<OVP::SeriesColorGridExtractorModel &>(*m.chartModel());
	ASSERT_EQ(grid.xValueSize(0), 3u);
	ASSERT_EQ(grid.yValueSize(0), 2u);
	for (unsigned int j = 0; j < 2; ++j)
		for (unsigned int i = 0; i < 3; ++i)
			EXPECT_DOUBLE_EQ(grid.values(0)[j*3 + i], 7 + j*3 + i);
	// cell edges from the element widths
	ASSERT_EQ(grid.xGridSize(0), 4u);
	EXPECT_NEAR(grid.xGrid(0)[3], 0.3, 1e-12);
	EXPECT_NEAR(grid.yGrid(0)[2], 0.4, 1e-12);
	ASSERT_TRUE(grid.setAxisData(ZEB::Unit("K").id(), CM::RightAxis, CM::AxisUnit));
	EXPECT_NEAR(grid.values(0)[0], 280.15, 1e-9);

	OVP::Mapper & f = addMapper({ { m_dir + "/flux.out", 0, EM::CT_TimeCut } });
	ASSERT_EQ(f.type(), OVP::Mapper::MT_Vector);
	OVP::SeriesVectorFieldExtractorModel & vectors = static_cast<OVP::SeriesVectorFieldExtractorModel &>(*f.chartModel());
	ASSERT_EQ(vectors.xGridSize(0), 3u);
	ASSERT_EQ(vectors.yGridSize(0), 2u);
	EXPECT_NEAR(vectors.xGrid(0)[2], 0.25, 1e-12);
	for (unsigned int p = 0; p < 6; ++p) {
		EXPECT_DOUBLE_EQ(vectors.xComponents(0)[p], 2);
		EXPECT_DOUBLE_EQ(vectors.yComponents(0)[p], -1);
	}
	ASSERT_TRUE(vectors.setAxisData(ZEB::Unit("mm").id(), CM::LeftAxis, CM::AxisUnit));
	EXPECT_NEAR(vectors.yGrid(0)[1], 300, 1e-9);

	// saved and read again, the vector extractor is a flux extractor
	ASSERT_EQ(handler().saveProject(nullptr, m_dir + "/p.o2"), OVP::ProjectHandler::SaveOK);
	EXPECT_TRUE(readText(m_dir + "/p.o2").contains("<DataType>T_FLUX</DataType>"));
	ASSERT_TRUE(handler().loadProject(nullptr, m_dir + "/p.o2", false));
	const OVP::MapperTreeModel & loaded = *handler().project().mapperModel();
	EXPECT_NEAR(static_cast<const OVP::SeriesColorGridExtractorModel &>(*loaded.mapper(0)->chartModel()).values(0)[5], 285.15, 1e-9);
	EXPECT_EQ(loaded.mapper(1)->type(), OVP::Mapper::MT_Vector);
	EXPECT_NEAR(static_cast<const OVP::SeriesVectorFieldExtractorModel &>(*loaded.mapper(1)->chartModel()).yGrid(0)[1], 300, 1e-9);
}
