#include "Sci_ChartMimeData.h"

#include <QBuffer>
#include <QImage>
#include <QMimeData>

#include <qwt_plot.h>

#include <ZEB_Exception.h>

#include "Sci_ChartExporter.h"

namespace SCI {

namespace {

/*! The chart drawn as on screen, in its on-screen size. */
QImage screenImage(QwtPlot * plot) {
	const int dpi = ChartExporter::screenResolution();
	return ChartExporter().renderImage(plot, plot->size(), dpi, false);
}

} // namespace


QStringList ChartMimeData::emfMimeTypes() {
	return { "image/x-emf", "image/emf", "application/x-qt-windows-mime;value=\"Enhanced Metafile\"" };
}


std::unique_ptr<QMimeData> ChartMimeData::bitmap(QwtPlot * plot) {
	FUNCID(ChartMimeData::bitmap);
	if (plot == nullptr)
		throw ZEB::Exception("No chart to copy.", FUNC_ID);
	std::unique_ptr<QMimeData> data(new QMimeData);
	data->setImageData(screenImage(plot));
	return data;
}


std::unique_ptr<QMimeData> ChartMimeData::emf(QwtPlot * plot) {
	FUNCID(ChartMimeData::emf);
	if (plot == nullptr)
		throw ZEB::Exception("No chart to copy.", FUNC_ID);
	// the metafile gets the size in millimetres that the chart's pixels have on screen
	const QSizeF sizeMM = ChartExporter::screenSizeMM(plot->size());
	std::unique_ptr<QMimeData> data(new QMimeData);
	const QByteArray emf = ChartExporter().renderEmf(plot, sizeMM);
	for (const QString & type : emfMimeTypes())
		data->setData(type, emf);

	QByteArray png;
	QBuffer buffer(&png);
	buffer.open(QIODevice::WriteOnly);
	if (!screenImage(plot).save(&buffer, "PNG"))
		throw ZEB::Exception("Cannot encode the chart as PNG.", FUNC_ID);
	data->setData("image/png", png);
	return data;
}

} // namespace SCI
