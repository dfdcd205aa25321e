// libs: DataIO SampleData
// Reading speed of simulation output files with DATAIO::DataIO: header and time point scan of
// ASCII and binary files, all values of an ASCII and a binary file (dataVector), the time series of
// one element gathered from every time point of a binary file, and the refresh of a growing
// file after 1 % more records arrived.
//
// The files are the 1D wall temperature field of the sample data generator (two years of
// hourly records), made on first use in $ORVANE_BENCH_DIR (default /tmp/orvane-dataio-bench-<MB>)
// with an ASCII size of about $ORVANE_BENCH_MB megabytes (default 100); later runs reuse them.
// For the 1 GB figures of docs/performance.md: ORVANE_BENCH_MB=1000.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <ZEB_Exception.h>

#include <DATAIO_DataIO.h>

#include "SD_Climate.h"
#include "SD_SampleDataSet.h"

#include "Bench_SampleFiles.h"

namespace {

namespace fs = std::filesystem;

/*! Bytes one value takes in the ASCII file on average, tab included (10 significant digits,
	sign, dot). */
const double ASCII_BYTES_PER_VALUE = 11.9;

/*! The benchmark files, generated on first use. */
class BenchFiles {
public:
	static const BenchFiles & instance() {
		static const BenchFiles files;
		return files;
	}

	std::string		m_ascii;
	std::string		m_binary;
	std::string		m_directory;

private:
	BenchFiles() {
		const BenchFileLocation location = benchFileLocation("/tmp/orvane-dataio-bench");
		m_directory = location.m_directory;
		m_ascii = m_directory + "/wall_temperature.s6o";
		m_binary = m_directory + "/wall_temperature.s6b";
		SD::SampleDataSet::Options o;
		o.m_directory = m_directory;
		o.m_hours = 2*SD::Climate::HOURS_PER_YEAR;
		o.m_wallElements = std::max(9u, static_cast<unsigned int>(location.m_mb*1e6/(o.m_hours*ASCII_BYTES_PER_VALUE)));
		o.m_only = { "wall_temperature.s6o", "wall_temperature.s6b" };
		generateBenchFilesOnce(o, "wall elements: " + std::to_string(o.m_wallElements));
	}
};

/*! Size of a file in bytes. */
std::int64_t fileSize(const std::string & path) {
	return static_cast<std::int64_t>(fs::file_size(path));
}

/*! Runs f and turns a ZEB::Exception into a benchmark error. */
template <typename F>
bool guarded(benchmark::State & state, F f) {
	try {
		f();
		return true;
	}
	catch (ZEB::Exception & ex) {
		state.SkipWithError(ex.msgWithOrigin().c_str());
		return false;
	}
}


/*! Private memory of the process in MiB: Private_Clean + Private_Dirty of /proc/self/smaps_rollup
	(pages mapped by this process alone, anonymous or from files). */
double privateMiB() {
	std::ifstream in("/proc/self/smaps_rollup");
	std::string key;
	double kB = 0;
	double sum = 0;
	while (in >> key) {
		if ((key == "Private_Clean:" || key == "Private_Dirty:") && in >> kB)
			sum += kB;
		in.ignore(1000, '\n');
	}
	return sum/1024;
}


// read(): header and the list of time points; ASCII lines stay in the file, binary values are
// skipped. Counter held_MiB: private memory the container holds after read().
void BM_HeaderAndTimePoints(benchmark::State & state, bool binary) {
	const std::string & file = binary ? BenchFiles::instance().m_binary : BenchFiles::instance().m_ascii;
	double held = 0;
	for (auto _ : state) {
		state.PauseTiming();
		const double before = privateMiB();
		state.ResumeTiming();
		DATAIO::DataIO dio;
		if (!guarded(state, [&] { dio.read(file); }))
			return;
		benchmark::DoNotOptimize(dio.timePoints().data());
		state.PauseTiming();
		held = std::max(held, privateMiB() - before);
		state.ResumeTiming();
	}
	state.SetBytesProcessed(state.iterations()*fileSize(file));
	state.counters["held_MiB"] = held;
}
BENCHMARK_CAPTURE(BM_HeaderAndTimePoints, ascii, false)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_HeaderAndTimePoints, binary, true)->Unit(benchmark::kMillisecond)->UseRealTime();


// dataVector() of a file that has been read: parsing all values of the ASCII file, reading all
// values of the binary one. Bytes: the data section.
void BM_DataVector(benchmark::State & state, bool binary) {
	const std::string & file = binary ? BenchFiles::instance().m_binary : BenchFiles::instance().m_ascii;
	std::int64_t bytes = 0;
	// timed by hand around dataVector() alone, as a Python loop times numpy.fromfile: reading the
	// header before and freeing the values after are not part of it
	for (auto _ : state) {
		DATAIO::DataIO dio;
		if (!guarded(state, [&] { dio.read(file); }))
			return;
		bytes += fileSize(file) - dio.dataSectionOffset();
		const auto start = std::chrono::steady_clock::now();
		if (!guarded(state, [&] { benchmark::DoNotOptimize(dio.dataVector()); }))
			return;
		state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
	}
	state.SetBytesProcessed(bytes);
}
BENCHMARK_CAPTURE(BM_DataVector, ascii, false)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(BM_DataVector, binary, true)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);


// read() and dataVector() together: from the file to all values in memory, what a CSV reader
// does. Bytes: the data section.
void BM_AsciiReadAndDataVector(benchmark::State & state) {
	const std::string & file = BenchFiles::instance().m_ascii;
	std::int64_t bytes = 0;
	for (auto _ : state) {
		DATAIO::DataIO dio;
		if (!guarded(state, [&] { dio.read(file); benchmark::DoNotOptimize(dio.dataVector()); }))
			return;
		bytes += fileSize(file) - dio.dataSectionOffset();
	}
	state.SetBytesProcessed(bytes);
}
BENCHMARK(BM_AsciiReadAndDataVector)->Unit(benchmark::kMillisecond)->UseRealTime();


// The time series of the middle element: read() and data(t) for every time point, as a line
// chart of one element over time does it. Items: time points.
void BM_BinaryElementTimeSeries(benchmark::State & state) {
	const std::string & file = BenchFiles::instance().m_binary;
	std::int64_t timePoints = 0;
	for (auto _ : state) {
		DATAIO::DataIO dio;
		double sum = 0;
		if (!guarded(state, [&] {
			dio.read(file);
			const unsigned int element = dio.nValues()/2;
			for (unsigned int t = 0; t < dio.timePoints().size(); ++t)
				sum += dio.data(t)[element];
		}))
			return;
		benchmark::DoNotOptimize(sum);
		timePoints += static_cast<std::int64_t>(dio.timePoints().size());
	}
	state.SetItemsProcessed(timePoints);
	state.SetBytesProcessed(state.iterations()*fileSize(file));
}
BENCHMARK(BM_BinaryElementTimeSeries)->Unit(benchmark::kMillisecond)->UseRealTime();


/*! A copy of a benchmark file that grows record by record: it starts with the header and half
	of the records, and grows by 1 % of the records per call of grow(); when complete it starts
	over at half.
*/
class GrowingFile {
public:
	GrowingFile(const std::string & source, const std::string & copy) :
		m_copy(copy)
	{
		DATAIO::DataIO dio;
		dio.openAndReadHeader(source);
		std::ifstream in(source, std::ios::binary);
		m_content.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
		// record boundaries: after every line end of the data section, or every (n+1) doubles
		std::vector<std::size_t> ends;
		if (dio.isBinary()) {
			const std::size_t record = (dio.nValues() + 1)*sizeof(double);
			for (std::size_t end = dio.dataSectionOffset() + record; end <= m_content.size(); end += record)
				ends.push_back(end);
		}
		else {
			for (std::size_t i = dio.dataSectionOffset(); i < m_content.size(); ++i)
				if (m_content[i] == '\n')
					ends.push_back(i + 1);
		}
		for (int percent = 50; percent <= 100; ++percent)
			m_steps.push_back(ends[(ends.size() - 1)*static_cast<std::size_t>(percent)/100]);
		restart();
	}

	~GrowingFile() {
		std::error_code ec;
		fs::remove(m_copy, ec);
	}

	/*! True when the file can grow further. */
	bool canGrow() const { return m_step + 1 < m_steps.size(); }

	/*! Appends the next 1 % of the records; returns the bytes appended. */
	std::size_t grow() {
		std::ofstream out(m_copy, std::ios::binary | std::ios::app);
		const std::size_t from = m_steps[m_step];
		const std::size_t to = m_steps[++m_step];
		out.write(m_content.data() + from, static_cast<std::streamsize>(to - from));
		return to - from;
	}

	/*! Cuts the file back to the header and half of the records. */
	void restart() {
		m_step = 0;
		std::ofstream out(m_copy, std::ios::binary | std::ios::trunc);
		out.write(m_content.data(), static_cast<std::streamsize>(m_steps.front()));
	}

	const std::string & path() const { return m_copy; }

private:
	std::string					m_copy;
	std::vector<char>			m_content;
	std::vector<std::size_t>	m_steps;	///< file sizes at 50 %, 51 %, ... 100 % of the records
	std::size_t					m_step = 0;
};


// refresh() after 1 % more records were appended to a file of 50 % to 99 % of the records.
// Bytes: the appended ones.
void BM_RefreshGrowingFile(benchmark::State & state, bool binary) {
	const BenchFiles & files = BenchFiles::instance();
	GrowingFile growing(binary ? files.m_binary : files.m_ascii,
						files.m_directory + (binary ? "/growing.s6b" : "/growing.s6o"));
	DATAIO::DataIO dio;
	if (!guarded(state, [&] { dio.read(growing.path()); }))
		return;
	std::int64_t bytes = 0;
	for (auto _ : state) {
		state.PauseTiming();
		if (!growing.canGrow()) {
			growing.restart();
			if (!guarded(state, [&] { dio.read(growing.path()); }))
				return;
		}
		bytes += static_cast<std::int64_t>(growing.grow());
		state.ResumeTiming();
		DATAIO::DataIO::RefreshResult result = DATAIO::DataIO::RR_UNCHANGED;
		if (!guarded(state, [&] { result = dio.refresh(); }))
			return;
		if (result != DATAIO::DataIO::RR_APPENDED) {
			state.SkipWithError("refresh() did not append the new records");
			return;
		}
	}
	state.SetBytesProcessed(bytes);
}
BENCHMARK_CAPTURE(BM_RefreshGrowingFile, ascii, false)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_RefreshGrowingFile, binary, true)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
