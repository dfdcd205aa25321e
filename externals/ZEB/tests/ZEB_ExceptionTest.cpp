#include <gtest/gtest.h>

#include <stdexcept>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

namespace {

/*! Collects console output and passes messages through the base handler's rules. */
class CapturingHandler : public ZEB::MessageHandler {
public:
	CapturingHandler() { setCurrent(this); }
	void writeConsole(const std::string & text, ZEB::MsgType type) override {
		m_console += text;
		m_types.push_back(type);
	}
	std::string				m_console;
	std::vector<ZEB::MsgType> m_types;
};

} // namespace

TEST(ZEBException, ChainKeepsEveryLayerInnermostFirst) {
	try {
		try {
			try {
				throw std::runtime_error("disk on fire");
			}
			catch (std::exception & ex) {
				throw ZEB::Exception(ex, "Cannot open file 'a.d6o'", "[DataIO::openAndReadHeader]");
			}
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading DataIO file '%1'").arg("a.d6o"), "[DataIO::read]");
		}
	}
	catch (ZEB::Exception & ex) {
		ASSERT_EQ(ex.messages().size(), 3u);
		EXPECT_EQ(ex.messages()[0].m_what, "disk on fire");
		EXPECT_EQ(ex.messages()[1].m_where, "[DataIO::openAndReadHeader]");
		EXPECT_STREQ(ex.what(), "Error reading DataIO file 'a.d6o'");

		CapturingHandler handler;
		ex.reportAllAsErrors();
		EXPECT_EQ(handler.m_console, "disk on fire\nCannot open file 'a.d6o'\nError reading DataIO file 'a.d6o'\n");
		EXPECT_EQ(handler.m_types, std::vector<ZEB::MsgType>(3, ZEB::MSG_ERROR));
	}
	EXPECT_STREQ(ZEB::Exception().what(), "");
}

TEST(ZEBMessageFormat, PlaceholdersFilledInOrder) {
	EXPECT_EQ(ZEB::MessageFormat("%2 before %1").arg("b").arg(7).str(), "7 before b");
	// a placeholder without argument stays, "#2" is text
	EXPECT_EQ(ZEB::MessageFormat("'%1' at character pos #2 is %3.").arg("x y").str(), "'x y' at character pos #2 is %3.");
	// ten arguments: "%10" is the tenth, "%1" still the first
	ZEB::MessageFormat f("%10-%1");
	for (int i = 1; i <= 10; ++i)
		f.arg(i);
	EXPECT_EQ(f.str(), "10-1");
	// "%12" with one argument is the first argument followed by "2"
	EXPECT_EQ(ZEB::MessageFormat("%12").arg("a").str(), "a2");
	// doubles read back exactly
	double v = 0.1 + 0.2;
	EXPECT_EQ(std::stod(ZEB::MessageFormat("%1").arg(v).str()), v);
}
