#ifndef Sci_ArrayToolsH
#define Sci_ArrayToolsH

#include <QVector>

#include <qwt_interval.h>

namespace SCI {

/*! Helpers for the value arrays that series models hand to the plot. */
class ArrayTools {
public:
	/*! Copy of n values (none when values is null). */
	static QVector<double> toVector(const double * values, unsigned int n);
	/*! Smallest of n values ignoring NaN; NaN when there is none. */
	static double minimum(const double * values, unsigned int n);
	/*! Largest of n values ignoring NaN; NaN when there is none. */
	static double maximum(const double * values, unsigned int n);
	/*! Smallest to largest of n values ignoring NaN; an invalid interval when there is none. */
	static QwtInterval range(const double * values, unsigned int n);
};

} // namespace SCI

#endif // Sci_ArrayToolsH
