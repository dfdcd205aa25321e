#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QProcess>
#include <QSignalSpy>

#include <ZEB_Exception.h>

#include <OVP_ChartDataTableModel.h>

#include "OVP_ProjectTestUtils.h"
// the chart library's test models
#include "Sci_ChartTestModels.h"
#include "Sci_TestSupport.h"

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SciTest::VectorLineModel LineModel;
const double NaN = std::numeric_limits<double>::quiet_NaN();

/*! The headers of a table. */
QStringList headers(const OVP::ChartDataTable & t) {
	QStringList h;
	for (int c = 0; c < t.columnCount(); ++c)
		h << t.header(c);
	return h;
}

/*! A row of a table, each cell as text or, for numbers, as shortest number text. */
QStringList row(const OVP::ChartDataTable & t, int r) {
	QStringList cells;
	for (int c = 0; c < t.columnCount(); ++c)
		cells << (t.text(r, c).isEmpty() ? OVP::ChartDataText::number(t.value(r, c), false) : t.text(r, c));
	return cells;
}

/*! Two series on x 0, 1, 2 (separate arrays of equal values) and one on 0, 0.5 with a gap. */
void fillLineModel(LineModel & model) {
	const ZEB::Unit h("h");
	model.addSeries({ { 0, 1, 2 }, { 20.5, 1.0/3, -4 }, h, ZEB::Unit("C") });
	model.addSeries({ { 0, 1, 2 }, { 80, 85, 1e-300 }, h, ZEB::Unit("%") });
	model.addSeries({ { 0, 0.5 }, { 7, NaN }, h, ZEB::Unit("C") });
	const QString titles[] = { "T, \"inside\"", "RH", "T2" };
	for (int s = 0; s < 3; ++s)
		model.setSeriesData(titles[s], s, SCI::AbstractLineSeriesModel::SeriesTitleText);
	model.setAxisData("Time [$unit]", CM::BottomAxis, CM::AxisTitleText);
	model.setAxisData(h.id(), CM::BottomAxis, CM::AxisUnit);
}

} // namespace


TEST(ChartDataTableTest, LineSeriesShareXColumnsByValueAndTheTableFollowsTheChart) {
	LineModel chart;
	fillLineModel(chart);
	OVP::ChartDataTableModel model;
	model.setChartModel(&chart);
	const OVP::ChartDataTable & t = model.table();
	EXPECT_EQ(headers(t), QStringList({ "Time [h]", "T, \"inside\" [C]", "RH [%]", "Time [h]", "T2 [C]" }));
	ASSERT_EQ(t.rowCount(), 3);
	EXPECT_EQ(row(t, 0), QStringList({ "0", "20.5", "80", "0", "7" }));
	EXPECT_EQ(row(t, 1), QStringList({ "1", "0.3333333333333333", "85", "0.5", "" }));
	EXPECT_EQ(row(t, 2), QStringList({ "2", "-4", "1e-300", "", "" }));
	EXPECT_EQ(model.data(model.index(2, 2)).toString(), "1.000000e-300");
	// shown in the number format of the user's language, without group separators
	QLocale::setDefault(QLocale(QLocale::German));
	EXPECT_EQ(OVP::ChartDataTableModel::displayNumber(-12345.678, 2).toStdString(), "-12345,68");
	QLocale::setDefault(QLocale::c());

	// a date axis shows the x values as dates from its zero, without unit
	chart.setAxisData(QDateTime(QDate(2015, 1, 1), QTime(0, 0), Qt::UTC), CM::BottomAxis, CM::AxisDateTimeZero);
	chart.setAxisData(true, CM::BottomAxis, CM::AxisDateTimeEnabled);
	EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), "Time");
	EXPECT_EQ(model.data(model.index(1, 3)).toString(), "2015-01-01 00:30:00");
	chart.setAxisData(false, CM::BottomAxis, CM::AxisDateTimeEnabled);

	// a growing series adds rows without a reset, so that views keep their selection; a new
	// title renames its column
	QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
	QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
	// (both series in one batch, taken at its end: one after the other they would part their x column)
	chart.beginChangeModel();
	for (int s : { 0, 1 }) {
		LineModel::Series longer = chart.m_series[static_cast<std::size_t>(s)];
		longer.m_x.push_back(3);
		longer.m_y.push_back(9);
		chart.changeSeries(s, longer);
	}
	chart.endChangeModel();
	EXPECT_EQ(inserted.count(), 1);
	EXPECT_EQ(model.data(model.index(3, 2), OVP::ChartDataTableModel::ValueRole).toDouble(), 9);
	chart.setSeriesData("T2 outside", 2, SCI::AbstractLineSeriesModel::SeriesTitleText);
	EXPECT_EQ(model.headerData(4, Qt::Horizontal).toString(), "T2 outside [C]");
	// the third series on the grid of the others joins their x column
	chart.changeSeries(2, { { 0, 1, 2, 3 }, { 1, 2, 3, 4 }, ZEB::Unit("h"), ZEB::Unit("C") });
	EXPECT_EQ(headers(model.table()), QStringList({ "Time [h]", "T, \"inside\" [C]", "RH [%]", "T2 outside [C]" }));
	EXPECT_EQ(resets.count(), 1);
	// a removed chart model leaves an empty table
	chart.removeSeries(0, 3);
	EXPECT_EQ(model.columnCount(), 0);
}


TEST(ChartDataTableTest, ColorGridIsAMatrixVectorFieldAndBarsHaveOneRowPerPointOrBar) {
	SciTest::VectorGridModel grid;
	grid.setGrid({ 0, 0.2, 0.4 }, { 5, 15 }, 2, 2, [](unsigned int i, unsigned int j) {
		return i == 1 && j == 1 ? NaN : 1.0 + i + 2*j;
	});
	grid.setAxisData("Temperature [$unit]", CM::RightAxis, CM::AxisTitleText);
	grid.setAxisData(ZEB::Unit("C").id(), CM::RightAxis, CM::AxisUnit);
	OVP::ChartDataTable t = OVP::ChartDataTable::fromChart(grid);
	EXPECT_EQ(headers(t), QStringList({ "y [m]", "Temperature [C]", "Temperature [C]" }));
	ASSERT_EQ(t.rowCount(), 3);
	// first row: the x coordinates of the cell centres; then y and the values, x running along
	EXPECT_EQ(row(t, 0), QStringList({ "x [m]", "0.1", "0.30000000000000004" }));
	EXPECT_EQ(row(t, 1), QStringList({ "5", "1", "2" }));
	EXPECT_EQ(row(t, 2), QStringList({ "15", "3", "" }));
	SciTest::VectorFieldTestModel field(true);
	t = OVP::ChartDataTable::fromChart(field);
	EXPECT_EQ(headers(t), QStringList({ "x [m]", "y [m]", "u [W/m2]", "v [W/m2]", "magnitude [W/m2]" }));
	EXPECT_EQ(row(t, 0), QStringList({ "0", "0", "3", "4", "5" }));

	SciTest::TestBarModel bars(2);
	bars.setAxisData("Month", CM::BottomAxis, CM::AxisTitleText);
	bars.setSeriesData("2019", 0, SCI::AbstractBarSeriesModel::BarTitleText);
	bars.setSeriesData("2020", 1, SCI::AbstractBarSeriesModel::BarTitleText);
	t = OVP::ChartDataTable::fromChart(bars);
	EXPECT_EQ(headers(t), QStringList({ "Month", "2019 [kWh/a]", "2020 [kWh/a]" }));
	EXPECT_EQ(row(t, 1), QStringList({ "Bar 1", "0.5", "1.5" }));
}


TEST(ChartDataTableTest, CopiedTextHoldsTheSelectedRowsAndColumnsWithHeadersAsSet) {
	LineModel chart;
	fillLineModel(chart);
	OVP::ChartDataTableModel model;
	model.setChartModel(&chart);
	OVP::ChartDataText::Format f;
	// cells (0, 1) and (2, 4): not a rectangle, so rows 0 and 2 of columns 1 and 4
	EXPECT_EQ(model.selectionText({ model.index(2, 4), model.index(0, 1) }, f),
			  "\"T, \"\"inside\"\" [C]\"\tT2 [C]\n20.5\t7\n-4\t\n");
	f.m_germanFormat = true;
	f.m_separateUnitLines = true;
	EXPECT_EQ(model.selectionText({ model.index(1, 3), model.index(1, 0) }, f), "Time\tTime\n[h]\t[h]\n1\t0,5\n");
}


TEST(ChartDataTableTest, CsvFilesReadByAnIndependentParserGiveTheChartValues) {
	LineModel chart;
	fillLineModel(chart);
	const OVP::ChartDataTable table = OVP::ChartDataTable::fromChart(chart);
	const QString dir = OVPTest::testScratchDir();
	OVP::Settings settings("ZEB", "ChartDataTableTest", dir + "/settings.ini");
	// the parser turns numbers (with a decimal comma in German format) into floats
	const char * script =
		"import csv, json, sys\n"
		"path, delimiter, decimal = sys.argv[1:4]\n"
		"with open(path, newline='', encoding='utf-8') as f:\n"
		"    rows = list(csv.reader(f, delimiter=delimiter))\n"
		"def cell(t):\n"
		"    try: return float(t.replace(decimal, '.')) if t else None\n"
		"    except ValueError: return t\n"
		"print(json.dumps([[cell(t) for t in r] for r in rows]))\n";
	const QJsonArray values = {
		QJsonArray{ 0, 20.5, 80, 0, 7 }, QJsonArray{ 1, 1.0/3, 85, 0.5 }, QJsonArray{ 2, -4, 1e-300 } };
	// header rows as a vector: a QJsonArray of one QJsonArray in braces is that array itself for some compilers
	struct Case { bool m_german; bool m_unitLines; const char * m_delimiter; std::vector<QJsonArray> m_headers; };
	const Case cases[] = {
		{ false, false, ",", { QJsonArray{ "Time [h]", "T, \"inside\" [C]", "RH [%]", "Time [h]", "T2 [C]" } } },
		{ true, true, ";", { QJsonArray{ "Time", "T, \"inside\"", "RH", "Time", "T2" },
							 QJsonArray{ "[h]", "[C]", "[%]", "[h]", "[C]" } } } };
	for (const Case & c : cases) {
		settings.m_exportGermanFormatEnabled = c.m_german ? 1 : 0;
		settings.m_exportSeperateLinesForUnitsEnabled = c.m_unitLines;
		const QString file = dir + (c.m_german ? "/de.csv" : "/en.csv");
		OVP::ChartDataText::writeFile(table, file, OVP::ChartDataText::fileFormat(settings, file));
		QProcess python;
		python.start("/usr/bin/python3", { "-c", script, file, c.m_delimiter, c.m_german ? "," : "." });
		ASSERT_TRUE(python.waitForFinished(60000));
		ASSERT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
		QJsonArray expected;
		for (const QJsonArray & h : c.m_headers)
			expected.append(h);
		for (const QJsonValue & r : values)
			expected.append(r);
		// a row of values ends with empty fields where the columns have ended
		QJsonArray rows = QJsonDocument::fromJson(python.readAllStandardOutput()).array();
		for (int r = 0; r < rows.size(); ++r) {
			QJsonArray cells = rows[r].toArray();
			while (!cells.isEmpty() && cells.last().isNull())
				cells.removeLast();
			rows[r] = cells;
		}
		EXPECT_EQ(rows, expected) << QJsonDocument(rows).toJson().toStdString();
	}
	EXPECT_TRUE(OVPTest::readText(dir + "/de.csv").contains("1;0,3333333333333333;85;0,5;\r\n"));
	EXPECT_EQ(QDir(dir).entryList(QDir::Files), QStringList({ "de.csv", "en.csv" }));
}


TEST(ChartDataTableTest, ATargetThatCannotBeWrittenIsNamedAndLeavesNoFile) {
	LineModel chart;
	fillLineModel(chart);
	const QString dir = OVPTest::testScratchDir();
	OVPTest::writeText(dir + "/plain", "not a folder");
	QDir().mkpath(dir + "/folder.csv");
	for (const QString & target : { dir + "/plain/out.csv", dir + "/folder.csv" }) {
		const std::string message = OVPTest::thrown([&]() {
			OVP::ChartDataText::writeFile(OVP::ChartDataTable::fromChart(chart), target, OVP::ChartDataText::Format());
		}).second;
		EXPECT_NE(message.find("Cannot write data file '" + target.toStdString() + "'"), std::string::npos) << message;
	}
	EXPECT_EQ(QDir(dir).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({ "folder.csv", "plain" }));
	EXPECT_TRUE(QDir(dir + "/folder.csv").isEmpty());
}
