#ifndef Sci_LineSeriesDummyModelH
#define Sci_LineSeriesDummyModelH

#include "Sci_AbstractLineSeriesModel.h"

namespace SCI {

/*! A line chart model without series, for a chart that must exist before data are mapped
	(e.g. to edit or store a chart style). All display properties work as usual.
*/
class LineSeriesDummyModel : public AbstractLineSeriesModel {
	Q_OBJECT
public:
	explicit LineSeriesDummyModel(QObject * parent = nullptr);

	/*! Always 0. */
	unsigned int seriesCount() const override { return 0; }
	/*! There is no series: the accessors below must not be called and answer empty data. */
	unsigned int size(int seriesIndex) const override;
	const double * xValues(int seriesIndex) const override;
	const double * yValues(int seriesIndex) const override;
	ZEB::Unit xUnit(int seriesIndex) const override;
	ZEB::Unit yUnit(int seriesIndex) const override;
};

} // namespace SCI

#endif // Sci_LineSeriesDummyModelH
