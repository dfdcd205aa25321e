#include "Sci_ChartExporter.h"

#include <cmath>
#include <limits>

#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QScreen>
#include <QSvgGenerator>

#include <qwt_plot.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include <EMF_PaintDevice.h>

#include "Sci_AbstractCartesianChartModel.h"
#include "Sci_Chart.h"
#include "Sci_ExportFileName.h"
#include "Sci_LineSeries.h"

namespace SCI {

const double ChartExporter::MAX_VECTOR_SIZE_MM = 800;
const double ChartExporter::INCH_PER_MM = 0.03937007874015748;

namespace {

/*! The message of every failed write of an export file (the missing closing quote belongs to it). */
ZEB::MessageFormat writeError(const QString & fileName) {
	return ZEB::MessageFormat("Error writing file '%1.").arg(fileName.toStdString());
}

/*! Dots per metre of a resolution in dots per inch. */
int dotsPerMeter(int dpi) {
	return static_cast<int>(std::lround(dpi / 0.0254));
}

/*! Switches the data reduction of the line series of a chart for its lifetime and then back to
	the chart model's setting, which is what the chart shows on screen.
*/
class DataReductionOverride {
public:
	DataReductionOverride(QwtPlot * plot, std::optional<bool> dataReduction) {
		Chart * chart = dynamic_cast<Chart *>(plot);
		if (!dataReduction || chart == nullptr || chart->model() == nullptr)
			return;
		m_chart = chart;
		setLineSeriesDataReduction(*dataReduction);
	}
	~DataReductionOverride() {
		if (m_chart != nullptr && m_chart->model() != nullptr)
			setLineSeriesDataReduction(m_chart->model()->chartData(AbstractChartModel::DataReduction).toBool());
	}
	DataReductionOverride(const DataReductionOverride &) = delete;
	DataReductionOverride & operator=(const DataReductionOverride &) = delete;

private:
	void setLineSeriesDataReduction(bool enabled) {
		for (int i = 0; i < m_chart->seriesCount(); ++i) {
			LineSeries * line = dynamic_cast<LineSeries *>(m_chart->series(i));
			if (line != nullptr)
				line->setDataReduction(enabled);
		}
	}

	Chart * m_chart = nullptr;
};

} // namespace


QwtPlotRenderer::DiscardFlags ExportComponents::discardFlags() const {
	QwtPlotRenderer::DiscardFlags flags = QwtPlotRenderer::DiscardNone;
	if (!m_title)
		flags |= QwtPlotRenderer::DiscardTitle;
	if (!m_legend)
		flags |= QwtPlotRenderer::DiscardLegend;
	if (!m_canvasFrame)
		flags |= QwtPlotRenderer::DiscardCanvasFrame;
	if (!m_background)
		flags |= QwtPlotRenderer::DiscardBackground;
	if (!m_canvasBackground)
		flags |= QwtPlotRenderer::DiscardCanvasBackground;
	return flags;
}


void ChartExporter::render(QwtPlot * plot, QPainter * painter, const QRectF & rect) const {
	FUNCID(ChartExporter::render);
	if (plot == nullptr)
		throw ZEB::Exception("No chart to export.", FUNC_ID);
	if (m_paintBackground)
		painter->fillRect(rect, Qt::white);
	QwtPlotRenderer renderer;
	renderer.setDiscardFlags(m_components.discardFlags());
	const DataReductionOverride dataReduction(plot, m_dataReduction);
	// proportional axes are fitted to the picture's size, not to the chart's size on screen
	Chart * chart = dynamic_cast<Chart *>(plot);
	// the picture has room of its own for the axis titles elided on screen
	if (chart != nullptr)
		chart->setAxisTitlesElided(false);
	const QSize screenSize = chart != nullptr ? chart->layoutForSize(rect.size().toSize()) : QSize();
	renderer.render(plot, painter, rect);
	if (chart != nullptr) {
		chart->layoutForSize(screenSize);
		chart->setAxisTitlesElided(true);
	}
}


QImage ChartExporter::renderImage(QwtPlot * plot, const QSize & sizePx, int dpi, bool scaleWithResolution) const {
	FUNCID(ChartExporter::renderImage);
	if (plot == nullptr)
		throw ZEB::Exception("No chart to export.", FUNC_ID);
	if (sizePx.width() < 1 || sizePx.height() < 1)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid bitmap size %1 x %2 pixels.")
							 .arg(sizePx.width()).arg(sizePx.height()), FUNC_ID);
	if (dpi < 1)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid resolution %1 dpi.").arg(dpi), FUNC_ID);

	// 4 bytes a pixel; beyond 2 GiB the allocation is refused here instead of being left to the
	// allocator, which may hand out terabytes of address space and fail only when they are touched
	const double bytes = 4.0 * sizePx.width() * sizePx.height();
	QImage image;
	if (bytes <= std::numeric_limits<int>::max())
		image = QImage(sizePx, QImage::Format_ARGB32_Premultiplied);
	if (image.isNull())
		throw ZEB::Exception(ZEB::MessageFormat("Cannot create a bitmap of %1 x %2 pixels.")
							 .arg(sizePx.width()).arg(sizePx.height()), FUNC_ID);
	image.fill(Qt::white);

	// The plot renderer scales the chart by the ratio of the image's resolution to the plot
	// widget's: painting at the widget's resolution keeps the on-screen proportions.
	const int paintDpi = scaleWithResolution ? dpi : plot->logicalDpiX();
	image.setDotsPerMeterX(dotsPerMeter(paintDpi));
	image.setDotsPerMeterY(dotsPerMeter(scaleWithResolution ? dpi : plot->logicalDpiY()));
	{
		QPainter painter(&image);
		render(plot, &painter, QRectF(QPointF(0, 0), QSizeF(sizePx)));
	}
	image.setDotsPerMeterX(dotsPerMeter(dpi));
	image.setDotsPerMeterY(dotsPerMeter(dpi));
	return image;
}


void ChartExporter::saveImage(const QImage & image, const QString & fileName) {
	FUNCID(ChartExporter::saveImage);
	const QByteArray format = ExportFileName::extension(fileName).toUpper().toLatin1();
	if (image.isNull() || !image.save(fileName, format.isEmpty() ? nullptr : format.constData()))
		throw ZEB::Exception(writeError(fileName), FUNC_ID);
}


void ChartExporter::exportVector(QwtPlot * plot, const QString & fileName, const QSizeF & sizeMM) const {
	FUNCID(ChartExporter::exportVector);
	if (plot == nullptr)
		throw ZEB::Exception("No chart to export.", FUNC_ID);
	switch (checkVectorSize(sizeMM)) {
		case SizeTooLarge :
			throw ZEB::Exception("Dimensions too large!", FUNC_ID);
		case SizeInvalid :
			throw ZEB::Exception("Invalid graphics dimensions", FUNC_ID);
		case SizeValid :
			break;
	}
	const QString ext = ExportFileName::extension(fileName);
	if (!ExportFileName::isVectorExtension(ext))
		throw ZEB::Exception(ZEB::MessageFormat("Unknown vector graphics file type '%1'.")
							 .arg(ext.toStdString()), FUNC_ID);
	const int dpi = screenResolution();
	try {
		if (ext == "pdf")
			exportPdf(plot, fileName, sizeMM, dpi);
		else if (ext == "svg")
			exportSvg(plot, fileName, sizeMM, dpi);
		else
			exportEmf(plot, fileName, sizeMM, dpi);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, writeError(fileName), FUNC_ID);
	}
	// the Qt paint devices do not report failed writes after the file was opened
	if (QFileInfo(fileName).size() <= 0)
		throw ZEB::Exception(writeError(fileName), FUNC_ID);
}


QByteArray ChartExporter::renderSvg(QwtPlot * plot, const QSizeF & sizeMM) const {
	FUNCID(ChartExporter::renderSvg);
	if (plot == nullptr)
		throw ZEB::Exception("No chart to export.", FUNC_ID);
	if (checkVectorSize(sizeMM) != SizeValid)
		throw ZEB::Exception("Invalid graphics dimensions", FUNC_ID);
	const int dpi = screenResolution();
	const QSize sizePx = vectorPixelSize(sizeMM, dpi);
	QBuffer buffer;
	QSvgGenerator generator;
	generator.setOutputDevice(&buffer);
	generator.setSize(sizePx);
	generator.setViewBox(QRect(QPoint(0, 0), sizePx));
	generator.setResolution(dpi);
	generator.setTitle(plot->title().text());
	paintVector(plot, generator, sizePx, "clipboard");
	return buffer.data();
}


QByteArray ChartExporter::renderEmf(QwtPlot * plot, const QSizeF & sizeMM) const {
	FUNCID(ChartExporter::renderEmf);
	if (plot == nullptr)
		throw ZEB::Exception("No chart to export.", FUNC_ID);
	// a chart larger than the file export allows is still copied as it is on screen
	if (checkVectorSize(sizeMM) == SizeInvalid)
		throw ZEB::Exception("Invalid graphics dimensions", FUNC_ID);
	const int dpi = screenResolution();
	EMF::PaintDevice device(vectorPixelSize(sizeMM, dpi), dpi);
	paintEmf(plot, device, "metafile");
	return device.data();
}


void ChartExporter::exportFile(QwtPlot * plot, const QString & fileName, const QSize & sizePx, int dpi) const {
	FUNCID(ChartExporter::exportFile);
	const QString ext = ExportFileName::extension(fileName);
	if (ExportFileName::isBitmapExtension(ext)) {
		saveImage(renderImage(plot, sizePx, dpi, false), fileName);
	}
	else if (ExportFileName::isVectorExtension(ext)) {
		if (sizePx.width() < 1 || sizePx.height() < 1)
			throw ZEB::Exception("Invalid graphics dimensions", FUNC_ID);
		exportVector(plot, fileName, screenSizeMM(sizePx));
	}
	else {
		throw ZEB::Exception(ZEB::MessageFormat("Unknown export file type '%1', expected one of png, bmp, jpg, "
												"pdf, svg and emf.").arg(ext.toStdString()), FUNC_ID);
	}
}


ChartExporter::VectorSizeCheck ChartExporter::checkVectorSize(const QSizeF & sizeMM) {
	// written so that NaN fails the check
	if (!(sizeMM.width() > 0 && sizeMM.height() > 0))
		return SizeInvalid;
	if (sizeMM.width() > MAX_VECTOR_SIZE_MM || sizeMM.height() > MAX_VECTOR_SIZE_MM)
		return SizeTooLarge;
	return SizeValid;
}


int ChartExporter::screenResolution() {
	const QScreen * screen = QGuiApplication::primaryScreen();
	if (screen == nullptr)
		return 96;
	return qRound(screen->logicalDotsPerInch());
}


QSize ChartExporter::vectorPixelSize(const QSizeF & sizeMM, int dpi) {
	return QSize(std::max(1, qRound(sizeMM.width()*INCH_PER_MM*dpi)),
				 std::max(1, qRound(sizeMM.height()*INCH_PER_MM*dpi)));
}


QSizeF ChartExporter::screenSizeMM(const QSize & sizePx) {
	const double mmPerPixel = 1.0/(INCH_PER_MM*screenResolution());
	return QSizeF(sizePx.width()*mmPerPixel, sizePx.height()*mmPerPixel);
}


void ChartExporter::paintVector(QwtPlot * plot, QPaintDevice & device, const QSize & sizePx,
								const QString & fileName) const
{
	FUNCID(ChartExporter::paintVector);
	QPainter painter;
	if (!painter.begin(&device))
		throw ZEB::Exception(ZEB::MessageFormat("Cannot open '%1' for painting.").arg(fileName.toStdString()), FUNC_ID);
	render(plot, &painter, QRectF(QPointF(0, 0), QSizeF(sizePx)));
	if (!painter.end())
		throw ZEB::Exception(ZEB::MessageFormat("Cannot finish painting into '%1'.").arg(fileName.toStdString()), FUNC_ID);
}


void ChartExporter::exportPdf(QwtPlot * plot, const QString & fileName, const QSizeF & sizeMM, int dpi) const {
	QPdfWriter writer(fileName);
	writer.setTitle(plot->title().text());
	writer.setCreator("Orvane");
	writer.setResolution(dpi);
	writer.setPageLayout(QPageLayout(QPageSize(sizeMM, QPageSize::Millimeter, QString(), QPageSize::ExactMatch),
									 QPageLayout::Portrait, QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter));
	paintVector(plot, writer, vectorPixelSize(sizeMM, dpi), fileName);
}


void ChartExporter::exportSvg(QwtPlot * plot, const QString & fileName, const QSizeF & sizeMM, int dpi) const {
	const QSize sizePx = vectorPixelSize(sizeMM, dpi);
	QSvgGenerator generator;
	generator.setFileName(fileName);
	generator.setSize(sizePx);
	generator.setViewBox(QRect(QPoint(0, 0), sizePx));
	generator.setResolution(dpi);
	generator.setTitle(plot->title().text());
	paintVector(plot, generator, sizePx, fileName);
}


void ChartExporter::exportEmf(QwtPlot * plot, const QString & fileName, const QSizeF & sizeMM, int dpi) const {
	EMF::PaintDevice device(fileName, vectorPixelSize(sizeMM, dpi), dpi);
	paintEmf(plot, device, fileName);
}


void ChartExporter::paintEmf(QwtPlot * plot, EMF::PaintDevice & device, const QString & target) const {
	device.setTitle(plot->title().text());
	try {
		paintVector(plot, device, device.size(), target);
	}
	catch (ZEB::Exception &) {
		// the device knows why opening or writing failed
		device.throwIfError();
		throw;
	}
	device.throwIfError();
}

} // namespace SCI
