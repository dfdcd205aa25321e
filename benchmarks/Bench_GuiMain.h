#ifndef Bench_GuiMainH
#define Bench_GuiMainH

#include <cstdlib>

#include <QApplication>

#include <benchmark/benchmark.h>

#include <ZEB_MessageHandler.h>

/*! Runs the registered benchmarks of a program that draws widgets: inside a QApplication, headless
	unless a platform is set, with the console kept to messages of level 1 so that progress reports
	stay out of the timings.
*/
inline int runGuiBenchmarks(int argc, char ** argv) {
	setenv("QT_QPA_PLATFORM", "offscreen", 0);
	QApplication app(argc, argv);
	ZEB::MessageHandler::current()->setConsoleVerbosityLevel(1);
	benchmark::Initialize(&argc, argv);
	benchmark::RunSpecifiedBenchmarks();
	return 0;
}

#endif // Bench_GuiMainH
