#include "Sci_AbstractBarSeriesModel.h"

#include <algorithm>

#include <tinyxml.h>

#include <ZEB_Exception.h>

#include "Sci_VariantConversion.h"

namespace SCI {

AbstractBarSeriesModel::AbstractBarSeriesModel(QObject * parent) :
	AbstractCartesianChartModel(parent)
{
}


QVariant AbstractBarSeriesModel::seriesData(int seriesIndex, int role) const {
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	if (seriesIndex < 0 || seriesIndex >= static_cast<int>(seriesCount()))
		return QVariant();
	const BarSymbolInfo b = barSymbolInfo(seriesIndex);
	switch (role) {
		case BarTitleText :	return b.m_titleText;
		case BarColor :		return b.m_color;
		case BarFramePen :	return b.m_framePen;
		default :			return QVariant();
	}
}


bool AbstractBarSeriesModel::setSeriesData(const QVariant & value, int seriesIndex, int role) {
	FUNCID(AbstractBarSeriesModel::setSeriesData);
	typedef VariantConversion VC;
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	if (seriesIndex < 0 || seriesIndex >= static_cast<int>(seriesCount()))
		return rejectSeriesIndex(seriesIndex, FUNC_ID);
	BarSymbolInfo b = barSymbolInfo(seriesIndex);
	bool ok = false;
	switch (role) {
		case BarTitleText :	ok = VC::convert(value, b.m_titleText); break;
		case BarColor :		ok = VC::convert(value, b.m_color); break;
		case BarFramePen :	ok = VC::convert(value, b.m_framePen); break;
		default :			return rejectRole(role, FUNC_ID);
	}
	if (!ok)
		return rejectValue(value, role, FUNC_ID);
	while (m_barSymbols.size() <= seriesIndex)
		m_barSymbols.append(BarSymbolInfo(m_barSymbols.size()));
	m_barSymbols[seriesIndex] = b;
	emit seriesViewChanged(seriesIndex, seriesIndex, role);
	return true;
}


void AbstractBarSeriesModel::readXML(const TiXmlElement * element) {
	FUNCID(AbstractBarSeriesModel::readXML);
	readChildXML(element, "BarSeriesProperties", [this](const TiXmlElement * seriesElement) {
		QVector<BarSymbolInfo> records;
		for (const TiXmlElement * e = seriesElement->FirstChildElement("Series"); e != nullptr;
			 e = e->NextSiblingElement("Series"))
		{
			BarSymbolInfo b(records.size());
			b.readXML(e);
			records.append(b);
		}
		if (m_barSymbols.size() < records.size())
			m_barSymbols.resize(records.size());
		std::copy(records.begin(), records.end(), m_barSymbols.begin());
	}, "Error reading chart series.", FUNC_ID);
	AbstractCartesianChartModel::readXML(element);
}


void AbstractBarSeriesModel::writeXML(TiXmlElement * parent) const {
	TiXmlElement * e = new TiXmlElement("BarSeriesProperties");
	parent->LinkEndChild(e);
	const int count = static_cast<int>(seriesCount());
	for (int i = 0; i < count; ++i)
		barSymbolInfo(i).writeXML(e, i, writeAll());
	AbstractCartesianChartModel::writeXML(parent);
}


void AbstractBarSeriesModel::endInsertSeries() {
	const QPair<int, int> range = pendingInsertion();
	// records beyond the stored ones are created on demand, only shift stored ones
	if (range.first >= 0 && range.second >= range.first && range.first <= m_barSymbols.size()) {
		for (int i = range.first; i <= range.second; ++i)
			m_barSymbols.insert(i, BarSymbolInfo(i));
	}
	AbstractCartesianChartModel::endInsertSeries();
}


void AbstractBarSeriesModel::endRemoveSeries() {
	const QPair<int, int> range = pendingRemoval();
	if (range.first >= 0 && range.second >= range.first && range.first < m_barSymbols.size()) {
		const int last = qMin(range.second, m_barSymbols.size() - 1);
		m_barSymbols.remove(range.first, last - range.first + 1);
	}
	AbstractCartesianChartModel::endRemoveSeries();
}


BarSymbolInfo AbstractBarSeriesModel::barSymbolInfo(int seriesIndex) const {
	if (seriesIndex >= 0 && seriesIndex < m_barSymbols.size())
		return m_barSymbols[seriesIndex];
	return BarSymbolInfo(seriesIndex);
}

} // namespace SCI
