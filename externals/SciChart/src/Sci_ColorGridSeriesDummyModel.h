#ifndef Sci_ColorGridSeriesDummyModelH
#define Sci_ColorGridSeriesDummyModelH

#include "Sci_AbstractColorGridSeriesModel.h"

namespace SCI {

/*! A colour grid chart model without a grid, for a chart that must exist before data are
	mapped (e.g. to edit or store a chart style). All display properties work as usual.
*/
class ColorGridSeriesDummyModel : public AbstractColorGridSeriesModel {
	Q_OBJECT
public:
	explicit ColorGridSeriesDummyModel(QObject * parent = nullptr);

	/*! Always 0. */
	unsigned int seriesCount() const override { return 0; }
	/*! There is no grid: the accessors below must not be called and answer empty data. */
	unsigned int xGridSize(int seriesIndex) const override;
	const double * xGrid(int seriesIndex) const override;
	unsigned int yGridSize(int seriesIndex) const override;
	const double * yGrid(int seriesIndex) const override;
	unsigned int xValueSize(int seriesIndex) const override;
	unsigned int yValueSize(int seriesIndex) const override;
	const double * values(int seriesIndex) const override;
	ZEB::Unit xUnit(int seriesIndex) const override;
	ZEB::Unit yUnit(int seriesIndex) const override;
	ZEB::Unit valueUnit(int seriesIndex) const override;
};

} // namespace SCI

#endif // Sci_ColorGridSeriesDummyModelH
