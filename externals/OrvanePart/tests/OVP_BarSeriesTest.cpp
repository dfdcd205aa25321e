#include "OVP_ProjectTestUtils.h"

#include <cmath>

#include <QColor>

#include <tinyxml.h>

#include <DATAIO_DataIO.h>

#include <OVP_BarAggregation.h>
#include <OVP_ChartCreator.h>
#include <OVP_DataSetOptions.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_SeriesBarExtractorModel.h>
#include <OVP_UndoBarAggregation.h>

using namespace OVPTest;

namespace {

typedef OVP::BarAggregation BA;
typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractBarSeriesModel BM;

/*! Aggregates and returns the values, the labels in "labels". */
std::vector<double> bars(const std::vector<double> & time, const char * timeUnit, const std::vector<double> & values,
						 std::int32_t startYear, BA::Settings settings, QStringList * labels = nullptr)
{
	std::vector<double> result;
	for (const BA::Bar & b : BA::aggregate(time, ZEB::Unit(timeUnit), values, startYear, settings)) {
		result.push_back(b.m_value);
		if (labels != nullptr)
			*labels << BA::label(b.m_key, settings.m_period, startYear != DATAIO::DataIO::UNSET_START_YEAR, b.m_partial);
	}
	return result;
}

} // namespace


TEST(BarAggregation, CalendarMonthsOfALeapYearWithGapAndPartialMonth) {
	// daily values (the day of the month) from 1 January to 5 March 2024, 10 February missing
	std::vector<double> time, values;
	const int monthLengths[] = { 31, 29, 5 };
	for (int m = 0, day = 0; m < 3; ++m)
		for (int d = 1; d <= monthLengths[m]; ++d, ++day) {
			time.push_back(day);
			values.push_back(m == 1 && d == 10 ? NAN : d);
		}
	QStringList labels;
	BA::Settings s;
	EXPECT_EQ(bars(time, "d", values, 2024, s, &labels), std::vector<double>({ 16, 425.0/28, 3 }));
	EXPECT_EQ(labels, QStringList({ "Jan 2024", "Feb 2024", "Mar 2024 (partial)" }));
	// 29 February belongs to February
	s.m_statistic = BA::S_Maximum;
	EXPECT_EQ(bars(time, "d", values, 2024, s), std::vector<double>({ 31, 29, 5 }));
	s.m_statistic = BA::S_Minimum;
	s.m_period = BA::P_Year;
	labels.clear();
	EXPECT_EQ(bars(time, "d", values, 2024, s, &labels), std::vector<double>({ 1 }));
	EXPECT_EQ(labels, QStringList({ "2024 (partial)" }));
	// the same days in hours, stamped at the end of each hour, cover January wholly
	std::vector<double> hours, hourValues;
	for (int h = 1; h <= 31*24; ++h) {
		hours.push_back(h);
		hourValues.push_back(h <= 24 ? 1 : 0);
	}
	s = BA::Settings();
	labels.clear();
	bars(hours, "h", hourValues, 2023, s, &labels);
	EXPECT_EQ(labels, QStringList({ "Jan 2023", "Feb 2023 (partial)" }));
}


TEST(BarAggregation, DaysAboveThresholdCountDailyMeans) {
	// day 1 all 10, day 2 half 0 and half 30 (mean 15), day 3 all 14 with one gap; a day of gaps only
	std::vector<double> time, values;
	for (int h = 0; h < 96; ++h) {
		time.push_back(h);
		const int day = h/24;
		values.push_back(day == 0 ? 10 : day == 1 ? (h % 24 < 12 ? 0 : 30) : day == 2 ? (h == 50 ? NAN : 14) : NAN);
	}
	BA::Settings s;
	s.m_period = BA::P_Whole;
	s.m_statistic = BA::S_DaysAbove;
	s.m_threshold = 14;
	QStringList labels;
	EXPECT_EQ(bars(time, "h", values, DATAIO::DataIO::UNSET_START_YEAR, s, &labels), std::vector<double>({ 1 }));
	EXPECT_EQ(labels, QStringList({ "Whole series" }));
	s.m_threshold = 9;
	EXPECT_EQ(bars(time, "h", values, 2021, s), std::vector<double>({ 3 }));
	// a month without any value has no bar
	s.m_period = BA::P_Month;
	const std::vector<double> gap = bars({ 0, 40, 70 }, "d", { 20, NAN, 20 }, 2021, s);
	ASSERT_EQ(gap.size(), 3u);
	EXPECT_EQ(gap[0], 1);
	EXPECT_TRUE(std::isnan(gap[1]));
}


TEST(BarAggregation, WithoutCalendarAndRefusals) {
	// years of 365 days from time zero; day 59 is the first day of the third month
	QStringList labels;
	BA::Settings s;
	EXPECT_EQ(bars({ 0, 58, 59 }, "d", { 1, 2, 4 }, DATAIO::DataIO::UNSET_START_YEAR, s, &labels),
			  std::vector<double>({ 1, 2, 4 }));
	EXPECT_EQ(labels, QStringList({ "Month 1", "Month 2", "Month 3 (partial)" }));
	s.m_period = BA::P_Year;
	labels.clear();
	EXPECT_EQ(bars({ 0, 364, 365 }, "d", { 1, 3, 7 }, DATAIO::DataIO::UNSET_START_YEAR, s, &labels),
			  std::vector<double>({ 2, 7 }));
	EXPECT_EQ(labels, QStringList({ "Year 1", "Year 2 (partial)" }));
	EXPECT_THROW(bars({ 0, 1 }, "m", { 1, 2 }, 2021, s), ZEB::Exception);
	// a series that waits for its first values has no bars, whatever its unit
	EXPECT_TRUE(BA::aggregate({}, ZEB::Unit(), {}, 2021, s).empty());
	EXPECT_THROW(bars({ 0, 1e9 }, "d", { 1, 2 }, 2021, BA::Settings()), ZEB::Exception);
}


namespace {

/*! Daily series in a session and bar charts made of them through the data manager's options. */
class BarChartTest : public SampleSessionTest {
protected:
	void SetUp() override {
		SampleSessionTest::SetUp();
		std::vector<double> days, temperature, humidity;
		for (int d = 0; d < 59; ++d) {
			days.push_back(d);
			temperature.push_back(d < 31 ? 2 : 5);
			humidity.push_back(d % 2 == 0 ? 85 : 70);
		}
		writeTimeSeries(m_dir + "/Td.out", days, temperature, "Temperature", "C", 2021, "d");
		writeTimeSeries(m_dir + "/RHd.out", days, humidity, "Relative humidity", "%", 2021, "d");
		m_options.reset(new OVP::DataSetOptions(handler().dataManager()));
		m_creator.reset(new OVP::ChartCreator(handler(), *m_ui));
	}

	/*! Creates a bar chart of the files with the settings; returns its model. */
	OVP::SeriesBarExtractorModel & createBars(const QStringList & files, const BA::Settings & settings) {
		std::vector<OVP::Mapper::DataSet> dataSets;
		for (const QString & f : files)
			dataSets.push_back(OVP::Mapper::DataSet{ m_dir + "/" + f });
		m_options->setSelection(dataSets);
		m_options->setChartKind(OVP::DataSetOptions::CK_Bar);
		m_options->setBarAggregation(settings);
		const int index = m_creator->createChart(*m_options);
		EXPECT_NE(index, -1);
		return model(index);
	}

	OVP::SeriesBarExtractorModel & model(int index) {
		return static_cast<OVP::SeriesBarExtractorModel &>(*mapper(index).chartModel());
	}

	static std::vector<double> values(const OVP::SeriesBarExtractorModel & m, int series) {
		std::vector<double> v;
		for (unsigned int b = 0; b < m.barCount(); ++b)
			v.push_back(m.barValue(series, b));
		return v;
	}

	std::unique_ptr<OVP::DataSetOptions>	m_options;
	std::unique_ptr<OVP::ChartCreator>		m_creator;
};

} // namespace


TEST_F(BarChartTest, GroupedMonthlyMeansFollowTheAxisUnit) {
	OVP::SeriesBarExtractorModel & m = createBars({ "Td.out" }, BA::Settings());
	EXPECT_EQ(mapper(0).type(), OVP::Mapper::MT_Bar);
	ASSERT_EQ(m.barCount(), 2u);
	EXPECT_EQ(values(m, 0), std::vector<double>({ 2, 5 }));
	EXPECT_TRUE(handler().setAxisProperty(0, CM::LeftAxis, CM::AxisUnit, ZEB::Unit("K").id()));
	EXPECT_NEAR(m.barValue(0, 1), 278.15, 1e-9);

	// a second series of the same unit group joins as grouped bars; one of another unit is refused
	m_options->setSelection({ { m_dir + "/T.out" } });
	EXPECT_TRUE(m_creator->addToChart(0, *m_options));
	ASSERT_EQ(m.seriesCount(), 2u);
	// T.out covers the first hours of 2015: its periods come before those of Td.out
	ASSERT_EQ(m.barCount(), 3u);
	EXPECT_EQ(m.barLabel(0), "Jan 2015 (partial)");
	EXPECT_NEAR(m.barValue(1, 0), 21.5 + 273.15, 1e-9);
	EXPECT_TRUE(std::isnan(m.barValue(1, 2)));
	m_options->setSelection({ { m_dir + "/RHd.out" } });
	EXPECT_FALSE(m_creator->addToChart(0, *m_options));
	EXPECT_EQ(m.seriesCount(), 2u);
}


TEST_F(BarChartTest, DaysAboveThresholdUndoAndRoundTrip) {
	OVP::SeriesBarExtractorModel & m = createBars({ "RHd.out" }, BA::Settings());
	EXPECT_EQ(values(m, 0), std::vector<double>({ 2410.0/31, 77.5 }));
	m_options->setSelection({ { m_dir + "/RHd.out" } });
	EXPECT_TRUE(m_creator->addToChart(0, *m_options));
	BA::Settings days;
	days.m_statistic = BA::S_DaysAbove;
	days.m_threshold = 80;
	OVP::UndoBarAggregation::push(handler(), 0, days);
	EXPECT_EQ(values(m, 0), std::vector<double>({ 16, 14 }));
	EXPECT_EQ(m.axisData(CM::LeftAxis, CM::AxisTitle).toString(), "Days with daily mean above 80 % [d]");
	EXPECT_TRUE(handler().setSeriesProperty(0, 0, BM::BarColor, QColor("#123456")));

	// written and read back as a session file would be
	TiXmlElement element("Mapper");
	mapper(0).writeXML(&element, m_dir, false);
	TiXmlPrinter printer;
	element.Accept(&printer);
	TiXmlDocument doc;
	doc.Parse(printer.CStr());
	OVP::Mapper copy(handler().dataManager());
	copy.readXML(doc.RootElement(), m_dir);
	ASSERT_EQ(copy.type(), OVP::Mapper::MT_Bar);
	const OVP::SeriesBarExtractorModel & read = static_cast<const OVP::SeriesBarExtractorModel &>(*copy.chartModel());
	EXPECT_TRUE(read.aggregation() == days);
	ASSERT_EQ(read.seriesCount(), 2u);
	EXPECT_EQ(values(read, 1), std::vector<double>({ 16, 14 }));
	EXPECT_EQ(read.seriesData(0, BM::BarColor).value<QColor>(), QColor("#123456"));
	EXPECT_EQ(read.yUnit().name(), "d");

	// undo: colour, then the statistic with the unit of the values
	for (int i = 0; i < 2; ++i)
		EXPECT_TRUE(handler().undo(nullptr));
	EXPECT_TRUE(m.aggregation() == BA::Settings());
	EXPECT_EQ(m.yUnit().name(), "%");
	EXPECT_EQ(values(m, 0)[0], 2410.0/31);
}


TEST_F(BarChartTest, FieldDataSetsAreNoBars) {
	const auto refused = thrown([this]() {
		OVP::Mapper::createNewMapper(handler().dataManager(), { { m_dir + "/plane.out", 0, EM::CT_TimeCut } },
									 std::string(), std::string(), OVP::Mapper::ManipulatorList(), OVP::Mapper::MT_Bar);
	});
	EXPECT_EQ(refused.first, "[SeriesBarExtractorModel::checkTimeSeries]");
}
