#include <gtest/gtest.h>

#include <QApplication>

#include <ZEB_MessageHandler.h>

/*! Runs the tests inside an application object (chart models need fonts); the test environment makes it headless. */
int main(int argc, char * argv[]) {
	::testing::InitGoogleTest(&argc, argv);
	QApplication app(argc, argv);
	// warnings and errors only, not the progress of every extractor update
	ZEB::MessageHandler::current()->setConsoleVerbosityLevel(1);
	return RUN_ALL_TESTS();
}
