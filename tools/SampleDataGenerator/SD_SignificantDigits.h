#ifndef SD_SignificantDigitsH
#define SD_SignificantDigitsH

namespace SD {

/*! Rounds values to a number of significant decimal digits, as simulation programs print their
	results ("%.10g"). The result is the double nearest to the rounded decimal number, so the
	shortest round-trip text of it has at most that many digits.
*/
class SignificantDigits {
public:
	/*! v rounded to digits (1..15) significant digits; zero, infinities and NaN unchanged. */
	static double round(double v, int digits);
};

} // namespace SD

#endif // SD_SignificantDigitsH
