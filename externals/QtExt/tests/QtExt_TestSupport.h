#ifndef QtExt_TestSupportH
#define QtExt_TestSupportH

#include <string>
#include <vector>

#include <QString>

#include <ZEB_MessageHandler.h>

namespace QtExtTest {

/*! Becomes the current message handler for its lifetime and records every message it gets. */
class MessageCapture : public ZEB::MessageHandler {
public:
	/*! One received message. */
	struct Msg {
		std::string	m_text;
		int			m_type;
		std::string	m_functionId;
	};

	MessageCapture();
	~MessageCapture() override;

	void message(const std::string & msg, ZEB::MsgType type, const char * functionId, int verboseLevel) override;
	void writeConsole(const std::string &, ZEB::MsgType) override {}

	std::vector<Msg> m_msgs;
};

/*! A fresh, empty directory below the test scratch directory. */
QString scratchDir(const QString & name);

/*! Writes data to a file; returns false when that fails. */
bool writeFile(const QString & path, const QByteArray & data);

} // namespace QtExtTest

#endif // QtExt_TestSupportH
