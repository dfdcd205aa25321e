// Chart export without dialog: every file format is written, opened by an independent tool,
// rendered back and compared with the chart drawn straight into an image; sizes, resolutions,
// components, write errors and the command-line rules.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMimeData>
#include <QRegularExpression>

#include <qwt_plot.h>

#include <ZEB_Exception.h>

#include <Sci_Chart.h>
#include <Sci_ChartExporter.h>
#include <Sci_ChartMimeData.h>
#include <Sci_ExportDialog.h>

#include "Sci_ChartTestModels.h"
#include "Sci_ExportTestSupport.h"
#include "Sci_TestSupport.h"

using namespace SciTest;
using SCI::ChartExporter;

namespace {

/*! Gives each test a fresh test plot. */
class SciChartExporter : public ::testing::Test {
protected:
	std::unique_ptr<QwtPlot> m_plot = createTestPlot();
};


/*! The tool that reads files of that extension. */
QString toolFor(const QString & ext) {
	if (ext == "svg")
		return "rsvg-convert";
	if (ext == "pdf")
		return "pdftoppm";
	if (ext == "emf")
		return "emf2svg-conv";
	return "identify";
}


/*! Renders an exported file back into an image of the given size with independent tools; a
	null image when a tool fails.
*/
QImage renderBack(const QString & file, const QSize & size) {
	const QString ext = QFileInfo(file).suffix();
	const QString png = file + ".back.png";
	QFile::remove(png);
	const QString w = QString::number(size.width());
	const QString h = QString::number(size.height());
	bool ok = false;
	if (ext == "png" || ext == "bmp" || ext == "jpg") {
		ok = runTool("convert", QStringList() << file << "png:" + png);
	}
	else if (ext == "svg") {
		ok = runTool("rsvg-convert", QStringList() << "-w" << w << "-h" << h << "-o" << png << file);
	}
	else if (ext == "pdf") {
		// pdftoppm appends ".png" to the output prefix
		ok = runTool("pdftoppm", QStringList() << "-png" << "-singlefile" << "-scale-to-x" << w
					 << "-scale-to-y" << h << file << file + ".back");
	}
	else if (ext == "emf") {
		const QString svg = file + ".svg";
		ok = runTool("emf2svg-conv", QStringList() << "-i" << file << "-o" << svg)
			 && runTool("rsvg-convert", QStringList() << "-w" << w << "-h" << h << "-b" << "white" << "-o" << png << svg);
	}
	return ok ? QImage(png) : QImage();
}


/*! Number from the first match of pattern's first capture in text, NaN without match. */
double capturedNumber(const QString & text, const QString & pattern) {
	const QRegularExpressionMatch m = QRegularExpression(pattern).match(text);
	return m.hasMatch() ? m.captured(1).toDouble() : std::numeric_limits<double>::quiet_NaN();
}


/*! A little-endian 32-bit integer of a byte array. */
std::int32_t int32At(const QByteArray & data, int offset) {
	std::uint32_t v = 0;
	for (int i = 3; i >= 0; --i)
		v = (v << 8) | static_cast<unsigned char>(data[offset + i]);
	return static_cast<std::int32_t>(v);
}


class SciChartExportFormat : public SciChartExporter, public ::testing::WithParamInterface<const char *> {};

} // namespace


TEST_P(SciChartExportFormat, FileOpensInIndependentToolAndShowsTheChart) {
	const QString ext = GetParam();
	if (!toolAvailable(toolFor(ext)) || !toolAvailable(ext == "emf" ? "rsvg-convert" : toolFor(ext)))
		GTEST_SKIP() << "tool missing: " << toolFor(ext).toStdString();
	if ((ext == "png" || ext == "bmp" || ext == "jpg") && !toolAvailable("convert"))
		GTEST_SKIP() << "tool missing: convert";

	const QSize size(600, 400);
	const QImage reference = directRender(m_plot.get(), size);
	// the reference itself must show what the checks look for
	ASSERT_GT(countPixels(reference, titleRegion(reference), isDark), 50);
	ASSERT_GT(countPixels(reference, QRect(), isCurveColor), 500);

	const QString file = scratchPath("chart_format." + ext);
	QFile::remove(file);
	ChartExporter().exportFile(m_plot.get(), file, size, 96);
	ASSERT_GT(QFileInfo(file).size(), 0);

	if (ext == "png" || ext == "bmp" || ext == "jpg") {
		QString info;
		ASSERT_TRUE(runTool("identify", QStringList() << "-format" << "%m %w %h" << file, &info));
		const QString expectedFormat = ext == "jpg" ? "JPEG" : ext == "bmp" ? "BMP" : "PNG";
		EXPECT_TRUE(info.startsWith(expectedFormat)) << info.toStdString();
		EXPECT_TRUE(info.endsWith(" 600 400")) << info.toStdString();
	}

	const QImage back = renderBack(file, size);
	ASSERT_FALSE(back.isNull()) << "the independent tool could not read the file";
	EXPECT_EQ(back.size(), size);
	EXPECT_GT(countPixels(back, titleRegion(back), isDark), 50) << "title missing";
	EXPECT_GT(countPixels(back, QRect(), isCurveColor), 300) << "curve missing";
	EXPECT_GT(countPixels(back, QRect(), [](const QColor & c) { return isNear(c, CANVAS_BACKGROUND); }), 100000)
			<< "canvas missing";
	EXPECT_GT(countPixels(back, QRect(), [](const QColor & c) { return isNear(c, PLOT_BACKGROUND); }), 20000)
			<< "background missing";
	EXPECT_LT(blockDifference(back, reference), 0.03) << "layout differs from the chart";
}

INSTANTIATE_TEST_SUITE_P(AllFormats, SciChartExportFormat,
						 ::testing::Values("png", "bmp", "jpg", "svg", "pdf", "emf"));


TEST_F(SciChartExporter, VectorFilesHaveTheRequestedSizeAndTitle) {
	const QSizeF sizeMM(100, 50);
	ChartExporter exporter;

	const QString pdf = scratchPath("size.pdf");
	exporter.exportVector(m_plot.get(), pdf, sizeMM);
	if (toolAvailable("pdfinfo")) {
		QString info;
		ASSERT_TRUE(runTool("pdfinfo", QStringList() << pdf, &info));
		// 100 mm = 283.46 pt, 50 mm = 141.73 pt; the page is exactly the requested size
		// (the PDF writer rounds page sizes to whole points)
		EXPECT_NEAR(capturedNumber(info, "Page size:\\s+([0-9.]+) x"), 283.46, 0.5);
		EXPECT_NEAR(capturedNumber(info, "Page size:\\s+[0-9.]+ x ([0-9.]+)"), 141.73, 0.5);
		EXPECT_TRUE(info.contains(QRegularExpression("Title:\\s+Export Test"))) << info.toStdString();
	}

	// the EMF header's frame is the picture size in 0.01 mm, inclusive; the vector files are whole
	// pixels at screen resolution, so within one pixel of the size
	const double pixelMM = 25.4/ChartExporter::screenResolution();
	const QString emf = scratchPath("size.emf");
	exporter.exportVector(m_plot.get(), emf, sizeMM);
	QFile emfFile(emf);
	ASSERT_TRUE(emfFile.open(QIODevice::ReadOnly));
	const QByteArray header = emfFile.read(88);
	ASSERT_EQ(header.size(), 88);
	EXPECT_EQ(header.mid(40, 4), QByteArray(" EMF"));
	EXPECT_NEAR(int32At(header, 32) + 1, 10000, pixelMM*100);
	EXPECT_NEAR(int32At(header, 36) + 1, 5000, pixelMM*100);
}


TEST_F(SciChartExporter, ClipboardContentIsTheChartInItsScreenSize) {
	m_plot->resize(500, 300);
	const std::unique_ptr<QMimeData> bitmap = SCI::ChartMimeData::bitmap(m_plot.get());
	const QImage image = qvariant_cast<QImage>(bitmap->imageData());
	ASSERT_EQ(image.size(), QSize(500, 300));
	EXPECT_LT(blockDifference(image, directRender(m_plot.get(), QSize(500, 300))), 0.01);

	// the metafile under the names office programs take it by, and a PNG for the others
	const std::unique_ptr<QMimeData> emf = SCI::ChartMimeData::emf(m_plot.get());
	const QByteArray bytes = emf->data("image/x-emf");
	ASSERT_GE(bytes.size(), 88);
	EXPECT_EQ(int32At(bytes, 0), 1) << "EMR_HEADER";
	EXPECT_EQ(bytes.mid(40, 4), QByteArray(" EMF"));
	const double pixelMM = 25.4/ChartExporter::screenResolution();
	EXPECT_NEAR(int32At(bytes, 32) + 1, 500*pixelMM*100, pixelMM*100);
	EXPECT_NEAR(int32At(bytes, 36) + 1, 300*pixelMM*100, pixelMM*100);
	EXPECT_EQ(emf->data("application/x-qt-windows-mime;value=\"Enhanced Metafile\""), bytes);
	EXPECT_EQ(QImage::fromData(emf->data("image/png"), "PNG").size(), QSize(500, 300));

	EXPECT_THROW(SCI::ChartMimeData::emf(nullptr), ZEB::Exception);
}


TEST_F(SciChartExporter, UncheckedComponentsAreLeftOut) {
	const QSize size(600, 400);
	auto render = [&](void (*switchOff)(SCI::ExportComponents &)) {
		SCI::ExportComponents components;
		if (switchOff != nullptr)
			switchOff(components);
		ChartExporter exporter;
		exporter.setComponents(components);
		return exporter.renderImage(m_plot.get(), size, 96, false);
	};
	auto near = [](const QColor & ref) { return [ref](const QColor & c) { return isNear(c, ref, 3); }; };
	// below the x axis only the legend has the curve's colour (its icon)
	const QRect legendRegion(0, size.height()*9/10, size.width(), size.height()/10);

	const QImage all = render(nullptr);
	EXPECT_LT(blockDifference(all, directRender(m_plot.get(), size)), 0.01);
	EXPECT_GT(countPixels(all, QRect(), isTitleColor), 50);
	EXPECT_GT(countPixels(all, legendRegion, isCurveColor), 10);
	EXPECT_GT(countPixels(all, QRect(), near(PLOT_BACKGROUND)), 20000);
	EXPECT_GT(countPixels(all, QRect(), near(CANVAS_BACKGROUND)), 100000);

	// each switch takes its own part away (the others stay, see the whole picture above)
	EXPECT_EQ(countPixels(render([](SCI::ExportComponents & c) { c.m_title = false; }), QRect(), isTitleColor), 0);
	EXPECT_EQ(countPixels(render([](SCI::ExportComponents & c) { c.m_legend = false; }), legendRegion, isCurveColor), 0);
	const QImage noBackground = render([](SCI::ExportComponents & c) { c.m_background = false; });
	EXPECT_EQ(countPixels(noBackground, QRect(), near(PLOT_BACKGROUND)), 0);
	EXPECT_GT(countPixels(noBackground, QRect(), near(CANVAS_BACKGROUND)), 100000);
	EXPECT_EQ(countPixels(render([](SCI::ExportComponents & c) { c.m_canvasBackground = false; }), QRect(), near(CANVAS_BACKGROUND)), 0);

	// without its frame the canvas takes the frame's place: more canvas, same chart
	const QImage noFrame = render([](SCI::ExportComponents & c) { c.m_canvasFrame = false; });
	EXPECT_GT(countPixels(noFrame, QRect(), near(CANVAS_BACKGROUND)),
			  countPixels(all, QRect(), near(CANVAS_BACKGROUND)) + 500);
	EXPECT_LT(blockDifference(noFrame, all), 0.01);
}


TEST_F(SciChartExporter, PaintedBackgroundLeavesNoTransparency) {
	if (!toolAvailable("rsvg-convert"))
		GTEST_SKIP() << "tool missing: rsvg-convert";
	SCI::ExportComponents components;
	components.m_background = false;
	for (bool paintBackground : { false, true }) {
		SCOPED_TRACE(paintBackground ? "painted" : "transparent");
		ChartExporter exporter;
		exporter.setComponents(components);
		exporter.setPaintBackground(paintBackground);
		const QString svg = scratchPath(paintBackground ? "opaque.svg" : "transparent.svg");
		exporter.exportVector(m_plot.get(), svg, QSizeF(150, 100));
		ASSERT_TRUE(runTool("rsvg-convert", QStringList() << "-o" << svg + ".png" << svg));
		const QImage back = QImage(svg + ".png").convertToFormat(QImage::Format_ARGB32);
		ASSERT_FALSE(back.isNull());
		// the corners lie outside title, axes and canvas
		for (const QPoint & p : { QPoint(1, 1), QPoint(back.width() - 2, back.height() - 2) }) {
			const QColor c = back.pixelColor(p);
			if (paintBackground)
				EXPECT_EQ(c, QColor(Qt::white));
			else
				EXPECT_EQ(c.alpha(), 0);
		}
		EXPECT_GT(countPixels(back, QRect(), isCurveColor), 300);
	}
}


TEST_F(SciChartExporter, BitmapResolutionScalesFontsOnlyWhenAsked) {
	ChartExporter exporter;
	const QImage screen = exporter.renderImage(m_plot.get(), QSize(600, 400), 96, true);
	const QImage scaled = exporter.renderImage(m_plot.get(), QSize(1200, 800), 192, true);
	const QImage unscaled = exporter.renderImage(m_plot.get(), QSize(1200, 800), 192, false);
	const int h96 = titleTextHeight(screen);
	ASSERT_GT(h96, 5);
	// twice the resolution in twice the pixels: the same chart, twice as large
	EXPECT_NEAR(titleTextHeight(scaled), 2*h96, 3);
	EXPECT_LT(blockDifference(scaled, screen), 0.02);
	// without scaling the title keeps its screen size in the larger image
	EXPECT_NEAR(titleTextHeight(unscaled), h96, 1);
	// 192 dpi = 7559 dots per metre, stored in both
	EXPECT_EQ(scaled.dotsPerMeterX(), 7559);
	EXPECT_EQ(unscaled.dotsPerMeterY(), 7559);
}


TEST_F(SciChartExporter, FailuresAreReportedWithTheirMessages) {
	ChartExporter exporter;
	const QString missingDir = scratchPath("no_such_dir/");
	for (const char * ext : { "png", "svg", "pdf", "emf" }) {
		SCOPED_TRACE(ext);
		const QString file = missingDir + "chart." + ext;
		try {
			exporter.exportFile(m_plot.get(), file, QSize(300, 200), 96);
			ADD_FAILURE() << "no exception";
		}
		catch (ZEB::Exception & ex) {
			EXPECT_EQ(std::string(ex.what()), "Error writing file '" + file.toStdString() + ".");
		}
		EXPECT_FALSE(QFileInfo::exists(file));
	}

	// vector sizes: at most 800 mm, positive and finite; a side both invalid and too large is invalid
	typedef ChartExporter E;
	const double nan = std::numeric_limits<double>::quiet_NaN();
	const std::vector<std::pair<QSizeF, E::VectorSizeCheck> > sizes = {
		{ QSizeF(800, 800), E::SizeValid }, { QSizeF(100, 800.001), E::SizeTooLarge }, { QSizeF(0, 100), E::SizeInvalid },
		{ QSizeF(nan, 100), E::SizeInvalid }, { QSizeF(-5, 900), E::SizeInvalid }
	};
	for (const auto & c : sizes)
		EXPECT_EQ(E::checkVectorSize(c.first), c.second) << c.first.width() << " x " << c.first.height();
	const QString svg = scratchPath("refused.svg");
	for (const auto & c : std::vector<std::pair<QSizeF, std::string>>{ { QSizeF(100, 801), "Dimensions too large!" },
																		{ QSizeF(0, 100), "Invalid graphics dimensions" } }) {
		try {
			exporter.exportVector(m_plot.get(), svg, c.first);
			ADD_FAILURE() << "no exception";
		}
		catch (ZEB::Exception & ex) {
			EXPECT_EQ(std::string(ex.what()), c.second);
		}
		EXPECT_FALSE(QFileInfo::exists(svg));
	}

	EXPECT_THROW(exporter.exportVector(m_plot.get(), scratchPath("chart.txt"), QSizeF(100, 50)), ZEB::Exception);
	EXPECT_THROW(exporter.renderImage(m_plot.get(), QSize(0, 50), 96, false), ZEB::Exception);
}


TEST(SciChartExporterSizes, VectorPixelRounding) {
	// 100 mm = 3.937 in = 377.95 px at 96 dpi; 50 mm = 188.98 px; one inch at 300 dpi = 300 px
	EXPECT_EQ(ChartExporter::vectorPixelSize(QSizeF(100, 50), 96), QSize(378, 189));
	EXPECT_EQ(ChartExporter::vectorPixelSize(QSizeF(25.4, 50.8), 300), QSize(300, 600));
	EXPECT_EQ(ChartExporter::vectorPixelSize(QSizeF(0.001, 800), 96), QSize(1, 3024));
}


TEST_F(SciChartExporter, CommandLineExportRules) {
	typedef SCI::ExportDialog D;
	const std::string funcId = "[ExportDialog::exportChart]";
	MessageCapture capture;

	// a resolution is only for bitmaps and must be positive; nothing is written then
	const QString svg = scratchPath("cmd.svg");
	QFile::remove(svg);
	EXPECT_FALSE(D::exportChart(m_plot.get(), svg, QSize(800, 600), 300));
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Resolution can be only set to Bitmap graphics '" + svg.toStdString()
							+ "' --generate-chart", funcId));
	EXPECT_FALSE(QFileInfo::exists(svg));

	const QString png = scratchPath("cmd.png");
	QFile::remove(png);
	EXPECT_FALSE(D::exportChart(m_plot.get(), png, QSize(800, 600), 0));
	EXPECT_TRUE(capture.has(ZEB::MSG_ERROR, "Resolution with value '0' needs to be greater then 0 --generate-chart", funcId));
	EXPECT_FALSE(QFileInfo::exists(png));

	// bitmaps: exactly the pixel size, 300 dpi unless another resolution is given
	ASSERT_TRUE(D::exportChart(m_plot.get(), png, QSize(800, 600)));
	EXPECT_NEAR(QImage(png).dotsPerMeterX()*0.0254, 300, 0.05);
	ASSERT_TRUE(D::exportChart(m_plot.get(), png, QSize(640, 480), 150));
	if (toolAvailable("identify")) {
		QString info;
		ASSERT_TRUE(runTool("identify", QStringList() << "-units" << "PixelsPerInch" << "-format" << "%w %h %x" << png, &info));
		EXPECT_EQ(info.section(' ', 0, 1), "640 480");
		EXPECT_NEAR(info.section(' ', 2).toDouble(), 150, 0.1);
	}

	// vector graphics get the size the pixels have on screen
	ASSERT_TRUE(D::exportChart(m_plot.get(), svg, QSize(800, 600)));
	QFile svgFile(svg);
	ASSERT_TRUE(svgFile.open(QIODevice::ReadOnly));
	const QString svgText = QString::fromUtf8(svgFile.readAll());
	const double screenDpi = ChartExporter::screenResolution();
	EXPECT_NEAR(capturedNumber(svgText, "<svg width=\"([0-9.]+)mm\""), 800*25.4/screenDpi, 0.01);
	EXPECT_NEAR(capturedNumber(svgText, "height=\"([0-9.]+)mm\""), 600*25.4/screenDpi, 0.01);

	// unknown types and failed writes are logged and refused
	capture.m_records.clear();
	EXPECT_FALSE(D::exportChart(m_plot.get(), scratchPath("cmd.tif"), QSize(800, 600)));
	EXPECT_FALSE(D::exportChart(m_plot.get(), scratchPath("no_such_dir/cmd.pdf"), QSize(800, 600)));
	EXPECT_FALSE(QFileInfo::exists(scratchPath("cmd.tif")));
	EXPECT_EQ(capture.m_records.back().m_functionId, funcId);
}


namespace {

/*! Number of data reduction reports in the capture. */
int reductionReports(const MessageCapture & capture) {
	int n = 0;
	for (const MessageCapture::Record & r : capture.m_records)
		if (r.m_functionId == "[DataReductionCurveFitter::fitCurve]")
			++n;
	return n;
}

} // namespace


TEST_F(SciChartExporter, DataReductionSwitchThinsLineSeriesDuringExportOnly) {
	// one long smooth series, long enough for the data reduction
	VectorLineModel model;
	VectorLineModel::Series s;
	for (int i = 0; i < 20000; ++i) {
		s.m_x.push_back(i);
		s.m_y.push_back(20 + 5*std::sin(i*0.001));
	}
	model.addSeries(s);
	SCI::Chart chart;
	chart.setModel(&model);
	chart.resize(600, 400);
	ASSERT_EQ(chart.seriesCount(), 1);
	const QSizeF sizeMM(150, 100);

	for (bool modelSetting : { true, false }) {
		SCOPED_TRACE(modelSetting ? "model: data reduction on" : "model: data reduction off");
		ASSERT_TRUE(model.setChartData(modelSetting, SCI::AbstractChartModel::DataReduction));

		MessageCapture capture;
		auto exportedSize = [&chart, &sizeMM](bool reduce, const QString & file) {
			ChartExporter exporter;
			exporter.setDataReduction(reduce);
			exporter.exportVector(&chart, scratchPath(file), sizeMM);
			return QFileInfo(scratchPath(file)).size();
		};
		const qint64 reduced = exportedSize(true, "reduced.svg");
		EXPECT_EQ(reductionReports(capture), 1);
		// every one of the 20000 points is written: far larger than the thinned curve
		EXPECT_GT(exportedSize(false, "full.svg"), 5*reduced);
		EXPECT_EQ(reductionReports(capture), 1);

		// afterwards the chart draws as its model says again
		ChartExporter asOnScreen;
		asOnScreen.exportVector(&chart, scratchPath("screen.svg"), sizeMM);
		EXPECT_EQ(reductionReports(capture), modelSetting ? 2 : 1);
	}
}
