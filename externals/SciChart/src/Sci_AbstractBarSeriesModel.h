#ifndef Sci_AbstractBarSeriesModelH
#define Sci_AbstractBarSeriesModelH

#include <QString>
#include <QVector>

#include <ZEB_Unit.h>

#include "Sci_AbstractCartesianChartModel.h"
#include "Sci_BarSymbolInfo.h"

namespace SCI {

/*! Chart model of a bar chart. Each series is one bar symbol with a value per bar position;
	bars of all series at one position are drawn side by side and labelled with the position's
	label. The model keeps one bar symbol record per series; the derived model supplies the
	bar values, labels and the one unit of the y axis. In XML the records are the Series
	elements of BarSeriesProperties.
*/
class AbstractBarSeriesModel : public AbstractCartesianChartModel {
	Q_OBJECT
public:
	/*! Roles of the bar symbol properties. */
	enum SeriesDataRole {
		BarTitleText	= 1,	///< QString, legend text, empty
		BarColor		= 2,	///< QColor, fill colour, from a palette by series index
		BarFramePen		= 3,	///< QPen, black, solid, width 1
		NUM_BSR
	};

	explicit AbstractBarSeriesModel(QObject * parent = nullptr);

	/*! Value of a bar symbol property; invalid QVariant for unknown roles. */
	QVariant seriesData(int seriesIndex, int role) const override;
	/*! Stores a bar symbol property and emits seriesViewChanged(seriesIndex, seriesIndex, role).
		Returns false (and reports) for unknown roles and bad values. */
	bool setSeriesData(const QVariant & value, int seriesIndex, int role) override;

	/*! Reads the bar symbol records from BarSeriesProperties (one Series element per series, in
		order), then the axes and chart properties. Errors: "Error reading chart series.".
	*/
	void readXML(const TiXmlElement * element) override;
	/*! Writes BarSeriesProperties with one Series element per series, then the axes and chart
		properties.
	*/
	void writeXML(TiXmlElement * parent) const override;

	/*! Keeps the bar symbol records in step with inserted series. */
	void endInsertSeries() override;
	/*! Drops the bar symbol records of removed series. */
	void endRemoveSeries() override;

	/*! The bar symbol record of a series. */
	BarSymbolInfo barSymbolInfo(int seriesIndex) const;

	/*! Number of bar positions along the x axis. */
	virtual unsigned int barCount() const = 0;
	/*! Value of series seriesIndex at bar position barIndex. */
	virtual double barValue(int seriesIndex, unsigned int barIndex) const = 0;
	/*! Label of a bar position. */
	virtual QString barLabel(unsigned int barIndex) const = 0;
	/*! Unit of all bar values. */
	virtual ZEB::Unit yUnit() const = 0;

private:
	/*! Bar symbol records by series index; may be shorter than the series list. */
	QVector<BarSymbolInfo>	m_barSymbols;
};

} // namespace SCI

#endif // Sci_AbstractBarSeriesModelH
