// libs: OrvanePart SampleData
// Speed of the data manager's file table: listing a folder of 2000 result files (headers only,
// read at once and in batches from the event loop), listing two 1 GiB files, and the first paint
// of the table (a QTableView over the sorted proxy, shown offscreen and grabbed, headers
// included).
//
// The 2000 files are copies of the outputs of the sample data set (docs/sample-data.md, two days
// of records): ASCII and binary, generation 6 and 5, time series, wall and corner fields and
// fluxes with their four geometry files, and the climate reference; each copy gets the
// extension of its variant from the default FileNameFilter ("*.s6o", "*.s6b", "*.out"). The
// 1 GiB files are a binary and an ASCII time series whose data sections are sparse (no disk
// space needed). Everything is made on first use in $ORVANE_BENCH_DIR (default
// /tmp/orvane-datamanager-bench) and reused later.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QPixmap>
#include <QTableView>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>

#include <OVP_DataManagerFilterModel.h>
#include <OVP_DataManagerTableModel.h>
#include <OVP_Settings.h>

#include "SD_SampleDataSet.h"

namespace {

namespace fs = std::filesystem;

/*! Number of result files in the listed folder. */
const int FILE_COUNT = 2000;
/*! Size of each of the two huge files. */
const std::uintmax_t HUGE_SIZE = std::uintmax_t(1) << 30;

/*! The benchmark folders, made on first use. */
class BenchFiles {
public:
	static const BenchFiles & instance() {
		static const BenchFiles files;
		return files;
	}

	std::string		m_list;		///< FILE_COUNT result files and the geometry files
	std::string		m_huge;		///< the two 1 GiB files
	std::string		m_settings;	///< INI file of the settings

private:
	BenchFiles() {
		const char * dirText = std::getenv("ORVANE_BENCH_DIR");
		const std::string root = dirText != nullptr ? dirText : "/tmp/orvane-datamanager-bench";
		m_list = root + "/list";
		m_huge = root + "/huge";
		m_settings = root + "/settings.ini";
		const std::string complete = root + "/complete";
		if (fs::exists(complete))
			return;
		fs::remove_all(root);
		try {
			makeList(root + "/source");
			makeHuge();
		}
		catch (ZEB::Exception & ex) {
			throw std::runtime_error(ex.msgWithOrigin());
		}
		fs::remove_all(root + "/source");
		std::ofstream(complete) << FILE_COUNT << " files\n";
	}

	/*! Writes the sample set and copies its outputs round-robin into m_list; geometry files
		(which have no output header) are copied once under their own names.
	*/
	void makeList(const std::string & source) {
		SD::SampleDataSet::Options o;
		o.m_directory = source;
		o.m_hours = 48;
		SD::SampleDataSet(o).write();
		fs::create_directories(m_list);
		std::vector<std::pair<fs::path, std::string> > outputs;
		for (const std::string & name : SD::SampleDataSet::allFileNames()) {
			const fs::path path = fs::path(source) / name;
			DATAIO::DataIO header;
			try {
				header.openAndReadHeader(path.string());
			}
			catch (ZEB::Exception &) {
				fs::copy_file(path, fs::path(m_list) / name);
				continue;
			}
			const char * extension = header.majorFileVersion() < 6 ? ".out" : header.isBinary() ? ".s6b" : ".s6o";
			outputs.emplace_back(path, path.stem().string() + extension);
		}
		for (int i = 0; i < FILE_COUNT; ++i) {
			const auto & output = outputs[static_cast<std::size_t>(i) % outputs.size()];
			const std::string number = std::to_string(10000 + i).substr(1);
			fs::copy_file(output.first, fs::path(m_list) / ("run" + number + "_" + output.second));
		}
	}

	/*! A binary and an ASCII time series of HUGE_SIZE bytes with sparse data sections. */
	void makeHuge() {
		fs::create_directories(m_huge);
		for (bool binary : { true, false }) {
			DATAIO::DataIO header;
			header.setBinary(binary);
			header.setQuantity("Temperature");
			header.setValueUnit("C");
			header.setTimeUnit("h");
			header.setType(DATAIO::DataIO::T_FIELD);
			header.setSpaceType(DATAIO::DataIO::ST_MEAN);
			header.setNums({ 0, 1 });
			const std::string path = m_huge + (binary ? "/huge.s6b" : "/huge.s6o");
			DATAIO::DataIOWriter writer;
			writer.open(path, header);
			writer.close();
			fs::resize_file(path, HUGE_SIZE);
		}
	}
};

/*! Times the listing of a folder with all headers read at once; the model is made and
	destroyed outside the timing (closing the file system watcher waits for the kernel, a few
	milliseconds, which the program pays once at exit). Returns false after a wrong row count.
*/
bool timeListing(benchmark::State & state, const std::string & directory, int expectedRows) {
	state.PauseTiming();
	std::unique_ptr<OVP::DataManagerTableModel> model(new OVP::DataManagerTableModel);
	state.ResumeTiming();
	model->addDirectory(QString::fromStdString(directory));
	model->readPendingHeaders();
	state.PauseTiming();
	const bool complete = model->rowCount() == expectedRows;
	model.reset();
	state.ResumeTiming();
	if (!complete)
		state.SkipWithError("not every file was listed");
	return complete;
}


// addDirectory() and all headers read at once: the whole work of listing the folder.
void BM_ListDirectory(benchmark::State & state) {
	for (auto _ : state)
		if (!timeListing(state, BenchFiles::instance().m_list, FILE_COUNT))
			return;
	state.SetItemsProcessed(state.iterations()*FILE_COUNT);
}
BENCHMARK(BM_ListDirectory)->Unit(benchmark::kMillisecond)->UseRealTime();


// addDirectory() and the event loop reading the headers in batches until the last row is there,
// as the program does it; first_rows_ms: time until the first rows appear.
void BM_ListDirectoryEventLoop(benchmark::State & state) {
	const QString list = QString::fromStdString(BenchFiles::instance().m_list);
	double firstRows = 0;
	for (auto _ : state) {
		state.PauseTiming();
		std::unique_ptr<OVP::DataManagerTableModel> model(new OVP::DataManagerTableModel);
		QElapsedTimer clock;
		qint64 first = -1;
		QObject::connect(model.get(), &QAbstractItemModel::rowsInserted, [&]() {
			if (first < 0)
				first = clock.nsecsElapsed();
		});
		state.ResumeTiming();
		clock.start();
		model->addDirectory(list);
		while (model->isReadingHeaders())
			QApplication::processEvents();
		state.PauseTiming();
		const bool complete = model->rowCount() == FILE_COUNT;
		model.reset();
		state.ResumeTiming();
		if (!complete) {
			state.SkipWithError("not every file was listed");
			return;
		}
		firstRows += first*1e-6;
	}
	state.counters["first_rows_ms"] = benchmark::Counter(firstRows, benchmark::Counter::kAvgIterations);
	state.SetItemsProcessed(state.iterations()*FILE_COUNT);
}
BENCHMARK(BM_ListDirectoryEventLoop)->Unit(benchmark::kMillisecond)->UseRealTime();


// Listing a folder of two 1 GiB files: their rows are there as fast as those of small files.
void BM_ListHugeFiles(benchmark::State & state) {
	const std::string & huge = BenchFiles::instance().m_huge;
	for (auto _ : state)
		if (!timeListing(state, huge, 2))
			return;
}
BENCHMARK(BM_ListHugeFiles)->Unit(benchmark::kMicrosecond)->UseRealTime();


// The first paint of the table of 2000 rows: a new view over the proxy sorted by name, shown
// offscreen at 1280 x 800 and grabbed into a pixmap.
void BM_FirstPaint(benchmark::State & state) {
	OVP::DataManagerTableModel model;
	model.addDirectory(QString::fromStdString(BenchFiles::instance().m_list));
	model.readPendingHeaders();
	OVP::DataManagerFilterModel proxy;
	proxy.setSourceModel(&model);
	for (auto _ : state) {
		std::unique_ptr<QTableView> view(new QTableView);
		view->setSortingEnabled(true);
		view->setModel(&proxy);
		view->sortByColumn(OVP::DataManagerTableModel::ColName, Qt::AscendingOrder);
		view->resize(1280, 800);
		view->show();
		const QPixmap picture = view->grab();
		benchmark::DoNotOptimize(picture.cacheKey());
		state.PauseTiming();
		view.reset();
		state.ResumeTiming();
	}
}
BENCHMARK(BM_FirstPaint)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace


int main(int argc, char ** argv) {
	if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
		qputenv("QT_QPA_PLATFORM", "offscreen");
	QApplication app(argc, argv);
	ZEB::MessageHandler::current()->setConsoleVerbosityLevel(1);
	benchmark::Initialize(&argc, argv);
	try {
		BenchFiles::instance();
	}
	catch (std::exception & ex) {
		std::fprintf(stderr, "Cannot make the benchmark files: %s\n", ex.what());
		return 1;
	}
	// the default FileNameFilter, kept apart from the user's settings
	OVP::Settings settings("ZEB", "OrvanePart", QString::fromStdString(BenchFiles::instance().m_settings));
	benchmark::RunSpecifiedBenchmarks();
	return 0;
}
