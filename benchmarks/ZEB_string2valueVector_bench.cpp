// libs: ZEB
// Parsing speed of ASCII output data lines: a time column followed by 8 to 200 values in
// exponent notation, as simulation programs write them.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include <ZEB_StringUtils.h>

namespace {

/*! A block of data lines with valuesPerLine values each, about 4 MB in total. */
std::string makeDataLines(int valuesPerLine) {
	std::mt19937 gen(42);
	std::uniform_real_distribution<double> dist(-40.0, 120.0);
	std::string text;
	char buf[64];
	double t = 0;
	while (text.size() < (4u << 20)) {
		std::snprintf(buf, sizeof(buf), "%.10g", t);
		text += buf;
		for (int i = 0; i < valuesPerLine; ++i) {
			std::snprintf(buf, sizeof(buf), "\t%.12e", dist(gen));
			text += buf;
		}
		text += '\n';
		t += 3600;
	}
	return text;
}

void BM_string2valueVector(benchmark::State & state) {
	const std::string text = makeDataLines(static_cast<int>(state.range(0)));
	// split once into lines, parsing is what is measured
	std::vector<std::pair<std::size_t, std::size_t>> lines;
	std::size_t start = 0;
	while (start < text.size()) {
		std::size_t nl = text.find('\n', start);
		lines.emplace_back(start, nl);
		start = nl + 1;
	}
	std::vector<double> values;
	for (auto _ : state) {
		for (const auto & l : lines) {
			ZEB::string2valueVector(text.data() + l.first, text.data() + l.second, values);
			benchmark::DoNotOptimize(values.data());
		}
	}
	state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}

} // namespace

BENCHMARK(BM_string2valueVector)->Arg(8)->Arg(20)->Arg(50)->Arg(200)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
