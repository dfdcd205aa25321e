// libs: EM
// Speed of the extractors on realistic outputs: the time series of one element over two years
// of hourly values of a 100-element wall from a binary output file (read afresh, and from an
// already loaded container), a 2D detail of 40 x 40 elements at one time point, and the
// 100-element wall over all time points as a colour grid.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>
#include <DATAIO_GeoFile.h>

#include <ZEB_MessageHandler.h>

#include <EM_Extractor2DFrom3D.h>
#include <EM_Extractor3DFrom3D.h>
#include <EM_Extractor3DFrom4D.h>

namespace {

const std::size_t HOURS = 2*8760;
const std::uint32_t WALL_ELEMENTS = 100;
const std::uint32_t DETAIL_SIZE = 40;

/*! A message handler that drops everything: the per-update log line is not what is measured. */
class SilentHandler : public ZEB::MessageHandler {
public:
	void message(const std::string &, ZEB::MsgType, const char *, int) override {}
};

/*! A geometry of nx x ny elements of 1 cm x 2 cm (element n = i + j*nx). */
std::shared_ptr<DATAIO::GeoFile> grid(std::uint32_t nx, std::uint32_t ny) {
	std::shared_ptr<DATAIO::GeoFile> geo(new DATAIO::GeoFile);
	DATAIO::GeoFile::Material m;
	m.m_id = 1;
	m.m_name = "Brick";
	geo->setMaterials(std::vector<DATAIO::GeoFile::Material>(1, m));
	geo->setGrid(std::vector<double>(nx, 0.01), std::vector<double>(ny, 0.02), std::vector<double>(1, 1.0));
	std::vector<DATAIO::GeoFile::Element> elements;
	for (std::uint32_t j = 0; j < ny; ++j)
		for (std::uint32_t i = 0; i < nx; ++i) {
			DATAIO::GeoFile::Element e;
			e.m_n = j*nx + i;
			e.m_x = 0.01*i + 0.005;
			e.m_y = 0.02*j + 0.01;
			e.m_z = 0.5;
			e.m_matId = 1;
			e.m_i = i;
			e.m_j = j;
			elements.push_back(e);
		}
	geo->setElements(elements);
	return geo;
}

/*! A temperature field container of all elements of an nx x ny grid over the given hours. */
std::unique_ptr<DATAIO::DataIO> field(std::uint32_t nx, std::uint32_t ny, std::size_t hours,
									  DATAIO::DataIO::DataFormat format)
{
	std::unique_ptr<DATAIO::DataIO> d(new DATAIO::DataIO);
	d->setFilename("field.d6b");
	d->setBinary(true);
	d->setQuantity("Temperature");
	d->setType(DATAIO::DataIO::T_FIELD);
	d->setSpaceType(DATAIO::DataIO::ST_SINGLE);
	d->setTimeType(DATAIO::DataIO::TT_NONE);
	std::vector<std::uint32_t> nums;
	for (std::uint32_t n = 0; n < nx*ny; ++n)
		nums.push_back(n);
	d->setNums(nums);
	d->setTimeUnit("h");
	d->setValueUnit("C");
	std::vector<double> time(hours);
	std::vector<std::vector<double> > values(hours, std::vector<double>(nums.size()));
	for (std::size_t t = 0; t < hours; ++t) {
		time[t] = static_cast<double>(t);
		for (std::size_t c = 0; c < nums.size(); ++c)
			values[t][c] = 10 + 8*std::sin(t*0.26 + c*0.01);
	}
	d->setData(time, values);
	d->setDataFormat(format);
	return d;
}

/*! The binary output file of the wall, written once into a temporary directory. */
const std::string & wallFile() {
	static const std::string path = []() {
		const std::filesystem::path dir = std::filesystem::temp_directory_path() / "orvane_extraction_bench";
		std::filesystem::create_directories(dir);
		const std::string file = (dir / "wall.d6b").string();
		std::unique_ptr<DATAIO::DataIO> d = field(WALL_ELEMENTS, 1, HOURS, DATAIO::DataIO::DF_3D);
		DATAIO::DataIOWriter::write(file, *d);
		return file;
	}();
	return path;
}

/*! Sets target units that need a conversion of every value. */
template <typename T>
void setUnits(T & e, const char * xUnit, const char * yUnit) {
	e.setTargetXUnit(ZEB::Unit(xUnit));
	if (yUnit != nullptr)
		e.setTargetYUnit(ZEB::Unit(yUnit));
	e.setTargetValueUnit(ZEB::Unit("K"));
}

/*! Reads the binary file and extracts the series of element 50 over all time points. */
void BM_TimeSeriesFromBinaryFileRead(benchmark::State & state) {
	SilentHandler silent;
	ZEB::MessageHandler::setCurrent(&silent);
	const std::string & file = wallFile();
	std::shared_ptr<DATAIO::GeoFile> geo = grid(WALL_ELEMENTS, 1);
	std::size_t points = 0;
	for (auto _ : state) {
		DATAIO::DataIO d;
		d.read(file);
		d.determineDataFormat(geo.get());
		EM::Extractor2DFrom3D e(&d, EM::CT_XCut, geo);
		setUnits(e, "d", nullptr);
		e.setCutIndex(EM::CD_X, 50, true);
		points = e.y().size();
		benchmark::DoNotOptimize(e.y().m_data.data());
	}
	state.counters["points"] = static_cast<double>(points);
	ZEB::MessageHandler::setCurrent(nullptr);
}
BENCHMARK(BM_TimeSeriesFromBinaryFileRead)->Unit(benchmark::kMillisecond);

/*! The same extraction from a container whose values are loaded already (a refresh cycle). */
void BM_TimeSeriesFromLoadedFile(benchmark::State & state) {
	SilentHandler silent;
	ZEB::MessageHandler::setCurrent(&silent);
	std::shared_ptr<DATAIO::GeoFile> geo = grid(WALL_ELEMENTS, 1);
	DATAIO::DataIO d;
	d.read(wallFile());
	d.determineDataFormat(geo.get());
	EM::Extractor2DFrom3D e(&d, EM::CT_XCut, geo);
	setUnits(e, "d", nullptr);
	e.setCutIndex(EM::CD_X, 50, true);
	for (auto _ : state) {
		e.update();
		benchmark::DoNotOptimize(e.y().m_data.data());
	}
	state.counters["points"] = static_cast<double>(e.y().size());
	ZEB::MessageHandler::setCurrent(nullptr);
}
BENCHMARK(BM_TimeSeriesFromLoadedFile)->Unit(benchmark::kMillisecond);

/*! A 40 x 40 detail at one time point as a colour grid. */
void BM_DetailAtOneTime(benchmark::State & state) {
	SilentHandler silent;
	ZEB::MessageHandler::setCurrent(&silent);
	std::shared_ptr<DATAIO::GeoFile> geo = grid(DETAIL_SIZE, DETAIL_SIZE);
	std::unique_ptr<DATAIO::DataIO> d = field(DETAIL_SIZE, DETAIL_SIZE, 48, DATAIO::DataIO::DF_4D);
	EM::Extractor3DFrom4D e(d.get(), EM::CT_TimeCut, geo);
	setUnits(e, "cm", "cm");
	for (auto _ : state) {
		e.update();
		benchmark::DoNotOptimize(e.values().m_data.data());
	}
	state.counters["cells"] = static_cast<double>(e.values().size());
	ZEB::MessageHandler::setCurrent(nullptr);
}
BENCHMARK(BM_DetailAtOneTime)->Unit(benchmark::kMicrosecond);

/*! The 100-element wall over two years of hourly values as a colour grid. */
void BM_WallOverTime(benchmark::State & state) {
	SilentHandler silent;
	ZEB::MessageHandler::setCurrent(&silent);
	std::shared_ptr<DATAIO::GeoFile> geo = grid(WALL_ELEMENTS, 1);
	std::unique_ptr<DATAIO::DataIO> d = field(WALL_ELEMENTS, 1, HOURS, DATAIO::DataIO::DF_3D);
	EM::Extractor3DFrom3D e(d.get(), EM::CT_NoCut, geo);
	setUnits(e, "d", "cm");
	for (auto _ : state) {
		e.update();
		benchmark::DoNotOptimize(e.values().m_data.data());
	}
	state.counters["cells"] = static_cast<double>(e.values().size());
	ZEB::MessageHandler::setCurrent(nullptr);
}
BENCHMARK(BM_WallOverTime)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
