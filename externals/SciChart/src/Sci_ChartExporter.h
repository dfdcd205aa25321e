#ifndef Sci_ChartExporterH
#define Sci_ChartExporterH

#include <optional>

#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <QString>

#include <qwt_plot_renderer.h>

class QPainter;
class QPaintDevice;
class QwtPlot;

namespace EMF {
class PaintDevice;
}

namespace SCI {

/*! The parts of a chart that an export draws; a part switched off is left out. */
struct ExportComponents {
	/*! The plot renderer's discard flags for the parts switched off. */
	QwtPlotRenderer::DiscardFlags discardFlags() const;

	bool	m_title = true;
	bool	m_legend = true;
	bool	m_canvasFrame = true;
	bool	m_background = true;
	bool	m_canvasBackground = true;
};


/*! Renders a chart (any QwtPlot, SCI::Chart included) into bitmaps and vector graphics files
	without any user interaction. Used by the export dialog, its previews and the command-line
	export.

	Bitmaps (png, bmp, jpg) are rendered into a QImage of a given pixel size and resolution.
	Vector graphics (pdf, svg, emf) get a size in millimetres; they are rendered at the screen's
	logical resolution, so that the chart is laid out as on screen, into a target of
	mm * INCH_PER_MM * dpi pixels. All failures are thrown as ZEB::Exception.
*/
class ChartExporter {
public:
	/*! Outcome of checking a vector graphics size. */
	enum VectorSizeCheck {
		SizeValid,
		/*! A side is not a positive number. */
		SizeInvalid,
		/*! A side exceeds MAX_VECTOR_SIZE_MM. */
		SizeTooLarge
	};

	/*! Largest width and height of vector graphics in millimetres. */
	static const double MAX_VECTOR_SIZE_MM;
	/*! Inches per millimetre. */
	static const double INCH_PER_MM;

	/*! Parts of the chart to draw. */
	void setComponents(const ExportComponents & components) { m_components = components; }
	const ExportComponents & components() const { return m_components; }

	/*! When set, the target is filled white before the chart is drawn, so that vector graphics
		have no transparent areas (off by default; bitmaps are always filled white).
	*/
	void setPaintBackground(bool paintBackground) { m_paintBackground = paintBackground; }
	bool paintBackground() const { return m_paintBackground; }

	/*! Thins the line series of an SCI::Chart while it is rendered (on) or draws all points
		(off); the chart's own setting is restored afterwards. Without a call, the chart is
		drawn as on screen. Has no effect on other plots.
	*/
	void setDataReduction(bool dataReduction) { m_dataReduction = dataReduction; }
	/*! The data reduction switch set, or nullopt for the chart's own setting. */
	std::optional<bool> dataReduction() const { return m_dataReduction; }

	/*! Draws the chart into rect of an active painter, with the components and background set. */
	void render(QwtPlot * plot, QPainter * painter, const QRectF & rect) const;

	/*! Renders the chart into an image of sizePx pixels on white, with the resolution dpi stored
		in the image. With scaleWithResolution the chart's fonts, pens and spacing grow with dpi
		relative to the screen (the chart is laid out as a screen chart of sizePx * screen dpi /
		dpi); without it, the chart is laid out in the full pixel size at screen resolution.
	*/
	QImage renderImage(QwtPlot * plot, const QSize & sizePx, int dpi, bool scaleWithResolution) const;

	/*! Saves an image in the format given by the file name's extension;
		throws "Error writing file '%1." when that fails.
	*/
	static void saveImage(const QImage & image, const QString & fileName);

	/*! Renders the chart into a vector graphics file of sizeMM; the format follows from the
		extension ("pdf", "svg" or "emf"). The size must pass checkVectorSize().
	*/
	void exportVector(QwtPlot * plot, const QString & fileName, const QSizeF & sizeMM) const;

	/*! The chart as SVG document of sizeMM, for the clipboard. */
	QByteArray renderSvg(QwtPlot * plot, const QSizeF & sizeMM) const;
	/*! The chart as enhanced metafile of sizeMM, for the clipboard; a size beyond
		MAX_VECTOR_SIZE_MM is taken as it is.
	*/
	QByteArray renderEmf(QwtPlot * plot, const QSizeF & sizeMM) const;

	/*! Exports the chart with a size in pixels, as the command line asks for it: bitmaps are
		rendered in that size at screen resolution and stored with resolution dpi; vector
		graphics get the size that these pixels have on screen. The format follows from the
		extension; other extensions are refused.
	*/
	void exportFile(QwtPlot * plot, const QString & fileName, const QSize & sizePx, int dpi) const;

	/*! Checks a vector graphics size in millimetres. */
	static VectorSizeCheck checkVectorSize(const QSizeF & sizeMM);
	/*! The screen's logical resolution in dots per inch, rounded; 96 without a screen. */
	static int screenResolution();
	/*! Pixel size of sizeMM at dpi (mm * INCH_PER_MM * dpi, rounded, at least 1). */
	static QSize vectorPixelSize(const QSizeF & sizeMM, int dpi);
	/*! Size in millimetres that sizePx has on the screen (the inverse of vectorPixelSize() at
		the screen's resolution, unrounded). */
	static QSizeF screenSizeMM(const QSize & sizePx);

private:
	/*! Paints the chart on a vector paint device that is ready for painting. */
	void paintVector(QwtPlot * plot, QPaintDevice & device, const QSize & sizePx,
					 const QString & fileName) const;
	void exportPdf(QwtPlot * plot, const QString & fileName, const QSizeF & sizeMM, int dpi) const;
	void exportSvg(QwtPlot * plot, const QString & fileName, const QSizeF & sizeMM, int dpi) const;
	void exportEmf(QwtPlot * plot, const QString & fileName, const QSizeF & sizeMM, int dpi) const;
	/*! Paints plot into an EMF device; target names it in messages. Throws ZEB::Exception with
		the device's reason when it cannot be written. */
	void paintEmf(QwtPlot * plot, EMF::PaintDevice & device, const QString & target) const;

	ExportComponents	m_components;
	bool				m_paintBackground = false;
	std::optional<bool>	m_dataReduction;
};

} // namespace SCI

#endif // Sci_ChartExporterH
