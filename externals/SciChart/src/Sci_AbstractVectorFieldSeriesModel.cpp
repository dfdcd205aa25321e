#include "Sci_AbstractVectorFieldSeriesModel.h"

#include <cmath>

#include <ZEB_Exception.h>

#include "Sci_ArrayTools.h"
#include "Sci_VariantConversion.h"

namespace SCI {

AbstractVectorFieldSeriesModel::AbstractVectorFieldSeriesModel(QObject * parent) :
	AbstractCartesianChartModel(parent)
{
}


QVariant AbstractVectorFieldSeriesModel::seriesData(int seriesIndex, int role) const {
	const VectorFieldProperties & p = m_properties;
	// display properties do not depend on the data
	switch (role) {
		case VectorFieldColorMap :				return QVariant::fromValue(p.m_colorMap);
		case VectorFieldAutoScale :				return p.m_autoScale;
		case VectorFieldMinimumZ :				return p.m_minimumZ;
		case VectorFieldMaximumZ :				return p.m_maximumZ;
		case VectorFieldColorBar :				return p.m_colorBarVisible;
		case VectorFieldRasterEnabled :			return p.m_rasterEnabled;
		case VectorFieldRasterSize :			return p.m_rasterSize;
		case VectorFieldColoredArrowsEnabled :	return p.m_coloredArrowsEnabled;
		case VectorFieldUniformArrowColor :		return p.m_uniformArrowColor;
		case VectorFieldIndicatorOrigin :		return p.m_indicatorOrigin;
		case VectorFieldThinArrow :				return p.m_thinArrow;
		case VectorFieldMaximumArrowLength :	return p.m_maximumArrowLength;
		case VectorFieldMinimumArrowLength :	return p.m_minimumArrowLength;
		case VectorFieldArrowScaleFactor :		return p.m_arrowScaleFactor;
		default : break;
	}
	if (seriesIndex < 0 || seriesIndex >= static_cast<int>(seriesCount()))
		return QVariant();
	const unsigned int n = xGridSize(seriesIndex)*yGridSize(seriesIndex);
	switch (role) {
		case VectorFieldXGrid :			return QVariant::fromValue(ArrayTools::toVector(xGrid(seriesIndex), xGridSize(seriesIndex)));
		case VectorFieldYGrid :			return QVariant::fromValue(ArrayTools::toVector(yGrid(seriesIndex), yGridSize(seriesIndex)));
		case VectorFieldXComponents :	return QVariant::fromValue(ArrayTools::toVector(xComponents(seriesIndex), n));
		case VectorFieldYComponents :	return QVariant::fromValue(ArrayTools::toVector(yComponents(seriesIndex), n));
		case VectorFieldXUnit :			return xUnit(seriesIndex).id();
		case VectorFieldYUnit :			return yUnit(seriesIndex).id();
		case VectorFieldValueUnit :		return valueUnit(seriesIndex).id();
		case VectorFieldMagnitudeRange :	return magnitudeRange(seriesIndex);
		default :						return QVariant();
	}
}


bool AbstractVectorFieldSeriesModel::setSeriesData(const QVariant & value, int seriesIndex, int role) {
	// messages of this model are tagged after its XML element VectorPlotProperties
	FUNCID(AbstractVectorPlotSeriesModel::setSeriesData);
	typedef VariantConversion VC;
	if (seriesIndex < 0 || seriesIndex > 1)
		return rejectSeriesIndex(seriesIndex, FUNC_ID);
	VectorFieldProperties & p = m_properties;
	bool ok = false;
	switch (role) {
		case VectorFieldColorMap :				ok = VC::convert(value, p.m_colorMap); break;
		case VectorFieldAutoScale :				ok = VC::convert(value, p.m_autoScale); break;
		case VectorFieldMinimumZ :				ok = VC::convert(value, p.m_minimumZ); break;
		case VectorFieldMaximumZ :				ok = VC::convert(value, p.m_maximumZ); break;
		case VectorFieldColorBar :				ok = VC::convert(value, p.m_colorBarVisible); break;
		case VectorFieldRasterEnabled :			ok = VC::convert(value, p.m_rasterEnabled); break;
		case VectorFieldRasterSize : {
			double size = 0;
			ok = VC::convert(value, size) && std::isfinite(size) && size >= 0 && size <= 1e6;
			if (ok)
				p.m_rasterSize = static_cast<int>(std::lround(size));
		} break;
		case VectorFieldColoredArrowsEnabled :	ok = VC::convert(value, p.m_coloredArrowsEnabled); break;
		case VectorFieldUniformArrowColor :		ok = VC::convert(value, p.m_uniformArrowColor); break;
		case VectorFieldIndicatorOrigin :		ok = VC::convert(value, p.m_indicatorOrigin); break;
		case VectorFieldThinArrow :				ok = VC::convert(value, p.m_thinArrow); break;
		case VectorFieldMaximumArrowLength :	ok = VC::convert(value, p.m_maximumArrowLength); break;
		case VectorFieldMinimumArrowLength :	ok = VC::convert(value, p.m_minimumArrowLength); break;
		case VectorFieldArrowScaleFactor :		ok = VC::convert(value, p.m_arrowScaleFactor); break;
		default :								return rejectRole(role, FUNC_ID);
	}
	if (!ok)
		return rejectValue(value, role, FUNC_ID);
	announceColorMappedChange(role, role == VectorFieldColorBar);
	return true;
}


void AbstractVectorFieldSeriesModel::readXML(const TiXmlElement * element) {
	FUNCID(AbstractVectorPlotSeriesModel::readXML);
	readPropertiesXML(element, "VectorPlotProperties", m_properties, FUNC_ID);
	AbstractCartesianChartModel::readXML(element);
}


void AbstractVectorFieldSeriesModel::writeXML(TiXmlElement * parent) const {
	m_properties.writeXML(parent, writeAll());
	AbstractCartesianChartModel::writeXML(parent);
}


QPointF AbstractVectorFieldSeriesModel::magnitudeRange(int seriesIndex) const {
	if (m_properties.m_autoScale)
		return QPointF(minimumMagnitude(seriesIndex), maximumMagnitude(seriesIndex));
	return QPointF(m_properties.m_minimumZ, m_properties.m_maximumZ);
}


double AbstractVectorFieldSeriesModel::minimumMagnitude(int seriesIndex) const {
	const QVector<double> m = magnitudes(seriesIndex);
	return ArrayTools::minimum(m.constData(), static_cast<unsigned int>(m.size()));
}


double AbstractVectorFieldSeriesModel::maximumMagnitude(int seriesIndex) const {
	const QVector<double> m = magnitudes(seriesIndex);
	return ArrayTools::maximum(m.constData(), static_cast<unsigned int>(m.size()));
}


QVector<double> AbstractVectorFieldSeriesModel::magnitudes(int seriesIndex) const {
	const unsigned int n = xGridSize(seriesIndex)*yGridSize(seriesIndex);
	const double * u = xComponents(seriesIndex);
	const double * v = yComponents(seriesIndex);
	QVector<double> m;
	if (u == nullptr || v == nullptr)
		return m;
	m.resize(static_cast<int>(n));
	for (unsigned int i = 0; i < n; ++i)
		m[static_cast<int>(i)] = std::hypot(u[i], v[i]);
	return m;
}

} // namespace SCI
