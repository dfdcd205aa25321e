// libs: ZEB
// Parsing speed of ASCII output data lines: a time column followed by 8 to 200 values in
// exponent notation, as simulation programs write them.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstring>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include <fast_float/fast_float.h>

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

/*! The number parsers side by side on the tokens of the data lines (20 values a line): 0 the
	library's prefix parser (fast_float behind a check of its result), 1 fast_float::from_chars
	itself, 2 std::from_chars. Each reads a number at the
	start of the rest of its line and reports where it ends, as the line parsers need it.
*/
void BM_ParseNumber(benchmark::State & state) {
	const std::string text = makeDataLines(20);
	std::vector<std::pair<const char *, const char *>> tokens;
	const char * lineEnd = nullptr;
	for (const char * p = text.data(); p < text.data() + text.size(); ++p) {
		if (lineEnd == nullptr || p >= lineEnd)
			lineEnd = std::strchr(p, '\n');
		if (*p != '\t' && *p != '\n' && (p == text.data() || p[-1] == '\t' || p[-1] == '\n'))
			tokens.emplace_back(p, lineEnd);
	}
	const int parser = static_cast<int>(state.range(0));
	for (auto _ : state) {
		double sum = 0;
		for (const auto & t : tokens) {
			double v = 0;
			const char * stop = nullptr;
			if (parser == 0)
				stop = ZEB::parseDoubleFastPrefix(t.first, t.second, v);
			else if (parser == 1)
				stop = fast_float::from_chars(t.first, t.second, v).ptr;
			else
				stop = std::from_chars(t.first, t.second, v).ptr;
			benchmark::DoNotOptimize(stop);
			sum += v;
		}
		benchmark::DoNotOptimize(sum);
	}
	state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
	state.SetLabel(parser == 0 ? "ZEB::parseDoubleFastPrefix" : parser == 1 ? "fast_float" : "std::from_chars");
}

} // namespace

BENCHMARK(BM_ParseNumber)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_string2valueVector)->Arg(8)->Arg(20)->Arg(50)->Arg(200)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
