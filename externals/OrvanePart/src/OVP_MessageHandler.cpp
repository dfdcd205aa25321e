#include "OVP_MessageHandler.h"

#include <mutex>

#include <ZEB_FunctionId.h>

namespace OVP {

MessageHandler::MessageHandler(QObject * parent) :
	QObject(parent)
{
}


void MessageHandler::message(const std::string & msg, ZEB::MsgType type, const char * functionId, int verboseLevel) {
	ZEB::MessageHandler::message(msg, type, functionId, verboseLevel);
	if (verboseLevel > consoleVerbosityLevel())
		return;
	const QString text = QString::fromUtf8(msg.data(), static_cast<int>(msg.size())).trimmed();
	{
		std::lock_guard<std::mutex> lock(m_backlogMutex);
		if (m_keepBacklog) {
			if (m_backlog.size() == BACKLOG_SIZE)
				m_backlog.erase(m_backlog.begin());
			m_backlog.emplace_back(type, text);
		}
	}
	emit msgReceived(type, text);
}


std::vector<MessageHandler::Message> MessageHandler::takeBacklog() {
	std::lock_guard<std::mutex> lock(m_backlogMutex);
	m_keepBacklog = false;
	std::vector<Message> taken;
	taken.swap(m_backlog);
	return taken;
}


namespace {

/*! Marks the current thread as forwarding a diagnostic for the guard's lifetime. */
class ForwardingGuard {
public:
	explicit ForwardingGuard(bool & flag) : m_flag(flag) { m_flag = true; }
	~ForwardingGuard() { m_flag = false; }
	ForwardingGuard(const ForwardingGuard &) = delete;
	ForwardingGuard & operator=(const ForwardingGuard &) = delete;
private:
	bool & m_flag;
};

} // namespace


void qDebugMsgHandler(QtMsgType, const QMessageLogContext &, const QString & msg) {
	FUNCID(qDebugMsgHandler);
	// the message handler itself may cause a diagnostic (e.g. a signal emitted to a vanished
	// receiver); forwarding that one again would never end
	thread_local bool forwarding = false;
	if (forwarding)
		return;
	ForwardingGuard guard(forwarding);
	static std::mutex mutex;
	std::lock_guard<std::mutex> lock(mutex);
	ZEB::reportDebug(msg.toStdString(), FUNC_ID, 1);
}

} // namespace OVP
