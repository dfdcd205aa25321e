#include "Sci_ArrayTools.h"

#include <cmath>
#include <limits>

namespace SCI {

QVector<double> ArrayTools::toVector(const double * values, unsigned int n) {
	QVector<double> v;
	if (values != nullptr && n > 0) {
		v.resize(static_cast<int>(n));
		std::copy(values, values + n, v.begin());
	}
	return v;
}


double ArrayTools::minimum(const double * values, unsigned int n) {
	double m = std::numeric_limits<double>::quiet_NaN();
	if (values == nullptr)
		return m;
	for (unsigned int i = 0; i < n; ++i)
		if (!std::isnan(values[i]) && (std::isnan(m) || values[i] < m))
			m = values[i];
	return m;
}


double ArrayTools::maximum(const double * values, unsigned int n) {
	double m = std::numeric_limits<double>::quiet_NaN();
	if (values == nullptr)
		return m;
	for (unsigned int i = 0; i < n; ++i)
		if (!std::isnan(values[i]) && (std::isnan(m) || values[i] > m))
			m = values[i];
	return m;
}


QwtInterval ArrayTools::range(const double * values, unsigned int n) {
	const double low = minimum(values, n);
	return std::isnan(low) ? QwtInterval() : QwtInterval(low, maximum(values, n));
}

} // namespace SCI
