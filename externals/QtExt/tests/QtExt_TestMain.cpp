#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QSettings>

/*! Runs the tests inside an application object (the test environment makes it headless), with
	the organisation/application settings stores redirected into the scratch directory so that no
	user settings are touched.
*/
int main(int argc, char * argv[]) {
	::testing::InitGoogleTest(&argc, argv);
	QApplication app(argc, argv);

	const QString store = QDir(qEnvironmentVariable("ORVANE_TEST_SCRATCH")).filePath("settings-store");
	QDir().mkpath(store);
	QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, store);
	QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, store);

	return RUN_ALL_TESTS();
}
