#include "Sci_AbstractCartesianChartModel.h"

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "Sci_VariantConversion.h"
#include "Sci_XMLValueReader.h"

namespace SCI {

AbstractCartesianChartModel::AbstractCartesianChartModel(QObject * parent) :
	AbstractChartModel(parent)
{
	for (int i = 0; i < NUM_AXES; ++i)
		m_axes[i] = AxisProperties(i);
}


QVariant AbstractCartesianChartModel::axisData(int axisPosition, int role) const {
	if (axisPosition < 0 || axisPosition >= NUM_AXES)
		return QVariant();
	const AxisProperties & a = m_axes[axisPosition];
	switch (role) {
		case AxisEnabled :				return a.m_enabled;
		case AxisTitle :				return a.displayTitle();
		case AxisTitleText :			return a.m_titleText;
		case AxisMaximum :				return a.m_maximum;
		case AxisMinimum :				return a.m_minimum;
		case AxisLogarithmic :			return a.m_logarithmic;
		case AxisProportional :			return a.m_proportional;
		case AxisAutoscale :			return a.m_autoscale;
		case AxisTitleFont :			return a.m_titleFont;
		case AxisLabelFont :			return a.m_labelFont;
		case AxisLabelHAlignment :		return a.m_labelHAlignment;
		case AxisLabelVAlignment :		return a.m_labelVAlignment;
		case AxisLabelRotation :		return a.m_labelRotation;
		case AxisMaxMinorScale :		return a.m_maxMinorScale;
		case AxisMaxMajorScale :		return a.m_maxMajorScale;
		case AxisUnit :					return a.m_unit.id();
		case AxisGridVisible :			return a.m_gridVisible;
		case AxisGridPen :				return a.m_gridPen;
		case AxisGridPenWidth :			return 2*a.m_gridPen.widthF();
		case AxisGridPenColor :			return a.m_gridPen.color();
		case AxisMinorGridVisible :		return a.m_minorGridVisible;
		case AxisMinorGridPen :			return a.m_minorGridPen;
		case AxisMinorGridPenWidth :	return 2*a.m_minorGridPen.widthF();
		case AxisMinorGridPenColor :	return a.m_minorGridPen.color();
		case AxisTitleSpacing :			return a.m_titleSpacing;
		case AxisLabelSpacing :			return a.m_labelSpacing;
		case AxisDateTimeEnabled :		return a.m_dateTimeEnabled;
		case AxisDateTimeZero :			return a.m_dateTimeZero;
		case AxisDateTimeSpec :			return a.m_dateTimeSpec;
		case AxisDateTimeFormats :		return a.m_dateTimeFormats;
		default :						return QVariant();
	}
}


bool AbstractCartesianChartModel::setAxisData(const QVariant & value, int axisPosition, int role) {
	FUNCID(AbstractCartesianChartModel::setAxisData);
	typedef VariantConversion VC;
	if (axisPosition < 0 || axisPosition >= NUM_AXES) {
		ZEB::reportError(ZEB::MessageFormat("Invalid axis position #%1.").arg(axisPosition).str(), FUNC_ID);
		return false;
	}
	AxisProperties & a = m_axes[axisPosition];
	bool ok = false;
	switch (role) {
		case AxisEnabled :			ok = VC::convert(value, a.m_enabled); break;
		case AxisTitle :			return rejectReadOnlyRole(role, FUNC_ID);
		case AxisTitleText :		ok = VC::convert(value, a.m_titleText); break;
		case AxisMaximum :			ok = VC::convert(value, a.m_maximum); break;
		case AxisMinimum :			ok = VC::convert(value, a.m_minimum); break;
		case AxisLogarithmic :		ok = VC::convert(value, a.m_logarithmic); break;
		case AxisProportional :		ok = VC::convert(value, a.m_proportional); break;
		case AxisAutoscale :		ok = VC::convert(value, a.m_autoscale); break;
		case AxisTitleFont :		ok = VC::convert(value, a.m_titleFont); break;
		case AxisLabelFont :		ok = VC::convert(value, a.m_labelFont); break;
		case AxisLabelHAlignment :	ok = VC::convert(value, a.m_labelHAlignment); break;
		case AxisLabelVAlignment :	ok = VC::convert(value, a.m_labelVAlignment); break;
		case AxisLabelRotation :	ok = VC::convert(value, a.m_labelRotation); break;
		case AxisMaxMinorScale :	ok = VC::convert(value, a.m_maxMinorScale); break;
		case AxisMaxMajorScale :	ok = VC::convert(value, a.m_maxMajorScale); break;
		case AxisUnit : {
			unsigned int id = 0;
			if (VC::convert(value, id)) {
				try {
					a.m_unit = ZEB::Unit(id);
					ok = true;
				}
				catch (ZEB::Exception & ex) {
					ZEB::reportError(ex.what(), FUNC_ID);
				}
			}
		} break;
		case AxisGridVisible :		ok = VC::convert(value, a.m_gridVisible); break;
		case AxisGridPen :			ok = VC::convert(value, a.m_gridPen); break;
		case AxisGridPenWidth :
		case AxisMinorGridPenWidth : {
			// a displayed width of 2 is a pen of width 1
			double w = 0;
			ok = VC::convert(value, w) && w >= 0;
			if (ok)
				(role == AxisGridPenWidth ? a.m_gridPen : a.m_minorGridPen).setWidthF(w/2);
		} break;
		case AxisGridPenColor :
		case AxisMinorGridPenColor : {
			QColor c;
			ok = VC::convert(value, c);
			if (ok)
				(role == AxisGridPenColor ? a.m_gridPen : a.m_minorGridPen).setColor(c);
		} break;
		case AxisMinorGridVisible :	ok = VC::convert(value, a.m_minorGridVisible); break;
		case AxisMinorGridPen :		ok = VC::convert(value, a.m_minorGridPen); break;
		case AxisTitleSpacing :		ok = VC::convert(value, a.m_titleSpacing); break;
		case AxisLabelSpacing :		ok = VC::convert(value, a.m_labelSpacing); break;
		case AxisDateTimeEnabled :	ok = VC::convert(value, a.m_dateTimeEnabled); break;
		case AxisDateTimeZero :		ok = VC::convert(value, a.m_dateTimeZero); break;
		case AxisDateTimeSpec : {
			int timeSpec = 0;
			ok = VC::convert(value, timeSpec) && timeSpec >= Qt::LocalTime && timeSpec <= Qt::TimeZone;
			if (ok)
				a.m_dateTimeSpec = timeSpec;
		} break;
		case AxisDateTimeFormats :	ok = VC::convert(value, a.m_dateTimeFormats); break;
		default :					return rejectRole(role, FUNC_ID);
	}
	if (!ok)
		return rejectValue(value, role, FUNC_ID);
	emit axisChanged(axisPosition, role);
	return true;
}


void AbstractCartesianChartModel::readXML(const TiXmlElement * element) {
	FUNCID(AbstractCartesianChartModel::readXML);
	readChildXML(element, "AxisProperties", [this, FUNC_ID](const TiXmlElement * axesElement) {
		// read into copies, so that a corrupt element leaves the axes untouched
		AxisProperties axes[NUM_AXES];
		for (int i = 0; i < NUM_AXES; ++i)
			axes[i] = m_axes[i];
		for (const TiXmlElement * e = axesElement->FirstChildElement("Axis"); e != nullptr;
			 e = e->NextSiblingElement("Axis"))
		{
			const char * indexText = e->Attribute("index");
			if (indexText == nullptr)
				throw ZEB::Exception("Expected 'index' attribute in Series.", FUNC_ID);
			const int index = XMLValueReader::parseInt(indexText, "attribute 'index' of element 'Axis'");
			if (index < 0 || index >= NUM_AXES)
				throw ZEB::Exception(ZEB::MessageFormat("Axis index %1 out of range 0..2.").arg(index), FUNC_ID);
			axes[index].readXML(e);
		}
		for (int i = 0; i < NUM_AXES; ++i)
			m_axes[i] = axes[i];
	}, "Error reading chart series.", FUNC_ID);
	AbstractChartModel::readXML(element);
}


void AbstractCartesianChartModel::writeXML(TiXmlElement * parent) const {
	TiXmlElement * e = new TiXmlElement("AxisProperties");
	parent->LinkEndChild(e);
	for (int i = 0; i < NUM_AXES; ++i)
		m_axes[i].writeXML(e, i, writeAll());
	AbstractChartModel::writeXML(parent);
}


void AbstractCartesianChartModel::announceColorMappedChange(int role, bool colorBarSwitched) {
	if (seriesCount() > 0)
		emit seriesViewChanged(0, 0, role);
	if (colorBarSwitched)
		emit axisChanged(RightAxis, AxisEnabled);
}

} // namespace SCI
