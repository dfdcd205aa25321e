#include "Sci_AbstractLineSeriesModel.h"

#include <algorithm>

#include <tinyxml.h>

#include <ZEB_Exception.h>

#include "Sci_VariantConversion.h"

namespace SCI {

AbstractLineSeriesModel::AbstractLineSeriesModel(QObject * parent) :
	AbstractCartesianChartModel(parent)
{
}


QVariant AbstractLineSeriesModel::seriesData(int seriesIndex, int role) const {
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	if (seriesIndex < 0 || seriesIndex >= static_cast<int>(seriesCount()))
		return QVariant();
	const LineProperties p = lineProperties(seriesIndex);
	switch (role) {
		case SeriesTitleText :
		case SeriesTitle :			return p.m_titleText;
		case SeriesPen :			return p.m_pen;
		case SeriesPenWidth :		return p.m_pen.width();
		case SeriesPenColor :		return p.m_pen.color();
		case SeriesLeftAxis :		return p.m_leftAxis;
		case SeriesLineStyle :		return p.m_lineStyle;
		case SeriesMarkerStyle :	return p.m_markerStyle;
		case SeriesInverted :		return p.m_inverted;
		case SeriesFitted :			return p.m_fitted;
		case SeriesInLegend :		return p.m_inLegend;
		case SeriesMarkerSize :		return p.m_markerSize;
		case SeriesMarkerFilled :	return p.m_markerFilled;
		case SeriesMarkerColor :	return p.m_markerColor;
		default :					return QVariant();
	}
}


bool AbstractLineSeriesModel::setSeriesData(const QVariant & value, int seriesIndex, int role) {
	FUNCID(AbstractLineSeriesModel::setSeriesData);
	typedef VariantConversion VC;
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	if (seriesIndex < 0 || seriesIndex >= static_cast<int>(seriesCount()))
		return rejectSeriesIndex(seriesIndex, FUNC_ID);
	if (role == SeriesTitle)
		return rejectReadOnlyRole(role, FUNC_ID);
	if (role < SeriesTitleText || role >= NUM_SDR)
		return rejectRole(role, FUNC_ID);
	// convert into a copy; the record is only created/changed for valid values
	LineProperties p = lineProperties(seriesIndex);
	bool ok = false;
	switch (role) {
		case SeriesTitleText :		ok = VC::convert(value, p.m_titleText); break;
		case SeriesPen :			ok = VC::convert(value, p.m_pen); break;
		case SeriesPenWidth : {
			int w = 0;
			ok = VC::convert(value, w) && w >= 0;
			if (ok)
				p.m_pen.setWidth(w);
		} break;
		case SeriesPenColor : {
			QColor c;
			ok = VC::convert(value, c);
			if (ok)
				p.m_pen.setColor(c);
		} break;
		case SeriesLeftAxis :		ok = VC::convert(value, p.m_leftAxis); break;
		case SeriesLineStyle :		ok = VC::convert(value, p.m_lineStyle); break;
		case SeriesMarkerStyle :	ok = VC::convert(value, p.m_markerStyle); break;
		case SeriesInverted :		ok = VC::convert(value, p.m_inverted); break;
		case SeriesFitted :			ok = VC::convert(value, p.m_fitted); break;
		case SeriesInLegend :		ok = VC::convert(value, p.m_inLegend); break;
		case SeriesMarkerSize :		ok = VC::convert(value, p.m_markerSize); break;
		case SeriesMarkerFilled :	ok = VC::convert(value, p.m_markerFilled); break;
		case SeriesMarkerColor :	ok = VC::convert(value, p.m_markerColor); break;
		default : break;
	}
	if (!ok)
		return rejectValue(value, role, FUNC_ID);
	record(seriesIndex) = p;
	emit seriesViewChanged(seriesIndex, seriesIndex, role);
	return true;
}


void AbstractLineSeriesModel::readXML(const TiXmlElement * element) {
	FUNCID(AbstractLineSeriesModel::readXML);
	readChildXML(element, "SeriesProperties", [this](const TiXmlElement * seriesElement) {
		QVector<LineProperties> records;
		for (const TiXmlElement * e = seriesElement->FirstChildElement("Series"); e != nullptr;
			 e = e->NextSiblingElement("Series"))
		{
			LineProperties p;
			p.readXML(e);
			records.append(p);
		}
		if (m_lineProperties.size() < records.size())
			m_lineProperties.resize(records.size());
		std::copy(records.begin(), records.end(), m_lineProperties.begin());
	}, "Error reading chart series.", FUNC_ID);
	AbstractCartesianChartModel::readXML(element);
}


void AbstractLineSeriesModel::writeXML(TiXmlElement * parent) const {
	TiXmlElement * e = new TiXmlElement("SeriesProperties");
	parent->LinkEndChild(e);
	const int count = static_cast<int>(seriesCount());
	for (int i = 0; i < count; ++i)
		lineProperties(i).writeXML(e, writeAll());
	AbstractCartesianChartModel::writeXML(parent);
}


void AbstractLineSeriesModel::endInsertSeries() {
	const QPair<int, int> range = pendingInsertion();
	// records beyond the stored ones are created on demand, only shift stored ones
	if (range.first >= 0 && range.second >= range.first && range.first <= m_lineProperties.size())
		m_lineProperties.insert(range.first, range.second - range.first + 1, LineProperties());
	AbstractCartesianChartModel::endInsertSeries();
}


void AbstractLineSeriesModel::endRemoveSeries() {
	const QPair<int, int> range = pendingRemoval();
	if (range.first >= 0 && range.second >= range.first && range.first < m_lineProperties.size()) {
		const int last = qMin(range.second, m_lineProperties.size() - 1);
		m_lineProperties.remove(range.first, last - range.first + 1);
	}
	AbstractCartesianChartModel::endRemoveSeries();
}


LineProperties AbstractLineSeriesModel::lineProperties(int seriesIndex) const {
	if (seriesIndex >= 0 && seriesIndex < m_lineProperties.size())
		return m_lineProperties[seriesIndex];
	return LineProperties();
}


LineProperties & AbstractLineSeriesModel::record(int seriesIndex) {
	if (seriesIndex >= m_lineProperties.size())
		m_lineProperties.resize(seriesIndex + 1);
	return m_lineProperties[seriesIndex];
}

} // namespace SCI
