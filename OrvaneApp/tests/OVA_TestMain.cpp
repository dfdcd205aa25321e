#include <gtest/gtest.h>

#include <QDir>
#include <QSettings>

#include "OVADebugApplication.h"
#include "OVADirectories.h"

/*! Runs the tests inside the application's own application object, headless. The home
	directory (which holds the log file directory) and the settings stores are redirected into
	the scratch directory, so that no user files are touched.
*/
int main(int argc, char * argv[]) {
	if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
		qputenv("QT_QPA_PLATFORM", "offscreen");
	QString scratch = qEnvironmentVariable("ORVANE_TEST_SCRATCH");
	if (scratch.isEmpty())
		scratch = QDir::temp().filePath("OrvaneAppTests");
	const QString home = QDir(scratch).filePath("home");
	QDir().mkpath(home);
	qputenv("HOME", home.toLocal8Bit());
	qputenv("XDG_CONFIG_HOME", QDir(home).filePath(".config").toLocal8Bit());

	::testing::InitGoogleTest(&argc, argv);
	OVADirectories::setAppName("OrvaneApp");
	OVADebugApplication app(argc, argv);

	const QString store = QDir(scratch).filePath("settings-store");
	QDir().mkpath(store);
	QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, store);
	QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, store);

	return RUN_ALL_TESTS();
}
