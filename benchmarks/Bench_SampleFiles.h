#ifndef Bench_SampleFilesH
#define Bench_SampleFilesH

// Where the file benchmarks keep the sample files they generate, and their generation once per
// folder. ORVANE_BENCH_MB sets the size (default 100 MB), ORVANE_BENCH_DIR the folder (default
// /tmp/<prefix>-<MB>).
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <ZEB_Exception.h>

#include <SD_SampleDataSet.h>

/*! The size in MB and the folder of a benchmark's files. */
struct BenchFileLocation {
	double		m_mb = 100;
	std::string	m_directory;
};

/*! The size and folder from the environment; prefix names the default folder. */
inline BenchFileLocation benchFileLocation(const std::string & prefix) {
	BenchFileLocation location;
	const char * mbText = std::getenv("ORVANE_BENCH_MB");
	location.m_mb = mbText != nullptr ? std::atof(mbText) : 100.0;
	if (!(location.m_mb >= 1))
		throw std::runtime_error("ORVANE_BENCH_MB must be at least 1");
	const char * dirText = std::getenv("ORVANE_BENCH_DIR");
	location.m_directory = dirText != nullptr ? dirText : prefix + "-" + std::to_string(static_cast<long>(location.m_mb));
	return location;
}

/*! Writes the sample files of o into o.m_directory unless a finished set is there already (a
	"complete" file beside every file of o.m_only); note goes into that file.
*/
inline void generateBenchFilesOnce(const SD::SampleDataSet::Options & o, const std::string & note) {
	namespace fs = std::filesystem;
	const std::string complete = o.m_directory + "/complete";
	bool present = fs::exists(complete);
	for (const std::string & name : o.m_only)
		present = present && fs::exists(o.m_directory + "/" + name);
	if (present)
		return;
	try {
		SD::SampleDataSet(o).write();
	}
	catch (ZEB::Exception & ex) {
		throw std::runtime_error(ex.msgWithOrigin());
	}
	std::ofstream(complete) << note << "\n";
}

#endif // Bench_SampleFilesH
