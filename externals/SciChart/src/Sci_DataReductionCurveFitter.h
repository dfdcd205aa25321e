#ifndef Sci_DataReductionCurveFitterH
#define Sci_DataReductionCurveFitterH

#include <qwt_curve_fitter.h>

namespace SCI {

/*! Thins long curves before drawing (Douglas-Peucker reduction in chunks of 100 points). The
	tolerance is raised in decades, 1e-4, 1e-3, 1e-2 and 0.1, each pass on the original points,
	until the curve has at most 500 points; a curve that is still longer after the pass with 0.1
	is drawn with the points of that pass. The points are those the curve hands to its fitter,
	i.e. already in paint device coordinates.
*/
class DataReductionCurveFitter : public QwtWeedingCurveFitter {
public:
	/*! Most points a reduced curve should keep. */
	static constexpr int MAXIMUM_POINTS = 500;
	/*! Points per chunk of the reduction. */
	static constexpr int CHUNK_SIZE = 100;

	DataReductionCurveFitter();

	/*! The reduced curve; reports input size, reduced size and the final tolerance. */
	QPolygonF fitCurve(const QPolygonF & points) const override;
};

} // namespace SCI

#endif // Sci_DataReductionCurveFitterH
