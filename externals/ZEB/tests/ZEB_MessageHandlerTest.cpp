#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <regex>

#include <ZEB_MessageHandler.h>

namespace {

/*! Captures the console copy of messages instead of writing to standard output. */
class ConsoleCapture : public ZEB::MessageHandler {
public:
	void writeConsole(const std::string & text, ZEB::MsgType) override { m_console += text; }
	std::string m_console;
};

std::string scratchFile(const std::string & name) {
	return std::string(std::getenv("ORVANE_TEST_SCRATCH")) + "/" + name;
}

std::string readFile(const std::string & path) {
	std::ifstream in(path);
	std::stringstream s;
	s << in.rdbuf();
	return s.str();
}

} // namespace


TEST(ZEBMessageHandler, LogLinesCarryFullPrefixOnEveryPhysicalLine) {
	ConsoleCapture h;
	std::string err;
	const std::string logPath = scratchFile("prefix.log");
	ASSERT_TRUE(h.openLog(logPath, false, err)) << err;
	h.setIndentation(1);
	h.message("first line\nsecond line", ZEB::MSG_WARNING, "[Test::warn]", 1);
	h.message("ends with break\n", ZEB::MSG_PROGRESS, "[Test::prog]", 1);
	h.message("no origin", ZEB::MSG_ERROR, nullptr, 1);
	h.closeLog();

	// time stamp, tab, ten character label, tab, id padded to 40, tab, two blanks indentation
	const std::string stamp = "\\d{4}-\\d{2}-\\d{2} \\d{2}:\\d{2}:\\d{2}\t";
	const std::string warn = stamp + "\\[Warning \\]\t\\[Test::warn\\]" + std::string(28, ' ') + "\t  ";
	const std::regex expected(warn + "first line\n" + warn + "second line\n" +
		stamp + "\\[Progress\\]\t\\[Test::prog\\]" + std::string(28, ' ') + "\t  ends with break\n" +
		stamp + "\\[Error   \\]\t" + std::string(40, ' ') + "\t  no origin\n");
	const std::string log = readFile(logPath);
	EXPECT_TRUE(std::regex_match(log, expected)) << log;
	// the console copy: indentation and text only, one break inside the warning
	EXPECT_EQ(h.m_console, "  first line\n  second line\n  ends with break\n  no origin\n");
}


TEST(ZEBMessageHandler, LevelsDecideConsoleAndLog) {
	ConsoleCapture h;
	h.setTimeStampFormat("");
	std::string err;
	const std::string logPath = scratchFile("levels.log");
	ASSERT_TRUE(h.openLog(logPath, false, err)) << err;
	h.setConsoleVerbosityLevel(4);
	h.setLogfileVerbosityLevel(2);
	h.message("level3\n", ZEB::MSG_PROGRESS, nullptr, 3);		// console only
	h.message("level0\n", ZEB::MSG_PROGRESS, nullptr, 0);		// console only, never logged
	h.message("level5\n", ZEB::MSG_PROGRESS, nullptr, 5);		// dropped
	h.message("warn7", ZEB::MSG_WARNING, nullptr, 7);			// dropped
	h.message("err9", ZEB::MSG_ERROR, nullptr, 9);				// errors always pass
	h.message("dbg9", ZEB::MSG_DEBUG, nullptr, 9);				// debug always passes
	h.message("part ", ZEB::MSG_PROGRESS, nullptr, 2);
	h.message("rest\n", ZEB::MSG_CONT, nullptr, 2);				// bare text
	h.setConsoleVerbosityLevel(-1);
	h.message("quiet0\n", ZEB::MSG_PROGRESS, nullptr, 0);		// level 0 reaches the console anyway
	h.closeLog();

	EXPECT_EQ(h.m_console, "level3\nlevel0\nerr9\ndbg9\npart rest\nquiet0\n");
	const std::string noId = std::string(40, ' ') + "\t";	// no function id; no time stamp with an empty format
	EXPECT_EQ(readFile(logPath), "[Error   ]\t" + noId + "err9\n[Debug   ]\t" + noId + "dbg9\n[Progress]\t" + noId + "part rest\n");
}


TEST(ZEBMessageHandler, OpenLogAppendAndFailure) {
	ConsoleCapture h;
	std::string err;
	const std::string logPath = scratchFile("append.log");
	ASSERT_TRUE(h.openLog(logPath, false, err));
	h.message("one", ZEB::MSG_ERROR);
	ASSERT_TRUE(h.openLog(logPath, true, err));
	h.message("two", ZEB::MSG_ERROR);
	h.closeLog();
	const std::string log = readFile(logPath);
	EXPECT_TRUE(std::regex_match(log, std::regex(".*one\n\n----------- continued -------------\n\n.*two\n"))) << log;

	const std::string bad = scratchFile("no/such/dir/x.log");
	EXPECT_FALSE(h.openLog(bad, false, err));
	EXPECT_EQ(err, "Cannot open/create logfile '" + bad + "'.");
	EXPECT_FALSE(h.logFileOpen());
}


TEST(ZEBMessageHandler, CurrentHandlerFallsBackToDefault) {
	ZEB::MessageHandler * def = ZEB::MessageHandler::current();
	{
		ConsoleCapture h;
		ZEB::MessageHandler::setCurrent(&h);
		{
			ZEB::MessageIndentor indent;
			ZEB::reportWarning("indented");
		}
		ZEB::reportProgress("back\n");
		EXPECT_EQ(h.m_console, "  indented\nback\n");
	}
	EXPECT_EQ(ZEB::MessageHandler::current(), def);
}
