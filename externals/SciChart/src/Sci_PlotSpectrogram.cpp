#include "Sci_PlotSpectrogram.h"

#include <algorithm>
#include <cmath>
#include <limits>
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


/*! Colours of values, remembering the last value: neighbouring pixels mostly lie in one cell. */
class PixelColors {
public:
	PixelColors(const QwtColorMap & map, const QwtInterval & range) : m_map(map), m_range(range) {}
	QRgb operator()(double v) {
		if (std::isnan(v))
			return 0u;
		if (v != m_lastValue) {
			m_lastValue = v;
			m_lastColor = m_map.rgb(m_range, v);
		}
		return m_lastColor;
	}
private:
	const QwtColorMap &	m_map;
	QwtInterval			m_range;
	double				m_lastValue = std::numeric_limits<double>::quiet_NaN();
	QRgb				m_lastColor = 0u;
};

} // namespace


PlotSpectrogram::PlotSpectrogram() {
	// contour pens come from contourPen() only
	setDefaultContourPen(QPen(Qt::NoPen));
	setItemAttribute(QwtPlotItem::Legend, false);
	// smooth contour lines; the image itself is not affected
	setRenderHint(QwtPlotItem::RenderAntialiased, true);
}


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
	// plot coordinates of the pixel centres of all columns, shared by all stripes
	std::vector<double> columnX(static_cast<std::size_t>(width));
	for (int x = 0; x < width; ++x)
		columnX[static_cast<std::size_t>(x)] = xMap.invTransform(x + 0.5);

	// plain cells are looked up by index: the cell of each column is found once
	const ColorGrid3DData * cells = m_interpolate ? nullptr : dynamic_cast<const ColorGrid3DData *>(data());
	std::vector<int> columnCell;
	if (cells != nullptr) {
		columnCell.resize(columnX.size());
		for (std::size_t x = 0; x < columnX.size(); ++x)
			columnCell[x] = cellOf(cells->xEdges(), columnX[x]);
	}
	const QwtRasterData * source = (m_interpolate && m_interpolated) ? m_interpolated.get() : data();

	uchar * bits = image.bits();
	const int bytesPerLine = image.bytesPerLine();
	const QwtColorMap & map = *colorMap();
	const QwtInterval range = m_valueRange;

	// renders rows first..last-1; writes nothing but these rows
	auto renderStripe = [&](int first, int last) {
		PixelColors colors(map, range);
		for (int y = first; y < last; ++y) {
			QRgb * line = reinterpret_cast<QRgb *>(bits + static_cast<std::ptrdiff_t>(y)*bytesPerLine);
			const double ty = yMap.invTransform(y + 0.5);
			if (cells != nullptr) {
				const int j = cellOf(cells->yEdges(), ty);
				if (j < 0) {
					std::fill(line, line + width, 0u);
					continue;
				}
				const double * rowValues = cells->values().data() + static_cast<std::size_t>(j)*cells->xGridSize();
				for (int x = 0; x < width; ++x) {
					const int i = columnCell[static_cast<std::size_t>(x)];
					line[x] = i < 0 ? 0u : colors(rowValues[i]);
				}
			}
			else {
				for (int x = 0; x < width; ++x)
					line[x] = colors(source->value(columnX[static_cast<std::size_t>(x)], ty));
			}
		}
	};

	int threads = static_cast<int>(renderThreadCount());
	if (threads <= 0)
		threads = QThread::idealThreadCount();
	threads = qBound(1, threads, height);
	if (threads == 1) {
		renderStripe(0, height);
		return image;
	}
	QList<QFuture<void> > tasks;
	const int rowsPerStripe = height/threads;
	for (int t = 0; t < threads; ++t) {
		const int first = t*rowsPerStripe;
		const int last = (t == threads - 1) ? height : first + rowsPerStripe;
		tasks.append(QtConcurrent::run(QThreadPool::globalInstance(), [&renderStripe, first, last]() {
			renderStripe(first, last);
		}));
	}
	for (QFuture<void> & task : tasks)
		task.waitForFinished();
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
