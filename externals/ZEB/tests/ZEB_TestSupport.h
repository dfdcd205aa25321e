#ifndef ZEB_TestSupportH
#define ZEB_TestSupportH

#include <string>

#include <gtest/gtest.h>

#include <ZEB_Exception.h>

/*! Runs f and checks that it throws a ZEB::Exception whose newest record is msg from where. */
template <typename F>
void expectError(F f, const std::string & msg, const std::string & where) {
	try {
		f();
		ADD_FAILURE() << "no exception, expected: " << where << " " << msg;
	}
	catch (ZEB::Exception & ex) {
		EXPECT_EQ(std::string(ex.what()), msg);
		ASSERT_FALSE(ex.messages().empty());
		EXPECT_EQ(ex.messages().back().m_where, where);
	}
}

#endif // ZEB_TestSupportH
