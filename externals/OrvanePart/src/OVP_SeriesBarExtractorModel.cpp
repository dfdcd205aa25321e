#include "OVP_SeriesBarExtractorModel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

#include <tinyxml.h>

#include <DATAIO_DataIO.h>

#include <EM_Extractor2DOutputBase.h>

#include <Sci_XMLValueReader.h>
#include <Sci_XMLValueWriter.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_UnitList.h>

#include "OVP_ExtractorAxisData.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

namespace {

/*! True when two units are defined and can be converted into each other. */
bool convertible(const ZEB::Unit & a, const ZEB::Unit & b) {
	return a.id() != 0 && b.id() != 0 && a.base_id() == b.base_id();
}

/*! True when the first container of an entry has a start year. */
bool hasStartYear(const Mapper::ExtractorEntry & entry) {
	return entry.m_dataIOs.front()->startYear() != DATAIO::DataIO::UNSET_START_YEAR;
}

} // namespace


SeriesBarExtractorModel::SeriesBarExtractorModel(Mapper * mapper) :
	m_mapper(mapper)
{
}


unsigned int SeriesBarExtractorModel::seriesCount() const {
	return static_cast<unsigned int>(m_mapper->extractors2D().size());
}


unsigned int SeriesBarExtractorModel::barCount() const {
	updateBars();
	return static_cast<unsigned int>(m_keys.size());
}


double SeriesBarExtractorModel::barValue(int seriesIndex, unsigned int barIndex) const {
	updateBars();
	if (seriesIndex < 0 || static_cast<std::size_t>(seriesIndex) >= m_values.size()
		|| barIndex >= m_values[static_cast<std::size_t>(seriesIndex)].size())
		return std::numeric_limits<double>::quiet_NaN();
	return m_values[static_cast<std::size_t>(seriesIndex)][barIndex];
}


QString SeriesBarExtractorModel::barLabel(unsigned int barIndex) const {
	updateBars();
	if (barIndex >= m_keys.size())
		return QString();
	return BarAggregation::label(m_keys[barIndex], m_settings.m_period, hasCalendar(), m_partial[barIndex]);
}


ZEB::Unit SeriesBarExtractorModel::yUnit() const {
	return ZEB::Unit(AbstractCartesianChartModel::axisData(LeftAxis, AxisUnit).toUInt());
}


QVariant SeriesBarExtractorModel::seriesData(int seriesIndex, int role) const {
	const Mapper::ExtractorEntry * e = entry(seriesIndex);
	if (e == nullptr)
		return QVariant();
	if (role == BarTitleText)
		return Mapper::displayTitle(barSymbolInfo(seriesIndex).m_titleText, *e);
	return SCI::AbstractBarSeriesModel::seriesData(seriesIndex, role);
}


bool SeriesBarExtractorModel::setSeriesData(const QVariant & value, int seriesIndex, int role) {
	if (entry(seriesIndex) == nullptr)
		return false;
	ProjectHandler::instance().setModified(ProjectHandler::SeriesModified, m_mapper);
	if (role == BarTitleText)
		m_mapper->setSeriesTitle(static_cast<unsigned int>(seriesIndex), value.toString());
	return SCI::AbstractBarSeriesModel::setSeriesData(value, seriesIndex, role);
}


QVariant SeriesBarExtractorModel::axisData(int axisPosition, int role) const {
	switch (role) {
		case AxisEnabled :
			return (axisPosition == BottomAxis || axisPosition == LeftAxis) && seriesCount() > 0;
		case AxisTitle : {
			const QString title = AbstractCartesianChartModel::axisData(axisPosition, AxisTitle).toString();
			std::string quantity;
			if (axisPosition == BottomAxis)
				quantity = BarAggregation::periodText(m_settings.m_period).toStdString();
			else if (axisPosition == LeftAxis && m_settings.countsDays())
				quantity = tr("Days with daily mean above %1 %2").arg(m_settings.m_threshold)
						   .arg(QString::fromStdString(thresholdUnit().name())).toStdString();
			else if (axisPosition == LeftAxis && seriesCount() > 0)
				quantity = tr("%1, %2 per %3")
					.arg(QString::fromStdString(entry(0)->m_extractor->information(EM::ExtractorBase::IT_Name,
																					 EM::ExtractorBase::ODT_Y)))
					.arg(BarAggregation::statisticText(m_settings.m_statistic))
					.arg(BarAggregation::periodText(m_settings.m_period)).toStdString();
			return ExtractorAxisData::replaceQuantity(title, quantity);
		}
		default :
			return AbstractCartesianChartModel::axisData(axisPosition, role);
	}
}


bool SeriesBarExtractorModel::setAxisData(const QVariant & value, int axisPosition, int role) {
	return ExtractorAxisData::setAxisData(*m_mapper, *this, value, axisPosition, role);
}


void SeriesBarExtractorModel::readXML(const TiXmlElement * element) {
	FUNCID(SeriesBarExtractorModel::readXML);
	readChildXML(element, "BarAggregation", [this](const TiXmlElement * e) {
		BarAggregation::Settings settings = m_settings;
		const SCI::XMLValueReader r(e);
		QString text;
		if (r.readString("Period", text))
			settings.m_period = BarAggregation::periodFromKeyword(text.toStdString());
		if (r.readString("Statistic", text))
			settings.m_statistic = BarAggregation::statisticFromKeyword(text.toStdString());
		r.readDouble("Threshold", settings.m_threshold);
		m_settings = settings;
	}, "Error reading chart settings.", FUNC_ID);
	m_barsValid = false;
	SCI::AbstractBarSeriesModel::readXML(element);
}


void SeriesBarExtractorModel::writeXML(TiXmlElement * parent) const {
	typedef BarAggregation BA;
	const BA::Settings def;
	TiXmlElement * e = new TiXmlElement("BarAggregation");
	parent->LinkEndChild(e);
	SCI::XMLValueWriter w(e, writeAll());
	w.writeString("Period", BA::periodKeyword(m_settings.m_period), BA::periodKeyword(def.m_period));
	w.writeString("Statistic", BA::statisticKeyword(m_settings.m_statistic), BA::statisticKeyword(def.m_statistic));
	w.writeDouble("Threshold", m_settings.m_threshold, def.m_threshold);
	SCI::AbstractBarSeriesModel::writeXML(parent);
}


void SeriesBarExtractorModel::setAggregation(const BarAggregation::Settings & settings) {
	if (settings == m_settings)
		return;
	const bool unitsChange = settings.countsDays() != m_settings.countsDays();
	beginChangeModel();
	m_settings = settings;
	m_barsValid = false;
	if (unitsChange) {
		const ZEB::Unit unit = settings.countsDays() ? ZEB::Unit("d") : thresholdUnit();
		AbstractCartesianChartModel::setAxisData(unit.id(), LeftAxis, AxisUnit);
		m_mapper->applyAxisUnits();
	}
	emit axisChanged(BottomAxis, AxisTitle);
	emit axisChanged(LeftAxis, AxisTitle);
	if (seriesCount() > 0) {
		beginChangeSeries(0, static_cast<int>(seriesCount()) - 1);
		endChangeSeries();
	}
	endChangeModel();
}


ZEB::Unit SeriesBarExtractorModel::dataUnit(const Mapper::ExtractorEntry & entry) const {
	return m_settings.countsDays() ? ZEB::Unit("d") : entry.m_extractor->axisUnitFromDataIO(1);
}


ZEB::Unit SeriesBarExtractorModel::targetValueUnit() const {
	return m_settings.countsDays() ? thresholdUnit() : yUnit();
}


ZEB::Unit SeriesBarExtractorModel::thresholdUnit() const {
	return seriesCount() == 0 ? ZEB::Unit() : entry(0)->m_extractor->axisUnitFromDataIO(1);
}


void SeriesBarExtractorModel::checkTimeSeries(const Mapper::ExtractorEntry & entry) {
	FUNCID(SeriesBarExtractorModel::checkTimeSeries);
	if (entry.m_extractor->outputKind() != EM::ExtractorBase::OK_2D)
		throw ZEB::Exception("A bar chart shows time series; a colour grid or vector field data set cannot be shown as bars.",
							 FUNC_ID);
	const ZEB::Unit x = entry.m_extractor->axisUnitFromDataIO(0);
	if (!convertible(x, ZEB::Unit("s")))
		throw ZEB::Exception(ZEB::MessageFormat("A bar chart shows time series, but the data set runs over [%1].")
							 .arg(x.name()), FUNC_ID);
}


void SeriesBarExtractorModel::checkPeriods(const Mapper::ExtractorEntry & e) const {
	FUNCID(SeriesBarExtractorModel::checkPeriods);
	checkTimeSeries(e);
	if (seriesCount() > 0 && hasStartYear(e) != hasCalendar())
		throw ZEB::Exception(hasCalendar()
			? "The periods do not fit: the chart has calendar months and years, the data set has no start year."
			: "The periods do not fit: the chart counts months and years from its start, the data set has a start year.",
			FUNC_ID);
}


void SeriesBarExtractorModel::checkSeries(const Mapper::ExtractorEntry & e) const {
	FUNCID(SeriesBarExtractorModel::checkSeries);
	checkPeriods(e);
	if (seriesCount() == 0)
		return;
	const ZEB::Unit unit = e.m_extractor->axisUnitFromDataIO(1);
	const ZEB::Unit chartUnit = m_settings.countsDays() ? thresholdUnit() : yUnit();
	if (!convertible(unit, chartUnit))
		throw ZEB::Exception(ZEB::MessageFormat("Unit [%1] of the data set does not fit the unit [%2] of the bars.")
							 .arg(unit.name()).arg(chartUnit.name()), FUNC_ID);
}


void SeriesBarExtractorModel::initSeries(int seriesIndex) {
	const Mapper::ExtractorEntry * e = entry(seriesIndex);
	if (e != nullptr)
		SCI::AbstractBarSeriesModel::setSeriesData(e->m_title, seriesIndex, BarTitleText);
}


void SeriesBarExtractorModel::endInsertSeries() {
	m_barsValid = false;
	SCI::AbstractBarSeriesModel::endInsertSeries();
}


void SeriesBarExtractorModel::endRemoveSeries() {
	m_barsValid = false;
	SCI::AbstractBarSeriesModel::endRemoveSeries();
}


void SeriesBarExtractorModel::endChangeSeries() {
	const std::vector<std::int64_t> keys = m_keys;
	m_barsValid = false;
	SCI::AbstractBarSeriesModel::endChangeSeries();
	updateBars();
	// bars of the other series move when the periods change
	if (m_keys != keys && seriesCount() > 0)
		emit seriesChanged(0, static_cast<int>(seriesCount()) - 1);
}


void SeriesBarExtractorModel::endResetModel() {
	m_barsValid = false;
	SCI::AbstractBarSeriesModel::endResetModel();
}


const Mapper::ExtractorEntry * SeriesBarExtractorModel::entry(int seriesIndex) const {
	Q_ASSERT(seriesIndex >= 0 && static_cast<unsigned int>(seriesIndex) < m_mapper->extractors2D().size());
	if (seriesIndex < 0 || static_cast<unsigned int>(seriesIndex) >= m_mapper->extractors2D().size())
		return nullptr;
	return &m_mapper->extractors2D()[static_cast<std::size_t>(seriesIndex)];
}


bool SeriesBarExtractorModel::hasCalendar() const {
	return seriesCount() > 0 && hasStartYear(*entry(0));
}


void SeriesBarExtractorModel::updateBars() const {
	FUNCID(SeriesBarExtractorModel::updateBars);
	// the extraction announces the changed series, which computes the bars
	m_mapper->extractPendingData();
	if (m_barsValid)
		return;
	m_barsValid = true;
	// counted days are shown in the unit of the axis
	double dayFactor = 1;
	if (m_settings.countsDays() && yUnit().id() != 0)
		ZEB::UnitList::instance().convert(ZEB::Unit("d"), yUnit(), dayFactor);

	std::vector<std::vector<BarAggregation::Bar> > bars;
	std::map<std::int64_t, bool> partial;
	for (unsigned int i = 0; i < seriesCount(); ++i) {
		const Mapper::ExtractorEntry & e = *entry(static_cast<int>(i));
		const EM::Extractor2DOutputBase & output = e.output2D();
		bars.emplace_back();
		try {
			bars.back() = BarAggregation::aggregate(output.x().m_data, output.x().m_unit, output.y().m_data,
													e.m_dataIOs.front()->startYear(), m_settings);
		}
		catch (ZEB::Exception & ex) {
			ex.reportAllAsErrors();
			ZEB::reportError(ZEB::MessageFormat("Series #%1 is shown without bars.").arg(i).str(), FUNC_ID);
		}
		for (const BarAggregation::Bar & b : bars.back()) {
			bool & p = partial[b.m_key];
			p = p || b.m_partial;
		}
	}
	m_keys.clear();
	m_partial.clear();
	for (const std::pair<const std::int64_t, bool> & p : partial) {
		m_keys.push_back(p.first);
		m_partial.push_back(p.second);
	}
	m_values.assign(bars.size(), std::vector<double>(m_keys.size(), std::numeric_limits<double>::quiet_NaN()));
	for (std::size_t s = 0; s < bars.size(); ++s) {
		for (const BarAggregation::Bar & b : bars[s]) {
			const std::size_t index = static_cast<std::size_t>(std::lower_bound(m_keys.begin(), m_keys.end(), b.m_key)
															   - m_keys.begin());
			m_values[s][index] = b.m_value*dayFactor;
		}
	}
}

} // namespace OVP
