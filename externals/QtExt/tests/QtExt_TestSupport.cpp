#include "QtExt_TestSupport.h"

#include <QDir>
#include <QFile>

namespace QtExtTest {

MessageCapture::MessageCapture() {
	setConsoleVerbosityLevel(10);
	ZEB::MessageHandler::setCurrent(this);
}


MessageCapture::~MessageCapture() {
	ZEB::MessageHandler::setCurrent(nullptr);
}


void MessageCapture::message(const std::string & msg, ZEB::MsgType type, const char * functionId, int) {
	m_msgs.push_back(Msg{msg, type, functionId != nullptr ? functionId : ""});
}


QString scratchDir(const QString & name) {
	QDir dir(QDir(qEnvironmentVariable("ORVANE_TEST_SCRATCH")).filePath(name));
	dir.removeRecursively();
	QDir().mkpath(dir.path());
	return dir.path();
}


bool writeFile(const QString & path, const QByteArray & data) {
	QFile f(path);
	return f.open(QIODevice::WriteOnly) && f.write(data) == data.size();
}

} // namespace QtExtTest
