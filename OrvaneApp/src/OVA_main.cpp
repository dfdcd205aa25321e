/*	Entry point of OrvaneApp: sets up settings, command line, log, language and splash screen,
	runs the main window and, after the event loop, installs a downloaded update.
*/
#include <iostream>
#include <memory>

#include <QDir>
#include <QFont>
#include <QLocale>
#include <QMessageBox>
#include <QPixmap>
#include <QSplashScreen>
#include <QTimer>

#include <ZEB_ArgParser.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include <QtExt_AutoUpdater.h>
#include <QtExt_LanguageHandler.h>

#include <OVP_MessageHandler.h>
#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>

#include "OVADebugApplication.h"
#include "OVADirectories.h"
#include "OVAMainWindow.h"

/*! Registers the compiled-in resources (icons, splash images, style sheet); the resource macro
	must not be used inside a namespace.
*/
static void initResources() {
	Q_INIT_RESOURCE(OrvaneApp);
}

namespace {

/*! Time the splash screen stays visible, in milliseconds. */
const int SPLASH_DURATION_MS = 5000;

/*! Installs the translator of the start-up language: the --lang value when it differs from the
	stored language, nothing when it equals the stored one (the translators stay as they are),
	the stored language without --lang. Returns the language id of this run.
*/
QString installStartupLanguage(const ZEB::ArgParser & argParser, const OVP::Settings & settings) {
	FUNCID(main);
	QtExt::LanguageHandler & languages = QtExt::LanguageHandler::instance();
	QString langId = "en";
	if (argParser.hasOption("lang")) {
		langId = QString::fromStdString(argParser.value("lang"));
		if (langId != languages.langId()) {
			ZEB::reportProgress(ZEB::MessageFormat("Installing translator for language: '%1'.\n")
								.arg(langId.toStdString()).str(), FUNC_ID, 1);
			languages.installTranslator(langId);
		}
	}
	else {
		langId = settings.m_langId;
		languages.installTranslator(langId);
	}
	return langId;
}


/*! True when no display server is reachable and the toolkit's platform was not chosen either.
	The program then runs on the off-screen platform: the help, the version and scripted chart
	exports work without a display, as they must in scripts and on build machines.
*/
bool chooseOffscreenPlatform() {
	if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY") ||
		qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
	{
		return false;
	}
	qputenv("QT_QPA_PLATFORM", "offscreen");
	return true;
}


/*! The program from the application object to the end of the event loop; returns the exit code. */
int runApplication(int argc, char * argv[]) {
	OVADirectories::setAppName("OrvaneApp");
	const bool withoutDisplay = chooseOffscreenPlatform();

	OVADebugApplication app(argc, argv);
	app.setStyleSheet("QMessageBox { messagebox-text-interaction-flags: 5; }");
	qInstallMessageHandler(OVP::qDebugMsgHandler);
	QFont font = app.font();
	font.setPointSize(9);
	app.setFont(font);
	initResources();

	OVP::Settings settings("ZEB", "OrvanePart");
	settings.read();

	ZEB::ArgParser argParser;
	argParser.setProgramName(OVADirectories::appName().toStdString());
	argParser.setVersion(ORVANEAPP_VERSION);
	argParser.setArgumentsHint("[session file (*.o2)]");
	settings.updateArgParser(argParser);
	argParser.addOption("generate-chart",
						"Export chart #n, with dimensions 'width x height' and filename fn like 'diagram1.pdf'.",
						"n:bxh:fn");
	argParser.addOption("generate-charts", "Exports several charts using export specs from given file.",
						"exportSpecsFile");
	try {
		argParser.parse(argc, argv);
	}
	catch (ZEB::Exception & ex) {
		std::cerr << ex.msgWithOrigin() << "\nUse --help for the list of options." << std::endl;
		return 1;
	}
	settings.applyCommandLineArgs(argParser);
	if (argParser.handleDefaultFlags())
		return 0;
	if (withoutDisplay && !argParser.hasOption("generate-chart") && !argParser.hasOption("generate-charts")) {
		std::cerr << "No display available. Without one, OrvaneApp exports charts with --generate-chart "
					 "or --generate-charts; see --help." << std::endl;
		return 1;
	}

	QDir().mkpath(OVADirectories::userDataDir());
	OVP::MessageHandler msgHandler;
	ZEB::MessageHandler::setCurrent(&msgHandler);
	std::string logError;
	// without a log file the program works all the same
	msgHandler.openLog(OVADirectories::logFile().toStdString(), false, logError);
	msgHandler.setConsoleVerbosityLevel(settings.m_userLogLevelConsole);
	msgHandler.setLogfileVerbosityLevel(settings.m_userLogLevelLogfile);

	OVP::ProjectHandler projectHandler;
	QtExt::LanguageHandler::instance().setup(settings.m_organization, settings.m_appName,
											 OVADirectories::translationsDir(), "OrvaneApp");
	const QString langId = installStartupLanguage(argParser, settings);
	settings.decideExportGermanFormat(QLocale::system());

	std::unique_ptr<QSplashScreen> splash;
	if (!settings.m_noSplashScreen) {
		const QString image = langId == "de" ? ":/gfx/spashscreen/Orvane_SplashScreen_de.png"
											 : ":/gfx/spashscreen/Orvane_SplashScreen_en.png";
		splash.reset(new QSplashScreen(QPixmap(image), Qt::WindowStaysOnTopHint));
		// the splash must not keep the program alive when the main window closes early
		splash->setAttribute(Qt::WA_QuitOnClose, false);
		splash->show();
		QTimer::singleShot(SPLASH_DURATION_MS, splash.get(), &QSplashScreen::close);
	}

	std::unique_ptr<OVAMainWindow> mainWindow(new OVAMainWindow);
	mainWindow->showMaximized();
	// the splash stays in front of the main window while it is shown
	if (splash)
		splash->raise();
	if (argParser.hasOption("generate-chart"))
		mainWindow->generateChart(QString::fromStdString(argParser.value("generate-chart")));
	if (argParser.hasOption("generate-charts"))
		mainWindow->generateCharts(QString::fromStdString(argParser.value("generate-charts")));
	// a scripted export runs unattended: no one to answer an update offer; an offer waits for the
	// splash screen, which would cover it
	if (!argParser.hasOption("generate-chart") && !argParser.hasOption("generate-charts"))
		QTimer::singleShot(splash ? SPLASH_DURATION_MS : 0, mainWindow.get(), &OVAMainWindow::onCheckForUpdatesAtStart);

	const int result = app.exec();

	const QString installer = mainWindow->updateInstallerFileName();
	mainWindow.reset();
	if (!installer.isEmpty()) {
		try {
			QtExt::AutoUpdater::installUpdate(OVADirectories::updateDownloadDir(), installer);
		}
		catch (ZEB::Exception & ex) {
			ex.reportAllAsErrors();
			QMessageBox::critical(nullptr, QCoreApplication::translate("main", "Install update"),
								  QString::fromStdString(ex.what()));
		}
	}
	return result;
}

} // namespace


int main(int argc, char * argv[]) {
	try {
		return runApplication(argc, argv);
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		return 1;
	}
}
