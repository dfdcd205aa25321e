#ifndef Sci_VariantConversionH
#define Sci_VariantConversionH

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QPen>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "Sci_ColorMap.h"

namespace SCI {

/*! Strict conversions of QVariant values to the value types of chart properties, used by the
	role setters of the chart models: a setter must refuse a value that does not convert instead
	of storing some fallback (an int role needs a successful integer conversion, a colour, font,
	or pen role a convertible value, and so on).
*/
class VariantConversion {
public:
	/*! Outcome of assign(). */
	enum AssignResult {
		Invalid,	///< the value does not convert, nothing stored
		Unchanged,	///< the value equals the stored one
		Changed		///< the value was stored
	};

	static bool convert(const QVariant & v, bool & result);
	static bool convert(const QVariant & v, int & result);
	static bool convert(const QVariant & v, unsigned int & result);
	static bool convert(const QVariant & v, double & result);
	static bool convert(const QVariant & v, QString & result);
	/*! Needs a valid colour. */
	static bool convert(const QVariant & v, QColor & result);
	static bool convert(const QVariant & v, QFont & result);
	static bool convert(const QVariant & v, QPen & result);
	static bool convert(const QVariant & v, QSize & result);
	/*! Needs a valid date-time. */
	static bool convert(const QVariant & v, QDateTime & result);
	static bool convert(const QVariant & v, QStringList & result);
	static bool convert(const QVariant & v, ColorMap & result);

	/*! Equality used to detect unchanged values; NaN equals NaN. */
	template <typename T>
	static bool equal(const T & a, const T & b) { return a == b; }
	static bool equal(double a, double b);

	/*! Converts value and stores it in member when it differs. */
	template <typename T>
	static AssignResult assign(T & member, const QVariant & value) {
		T v;
		if (!convert(value, v))
			return Invalid;
		if (equal(member, v))
			return Unchanged;
		member = v;
		return Changed;
	}
};

} // namespace SCI

#endif // Sci_VariantConversionH
