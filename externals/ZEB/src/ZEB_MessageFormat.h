#ifndef ZEB_MessageFormatH
#define ZEB_MessageFormatH

#include <string>
#include <vector>

namespace ZEB {

/*! A message template with numbered placeholders "%1", "%2", ... that are filled with the
	arguments in the order they were added. Placeholders without an argument stay as they are.
	\code
	throw ZEB::Exception(ZEB::MessageFormat("Cannot open file '%1'").arg(fname), FUNC_ID);
	\endcode
*/
class MessageFormat {
public:
	explicit MessageFormat(const std::string & templ);

	MessageFormat & addArgument(const std::string & s);
	MessageFormat & addArgument(const char * s);
	MessageFormat & addArgument(int v);
	MessageFormat & addArgument(unsigned int v);
	MessageFormat & addArgument(long v);
	MessageFormat & addArgument(unsigned long v);
	MessageFormat & addArgument(long long v);
	MessageFormat & addArgument(unsigned long long v);
	/*! Doubles are written in their shortest form that reads back to the same value. */
	MessageFormat & addArgument(double v);

	/*! Short alias of addArgument(), for chained calls. */
	template <typename T>
	MessageFormat & arg(const T & v) { return addArgument(v); }

	/*! The template with all placeholders that have an argument replaced. */
	std::string str() const;

private:
	std::string					m_template;
	std::vector<std::string>	m_args;
};

/*! Formats a double in the shortest form that reads back to the same value. */
std::string shortestDoubleString(double v);

} // namespace ZEB

#endif // ZEB_MessageFormatH
