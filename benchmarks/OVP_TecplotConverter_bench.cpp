// libs: OrvanePart SampleData
// Conversion speed of OVP::TecplotConverter: a field output of the wall corner of the sample
// data generator (40 x 40 cells, 1344 elements, a record every 3 hours) read and written as a
// Tecplot ASCII data file of all time points. Bytes processed are those of the input file.
//
// The input is made on first use in $ORVANE_BENCH_DIR (default /tmp/orvane-tecplot-bench-<MB>)
// with an ASCII size of about $ORVANE_BENCH_MB megabytes (default 100), in ASCII and binary form;
// later runs reuse it. The Tecplot file goes to the same folder and is removed after each run.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <string>

#include <QString>

#include <ZEB_Exception.h>

#include <OVP_FieldOutputFile.h>
#include <OVP_TecplotConverter.h>

#include "SD_SampleDataSet.h"

#include "Bench_SampleFiles.h"

namespace {

namespace fs = std::filesystem;

/*! Bytes one corner record takes in the ASCII file (1344 values and the time point). */
const double ASCII_BYTES_PER_RECORD = 16190;
/*! Hours between two records of the corner field. */
const unsigned int RECORD_STEP = 3;

/*! The benchmark files, generated on first use. */
class BenchFiles {
public:
	static const BenchFiles & instance() {
		static const BenchFiles files;
		return files;
	}

	std::string		m_directory;
	std::string		m_ascii;
	std::string		m_binary;

private:
	BenchFiles() {
		const BenchFileLocation location = benchFileLocation("/tmp/orvane-tecplot-bench");
		m_directory = location.m_directory;
		m_ascii = m_directory + "/corner_temperature.s6o";
		m_binary = m_directory + "/corner_temperature.s6b";
		SD::SampleDataSet::Options o;
		o.m_directory = m_directory;
		o.m_detailStep = RECORD_STEP;
		o.m_hours = static_cast<std::size_t>(std::ceil(location.m_mb*1e6/ASCII_BYTES_PER_RECORD))*RECORD_STEP;
		o.m_only = { "corner_temperature.s6o", "corner_temperature.s6b", "corner.g6a", "corner.g6b" };
		generateBenchFilesOnce(o, "hours: " + std::to_string(o.m_hours));
	}
};


// Reading the file (header, time points, geometry) and writing every time point as a zone.
void BM_TecplotConversion(benchmark::State & state, bool binary) {
	const BenchFiles & files = BenchFiles::instance();
	const std::string & input = binary ? files.m_binary : files.m_ascii;
	const QString target = QString::fromStdString(files.m_directory + "/corner_temperature.dat");
	std::int64_t written = 0;
	for (auto _ : state) {
		try {
			OVP::FieldOutputFile file(QString::fromStdString(input));
			OVP::TecplotConverter(file).write(target);
		}
		catch (ZEB::Exception & ex) {
			state.SkipWithError(ex.msgWithOrigin().c_str());
			return;
		}
		written = static_cast<std::int64_t>(fs::file_size(target.toStdString()));
		fs::remove(target.toStdString());
	}
	state.SetBytesProcessed(state.iterations()*static_cast<std::int64_t>(fs::file_size(input)));
	state.counters["output_MB"] = static_cast<double>(written)/1e6;
}
BENCHMARK_CAPTURE(BM_TecplotConversion, ascii, false)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK_CAPTURE(BM_TecplotConversion, binary, true)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace

BENCHMARK_MAIN();
