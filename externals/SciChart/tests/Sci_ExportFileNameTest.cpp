// File types of exports: extension rules per tab, and the entries of the dimension history.
#include <gtest/gtest.h>

#include <Sci_ExportDimensionHistory.h>
#include <Sci_ExportFileName.h>

using SCI::ExportFileName;

TEST(SciExportFileName, ExtensionsAreKeptOrReplacedPerKind) {
	const ExportFileName::Kind B = ExportFileName::Bitmap;
	const ExportFileName::Kind V = ExportFileName::Vector;

	// valid extensions stay as typed, in any case
	for (const char * name : { "a.bmp", "dir/Chart.PNG", "x.Jpg" })
		EXPECT_EQ(ExportFileName::corrected(name, B), name);
	for (const char * name : { "a.pdf", "a.svg", "C:/plots/A.EMF" })
		EXPECT_EQ(ExportFileName::corrected(name, V), name);

	// anything else, also the other kind's, is replaced by the kind's first choice
	EXPECT_EQ(ExportFileName::corrected("chart.svg", B), "chart.png");
	EXPECT_EQ(ExportFileName::corrected("chart.png", V), "chart.emf");
	EXPECT_EQ(ExportFileName::corrected("chart.jpeg", B), "chart.png");
	EXPECT_EQ(ExportFileName::corrected("archive.tar.gz", V), "archive.tar.emf");

	// no extension: a dot and the extension are added; the dot of a directory does not count
	EXPECT_EQ(ExportFileName::corrected("chart", B), "chart.png");
	EXPECT_EQ(ExportFileName::corrected("/data/run.1/chart", V), "/data/run.1/chart.emf");
	EXPECT_EQ(ExportFileName::corrected("chart.", B), "chart.png");

	EXPECT_EQ(ExportFileName::extension("a/b.c/Plot.SVG"), "svg");
}


TEST(SciExportDimensionHistory, EntriesAreWidthXHeight) {
	typedef SCI::ExportDimensionHistory H;
	EXPECT_EQ(H::entryText(QSizeF(120, 80.5)), "120x80.5");
	QSizeF size;
	for (QSizeF s : { QSizeF(1, 1), QSizeF(158.75, 105.83), QSizeF(799.9, 0.1) }) {
		ASSERT_TRUE(H::parseEntry(H::entryText(s), size));
		EXPECT_EQ(size, s);
	}
	for (const char * bad : { "", "120", "120X80", "x80", "120x", "0x5", "5x-1", "1x2x3", "axb" })
		EXPECT_FALSE(H::parseEntry(bad, size)) << bad;
}
