#include "ZEB_LinearSpline.h"

#include <algorithm>
#include <cmath>

#include "ZEB_Exception.h"
#include "ZEB_MessageFormat.h"

namespace ZEB {

namespace {

/*! Relative deviation of a step from the mean step up to which a table counts as equidistant.
	The estimate only picks the start of a short search, so rounding in x costs nothing.
*/
const double EQUIDISTANT_TOLERANCE = 1e-9;

} // namespace


LinearSpline::LinearSpline(const std::vector<double> & x, const std::vector<double> & y) {
	setValues(x, y);
}


void LinearSpline::setValues(const std::vector<double> & x, const std::vector<double> & y) {
	FUNCID(LinearSpline::setValues);
	if (x.empty() || y.empty())
		throw Exception("Empty x or y value vector.", FUNC_ID);
	if (x.size() != y.size())
		throw Exception(MessageFormat("Size mismatch: %1 x values but %2 y values.").arg(x.size()).arg(y.size()), FUNC_ID);
	for (std::size_t i = 0; i < x.size(); ++i) {
		if (!std::isfinite(x[i]))
			throw Exception(MessageFormat("Invalid x value (NaN or infinite) at index %1.").arg(i), FUNC_ID);
		if (!std::isfinite(y[i]))
			throw Exception(MessageFormat("Invalid y value (NaN or infinite) at index %1.").arg(i), FUNC_ID);
		if (i > 0 && !(x[i] > x[i-1]))
			throw Exception(MessageFormat("x values must be strictly increasing, but x[%1] = %2 follows x[%3] = %4.")
							.arg(i).arg(x[i]).arg(i-1).arg(x[i-1]), FUNC_ID);
	}

	m_x = x;
	m_y = y;
	m_equidistant = false;
	m_invStep = 0;
	if (m_x.size() > 2) {
		const double meanStep = (m_x.back() - m_x.front()) / (m_x.size() - 1);
		// a range beyond the double range (steps near 1e308) is left to the binary search
		m_equidistant = std::isfinite(meanStep);
		for (std::size_t i = 1; i < m_x.size() && m_equidistant; ++i)
			m_equidistant = std::fabs((m_x[i] - m_x[i-1]) - meanStep) <= EQUIDISTANT_TOLERANCE * meanStep;
		if (m_equidistant)
			m_invStep = 1.0 / meanStep;
	}
}


void LinearSpline::clear() {
	m_x.clear();
	m_y.clear();
	m_equidistant = false;
	m_invStep = 0;
}


double LinearSpline::value(double x) const {
	FUNCID(LinearSpline::value);
	if (m_x.empty())
		throw Exception("Spline has no values.", FUNC_ID);
	if (std::isnan(x))
		return x;
	if (x <= m_x.front())
		return m_y.front();
	if (x >= m_x.back())
		return m_y.back();

	const std::size_t i = intervalIndex(x);
	const double t = (x - m_x[i]) / (m_x[i+1] - m_x[i]);
	const double dy = m_y[i+1] - m_y[i];
	// the difference of two huge values of opposite sign can overflow; the weighted form cannot
	if (!std::isfinite(dy))
		return (1 - t) * m_y[i] + t * m_y[i+1];
	return m_y[i] + t * dy;
}


std::size_t LinearSpline::intervalIndex(double x) const {
	const std::size_t lastInterval = m_x.size() - 2;
	if (m_equidistant) {
		// estimate, then correct by single steps for rounding in the estimate or in the x values
		const double estimate = std::floor((x - m_x.front()) * m_invStep);
		std::size_t i = 0;
		if (estimate >= static_cast<double>(lastInterval))
			i = lastInterval;
		else if (estimate > 0)
			i = static_cast<std::size_t>(estimate);
		while (i > 0 && x < m_x[i])
			--i;
		while (i < lastInterval && x >= m_x[i+1])
			++i;
		return i;
	}
	// first x greater than the argument; x lies strictly inside the table, so this is 1..size-1
	std::vector<double>::const_iterator it = std::upper_bound(m_x.begin(), m_x.end(), x);
	return static_cast<std::size_t>(it - m_x.begin()) - 1;
}

} // namespace ZEB
