#ifndef OVP_MessageHandlerH
#define OVP_MessageHandlerH

#include <string>

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
	explicit MessageHandler(QObject * parent = nullptr);

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
};

/*! Target of qInstallMessageHandler(): forwards every diagnostic of the toolkit to the current
	message handler as debug message of verbosity level 1, function id "[qDebugMsgHandler]".
	Calls of this function from several threads are serialised among themselves; a diagnostic
	raised while one is being forwarded on the same thread is dropped instead of recursing.
*/
void qDebugMsgHandler(QtMsgType type, const QMessageLogContext & context, const QString & msg);

} // namespace OVP

#endif // OVP_MessageHandlerH
