#ifndef OVP_SeriesBarExtractorModelH
#define OVP_SeriesBarExtractorModelH

#include <cstdint>
#include <vector>

#include <Sci_AbstractBarSeriesModel.h>

#include "OVP_BarAggregation.h"
#include "OVP_Mapper.h"

namespace OVP {

/*! The chart model of a mapper with a bar chart: series i is the mapper's 2D extractor i, reduced
	per period by the chart's aggregation settings (BarAggregation). The bar positions are the
	periods of all series together, in order; a series without value in a period has no bar
	there. The unit of the bars is the unit of the left axis: the unit of the values (the
	extractors convert to it) or, for counted days, "d" (or another unit of time the user chose);
	the threshold of counted days is in the unit of the first series' data file, to which all
	series are then converted.

	The aggregation settings are stored in the chart model's XML (element BarAggregation with
	Period, Statistic and Threshold), the bar colours and titles as the bar model writes them.
*/
class SeriesBarExtractorModel : public SCI::AbstractBarSeriesModel {
	Q_OBJECT
public:
	/*! The model of the mapper that owns it. */
	explicit SeriesBarExtractorModel(Mapper * mapper);

	/*! Number of 2D extractors of the mapper. */
	unsigned int seriesCount() const override;
	unsigned int barCount() const override;
	/*! The statistic of a series in a period, in the unit of the left axis; NaN for no bar. */
	double barValue(int seriesIndex, unsigned int barIndex) const override;
	/*! "Jan 2021", "2021", "Month 1", ...; " (partial)" when a series covers only part of it. */
	QString barLabel(unsigned int barIndex) const override;
	/*! The unit of the left axis. */
	ZEB::Unit yUnit() const override;

	/*! As the bar model, except that the title is shown with "$filename" replaced. */
	QVariant seriesData(int seriesIndex, int role) const override;
	/*! Marks the project modified and keeps a new title in the mapper, then stores it. */
	bool setSeriesData(const QVariant & value, int seriesIndex, int role) override;

	/*! The x and left y axes are in use while there are series, the right one never; "$quantity"
		in a title is the period (x axis) or what the bars show (y axis).
	*/
	QVariant axisData(int axisPosition, int role) const override;
	/*! Stores an axis property; a new unit of the left axis is checked against the data and
		converts the bars.
	*/
	bool setAxisData(const QVariant & value, int axisPosition, int role) override;

	/*! Reads the aggregation settings (BarAggregation), then the bar model's XML. */
	void readXML(const TiXmlElement * element) override;
	/*! Writes BarAggregation (values at their defaults only with write-all), then the bar
		model's XML.
	*/
	void writeXML(TiXmlElement * parent) const override;

	const BarAggregation::Settings & aggregation() const { return m_settings; }
	/*! New aggregation settings: the bars are computed anew; when counted days take the place of
		values or the other way round, the left axis takes the unit of the new bars and the
		extractors are converted to the new target unit.
	*/
	void setAggregation(const BarAggregation::Settings & settings);

	/*! The unit of the bars of an entry as its data give them: "d" for counted days, else the
		unit of the values in the data file.
	*/
	ZEB::Unit dataUnit(const Mapper::ExtractorEntry & entry) const;
	/*! The unit the extractors convert their values to: the threshold's unit for counted days,
		else the unit of the left axis.
	*/
	ZEB::Unit targetValueUnit() const;
	/*! The unit of the threshold: the unit of the values of the first series' data file. */
	ZEB::Unit thresholdUnit() const;

	/*! Throws ZEB::Exception when an extractor entry gives no time series (its x axis is no
		time); the first series of a bar chart must pass this.
	*/
	static void checkTimeSeries(const Mapper::ExtractorEntry & entry);
	/*! Throws ZEB::Exception when an entry cannot join the series of this chart: no time series
		or periods that do not fit (with and without calendar). A session file is checked so,
		before its chart properties (and units) are read.
	*/
	void checkPeriods(const Mapper::ExtractorEntry & entry) const;
	/*! Throws ZEB::Exception as checkPeriods() does, and when the values of the entry do not
		convert to those of the chart.
	*/
	void checkSeries(const Mapper::ExtractorEntry & entry) const;

	/*! Gives a new series its stored title from the mapper, without marking the project
		modified (the mapper's creation is the modification).
	*/
	void initSeries(int seriesIndex);

	void endInsertSeries() override;
	void endRemoveSeries() override;
	/*! Announces the changed series, and all series when the periods changed. */
	void endChangeSeries() override;
	void endResetModel() override;

private:
	/*! The mapper's entry of a series, null for a bad index (asserted). */
	const Mapper::ExtractorEntry * entry(int seriesIndex) const;
	/*! True when the series have a calendar (a start year). */
	bool hasCalendar() const;
	/*! Computes the bars of all series unless they are up to date; extracts the mapper's data
		first when it is still pending.
	*/
	void updateBars() const;

	Mapper *						m_mapper;
	BarAggregation::Settings		m_settings;

	/*! Cache of the bars: false when they must be computed anew. */
	mutable bool							m_barsValid = false;
	/*! Period keys of the bar positions. */
	mutable std::vector<std::int64_t>		m_keys;
	/*! Whether a bar position is partial in one of the series. */
	mutable std::vector<bool>				m_partial;
	/*! Values per series and bar position, in the unit of the left axis. */
	mutable std::vector<std::vector<double> >	m_values;
};

} // namespace OVP

#endif // OVP_SeriesBarExtractorModelH
