#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <limits>
#include <memory>
#include <random>

#include <tinyxml.h>

#include <qwt_color_map.h>

#include <Sci_ColorLookupTable.h>
#include <Sci_ColorMap.h>
#include <Sci_ColorMapFile.h>
#include <Sci_PlotColorMap.h>
#include <Sci_XMLValueReader.h>
#include <Sci_XMLValueWriter.h>

#include "Sci_TestSupport.h"

using SCI::ColorMap;
using SciTest::chainHas;

TEST(SciColorMap, LinearMapStepsPositionsAndHsvInterpolation) {
	ColorMap m;
	m.setLinearMap(Qt::blue, Qt::red, 10);
	ASSERT_EQ(m.m_linearColorStops.size(), 11);
	for (int i = 0; i <= 10; ++i) {
		const ColorMap::ColorStop & s = m.m_linearColorStops[i];
		EXPECT_DOUBLE_EQ(s.m_pos, i/10.0) << i;
		// blue has hue 240, red 0: the hue falls linearly, saturation and value stay 1
		EXPECT_NEAR(s.m_color.hsvHueF()*360, 240.0*(1 - i/10.0), 1.0) << i;
		EXPECT_TRUE(s.m_color.hsvSaturation() == 255 && s.m_color.value() == 255 && s.m_color.alpha() == 255) << i;
	}
	EXPECT_EQ(m.m_linearColorStops.back().m_color, QColor(Qt::red));

	// one step gives just the end stops
	m.setLinearMap(QColor("#102030"), QColor("#f0e0d0"), 1);
	EXPECT_EQ(m.m_linearColorStops, QVector<ColorMap::ColorStop>({ ColorMap::ColorStop(0, QColor("#102030")),
																	ColorMap::ColorStop(1, QColor("#f0e0d0")) }));

	// no step at all is refused and the map stays as it was
	const ColorMap before = m;
	try {
		m.setLinearMap(Qt::blue, Qt::red, 0);
		FAIL() << "0 steps accepted";
	}
	catch (ZEB::Exception & ex) {
		EXPECT_TRUE(chainHas(ex, "Invalid number of steps, must be > 1.", "[ColorMap::setLinearMap]"));
	}
	EXPECT_EQ(m, before);
}


TEST(SciColorMap, GreyEndTakesTheHueOfTheOtherEnd) {
	// grey first or last: hue of green throughout, saturation and value linear between the ends
	const QColor grey(128, 128, 128), green(0, 255, 0);
	for (bool greyFirst : { true, false }) {
		ColorMap m;
		m.setLinearMap(greyFirst ? grey : green, greyFirst ? green : grey, 4);
		ASSERT_EQ(m.m_linearColorStops.size(), 5);
		for (int i = 1; i < 4; ++i) {
			const QColor c = m.m_linearColorStops[i].m_color;
			const double t = greyFirst ? i/4.0 : 1 - i/4.0;		// share of green
			EXPECT_NEAR(c.hsvHueF()*360, 120.0, 1.0) << greyFirst << i;
			EXPECT_NEAR(c.hsvSaturationF(), t, 0.01) << greyFirst << i;
			EXPECT_NEAR(c.valueF(), 128/255.0 + t*(1 - 128/255.0), 0.01) << greyFirst << i;
		}
	}
}


TEST(SciColorMap, XmlRoundTripAndInvalidStops) {
	ColorMap a;
	a.m_type = ColorMap::AlphaMap;
	a.m_alphaColor = QColor("#336699");
	a.setLinearMap(QColor("#00ff00"), QColor("#ff00ff"), 7);
	TiXmlElement e("ColorMap");
	a.writeXML(&e);
	EXPECT_EQ(SciTest::childNames(&e), QStringList({"Type", "ColorStops", "AlphaColor"}));
	ColorMap b;
	b.readXML(&e);
	EXPECT_EQ(b, a);

	// missing attributes name the attribute; stops that do not rise from 0 to 1, bad colours and
	// unknown types are refused too; a failed read leaves the map as it was
	const char * STOP0 = "<ColorStop index='0' position='0' color='#000000'/>";
	const std::pair<std::string, const char *> cases[] = {
		{ "<ColorStop index='0' color='#000000'/>", "Expected 'position' attribute in Series." },
		{ std::string(STOP0) + "<ColorStop index='1' position='0.5' color='#ffffff'/>", nullptr },
		{ std::string(STOP0) + "<ColorStop index='1' position='NaN' color='#ffffff'/>", nullptr },
		{ std::string(STOP0) + "<ColorStop index='1' position='0.6' color='#ffffff'/>"
			"<ColorStop index='2' position='0.4' color='#ffffff'/><ColorStop index='3' position='1' color='#ffffff'/>", nullptr },
		{ std::string(STOP0) + "<ColorStop index='3' position='1' color='#ffffff'/>", nullptr },
		{ "<ColorStop index='0' position='0' color='nocolour'/><ColorStop index='1' position='1' color='#ffffff'/>", nullptr },
	};
	for (const auto & c : cases) {
		TiXmlDocument doc;
		doc.Parse(("<C><ColorStops>" + c.first + "</ColorStops></C>").c_str());
		try {
			b.readXML(doc.RootElement());
			ADD_FAILURE() << c.first;
		}
		catch (ZEB::Exception & ex) {
			if (c.second != nullptr) {
				EXPECT_TRUE(chainHas(ex, c.second, "[ColorMap::readXML]")) << ex.msgWithOrigin();
			}
			EXPECT_TRUE(chainHas(ex, "Error reading ColorMap.", "[ColorMap::readXML]")) << ex.msgWithOrigin();
		}
		EXPECT_EQ(b, a) << c.first;
	}
}


TEST(SciColorMap, ColoursReadBackIdentically) {
	using SCI::XMLValueWriter;
	using SCI::XMLValueReader;
	EXPECT_EQ(XMLValueWriter::colorText(QColor(0x12, 0x34, 0x56, 0x80)), "#80123456");
	EXPECT_EQ(XMLValueWriter::colorText(QColor::fromRgba64(0x1234, 0x5678, 0x9abc)), "#123456789abc");
	// 16-bit channels with alpha: the channels are rounded to 8 bits, the alpha is kept
	EXPECT_EQ(XMLValueWriter::colorText(QColor::fromRgba64(0x1234, 0x5678, 0x9abc, 0x8000)), "#8012569a");

	// opaque or not, 8 or 16 bits per channel, RGB or HSV: each colour reads back as the same
	// RGB colour, in the shortest form that can hold it
	std::mt19937 random(7);
	std::uniform_int_distribution<int> byte(0, 255);
	std::uniform_int_distribution<int> word(0, 65535);
	for (int i = 0; i < 4000; ++i) {
		QColor c;
		std::size_t length = 7;
		switch (i % 4) {
			case 0 : c = QColor(byte(random), byte(random), byte(random)); break;
			case 1 : c = QColor(byte(random), byte(random), byte(random), byte(random) % 255); length = 9; break;
			case 2 : c = QColor::fromRgba64(word(random), word(random), word(random)); length = 13; break;
			default : c = QColor::fromHsv(byte(random) % 360, byte(random), byte(random)); length = 13; break;
		}
		const QRgba64 rgb = c.rgba64();
		if (length == 13 && rgb.red() % 257 == 0 && rgb.green() % 257 == 0 && rgb.blue() % 257 == 0)
			length = 7;
		const std::string text = XMLValueWriter::colorText(c);
		EXPECT_EQ(text.size(), length) << text;
		EXPECT_EQ(XMLValueReader::parseColor(text, "test"), c.toRgb()) << text;
	}
}


TEST(SciColorMapFile, SaveLoadAndRefusedFiles) {
	ColorMap a;
	a.setLinearMap(QColor("#202020"), QColor("#ffcc00"), 5);
	a.m_linearColorStops[1].m_color = QColor(10, 20, 30, 40);
	a.m_linearColorStops[2].m_color = QColor::fromRgba64(1000, 2000, 3000);
	a.m_alphaColor = QColor(0xab, 0xcd, 0xef, 0x7f);
	const QString path = SciTest::scratchPath("map.o2colormap");
	SCI::ColorMapFile::save(a, path);

	TiXmlDocument doc;
	ASSERT_TRUE(doc.LoadFile(path.toStdString()));
	EXPECT_EQ(doc.RootElement()->ValueStr(), "OrvaneColorMap");
	EXPECT_EQ(SCI::ColorMapFile::load(path), a);

	const QString other = SciTest::scratchPath("other.o2colormap");
	const std::pair<const char *, const char *> refused[] = {
		{ "<OrvaneStyle><ColorMap/></OrvaneStyle>", "Expected OrvaneColorMap as root node in XML file." },
		{ "<OrvaneColorMap><Map/></OrvaneColorMap>", "Expected top-level 'ColorMap' element." }
	};
	for (const auto & r : refused) {
		SciTest::writeTextFile(other, std::string("<?xml version=\"1.0\"?>\n") + r.first + "\n");
		try {
			SCI::ColorMapFile::load(other);
			ADD_FAILURE() << r.first;
		}
		catch (ZEB::Exception & ex) {
			EXPECT_EQ(std::string(ex.what()), r.second);
		}
	}
}


namespace {

/*! Looks up colours of map over range in a colour table and checks them against the map's own:
	across the range and a quarter beyond each end, at both neighbouring numbers of every change of
	colour found in the sweep, on and next to every stop, and NaN (transparent). */
void expectTableGivesTheMapsColours(const QwtColorMap & map, double min, double max, const ColorMap & model) {
	const QwtInterval range(min, max);
	const SCI::ColorLookupTable table(map, range);
	int mismatches = 0;
	auto check = [&](double v) {
		if (table.rgb(v) != map.rgb(range, v) && ++mismatches <= 5)
			ADD_FAILURE() << std::hex << table.rgb(v) << " instead of " << map.rgb(range, v) << " at "
						  << std::setprecision(17) << v << " on " << min << ".." << max;
	};
	const double width = max - min;
	double previous = min - 0.25*width;
	for (int i = 0; i <= 100000; ++i) {
		const double v = min - 0.25*width + 1.5e-5*width*i;
		check(v);
		if (map.rgb(range, v) != map.rgb(range, previous)) {
			double a = previous, b = v;
			for (double m = a + 0.5*(b - a); m > a && m < b; m = a + 0.5*(b - a))
				(map.rgb(range, m) == map.rgb(range, b) ? b : a) = m;
			check(a);
			check(b);
		}
		previous = v;
	}
	for (const ColorMap::ColorStop & stop : model.m_linearColorStops)
		for (double v : { std::nextafter(min + stop.m_pos*width, -HUGE_VAL), min + stop.m_pos*width,
						  std::nextafter(min + stop.m_pos*width, HUGE_VAL) })
			check(v);
	EXPECT_EQ(table.rgb(std::numeric_limits<double>::quiet_NaN()), 0u);
}

} // namespace


TEST(SciColorLookupTable, GivesExactlyTheColoursOfTheMap) {
	// the default map; one with a jump (two stops at 0.5), a steep part, colours with alpha and
	// 16-bit channels; a white spike narrower than a part of the table between black; the alpha map
	ColorMap jumps;
	jumps.m_linearColorStops = { ColorMap::ColorStop(0, Qt::black), ColorMap::ColorStop(0.5, Qt::red),
								 ColorMap::ColorStop(0.5, Qt::green), ColorMap::ColorStop(0.5001, QColor(10, 20, 30, 40)),
								 ColorMap::ColorStop(0.8, QColor::fromRgba64(1000, 2000, 3000)),
								 ColorMap::ColorStop(1, Qt::white) };
	ColorMap peak;
	peak.m_linearColorStops = { ColorMap::ColorStop(0, Qt::black), ColorMap::ColorStop(0.5, Qt::black),
								ColorMap::ColorStop(0.5 + 0.5/4096, Qt::white), ColorMap::ColorStop(0.5 + 1.0/4096, Qt::black),
								ColorMap::ColorStop(1, Qt::black) };
	ColorMap alpha;
	alpha.m_type = ColorMap::AlphaMap;
	alpha.m_alphaColor = QColor(30, 160, 90);
	// ranges across zero, far from zero, tiny, and empty (left to the map)
	const std::pair<double, double> ranges[] = { {-1.3, 2.7}, {-5, 5}, {1e6, 1e6 + 1e-3}, {0, 1e-300}, {2, 2} };
	for (const ColorMap & model : { ColorMap(), jumps, peak, alpha }) {
		const std::unique_ptr<QwtColorMap> map(SCI::PlotColorMap::create(model));
		for (const auto & r : ranges)
			expectTableGivesTheMapsColours(*map, r.first, r.second, model);
	}
}
