#ifndef Sci_AbstractLineSeriesModelH
#define Sci_AbstractLineSeriesModelH

#include <QVector>

#include <ZEB_Unit.h>

#include "Sci_AbstractCartesianChartModel.h"
#include "Sci_LineProperties.h"

namespace SCI {

/*! Chart model of a line chart. It keeps one line record (pen, markers, legend text, axis
	assignment, ...) per series, in series order; the derived model supplies the number of
	series and their values and units.

	Line records follow the series through the insertion and removal brackets. A series
	without a record of its own (e.g. one added without brackets) uses the default record until
	one of its properties is set.
*/
class AbstractLineSeriesModel : public AbstractCartesianChartModel {
	Q_OBJECT
public:
	/*! Roles of the line properties; the numbers are part of the interface. */
	enum SeriesDataRole {
		SeriesTitleText		= 1,	///< QString, legend text, empty
		SeriesTitle			= 2,	///< QString, read-only: the title shown in the legend, SeriesTitleText unless a derived model completes it
		SeriesPen			= 3,	///< QPen, black, solid, width 1
		SeriesPenWidth		= 4,	///< int, 1
		SeriesPenColor		= 5,	///< QColor, black
		SeriesLeftAxis		= 6,	///< bool, true; false: right y axis
		SeriesLineStyle		= 7,	///< int, QwtPlotCurve::CurveStyle, 0 = lines
		SeriesMarkerStyle	= 8,	///< int, QwtSymbol::Style, -1 = no symbol
		SeriesInverted		= 9,	///< bool, false
		SeriesFitted		= 10,	///< bool, false
		SeriesInLegend		= 11,	///< bool, true
		SeriesMarkerSize	= 12,	///< unsigned int, 4 pixels
		SeriesMarkerFilled	= 13,	///< bool, true
		SeriesMarkerColor	= 14,	///< QColor, blue
		NUM_SDR
	};

	explicit AbstractLineSeriesModel(QObject * parent = nullptr);

	/*! Value of a line property; invalid QVariant for roles outside 1..14. */
	QVariant seriesData(int seriesIndex, int role) const override;
	/*! Stores a line property and emits seriesViewChanged(seriesIndex, seriesIndex, role).
		Returns false (and reports) for unknown and read-only roles and bad values. */
	bool setSeriesData(const QVariant & value, int seriesIndex, int role) override;

	/*! Reads SeriesProperties, then the base class's elements. Each Series element starts from
		the default record; the records are assigned to the series in order.
		Throws ZEB::Exception. */
	void readXML(const TiXmlElement * element) override;
	/*! Writes SeriesProperties with one Series per series, then the base class's elements. */
	void writeXML(TiXmlElement * parent) const override;

	/*! Keeps the line records in step with inserted series. */
	void endInsertSeries() override;
	/*! Drops the line records of removed series. */
	void endRemoveSeries() override;

	/*! The line record of a series. */
	LineProperties lineProperties(int seriesIndex) const;

	/*! Number of values of a series. */
	virtual unsigned int size(int seriesIndex) const = 0;
	/*! The size() x values of a series. */
	virtual const double * xValues(int seriesIndex) const = 0;
	/*! The size() y values of a series. */
	virtual const double * yValues(int seriesIndex) const = 0;
	virtual ZEB::Unit xUnit(int seriesIndex) const = 0;
	virtual ZEB::Unit yUnit(int seriesIndex) const = 0;

private:
	/*! The record of a series, created with defaults if needed. */
	LineProperties & record(int seriesIndex);

	/*! Line records by series index; may be shorter than the series list. */
	QVector<LineProperties>	m_lineProperties;
};

} // namespace SCI

#endif // Sci_AbstractLineSeriesModelH
