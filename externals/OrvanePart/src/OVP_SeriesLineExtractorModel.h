#ifndef OVP_SeriesLineExtractorModelH
#define OVP_SeriesLineExtractorModelH

#include <QColor>

#include <Sci_AbstractLineSeriesModel.h>

#include "OVP_Mapper.h"

namespace OVP {

/*! The chart model of a mapper with a line chart: series i is the mapper's 2D extractor i, whose
	output (after manipulators and unit conversion) the model hands to the chart without copying.
	Display properties stay in the abstract line model; this model adds the values and units, the
	series titles with the source file name, axis titles with the quantity name, the time zero
	of date axes and which axes are in use.
*/
class SeriesLineExtractorModel : public SCI::AbstractLineSeriesModel {
	Q_OBJECT
public:
	/*! The model of the mapper that owns it. */
	explicit SeriesLineExtractorModel(Mapper * mapper);

	/*! Number of 2D extractors of the mapper. */
	unsigned int seriesCount() const override;
	unsigned int size(int seriesIndex) const override;
	const double * xValues(int seriesIndex) const override;
	const double * yValues(int seriesIndex) const override;
	ZEB::Unit xUnit(int seriesIndex) const override;
	ZEB::Unit yUnit(int seriesIndex) const override;

	/*! As the line model, except that the title roles give the stored title with "$filename"
		replaced by the source file name; lineProperties() and the XML keep the stored text.
	*/
	QVariant seriesData(int seriesIndex, int role) const override;
	/*! Marks the project modified, keeps a new title in the mapper (so that it is saved with
		it), then stores the property. Moving a series to the other y axis converts it to that
		axis's unit.
	*/
	bool setSeriesData(const QVariant & value, int seriesIndex, int role) override;

	/*! Whether axes are in use (role 0), titles with "$quantity" replaced (role 1) and the time
		zero of date axes (role 27) come from the series; all else from the stored properties.
	*/
	QVariant axisData(int axisPosition, int role) const override;
	/*! Stores an axis property; a new axis unit becomes the target unit of the extractors, whose
		series are converted to it. A unit the data on the axis do not convert to is refused
		(reported, false returned, nothing changes).
	*/
	bool setAxisData(const QVariant & value, int axisPosition, int role) override;

	/*! Passes a new parameter text to the model of a two-container extractor and updates the
		series; does nothing for other extractors. Throws ZEB::Exception "Invalid parameter or
		model." when the model rejects the text (the model then keeps its parameters).
	*/
	void setModelParameter(int seriesIndex, const std::string & parameterText);

	/*! The cut the extractor of a series performs, as EM::CutType code: 0 (no cut) for time
		series, else the cut type of the field extractor. Throws ZEB::Exception for an extractor
		whose cut does not fit its data format.
	*/
	int cutType(int seriesIndex) const;

	/*! Gives a new series its stored title from the mapper, its y axis and a pen of its own
		colour, without marking the project modified (the mapper's creation is the modification).
	*/
	void initSeries(int seriesIndex, bool leftAxis);

	/*! The pen colour a new series gets: one of a palette of distinct colours, by position. */
	static QColor defaultSeriesColor(int seriesIndex);

private:
	/*! The mapper's entry of a series; asserts the index against the series count and the
		mapper's list, and gives null for a bad index when assertions are off.
	*/
	const Mapper::ExtractorEntry * entry(int seriesIndex) const;
	/*! The output of a series, extracted first when the mapper's data is still pending; null
		for a bad index.
	*/
	const EM::Extractor2DOutputBase * output(int seriesIndex) const;

	Mapper *	m_mapper;
};

} // namespace OVP

#endif // OVP_SeriesLineExtractorModelH
