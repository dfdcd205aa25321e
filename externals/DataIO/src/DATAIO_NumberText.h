#ifndef DATAIO_NumberTextH
#define DATAIO_NumberTextH

#include <charconv>
#include <cmath>
#include <string>

namespace DATAIO {

/*! Appends numbers to text buffers the way the ASCII writers store them: doubles in the
	shortest form that reads back to the same value ("nan", "inf" and "-inf" for the special
	values), integers in decimal.
*/
class NumberText {
public:
	static void appendDouble(std::string & out, double v) {
		if (std::isnan(v)) {
			out += "nan";
			return;
		}
		if (std::isinf(v)) {
			out += v < 0 ? "-inf" : "inf";
			return;
		}
		char buf[32];
		std::to_chars_result res = std::to_chars(buf, buf + sizeof(buf), v);
		out.append(buf, res.ptr);
	}

	template <typename T>
	static void appendInteger(std::string & out, T v) {
		char buf[24];
		std::to_chars_result res = std::to_chars(buf, buf + sizeof(buf), v);
		out.append(buf, res.ptr);
	}
};

} // namespace DATAIO

#endif // DATAIO_NumberTextH
