#include "OVP_ProjectTestUtils.h"

#include <algorithm>
#include <cmath>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <EM_Extractor3DOutputBase.h>
#include <EM_ExtractorBase.h>

#include <OVP_ChartCreator.h>
#include <OVP_DataSetOptions.h>
#include <OVP_DataSetOptionsWidget.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_SeriesLineExtractorModel.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractCartesianChartModel CM;

/*! Files of every kind in a fresh session; options and the chart actions on them. */
class ChartCreatorTest : public ProjectTest {
protected:
	void SetUp() override {
		ProjectTest::SetUp();
		handler().newProject();
		m_dir = m_testDir + "/data";
		QDir().mkpath(m_dir);
		writeCommonFiles(m_dir);
		writeTimeSeries(m_dir + "/P.out", { 0, 1, 2, 3 }, { 1200, 1300, 1400, 1500 }, "Vapour pressure", "Pa");
		writeField(m_dir + "/profile.out", "line.g6a", { 0, 1, 2, 3 }, { 0 }, { { 1, 2, 3, 4 } });
		writePlane(3);
		writeReference(m_dir + "/ref.out", { 4, 7, 9 }, { 0, 1, 2, 3 }, { { 1, 2, 3 }, { 4, 5, 6 }, { 7, 8, 9 }, { 10, 11, 12 } });
		m_options.reset(new OVP::DataSetOptions(handler().dataManager()));
		m_creator.reset(new OVP::ChartCreator(handler(), *m_ui));
	}

	/*! The 3 x 2 field over timeCount hours; element (i, j) holds 100*t + 3*j + i at hour t. */
	void writePlane(unsigned int timeCount) {
		std::vector<double> time;
		std::vector<std::vector<double> > rows;
		for (unsigned int t = 0; t < timeCount; ++t) {
			time.push_back(t);
			rows.emplace_back();
			for (unsigned int c = 0; c < 6; ++c)
				rows.back().push_back(100*t + c);
		}
		writeField(m_dir + "/plane.out", "wall.g6a", { 0, 1, 2, 3, 4, 5 }, time, rows);
	}

	/*! The data sets of ref.out as the table drags them, optionally followed by T.out. */
	std::vector<OVP::Mapper::DataSet> referenceDataSets(bool withSeries = false) {
		const QString ref = m_dir + "/ref.out";
		std::vector<OVP::Mapper::DataSet> dataSets = { { ref, 4 }, { ref, 7 }, { ref, 9 } };
		if (withSeries)
			dataSets.push_back(OVP::Mapper::DataSet{ m_dir + "/T.out" });
		return dataSets;
	}

	/*! Selects files of the data folder. */
	void select(const QStringList & files) {
		std::vector<OVP::Mapper::DataSet> dataSets;
		for (const QString & f : files)
			dataSets.push_back(OVP::Mapper::DataSet{ m_dir + "/" + f });
		m_options->setSelection(dataSets);
	}

	OVP::Mapper & mapper(int index) { return *handler().project().mapperModel()->mapper(index); }
	const OVP::SeriesLineExtractorModel & lines(int index) {
		return static_cast<const OVP::SeriesLineExtractorModel &>(*mapper(index).chartModel());
	}
	int mapperCount() { return handler().project().mapperModel()->mapperCount(); }
	/*! The last message shown to the user. */
	std::string shown() { return m_ui->m_shown.empty() ? std::string() : m_ui->m_shown.back().m_text.toStdString(); }

	QString										m_dir;
	std::unique_ptr<OVP::DataSetOptions>		m_options;
	std::unique_ptr<OVP::ChartCreator>			m_creator;
};

/*! The values of a line series. */
std::vector<double> yValues(const OVP::SeriesLineExtractorModel & model, int series) {
	return std::vector<double>(model.yValues(series), model.yValues(series) + model.size(series));
}

/*! True when the values agree within 1e-9. */
::testing::AssertionResult near(const std::vector<double> & actual, const std::vector<double> & expected) {
	if (actual.size() != expected.size())
		return ::testing::AssertionFailure() << "size " << actual.size() << " != " << expected.size();
	for (std::size_t i = 0; i < actual.size(); ++i)
		if (std::fabs(actual[i] - expected[i]) > 1e-9)
			return ::testing::AssertionFailure() << "value #" << i << ": " << actual[i] << " != " << expected[i];
	return ::testing::AssertionSuccess();
}

} // namespace


TEST_F(ChartCreatorTest, LineChartCreateAndAdd) {
	select({ "T.out", "TK.out" });
	ASSERT_EQ(m_options->selectionKind(), OVP::DataSetOptions::SK_TwoSeries);
	ASSERT_EQ(m_creator->createChart(*m_options), 0);
	EXPECT_TRUE(handler().isModified());
	EXPECT_EQ(mapper(0).name(), "Temperature");
	ASSERT_EQ(lines(0).seriesCount(), 2u);
	EXPECT_TRUE(near(yValues(lines(0), 1), { 20, 21, 22, 23 }));

	// a third series with another unit goes to the right axis
	select({ "RH.out" });
	ASSERT_TRUE(m_creator->addToChart(0, *m_options));
	ASSERT_EQ(lines(0).seriesCount(), 3u);
	EXPECT_FALSE(lines(0).seriesData(2, SCI::AbstractLineSeriesModel::SeriesLeftAxis).toBool());
	EXPECT_TRUE(near(yValues(lines(0), 2), { 80, 85, 90, 95 }));

	// of several data sets one is refused: none is added, the mapper's message is shown, the free
	// right axis stays free
	select({ "T.out" });
	ASSERT_EQ(m_creator->createChart(*m_options), 1);
	select({ "RH.out", "P.out" });
	EXPECT_FALSE(m_creator->addToChart(1, *m_options));
	EXPECT_EQ(shown(), "Unit [Pa] of selected dataset does match neither left y-axis unit [C] nor right y-axis unit [%]");
	EXPECT_EQ(lines(1).seriesCount(), 1u);
	EXPECT_EQ(lines(1).axisData(CM::RightAxis, CM::AxisUnit).toUInt(), 0u);

	// selections that make no chart (a file that cannot be read is the data manager table's): a field
	// among other files, a column that is not there
	select({ "T.out", "plane.out" });
	EXPECT_EQ(m_options->selectionMessage(), "A chart of field or flux data shows one data set; select only one.");
	EXPECT_THROW(m_options->setCutIndex(EM::CD_Time, 0), ZEB::Exception);
	select({ "ref.out" });
	EXPECT_EQ(m_options->selectionMessage().toStdString(), "File '" + m_dir.toStdString() + "/ref.out' has no data set in column 0.");
	EXPECT_EQ(mapperCount(), 2);

	// of a reference collection only the used data sets make series; two used ones are a pair
	m_options->setSelection(referenceDataSets(true));
	ASSERT_EQ(m_options->referenceDataSets().size(), 3u);
	EXPECT_EQ(m_options->referenceDataSets()[2].m_name, "Column 9");
	m_options->setDataSetUsed(1, false);
	EXPECT_EQ(m_options->selectionKind(), OVP::DataSetOptions::SK_Series);
	m_options->setDataSetUsed(0, false);
	EXPECT_EQ(m_options->selectionKind(), OVP::DataSetOptions::SK_TwoSeries);
	ASSERT_EQ(m_creator->createChart(*m_options), 2);
	ASSERT_EQ(lines(2).seriesCount(), 2u);
	EXPECT_TRUE(near(yValues(lines(2), 0), { 3, 6, 9, 12 }));
	EXPECT_TRUE(near(yValues(lines(2), 1), { 20, 21, 22, 23 }));
}


TEST_F(ChartCreatorTest, Manipulators) {
	select({ "T.out" });
	m_options->setManipulator(OVP::ManipulatorOptions::MC_Offset);
	EXPECT_EQ(m_options->manipulator().parameter(), "0");
	m_options->setManipulatorParameter("abc");
	EXPECT_FALSE(m_options->isComplete());
	EXPECT_EQ(m_creator->createChart(*m_options), -1);
	EXPECT_EQ(m_ui->m_shown.back().m_text.split("\n").last(), "Invalid parameter for manipulator.");
	EXPECT_EQ(mapperCount(), 0);

	// a factor applies to each series in its file's unit, before conversion to the axis unit
	select({ "T.out", "TK.out", "T.out" });
	EXPECT_EQ(m_options->selectionKind(), OVP::DataSetOptions::SK_Series);
	m_options->setManipulator(OVP::ManipulatorOptions::MC_Scaling);
	m_options->setManipulatorParameter("2");
	ASSERT_EQ(m_creator->createChart(*m_options), 0);
	ASSERT_EQ(lines(0).seriesCount(), 3u);
	EXPECT_TRUE(near(yValues(lines(0), 0), { 40, 42, 44, 46 }));
	EXPECT_TRUE(near(yValues(lines(0), 1), { 313.15, 315.15, 317.15, 319.15 }));
}


TEST_F(ChartCreatorTest, ColourGridWithTimeCut) {
	select({ "plane.out" });
	ASSERT_EQ(m_options->selectionKind(), OVP::DataSetOptions::SK_Field);
	const OVP::CutOptions & cut = m_options->cut();
	EXPECT_EQ(cut.cutTypes().size(), 6u);
	EXPECT_TRUE(near(cut.coordinates(EM::CD_Y), { 0.1, 0.3 }));
	EXPECT_TRUE(cut.followLastTimePoint());
	EXPECT_EQ(cut.index(EM::CD_Time), 2u);
	EXPECT_THROW(m_options->setCutType(EM::CT_XYZCut), ZEB::Exception);
	EXPECT_THROW(m_options->setCutIndex(EM::CD_Time, 3), ZEB::Exception);

	// one chart follows the last time point, the other stays at hour 1
	ASSERT_EQ(m_creator->createChart(*m_options), 0);
	m_options->setCutIndex(EM::CD_Time, 1);
	EXPECT_FALSE(m_options->cut().followLastTimePoint());
	ASSERT_EQ(m_creator->createChart(*m_options), 1);
	writePlane(4);
	handler().refreshAllMappers();
	for (int m = 0; m < 2; ++m) {
		const EM::Extractor3DOutputBase & grid = static_cast<const EM::Extractor3DOutputBase &>(*mapper(m).extractor3D().m_extractor);
		const double hour = m == 0 ? 3 : 1;
		// the picked hour is locked, so that a shorter rerun of the simulation does not lose it
		EXPECT_EQ(grid.isTimeIndexLocked(), m == 1);
		ASSERT_EQ(grid.xCellCount(), 3u);
		ASSERT_EQ(grid.yCellCount(), 2u);
		for (std::size_t i = 0; i < 3; ++i)
			for (std::size_t j = 0; j < 2; ++j)
				EXPECT_DOUBLE_EQ(grid.value(i, j), 100*hour + 3*j + i) << m << " " << i << " " << j;
	}

	// the space indices of a cut reach the chart: x index 2, y index 1 is element 5 over time
	select({ "plane.out" });
	m_options->setCutType(EM::CT_XYCut);
	m_options->setCutIndex(EM::CD_X, 2);
	m_options->setCutIndex(EM::CD_Y, 1);
	ASSERT_EQ(m_creator->createChart(*m_options), 2);
	EXPECT_TRUE(near(yValues(lines(2), 0), { 5, 105, 205, 305 }));
}


// The model's parameters reach the chart (the index itself is the model library's): a value out of
// range is refused with the model's message, a valid set makes a growing index.
TEST_F(ChartCreatorTest, MouldIndexFromTwoFiles) {
	std::vector<double> hours;
	for (int h = 0; h <= 48; ++h)
		hours.push_back(h);
	writeTimeSeries(m_dir + "/Tm.out", hours, std::vector<double>(hours.size(), 25));
	writeTimeSeries(m_dir + "/RHm.out", hours, std::vector<double>(hours.size(), 95), "Relative humidity", "%");
	select({ "RHm.out", "Tm.out" });
	m_options->setModelType("VTTMouldModel");
	m_options->setModelValue(0, "5");
	EXPECT_EQ(m_creator->createChart(*m_options), -1);
	EXPECT_EQ(shown(), "Invalid parameter, expected int number between 1 and 4.");
	m_options->setModelValue(0, "2");
	m_options->setModelValue(1, "3");
	ASSERT_EQ(m_creator->createChart(*m_options), 0);
	const OVP::DataSetSetup::KeywordList parameters = mapper(0).dataSetSetup(0).m_modelParameters;
	EXPECT_NE(std::find(parameters.begin(), parameters.end(), std::make_pair(std::string("SC"), std::string("3"))),
			  parameters.end());
	EXPECT_GT(yValues(lines(0), 0).back(), 0);
}


TEST_F(ChartCreatorTest, OptionsWidget) {
	OVP::DataSetOptionsWidget widget(*m_options);
	widget.show();
	QComboBox * models = widget.findChild<QComboBox *>("modelCombo");
	QLineEdit * parameter = widget.findChild<QLineEdit *>("manipulatorParameter");
	QPushButton * create = widget.findChild<QPushButton *>("createChart");
	ASSERT_TRUE(models && parameter && create);
	EXPECT_FALSE(create->isEnabled());

	// two time series: the model choice with the mould model's fields; a value outside the
	// parameter's range is refused by the field, the options keep theirs
	select({ "T.out", "RH.out" });
	models->setCurrentIndex(models->findText("VTT Mould Index"));
	EXPECT_EQ(m_options->model().modelType(), "VTTMouldModel");
	QList<QLineEdit *> fields = widget.findChildren<QLineEdit *>("modelParameter");
	ASSERT_EQ(fields.size(), 3);
	fields[0]->setFocus();
	fields[0]->selectAll();
	QTest::keyClicks(fields[0], "5");
	QTest::keyClick(fields[0], Qt::Key_Return);
	EXPECT_EQ(m_options->model().value(0), "1");
	EXPECT_EQ(widget.findChild<QLabel *>("modelError")->text(), "Value must be between 1 and 4.");
	EXPECT_FALSE(create->isEnabled());

	// a manipulator parameter is shown with the decimal places of the settings
	m_options->setManipulator(OVP::ManipulatorOptions::MC_Offset);
	m_settings->m_decimalPlaces = 2;
	m_options->setManipulatorParameter("0.126");
	EXPECT_EQ(parameter->text(), "0.13");

	// the data sets of a reference collection, named after their file among several files
	QListWidget * dataSets = widget.findChild<QListWidget *>("dataSetList");
	ASSERT_TRUE(dataSets);
	m_options->setSelection(referenceDataSets(true));
	ASSERT_EQ(dataSets->count(), 3);
	EXPECT_EQ(dataSets->item(1)->text(), "ref.out: Column 7");
	dataSets->item(1)->setCheckState(Qt::Unchecked);
	EXPECT_FALSE(m_options->referenceDataSets()[1].m_used);

	// a field: the time index only without following the last time point
	select({ "plane.out" });
	EXPECT_FALSE(models->isVisible() || dataSets->isVisible());
	QList<QSpinBox *> indexes = widget.findChildren<QSpinBox *>("cutIndex");
	ASSERT_EQ(indexes.size(), 1);
	EXPECT_FALSE(indexes[0]->isEnabled());
	widget.findChild<QCheckBox *>("followLastTimePoint")->setChecked(false);
	indexes[0]->setValue(1);
	EXPECT_EQ(m_options->cut().index(EM::CD_Time), 1u);
	QSignalSpy requested(&widget, &OVP::DataSetOptionsWidget::createChartRequested);
	QTest::mouseClick(create, Qt::LeftButton);
	EXPECT_EQ(requested.count(), 1);
}
