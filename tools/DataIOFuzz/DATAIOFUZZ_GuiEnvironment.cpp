#include "DATAIOFUZZ_GuiEnvironment.h"

#include <QApplication>

#include <ZEB_MessageHandler.h>

namespace DATAIOFUZZ {

namespace {

/*! Drops every message. */
class SilentMessageHandler : public ZEB::MessageHandler {
public:
	void message(const std::string &, ZEB::MsgType, const char *, int) override {}
};

void dropQtMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace


/*! LeakSanitizer: fontconfig, which Qt uses for its font database, keeps a few allocations of
	its first font lookup until the process ends; they are neither reported nor listed.
*/
extern "C" const char * __lsan_default_suppressions() {
	return "leak:libfontconfig.so\n";
}

extern "C" const char * __lsan_default_options() {
	return "print_suppressions=0";
}


void GuiEnvironment::start() {
	static QApplication * application = nullptr;
	if (application != nullptr)
		return;
	qputenv("QT_QPA_PLATFORM", "offscreen");
	qInstallMessageHandler(dropQtMessage);
	static SilentMessageHandler silent;
	ZEB::MessageHandler::setCurrent(&silent);
	static int argc = 1;
	static char name[] = "DataIOFuzz";
	static char * argv[] = { name, nullptr };
	application = new QApplication(argc, argv);
}

} // namespace DATAIOFUZZ
