#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>
#include <EM_ExtractorBase.h>

#include <OVP_ChartCreator.h>
#include <OVP_DataManager.h>
#include <OVP_DataManagerTableModel.h>
#include <OVP_DataSetMimeData.h>
#include <OVP_DataSetOptions.h>
#include <OVP_DirectoryTreeModel.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>

#include <ZEB_Exception.h>
#include <ZEB_UnitList.h>

#include <SD_SampleDataSet.h>

#include <OVP_ProjectTestUtils.h>

#include "DEMO_SessionBuilder.h"

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef SCI::AbstractLineSeriesModel LM;
typedef SCI::AbstractColorGridSeriesModel GM;
typedef SCI::AbstractVectorFieldSeriesModel VM;

/*! The first extractor of a mapper with its containers. */
const OVP::Mapper::ExtractorEntry & firstExtractor(const OVP::Mapper & mapper) {
	return mapper.type() == OVP::Mapper::MT_2D ? mapper.extractors2D().front() : mapper.extractor3D();
}

/*! The numbers a chart shows, each list named after what it is. */
typedef std::vector<std::pair<std::string, std::vector<double> > > ChartNumbers;

ChartNumbers chartNumbers(const OVP::Mapper & mapper) {
	const auto list = [](const double * values, std::size_t n) {
		return values == nullptr ? std::vector<double>() : std::vector<double>(values, values + n);
	};
	ChartNumbers numbers;
	if (mapper.type() == OVP::Mapper::MT_2D) {
		const LM & m = static_cast<const LM &>(*mapper.chartModel());
		for (int s = 0; s < static_cast<int>(m.seriesCount()); ++s) {
			numbers.emplace_back("x of series " + std::to_string(s), list(m.xValues(s), m.size(s)));
			numbers.emplace_back("y of series " + std::to_string(s), list(m.yValues(s), m.size(s)));
		}
	}
	else if (mapper.type() == OVP::Mapper::MT_3D) {
		const GM & m = static_cast<const GM &>(*mapper.chartModel());
		numbers.emplace_back("x grid", list(m.xGrid(0), m.xGridSize(0)));
		numbers.emplace_back("y grid", list(m.yGrid(0), m.yGridSize(0)));
		numbers.emplace_back("values", list(m.values(0), std::size_t(m.xValueSize(0))*m.yValueSize(0)));
	}
	else if (mapper.type() == OVP::Mapper::MT_Vector) {
		const VM & m = static_cast<const VM &>(*mapper.chartModel());
		const std::size_t n = std::size_t(m.xGridSize(0))*m.yGridSize(0);
		numbers.emplace_back("x grid", list(m.xGrid(0), m.xGridSize(0)));
		numbers.emplace_back("y grid", list(m.yGrid(0), m.yGridSize(0)));
		numbers.emplace_back("x components", list(m.xComponents(0), n));
		numbers.emplace_back("y components", list(m.yComponents(0), n));
	}
	return numbers;
}

/*! Whether every list of numbers of a mapper's chart holds a finite number to draw. */
bool hasData(const OVP::Mapper & mapper) {
	const ChartNumbers numbers = chartNumbers(mapper);
	bool all = !numbers.empty();
	for (const auto & n : numbers)
		all = all && std::any_of(n.second.begin(), n.second.end(), [](double v) { return std::isfinite(v); });
	return all;
}

/*! Exact equality of the numbers of two charts; NaN (no value, as outside the corner) equals NaN. */
::testing::AssertionResult sameNumbers(const ChartNumbers & expected, const ChartNumbers & actual) {
	if (expected.size() != actual.size())
		return ::testing::AssertionFailure() << actual.size() << " lists of numbers instead of " << expected.size();
	for (std::size_t i = 0; i < expected.size(); ++i) {
		const std::vector<double> & e = expected[i].second;
		const std::vector<double> & a = actual[i].second;
		if (e.empty() || e.size() != a.size())
			return ::testing::AssertionFailure() << expected[i].first << ": " << a.size() << " numbers instead of "
												 << e.size();
		for (std::size_t k = 0; k < e.size(); ++k)
			if (!(e[k] == a[k] || (std::isnan(e[k]) && std::isnan(a[k]))))
				return ::testing::AssertionFailure() << expected[i].first << " #" << k << ": " << a[k] << " instead of "
													 << e[k];
	}
	return ::testing::AssertionSuccess();
}

/*! The data sets of the rows of the file table with these file names, as the table drags them. */
std::vector<OVP::Mapper::DataSet> dataSetsOfRows(const OVP::DataManagerTableModel & files, const QStringList & names) {
	QModelIndexList rows;
	for (int r = 0; r < files.rowCount(); ++r)
		if (names.contains(files.index(r, OVP::DataManagerTableModel::ColName).data().toString()))
			rows.append(files.index(r, OVP::DataManagerTableModel::ColName));
	EXPECT_EQ(rows.size(), names.size()) << names.join(", ").toStdString();
	const std::unique_ptr<QMimeData> mime(files.mimeData(rows));
	std::vector<OVP::Mapper::DataSet> dataSets;
	for (const OVP::DataSetMimeData::DataSet & d : OVP::DataSetMimeData::read(mime.get())) {
		OVP::Mapper::DataSet ds;
		ds.m_fileName = d.m_path;
		ds.m_column = d.m_column == OVP::DataSetMimeData::NO_COLUMN ? 0 : static_cast<std::uint32_t>(d.m_column);
		dataSets.push_back(ds);
	}
	return dataSets;
}

} // namespace


/*! Builds the demo session from a small result set (45 days, coarse grids) in a folder of its
	own, as the program does with the bundled set, and writes the session file.
*/
class DemoSessionTest : public ::testing::Test {
protected:
	void SetUp() override {
		m_root.reset(new QTemporaryDir(QDir(qEnvironmentVariable("ORVANE_TEST_SCRATCH")).filePath("demo-XXXXXX")));
		ASSERT_TRUE(m_root->isValid());
		ASSERT_TRUE(QDir(m_root->path()).mkpath("session/data"));
		SD::SampleDataSet::Options options;
		options.m_directory = dataFile("").toStdString();
		options.m_hours = 45*24;
		options.m_wallElements = 20;
		options.m_detailCells = 10;
		try {
			SD::SampleDataSet(options).write();
			m_builder.reset(new DEMO::SessionBuilder(dataFile("")));
			m_builder->build(m_handler);
			m_handler.project().writeXML(QDir(m_root->path()).filePath("session/demo.o2"), false);
		}
		catch (ZEB::Exception & ex) {
			FAIL() << ex.msgWithOrigin();
		}
	}

	QString dataFile(const QString & name) const { return QDir(m_root->path()).filePath("session/data/" + name); }

	/*! Reads a session file into m_project, with containers opened by m_dataManager. */
	void readSession(const QString & fileName) {
		try {
			m_project.readXML(fileName, m_dataManager);
		}
		catch (ZEB::Exception & ex) {
			FAIL() << ex.msgWithOrigin();
		}
		ASSERT_EQ(m_project.mapperModel()->mapperCount(), DEMO::SessionBuilder::CHART_COUNT);
	}

	OVP::Mapper & readMapper(int index) const { return *m_project.mapperModel()->mapper(index); }

	std::unique_ptr<QTemporaryDir>			m_root;
	OVP::ProjectHandler						m_handler;
	std::unique_ptr<DEMO::SessionBuilder>	m_builder;
	OVP::DataManager						m_dataManager;
	OVP::Project							m_project;
};


TEST_F(DemoSessionTest, EveryChartHasDataAndItsTitleAfterTheSessionMovedWithItsData) {
	// the session refers to its data relative to its own folder, so it moves along with it
	const QString moved = QDir(m_root->path()).filePath("moved");
	ASSERT_TRUE(QDir().rename(QDir(m_root->path()).filePath("session"), moved));
	readSession(QDir(moved).filePath("demo.o2"));

	const OVP::Mapper::MapperType kinds[] = { OVP::Mapper::MT_2D, OVP::Mapper::MT_2D, OVP::Mapper::MT_3D,
		OVP::Mapper::MT_3D, OVP::Mapper::MT_Vector, OVP::Mapper::MT_2D, OVP::Mapper::MT_2D };
	for (int i = 0; i < DEMO::SessionBuilder::CHART_COUNT; ++i) {
		const OVP::Mapper & built = *m_handler.project().mapperModel()->mapper(i);
		const OVP::Mapper & read = readMapper(i);
		SCOPED_TRACE(read.name().toStdString());
		EXPECT_EQ(read.type(), kinds[i]);
		EXPECT_TRUE(hasData(read));
		EXPECT_EQ(built.name(), read.name());
		// every chart has its own title, not the default one (that the look of a chart survives
		// the session file, the chart library's and the project's round-trip tests show)
		EXPECT_NE(read.chartModel()->chartData(SCI::AbstractChartModel::TitleText).toString(), QString("Title"));
		EXPECT_EQ(built.chartModel()->chartData(SCI::AbstractChartModel::TitleText),
				  read.chartModel()->chartData(SCI::AbstractChartModel::TitleText));
	}
	// the climate chart has its humidity on the right axis
	EXPECT_EQ(readMapper(0).extractors2D().size(), 2u);
	EXPECT_FALSE(static_cast<const LM &>(*readMapper(0).chartModel()).lineProperties(1).m_leftAxis);

	// the opening layout shows four different charts
	QList<int> shown;
	for (const OVP::SplitLayout::Widget & w : m_project.m_splitLayout.m_widgets)
		if (w.m_mapperIndex >= 0)
			shown.append(w.m_mapperIndex);
	EXPECT_EQ(shown.size(), 4);
	for (int index : shown)
		EXPECT_TRUE(index < DEMO::SessionBuilder::CHART_COUNT && shown.count(index) == 1) << index;
}


TEST_F(DemoSessionTest, FieldChartsShowTheTimeTheInnerCornerIsColdest) {
	readSession(QDir(m_root->path()).filePath("session/demo.o2"));
	const double coldTime = m_builder->coldTime();

	// independent of the builder: the surface temperature at the cold time is the lowest of all
	// times at which the corner field has a record
	DATAIO::DataIO field;
	field.read(dataFile("corner_temperature.s6b").toStdString());
	DATAIO::DataIO surface;
	surface.read(dataFile("corner_surface_temperature.s6b").toStdString());
	ASSERT_EQ(surface.timePoints().front(), 1.0); // hourly from the end of the first hour
	auto surfaceAt = [&surface](double hour) {
		const unsigned int index = static_cast<unsigned int>(hour) - 1;
		EXPECT_LT(index, surface.timePoints().size());
		EXPECT_EQ(surface.timePoints()[index], hour);
		return surface.data(index)[0];
	};
	bool coldTimeIsARecord = false;
	for (double t : field.timePoints()) {
		coldTimeIsARecord = coldTimeIsARecord || t == coldTime;
		EXPECT_LE(surfaceAt(coldTime), surfaceAt(t)) << "record at " << t << " h";
	}
	EXPECT_TRUE(coldTimeIsARecord);

	for (int chart : { 1, 3, 4 }) {
		const OVP::Mapper::ExtractorEntry & entry = firstExtractor(readMapper(chart));
		double t = entry.m_extractor->cutValue(EM::CD_Time);
		ZEB::UnitList::instance().convert(ZEB::Unit(entry.m_dataIOs.front()->timeUnit()), ZEB::Unit("h"), t);
		EXPECT_NEAR(t, coldTime, 1e-9) << "chart " << chart + 1;
		EXPECT_TRUE(entry.m_extractor->isTimeIndexLocked()) << "chart " << chart + 1;
	}
}


// A new user makes the seven demo charts from an empty session: registers and checks the data
// folder, picks the files in the table, sets data sets, cut and model beside it and creates the
// charts, all through the models the panels use. Each chart shows exactly the numbers of the demo
// chart (in the axis units the demo chose, which the user sets in the axis panel), also after the
// session was saved and opened again.
TEST_F(DemoSessionTest, NewSessionMadeFromTheDataFolderShowsTheDemoData) {
	std::vector<ChartNumbers> demo;
	std::vector<std::vector<QVariant> > demoAxisUnits;
	for (int i = 0; i < DEMO::SessionBuilder::CHART_COUNT; ++i) {
		const OVP::Mapper & m = *m_handler.project().mapperModel()->mapper(i);
		demo.push_back(chartNumbers(m));
		demoAxisUnits.emplace_back();
		for (int axis = 0; axis < CM::NUM_AXES; ++axis)
			demoAxisUnits.back().push_back(m.chartModel()->axisData(axis, CM::AxisUnit));
	}

	const OVP::Settings settings("ZEB", "DemoSessionTests", QDir(m_root->path()).filePath("settings.ini"));
	OVPTest::TestUserInteraction * ui = new OVPTest::TestUserInteraction;
	m_handler.setUserInteraction(std::unique_ptr<OVP::UserInteraction>(ui));
	m_handler.newProject();
	OVP::DirectoryTreeModel directories(m_handler);
	OVP::DataManagerTableModel files;
	QObject::connect(&directories, &OVP::DirectoryTreeModel::directoryChecked, &files,
					 [&](const QString & path) { files.addDirectory(path, directories.colorOf(path)); });
	QSignalSpy headersRead(&files, &OVP::DataManagerTableModel::headersRead);
	ASSERT_TRUE(directories.addDirectory(dataFile("")));
	ASSERT_TRUE(directories.setData(directories.index(0, 0), Qt::Checked, Qt::CheckStateRole));
	ASSERT_TRUE(headersRead.wait(10000));
	// with the default file name filter every file of the set is listed (the climate data file
	// through its reader) but the geometry files, told by their content; the set has files of
	// every default pattern but "*.cli"
	EXPECT_TRUE(files.rejectedFiles().isEmpty()) << files.rejectedFiles().keys().join(", ").toStdString();
	QSet<QString> listed, expected, suffixes;
	for (int r = 0; r < files.rowCount(); ++r)
		listed.insert(files.index(r, OVP::DataManagerTableModel::ColName).data().toString());
	for (const std::string & name : SD::SampleDataSet::allFileNames()) {
		try {
			DATAIO::GeoFile().read(dataFile(QString::fromStdString(name)).toStdString());
		}
		catch (ZEB::Exception &) {
			expected.insert(QString::fromStdString(name));
			suffixes.insert(QFileInfo(QString::fromStdString(name)).suffix());
		}
	}
	EXPECT_TRUE(listed == expected) << "listed: " << QStringList(listed.values()).join(", ").toStdString();
	EXPECT_TRUE(suffixes == (QSet<QString>{ "out", "s6o", "s6b", "ccd" })) << QStringList(suffixes.values()).join(", ").toStdString();

	OVP::DataSetOptions options(m_handler.dataManager());
	OVP::ChartCreator creator(m_handler, *ui);
	const auto select = [&](const QStringList & names) { options.setSelection(dataSetsOfRows(files, names)); };
	const auto cutAtColdTime = [&]() {
		options.setCutType(EM::CT_TimeCut);
		double t = m_builder->coldTime();
		ZEB::UnitList::instance().convert(ZEB::Unit("h"), ZEB::Unit(options.cut().unit(EM::CD_Time).toStdString()), t);
		const std::vector<double> & times = options.cut().coordinates(EM::CD_Time);
		const auto it = std::lower_bound(times.begin(), times.end(), t);
		ASSERT_TRUE(it != times.end() && *it == t) << t;
		options.setCutIndex(EM::CD_Time, static_cast<unsigned int>(it - times.begin()));
	};

	// 1: outdoor temperature and relative humidity of the climate file's data sets
	select({ "climate.s6b" });
	for (std::size_t i = 0; i < options.referenceDataSets().size(); ++i) {
		const QString & name = options.referenceDataSets()[i].m_name;
		options.setDataSetUsed(i, name == "outdoor temperature [C]" || name == "outdoor relative humidity [%]");
	}
	ASSERT_EQ(options.usedDataSets().size(), 2u);
	ASSERT_EQ(creator.createChart(options), 0);
	// chart, series and axis are named after the data sets, not after the file they share
	const OVP::Mapper & climate = *m_handler.project().mapperModel()->mapper(0);
	EXPECT_EQ(climate.name(), "outdoor temperature [C]");
	EXPECT_EQ(climate.chartModel()->seriesData(1, LM::SeriesTitleText).toString(), "outdoor relative humidity [%]");
	EXPECT_EQ(climate.chartModel()->axisData(CM::LeftAxis, CM::AxisTitle).toString(), "outdoor temperature [C] [-]");
	// 2: wall temperature profile at the cold time
	select({ "wall_temperature.s6b" });
	ASSERT_EQ(options.selectionKind(), OVP::DataSetOptions::SK_Field);
	cutAtColdTime();
	EXPECT_EQ(creator.createChart(options), 1);
	// 3: wall temperature over depth and time
	options.setCutType(EM::CT_NoCut);
	EXPECT_EQ(creator.createChart(options), 2);
	// 4, 5: corner temperature field and heat flux at the cold time
	select({ "corner_temperature.s6b" });
	cutAtColdTime();
	EXPECT_EQ(creator.createChart(options), 3);
	select({ "corner_heatflux.s6b" });
	cutAtColdTime();
	EXPECT_EQ(creator.createChart(options), 4);
	// 6, 7: the models, each from a temperature and a relative humidity file
	select({ "corner_surface_temperature.s6b", "corner_surface_relhum.s6b" });
	ASSERT_EQ(options.selectionKind(), OVP::DataSetOptions::SK_TwoSeries);
	options.setModelType("VTTMouldModel");
	EXPECT_EQ(creator.createChart(options), 5);
	select({ "wall_interface_temperature.s6b", "wall_interface_relhum.s6b" });
	options.setModelType("VTTWoodDegradation");
	EXPECT_EQ(creator.createChart(options), 6);
	for (const OVPTest::TestUserInteraction::Shown & s : ui->m_shown)
		ADD_FAILURE() << s.m_title.toStdString() << ": " << s.m_text.toStdString();
	ASSERT_EQ(m_handler.project().mapperModel()->mapperCount(), DEMO::SessionBuilder::CHART_COUNT);

	const auto compare = [&](const char * when) {
		for (int i = 0; i < DEMO::SessionBuilder::CHART_COUNT; ++i)
			EXPECT_TRUE(sameNumbers(demo[i], chartNumbers(*m_handler.project().mapperModel()->mapper(i))))
					<< "chart " << i + 1 << " " << when;
	};
	for (int i = 0; i < DEMO::SessionBuilder::CHART_COUNT; ++i)
		for (int axis = 0; axis < CM::NUM_AXES; ++axis)
			m_handler.project().mapperModel()->mapper(i)->chartModel()->setAxisData(demoAxisUnits[i][axis], axis,
																					 CM::AxisUnit);
	compare("as made");
	const QString file = QDir(m_root->path()).filePath("session/new.o2");
	ASSERT_EQ(m_handler.saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(m_handler.loadProject(nullptr, file, false));
	ASSERT_EQ(m_handler.project().mapperModel()->mapperCount(), DEMO::SessionBuilder::CHART_COUNT);
	compare("after saving and opening");
}
