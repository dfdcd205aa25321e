#include "Sci_ColorGridInterpolation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Sci_ArrayTools.h"

namespace SCI {

ColorGridInterpolation::ColorGridInterpolation(const std::vector<double> & xCentres, const std::vector<double> & yCentres,
											   const std::vector<double> & values,
											   const std::vector<double> & xEdges, const std::vector<double> & yEdges) :
	ColorGridInterpolation(xCentres, yCentres, std::make_shared<const std::vector<double> >(values),
						   ArrayTools::range(values.data(), static_cast<unsigned int>(values.size())), xEdges, yEdges)
{
}


ColorGridInterpolation::ColorGridInterpolation(const std::vector<double> & xCentres, const std::vector<double> & yCentres,
											   std::shared_ptr<const std::vector<double> > values,
											   const QwtInterval & valueRange,
											   const std::vector<double> & xEdges, const std::vector<double> & yEdges) :
	m_xCentres(xCentres),
	m_yCentres(yCentres),
	m_values(std::move(values)),
	m_xMin(xEdges.front()),
	m_xMax(xEdges.back()),
	m_yMin(yEdges.front()),
	m_yMax(yEdges.back())
{
	Q_ASSERT(m_values->size() == m_xCentres.size()*m_yCentres.size());
	setInterval(Qt::XAxis, QwtInterval(m_xMin, m_xMax));
	setInterval(Qt::YAxis, QwtInterval(m_yMin, m_yMax));
	if (valueRange.isValid())
		setInterval(Qt::ZAxis, valueRange);
}


double ColorGridInterpolation::value(double x, double y) const {
	if (!(x >= m_xMin && x <= m_xMax && y >= m_yMin && y <= m_yMax))
		return std::numeric_limits<double>::quiet_NaN();
	int i0, i1, j0, j1;
	double wx, wy;
	locate(m_xCentres, x, i0, i1, wx);
	locate(m_yCentres, y, j0, j1, wy);
	const std::size_t nx = m_xCentres.size();
	const std::vector<double> & values = *m_values;
	const double v00 = values[j0*nx + i0];
	const double v10 = values[j0*nx + i1];
	const double v01 = values[j1*nx + i0];
	const double v11 = values[j1*nx + i1];
	if (std::isnan(v00) || std::isnan(v10) || std::isnan(v01) || std::isnan(v11)) {
		const int i = wx < 0.5 ? i0 : i1;
		const int j = wy < 0.5 ? j0 : j1;
		return values[j*nx + i];
	}
	return (1 - wy)*((1 - wx)*v00 + wx*v10) + wy*((1 - wx)*v01 + wx*v11);
}


void ColorGridInterpolation::locate(const std::vector<double> & centres, double v, int & i0, int & i1, double & weight) {
	const int n = static_cast<int>(centres.size());
	weight = 0;
	if (n == 1 || v <= centres.front()) {
		i0 = i1 = 0;
		return;
	}
	if (v >= centres.back()) {
		i0 = i1 = n - 1;
		return;
	}
	i1 = static_cast<int>(std::upper_bound(centres.begin(), centres.end(), v) - centres.begin());
	i0 = i1 - 1;
	weight = (v - centres[i0])/(centres[i1] - centres[i0]);
}

} // namespace SCI
