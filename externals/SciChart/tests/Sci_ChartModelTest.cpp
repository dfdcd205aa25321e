#include <gtest/gtest.h>


#include <QSignalSpy>
#include <QSize>

#include <Sci_ColorGridSeriesDummyModel.h>
#include <Sci_LineSeriesDummyModel.h>

#include "Sci_ChartTestModels.h"
#include "Sci_TestSupport.h"

using namespace SciTest;
using SCI::AbstractChartModel;
using SCI::AbstractCartesianChartModel;

TEST(SciChartModel, SetChartDataSignalsOnlyRealChangesAndRefusesBadValues) {
	MessageCapture capture;
	SCI::LineSeriesDummyModel m;
	QSignalSpy spy(&m, &AbstractChartModel::chartChanged);

	// the current value: accepted, no signal
	EXPECT_TRUE(m.setChartData(QString("Title"), 0));
	EXPECT_EQ(spy.count(), 0);
	EXPECT_TRUE(m.setChartData(QString("Wall"), 0));
	EXPECT_EQ(m.chartData(2).toString(), QString("Wall"));

	// refused: the read-only alias, unknown roles (reported, not thrown), values that do not
	// convert to the role's type (int, colour, legend position without keyword)
	EXPECT_FALSE(m.setChartData(QString("Other"), 2));
	EXPECT_FALSE(m.setChartData(true, 22));
	EXPECT_FALSE(m.setChartData(true, -1));
	EXPECT_EQ(capture.m_records.at(0).m_functionId, "[AbstractChartModel::setChartData]");
	EXPECT_FALSE(m.setChartData(QString("many"), 13));
	EXPECT_FALSE(m.setChartData(QString("#12345"), 9));
	EXPECT_FALSE(m.setChartData(7, 4));
	EXPECT_EQ(m.chartData(0).toString(), QString("Wall"));
	EXPECT_EQ(spy.count(), 1);

	// convertible values of other types are accepted
	EXPECT_TRUE(m.setChartData(QString("#102030"), 9));
	EXPECT_EQ(m.chartData(9).value<QColor>(), QColor(0x10, 0x20, 0x30));
}


TEST(SciChartModel, AxisUnitTitleAndPenWidths) {
	MessageCapture capture;
	SCI::LineSeriesDummyModel m;

	// "$unit" is replaced everywhere in the displayed title, the stored title keeps it
	ASSERT_TRUE(m.setAxisData(QString("Temperature [$unit], $unit"), 1, 2));
	ASSERT_TRUE(m.setAxisData(ZEB::Unit("C").id(), 1, 15));
	EXPECT_EQ(m.axisData(1, 1).toString(), QString("Temperature [C], C"));
	EXPECT_EQ(m.axisData(1, 2).toString(), QString("Temperature [$unit], $unit"));

	// a displayed width of 4 is a pen of width 2; the colour role keeps style and width
	ASSERT_TRUE(m.setAxisData(4.0, 0, 18));
	ASSERT_TRUE(m.setAxisData(QColor(Qt::red), 0, 19));
	EXPECT_EQ(m.axisData(0, 17).value<QPen>(), QPen(QBrush(Qt::red), 2, Qt::DashLine));
	ASSERT_TRUE(m.setAxisData(QPen(QBrush(Qt::green), 3, Qt::DotLine), 2, 21));
	EXPECT_DOUBLE_EQ(m.axisData(2, 22).toDouble(), 6.0);
	// the other axes are untouched
	EXPECT_EQ(m.axisData(1, 19).value<QColor>(), QColor(Qt::gray));

	// refused: bad positions, unknown roles, unknown unit ids, bad values
	for (const std::pair<QVariant, std::pair<int, int> > & bad : std::vector<std::pair<QVariant, std::pair<int, int> > >{
			{true, {3, 0}}, {true, {0, 30}}, {100000u, {0, 15}}, {QString("eight"), {0, 14}}})
		EXPECT_FALSE(m.setAxisData(bad.first, bad.second.first, bad.second.second));
	EXPECT_EQ(capture.m_records.back().m_functionId, "[AbstractCartesianChartModel::setAxisData]");
}


TEST(SciChartModel, ChangeBracketsNestAndBalance) {
	MessageCapture capture;
	VectorLineModel m(4);
	SignalRecorder rec(&m);

	m.beginChangeModel();
	m.beginChangeSeries(0, 1);
	m.beginChangeSeries(2, 3);
	m.endChangeSeries();
	m.clearCachedData();
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Unbalanced changes record.", "[AbstractChartModel::clearCachedData]"));
	m.endChangeSeries();
	m.endChangeModel();
	m.insertSeries(1, 2);
	m.removeSeries(0, 1);

	EXPECT_EQ(rec.m_signals, QStringList({
		"modelAboutToBeChanged()",
		"seriesAboutToBeChanged(0,1)", "seriesAboutToBeChanged(2,3)",
		"seriesChanged(2,3)", "seriesChanged(0,1)",
		"modelChanged()",
		"seriesAboutToBeInserted(1,2)", "seriesInserted(1,2)",
		"seriesAboutToBeRemoved(0,0)", "seriesRemoved(0,0)"}));
}


TEST(SciLineSeriesModel, PenRolesAndRecordsThatMoveWithTheSeries) {
	VectorLineModel m(3);
	ASSERT_TRUE(m.setSeriesData(QString("Inside"), 1, 1));
	EXPECT_FALSE(m.setSeriesData(QString("wide"), 1, 4));

	// width and colour roles change the pen, the pen role replaces it
	ASSERT_TRUE(m.setSeriesData(QPen(QBrush(Qt::red), 2, Qt::DashLine), 2, 3));
	ASSERT_TRUE(m.setSeriesData(5, 2, 4));
	ASSERT_TRUE(m.setSeriesData(QColor(Qt::cyan), 2, 5));
	EXPECT_EQ(m.seriesData(2, 3).value<QPen>(), QPen(QBrush(Qt::cyan), 5, Qt::DashLine));

	// records move with inserted and removed series: removing the second new series and the
	// first old one leaves new, old 1, old 2
	m.insertSeries(0, 2);
	m.removeSeries(1, 2);
	EXPECT_EQ(m.seriesData(0, 1).toString(), QString());
	EXPECT_EQ(m.seriesData(1, 1).toString(), QString("Inside"));
	EXPECT_EQ(m.seriesData(2, 5).value<QColor>(), QColor(Qt::cyan));

	// bars: the same for their records; neighbours get different default fill colours
	TestBarModel bars(3);
	EXPECT_NE(bars.seriesData(1, 2).value<QColor>(), bars.seriesData(2, 2).value<QColor>());
	const QColor secondDefault = bars.seriesData(1, 2).value<QColor>();
	ASSERT_TRUE(bars.setSeriesData(QColor("#123456"), 2, 2));
	bars.insertSeries(1);
	EXPECT_EQ(bars.seriesData(3, 2).value<QColor>(), QColor("#123456"));
	EXPECT_EQ(bars.seriesData(1, 2).value<QColor>(), secondDefault);
}


TEST(SciColorGridSeriesModel, ValueRangeAndColourBar) {
	MessageCapture capture;
	VectorGridModel m(true);
	SignalRecorder rec(&m);

	ASSERT_TRUE(m.setSeriesData(false, 0, 8));
	ASSERT_TRUE(m.setSeriesData(-3.0, 0, 9));
	ASSERT_TRUE(m.setSeriesData(12.0, 0, 10));
	EXPECT_EQ(m.seriesData(0, 13).toPointF(), QPointF(-3, 12));
	// with autoscale the range is that of the derived model's values (5, -2, 7, 1, 9.5, 3)
	ASSERT_TRUE(m.setSeriesData(true, 0, 8));
	EXPECT_EQ(m.seriesData(0, 13).toPointF(), QPointF(-2, 9.5));
	// the colour bar is the right axis'
	rec.m_signals.clear();
	ASSERT_TRUE(m.setSeriesData(false, 0, 16));
	EXPECT_EQ(rec.m_signals, QStringList({"seriesViewChanged(0,0,16)", "axisChanged(2,0)"}));

	EXPECT_FALSE(m.setSeriesData(1.0, 2, 9));
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Invalid series index #2.", "[AbstractColorGridSeriesModel::setSeriesData]"));
	EXPECT_FALSE(m.setSeriesData(1.0, 0, 13));
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Invalid data role #13.", "[AbstractColorGridSeriesModel::setSeriesData]"));

	// without a grid only the axis hears of the colour bar
	SCI::ColorGridSeriesDummyModel dummy;
	SignalRecorder dummyRec(&dummy);
	ASSERT_TRUE(dummy.setSeriesData(false, 0, 16));
	EXPECT_EQ(dummyRec.m_signals, QStringList({"axisChanged(2,0)"}));
}
