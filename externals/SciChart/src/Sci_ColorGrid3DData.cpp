#include "Sci_ColorGrid3DData.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "Sci_ArrayTools.h"

namespace SCI {

ColorGrid3DData::ColorGrid3DData(unsigned int xGridSize, unsigned int yGridSize, const std::vector<double> & values,
								 const std::vector<double> & xCoordinates, const std::vector<double> & yCoordinates) :
	ColorGrid3DData(xGridSize, yGridSize, std::make_shared<const std::vector<double> >(values), xCoordinates, yCoordinates)
{
}


ColorGrid3DData::ColorGrid3DData(unsigned int xGridSize, unsigned int yGridSize,
								 std::shared_ptr<const std::vector<double> > values,
								 const std::vector<double> & xCoordinates, const std::vector<double> & yCoordinates) :
	m_xGridSize(xGridSize),
	m_yGridSize(yGridSize),
	m_values(std::move(values))
{
	FUNCID(ColorGrid3DData::ColorGrid3DData);
	Q_ASSERT(m_xGridSize>0);
	Q_ASSERT(m_yGridSize>0);
	if (m_xGridSize == 0 || m_yGridSize == 0)
		throw ZEB::Exception("Grid without cells.", FUNC_ID);
	if (m_values->size() != static_cast<std::size_t>(m_xGridSize)*m_yGridSize)
		throw ZEB::Exception(ZEB::MessageFormat("Grid of %1 x %2 cells needs %3 values, got %4.")
							 .arg(m_xGridSize).arg(m_yGridSize)
							 .arg(static_cast<unsigned long long>(m_xGridSize)*m_yGridSize)
							 .arg(static_cast<unsigned long long>(m_values->size())), FUNC_ID);
	m_xEdges = cellEdges(xCoordinates, m_xGridSize, 'x');
	m_yEdges = cellEdges(yCoordinates, m_yGridSize, 'y');

	setInterval(Qt::XAxis, QwtInterval(m_xEdges.front(), m_xEdges.back()));
	setInterval(Qt::YAxis, QwtInterval(m_yEdges.front(), m_yEdges.back()));
	const QwtInterval z = ArrayTools::range(m_values->data(), static_cast<unsigned int>(m_values->size()));
	if (z.isValid())
		setInterval(Qt::ZAxis, z);
}


double ColorGrid3DData::value(double x, double y) const {
	const int i = cellIndex(m_xEdges, x);
	const int j = cellIndex(m_yEdges, y);
	if (i < 0 || j < 0)
		return std::numeric_limits<double>::quiet_NaN();
	return (*m_values)[static_cast<std::size_t>(j)*m_xGridSize + static_cast<std::size_t>(i)];
}


/*! Centres get edges half way between neighbours; the outer edges lie half a neighbouring cell
	beyond the outer centres, and a single cell is one unit wide.
*/
std::vector<double> ColorGrid3DData::cellEdges(const std::vector<double> & coordinates, unsigned int n, char direction) {
	FUNCID(ColorGrid3DData::cellEdges);
	if (coordinates.size() != n && coordinates.size() != n + 1)
		throw ZEB::Exception(ZEB::MessageFormat("Expected %1 or %2 %3 coordinates, got %4.")
							 .arg(n).arg(n + 1).arg(std::string(1, direction))
							 .arg(static_cast<unsigned long long>(coordinates.size())), FUNC_ID);
	for (std::size_t k = 1; k < coordinates.size(); ++k)
		if (!(coordinates[k] > coordinates[k-1]))
			throw ZEB::Exception(ZEB::MessageFormat("The %1 coordinates must be finite and strictly ascending.")
								 .arg(std::string(1, direction)), FUNC_ID);
	for (double c : coordinates)
		if (!std::isfinite(c))
			throw ZEB::Exception(ZEB::MessageFormat("The %1 coordinates must be finite and strictly ascending.")
								 .arg(std::string(1, direction)), FUNC_ID);
	if (coordinates.size() == n + 1)
		return coordinates;

	std::vector<double> edges(n + 1);
	if (n == 1) {
		edges[0] = coordinates[0] - 0.5;
		edges[1] = coordinates[0] + 0.5;
		return edges;
	}
	for (unsigned int k = 1; k < n; ++k)
		edges[k] = 0.5*(coordinates[k-1] + coordinates[k]);
	edges[0] = coordinates[0] - 0.5*(coordinates[1] - coordinates[0]);
	edges[n] = coordinates[n-1] + 0.5*(coordinates[n-1] - coordinates[n-2]);
	return edges;
}


int ColorGrid3DData::cellIndex(const std::vector<double> & edges, double v) {
	if (!(v >= edges.front() && v <= edges.back()))
		return -1;
	const int cells = static_cast<int>(edges.size()) - 1;
	// the upper edge of the last cell belongs to it
	const int i = static_cast<int>(std::upper_bound(edges.begin(), edges.end(), v) - edges.begin()) - 1;
	return std::min(i, cells - 1);
}

} // namespace SCI
