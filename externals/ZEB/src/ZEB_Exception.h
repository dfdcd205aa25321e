#ifndef ZEB_ExceptionH
#define ZEB_ExceptionH

#include <exception>
#include <string>
#include <vector>

#include "ZEB_FunctionId.h"

namespace ZEB {

class MessageFormat;

/*! The one exception type of all Orvane libraries.
	It carries the whole chain of messages added by each layer a failure passed through, oldest
	(innermost cause) first; each record names the function that added it, e.g. "[DataIO::read]".
	A layer that adds context throws a new exception built from the one it caught.
*/
class Exception : public std::exception {
public:
	/*! One message of the chain. */
	struct MsgInfo {
		MsgInfo(const std::string & what, const std::string & where) : m_what(what), m_where(where) {}
		std::string m_what;		///< message text
		std::string m_where;	///< function id of the origin, e.g. "[DataIO::read]"
	};

	/*! An exception without messages; what() gives an empty string. */
	Exception() = default;
	Exception(const std::string & what, const std::string & where);
	Exception(const MessageFormat & what, const std::string & where);
	/*! Copies the records of the previous exception and appends the new message. */
	Exception(const Exception & previous, const std::string & what, const std::string & where);
	Exception(const Exception & previous, const MessageFormat & what, const std::string & where);
	/*! A standard exception becomes the first record (its what() text, without origin). */
	Exception(const std::exception & previous, const std::string & what, const std::string & where);
	Exception(const std::exception & previous, const MessageFormat & what, const std::string & where);

	/*! Text of the newest (outermost) record, or an empty string. */
	const char * what() const noexcept override;

	/*! Sends every record, oldest first, to the current message handler as error of level 1. */
	void reportAllAsErrors() const;

	/*! The whole chain as text, one record per line: function id, a blank, the message. */
	std::string msgWithOrigin() const;

	/*! All records, oldest first. */
	const std::vector<MsgInfo> & messages() const { return m_msgs; }

private:
	std::vector<MsgInfo>	m_msgs;
};

} // namespace ZEB

#endif // ZEB_ExceptionH
