#ifndef ZEB_TestSupportH
#define ZEB_TestSupportH

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <ZEB_Exception.h>

/*! Runs f and checks that it throws a ZEB::Exception whose newest record is msg from where;
	returns the records of the exception (none when there was none).
*/
template <typename F>
std::vector<ZEB::Exception::MsgInfo> expectError(F f, const std::string & msg, const std::string & where) {
	try {
		f();
		ADD_FAILURE() << "no exception, expected: " << where << " " << msg;
	}
	catch (ZEB::Exception & ex) {
		EXPECT_EQ(std::string(ex.what()), msg);
		EXPECT_EQ(ex.messages().empty() ? std::string() : ex.messages().back().m_where, where);
		return ex.messages();
	}
	return {};
}

#endif // ZEB_TestSupportH
