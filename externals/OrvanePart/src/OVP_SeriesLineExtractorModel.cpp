#include "OVP_SeriesLineExtractorModel.h"

#include <algorithm>

#include <EM_Extractor2DFromTwo2D.h>
#include <EM_ExtractorFactory.h>
#include <EM_FieldCut.h>
#include <EM_ModelTwo2DBase.h>

#include <ZEB_Exception.h>

#include "OVP_ExtractorAxisData.h"
#include "OVP_Mapper.h"
#include "OVP_ProjectHandler.h"

namespace OVP {

SeriesLineExtractorModel::SeriesLineExtractorModel(Mapper * mapper) :
	m_mapper(mapper)
{
}


unsigned int SeriesLineExtractorModel::seriesCount() const {
	return static_cast<unsigned int>(m_mapper->extractors2D().size());
}


unsigned int SeriesLineExtractorModel::size(int seriesIndex) const {
	const EM::Extractor2DOutputBase * o = output(seriesIndex);
	return o == nullptr ? 0 : static_cast<unsigned int>(std::min(o->x().size(), o->y().size()));
}


const double * SeriesLineExtractorModel::xValues(int seriesIndex) const {
	const EM::Extractor2DOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->x().m_data.data();
}


const double * SeriesLineExtractorModel::yValues(int seriesIndex) const {
	const EM::Extractor2DOutputBase * o = output(seriesIndex);
	return o == nullptr ? nullptr : o->y().m_data.data();
}


ZEB::Unit SeriesLineExtractorModel::xUnit(int seriesIndex) const {
	const EM::Extractor2DOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->x().m_unit;
}


ZEB::Unit SeriesLineExtractorModel::yUnit(int seriesIndex) const {
	const EM::Extractor2DOutputBase * o = output(seriesIndex);
	return o == nullptr ? ZEB::Unit() : o->y().m_unit;
}


QVariant SeriesLineExtractorModel::seriesData(int seriesIndex, int role) const {
	const Mapper::ExtractorEntry * e = entry(seriesIndex);
	if (e == nullptr)
		return QVariant();
	if (role == SeriesTitleText || role == SeriesTitle)
		return Mapper::displayTitle(lineProperties(seriesIndex).m_titleText, *e);
	return SCI::AbstractLineSeriesModel::seriesData(seriesIndex, role);
}


bool SeriesLineExtractorModel::setSeriesData(const QVariant & value, int seriesIndex, int role) {
	if (entry(seriesIndex) == nullptr)
		return false;
	ProjectHandler::instance().setModified(ProjectHandler::SeriesModified, m_mapper);
	if (role == SeriesTitleText)
		m_mapper->setSeriesTitle(static_cast<unsigned int>(seriesIndex), value.toString());
	const bool leftAxisBefore = lineProperties(seriesIndex).m_leftAxis;
	const bool stored = SCI::AbstractLineSeriesModel::setSeriesData(value, seriesIndex, role);
	if (stored && role == SeriesLeftAxis && lineProperties(seriesIndex).m_leftAxis != leftAxisBefore)
		m_mapper->applyAxisUnits();
	return stored;
}


QVariant SeriesLineExtractorModel::axisData(int axisPosition, int role) const {
	const std::vector<Mapper::ExtractorEntry> & entries = m_mapper->extractors2D();
	switch (role) {
		case AxisEnabled : {
			if (axisPosition == BottomAxis || axisPosition == LeftAxis)
				return seriesCount() > 0;
			if (axisPosition == RightAxis) {
				for (unsigned int i = 0; i < seriesCount(); ++i)
					if (!lineProperties(static_cast<int>(i)).m_leftAxis)
						return true;
			}
			return false;
		}
		case AxisTitle : {
			const QString title = AbstractCartesianChartModel::axisData(axisPosition, AxisTitle).toString();
			if (!title.contains("$quantity"))
				return title;
			std::string quantity;
			for (unsigned int i = 0; i < entries.size() && quantity.empty(); ++i) {
				const bool left = lineProperties(static_cast<int>(i)).m_leftAxis;
				const EM::ExtractorBase & extractor = *entries[i].m_extractor;
				if (axisPosition == BottomAxis) {
					quantity = extractor.information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_X);
					break;
				}
				if ((axisPosition == LeftAxis && left) || (axisPosition == RightAxis && !left))
					quantity = extractor.information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_Y);
			}
			return ExtractorAxisData::replaceQuantity(title, quantity);
		}
		case AxisDateTimeZero : {
			const QDateTime stored = AbstractCartesianChartModel::axisData(axisPosition, role).toDateTime();
			if (entries.empty())
				return stored;
			return ExtractorAxisData::dateTimeZero(stored, entries.front().m_dataIOs.front().get());
		}
		default :
			return AbstractCartesianChartModel::axisData(axisPosition, role);
	}
}


bool SeriesLineExtractorModel::setAxisData(const QVariant & value, int axisPosition, int role) {
	return ExtractorAxisData::setAxisData(*m_mapper, *this, value, axisPosition, role);
}


void SeriesLineExtractorModel::setModelParameter(int seriesIndex, const std::string & parameterText) {
	FUNCID(SeriesLineExtractorModel::setModelParameter);
	const Mapper::ExtractorEntry * e = entry(seriesIndex);
	if (e == nullptr)
		return;
	EM::Extractor2DFromTwo2D * extractor = dynamic_cast<EM::Extractor2DFromTwo2D *>(e->m_extractor.get());
	if (extractor == nullptr)
		return;
	try {
		extractor->model().setFromParameter(parameterText);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Invalid parameter or model.", FUNC_ID);
	}
	m_mapper->update2DExtractor(static_cast<unsigned int>(seriesIndex));
	ProjectHandler::instance().setModified(ProjectHandler::SeriesModified, m_mapper);
}


int SeriesLineExtractorModel::cutType(int seriesIndex) const {
	FUNCID(SeriesLineExtractorModel::cutType);
	const Mapper::ExtractorEntry * e = entry(seriesIndex);
	if (e == nullptr)
		return EM::CT_NoCut;
	const unsigned int spaceCount = EM::FieldCut::spaceDimensionCount(e->m_dataFormat);
	// a time series has only one dimension, nothing to choose
	if (spaceCount == 0)
		return EM::CT_NoCut;
	// a series keeps one dimension: every space dimension but one, or time and all but one
	const EM::CutType cut = e->m_extractor->cutType();
	bool fits = cut < EM::NUM_CT && EM::CutTypes::cutCount(cut) == spaceCount;
	for (unsigned int d = spaceCount; fits && d < EM::CD_Time; ++d)
		fits = !EM::CutTypes::isCut(cut, d);
	if (!fits)
		throw ZEB::Exception("Extractor badly configured.", FUNC_ID);
	const std::vector<EM::CutType> supported = EM::ExtractorFactory::validCutTypes(e->m_dataFormat,
																							   e->m_dataIOs.front()->type());
	if (std::find(supported.begin(), supported.end(), cut) == supported.end())
		throw ZEB::Exception("Functionality not implemented, yet.", FUNC_ID);
	return cut;
}


QColor SeriesLineExtractorModel::defaultSeriesColor(int seriesIndex) {
	// distinct hues that stay apart in print and for the common forms of colour blindness
	static const char * const PALETTE[] = {
		"#1f5fa6", "#c23b22", "#2e8b57", "#e08a00", "#6a3d9a", "#138d90", "#8c564b", "#5f6b7a"
	};
	const int n = static_cast<int>(sizeof(PALETTE)/sizeof(PALETTE[0]));
	return QColor(PALETTE[((seriesIndex % n) + n) % n]);
}


void SeriesLineExtractorModel::initSeries(int seriesIndex, bool leftAxis) {
	const Mapper::ExtractorEntry * e = entry(seriesIndex);
	if (e == nullptr)
		return;
	SCI::AbstractLineSeriesModel::setSeriesData(e->m_title, seriesIndex, SeriesTitleText);
	SCI::AbstractLineSeriesModel::setSeriesData(leftAxis, seriesIndex, SeriesLeftAxis);
	SCI::AbstractLineSeriesModel::setSeriesData(defaultSeriesColor(seriesIndex), seriesIndex, SeriesPenColor);
	SCI::AbstractLineSeriesModel::setSeriesData(2, seriesIndex, SeriesPenWidth);
}


const Mapper::ExtractorEntry * SeriesLineExtractorModel::entry(int seriesIndex) const {
	Q_ASSERT(seriesIndex >= 0 && seriesIndex < static_cast<int>(seriesCount()));
	Q_ASSERT(static_cast<unsigned int>(seriesIndex) < m_mapper->extractors2D().size());
	if (seriesIndex < 0 || static_cast<unsigned int>(seriesIndex) >= m_mapper->extractors2D().size())
		return nullptr;
	return &m_mapper->extractors2D()[static_cast<std::size_t>(seriesIndex)];
}


const EM::Extractor2DOutputBase * SeriesLineExtractorModel::output(int seriesIndex) const {
	m_mapper->extractPendingData();
	const Mapper::ExtractorEntry * e = entry(seriesIndex);
	return e == nullptr ? nullptr : &e->output2D();
}

} // namespace OVP
