#include "OVP_ProjectTestUtils.h"

#include <QDebug>
#include <QSignalSpy>

#include <OVP_MessageHandler.h>

namespace {

/*! The application handler with the console copy captured instead of printed. */
class CapturingHandler : public OVP::MessageHandler {
public:
	void writeConsole(const std::string & text, ZEB::MsgType) override { m_console += text; }
	std::string m_console;
};

} // namespace


TEST(OVPMessageHandler, EmitsTrimmedMessagesUpToConsoleLevel) {
	CapturingHandler h;
	h.setConsoleVerbosityLevel(1);
	h.setLogfileVerbosityLevel(3);
	const QString log = OVPTest::scratchDir("message-handler") + "/signal.log";
	std::string err;
	ASSERT_TRUE(h.openLog(log.toStdString(), false, err)) << err;
	QSignalSpy spy(&h, &OVP::MessageHandler::msgReceived);

	h.message("  Reading file 'a.out'\n", ZEB::MSG_PROGRESS, "[Test::a]", 1);
	h.message("Temperatur 20 \xc2\xb0" "C\t\n", ZEB::MSG_WARNING, "[Test::b]", 0);
	h.message("detail\n", ZEB::MSG_PROGRESS, "[Test::c]", 2);		// above console level: log only
	h.message("hidden error", ZEB::MSG_ERROR, "[Test::d]", 3);		// shown and logged, but not signalled
	h.message("\n", ZEB::MSG_DEBUG, "[Test::e]", 1);

	ASSERT_EQ(spy.count(), 3);
	EXPECT_EQ(spy.at(0).at(1).toString(), "Reading file 'a.out'");
	EXPECT_EQ(spy.at(1).at(0).toInt(), int(ZEB::MSG_WARNING));
	EXPECT_EQ(spy.at(1).at(1).toString(), QString::fromUtf8("Temperatur 20 \xc2\xb0" "C"));
	EXPECT_EQ(spy.at(2).at(1).toString(), "");

	// the base handler's work is done as before: the log file has what was not signalled
	h.closeLog();
	EXPECT_TRUE(OVPTest::readText(log).contains("[Test::c]"));

	// the signalled messages were kept for the log panel, until it takes them
	const std::vector<OVP::MessageHandler::Message> backlog = h.takeBacklog();
	ASSERT_EQ(backlog.size(), 3u);
	EXPECT_EQ(backlog[1], OVP::MessageHandler::Message(ZEB::MSG_WARNING, QString::fromUtf8("Temperatur 20 \xc2\xb0" "C")));
	h.message("later\n", ZEB::MSG_PROGRESS, "[Test::f]", 1);
	EXPECT_TRUE(h.takeBacklog().empty());

	// of a flood before the panel exists, the newest messages are kept
	CapturingHandler flooded;
	for (std::size_t i = 0; i < OVP::MessageHandler::BACKLOG_SIZE + 5; ++i)
		flooded.message(std::to_string(i) + "\n");
	const std::vector<OVP::MessageHandler::Message> newest = flooded.takeBacklog();
	ASSERT_EQ(newest.size(), OVP::MessageHandler::BACKLOG_SIZE);
	EXPECT_EQ(newest.front().second, "5");
	EXPECT_EQ(newest.back().second, QString::number(OVP::MessageHandler::BACKLOG_SIZE + 4));
}


TEST(OVPMessageHandler, QtDiagnosticsBecomeDebugMessages) {
	CapturingHandler h;
	h.setConsoleVerbosityLevel(1);
	const QString log = OVPTest::scratchDir("message-bridge") + "/bridge.log";
	std::string err;
	ASSERT_TRUE(h.openLog(log.toStdString(), false, err)) << err;
	ZEB::MessageHandler::setCurrent(&h);
	QSignalSpy spy(&h, &OVP::MessageHandler::msgReceived);

	const QtMessageHandler previous = qInstallMessageHandler(OVP::qDebugMsgHandler);
	qWarning("Cannot open %s (%d)", "x.png", 5);
	qDebug() << "plain debug";
	// forwarded at level 1: not signalled when the console shows only level 0
	h.setConsoleVerbosityLevel(0);
	qInfo("quiet");
	qInstallMessageHandler(previous);
	ZEB::MessageHandler::setCurrent(nullptr);
	h.closeLog();

	ASSERT_EQ(spy.count(), 2);
	EXPECT_EQ(spy.at(0).at(0).toInt(), int(ZEB::MSG_DEBUG));
	EXPECT_EQ(spy.at(0).at(1).toString(), "Cannot open x.png (5)");
	EXPECT_EQ(spy.at(1).at(1).toString(), "plain debug");

	const QStringList lines = OVPTest::readText(log).split('\n', Qt::SkipEmptyParts);
	ASSERT_EQ(lines.size(), 3) << OVPTest::readText(log).toStdString();
	for (const QString & l : lines) {
		EXPECT_TRUE(l.contains("[Debug   ]\t[qDebugMsgHandler]")) << l.toStdString();
	}
	EXPECT_TRUE(lines[2].endsWith("quiet"));
}
