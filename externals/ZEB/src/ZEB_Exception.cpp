#include "ZEB_Exception.h"

#include "ZEB_MessageFormat.h"
#include "ZEB_MessageHandler.h"

namespace ZEB {

Exception::Exception(const std::string & what, const std::string & where) {
	m_msgs.emplace_back(what, where);
}

Exception::Exception(const MessageFormat & what, const std::string & where) :
	Exception(what.str(), where)
{
}

Exception::Exception(const Exception & previous, const std::string & what, const std::string & where) :
	m_msgs(previous.m_msgs)
{
	m_msgs.emplace_back(what, where);
}

Exception::Exception(const Exception & previous, const MessageFormat & what, const std::string & where) :
	Exception(previous, what.str(), where)
{
}

Exception::Exception(const std::exception & previous, const std::string & what, const std::string & where) {
	m_msgs.emplace_back(previous.what(), std::string());
	m_msgs.emplace_back(what, where);
}

Exception::Exception(const std::exception & previous, const MessageFormat & what, const std::string & where) :
	Exception(previous, what.str(), where)
{
}

const char * Exception::what() const noexcept {
	if (m_msgs.empty())
		return "";
	return m_msgs.back().m_what.c_str();
}

void Exception::reportAllAsErrors() const {
	MessageHandler * handler = MessageHandler::current();
	for (const MsgInfo & m : m_msgs)
		handler->message(m.m_what, MSG_ERROR, m.m_where.empty() ? nullptr : m.m_where.c_str(), 1);
}

std::string Exception::msgWithOrigin() const {
	std::string result;
	for (const MsgInfo & m : m_msgs) {
		if (!m.m_where.empty())
			result += m.m_where + " ";
		result += m.m_what + "\n";
	}
	return result;
}

} // namespace ZEB
