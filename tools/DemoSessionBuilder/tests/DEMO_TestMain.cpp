#include <gtest/gtest.h>

#include <QApplication>

#include <ZEB_MessageHandler.h>

/*! Runs the tests inside an application object (chart models need fonts), headless. */
int main(int argc, char * argv[]) {
	if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
		qputenv("QT_QPA_PLATFORM", "offscreen");
	::testing::InitGoogleTest(&argc, argv);
	QApplication app(argc, argv);
	// warnings and errors only, not the progress of every extractor update
	ZEB::MessageHandler::current()->setConsoleVerbosityLevel(1);
	return RUN_ALL_TESTS();
}
