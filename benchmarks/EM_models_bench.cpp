// libs: EM
// Speed of the damage models over ten years of hourly climate (87 600 points): the mould model
// and the wood decay model, each as the whole calculation (unit alignment, resampling onto the
// hourly grid, model) and as the model's own loop on already resampled values.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <ZEB_Unit.h>
#include <ZEB_UnitVector.h>

#include <EM_ModelTwo2DViitanenMould.h>
#include <EM_ModelTwo2DViitanenWoodDegradation.h>

namespace {

const std::size_t HOURS = 87600;

/*! A damp climate with yearly and daily cycles and noise: long growth periods, dry spells,
	frost, so that every branch of the models is taken.
*/
struct Climate {
	Climate() {
		std::mt19937 gen(3);
		std::normal_distribution<double> noise(0, 1.5);
		const double pi = 3.14159265358979;
		for (std::size_t h = 0; h < HOURS; ++h) {
			const double year = 2 * pi * h / 8760.0;
			const double day = 2 * pi * h / 24.0;
			m_time.push_back(static_cast<double>(h));
			m_T.push_back(10 - 9 * std::cos(year) - 4 * std::cos(day) + noise(gen));
			m_RH.push_back(std::min(100.0, std::max(30.0, 88 + 8 * std::cos(year) + 6 * std::cos(day) + 2 * noise(gen))));
		}
		m_timeDays.resize(HOURS);
		std::transform(m_time.begin(), m_time.end(), m_timeDays.begin(), [](double h) { return h / 24; });
	}
	EM::TimeSeries temperature() const { return EM::TimeSeries(m_time, ZEB::Unit("h"), m_T, ZEB::Unit("C")); }
	EM::TimeSeries humidity() const { return EM::TimeSeries(m_time, ZEB::Unit("h"), m_RH, ZEB::Unit("%")); }

	std::vector<double> m_time, m_timeDays, m_T, m_RH;
};

const Climate & climate() {
	static const Climate c;
	return c;
}

void BM_MouldModelCalculate(benchmark::State & state) {
	EM::ModelTwo2DViitanenMould model;
	const EM::TimeSeries T = climate().temperature();
	const EM::TimeSeries RH = climate().humidity();
	ZEB::UnitVector x, y;
	for (auto _ : state) {
		model.calculate(T, RH, x, y);
		benchmark::DoNotOptimize(y.m_data.data());
	}
	state.counters["finalIndex"] = y.m_data.back();
}

void BM_MouldModelLoop(benchmark::State & state) {
	EM::ModelTwo2DViitanenMould model;
	std::vector<double> M;
	for (auto _ : state) {
		model.mouldIndex(climate().m_T, climate().m_RH, M);
		benchmark::DoNotOptimize(M.data());
	}
}

void BM_WoodDecayModelCalculate(benchmark::State & state) {
	EM::ModelTwo2DViitanenWoodDegradation model;
	const EM::TimeSeries T = climate().temperature();
	const EM::TimeSeries RH = climate().humidity();
	ZEB::UnitVector x, y;
	for (auto _ : state) {
		model.calculate(T, RH, x, y);
		benchmark::DoNotOptimize(y.m_data.data());
	}
	state.counters["finalMassLoss"] = y.m_data.back();
}

void BM_WoodDecayModelLoop(benchmark::State & state) {
	EM::ModelTwo2DViitanenWoodDegradation model;
	std::vector<double> L;
	for (auto _ : state) {
		model.massLoss(climate().m_timeDays, climate().m_T, climate().m_RH, L);
		benchmark::DoNotOptimize(L.data());
	}
}

} // namespace

BENCHMARK(BM_MouldModelCalculate)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MouldModelLoop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WoodDecayModelCalculate)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WoodDecayModelLoop)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
