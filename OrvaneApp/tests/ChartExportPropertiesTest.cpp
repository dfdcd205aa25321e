#include <gtest/gtest.h>

#include <climits>
#include <string>

#include <ZEB_Exception.h>

#include "ChartExportProperties.h"

namespace {

const char * const PARSE_ID = "[MainView::ChartExportProperties::parse]";

/*! The message of a failed parse, with its origin; empty when parsing succeeded. */
std::string parseError(const QString & request, std::string * origin = nullptr) {
	ChartExportProperties p;
	try {
		p.parse(request);
	}
	catch (ZEB::Exception & ex) {
		if (origin != nullptr)
			*origin = ex.messages().back().m_where;
		return ex.what();
	}
	return std::string();
}

} // namespace


TEST(ChartExportProperties, ParsesWellFormedRequests) {
	ChartExportProperties p;
	p.parse("2:800x600:diagram1.pdf");
	EXPECT_EQ(p.m_mapperIndex, 1);
	EXPECT_EQ(p.m_width, 800);
	EXPECT_EQ(p.m_height, 600);
	EXPECT_EQ(p.m_fileName, "diagram1.pdf");

	// blanks around the fields are dropped, blanks inside the file name stay
	p.parse("  1 : 1x1 :  my charts/chart one.svg ");
	EXPECT_EQ(p.m_mapperIndex, 0);
	EXPECT_EQ(p.m_width, 1);
	EXPECT_EQ(p.m_height, 1);
	EXPECT_EQ(p.m_fileName, "my charts/chart one.svg");

	p.parse("12:1920x1080:/tmp/out.png");
	EXPECT_EQ(p.m_mapperIndex, 11);
	EXPECT_EQ(p.m_width, 1920);
	EXPECT_EQ(p.m_height, 1080);
}


TEST(ChartExportProperties, RejectsMalformedRequestsWithTheMessageOfTheFirstFailingField) {
	struct Case {
		const char * request;
		const char * message;
	};
	const Case cases[] = {
		// the number of fields is checked first
		{ "1:800x600",				"Invalid argument '%1' to option --generate-chart" },
		{ "",						"Invalid argument '%1' to option --generate-chart" },
		{ "1:800x600:C:/a.png",		"Invalid argument '%1' to option --generate-chart" },
		// then the dimensions, so a bad index is not reported while the size is bad too
		{ "1:800X600:a.png",		"Invalid dimensions in argument '%1' to option --generate-chart" },
		{ "1:0x600:a.png",			"Invalid dimensions in argument '%1' to option --generate-chart" },
		{ "1:800x0:a.png",			"Invalid dimensions in argument '%1' to option --generate-chart" },
		{ "1:800x-5:a.png",			"Invalid dimensions in argument '%1' to option --generate-chart" },
		{ "1:800:a.png",			"Invalid dimensions in argument '%1' to option --generate-chart" },
		{ "1:800x600x3:a.png",		"Invalid dimensions in argument '%1' to option --generate-chart" },
		{ "1:800.5x600:a.png",		"Invalid dimensions in argument '%1' to option --generate-chart" },
		{ "1:99999999999x600:a.png","Invalid dimensions in argument '%1' to option --generate-chart" },
		{ "0:0x0:a.png",			"Invalid dimensions in argument '%1' to option --generate-chart" },
		// then the chart number
		{ "one:800x600:a.png",		"Invalid index argument '%1' to option --generate-chart" },
		{ "1.5:800x600:a.png",		"Invalid index argument '%1' to option --generate-chart" },
		{ ":800x600:a.png",			"Invalid index argument '%1' to option --generate-chart" },
		{ "0:800x600:a.png",		"Invalid mapper index (must be > 0) in argument '%1' to option --generate-chart" },
		{ "-3:800x600:a.png",		"Invalid mapper index (must be > 0) in argument '%1' to option --generate-chart" },
		{ "-2147483648:800x600:a.png", "Invalid mapper index (must be > 0) in argument '%1' to option --generate-chart" },
	};
	for (const Case & c : cases) {
		std::string expected(c.message);
		expected.replace(expected.find("%1"), 2, c.request);
		std::string origin;
		EXPECT_EQ(parseError(c.request, &origin), expected) << c.request;
		EXPECT_EQ(origin, PARSE_ID) << c.request;
	}
}


TEST(ChartExportProperties, FailedParseLeavesTheRequestUnchanged) {
	ChartExportProperties p;
	p.parse("3:640x480:first.png");
	EXPECT_THROW(p.parse("0:800x600:second.png"), ZEB::Exception);
	EXPECT_THROW(p.parse("4:800X600:third.png"), ZEB::Exception);
	EXPECT_EQ(p.m_mapperIndex, 2);
	EXPECT_EQ(p.m_width, 640);
	EXPECT_EQ(p.m_height, 480);
	EXPECT_EQ(p.m_fileName, "first.png");
}


TEST(ChartExportProperties, SpecFileLines) {
	EXPECT_EQ(ChartExportProperties::specFileLines("1:1x1:a.png\n2:2x2:b.png\n"),
			  QStringList({ "1:1x1:a.png", "2:2x2:b.png" }));
	EXPECT_EQ(ChartExportProperties::specFileLines("1:1x1:a.png\r\n  2:2x2:b.png  "),
			  QStringList({ "1:1x1:a.png", "2:2x2:b.png" }));
	// empty lines inside the file stay and fail to parse later
	EXPECT_EQ(ChartExportProperties::specFileLines("a\n\nb"), QStringList({ "a", "", "b" }));
	EXPECT_EQ(ChartExportProperties::specFileLines("a\n\n"), QStringList({ "a", "" }));
	// an empty file, or one with just a line end, is one empty line, not an empty list
	EXPECT_EQ(ChartExportProperties::specFileLines(""), QStringList({ "" }));
	EXPECT_EQ(ChartExportProperties::specFileLines("\n"), QStringList({ "" }));
}
