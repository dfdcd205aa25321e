#include "Sci_AbstractColorGridSeriesModel.h"

#include <QSize>

#include <ZEB_Exception.h>

#include "Sci_ArrayTools.h"
#include "Sci_VariantConversion.h"

namespace SCI {

AbstractColorGridSeriesModel::AbstractColorGridSeriesModel(QObject * parent) :
	AbstractCartesianChartModel(parent)
{
}


QVariant AbstractColorGridSeriesModel::seriesData(int seriesIndex, int role) const {
	const ColorGridProperties & p = m_properties;
	// display properties do not depend on the data
	switch (role) {
		case ColorGridColorMap :				return QVariant::fromValue(p.m_colorMap);
		case ColorGridAutoScale :				return p.m_autoScale;
		case ColorGridMinimumZ :				return p.m_minimumZ;
		case ColorGridMaximumZ :				return p.m_maximumZ;
		case ColorGridInterpolationMode :		return p.m_interpolationMode;
		case ColorGridDisplayMode :				return p.m_displayMode;
		case ColorGridColorBarVisible :			return p.m_colorBarVisible;
		case ColorGridContourIntervalColor :	return p.m_contourIntervalColor;
		case ColorGridContourInterval :			return p.m_contourInterval;
		case ColorGridContourPen :				return p.m_contourPen;
		default : break;
	}
	if (seriesIndex < 0 || seriesIndex >= static_cast<int>(seriesCount()))
		return QVariant();
	switch (role) {
		case ColorGridXGrid :		return QVariant::fromValue(ArrayTools::toVector(xGrid(seriesIndex), xGridSize(seriesIndex)));
		case ColorGridYGrid :		return QVariant::fromValue(ArrayTools::toVector(yGrid(seriesIndex), yGridSize(seriesIndex)));
		case ColorGridValues :
			return QVariant::fromValue(ArrayTools::toVector(values(seriesIndex),
															xValueSize(seriesIndex)*yValueSize(seriesIndex)));
		case ColorGridXUnit :		return xUnit(seriesIndex).id();
		case ColorGridYUnit :		return yUnit(seriesIndex).id();
		case ColorGridValueUnit :	return valueUnit(seriesIndex).id();
		case ColorGridValueSize :
			return QSize(static_cast<int>(xValueSize(seriesIndex)), static_cast<int>(yValueSize(seriesIndex)));
		case ColorGridDataMinimum :	return minimumValue(seriesIndex);
		case ColorGridDataMaximum :	return maximumValue(seriesIndex);
		case ColorGridValueRange :	return valueRange(seriesIndex);
		default :					return QVariant();
	}
}


bool AbstractColorGridSeriesModel::setSeriesData(const QVariant & value, int seriesIndex, int role) {
	FUNCID(AbstractColorGridSeriesModel::setSeriesData);
	typedef VariantConversion VC;
	if (seriesIndex < 0 || seriesIndex > 1)
		return rejectSeriesIndex(seriesIndex, FUNC_ID);
	ColorGridProperties & p = m_properties;
	int announcedRole = role;
	bool ok = false;
	switch (role) {
		case ColorGridColorMap :				ok = VC::convert(value, p.m_colorMap); break;
		case ColorGridAutoScale :
			ok = VC::convert(value, p.m_autoScale);
			announcedRole = ColorGridValueRange;
			break;
		case ColorGridMinimumZ :
			ok = VC::convert(value, p.m_minimumZ);
			announcedRole = ColorGridValueRange;
			break;
		case ColorGridMaximumZ :
			ok = VC::convert(value, p.m_maximumZ);
			announcedRole = ColorGridValueRange;
			break;
		case ColorGridInterpolationMode :		ok = VC::convert(value, p.m_interpolationMode); break;
		case ColorGridDisplayMode :				ok = VC::convert(value, p.m_displayMode); break;
		case ColorGridColorBarVisible :			ok = VC::convert(value, p.m_colorBarVisible); break;
		case ColorGridContourIntervalColor :	ok = VC::convert(value, p.m_contourIntervalColor); break;
		case ColorGridContourInterval :			ok = VC::convert(value, p.m_contourInterval); break;
		case ColorGridContourPen :				ok = VC::convert(value, p.m_contourPen); break;
		default :								return rejectRole(role, FUNC_ID);
	}
	if (!ok)
		return rejectValue(value, role, FUNC_ID);
	announceColorMappedChange(announcedRole, role == ColorGridColorBarVisible);
	return true;
}


void AbstractColorGridSeriesModel::readXML(const TiXmlElement * element) {
	FUNCID(AbstractColorGridSeriesModel::readXML);
	readPropertiesXML(element, "ColorGridProperties", m_properties, FUNC_ID);
	AbstractCartesianChartModel::readXML(element);
}


void AbstractColorGridSeriesModel::writeXML(TiXmlElement * parent) const {
	m_properties.writeXML(parent, writeAll());
	AbstractCartesianChartModel::writeXML(parent);
}


QPointF AbstractColorGridSeriesModel::valueRange(int seriesIndex) const {
	if (m_properties.m_autoScale)
		return QPointF(minimumValue(seriesIndex), maximumValue(seriesIndex));
	return QPointF(m_properties.m_minimumZ, m_properties.m_maximumZ);
}


double AbstractColorGridSeriesModel::minimumValue(int seriesIndex) const {
	return ArrayTools::minimum(values(seriesIndex), xValueSize(seriesIndex)*yValueSize(seriesIndex));
}


double AbstractColorGridSeriesModel::maximumValue(int seriesIndex) const {
	return ArrayTools::maximum(values(seriesIndex), xValueSize(seriesIndex)*yValueSize(seriesIndex));
}

} // namespace SCI
