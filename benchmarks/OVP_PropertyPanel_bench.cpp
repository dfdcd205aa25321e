// libs: OrvanePart
// Opening the property panel of a line chart with 50 series: PropertyPanel::setMapper() (the
// page list and the chart page's property tree), then the same and the first paint of the
// panel, shown offscreen and grabbed. The series are one hourly time series file of a year
// (written once into $ORVANE_BENCH_DIR, default /tmp/orvane-propertypanel-bench) added 50 times.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <vector>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>

#include <ZEB_MessageHandler.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>

#include <OVP_Mapper.h>
#include <OVP_ProjectHandler.h>
#include <OVP_PropertyPanel.h>
#include <OVP_Settings.h>

#include "Bench_GuiMain.h"

namespace {

/*! Number of series of the chart. */
const int SERIES_COUNT = 50;

/*! The benchmark's folder, with the time series file written on first use. */
QString benchFile() {
	const char * env = std::getenv("ORVANE_BENCH_DIR");
	const QString dir = env != nullptr ? QString(env) : QDir::temp().filePath("orvane-propertypanel-bench");
	const QString path = QDir(dir).filePath("T.out");
	if (QFileInfo::exists(path))
		return path;
	QDir().mkpath(dir);
	DATAIO::DataIO d;
	d.setFilename(path.toStdString());
	d.setProjectFileName("wall.s6p");
	d.setQuantity("Temperature");
	d.setQuantityKeyword("Temperature");
	d.setValueUnit("C");
	d.setTimeUnit("h");
	d.setStartYear(2015);
	d.setTimeType(DATAIO::DataIO::TT_NONE);
	d.setType(DATAIO::DataIO::T_FIELD);
	d.setSpaceType(DATAIO::DataIO::ST_MEAN);
	d.setNums({ 0, 1 });
	std::vector<double> time;
	std::vector<std::vector<double> > rows;
	for (int h = 0; h < 8760; ++h) {
		time.push_back(h);
		rows.push_back({ 20 + (h % 24) * 0.25 });
	}
	d.setData(time, rows);
	DATAIO::DataIOWriter::write(path.toStdString(), d);
	return path;
}

/*! A session with one chart of SERIES_COUNT series. */
class Session {
public:
	Session() :
		m_settings("ZEB", "OrvanePartBench", QDir::temp().filePath("orvane-propertypanel-bench.ini"))
	{
		const QString file = benchFile();
		m_handler.newProject();
		m_mapper = OVP::Mapper::createNewMapper(m_handler.dataManager(), { { file } });
		for (int i = 1; i < SERIES_COUNT; ++i)
			m_mapper->addExtractor({ { file } });
	}

	OVP::Mapper & mapper() { return *m_mapper; }

private:
	OVP::Settings					m_settings;
	OVP::ProjectHandler				m_handler;
	std::unique_ptr<OVP::Mapper>	m_mapper;
};

Session & session() {
	static Session s;
	return s;
}


void BM_OpenPanel(benchmark::State & state) {
	OVP::Mapper & mapper = session().mapper();
	for (auto _ : state) {
		OVP::PropertyPanel panel;
		panel.setMapper(&mapper);
		benchmark::DoNotOptimize(panel.currentPage());
	}
}
BENCHMARK(BM_OpenPanel)->Unit(benchmark::kMillisecond)->UseRealTime();


void BM_OpenAndPaintPanel(benchmark::State & state) {
	OVP::Mapper & mapper = session().mapper();
	for (auto _ : state) {
		OVP::PropertyPanel panel;
		panel.resize(340, 800);
		panel.setMapper(&mapper);
		panel.show();
		QPixmap picture = panel.grab();
		benchmark::DoNotOptimize(picture);
		// pages of earlier panels are deleted from the event loop
		QCoreApplication::processEvents();
	}
}
BENCHMARK(BM_OpenAndPaintPanel)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace


int main(int argc, char ** argv) {
	return runGuiBenchmarks(argc, argv);
}
