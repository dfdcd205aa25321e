#include "Sci_AbstractChartModel.h"

#include <exception>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "Sci_ColorMap.h"
#include "Sci_VariantConversion.h"

namespace SCI {

AbstractChartModel::AbstractChartModel(QObject * parent) :
	QObject(parent)
{
	// colour maps travel through the role interface of derived models
	ColorMap::registerMetaType();
}


QVariant AbstractChartModel::chartData(int role) const {
	const ChartProperties & p = m_chartProperties;
	switch (role) {
		case TitleText :
		case Title :						return p.m_titleText;
		case TitleFont :					return p.m_titleFont;
		case LegendVisible :				return p.m_legendVisible;
		case LegendPosition :				return p.m_legendPosition;
		case LegendAlignment :				return p.m_legendAlignment;
		case LegendHasFrame :				return p.m_legendHasFrame;
		case LegendIconStyle :				return p.m_legendIconStyle;
		case LegendIconWidth :				return p.m_legendIconWidth;
		case LegendBackgroundColor :		return p.m_legendBackgroundColor;
		case LegendBackgroundTransparency :	return p.m_legendBackgroundTransparency;
		case LegendOffset :					return p.m_legendOffset;
		case LegendMaxColumns :				return p.m_legendMaxColumns;
		case LegendSpacing :				return p.m_legendSpacing;
		case LegendFont :					return p.m_legendFont;
		case AxisY2TitleInverted :			return p.m_axisY2TitleInverted;
		case AxisScalesInside :				return p.m_axisScalesInside;
		case ConstructionLinesVisible :		return p.m_constructionLinesVisible;
		case ConstructionLinesPen :			return p.m_constructionLinesPen;
		case DataReduction :				return p.m_dataReduction;
		case ShowCurrentTimePosition :		return p.m_showCurrentTimePosition;
		case CurrentTimePosition :			return p.m_currentTimePosition;
		default :							return QVariant();
	}
}


bool AbstractChartModel::setChartData(const QVariant & value, int role) {
	FUNCID(AbstractChartModel::setChartData);
	typedef VariantConversion VC;
	ChartProperties & p = m_chartProperties;
	VC::AssignResult res = VC::Invalid;
	switch (role) {
		case TitleText :					res = VC::assign(p.m_titleText, value); break;
		case TitleFont :					res = VC::assign(p.m_titleFont, value); break;
		case Title :						return rejectReadOnlyRole(role, FUNC_ID);
		case LegendVisible :				res = VC::assign(p.m_legendVisible, value); break;
		case LegendPosition : {
			int pos = 0;
			// only the positions that have a keyword in the XML form
			if (VC::convert(value, pos) && pos >= ChartProperties::LegendLeft && pos <= ChartProperties::LegendInside)
				res = VC::assign(p.m_legendPosition, value);
		} break;
		case LegendAlignment :				res = VC::assign(p.m_legendAlignment, value); break;
		case LegendHasFrame :				res = VC::assign(p.m_legendHasFrame, value); break;
		case LegendIconStyle :				res = VC::assign(p.m_legendIconStyle, value); break;
		case LegendIconWidth :				res = VC::assign(p.m_legendIconWidth, value); break;
		case LegendBackgroundColor :		res = VC::assign(p.m_legendBackgroundColor, value); break;
		case LegendBackgroundTransparency :	res = VC::assign(p.m_legendBackgroundTransparency, value); break;
		case LegendOffset :					res = VC::assign(p.m_legendOffset, value); break;
		case LegendMaxColumns :				res = VC::assign(p.m_legendMaxColumns, value); break;
		case LegendSpacing :				res = VC::assign(p.m_legendSpacing, value); break;
		case LegendFont :					res = VC::assign(p.m_legendFont, value); break;
		case AxisY2TitleInverted :			res = VC::assign(p.m_axisY2TitleInverted, value); break;
		case AxisScalesInside :				res = VC::assign(p.m_axisScalesInside, value); break;
		case ConstructionLinesVisible :		res = VC::assign(p.m_constructionLinesVisible, value); break;
		case ConstructionLinesPen :			res = VC::assign(p.m_constructionLinesPen, value); break;
		case DataReduction :				res = VC::assign(p.m_dataReduction, value); break;
		case ShowCurrentTimePosition :		res = VC::assign(p.m_showCurrentTimePosition, value); break;
		case CurrentTimePosition :			res = VC::assign(p.m_currentTimePosition, value); break;
		default :							return rejectRole(role, FUNC_ID);
	}
	if (res == VC::Invalid)
		return rejectValue(value, role, FUNC_ID);
	if (res == VC::Changed)
		emit chartChanged(role);
	return true;
}


void AbstractChartModel::readXML(const TiXmlElement * element) {
	FUNCID(AbstractChartModel::readXML);
	beginResetModel();
	try {
		readPropertiesXML(element, "ChartProperties", m_chartProperties, FUNC_ID);
	}
	catch (ZEB::Exception &) {
		endResetModel();
		throw;
	}
	endResetModel();
}


void AbstractChartModel::writeXML(TiXmlElement * parent) const {
	m_chartProperties.writeXML(parent, m_writeAll);
}


void AbstractChartModel::beginInsertSeries(int start, int end) {
	Q_ASSERT(m_insertion.first == -1);
	m_insertion = qMakePair(start, end);
	emit seriesAboutToBeInserted(start, end);
}


void AbstractChartModel::endInsertSeries() {
	Q_ASSERT(m_insertion.first != -1);
	if (m_insertion.first == -1)
		return;
	const QPair<int, int> range = m_insertion;
	m_insertion = qMakePair(-1, -1);
	emit seriesInserted(range.first, range.second);
}


void AbstractChartModel::beginRemoveSeries(int start, int end) {
	Q_ASSERT(m_removal.first == -1);
	m_removal = qMakePair(start, end);
	emit seriesAboutToBeRemoved(start, end);
}


void AbstractChartModel::endRemoveSeries() {
	Q_ASSERT(m_removal.first != -1);
	if (m_removal.first == -1)
		return;
	const QPair<int, int> range = m_removal;
	m_removal = qMakePair(-1, -1);
	emit seriesRemoved(range.first, range.second);
}


void AbstractChartModel::beginChangeSeries(int first, int last) {
	m_changes.push_back(qMakePair(first, last));
	emit seriesAboutToBeChanged(first, last);
}


void AbstractChartModel::endChangeSeries() {
	Q_ASSERT(!m_changes.isEmpty());
	if (m_changes.isEmpty())
		return;
	const QPair<int, int> range = m_changes.takeLast();
	emit seriesChanged(range.first, range.second);
}


void AbstractChartModel::beginResetModel() {
	emit modelAboutToBeReset();
}


void AbstractChartModel::endResetModel() {
	emit modelReset();
}


void AbstractChartModel::beginChangeModel() {
	emit modelAboutToBeChanged();
}


void AbstractChartModel::endChangeModel() {
	emit modelChanged();
}


bool AbstractChartModel::rejectRole(int role, const char * functionId) {
	ZEB::reportError(ZEB::MessageFormat("Invalid data role #%1.").arg(role).str(), functionId);
	return false;
}


bool AbstractChartModel::rejectReadOnlyRole(int role, const char * functionId) {
	ZEB::reportError(ZEB::MessageFormat("Data role #%1 is read-only.").arg(role).str(), functionId);
	return false;
}


bool AbstractChartModel::rejectValue(const QVariant & value, int role, const char * functionId) {
	ZEB::reportError(ZEB::MessageFormat("Invalid value '%1' for data role #%2.")
					 .arg(value.toString().toStdString()).arg(role).str(), functionId);
	return false;
}


bool AbstractChartModel::rejectSeriesIndex(int seriesIndex, const char * functionId) {
	ZEB::reportError(ZEB::MessageFormat("Invalid series index #%1.").arg(seriesIndex).str(), functionId);
	return false;
}


void AbstractChartModel::readChildXML(const TiXmlElement * element, const char * name,
									  const std::function<void(const TiXmlElement *)> & read,
									  const char * errorText, const char * functionId)
{
	const TiXmlElement * e = element->FirstChildElement(name);
	if (e == nullptr)
		return;
	try {
		read(e);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, errorText, functionId);
	}
	catch (std::exception & ex) {
		throw ZEB::Exception(ex, errorText, functionId);
	}
}


void AbstractChartModel::clearCachedData() {
	FUNCID(AbstractChartModel::clearCachedData);
	if (!m_changes.isEmpty())
		ZEB::reportError("Unbalanced changes record.", FUNC_ID);
}

} // namespace SCI
