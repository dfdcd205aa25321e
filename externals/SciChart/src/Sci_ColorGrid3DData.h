#ifndef Sci_ColorGrid3DDataH
#define Sci_ColorGrid3DDataH

#include <memory>
#include <vector>

#include <qwt_raster_data.h>

namespace SCI {

/*! Raster data of a colour grid for the spectrogram of the plot: values on a rectilinear grid
	of cells, looked up by plot coordinates. The data are copied (or shared) on construction and
	never change afterwards, so value() may be called from the tile tasks that render the image in
	parallel.
*/
class ColorGrid3DData : public QwtRasterData {
public:
	/*! Creates the raster data.
		\param xGridSize Number of cells in x direction, > 0.
		\param yGridSize Number of cells in y direction, > 0.
		\param values xGridSize*yGridSize values, x index fastest: cell (i, j) holds
			values[j*xGridSize + i].
		\param xCoordinates Cell centres (xGridSize entries) or cell edges (xGridSize + 1
			entries), ascending.
		\param yCoordinates The same for y.
		Throws ZEB::Exception when sizes do not fit or coordinates do not ascend.
	*/
	ColorGrid3DData(unsigned int xGridSize, unsigned int yGridSize, const std::vector<double> & values,
					const std::vector<double> & xCoordinates, const std::vector<double> & yCoordinates);
	/*! The same, holding values that others (the interpolated data) may share without a copy. */
	ColorGrid3DData(unsigned int xGridSize, unsigned int yGridSize, std::shared_ptr<const std::vector<double> > values,
					const std::vector<double> & xCoordinates, const std::vector<double> & yCoordinates);

	/*! Value of the cell that holds the point (x, y), NaN outside the grid. */
	double value(double x, double y) const override;

	unsigned int xGridSize() const { return m_xGridSize; }
	unsigned int yGridSize() const { return m_yGridSize; }
	/*! The cell edges in x direction, xGridSize() + 1 entries. */
	const std::vector<double> & xEdges() const { return m_xEdges; }
	/*! The cell edges in y direction, yGridSize() + 1 entries. */
	const std::vector<double> & yEdges() const { return m_yEdges; }
	/*! The cell values, xGridSize()*yGridSize() entries, x index fastest. */
	const std::vector<double> & values() const { return *m_values; }
	/*! The cell values as held, to be shared. */
	const std::shared_ptr<const std::vector<double> > & sharedValues() const { return m_values; }

private:
	/*! Cell edges from coordinates that are either edges or centres of n cells; throws. */
	static std::vector<double> cellEdges(const std::vector<double> & coordinates, unsigned int n, char direction);
	/*! Index of the cell between edges that holds v, -1 outside. */
	static int cellIndex(const std::vector<double> & edges, double v);

	unsigned int			m_xGridSize;
	unsigned int			m_yGridSize;
	std::shared_ptr<const std::vector<double> >	m_values;
	std::vector<double>		m_xEdges;
	std::vector<double>		m_yEdges;
};

} // namespace SCI

#endif // Sci_ColorGrid3DDataH
