// DemoSessionBuilder: builds the demo session examples/demo/demo.o2 from the result set of the
// sample data generator, through the same library calls the program makes when the user creates
// and styles charts. Data paths in the session are written relative to the session file, so the
// data folder must lie below the session's folder. See examples/demo/README.md.

#include <iostream>

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <ZEB_ArgParser.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include <OVP_Project.h>
#include <OVP_ProjectHandler.h>

#include "DEMO_SessionBuilder.h"

int main(int argc, char * argv[]) {
	// the builder shows no window; fonts and colours need a GUI application all the same
	if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
		qputenv("QT_QPA_PLATFORM", "offscreen");
	QApplication app(argc, argv);
	try {
		ZEB::ArgParser args;
		args.setProgramName("DemoSessionBuilder");
		args.setVersion("1.0");
		args.addOption("data", "Folder with the files of SampleDataGenerator.", "DIR", "examples/demo/data");
		args.addOption("output", "Session file to write; the data folder must lie below its folder.", "FILE",
					   "examples/demo/demo.o2");
		args.parse(argc, argv);
		if (args.handleDefaultFlags())
			return 0;

		// warnings and errors, not the progress of every extractor update
		ZEB::MessageHandler::current()->setConsoleVerbosityLevel(1);
		const QString output = QFileInfo(QString::fromStdString(args.value("output"))).absoluteFilePath();
		OVP::ProjectHandler handler;
		DEMO::SessionBuilder builder(QString::fromStdString(args.value("data")));
		builder.build(handler);
		handler.project().writeXML(output, false);
		std::cout << "Wrote " << output.toStdString() << " with " << DEMO::SessionBuilder::CHART_COUNT << " charts.\n";
		return 0;
	}
	catch (ZEB::Exception & ex) {
		std::cerr << ex.msgWithOrigin() << std::endl;
		return 1;
	}
}
