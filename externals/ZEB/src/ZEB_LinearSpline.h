#ifndef ZEB_LinearSplineH
#define ZEB_LinearSplineH

#include <vector>

namespace ZEB {

/*! Piecewise-linear interpolation in a table of points with strictly increasing x.
	Between two knots the value is interpolated linearly; at a knot it is exactly the knot's y.
	Outside the table the value is held constant: below the first x it is the first y, above
	the last x the last y (no linear extrapolation, so a curve never runs away outside the
	range it was measured in). A table of a single point gives that point's y everywhere.
	Lookup is a binary search; tables with (nearly) equidistant x compute the interval index
	directly instead.
*/
class LinearSpline {
public:
	/*! An empty spline; value() throws until values are set. */
	LinearSpline() = default;
	/*! Same as default construction followed by setValues(). */
	LinearSpline(const std::vector<double> & x, const std::vector<double> & y);

	/*! Replaces the table. Throws when a vector is empty, the sizes differ, a value is NaN or
		infinite, or x is not strictly increasing; the spline keeps its previous table then.
	*/
	void setValues(const std::vector<double> & x, const std::vector<double> & y);

	/*! Removes all points. */
	void clear();

	/*! Interpolated value at x, held constant outside the table (see class description).
		A NaN argument gives NaN. Throws when the spline is empty.
	*/
	double value(double x) const;

	bool empty() const { return m_x.empty(); }
	const std::vector<double> & x() const { return m_x; }
	const std::vector<double> & y() const { return m_y; }

private:
	/*! Index i of the interval with m_x[i] <= x < m_x[i+1]; x must lie inside the table. */
	std::size_t intervalIndex(double x) const;

	std::vector<double>	m_x;
	std::vector<double>	m_y;
	/*! True when all x steps are equal up to rounding; enables the direct index estimate. */
	bool				m_equidistant = false;
	/*! Reciprocal of the mean x step, used for the direct index estimate. */
	double				m_invStep = 0;
};

} // namespace ZEB

#endif // ZEB_LinearSplineH
