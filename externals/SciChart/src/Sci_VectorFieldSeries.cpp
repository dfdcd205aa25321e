#include "Sci_VectorFieldSeries.h"

#include <cmath>
#include <vector>

#include <QColor>
#include <QPointF>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "Sci_AbstractVectorFieldSeriesModel.h"
#include "Sci_PlotColorMap.h"
#include "Sci_PlotVectorField.h"

namespace SCI {

VectorFieldSeries::VectorFieldSeries(const AbstractVectorFieldSeriesModel * model) :
	ChartSeries(new PlotVectorField),
	m_model(model)
{
}


PlotVectorField * VectorFieldSeries::vectorField() const {
	return static_cast<PlotVectorField *>(plotItem());
}


void VectorFieldSeries::updateData(int seriesIndex) {
	FUNCID(VectorFieldSeries::updateData);
	const std::size_t nx = m_model->xGridSize(seriesIndex);
	const std::size_t ny = m_model->yGridSize(seriesIndex);
	const double * x = m_model->xGrid(seriesIndex);
	const double * y = m_model->yGrid(seriesIndex);
	const double * u = m_model->xComponents(seriesIndex);
	const double * v = m_model->yComponents(seriesIndex);
	if (nx == 0 || ny == 0)
		throw ZEB::Exception(ZEB::MessageFormat("Vector field needs at least one point in each direction, got %1 x %2.")
							 .arg(static_cast<unsigned long long>(nx)).arg(static_cast<unsigned long long>(ny)), FUNC_ID);
	if (x == nullptr || y == nullptr || u == nullptr || v == nullptr)
		throw ZEB::Exception("Vector field model returned no grid or component array.", FUNC_ID);
	const std::vector<double> xs(x, x + nx);
	const std::vector<double> ys(y, y + ny);
	for (std::size_t i = 1; i < nx; ++i)
		if (!(xs[i] > xs[i-1]))
			throw ZEB::Exception("The x coordinates of the vector field must be finite and strictly ascending.", FUNC_ID);
	for (std::size_t j = 1; j < ny; ++j)
		if (!(ys[j] > ys[j-1]))
			throw ZEB::Exception("The y coordinates of the vector field must be finite and strictly ascending.", FUNC_ID);
	if (!std::isfinite(xs.front()) || !std::isfinite(xs.back()) || !std::isfinite(ys.front()) || !std::isfinite(ys.back()))
		throw ZEB::Exception("The coordinates of the vector field must be finite.", FUNC_ID);
	vectorField()->setField(xs, ys, std::vector<double>(u, u + nx*ny), std::vector<double>(v, v + nx*ny));
	// an automatic magnitude range follows the data
	updateProperty(seriesIndex, AbstractVectorFieldSeriesModel::VectorFieldMagnitudeRange);
}


void VectorFieldSeries::updateProperty(int seriesIndex, int role) {
	typedef AbstractVectorFieldSeriesModel M;
	const bool all = role < 0;
	PlotVectorField * f = vectorField();
	if (all || role == M::VectorFieldColorMap)
		f->setColorMap(PlotColorMap::create(m_model->seriesData(seriesIndex, M::VectorFieldColorMap).value<ColorMap>()));
	if (all || role == M::VectorFieldAutoScale || role == M::VectorFieldMinimumZ || role == M::VectorFieldMaximumZ ||
		role == M::VectorFieldMagnitudeRange)
	{
		f->setMagnitudeRange(magnitudeRange());
		updateScaleFactor();
	}
	if (all || role == M::VectorFieldRasterEnabled || role == M::VectorFieldRasterSize)
		f->setRaster(m_model->seriesData(seriesIndex, M::VectorFieldRasterEnabled).toBool(),
					 m_model->seriesData(seriesIndex, M::VectorFieldRasterSize).toInt());
	if (all || role == M::VectorFieldColoredArrowsEnabled)
		f->setColoredArrows(m_model->seriesData(seriesIndex, M::VectorFieldColoredArrowsEnabled).toBool());
	if (all || role == M::VectorFieldUniformArrowColor)
		f->setUniformColor(m_model->seriesData(seriesIndex, M::VectorFieldUniformArrowColor).value<QColor>());
	if (all || role == M::VectorFieldIndicatorOrigin)
		f->setIndicatorOrigin(m_model->seriesData(seriesIndex, M::VectorFieldIndicatorOrigin).toInt());
	if (all || role == M::VectorFieldThinArrow)
		f->setThinArrows(m_model->seriesData(seriesIndex, M::VectorFieldThinArrow).toBool());
	if (all || role == M::VectorFieldMaximumArrowLength || role == M::VectorFieldMinimumArrowLength ||
		role == M::VectorFieldArrowScaleFactor)
	{
		f->setMaxArrowLength(m_model->seriesData(seriesIndex, M::VectorFieldMaximumArrowLength).toDouble());
		f->setMinArrowLength(m_model->seriesData(seriesIndex, M::VectorFieldMinimumArrowLength).toDouble());
		updateScaleFactor();
	}
}


QwtInterval VectorFieldSeries::magnitudeRange() const {
	const QVariant v = m_model->seriesData(0, AbstractVectorFieldSeriesModel::VectorFieldMagnitudeRange);
	if (!v.isValid())
		return QwtInterval();
	const QPointF r = v.toPointF();
	return QwtInterval(r.x(), r.y());
}


void VectorFieldSeries::updateScaleFactor() {
	const double maxMagnitude = magnitudeRange().maxValue();
	const double factor = m_model->seriesData(0, AbstractVectorFieldSeriesModel::VectorFieldArrowScaleFactor).toDouble();
	double pixelsPerUnit = 0;
	if (std::isfinite(maxMagnitude) && maxMagnitude > 0 && std::isfinite(factor) && factor > 0)
		pixelsPerUnit = factor*vectorField()->maxArrowLength()/maxMagnitude;
	vectorField()->setMagnitudeScaleFactor(pixelsPerUnit);
}

} // namespace SCI
