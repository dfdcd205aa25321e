#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>

/*! Runs the tests inside a headless application object in the C locale (expected texts are
	written in it; tests of other locales set their own).
*/
int main(int argc, char * argv[]) {
	if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
		qputenv("QT_QPA_PLATFORM", "offscreen");
	::testing::InitGoogleTest(&argc, argv);
	QApplication app(argc, argv);
	QLocale::setDefault(QLocale::c());
	return RUN_ALL_TESTS();
}
