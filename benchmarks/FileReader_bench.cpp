// libs: OrvanePart
// Reading speed of the CSV/TSV table reader (OVP::TableReader): readHeader() of a large table,
// which must look at its first lines only, and read() of the whole table into a container.
//
// The table has a time column in hours and 9 value columns with three decimals (about 70 bytes
// a line); it is made on first use as $ORVANE_BENCH_DIR/table.csv (default
// /tmp/orvane-reader-bench-<MB>) with about $ORVANE_BENCH_MB megabytes (default 100).
//
// A second mode reads one given file once and prints what it read and how long it took, so that
// a whole process can be timed against pandas.read_csv on the same file
// (benchmarks/csv_vs_pandas.sh):
//     FileReader_bench --read-once FILE
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include <DATAIO_DataIO.h>

#include <OVP_TableReader.h>

namespace {

namespace fs = std::filesystem;

/*! The benchmark table, written on first use. */
class BenchTable {
public:
	static const BenchTable & instance() {
		static const BenchTable table;
		return table;
	}

	std::string		m_path;
	std::uint64_t	m_size = 0;

private:
	BenchTable() {
		const char * mbText = std::getenv("ORVANE_BENCH_MB");
		const double mb = mbText != nullptr ? std::atof(mbText) : 100.0;
		if (!(mb >= 1))
			throw std::runtime_error("ORVANE_BENCH_MB must be at least 1");
		const char * dirText = std::getenv("ORVANE_BENCH_DIR");
		const std::string dir = dirText != nullptr ? dirText : "/tmp/orvane-reader-bench-" + std::to_string(static_cast<long>(mb));
		m_path = dir + "/table.csv";
		if (!fs::exists(m_path)) {
			fs::create_directories(dir);
			const std::string partial = m_path + ".part";
			std::FILE * out = std::fopen(partial.c_str(), "w");
			if (out == nullptr)
				throw std::runtime_error("cannot write " + partial);
			std::fputs("Time [h],T_out [C],RH_out [%],T_in [C],RH_in [%],T_wall [C],RH_wall [%],Rad [W/m2],Wind [m/s],P [hPa]\n", out);
			const std::uint64_t bytes = static_cast<std::uint64_t>(mb*1e6);
			std::uint64_t seed = 13;
			for (std::uint64_t line = 0; static_cast<std::uint64_t>(std::ftell(out)) < bytes; ++line) {
				std::fprintf(out, "%.2f", line*0.25);
				for (int c = 0; c < 9; ++c) {
					seed = seed*6364136223846793005ull + 1442695040888963407ull;
					std::fprintf(out, ",%.3f", static_cast<double>(seed >> 40)/(1 << 24)*100 - 20);
				}
				std::fputc('\n', out);
			}
			std::fclose(out);
			fs::rename(partial, m_path);
		}
		m_size = fs::file_size(m_path);
	}
};


void BM_TableReadHeader(benchmark::State & state) {
	const BenchTable & table = BenchTable::instance();
	const OVP::TableReader reader;
	for (auto _ : state) {
		DATAIO::DataIO dio;
		reader.readHeader(table.m_path, dio);
		benchmark::DoNotOptimize(dio.nums().size());
	}
}
BENCHMARK(BM_TableReadHeader)->Unit(benchmark::kMicrosecond);


void BM_TableRead(benchmark::State & state) {
	const BenchTable & table = BenchTable::instance();
	const OVP::TableReader reader;
	for (auto _ : state) {
		DATAIO::DataIO dio;
		reader.read(table.m_path, dio);
		benchmark::DoNotOptimize(dio.timePoints().size());
	}
	state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()*table.m_size));
}
BENCHMARK(BM_TableRead)->Unit(benchmark::kMillisecond)->UseRealTime();


/*! Reads one file with the table reader and prints size, shape and time. */
int readOnce(const char * fileName) {
	try {
		const auto start = std::chrono::steady_clock::now();
		DATAIO::DataIO dio;
		OVP::TableReader().read(fileName, dio);
		const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
		const double mb = static_cast<double>(fs::file_size(fileName))/1e6;
		std::printf("OVP::TableReader: %.1f MB, %zu rows x %u values, %.3f s, %.1f MB/s\n", mb,
					dio.timePoints().size(), dio.nValues(), seconds, mb/seconds);
		return 0;
	}
	catch (ZEB::Exception & ex) {
		std::fprintf(stderr, "%s\n", ex.msgWithOrigin().c_str());
		return 1;
	}
}

} // namespace


int main(int argc, char ** argv) {
	ZEB::MessageHandler::current()->setConsoleVerbosityLevel(1);
	if (argc == 3 && std::strcmp(argv[1], "--read-once") == 0)
		return readOnce(argv[2]);
	benchmark::Initialize(&argc, argv);
	benchmark::RunSpecifiedBenchmarks();
	return 0;
}
