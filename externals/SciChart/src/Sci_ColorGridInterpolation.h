#ifndef Sci_ColorGridInterpolationH
#define Sci_ColorGridInterpolationH

#include <memory>
#include <vector>

#include <qwt_raster_data.h>

namespace SCI {

/*! Raster data of a colour grid with values interpolated bilinearly between the cell centres,
	for smooth colour images and contour lines. Between the outer cell centres and the outer
	cell edges the values of the outer cells continue unchanged; where a neighbour has no value
	(NaN), the value of the nearest cell is used. The data never change after construction, so
	value() may be called from several threads.
*/
class ColorGridInterpolation : public QwtRasterData {
public:
	/*! \param xCentres Ascending cell centres in x (n entries), likewise yCentres (m entries).
		\param values n*m values, x index fastest.
		\param xEdges The n + 1 cell edges in x, bounding the data; likewise yEdges.
	*/
	ColorGridInterpolation(const std::vector<double> & xCentres, const std::vector<double> & yCentres,
						   const std::vector<double> & values,
						   const std::vector<double> & xEdges, const std::vector<double> & yEdges);
	/*! The same over values shared with the cell data (ColorGrid3DData::sharedValues()), whose
		value range (invalid when all values are NaN) is given.
	*/
	ColorGridInterpolation(const std::vector<double> & xCentres, const std::vector<double> & yCentres,
						   std::shared_ptr<const std::vector<double> > values, const QwtInterval & valueRange,
						   const std::vector<double> & xEdges, const std::vector<double> & yEdges);

	/*! Interpolated value at (x, y), NaN outside the grid. */
	double value(double x, double y) const override;

private:
	/*! The neighbouring centres i0, i1 around v and the weight of i1. */
	static void locate(const std::vector<double> & centres, double v, int & i0, int & i1, double & weight);

	std::vector<double>	m_xCentres;
	std::vector<double>	m_yCentres;
	std::shared_ptr<const std::vector<double> >	m_values;
	double				m_xMin, m_xMax, m_yMin, m_yMax;
};

} // namespace SCI

#endif // Sci_ColorGridInterpolationH
