#include <gtest/gtest.h>

#include <tuple>

#include <ZEB_Exception.h>

#include "ChartExportProperties.h"

namespace {

std::tuple<int, int, int, QString> fields(const ChartExportProperties & p) {
	return std::make_tuple(p.m_mapperIndex, p.m_width, p.m_height, p.m_fileName);
}

} // namespace


TEST(ChartExportProperties, ParsesWellFormedRequests) {
	ChartExportProperties p;
	p.parse("12:1920x1080:/tmp/out.png");
	EXPECT_EQ(fields(p), std::make_tuple(11, 1920, 1080, QString("/tmp/out.png")));
	// blanks around the fields are dropped, blanks inside the file name stay
	p.parse("  1 : 1x1 :  my charts/chart one.svg ");
	EXPECT_EQ(fields(p), std::make_tuple(0, 1, 1, QString("my charts/chart one.svg")));
}


// Each malformed request gets the message of the first failing field (count, then dimensions,
// then chart number) and leaves the request parsed before unchanged.
TEST(ChartExportProperties, RejectsMalformedRequestsWithTheMessageOfTheFirstFailingField) {
	const char * const fieldCount = "Invalid argument '%1' to option --generate-chart";
	const char * const dimensions = "Invalid dimensions in argument '%1' to option --generate-chart";
	const char * const index = "Invalid index argument '%1' to option --generate-chart";
	const char * const notPositive = "Invalid mapper index (must be > 0) in argument '%1' to option --generate-chart";
	const std::pair<const char *, const char *> cases[] = {
		{ "1:800x600", fieldCount }, { "1:800x600:C:/a.png", fieldCount }, { "1:800X600:a.png", dimensions },
		{ "1:0x600:a.png", dimensions }, { "1:99999999999x600:a.png", dimensions }, { "0:0x0:a.png", dimensions },
		{ "1.5:800x600:a.png", index }, { "0:800x600:a.png", notPositive }, { "-2147483648:800x600:a.png", notPositive },
	};
	ChartExportProperties p;
	p.parse("3:640x480:first.png");
	for (const auto & c : cases) {
		SCOPED_TRACE(c.first);
		try {
			p.parse(c.first);
			ADD_FAILURE() << "parsed";
		}
		catch (ZEB::Exception & ex) {
			EXPECT_EQ(ex.what(), QString(c.second).arg(c.first).toStdString());
			EXPECT_EQ(ex.messages().back().m_where, "[MainView::ChartExportProperties::parse]");
		}
		EXPECT_EQ(fields(p), std::make_tuple(2, 640, 480, QString("first.png")));
	}
}


TEST(ChartExportProperties, SpecFileLines) {
	const std::pair<const char *, QStringList> cases[] = {
		{ "1:1x1:a.png\r\n  2:2x2:b.png  \n", { "1:1x1:a.png", "2:2x2:b.png" } },
		// empty lines inside the file stay and fail to parse later
		{ "a\n\nb", { "a", "", "b" } },
		// an empty file, or one with just a line end, is one empty line, not an empty list
		{ "", { "" } }, { "\n", { "" } } };
	for (const auto & c : cases)
		EXPECT_EQ(ChartExportProperties::specFileLines(c.first), c.second) << c.first;
}
