#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QSettings>

/*! Runs the tests inside an application object, headless, with the organisation/application
	settings stores redirected into the scratch directory so that no user settings are touched.
*/
int main(int argc, char * argv[]) {
	if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
		qputenv("QT_QPA_PLATFORM", "offscreen");
	::testing::InitGoogleTest(&argc, argv);
	QApplication app(argc, argv);

	QString scratch = qEnvironmentVariable("ORVANE_TEST_SCRATCH");
	if (scratch.isEmpty())
		scratch = QDir::temp().filePath("OrvanePartTests");
	const QString store = QDir(scratch).filePath("settings-store");
	QDir().mkpath(store);
	QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, store);
	QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, store);

	return RUN_ALL_TESTS();
}
