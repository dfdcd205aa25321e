#include "Sci_PlotSpectrogram.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <vector>

#include <QFuture>
#include <QImage>
#include <QThread>
#include <QThreadPool>
#include <QtConcurrent>

#include <qwt_color_map.h>
#include <qwt_scale_map.h>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageHandler.h>

#include "Sci_ColorGrid3DData.h"
#include "Sci_ColorLookupTable.h"

namespace SCI {

namespace {

/*! Index of the cell between edges that holds v, -1 outside; the upper edge belongs to the last
	cell. */
int cellOf(const std::vector<double> & edges, double v) {
	if (!(v >= edges.front() && v <= edges.back()))
		return -1;
	const int i = static_cast<int>(std::upper_bound(edges.begin(), edges.end(), v) - edges.begin()) - 1;
	return std::min(i, static_cast<int>(edges.size()) - 2);
}


/*! Rows per band of the image, the unit of work of the render threads. */
const int BAND_ROWS = 32;


/*! Neighbouring image columns that show one cell (-1: no cell). */
struct ColumnRun {
	int	m_first;
	int	m_end;
	int	m_cell;
};


/*! Which alpha values occur among colours. */
struct Alphas {
	void add(QRgb c) {
		const unsigned int a = qAlpha(c);
		m_notOpaque = m_notOpaque || a != 255;
		m_translucent = m_translucent || (a != 255 && a != 0);
	}
	bool	m_notOpaque = false;
	bool	m_translucent = false;
};


/*! The runs of equal cells in the cell index of each column. */
std::vector<ColumnRun> columnRuns(const std::vector<int> & columnCell) {
	std::vector<ColumnRun> runs;
	for (std::size_t x = 0; x < columnCell.size(); ++x) {
		const int cell = columnCell[x];
		if (runs.empty() || runs.back().m_cell != cell)
			runs.push_back(ColumnRun{ static_cast<int>(x), static_cast<int>(x) + 1, cell });
		else
			runs.back().m_end = static_cast<int>(x) + 1;
	}
	return runs;
}

} // namespace


PlotSpectrogram::PlotSpectrogram() {
	// contour pens come from contourPen() only
	setDefaultContourPen(QPen(Qt::NoPen));
	setItemAttribute(QwtPlotItem::Legend, false);
	// smooth contour lines; the image itself is not affected
	setRenderHint(QwtPlotItem::RenderAntialiased, true);
}


PlotSpectrogram::~PlotSpectrogram() = default;


void PlotSpectrogram::setValueRange(const QwtInterval & range) {
	m_valueRange = range;
	itemChanged();
}


void PlotSpectrogram::setInterpolatedData(QwtRasterData * data) {
	m_interpolated.reset(data);
	itemChanged();
}


void PlotSpectrogram::setInterpolationEnabled(bool enabled) {
	m_interpolate = enabled;
	itemChanged();
}


void PlotSpectrogram::setContourLineStyle(const QPen & pen, bool intervalColors) {
	m_contourPen = pen;
	m_contourIntervalColors = intervalColors;
	itemChanged();
}


QPen PlotSpectrogram::contourPen(double level) const {
	QPen pen = m_contourPen;
	if (m_contourIntervalColors && colorMap() != nullptr)
		pen.setColor(colorMap()->color(m_valueRange, level));
	return pen;
}


void PlotSpectrogram::itemChanged() {
	m_colorTable.reset();
	QwtPlotSpectrogram::itemChanged();
}


const ColorLookupTable & PlotSpectrogram::colorTable() const {
	// the table refers to the map: a replaced map or range gives a new table
	if (!m_colorTable || &m_colorTable->map() != colorMap() || !(m_colorTable->range() == m_valueRange))
		m_colorTable.reset(new ColorLookupTable(*colorMap(), m_valueRange));
	return *m_colorTable;
}


QImage PlotSpectrogram::renderImage(const QwtScaleMap & xMap, const QwtScaleMap & yMap,
									const QRectF & area, const QSize & imageSize) const
{
	// messages keep the tag of the chart's colour grid drawing
	FUNCID(SciSpectrogramChart::renderImage);
	Q_UNUSED(area)
	if (imageSize.isEmpty() || data() == nullptr || colorMap() == nullptr)
		return QImage();
	if (!m_valueRange.isValid() || std::isnan(m_valueRange.minValue()) || std::isnan(m_valueRange.maxValue())) {
		ZEB::reportError("Invalid data/z-value range.", FUNC_ID);
		return QImage();
	}

	QImage image(imageSize, QImage::Format_ARGB32);
	const int width = image.width();
	const int height = image.height();
	// plot coordinates of the pixel centres of all columns, shared by all bands
	std::vector<double> columnX(static_cast<std::size_t>(width));
	for (int x = 0; x < width; ++x)
		columnX[static_cast<std::size_t>(x)] = xMap.invTransform(x + 0.5);

	// plain cells are looked up by index: the cell of each column is found once, and neighbouring
	// columns in one cell form a run of one colour
	const ColorGrid3DData * cells = m_interpolate ? nullptr : dynamic_cast<const ColorGrid3DData *>(data());
	std::vector<ColumnRun> runs;
	if (cells != nullptr) {
		std::vector<int> columnCell(columnX.size());
		for (std::size_t x = 0; x < columnX.size(); ++x)
			columnCell[x] = cellOf(cells->xEdges(), columnX[x]);
		runs = columnRuns(columnCell);
	}
	const QwtRasterData * source = (m_interpolate && m_interpolated) ? m_interpolated.get() : data();

	uchar * bits = image.bits();
	const int bytesPerLine = image.bytesPerLine();
	const ColorLookupTable & colors = colorTable();

	// renders rows first..last-1; writes nothing but these rows; tells whether a pixel was not
	// opaque and whether one was neither opaque nor transparent
	std::atomic<bool> notOpaque(false), translucent(false);
	auto renderRows = [&](int first, int last) {
		Alphas alphas;
		int previousCellRow = -1;
		for (int y = first; y < last; ++y) {
			QRgb * line = reinterpret_cast<QRgb *>(bits + static_cast<std::ptrdiff_t>(y)*bytesPerLine);
			const double ty = yMap.invTransform(y + 0.5);
			if (cells != nullptr) {
				const int j = cellOf(cells->yEdges(), ty);
				if (j < 0)
					std::fill(line, line + width, 0u);
				else if (j == previousCellRow) {	// the row above shows the same cells
					const QRgb * above = reinterpret_cast<const QRgb *>(bits + static_cast<std::ptrdiff_t>(y - 1)*bytesPerLine);
					std::copy(above, above + width, line);
				}
				else {
					const double * rowValues = cells->values().data() + static_cast<std::size_t>(j)*cells->xGridSize();
					for (const ColumnRun & run : runs) {
						const QRgb c = run.m_cell < 0 ? 0u : colors.rgb(rowValues[run.m_cell]);
						alphas.add(c);
						std::fill(line + run.m_first, line + run.m_end, c);
					}
				}
				previousCellRow = j;
			}
			else {
				for (int x = 0; x < width; ++x) {
					const QRgb c = colors.rgb(source->value(columnX[static_cast<std::size_t>(x)], ty));
					alphas.add(c);
					line[x] = c;
				}
			}
		}
		if (alphas.m_notOpaque)
			notOpaque = true;
		if (alphas.m_translucent)
			translucent = true;
	};

	// the calling thread and the helpers take the next free band until all are done
	const int bands = (height + BAND_ROWS - 1)/BAND_ROWS;
	std::atomic<int> nextBand(0);
	auto renderBands = [&]() {
		for (int band = nextBand++; band < bands; band = nextBand++)
			renderRows(band*BAND_ROWS, std::min(height, (band + 1)*BAND_ROWS));
	};
	int threads = static_cast<int>(renderThreadCount());
	if (threads <= 0)
		threads = QThread::idealThreadCount();
	threads = qBound(1, threads, bands);
	QList<QFuture<void> > helpers;
	for (int t = 1; t < threads; ++t)
		helpers.append(QtConcurrent::run(QThreadPool::globalInstance(), renderBands));
	renderBands();
	for (QFuture<void> & helper : helpers)
		helper.waitForFinished();
	// the same pixels in a form that is painted faster: without alpha when all are opaque,
	// premultiplied when they are opaque or transparent
	if (!notOpaque)
		image.reinterpretAsFormat(QImage::Format_RGB32);
	else if (!translucent)
		image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
	return image;
}


QwtRasterData::ContourLines PlotSpectrogram::renderContourLines(const QRectF & rect, const QSize & raster) const {
	if (!m_interpolated)
		return QwtPlotSpectrogram::renderContourLines(rect, raster);
	QwtRasterData::ConrecFlags flags;
	if (testConrecFlag(QwtRasterData::IgnoreAllVerticesOnLevel))
		flags |= QwtRasterData::IgnoreAllVerticesOnLevel;
	if (testConrecFlag(QwtRasterData::IgnoreOutOfRange))
		flags |= QwtRasterData::IgnoreOutOfRange;
	return m_interpolated->contourLines(rect, raster, contourLevels(), flags);
}

} // namespace SCI
