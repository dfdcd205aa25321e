#include "ZEB_Math.h"

#include <cmath>

#include "ZEB_Exception.h"
#include "ZEB_MessageFormat.h"

namespace ZEB {

double f_pow10(double x) {
	FUNCID(ZEB::f_pow10);
	if (x > 50)
		throw Exception(MessageFormat("Exponent too large in power function, exponent = %1").arg(x), FUNC_ID);
	return std::pow(10.0, x);
}

double f_log(double x) {
	FUNCID(ZEB::f_log);
	if (!(x > 0))
		throw Exception(MessageFormat("Negative or zero value in log function, x = %1").arg(x), FUNC_ID);
	return std::log(x);
}

double f_log10(double x) {
	FUNCID(ZEB::f_log10);
	if (!(x > 0))
		throw Exception(MessageFormat("Negative or zero value in log function, x = %1").arg(x), FUNC_ID);
	return std::log10(x);
}

} // namespace ZEB
