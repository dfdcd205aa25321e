#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>

#include <QDir>
#include <QFile>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

#include <tinyxml.h>

#include <Sci_ChartStyleFile.h>
#include <Sci_ColorGridSeriesDummyModel.h>
#include <Sci_ColorMapFile.h>
#include <Sci_LineSeriesDummyModel.h>

#include "Sci_ChartTestModels.h"
#include "Sci_TestSupport.h"

using namespace SciTest;
typedef std::pair<int, QVariant> RoleValue;

namespace {

/*! Equality of role values; NaN equals NaN, date-times compare their instants. */
bool sameValue(const QVariant & a, const QVariant & b) {
	if (a.type() == QVariant::Double && b.type() == QVariant::Double)
		return a.toDouble() == b.toDouble() || (std::isnan(a.toDouble()) && std::isnan(b.toDouble()));
	return a == b;
}

/*! Writes the model into a fresh parent element; returns the parent. */
TiXmlElement writeModel(const SCI::AbstractChartModel & m) {
	TiXmlElement parent("ChartModel");
	m.writeXML(&parent);
	return parent;
}

/*! Writes the model to text and parses it again, so that the TinyXML encoding takes part. */
void roundTrip(const SCI::AbstractChartModel & from, SCI::AbstractChartModel & to) {
	TiXmlDocument doc;
	TiXmlElement * parent = new TiXmlElement("ChartModel");
	doc.LinkEndChild(parent);
	from.writeXML(parent);
	TiXmlPrinter printer;
	doc.Accept(&printer);
	TiXmlDocument back;
	back.Parse(printer.CStr());
	ASSERT_FALSE(back.Error()) << back.ErrorDesc();
	to.readXML(back.RootElement());
}

/*! Parses an XML snippet, reads it into the model and returns the exception thrown, if any. */
bool readSnippet(SCI::AbstractChartModel & m, const char * xml, ZEB::Exception & error) {
	TiXmlDocument doc;
	doc.Parse(xml);
	EXPECT_FALSE(doc.Error()) << xml;
	try {
		m.readXML(doc.RootElement());
	}
	catch (ZEB::Exception & ex) {
		error = ex;
		return false;
	}
	return true;
}

QFont testFont(const char * family, int size, bool bold) {
	QFont f(family, size, bold ? QFont::Bold : QFont::Normal, true);
	f.setUnderline(true);
	return f;
}

/*! Non-default values for every chart role that is stored in XML. */
const std::vector<RoleValue> & chartValues() {
	static const std::vector<RoleValue> values = {
		{0, QString("Wall <north> & \"south\" µ°C")},
		{1, testFont("Serif", 17, true)},
		{3, false}, {4, 4}, {5, 1}, {6, false}, {7, 2}, {8, 33},
		{9, QColor(0x12, 0x34, 0x56, 0x78)}, {10, 0.25}, {11, QSize(7, 13)}, {12, 3}, {13, 11},
		{14, testFont("Monospace", 9, false)},
		{15, true}, {16, true}, {17, false},
		{18, QPen(QBrush(QColor("#ff8000")), 3, Qt::DotLine)},
		{20, true}
	};
	return values;
}

/*! Non-default values for every writable axis role; they differ between axes. */
std::vector<RoleValue> axisValues(int p) {
	return {
		{0, false}, {2, QString("Axis %1 in $unit").arg(p)},
		{3, 0.1 + 0.2 + p}, {4, -1.0/3 - p}, {5, true}, {6, true}, {7, false},
		{8, testFont("Serif", 11 + p, true)}, {9, testFont("Sans", 7 + p, false)},
		{10, 7 + p}, {11, 8 + p}, {12, 37.5 + p}, {13, 2 + p}, {14, 12 + p},
		{15, ZEB::Unit(p == 0 ? "d" : "C").id()},
		{16, false}, {17, QPen(QBrush(QColor("#336699")), 2, Qt::DashDotLine)}, {18, 6.0}, {19, QColor("#aa0000")},
		{20, false}, {21, QPen(QBrush(QColor("#0a0b0c")), 2, Qt::DotLine)}, {22, 8.0}, {23, QColor("#00bb00")},
		{24, 50 + p}, {25, 9 + p}, {26, true},
		{27, QDateTime(QDate(2015, 3, 4), QTime(5, 6, 7, 89), Qt::UTC)}, {28, 0},
		{29, QStringList({"a", "", "hh;;mm", QString("y%1").arg(p)})}
	};
}

/*! Non-default values for every line role that is stored in XML. */
std::vector<RoleValue> lineValues(int i) {
	return {
		{1, QString("Series %1 from $filename").arg(i)},
		{3, QPen(QBrush(QColor("#102030")), 3, Qt::DashLine)}, {4, 5 + i}, {5, QColor("#405060")},
		{6, false}, {7, 2}, {8, 3 + i}, {9, true}, {10, true}, {11, false},
		{12, 9u + static_cast<unsigned int>(i)}, {13, false}, {14, QColor::fromRgba64(0x7071, 0x7273, 0x7475)}
	};
}

SCI::ColorMap testColorMap() {
	SCI::ColorMap map;
	map.m_type = SCI::ColorMap::AlphaMap;
	map.m_alphaColor = QColor("#4080c0");
	map.setLinearMap(QColor("#ffff00"), QColor("#000080"), 6);
	map.m_linearColorStops[3].m_color = QColor(1, 2, 3, 4);
	map.m_linearColorStops[4].m_color = QColor::fromRgba64(1, 2, 3);
	return map;
}

/*! Colour grid roles stored in XML, all but the colour bar flag (written as ColorBarVisible, read from ColorBar). */
const std::vector<RoleValue> & colorGridValues() {
	static const std::vector<RoleValue> values = {
		{7, QVariant::fromValue(testColorMap())}, {8, false}, {9, -5.5}, {10, 1e10/3},
		{14, 1}, {15, 2}, {17, true}, {18, 0.5},
		{19, QPen(QBrush(QColor("#111111")), 2, Qt::DashLine)}
	};
	return values;
}

const std::vector<RoleValue> & vectorValues() {
	static const std::vector<RoleValue> values = {
		{5, QVariant::fromValue(testColorMap())}, {6, false}, {7, 0.1}, {8, 7.7},
		{12, false}, {13, false}, {14, 22}, {15, false}, {16, QColor(0xab, 0xcd, 0xef, 0x10)}, {17, 0},
		{18, false}, {19, 80.5}, {20, 2.5}, {21, 1.75}
	};
	return values;
}

typedef std::function<QVariant(const SCI::AbstractChartModel &, int)> Getter;
typedef std::function<bool(SCI::AbstractChartModel &, const QVariant &, int)> Setter;

/*! Sets every value (checking it differs from the default first) in model a, writes a, reads
	the XML into the fresh model b and compares every role. */
void expectRoundTrip(SCI::AbstractChartModel & a, SCI::AbstractChartModel & b,
					 const std::vector<RoleValue> & values, const Getter & get, const Setter & set,
					 const std::string & what)
{
	for (const RoleValue & rv : values) {
		EXPECT_FALSE(sameValue(get(a, rv.first), rv.second)) << what << " role " << rv.first << " already at this value";
		ASSERT_TRUE(set(a, rv.second, rv.first)) << what << " role " << rv.first;
	}
	roundTrip(a, b);
	for (const RoleValue & rv : values) {
		const QVariant expected = get(a, rv.first);
		EXPECT_TRUE(sameValue(get(b, rv.first), expected))
				<< what << " role " << rv.first << ": " << get(b, rv.first).toString().toStdString()
				<< " != " << expected.toString().toStdString();
	}
}

} // namespace


TEST(SciChartXML, DefaultsWriteOnlyStructure) {
	VectorLineModel line(2);
	TiXmlElement p = writeModel(line);
	ASSERT_EQ(childNames(&p), QStringList({"SeriesProperties", "AxisProperties", "ChartProperties"}));
	const TiXmlElement * series = p.FirstChildElement("SeriesProperties");
	EXPECT_EQ(childNames(series), QStringList({"Series", "Series"}));
	EXPECT_TRUE(childNames(series->FirstChildElement()).isEmpty());
	const TiXmlElement * axes = p.FirstChildElement("AxisProperties");
	for (const TiXmlElement * a = axes->FirstChildElement(); a != nullptr; a = a->NextSiblingElement())
		EXPECT_TRUE(childNames(a).isEmpty()) << childNames(a).join(",").toStdString();
	EXPECT_STREQ(axes->FirstChildElement()->NextSiblingElement()->Attribute("index"), "1");
	EXPECT_EQ(childNames(p.FirstChildElement("ChartProperties")), QStringList({"Legend"}));

	// values back at their defaults are not written either
	ASSERT_TRUE(line.setAxisData(12.0, 1, 3));
	ASSERT_TRUE(line.setAxisData(0.0, 1, 3));
	ASSERT_TRUE(line.setChartData(QString("x"), 0));
	ASSERT_TRUE(line.setChartData(QString("Title"), 0));
	TiXmlElement again = writeModel(line);
	EXPECT_TRUE(childNames(again.FirstChildElement("AxisProperties")->FirstChildElement()->NextSiblingElement()).isEmpty());
	EXPECT_EQ(childNames(again.FirstChildElement("ChartProperties")), QStringList({"Legend"}));
}


TEST(SciChartXML, WriteAllWritesEveryElementInOrder) {
	VectorLineModel line(1);
	line.setWriteAll(true);
	// display-only roles are not written even then
	ASSERT_TRUE(line.setChartData(false, 19));
	ASSERT_TRUE(line.setChartData(42.5, 21));
	TiXmlElement p = writeModel(line);
	const TiXmlElement * chart = p.FirstChildElement("ChartProperties");
	EXPECT_EQ(childNames(chart), QStringList({"TitleText", "TitleFont", "AxisY2TitleInverted", "AxisScalesInside",
		"Legend", "ConstructionLinesVisible", "ConstructionLinesPenWidth", "ConstructionLinesPenStyle",
		"ConstructionLinesPenColor", "ShowCurrentTimePosition"}));
	const TiXmlElement * legend = chart->FirstChildElement("Legend");
	EXPECT_EQ(childNames(legend), QStringList({"Position", "Alignment", "OffsetX", "OffsetY",
		"BackgroundTransparency", "BackgroundColor", "IconStyle", "IconWidth", "MaxColumns", "Spacing", "Font"}));
	EXPECT_STREQ(legend->FirstChildElement("Position")->GetText(), "Bottom");

	const QStringList axisElements({"TitleText", "TitleFont", "LabelFont", "LabelHAlignment", "LabelVAlignment",
		"LabelRotation", "ZEB:Unit", "Maximum", "Minimum", "MaxMinorScale", "MaxMajorScale", "GridVisible",
		"GridPenWidth", "GridPenStyle", "GridPenColor", "MinorGridVisible", "MinorGridPenWidth",
		"MinorGridPenStyle", "MinorGridPenColor", "LabelSpacing", "TitleSpacing", "DateTimeEnabled",
		"DateTimeZero", "DateTimeSpec", "DateTimeFormats"});
	const TiXmlElement * axis = p.FirstChildElement("AxisProperties")->FirstChildElement("Axis");
	EXPECT_EQ(childNames(axis), axisElements);
	// 2000-01-01 00:00 UTC is 946684800 s after the epoch
	EXPECT_STREQ(axis->FirstChildElement("DateTimeZero")->GetText(), "946684800000");
	EXPECT_STREQ(axis->FirstChildElement("GridPenStyle")->GetText(), "2");	// Qt::DashLine
	EXPECT_STREQ(axis->FirstChildElement("ZEB:Unit")->Attribute("name"), "AxisUnit");

	const TiXmlElement * series = p.FirstChildElement("SeriesProperties")->FirstChildElement("Series");
	EXPECT_EQ(childNames(series), QStringList({"TitleText", "LineStyle", "MarkerStyle", "PenWidth", "PenStyle",
		"PenColor", "MarkerColor", "MarkerSize", "MarkerFilled"}));

	// a model read back from the write-all form stays at its defaults
	VectorLineModel fresh(1);
	roundTrip(line, fresh);
	for (int r = 0; r < 22; ++r)
		EXPECT_TRUE(sameValue(fresh.chartData(r), VectorLineModel(1).chartData(r))) << r;
	// and its default fonts set nothing, so that the plot still draws them in the font of its
	// widgets (the bold chart title) instead of the plain application font they were written as
	EXPECT_EQ(fresh.chartData(SCI::AbstractChartModel::TitleFont).value<QFont>().resolve(), 0u);
	EXPECT_EQ(fresh.axisData(1, SCI::AbstractCartesianChartModel::AxisTitleFont).value<QFont>().resolve(), 0u);
}


TEST(SciChartXML, EveryPropertyRoundTrips) {
	const Getter chartGet = [](const SCI::AbstractChartModel & m, int r) { return m.chartData(r); };
	const Setter chartSet = [](SCI::AbstractChartModel & m, const QVariant & v, int r) { return m.setChartData(v, r); };

	VectorLineModel a(3), b(3);
	expectRoundTrip(a, b, chartValues(), chartGet, chartSet, "line chart");
	for (int p = 0; p < 3; ++p) {
		VectorLineModel c(1), d(1);
		const Getter get = [p](const SCI::AbstractChartModel & m, int r) {
			return static_cast<const SCI::AbstractCartesianChartModel &>(m).axisData(p, r); };
		const Setter set = [p](SCI::AbstractChartModel & m, const QVariant & v, int r) {
			return static_cast<SCI::AbstractCartesianChartModel &>(m).setAxisData(v, p, r); };
		expectRoundTrip(c, d, axisValues(p), get, set, "axis " + std::to_string(p));
		// the displayed title follows the read unit
		EXPECT_EQ(d.axisData(p, 1).toString(), QString("Axis %1 in %2").arg(p).arg(p == 0 ? "d" : "C"));
	}
	for (int i = 0; i < 3; ++i) {
		VectorLineModel c(3), d(3);
		const Getter get = [i](const SCI::AbstractChartModel & m, int r) { return m.seriesData(i, r); };
		const Setter set = [i](SCI::AbstractChartModel & m, const QVariant & v, int r) { return m.setSeriesData(v, i, r); };
		expectRoundTrip(c, d, lineValues(i), get, set, "series " + std::to_string(i));
		// the other series stay at their defaults
		for (int j = 0; j < 3; ++j) {
			if (j != i) {
				EXPECT_EQ(d.seriesData(j, 1).toString(), QString()) << i << " " << j;
			}
		}
	}

	const Getter seriesGet = [](const SCI::AbstractChartModel & m, int r) { return m.seriesData(0, r); };
	const Setter seriesSet = [](SCI::AbstractChartModel & m, const QVariant & v, int r) { return m.setSeriesData(v, 0, r); };
	VectorGridModel g1(true), g2(true);
	expectRoundTrip(g1, g2, colorGridValues(), seriesGet, seriesSet, "colour grid");
	VectorFieldTestModel v1(true), v2(true);
	expectRoundTrip(v1, v2, vectorValues(), seriesGet, seriesSet, "vector field");
	for (int i = 0; i < 2; ++i) {
		TestBarModel c(2), d(2);
		const Getter get = [i](const SCI::AbstractChartModel & m, int r) { return m.seriesData(i, r); };
		const Setter set = [i](SCI::AbstractChartModel & m, const QVariant & v, int r) { return m.setSeriesData(v, i, r); };
		expectRoundTrip(c, d, { {1, QString("Bars <%1> & µ").arg(i)}, {2, QColor(0x21, 0x43, 0x65, 0x87)},
								{3, QPen(QBrush(QColor("#a0b0c0")), 2, Qt::DashDotDotLine)} },
						get, set, "bar series " + std::to_string(i));
		EXPECT_EQ(d.seriesData(1 - i, 1).toString(), QString()) << "bar series " << i;
	}
}


TEST(SciChartXML, ReadingResetsTheModelOnceAndReadsChartProperties) {
	SCI::LineSeriesDummyModel m;
	SignalRecorder rec(&m);
	ZEB::Exception err;
	ASSERT_TRUE(readSnippet(m, "<ChartModel><ChartProperties><TitleText>T</TitleText>"
							   "<Legend visible='0'><ConstructionLinesVisible>0</ConstructionLinesVisible></Legend>"
							   "<Unknown>9</Unknown><ShowCurrentTimePosition>1</ShowCurrentTimePosition>"
							   "</ChartProperties></ChartModel>", err));
	EXPECT_EQ(rec.m_signals, QStringList({"modelAboutToBeReset()", "modelReset()"}));
	EXPECT_EQ(m.chartData(0).toString(), QString("T"));
	EXPECT_EQ(m.chartData(3).toBool(), false);
	EXPECT_EQ(m.chartData(20).toBool(), true);
	// construction lines are looked up in ChartProperties, not in Legend
	EXPECT_EQ(m.chartData(17).toBool(), true);

	// a broken value ends the reset too and changes nothing
	rec.m_signals.clear();
	EXPECT_FALSE(readSnippet(m, "<ChartModel><ChartProperties><TitleText>U</TitleText>"
								"<AxisScalesInside>maybe</AxisScalesInside></ChartProperties></ChartModel>", err));
	EXPECT_TRUE(chainHas(err, "Error reading chart settings.", "[AbstractChartModel::readXML]")) << err.msgWithOrigin();
	EXPECT_EQ(rec.m_signals, QStringList({"modelAboutToBeReset()", "modelReset()"}));
	EXPECT_EQ(m.chartData(0).toString(), QString("T"));

	// legend positions by keyword; an unknown one keeps the position and warns
	MessageCapture capture;
	ASSERT_TRUE(readSnippet(m, "<M><ChartProperties><Legend><Position>Inside</Position><Spacing>3</Spacing>"
							   "</Legend></ChartProperties></M>", err));
	EXPECT_EQ(m.chartData(4).toInt(), 4);
	EXPECT_EQ(m.chartData(13).toInt(), 3);
	ASSERT_TRUE(readSnippet(m, "<M><ChartProperties><Legend><Position>Middle</Position></Legend></ChartProperties></M>", err));
	EXPECT_EQ(m.chartData(4).toInt(), 4);
	EXPECT_TRUE(capture.has(ZEB::MSG_WARNING, "Unknown keyword for legend position in 'Position' tag: Middle. "
							"Bottom position will be used instead.", "[AbstractChartModel::readXML]"));
}


TEST(SciChartXML, SeriesRecordsAreAssignedInOrder) {
	VectorLineModel m(3);
	ASSERT_TRUE(m.setSeriesData(QString("old"), 2, 1));
	ZEB::Exception err;
	ASSERT_TRUE(readSnippet(m, "<M><SeriesProperties><Series leftAxis='0'><TitleText>first</TitleText></Series>"
							   "<Series><PenWidth>4</PenWidth></Series></SeriesProperties></M>", err));
	EXPECT_EQ(m.seriesData(0, 1).toString(), QString("first"));
	EXPECT_EQ(m.seriesData(0, 6).toBool(), false);
	EXPECT_EQ(m.seriesData(1, 4).toInt(), 4);
	EXPECT_EQ(m.seriesData(2, 1).toString(), QString("old"));
}


TEST(SciChartXML, NaNPreciseNumbersDateFormatsAndTheColourBarFlag) {
	VectorGridModel m(true);
	ASSERT_TRUE(m.setSeriesData(4.0, 0, 9));
	ASSERT_TRUE(m.setSeriesData(false, 0, 16));
	TiXmlElement g = writeModel(m);
	EXPECT_STREQ(g.FirstChildElement("ColorGridProperties")->FirstChildElement("ColorBarVisible")->GetText(), "0");
	// the colour bar flag is read from ColorBar only, so it does not come back from ColorBarVisible
	VectorGridModel back(true);
	back.readXML(&g);
	EXPECT_EQ(back.seriesData(0, 16).toBool(), true);
	ZEB::Exception err;
	ASSERT_TRUE(readSnippet(m, "<M><ColorGridProperties><MinimumZ>NaN</MinimumZ><MaximumZ>2.5</MaximumZ>"
							   "</ColorGridProperties></M>", err));
	EXPECT_TRUE(std::isnan(m.seriesData(0, 9).toDouble()));
	EXPECT_EQ(m.seriesData(0, 10).toDouble(), 2.5);
	ASSERT_TRUE(readSnippet(m, "<M><ColorGridProperties><ColorBar>0</ColorBar></ColorGridProperties></M>", err));
	EXPECT_EQ(m.seriesData(0, 16).toBool(), false);

	// a NaN that differs from a finite default is written as "NaN" and read back
	VectorFieldTestModel v1(true), v2(true);
	ASSERT_TRUE(v1.setSeriesData(std::nan(""), 0, 19));
	TiXmlElement p = writeModel(v1);
	EXPECT_STREQ(p.FirstChildElement("VectorPlotProperties")->FirstChildElement("MaximumArrowLength")->GetText(), "NaN");
	roundTrip(v1, v2);
	EXPECT_TRUE(std::isnan(v2.seriesData(0, 19).toDouble()));

	// axis limits keep every digit
	VectorLineModel a, b;
	const double values[] = {0.1 + 0.2, -123456.78901234567, 5e-300, 1.7976931348623157e308};
	for (double x : values) {
		ASSERT_TRUE(a.setAxisData(x, 0, 3));
		ASSERT_TRUE(a.setAxisData(-x, 0, 4));
		ASSERT_TRUE(a.setAxisData(x/7, 0, 12));
		roundTrip(a, b);
		EXPECT_EQ(b.axisData(0, 3).toDouble(), x);
		EXPECT_EQ(b.axisData(0, 4).toDouble(), -x);
		EXPECT_EQ(b.axisData(0, 12).toDouble(), x/7);
	}

	// date-time formats keep their empty entries
	ASSERT_TRUE(a.setAxisData(QStringList({"dd.MM.", "", "", "yyyy"}), 2, 29));
	roundTrip(a, b);
	EXPECT_EQ(b.axisData(2, 29).toStringList(), QStringList({"dd.MM.", "", "", "yyyy"}));
}


TEST(SciChartXML, ReadErrorsNameTheirOrigin) {
	struct Case {
		const char * xml;
		const char * message;
		const char * functionId;
	};
	const Case cases[] = {
		{ "<M><AxisProperties><Axis enabled='0'/></AxisProperties></M>",
		  "Expected 'index' attribute in Series.", "[AbstractCartesianChartModel::readXML]" },
		{ "<M><AxisProperties><Axis index='3'/></AxisProperties></M>",
		  "Error reading chart series.", "[AbstractCartesianChartModel::readXML]" },
		{ "<M><AxisProperties><Axis index='1'><ZEB:Unit name='AxisUnit'>furlong</ZEB:Unit></Axis></AxisProperties></M>",
		  "Error reading chart series.", "[AbstractCartesianChartModel::readXML]" },
		{ "<M><SeriesProperties><Series inverted='yes'/></SeriesProperties></M>",
		  "Error reading chart series.", "[AbstractLineSeriesModel::readXML]" },
		{ "<M><ChartProperties><TitleFont></TitleFont></ChartProperties></M>",
		  "Error reading chart settings.", "[AbstractChartModel::readXML]" },
	};
	for (const Case & c : cases) {
		VectorLineModel m(1);
		ASSERT_TRUE(m.setAxisData(QString("kept"), 1, 2));
		ASSERT_TRUE(m.setSeriesData(QString("kept"), 0, 1));
		ZEB::Exception err;
		EXPECT_FALSE(readSnippet(m, c.xml, err)) << c.xml;
		EXPECT_TRUE(chainHas(err, c.message, c.functionId)) << c.xml << "\n" << err.msgWithOrigin();
		// a failed level leaves its properties as they were
		EXPECT_EQ(m.axisData(1, 2).toString(), QString("kept")) << c.xml;
		EXPECT_EQ(m.seriesData(0, 1).toString(), QString("kept")) << c.xml;
	}

	VectorGridModel g(true);
	ZEB::Exception err;
	EXPECT_FALSE(readSnippet(g, "<M><ColorGridProperties><ColorStops><ColorStop index='0' position='0'/>"
								"</ColorStops></ColorGridProperties></M>", err));
	EXPECT_TRUE(chainHas(err, "Error reading chart settings.", "[AbstractColorGridSeriesModel::readXML]"));

	VectorFieldTestModel v(true);
	EXPECT_FALSE(readSnippet(v, "<M><VectorPlotProperties><RasterSize>big</RasterSize></VectorPlotProperties></M>", err));
	EXPECT_TRUE(chainHas(err, "Error reading chart settings.", "[AbstractVectorPlotSeriesModel::readXML]"));
}


TEST(SciChartStyleFile, SaveApplyAndRefuseForeignFiles) {
	VectorLineModel a(1);
	ASSERT_TRUE(a.setChartData(QString("Styled"), 0));
	ASSERT_TRUE(a.setAxisData(QColor("#00aa00"), 1, 19));
	ASSERT_TRUE(a.setSeriesData(QColor("#aa0000"), 0, 14));
	const QString path = SciTest::scratchPath("chart.o2style");
	SCI::ChartStyleFile::save(a, path);
	EXPECT_FALSE(a.writeAll());

	TiXmlDocument doc;
	ASSERT_TRUE(doc.LoadFile(path.toStdString()));
	EXPECT_EQ(doc.RootElement()->ValueStr(), "OrvaneStyle");
	const TiXmlElement * cm = doc.RootElement()->FirstChildElement("ChartModel");
	ASSERT_NE(cm, nullptr);
	EXPECT_STREQ(cm->Attribute("chartType"), "2D");
	// written with every property
	EXPECT_NE(cm->FirstChildElement("ChartProperties")->FirstChildElement("ShowCurrentTimePosition"), nullptr);

	VectorLineModel b(1);
	SCI::ChartStyleFile::apply(b, path);
	EXPECT_EQ(b.chartData(0).toString(), QString("Styled"));
	EXPECT_EQ(b.seriesData(0, 14).value<QColor>(), QColor("#aa0000"));

	struct Case { std::string text; std::string message; };
	const QString bad = SciTest::scratchPath("bad.o2style");
	const Case cases[] = {
		{ "<?xml version=\"1.0\"?>\n<OrvaneColorMap><ChartModel chartType='2D'><ChartProperties>"
		  "<TitleText>Evil</TitleText></ChartProperties></ChartModel></OrvaneColorMap>\n",
		  "Expected OrvaneStyle as root node in XML file." },
		{ "<?xml version=\"1.0\"?>\n<OrvaneStyle><ChartModel chartType='3D'><ChartProperties>"
		  "<TitleText>Evil</TitleText></ChartProperties></ChartModel></OrvaneStyle>\n",
		  "The style belongs to a chart of type '3D' and does not fit this chart of type '2D'." },
	};
	for (const Case & c : cases) {
		SciTest::writeTextFile(bad, c.text);
		try {
			SCI::ChartStyleFile::apply(b, bad);
			FAIL() << c.text;
		}
		catch (ZEB::Exception & ex) {
			EXPECT_TRUE(chainHas(ex, c.message, "[ChartStyleFile::apply]")) << ex.msgWithOrigin();
			EXPECT_EQ(std::string(ex.what()), "Error applying chart style from file");
		}
		EXPECT_EQ(b.chartData(0).toString(), QString("Styled"));
	}
	EXPECT_THROW(SCI::ChartStyleFile::apply(b, SciTest::scratchPath("missing.o2style")), ZEB::Exception);
}


#ifdef Q_OS_UNIX
TEST(SciXMLFile, FailedSaveKeepsPreviousFiles) {
	const QString dir = SciTest::scratchPath("keep");
	ASSERT_TRUE(QDir().mkpath(dir));
	const QString style = dir + "/chart.o2style";
	const QString map = dir + "/map.o2colormap";
	SciTest::writeTextFile(style, "previous style");
	SciTest::writeTextFile(map, "previous map");
	VectorLineModel model(3);
	SCI::ColorMap colors;
	colors.setLinearMap(QColor("#202020"), QColor("#ffcc00"), 20);

	// both new files are several kB, but no file may grow beyond 256 bytes: writing fails half-way
	struct rlimit old;
	ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
	struct rlimit limited = old;
	limited.rlim_cur = 256;
	void (*oldHandler)(int) = std::signal(SIGXFSZ, SIG_IGN);
	ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limited), 0);
	EXPECT_THROW(SCI::ChartStyleFile::save(model, style), ZEB::Exception);
	EXPECT_THROW(SCI::ColorMapFile::save(colors, map), ZEB::Exception);
	setrlimit(RLIMIT_FSIZE, &old);
	std::signal(SIGXFSZ, oldHandler);

	const auto content = [](const QString & path) {
		QFile f(path);
		return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : std::string();
	};
	EXPECT_EQ(content(style), "previous style");
	EXPECT_EQ(content(map), "previous map");
	EXPECT_EQ(QDir(dir).entryList(QDir::Files | QDir::Hidden), QStringList({ "chart.o2style", "map.o2colormap" }));
}
#endif
