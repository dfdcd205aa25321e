#ifndef ZEB_MathH
#define ZEB_MathH

namespace ZEB {

/*! 10^x; throws for exponents above 50, which no physical quantity of the system reaches. */
double f_pow10(double x);

/*! Natural logarithm; throws for x <= 0. */
double f_log(double x);

/*! Decimal logarithm; throws for x <= 0. */
double f_log10(double x);

} // namespace ZEB

#endif // ZEB_MathH
