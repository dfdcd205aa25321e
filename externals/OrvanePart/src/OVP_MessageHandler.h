#ifndef OVP_MessageHandlerH
#define OVP_MessageHandlerH

#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <QObject>
#include <QString>
#include <QtGlobal>

#include <ZEB_MessageHandler.h>

namespace OVP {

/*! The application's message handler: writes console and log file like the base handler and
	also passes every message shown at the console verbosity level on to the log panel through
	msgReceived().
*/
class MessageHandler : public QObject, public ZEB::MessageHandler {
	Q_OBJECT
public:
	/*! Most messages kept for the log panel until it takes them. */
	static constexpr std::size_t BACKLOG_SIZE = 1000;

	/*! A signalled message: type and text as in msgReceived(). */
	using Message = std::pair<int, QString>;

	explicit MessageHandler(QObject * parent = nullptr);

	/*! The messages signalled so far, oldest first (the last BACKLOG_SIZE); from now on no more
		are kept.
	*/
	std::vector<Message> takeBacklog();

	/*! Writes the message like the base handler, then, when verboseLevel is not above the console
		verbosity level, emits msgReceived() with the type and the trimmed text.
	*/
	void message(const std::string & msg, ZEB::MsgType type = ZEB::MSG_PROGRESS,
				 const char * functionId = nullptr, int verboseLevel = 1) override;

signals:
	/*! A message for the log panel: type is one of ZEB::MsgType, msg is the text decoded from
		UTF-8 without leading and trailing white space.
	*/
	void msgReceived(int type, QString msg);

private:
	/*! Guards the backlog: messages may come from any thread. */
	std::mutex				m_backlogMutex;
	std::vector<Message>	m_backlog;
	bool					m_keepBacklog = true;
};

/*! Target of qInstallMessageHandler(): forwards every diagnostic of the toolkit to the current
	message handler as debug message of verbosity level 1, function id "[qDebugMsgHandler]".
	Calls of this function from several threads are serialised among themselves; a diagnostic
	raised while one is being forwarded on the same thread is dropped instead of recursing.
*/
void qDebugMsgHandler(QtMsgType type, const QMessageLogContext & context, const QString & msg);

} // namespace OVP

#endif // OVP_MessageHandlerH
