#include "ZEB_MessageFormat.h"

#include <charconv>
#include <cmath>

namespace ZEB {

MessageFormat::MessageFormat(const std::string & templ) :
	m_template(templ)
{
}

MessageFormat & MessageFormat::addArgument(const std::string & s) {
	m_args.push_back(s);
	return *this;
}

MessageFormat & MessageFormat::addArgument(const char * s) {
	m_args.push_back(s == nullptr ? std::string() : std::string(s));
	return *this;
}

MessageFormat & MessageFormat::addArgument(int v)					{ return addArgument(std::to_string(v)); }
MessageFormat & MessageFormat::addArgument(unsigned int v)			{ return addArgument(std::to_string(v)); }
MessageFormat & MessageFormat::addArgument(long v)					{ return addArgument(std::to_string(v)); }
MessageFormat & MessageFormat::addArgument(unsigned long v)			{ return addArgument(std::to_string(v)); }
MessageFormat & MessageFormat::addArgument(long long v)				{ return addArgument(std::to_string(v)); }
MessageFormat & MessageFormat::addArgument(unsigned long long v)	{ return addArgument(std::to_string(v)); }
MessageFormat & MessageFormat::addArgument(double v)				{ return addArgument(shortestDoubleString(v)); }


std::string MessageFormat::str() const {
	std::string result;
	result.reserve(m_template.size() + 16*m_args.size());
	const std::size_t n = m_template.size();
	std::size_t i = 0;
	while (i < n) {
		char c = m_template[i];
		if (c != '%' || i + 1 >= n || m_template[i+1] < '0' || m_template[i+1] > '9') {
			result += c;
			++i;
			continue;
		}
		// take the longest run of digits that still names an existing argument ("%12" with
		// only one argument is argument 1 followed by the text "2")
		std::size_t j = i + 1;
		std::size_t bestEnd = 0;
		std::size_t bestIndex = 0;
		std::size_t index = 0;
		while (j < n && m_template[j] >= '0' && m_template[j] <= '9' && j - i <= 9) {
			index = index*10 + static_cast<std::size_t>(m_template[j] - '0');
			++j;
			if (index >= 1 && index <= m_args.size()) {
				bestEnd = j;
				bestIndex = index;
			}
		}
		if (bestEnd == 0) {
			result += c;
			++i;
			continue;
		}
		result += m_args[bestIndex - 1];
		i = bestEnd;
	}
	return result;
}


std::string shortestDoubleString(double v) {
	if (std::isnan(v))
		return "nan";
	if (std::isinf(v))
		return v < 0 ? "-inf" : "inf";
	char buf[64];
	std::to_chars_result res = std::to_chars(buf, buf + sizeof(buf), v);
	return std::string(buf, res.ptr);
}

} // namespace ZEB
