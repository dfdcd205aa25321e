#ifndef OVP_SeriesClimatePlaneModelH
#define OVP_SeriesClimatePlaneModelH

#include <vector>

#include <QColor>

#include <Sci_AbstractLineSeriesModel.h>

#include <ZEB_UnitVector.h>

namespace EM {
class ClimateLimitCurve;
class ModelTwo2DBase;
}

namespace OVP {

class Mapper;

/*! Base of the chart models that show the model of a mapper's one two-data-set extractor in the
	plane of temperature (x axis) and relative humidity (left y axis) instead of a time series:
	climate points the model evaluated and its limit curves. A derived model says which series
	there are, takes their points from the model (in "C" and "%") and builds their legend texts;
	this base converts the points to the axis units, answers the axes from the model's inputs,
	keeps every series on the left y axis and leaves the display properties to the abstract line
	model.
*/
class SeriesClimatePlaneModel : public SCI::AbstractLineSeriesModel {
	Q_OBJECT
public:
	/*! The model of the mapper that owns it; the mapper's extractor3D() entry holds the
		extractor.
	*/
	explicit SeriesClimatePlaneModel(Mapper * mapper);

	unsigned int size(int seriesIndex) const override;
	const double * xValues(int seriesIndex) const override;
	const double * yValues(int seriesIndex) const override;
	/*! The unit of the bottom axis, to which the temperatures are converted. */
	ZEB::Unit xUnit(int seriesIndex) const override;
	/*! The unit of the left axis, to which the humidities are converted. */
	ZEB::Unit yUnit(int seriesIndex) const override;

	/*! The editable title (SeriesTitleText) is the stored one with "$filename" replaced, the
		title shown in the legend and the panels (SeriesTitle) its legendTitle(); all else as the
		line model.
	*/
	QVariant seriesData(int seriesIndex, int role) const override;
	/*! Marks the project modified and stores the property; moving a series to the right y axis
		is refused (reported, false returned).
	*/
	bool setSeriesData(const QVariant & value, int seriesIndex, int role) override;

	/*! The bottom and left axes are in use while the mapper has its extractor, the right one
		never; "$quantity" in axis titles is the name of the model's input on that axis.
	*/
	QVariant axisData(int axisPosition, int role) const override;
	/*! Stores an axis property; a new unit must be one the model's input on that axis converts
		to (else reported, false returned), and the series are converted to it.
	*/
	bool setAxisData(const QVariant & value, int axisPosition, int role) override;

	/*! Drops the converted points before the chart reads the changed series, then announces
		the legend text of the first series, which tells the model's results, as changed.
	*/
	void endChangeSeries() override;
	void endResetModel() override;
	void clearCachedData() override;

	/*! Gives the series of a new chart their titles, pens and markers, without marking the
		project modified (the chart's creation is the modification).
	*/
	virtual void initSeries() = 0;

protected:
	/*! The points of one series: temperatures in "C" and relative humidities in "%". */
	struct PlanePoints {
		std::vector<double>	m_temperatures;
		std::vector<double>	m_humidities;
	};

	/*! The points of every series, seriesCount() of them, in the model's units. */
	virtual std::vector<PlanePoints> planePoints() const = 0;
	/*! The legend text of a series whose stored title (with the file name in place of
		"$filename") is title.
	*/
	virtual QString legendTitle(int seriesIndex, const QString & title) const = 0;

	/*! The model of the mapper's extractor, its results computed first when the mapper's data
		is still pending; null while it has none.
	*/
	const EM::ModelTwo2DBase * model() const;
	/*! The mapper that owns the model. */
	const Mapper & mapper() const { return *m_mapper; }

	/*! The climate points with both values present; absent hours are no points of the plane. */
	static PlanePoints presentPoints(const std::vector<double> & temperatures, const std::vector<double> & humidities);
	/*! The points that draw a limit curve: from its lowest temperature (below which nothing is
		reached) along its table to highestTemperature or the table's end, whichever is further,
		the humidity held beyond the table; at least up to 30 C, so that a curve of one point
		shows as a line.
	*/
	static PlanePoints curvePoints(const EM::ClimateLimitCurve & curve, double highestTemperature);
	/*! The highest of the temperatures, or the lowest double when there are none. */
	static double highest(const std::vector<double> & temperatures);

	/*! Sets title and look of a series: markers only (marker style and size) or a line (no
		marker), in the colour, with the pen width; the project does not count as modified.
	*/
	void initStyle(int seriesIndex, const QString & title, const QColor & color, int markerStyle,
				   unsigned int size);

private:
	/*! Converts the points of all series to the axis units, once after each change. */
	void ensurePoints() const;

	Mapper *								m_mapper;
	/*! Converted points by series; valid while m_pointsValid. */
	mutable std::vector<ZEB::UnitVector>	m_x;
	mutable std::vector<ZEB::UnitVector>	m_y;
	mutable bool							m_pointsValid = false;
};

} // namespace OVP

#endif // OVP_SeriesClimatePlaneModelH
