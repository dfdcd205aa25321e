#include "Sci_ColorGridSeries.h"

#include <cmath>
#include <memory>
#include <vector>

#include <QPointF>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "Sci_AbstractColorGridSeriesModel.h"
#include "Sci_ColorGrid3DData.h"
#include "Sci_ColorGridInterpolation.h"
#include "Sci_PlotColorMap.h"
#include "Sci_PlotSpectrogram.h"

namespace SCI {

namespace {

/*! Cell centres from coordinates that are centres (n entries) or edges (n + 1 entries). */
std::vector<double> cellCentres(const std::vector<double> & grid, std::size_t n) {
	std::vector<double> c(n);
	for (std::size_t i = 0; i < n; ++i)
		c[i] = grid.size() == n ? grid[i] : 0.5*(grid[i] + grid[i+1]);
	return c;
}

} // namespace


ColorGridSeries::ColorGridSeries(const AbstractColorGridSeriesModel * model) :
	ChartSeries(new PlotSpectrogram),
	m_model(model)
{
}


PlotSpectrogram * ColorGridSeries::spectrogram() const {
	return static_cast<PlotSpectrogram *>(plotItem());
}


void ColorGridSeries::updateData(int seriesIndex) {
	FUNCID(ColorGridSeries::updateData);
	const int nx = static_cast<int>(m_model->xValueSize(seriesIndex));
	const int ny = static_cast<int>(m_model->yValueSize(seriesIndex));
	const int xGridSize = static_cast<int>(m_model->xGridSize(seriesIndex));
	const int yGridSize = static_cast<int>(m_model->yGridSize(seriesIndex));
	const double * xGrid = m_model->xGrid(seriesIndex);
	const double * yGrid = m_model->yGrid(seriesIndex);
	const double * values = m_model->values(seriesIndex);
	if ((xGridSize > 0 && xGrid == nullptr) || (yGridSize > 0 && yGrid == nullptr) ||
		(nx*ny > 0 && values == nullptr))
	{
		throw ZEB::Exception("Colour grid model returned no grid or value array.", FUNC_ID);
	}
	// the one copy of the values the series keeps, shared by the cell and the interpolated data
	setData(std::vector<double>(xGrid, xGrid + xGridSize), std::vector<double>(yGrid, yGrid + yGridSize),
			std::vector<double>(values, values + static_cast<std::ptrdiff_t>(nx)*ny), nx, ny);
	// an automatic value range follows the data
	updateProperty(seriesIndex, AbstractColorGridSeriesModel::ColorGridValueRange);
}


void ColorGridSeries::setData(const std::vector<double> & xGrid, const std::vector<double> & yGrid,
							  std::vector<double> values, int xValueCount, int yValueCount)
{
	FUNCID(ColorGridSeries::setData);
	if (xValueCount <= 0 || yValueCount <= 0)
		throw ZEB::Exception(ZEB::MessageFormat("Colour grid needs at least one cell in each direction, got %1 x %2.")
							 .arg(xValueCount).arg(yValueCount), FUNC_ID);
	const std::size_t nx = static_cast<std::size_t>(xValueCount);
	const std::size_t ny = static_cast<std::size_t>(yValueCount);
	if (xGrid.size() != nx && xGrid.size() != nx + 1)
		throw ZEB::Exception("Invalid x-grid and x-value sizes.", FUNC_ID);
	if (yGrid.size() != ny && yGrid.size() != ny + 1)
		throw ZEB::Exception("Invalid y-grid and y-value sizes.", FUNC_ID);
	if (values.size() != nx*ny)
		throw ZEB::Exception(ZEB::MessageFormat("Colour grid of %1 x %2 cells needs %3 values, got %4.")
							 .arg(xValueCount).arg(yValueCount).arg(xValueCount*yValueCount)
							 .arg(static_cast<int>(values.size())), FUNC_ID);

	std::unique_ptr<ColorGrid3DData> cells;
	try {
		cells.reset(new ColorGrid3DData(static_cast<unsigned int>(xValueCount), static_cast<unsigned int>(yValueCount),
										std::make_shared<const std::vector<double> >(std::move(values)), xGrid, yGrid));
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Invalid colour grid coordinates.", FUNC_ID);
	}
	ColorGridInterpolation * interpolation = new ColorGridInterpolation(cellCentres(xGrid, nx), cellCentres(yGrid, ny),
																		cells->sharedValues(), cells->interval(Qt::ZAxis),
																		cells->xEdges(), cells->yEdges());
	spectrogram()->setData(cells.release());
	spectrogram()->setInterpolatedData(interpolation);
}


void ColorGridSeries::updateProperty(int seriesIndex, int role) {
	typedef AbstractColorGridSeriesModel M;
	const bool all = role < 0;
	PlotSpectrogram * s = spectrogram();
	if (all || role == M::ColorGridColorMap)
		s->setColorMap(PlotColorMap::create(m_model->seriesData(seriesIndex, M::ColorGridColorMap).value<ColorMap>()));
	if (all || role == M::ColorGridAutoScale || role == M::ColorGridMinimumZ || role == M::ColorGridMaximumZ ||
		role == M::ColorGridValueRange)
	{
		s->setValueRange(valueRange());
		updateContourLevels();
	}
	if (all || role == M::ColorGridInterpolationMode)
		s->setInterpolationEnabled(m_model->seriesData(seriesIndex, M::ColorGridInterpolationMode).toInt() == InterpolationBilinear);
	if (all || role == M::ColorGridDisplayMode)
		s->setDisplayMode(QwtPlotSpectrogram::ImageMode,
						  m_model->seriesData(seriesIndex, M::ColorGridDisplayMode).toInt() != DisplayContoursOnly);
	if (all || role == M::ColorGridContourPen || role == M::ColorGridContourIntervalColor)
		s->setContourLineStyle(m_model->seriesData(seriesIndex, M::ColorGridContourPen).value<QPen>(),
							   m_model->seriesData(seriesIndex, M::ColorGridContourIntervalColor).toBool());
	if (all || role == M::ColorGridContourInterval)
		updateContourLevels();
}


QwtInterval ColorGridSeries::valueRange() const {
	const QVariant v = m_model->seriesData(0, AbstractColorGridSeriesModel::ColorGridValueRange);
	if (!v.isValid())
		return QwtInterval();
	const QPointF r = v.toPointF();
	return QwtInterval(r.x(), r.y());
}


void ColorGridSeries::updateContourLevels() {
	FUNCID(ColorGridSeries::updateContourLevels);
	const double step = m_model->seriesData(0, AbstractColorGridSeriesModel::ColorGridContourInterval).toDouble();
	const QwtInterval range = valueRange();
	QList<double> levels;
	if (std::isfinite(step) && step > 0 && range.isValid() && std::isfinite(range.minValue()) &&
		std::isfinite(range.maxValue()))
	{
		const double first = std::ceil(range.minValue()/step);
		const double last = std::floor(range.maxValue()/step);
		if (last - first + 1 > MAXIMUM_CONTOUR_LEVELS)
			ZEB::reportWarning(ZEB::MessageFormat("Contour interval %1 gives more than %2 contour lines, no contour lines drawn.")
							   .arg(step).arg(MAXIMUM_CONTOUR_LEVELS).str(), FUNC_ID);
		else
			for (double k = first; k <= last; k += 1)
				levels.append(k*step);
	}
	spectrogram()->setContourLevels(levels);
	spectrogram()->setDisplayMode(QwtPlotSpectrogram::ContourMode, !levels.isEmpty());
}

} // namespace SCI
